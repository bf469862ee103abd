#pragma once

#include <string>

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"
#include "orvexxml/values/datetime.h"

namespace OrvexXml {

// The shared base of the five collections of dates and times: a vector of CDateTime values,
// each of the kind that the concrete class stands for. The concrete classes test the kind of
// a value and its facets before anything else (before the add event, unlike the other
// primitive collections), read their own text form and write the text of each item's kind.
// Every item is handed to the writer as a dateTime value, whatever the kind.
class ORVEXXML_API CdatetimeBaseCol : public CXmlPrimitiveCollection<ItemType_datetime> {
public:
    // AddAt(GetCount(), value), through the virtual slot.
    virtual void Add(const CDateTime& value);
    // Refuses a value of another kind with COxInvalidParamException, then one that breaks
    // the facets; then adds as BaseAddAt does.
    virtual void AddAt(int nIndex, const CDateTime& value) = 0;
    // A copy of the item; COxInvalidParamException for a bad index.
    virtual CDateTime Item(int nIndex) const;
    // The text of an item.
    virtual std::string ItemToString(const CDateTime& value) const = 0;

protected:
    // The arguments of the other primitive collections, after the item type and class name
    // of the concrete class.
    CdatetimeBaseCol(ItemType eItemType, const char* pszClassName, const char* pszElementName, const char* pszNamespace,
                     int nMinOccurs, int nMaxOccurs, const char* pszPattern, OxLong nMinLength, OxLong nMaxLength,
                     const char* pszMinInclusive, const char* pszMaxInclusive, const char* pszMinExclusive,
                     const char* pszMaxExclusive, OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                     CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride);
    ~CdatetimeBaseCol() override;

    // The add event, the index test, the insertion and the completion events; no checks.
    void BaseAddAt(int nIndex, const CDateTime& value);
    // The AddAt of the concrete classes: the kind test with its refusal, the facets, then
    // BaseAddAt.
    void AddOfKind(int nIndex, const CDateTime& value, CDateTime::DTType eKind, const char* pszWrongKind);

    void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                   bool bOptionalChoice) const override;
    // Reads each text through the concrete class's AddFromString.
    CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;
};

}  // namespace OrvexXml
