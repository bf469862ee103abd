#include "orvexxml/values/patterncache.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <unordered_map>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/perthread.h"

namespace OrvexXml {

namespace {

// One pattern as compiled, or the message of its failure.
struct CompiledPattern {
    pcre2_code* pCode = nullptr;
    // Machine code for the pattern, where the platform's PCRE2 makes it: a match then runs
    // several times faster than in the interpreter, which stays the judge of the rare match
    // that the machine code can't finish (its own stack or the backtracking limit).
    bool bJit = false;
    // The offset pairs that a match of the pattern fills.
    uint32_t nPairs = 0;
    std::string strError;

    CompiledPattern() = default;
    CompiledPattern(const CompiledPattern&) = delete;
    CompiledPattern& operator=(const CompiledPattern&) = delete;
    ~CompiledPattern() { pcre2_code_free(pCode); }
};

struct PatternTable {
    std::shared_mutex mutex;
    std::unordered_map<std::string, std::shared_ptr<const CompiledPattern>> patterns;
};

// Never destroyed: checks may run while objects with static storage are destroyed.
PatternTable& Table() {
    static PatternTable* s_pTable = new PatternTable;
    return *s_pTable;
}

std::shared_ptr<const CompiledPattern> Compile(const std::string& strPattern) {
    auto pCompiled = std::make_shared<CompiledPattern>();
    uint32_t nCaptures = 0;
    int nError = 0;
    PCRE2_SIZE nErrorOffset = 0;
    // The pattern ends at its first null byte. It is anchored when compiled rather than when
    // matched, which means the same and lets the machine code run it: that code takes no
    // anchoring option at match time.
    pCompiled->pCode = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(strPattern.c_str()), PCRE2_ZERO_TERMINATED,
                                     PCRE2_UTF | PCRE2_ANCHORED, &nError, &nErrorOffset, nullptr);
    if (pCompiled->pCode == nullptr) {
        PCRE2_UCHAR buffer[256];
        pcre2_get_error_message(nError, buffer, sizeof(buffer));
        pCompiled->strError = std::string("Invalid Regular Expression: ") + strPattern.c_str() + " Error: '" +
                              reinterpret_cast<const char*>(buffer) + "'";
        return pCompiled;
    }
    pcre2_pattern_info(pCompiled->pCode, PCRE2_INFO_CAPTURECOUNT, &nCaptures);
    pCompiled->nPairs = nCaptures + 1;
    pCompiled->bJit = pcre2_jit_compile(pCompiled->pCode, PCRE2_JIT_COMPLETE) == 0;
    return pCompiled;
}

std::shared_ptr<const CompiledPattern> Lookup(const std::string& strPattern, CPatternCache::PfnTranslate pfnTranslate) {
    PatternTable& table = Table();
    {
        std::shared_lock<std::shared_mutex> lock(table.mutex);
        auto it = table.patterns.find(strPattern);
        if (it != table.patterns.end()) return it->second;
    }
    // Compiled outside the lock; two threads that meet the same new pattern both compile
    // it, and the first to file its result wins.
    std::shared_ptr<const CompiledPattern> pCompiled = Compile(pfnTranslate(strPattern));
    std::unique_lock<std::shared_mutex> lock(table.mutex);
    if (table.patterns.size() >= CPatternCache::kMaxPatterns) table.patterns.clear();
    return table.patterns.emplace(strPattern, pCompiled).first->second;
}

// The match settings of one thread, with the bound on backtracking, and its offset vector,
// which grows to the largest that a pattern has needed.
struct MatchSettings {
    pcre2_match_context* pContext;
    pcre2_match_data* pData = nullptr;
    MatchSettings() : pContext(pcre2_match_context_create(nullptr)) {
        if (pContext) pcre2_set_match_limit(pContext, CPatternCache::kMatchLimit);
    }
    MatchSettings(const MatchSettings&) = delete;
    MatchSettings& operator=(const MatchSettings&) = delete;
    ~MatchSettings() {
        pcre2_match_data_free(pData);
        pcre2_match_context_free(pContext);
    }
    pcre2_match_data* DataFor(uint32_t nPairs) {
        if (pData == nullptr || pcre2_get_ovector_count(pData) < nPairs) {
            pcre2_match_data_free(pData);
            pData = pcre2_match_data_create(nPairs, nullptr);
        }
        return pData;
    }
};

}  // namespace

bool CPatternCache::MatchesWhole(const std::string& strPattern, PfnTranslate pfnTranslate, const char* pSubject,
                                 size_t nLength) {
    std::shared_ptr<const CompiledPattern> pCompiled = Lookup(strPattern, pfnTranslate);
    if (pCompiled->pCode == nullptr) throw COxException(pCompiled->strError);

    std::optional<MatchSettings> lateSettings;
    MatchSettings& settings = CPerThread<MatchSettings>::Get(lateSettings);
    pcre2_match_data* pData = settings.pContext ? settings.DataFor(pCompiled->nPairs) : nullptr;
    if (pData == nullptr) throw std::bad_alloc();
    const PCRE2_SPTR pText = reinterpret_cast<PCRE2_SPTR>(pSubject);
    int nResult = PCRE2_ERROR_NOMATCH;
    if (pCompiled->bJit) nResult = pcre2_match(pCompiled->pCode, pText, nLength, 0, 0, pData, settings.pContext);
    // Without machine code, or where it failed other than by finding no match, the
    // interpreter gives the verdict.
    if (!pCompiled->bJit || (nResult < 0 && nResult != PCRE2_ERROR_NOMATCH))
        nResult = pcre2_match(pCompiled->pCode, pText, nLength, 0, PCRE2_NO_JIT, pData, settings.pContext);
    // Every negative result is no match: no match, a subject that isn't UTF-8, the limit.
    if (nResult <= 0) return false;
    const PCRE2_SIZE* pOffsets = pcre2_get_ovector_pointer(pData);
    return pOffsets[0] == 0 && pOffsets[1] == nLength;
}

}  // namespace OrvexXml
