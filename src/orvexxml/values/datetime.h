#pragma once

#include <cstdint>
#include <ctime>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

class CDateTimeSpan;

// One class for the eight schema date and time types. A value knows its kind and holds only
// the fields of that kind (the others are 0): parsing, checking, the text form, comparison
// with the rules for values with and without a time zone, and the addition of a duration.
//
// Time zone information has three states: none, the letter Z (IsUTC() alone), or a numeric
// offset (IsUTC() and HasTimeZone()). The offset's sign is the sign of its hour, so -00:30
// is kept as +00:30.
//
// The platform's time structures are the C library's: std::tm stands for a broken-down
// calendar time (year, month, day, hour, minute, second, weekday), timespec for a count of
// seconds and nanoseconds since 1970-01-01T00:00:00 UTC.
//
// The value owns no memory and shares no state; distinct objects can be used from distinct
// threads.
class ORVEXXML_API CDateTime {
public:
    enum DTType {
        dt_yearZero = 0,
        dt_dateTime = 1,
        dt_date = 2,
        dt_gYearMonth = 3,
        dt_gYear = 4,
        dt_time = 5,
        dt_gDay = 6,
        dt_gMonth = 7,
        dt_gMonthDay = 8
    };
    enum DTCompareResult { dtc_equal = 0, dtc_lessThan = 1, dtc_greaterThan = 2, dtc_indeterminate = 3 };

    // Every field 0, kind dt_yearZero (not set).
    CDateTime();
    // Empty, with the kind set.
    explicit CDateTime(DTType type);
    // ParseXSDDateTime(text); refusals propagate.
    explicit CDateTime(const char* text);
    // The constructors below leave an unset value (kind dt_yearZero) instead of throwing when
    // the fields are refused.
    explicit CDateTime(const long long& time);
    explicit CDateTime(const std::tm& systemTime);
    explicit CDateTime(const timespec& fileTime);
    CDateTime(short year, unsigned char month, unsigned char day);
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
              unsigned char second);
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
              unsigned char second, unsigned short milliSecond, unsigned short microSecond, unsigned short nanoSecond);
    CDateTime(const CDateTime& other) = default;
    CDateTime& operator=(const CDateTime& other) = default;
    virtual ~CDateTime();

    // Seconds since 1970-01-01T00:00:00 UTC, broken down in UTC, as a dateTime.
    CDateTime& operator=(const long long& time);
    // The calendar fields of a broken-down time as a dateTime (tm_year counts from 1900,
    // tm_mon from 0); the fraction is 0.
    CDateTime& operator=(const std::tm& systemTime);
    // Seconds and nanoseconds since 1970-01-01T00:00:00 UTC as a dateTime in UTC fields. A
    // count outside what the C library breaks down, or nanoseconds outside 0 to 999999999,
    // throw COxInvalidValueException.
    CDateTime& operator=(const timespec& fileTime);

    // Setters that replace the whole value and check it. They refuse an object of another
    // kind (COxInvalidStateException), except an unset one.
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second);
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second, unsigned short milliSecond, unsigned short microSecond,
                     unsigned short nanoSecond);
    void SetDate(short year, unsigned char month, unsigned char day);
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second);
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second, unsigned short milliSecond,
                 unsigned short microSecond, unsigned short nanoSecond);
    void SetFracTime(unsigned short milliSecond, unsigned short microSecond, unsigned short nanoSecond);
    void SetGYear(short year);
    void SetGYearMonth(short year, unsigned char month);
    void SetGMonth(unsigned char month);
    void SetGMonthDay(unsigned char month, unsigned char day);
    void SetGDay(unsigned char day);
    // Copies every field and the zone of source and takes the kind given, if the source holds
    // enough to be that kind; nothing is checked.
    void SetDateTime(const CDateTime& source, DTType type);
    // Whether a value of kind from may become one of kind to; throws COxInvalidValueException
    // when not.
    static void CheckConversion(DTType from, DTType to);

    // Single fields. Getters and setters throw COxInvalidStateException for a kind without
    // the field; the setters store without checking the value.
    short GetYear() const;
    unsigned char GetMonth() const;
    unsigned char GetDay() const;
    unsigned char GetHour() const;
    unsigned char GetMinute() const;
    unsigned char GetSecond() const;
    unsigned short GetMilliSecond() const;
    unsigned short GetMicroSecond() const;
    unsigned short GetNanoSecond() const;
    // Second with its fraction.
    double GetRealSecond() const;
    void SetYear(short year);
    void SetMonth(unsigned char month);
    void SetDay(unsigned char day);
    void SetHour(unsigned char hour);
    void SetMinute(unsigned char minute);
    void SetSecond(unsigned char second);
    void SetMilliSecond(unsigned short milliSecond);
    void SetMicroSecond(unsigned short microSecond);
    void SetNanoSecond(unsigned short nanoSecond);

    // 1 for Sunday to 7 for Saturday: the weekday, in the time zone of the process, of the
    // moment GetTime() gives. dateTime and date only.
    int GetDayOfWeek() const;
    // 1 to 366. dateTime and date only.
    int GetDayOfYear() const;
    // Seconds since 1970-01-01T00:00:00 UTC of the normalised value; a value without a zone
    // counts as UTC, a date as its midnight. dateTime and date only (COxInvalidValueException).
    long long GetTime() const;
    // The calendar fields with weekday (0 for Sunday) and day of the year (0 for 1 January);
    // tm_isdst is 0. dateTime only (COxInvalidValueException).
    std::tm GetAsSystemTime() const;
    // The present local time of the process as a dateTime without a zone, to the millisecond.
    static CDateTime GetTickCount();

    DTType GetType() const { return m_type; }
    std::string GetTypeAsString() const;
    bool IsUTC() const { return m_isUTC; }
    bool HasTimeZone() const { return m_hasTimeZone; }
    // Throw COxInvalidStateException without a numeric offset.
    short GetZoneHour() const;
    unsigned char GetZoneMinute() const;
    // The letter Z.
    void SetUTC();
    // A numeric offset: hour -23 to 23, minute 0 to 59.
    void SetTimeZone(short hour, unsigned char minute);
    // A copy moved to offset +00:00 when this value has a numeric offset; otherwise an
    // unchanged copy.
    CDateTime GetNormalized() const;

    // Every field 0, no zone, kind dt_yearZero.
    void Clear();
    // Throws COxInvalidValueException for the first field that doesn't fit the kind.
    void Validate() const;

    // The order of the schema types: values that both have zone information, or both have
    // none, compare field by field; otherwise the value without a zone is tried at +14:00 and
    // -14:00 and is indeterminate unless both agree. A field that only one side has, and two
    // years of opposite sign, are indeterminate.
    DTCompareResult CompareTo(const CDateTime& other) const;
    bool operator==(const CDateTime& other) const;
    // An indeterminate pair is unequal, and neither less nor greater.
    bool operator!=(const CDateTime& other) const;
    bool operator<(const CDateTime& other) const;
    bool operator<=(const CDateTime& other) const;
    bool operator>(const CDateTime& other) const;
    bool operator>=(const CDateTime& other) const;

    // Adding a duration moves the calendar fields; the day of month is cut to the month's last
    // day after the months are added (2001-01-31 + P1M = 2001-02-28). A kind without a year,
    // month or day counts from 2000, January, the 1st for the addition and keeps only its own
    // fields. The result isn't checked; a year beyond the 16 bits of the field throws
    // COxInvalidValueException. Subtraction adds the negative of the duration.
    CDateTime operator+(const CDateTimeSpan& span) const;
    CDateTime& operator+=(const CDateTimeSpan& span);
    CDateTime operator-(const CDateTimeSpan& span) const;
    CDateTime& operator-=(const CDateTimeSpan& span);
    // The exact distance from other to this value as days, hours, minutes, seconds and
    // fractions, negative when other is later. Both values are dateTime or date (a date counts
    // as its midnight) and are normalised, a value without a zone counting as UTC; other kinds
    // throw COxInvalidValueException.
    CDateTimeSpan operator-(const CDateTime& other) const;

    // ToString("s").
    std::string ToString() const;
    // "s" for the text form of the kind and zone; null, "" and "G" for the empty text; any
    // other format gives "Unknown Format: " and the format. An unset value, and any kind but
    // time with every field 0, give "Error: Date Not Set".
    std::string ToString(const char* format) const;
    // Replace the value with that of the text; the kind comes from the shape of the text.
    // Refusals throw COxInvalidValueException and leave what was read so far.
    void ParseXSDDateTime(const char* text);
    void ParseXSDDate(const char* text);
    void ParseXSDTime(const char* text);

