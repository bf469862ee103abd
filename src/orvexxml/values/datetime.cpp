#include "orvexxml/values/datetime.h"

#include <cstring>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/systemclock.h"
#include "orvexxml/values/datetimespan.h"
#include "orvexxml/values/fractiontext.h"

namespace OrvexXml {

namespace {

// Appends nValue in decimal with at least nWidth digits, zeros in front: what "%0*u" gives,
// without a format string to interpret for every part of every value written.
void AppendPadded(std::string& strText, unsigned nValue, int nWidth) {
    char acDigits[16];
    int nDigits = 0;
    do {
        acDigits[nDigits++] = static_cast<char>('0' + nValue % 10);
        nValue /= 10;
    } while (nValue != 0);
    for (int i = nDigits; i < nWidth; ++i) strText += '0';
    while (nDigits > 0) strText += acDigits[--nDigits];
}

const long long kMinYear = -9999;
const long long kMaxYear = 9999;
// Days in each month with February at 29, and days before each month in a common year.
const int kDaysInMonth[12] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
const int kDaysBeforeMonth[12] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
// Days in 400 years of the calendar, after which the leap years repeat.
const long long kDaysPerCycle = 146097;

// The test is on the signed year itself, so the year 0 and -4 are leap years.
bool IsLeapYear(long long year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int LastDayOfMonth(long long year, long long month) {
    return month == 2 ? (IsLeapYear(year) ? 29 : 28) : kDaysInMonth[month - 1];
}

long long FQuotient(long long a, long long b) { return a / b - ((a % b != 0 && (a < 0) != (b < 0)) ? 1 : 0); }

long long Modulo(long long a, long long b) { return a - FQuotient(a, b) * b; }

// Days from 1970-01-01 to the given day, by the calendar above extended to every year.
long long DaysFromCivil(long long year, long long month, long long day) {
    year -= month <= 2 ? 1 : 0;
    const long long era = FQuotient(year, 400);
    const long long yoe = year - era * 400;
    const long long doy = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * kDaysPerCycle + doe - 719468;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Whether the n characters at p are all digits; stops at the terminator.
bool AreDigits(const char* p, int n) {
    for (int i = 0; i < n; ++i) {
        if (!IsDigit(p[i])) return false;
    }
    return true;
}

int Number(const char* p, int n) {
    int nValue = 0;
    for (int i = 0; i < n; ++i) nValue = nValue * 10 + (p[i] - '0');
    return nValue;
}

}  // namespace

CDateTime::CDateTime() { Clear(); }

CDateTime::CDateTime(DTType type) {
    Clear();
    m_type = type;
}

CDateTime::CDateTime(const char* text) {
    Clear();
    ParseXSDDateTime(text);
}

CDateTime::CDateTime(const long long& time) {
    Clear();
    try {
        *this = time;
    } catch (const COxInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(const std::tm& systemTime) {
    Clear();
    try {
        *this = systemTime;
    } catch (const COxInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(const timespec& fileTime) {
    Clear();
    try {
        *this = fileTime;
    } catch (const COxInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day) {
    Clear();
    try {
        SetDate(year, month, day);
    } catch (const COxInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second) {
    Clear();
    try {
        SetDateTime(year, month, day, hour, minute, second);
    } catch (const COxInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second, unsigned short milliSecond, unsigned short microSecond,
                     unsigned short nanoSecond) {
    Clear();
    try {
        SetDateTime(year, month, day, hour, minute, second, milliSecond, microSecond, nanoSecond);
    } catch (const COxInvalidValueException&) {
        Clear();
    }
}

CDateTime::~CDateTime() {}

void CDateTime::SetFromFields(const std::tm& fields, long long milliSecond, long long microSecond,
                              long long nanoSecond) {
    SetDateTime(dt_dateTime, fields.tm_year + 1900LL, fields.tm_mon + 1LL, fields.tm_mday, fields.tm_hour,
                fields.tm_min, fields.tm_sec, milliSecond, microSecond, nanoSecond);
}

CDateTime& CDateTime::operator=(const long long& time) {
    std::tm fields{};
    if (!CSystemClock::UtcFields(time, fields)) {
        throw COxInvalidValueException(FormatString("Invalid time [%lld] (no calendar date)", time));
    }
    SetFromFields(fields, 0, 0, 0);
    return *this;
}

CDateTime& CDateTime::operator=(const std::tm& systemTime) {
    SetFromFields(systemTime, 0, 0, 0);
    return *this;
}

CDateTime& CDateTime::operator=(const timespec& fileTime) {
    std::tm fields{};
    if (fileTime.tv_nsec < 0 || fileTime.tv_nsec > 999999999 ||
        !CSystemClock::UtcFields(static_cast<long long>(fileTime.tv_sec), fields)) {
        throw COxInvalidValueException("Failed to convert FILETIME to SYSTEMTIME");
    }
    const long long nNano = fileTime.tv_nsec;
    SetFromFields(fields, nNano / 1000000, nNano / 1000 % 1000, nNano % 1000);
    return *this;
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second) {
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second, unsigned short milliSecond,
                            unsigned short microSecond, unsigned short nanoSecond) {
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second, milliSecond, microSecond, nanoSecond);
}

void CDateTime::SetDate(short year, unsigned char month, unsigned char day) {
    SetDateTime(dt_date, year, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second) {
    SetDateTime(dt_time, 0, 0, 0, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second, unsigned short milliSecond,
                        unsigned short microSecond, unsigned short nanoSecond) {
    SetDateTime(dt_time, 0, 0, 0, hour, minute, second, milliSecond, microSecond, nanoSecond);
}

void CDateTime::SetFracTime(unsigned short milliSecond, unsigned short microSecond, unsigned short nanoSecond) {
    SetDateTime(dt_time, 0, 0, 0, 0, 0, 0, milliSecond, microSecond, nanoSecond);
}

void CDateTime::SetGYear(short year) { SetDateTime(dt_gYear, year, 0, 0, 0, 0, 0, 0, 0, 0); }

void CDateTime::SetGYearMonth(short year, unsigned char month) {
    SetDateTime(dt_gYearMonth, year, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonth(unsigned char month) { SetDateTime(dt_gMonth, 0, month, 0, 0, 0, 0, 0, 0, 0); }

void CDateTime::SetGMonthDay(unsigned char month, unsigned char day) {
    SetDateTime(dt_gMonthDay, 0, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGDay(unsigned char day) { SetDateTime(dt_gDay, 0, 0, day, 0, 0, 0, 0, 0, 0); }

void CDateTime::SetDateTime(DTType type, long long year, long long month, long long day, long long hour,
                            long long minute, long long second, long long milliSecond, long long microSecond,
                            long long nanoSecond) {
    if (m_type != dt_yearZero && m_type != type) {
        throw COxInvalidStateException(FormatString("Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
                                                    TypeName(type), TypeName(m_type)));
    }
    Clear();
    m_type = type;
    m_year = static_cast<int16_t>(year);
    m_month = static_cast<uint8_t>(month);
    m_day = static_cast<uint8_t>(day);
    m_hour = static_cast<uint8_t>(hour);
    m_minute = static_cast<uint8_t>(minute);
    m_second = static_cast<uint8_t>(second);
    m_milliSecond = static_cast<uint16_t>(milliSecond);
    m_microSecond = static_cast<uint16_t>(microSecond);
    m_nanoSecond = static_cast<uint16_t>(nanoSecond);
    // Checked on the values as given, so that one too wide for its field is refused with
    // its own number instead of passing as what the field kept of it.
    ValidateFields(type, year, month, day, hour, minute, second, milliSecond, microSecond, nanoSecond);
}

void CDateTime::CheckConversion(DTType from, DTType to) {
    for (DTType type : {from, to}) {
        if (type < dt_yearZero || type > dt_gMonthDay) {
            throw COxInvalidValueException(FormatString("Unknown date type %d.", static_cast<int>(type)));
        }
    }
    bool bLegal = to == from || to == dt_yearZero;
    switch (from) {
        case dt_dateTime:
            bLegal = true;
            break;
        case dt_date:
            bLegal = bLegal || to == dt_gDay || to == dt_gMonth || to == dt_gYear || to == dt_gMonthDay ||
                     to == dt_gYearMonth;
            break;
        case dt_gYearMonth:
            bLegal = bLegal || to == dt_gMonth || to == dt_gYear;
            break;
        case dt_gMonthDay:
            bLegal = bLegal || to == dt_gDay || to == dt_gMonth;
            break;
        default:
            break;
    }
    if (!bLegal) {
        throw COxInvalidValueException(
            FormatString("Attempting to set a CDateTime of type %s using an XmlDateTime of type %s. The source "
                         "CDateTime does not contian enough data to allow the conversion.",
                         TypeName(to), TypeName(from)));
    }
}

void CDateTime::SetDateTime(const CDateTime& source, DTType type) {
    CheckConversion(source.GetType(), type);
    *this = source;
    m_type = type;
}

const char* CDateTime::TypeName(DTType type) {
    static const char* const kNames[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                         "time",     "gDay",     "gMonth", "gMonthDay"};
    return type >= dt_yearZero && type <= dt_gMonthDay ? kNames[type] : "unknown";
}

std::string CDateTime::GetTypeAsString() const { return TypeName(m_type); }

bool CDateTime::HasYear(DTType type) {
    return type == dt_dateTime || type == dt_date || type == dt_gYearMonth || type == dt_gYear;
}

bool CDateTime::HasMonth(DTType type) {
    return type == dt_dateTime || type == dt_date || type == dt_gYearMonth || type == dt_gMonthDay || type == dt_gMonth;
}

bool CDateTime::HasDay(DTType type) {
    return type == dt_dateTime || type == dt_date || type == dt_gDay || type == dt_gMonthDay;
}

bool CDateTime::HasTime(DTType type) { return type == dt_dateTime || type == dt_time; }

void CDateTime::RequireKind(bool bHasField, const char* pszOperation) const {
    if (!bHasField) {
        throw COxInvalidStateException(
            FormatString("Failed to %s. Invalid Date Type: %s.", pszOperation, TypeName(m_type)));
    }
}

short CDateTime::GetYear() const {
    RequireKind(HasYear(m_type), "GetYear");
    return m_year;
}

unsigned char CDateTime::GetMonth() const {
    RequireKind(HasMonth(m_type), "GetMonth");
    return m_month;
}

unsigned char CDateTime::GetDay() const {
    RequireKind(HasDay(m_type), "GetDay");
    return m_day;
}

unsigned char CDateTime::GetHour() const {
    RequireKind(HasTime(m_type), "GetHour");
    return m_hour;
}

unsigned char CDateTime::GetMinute() const {
    RequireKind(HasTime(m_type), "GetMinute");
    return m_minute;
}

unsigned char CDateTime::GetSecond() const {
    RequireKind(HasTime(m_type), "GetSecond");
    return m_second;
}

unsigned short CDateTime::GetMilliSecond() const {
    RequireKind(HasTime(m_type), "GetMilliSecond");
    return m_milliSecond;
}

unsigned short CDateTime::GetMicroSecond() const {
    RequireKind(HasTime(m_type), "GetMicroSecond");
    return m_microSecond;
}

unsigned short CDateTime::GetNanoSecond() const {
    RequireKind(HasTime(m_type), "GetNanoSecond");
    return m_nanoSecond;
}

double CDateTime::GetRealSecond() const {
    RequireKind(HasTime(m_type), "GetRealSecond");
    return m_second + m_milliSecond / 1000.0 + m_microSecond / 1e6 + m_nanoSecond / 1e9;
}

void CDateTime::SetYear(short year) {
    RequireKind(HasYear(m_type), "GetYear");
    m_year = year;
}

void CDateTime::SetMonth(unsigned char month) {
    RequireKind(HasMonth(m_type), "GetMonth");
    m_month = month;
}

void CDateTime::SetDay(unsigned char day) {
    RequireKind(HasDay(m_type), "GetDay");
    m_day = day;
}

void CDateTime::SetHour(unsigned char hour) {
    RequireKind(HasTime(m_type), "GetHour");
    m_hour = hour;
}

void CDateTime::SetMinute(unsigned char minute) {
    RequireKind(HasTime(m_type), "GetMinute");
    m_minute = minute;
}

void CDateTime::SetSecond(unsigned char second) {
    RequireKind(HasTime(m_type), "GetSecond");
    m_second = second;
}

void CDateTime::SetMilliSecond(unsigned short milliSecond) {
    RequireKind(HasTime(m_type), "GetMilliSecond");
    m_milliSecond = milliSecond;
}

void CDateTime::SetMicroSecond(unsigned short microSecond) {
    RequireKind(HasTime(m_type), "GetMicroSecond");
    m_microSecond = microSecond;
}

void CDateTime::SetNanoSecond(unsigned short nanoSecond) {
    RequireKind(HasTime(m_type), "GetNanoSecond");
    m_nanoSecond = nanoSecond;
}

int CDateTime::GetDayOfWeek() const {
    RequireKind(m_type == dt_dateTime || m_type == dt_date, "GetDayOfWeek");
    std::tm fields{};
    if (!CSystemClock::LocalFields(GetTime(), fields)) {
        throw COxInvalidValueException(FormatString("Invalid time [%lld] (no calendar date)", GetTime()));
    }
    return fields.tm_wday + 1;
}

int CDateTime::GetDayOfYear() const {
    RequireKind(m_type == dt_dateTime || m_type == dt_date, "GetDayOfYear");
    const int nMonth = m_month >= 1 && m_month <= 12 ? m_month : 1;
    return kDaysBeforeMonth[nMonth - 1] + m_day + (IsLeapYear(m_year) && nMonth > 2 ? 1 : 0);
}

long long CDateTime::GetTime() const {
    if (m_type != dt_dateTime && m_type != dt_date) {
        throw COxInvalidValueException(FormatString(
            "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: %s.", TypeName(m_type)));
    }
    const CDateTime normalized = GetNormalized();
    return DaysFromCivil(normalized.m_year, normalized.m_month, normalized.m_day) * 86400 + normalized.m_hour * 3600LL +
           normalized.m_minute * 60LL + normalized.m_second;
}

std::tm CDateTime::GetAsSystemTime() const {
    if (m_type != dt_dateTime) {
        throw COxInvalidValueException(FormatString(
            "Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: %s.", TypeName(m_type)));
    }
    std::tm fields{};
    fields.tm_year = m_year - 1900;
    fields.tm_mon = m_month - 1;
    fields.tm_mday = m_day;
    fields.tm_hour = m_hour;
    fields.tm_min = m_minute;
    fields.tm_sec = m_second;
    fields.tm_wday = GetDayOfWeek() - 1;
    fields.tm_yday = GetDayOfYear() - 1;
    return fields;
}

CDateTime CDateTime::GetTickCount() {
    std::tm fields{};
    long nNano = 0;
    CSystemClock::LocalNow(fields, nNano);
    CDateTime now;
    now.SetFromFields(fields, nNano / 1000000, 0, 0);
    return now;
}

short CDateTime::GetZoneHour() const {
    if (!m_hasTimeZone) throw COxInvalidStateException("TimeZone is not been used");
    return m_zoneHour;
}

unsigned char CDateTime::GetZoneMinute() const {
    if (!m_hasTimeZone) throw COxInvalidStateException("TimeZone is not been used");
    return m_zoneMinute;
}

void CDateTime::SetUTC() {
    m_isUTC = true;
    m_hasTimeZone = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

void CDateTime::SetTimeZone(short hour, unsigned char minute) {
    if (hour < -23 || hour > 23 || minute >= 60) {
        throw COxInvalidValueException(FormatString("Invalid TimeZone [%d:%d]", hour, minute));
    }
    m_isUTC = true;
    m_hasTimeZone = true;
    m_zoneHour = hour;
    m_zoneMinute = minute;
}

CDateTime CDateTime::GetNormalized() const {
    CDateTime copy(*this);
    if (m_hasTimeZone) {
        const CDateTimeSpan offset(static_cast<OxULong>(m_zoneHour < 0 ? -m_zoneHour : m_zoneHour), m_zoneMinute, 0);
        if (m_zoneHour >= 0)
            copy -= offset;
        else
            copy += offset;
        copy.SetTimeZone(0, 0);
    }
    return copy;
}

void CDateTime::Clear() {
    m_type = dt_yearZero;
    m_year = 0;
    m_month = 0;
    m_day = 0;
    m_hour = 0;
    m_minute = 0;
    m_second = 0;
    m_milliSecond = 0;
    m_microSecond = 0;
    m_nanoSecond = 0;
    m_isUTC = false;
    m_hasTimeZone = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

void CDateTime::Validate() const {
    ValidateFields(m_type, m_year, m_month, m_day, m_hour, m_minute, m_second, m_milliSecond, m_microSecond,
                   m_nanoSecond);
}

void CDateTime::ValidateFields(DTType type, long long year, long long month, long long day, long long hour,
                               long long minute, long long second, long long milliSecond, long long microSecond,
                               long long nanoSecond) {
    const char* pszType = TypeName(type);
    if (type == dt_yearZero) throw COxInvalidValueException("Invalid Year Zero");
    if (HasMonth(type)) {
        if (month < 1 || month > 12) {
            throw COxInvalidValueException(FormatString("Invalid Month [%lld] (1 <= month <= 12)", month));
        }
    } else if (month != 0) {
        throw COxInvalidValueException(FormatString("Invalid Month [%lld] for type %s", month, pszType));
    }
    if (HasYear(type)) {
        if (year == 0 || year < kMinYear || year > kMaxYear) {
            throw COxInvalidValueException(
                FormatString("Invalid Year [%lld] (%lld <= year <= %lld && year != 0)", year, kMinYear, kMaxYear));
        }
    } else if (year != 0) {
        throw COxInvalidValueException(FormatString("Invalid Year [%lld] for type %s", year, pszType));
    }
    if (type == dt_dateTime || type == dt_date) {
        if (day < 1 || day > LastDayOfMonth(year, month)) {
            throw COxInvalidValueException(FormatString("Invalid Day [%lld] (1 <= day <= days in month", day));
        }
    } else if (type == dt_gMonthDay) {
        if (day < 1 || day > kDaysInMonth[month - 1]) {
            throw COxInvalidValueException(FormatString("Invalid Day [%lld] (1 <= day <= days in month)", day));
        }
    } else if (type == dt_gDay) {
        if (day < 1 || day > 31) {
            throw COxInvalidValueException(FormatString("Invalid Day [%lld] (1 <= day <= 31)", day));
        }
    } else if (day != 0) {
        throw COxInvalidValueException(FormatString("Invalid Day [%lld] for type %s", day, pszType));
    }
    struct TimeField {
        long long nValue;
        long long nMax;
        const char* pszName;
        const char* pszRange;
    };
    const TimeField fields[] = {
        {hour, 23, "Hour", "hour"},
        {minute, 59, "Minute", "minute"},
        {second, 59, "Second", "second"},
        {milliSecond, 999, "Milli-Second", "milli"},
        {microSecond, 999, "Micro-Second", "micro"},
        {nanoSecond, 999, "Nano-Second", "nano"},
    };
    for (const TimeField& field : fields) {
        if (HasTime(type)) {
            if (field.nValue < 0 || field.nValue > field.nMax) {
                throw COxInvalidValueException(FormatString("Invalid %s [%lld] (0 <= %s <= %lld)", field.pszName,
                                                            field.nValue, field.pszRange, field.nMax));
            }
        } else if (field.nValue != 0) {
            throw COxInvalidValueException(
                FormatString("Invalid %s [%lld] for type %s", field.pszName, field.nValue, pszType));
        }
    }
}

CDateTime::DTCompareResult CDateTime::CompareFields(const CDateTime& left, const CDateTime& right) {
    const long long leftFields[5] = {HasYear(left.m_type) ? left.m_year : -1, HasMonth(left.m_type) ? left.m_month : -1,
                                     HasDay(left.m_type) ? left.m_day : -1, HasTime(left.m_type) ? left.m_hour : -1,
                                     HasTime(left.m_type) ? left.m_minute : -1};
    const long long rightFields[5] = {
        HasYear(right.m_type) ? right.m_year : -1, HasMonth(right.m_type) ? right.m_month : -1,
        HasDay(right.m_type) ? right.m_day : -1, HasTime(right.m_type) ? right.m_hour : -1,
        HasTime(right.m_type) ? right.m_minute : -1};
    for (int i = 0; i < 5; ++i) {
        if (leftFields[i] * rightFields[i] < 0) return dtc_indeterminate;
        if (leftFields[i] != rightFields[i]) return leftFields[i] < rightFields[i] ? dtc_lessThan : dtc_greaterThan;
    }
    const double dLeft = HasTime(left.m_type) ? left.GetRealSecond() : -1.0;
    const double dRight = HasTime(right.m_type) ? right.GetRealSecond() : -1.0;
    if (dLeft * dRight < 0) return dtc_indeterminate;
    if (dLeft != dRight) return dLeft < dRight ? dtc_lessThan : dtc_greaterThan;
    return dtc_equal;
}

CDateTime::DTCompareResult CDateTime::CompareTo(const CDateTime& other) const {
    const CDateTime p = m_hasTimeZone ? GetNormalized() : *this;
    const CDateTime q = other.m_hasTimeZone ? other.GetNormalized() : other;
    if (p.m_isUTC == q.m_isUTC) return CompareFields(p, q);
    // One side has no zone: it may lie anywhere from 14 hours ahead of UTC to 14 hours behind.
    const CDateTime& unzoned = p.m_isUTC ? q : p;
    CDateTime early(unzoned);
    early.SetTimeZone(14, 0);
    early = early.GetNormalized();
    CDateTime late(unzoned);
    late.SetTimeZone(-14, 0);
    late = late.GetNormalized();
    if (p.m_isUTC) {
        if (CompareFields(p, early) == dtc_lessThan) return dtc_lessThan;
        if (CompareFields(p, late) == dtc_greaterThan) return dtc_greaterThan;
    } else {
        if (CompareFields(early, q) == dtc_greaterThan) return dtc_greaterThan;
        if (CompareFields(late, q) == dtc_lessThan) return dtc_lessThan;
    }
    return dtc_indeterminate;
}

bool CDateTime::operator==(const CDateTime& other) const { return CompareTo(other) == dtc_equal; }

bool CDateTime::operator!=(const CDateTime& other) const { return CompareTo(other) != dtc_equal; }

bool CDateTime::operator<(const CDateTime& other) const { return CompareTo(other) == dtc_lessThan; }

bool CDateTime::operator<=(const CDateTime& other) const {
    const DTCompareResult eResult = CompareTo(other);
    return eResult == dtc_lessThan || eResult == dtc_equal;
}

bool CDateTime::operator>(const CDateTime& other) const { return CompareTo(other) == dtc_greaterThan; }

bool CDateTime::operator>=(const CDateTime& other) const {
    const DTCompareResult eResult = CompareTo(other);
    return eResult == dtc_greaterThan || eResult == dtc_equal;
}

CDateTime CDateTime::operator+(const CDateTimeSpan& span) const {
    CDateTime result(*this);
    result.AddDateTimeSpan(span);
    return result;
}

CDateTime& CDateTime::operator+=(const CDateTimeSpan& span) {
    AddDateTimeSpan(span);
    return *this;
}

CDateTime CDateTime::operator-(const CDateTimeSpan& span) const { return *this + span.GetAsNegative(); }

CDateTime& CDateTime::operator-=(const CDateTimeSpan& span) {
    AddDateTimeSpan(span.GetAsNegative());
    return *this;
}

void CDateTime::AddDateTimeSpan(const CDateTimeSpan& span) {
    const long long s = span.IsNegative() ? -1 : 1;
    // A kind without a year, month or day counts from 2000 (a leap year, so --02-29 stays a
    // day), January, the 1st.
    long long year = HasYear(m_type) ? m_year : 2000;
    long long month = HasMonth(m_type) ? m_month : 1;
    long long day = HasDay(m_type) ? m_day : 1;

    long long t = month + s * static_cast<long long>(span.GetMonths());
    month = Modulo(t - 1, 12) + 1;
    year += FQuotient(t - 1, 12) + s * span.GetYears();
    if (day > LastDayOfMonth(year, month)) day = LastDayOfMonth(year, month);

    long long carry = 0;
    long long nNano = m_nanoSecond + s * span.GetNanoSeconds();
    carry = FQuotient(nNano, 1000);
    nNano = Modulo(nNano, 1000);
    long long nMicro = m_microSecond + carry + s * span.GetMicroSeconds();
    carry = FQuotient(nMicro, 1000);
    nMicro = Modulo(nMicro, 1000);
    long long nMilli = m_milliSecond + carry + s * span.GetMilliSeconds();
    carry = FQuotient(nMilli, 1000);
    nMilli = Modulo(nMilli, 1000);
    // Seconds and minutes of a duration may use all 64 bits: the whole minutes (hours) in them
    // go straight to the carry, so that no sum leaves the range of long long.
    long long nSecond = m_second + carry + s * static_cast<long long>(span.GetSeconds() % 60);
    carry = FQuotient(nSecond, 60) + s * static_cast<long long>(span.GetSeconds() / 60);
    nSecond = Modulo(nSecond, 60);
    long long nMinute = m_minute + carry % 60 + s * static_cast<long long>(span.GetMinutes() % 60);
    carry = carry / 60 + FQuotient(nMinute, 60) + s * static_cast<long long>(span.GetMinutes() / 60);
    nMinute = Modulo(nMinute, 60);
    long long nHour = m_hour + carry % 24 + s * static_cast<long long>(span.GetHours());
    carry = carry / 24 + FQuotient(nHour, 24);
    nHour = Modulo(nHour, 24);

    long long v = carry + s * static_cast<long long>(span.GetDays());
    // Whole 400-year cycles at once; the walk below takes at most one more cycle, month by month.
    if (v > kDaysPerCycle || v < -kDaysPerCycle) {
        const long long nCycles = (v > 0 ? v - 1 : v + 1) / kDaysPerCycle;
        year += 400 * nCycles;
        v -= nCycles * kDaysPerCycle;
    }
    while (v != 0) {
        if (v < 0) {
            if (day - 1 < -v) {
                v += day;
                --month;
                day = LastDayOfMonth(year, month == 0 ? 12 : month);
            } else {
                day += v;
                v = 0;
            }
        } else {
            const long long nLast = LastDayOfMonth(year, month == 0 ? 1 : month);
            if (day + v <= nLast) {
                day += v;
                v = 0;
            } else {
                v -= nLast + 1 - day;
                day = 1;
                ++month;
            }
        }
        if (month == 0) {
            month = 12;
            --year;
        } else if (month == 13) {
            month = 1;
            ++year;
        }
    }
    if (year < INT16_MIN || year > INT16_MAX) {
        throw COxInvalidValueException(FormatString("Invalid Year [%lld] after adding %s (%d <= year <= %d)", year,
                                                    span.ToString().c_str(), INT16_MIN, INT16_MAX));
    }
    m_year = HasYear(m_type) ? static_cast<int16_t>(year) : 0;
    m_month = HasMonth(m_type) ? static_cast<uint8_t>(month) : 0;
    m_day = HasDay(m_type) ? static_cast<uint8_t>(day) : 0;
    m_hour = static_cast<uint8_t>(nHour);
    m_minute = static_cast<uint8_t>(nMinute);
    m_second = static_cast<uint8_t>(nSecond);
    m_milliSecond = static_cast<uint16_t>(nMilli);
    m_microSecond = static_cast<uint16_t>(nMicro);
    m_nanoSecond = static_cast<uint16_t>(nNano);
}

CDateTimeSpan CDateTime::operator-(const CDateTime& other) const {
    for (const CDateTime* pValue : {this, &other}) {
        if (pValue->m_type != dt_dateTime && pValue->m_type != dt_date) {
            throw COxInvalidValueException(FormatString(
                "Failed to subtract CDateTime, Date Status must be dateTime or date. Invalid Date Type: %s.",
                TypeName(pValue->m_type)));
        }
    }
    // Seconds and nanoseconds apart; both parts carry the same sign in the end.
    long long nSeconds = GetTime() - other.GetTime();
    long long nNanos = (m_milliSecond * 1000000LL + m_microSecond * 1000LL + m_nanoSecond) -
                       (other.m_milliSecond * 1000000LL + other.m_microSecond * 1000LL + other.m_nanoSecond);
    if (nSeconds > 0 && nNanos < 0) {
        --nSeconds;
        nNanos += 1000000000;
    } else if (nSeconds < 0 && nNanos > 0) {
        ++nSeconds;
        nNanos -= 1000000000;
    }
    const bool bNegative = nSeconds < 0 || nNanos < 0;
    if (bNegative) {
        nSeconds = -nSeconds;
        nNanos = -nNanos;
    }
    CDateTimeSpan span(0, 0, static_cast<OxULong>(nSeconds / 86400), static_cast<OxULong>(nSeconds / 3600 % 24),
                       static_cast<unsigned long long>(nSeconds / 60 % 60),
                       static_cast<unsigned long long>(nSeconds % 60), static_cast<unsigned short>(nNanos / 1000000),
                       static_cast<unsigned short>(nNanos / 1000 % 1000), static_cast<unsigned short>(nNanos % 1000));
    if (bNegative) span.Negate();
    return span;
}

std::string CDateTime::ToString() const { return ToString("s"); }

std::string CDateTime::ToString(const char* format) const {
    const bool bAllZero = m_year == 0 && m_month == 0 && m_day == 0 && m_hour == 0 && m_minute == 0 && m_second == 0 &&
                          m_milliSecond == 0 && m_microSecond == 0 && m_nanoSecond == 0;
    if (m_type == dt_yearZero || (m_type != dt_time && bAllZero)) return "Error: Date Not Set";
    if (format == nullptr || *format == '\0' || std::strcmp(format, "G") == 0) return std::string();
    if (std::strcmp(format, "s") != 0) return std::string("Unknown Format: ") + format;
    std::string strText;
    strText.reserve(40);
    if (HasYear(m_type)) {
        // The year is an int16_t, so its magnitude fits an unsigned.
        if (m_year < 0) strText += '-';
        AppendPadded(strText, static_cast<unsigned>(m_year < 0 ? -m_year : m_year), 4);
        if (HasMonth(m_type)) {
            strText += '-';
            AppendPadded(strText, m_month, 2);
        }
        if (HasDay(m_type)) {
            strText += '-';
            AppendPadded(strText, m_day, 2);
        }
    } else if (HasMonth(m_type)) {
        strText += "--";
        AppendPadded(strText, m_month, 2);
        if (HasDay(m_type)) {
            strText += '-';
            AppendPadded(strText, m_day, 2);
        }
    } else if (HasDay(m_type)) {
        strText += "---";
        AppendPadded(strText, m_day, 2);
    }
    if (HasTime(m_type)) {
        if (m_type == dt_dateTime) strText += 'T';
        AppendPadded(strText, m_hour, 2);
        strText += ':';
        AppendPadded(strText, m_minute, 2);
        strText += ':';
        AppendPadded(strText, m_second, 2);
        CFractionText::Append(strText, m_milliSecond, m_microSecond, m_nanoSecond);
    }
    if (m_hasTimeZone) {
        strText += m_zoneHour < 0 ? '-' : '+';
        AppendPadded(strText, static_cast<unsigned>(m_zoneHour < 0 ? -m_zoneHour : m_zoneHour), 2);
        strText += ':';
        AppendPadded(strText, m_zoneMinute, 2);
    } else if (m_isUTC) {
        strText += 'Z';
    }
    return strText;
}

void CDateTime::ParseXSDDateTime(const char* text) {
    if (text == nullptr) throw COxInvalidValueException("Invalid DateTime (Null String)");
    const char* pT = std::strchr(text, 'T');
    if (pT == nullptr) throw COxInvalidValueException(FormatString("Invalid XSD DateTime [%s].", text));
    Clear();
    SetXSDDate(std::string(text, pT).c_str());
    if (m_type != dt_date) {
        throw COxInvalidValueException(
            FormatString("Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", text));
    }
    SetXSDTime(pT + 1);
    m_type = dt_dateTime;
    Validate();
}

void CDateTime::ParseXSDDate(const char* text) {
    Clear();
    SetXSDDate(text);
    Validate();
}

void CDateTime::ParseXSDTime(const char* text) {
    Clear();
    SetXSDTime(text);
    Validate();
}

void CDateTime::SetXSDDate(const char* text) {
    if (text == nullptr) throw COxInvalidValueException("Invalid Date (Null String)");
    if (*text == '\0') throw COxInvalidValueException("Invalid Date (Empty String)");
    if (std::strchr(text, 'T') != nullptr) throw COxInvalidValueException("Invalid Date ('T' not allowed)");
    const long long nLength = static_cast<long long>(std::strlen(text));
    // The zone is found by its marks alone: a final "Z", or a ":" anywhere.
    const bool bZ = text[nLength - 1] == 'Z';
    const bool bColon = std::strchr(text, ':') != nullptr;
    if (bZ && bColon) throw COxInvalidValueException("Invalid Date (Bad Zone value)");
    long long nDateLength = nLength - (bZ ? 1 : 0) - (bColon ? 6 : 0);
    const char* p = text;
    bool bNegative = false;
    DTType type = dt_yearZero;
    int nConsumed = 0;
    int nYear = 0;
    int nMonth = 0;
    int nDay = 0;
    if (!(p[0] == '-' && p[1] == '-')) {
        if (p[0] == '-') {
            bNegative = true;
            ++p;
            --nDateLength;
        }
        if (nDateLength == 4 && AreDigits(p, 4)) {
            type = dt_gYear;
            nConsumed = 4;
        } else if (nDateLength == 7 && AreDigits(p, 4) && p[4] == '-' && AreDigits(p + 5, 2)) {
            type = dt_gYearMonth;
            nConsumed = 7;
            nMonth = Number(p + 5, 2);
        } else if (nDateLength == 10 && AreDigits(p, 4) && p[4] == '-' && AreDigits(p + 5, 2) && p[7] == '-' &&
                   AreDigits(p + 8, 2)) {
            type = dt_date;
            nConsumed = 10;
            nMonth = Number(p + 5, 2);
            nDay = Number(p + 8, 2);
        }
        if (type != dt_yearZero) nYear = Number(p, 4);
    } else if (nDateLength == 4 && AreDigits(p + 2, 2)) {
        type = dt_gMonth;
        nConsumed = 4;
        nMonth = Number(p + 2, 2);
    } else if (nDateLength == 5 && p[2] == '-' && AreDigits(p + 3, 2)) {
        type = dt_gDay;
        nConsumed = 5;
        nDay = Number(p + 3, 2);
    } else if (nDateLength == 6 && AreDigits(p + 2, 2)) {
        // The older form --MM--: the two characters behind the month are not looked at.
        type = dt_gMonth;
        nConsumed = 6;
        nMonth = Number(p + 2, 2);
    } else if (nDateLength == 7 && AreDigits(p + 2, 2) && p[4] == '-' && AreDigits(p + 5, 2)) {
        type = dt_gMonthDay;
        nConsumed = 7;
        nMonth = Number(p + 2, 2);
        nDay = Number(p + 5, 2);
    }
    if (type == dt_yearZero) {
        throw COxInvalidValueException(FormatString("Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text));
    }
    m_type = type;
    m_year = static_cast<int16_t>(bNegative ? -nYear : nYear);
    m_month = static_cast<uint8_t>(nMonth);
    m_day = static_cast<uint8_t>(nDay);
    if (bZ || bColon) SetZone(p + nConsumed);
}

void CDateTime::SetXSDTime(const char* text) {
    if (text == nullptr) throw COxInvalidValueException("Invalid Time (Null String)");
    if (*text == '\0') throw COxInvalidValueException("Invalid XSD Time (Empty String)");
    const bool bShape =
        AreDigits(text, 2) && text[2] == ':' && AreDigits(text + 3, 2) && text[5] == ':' && AreDigits(text + 6, 2);
    if (!bShape || Number(text, 2) >= 24 || Number(text + 3, 2) >= 60 || Number(text + 6, 2) >= 60) {
        throw COxInvalidValueException(FormatString("Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text));
    }
    m_hour = static_cast<uint8_t>(Number(text, 2));
    m_minute = static_cast<uint8_t>(Number(text + 3, 2));
    m_second = static_cast<uint8_t>(Number(text + 6, 2));
    const char* p = text + 8;
    if (*p == '.') {
        ++p;
        if (!CFractionText::Read(p, m_milliSecond, m_microSecond, m_nanoSecond)) {
            throw COxInvalidValueException(FormatString("Invalid XSD Time [%s] Fraction part too long", text));
        }
    }
    if (*p != '\0') SetZone(p);
    m_type = dt_time;
}

void CDateTime::SetZone(const char* text) {
    if (*text == 'Z') {
        SetUTC();
        return;
    }
    if (*text != '+' && *text != '-') return;
    const bool bShape = AreDigits(text + 1, 2) && text[3] == ':' && AreDigits(text + 4, 2) && text[6] == '\0';
    if (!bShape) throw COxInvalidValueException(FormatString("Invalid XSD Time Zone [%s].", text));
    int nHour = Number(text + 1, 2);
    if (nHour == 24) nHour = 0;
    SetTimeZone(static_cast<short>(*text == '-' ? -nHour : nHour), static_cast<unsigned char>(Number(text + 4, 2)));
}

}  // namespace OrvexXml
