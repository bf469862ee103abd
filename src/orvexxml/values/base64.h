#pragma once

#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// The base64 codec behind CBinaryData, alphabet "A-Za-z0-9+/" with "=" padding.
//
// An object holds the state of one run (input, its length, the bits taken but not yet
// written) and serves one operation at a time; it can be reused for the next.
class ORVEXXML_API CBase64 {
public:
    CBase64();
    virtual ~CBase64();

    // The bytes as base64 text: 4 characters for each 3 bytes, the last group padded with
    // "=" to a multiple of 4. Never any line break. A length of 0 or a null pointer gives
    // the empty string.
    std::string Encode(const unsigned char* data, OxULong length);

    // Decodes the null-terminated text into out, which must have room for at least
    // strlen(text) bytes, and gives the number of bytes written.
    //
    // Each character counts without its top bit. Blanks (space, tab, CR, LF) and "=" are
    // skipped wherever they stand; the padding is not checked. Bits left over at the end
    // are dropped. Any other character outside the alphabet ends the run at once with the
    // result 0. An empty or null text gives 0.
    OxULong Decode(const char* text, unsigned char* out);

private:
    OxULong m_nInputLength;         // bytes (encoding) or characters (decoding) of the input
    int m_nBitsHeld;                // bits in m_dwBitBuffer not yet written out
    OxULong m_dwBitBuffer;          // the pending bits, in its low m_nBitsHeld bits
    const unsigned char* m_pInput;  // the input of the run
};

}  // namespace OrvexXml
