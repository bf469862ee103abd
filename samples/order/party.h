// Generated class for the complex type Party of the order book: the customer of an order,
// with a name, an optional e-mail address and an optional vip flag.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace OrderBook {

class CParty : public OrvexXml::CXmlGeneratedClass {
public:
    CParty();
    virtual ~CParty();

    static OrvexXml::CSmartPtr<CParty> CreateInstance() { return new CParty(); }

    // @vip: xs:boolean, optional
    bool GetVip() const { return m_Vip; }
    void SetVip(bool value);
    bool IsValidVip() const { return m_bValidVip; }
    void SetValidVip(bool bValid) { m_bValidVip = bValid; }
    // name: xs:string, mandatory
    const std::string& GetName() const { return m_Name; }
    void SetName(const std::string& value) { m_Name = value; }
    // email: xs:string, optional
    const std::string& GetEmail() const { return m_Email; }
    void SetEmail(const std::string& value);
    bool IsValidEmail() const { return m_bValidEmail; }
    void SetValidEmail(bool bValid) { m_bValidEmail = bValid; }

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
    CParty(const CParty&) = delete;
    CParty& operator=(const CParty&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    bool m_Vip;
    bool m_bValidVip;
    std::string m_Name;
    std::string m_Email;
    bool m_bValidEmail;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace OrderBook
