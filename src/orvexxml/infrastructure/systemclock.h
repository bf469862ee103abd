#pragma once

#include <ctime>

namespace OrvexXml {

// The library's one door to the process clock and its time zone: the present local time,
// and the breakdown of a count of seconds since 1970-01-01T00:00:00 UTC into calendar fields,
// in UTC or in the local time of the process. Everything here uses the reentrant forms of the
// C library, so that values on different threads don't share a result buffer.
class CSystemClock {
public:
    // The calendar fields of t in UTC; false when t lies outside what the C library can
    // break down.
    static bool UtcFields(long long t, std::tm& fields);
    // The calendar fields of t in the time zone of the process; false as above.
    static bool LocalFields(long long t, std::tm& fields);
    // The present local time from the system clock, with the part below the second.
    static void LocalNow(std::tm& fields, long& nNanoSeconds);
};

}  // namespace OrvexXml
