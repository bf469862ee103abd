#include "orvexxml/values/conversions.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "expectthrow.h"

using OrvexXml::CConversions;
using OrvexXml::COxException;
using OrvexXml::COxInvalidValueException;
using OrvexXml::CWhitespaceUtils;

namespace {

const CWhitespaceUtils::WhitespaceRule NONE = CWhitespaceUtils::WhitespaceRule_none;
const CWhitespaceUtils::WhitespaceRule PRESERVE = CWhitespaceUtils::WhitespaceRule_preserve;
const CWhitespaceUtils::WhitespaceRule REPLACE = CWhitespaceUtils::WhitespaceRule_replace;
const CWhitespaceUtils::WhitespaceRule COLLAPSE = CWhitespaceUtils::WhitespaceRule_collapse;

std::string Printf(const char* pszFormat, long long value) {
    char szBuf[64];
    std::snprintf(szBuf, sizeof(szBuf), pszFormat, value);
    return szBuf;
}

std::string PrintfU(const char* pszFormat, unsigned long long value) {
    char szBuf[64];
    std::snprintf(szBuf, sizeof(szBuf), pszFormat, value);
    return szBuf;
}

// Values around every power of ten and of two, both signs: where digit-writing code breaks.
std::vector<unsigned long long> InterestingMagnitudes() {
    std::vector<unsigned long long> values{0, 1, 9, 10, 11, 99, 100, 101, 999, 1000};
    for (unsigned long long p = 10; p <= 1000000000000000000ull; p *= 10) {
        values.push_back(p - 1);
        values.push_back(p);
        values.push_back(p + 1);
    }
    for (int nBit = 0; nBit < 64; ++nBit) {
        unsigned long long p = 1ull << nBit;
        values.push_back(p - 1);
        values.push_back(p);
    }
    values.push_back(std::numeric_limits<unsigned long long>::max());
    values.push_back(12345678901234567890ull);
    return values;
}

// --- integers to text -------------------------------------------------------------------

TEST(ConversionsIntegerToString, SignedLimits) {
    EXPECT_EQ("-128", CConversions::i1ToString(static_cast<char>(-128)));
    EXPECT_EQ("127", CConversions::i1ToString(127));
    EXPECT_EQ("0", CConversions::i1ToString(0));
    // The byte is taken as signed whatever the signedness of char.
    EXPECT_EQ("-1", CConversions::i1ToString(static_cast<char>(0xFF)));
    EXPECT_EQ("-32768", CConversions::i2ToString(-32768));
    EXPECT_EQ("32767", CConversions::i2ToString(32767));
    EXPECT_EQ("-2147483648", CConversions::i4ToString(std::numeric_limits<int32_t>::min()));
    EXPECT_EQ("2147483647", CConversions::i4ToString(2147483647));
    EXPECT_EQ("-1", CConversions::i4ToString(-1));
    EXPECT_EQ("-9223372036854775808", CConversions::i8ToString(std::numeric_limits<int64_t>::min()));
    EXPECT_EQ("9223372036854775807", CConversions::i8ToString(std::numeric_limits<int64_t>::max()));
    EXPECT_EQ("0", CConversions::i8ToString(0));
}

TEST(ConversionsIntegerToString, UnsignedLimits) {
    EXPECT_EQ("0", CConversions::ui1ToString(0));
    EXPECT_EQ("255", CConversions::ui1ToString(255));
    EXPECT_EQ("65535", CConversions::ui2ToString(65535));
    EXPECT_EQ("4294967295", CConversions::ui4ToString(4294967295u));
    EXPECT_EQ("18446744073709551615", CConversions::ui8ToString(std::numeric_limits<uint64_t>::max()));
    EXPECT_EQ("0", CConversions::ui8ToString(0));
}

TEST(ConversionsIntegerToString, SameTextAsPrintf) {
    for (unsigned long long u : InterestingMagnitudes()) {
        EXPECT_EQ(PrintfU("%llu", u), CConversions::ui8ToString(u));
        long long s = static_cast<long long>(u);
        EXPECT_EQ(Printf("%lld", s), CConversions::i8ToString(s));
        long long sNegated = static_cast<long long>(0 - u);
        EXPECT_EQ(Printf("%lld", sNegated), CConversions::i8ToString(sNegated));
        EXPECT_EQ(PrintfU("%u", static_cast<uint32_t>(u)), CConversions::ui4ToString(static_cast<uint32_t>(u)));
        EXPECT_EQ(Printf("%d", static_cast<int32_t>(u)), CConversions::i4ToString(static_cast<int32_t>(u)));
    }
    for (int n = -32768; n <= 32767; n += 7) {
        EXPECT_EQ(Printf("%d", n), CConversions::i2ToString(static_cast<int16_t>(n)));
    }
    for (int n = 0; n <= 65535; n += 13) {
        EXPECT_EQ(PrintfU("%u", static_cast<unsigned>(n)), CConversions::ui2ToString(static_cast<uint16_t>(n)));
    }
    for (int n = -128; n <= 127; ++n) {
        EXPECT_EQ(Printf("%d", n), CConversions::i1ToString(static_cast<char>(n)));
        EXPECT_EQ(PrintfU("%u", static_cast<unsigned>(n + 128)),
                  CConversions::ui1ToString(static_cast<uint8_t>(n + 128)));
    }
}

// --- text to signed integers --------------------------------------------------------------

TEST(ConversionsI4FromString, ReadsBaseTenWithSign) {
    EXPECT_EQ(123, CConversions::i4FromString("123", NONE));
    EXPECT_EQ(-123, CConversions::i4FromString("-123", NONE));
    EXPECT_EQ(7, CConversions::i4FromString("+7", NONE));
    EXPECT_EQ(0, CConversions::i4FromString("-0", NONE));
    EXPECT_EQ(42, CConversions::i4FromString("00000000000000000000042", NONE));
    EXPECT_EQ(2147483647, CConversions::i4FromString("2147483647", NONE));
    EXPECT_EQ(std::numeric_limits<int32_t>::min(), CConversions::i4FromString("-2147483648", NONE));
}

TEST(ConversionsI4FromString, LeadingWhitespaceIsSkippedTrailingIsNot) {
    EXPECT_EQ(12, CConversions::i4FromString(" 12", PRESERVE));
    // strtol skips the whitespace of isspace, which includes vertical tab and form feed.
    EXPECT_EQ(12, CConversions::i4FromString("\v\f\t\r\n 12", NONE));
    EXPECT_OX_THROW(CConversions::i4FromString("12 ", PRESERVE), COxInvalidValueException,
                    "The value [12 ] can not be converted to a i4");
    EXPECT_EQ(12, CConversions::i4FromString(" 12 ", COLLAPSE));
    EXPECT_OX_THROW(CConversions::i4FromString("\t12\t", REPLACE), COxInvalidValueException,
                    "The value [ 12 ] can not be converted to a i4");
    // No whitespace between sign and digits.
    EXPECT_OX_THROW(CConversions::i4FromString("- 1", NONE), COxInvalidValueException,
                    "The value [- 1] can not be converted to a i4");
}

TEST(ConversionsI4FromString, RefusesTextThatIsNoNumber) {
    EXPECT_OX_THROW(CConversions::i4FromString("", NONE), COxInvalidValueException,
                    "The value [] can not be converted to a i4");
    // The message shows the text after the whitespace rule.
    EXPECT_OX_THROW(CConversions::i4FromString("   ", COLLAPSE), COxInvalidValueException,
                    "The value [] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("   ", NONE), COxInvalidValueException,
                    "The value [   ] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("  abc  ", COLLAPSE), COxInvalidValueException,
                    "The value [abc] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("+", NONE), COxInvalidValueException,
                    "The value [+] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("-", NONE), COxInvalidValueException,
                    "The value [-] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("1.5", NONE), COxInvalidValueException,
                    "The value [1.5] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("0x10", NONE), COxInvalidValueException,
                    "The value [0x10] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("12a", NONE), COxInvalidValueException,
                    "The value [12a] can not be converted to a i4");
}

TEST(ConversionsI4FromString, TooLargeIsTestedBeforeStopCharacter) {
    EXPECT_OX_THROW(CConversions::i4FromString("2147483648", NONE), COxInvalidValueException,
                    "The value [2147483648] is to large to fit in a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("-2147483649", NONE), COxInvalidValueException,
                    "The value [-2147483649] is to large to fit in a i4");
    EXPECT_OX_THROW(CConversions::i4FromString("99999999999x", NONE), COxInvalidValueException,
                    "The value [99999999999x] is to large to fit in a i4");
    // Far beyond 64 bits too.
    EXPECT_OX_THROW(CConversions::i4FromString("123456789012345678901234567890", NONE), COxInvalidValueException,
                    "The value [123456789012345678901234567890] is to large to fit in a i4");
}

TEST(ConversionsI8FromString, FullRange) {
    EXPECT_EQ(std::numeric_limits<int64_t>::max(), CConversions::i8FromString("9223372036854775807", NONE));
    EXPECT_EQ(std::numeric_limits<int64_t>::min(), CConversions::i8FromString("-9223372036854775808", NONE));
    EXPECT_EQ(-5, CConversions::i8FromString(" -5 ", COLLAPSE));
    EXPECT_EQ(4294967296ll, CConversions::i8FromString("4294967296", NONE));
    EXPECT_OX_THROW(CConversions::i8FromString("9223372036854775808", NONE), COxInvalidValueException,
                    "The value [9223372036854775808] is to large to fit in a i8");
    EXPECT_OX_THROW(CConversions::i8FromString("-9223372036854775809", NONE), COxInvalidValueException,
                    "The value [-9223372036854775809] is to large to fit in a i8");
    EXPECT_OX_THROW(CConversions::i8FromString("", NONE), COxInvalidValueException,
                    "The value [] can not be converted to a i8");
    EXPECT_OX_THROW(CConversions::i8FromString("5 5", NONE), COxInvalidValueException,
                    "The value [5 5] can not be converted to a i8");
}

TEST(ConversionsSmallSigned, RangeMessagesShowCallersText) {
    EXPECT_EQ(127, CConversions::i1FromString("127", NONE));
    EXPECT_EQ(-128, static_cast<signed char>(CConversions::i1FromString("-128", NONE)));
    EXPECT_OX_THROW(CConversions::i1FromString("128", NONE), COxInvalidValueException,
                    "The value [128] is to large to fit in a i1");
    EXPECT_OX_THROW(CConversions::i1FromString("-129", NONE), COxInvalidValueException,
                    "The value [-129] is to large to fit in a i1");
    EXPECT_OX_THROW(CConversions::i1FromString(" 200 ", COLLAPSE), COxInvalidValueException,
                    "The value [ 200 ] is to large to fit in a i1");

    EXPECT_EQ(32767, CConversions::i2FromString("32767", NONE));
    EXPECT_EQ(-32768, CConversions::i2FromString("-32768", NONE));
    EXPECT_OX_THROW(CConversions::i2FromString("32768", NONE), COxInvalidValueException,
                    "The value [32768] is to large to fit in a i2");
    EXPECT_OX_THROW(CConversions::i2FromString("\t-32769", REPLACE), COxInvalidValueException,
                    "The value [\t-32769] is to large to fit in a i2");
}

TEST(ConversionsSmallSigned, InnerFailuresCarryTheI4Message) {
    EXPECT_OX_THROW(CConversions::i1FromString(" abc ", COLLAPSE), COxInvalidValueException,
                    "The value [abc] can not be converted to a i4");
    EXPECT_OX_THROW(CConversions::i2FromString("99999999999", NONE), COxInvalidValueException,
                    "The value [99999999999] is to large to fit in a i4");
}

// --- text to unsigned integers ------------------------------------------------------------

TEST(ConversionsUnsignedFromString, MinusNegatesModuloWidth) {
    EXPECT_EQ(4294967295u, CConversions::ui4FromString("-1", NONE));
    EXPECT_EQ(1u, CConversions::ui4FromString("-4294967295", NONE));
    EXPECT_EQ(0u, CConversions::ui4FromString("-0", NONE));
    EXPECT_EQ(std::numeric_limits<uint64_t>::max(), CConversions::ui8FromString("-1", NONE));
    EXPECT_EQ(1u, CConversions::ui8FromString("-18446744073709551615", NONE));
}

TEST(ConversionsUnsignedFromString, Ranges) {
    EXPECT_EQ(4294967295u, CConversions::ui4FromString("4294967295", NONE));
    EXPECT_EQ(7u, CConversions::ui4FromString("+7", NONE));
    EXPECT_OX_THROW(CConversions::ui4FromString("4294967296", NONE), COxInvalidValueException,
                    "The value [4294967296] is to large to fit in a ui4");
    EXPECT_OX_THROW(CConversions::ui4FromString("-4294967296", NONE), COxInvalidValueException,
                    "The value [-4294967296] is to large to fit in a ui4");
    EXPECT_OX_THROW(CConversions::ui4FromString("", NONE), COxInvalidValueException,
                    "The value [] can not be converted to a ui4");
    EXPECT_OX_THROW(CConversions::ui4FromString("4x", NONE), COxInvalidValueException,
                    "The value [4x] can not be converted to a ui4");

    EXPECT_EQ(std::numeric_limits<uint64_t>::max(), CConversions::ui8FromString("18446744073709551615", NONE));
    EXPECT_OX_THROW(CConversions::ui8FromString("18446744073709551616", NONE), COxInvalidValueException,
                    "The value [18446744073709551616] is to large to fit in a ui8");
    EXPECT_OX_THROW(CConversions::ui8FromString("184467440737095516160z", NONE), COxInvalidValueException,
                    "The value [184467440737095516160z] is to large to fit in a ui8");
    EXPECT_OX_THROW(CConversions::ui8FromString("", NONE), COxInvalidValueException,
                    "The value [] can not be converted to a ui8");
    EXPECT_OX_THROW(CConversions::ui8FromString("1 ", PRESERVE), COxInvalidValueException,
                    "The value [1 ] can not be converted to a ui8");
}

TEST(ConversionsUnsignedFromString, SmallTypes) {
    EXPECT_EQ(255, CConversions::ui1FromString("255", NONE));
    EXPECT_EQ(0, CConversions::ui1FromString("0", NONE));
    EXPECT_OX_THROW(CConversions::ui1FromString("256", NONE), COxInvalidValueException,
                    "The value [256] is to large to fit in a ui1");
    // -1 reads as 4294967295 first, which is too large for one byte.
    EXPECT_OX_THROW(CConversions::ui1FromString("-1", NONE), COxInvalidValueException,
                    "The value [-1] is to large to fit in a ui1");
    EXPECT_EQ(65535, CConversions::ui2FromString("65535", NONE));
    EXPECT_OX_THROW(CConversions::ui2FromString(" 65536\n", COLLAPSE), COxInvalidValueException,
                    "The value [ 65536\n] is to large to fit in a ui2");
    EXPECT_OX_THROW(CConversions::ui1FromString("x", NONE), COxInvalidValueException,
                    "The value [x] can not be converted to a ui4");
    EXPECT_OX_THROW(CConversions::ui2FromString("4294967296", NONE), COxInvalidValueException,
                    "The value [4294967296] is to large to fit in a ui4");
}

TEST(ConversionsIntegers, RoundTripThroughText) {
    for (unsigned long long u : InterestingMagnitudes()) {
        EXPECT_EQ(u, CConversions::ui8FromString(CConversions::ui8ToString(u), NONE));
        int64_t s = static_cast<int64_t>(u);
        EXPECT_EQ(s, CConversions::i8FromString(CConversions::i8ToString(s), NONE));
        int32_t l = static_cast<int32_t>(u);
        EXPECT_EQ(l, CConversions::i4FromString(CConversions::i4ToString(l), NONE));
        uint32_t ul = static_cast<uint32_t>(u);
        EXPECT_EQ(ul, CConversions::ui4FromString(CConversions::ui4ToString(ul), NONE));
    }
}

// --- floats -------------------------------------------------------------------------------

TEST(ConversionsFloatToString, R4UsesSevenSignificantDigits) {
    EXPECT_EQ("1", CConversions::r4ToString(1.0f));
    EXPECT_EQ("0.1", CConversions::r4ToString(0.1f));
    EXPECT_EQ("-2.5", CConversions::r4ToString(-2.5f));
    EXPECT_EQ("1.234568e+08", CConversions::r4ToString(123456789.0f));
    EXPECT_EQ("3.141593", CConversions::r4ToString(3.14159265f));
    EXPECT_EQ("0", CConversions::r4ToString(0.0f));
}

TEST(ConversionsFloatToString, R8UsesSixteenNotSeventeenDigits) {
    EXPECT_EQ("0.1", CConversions::r8ToString(0.1));
    EXPECT_EQ("0.3", CConversions::r8ToString(0.1 + 0.2));
    EXPECT_EQ("0.3333333333333333", CConversions::r8ToString(1.0 / 3.0));
    EXPECT_EQ("1e+300", CConversions::r8ToString(1e300));
    EXPECT_EQ("-0", CConversions::r8ToString(-0.0));
    EXPECT_EQ("1", CConversions::r8ToString(1.0));
}

TEST(ConversionsFloatToString, SpecialValuesHaveFixedNames) {
    const float fNaN = std::numeric_limits<float>::quiet_NaN();
    const float fInf = std::numeric_limits<float>::infinity();
    EXPECT_EQ("NaN", CConversions::r4ToString(fNaN));
    EXPECT_EQ("NaN", CConversions::r4ToString(-fNaN));
    EXPECT_EQ("INF", CConversions::r4ToString(fInf));
    EXPECT_EQ("-INF", CConversions::r4ToString(-fInf));
    EXPECT_EQ("NaN", CConversions::r8ToString(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ("INF", CConversions::r8ToString(std::numeric_limits<double>::infinity()));
    EXPECT_EQ("-INF", CConversions::r8ToString(-std::numeric_limits<double>::infinity()));
    // A format override doesn't reach the special values.
    EXPECT_EQ("INF", CConversions::r4ToString(fInf, std::string("%.2f")));
    EXPECT_EQ("-INF", CConversions::r8ToString(-std::numeric_limits<double>::infinity(), std::string("%e")));
    EXPECT_EQ("NaN", CConversions::r8ToString(std::numeric_limits<double>::quiet_NaN(), std::string("%.3f")));
}

TEST(ConversionsFloatToString, FormatOverride) {
    EXPECT_EQ("3.14", CConversions::r4ToString(3.14159f, std::string("%.2f")));
    EXPECT_EQ("2.500000e+00", CConversions::r8ToString(2.5, std::string("%e")));
    EXPECT_EQ("[0.50]", CConversions::r8ToString(0.5, std::string("[%.2f]")));
    // An empty format means the default one.
    EXPECT_EQ("0.3", CConversions::r8ToString(0.1 + 0.2, std::string()));
    EXPECT_EQ("1.234568e+08", CConversions::r4ToString(123456789.0f, std::string()));
    // The C-string forms treat null and empty alike.
    EXPECT_EQ("0.3", CConversions::r8ToString(0.1 + 0.2, static_cast<const char*>(nullptr)));
    EXPECT_EQ("1", CConversions::r4ToString(1.0f, ""));
    EXPECT_EQ("1.50", CConversions::r4ToString(1.5f, "%.2f"));
}

TEST(ConversionsFloatToString, TextIsCutAtBufferSize) {
    // r4 formats into 32 bytes, r8 into 48: at most 31 and 47 characters.
    EXPECT_EQ("1." + std::string(29, '0'), CConversions::r4ToString(1.0f, std::string("%.40f")));
    EXPECT_EQ("1." + std::string(45, '0'), CConversions::r8ToString(1.0, std::string("%.60f")));
    EXPECT_EQ("1." + std::string(29, '0'), CConversions::r4ToString(1.0f, std::string("%.29f")));
}

TEST(ConversionsFloatFromString, NumbersGoThroughStrtod) {
    EXPECT_EQ(1.5f, CConversions::r4FromString("1.5", NONE));
    EXPECT_EQ(-0.25, CConversions::r8FromString("-25e-2", NONE));
    EXPECT_EQ(0.1, CConversions::r8FromString("0.1", NONE));
    EXPECT_EQ(100.0, CConversions::r8FromString("1E2", NONE));
    EXPECT_EQ(1.5, CConversions::r8FromString(" 1.5", NONE));
    EXPECT_EQ(1.5, CConversions::r8FromString(" 1.5 ", COLLAPSE));
    EXPECT_EQ(0.1f, CConversions::r4FromString("0.1", NONE));
}

TEST(ConversionsFloatFromString, SpecialSpellings) {
    EXPECT_TRUE(std::isnan(CConversions::r4FromString("NaN", NONE)));
    EXPECT_TRUE(std::isnan(CConversions::r4FromString("1.#QNAN", NONE)));
    EXPECT_TRUE(std::isnan(CConversions::r4FromString("-NAN", NONE)));
    EXPECT_TRUE(std::isnan(CConversions::r8FromString("NaN", NONE)));
    EXPECT_TRUE(std::isnan(CConversions::r8FromString("1.#QNAN", NONE)));
    EXPECT_TRUE(std::isnan(CConversions::r8FromString(" -NAN ", COLLAPSE)));
    EXPECT_EQ(std::numeric_limits<float>::infinity(), CConversions::r4FromString("INF", NONE));
    EXPECT_EQ(-std::numeric_limits<float>::infinity(), CConversions::r4FromString("-INF", NONE));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), CConversions::r8FromString("INF", NONE));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(), CConversions::r8FromString("-INF", NONE));
    // Read back as NaN and written without the sign.
    EXPECT_EQ("NaN", CConversions::r8ToString(CConversions::r8FromString("-NAN", NONE)));
    EXPECT_EQ("NaN", CConversions::r4ToString(CConversions::r4FromString("1.#QNAN", NONE)));
}

