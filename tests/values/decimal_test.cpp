#include "orvexxml/values/decimal.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "expectthrow.h"

using OrvexXml::CBigInteger;
using OrvexXml::CDecimal;
using OrvexXml::COxInvalidParamException;
using OrvexXml::COxInvalidValueException;
using OrvexXml::COxOverFlowException;

namespace {

// Sets the process-wide bound on places for one scope.
class BoundScope {
public:
    explicit BoundScope(int nPlaces) : m_nSaved(CDecimal::GetMaxDecimalPlaces()) {
        CDecimal::SetMaxDecimalPlaces(nPlaces);
    }
    ~BoundScope() { CDecimal::SetMaxDecimalPlaces(m_nSaved); }

private:
    int m_nSaved;
};

std::string InvalidChar(int nPosition, const std::string& strText) {
    return "The string representing a Decimal, contained an invalid char at position " + std::to_string(nPosition) +
           " [" + strText + "].";
}

TEST(DecimalTest, ParseReadsSignsBlanksPointsAndExponentsAsOneScan) {
    struct Case {
        std::string text;
        std::string expected;
        int places;
    };
    const Case cases[] = {
        {"1.50", "1.5", 1},
        {"3.000", "3", 1},
        {".5", "0.5", 1},
        {" 1 2 ", "12", 1},
        {"12 . 5", "12.5", 1},
        {"1-2+3", "123", 1},
        {"+-5.25", "-5.25", 2},
        {"\t-0.5\n", "-0.5", 1},
        {"", "0", 1},
        {".", "0", 1},
        {"-", "0", 1},
        {"1e3", "1000", 1},
        {"1E+3", "1000", 1},
        {"1e-3", "0.001", 3},
        {"1e - +- 3", "0.001", 3},
        {"1e 3", "1000", 1},
        {"2.5e-1", "0.25", 2},
        {"1.5e", "1.5", 1},
        {"1.7E+308", "17" + std::string(307, '0'), 1},
        // Rounding to 30 places: to nearest, an exact half towards zero; zeros that the
        // rounding leaves at the end are dropped.
        {"0." + std::string(30, '1') + "6", "0." + std::string(29, '1') + "2", 30},
        {"0." + std::string(30, '1') + "5", "0." + std::string(30, '1'), 30},
        {"-0." + std::string(30, '1') + "6", "-0." + std::string(29, '1') + "2", 30},
        {"0." + std::string(29, '1') + "05", "0." + std::string(29, '1'), 29},
        {"0.00002" + std::string(25, '0') + "015", "0.00002", 5},
        {"1." + std::string(31, '9'), "2", 1},
        {"1e-31", "0", 1},
        {"6e-31", "0." + std::string(29, '0') + "1", 30},
        // A negative exponent beyond every place that division keeps gives 0 however large.
        {"-5e-" + std::string(31, '9'), "0", 1},
        {"0e" + std::string(31, '9'), "0", 1},
        // The largest values within the limits.
        {std::string(511, '9') + "." + std::string(511, '0'), std::string(511, '9'), 1},
        {"0.001e513", ("1" + std::string(510, '0')), 1},
    };
    for (const Case& c : cases) {
        const CDecimal value(c.text.c_str());
        EXPECT_EQ(c.expected, value.ToString()) << "[" << c.text << "]";
        EXPECT_EQ(c.places, value.GetFractionDivider()) << "[" << c.text << "]";
    }
    EXPECT_EQ("0", CDecimal(static_cast<const char*>(nullptr)).ToString());
}

TEST(DecimalTest, ParseRefusesForeignCharactersAndTextsBeyondItsLimits) {
    const std::string strMillion(1000000, '1');
    const std::pair<std::string, std::string> cases[] = {
        {"1a", InvalidChar(1, "1a")},
        {"abc", InvalidChar(0, "abc")},
        {"1,5", InvalidChar(1, "1,5")},
        {"1.5.3", InvalidChar(3, "1.5.3")},
        {"1.5-", InvalidChar(3, "1.5-")},
        {"1e3 ", InvalidChar(3, "1e3 ")},
        {"1e3 4", InvalidChar(3, "1e3 4")},
        {"1e+x", InvalidChar(3, "1e+x")},
        {"1\x01", InvalidChar(1, "1\x01")},
        {"0x10", InvalidChar(1, "0x10")},
        {std::string(512, '1'), "The string representing a Decimal, has more than 511 digits before the point [" +
                                    std::string(512, '1') + "]."},
        {"0." + std::string(512, '1'),
         "The string representing a Decimal, has more than 511 digits after the point [0." + std::string(512, '1') +
             "]."},
        {"1e" + std::string(32, '1'), "The string representing a Decimal, has more than 31 digits in its exponent [1e" +
                                          std::string(32, '1') + "]."},
        {"1e511", "The string representing a Decimal, has more than 511 digits before the point [1e511]."},
        {"1e" + std::string(31, '9'),
         "The string representing a Decimal, has more than 511 digits before the point [1e" + std::string(31, '9') +
             "]."},
    };
    for (const auto& c : cases) {
        EXPECT_OX_THROW(CDecimal value(c.first.c_str()), COxInvalidValueException, c.second);
    }
    // A million digits are refused at the first one past the limit.
    try {
        CDecimal value(strMillion.c_str());
        ADD_FAILURE() << "a million digits were read";
    } catch (const COxInvalidValueException& e) {
        EXPECT_EQ(0u, e.GetMessage().find("The string representing a Decimal, has more than 511 digits before"));
    }
}

TEST(DecimalTest, DoublesReadAsThirteenPlacesAndTheirSpecialValuesAreRefused) {
    EXPECT_EQ("0.1", CDecimal(0.1).ToString());
    EXPECT_EQ("-2.5", CDecimal(-2.5).ToString());
    EXPECT_EQ("0", CDecimal(1e-14).ToString());
    EXPECT_EQ("0.0000000000001", CDecimal(1e-13).ToString());
    EXPECT_EQ("123456789012345683968", CDecimal(123456789012345678901.0).ToString());
    const double dInfinity = std::numeric_limits<double>::infinity();
    EXPECT_OX_THROW(CDecimal value(dInfinity), COxInvalidValueException, InvalidChar(0, "inf\n"));
    EXPECT_OX_THROW(CDecimal value(-dInfinity), COxInvalidValueException, InvalidChar(1, "-inf\n"));
    EXPECT_OX_THROW(CDecimal value(std::numeric_limits<double>::quiet_NaN()), COxInvalidValueException,
                    InvalidChar(0, "nan\n"));
}

TEST(DecimalTest, NegativeZeroKeepsTheSignOfValuesBetweenMinusOneAndZero) {
    const CDecimal negativeZero("-0.0");
    EXPECT_TRUE(negativeZero == CDecimal(0));
    EXPECT_TRUE(negativeZero < CDecimal(0));
    EXPECT_EQ("0", negativeZero.ToString());
    EXPECT_TRUE(CDecimal("-0.5") < CDecimal("0.5"));
    EXPECT_TRUE(CDecimal("0.5") > CDecimal("-0.5"));
    EXPECT_EQ("-0.5", CDecimal("0.5").GetNegative().ToString());
    const CDecimal sum = CDecimal("-1.5") + CDecimal("0.7");
    EXPECT_EQ("-0.8", sum.ToString());
    EXPECT_TRUE(sum.GetIntegerPart() < CBigInteger(0));
}

TEST(DecimalTest, OperatorsKeepThePlacesTheirRulesGive) {
    struct Case {
        const char* name;
        std::function<CDecimal()> compute;
        std::string expected;
    };
    const Case cases[] = {
        {"-0.5 + 0.5", [] { return CDecimal("-0.5") + CDecimal("0.5"); }, "0"},
        {"0.1 + 0.9", [] { return CDecimal("0.1") + CDecimal("0.9"); }, "1"},
        {"-0.1 - 0.9", [] { return CDecimal("-0.1") - CDecimal("0.9"); }, "-1"},
        {"1.25 - 1.2", [] { return CDecimal("1.25") - CDecimal("1.2"); }, "0.05"},
        // The negation of a whole number made from an integer has a negative zero fraction,
        // which must not count as a negative one.
        {"-(-5) - 3", [] { return CDecimal(-5).GetNegative() - CDecimal(3); }, "2"},
        {"-(-5) + -3", [] { return CDecimal(-5).GetNegative() + CDecimal("-3"); }, "2"},
        {"0.5 * 0.5", [] { return CDecimal("0.5") * CDecimal("0.5"); }, "0.25"},
        // 16 places on each side make 32, rounded to 30 with an exact half towards zero.
        {"16 places squared", [] { return CDecimal("0.1234567890123456") * CDecimal("0.1234567890123456"); },
         "0.015241578753238817268709213839"},
        {"exact half at place 31", [] { return CDecimal("0.0000000000000035") * CDecimal("0.000000000000001"); },
         "0." + std::string(29, '0') + "3"},
        {"1 / 3", [] { return CDecimal(1) / CDecimal(3); }, "0." + std::string(30, '3')},
        {"2 / 3", [] { return CDecimal(2) / CDecimal(3); }, "0." + std::string(29, '6') + "7"},
        {"-1 / 8", [] { return CDecimal(-1) / CDecimal(8); }, "-0.125"},
        {"++",
         [] {
             CDecimal value("1.5");
             return ++value;
         },
         "2.5"},
        {"--",
         [] {
             CDecimal value("0.5");
             return --value;
         },
         "-0.5"},
        {"+= -= *= /=",
         [] {
             CDecimal value(10);
             value += CDecimal("0.5");
             value -= CDecimal(3);
             value *= CDecimal(2);
             value /= CDecimal(4);
             return value;
         },
         "3.75"},
    };
    for (const Case& c : cases) EXPECT_EQ(c.expected, c.compute().ToString()) << c.name;

    // The postfix forms give the neighbour and leave the object unchanged.
    CDecimal value(5);
    EXPECT_EQ("6", (value++).ToString());
    EXPECT_EQ("4", (value--).ToString());
    EXPECT_EQ("5", value.ToString());

    const CDecimal dividend("2.5");
    EXPECT_OX_THROW(dividend / CDecimal("0.0"), COxInvalidValueException, "ERROR: Overflow in operator/.");
    CDecimal target("2.5");
    EXPECT_OX_THROW(target /= CDecimal(0), COxInvalidValueException, "ERROR: Overflow in operator/.");
    EXPECT_EQ("2.5", target.ToString());
}

TEST(DecimalTest, FixedPlacesRoundHalfAwayFromZeroAndAlwaysWriteThePoint) {
    const std::vector<std::tuple<const char*, int, const char*>> cases = {
        {"0", 2, "0.00"},
        {"1.005", 2, "1.01"},
        {"-1.005", 2, "-1.01"},
        {"1", 0, "1."},
        {"1.5", 0, "2."},
        {"-0.001", 2, "-0.00"},
        {"1.995", 2, "2.0"},
        {"1.5", 2, "1.50"},
        {"2.25", 1, "2.3"},
        {"12.345", 9, "12.345000000"},
        // Half a unit beyond the bound rounds to nothing: the places held, at most as asked.
        {"1.25", 40, "1.25"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(std::get<2>(c), CDecimal(std::get<0>(c)).ToString(std::get<1>(c)))
            << std::get<0>(c) << " to " << std::get<1>(c);
    }
    EXPECT_OX_THROW(CDecimal(1).ToString(-1), COxInvalidParamException,
                    "ERROR: Negative number of places [-1] in CDecimal::ToString.");
}

TEST(DecimalTest, ConversionsRefuseValuesOutOfRangeWithTheirMessages) {
    const char* const kLong = "The Decimal value if to large to fit into a LONG";
    const char* const kLongLong = "The Decimal value if to large to fit into a LONGLONG";
    const char* const kDouble = "The Decimal value if to large to fit into a Double";
    EXPECT_EQ(2147483647, CDecimal("2147483647.4").ToLong());
    EXPECT_EQ(2147483647, CDecimal("2147483647.5").ToLong());
    EXPECT_EQ(-2147483647 - 1, CDecimal("-2147483648.5").ToLong());
    EXPECT_OX_THROW(CDecimal("2147483647.51").ToLong(), COxOverFlowException, kLong);
    EXPECT_OX_THROW(CDecimal("2147483648").ToLong(), COxOverFlowException, kLong);
    EXPECT_OX_THROW(CDecimal("-2147483648.6").ToLong(), COxOverFlowException, kLong);

    EXPECT_EQ(3, CDecimal("2.96").ToLongLong());
    EXPECT_EQ(2, CDecimal("2.94").ToLongLong());
    EXPECT_EQ(std::numeric_limits<long long>::max(), CDecimal("9223372036854775807.94").ToLongLong());
    EXPECT_EQ(std::numeric_limits<long long>::min(), CDecimal("-9223372036854775808.9").ToLongLong());
    EXPECT_OX_THROW(CDecimal("9223372036854775807.96").ToLongLong(), COxOverFlowException, kLongLong);
    EXPECT_OX_THROW(CDecimal("-9223372036854775809").ToLongLong(), COxOverFlowException, kLongLong);

    EXPECT_EQ(1.7e308, CDecimal("1.7e308").ToDouble());
    EXPECT_EQ(-0.125, CDecimal("-0.125").ToDouble());
    EXPECT_OX_THROW((CDecimal("1.7e308") + CDecimal(1)).ToDouble(), COxOverFlowException, kDouble);
    EXPECT_OX_THROW(CDecimal("-1.8e308").ToDouble(), COxOverFlowException, kDouble);

    EXPECT_EQ("2", CDecimal("2.5").ToBigInteger().ToString());
    EXPECT_EQ("3", CDecimal("2.51").ToBigInteger().ToString());
    EXPECT_EQ("-2", CDecimal("-2.5").ToBigInteger().ToString());
}

TEST(DecimalTest, BigIntegersReadTextsThatAreNoPlainIntegerThroughTheDecimal) {
    const std::pair<const char*, const char*> cases[] = {
        {"1.5", "1"}, {"1.6", "2"}, {"-2.5", "-2"}, {"1E3", "1000"}, {"2.5e1", "25"}, {"12.", "12"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.second, CBigInteger(c.first).ToString()) << c.first;
    EXPECT_EQ("7", CBigInteger(CDecimal("7.49")).ToString());
    CBigInteger value(77);
    EXPECT_OX_THROW(value.Parse("12a"), COxInvalidValueException, InvalidChar(2, "12a"));
    EXPECT_EQ("77", value.ToString());
}

TEST(DecimalTest, TheBoundOnPlacesRulesEveryLaterOperation) {
    {
        BoundScope bound(4);
        EXPECT_EQ("0.3333", (CDecimal(1) / CDecimal(3)).ToString());
        EXPECT_EQ("0.1235", CDecimal("0.123456").ToString());
        // Parsed values keep what the bound left them, also after the bound changes back.
        const CDecimal third = CDecimal(1) / CDecimal(3);
        CDecimal::SetMaxDecimalPlaces(30);
        EXPECT_EQ("0.3333", third.ToString());
        CDecimal::SetMaxDecimalPlaces(4);
    }
    {
        // A negative bound acts as 0.
        BoundScope bound(-3);
        EXPECT_EQ("1", CDecimal("1.5").ToString());
        EXPECT_EQ("2", CDecimal("1.51").ToString());
        EXPECT_EQ("3", (CDecimal(7) / CDecimal(2)).ToString());
    }
    EXPECT_EQ(30, CDecimal::GetMaxDecimalPlaces());
}

// One case of the data file, whose results Python's fractions computed.
std::vector<std::vector<std::string>> ReadOracleCases() {
    std::string strPath = __FILE__;
    strPath = strPath.substr(0, strPath.find_last_of('/')) + "/data/decimal_cases.txt";
    std::ifstream in(strPath);
    std::vector<std::vector<std::string>> cases;
    std::string strLine;
    while (std::getline(in, strLine)) {
        std::istringstream fields(strLine);
        std::vector<std::string> c;
        std::string strField;
        while (fields >> strField) c.push_back(strField);
        if (c.size() == 13) cases.push_back(c);
    }
    return cases;
}

TEST(DecimalTest, ArithmeticAgreesWithAnIndependentOracle) {
    const std::vector<std::vector<std::string>> cases = ReadOracleCases();
    ASSERT_GE(cases.size(), 400u) << "data file missing or short";
    for (const std::vector<std::string>& c : cases) {
        SCOPED_TRACE("bound " + c[0] + ": " + c[1].substr(0, 40) + " , " + c[2].substr(0, 40));
        BoundScope bound(std::stoi(c[0]));
        const CDecimal a(c[1].c_str());
        const CDecimal b(c[2].c_str());
        EXPECT_EQ(c[3], a.ToString());
        EXPECT_EQ(c[4], b.ToString());
        EXPECT_EQ(c[5], (a + b).ToString());
        EXPECT_EQ(c[6], (a - b).ToString());
        EXPECT_EQ(c[7], (a * b).ToString());
        try {
            EXPECT_EQ(c[8], (a / b).ToString());
        } catch (const COxInvalidValueException&) {
            EXPECT_EQ(c[8], "throw");
        }
        const int nCompare = std::stoi(c[9]);
        EXPECT_EQ(nCompare == 0, a == b);
        EXPECT_EQ(nCompare != 0, a != b);
        EXPECT_EQ(nCompare < 0, a < b);
        EXPECT_EQ(nCompare > 0, a > b);
        EXPECT_EQ(nCompare <= 0, a <= b);
        EXPECT_EQ(nCompare >= 0, a >= b);
        EXPECT_EQ(c[11], a.ToString(std::stoi(c[10])));
        EXPECT_EQ(c[12], a.ToBigInteger().ToString());
    }
}

}  // namespace
