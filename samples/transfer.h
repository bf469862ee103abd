// Generated class for the element Transfer of a payment. Payment by bank transfer: the account and an optional
// reference.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CTransfer : public OrvexXml::CXmlGeneratedClass {
public:
    CTransfer();
    CTransfer(const CTransfer& rhs);
    CTransfer& operator=(const CTransfer& rhs);
    virtual ~CTransfer();

    static OrvexXml::CSmartPtr<CTransfer> CreateInstance() { return new CTransfer(); }

    // Iban: xs:string, mandatory
    const std::string& GetIban() const { return m_Iban; }
    void SetIban(const std::string& value) { m_Iban = value; }
    // Reference: xs:string, optional
    const std::string& GetReference() const { return m_Reference; }
    void SetReference(const std::string& value);
    bool IsValidReference() const { return m_bValidReference; }
    void SetValidReference(bool bValid) { m_bValidReference = bValid; }

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

    std::string m_Iban;
    std::string m_Reference;
    bool m_bValidReference;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
