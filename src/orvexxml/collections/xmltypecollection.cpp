#include "orvexxml/collections/xmltypecollection.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

CXmlTypeCollection::CXmlTypeCollection(ItemType eItemType, const char* pszElementName, const char* pszNamespace,
                                       int nMinOccurs, int nMaxOccurs, const char* pszPattern, OxLong nMinLength,
                                       OxLong nMaxLength, const char* pszMinInclusive, const char* pszMaxInclusive,
                                       const char* pszMinExclusive, const char* pszMaxExclusive, OxLong nLength,
                                       OxLong nTotalDigits, OxLong nFractionDigits,
                                       CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride)
    : CXmlCollectionBase(pszElementName, pszNamespace, nMinOccurs, nMaxOccurs),
      m_restrictions(pszPattern, nMinLength, nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive,
                     pszMaxExclusive, nLength, nTotalDigits, nFractionDigits),
      m_eItemType(eItemType),
      m_strFormatOverride(pszFormatOverride ? pszFormatOverride : ""),
      m_eWhitespaceRule(eWhitespaceRule) {}

CXmlTypeCollection::~CXmlTypeCollection() {}

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                                             bool) {
    return ReadItems(pFirstChild, ctx, [this](const std::string& strText) { AddFromString(strText); });
}

void CXmlTypeCollection::ThrowInsertIndexOutOfRange() { throw COxInvalidParamException("Index out of range"); }

void CXmlTypeCollection::ThrowItemIndexOutOfRange(int nIndex, int nCount) {
    throw COxInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", nIndex, nCount - 1));
}

}  // namespace OrvexXml
