// Generated class for the element Customer of an order: a name, an optional address and an
// optional vip flag.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "address.h"

namespace Samples {

class CCustomer : public OrvexXml::CXmlGeneratedClass {
public:
    CCustomer();
    virtual ~CCustomer();

    static OrvexXml::CSmartPtr<CCustomer> CreateInstance() { return new CCustomer(); }

    // @vip: xs:boolean, optional
    bool GetVip() const { return m_Vip; }
    void SetVip(bool value);
    bool IsValidVip() const { return m_bValidVip; }
    void SetValidVip(bool bValid) { m_bValidVip = bValid; }
    // Name: xs:string, mandatory
    const std::string& GetName() const { return m_Name; }
    void SetName(const std::string& value) { m_Name = value; }
    // Address: Address, optional. The object takes the element name Address.
    OrvexXml::CSmartPtr<CAddress> GetAddress() const { return m_Address; }
    void SetAddress(CAddress* value);

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
    CCustomer(const CCustomer&) = delete;
    CCustomer& operator=(const CCustomer&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    bool m_Vip;
    bool m_bValidVip;
    std::string m_Name;
    OrvexXml::CSmartPtr<CAddress> m_Address;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