TEST(ConversionsFloatFromString, NoRangeTest) {
    EXPECT_EQ(std::numeric_limits<float>::infinity(), CConversions::r4FromString("1e39", NONE));
    EXPECT_EQ(-std::numeric_limits<float>::infinity(), CConversions::r4FromString("-1e39", NONE));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), CConversions::r8FromString("1e999", NONE));
    double dTiny = CConversions::r8FromString("1e-400", NONE);
    EXPECT_GE(dTiny, 0.0);
    EXPECT_LT(dTiny, DBL_MIN);
}

TEST(ConversionsFloatFromString, Refusals) {
    EXPECT_OX_THROW(CConversions::r4FromString("", NONE), COxInvalidValueException,
                    "The value [] can not be converted to a r4");
    EXPECT_OX_THROW(CConversions::r4FromString("1.5x", NONE), COxInvalidValueException,
                    "The value [1.5x] can not be converted to a r4");
    EXPECT_OX_THROW(CConversions::r4FromString("\t\t", COLLAPSE), COxInvalidValueException,
                    "The value [] can not be converted to a r4");
    EXPECT_OX_THROW(CConversions::r8FromString("", NONE), COxInvalidValueException,
                    "The value [] can not be converted to a r8");
    EXPECT_OX_THROW(CConversions::r8FromString("1.5 ", PRESERVE), COxInvalidValueException,
                    "The value [1.5 ] can not be converted to a r8");
    EXPECT_OX_THROW(CConversions::r8FromString("abc", NONE), COxInvalidValueException,
                    "The value [abc] can not be converted to a r8");
    // The special spellings are compared case-sensitively and whole: a blank behind is refused.
    EXPECT_OX_THROW(CConversions::r8FromString("INF ", NONE), COxInvalidValueException,
                    "The value [INF ] can not be converted to a r8");
}

