#pragma once

#include <cstddef>
#include <string>

namespace OrvexXml {

// Runs regular expressions of the PCRE dialect (UTF-8, anchored at the start) and keeps each
// compiled pattern for the next check, so that only the first check of a pattern compiles
// it. The cache is shared by all threads: lookups share a lock, and a compiled pattern is
// only read while it matches. A pattern that doesn't compile is remembered with its message.
//
// The cache holds at most a few thousand patterns; past that it starts again empty, so that
// a program that checks ever new patterns doesn't grow without end. It lives until the
// process ends, so that objects with static storage can still check values while it does.
//
// A match is bounded: past a fixed amount of backtracking (a pattern of hostile shape against
// a long text) it ends as no match.
class CPatternCache {
public:
    // Turns a pattern as given into the PCRE pattern to compile.
    typedef std::string (*PfnTranslate)(const std::string& strPattern);

    // True when the subject, nLength bytes of UTF-8, matches the translation of strPattern
    // from its first byte to its last. The translation runs once per pattern, when it is
    // compiled. A subject that isn't UTF-8, and a match that runs past the limit, give false.
    // A pattern that doesn't compile throws COxException "Invalid Regular Expression: %s
    // Error: '%s'" with the translated pattern and the compiler's text.
    static bool MatchesWhole(const std::string& strPattern, PfnTranslate pfnTranslate, const char* pSubject,
                             size_t nLength);

    // The most backtracking steps that one match may take.
    static constexpr unsigned kMatchLimit = 1000000;
    // The number of patterns at which the cache starts again empty.
    static constexpr size_t kMaxPatterns = 4096;
};

}  // namespace OrvexXml
