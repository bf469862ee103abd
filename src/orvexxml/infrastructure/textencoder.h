#pragma once

#include <cstddef>
#include <memory>

#include "orvexxml/export.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXml {

// Conversions of text into the bytes that leave the library: UTF-8, or UTF-16 in little-endian
// code units. The results hold no byte order mark and no terminator, and are allocated to their
// exact length. Empty input gives the empty CBinaryData. A result longer than
// CBinaryData::MAX_LENGTH throws COxOverFlowException before it is allocated.

// UTF-16 code units to UTF-8. A surrogate pair gives four bytes, every other unit one to three
// bytes by its value. At an unpaired surrogate the conversion stops: the text ends there.
// The null-terminated form reads up to the first null unit; the counted form converts nLength
// units, stopping only at an unpaired surrogate.
ORVEXXML_API CBinaryData Utf16ToUtf8(const char16_t* pszUtf16);
ORVEXXML_API CBinaryData Utf16ToUtf8(const char16_t* pUtf16, size_t nLength);

// The wide form. wchar_t holds UTF-32 here, so each unit is one character. For text carried
// over from a platform with 16-bit wchar_t, a high surrogate followed by a low surrogate is
// also taken as one character. The conversion stops, as in the UTF-16 forms, at any other
// surrogate value and at a value beyond U+10FFFF.
ORVEXXML_API CBinaryData Utf16ToUtf8(const wchar_t* pszWide);

// Local text (the current code page) to UTF-8.
// - With the ASCII switch on, or with the UTF-8 code page, the bytes are copied as they are:
//   local text is UTF-8 already, and no decoder runs.
// - Otherwise the text goes through the code page to UTF-16 and from there to UTF-8. 7-bit text
//   is copied, since every code page offered maps 0x00-0x7F to the same characters.
// The counted form takes nLength bytes; a null byte inside them is converted like any other.
ORVEXXML_API CBinaryData LocalToUtf8(const char* pszLocal);
ORVEXXML_API CBinaryData LocalToUtf8(const char* pLocal, size_t nLength);

// Local text to UTF-16, two bytes per code unit, low byte first. Always through the code page,
// whatever the ASCII switch says; for 7-bit text both give the same units. Bytes that are no
// valid sequence of the code page become U+FFFD, each maximal ill-formed part once.
ORVEXXML_API CBinaryData LocalToUtf16(const char* pszLocal);
ORVEXXML_API CBinaryData LocalToUtf16(const char* pLocal, size_t nLength);

// For the library's own streams, not exported: a new[] array for an output of nLength bytes
// (its memory asked for in huge pages where the system offers them, since it is written once
// from end to end right away), the same advice for memory the caller allocated, and the hand-over
// of such an array to a CBinaryData without another copy.
std::unique_ptr<unsigned char[]> AllocateResult(size_t nLength);
void AdviseHugePages(void* pData, size_t nLength);
CBinaryData TakeOver(std::unique_ptr<unsigned char[]>& spData, size_t nLength);

}  // namespace OrvexXml