// --- char, string, boolean ----------------------------------------------------------------

TEST(ConversionsChar, ToAndFromText) {
    EXPECT_EQ("a", CConversions::charToString('a'));
    EXPECT_EQ("", CConversions::charToString('\0'));
    EXPECT_EQ("\xE9", CConversions::charToString('\xE9'));
    EXPECT_EQ('x', CConversions::charFromString("x", NONE));
    EXPECT_EQ('x', CConversions::charFromString(" x\t", COLLAPSE));
    EXPECT_EQ(' ', CConversions::charFromString("\t", REPLACE));
    EXPECT_OX_THROW(CConversions::charFromString("", NONE), COxInvalidValueException,
                    "The value [] can not be a char as it is either empty of greater than 1 char long");
    EXPECT_OX_THROW(CConversions::charFromString("ab", NONE), COxInvalidValueException,
                    "The value [ab] can not be a char as it is either empty of greater than 1 char long");
    EXPECT_OX_THROW(CConversions::charFromString(" x ", NONE), COxInvalidValueException,
                    "The value [ x ] can not be a char as it is either empty of greater than 1 char long");
    EXPECT_OX_THROW(CConversions::charFromString("  ", COLLAPSE), COxInvalidValueException,
                    "The value [] can not be a char as it is either empty of greater than 1 char long");
}

