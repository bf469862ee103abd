#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "orvexxml/collections/xmltypecollection.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/values/itemtypetraits.h"
#include "orvexxml/writers/xmlwriter.h"

namespace OrvexXml {

// What sets the primitive collections apart: the item type, the class name under which
// instances are counted, and the conversions between an item and its text, all taken from
// the kind's CItemTypeTraits.
//
// ToText takes the format override; only the float kinds use it (an empty one means the
// default format). FromText applies the whitespace rule and refuses a text that doesn't fit
// with the conversion's COxInvalidValueException.
template <ItemType eType>
struct CXmlPrimitiveTraits : CItemTypeTraits<eType> {
    static constexpr const char* ClassName = CItemTypeTraits<eType>::CollectionName;
};

// The shared implementation of the primitive collections. Items are held by value, in
// order, in one std::vector (duplicates allowed); each concrete class (Ci4Col, CstringCol,
// ...) only names its ItemType. Instances are counted by CInstanceMonitor under the
// concrete class's name.
//
// Events: add carries the address of the value being added, add complete the address of
// the stored item (of the value added, for bool, whose packed storage has no addresses);
// remove and remove complete a pointer to the index. The add and remove events come before
// the index is checked, so a listener may hear an add or remove that then fails, and gets
// nothing more for it. A change that a listener refuses by throwing is undone before the
// exception goes on (see CXmlCollectionBase).
template <ItemType eType>
class ORVEXXML_API CXmlPrimitiveCollection : public CXmlTypeCollection, public CInstanceMonitor {
public:
    typedef CXmlPrimitiveTraits<eType> Traits;
    typedef typename Traits::ValueType ValueType;
    typedef typename std::vector<ValueType>::iterator iterator;
    typedef typename std::vector<ValueType>::const_iterator const_iterator;

    // The arguments of CXmlTypeCollection after the ItemType: element name, namespace,
    // minOccurs, maxOccurs (-1 unbounded), the ten facets, the whitespace rule of input text
    // and the format override of output (null or empty for the default format).
    CXmlPrimitiveCollection(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs,
                            const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                            const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                            OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                            CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride);

    // AddAt(GetCount(), value).
    void Add(ValueType value);
    // Inserts value before position nIndex; nIndex equal to the count appends. Fires add
    // first, then throws COxInvalidParamException "Index out of range" for an index outside
    // 0 to count, then checks the value against the facets (throwing the check's exception);
    // on success fires add complete and change.
    void AddAt(int nIndex, ValueType value);
    // A copy of the item; COxInvalidParamException "Index %d is out of range, use 0 - %d"
    // for an index outside 0 to count - 1. No events.
    ValueType Item(int nIndex) const;

    int GetCount() const override { return static_cast<int>(m_items.size() - m_nCleared); }
    // Removes the items from the front one by one, each firing remove, remove complete and
    // change with index 0 as Remove(0) would, in time linear in the count. A refusal puts
    // every item back.
    void Clear() override;
    // Fires remove, then throws as Item does for a bad index; on success erases the item and
    // fires remove complete and change.
    void Remove(int nIndex) override;

    // Direct access to the items. Writing through these bypasses all checks and events.
    iterator begin() { return m_items.begin() + static_cast<std::ptrdiff_t>(m_nCleared); }
    iterator end() { return m_items.end(); }
    const_iterator begin() const { return m_items.begin() + static_cast<std::ptrdiff_t>(m_nCleared); }
    const_iterator end() const { return m_items.end(); }

protected:
    // For a family of collections over one item type: the type the collection reports and
    // the class name under which it is counted.
    CXmlPrimitiveCollection(ItemType eItemType, const char* pszClassName, const char* pszElementName,
                            const char* pszNamespace, int nMinOccurs, int nMaxOccurs, const char* pszPattern,
                            OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                            const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                            OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                            CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride);
    ~CXmlPrimitiveCollection() override;

    // AddAt's steps, with the facet check only when bCheck says so.
    void InsertAt(int nIndex, ValueType value, bool bCheck);

    // Validates the count (throwing on a count outside the limits unless the context ignores
    // counts), then writes one element per item with the collection's own name and namespace.
    // The namespace and flag arguments are not used.
    void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                   bool bOptionalChoice) const override;
    // The reading loop of CXmlTypeCollection, converting and adding each text directly.
    CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;
    // Converts strText with the item type's conversion and the whitespace rule, then adds it.
    void AddFromString(const std::string& strText) override;

    std::vector<ValueType> m_items;

private:
    // While Clear runs, the items it has already taken out, still at the front of m_items
    // until it ends; 0 at any other time. The items of the collection are those behind them.
    size_t m_nCleared;
};

template <ItemType eType>
CXmlPrimitiveCollection<eType>::CXmlPrimitiveCollection(
    const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs, const char* pszPattern,
    OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive, const char* pszMaxInclusive,
    const char* pszMinExclusive, const char* pszMaxExclusive, OxLong nLength, OxLong nTotalDigits,
    OxLong nFractionDigits, CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride)
    : CXmlTypeCollection(eType, pszElementName, pszNamespace, nMinOccurs, nMaxOccurs, pszPattern, nMinLength,
                         nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive, pszMaxExclusive, nLength,
                         nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride),
      CInstanceMonitor(Traits::ClassName),
      m_nCleared(0) {}

