// Generated class for the element orderBook, the document element of the order book: the
// time the book was made and its orders.
#pragma once

#include <orvexxml/orvexxml.h>

#include "order.h"

namespace OrderBook {

class COrderBook : public OrvexXml::CXmlGeneratedClass {
public:
    COrderBook();
    virtual ~COrderBook();

    static OrvexXml::CSmartPtr<COrderBook> CreateInstance() { return new COrderBook(); }

    // @generated: xs:dateTime, optional
    const OrvexXml::CDateTime& GetGenerated() const { return m_Generated; }
    void SetGenerated(const OrvexXml::CDateTime& value);
    bool IsValidGenerated() const { return m_bValidGenerated; }
    void SetValidGenerated(bool bValid) { m_bValidGenerated = bValid; }
    // order: Order, 0 to unbounded
    COrderCol& GetOrder() { return *m_Order; }
    const COrderCol& GetOrder() const { return *m_Order; }

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
    COrderBook(const COrderBook&) = delete;
    COrderBook& operator=(const COrderBook&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    OrvexXml::CDateTime m_Generated;
    bool m_bValidGenerated;
    OrvexXml::CSmartPtr<COrderCol> m_Order;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace OrderBook
