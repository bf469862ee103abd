#include "orvexxml/values/datetimespan.h"

#include <gtest/gtest.h>

#include <string>

#include "expectthrow.h"
#include "support/onewayforms.h"

using OrvexXml::CDateTime;
using OrvexXml::CDateTimeSpan;
using OrvexXml::COxInvalidValueException;

namespace {

CDateTimeSpan Span(const char* text) {
    CDateTimeSpan span;
    span.ParseXSDDuration(text);
    return span;
}

TEST(DateTimeSpanTest, TextsReadIntoTheirFieldsAndWriteBack) {
    struct Case {
        const char* text;
        const char* written;
        unsigned long long fields[9];  // years to nanoseconds
        bool bNegative;
    };
    const Case cases[] = {
        {"P1Y2M3DT4H5M6.7S", "P1Y2M3DT4H5M6.7S", {1, 2, 3, 4, 5, 6, 700, 0, 0}, false},
        {"-P1D", "-P1D", {0, 0, 1, 0, 0, 0, 0, 0, 0}, true},
        {"PT0.5S", "PT0.5S", {0, 0, 0, 0, 0, 0, 500, 0, 0}, false},
        {"PT1.5S", "PT1.5S", {0, 0, 0, 0, 0, 1, 500, 0, 0}, false},
        {"PT0.000000123S", "PT0.000000123S", {0, 0, 0, 0, 0, 0, 0, 0, 123}, false},
        {"PT0.0015S", "PT0.0015S", {0, 0, 0, 0, 0, 0, 1, 500, 0}, false},
        {"PT1.", "PT1S", {0, 0, 0, 0, 0, 1, 0, 0, 0}, false},
        {"PT1.S", "PT1S", {0, 0, 0, 0, 0, 1, 0, 0, 0}, false},
        {"PM", "P", {0, 0, 0, 0, 0, 0, 0, 0, 0}, false},
        {"PT.5S", "PT0.5S", {0, 0, 0, 0, 0, 0, 500, 0, 0}, false},
        {"PTS", "P", {0, 0, 0, 0, 0, 0, 0, 0, 0}, false},
        {"PT1H2Y", "P2YT1H", {2, 0, 0, 1, 0, 0, 0, 0, 0}, false},  // a "Y" may follow anything
        {"PT1.5S3Y", "P3YT1.5S", {3, 0, 0, 0, 0, 1, 500, 0, 0}, false},
        {"P70000Y", "P4464Y", {4464, 0, 0, 0, 0, 0, 0, 0, 0}, false},
        {"P4294967297D", "P1D", {0, 0, 1, 0, 0, 0, 0, 0, 0}, false},
        {"P4294967295MT4294967295M",
         "P4294967295MT4294967295M",
         {0, 4294967295u, 0, 0, 4294967295u, 0, 0, 0, 0},
         false},
    };
    for (const Case& c : cases) {
        const CDateTimeSpan span = Span(c.text);
        const unsigned long long actual[9] = {span.GetYears(),        span.GetMonths(),       span.GetDays(),
                                              span.GetHours(),        span.GetMinutes(),      span.GetSeconds(),
                                              span.GetMilliSeconds(), span.GetMicroSeconds(), span.GetNanoSeconds()};
        for (int i = 0; i < 9; ++i) EXPECT_EQ(c.fields[i], actual[i]) << c.text << " field " << i;
        EXPECT_EQ(c.bNegative, span.IsNegative()) << c.text;
        EXPECT_EQ(c.written, span.ToString()) << c.text;
    }
}

TEST(DateTimeSpanTest, MalformedTextsAreRefusedWithTheirMessage) {
    const std::pair<const char*, const char*> cases[] = {
        {nullptr, "Invalid XSD Duration (Null String)"},
        {"", "Invalid XSD Duration (Empty String)"},
        {"PT0.1234567890S", "Invalid XSD Duration [PT0.1234567890S] Fraction part too long"},
    };
    for (const auto& c : cases) EXPECT_OX_THROW(Span(c.first), COxInvalidValueException, c.second);
    const char* const shapes[] = {"P",      "PT",      "-",     "-P",     "1D",       "P1",     "PT1",
                                  "P1S",    "P1H",     "PT1.5", "PT1.5X", "P1D1M",    "PT1S1M", "P1DT",
                                  "PT1M1H", "PT1S.5S", "P-1D",  "p1D",    "PT1.5S2S", "P1Y1M1M"};
    for (const char* text : shapes) {
        EXPECT_OX_THROW(Span(text), COxInvalidValueException,
                        std::string("Invalid XSD Duration [") + text + "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    }
    // A duration of zeros writes a text without a count, which reads as a refusal.
    for (const char* text : {"PT0S", "-P0Y", "P0DT0H0M0.000S"}) {
        const std::string strWritten = Span(text).ToString();
        EXPECT_TRUE(OrvexTest::IsEmptyDurationText(strWritten)) << text;
        EXPECT_OX_THROW(Span(strWritten.c_str()), COxInvalidValueException,
                        "Invalid XSD Duration [" + strWritten + "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    }
    // A refused text leaves what was read before the refusal.
    CDateTimeSpan partial;
    EXPECT_THROW(partial.ParseXSDDuration("-P3DT5X"), COxInvalidValueException);
    EXPECT_EQ("-P3D", partial.ToString());
}

TEST(DateTimeSpanTest, SignAndSetters) {
    CDateTimeSpan span = Span("-P1D");
    span.Negate();
    EXPECT_EQ("P1D", span.ToString());
    span.Negate();
    EXPECT_EQ("-P1D", span.ToString());
    EXPECT_EQ("-P1D", span.GetAsNegative().ToString());
    EXPECT_EQ("-P1D", Span("P1D").GetAsNegative().ToString());
    span.SetDateTimeSpan(1, 2, 3);
    EXPECT_EQ("PT1H2M3S", span.ToString());
    span.SetDateTimeSpan(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ("P1Y2M3DT4H5M6.007008009S", span.ToString());
    EXPECT_EQ("P1Y2M3DT4H5M6S", CDateTimeSpan(1, 2, 3, 4, 5, 6).ToString());
}

TEST(DateTimeSpanTest, OrderGoesThroughFourReferenceDates) {
    using T = CDateTime;
    const struct {
        const char* left;
        const char* right;
        T::DTCompareResult eResult;
    } cases[] = {
        {"P1M", "P30D", T::dtc_indeterminate},
        {"P1M", "P31D", T::dtc_indeterminate},
        {"P1M", "P32D", T::dtc_lessThan},
        {"P1M", "P27D", T::dtc_greaterThan},
        {"P1Y", "P365D", T::dtc_indeterminate},
        {"P1Y", "P366D", T::dtc_indeterminate},
        {"PT24H", "P1D", T::dtc_equal},
        {"P1Y", "P12M", T::dtc_equal},
        {"-P1D", "P1D", T::dtc_lessThan},
        {"PT23H", "P1D", T::dtc_lessThan},
        // The reference values are dates: what doesn't reach the next day is not seen.
        {"PT1.5S", "PT1.25S", T::dtc_equal},
        {"PT23H59M", "PT1M", T::dtc_equal},
        // A sum beyond the years of a date makes the pair indeterminate, not an error.
        {"P65535Y", "P65535Y", T::dtc_indeterminate},
    };
    for (const auto& c : cases) {
        const CDateTimeSpan left = Span(c.left);
        const CDateTimeSpan right = Span(c.right);
        EXPECT_EQ(c.eResult, left.CompareTo(right)) << c.left << " " << c.right;
        EXPECT_EQ(c.eResult == T::dtc_equal, left == right);
        EXPECT_EQ(c.eResult != T::dtc_equal, left != right);
        EXPECT_EQ(c.eResult == T::dtc_lessThan, left < right);
        EXPECT_EQ(c.eResult == T::dtc_greaterThan, left > right);
    }
}

}  // namespace