TEST(ConversionsString, TextPassesThroughTheRule) {
    EXPECT_EQ(" a\r\nb ", CConversions::stringToString(" a\r\nb "));
    EXPECT_EQ(" a\r\nb ", CConversions::stringFromString(" a\r\nb ", NONE));
    EXPECT_EQ(" a\nb ", CConversions::stringFromString(" a\r\nb ", PRESERVE));
    EXPECT_EQ(" a b ", CConversions::stringFromString(" a\r\nb ", REPLACE));
    EXPECT_EQ("a b", CConversions::stringFromString(" a\r\nb ", COLLAPSE));
    EXPECT_EQ("", CConversions::stringFromString("", COLLAPSE));
}

TEST(ConversionsBoolean, ToAndFromText) {
    EXPECT_EQ("true", CConversions::booleanToString(true));
    EXPECT_EQ("false", CConversions::booleanToString(false));
    EXPECT_TRUE(CConversions::booleanFromString("true", NONE));
    EXPECT_TRUE(CConversions::booleanFromString("TRUE", NONE));
    EXPECT_TRUE(CConversions::booleanFromString("tRuE", NONE));
    EXPECT_FALSE(CConversions::booleanFromString("false", NONE));
    EXPECT_FALSE(CConversions::booleanFromString("False", NONE));
    EXPECT_TRUE(CConversions::booleanFromString("1", NONE));
    EXPECT_FALSE(CConversions::booleanFromString("0", NONE));
    EXPECT_TRUE(CConversions::booleanFromString(" true\n", COLLAPSE));
}

