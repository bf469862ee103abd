#include "benchdocument.h"

#include <cstdint>
#include <string>

using namespace OrvexXml;

CSmartPtr<Samples::CReadingLog> MakeReadingLog(size_t nMinBytes) {
    CSmartPtr<Samples::CReadingLog> log = Samples::CReadingLog::CreateInstance();
    log->SetStation("North Ridge & Upper Valley <station 7>");
    // Each round adds one item to every collection, about 200 bytes of indented XML.
    const size_t nRounds = nMinBytes / 200 + 1;
    uint64_t nState = 88172645463325252ULL;
    for (size_t i = 0; i < nRounds; ++i) {
        nState ^= nState << 13;
        nState ^= nState >> 7;
        nState ^= nState << 17;
        log->GetSensor().Add("sensor-" + std::to_string(nState % 997));
        log->GetSequence().Add(static_cast<int64_t>(i) * 1000003);
        log->GetValue().Add(static_cast<double>(nState % 1000000) / 1000.0 - 250.0);
        log->GetLevel().Add(static_cast<int32_t>(nState % 200000) - 100000);
        log->GetValid().Add((nState & 3) != 0);
        log->GetNote().Add((nState % 5 == 0) ? "check & recalibrate" : "ok");
    }
    return log;
}
