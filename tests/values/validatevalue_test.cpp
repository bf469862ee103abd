#include "orvexxml/values/validatevalue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "expectthrow.h"
#include "orvexxml/values/conversions.h"
#include "orvexxml/values/decimal.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/values/primitiverestrictions.h"

using namespace OrvexXml;

namespace {

const CWhitespaceUtils::WhitespaceRule kNone = CWhitespaceUtils::WhitespaceRule_none;

CPrimitiveRestrictions Bounds(const char* pszMinInclusive, const char* pszMaxInclusive, const char* pszMinExclusive,
                              const char* pszMaxExclusive) {
    return CPrimitiveRestrictions("", -1, -1, pszMinInclusive, pszMaxInclusive, pszMinExclusive, pszMaxExclusive, -1,
                                  -1, -1);
}

CPrimitiveRestrictions Lengths(OxLong nMin, OxLong nMax, OxLong nLength) {
    return CPrimitiveRestrictions("", nMin, nMax, "", "", "", "", nLength, -1, -1);
}

CPrimitiveRestrictions Digits(OxLong nTotal, OxLong nFraction) {
    return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1, nTotal, nFraction);
}

CPrimitiveRestrictions Pattern(const char* pszPattern) {
    return CPrimitiveRestrictions(pszPattern, -1, -1, "", "", "", "", -1, -1, -1);
}

const CPrimitiveRestrictions kEverything("x", 1, 1, "1", "1", "1", "1", 1, 1, 1);

// The verdict of the check of a value read from text as its kind: "" for a pass, otherwise
// the message of the refusal.
std::string Verdict(ItemType eType, const std::string& strValue, const CPrimitiveRestrictions& restrictions) {
    OxVariant value;
    try {
        value.FromString(strValue, eType, kNone);
    } catch (const COxException& e) {
        return "not read: " + e.GetMessage();
    }
    try {
        ValidatePrimitive("v", value, eType, restrictions);
        return "";
    } catch (const COxException& e) {
        EXPECT_EQ(typeid(COxException), typeid(e)) << e.GetMessage();
        return e.GetMessage();
    }
}

