#pragma once

#include <atomic>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

class CFacetBounds;
class OxVariant;

// The facet set of a primitive element, attribute or collection, as generated code lays it
// down: bounds and pattern as text, lengths and digit counts as numbers. An empty text or a
// negative number means that the schema gives no such facet. Bounds stay text; they are
// converted with the value's own type when a value is checked; the checks keep each bound
// they have read, so that later checks don't read it again.
class ORVEXXML_API CPrimitiveRestrictions {
public:
    // No facet set. Exists as the target of an assignment.
    CPrimitiveRestrictions();
    // The ten facets in this order; a null text counts as empty.
    CPrimitiveRestrictions(const char* pszPattern, OxLong minLength, OxLong maxLength, const char* pszMinInclusive,
                           const char* pszMaxInclusive, const char* pszMinExclusive, const char* pszMaxExclusive,
                           OxLong length, OxLong totalDigits, OxLong fractionDigits);
    // Copy the ten facets; the copy reads its bounds afresh.
    CPrimitiveRestrictions(const CPrimitiveRestrictions& other);
    CPrimitiveRestrictions& operator=(const CPrimitiveRestrictions& other);
    virtual ~CPrimitiveRestrictions();

    const std::string& GetPattern() const { return m_pattern; }
    OxLong GetMinLength() const { return m_minLength; }
    OxLong GetMaxLength() const { return m_maxLength; }
    const std::string& GetMinInclusive() const { return m_minInclusive; }
    const std::string& GetMaxInclusive() const { return m_maxInclusive; }
    const std::string& GetMinExclusive() const { return m_minExclusive; }
    const std::string& GetMaxExclusive() const { return m_maxExclusive; }
    OxLong GetLength() const { return m_length; }
    OxLong GetTotalDigits() const { return m_totalDigits; }
    OxLong GetFractionDigits() const { return m_fractionDigits; }

private:
    std::string m_pattern;
    OxLong m_minLength;
    OxLong m_maxLength;
    std::string m_minInclusive;
    std::string m_maxInclusive;
    std::string m_minExclusive;
    std::string m_maxExclusive;
    OxLong m_length;
    OxLong m_totalDigits;
    OxLong m_fractionDigits;

    // The four bounds in the order above as values, each filed by the facet checks when
    // they first read it (null until then), and owned here. Filed at most once, through the
    // atomic slot, so that checks in several threads may share the set.
    friend class CFacetBounds;
    mutable std::atomic<OxVariant*> m_apBounds[4];
};

}  // namespace OrvexXml