TEST(ConversionsBoolean, RefusalShowsCallersText) {
    const char* pszFormat =
        "A Boolean Value read from an XML document was invalid [%s]. Valid values are 'true', 'false', '1', or '0'";
    auto Message = [&](const char* pszText) {
        char szBuf[256];
        std::snprintf(szBuf, sizeof(szBuf), pszFormat, pszText);
        return std::string(szBuf);
    };
    EXPECT_OX_THROW(CConversions::booleanFromString("yes", NONE), COxInvalidValueException, Message("yes"));
    EXPECT_OX_THROW(CConversions::booleanFromString("", NONE), COxInvalidValueException, Message(""));
    EXPECT_OX_THROW(CConversions::booleanFromString("2", NONE), COxInvalidValueException, Message("2"));
    EXPECT_OX_THROW(CConversions::booleanFromString("01", NONE), COxInvalidValueException, Message("01"));
    EXPECT_OX_THROW(CConversions::booleanFromString(" maybe ", COLLAPSE), COxInvalidValueException, Message(" maybe "));
    EXPECT_OX_THROW(CConversions::booleanFromString("true ", NONE), COxInvalidValueException, Message("true "));
    EXPECT_EQ(
        "A Boolean Value read from an XML document was invalid [yes]. Valid values are 'true', 'false', '1', or '0'",
        Message("yes"));
}

