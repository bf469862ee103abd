#include "orvexxml/values/conversions.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <unistd.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "expectthrow.h"
#include "orvexxml/values/binarydata.h"

using OrvexXml::CBinaryData;
using OrvexXml::CConversions;
using OrvexXml::COxException;
using OrvexXml::COxInvalidValueException;
using OrvexXml::CWhitespaceUtils;

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;
const Rule NONE = CWhitespaceUtils::WhitespaceRule_none;
const Rule PRESERVE = CWhitespaceUtils::WhitespaceRule_preserve;
const Rule REPLACE = CWhitespaceUtils::WhitespaceRule_replace;
const Rule COLLAPSE = CWhitespaceUtils::WhitespaceRule_collapse;

// Runs one of the text readers and gives its result as decimal text, so that the readers of
// every width fit in one table.
using Reader = std::string (*)(const std::string&, Rule);

template <auto Read>
std::string AsText(const std::string& text, Rule rule) {
    const auto value = Read(text, rule);
    if constexpr (std::is_same_v<decltype(value), const char>) {
        return std::to_string(static_cast<signed char>(value));
    } else {
        return std::to_string(value);
    }
}

const Reader I1 = AsText<&CConversions::i1FromString>;
const Reader I2 = AsText<&CConversions::i2FromString>;
const Reader I4 = AsText<&CConversions::i4FromString>;
const Reader I8 = AsText<&CConversions::i8FromString>;
const Reader UI1 = AsText<&CConversions::ui1FromString>;
const Reader UI2 = AsText<&CConversions::ui2FromString>;
const Reader UI4 = AsText<&CConversions::ui4FromString>;
const Reader UI8 = AsText<&CConversions::ui8FromString>;
const Reader R4 = AsText<&CConversions::r4FromString>;
const Reader R8 = AsText<&CConversions::r8FromString>;
const Reader CHR = AsText<&CConversions::charFromString>;
const Reader BOOLEAN = AsText<&CConversions::booleanFromString>;

std::string CharRefusal(const std::string& text) {
    return "The value [" + text + "] can not be a char as it is either empty of greater than 1 char long";
}

std::string BooleanRefusal(const std::string& text) {
    return "A Boolean Value read from an XML document was invalid [" + text +
           "]. Valid values are 'true', 'false', '1', or '0'";
}

template <class T>
std::string Printf(const char* pszFormat, T value) {
    char szBuf[64];
    std::snprintf(szBuf, sizeof(szBuf), pszFormat, value);
    return szBuf;
}

// --- integers -------------------------------------------------------------------------------

TEST(ConversionsIntegers, BoundsHaveTheirCanonicalText) {
    EXPECT_EQ("-128", CConversions::i1ToString(static_cast<char>(-128)));
    EXPECT_EQ("127", CConversions::i1ToString(127));
    EXPECT_EQ("-32768", CConversions::i2ToString(-32768));
    EXPECT_EQ("32767", CConversions::i2ToString(32767));
    EXPECT_EQ("-2147483648", CConversions::i4ToString(INT32_MIN));
    EXPECT_EQ("2147483647", CConversions::i4ToString(2147483647));
    EXPECT_EQ("-9223372036854775808", CConversions::i8ToString(INT64_MIN));
    EXPECT_EQ("9223372036854775807", CConversions::i8ToString(INT64_MAX));
    EXPECT_EQ("0", CConversions::ui1ToString(0));
    EXPECT_EQ("255", CConversions::ui1ToString(255));
    EXPECT_EQ("65535", CConversions::ui2ToString(65535));
    EXPECT_EQ("4294967295", CConversions::ui4ToString(4294967295u));
    EXPECT_EQ("18446744073709551615", CConversions::ui8ToString(UINT64_MAX));
}

