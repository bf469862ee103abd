// A strict checker of JSON text: one value (RFC 8259 grammar) with optional white space
// around it, strings of well-formed UTF-8 without raw control characters, no comments, no
// NaN or Infinity, nesting bounded. For the fuzzers and tests that must tell whether a writer
// produced JSON without a parser of the library's own.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace OrvexTest {

class CJsonSyntax {
public:
    // Whether strText is exactly one JSON text.
    static bool IsValid(const std::string& strText) {
        CJsonSyntax checker(strText);
        checker.SkipSpace();
        if (!checker.Value(0)) return false;
        checker.SkipSpace();
        return checker.m_nPos == strText.size();
    }

private:
    explicit CJsonSyntax(const std::string& strText) : m_strText(strText), m_nPos(0) {}

    static const int kMaxNesting = 1000;

    int Peek() const { return m_nPos < m_strText.size() ? static_cast<unsigned char>(m_strText[m_nPos]) : -1; }
    bool Take(char c) {
        if (Peek() != static_cast<unsigned char>(c)) return false;
        ++m_nPos;
        return true;
    }
    void SkipSpace() {
        while (Peek() == ' ' || Peek() == '\t' || Peek() == '\n' || Peek() == '\r') ++m_nPos;
    }
    bool Literal(const char* psz) {
        for (; *psz; ++psz) {
            if (!Take(*psz)) return false;
        }
        return true;
    }
    bool Digits() {
        if (Peek() < '0' || Peek() > '9') return false;
        while (Peek() >= '0' && Peek() <= '9') ++m_nPos;
        return true;
    }

    bool Value(int nDepth) {
        if (nDepth > kMaxNesting) return false;
        switch (Peek()) {
            case '{':
                return Container('}', nDepth);
            case '[':
                return Container(']', nDepth);
            case '"':
                return String();
            case 't':
                return Literal("true");
            case 'f':
                return Literal("false");
            case 'n':
                return Literal("null");
            default:
                return Number();
        }
    }

    // An object (members "name": value) or an array, after its opening bracket.
    bool Container(char cClose, int nDepth) {
        ++m_nPos;
        SkipSpace();
        if (Take(cClose)) return true;
        for (;;) {
            if (cClose == '}') {
                if (!String()) return false;
                SkipSpace();
                if (!Take(':')) return false;
                SkipSpace();
            }
            if (!Value(nDepth + 1)) return false;
            SkipSpace();
            if (Take(cClose)) return true;
            if (!Take(',')) return false;
            SkipSpace();
        }
    }

    bool Number() {
        Take('-');
        if (!Take('0') && !Digits()) return false;
        if (Take('.') && !Digits()) return false;
        if (Take('e') || Take('E')) {
            if (!Take('+')) Take('-');
            if (!Digits()) return false;
        }
        return true;
    }

    bool String() {
        if (!Take('"')) return false;
        for (;;) {
            const int c = Peek();
            if (c < 0x20) return false;  // the end of the text, or a raw control character
            ++m_nPos;
            if (c == '"') return true;
            if (c == '\\') {
                const int e = Peek();
                ++m_nPos;
                if (e == 'u') {
                    for (int i = 0; i < 4; ++i) {
                        const int h = Peek();
                        ++m_nPos;
                        if (!((h >= '0' && h <= '9') || (h >= 'a' && h <= 'f') || (h >= 'A' && h <= 'F'))) return false;
                    }
                } else if (!e || !std::strchr("\"\\/bfnrt", e)) {
                    return false;
                }
            } else if (c >= 0x80 && !Utf8Tail(c)) {
                return false;
            }
        }
    }

    // The continuation bytes of a UTF-8 sequence whose lead byte c was taken; no overlong
    // forms, no surrogates, nothing above U+10FFFF.
    bool Utf8Tail(int c) {
        int nMore;
        int nLow = 0x80, nHigh = 0xBF;
        if (c >= 0xC2 && c <= 0xDF) {
            nMore = 1;
        } else if (c >= 0xE0 && c <= 0xEF) {
            nMore = 2;
            if (c == 0xE0) nLow = 0xA0;
            if (c == 0xED) nHigh = 0x9F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            nMore = 3;
            if (c == 0xF0) nLow = 0x90;
            if (c == 0xF4) nHigh = 0x8F;
        } else {
            return false;
        }
        for (int i = 0; i < nMore; ++i) {
            const int t = Peek();
            if (t < nLow || t > nHigh) return false;
            ++m_nPos;
            nLow = 0x80;
            nHigh = 0xBF;
        }
        return true;
    }

    const std::string& m_strText;
    size_t m_nPos;
};

}  // namespace OrvexTest
