#include "patternsampler.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cctype>
#include <functional>

namespace OrvexXsd {

namespace {

const char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
const char kDigits[] = "0123456789";

// A pattern the parser doesn't take; the sampler then draws nothing.
struct COutsideSubset {};

// Characters are counted as code points, as the length facets count them.
long long CodePoints(const std::string& strText) {
    long long nCount = 0;
    for (unsigned char c : strText) nCount += (c & 0xC0) != 0x80;
    return nCount;
}

// The PCRE2 form of a schema pattern: anchored at both ends, '^' and '$' literal as the schema
// reads them outside a class.
std::string ToPcre(const std::string& strPattern) {
    std::string strResult = "^(?:";
    bool bInClass = false, bEscape = false;
    for (size_t i = 0; i < strPattern.size(); ++i) {
        const char c = strPattern[i];
        if (bEscape) {
            strResult += c;
            bEscape = false;
            continue;
        }
        if (c == '\\') {
            bEscape = true;
        } else if (c == '[') {
            bInClass = true;
        } else if (c == ']') {
            bInClass = false;
        } else if (!bInClass && (c == '^' || c == '$')) {
            strResult += '\\';
        }
        strResult += c;
    }
    return strResult + ")\\z";
}

}  // namespace

struct CPatternSampler::CNode {
    enum Kind { Kind_Sequence, Kind_Alternatives, Kind_Repeat, Kind_Set, Kind_Literal };
    Kind m_eKind = Kind_Sequence;
    std::vector<std::shared_ptr<CNode>> m_vecChildren;
    int m_nMin = 1;
    int m_nMax = 1;
    std::string m_strChars;  // a set's characters (ASCII), or a literal's bytes
};

std::shared_ptr<CPatternSampler::CNode> CPatternSampler::Parse(const std::string& strPattern) const {
    using Node = std::shared_ptr<CNode>;
    size_t nAt = 0;
    const auto atEnd = [&] { return nAt >= strPattern.size(); };
    const auto make = [](CNode::Kind eKind) {
        Node pNode = std::make_shared<CNode>();
        pNode->m_eKind = eKind;
        return pNode;
    };
    // The characters of an escape that stands for one character or a class of them.
    const auto escape = [&](char c) -> std::string {
        switch (c) {
            case 'd':
                return kDigits;
            case 'w':
                return std::string(kLetters) + kDigits;
            case 's':
                return " ";
            case 'D':
                return kLetters;
            case 'W':
                return " -.";
            case 'S':
                return std::string(kLetters) + kDigits;
            case 'n':
                return "\n";
            case 'r':
                return "\r";
            case 't':
                return "\t";
            default:
                if (std::string("\\|.-^?*+{}()[]").find(c) != std::string::npos) return std::string(1, c);
                throw COutsideSubset();  // \p, \i, \c and their complements
        }
    };
    std::function<Node()> alternatives;
    const auto klass = [&]() -> Node {
        // After '['.
        bool bNegated = false;
        if (!atEnd() && strPattern[nAt] == '^') {
            bNegated = true;
            ++nAt;
        }
        std::string strSet;
        bool bFirst = true;
        while (true) {
            if (atEnd()) throw COutsideSubset();
            char c = strPattern[nAt];
            if (c == ']' && !bFirst) {
                ++nAt;
                break;
            }
            bFirst = false;
            if (static_cast<unsigned char>(c) >= 0x80) throw COutsideSubset();
            if (c == '-' && nAt + 1 < strPattern.size() && strPattern[nAt + 1] == '[') throw COutsideSubset();
            std::string strItem;
            ++nAt;
            if (c == '\\') {
                if (atEnd()) throw COutsideSubset();
                strItem = escape(strPattern[nAt++]);
            } else {
                strItem = std::string(1, c);
            }
            if (strItem.size() == 1 && nAt + 1 < strPattern.size() && strPattern[nAt] == '-' &&
                strPattern[nAt + 1] != ']' && strPattern[nAt + 1] != '[') {
                char cTo = strPattern[nAt + 1];
                nAt += 2;
                if (cTo == '\\') {
                    if (atEnd()) throw COutsideSubset();
                    const std::string strTo = escape(strPattern[nAt++]);
                    if (strTo.size() != 1) throw COutsideSubset();
                    cTo = strTo[0];
                }
                if (static_cast<unsigned char>(cTo) >= 0x80 || cTo < strItem[0]) throw COutsideSubset();
                for (char r = strItem[0]; r < cTo; ++r) strItem += static_cast<char>(r + 1);
            }
            strSet += strItem;
        }
        if (bNegated) {
            std::string strComplement;
            for (char c = 0x21; c < 0x7f; ++c) {
                if (strSet.find(c) == std::string::npos) strComplement += c;
            }
            strSet = strComplement;
        }
        if (strSet.empty()) throw COutsideSubset();
        Node pNode = make(CNode::Kind_Set);
        pNode->m_strChars = strSet;
        return pNode;
    };
    const auto number = [&]() {
        if (atEnd() || !isdigit(static_cast<unsigned char>(strPattern[nAt]))) throw COutsideSubset();
        int n = 0;
        while (!atEnd() && isdigit(static_cast<unsigned char>(strPattern[nAt]))) {
            n = n * 10 + (strPattern[nAt++] - '0');
            if (n > 1000) throw COutsideSubset();
        }
        return n;
    };
    const auto sequence = [&]() -> Node {
        Node pSequence = make(CNode::Kind_Sequence);
        while (!atEnd() && strPattern[nAt] != '|' && strPattern[nAt] != ')') {
            const char c = strPattern[nAt++];
            Node pAtom;
            if (c == '(') {
                pAtom = alternatives();
                if (atEnd() || strPattern[nAt] != ')') throw COutsideSubset();
                ++nAt;
            } else if (c == '[') {
                pAtom = klass();
            } else if (c == '\\') {
                if (atEnd()) throw COutsideSubset();
                pAtom = make(CNode::Kind_Set);
                pAtom->m_strChars = escape(strPattern[nAt++]);
            } else if (c == '.') {
                pAtom = make(CNode::Kind_Set);
                pAtom->m_strChars = std::string(kLetters) + kDigits;
            } else if (c == '?' || c == '*' || c == '+' || c == '{' || c == ']' || c == '}') {
                throw COutsideSubset();
            } else {
                pAtom = make(CNode::Kind_Literal);
                pAtom->m_strChars = std::string(1, c);
                // A character beyond ASCII is one literal of all its bytes.
                while (static_cast<unsigned char>(c) >= 0x80 && !atEnd() &&
                       (static_cast<unsigned char>(strPattern[nAt]) & 0xC0) == 0x80)
                    pAtom->m_strChars += strPattern[nAt++];
            }
            if (!atEnd() && std::string("?*+{").find(strPattern[nAt]) != std::string::npos) {
                Node pRepeat = make(CNode::Kind_Repeat);
                pRepeat->m_vecChildren.push_back(pAtom);
                const char q = strPattern[nAt++];
                if (q == '?') {
                    pRepeat->m_nMin = 0;
                    pRepeat->m_nMax = 1;
                } else if (q == '*' || q == '+') {
                    pRepeat->m_nMin = q == '*' ? 0 : 1;
                    pRepeat->m_nMax = pRepeat->m_nMin + 3;
                } else {
                    pRepeat->m_nMin = number();
                    pRepeat->m_nMax = pRepeat->m_nMin;
                    if (!atEnd() && strPattern[nAt] == ',') {
                        ++nAt;
                        pRepeat->m_nMax = !atEnd() && strPattern[nAt] == '}' ? pRepeat->m_nMin + 3 : number();
                    }
                    if (atEnd() || strPattern[nAt] != '}' || pRepeat->m_nMax < pRepeat->m_nMin) throw COutsideSubset();
                    ++nAt;
                }
                pAtom = pRepeat;
            }
            pSequence->m_vecChildren.push_back(pAtom);
        }
        return pSequence;
    };
    alternatives = [&]() -> Node {
        Node pAlternatives = make(CNode::Kind_Alternatives);
        pAlternatives->m_vecChildren.push_back(sequence());
        while (!atEnd() && strPattern[nAt] == '|') {
            ++nAt;
            pAlternatives->m_vecChildren.push_back(sequence());
        }
        return pAlternatives;
    };
    try {
        Node pRoot = alternatives();
        return atEnd() ? pRoot : nullptr;
    } catch (const COutsideSubset&) {
        return nullptr;
    }
}

CPatternSampler::CPatternSampler(const std::vector<std::string>& vecPatterns, long long nMinLength,
                                 long long nMaxLength)
    : m_vecPatterns(vecPatterns), m_nMinLength(nMinLength), m_nMaxLength(nMaxLength) {
    for (const std::string& strPattern : m_vecPatterns) {
        const std::string strPcre = ToPcre(strPattern);
        int nError = 0;
        PCRE2_SIZE nOffset = 0;
        m_vecCompiled.push_back(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(strPcre.c_str()), strPcre.size(), PCRE2_UTF,
                                              &nError, &nOffset, nullptr));
    }
    if (!m_vecPatterns.empty()) m_pFirst = Parse(m_vecPatterns.front());
}

