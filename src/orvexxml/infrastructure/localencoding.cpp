#include "orvexxml/infrastructure/localencoding.h"

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <memory>

#include "orvexxml/infrastructure/codepage.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

static_assert(sizeof(wchar_t) == 4, "the wide entry points expect wchar_t to hold UTF-32");

namespace {

// The two process-wide settings. Plain variables, constant-initialised, set before first use.
unsigned int g_nLocalCodePage = ORVEXXML_CP_UTF8;
bool g_bAsciiOnly = false;

// A buffer of at least nNeeded elements: the caller's scratch when it is large enough,
// otherwise a temporary that lives as long as this object.
template <class T>
class CScratchBuffer {
public:
    CScratchBuffer(T* pScratch, size_t nCapacity, size_t nNeeded) {
        if (pScratch != nullptr && nCapacity >= nNeeded) {
            m_pBuffer = pScratch;
        } else {
            m_temporary.reset(new T[nNeeded]);
            m_pBuffer = m_temporary.get();
        }
    }
    T* Get() const { return m_pBuffer; }

private:
    T* m_pBuffer;
    std::unique_ptr<T[]> m_temporary;
};

bool HasNonAscii(const char* p, size_t nLength) {
    for (size_t i = 0; i < nLength; ++i) {
        if (static_cast<unsigned char>(p[i]) >= 0x80) return true;
    }
    return false;
}

std::string ConvertUtf8ToLocal(const char* pUtf8, size_t nLength, char16_t* pWideScratch, size_t nWideCapacity,
                               char* pNarrowScratch, size_t nNarrowCapacity) {
    if (g_bAsciiOnly) return std::string(pUtf8, nLength);
    if (nLength == 0) return std::string();

    const unsigned int nCodePage = g_nLocalCodePage;
    if (nCodePage == ORVEXXML_CP_UTF8) {
        // UTF-8 to UTF-8 is the identity; like every conversion it ends at an embedded null.
        const void* pNull = std::memchr(pUtf8, 0, nLength);
        return std::string(pUtf8, pNull != nullptr ? static_cast<const char*>(pNull) - pUtf8 : nLength);
    }

    // A UTF-8 byte gives at most one UTF-16 unit, so length + 1 units hold the text and its
    // terminator.
    CScratchBuffer<char16_t> wide(pWideScratch, nWideCapacity, nLength + 1);
    size_t nWide;
    if (HasNonAscii(pUtf8, nLength)) {
        nWide = CCodePage::MultiByteToWideChar(ORVEXXML_CP_UTF8, pUtf8, nLength, wide.Get(), nLength);
    } else {
        for (size_t i = 0; i < nLength; ++i) wide.Get()[i] = static_cast<char16_t>(pUtf8[i]);
        nWide = nLength;
    }
    wide.Get()[nWide] = 0;

    const size_t nNarrow = CCodePage::WideCharToMultiByte(nCodePage, wide.Get(), nWide, nullptr, 0);
    CScratchBuffer<char> narrow(pNarrowScratch, nNarrowCapacity, nNarrow + 1);
    if (nNarrow > 0) CCodePage::WideCharToMultiByte(nCodePage, wide.Get(), nWide, narrow.Get(), nNarrow);
    narrow.Get()[nNarrow] = '\0';
    return std::string(narrow.Get());
}

bool IsHighSurrogate(uint32_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool IsLowSurrogate(uint32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

}  // namespace

void SetLocalCharEncoding(unsigned int nCodePage) {
    const unsigned int nResolved = CCodePage::Resolve(nCodePage);
    try {
        CCodePage::CheckAvailable(nResolved);
    } catch (const COxException& e) {
        throw COxException(FormatString("The local character encoding can not be set to the code page %u", nCodePage),
                           e);
    }
    g_nLocalCodePage = nResolved;
}

unsigned int GetLocalCharEncoding() { return g_nLocalCodePage; }

void ASCIIOnly(bool bAsciiOnly) { g_bAsciiOnly = bAsciiOnly; }

bool IsASCIIOnly() { return g_bAsciiOnly; }

bool IsLocalEncodingUtf8() { return g_bAsciiOnly || g_nLocalCodePage == ORVEXXML_CP_UTF8; }

std::string Utf8ToLocal(const char* pszUtf8) {
    if (pszUtf8 == nullptr) return std::string();
    return ConvertUtf8ToLocal(pszUtf8, std::strlen(pszUtf8), nullptr, 0, nullptr, 0);
}

std::string Utf8ToLocal(const char* pUtf8, size_t nLength) {
    if (pUtf8 == nullptr) return std::string();
    return ConvertUtf8ToLocal(pUtf8, nLength, nullptr, 0, nullptr, 0);
}

std::string Utf8ToLocal(const char* pszUtf8, char16_t* pWideScratch, size_t nWideCapacity, char* pNarrowScratch,
                        size_t nNarrowCapacity) {
    if (pszUtf8 == nullptr) return std::string();
    return ConvertUtf8ToLocal(pszUtf8, std::strlen(pszUtf8), pWideScratch, nWideCapacity, pNarrowScratch,
                              nNarrowCapacity);
}

std::string Utf8ToLocal(const char* pUtf8, size_t nLength, char16_t* pWideScratch, size_t nWideCapacity,
                        char* pNarrowScratch, size_t nNarrowCapacity) {
    if (pUtf8 == nullptr) return std::string();
    return ConvertUtf8ToLocal(pUtf8, nLength, pWideScratch, nWideCapacity, pNarrowScratch, nNarrowCapacity);
}

std::string Utf16ToLocal(const char16_t* pUtf16, size_t nLength) {
    if (pUtf16 == nullptr || nLength == 0) return std::string();
    return CCodePage::FromUtf16(g_nLocalCodePage, pUtf16, nLength);
}

std::u16string LocalToUtf16String(const char* pLocal, size_t nLength) {
    if (pLocal == nullptr || nLength == 0) return std::u16string();
    return CCodePage::ToUtf16(g_nLocalCodePage, pLocal, nLength);
}

std::u16string WideToUtf16(const wchar_t* pszWide) {
    if (pszWide == nullptr) return std::u16string();
    return WideToUtf16(pszWide, std::wcslen(pszWide));
}

std::u16string WideToUtf16(const wchar_t* pWide, size_t nLength) {
    std::u16string result;
    if (pWide == nullptr) return result;
    result.reserve(nLength);
    for (size_t i = 0; i < nLength; ++i) {
        uint32_t c = static_cast<uint32_t>(pWide[i]);
        // A surrogate value or one beyond U+10FFFF is no character in UTF-32.
        if (c > 0x10FFFF || IsHighSurrogate(c) || IsLowSurrogate(c)) c = 0xFFFD;
        if (c >= 0x10000) {
            c -= 0x10000;
            result.push_back(static_cast<char16_t>(0xD800 + (c >> 10)));
            result.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
        } else {
            result.push_back(static_cast<char16_t>(c));
        }
    }
    return result;
}

std::wstring Utf16ToWide(const char16_t* pUtf16, size_t nLength) {
    std::wstring result;
    if (pUtf16 == nullptr) return result;
    result.reserve(nLength);
    for (size_t i = 0; i < nLength; ++i) {
        uint32_t u = pUtf16[i];
        if (IsHighSurrogate(u) && i + 1 < nLength && IsLowSurrogate(pUtf16[i + 1])) {
            u = 0x10000 + ((u - 0xD800) << 10) + (pUtf16[i + 1] - 0xDC00);
            ++i;
        } else if (IsHighSurrogate(u) || IsLowSurrogate(u)) {
            u = 0xFFFD;
        }
        result.push_back(static_cast<wchar_t>(u));
    }
    return result;
}

}  // namespace OrvexXml
