#include "orvexxml/values/primitiverestrictions.h"

#include <gtest/gtest.h>

using OrvexXml::CPrimitiveRestrictions;

namespace {

// Distinct values in every position, so that a swapped argument shows.
CPrimitiveRestrictions MakeFull() {
    return CPrimitiveRestrictions("[a-z]+", 1, 2, "minInc", "maxInc", "minExc", "maxExc", 3, 4, 5);
}

void ExpectFull(const CPrimitiveRestrictions& r) {
    EXPECT_EQ("[a-z]+", r.GetPattern());
    EXPECT_EQ(1, r.GetMinLength());
    EXPECT_EQ(2, r.GetMaxLength());
    EXPECT_EQ("minInc", r.GetMinInclusive());
    EXPECT_EQ("maxInc", r.GetMaxInclusive());
    EXPECT_EQ("minExc", r.GetMinExclusive());
    EXPECT_EQ("maxExc", r.GetMaxExclusive());
    EXPECT_EQ(3, r.GetLength());
    EXPECT_EQ(4, r.GetTotalDigits());
    EXPECT_EQ(5, r.GetFractionDigits());
}

void ExpectNothingSet(const CPrimitiveRestrictions& r) {
    EXPECT_TRUE(r.GetPattern().empty());
    EXPECT_LT(r.GetMinLength(), 0);
    EXPECT_LT(r.GetMaxLength(), 0);
    EXPECT_TRUE(r.GetMinInclusive().empty());
    EXPECT_TRUE(r.GetMaxInclusive().empty());
    EXPECT_TRUE(r.GetMinExclusive().empty());
    EXPECT_TRUE(r.GetMaxExclusive().empty());
    EXPECT_LT(r.GetLength(), 0);
    EXPECT_LT(r.GetTotalDigits(), 0);
    EXPECT_LT(r.GetFractionDigits(), 0);
}

TEST(PrimitiveRestrictions, StoresTheTenFacetsInOrder) { ExpectFull(MakeFull()); }

TEST(PrimitiveRestrictions, DefaultSetsNoFacet) { ExpectNothingSet(CPrimitiveRestrictions()); }

TEST(PrimitiveRestrictions, GeneratedNotSetValuesAndNullTexts) {
    CPrimitiveRestrictions r(nullptr, -1, -1, nullptr, "", nullptr, "", -1, -1, -1);
    ExpectNothingSet(r);
    // Zero is a set facet, not "not set".
    CPrimitiveRestrictions zero("", 0, 0, "", "", "", "", 0, 0, 0);
    EXPECT_EQ(0, zero.GetMinLength());
    EXPECT_EQ(0, zero.GetFractionDigits());
}

TEST(PrimitiveRestrictions, CopyAndAssignmentAreIndependentValues) {
    CPrimitiveRestrictions original = MakeFull();
    CPrimitiveRestrictions copy(original);
    ExpectFull(copy);
    CPrimitiveRestrictions assigned;
    assigned = original;
    ExpectFull(assigned);
    original = CPrimitiveRestrictions();
    ExpectNothingSet(original);
    ExpectFull(copy);
    ExpectFull(assigned);
}

}  // namespace
