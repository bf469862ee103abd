#include "orvexxml/collections/yearmonthcol.h"

#include "orvexxml/values/conversions.h"

namespace OrvexXml {

CyearMonthCol::CyearMonthCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs,
                             const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                             const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                             OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                             CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride)
    : CdatetimeBaseCol(ItemType_yearMonth, "CyearMonthCol", pszElementName, pszNamespace, nMinOccurs, nMaxOccurs,
                       pszPattern, nMinLength, nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive,
                       pszMaxExclusive, nLength, nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride) {}

CyearMonthCol::~CyearMonthCol() {}

void CyearMonthCol::AddAt(int nIndex, const CDateTime& value) {
    AddOfKind(nIndex, value, CDateTime::dt_gYearMonth, "Dates added to this collection must be of type dt_gYearMonth");
}

std::string CyearMonthCol::ItemToString(const CDateTime& value) const { return CConversions::yearMonthToString(value); }

void CyearMonthCol::AddFromString(const std::string& strText) {
    Add(CConversions::yearMonthFromString(strText, m_eWhitespaceRule));
}

}  // namespace OrvexXml
