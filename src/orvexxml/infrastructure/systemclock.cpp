#include "orvexxml/infrastructure/systemclock.h"

#include <time.h>

#include <limits>

namespace OrvexXml {

namespace {

// time_t may be narrower than the count a caller passes; a count that doesn't fit is refused
// rather than cut.
bool ToTimeT(long long t, time_t& out) {
    if (t < static_cast<long long>(std::numeric_limits<time_t>::min()) ||
        t > static_cast<long long>(std::numeric_limits<time_t>::max())) {
        return false;
    }
    out = static_cast<time_t>(t);
    return true;
}

}  // namespace

bool CSystemClock::UtcFields(long long t, std::tm& fields) {
    time_t tt;
    return ToTimeT(t, tt) && gmtime_r(&tt, &fields) != nullptr;
}

bool CSystemClock::LocalFields(long long t, std::tm& fields) {
    time_t tt;
    return ToTimeT(t, tt) && localtime_r(&tt, &fields) != nullptr;
}

void CSystemClock::LocalNow(std::tm& fields, long& nNanoSeconds) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    localtime_r(&now.tv_sec, &fields);
    nNanoSeconds = now.tv_nsec;
}

}  // namespace OrvexXml
