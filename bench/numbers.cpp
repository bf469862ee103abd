// The cost of exact numbers: one round of work (read two texts, add, multiply, print both
// results) on big integers and decimals of 20, 40 and 200 digits, beside the same round on
// long long and double, which hold at most 18 and 17 of those digits exactly. Figures are
// rounds per second.
#include <benchmark/benchmark.h>
#include <orvexxml/orvexxml.h>

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace OrvexXml;

namespace {

// Two different texts of nDigits digits, with nPlaces of them after a point when nPlaces > 0.
std::string Digits(int nDigits, int nPlaces, char cFirst) {
    std::string strText;
    for (int i = 0; i < nDigits; ++i) {
        if (nPlaces > 0 && i == nDigits - nPlaces) strText += '.';
        strText += static_cast<char>(i == 0 ? cFirst : '0' + (i * 7 + cFirst) % 10);
    }
    return strText;
}

void BM_BigInteger(benchmark::State& state) {
    const int nDigits = static_cast<int>(state.range(0));
    const std::string strA = Digits(nDigits, 0, '7');
    const std::string strB = Digits(nDigits, 0, '3');
    for (auto _ : state) {
        const CBigInteger a(strA.c_str());
        const CBigInteger b(strB.c_str());
        std::string strSum = (a + b).ToString();
        std::string strProduct = (a * b).ToString();
        benchmark::DoNotOptimize(strSum);
        benchmark::DoNotOptimize(strProduct);
    }
    state.SetItemsProcessed(state.iterations());
}

// A third of the digits after the point, at most the 30 places a decimal keeps by default.
void BM_Decimal(benchmark::State& state) {
    const int nDigits = static_cast<int>(state.range(0));
    const int nPlaces = nDigits / 3 < 30 ? nDigits / 3 : 30;
    const std::string strA = Digits(nDigits, nPlaces, '7');
    const std::string strB = Digits(nDigits, nPlaces, '3');
    for (auto _ : state) {
        const CDecimal a(strA.c_str());
        const CDecimal b(strB.c_str());
        std::string strSum = (a + b).ToString();
        std::string strProduct = (a * b).ToString();
        benchmark::DoNotOptimize(strSum);
        benchmark::DoNotOptimize(strProduct);
    }
    state.SetItemsProcessed(state.iterations());
}

// Baselines: the same round on native numbers of 18 digits (the product wraps, as unsigned
// arithmetic does, which changes nothing about the cost).
void BM_LongLong(benchmark::State& state) {
    const std::string strA = Digits(18, 0, '7');
    const std::string strB = Digits(18, 0, '3');
    char buffer[32];
    for (auto _ : state) {
        const unsigned long long a = std::strtoull(strA.c_str(), nullptr, 10);
        const unsigned long long b = std::strtoull(strB.c_str(), nullptr, 10);
        std::snprintf(buffer, sizeof(buffer), "%llu", a + b);
        benchmark::DoNotOptimize(buffer);
        std::snprintf(buffer, sizeof(buffer), "%llu", a * b);
        benchmark::DoNotOptimize(buffer);
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_Double(benchmark::State& state) {
    const std::string strA = Digits(18, 6, '7');
    const std::string strB = Digits(18, 6, '3');
    char buffer[48];
    for (auto _ : state) {
        const double a = std::strtod(strA.c_str(), nullptr);
        const double b = std::strtod(strB.c_str(), nullptr);
        std::snprintf(buffer, sizeof(buffer), "%.17g", a + b);
        benchmark::DoNotOptimize(buffer);
        std::snprintf(buffer, sizeof(buffer), "%.17g", a * b);
        benchmark::DoNotOptimize(buffer);
    }
    state.SetItemsProcessed(state.iterations());
}

}  // namespace

BENCHMARK(BM_LongLong);
BENCHMARK(BM_Double);
BENCHMARK(BM_BigInteger)->Arg(20)->Arg(40)->Arg(200);
BENCHMARK(BM_Decimal)->Arg(20)->Arg(40)->Arg(200);

BENCHMARK_MAIN();