private:
    static const char* TypeName(DTType type);
    static bool HasYear(DTType type);
    static bool HasMonth(DTType type);
    static bool HasDay(DTType type);
    static bool HasTime(DTType type);
    void RequireKind(bool bHasField, const char* pszOperation) const;
    // Clears, stores and checks; the wide arguments let the checks report a value that doesn't
    // fit its field.
    void SetDateTime(DTType type, long long year, long long month, long long day, long long hour, long long minute,
                     long long second, long long milliSecond, long long microSecond, long long nanoSecond);
    static void ValidateFields(DTType type, long long year, long long month, long long day, long long hour,
                               long long minute, long long second, long long milliSecond, long long microSecond,
                               long long nanoSecond);
    void SetXSDDate(const char* text);
    void SetXSDTime(const char* text);
    void SetZone(const char* text);
    void AddDateTimeSpan(const CDateTimeSpan& span);
    static DTCompareResult CompareFields(const CDateTime& left, const CDateTime& right);
    void SetFromFields(const std::tm& fields, long long milliSecond, long long microSecond, long long nanoSecond);

    DTType m_type;
    int16_t m_year;
    uint8_t m_month;
    uint8_t m_day;
    uint8_t m_hour;
    uint8_t m_minute;
    uint8_t m_second;
    uint16_t m_milliSecond;
    uint16_t m_microSecond;
    uint16_t m_nanoSecond;
    bool m_isUTC;
    bool m_hasTimeZone;
    int16_t m_zoneHour;
    uint8_t m_zoneMinute;
};

}  // namespace OrvexXml
