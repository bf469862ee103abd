// Dates and durations: reading and writing a dateTime next to a plain sscanf and snprintf of
// the same fields; comparing two dateTimes (same zone state, and one without a zone, which
// normalises up to four copies) and two durations (eight additions) next to a strcmp of their
// texts; and reading a time whose fraction is a run of n digits, next to strlen of the same
// text, which should grow alike: linearly.
#include <benchmark/benchmark.h>
#include <orvexxml/orvexxml.h>

#include <cstdio>
#include <cstring>
#include <string>

using namespace OrvexXml;

namespace {

const char kText[] = "2001-10-26T21:32:52.126789+05:00";

void BM_ParseAndWriteDateTime(benchmark::State& state) {
    for (auto _ : state) {
        CDateTime value(kText);
        benchmark::DoNotOptimize(value.ToString());
    }
}
BENCHMARK(BM_ParseAndWriteDateTime);

void BM_Baseline_ScanfAndPrintf(benchmark::State& state) {
    for (auto _ : state) {
        int y, mo, d, h, mi, s, f, zh, zm;
        std::sscanf(kText, "%d-%d-%dT%d:%d:%d.%d+%d:%d", &y, &mo, &d, &h, &mi, &s, &f, &zh, &zm);
        char buffer[64];
        std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d.%06d+%02d:%02d", y, mo, d, h, mi, s, f, zh,
                      zm);
        benchmark::DoNotOptimize(std::string(buffer));
    }
}
BENCHMARK(BM_Baseline_ScanfAndPrintf);

void BM_CompareDateTimes(benchmark::State& state) {
    const CDateTime left(kText);
    const CDateTime right(state.range(0) ? "2001-10-26T16:32:52" : "2001-10-26T16:32:52Z");
    for (auto _ : state) benchmark::DoNotOptimize(left.CompareTo(right));
}
BENCHMARK(BM_CompareDateTimes)->Arg(0)->Arg(1)->ArgName("unzoned");

void BM_CompareDurations(benchmark::State& state) {
    CDateTimeSpan left;
    left.ParseXSDDuration("P1Y2M3DT4H5M6.7S");
    CDateTimeSpan right;
    right.ParseXSDDuration("P427DT4H5M6.7S");
    for (auto _ : state) benchmark::DoNotOptimize(left.CompareTo(right));
}
BENCHMARK(BM_CompareDurations);

void BM_Baseline_CompareTexts(benchmark::State& state) {
    const std::string left(kText);
    const std::string right("2001-10-26T16:32:52Z");
    for (auto _ : state) benchmark::DoNotOptimize(std::strcmp(left.c_str(), right.c_str()));
}
BENCHMARK(BM_Baseline_CompareTexts);

std::string LongFraction(int nDigits) { return "12:00:00." + std::string(static_cast<size_t>(nDigits), '7') + "Z"; }

void BM_RefuseLongFraction(benchmark::State& state) {
    const std::string text = LongFraction(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CDateTime value;
        try {
            value.ParseXSDTime(text.c_str());
        } catch (const COxInvalidValueException& e) {
            benchmark::DoNotOptimize(e.GetMessage().size());
        }
    }
}
BENCHMARK(BM_RefuseLongFraction)->Range(1 << 10, 1 << 20);

void BM_Baseline_StrlenLongFraction(benchmark::State& state) {
    const std::string text = LongFraction(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(std::strlen(text.c_str()));
}
BENCHMARK(BM_Baseline_StrlenLongFraction)->Range(1 << 10, 1 << 20);

}  // namespace

BENCHMARK_MAIN();
