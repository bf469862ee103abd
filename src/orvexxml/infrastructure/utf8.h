// UTF-8 decoding shared by the code page layer and the encoders. Internal to the library.
#pragma once

#include <cstddef>
#include <cstdint>

namespace OrvexXml {

const uint32_t UNICODE_REPLACEMENT_CHARACTER = 0xFFFD;

// Decodes the sequence that starts at p[i] with a byte of 0x80 or above, and moves i past it.
// An ill-formed sequence (a stray byte, an overlong form, an encoded surrogate, a value above
// U+10FFFF, or a sequence cut short) gives U+FFFD for its maximal ill-formed part.
inline uint32_t DecodeUtf8Sequence(const unsigned char* p, size_t nLength, size_t& i) {
    const unsigned int c = p[i];
    size_t nTrail;
    unsigned int nLow = 0x80;   // range of the first trail byte, which rules out
    unsigned int nHigh = 0xBF;  // overlong forms, surrogates and values past U+10FFFF
    uint32_t nValue;
    if (c >= 0xC2 && c <= 0xDF) {
        nTrail = 1;
        nValue = c & 0x1F;
    } else if (c >= 0xE0 && c <= 0xEF) {
        nTrail = 2;
        nValue = c & 0x0F;
        if (c == 0xE0)
            nLow = 0xA0;  // overlong below U+0800
        else if (c == 0xED)
            nHigh = 0x9F;  // surrogates
    } else if (c >= 0xF0 && c <= 0xF4) {
        nTrail = 3;
        nValue = c & 0x07;
        if (c == 0xF0)
            nLow = 0x90;  // overlong below U+10000
        else if (c == 0xF4)
            nHigh = 0x8F;  // above U+10FFFF
    } else {
        ++i;
        return UNICODE_REPLACEMENT_CHARACTER;
    }
    size_t k = 1;
    for (; k <= nTrail; ++k) {
        if (i + k >= nLength) break;
        const unsigned int t = p[i + k];
        if (t < nLow || t > nHigh) break;
        nLow = 0x80;
        nHigh = 0xBF;
        nValue = (nValue << 6) | (t & 0x3F);
    }
    i += k;
    return k <= nTrail ? UNICODE_REPLACEMENT_CHARACTER : nValue;
}

}  // namespace OrvexXml
