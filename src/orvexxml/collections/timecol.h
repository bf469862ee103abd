#pragma once

#include <string>

#include "orvexxml/collections/datetimebasecol.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of times of day (xs:time): only values of kind dt_time are taken.
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CtimeCol : public CdatetimeBaseCol {
public:
    CtimeCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs,
             const char* pszPattern, OxLong nMinLength, OxLong nMaxLength, const char* pszMinInclusive,
             const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive, OxLong nLength,
             OxLong nTotalDigits, OxLong nFractionDigits, CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
             const char* pszFormatOverride);

    using CdatetimeBaseCol::Add;
    void AddAt(int nIndex, const CDateTime& value) override;
    std::string ItemToString(const CDateTime& value) const override;

protected:
    ~CtimeCol() override;

    void AddFromString(const std::string& strText) override;
};

}  // namespace OrvexXml
