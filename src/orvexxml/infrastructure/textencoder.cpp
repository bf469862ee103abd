#include "orvexxml/infrastructure/textencoder.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstring>
#include <cwchar>
#include <memory>

#include "orvexxml/infrastructure/codepage.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/utf8.h"

namespace OrvexXml {

namespace {

bool IsLowSurrogate(uint32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

}  // namespace

void AdviseHugePages(void* pData, size_t nLength) {
    const size_t kHugePage = 2 * 1024 * 1024;
    if (nLength >= 2 * kHugePage) {
        const uintptr_t nStart = (reinterpret_cast<uintptr_t>(pData) + kHugePage - 1) & ~(kHugePage - 1);
        const uintptr_t nEnd = (reinterpret_cast<uintptr_t>(pData) + nLength) & ~(kHugePage - 1);
        if (nEnd > nStart) ::madvise(reinterpret_cast<void*>(nStart), nEnd - nStart, MADV_HUGEPAGE);
    }
}

std::unique_ptr<unsigned char[]> AllocateResult(size_t nLength) {
    // Every result is measured before it is allocated, so a text that a CBinaryData can't
    // hold is refused here, before gigabytes are spent on it.
    CBinaryData::CheckLength(nLength);
    std::unique_ptr<unsigned char[]> spData(new unsigned char[nLength]);
    AdviseHugePages(spData.get(), nLength);
    return spData;
}

CBinaryData TakeOver(std::unique_ptr<unsigned char[]>& spData, size_t nLength) {
    if (nLength == 0) return CBinaryData();
    CBinaryData result(spData.get(), CBinaryData::CheckLength(nLength), true);
    spData.release();
    return result;
}

namespace {

// A copy of the bytes, allocated to their exact length.
CBinaryData CopyBytes(const char* pData, size_t nLength) {
    if (nLength == 0) return CBinaryData();
    std::unique_ptr<unsigned char[]> spData = AllocateResult(nLength);
    std::memcpy(spData.get(), pData, nLength);
    return TakeOver(spData, nLength);
}

const uint64_t kHighBits = 0x8080808080808080ULL;

// The length of the 7-bit prefix of the text, tested eight bytes at a time.
size_t AsciiPrefix(const unsigned char* p, size_t nLength) {
    size_t i = 0;
    for (; i + 8 <= nLength; i += 8) {
        uint64_t nWord;
        std::memcpy(&nWord, p + i, sizeof(nWord));
        if ((nWord & kHighBits) != 0) break;
    }
    while (i < nLength && p[i] < 0x80) ++i;
    return i;
}

// Puts one UTF-16 code unit as two bytes, low byte first; without an output it only counts.
template <bool bWrite>
struct CUtf16LeOut {
    explicit CUtf16LeOut(unsigned char* pOut) : m_pOut(pOut), m_nUnits(0) {}
    void Put(uint32_t nUnit) {
        if (bWrite) {
            m_pOut[2 * m_nUnits] = static_cast<unsigned char>(nUnit & 0xFF);
            m_pOut[2 * m_nUnits + 1] = static_cast<unsigned char>(nUnit >> 8);
        }
        ++m_nUnits;
    }
    // A run of 7-bit bytes, each one unit.
    void PutAscii(const unsigned char* p, size_t n) {
        if (bWrite) {
            unsigned char* pOut = m_pOut + 2 * m_nUnits;
            for (size_t i = 0; i < n; ++i) {
                pOut[2 * i] = p[i];
                pOut[2 * i + 1] = 0;
            }
        }
        m_nUnits += n;
    }
    unsigned char* m_pOut;
    size_t m_nUnits;
};

// UTF-8 to UTF-16 units, with the rules of the UTF-8 code page: each maximal part of an
// ill-formed sequence becomes one U+FFFD; overlong forms, encoded surrogates and values above
// U+10FFFF are ill-formed. Runs of 7-bit bytes are passed on in bulk.
template <bool bWrite>
size_t DecodeUtf8ToUtf16Le(const unsigned char* p, size_t nLength, unsigned char* pOut) {
    CUtf16LeOut<bWrite> out(pOut);
    size_t i = 0;
    while (i < nLength) {
        const size_t nAscii = AsciiPrefix(p + i, nLength - i);
        out.PutAscii(p + i, nAscii);
        i += nAscii;
        if (i >= nLength) break;

        uint32_t nValue = DecodeUtf8Sequence(p, nLength, i);
        if (nValue >= 0x10000) {
            nValue -= 0x10000;
            out.Put(0xD800 + (nValue >> 10));
            out.Put(0xDC00 + (nValue & 0x3FF));
        } else {
            out.Put(nValue);
        }
    }
    return out.m_nUnits;
}

// Single-byte code pages in which every byte stands for one character on its own, whatever
// surrounds it. (The code pages 1255 and 1258 are left out: their converters combine a letter
// with a following accent.)
bool IsSimpleSingleByte(unsigned int nCodePage) {
    switch (nCodePage) {
        case 437:
        case 850:
        case 866:
        case 874:
        case 1250:
        case 1251:
        case 1252:
        case 1253:
        case 1254:
        case 1256:
        case 1257:
        case 20127:
        case 20866:
        case 21866:
        case 28591:
        case 28592:
        case 28593:
        case 28594:
        case 28595:
        case 28596:
        case 28597:
        case 28598:
        case 28599:
        case 28603:
        case 28605:
            return true;
        default:
            return false;
    }
}

// The characters of the bytes 0x80-0xFF of such a code page, each converted once through the
// code page. Kept per thread for the code page used last, so that no lock is needed.
const char16_t* SingleByteTable(unsigned int nCodePage) {
    struct STable {
        unsigned int nCodePage = 0;
        bool bValid = false;
        char16_t units[128];
    };
    static thread_local STable table;
    if (!table.bValid || table.nCodePage != nCodePage) {
        table.bValid = false;
        for (unsigned int b = 0x80; b <= 0xFF; ++b) {
            const char c = static_cast<char>(b);
            char16_t unit = 0xFFFD;
            CCodePage::MultiByteToWideChar(nCodePage, &c, 1, &unit, 1);
            table.units[b - 0x80] = unit;
        }
        table.nCodePage = nCodePage;
        table.bValid = true;
    }
    return table.units;
}

// Local text to UTF-16 code units through the code page, in a temporary of length + 1 units:
// no code page gives more units than bytes. Returns the number of units.
size_t LocalToUnits(const char* pLocal, size_t nLength, std::unique_ptr<char16_t[]>& spUnits) {
    spUnits.reset(new char16_t[nLength + 1]);
    const size_t nUnits =
        CCodePage::MultiByteToWideChar(GetLocalCharEncoding(), pLocal, nLength, spUnits.get(), nLength + 1);
    spUnits[nUnits] = 0;
    return nUnits;
}

// The next character of UTF-16 units at p[i], or false where the conversion stops: at the end
// of the text and at an unpaired surrogate. Advances i past the character.
template <class TUnit>
inline bool NextUtf16Char(const TUnit* p, size_t nLength, size_t& i, uint32_t& nChar) {
    if (i >= nLength) return false;
    const uint32_t u = static_cast<uint32_t>(p[i]);
    if (u < 0xD800 || u > 0xDFFF) {
        nChar = u;
        ++i;
        return true;
    }
    if (IsLowSurrogate(u) || i + 1 >= nLength || !IsLowSurrogate(static_cast<uint32_t>(p[i + 1]))) return false;
    nChar = 0x10000 + ((u - 0xD800) << 10) + (static_cast<uint32_t>(p[i + 1]) - 0xDC00);
    i += 2;
    return true;
}

// Reads UTF-16 units.
struct CUtf16Reader {
    template <class TUnit>
    static bool Next(const TUnit* p, size_t nLength, size_t& i, uint32_t& nChar) {
        return NextUtf16Char(p, nLength, i, nChar);
    }
};

// Reads UTF-32 wchar_t: a surrogate pair is accepted as one character, any other surrogate
// value and a value beyond the Unicode range end the text.
struct CWideReader {
    static bool Next(const wchar_t* p, size_t nLength, size_t& i, uint32_t& nChar) {
        if (i >= nLength) return false;
        const uint32_t u = static_cast<uint32_t>(p[i]);
        if (u > 0x10FFFF) return false;
        if (u >= 0xD800 && u <= 0xDFFF) return NextUtf16Char(p, nLength, i, nChar);
        nChar = u;
        ++i;
        return true;
    }
};

size_t Utf8Size(uint32_t nChar) {
    if (nChar < 0x80) return 1;
    if (nChar < 0x800) return 2;
    if (nChar < 0x10000) return 3;
    return 4;
}

inline unsigned char* PutUtf8(unsigned char* pOut, uint32_t nChar) {
    if (nChar < 0x80) {
        *pOut++ = static_cast<unsigned char>(nChar);
    } else if (nChar < 0x800) {
        *pOut++ = static_cast<unsigned char>(0xC0 | (nChar >> 6));
        *pOut++ = static_cast<unsigned char>(0x80 | (nChar & 0x3F));
    } else if (nChar < 0x10000) {
        *pOut++ = static_cast<unsigned char>(0xE0 | (nChar >> 12));
        *pOut++ = static_cast<unsigned char>(0x80 | ((nChar >> 6) & 0x3F));
        *pOut++ = static_cast<unsigned char>(0x80 | (nChar & 0x3F));
    } else {
        *pOut++ = static_cast<unsigned char>(0xF0 | (nChar >> 18));
        *pOut++ = static_cast<unsigned char>(0x80 | ((nChar >> 12) & 0x3F));
        *pOut++ = static_cast<unsigned char>(0x80 | ((nChar >> 6) & 0x3F));
        *pOut++ = static_cast<unsigned char>(0x80 | (nChar & 0x3F));
    }
    return pOut;
}

// Wide text to UTF-8: text of units below 128 has as many bytes as units and is narrowed in one
// pass; other text is measured first, so that the result is allocated exactly once and to size.
template <class TReader, class TUnit>
CBinaryData EncodeUtf8(const TUnit* p, size_t nLength) {
    if (p == nullptr || nLength == 0) return CBinaryData();

    size_t nAscii = 0;
    while (nAscii < nLength && static_cast<uint32_t>(p[nAscii]) < 0x80) ++nAscii;
    if (nAscii == nLength) {
        std::unique_ptr<unsigned char[]> spData = AllocateResult(nLength);
        for (size_t i = 0; i < nLength; ++i) spData[i] = static_cast<unsigned char>(p[i]);
        return TakeOver(spData, nLength);
    }

    size_t nBytes = nAscii;
    size_t i = nAscii;
    uint32_t nChar = 0;
    while (TReader::Next(p, nLength, i, nChar)) nBytes += Utf8Size(nChar);
    if (nBytes == 0) return CBinaryData();

    std::unique_ptr<unsigned char[]> spData = AllocateResult(nBytes);
    unsigned char* pOut = spData.get();
    for (i = 0; i < nAscii; ++i) *pOut++ = static_cast<unsigned char>(p[i]);
    while (TReader::Next(p, nLength, i, nChar)) pOut = PutUtf8(pOut, nChar);
    return TakeOver(spData, nBytes);
}

size_t Utf16Length(const char16_t* psz) {
    size_t n = 0;
    while (psz[n] != 0) ++n;
    return n;
}

}  // namespace

CBinaryData Utf16ToUtf8(const char16_t* pszUtf16) {
    if (pszUtf16 == nullptr) return CBinaryData();
    return Utf16ToUtf8(pszUtf16, Utf16Length(pszUtf16));
}

CBinaryData Utf16ToUtf8(const char16_t* pUtf16, size_t nLength) { return EncodeUtf8<CUtf16Reader>(pUtf16, nLength); }

CBinaryData Utf16ToUtf8(const wchar_t* pszWide) {
    if (pszWide == nullptr) return CBinaryData();
    return EncodeUtf8<CWideReader>(pszWide, std::wcslen(pszWide));
}

CBinaryData LocalToUtf8(const char* pszLocal) {
    if (pszLocal == nullptr) return CBinaryData();
    return LocalToUtf8(pszLocal, std::strlen(pszLocal));
}

CBinaryData LocalToUtf8(const char* pLocal, size_t nLength) {
    if (pLocal == nullptr || nLength == 0) return CBinaryData();
    // Local text that is UTF-8 already, or declared 7-bit, goes out as it is.
    if (IsLocalEncodingUtf8()) return CopyBytes(pLocal, nLength);

    const unsigned char* pBytes = reinterpret_cast<const unsigned char*>(pLocal);
    const size_t nAscii = AsciiPrefix(pBytes, nLength);
    if (nAscii == nLength) return CopyBytes(pLocal, nLength);

    const unsigned int nCodePage = GetLocalCharEncoding();
    if (IsSimpleSingleByte(nCodePage)) {
        // One character per byte: measure, then convert by table.
        const char16_t* pTable = SingleByteTable(nCodePage);
        size_t nBytes = nLength;
        for (size_t i = nAscii; i < nLength; ++i) {
            if (pBytes[i] >= 0x80) nBytes += Utf8Size(pTable[pBytes[i] - 0x80]) - 1;
        }
        std::unique_ptr<unsigned char[]> spData = AllocateResult(nBytes);
        unsigned char* pOut = spData.get();
        std::memcpy(pOut, pBytes, nAscii);
        pOut += nAscii;
        for (size_t i = nAscii; i < nLength; ++i) {
            const unsigned char c = pBytes[i];
            if (c < 0x80) {
                *pOut++ = c;
            } else {
                pOut = PutUtf8(pOut, pTable[c - 0x80]);
            }
        }
        return TakeOver(spData, nBytes);
    }

    std::unique_ptr<char16_t[]> spUnits;
    const size_t nUnits = LocalToUnits(pLocal, nLength, spUnits);
    return Utf16ToUtf8(spUnits.get(), nUnits);
}

CBinaryData LocalToUtf16(const char* pszLocal) {
    if (pszLocal == nullptr) return CBinaryData();
    return LocalToUtf16(pszLocal, std::strlen(pszLocal));
}

CBinaryData LocalToUtf16(const char* pLocal, size_t nLength) {
    if (pLocal == nullptr || nLength == 0) return CBinaryData();
    const unsigned char* pBytes = reinterpret_cast<const unsigned char*>(pLocal);
    const unsigned int nCodePage = GetLocalCharEncoding();

    if (nCodePage == ORVEXXML_CP_UTF8) {
        // Measured first, then converted straight into the result: no temporary.
        const size_t nUnits = DecodeUtf8ToUtf16Le<false>(pBytes, nLength, nullptr);
        std::unique_ptr<unsigned char[]> spData = AllocateResult(nUnits * 2);
        DecodeUtf8ToUtf16Le<true>(pBytes, nLength, spData.get());
        return TakeOver(spData, nUnits * 2);
    }

    const size_t nAscii = AsciiPrefix(pBytes, nLength);
    if (nAscii == nLength || IsSimpleSingleByte(nCodePage)) {
        // One unit per byte; 7-bit bytes are the same in every code page offered.
        const char16_t* pTable = nAscii == nLength ? nullptr : SingleByteTable(nCodePage);
        std::unique_ptr<unsigned char[]> spData = AllocateResult(nLength * 2);
        unsigned char* pOut = spData.get();
        for (size_t i = 0; i < nLength; ++i) {
            const unsigned char c = pBytes[i];
            const char16_t nUnit = c < 0x80 ? c : pTable[c - 0x80];
            pOut[2 * i] = static_cast<unsigned char>(nUnit & 0xFF);
            pOut[2 * i + 1] = static_cast<unsigned char>(nUnit >> 8);
        }
        return TakeOver(spData, nLength * 2);
    }

    std::unique_ptr<char16_t[]> spUnits;
    const size_t nUnits = LocalToUnits(pLocal, nLength, spUnits);
    if (nUnits == 0) return CBinaryData();
    std::unique_ptr<unsigned char[]> spData = AllocateResult(nUnits * 2);
    unsigned char* pOut = spData.get();
    for (size_t i = 0; i < nUnits; ++i) {
        pOut[2 * i] = static_cast<unsigned char>(spUnits[i] & 0xFF);
        pOut[2 * i + 1] = static_cast<unsigned char>(spUnits[i] >> 8);
    }
    return TakeOver(spData, nUnits * 2);
}

}  // namespace OrvexXml
