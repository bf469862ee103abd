#pragma once

#include <cstddef>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// The library's text is narrow std::string in one process-wide local encoding, named by a
// Windows code page number. 65001 (UTF-8) is the default. Set it before first use.
const unsigned int ORVEXXML_CP_UTF8 = 65001;

ORVEXXML_API void SetLocalCharEncoding(unsigned int nCodePage);
ORVEXXML_API unsigned int GetLocalCharEncoding();

// Declares all text 7-bit: conversions from and to UTF-8 then copy bytes unchanged.
ORVEXXML_API void ASCIIOnly(bool bAsciiOnly);
ORVEXXML_API bool IsASCIIOnly();

// True when text in the local encoding is byte-for-byte UTF-8 (UTF-8 code page, or the
// ASCII switch on), so that readers can skip the conversion altogether.
ORVEXXML_API bool IsLocalEncodingUtf8();

// UTF-8 to local text. The scratch forms use the caller's buffers when they are large
// enough and allocate only for longer text.
// With the ASCII switch on, the bytes are copied as they are. Otherwise the text ends at an
// embedded null; with the UTF-8 code page it is copied up to there, with any other code page
// a character the code page lacks, and each invalid UTF-8 sequence, becomes the default
// character '?'.
ORVEXXML_API std::string Utf8ToLocal(const char* pszUtf8);
ORVEXXML_API std::string Utf8ToLocal(const char* pUtf8, size_t nLength);
ORVEXXML_API std::string Utf8ToLocal(const char* pszUtf8, char16_t* pWideScratch, size_t nWideCapacity,
                                     char* pNarrowScratch, size_t nNarrowCapacity);
ORVEXXML_API std::string Utf8ToLocal(const char* pUtf8, size_t nLength, char16_t* pWideScratch, size_t nWideCapacity,
                                     char* pNarrowScratch, size_t nNarrowCapacity);

// UTF-16 code units to local text; empty for length 0. All units are converted, nulls
// included. An unpaired surrogate becomes U+FFFD in UTF-8 and '?' in other code pages.
ORVEXXML_API std::string Utf16ToLocal(const char16_t* pUtf16, size_t nLength);

// Local text to UTF-16 code units through the code page, embedded null bytes included. Like
// the UTF-16 output of the streams, it ignores the ASCII switch: 7-bit text gives the same
// units either way.
ORVEXXML_API std::u16string LocalToUtf16String(const char* pLocal, size_t nLength);

// The wide entry points of the interface take wchar_t text, which is UTF-32 here; these
// convert it to and from UTF-16 code units.
ORVEXXML_API std::u16string WideToUtf16(const wchar_t* pszWide);
ORVEXXML_API std::u16string WideToUtf16(const wchar_t* pWide, size_t nLength);
ORVEXXML_API std::wstring Utf16ToWide(const char16_t* pUtf16, size_t nLength);

}  // namespace OrvexXml
