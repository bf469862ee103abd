#pragma once

#include <string>

#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/export.h"
#include "orvexxml/values/itemtype.h"
#include "orvexxml/values/primitiverestrictions.h"
#include "orvexxml/values/whitespaceutils.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

// Base of the collections of primitive values (Ci4Col, CstringCol, ...): the value type of
// the items, the facets every item must satisfy, the output format of numeric items and the
// whitespace rule of input text.
//
// Reading consumes a run of sibling elements with the collection's name and namespace,
// handing the text of each to AddFromString. Count limits are the caller's to test.
class ORVEXXML_API CXmlTypeCollection : public CXmlCollectionBase {
public:
    // The ten facet arguments are those of CPrimitiveRestrictions, in its order. A null
    // format override is stored as the empty string, which means the default format.
    CXmlTypeCollection(ItemType eItemType, const char* pszElementName, const char* pszNamespace, int nMinOccurs,
                       int nMaxOccurs, const char* pszPattern, OxLong nMinLength, OxLong nMaxLength,
                       const char* pszMinInclusive, const char* pszMaxInclusive, const char* pszMinExclusive,
                       const char* pszMaxExclusive, OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                       CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride);

    ItemType GetItemType() const { return m_eItemType; }
    const CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions; }
    const std::string& GetFormatOverride() const { return m_strFormatOverride; }
    CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_eWhitespaceRule; }

protected:
    ~CXmlTypeCollection() override;

    // Adds an item for each element from pFirstChild on while the element has the
    // collection's name (and namespace, unless namespaces are ignored); returns the first
    // element not consumed, or null.
    CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;

    // --- virtual slot after those of CXmlCollectionBase ----------------------------------
    // Converts the text of one element by the item type and the whitespace rule, and adds it.
    virtual void AddFromString(const std::string& strText) = 0;
    // --- end of virtual slots ----------------------------------------------------------

    // Whether pElement is one of this collection's item elements.
    bool IsItemElement(const CSerializationContext& ctx, const CXmlElement* pElement) const {
        return DoesElementNameMatch(ctx, pElement, GetElementName().c_str(), m_strNamespace.c_str());
    }

    // The reading loop of FromXml_Int: hands the text of each item element from pFirstChild
    // on to addText, and returns the first element that isn't an item. A concrete class
    // passes its own non-virtual add, so that a long run costs no virtual call per item.
    template <class TAddText>
    CXmlElement* ReadItems(CXmlElement* pFirstChild, const CSerializationContext& ctx, TAddText addText) {
        CXmlElement* pCurrent = pFirstChild;
        while (pCurrent && IsItemElement(ctx, pCurrent)) {
            addText(std::string(pCurrent->GetTextView()));
            pCurrent = pCurrent->GetNextSiblingElement();
        }
        return pCurrent;
    }

    // Index checks of the concrete classes. An insertion index may be 0 to nCount:
    // COxInvalidParamException "Index out of range" otherwise. An item index may be 0 to
    // nCount - 1: COxInvalidParamException "Index %d is out of range, use 0 - %d" otherwise.
    static void CheckInsertIndex(int nIndex, int nCount) {
        if (nIndex < 0 || nIndex > nCount) ThrowInsertIndexOutOfRange();
    }
    static void CheckItemIndex(int nIndex, int nCount) {
        if (nIndex < 0 || nIndex >= nCount) ThrowItemIndexOutOfRange(nIndex, nCount);
    }

    CPrimitiveRestrictions m_restrictions;
    ItemType m_eItemType;
    std::string m_strFormatOverride;
    CWhitespaceUtils::WhitespaceRule m_eWhitespaceRule;

private:
    [[noreturn]] static void ThrowInsertIndexOutOfRange();
    [[noreturn]] static void ThrowItemIndexOutOfRange(int nIndex, int nCount);
};

}  // namespace OrvexXml