// Values around every power of ten and of two, both signs, where digit-writing and
// overflow-detecting code breaks: the text is printf's, and it reads back to the value.
TEST(ConversionsIntegers, EveryMagnitudeMatchesPrintfAndReadsBack) {
    std::vector<unsigned long long> values{0, 12345678901234567890ull, UINT64_MAX};
    for (unsigned long long p = 10; p <= 1000000000000000000ull; p *= 10)
        values.insert(values.end(), {p - 1, p, p + 1});
    for (int nBit = 0; nBit < 64; ++nBit) values.insert(values.end(), {(1ull << nBit) - 1, 1ull << nBit});
    for (unsigned long long u : values) {
        SCOPED_TRACE(u);
        for (long long s : {static_cast<long long>(u), static_cast<long long>(0 - u)}) {
            EXPECT_EQ(Printf("%lld", s), CConversions::i8ToString(s));
            EXPECT_EQ(s, CConversions::i8FromString(CConversions::i8ToString(s), NONE));
        }
        const uint32_t ul = static_cast<uint32_t>(u);
        const int32_t l = static_cast<int32_t>(u);
        EXPECT_EQ(Printf("%llu", u), CConversions::ui8ToString(u));
        EXPECT_EQ(Printf("%u", ul), CConversions::ui4ToString(ul));
        EXPECT_EQ(Printf("%d", l), CConversions::i4ToString(l));
        EXPECT_EQ(u, CConversions::ui8FromString(CConversions::ui8ToString(u), NONE));
        EXPECT_EQ(l, CConversions::i4FromString(CConversions::i4ToString(l), NONE));
        EXPECT_EQ(ul, CConversions::ui4FromString(CConversions::ui4ToString(ul), NONE));
    }
    for (int n = -32768; n <= 32767; n += 7) EXPECT_EQ(Printf("%d", n), CConversions::i2ToString(n));
    for (unsigned n = 0; n <= 65535; n += 13) EXPECT_EQ(Printf("%u", n), CConversions::ui2ToString(n));
    // The byte is taken as signed whatever the signedness of char.
    for (int n = -128; n <= 127; ++n) {
        EXPECT_EQ(Printf("%d", n), CConversions::i1ToString(static_cast<char>(n)));
        EXPECT_EQ(Printf("%d", n + 128), CConversions::ui1ToString(static_cast<uint8_t>(n + 128)));
    }
}

