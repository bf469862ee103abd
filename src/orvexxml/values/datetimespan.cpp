#include "orvexxml/values/datetimespan.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/fractiontext.h"

namespace OrvexXml {

CDateTimeSpan::CDateTimeSpan() { Clear(); }

CDateTimeSpan::CDateTimeSpan(OxULong hours, unsigned long long minutes, unsigned long long seconds) {
    SetDateTimeSpan(hours, minutes, seconds);
}

CDateTimeSpan::CDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours,
                             unsigned long long minutes, unsigned long long seconds) {
    SetDateTimeSpan(years, months, days, hours, minutes, seconds);
}

CDateTimeSpan::CDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours,
                             unsigned long long minutes, unsigned long long seconds, unsigned short milliSeconds,
                             unsigned short microSeconds, unsigned short nanoSeconds) {
    SetDateTimeSpan(years, months, days, hours, minutes, seconds, milliSeconds, microSeconds, nanoSeconds);
}

CDateTimeSpan::~CDateTimeSpan() {}

void CDateTimeSpan::Clear() { SetDateTimeSpan(0, 0, 0, 0, 0, 0, 0, 0, 0); }

void CDateTimeSpan::SetDateTimeSpan(OxULong hours, unsigned long long minutes, unsigned long long seconds) {
    SetDateTimeSpan(0, 0, 0, hours, minutes, seconds, 0, 0, 0);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours,
                                    unsigned long long minutes, unsigned long long seconds) {
    SetDateTimeSpan(years, months, days, hours, minutes, seconds, 0, 0, 0);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, OxULong months, OxULong days, OxULong hours,
                                    unsigned long long minutes, unsigned long long seconds, unsigned short milliSeconds,
                                    unsigned short microSeconds, unsigned short nanoSeconds) {
    m_years = years;
    m_months = months;
    m_days = days;
    m_hours = hours;
    m_minutes = minutes;
    m_seconds = seconds;
    m_milliSeconds = milliSeconds;
    m_microSeconds = microSeconds;
    m_nanoSeconds = nanoSeconds;
    m_isNegative = false;
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const {
    CDateTimeSpan copy(*this);
    copy.m_isNegative = true;
    return copy;
}

void CDateTimeSpan::RefuseShape(const char* text) {
    throw COxInvalidValueException(
        FormatString("Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", text));
}

void CDateTimeSpan::ParseXSDDuration(const char* text) {
    Clear();
    if (text == nullptr) throw COxInvalidValueException("Invalid XSD Duration (Null String)");
    if (*text == '\0') throw COxInvalidValueException("Invalid XSD Duration (Empty String)");
    const char* p = text;
    if (*p == '-') {
        m_isNegative = true;
        ++p;
    }
    if (*p++ != 'P') RefuseShape(text);
    // 0 after "P", 1 to 3 after a date part, 4 after "T", 5 to 7 after a time part, 8 after
    // the seconds with a fraction.
    int nState = 0;
    while (*p != '\0') {
        uint32_t n = 0;
        for (; *p >= '0' && *p <= '9'; ++p) n = n * 10u + static_cast<uint32_t>(*p - '0');
        const char cDesignator = *p;
        if (cDesignator == '\0') RefuseShape(text);
        ++p;
        if (cDesignator == 'Y') {
            m_years = static_cast<uint16_t>(n);
            nState = 1;
        } else if (cDesignator == 'M' && nState <= 1) {
            m_months = n;
            nState = 2;
        } else if (cDesignator == 'D' && nState <= 2) {
            m_days = n;
            nState = 3;
        } else if (cDesignator == 'T' && nState <= 3) {
            nState = 4;
        } else if (cDesignator == 'H' && nState == 4) {
            m_hours = n;
            nState = 5;
        } else if (cDesignator == 'M' && (nState == 4 || nState == 5)) {
            m_minutes = n;
            nState = 6;
        } else if (cDesignator == 'S' && nState >= 4 && nState <= 6) {
            m_seconds = n;
            nState = 7;
        } else if (cDesignator == '.' && nState >= 4 && nState <= 6) {
            m_seconds = n;
            nState = 7;
            if (*p == '\0') break;
            if (!CFractionText::Read(p, m_milliSeconds, m_microSeconds, m_nanoSeconds)) {
                throw COxInvalidValueException(FormatString("Invalid XSD Duration [%s] Fraction part too long", text));
            }
            if (*p++ != 'S') RefuseShape(text);
            nState = 8;
        } else {
            RefuseShape(text);
        }
    }
    if (nState == 0 || nState == 4) RefuseShape(text);
}

std::string CDateTimeSpan::ToString() const {
    std::string strText = m_isNegative ? "-P" : "P";
    if (m_years != 0) strText += FormatString("%uY", static_cast<unsigned>(m_years));
    if (m_months != 0) strText += FormatString("%uM", static_cast<unsigned>(m_months));
    if (m_days != 0) strText += FormatString("%uD", static_cast<unsigned>(m_days));
    const bool bSeconds = m_seconds != 0 || m_milliSeconds != 0 || m_microSeconds != 0 || m_nanoSeconds != 0;
    if (m_hours != 0 || m_minutes != 0 || bSeconds) {
        strText += 'T';
        if (m_hours != 0) strText += FormatString("%uH", static_cast<unsigned>(m_hours));
        if (m_minutes != 0) strText += FormatString("%lluM", static_cast<unsigned long long>(m_minutes));
        if (bSeconds) {
            strText += FormatString("%llu", static_cast<unsigned long long>(m_seconds));
            CFractionText::Append(strText, m_milliSeconds, m_microSeconds, m_nanoSeconds);
            strText += 'S';
        }
    }
    return strText;
}

CDateTime::DTCompareResult CDateTimeSpan::CompareTo(const CDateTimeSpan& other) const {
    static const short kReferenceYears[4] = {1696, 1697, 1903, 1903};
    static const unsigned char kReferenceMonths[4] = {9, 2, 3, 7};
    CDateTime::DTCompareResult eFirst = CDateTime::dtc_indeterminate;
    try {
        for (int i = 0; i < 4; ++i) {
            CDateTime reference;
            reference.SetDate(kReferenceYears[i], kReferenceMonths[i], 1);
            reference.SetUTC();
            const CDateTime::DTCompareResult eResult = (reference + *this).CompareTo(reference + other);
            if (eResult == CDateTime::dtc_indeterminate || (i > 0 && eResult != eFirst)) {
                return CDateTime::dtc_indeterminate;
            }
            eFirst = eResult;
        }
    } catch (const COxInvalidValueException&) {
        return CDateTime::dtc_indeterminate;
    }
    return eFirst;
}

bool CDateTimeSpan::operator==(const CDateTimeSpan& other) const { return CompareTo(other) == CDateTime::dtc_equal; }

bool CDateTimeSpan::operator!=(const CDateTimeSpan& other) const { return CompareTo(other) != CDateTime::dtc_equal; }

bool CDateTimeSpan::operator<(const CDateTimeSpan& other) const { return CompareTo(other) == CDateTime::dtc_lessThan; }

bool CDateTimeSpan::operator>(const CDateTimeSpan& other) const {
    return CompareTo(other) == CDateTime::dtc_greaterThan;
}

}  // namespace OrvexXml
