#include "orvexxml/values/base64.h"

#include <cstdint>
#include <cstring>

namespace OrvexXml {

namespace {

constexpr char g_szAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Entries of the decoding table besides the values 0 to 63. Both have a bit above the six
// value bits set, so that one test over several entries finds any character that is not
// in the alphabet.
constexpr unsigned char DECODE_SKIP = 0x40;
constexpr unsigned char DECODE_INVALID = 0x80;
constexpr unsigned char DECODE_NOT_A_DIGIT = DECODE_SKIP | DECODE_INVALID;

// Indexed by a character with its top bit removed.
struct CDecodeTable {
    unsigned char m_values[128];
};

constexpr CDecodeTable MakeDecodeTable() {
    CDecodeTable table{};
    for (int i = 0; i < 128; ++i) table.m_values[i] = DECODE_INVALID;
    for (int i = 0; i < 64; ++i)
        table.m_values[static_cast<unsigned char>(g_szAlphabet[i])] = static_cast<unsigned char>(i);
    table.m_values[static_cast<unsigned char>(' ')] = DECODE_SKIP;
    table.m_values[static_cast<unsigned char>('\t')] = DECODE_SKIP;
    table.m_values[static_cast<unsigned char>('\r')] = DECODE_SKIP;
    table.m_values[static_cast<unsigned char>('\n')] = DECODE_SKIP;
    table.m_values[static_cast<unsigned char>('=')] = DECODE_SKIP;
    return table;
}

constexpr CDecodeTable g_decode = MakeDecodeTable();

inline unsigned char DecodeChar(unsigned char c) { return g_decode.m_values[c & 0x7F]; }

}  // namespace

CBase64::CBase64() : m_nInputLength(0), m_nBitsHeld(0), m_dwBitBuffer(0), m_pInput(nullptr) {}

CBase64::~CBase64() {}

std::string CBase64::Encode(const unsigned char* data, OxULong length) {
    m_pInput = data;
    m_nInputLength = length;
    m_nBitsHeld = 0;
    m_dwBitBuffer = 0;
    if (data == nullptr || length == 0) return std::string();

    // 4 characters for each started group of 3 bytes. The text starts as all padding and
    // is overwritten from the front, so the padding of the last group is what is left.
    const size_t nWholeGroups = length / 3;
    const size_t nRest = length % 3;
    std::string text((nWholeGroups + (nRest != 0 ? 1 : 0)) * 4, '=');
    char* pOut = &text[0];
    const unsigned char* p = data;

    for (size_t i = 0; i < nWholeGroups; ++i, p += 3, pOut += 4) {
        const uint32_t dwGroup = (static_cast<uint32_t>(p[0]) << 16) | (static_cast<uint32_t>(p[1]) << 8) | p[2];
        pOut[0] = g_szAlphabet[dwGroup >> 18];
        pOut[1] = g_szAlphabet[(dwGroup >> 12) & 0x3F];
        pOut[2] = g_szAlphabet[(dwGroup >> 6) & 0x3F];
        pOut[3] = g_szAlphabet[dwGroup & 0x3F];
    }

    // The last one or two bytes, filled with zero bits on the right to whole characters.
    if (nRest != 0) {
        m_dwBitBuffer = static_cast<uint32_t>(p[0]) << 16;
        if (nRest == 2) m_dwBitBuffer |= static_cast<uint32_t>(p[1]) << 8;
        pOut[0] = g_szAlphabet[m_dwBitBuffer >> 18];
        pOut[1] = g_szAlphabet[(m_dwBitBuffer >> 12) & 0x3F];
        if (nRest == 2) pOut[2] = g_szAlphabet[(m_dwBitBuffer >> 6) & 0x3F];
        m_dwBitBuffer = 0;
    }
    return text;
}

OxULong CBase64::Decode(const char* text, unsigned char* out) {
    m_pInput = reinterpret_cast<const unsigned char*>(text);
    m_nInputLength = 0;
    m_nBitsHeld = 0;
    m_dwBitBuffer = 0;
    if (text == nullptr || *text == '\0') return 0;

    const size_t nLength = std::strlen(text);
    m_nInputLength = static_cast<OxULong>(nLength);
    const unsigned char* p = m_pInput;
    const unsigned char* const pEnd = p + nLength;
    unsigned char* pOut = out;
    int nBitsHeld = 0;
    uint32_t dwBits = 0;

    while (p < pEnd) {
        // At a group boundary, four alphabet characters in a row make three bytes at once;
        // anything else (a skipped or invalid character, the end) goes one by one below.
        if (nBitsHeld == 0) {
            while (pEnd - p >= 4) {
                const uint32_t a = DecodeChar(p[0]);
                const uint32_t b = DecodeChar(p[1]);
                const uint32_t c = DecodeChar(p[2]);
                const uint32_t d = DecodeChar(p[3]);
                if ((a | b | c | d) & DECODE_NOT_A_DIGIT) break;
                const uint32_t dwGroup = (a << 18) | (b << 12) | (c << 6) | d;
                pOut[0] = static_cast<unsigned char>(dwGroup >> 16);
                pOut[1] = static_cast<unsigned char>(dwGroup >> 8);
                pOut[2] = static_cast<unsigned char>(dwGroup);
                pOut += 3;
                p += 4;
            }
            if (p == pEnd) break;
        }

        const unsigned char value = DecodeChar(*p++);
        if (value == DECODE_SKIP) continue;
        if (value == DECODE_INVALID) {
            m_pInput = p - 1;
            return 0;
        }
        dwBits = (dwBits << 6) | value;
        nBitsHeld += 6;
        if (nBitsHeld >= 8) {
            nBitsHeld -= 8;
            *pOut++ = static_cast<unsigned char>(dwBits >> nBitsHeld);
            dwBits &= (1u << nBitsHeld) - 1;
        }
    }

    // Fewer than 8 bits may be left; they make no byte and are dropped.
    m_pInput = p;
    m_nBitsHeld = nBitsHeld;
    m_dwBitBuffer = dwBits;
    return static_cast<OxULong>(pOut - out);
}

}  // namespace OrvexXml
