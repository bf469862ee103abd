#include "orvexxml/values/datetime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "expectthrow.h"
#include "orvexxml/values/datetimespan.h"

using OrvexXml::CDateTime;
using OrvexXml::CDateTimeSpan;
using OrvexXml::COxInvalidStateException;
using OrvexXml::COxInvalidValueException;

namespace {

enum Reader { kDateTime, kDate, kTime };

CDateTime Read(Reader eReader, const char* text) {
    CDateTime value;
    if (eReader == kDateTime) value.ParseXSDDateTime(text);
    if (eReader == kDate) value.ParseXSDDate(text);
    if (eReader == kTime) value.ParseXSDTime(text);
    return value;
}

// The reader a text's shape calls for: a "T" makes a dateTime, a ":" in third place a time.
CDateTime ReadAny(const std::string& text) {
    if (text.find('T') != std::string::npos) return Read(kDateTime, text.c_str());
    return Read(text.size() > 2 && text[2] == ':' ? kTime : kDate, text.c_str());
}

CDateTimeSpan Span(const char* text) {
    CDateTimeSpan span;
    span.ParseXSDDuration(text);
    return span;
}

TEST(DateTimeTest, TextsOfEveryKindReadAndWriteBack) {
    struct Case {
        Reader eReader;
        const char* text;
        CDateTime::DTType eType;
        const char* written;  // nullptr: the text itself
    };
    const Case cases[] = {
        {kDateTime, "2001-10-26T21:32:52", CDateTime::dt_dateTime, nullptr},
        {kDateTime, "-0001-10-26T21:32:52.126789Z", CDateTime::dt_dateTime, nullptr},
        {kDateTime, "2001-10-26T00:00:00.000000001-14:00", CDateTime::dt_dateTime, nullptr},
        {kDateTime, "2001-10-26T23:59:59.0015+24:00", CDateTime::dt_dateTime, "2001-10-26T23:59:59.0015+00:00"},
        {kDate, "2000-02-29", CDateTime::dt_date, nullptr},
        {kDate, "2400-02-29", CDateTime::dt_date, nullptr},
        {kDate, "-0004-02-29", CDateTime::dt_date, nullptr},
        {kDate, "-9999-01-01", CDateTime::dt_date, nullptr},
        {kDate, "0001-12-31-00:30", CDateTime::dt_date, "0001-12-31+00:30"},
        {kDate, "2001-12-31x05:00", CDateTime::dt_date, "2001-12-31"},
        {kDate, "2001-12", CDateTime::dt_gYearMonth, nullptr},
        {kDate, "-0044Z", CDateTime::dt_gYear, nullptr},
        {kDate, "--05", CDateTime::dt_gMonth, nullptr},
        {kDate, "--05--", CDateTime::dt_gMonth, "--05"},
        {kDate, "--02-29+13:59", CDateTime::dt_gMonthDay, nullptr},
        {kDate, "---31", CDateTime::dt_gDay, nullptr},
        {kTime, "00:00:00", CDateTime::dt_time, nullptr},
        {kTime, "12:00:00.5", CDateTime::dt_time, nullptr},
        {kTime, "12:00:00.500", CDateTime::dt_time, "12:00:00.5"},
        {kTime, "12:00:00.005", CDateTime::dt_time, nullptr},
        {kTime, "23:59:59.123456789", CDateTime::dt_time, nullptr},
        {kTime, "12:00:00.", CDateTime::dt_time, "12:00:00"},
        {kTime, "12:00:00X", CDateTime::dt_time, "12:00:00"},
        {kTime, "12:00:00Zanything", CDateTime::dt_time, "12:00:00Z"},
    };
    for (const Case& c : cases) {
        // The kind comes from the text, not from what the object was before.
        CDateTime value(CDateTime::dt_gYearMonth);
        if (c.eReader == kDate) value.ParseXSDDate(c.text);
        if (c.eReader != kDate) value = Read(c.eReader, c.text);
        EXPECT_EQ(c.eType, value.GetType()) << c.text;
        const std::string strWritten = c.written ? c.written : c.text;
        EXPECT_EQ(strWritten, value.ToString()) << c.text;
        EXPECT_EQ(strWritten, ReadAny(strWritten).ToString()) << c.text;
    }
}

TEST(DateTimeTest, MalformedTextsAreRefusedWithTheirMessage) {
    struct Case {
        Reader eReader;
        const char* text;
        const char* message;
    };
    const Case cases[] = {
        {kDateTime, nullptr, "Invalid DateTime (Null String)"},
        {kDateTime, "2001-01-01", "Invalid XSD DateTime [2001-01-01]."},
        {kDateTime, "--05T10:00:00", "Invalid XSD DateTime [--05T10:00:00] expected CCYY-MM-DDThh:mm:ss[.ff]"},
        {kDateTime, "T10:00:00", "Invalid Date (Empty String)"},
        {kDateTime, "2001-01-01T24:00:00", "Invalid XSD Time [24:00:00] expected hh:mm:ss[.ff]"},
        {kDateTime, "2001-01-01T", "Invalid XSD Time (Empty String)"},
        {kDateTime, "2001-02-29T10:00:00", "Invalid Day [29] (1 <= day <= days in month"},
        {kDate, nullptr, "Invalid Date (Null String)"},
        {kDate, "", "Invalid Date (Empty String)"},
        {kDate, "2001T", "Invalid Date ('T' not allowed)"},
        {kDate, "2001-01-01+05:0Z", "Invalid Date (Bad Zone value)"},
        {kDate, "2001-1-01", "Invalid XSD Date [2001-1-01] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {kDate, "20011-01-01", "Invalid XSD Date [20011-01-01] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {kDate, "-", "Invalid XSD Date [-] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {kDate, ":", "Invalid XSD Date [:] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {kDate, "2001-01-01+0500", "Invalid XSD Date [2001-01-01+0500] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {kDate, "2001-13-01", "Invalid Month [13] (1 <= month <= 12)"},
        {kDate, "2001-00", "Invalid Month [0] (1 <= month <= 12)"},
        {kDate, "--13", "Invalid Month [13] (1 <= month <= 12)"},
        {kDate, "0000-01-01", "Invalid Year [0] (-9999 <= year <= 9999 && year != 0)"},
        {kDate, "-0000", "Invalid Year [0] (-9999 <= year <= 9999 && year != 0)"},
        {kDate, "2001-02-30", "Invalid Day [30] (1 <= day <= days in month"},
        {kDate, "1900-02-29", "Invalid Day [29] (1 <= day <= days in month"},
        {kDate, "2100-02-29", "Invalid Day [29] (1 <= day <= days in month"},
        {kDate, "-0001-02-29", "Invalid Day [29] (1 <= day <= days in month"},
        {kDate, "2001-04-31", "Invalid Day [31] (1 <= day <= days in month"},
        {kDate, "2001-01-00", "Invalid Day [0] (1 <= day <= days in month"},
        {kDate, "--02-30", "Invalid Day [30] (1 <= day <= days in month)"},
        {kDate, "---32", "Invalid Day [32] (1 <= day <= 31)"},
        {kDate, "---00", "Invalid Day [0] (1 <= day <= 31)"},
        {kDate, "2001-01-01+5:00:", "Invalid XSD Time Zone [+5:00:]."},
        {kDate, "2001-01+05:60", "Invalid TimeZone [5:60]"},
        {kDate, "2001-01-01-23:60", "Invalid TimeZone [-23:60]"},
        {kTime, nullptr, "Invalid Time (Null String)"},
        {kTime, "", "Invalid XSD Time (Empty String)"},
        {kTime, "24:00:00", "Invalid XSD Time [24:00:00] expected hh:mm:ss[.ff]"},
        {kTime, "12:60:00", "Invalid XSD Time [12:60:00] expected hh:mm:ss[.ff]"},
        {kTime, "12:00:60", "Invalid XSD Time [12:00:60] expected hh:mm:ss[.ff]"},
        {kTime, "12:00", "Invalid XSD Time [12:00] expected hh:mm:ss[.ff]"},
        {kTime, "1:00:00", "Invalid XSD Time [1:00:00] expected hh:mm:ss[.ff]"},
        {kTime, "12:00:00.1234567890", "Invalid XSD Time [12:00:00.1234567890] Fraction part too long"},
        {kTime, "12:00:00+5:00", "Invalid XSD Time Zone [+5:00]."},
        {kTime, "12:00:00+05:00:00", "Invalid XSD Time Zone [+05:00:00]."},
        {kTime, "12:00:00-", "Invalid XSD Time Zone [-]."},
        {kTime, "12:00:00+25:00", "Invalid TimeZone [25:0]"},
        {kTime, "12:00:00-24:60", "Invalid TimeZone [0:60]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text ? c.text : "(null)");
        EXPECT_OX_THROW(Read(c.eReader, c.text), COxInvalidValueException, c.message);
    }
}

TEST(DateTimeTest, SettersCheckTheWholeValueAndSingleFieldsDont) {
    CDateTime date;
    const std::pair<std::function<void()>, const char*> refusals[] = {
        {[] { CDateTime().SetDate(2001, 2, 30); }, "Invalid Day [30] (1 <= day <= days in month"},
        {[] { CDateTime().SetDate(10000, 1, 1); }, "Invalid Year [10000] (-9999 <= year <= 9999 && year != 0)"},
        {[] { CDateTime().SetGYearMonth(-10000, 1); }, "Invalid Year [-10000] (-9999 <= year <= 9999 && year != 0)"},
        {[] { CDateTime().SetGMonthDay(4, 31); }, "Invalid Day [31] (1 <= day <= days in month)"},
        {[] { CDateTime().SetGMonth(0); }, "Invalid Month [0] (1 <= month <= 12)"},
        {[] { CDateTime().SetTime(24, 0, 0); }, "Invalid Hour [24] (0 <= hour <= 23)"},
        {[] { CDateTime().SetTime(0, 60, 0); }, "Invalid Minute [60] (0 <= minute <= 59)"},
        {[] { CDateTime().SetDateTime(1, 1, 1, 0, 0, 60); }, "Invalid Second [60] (0 <= second <= 59)"},
        {[] { CDateTime().SetFracTime(1000, 0, 0); }, "Invalid Milli-Second [1000] (0 <= milli <= 999)"},
        {[] { CDateTime().SetTime(0, 0, 0, 0, 1000, 0); }, "Invalid Micro-Second [1000] (0 <= micro <= 999)"},
        {[] { CDateTime().SetTime(0, 0, 0, 0, 0, 1000); }, "Invalid Nano-Second [1000] (0 <= nano <= 999)"},
        {[] { CDateTime(CDateTime::dt_date).Validate(); }, "Invalid Month [0] (1 <= month <= 12)"},
        {[] { CDateTime().Validate(); }, "Invalid Year Zero"},
        {[] { CDateTime().SetTimeZone(24, 0); }, "Invalid TimeZone [24:0]"},
        {[] { CDateTime().SetTimeZone(-1, 60); }, "Invalid TimeZone [-1:60]"},
        // std::tm counts years from 1900 in an int: a year beyond the field is refused by its
        // own number, not by what 16 bits keep of it.
        {[] {
             std::tm fields{};
             fields.tm_year = 75535 - 1900;
             fields.tm_mday = 1;
             CDateTime() = fields;
         },
         "Invalid Year [75535] (-9999 <= year <= 9999 && year != 0)"},
        {[] {
             timespec ts{0, 1000000000};
             CDateTime() = ts;
         },
         "Failed to convert FILETIME to SYSTEMTIME"},
    };
    for (const auto& r : refusals) EXPECT_OX_THROW(r.first(), COxInvalidValueException, r.second);

    // Fields that the kind doesn't use, carried over by a conversion, are what Validate finds.
    const std::pair<CDateTime::DTType, const char*> leftovers[] = {
        {CDateTime::dt_date, "Invalid Hour [10] for type date"},
        {CDateTime::dt_time, "Invalid Month [3] for type time"},
        {CDateTime::dt_gDay, "Invalid Month [3] for type gDay"},
        {CDateTime::dt_gMonthDay, "Invalid Year [2001] for type gMonthDay"},
        {CDateTime::dt_gYearMonth, "Invalid Day [4] for type gYearMonth"},
    };
    for (const auto& l : leftovers) {
        CDateTime converted;
        converted.SetDateTime(CDateTime("2001-03-04T10:00:00.5"), l.first);
        EXPECT_OX_THROW(converted.Validate(), COxInvalidValueException, l.second);
    }

    // The constructors swallow the refusal and leave an unset value.
    EXPECT_EQ("Error: Date Not Set", CDateTime(2001, 2, 30).ToString());
    EXPECT_EQ("Error: Date Not Set", CDateTime(2001, 2, 28, 24, 0, 0).ToString());
    EXPECT_EQ("Error: Date Not Set", CDateTime(timespec{0, -1}).ToString());
    EXPECT_EQ("Error: Date Not Set", CDateTime(static_cast<long long>(1) << 60).ToString());
    date.SetDate(2001, 2, 28);
    date.SetYear(0);  // stored without a check
    EXPECT_EQ("0000-02-28", date.ToString());
    EXPECT_OX_THROW(date.SetTime(1, 2, 3), COxInvalidStateException,
                    "Failed to copy CDateTime. Invalid Date Type: time, expected: date.");
}

TEST(DateTimeTest, FieldAccessOnAKindWithoutTheFieldIsRefused) {
    CDateTime time;
    time.SetTime(1, 2, 3);
    CDateTime gDay;
    gDay.SetGDay(5);
    CDateTime gYear;
    gYear.SetGYear(2001);
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[&] { time.GetYear(); }, "Failed to GetYear. Invalid Date Type: time."},
        {[&] { time.SetYear(1); }, "Failed to GetYear. Invalid Date Type: time."},
        {[&] { gDay.GetMonth(); }, "Failed to GetMonth. Invalid Date Type: gDay."},
        {[&] { gDay.SetMonth(1); }, "Failed to GetMonth. Invalid Date Type: gDay."},
        {[&] { gYear.GetDay(); }, "Failed to GetDay. Invalid Date Type: gYear."},
        {[&] { gYear.SetDay(1); }, "Failed to GetDay. Invalid Date Type: gYear."},
        {[&] { gDay.GetHour(); }, "Failed to GetHour. Invalid Date Type: gDay."},
        {[&] { gDay.SetHour(1); }, "Failed to GetHour. Invalid Date Type: gDay."},
        {[&] { gDay.SetMinute(1); }, "Failed to GetMinute. Invalid Date Type: gDay."},
        {[&] { gDay.GetSecond(); }, "Failed to GetSecond. Invalid Date Type: gDay."},
        {[&] { gDay.GetRealSecond(); }, "Failed to GetRealSecond. Invalid Date Type: gDay."},
        {[&] { gDay.SetMilliSecond(1); }, "Failed to GetMilliSecond. Invalid Date Type: gDay."},
        {[&] { gDay.GetMicroSecond(); }, "Failed to GetMicroSecond. Invalid Date Type: gDay."},
        {[&] { gDay.SetNanoSecond(1); }, "Failed to GetNanoSecond. Invalid Date Type: gDay."},
        {[&] { time.GetDayOfWeek(); }, "Failed to GetDayOfWeek. Invalid Date Type: time."},
        {[&] { gYear.GetDayOfYear(); }, "Failed to GetDayOfYear. Invalid Date Type: gYear."},
        {[&] { time.GetZoneHour(); }, "TimeZone is not been used"},
        {[&] { CDateTime("2001-01-01T00:00:00Z").GetZoneMinute(); }, "TimeZone is not been used"},
    };
    for (const auto& c : cases) EXPECT_OX_THROW(c.first(), COxInvalidStateException, c.second);
    EXPECT_OX_THROW(time.GetTime(), COxInvalidValueException,
                    "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: time.");
    EXPECT_OX_THROW(ReadAny("2001-01-01").GetAsSystemTime(), COxInvalidValueException,
                    "Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: date.");
    EXPECT_DOUBLE_EQ(3.000000001, Read(kTime, "00:00:03.000000001").GetRealSecond());
}

TEST(DateTimeTest, ConversionsNeedASourceWithEveryField) {
    using T = CDateTime;
    const T::DTType kinds[] = {T::dt_yearZero, T::dt_dateTime, T::dt_date,   T::dt_gYearMonth, T::dt_gYear,
                               T::dt_time,     T::dt_gDay,     T::dt_gMonth, T::dt_gMonthDay};
    // One row per source kind: the targets it may become besides itself and the unset kind.
    const std::vector<std::vector<T::DTType>> legal = {
        {},
        {T::dt_date, T::dt_gYearMonth, T::dt_gYear, T::dt_time, T::dt_gDay, T::dt_gMonth, T::dt_gMonthDay},
        {T::dt_gDay, T::dt_gMonth, T::dt_gYear, T::dt_gMonthDay, T::dt_gYearMonth},
        {T::dt_gMonth, T::dt_gYear},
        {},
        {},
        {},
        {},
        {T::dt_gDay, T::dt_gMonth},
    };
    for (T::DTType from : kinds) {
        for (T::DTType to : kinds) {
            bool bLegal = from == to || to == T::dt_yearZero;
            for (T::DTType target : legal[from]) bLegal = bLegal || target == to;
            if (bLegal) {
                EXPECT_NO_THROW(T::CheckConversion(from, to)) << from << "->" << to;
                continue;
            }
            EXPECT_OX_THROW(T::CheckConversion(from, to), COxInvalidValueException,
                            "Attempting to set a CDateTime of type " + T(to).GetTypeAsString() +
                                " using an XmlDateTime of type " + T(from).GetTypeAsString() +
                                ". The source CDateTime does not contian enough data to allow the conversion.");
        }
    }
    EXPECT_OX_THROW(T::CheckConversion(static_cast<T::DTType>(9), T::dt_date), COxInvalidValueException,
                    "Unknown date type 9.");
    T gMonth;
    gMonth.SetDateTime(ReadAny("2001-03-04-05:00"), T::dt_gMonth);
    EXPECT_EQ("--03-05:00", gMonth.ToString());
}

TEST(DateTimeTest, FormatsAndUnsetValues) {
    const CDateTime date = ReadAny("2001-03-04");
    EXPECT_EQ("", date.ToString("G"));
    EXPECT_EQ("", date.ToString(""));
    EXPECT_EQ("", date.ToString(nullptr));
    EXPECT_EQ("Unknown Format: yyyy", date.ToString("yyyy"));
    EXPECT_EQ("Error: Date Not Set", CDateTime().ToString("G"));
    EXPECT_EQ("Error: Date Not Set", CDateTime(CDateTime::dt_date).ToString());
    EXPECT_EQ("00:00:00", CDateTime(CDateTime::dt_time).ToString());
    CDateTime zoned(CDateTime::dt_gYear);
    zoned.SetGYear(-5);
    zoned.SetTimeZone(-9, 5);
    EXPECT_EQ("-0005-09:05", zoned.ToString());
    EXPECT_EQ(-9, zoned.GetZoneHour());
    EXPECT_EQ(5, zoned.GetZoneMinute());
    zoned.SetUTC();
    EXPECT_EQ("-0005Z", zoned.ToString());
}

TEST(DateTimeTest, CompareFollowsTheZoneRules) {
    struct Case {
        const char* left;
        const char* right;
        CDateTime::DTCompareResult eResult;
    };
    using T = CDateTime;
    const Case cases[] = {
        {"2001-01-01T10:00:00Z", "2001-01-01T11:00:00+01:00", T::dtc_equal},
        {"2001-01-01T10:00:00", "2001-01-01T10:00:00Z", T::dtc_indeterminate},
        {"2001-01-01T10:00:00", "2001-01-02T01:00:00Z", T::dtc_lessThan},
        {"2001-01-01T10:00:00", "2000-12-31T19:00:00Z", T::dtc_greaterThan},
        {"2001-01-02T00:00:00Z", "2001-01-01T10:00:00", T::dtc_indeterminate},  // exactly 14 hours
        {"2001-01-02T00:00:01Z", "2001-01-01T10:00:00", T::dtc_greaterThan},
        {"2001-01-01T00:00:00-00:30", "2000-12-31T23:30:00Z", T::dtc_equal},  // the offset lost its sign
        {"2001-01-01T10:00:00.5", "2001-01-01T10:00:00.25", T::dtc_greaterThan},
        {"2001-03-04", "2001-03-05", T::dtc_lessThan},
        {"2001-03-04", "2001-03-04", T::dtc_equal},
        {"2001", "2001-03-04", T::dtc_indeterminate},
        {"2000", "2001-03-04", T::dtc_lessThan},
        {"-0005", "0005", T::dtc_indeterminate},
        {"-0005", "-0004", T::dtc_lessThan},
        {"2001+05:00", "2001Z", T::dtc_lessThan},
        {"--03-04", "--03-05", T::dtc_lessThan},
        {"---04", "--03-04", T::dtc_indeterminate},
        {"12:00:00", "11:59:59.999999999", T::dtc_greaterThan},
        {"12:00:00+01:00", "11:00:00Z", T::dtc_equal},
    };
    for (const Case& c : cases) {
        const T left = ReadAny(c.left);
        const T right = ReadAny(c.right);
        EXPECT_EQ(c.eResult, left.CompareTo(right)) << c.left << " " << c.right;
        const bool bEqual = c.eResult == T::dtc_equal;
        const bool bLess = c.eResult == T::dtc_lessThan;
        const bool bGreater = c.eResult == T::dtc_greaterThan;
        EXPECT_EQ(bEqual, left == right);
        EXPECT_EQ(!bEqual, left != right);
        EXPECT_EQ(bLess, left < right);
        EXPECT_EQ(bLess || bEqual, left <= right);
        EXPECT_EQ(bGreater, left > right);
        EXPECT_EQ(bGreater || bEqual, left >= right);
    }
}

TEST(DateTimeTest, AddingDurationsMovesTheCalendarFields) {
    struct Case {
        const char* start;
        const char* span;
        const char* result;
    };
    const Case cases[] = {
        {"2001-01-31", "P1M", "2001-02-28"},
        {"2000-03-31", "-P1M", "2000-02-29"},
        {"2001-12-31", "P1D", "2002-01-01"},
        {"2001-03-01", "-P1D", "2001-02-28"},
        {"-0001-12-31", "P1D", "0000-01-01"},  // the year 0 isn't skipped
        {"0001-01-01", "-P1D", "0000-12-31"},
        {"-0004-02-28", "P1D", "-0004-02-29"},
        {"-0001-03-01T00:00:00Z", "-PT0.000000001S", "-0001-02-28T23:59:59.999999999Z"},
        {"2001-01-01T23:59:59.999999999+05:00", "PT0.000000001S", "2001-01-02T00:00:00+05:00"},
        {"2001-01-01", "P1000000D", "4738-11-29"},
        {"4738-11-29", "-P1000000D", "2001-01-01"},
        {"23:30:00", "PT1H", "00:30:00"},
        {"00:10:00", "-P1DT20M", "23:50:00"},
        {"2001", "P1Y11M", "2002"},
        {"2001-05", "P31D", "2001-06"},
        {"--01-31", "P1M", "--02-29"},
        {"--12", "P1M", "--01"},
        {"---31", "P1D", "---01"},
    };
    for (const Case& c : cases) {
        const CDateTime start = ReadAny(c.start);
        EXPECT_EQ(c.result, (start + Span(c.span)).ToString()) << c.start << " " << c.span;
        if (c.span[0] == '-') {
            // Subtracting the positive duration is the same move.
            CDateTime moved = start;
            moved -= Span(c.span + 1);
            EXPECT_EQ(c.result, moved.ToString()) << c.start << " " << c.span;
        }
    }
    // A negative duration stays negative on the way to operator-, so both move backwards.
    EXPECT_EQ("2001-02-28", (ReadAny("2001-03-01") - Span("-P1D")).ToString());
    // Far beyond the years a date can hold: refused at once, not walked day by day. The year is
    // Python's proleptic calendar, counted in 400-year cycles.
    CDateTimeSpan huge(0, 0, 0, 0, ~0ull, ~0ull);
    EXPECT_OX_THROW(ReadAny("2001-01-01") + huge, COxInvalidValueException,
                    "Invalid Year [35657797006486] after adding PT18446744073709551615M18446744073709551615S "
                    "(-32768 <= year <= 32767)");
    EXPECT_OX_THROW(ReadAny("9999") + Span("P30000Y"), COxInvalidValueException,
                    "Invalid Year [39999] after adding P30000Y (-32768 <= year <= 32767)");
}

TEST(DateTimeTest, SubtractingDatesGivesTheExactDistance) {
    const std::pair<std::pair<const char*, const char*>, const char*> cases[] = {
        {{"2001-03-01", "2001-02-28"}, "P1D"},
        {{"2001-01-01T00:00:00", "2001-01-01T00:00:01.5"}, "-PT1.5S"},
        {{"2001-01-01T10:00:00+05:00", "2001-01-01T05:00:00Z"}, "P"},
        {{"2001-01-02T01:02:03.000000004", "2000-01-01T00:00:00"}, "P367DT1H2M3.000000004S"},
    };
    for (const auto& c : cases) {
        const CDateTime left = ReadAny(c.first.first);
        EXPECT_EQ(c.second, (left - ReadAny(c.first.second)).ToString()) << c.first.first;
        EXPECT_EQ(CDateTime::dtc_equal, left.CompareTo(ReadAny(c.first.second) + (left - ReadAny(c.first.second))));
    }
    EXPECT_OX_THROW(ReadAny("2001") - ReadAny("2001-01-01"), COxInvalidValueException,
                    "Failed to subtract CDateTime, Date Status must be dateTime or date. Invalid Date Type: gYear.");
}

// The cases of the data file, computed by Python's calendar.
std::vector<std::vector<std::string>> ReadOracleCases() {
    std::string strPath = __FILE__;
    strPath = strPath.substr(0, strPath.find_last_of('/')) + "/data/datetime_cases.txt";
    std::ifstream in(strPath);
    std::vector<std::vector<std::string>> cases;
    std::string strLine;
    while (std::getline(in, strLine)) {
        std::istringstream line(strLine);
        std::vector<std::string> fields;
        std::string strField;
        while (line >> strField) fields.push_back(strField);
        if (fields.size() == 4) cases.push_back(fields);
    }
    return cases;
}

TEST(DateTimeTest, ArithmeticAndOrderAgreeWithAnIndependentCalendar) {
    const char kSymbols[] = {'=', '<', '>', '?'};
    int nCounts[3] = {0, 0, 0};
    for (const std::vector<std::string>& c : ReadOracleCases()) {
        if (c[0] == "add") {
            ++nCounts[0];
            EXPECT_EQ(c[3], (CDateTime(c[1].c_str()) + Span(c[2].c_str())).ToString()) << c[1] << " + " << c[2];
        } else if (c[0] == "cmp") {
            ++nCounts[1];
            EXPECT_EQ(c[3][0], kSymbols[CDateTime(c[1].c_str()).CompareTo(CDateTime(c[2].c_str()))])
                << c[1] << " " << c[2];
        } else if (c[0] == "dur") {
            ++nCounts[2];
            EXPECT_EQ(c[3][0], kSymbols[Span(c[1].c_str()).CompareTo(Span(c[2].c_str()))]) << c[1] << " " << c[2];
        }
    }
    EXPECT_GE(nCounts[0], 400);
    EXPECT_GE(nCounts[1], 400);
    EXPECT_GE(nCounts[2], 250);
}

// Sets the time zone of the process for the length of a scope.
class CZoneScope {
public:
    explicit CZoneScope(const char* pszZone) {
        const char* pszOld = std::getenv("TZ");
        m_bHadZone = pszOld != nullptr;
        if (m_bHadZone) m_strOld = pszOld;
        setenv("TZ", pszZone, 1);
        tzset();
    }
    ~CZoneScope() {
        if (m_bHadZone)
            setenv("TZ", m_strOld.c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

private:
    bool m_bHadZone;
    std::string m_strOld;
};

TEST(DateTimeTest, PlatformTimesConvertBothWays) {
    // 2001-09-09T01:46:40Z is one billion seconds after the epoch, a Sunday.
    const CDateTime billion(1000000000LL);
    EXPECT_EQ("2001-09-09T01:46:40", billion.ToString());
    EXPECT_EQ(1000000000LL, billion.GetTime());
    EXPECT_EQ(1000000000LL, ReadAny("2001-09-08T20:46:40-05:00").GetTime());
    EXPECT_EQ(-62135596800LL, ReadAny("0001-01-01").GetTime());
    EXPECT_EQ("2001-09-09T01:46:40.123456789", CDateTime(timespec{1000000000, 123456789}).ToString());
    EXPECT_EQ("1969-12-31T23:59:59", CDateTime(-1LL).ToString());
    {
        // The weekday is that of the moment in the zone of the process.
        CZoneScope utc("UTC0");
        EXPECT_EQ(1, billion.GetDayOfWeek());
        const std::tm fields = billion.GetAsSystemTime();
        EXPECT_EQ(billion.ToString(), CDateTime(fields).ToString());
        EXPECT_EQ(0, fields.tm_wday);
        EXPECT_EQ(251, fields.tm_yday);
        CZoneScope west("EST5");
        EXPECT_EQ(7, billion.GetDayOfWeek());
    }
    EXPECT_EQ(60, ReadAny("2000-02-29").GetDayOfYear());
    EXPECT_EQ(366, ReadAny("2000-12-31T00:00:00").GetDayOfYear());
    EXPECT_EQ(365, ReadAny("1900-12-31").GetDayOfYear());

    // Now, as local time, within a second of time() read around it.
    for (const char* pszZone : {"UTC0", "EST5EDT", "NZST-12NZDT"}) {
        CZoneScope zone(pszZone);
        const time_t before = time(nullptr);
        const CDateTime now = CDateTime::GetTickCount();
        const time_t after = time(nullptr);
        std::tm local{};
        localtime_r(&before, &local);
        const long long nNow = now.GetTime();  // the local fields read as UTC
        EXPECT_GE(nNow, before + local.tm_gmtoff) << pszZone;
        EXPECT_LE(nNow, after + local.tm_gmtoff + 1) << pszZone;
        EXPECT_EQ(CDateTime::dt_dateTime, now.GetType());
        EXPECT_FALSE(now.IsUTC());
    }
}

}  // namespace
