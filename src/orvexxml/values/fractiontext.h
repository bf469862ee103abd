#pragma once

#include <string>

namespace OrvexXml {

// The fraction of a second as dates, times and durations write and read it: three parts of
// three decimal digits each (milli-, micro- and nanoseconds).
class CFractionText {
public:
    // Appends nothing when all three parts are 0; otherwise "." and the three-digit parts up to
    // and including the last non-zero one, with that part's trailing zeros removed (at least
    // one of its digits stays): 500 ms gives ".5", 1 ms and 500 us give ".0015".
    static void Append(std::string& strText, unsigned nMilli, unsigned nMicro, unsigned nNano);

    // Reads the run of digits at pText into the three parts by position, each group of three
    // with the place values 100, 10 and 1; the run ends at the first other character, which
    // pText is left on. A tenth digit gives false, with pText on it.
    static bool Read(const char*& pText, unsigned short& nMilli, unsigned short& nMicro, unsigned short& nNano);
};

}  // namespace OrvexXml
