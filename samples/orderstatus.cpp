// Generated enumerations OrderStatus and Priority, and the collection of OrderStatus.
#include "orderstatus.h"

#include <cstring>
#include <vector>

using namespace OrvexXml;

namespace Samples {

static const char* const s_OrderStatusText[] = {"pending", "shipped", "delivered", "cancelled"};
static const char* const s_PriorityText[] = {"low", "normal", "high"};

const char* OrderStatus_EnumToText(int nValue) {
    if (nValue < 0 || nValue > 3) {
        throw COxInvalidValueException(FormatString("The value %d is not a valid OrderStatus", nValue));
    }
    return s_OrderStatusText[nValue];
}

int OrderStatus_TextToEnum(const char* pszText) {
    for (int i = 0; i < 4; ++i) {
        if (std::strcmp(pszText, s_OrderStatusText[i]) == 0) return i;
    }
    throw COxInvalidValueException(FormatString("The value [%s] is not a valid OrderStatus", pszText));
}

const char* Priority_EnumToText(int nValue) {
    if (nValue < 0 || nValue > 2) {
        throw COxInvalidValueException(FormatString("The value %d is not a valid Priority", nValue));
    }
    return s_PriorityText[nValue];
}

int Priority_TextToEnum(const char* pszText) {
    for (int i = 0; i < 3; ++i) {
        if (std::strcmp(pszText, s_PriorityText[i]) == 0) return i;
    }
    throw COxInvalidValueException(FormatString("The value [%s] is not a valid Priority", pszText));
}

COrderStatusCol::COrderStatusCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs)
    : CXmlTypeCollection(ItemType_i4, pszElementName, pszNamespace, nMinOccurs, nMaxOccurs, nullptr, -1, -1, nullptr,
                         nullptr, nullptr, nullptr, -1, -1, -1, CWhitespaceUtils::WhitespaceRule_collapse, nullptr),
      CInstanceMonitor("COrderStatusCol") {}

COrderStatusCol::~COrderStatusCol() {}

void COrderStatusCol::AddAt(int nIndex, OrderStatus value) {
    CChangeScope scope(this);
    FireOnCollectionAdd(&value);
    if (nIndex < 0 || nIndex > GetCount()) throw COxInvalidParamException("Index out of range");
    m_items.insert(m_items.begin() + nIndex, value);
    try {
        FireOnCollectionAddComplete(&value);
        FireOnCollectionChange();
    } catch (...) {
        m_items.erase(m_items.begin() + nIndex);  // a refused addition leaves no trace
        throw;
    }
}

OrderStatus COrderStatusCol::Item(int nIndex) const {
    if (nIndex < 0 || nIndex >= GetCount()) {
        throw COxInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", nIndex, GetCount() - 1));
    }
    return m_items[static_cast<size_t>(nIndex)];
}

// Removes from the front, one item at a time with the events of Remove(0); the front of a
// deque goes in constant time. A refusal puts every item back.
void COrderStatusCol::Clear() {
    CChangeScope scope(this);
    std::vector<OrderStatus> removed;
    removed.reserve(m_items.size());
    try {
        while (!m_items.empty()) {
            OrderStatus value = m_items.front();
            RemoveOne(0);
            removed.push_back(value);
        }
    } catch (...) {
        m_items.insert(m_items.begin(), removed.begin(), removed.end());
        throw;
    }
}

void COrderStatusCol::Remove(int nIndex) {
    CChangeScope scope(this);
    RemoveOne(nIndex);
}

void COrderStatusCol::RemoveOne(int nIndex) {
    FireOnCollectionRemove(nIndex);
    if (nIndex < 0 || nIndex >= GetCount()) {
        throw COxInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", nIndex, GetCount() - 1));
    }
    OrderStatus value = m_items[static_cast<size_t>(nIndex)];
    m_items.erase(m_items.begin() + nIndex);
    try {
        FireOnCollectionRemoveComplete(nIndex);
        FireOnCollectionChange();
    } catch (...) {
        m_items.insert(m_items.begin() + nIndex, value);  // a refused removal leaves no trace
        throw;
    }
}

void COrderStatusCol::ToXml_Int(CXmlWriter* pWriter, bool, const char*, const CSerializationContext& ctx, bool) const {
    ValidateCount(ctx);
    for (OrderStatus value : m_items) {
        pWriter->WriteStartElement(GetElementName(), m_strNamespace);
        pWriter->WriteElementText(OrderStatus_EnumToText(value), ItemType_string, false);
        pWriter->WriteEndElement();
    }
}

void COrderStatusCol::AddFromString(const std::string& strText) {
    Add(static_cast<OrderStatus>(OrderStatus_TextToEnum(strText.c_str())));
}

}  // namespace Samples
