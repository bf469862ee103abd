#include "namerules.h"

#include <cctype>
#include <cstdio>
#include <vector>

namespace OrvexXsd {

static bool IsAsciiAlnum(unsigned char c) { return c < 0x80 && std::isalnum(c); }

// The code point of the UTF-8 sequence at a position, and its length.
static unsigned DecodeUtf8(const std::string& strText, size_t nAt, size_t& nLength) {
    const unsigned char c = static_cast<unsigned char>(strText[nAt]);
    unsigned nCode = c;
    nLength = 1;
    if (c >= 0xF0) {
        nCode = c & 0x07;
        nLength = 4;
    } else if (c >= 0xE0) {
        nCode = c & 0x0F;
        nLength = 3;
    } else if (c >= 0xC0) {
        nCode = c & 0x1F;
        nLength = 2;
    }
    for (size_t i = 1; i < nLength; ++i) {
        if (nAt + i >= strText.size()) {
            nLength = i;
            break;
        }
        nCode = (nCode << 6) | (static_cast<unsigned char>(strText[nAt + i]) & 0x3F);
    }
    return nCode;
}

std::string CNameRules::Word(const std::string& strXmlName) {
    std::string strWord;
    bool bStart = true;
    for (size_t i = 0; i < strXmlName.size();) {
        const unsigned char c = static_cast<unsigned char>(strXmlName[i]);
        if (IsAsciiAlnum(c)) {
            strWord += bStart ? static_cast<char>(std::toupper(c)) : static_cast<char>(c);
            bStart = false;
            ++i;
        } else if (c >= 0x80) {
            size_t nLength = 1;
            char szCode[16];
            std::snprintf(szCode, sizeof szCode, "U%04X", DecodeUtf8(strXmlName, i, nLength));
            strWord += szCode;
            bStart = false;
            i += nLength;
        } else {
            bStart = true;
            ++i;
        }
    }
    if (strWord.empty()) return "X";
    // An identifier can't begin with a digit.
    return std::isdigit(static_cast<unsigned char>(strWord[0])) ? "N" + strWord : strWord;
}

std::string CNameRules::EnumTail(const std::string& strValue) {
    std::string strTail;
    for (size_t i = 0; i < strValue.size();) {
        const unsigned char c = static_cast<unsigned char>(strValue[i]);
        if (IsAsciiAlnum(c) || c == '_') {
            strTail += static_cast<char>(c);
            ++i;
        } else if (c >= 0x80) {
            size_t nLength = 1;
            char szCode[16];
            std::snprintf(szCode, sizeof szCode, "U%04X", DecodeUtf8(strValue, i, nLength));
            strTail += szCode;
            i += nLength;
        } else {
            strTail += '_';
            ++i;
        }
    }
    return strTail.empty() ? "empty" : strTail;
}

std::string CNameRules::LowerFirst(const std::string& strWord) {
    std::string strResult = strWord;
    if (!strResult.empty()) strResult[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(strResult[0])));
    if (IsKeyword(strResult)) strResult += "_";
    return strResult;
}

std::string CNameRules::Lower(const std::string& strText) {
    std::string strResult = strText;
    for (char& c : strResult) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return strResult;
}

bool CNameRules::IsKeyword(const std::string& strWord) {
    static const std::set<std::string> s_setKeywords = {
        "alignas",   "alignof",  "and",      "and_eq",    "asm",          "auto",          "bitand",
        "bitor",     "bool",     "break",    "case",      "catch",        "char",          "char16_t",
        "char32_t",  "class",    "compl",    "const",     "constexpr",    "const_cast",    "continue",
        "decltype",  "default",  "delete",   "do",        "double",       "dynamic_cast",  "else",
        "enum",      "explicit", "export",   "extern",    "false",        "float",         "for",
        "friend",    "goto",     "if",       "inline",    "int",          "long",          "mutable",
        "namespace", "new",      "noexcept", "not",       "not_eq",       "nullptr",       "operator",
        "or",        "or_eq",    "private",  "protected", "public",       "register",      "reinterpret_cast",
        "return",    "short",    "signed",   "sizeof",    "static",       "static_assert", "static_cast",
        "struct",    "switch",   "template", "this",      "thread_local", "throw",         "true",
        "try",       "typedef",  "typeid",   "typename",  "union",        "unsigned",      "using",
        "virtual",   "void",     "volatile", "wchar_t",   "while",        "xor",           "xor_eq",
        "preserve",  "collapse", "replace",  "NS",        "builder",      "value"};
    return s_setKeywords.count(strWord) != 0;
}

std::string CNameRules::NamespaceFor(const std::string& strTargetNamespace) {
    // Split at the URI separators and take the last step that holds a letter.
    std::vector<std::string> vecSteps;
    std::string strStep;
    for (char c : strTargetNamespace) {
        if (c == '/' || c == ':' || c == '#' || c == '?' || c == '=') {
            vecSteps.push_back(strStep);
            strStep.clear();
        } else {
            strStep += c;
        }
    }
    vecSteps.push_back(strStep);
    for (auto it = vecSteps.rbegin(); it != vecSteps.rend(); ++it) {
        std::string strCandidate = *it;
        const size_t nDot = strCandidate.rfind('.');
        if (nDot != std::string::npos && strCandidate.substr(nDot) == ".xsd") strCandidate.resize(nDot);
        for (char c : strCandidate) {
            if (std::isalpha(static_cast<unsigned char>(c))) return Word(strCandidate);
        }
    }
    return "Schema";
}

std::string CNameTable::Take(const std::string& strName) {
    std::string strCandidate = strName;
    for (int n = 2; Has(strCandidate); ++n) strCandidate = strName + std::to_string(n);
    m_setTaken.insert(CNameRules::Lower(strCandidate));
    return strCandidate;
}

bool CNameTable::Has(const std::string& strName) const { return m_setTaken.count(CNameRules::Lower(strName)) != 0; }

}  // namespace OrvexXsd
