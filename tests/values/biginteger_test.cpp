#include "orvexxml/values/biginteger.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "expectthrow.h"

using OrvexXml::CBigInteger;
using OrvexXml::COxInvalidValueException;

namespace {

const CBigInteger ZERO(0);

// A zero that sorts below 0 is a negative zero.
bool IsNegativeZero(const CBigInteger& value) { return value == ZERO && value < ZERO; }

TEST(BigIntegerTest, ParseReadsTheTrailingDigitsAfterAnOptionalMinus) {
    struct Case {
        const char* text;
        const char* expected;
        bool negativeZero;
    };
    const Case cases[] = {
        {"  42  ", "42", false},   {"\t5", "5", false},  {"+17", "17", false},  {"--8", "-8", false},
        {"12-3", "3", false},      {"1 2", "2", false},  {"-1 2", "-2", false}, {"007", "7", false},
        {"-00120", "-120", false}, {"-0", "0", true},    {"-000", "0", true},   {"", "0", false},
        {"   ", "0", false},       {"-", "0", false},    {"+", "0", false},     {"5-", "0", false},
        {"5\n", "0", false},       {"-5 ", "-5", false}, {nullptr, "0", false},
    };
    for (const Case& c : cases) {
        const std::string strName = c.text == nullptr ? "(null)" : c.text;
        CBigInteger value(77);
        value.Parse(c.text);
        EXPECT_EQ(c.expected, value.ToString()) << "[" << strName << "]";
        EXPECT_EQ(c.negativeZero, IsNegativeZero(value)) << "[" << strName << "]";
    }
}

TEST(BigIntegerTest, ConstructorsCoverTheWholeRangeOfTheirTypes) {
    const std::vector<std::pair<CBigInteger, std::string>> cases = {
        {CBigInteger(std::numeric_limits<int>::min()), std::to_string(std::numeric_limits<int>::min())},
        {CBigInteger(std::numeric_limits<int>::max()), std::to_string(std::numeric_limits<int>::max())},
        {CBigInteger(std::numeric_limits<long>::min()), std::to_string(std::numeric_limits<long>::min())},
        {CBigInteger(std::numeric_limits<long long>::min()), std::to_string(std::numeric_limits<long long>::min())},
        {CBigInteger(std::numeric_limits<unsigned long>::max()),
         std::to_string(std::numeric_limits<unsigned long>::max())},
        {CBigInteger(std::numeric_limits<unsigned long long>::max()),
         std::to_string(std::numeric_limits<unsigned long long>::max())},
        {CBigInteger(0LL), "0"},
        // Doubles round to the nearest integer, halves downwards.
        {CBigInteger(2.5), "2"},
        {CBigInteger(2.6), "3"},
        {CBigInteger(-2.6), "-3"},
        {CBigInteger(-2.5), "-2"},
        {CBigInteger(0.4), "0"},
        {CBigInteger(9007199254740992.0), "9007199254740992"},
        {CBigInteger::Pow10(0), "1"},
        {CBigInteger::Pow10(12), "1000000000000"},
        {CBigInteger::MAX_DOUBLE, "17" + std::string(307, '0')},
        {CBigInteger::MIN_DOUBLE, "-17" + std::string(307, '0')},
        {CBigInteger::MIN_LONG, std::to_string(std::numeric_limits<int32_t>::min())},
        {CBigInteger::MAX_LONGLONG, std::to_string(std::numeric_limits<int64_t>::max())},
    };
    for (const auto& c : cases) EXPECT_EQ(c.second, c.first.ToString());
    EXPECT_TRUE(IsNegativeZero(CBigInteger(-0.3)));
    // The largest double has 309 digits; repeated division in double arithmetic keeps only the
    // leading 15 of them exact.
    const std::string strMax = CBigInteger(DBL_MAX).ToString();
    EXPECT_EQ(309u, strMax.size());
    EXPECT_EQ(0u, strMax.find("179769313486231"));
}

TEST(BigIntegerTest, ZeroResultsCarryTheSignTheArithmeticGivesThem) {
    const CBigInteger negZero("-0");
    struct Case {
        const char* name;
        CBigInteger value;
        const char* expected;
        bool negativeZero;
    };
    const Case cases[] = {
        {"-1 / 2", CBigInteger(-1) / CBigInteger(2), "0", true},
        {"1 / -2", CBigInteger(1) / CBigInteger(-2), "0", true},
        {"-7 / 2", CBigInteger(-7) / CBigInteger(2), "-3", false},
        {"-7 % 2", CBigInteger(-7) % CBigInteger(2), "-1", false},
        {"7 % -2", CBigInteger(7) % CBigInteger(-2), "1", false},
        {"-4 % 2", CBigInteger(-4) % CBigInteger(2), "0", true},
        {"0 / -5", CBigInteger(0) / CBigInteger(-5), "0", false},
        {"-0 % 5", negZero % CBigInteger(5), "0", false},
        {"0 * -5", CBigInteger(0) * CBigInteger(-5), "0", true},
        {"5 - 5", CBigInteger(5) - CBigInteger(5), "0", false},
        {"-5 + 5", CBigInteger(-5) + CBigInteger(5), "0", false},
        {"-0 + -0", negZero + negZero, "0", true},
        {"-0 + 0", negZero + ZERO, "0", false},
        {"9 + 1", CBigInteger(9) + CBigInteger(1), "10", false},
        {"1000 - 1", CBigInteger(1000) - CBigInteger(1), "999", false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, c.value.ToString()) << c.name;
        EXPECT_EQ(c.negativeZero, IsNegativeZero(c.value)) << c.name;
    }
    // A negative zero equals 0 yet sorts below it; the derived tests follow the two.
    EXPECT_FALSE(negZero != ZERO);
    EXPECT_TRUE(ZERO > negZero);
    EXPECT_FALSE(negZero >= ZERO);
    EXPECT_TRUE(negZero <= ZERO);
}

TEST(BigIntegerTest, RefusalsThrowTheirExactMessageAndChangeNothing) {
    const std::string strOver = std::string(40, '9');
    struct Case {
        const char* name;
        std::function<void(CBigInteger&)> action;
        const char* start;
        const char* message;
    };
    const Case cases[] = {
        {"/", [](CBigInteger& v) { v / CBigInteger(0); }, "5", "ERROR: Overflow in operator/."},
        {"/ -0", [](CBigInteger& v) { v / CBigInteger("-0"); }, "5", "ERROR: Overflow in operator/."},
        {"%", [](CBigInteger& v) { v % CBigInteger(0); }, "5", "ERROR: Overflow in operator%."},
        {"/=", [](CBigInteger& v) { v /= CBigInteger(0); }, "5", "ERROR: Overflow in operator /=."},
        {"%=", [](CBigInteger& v) { v %= CBigInteger(0); }, "-5", "ERROR: Overflow in operator%=."},
        {"int", [](CBigInteger& v) { (void)static_cast<int>(v); }, "2147483648", "ERROR: Value out of bound of int."},
        {"-int", [](CBigInteger& v) { (void)static_cast<int>(v); }, "-2147483649", "ERROR: Value out of bound of int."},
        {"long long", [](CBigInteger& v) { (void)static_cast<long long>(v); }, "9223372036854775808",
         "ERROR: Value out of bound of LONGLONG."},
        {"-long long", [](CBigInteger& v) { (void)static_cast<long long>(v); }, "-9223372036854775809",
         "ERROR: Value out of bound of LONGLONG."},
        {"sqrt -1", [](CBigInteger& v) { v.SquareRoot(); }, "-1", "ERROR: Negative Number in function SquareRoot()."},
        {"sqrt -0", [](CBigInteger& v) { v.SquareRoot(); }, "-0", "ERROR: Negative Number in function SquareRoot()."},
        {"sqrt 0", [](CBigInteger& v) { v.SquareRoot(); }, "0", "ERROR: Overflow in operator/."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CBigInteger value(c.start);
        EXPECT_OX_THROW(c.action(value), COxInvalidValueException, c.message);
        EXPECT_EQ(CBigInteger(c.start).ToString(), value.ToString());
        EXPECT_EQ(IsNegativeZero(CBigInteger(c.start)), IsNegativeZero(value));
    }
    EXPECT_OX_THROW(CBigInteger(std::nan("")), COxInvalidValueException,
                    "ERROR: Value is not a finite number in CBigInteger(double).");
    EXPECT_OX_THROW(CBigInteger(-HUGE_VAL), COxInvalidValueException,
                    "ERROR: Value is not a finite number in CBigInteger(double).");
}

TEST(BigIntegerTest, CompoundOperatorsWithThemselvesAsOperand) {
    const std::string strBig = "-" + std::string(80, '7');
    struct Case {
        const char* name;
        std::function<void(CBigInteger&)> action;
        CBigInteger expected;
        bool negativeZero;
    };
    const CBigInteger big(strBig.c_str());
    const Case cases[] = {
        {"+=", [](CBigInteger& v) { v += v; }, big * CBigInteger(2), false},
        {"-=", [](CBigInteger& v) { v -= v; }, ZERO, false},
        {"*=", [](CBigInteger& v) { v *= v; }, big.GetAbs() * big.GetAbs(), false},
        {"/=", [](CBigInteger& v) { v /= v; }, CBigInteger(1), false},
        {"%=", [](CBigInteger& v) { v %= v; }, ZERO, true},
        {"= itself",
         [](CBigInteger& v) {
             const CBigInteger& same = v;
             v = same;
         },
         big, false},
    };
    for (const Case& c : cases) {
        CBigInteger value(big);
        c.action(value);
        EXPECT_EQ(c.expected.ToString(), value.ToString()) << c.name;
        EXPECT_EQ(c.negativeZero, IsNegativeZero(value)) << c.name;
    }
}

TEST(BigIntegerTest, UnaryMinusFlipsTheObjectItself) {
    CBigInteger value(5);
    const CBigInteger sum = -value + CBigInteger(1);
    EXPECT_EQ("-4", sum.ToString());
    EXPECT_EQ("-5", value.ToString());
    const CBigInteger& flipped = -value;
    EXPECT_EQ(&value, &flipped);
    EXPECT_EQ("5", value.ToString());
}

TEST(BigIntegerTest, SquareRootIsTheFloorOfTheRoot) {
    const std::pair<const char*, const char*> cases[] = {
        {"1", "1"}, {"3", "1"}, {"4", "2"}, {"99", "9"}, {"100", "10"}, {"101", "10"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.second, CBigInteger(c.first).SquareRoot().ToString()) << c.first;
}

// One case of the data file, whose results Python's integers computed.
struct OracleCase {
    std::vector<std::string> fields;
    const std::string& operator[](size_t i) const { return fields[i]; }
};

std::vector<OracleCase> ReadOracleCases() {
    std::string strPath = __FILE__;
    strPath = strPath.substr(0, strPath.find_last_of('/')) + "/data/biginteger_cases.txt";
    std::ifstream in(strPath);
    std::vector<OracleCase> cases;
    std::string strLine;
    while (std::getline(in, strLine)) {
        std::istringstream fields(strLine);
        OracleCase c;
        std::string strField;
        while (fields >> strField) c.fields.push_back(strField);
        if (c.fields.size() == 11) cases.push_back(c);
    }
    return cases;
}

std::string Attempt(const std::function<std::string()>& compute) {
    try {
        return compute();
    } catch (const COxInvalidValueException&) {
        return "throw";
    }
}

TEST(BigIntegerTest, ArithmeticAgreesWithAnIndependentOracle) {
    const std::vector<OracleCase> cases = ReadOracleCases();
    ASSERT_GE(cases.size(), 200u) << "data file missing or short";
    for (const OracleCase& c : cases) {
        SCOPED_TRACE(c[0].substr(0, 40) + " , " + c[1].substr(0, 40));
        const CBigInteger a(c[0].c_str());
        const CBigInteger b(c[1].c_str());
        EXPECT_EQ(c[0], a.ToString());
        EXPECT_EQ(c[2], (a + b).ToString());
        EXPECT_EQ(c[3], (a - b).ToString());
        EXPECT_EQ(c[4], (a * b).ToString());
        EXPECT_EQ(c[5], Attempt([&] { return (a / b).ToString(); }));
        EXPECT_EQ(c[6], Attempt([&] { return (a % b).ToString(); }));
        // The compound forms give the same values.
        CBigInteger sum(a), difference(a), product(a), quotient(a), remainder(a);
        sum += b;
        difference -= b;
        product *= b;
        EXPECT_EQ(c[2], sum.ToString());
        EXPECT_EQ(c[3], difference.ToString());
        EXPECT_EQ(c[4], product.ToString());
        EXPECT_EQ(c[5], Attempt([&] { return (quotient /= b).ToString(); }));
        EXPECT_EQ(c[6], Attempt([&] { return (remainder %= b).ToString(); }));

        const int nCompare = std::stoi(c[7]);
        EXPECT_EQ(nCompare == 0, a == b);
        EXPECT_EQ(nCompare != 0, a != b);
        EXPECT_EQ(nCompare < 0, a < b);
        EXPECT_EQ(nCompare > 0, a > b);
        EXPECT_EQ(nCompare <= 0, a <= b);
        EXPECT_EQ(nCompare >= 0, a >= b);

        EXPECT_EQ(c[8], Attempt([&] { return a.SquareRoot().ToString(); }));
        EXPECT_EQ(c[9], Attempt([&] { return std::to_string(static_cast<int>(a)); }));
        EXPECT_EQ(c[10], Attempt([&] { return std::to_string(static_cast<long long>(a)); }));
    }
}

}  // namespace
