#include "orvexxml/collections/datetimecol.h"

#include "orvexxml/values/conversions.h"

namespace OrvexXml {

CdatetimeCol::CdatetimeCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs,
                           const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
                           const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                           OxLong nLength, OxLong nTotalDigits, OxLong nFractionDigits,
                           CWhitespaceUtils::WhitespaceRule eWhitespaceRule, const char* pszFormatOverride)
    : CdatetimeBaseCol(ItemType_datetime, "CdatetimeCol", pszElementName, pszNamespace, nMinOccurs, nMaxOccurs,
                       pszPattern, nMinLength, nMaxLength, pszMinInclusive, pszMaxInclusive, pszMinExclusive,
                       pszMaxExclusive, nLength, nTotalDigits, nFractionDigits, eWhitespaceRule, pszFormatOverride) {}

CdatetimeCol::~CdatetimeCol() {}

void CdatetimeCol::AddAt(int nIndex, const CDateTime& value) {
    AddOfKind(nIndex, value, CDateTime::dt_dateTime, "Dates added to this collection must be of type dt_dateTime");
}

std::string CdatetimeCol::ItemToString(const CDateTime& value) const { return CConversions::datetimeToString(value); }

void CdatetimeCol::AddFromString(const std::string& strText) {
    Add(CConversions::datetimeFromString(strText, m_eWhitespaceRule));
}

}  // namespace OrvexXml
