#include "orvexxml/values/primitiverestrictions.h"

#include "orvexxml/values/oxvariant.h"

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
      m_fractionDigits(NOT_SET),
      m_apBounds{} {}

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
      m_fractionDigits(fractionDigits),
      m_apBounds{} {}

CPrimitiveRestrictions::CPrimitiveRestrictions(const CPrimitiveRestrictions& other)
    : m_pattern(other.m_pattern),
      m_minLength(other.m_minLength),
      m_maxLength(other.m_maxLength),
      m_minInclusive(other.m_minInclusive),
      m_maxInclusive(other.m_maxInclusive),
      m_minExclusive(other.m_minExclusive),
      m_maxExclusive(other.m_maxExclusive),
      m_length(other.m_length),
      m_totalDigits(other.m_totalDigits),
      m_fractionDigits(other.m_fractionDigits),
      m_apBounds{} {}

CPrimitiveRestrictions& CPrimitiveRestrictions::operator=(const CPrimitiveRestrictions& other) {
    if (this == &other) return *this;
    m_pattern = other.m_pattern;
    m_minLength = other.m_minLength;
    m_maxLength = other.m_maxLength;
    m_minInclusive = other.m_minInclusive;
    m_maxInclusive = other.m_maxInclusive;
    m_minExclusive = other.m_minExclusive;
    m_maxExclusive = other.m_maxExclusive;
    m_length = other.m_length;
    m_totalDigits = other.m_totalDigits;
    m_fractionDigits = other.m_fractionDigits;
    // The bounds read so far belong to the former texts.
    for (std::atomic<OxVariant*>& bound : m_apBounds) delete bound.exchange(nullptr);
    return *this;
}

CPrimitiveRestrictions::~CPrimitiveRestrictions() {
    for (std::atomic<OxVariant*>& bound : m_apBounds) delete bound.load();
}

}  // namespace OrvexXml
