#include "orvexxml/values/primitiverestrictions.h"

namespace OrvexXml {

namespace {
const OxLong NOT_SET = -1;

std::string TextOrEmpty(const char* psz) { return psz ? std::string(psz) : std::string(); }
}  // namespace

CPrimitiveRestrictions::CPrimitiveRestrictions()
    : m_minLength(NOT_SET),
      m_maxLength(NOT_SET),
      m_length(NOT_SET),
      m_totalDigits(NOT_SET),
      m_fractionDigits(NOT_SET) {}

CPrimitiveRestrictions::CPrimitiveRestrictions(const char* pszPattern, OxLong minLength, OxLong maxLength,
                                               const char* pszMinInclusive, const char* pszMaxInclusive,
                                               const char* pszMinExclusive, const char* pszMaxExclusive, OxLong length,
                                               OxLong totalDigits, OxLong fractionDigits)
    : m_pattern(TextOrEmpty(pszPattern)),
      m_minLength(minLength),
      m_maxLength(maxLength),
      m_minInclusive(TextOrEmpty(pszMinInclusive)),
      m_maxInclusive(TextOrEmpty(pszMaxInclusive)),
      m_minExclusive(TextOrEmpty(pszMinExclusive)),
      m_maxExclusive(TextOrEmpty(pszMaxExclusive)),
      m_length(length),
      m_totalDigits(totalDigits),
      m_fractionDigits(fractionDigits) {}

CPrimitiveRestrictions::~CPrimitiveRestrictions() {}

}  // namespace OrvexXml