// The limits of each width and the minus of the unsigned kinds; the round trips above cover
// the rest of the range.
TEST(ConversionsIntegers, ReadsBaseTenWithinTheRangeOfEachWidth) {
    const struct {
        Reader read;
        std::string text;
        Rule rule;
        std::string expected;
    } rows[] = {
        {I4, "+7", NONE, "7"},
        {I4, "-0", NONE, "0"},
        {I4, "00000000000000000000042", NONE, "42"},
        {I4, "-2147483648", NONE, "-2147483648"},
        // Leading whitespace as isspace knows it, vertical tab and form feed too, is skipped.
        {I4, " 12", PRESERVE, "12"},
        {I4, "\v\f\t\r\n 12", NONE, "12"},
        {I8, " -5 ", COLLAPSE, "-5"},
        {I8, "-9223372036854775808", NONE, "-9223372036854775808"},
        {I1, "127", NONE, "127"},
        {I1, "-128", NONE, "-128"},
        {I2, "32767", NONE, "32767"},
        {I2, "-32768", NONE, "-32768"},
        // For the unsigned kinds a minus negates modulo the width.
        {UI4, "-1", NONE, "4294967295"},
        {UI4, "-4294967295", NONE, "1"},
        {UI8, "-1", NONE, "18446744073709551615"},
        {UI8, "-18446744073709551615", NONE, "1"},
        {UI1, "255", NONE, "255"},
        {UI2, "65535", NONE, "65535"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE("[" + row.text + "] rule " + std::to_string(row.rule));
        EXPECT_EQ(row.expected, row.read(row.text, row.rule));
    }
}

TEST(Conversions, RefusalsNameTheTextAndTheKind) {
    const struct {
        Reader read;
        std::string text;
        Rule rule;
        std::string message;
    } rows[] = {
        // The message shows the text after the whitespace rule.
        {I4, "", NONE, "The value [] can not be converted to a i4"},
        {I4, "   ", COLLAPSE, "The value [] can not be converted to a i4"},
        {I4, "   ", NONE, "The value [   ] can not be converted to a i4"},
        {I4, "  abc  ", COLLAPSE, "The value [abc] can not be converted to a i4"},
        {I4, "+", NONE, "The value [+] can not be converted to a i4"},
        {I4, "-", NONE, "The value [-] can not be converted to a i4"},
        {I4, "0x10", NONE, "The value [0x10] can not be converted to a i4"},
        {I4, "12a", NONE, "The value [12a] can not be converted to a i4"},
        // Trailing whitespace is not skipped, nor any between sign and digits.
        {I4, "12 ", PRESERVE, "The value [12 ] can not be converted to a i4"},
        {I4, "\t12\t", REPLACE, "The value [ 12 ] can not be converted to a i4"},
        {I4, "- 1", NONE, "The value [- 1] can not be converted to a i4"},
        // Too large is tested before the stop character, however many digits there are.
        {I4, "2147483648", NONE, "The value [2147483648] is to large to fit in a i4"},
        {I4, "-2147483649", NONE, "The value [-2147483649] is to large to fit in a i4"},
        {I4, "99999999999x", NONE, "The value [99999999999x] is to large to fit in a i4"},
        {I4, "123456789012345678901234567890", NONE,
         "The value [123456789012345678901234567890] is to large to fit in a i4"},
        {I8, "9223372036854775808", NONE, "The value [9223372036854775808] is to large to fit in a i8"},
        {I8, "-9223372036854775809", NONE, "The value [-9223372036854775809] is to large to fit in a i8"},
        {I8, "5 5", NONE, "The value [5 5] can not be converted to a i8"},
        // i1 and i2 read through i4: their own range messages show the caller's text, and
        // the failures of the inner read carry its message.
        {I1, "128", NONE, "The value [128] is to large to fit in a i1"},
        {I1, "-129", NONE, "The value [-129] is to large to fit in a i1"},
        {I1, " 200 ", COLLAPSE, "The value [ 200 ] is to large to fit in a i1"},
        {I2, "32768", NONE, "The value [32768] is to large to fit in a i2"},
        {I2, "\t-32769", REPLACE, "The value [\t-32769] is to large to fit in a i2"},
        {I1, " abc ", COLLAPSE, "The value [abc] can not be converted to a i4"},
        {I2, "99999999999", NONE, "The value [99999999999] is to large to fit in a i4"},
        {UI4, "4294967296", NONE, "The value [4294967296] is to large to fit in a ui4"},
        {UI4, "-4294967296", NONE, "The value [-4294967296] is to large to fit in a ui4"},
        {UI4, "", NONE, "The value [] can not be converted to a ui4"},
        {UI4, "4x", NONE, "The value [4x] can not be converted to a ui4"},
        {UI8, "18446744073709551616", NONE, "The value [18446744073709551616] is to large to fit in a ui8"},
        {UI8, "184467440737095516160z", NONE, "The value [184467440737095516160z] is to large to fit in a ui8"},
        {UI8, "1 ", PRESERVE, "The value [1 ] can not be converted to a ui8"},
        // ui1 and ui2 read through ui4; "-1" reads as 4294967295 first, too large for a byte.
        {UI1, "256", NONE, "The value [256] is to large to fit in a ui1"},
        {UI1, "-1", NONE, "The value [-1] is to large to fit in a ui1"},
        {UI2, " 65536\n", COLLAPSE, "The value [ 65536\n] is to large to fit in a ui2"},
        {UI1, "x", NONE, "The value [x] can not be converted to a ui4"},
        {UI2, "4294967296", NONE, "The value [4294967296] is to large to fit in a ui4"},
        // The special float spellings are compared case-sensitively and whole.
        {R4, "1.5x", NONE, "The value [1.5x] can not be converted to a r4"},
        {R4, "\t\t", COLLAPSE, "The value [] can not be converted to a r4"},
        {R8, "", NONE, "The value [] can not be converted to a r8"},
        {R8, "1.5 ", PRESERVE, "The value [1.5 ] can not be converted to a r8"},
        {R8, "abc", NONE, "The value [abc] can not be converted to a r8"},
        {R8, "INF ", NONE, "The value [INF ] can not be converted to a r8"},
        {CHR, "", NONE, CharRefusal("")},
        {CHR, "ab", NONE, CharRefusal("ab")},
        {CHR, " x ", NONE, CharRefusal(" x ")},
        {CHR, "  ", COLLAPSE, CharRefusal("")},
        // The boolean message shows the caller's text, before the rule.
        {BOOLEAN, "yes", NONE, BooleanRefusal("yes")},
        {BOOLEAN, "", NONE, BooleanRefusal("")},
        {BOOLEAN, "2", NONE, BooleanRefusal("2")},
        {BOOLEAN, "01", NONE, BooleanRefusal("01")},
        {BOOLEAN, " maybe ", COLLAPSE, BooleanRefusal(" maybe ")},
        {BOOLEAN, "true ", NONE, BooleanRefusal("true ")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE("[" + row.text + "] rule " + std::to_string(row.rule));
        EXPECT_OX_THROW(row.read(row.text, row.rule), COxInvalidValueException, row.message);
    }
    EXPECT_EQ(
        "A Boolean Value read from an XML document was invalid [yes]. Valid values are 'true', 'false', '1', or '0'",
        BooleanRefusal("yes"));
}

TEST(Conversions, EveryReaderAppliesTheRuleFirst) {
    const auto badRule = static_cast<Rule>(9);
    for (Reader read : {I4, UI8, R8, CHR, BOOLEAN}) {
        EXPECT_OX_THROW(read("1", badRule), COxException, "Unknown WhitespaceRule");
    }
    EXPECT_OX_THROW(CConversions::stringFromString("1", badRule), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A", badRule), COxException, "Unknown WhitespaceRule");
}

TEST(Conversions, BinaryTextIsReadAfterTheWhitespaceRule) {
    const CBinaryData data(const_cast<unsigned char*>(reinterpret_cast<const unsigned char*>("\x00\xFF")), 2, false);
    EXPECT_EQ("00FF", CConversions::hexBinaryToString(data));
    EXPECT_EQ("AP8=", CConversions::base64BinaryToString(data));
    // Inner blanks stay under collapse and make the length odd; replace turns the tab into a
    // blank before the characters are tested; without a rule the line end stays.
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A 0B", COLLAPSE), COxException, "Invalid length in hex string");
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A\t0", REPLACE), COxException,
                    "Invalid char in hex string [ ]");
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A0B\n", NONE), COxException, "Invalid length in hex string");
    EXPECT_TRUE(CConversions::base64BinaryFromString("\tZm9v YmFy\n", COLLAPSE) == CBinaryData("foobar"));
    EXPECT_TRUE(CConversions::base64BinaryFromString("Zm9v YmFy", NONE) == CBinaryData("foobar"));
    EXPECT_EQ(0u, CConversions::base64BinaryFromString("Zm9v-YmFy", NONE).GetLength());
}

// --- floats -------------------------------------------------------------------------------

const double INF = std::numeric_limits<double>::infinity();
const double NAN_VALUE = std::numeric_limits<double>::quiet_NaN();

// r4 writes seven significant digits, r8 sixteen rather than seventeen, so that 0.1 + 0.2 is
// 0.3; the special values have fixed names, which a format override doesn't reach.
TEST(ConversionsFloats, DefaultTextAndSpecialValues) {
    const struct {
        double value;
        const char* pszR4;
        const char* pszR8;
    } rows[] = {
        {0.1, "0.1", "0.1"},
        {0.1 + 0.2, "0.3", "0.3"},
        {1.0 / 3.0, "0.3333333", "0.3333333333333333"},
        {3.14159265, "3.141593", "3.14159265"},
        {123456789.0, "1.234568e+08", "123456789"},
        {-2.5, "-2.5", "-2.5"},
        {1.0, "1", "1"},
        {-0.0, "-0", "-0"},
        {1e300, "INF", "1e+300"},
        {NAN_VALUE, "NaN", "NaN"},
        {-NAN_VALUE, "NaN", "NaN"},
        {INF, "INF", "INF"},
        {-INF, "-INF", "-INF"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszR8);
        EXPECT_EQ(row.pszR4, CConversions::r4ToString(static_cast<float>(row.value)));
        EXPECT_EQ(row.pszR8, CConversions::r8ToString(row.value));
    }
    EXPECT_EQ("INF", CConversions::r4ToString(static_cast<float>(INF), std::string("%.2f")));
    EXPECT_EQ("-INF", CConversions::r8ToString(-INF, std::string("%e")));
    EXPECT_EQ("NaN", CConversions::r8ToString(NAN_VALUE, "%.3f"));
}

TEST(ConversionsFloats, FormatOverrideAndBufferSize) {
    EXPECT_EQ("3.14", CConversions::r4ToString(3.14159f, std::string("%.2f")));
    EXPECT_EQ("2.500000e+00", CConversions::r8ToString(2.5, std::string("%e")));
    EXPECT_EQ("[0.50]", CConversions::r8ToString(0.5, std::string("[%.2f]")));
    EXPECT_EQ("1.50", CConversions::r4ToString(1.5f, "%.2f"));
    // An empty format means the default one; the C-string forms treat null and empty alike.
    EXPECT_EQ("0.3", CConversions::r8ToString(0.1 + 0.2, std::string()));
    EXPECT_EQ("1.234568e+08", CConversions::r4ToString(123456789.0f, std::string()));
    EXPECT_EQ("0.3", CConversions::r8ToString(0.1 + 0.2, static_cast<const char*>(nullptr)));
    EXPECT_EQ("1", CConversions::r4ToString(1.0f, ""));
    // r4 formats into 32 bytes, r8 into 48: at most 31 and 47 characters.
    EXPECT_EQ("1." + std::string(29, '0'), CConversions::r4ToString(1.0f, std::string("%.40f")));
    EXPECT_EQ("1." + std::string(29, '0'), CConversions::r4ToString(1.0f, std::string("%.29f")));
    EXPECT_EQ("1." + std::string(45, '0'), CConversions::r8ToString(1.0, std::string("%.60f")));
}

// The common forms take a faster route than snprintf; the text must still be printf's, ties
// and tiny and huge values included.
TEST(ConversionsFloats, SimpleFormsGivePrintfText) {
    const char* apszFormats[] = {"%.0f", "%.3f", "%.2f", "%.1e", "%.12e", "%.0g", "%.5g", "%.16g", "%.17g"};
    const double aValues[] = {2.675, 0.125, -0.0005, 1e22, 5e-324, 123456.789, 0.1 + 0.2, -0.0, 9.5};
    for (const char* pszFormat : apszFormats) {
        for (double value : aValues) {
            char szExpected[64];
            std::snprintf(szExpected, sizeof(szExpected), pszFormat, value);
            SCOPED_TRACE(std::string(pszFormat) + " " + szExpected);
            EXPECT_EQ(szExpected, CConversions::r8ToString(value, pszFormat));
            std::snprintf(szExpected, sizeof(szExpected), pszFormat, static_cast<double>(static_cast<float>(value)));
            EXPECT_EQ(szExpected, CConversions::r4ToString(static_cast<float>(value), pszFormat));
        }
    }
}

// "%.<n>g" is worked out in integers for most values; printf is the oracle for every
// precision, on random bit patterns, short decimals, exact ties and the neighbours of powers
// of ten (where the exponent changes as digits round up).
TEST(ConversionsFloats, GeneralFormsMatchPrintfOnRandomValues) {
    std::mt19937_64 rng(20261124);
    int nDiffering = 0;
    auto check = [&](double value, int nPrecision) {
        if (!std::isfinite(value) || !std::isfinite(static_cast<float>(value))) return;
        char szFormat[8];
        char szExpected[64];
        std::snprintf(szFormat, sizeof(szFormat), "%%.%dg", nPrecision);
        std::snprintf(szExpected, sizeof(szExpected), szFormat, value);
        std::string strFound =
            nPrecision == 16 ? CConversions::r8ToString(value) : CConversions::r8ToString(value, szFormat);
        if (strFound != szExpected && ++nDiffering <= 5)
            ADD_FAILURE() << szFormat << ": " << strFound << " for " << szExpected;
        const double single = static_cast<float>(value);
        std::snprintf(szExpected, sizeof(szExpected), szFormat, single);
        strFound = nPrecision == 7 ? CConversions::r4ToString(static_cast<float>(value))
                                   : CConversions::r4ToString(static_cast<float>(value), szFormat);
        if (strFound != szExpected && ++nDiffering <= 5)
            ADD_FAILURE() << szFormat << ": " << strFound << " for " << szExpected;
    };
    for (int i = 0; i < 20000; ++i) {
        const int nPrecision = 1 + static_cast<int>(rng() % 17);
        const uint64_t nBits = rng();
        double value;
        std::memcpy(&value, &nBits, sizeof(value));
        check(value, nPrecision);
        const double decimal =
            static_cast<double>(rng() % 100000000) / std::pow(10.0, static_cast<int>(rng() % 30) - 8);
        check(decimal, nPrecision);
        check(-decimal, 16);
        check(std::ldexp(static_cast<double>(rng() % 2000000) + 0.5, static_cast<int>(rng() % 20) - 10), nPrecision);
        const double power = std::pow(10.0, static_cast<int>(rng() % 40) - 20);
        check(std::nextafter(power, 0.0), nPrecision);
        check(std::nextafter(power, 1e300), nPrecision);
        check((1.0 - std::ldexp(1.0, -static_cast<int>(1 + rng() % 53))) * power, nPrecision);
    }
    EXPECT_EQ(0, nDiffering);
}

// XML numbers have a decimal point whatever locale the application runs in. A German locale
// is compiled into a scratch folder (skipped where that can't be done) and put in force in a
// child process: glibc keeps the locale path it is given for good, which the leak checker
// would report, and the child leaves without that check.
TEST(ConversionsFloats, TextIgnoresTheApplicationsLocale) {
    std::string strDir = "/tmp/orvexxml-locale-" + std::to_string(::getpid());
    std::string strMake =
        "mkdir -p " + strDir + " && localedef -i de_DE -f UTF-8 " + strDir + "/de_DE.UTF-8 >/dev/null 2>&1";
    if (std::system(strMake.c_str()) != 0) {
        EXPECT_EQ(0, std::system(("rm -rf " + strDir).c_str()));
        GTEST_SKIP() << "no locale with a decimal comma can be compiled here";
    }
    EXPECT_EXIT(
        {
            ::setenv("LOCPATH", strDir.c_str(), 1);
            locale_t comma = ::newlocale(LC_NUMERIC_MASK, "de_DE.UTF-8", static_cast<locale_t>(nullptr));
            if (!comma) std::_Exit(2);
            ::uselocale(comma);
            char szCheck[16];
            std::snprintf(szCheck, sizeof(szCheck), "%.1f", 1.5);
            std::string strFound = std::string(szCheck) + " " + CConversions::r8ToString(1.5) + " " +
                                   CConversions::r8ToString(1.5, "%.2f") + " " +
                                   CConversions::r4ToString(1.5f, "[%.2f]") + " " +
                                   CConversions::r8ToString(CConversions::r8FromString("1.25", NONE));
            // The first is the locale's own form, which shows that the locale is in force.
            std::fprintf(stderr, "%s\n", strFound.c_str());
            std::_Exit(strFound == "1,5 1.5 1.50 [1.50] 1.25" ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
    EXPECT_EQ(0, std::system(("rm -rf " + strDir).c_str()));
}

// Numbers go through strtod without a range test; the special spellings are read whole.
TEST(ConversionsFloats, Reading) {
    EXPECT_EQ(1.5f, CConversions::r4FromString("1.5", NONE));
    EXPECT_EQ(0.1f, CConversions::r4FromString("0.1", NONE));
    EXPECT_EQ(-0.25, CConversions::r8FromString("-25e-2", NONE));
    EXPECT_EQ(0.1, CConversions::r8FromString("0.1", NONE));
    EXPECT_EQ(100.0, CConversions::r8FromString("1E2", NONE));
    EXPECT_EQ(1.5, CConversions::r8FromString(" 1.5", NONE));
    EXPECT_EQ(1.5, CConversions::r8FromString(" 1.5 ", COLLAPSE));
    EXPECT_EQ(INF, CConversions::r4FromString("1e39", NONE));
    EXPECT_EQ(-INF, CConversions::r4FromString("-1e39", NONE));
    EXPECT_EQ(INF, CConversions::r8FromString("1e999", NONE));
    const double dTiny = CConversions::r8FromString("1e-400", NONE);
    EXPECT_GE(dTiny, 0.0);
    EXPECT_LT(dTiny, DBL_MIN);

    for (const char* pszNaN : {"NaN", "1.#QNAN", "-NAN"}) {
        SCOPED_TRACE(pszNaN);
        EXPECT_TRUE(std::isnan(CConversions::r4FromString(pszNaN, NONE)));
        EXPECT_TRUE(std::isnan(CConversions::r8FromString(pszNaN, NONE)));
    }
    EXPECT_TRUE(std::isnan(CConversions::r8FromString(" -NAN ", COLLAPSE)));
    EXPECT_EQ(INF, CConversions::r4FromString("INF", NONE));
    EXPECT_EQ(-INF, CConversions::r4FromString("-INF", NONE));
    EXPECT_EQ(INF, CConversions::r8FromString("INF", NONE));
    EXPECT_EQ(-INF, CConversions::r8FromString("-INF", NONE));
}

// Every numeral reads to the very bits that strtod in the "C" locale gives, whichever way the
// reader takes: long mantissas, points in any place, exponents near both ends of the range,
// halfway cases and the forms that only strtod accepts.
TEST(ConversionsFloats, ReadingAgreesWithStrtod) {
    const locale_t c = ::newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    ASSERT_NE(c, static_cast<locale_t>(nullptr));
    std::vector<std::string> texts = {"0",
                                      "-0",
                                      "0.0",
                                      ".5",
                                      "-.5",
                                      "5.",
                                      "007",
                                      "1e0",
                                      "1E+2",
                                      "1e-2",
                                      "+1.5",
                                      "0x1p3",
                                      "infinity",
                                      "-inf",
                                      "nan",
                                      "9007199254740993",
                                      "2.2250738585072011e-308",
                                      "4.9e-324",
                                      "2e-324",
                                      "1.7976931348623157e308",
                                      "1.7976931348623159e308",
                                      "1e-320"};
    uint64_t nState = 0x9E3779B97F4A7C15ULL;
    auto next = [&nState](uint64_t nBound) {
        nState ^= nState << 13;
        nState ^= nState >> 7;
        nState ^= nState << 17;
        return nState % nBound;
    };
    for (int i = 0; i < 20000; ++i) {
        std::string strText = next(4) == 0 ? "-" : "";
        const size_t nDigits = 1 + next(next(3) == 0 ? 40 : 18);
        const size_t nPoint = next(nDigits + 2);
        for (size_t d = 0; d < nDigits; ++d) {
            if (d == nPoint) strText += '.';
            strText += static_cast<char>('0' + next(10));
        }
        if (next(2) == 0) strText += (next(2) ? "e" : "E") + std::to_string(static_cast<int>(next(660)) - 340);
        texts.push_back(strText);
    }
    for (const std::string& strText : texts) {
        char* pEnd = nullptr;
        const double dOracle = ::strtod_l(strText.c_str(), &pEnd, c);
        ASSERT_EQ(*pEnd, '\0') << strText;
        const double dRead = CConversions::r8FromString(strText, NONE);
        if (std::isnan(dOracle)) {
            EXPECT_TRUE(std::isnan(dRead)) << strText;
            continue;
        }
        EXPECT_EQ(std::signbit(dOracle), std::signbit(dRead)) << strText;
        EXPECT_EQ(dOracle, dRead) << strText;
        EXPECT_EQ(static_cast<float>(dOracle), CConversions::r4FromString(strText, NONE)) << strText;
    }
    ::freelocale(c);
}

// --- char, string, boolean, year, month, day --------------------------------------------

TEST(Conversions, CharStringAndBoolean) {
    EXPECT_EQ("a", CConversions::charToString('a'));
    EXPECT_EQ("", CConversions::charToString('\0'));
    EXPECT_EQ("\xE9", CConversions::charToString('\xE9'));
    EXPECT_EQ('x', CConversions::charFromString("x", NONE));
    EXPECT_EQ('x', CConversions::charFromString(" x\t", COLLAPSE));
    EXPECT_EQ(' ', CConversions::charFromString("\t", REPLACE));

    EXPECT_EQ(" a\r\nb ", CConversions::stringToString(" a\r\nb "));
    EXPECT_EQ(" a\r\nb ", CConversions::stringFromString(" a\r\nb ", NONE));
    EXPECT_EQ(" a\nb ", CConversions::stringFromString(" a\r\nb ", PRESERVE));
    EXPECT_EQ(" a b ", CConversions::stringFromString(" a\r\nb ", REPLACE));
    EXPECT_EQ("a b", CConversions::stringFromString(" a\r\nb ", COLLAPSE));

    EXPECT_EQ("true", CConversions::booleanToString(true));
    EXPECT_EQ("false", CConversions::booleanToString(false));
    // The words in any case, and the digits.
    for (const char* pszTrue : {"true", "TRUE", "tRuE", "1", " true\n"}) {
        EXPECT_TRUE(CConversions::booleanFromString(pszTrue, COLLAPSE)) << pszTrue;
    }
    for (const char* pszFalse : {"false", "False", "0"}) EXPECT_FALSE(CConversions::booleanFromString(pszFalse, NONE));
}

TEST(Conversions, YearMonthAndDayText) {
    EXPECT_EQ("0", CConversions::yearToString(0));
    EXPECT_EQ("2024", CConversions::yearToString(2024));
    EXPECT_EQ("65535", CConversions::yearToString(65535));
    EXPECT_EQ("--03", CConversions::monthToString(3));
    EXPECT_EQ("---31", CConversions::dayToString(31));
    for (unsigned n = 0; n <= 255; ++n) {
        EXPECT_EQ(Printf("--%02u", n), CConversions::monthToString(static_cast<uint8_t>(n)));
        EXPECT_EQ(Printf("---%02u", n), CConversions::dayToString(static_cast<uint8_t>(n)));
    }
}

}  // namespace
