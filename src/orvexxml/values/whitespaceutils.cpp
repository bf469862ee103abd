#include "orvexxml/values/whitespaceutils.h"

#include <cstring>

#include "orvexxml/infrastructure/exceptions.h"

namespace OrvexXml {

namespace {

// Length of the text up to its first NUL: the rules build their results as C strings.
size_t CLength(const char* psz, size_t nMax) {
    const void* pNul = std::memchr(psz, '\0', nMax);
    return pNul ? static_cast<size_t>(static_cast<const char*>(pNul) - psz) : nMax;
}

std::string PreserveBytes(const char* psz, size_t nLength) {
    nLength = CLength(psz, nLength);
    std::string result;
    result.reserve(nLength);
    for (size_t i = 0; i < nLength; ++i) {
        char c = psz[i];
        if (c == '\r') {
            result += '\n';
            if (i + 1 < nLength && psz[i + 1] == '\n') ++i;
        } else {
            result += c;
        }
    }
    return result;
}

void ThrowUnknownRule() { throw COxException("Unknown WhitespaceRule"); }

}  // namespace

std::string CWhitespaceUtils::Preserve(const std::string& text) {
    if (text.find('\r') == std::string::npos) return text;
    return PreserveBytes(text.data(), text.size());
}

std::string CWhitespaceUtils::Preserve(const char* pszText, int nLength) {
    if (pszText == nullptr || nLength <= 0) return std::string();
    return PreserveBytes(pszText, static_cast<size_t>(nLength));
}

std::string CWhitespaceUtils::Replace(const std::string& text) {
    const char* psz = text.c_str();
    size_t nLength = CLength(psz, text.size());
    std::string result;
    result.reserve(nLength);
    for (size_t i = 0; i < nLength; ++i) {
        char c = psz[i];
        if (c == '\r') {
            result += ' ';
            if (i + 1 < nLength && psz[i + 1] == '\n') ++i;
        } else if (c == '\t' || c == '\n') {
            result += ' ';
        } else {
            result += c;
        }
    }
    return result;
}

std::string CWhitespaceUtils::Collapse(const std::string& text) {
    const char* psz = text.c_str();
    size_t nLength = CLength(psz, text.size());
    std::string result;
    result.reserve(nLength);
    // Starting as if whitespace had just been passed drops leading whitespace.
    bool bAfterWhite = true;
    for (size_t i = 0; i < nLength; ++i) {
        char c = psz[i];
        if (IsWhiteSpace(c)) {
            if (!bAfterWhite) result += ' ';
            bAfterWhite = true;
        } else {
            result += c;
            bAfterWhite = false;
        }
    }
    if (!result.empty() && result.back() == ' ') result.pop_back();
    return result;
}

std::string CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const std::string& text) {
    switch (rule) {
        case WhitespaceRule_none:
            return text;
        case WhitespaceRule_preserve:
            return Preserve(text);
        case WhitespaceRule_replace:
            return Replace(text);
        case WhitespaceRule_collapse:
            return Collapse(text);
    }
    ThrowUnknownRule();
    return std::string();
}

namespace {

// Every byte that the rules replace or look at (tab, line feed, CR, the character 0, the
// space) is at most 0x20: a text without one, as numbers, dates and names are, is left as it
// is by replace and collapse, and one comparison per byte tells.
bool HasNoByteUpToSpace(const std::string& text) {
    for (char c : text) {
        if (static_cast<unsigned char>(c) <= 0x20) return false;
    }
    return true;
}

}  // namespace

bool CWhitespaceUtils::IsUnchangedByRule(WhitespaceRule rule, const std::string& text) {
    switch (rule) {
        case WhitespaceRule_none:
            return true;
        case WhitespaceRule_preserve:
            return text.find('\r') == std::string::npos;
        case WhitespaceRule_replace:
            if (HasNoByteUpToSpace(text)) return true;
            for (char c : text) {
                if (c == '\r' || c == '\t' || c == '\n' || c == '\0') return false;
            }
            return true;
        case WhitespaceRule_collapse: {
            if (HasNoByteUpToSpace(text)) return true;
            if (text.front() == ' ' || text.back() == ' ') return false;
            char cPrev = 'x';
            for (char c : text) {
                if (c == '\r' || c == '\t' || c == '\n' || c == '\0') return false;
                if (c == ' ' && cPrev == ' ') return false;
                cPrev = c;
            }
            return true;
        }
    }
    ThrowUnknownRule();
    return false;
}

}  // namespace OrvexXml