CPatternSampler::~CPatternSampler() {
    for (void* pCode : m_vecCompiled) pcre2_code_free(static_cast<pcre2_code*>(pCode));
}

void CPatternSampler::Generate(const CNode& node, std::mt19937_64& rng, std::string& strOut) const {
    switch (node.m_eKind) {
        case CNode::Kind_Sequence:
            for (const auto& pChild : node.m_vecChildren) Generate(*pChild, rng, strOut);
            break;
        case CNode::Kind_Alternatives:
            Generate(*node.m_vecChildren[rng() % node.m_vecChildren.size()], rng, strOut);
            break;
        case CNode::Kind_Repeat: {
            const int nCount = node.m_nMin + static_cast<int>(rng() % (node.m_nMax - node.m_nMin + 1));
            for (int i = 0; i < nCount; ++i) Generate(*node.m_vecChildren.front(), rng, strOut);
            break;
        }
        case CNode::Kind_Set:
            strOut += node.m_strChars[rng() % node.m_strChars.size()];
            break;
        case CNode::Kind_Literal:
            strOut += node.m_strChars;
            break;
    }
}

bool CPatternSampler::Matches(const std::string& strText) const {
    const long long nLength = CodePoints(strText);
    if ((m_nMinLength >= 0 && nLength < m_nMinLength) || (m_nMaxLength >= 0 && nLength > m_nMaxLength)) return false;
    for (void* pCode : m_vecCompiled) {
        if (!pCode) return false;
        pcre2_code* pCompiled = static_cast<pcre2_code*>(pCode);
        pcre2_match_data* pMatch = pcre2_match_data_create_from_pattern(pCompiled, nullptr);
        const int nResult = pcre2_match(pCompiled, reinterpret_cast<PCRE2_SPTR>(strText.c_str()), strText.size(), 0, 0,
                                        pMatch, nullptr);
        pcre2_match_data_free(pMatch);
        if (nResult < 0) return false;
    }
    return true;
}

bool CPatternSampler::Draw(std::mt19937_64& rng, std::string& strValue) const {
    if (!m_pFirst) return false;
    for (int nAttempt = 0; nAttempt < 64; ++nAttempt) {
        std::string strCandidate;
        Generate(*m_pFirst, rng, strCandidate);
        if (Matches(strCandidate)) {
            strValue = strCandidate;
            return true;
        }
    }
    return false;
}

}  // namespace OrvexXsd
