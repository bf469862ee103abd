// Generated class for the element Card of a payment. Payment by card: the holder and the card number.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CCard : public OrvexXml::CXmlGeneratedClass {
public:
    CCard();
    CCard(const CCard& rhs);
    CCard& operator=(const CCard& rhs);
    virtual ~CCard();

    static OrvexXml::CSmartPtr<CCard> CreateInstance() { return new CCard(); }

    // Holder: xs:string, mandatory
    const std::string& GetHolder() const { return m_Holder; }
    void SetHolder(const std::string& value) { m_Holder = value; }
    // Number: xs:string, mandatory
    const std::string& GetNumber() const { return m_Number; }
    void SetNumber(const std::string& value) { m_Number = value; }

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

    std::string m_Holder;
    std::string m_Number;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
