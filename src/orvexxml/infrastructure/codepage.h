#pragma once

#include <cstddef>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// Conversions between text in a Windows code page, named by its number, and UTF-16 code
// units: the counterparts of MultiByteToWideChar and WideCharToMultiByte called with flags 0.
//
// 65001 (UTF-8) is converted by the library itself. The other code pages are served by the
// platform's iconv under the name that GetPlatformName gives. Every code page offered maps
// the bytes 0x00-0x7F to U+0000-U+007F, so text of 7-bit characters is copied without a
// call to iconv.
//
// Substitutions, made one by one and never by approximation:
// - to a code page: a character that the code page lacks, and an unpaired surrogate, become
//   the code page's default character '?'; in UTF-8 an unpaired surrogate becomes U+FFFD;
// - to UTF-16: a byte sequence that is not valid in the code page becomes U+FFFD, one for
//   each maximal ill-formed part.
//
// The iconv descriptors are cached per thread, so the conversions may run on any number of
// threads at once.
class ORVEXXML_API CCodePage {
public:
    // Windows names the process's ANSI code page with CP_ACP (0) or CP_THREAD_ACP (3). Here
    // that code page is UTF-8, so both resolve to 65001; every other number stands for itself.
    static unsigned int Resolve(unsigned int nCodePage);

    // The iconv name of a code page, "UTF-8" for 65001, null for a number the library does not
    // know. Aliases are not resolved here.
    static const char* GetPlatformName(unsigned int nCodePage);

    // Throws COxException when the code page is unknown or can't be had on this system,
    // for instance because the system lacks the iconv module.
    static void CheckAvailable(unsigned int nCodePage);

    // Converts nLength bytes of code page text into UTF-16 units. With a null pDst or a zero
    // capacity nothing is written and the result is the number of units the text needs;
    // otherwise the result is the number of units written, and a buffer that is too small
    // throws COxException. Embedded null bytes are converted like any other.
    static size_t MultiByteToWideChar(unsigned int nCodePage, const char* pSrc, size_t nLength, char16_t* pDst,
                                      size_t nDstCapacity);

    // Converts nLength UTF-16 units into code page bytes, with the same conventions.
    static size_t WideCharToMultiByte(unsigned int nCodePage, const char16_t* pSrc, size_t nLength, char* pDst,
                                      size_t nDstCapacity);

    // Both directions into a string of exactly the converted length.
    static std::u16string ToUtf16(unsigned int nCodePage, const char* pSrc, size_t nLength);
    static std::string FromUtf16(unsigned int nCodePage, const char16_t* pSrc, size_t nLength);
};

}  // namespace OrvexXml
