#include "orvexxml/values/primitiverestrictions.h"

#include <gtest/gtest.h>

using OrvexXml::CPrimitiveRestrictions;

namespace {

// Distinct values in every position, so that a swapped argument shows.
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
    EXPECT_EQ("",
              r.GetPattern() + r.GetMinInclusive() + r.GetMaxInclusive() + r.GetMinExclusive() + r.GetMaxExclusive());
    for (int n : {r.GetMinLength(), r.GetMaxLength(), r.GetLength(), r.GetTotalDigits(), r.GetFractionDigits()}) {
        EXPECT_LT(n, 0);
    }
}

TEST(PrimitiveRestrictions, FacetsAreStoredInOrderAndCopiedAsValues) {
    CPrimitiveRestrictions original("[a-z]+", 1, 2, "minInc", "maxInc", "minExc", "maxExc", 3, 4, 5);
    ExpectFull(original);
    CPrimitiveRestrictions copy(original);
    CPrimitiveRestrictions assigned;
    ExpectNothingSet(assigned);
    assigned = original;
    original = CPrimitiveRestrictions();
    ExpectNothingSet(original);
    ExpectFull(copy);
    ExpectFull(assigned);
    // What generated code passes for facets it does not set, null texts included.
    ExpectNothingSet(CPrimitiveRestrictions(nullptr, -1, -1, nullptr, "", nullptr, "", -1, -1, -1));
    // Zero is a set facet, not "not set".
    CPrimitiveRestrictions zero("", 0, 0, "", "", "", "", 0, 0, 0);
    EXPECT_EQ(0, zero.GetMinLength());
    EXPECT_EQ(0, zero.GetFractionDigits());
}

}  // namespace
