// Generated class for the element InvoiceLine: a sequence with attributes.
#pragma once

#include <orvexxml/orvexxml.h>

#include <cstdint>
#include <string>

#include "orderstatus.h"

namespace Samples {

class CInvoiceLine : public OrvexXml::CXmlGeneratedClass {
public:
    CInvoiceLine();
    CInvoiceLine(const CInvoiceLine& rhs);
    CInvoiceLine& operator=(const CInvoiceLine& rhs);
    virtual ~CInvoiceLine();

    static OrvexXml::CSmartPtr<CInvoiceLine> CreateInstance() { return new CInvoiceLine(); }

    // Attribute id: xs:int, required
    int32_t GetId() const { return m_Id; }
    void SetId(int32_t value) { m_Id = value; }
    // Attribute currency: xs:string, optional, default "EUR"
    const std::string& GetCurrency() const { return m_Currency; }
    void SetCurrency(const std::string& value) {
        m_Currency = value;
        m_bValidCurrency = true;
    }
    bool IsValidCurrency() const { return m_bValidCurrency; }
    void SetValidCurrency(bool bValid) { m_bValidCurrency = bValid; }
    // Attribute priority: Priority, optional
    Priority GetPriority() const { return m_Priority; }
    void SetPriority(Priority value) {
        m_Priority = value;
        m_bValidPriority = true;
    }
    bool IsValidPriority() const { return m_bValidPriority; }
    void SetValidPriority(bool bValid) { m_bValidPriority = bValid; }
    // Attribute status: OrderStatus, required
    OrderStatus GetStatus() const { return m_Status; }
    void SetStatus(OrderStatus value) { m_Status = value; }
    // Attribute xml:lang: xs:language, optional
    const std::string& GetLang() const { return m_Lang; }
    void SetLang(const std::string& value) {
        m_Lang = value;
        m_bValidLang = true;
    }
    bool IsValidLang() const { return m_bValidLang; }
    void SetValidLang(bool bValid) { m_bValidLang = bValid; }
    // Description: xs:string, mandatory
    const std::string& GetDescription() const { return m_Description; }
    void SetDescription(const std::string& value) { m_Description = value; }
    // Quantity: xs:int, mandatory
    int32_t GetQuantity() const { return m_Quantity; }
    void SetQuantity(int32_t value) { m_Quantity = value; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return ""; }

private:
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    int32_t m_Id;
    std::string m_Currency;
    bool m_bValidCurrency;
    Priority m_Priority;
    bool m_bValidPriority;
    OrderStatus m_Status;
    std::string m_Lang;
    bool m_bValidLang;
    std::string m_Description;
    int32_t m_Quantity;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
