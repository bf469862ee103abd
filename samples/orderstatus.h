// Generated enumerations OrderStatus and Priority, and the collection of OrderStatus.
#pragma once

#include <orvexxml/orvexxml.h>

#include <deque>
#include <string>
#include <vector>

namespace Samples {

enum OrderStatus {
    OrderStatus_pending = 0,
    OrderStatus_shipped = 1,
    OrderStatus_delivered = 2,
    OrderStatus_cancelled = 3
};
const char* OrderStatus_EnumToText(int nValue);
int OrderStatus_TextToEnum(const char* pszText);

enum Priority { Priority_low = 0, Priority_normal = 1, Priority_high = 2 };
const char* Priority_EnumToText(int nValue);
int Priority_TextToEnum(const char* pszText);

// A repeating element of type OrderStatus.
class COrderStatusCol : public OrvexXml::CXmlTypeCollection, public OrvexXml::CInstanceMonitor {
public:
    COrderStatusCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);

    void Add(OrderStatus value) { AddAt(GetCount(), value); }
    void AddAt(int nIndex, OrderStatus value);
    OrderStatus Item(int nIndex) const;
    int GetCount() const override { return static_cast<int>(m_items.size()); }
    void Clear() override;
    void Remove(int nIndex) override;

    std::deque<OrderStatus>::const_iterator begin() const { return m_items.begin(); }
    std::deque<OrderStatus>::const_iterator end() const { return m_items.end(); }

protected:
    ~COrderStatusCol() override;
    void ToXml_Int(OrvexXml::CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                   const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) const override;
    void AddFromString(const std::string& strText) override;

private:
    void RemoveOne(int nIndex);

    std::deque<OrderStatus> m_items;
};

}  // namespace Samples
