// Generated class for the element Shop: a run of orders.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "order.h"

namespace Samples {

class CShop : public OrvexXml::CXmlGeneratedClass {
public:
    CShop();
    virtual ~CShop();

    static OrvexXml::CSmartPtr<CShop> CreateInstance() { return new CShop(); }

    // @name: xs:string, optional
    const std::string& GetName() const { return m_Name; }
    void SetName(const std::string& value);
    bool IsValidName() const { return m_bValidName; }
    void SetValidName(bool bValid) { m_bValidName = bValid; }
    // Order: Order, 0 to unbounded
    COrderCol& GetOrder() { return *m_Order; }

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
    CShop(const CShop&) = delete;
    CShop& operator=(const CShop&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Name;
    bool m_bValidName;
    OrvexXml::CSmartPtr<COrderCol> m_Order;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