template <ItemType eType>
CXmlPrimitiveCollection<eType>::CXmlPrimitiveCollection(
    ItemType eItemType, const char* pszClassName, const char* pszElementName, const char* pszNamespace, int nMinOccurs,
    int nMaxOccurs, const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
    const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive, OxLong nLength,
    OxLong nTotalDigits, OxLong nFractionDigits, CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
    const char* pszFormatOverride)
    : CXmlTypeCollection(eItemType, pszElementName, pszNamespace, nMinOccurs, nMaxOccurs, pszPattern, nMinLength,
                         nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive, pszMaxExclusive, nLength,
                         nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride),
      CInstanceMonitor(pszClassName),
      m_nCleared(0) {}

template <ItemType eType>
CXmlPrimitiveCollection<eType>::~CXmlPrimitiveCollection() {}

template <ItemType eType>
void CXmlPrimitiveCollection<eType>::Add(ValueType value) {
    AddAt(GetCount(), std::move(value));
}

template <ItemType eType>
void CXmlPrimitiveCollection<eType>::AddAt(int nIndex, ValueType value) {
    InsertAt(nIndex, std::move(value), true);
}

template <ItemType eType>
void CXmlPrimitiveCollection<eType>::InsertAt(int nIndex, ValueType value, bool bCheck) {
    CChangeScope scope(this);  // no Clear under way from here on, so m_nCleared is 0
    FireOnCollectionAdd(&value);
    CheckInsertIndex(nIndex, static_cast<int>(m_items.size()));
    // A refused value leaves the collection as it was.
    if (bCheck) Traits::Validate(GetElementName().c_str(), value, m_restrictions);
    iterator itStored = m_items.insert(m_items.begin() + nIndex, std::move(value));
    try {
        if constexpr (std::is_same<ValueType, bool>::value) {
            (void)itStored;
            FireOnCollectionAddComplete(&value);
        } else {
            FireOnCollectionAddComplete(&*itStored);
        }
        FireOnCollectionChange();
    } catch (...) {
        m_items.erase(m_items.begin() + nIndex);  // refused: the item goes again
        throw;
    }
}

template <ItemType eType>
typename CXmlPrimitiveCollection<eType>::ValueType CXmlPrimitiveCollection<eType>::Item(int nIndex) const {
    CheckItemIndex(nIndex, GetCount());
    return m_items[m_nCleared + static_cast<size_t>(nIndex)];
}

template <ItemType eType>
void CXmlPrimitiveCollection<eType>::Clear() {
    if (m_items.empty()) return;
    CChangeScope scope(this);
    // Items leave one by one from the front, each with its events. Nobody can observe that
    // without a listener, so then the vector is emptied at once.
    if (m_listeners.empty()) {
        m_items.clear();
        return;
    }
    // Erasing the front item each time would shift the rest, quadratic in the count. Instead
    // the front moves past the removed items, which a listener sees gone (count, Item, begin)
    // while they stay in place, so that a refusal can take them all back by moving it home.
    try {
        while (m_nCleared < m_items.size()) {
            FireOnCollectionRemove(0);
            ++m_nCleared;
            FireOnCollectionRemoveComplete(0);
            FireOnCollectionChange();
        }
    } catch (...) {
        m_nCleared = 0;
        throw;
    }
    m_nCleared = 0;
    m_items.clear();
}

template <ItemType eType>
void CXmlPrimitiveCollection<eType>::Remove(int nIndex) {
    CChangeScope scope(this);  // no Clear under way from here on, so m_nCleared is 0
    FireOnCollectionRemove(nIndex);
    CheckItemIndex(nIndex, GetCount());
    // Kept until the events have passed: a refusal puts it back where it was. The vector has
    // room for it again, so that insertion doesn't allocate.
    ValueType removed = std::move(m_items[static_cast<size_t>(nIndex)]);
    m_items.erase(m_items.begin() + nIndex);
    try {
        FireOnCollectionRemoveComplete(nIndex);
        FireOnCollectionChange();
    } catch (...) {
        m_items.insert(m_items.begin() + nIndex, std::move(removed));
        throw;
    }
}

template <ItemType eType>
void CXmlPrimitiveCollection<eType>::ToXml_Int(CXmlWriter* pWriter, bool, const char*, const CSerializationContext& ctx,
                                               bool) const {
    ValidateCount(ctx);
    const std::string& strName = GetElementName();
    for (const_iterator it = begin(); it != end(); ++it) {
        pWriter->WriteStartElement(strName, m_strNamespace);
        pWriter->WriteElementText(Traits::ToText(*it, m_strFormatOverride.c_str()), eType, false);
        pWriter->WriteEndElement();
    }
}

template <ItemType eType>
CXmlElement* CXmlPrimitiveCollection<eType>::FromXml_Int(CXmlElement*, CXmlElement* pFirstChild,
                                                         const CSerializationContext& ctx, bool) {
    return ReadItems(pFirstChild, ctx, [this](const std::string& strText) {
        AddAt(GetCount(), Traits::FromText(strText, m_eWhitespaceRule));
    });
}

template <ItemType eType>
void CXmlPrimitiveCollection<eType>::AddFromString(const std::string& strText) {
    Add(Traits::FromText(strText, m_eWhitespaceRule));
}

// The instantiations live in the library; code that includes this header links to them.
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_i1>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_i2>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_i4>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_i8>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_ui1>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_ui2>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_ui4>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_ui8>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_r4>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_r8>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_string>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_boolean>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_hexBinary>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_base64Binary>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_duration>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_year>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_month>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_day>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_decimal>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_integer>;
extern template class ORVEXXML_API CXmlPrimitiveCollection<ItemType_datetime>;

}  // namespace OrvexXml