TEST(ValidateValue, EachKindAtInsideAndOutsideItsFacets) {
    struct Case {
        ItemType eType;
        const char* value;
        CPrimitiveRestrictions restrictions;
        const char* verdict;
    };
    const Case cases[] = {
        // Sized integers: the number without a full stop up to 32 bits, with one for 64.
        {ItemType_i1, "-5", Bounds("-5", "", "", ""), ""},
        {ItemType_i1, "-5", Bounds("-4", "", "", ""), "Invalid Value for v [-5]"},
        {ItemType_i2, "7", Bounds("", "7", "", ""), ""},
        {ItemType_i2, "8", Bounds("", "7", "", ""), "Invalid Value for v [8]"},
        {ItemType_i4, "6", Bounds("", "", "5", ""), ""},
        {ItemType_i4, "5", Bounds("", "", "5", ""), "Invalid Value for v [5]"},
        {ItemType_i4, "-12", Digits(2, -1), "Invalid Value for v [-12]"},
        {ItemType_i4, "99", Digits(2, -1), ""},
        {ItemType_i8, "-5", Bounds("0", "", "", ""), "Invalid Value for v [-5]."},
        {ItemType_ui1, "255", Bounds("", "", "", "255"), "Invalid Value for v [255]"},
        {ItemType_ui2, "65535", Digits(5, -1), ""},
        {ItemType_ui4, "4294967295", Bounds("", "4294967294", "", ""), "Invalid Value for v [4294967295]"},
        {ItemType_ui8, "18446744073709551615", Bounds("", "", "", "18446744073709551615"),
         "Invalid Value for v [18446744073709551615]."},
        // Floats: a bound passes only when its comparison holds, so NaN fails every one.
        {ItemType_r8, "1.5", Bounds("", "", "", "1.5"), "Invalid Value for v [1.500000]"},
        {ItemType_r8, "NaN", Bounds("0", "", "", ""), "Invalid Value for v [nan]"},
        {ItemType_r8, "NaN", Bounds("", "", "", ""), ""},
        {ItemType_r4, "1", Bounds("", "", "NaN", ""), "Invalid Value for v [1.000000]"},
        {ItemType_r4, "-INF", Bounds("-1e38", "", "", ""), "Invalid Value for v [-inf]"},
        // Year, month and day read their bounds in their own text forms.
        {ItemType_year, "0999", Bounds("1000", "", "", ""), "Invalid Value for v [999]"},
        {ItemType_month, "--03", Bounds("", "--02", "", ""), "Invalid Value for v [3]"},
        {ItemType_day, "---30", Bounds("", "", "", "---31"), ""},
        // Decimal digits: the whole part without a leading 0, the fraction without trailing
        // zeros.
        {ItemType_decimal, "1.25", Digits(3, -1), ""},
        {ItemType_decimal, "0.125", Digits(3, -1), ""},
        {ItemType_decimal, "10.25", Digits(3, -1), "Invalid Value for v [10.25]."},
        {ItemType_decimal, "1.5000", Digits(-1, 1), ""},
        {ItemType_decimal, "1.55", Digits(-1, 1), "Invalid Value for v [1.55]."},
        {ItemType_decimal, "0.5", Bounds("", "", "0.5", ""), "Invalid Value for v [0.5]."},
        {ItemType_decimal, "-0.5", Bounds("", "", "", "0"), ""},
        {ItemType_integer, "-123", Digits(3, -1), "Invalid Value for v [-123]."},
        {ItemType_integer, "123456789012345678901234567890", Bounds("", "123456789012345678901234567890", "", ""), ""},
        {ItemType_integer, "123456789012345678901234567891", Bounds("", "123456789012345678901234567890", "", ""),
         "Invalid Value for v [123456789012345678901234567891]."},
        // Lengths in bytes.
        {ItemType_string, "\xE2\x82\xAC", Lengths(-1, 2, -1), "Invalid Value for v [\xE2\x82\xAC]."},
        {ItemType_string, "\xE2\x82\xAC", Lengths(-1, -1, 3), ""},
        {ItemType_string, "", Lengths(1, -1, -1), "Invalid Value for v []."},
        {ItemType_hexBinary, "0A0B0C", Lengths(-1, -1, 2), "Invalid Value for v [0A0B0C]."},
        {ItemType_base64Binary, "AAE=", Lengths(4, -1, -1), "Invalid Value for v [AAE=]."},
        {ItemType_boolean, "false", kEverything, ""},
        // Dates and durations: an indeterminate comparison passes all four bounds.
        {ItemType_date, "2024-01-01", Bounds("", "", "2024-01-01", ""), "Invalid Value for v [2024-01-01]."},
        {ItemType_datetime, "2024-01-01T12:00:00",
         Bounds("2024-01-01T12:00:00Z", "2024-01-01T12:00:00Z", "2024-01-01T12:00:00Z", "2024-01-01T12:00:00Z"), ""},
        {ItemType_datetime, "2024-01-02T04:00:00", Bounds("", "", "", "2024-01-01T12:00:00Z"),
         "Invalid Value for v [2024-01-02T04:00:00]."},
        {ItemType_time, "10:00:00", Bounds("", "09:59:59", "", ""), "Invalid Value for v [10:00:00]."},
        {ItemType_duration, "P1M", Bounds("", "P30D", "", ""), ""},
        {ItemType_duration, "P2M", Bounds("", "P30D", "", ""), "Invalid Value for v [P2M]."},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.verdict, Verdict(c.eType, c.value, c.restrictions)) << c.eType << " " << c.value;
    }
}

TEST(ValidateValue, UnreadableBoundsAndKindsWithoutACheck) {
    // A bound that its kind can't read throws the conversion's own error, at its turn only.
    std::string strConversionError;
    try {
        CConversions::i4FromString("abc", CWhitespaceUtils::WhitespaceRule_collapse);
    } catch (const COxInvalidValueException& e) {
        strConversionError = e.GetMessage();
    }
    ASSERT_FALSE(strConversionError.empty());
    EXPECT_OX_THROW(ValidateValue("v", 5, Bounds("", "abc", "", "")), COxInvalidValueException, strConversionError);
    EXPECT_OX_THROW(ValidateValue("v", 5, Bounds("6", "abc", "", "")), COxException, "Invalid Value for v [5]");

    OxVariant value;
    value.SetChar('c');
    EXPECT_OX_THROW(ValidatePrimitive("v", value, ItemType_char, kEverything), COxInvalidValueException,
                    "Unknown type [char].");
    value.m_type = static_cast<ItemType>(99);
    EXPECT_OX_THROW(ValidatePrimitive("v", value, static_cast<ItemType>(99), kEverything), COxException,
                    "Invalid Type 99");
    value.m_type = ItemType_invalid;
    // A C string is checked as a string, not taken for a boolean.
    EXPECT_OX_THROW(ValidateValue("v", "abc", Lengths(-1, 2, -1)), COxException, "Invalid Value for v [abc].");
}

