#include "orvexxml/collections/monthdaycol.h"

#include "orvexxml/values/conversions.h"

namespace OrvexXml {

CmonthDayCol::CmonthDayCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs,
                           const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                           const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                           OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                           CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride)
    : CdatetimeBaseCol(ItemType_monthDay, "CmonthDayCol", pszElementName, pszNamespace, nMinOccurs, nMaxOccurs,
                       pszPattern, nMinLength, nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive,
                       pszMaxExclusive, nLength, nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride) {}

CmonthDayCol::~CmonthDayCol() {}

void CmonthDayCol::AddAt(int nIndex, const CDateTime& value) {
    AddOfKind(nIndex, value, CDateTime::dt_gMonthDay, "Dates added to this collection must be of type dt_gMonthDay");
}

std::string CmonthDayCol::ItemToString(const CDateTime& value) const { return CConversions::monthDayToString(value); }

void CmonthDayCol::AddFromString(const std::string& strText) {
    Add(CConversions::monthDayFromString(strText, m_eWhitespaceRule));
}

}  // namespace OrvexXml