TEST(ConversionsBadRule, EveryConversionAppliesTheRuleFirst) {
    const auto badRule = static_cast<CWhitespaceUtils::WhitespaceRule>(9);
    EXPECT_OX_THROW(CConversions::i4FromString("1", badRule), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CConversions::ui8FromString("1", badRule), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CConversions::r8FromString("1", badRule), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CConversions::charFromString("1", badRule), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CConversions::stringFromString("1", badRule), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CConversions::booleanFromString("1", badRule), COxException, "Unknown WhitespaceRule");
}

// --- year, month, day ---------------------------------------------------------------------

TEST(ConversionsYearMonthDay, TextForms) {
    EXPECT_EQ("99", CConversions::yearToString(99));
    EXPECT_EQ("2024", CConversions::yearToString(2024));
    EXPECT_EQ("0", CConversions::yearToString(0));
    EXPECT_EQ("65535", CConversions::yearToString(65535));
    EXPECT_EQ("--03", CConversions::monthToString(3));
    EXPECT_EQ("--12", CConversions::monthToString(12));
    EXPECT_EQ("---03", CConversions::dayToString(3));
    EXPECT_EQ("---31", CConversions::dayToString(31));
    for (unsigned n = 0; n <= 255; ++n) {
        EXPECT_EQ(PrintfU("--%02llu", n), CConversions::monthToString(static_cast<uint8_t>(n)));
        EXPECT_EQ(PrintfU("---%02llu", n), CConversions::dayToString(static_cast<uint8_t>(n)));
    }
}

}  // namespace
