// A small builder of Fast Infoset octets for the tests: it writes the bit layouts of
// ITU-T X.891 item by item, independently of the library, so that a document can hold forms
// that the library's writer never produces.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace OrvexFiTest {

class CFiBuilder {
public:
    std::vector<unsigned char> m_octets;

    CFiBuilder& Octets(std::initializer_list<unsigned> octets) {
        for (unsigned o : octets) m_octets.push_back(static_cast<unsigned char>(o));
        return *this;
    }
    CFiBuilder& Raw(const std::string& str) {
        m_octets.insert(m_octets.end(), str.begin(), str.end());
        return *this;
    }
    // Identification and version, then the octet of the optional components.
    CFiBuilder& Header(unsigned byComponents = 0) { return Octets({0xE0, 0x00, 0x00, 0x01, byComponents}); }

    // Non-empty octet string on the second bit; byHigh holds the first bit.
    CFiBuilder& OctetsBit2(unsigned byHigh, const std::string& str) {
        size_t n = str.size();
        if (n <= 64)
            Octets({byHigh | unsigned(n - 1)});
        else if (n <= 320)
            Octets({byHigh | 0x40, unsigned(n - 65)});
        else
            Octets({byHigh | 0x60}).Int32(uint32_t(n - 321));
        return Raw(str);
    }
    // Non-empty octet string on the fifth bit; byHigh holds the first four bits.
    CFiBuilder& OctetsBit5(unsigned byHigh, const std::string& str) {
        size_t n = str.size();
        if (n <= 8)
            Octets({byHigh | unsigned(n - 1)});
        else if (n <= 264)
            Octets({byHigh | 0x08, unsigned(n - 9)});
        else
            Octets({byHigh | 0x0C}).Int32(uint32_t(n - 265));
        return Raw(str);
    }
    // Non-empty octet string on the seventh bit; byHigh holds the first six bits.
    CFiBuilder& OctetsBit7(unsigned byHigh, const std::string& str) {
        size_t n = str.size();
        if (n <= 2)
            Octets({byHigh | unsigned(n - 1)});
        else if (n <= 258)
            Octets({byHigh | 0x02, unsigned(n - 3)});
        else
            Octets({byHigh | 0x03}).Int32(uint32_t(n - 259));
        return Raw(str);
    }
    // Integers 1 to 2^20 on the second, third and fourth bit.
    CFiBuilder& IntBit2(unsigned byHigh, uint32_t n) {
        if (n <= 64) return Octets({byHigh | (n - 1)});
        if (n <= 8256) return Octets({byHigh | 0x40 | ((n - 65) >> 8), (n - 65) & 0xFF});
        n -= 8257;
        return Octets({byHigh | 0x60 | (n >> 16), (n >> 8) & 0xFF, n & 0xFF});
    }
    CFiBuilder& IntBit3(unsigned byHigh, uint32_t n) {
        if (n <= 32) return Octets({byHigh | (n - 1)});
        if (n <= 2080) return Octets({byHigh | 0x20 | ((n - 33) >> 8), (n - 33) & 0xFF});
        if (n <= 526368) {
            n -= 2081;
            return Octets({byHigh | 0x28 | (n >> 16), (n >> 8) & 0xFF, n & 0xFF});
        }
        n -= 526369;
        return Octets({byHigh | 0x30, n >> 16, (n >> 8) & 0xFF, n & 0xFF});
    }
    CFiBuilder& IntBit4(unsigned byHigh, uint32_t n) {
        if (n <= 16) return Octets({byHigh | (n - 1)});
        if (n <= 1040) return Octets({byHigh | 0x10 | ((n - 17) >> 8), (n - 17) & 0xFF});
        if (n <= 263184) {
            n -= 1041;
            return Octets({byHigh | 0x14 | (n >> 16), (n >> 8) & 0xFF, n & 0xFF});
        }
        n -= 263185;
        return Octets({byHigh | 0x18, n >> 16, (n >> 8) & 0xFF, n & 0xFF});
    }
    CFiBuilder& Int32(uint32_t n) { return Octets({n >> 24, (n >> 16) & 0xFF, (n >> 8) & 0xFF, n & 0xFF}); }

    // An identifying string: literal, or index with the first bit set.
    CFiBuilder& IdLiteral(const std::string& str) { return OctetsBit2(0x00, str); }
    CFiBuilder& IdIndex(uint32_t n) { return IntBit2(0x80, n); }

    // An element with a literal name; the literal parts follow the first octet.
    CFiBuilder& ElementLiteral(bool bAttributes, const std::string& strLocal, const std::string& strNs = "",
                               const std::string& strPrefix = "") {
        unsigned by = (bAttributes ? 0x40 : 0) | 0x3C | (strPrefix.empty() ? 0 : 2) | (strNs.empty() ? 0 : 1);
        Octets({by});
        if (!strPrefix.empty()) IdLiteral(strPrefix);
        if (!strNs.empty()) IdLiteral(strNs);
        return IdLiteral(strLocal);
    }
    CFiBuilder& ElementIndex(bool bAttributes, uint32_t n) { return IntBit3(bAttributes ? 0x40 : 0, n); }
    CFiBuilder& AttributeLiteral(const std::string& strLocal, const std::string& strNs = "",
                                 const std::string& strPrefix = "") {
        Octets({0x78u | (strPrefix.empty() ? 0 : 2) | (strNs.empty() ? 0 : 1)});
        if (!strPrefix.empty()) IdLiteral(strPrefix);
        if (!strNs.empty()) IdLiteral(strNs);
        return IdLiteral(strLocal);
    }
    CFiBuilder& AttributeIndex(uint32_t n) { return IntBit2(0x00, n); }
    // Attribute values: a UTF-8 literal, an index, the empty value (index 0).
    CFiBuilder& ValueLiteral(const std::string& str, bool bAdd = false) { return OctetsBit5(bAdd ? 0x40 : 0, str); }
    CFiBuilder& ValueIndex(uint32_t n) { return IntBit2(0x80, n); }
    CFiBuilder& ValueEmpty() { return Octets({0xFF}); }
    // Character chunks: UTF-8 literal, index, by algorithm, by restricted alphabet.
    CFiBuilder& Chunk(const std::string& str, bool bAdd = false) { return OctetsBit7(bAdd ? 0x90 : 0x80, str); }
    CFiBuilder& ChunkIndex(uint32_t n) { return IntBit4(0xA0, n); }
    CFiBuilder& ChunkEncoded(bool bAlgorithm, uint32_t nIndex, const std::string& octets) {
        Octets({(bAlgorithm ? 0x8Cu : 0x88u) | ((nIndex - 1) >> 6)});
        return OctetsBit7(((nIndex - 1) << 2) & 0xFC, octets);
    }
    CFiBuilder& End() { return Octets({0xF0}); }
    CFiBuilder& EndTwo() { return Octets({0xFF}); }

    std::string Str() const { return std::string(m_octets.begin(), m_octets.end()); }
};

}  // namespace OrvexFiTest
