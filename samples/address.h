// Generated class for the complex type Address of the shop: a postal address, used by the
// elements Address (of a customer) and ShipTo (of an order).
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CAddress : public OrvexXml::CXmlGeneratedClass {
public:
    CAddress();
    CAddress(const CAddress& rhs);
    CAddress& operator=(const CAddress& rhs);
    virtual ~CAddress();

    static OrvexXml::CSmartPtr<CAddress> CreateInstance() { return new CAddress(); }

    // Street: xs:string, mandatory
    const std::string& GetStreet() const { return m_Street; }
    void SetStreet(const std::string& value) { m_Street = value; }
    // City: xs:string, mandatory
    const std::string& GetCity() const { return m_City; }
    void SetCity(const std::string& value) { m_City = value; }
    // Country: xs:string, optional
    const std::string& GetCountry() const { return m_Country; }
    void SetCountry(const std::string& value);
    bool IsValidCountry() const { return m_bValidCountry; }
    void SetValidCountry(bool bValid) { m_bValidCountry = bValid; }

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

    std::string m_Street;
    std::string m_City;
    std::string m_Country;
    bool m_bValidCountry;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
