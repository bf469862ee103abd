#include "orvexxml/collections/datetimebasecol.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/values/validatevalue.h"

namespace OrvexXml {

CdatetimeBaseCol::CdatetimeBaseCol(ItemType eItemType, const char* pszClassName, const char* pszElementName,
                                   const char* pszNamespace, int nMinOccurs, int nMaxOccurs, const char* pszPattern,
                                   OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                                   const char* pszMaxInclusive, const char* pszMinExclusive,
                                   const char* pszMaxExclusive, OxLong nLength, OxLong nTotalDigits,
                                   OxLong nFractionDigits, CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
                                   const char* pszFormatOverride)
    : CXmlPrimitiveCollection<ItemType_datetime>(eItemType, pszClassName, pszElementName, pszNamespace, nMinOccurs,
                                                 nMaxOccurs, pszPattern, nMinLength, nMaxLength, pszMinInclusive,
                                                 pszMaxInclusive, pszMinExclusive, pszMaxExclusive, nLength,
                                                 nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride) {}

CdatetimeBaseCol::~CdatetimeBaseCol() {}

void CdatetimeBaseCol::Add(const CDateTime& value) { AddAt(GetCount(), value); }

CDateTime CdatetimeBaseCol::Item(int nIndex) const { return CXmlPrimitiveCollection<ItemType_datetime>::Item(nIndex); }

void CdatetimeBaseCol::BaseAddAt(int nIndex, const CDateTime& value) { InsertAt(nIndex, value, false); }

void CdatetimeBaseCol::AddOfKind(int nIndex, const CDateTime& value, CDateTime::DTType eKind,
                                 const char* pszWrongKind) {
    if (value.GetType() != eKind) throw COxInvalidParamException(pszWrongKind);
    ValidateValue(GetElementName().c_str(), value, m_restrictions);
    BaseAddAt(nIndex, value);
}

void CdatetimeBaseCol::ToXml_Int(CXmlWriter* pWriter, bool, const char*, const CSerializationContext& ctx, bool) const {
    ValidateCount(ctx);
    const std::string& strName = GetElementName();
    for (const_iterator it = begin(); it != end(); ++it) {
        pWriter->WriteStartElement(strName, m_strNamespace);
        pWriter->WriteElementText(ItemToString(*it), ItemType_datetime, false);
        pWriter->WriteEndElement();
    }
}

CXmlElement* CdatetimeBaseCol::FromXml_Int(CXmlElement*, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                                           bool) {
    return ReadItems(pFirstChild, ctx, [this](const std::string& strText) { AddFromString(strText); });
}

}  // namespace OrvexXml