TEST(MatchesPattern, TranslationAnchoringAndFailures) {
    const struct {
        const char* pattern;
        std::string value;
        bool matches;
    } cases[] = {
        {"\\i\\c*", "x-y.z:1", true},
        {"\\i\\c*", "1x", false},
        {"\\I", "1", true},
        {"\\C+", " +", true},
        // An escaped backslash is not the start of \i.
        {"a\\\\i", "a\\i", true},
        {"a\\\\i", "ab", false},
        {"\\p{IsBasicLatin}+", "abc", true},
        {"\\p{IsBasicLatin}", "\xC3\xA9", false},
        {"\\p{IsLatin-1Supplement}", "\xC3\xA9", true},
        {"\\p{IsLatinExtended-A}", "\xC4\x80", true},
        // The whole value must match: "$" alone would let a final line feed through.
        {"abc", "abc\n", false},
        {"abc", "xabc", false},
        {"a|ab", "ab", true},
        // A value that isn't UTF-8 is no match, not an error.
        {"..", "\xC3(", false},
        // Catastrophic backtracking ends at the match limit, as no match.
        {"(a+)+b", std::string(100000, 'a'), false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.matches, MatchesPattern(c.pattern, c.value)) << c.pattern << " on " << c.value.substr(0, 20);
    }
    // The substitutions are plain text, inside a character class too.
    EXPECT_OX_THROW(MatchesPattern("[a\\i]", "a"), COxException,
                    "Invalid Regular Expression: ^([a([^\\W\\d]|:)])$ Error: 'unmatched closing parenthesis'");
    // A pattern that doesn't compile refuses the value with both messages.
    EXPECT_OX_THROW(ValidateValue("v", std::string("abc"), Pattern("abc(")), COxException,
                    "Invalid Regular Expression: ^(abc()$ Error: 'missing closing parenthesis'\n"
                    "Invalid Value for v [abc].");
    // An empty pattern is no pattern.
    ValidateValue("v", std::string("anything"), Pattern(""));
    EXPECT_OX_THROW(ValidateValue("v", std::string("ab1"), Pattern("[a-z]+")), COxException,
                    "Invalid Value for v [ab1].");
}

// Many threads check values against shared and private patterns at once, while the cache of
// compiled patterns fills past its limit and starts again: every verdict stays right.
TEST(MatchesPatternThreads, ShareCompiledPatterns) {
    constexpr int kThreads = 8;
    std::atomic<int> nWrong(0);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t, &nWrong]() {
            for (int i = 0; i < 1200; ++i) {
                const std::string strOwn = "t" + std::to_string(t) + "x" + std::to_string(i) + "[0-9]+";
                const std::string strPrefix = "t" + std::to_string(t) + "x" + std::to_string(i);
                if (!MatchesPattern(strOwn, strPrefix + "42")) ++nWrong;
                if (MatchesPattern(strOwn, strPrefix + "4a")) ++nWrong;
                if (!MatchesPattern("\\i\\c*", "shared-name")) ++nWrong;
                try {
                    MatchesPattern("broken(", "x");
                    ++nWrong;
                } catch (const COxException&) {
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(0, nWrong.load());
}

// Threads meet a facet set whose bounds no check has read yet, so that they file them at once;
// every verdict stays right, and a bound filed as one kind doesn't mislead a check of another.
TEST(ValidateValueThreads, ShareTheBoundsOfOneFacetSet) {
    for (int nRound = 0; nRound < 20; ++nRound) {
        const CPrimitiveRestrictions shared = Bounds("-2", "10", "", "");
        std::atomic<int> nWrong(0);
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([t, &shared, &nWrong]() {
                for (int i = 0; i < 50; ++i) {
                    const bool bInside = (i + t) % 2 == 0;
                    try {
                        if (t == 3) {
                            ValidateValue("v", bInside ? 10 : 11, shared);  // the same texts as i4
                        } else {
                            ValidateValue("v", CDecimal(bInside ? "-2" : "-2.01"), shared);
                        }
                        if (!bInside) ++nWrong;
                    } catch (const COxException&) {
                        if (bInside) ++nWrong;
                    }
                }
            });
        }
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(0, nWrong.load());
    }
}

}  // namespace
