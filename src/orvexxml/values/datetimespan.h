#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/values/datetime.h"

namespace OrvexXml {

// A duration: separate counts of years, months, days, hours, minutes, seconds and fractions
// of a second, with one sign for the whole. The counts are magnitudes and are never folded
// into one another, since a month has no fixed length; two durations are ordered by adding
// both to four reference dates. The setters check nothing; parsing keeps each fraction part
// below 1000.
class ORVEXXML_API CDateTimeSpan {
public:
    CDateTimeSpan();
    CDateTimeSpan(OxULong hours, unsigned long long minutes, unsigned long long seconds);
    CDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours, unsigned long long minutes,
                  unsigned long long seconds);
    CDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours, unsigned long long minutes,
                  unsigned long long seconds, unsigned short milliSeconds, unsigned short microSeconds,
                  unsigned short nanoSeconds);
    CDateTimeSpan(const CDateTimeSpan& other) = default;
    CDateTimeSpan& operator=(const CDateTimeSpan& other) = default;
    virtual ~CDateTimeSpan();

    // Replace the whole value; the sign becomes positive.
    void SetDateTimeSpan(OxULong hours, unsigned long long minutes, unsigned long long seconds);
    void SetDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours, unsigned long long minutes,
                         unsigned long long seconds);
    void SetDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours, unsigned long long minutes,
                         unsigned long long seconds, unsigned short milliSeconds, unsigned short microSeconds,
                         unsigned short nanoSeconds);

    unsigned short GetYears() const { return m_years; }
    OxULong GetMonths() const { return m_months; }
    OxULong GetDays() const { return m_days; }
    OxULong GetHours() const { return m_hours; }
    unsigned long long GetMinutes() const { return m_minutes; }
    unsigned long long GetSeconds() const { return m_seconds; }
    unsigned short GetMilliSeconds() const { return m_milliSeconds; }
    unsigned short GetMicroSeconds() const { return m_microSeconds; }
    unsigned short GetNanoSeconds() const { return m_nanoSeconds; }
    void SetYears(unsigned short value) { m_years = value; }
    void SetMonths(OxULong value) { m_months = value; }
    void SetDays(OxULong value) { m_days = value; }
    void SetHours(OxULong value) { m_hours = value; }
    void SetMinutes(unsigned long long value) { m_minutes = value; }
    void SetSeconds(unsigned long long value) { m_seconds = value; }
    void SetMilliSeconds(unsigned short value) { m_milliSeconds = value; }
    void SetMicroSeconds(unsigned short value) { m_microSeconds = value; }
    void SetNanoSeconds(unsigned short value) { m_nanoSeconds = value; }

    bool IsNegative() const { return m_isNegative; }
    // Flips the sign in place.
    void Negate() { m_isNegative = !m_isNegative; }
    // A copy that is negative, also when this value is negative already.
    CDateTimeSpan GetAsNegative() const;

    // Replaces the value with the one of the text [-]P[nY][nM][nD][T[nH][nM][nS[.f]]]. A
    // designator without digits counts as 0, a "Y" may stand anywhere after the "P", and a run
    // of digits wraps at 32 bits (years keep its low 16 bits). Refusals throw
    // COxInvalidValueException and leave what was read so far.
    void ParseXSDDuration(const char* text);
    // The text form; a value with every count 0 writes "P" (or "-P"), which doesn't read back.
    std::string ToString() const;

    // Both durations are added to 1696-09-01Z, 1697-02-01Z, 1903-03-01Z and 1903-07-01Z; the
    // result is that of the four date comparisons when all four agree, and indeterminate
    // otherwise (also when a sum falls outside the years a date can hold).
    CDateTime::DTCompareResult CompareTo(const CDateTimeSpan& other) const;
    bool operator==(const CDateTimeSpan& other) const;
    // An indeterminate pair is unequal.
    bool operator!=(const CDateTimeSpan& other) const;
    bool operator<(const CDateTimeSpan& other) const;
    bool operator>(const CDateTimeSpan& other) const;

private:
    void Clear();
    [[noreturn]] static void RefuseShape(const char* text);

    uint16_t m_years;
    uint32_t m_months;
    uint32_t m_days;
    uint32_t m_hours;
    uint64_t m_minutes;
    uint64_t m_seconds;
    uint16_t m_milliSeconds;
    uint16_t m_microSeconds;
    uint16_t m_nanoSeconds;
    bool m_isNegative;
};

}  // namespace OrvexXml
