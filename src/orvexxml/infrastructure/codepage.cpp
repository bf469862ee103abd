#include "orvexxml/infrastructure/codepage.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <optional>
#include <type_traits>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/perthread.h"
#include "orvexxml/infrastructure/utf8.h"

namespace OrvexXml {

namespace {

const unsigned int CP_ACP_ALIAS = 0;
const unsigned int CP_THREAD_ACP_ALIAS = 3;
const unsigned int CP_UTF8_NUMBER = 65001;

const char16_t REPLACEMENT_CHARACTER = 0xFFFD;
const char DEFAULT_CHARACTER = '?';

// Windows code page numbers and the iconv names of the same encodings. All of them are
// supersets of US-ASCII in their first 128 bytes.
struct SCodePageName {
    unsigned int nCodePage;
    const char* pszName;
};

const SCodePageName s_codePageNames[] = {
    {437, "CP437"},
    {850, "CP850"},
    {866, "CP866"},
    {874, "CP874"},
    {932, "CP932"},
    {936, "CP936"},
    {949, "CP949"},
    {950, "CP950"},
    {1250, "CP1250"},
    {1251, "CP1251"},
    {1252, "CP1252"},
    {1253, "CP1253"},
    {1254, "CP1254"},
    {1255, "CP1255"},
    {1256, "CP1256"},
    {1257, "CP1257"},
    {1258, "CP1258"},
    {20127, "US-ASCII"},
    {20866, "KOI8-R"},
    {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},
    {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},
    {28595, "ISO-8859-5"},
    {28596, "ISO-8859-6"},
    {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},
    {28599, "ISO-8859-9"},
    {28603, "ISO-8859-13"},
    {28605, "ISO-8859-15"},
    {51932, "EUC-JP"},
    {51949, "EUC-KR"},
    {54936, "GB18030"},
    {CP_UTF8_NUMBER, "UTF-8"},
};

// iconv's name for UTF-16 in the byte order of char16_t in memory, without a byte order mark.
#if defined(__BYTE_ORDER__) && defined(__ORDER_BIG_ENDIAN__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
const char s_szNativeUtf16[] = "UTF-16BE";
#else
const char s_szNativeUtf16[] = "UTF-16LE";
#endif

bool IsHighSurrogate(uint32_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool IsLowSurrogate(uint32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

[[noreturn]] void ThrowUnknown(unsigned int nCodePage) {
    throw COxException(FormatString("The code page %u is not supported", nCodePage));
}

[[noreturn]] void ThrowBufferTooSmall() {
    throw COxException("The converted text does not fit into the buffer given for it");
}

const char* FindName(unsigned int nCodePage) {
    for (const SCodePageName& entry : s_codePageNames) {
        if (entry.nCodePage == nCodePage) return entry.pszName;
    }
    return nullptr;
}

// The destination of a conversion: counts only when it has no buffer, otherwise writes and
// refuses to go beyond the capacity.
template <class T>
class CSink {
public:
    CSink(T* pDst, size_t nCapacity) : m_pDst(nCapacity > 0 ? pDst : nullptr), m_nCapacity(nCapacity), m_nCount(0) {}

    void Put(T c) {
        if (m_pDst != nullptr) {
            if (m_nCount == m_nCapacity) ThrowBufferTooSmall();
            m_pDst[m_nCount] = c;
        }
        ++m_nCount;
    }
    size_t GetCount() const { return m_nCount; }

private:
    T* m_pDst;
    size_t m_nCapacity;
    size_t m_nCount;
};

// Text that consists of 7-bit units only: converted by copying in every code page offered.
template <class T>
bool IsAscii(const T* p, size_t nLength) {
    for (size_t i = 0; i < nLength; ++i) {
        if (static_cast<uint32_t>(static_cast<typename std::make_unsigned<T>::type>(p[i])) >= 0x80) return false;
    }
    return true;
}

template <class TFrom, class TTo>
size_t CopyAscii(const TFrom* pSrc, size_t nLength, TTo* pDst, size_t nDstCapacity) {
    if (pDst == nullptr || nDstCapacity == 0) return nLength;
    if (nDstCapacity < nLength) ThrowBufferTooSmall();
    for (size_t i = 0; i < nLength; ++i) pDst[i] = static_cast<TTo>(pSrc[i]);
    return nLength;
}

// UTF-8 to UTF-16. Each maximal part of an ill-formed sequence becomes one U+FFFD: overlong
// forms, encoded surrogates and values above U+10FFFF are ill-formed.
size_t DecodeUtf8(const unsigned char* p, size_t nLength, CSink<char16_t>& sink) {
    size_t i = 0;
    while (i < nLength) {
        const unsigned int c = p[i];
        if (c < 0x80) {
            sink.Put(static_cast<char16_t>(c));
            ++i;
            continue;
        }
        uint32_t nValue = DecodeUtf8Sequence(p, nLength, i);
        if (nValue >= 0x10000) {
            nValue -= 0x10000;
            sink.Put(static_cast<char16_t>(0xD800 + (nValue >> 10)));
            sink.Put(static_cast<char16_t>(0xDC00 + (nValue & 0x3FF)));
        } else {
            sink.Put(static_cast<char16_t>(nValue));
        }
    }
    return sink.GetCount();
}

// UTF-16 to UTF-8. A surrogate pair gives four bytes; an unpaired surrogate gives U+FFFD.
size_t EncodeUtf8(const char16_t* p, size_t nLength, CSink<char>& sink) {
    for (size_t i = 0; i < nLength; ++i) {
        uint32_t u = p[i];
        if (u < 0x80) {
            sink.Put(static_cast<char>(u));
            continue;
        }
        if (u < 0x800) {
            sink.Put(static_cast<char>(0xC0 | (u >> 6)));
            sink.Put(static_cast<char>(0x80 | (u & 0x3F)));
            continue;
        }
        if (IsHighSurrogate(u) && i + 1 < nLength && IsLowSurrogate(p[i + 1])) {
            const uint32_t nValue = 0x10000 + ((u - 0xD800) << 10) + (p[i + 1] - 0xDC00);
            ++i;
            sink.Put(static_cast<char>(0xF0 | (nValue >> 18)));
            sink.Put(static_cast<char>(0x80 | ((nValue >> 12) & 0x3F)));
            sink.Put(static_cast<char>(0x80 | ((nValue >> 6) & 0x3F)));
            sink.Put(static_cast<char>(0x80 | (nValue & 0x3F)));
            continue;
        }
        if (IsHighSurrogate(u) || IsLowSurrogate(u)) u = REPLACEMENT_CHARACTER;
        sink.Put(static_cast<char>(0xE0 | (u >> 12)));
        sink.Put(static_cast<char>(0x80 | ((u >> 6) & 0x3F)));
        sink.Put(static_cast<char>(0x80 | (u & 0x3F)));
    }
    return sink.GetCount();
}

// The iconv descriptors of one thread, opened on first use of a code page and direction and
// closed when the thread ends. A descriptor carries conversion state, so it is never shared.
class CIconvCache {
public:
    CIconvCache() : m_nLast(0) {}
    ~CIconvCache() {
        for (const SEntry& entry : m_entries) iconv_close(entry.cd);
    }
    CIconvCache(const CIconvCache&) = delete;
    CIconvCache& operator=(const CIconvCache&) = delete;

    // This thread's cache; late in the thread's exit, a fresh one in late for one call.
    static CIconvCache& ForThisThread(std::optional<CIconvCache>& late) { return CPerThread<CIconvCache>::Get(late); }

    iconv_t Get(unsigned int nCodePage, bool bToUtf16) {
        if (m_nLast < m_entries.size() && m_entries[m_nLast].nCodePage == nCodePage &&
            m_entries[m_nLast].bToUtf16 == bToUtf16) {
            return m_entries[m_nLast].cd;
        }
        for (size_t i = 0; i < m_entries.size(); ++i) {
            if (m_entries[i].nCodePage == nCodePage && m_entries[i].bToUtf16 == bToUtf16) {
                m_nLast = i;
                return m_entries[i].cd;
            }
        }
        const char* pszName = FindName(nCodePage);
        if (pszName == nullptr) ThrowUnknown(nCodePage);
        iconv_t cd = bToUtf16 ? iconv_open(s_szNativeUtf16, pszName) : iconv_open(pszName, s_szNativeUtf16);
        if (cd == reinterpret_cast<iconv_t>(-1)) {
            throw COxException(
                FormatString("The code page %u (%s) is not available on this system", nCodePage, pszName));
        }
        m_entries.push_back(SEntry{nCodePage, bToUtf16, cd});
        m_nLast = m_entries.size() - 1;
        return cd;
    }

private:
    struct SEntry {
        unsigned int nCodePage;
        bool bToUtf16;
        iconv_t cd;
    };
    std::vector<SEntry> m_entries;
    size_t m_nLast;
};

// Runs iconv over the whole input. Where the input holds a sequence that is invalid, or a
// character that the target lacks, whatever the descriptor holds back is written first, then
// the substitute, and fnSkip tells how many input bytes the sequence spans. Without a
// destination the output goes to a small buffer and is only counted. Returns output bytes.
template <class TSkip>
size_t RunIconv(iconv_t cd, const char* pSrc, size_t nSrcBytes, char* pDst, size_t nDstBytes, const char* pSubstitute,
                size_t nSubstituteBytes, TSkip fnSkip) {
    const bool bCountOnly = (pDst == nullptr || nDstBytes == 0);
    char chunk[256];
    size_t nTotal = 0;

    // One call of iconv; an output buffer that fills up is fatal only when writing.
    auto call = [&](char** ppIn, size_t* pnInLeft) -> int {
        for (;;) {
            char* pOut = bCountOnly ? chunk : pDst + nTotal;
            size_t nOutLeft = bCountOnly ? sizeof(chunk) : nDstBytes - nTotal;
            const size_t nOutStart = nOutLeft;
            const size_t nResult = iconv(cd, ppIn, pnInLeft, &pOut, &nOutLeft);
            const int nError = (nResult == static_cast<size_t>(-1)) ? errno : 0;
            nTotal += nOutStart - nOutLeft;
            if (nError != E2BIG) return nError;
            if (!bCountOnly) ThrowBufferTooSmall();
        }
    };
    // Writes out what the descriptor holds back and returns it to its initial state.
    auto flush = [&]() { call(nullptr, nullptr); };

    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    char* pIn = const_cast<char*>(pSrc);
    size_t nInLeft = nSrcBytes;
    while (nInLeft > 0) {
        const int nError = call(&pIn, &nInLeft);
        if (nError == 0) continue;
        if (nError != EILSEQ && nError != EINVAL) {
            iconv(cd, nullptr, nullptr, nullptr, nullptr);
            throw COxException(FormatString("Text conversion failed: %s", std::strerror(nError)));
        }
        flush();
        if (!bCountOnly) {
            if (nDstBytes - nTotal < nSubstituteBytes) ThrowBufferTooSmall();
            std::memcpy(pDst + nTotal, pSubstitute, nSubstituteBytes);
        }
        nTotal += nSubstituteBytes;
        const size_t nSkip = fnSkip(pIn, nInLeft);
        pIn += nSkip;
        nInLeft -= nSkip;
    }
    flush();
    return nTotal;
}

size_t DecodeWithIconv(unsigned int nCodePage, const char* pSrc, size_t nLength, char16_t* pDst, size_t nDstCapacity) {
    std::optional<CIconvCache> late;
    iconv_t cd = CIconvCache::ForThisThread(late).Get(nCodePage, true);
    // A byte that starts no valid sequence is replaced alone; decoding resumes at the next one.
    auto skip = [](const char*, size_t) -> size_t { return 1; };
    const size_t nBytes = RunIconv(cd, pSrc, nLength, reinterpret_cast<char*>(pDst), nDstCapacity * sizeof(char16_t),
                                   reinterpret_cast<const char*>(&REPLACEMENT_CHARACTER), sizeof(char16_t), skip);
    return nBytes / sizeof(char16_t);
}

size_t EncodeWithIconv(unsigned int nCodePage, const char16_t* pSrc, size_t nLength, char* pDst, size_t nDstCapacity) {
    std::optional<CIconvCache> late;
    iconv_t cd = CIconvCache::ForThisThread(late).Get(nCodePage, false);
    // A character outside the code page spans two units when it is a surrogate pair; an
    // unpaired surrogate is one unit.
    auto skip = [](const char* pIn, size_t nInLeft) -> size_t {
        if (nInLeft >= 2 * sizeof(char16_t)) {
            char16_t units[2];
            std::memcpy(units, pIn, sizeof(units));
            if (IsHighSurrogate(units[0]) && IsLowSurrogate(units[1])) return 2 * sizeof(char16_t);
        }
        return nInLeft < sizeof(char16_t) ? nInLeft : sizeof(char16_t);
    };
    return RunIconv(cd, reinterpret_cast<const char*>(pSrc), nLength * sizeof(char16_t), pDst, nDstCapacity,
                    &DEFAULT_CHARACTER, 1, skip);
}

}  // namespace

unsigned int CCodePage::Resolve(unsigned int nCodePage) {
    if (nCodePage == CP_ACP_ALIAS || nCodePage == CP_THREAD_ACP_ALIAS) return CP_UTF8_NUMBER;
    return nCodePage;
}

const char* CCodePage::GetPlatformName(unsigned int nCodePage) { return FindName(nCodePage); }

void CCodePage::CheckAvailable(unsigned int nCodePage) {
    if (FindName(nCodePage) == nullptr) ThrowUnknown(nCodePage);
    if (nCodePage == CP_UTF8_NUMBER) return;
    std::optional<CIconvCache> late;
    CIconvCache& cache = CIconvCache::ForThisThread(late);
    cache.Get(nCodePage, true);
    cache.Get(nCodePage, false);
}

size_t CCodePage::MultiByteToWideChar(unsigned int nCodePage, const char* pSrc, size_t nLength, char16_t* pDst,
                                      size_t nDstCapacity) {
    if (FindName(nCodePage) == nullptr) ThrowUnknown(nCodePage);
    if (nLength == 0) return 0;
    if (IsAscii(pSrc, nLength)) return CopyAscii(pSrc, nLength, pDst, nDstCapacity);
    if (nCodePage == CP_UTF8_NUMBER) {
        CSink<char16_t> sink(pDst, nDstCapacity);
        return DecodeUtf8(reinterpret_cast<const unsigned char*>(pSrc), nLength, sink);
    }
    return DecodeWithIconv(nCodePage, pSrc, nLength, pDst, nDstCapacity);
}

size_t CCodePage::WideCharToMultiByte(unsigned int nCodePage, const char16_t* pSrc, size_t nLength, char* pDst,
                                      size_t nDstCapacity) {
    if (FindName(nCodePage) == nullptr) ThrowUnknown(nCodePage);
    if (nLength == 0) return 0;
    if (IsAscii(pSrc, nLength)) return CopyAscii(pSrc, nLength, pDst, nDstCapacity);
    if (nCodePage == CP_UTF8_NUMBER) {
        CSink<char> sink(pDst, nDstCapacity);
        return EncodeUtf8(pSrc, nLength, sink);
    }
    return EncodeWithIconv(nCodePage, pSrc, nLength, pDst, nDstCapacity);
}

std::u16string CCodePage::ToUtf16(unsigned int nCodePage, const char* pSrc, size_t nLength) {
    const size_t nUnits = MultiByteToWideChar(nCodePage, pSrc, nLength, nullptr, 0);
    std::u16string result(nUnits, u'\0');
    if (nUnits > 0) MultiByteToWideChar(nCodePage, pSrc, nLength, &result[0], nUnits);
    return result;
}

std::string CCodePage::FromUtf16(unsigned int nCodePage, const char16_t* pSrc, size_t nLength) {
    const size_t nBytes = WideCharToMultiByte(nCodePage, pSrc, nLength, nullptr, 0);
    std::string result(nBytes, '\0');
    if (nBytes > 0) WideCharToMultiByte(nCodePage, pSrc, nLength, &result[0], nBytes);
    return result;
}

}  // namespace OrvexXml
