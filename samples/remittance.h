// Generated class for the element Remittance of urn:orvex:samples:remittance, whose schema
// qualifies its attributes.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "orderstatus.h"

namespace Samples {

class CRemittance : public OrvexXml::CXmlGeneratedClass {
public:
    CRemittance();
    CRemittance(const CRemittance& rhs);
    CRemittance& operator=(const CRemittance& rhs);
    virtual ~CRemittance();

    static OrvexXml::CSmartPtr<CRemittance> CreateInstance() { return new CRemittance(); }

    // Attribute reference: xs:string, required
    const std::string& GetReference() const { return m_Reference; }
    void SetReference(const std::string& value) { m_Reference = value; }
    // Attribute urgency: Priority, optional, default normal
    Priority GetUrgency() const { return m_Urgency; }
    void SetUrgency(Priority value) {
        m_Urgency = value;
        m_bValidUrgency = true;
    }
    bool IsValidUrgency() const { return m_bValidUrgency; }
    void SetValidUrgency(bool bValid) { m_bValidUrgency = bValid; }
    // Payer: xs:string, mandatory
    const std::string& GetPayer() const { return m_Payer; }
    void SetPayer(const std::string& value) { m_Payer = value; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:remittance"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:remittance"; }

private:
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Reference;
    Priority m_Urgency;
    bool m_bValidUrgency;
    std::string m_Payer;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
