// Generated class for the model group Signoff that closes an order: it has no tags of its own,
// and its SignedBy must be there.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CSignoff : public OrvexXml::CXmlGeneratedClass {
public:
    CSignoff();
    CSignoff(const CSignoff& rhs);
    CSignoff& operator=(const CSignoff& rhs);
    virtual ~CSignoff();

    static OrvexXml::CSmartPtr<CSignoff> CreateInstance() { return new CSignoff(); }

    // SignedBy: xs:string, mandatory
    const std::string& GetSignedBy() const { return m_SignedBy; }
    void SetSignedBy(const std::string& value) { m_SignedBy = value; }
    // SignedOn: xs:string, optional
    const std::string& GetSignedOn() const { return m_SignedOn; }
    void SetSignedOn(const std::string& value);
    bool IsValidSignedOn() const { return m_bValidSignedOn; }
    void SetValidSignedOn(bool bValid) { m_bValidSignedOn = bValid; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:shop"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:shop"; }

private:
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_SignedBy;
    std::string m_SignedOn;
    bool m_bValidSignedOn;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
