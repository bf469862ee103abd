#include "orvexxml/collections/datecol.h"

#include "orvexxml/values/conversions.h"

namespace OrvexXml {

CdateCol::CdateCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs,
                   const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                   const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                   OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                   CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride)
    : CdatetimeBaseCol(ItemType_date, "CdateCol", pszElementName, pszNamespace, nMinOccurs, nMaxOccurs, pszPattern,
                       nMinLength, nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive, pszMaxExclusive,
                       nLength, nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride) {}

CdateCol::~CdateCol() {}

void CdateCol::AddAt(int nIndex, const CDateTime& value) {
    AddOfKind(nIndex, value, CDateTime::dt_date, "Dates added to this collection must be of type dt_date");
}

std::string CdateCol::ItemToString(const CDateTime& value) const { return CConversions::dateToString(value); }

void CdateCol::AddFromString(const std::string& strText) {
    Add(CConversions::dateFromString(strText, m_eWhitespaceRule));
}

}  // namespace OrvexXml
