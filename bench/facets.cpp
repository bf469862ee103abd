// The cost of facet checks: a pattern facet on a string and a range facet on a decimal, each
// on the first check of its facet set (the pattern compiled, the bounds read) and in the
// steady state (both kept), beside the bare work that the check stands on: a match with a
// pattern compiled once, and two comparisons with bounds read once. Figures are checks per
// second.
#include <benchmark/benchmark.h>
#include <orvexxml/orvexxml.h>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <string>

using namespace OrvexXml;

namespace {

const char* const kValue = "ORD-2024-000123";
const char* const kPattern = "[A-Z]{3}-\\d{4}-\\d{6}";

CPrimitiveRestrictions PatternFacet(const std::string& strPattern) {
    return CPrimitiveRestrictions(strPattern.c_str(), -1, -1, "", "", "", "", -1, -1, -1);
}

CPrimitiveRestrictions RangeFacet() {
    return CPrimitiveRestrictions("", -1, -1, "0.00", "1000000.00", "", "", -1, -1, -1);
}

void BM_PatternFirstCheck(benchmark::State& state) {
    const std::string strValue = kValue;
    unsigned nPattern = 0;
    for (auto _ : state) {
        // A pattern no check has seen: the same one with another literal alternative each time.
        const CPrimitiveRestrictions facet = PatternFacet(std::string(kPattern) + "|y" + std::to_string(++nPattern));
        ValidateValue("Code", strValue, facet);
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_PatternSteady(benchmark::State& state) {
    const std::string strValue = kValue;
    const CPrimitiveRestrictions facet = PatternFacet(kPattern);
    for (auto _ : state) ValidateValue("Code", strValue, facet);
    state.SetItemsProcessed(state.iterations());
}

// Baseline: the match alone, with the pattern compiled once.
void BM_PatternBareMatch(benchmark::State& state) {
    const std::string strPattern = std::string("^(") + kPattern + ")$";
    int nError = 0;
    PCRE2_SIZE nOffset = 0;
    pcre2_code* pCode = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(strPattern.c_str()), PCRE2_ZERO_TERMINATED,
                                      PCRE2_UTF, &nError, &nOffset, nullptr);
    pcre2_match_data* pData = pcre2_match_data_create_from_pattern(pCode, nullptr);
    const std::string strValue = kValue;
    for (auto _ : state) {
        benchmark::DoNotOptimize(pcre2_match(pCode, reinterpret_cast<PCRE2_SPTR>(strValue.data()), strValue.size(), 0,
                                             PCRE2_ANCHORED, pData, nullptr));
    }
    pcre2_match_data_free(pData);
    pcre2_code_free(pCode);
    state.SetItemsProcessed(state.iterations());
}

void BM_DecimalRangeFirstCheck(benchmark::State& state) {
    const CDecimal value("1234.56");
    const CPrimitiveRestrictions original = RangeFacet();
    for (auto _ : state) {
        const CPrimitiveRestrictions facet(original);  // a copy reads its bounds afresh
        ValidateValue("Amount", value, facet);
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_DecimalRangeSteady(benchmark::State& state) {
    const CDecimal value("1234.56");
    const CPrimitiveRestrictions facet = RangeFacet();
    for (auto _ : state) ValidateValue("Amount", value, facet);
    state.SetItemsProcessed(state.iterations());
}

// Baseline: the two comparisons alone, with the bounds read once.
void BM_DecimalBareCompare(benchmark::State& state) {
    const CDecimal value("1234.56");
    const CDecimal low("0.00");
    const CDecimal high("1000000.00");
    for (auto _ : state) benchmark::DoNotOptimize(value >= low && value <= high);
    state.SetItemsProcessed(state.iterations());
}

}  // namespace

BENCHMARK(BM_PatternBareMatch);
BENCHMARK(BM_PatternFirstCheck);
BENCHMARK(BM_PatternSteady);
BENCHMARK(BM_DecimalBareCompare);
BENCHMARK(BM_DecimalRangeFirstCheck);
BENCHMARK(BM_DecimalRangeSteady);

BENCHMARK_MAIN();
