// Generated class for the complex type Address of the order book: the address an order is
// shipped to.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace OrderBook {

class CAddress : public OrvexXml::CXmlGeneratedClass {
public:
    CAddress();
    virtual ~CAddress();

    static OrvexXml::CSmartPtr<CAddress> CreateInstance() { return new CAddress(); }

    // street: xs:string, mandatory
    const std::string& GetStreet() const { return m_Street; }
    void SetStreet(const std::string& value) { m_Street = value; }
    // city: xs:string, mandatory
    const std::string& GetCity() const { return m_City; }
    void SetCity(const std::string& value) { m_City = value; }
    // zip: xs:string, mandatory
    const std::string& GetZip() const { return m_Zip; }
    void SetZip(const std::string& value) { m_Zip = value; }
    // country: xs:string, mandatory
    const std::string& GetCountry() const { return m_Country; }
    void SetCountry(const std::string& value) { m_Country = value; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:example:orders"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:example:orders"; }

private:
    CAddress(const CAddress&) = delete;
    CAddress& operator=(const CAddress&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Street;
    std::string m_City;
    std::string m_Zip;
    std::string m_Country;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace OrderBook
