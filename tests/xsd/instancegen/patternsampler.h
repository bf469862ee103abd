// Values for the pattern facet of a simple type: strings drawn from the pattern itself, for the
// plain subset of the schema regular expressions (characters, escapes \d \w \s, classes with
// ranges, groups, alternatives, quantifiers), each confirmed with PCRE2 before it is used. A
// pattern outside that subset (\p{..}, \i, \c, class subtraction) draws nothing, and a
// candidate that PCRE2 can't confirm is never handed out.
#pragma once

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace OrvexXsd {

class CPatternSampler {
public:
    // Every pattern of the type (all must match); bounds on the length in characters, -1 for none.
    CPatternSampler(const std::vector<std::string>& vecPatterns, long long nMinLength, long long nMaxLength);
    ~CPatternSampler();
    CPatternSampler(const CPatternSampler&) = delete;
    CPatternSampler& operator=(const CPatternSampler&) = delete;

    // A string that every pattern matches whole and that keeps the length bounds; false when
    // none was found in a bounded number of attempts.
    bool Draw(std::mt19937_64& rng, std::string& strValue) const;
    // Whether the text matches every pattern whole and keeps the bounds; false when a pattern
    // doesn't compile as PCRE2.
    bool Matches(const std::string& strText) const;

private:
    struct CNode;
    std::shared_ptr<CNode> Parse(const std::string& strPattern) const;
    void Generate(const CNode& node, std::mt19937_64& rng, std::string& strOut) const;

    std::vector<std::string> m_vecPatterns;
    long long m_nMinLength;
    long long m_nMaxLength;
    std::vector<void*> m_vecCompiled;  // pcre2_code*, null for a pattern PCRE2 refused
    std::shared_ptr<CNode> m_pFirst;   // the parse of the first pattern, null outside the subset
};

}  // namespace OrvexXsd
