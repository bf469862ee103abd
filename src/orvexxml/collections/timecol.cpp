#include "orvexxml/collections/timecol.h"

#include "orvexxml/values/conversions.h"

namespace OrvexXml {

CtimeCol::CtimeCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs,
                   const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                   const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                   OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                   CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride)
    : CdatetimeBaseCol(ItemType_time, "CtimeCol", pszElementName, pszNamespace, nMinOccurs, nMaxOccurs, pszPattern,
                       nMinLength, nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive, pszMaxExclusive,
                       nLength, nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride) {}

CtimeCol::~CtimeCol() {}

void CtimeCol::AddAt(int nIndex, const CDateTime& value) {
    AddOfKind(nIndex, value, CDateTime::dt_time, "Dates added to this collection must be of type dt_time");
}

std::string CtimeCol::ItemToString(const CDateTime& value) const { return CConversions::timeToString(value); }

void CtimeCol::AddFromString(const std::string& strText) {
    Add(CConversions::timeFromString(strText, m_eWhitespaceRule));
}

}  // namespace OrvexXml
