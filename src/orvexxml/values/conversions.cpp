#include "orvexxml/values/conversions.h"

#include <locale.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

namespace {

// ---------------------------------------------------------------------------------------
// Integer to text. Writes the digits backwards into the end of a local buffer, two at a
// time; the result is the same text that "%d"/"%u"/"%lld"/"%llu" give, without the cost
// of parsing a format.

const char g_szDigitPairs[] =
    "00010203040506070809"
    "10111213141516171819"
    "20212223242526272829"
    "30313233343536373839"
    "40414243444546474849"
    "50515253545556575859"
    "60616263646566676869"
    "70717273747576777879"
    "80818283848586878889"
    "90919293949596979899";

// Room for the 20 digits of the largest 64-bit value and a sign.
const size_t INT_TEXT_SIZE = 24;

// Writes value in base 10 so that it ends just before pEnd; returns the first character.
char* WriteUnsigned(uint64_t value, char* pEnd) {
    char* p = pEnd;
    while (value >= 100) {
        unsigned nPair = static_cast<unsigned>(value % 100) * 2;
        value /= 100;
        *--p = g_szDigitPairs[nPair + 1];
        *--p = g_szDigitPairs[nPair];
    }
    if (value >= 10) {
        unsigned nPair = static_cast<unsigned>(value) * 2;
        *--p = g_szDigitPairs[nPair + 1];
        *--p = g_szDigitPairs[nPair];
    } else {
        *--p = static_cast<char>('0' + value);
    }
    return p;
}

std::string UnsignedToString(uint64_t value) {
    char szBuf[INT_TEXT_SIZE];
    char* pEnd = szBuf + sizeof(szBuf);
    char* p = WriteUnsigned(value, pEnd);
    return std::string(p, static_cast<size_t>(pEnd - p));
}

std::string SignedToString(int64_t value) {
    char szBuf[INT_TEXT_SIZE];
    char* pEnd = szBuf + sizeof(szBuf);
    // The magnitude taken in unsigned arithmetic, which is also right for the lowest value.
    uint64_t uMagnitude = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
    char* p = WriteUnsigned(uMagnitude, pEnd);
    if (value < 0) *--p = '-';
    return std::string(p, static_cast<size_t>(pEnd - p));
}

// ---------------------------------------------------------------------------------------
// Text to integer, with the semantics of the strtol family at a chosen width: leading
// whitespace (as isspace in the "C" locale) is skipped, an optional sign follows, then
// base-10 digits. Digits are consumed to their end even after the magnitude has grown
// beyond the limit, so that the too-large verdict wins over the stop character.

enum ParseResult { Parse_Ok, Parse_TooLarge, Parse_NotANumber };

bool IsCSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Reads the C string psz. On success uMagnitude is the magnitude and bNegative tells the
// sign. uLimitPositive and uLimitNegative are the largest magnitudes that a positive and a
// negative value may have.
ParseResult ParseInteger(const char* psz, uint64_t uLimitPositive, uint64_t uLimitNegative, uint64_t& uMagnitude,
                         bool& bNegative) {
    const char* p = psz;
    while (IsCSpace(*p)) ++p;
    bNegative = false;
    if (*p == '+' || *p == '-') {
        bNegative = (*p == '-');
        ++p;
    }
    // strtol reports no conversion, with the stop pointer at the start, when no digit follows.
    if (*p < '0' || *p > '9') return Parse_NotANumber;

    const uint64_t uLimit = bNegative ? uLimitNegative : uLimitPositive;
    uint64_t uValue = 0;
    bool bOverflow = false;
    for (; *p >= '0' && *p <= '9'; ++p) {
        unsigned nDigit = static_cast<unsigned>(*p - '0');
        if (!bOverflow) {
            if (uValue > (uLimit - nDigit) / 10) {
                bOverflow = true;
            } else {
                uValue = uValue * 10 + nDigit;
            }
        }
    }
    if (bOverflow) return Parse_TooLarge;
    if (*p != '\0') return Parse_NotANumber;
    uMagnitude = uValue;
    return Parse_Ok;
}

// Passes text through the whitespace rule, copying only when the rule changes it.
class CProcessedText {
public:
    CProcessedText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) : m_pText(&text) {
        if (!CWhitespaceUtils::IsUnchangedByRule(rule, text)) {
            m_strCopy = CWhitespaceUtils::ApplyRule(rule, text);
            m_pText = &m_strCopy;
        }
    }
    const std::string& Get() const { return *m_pText; }

private:
    const std::string* m_pText;
    std::string m_strCopy;
};

[[noreturn]] void ThrowInvalid(const char* pszFormat, const std::string& text) {
    throw COxInvalidValueException(FormatString(pszFormat, text.c_str()));
}

// The signed conversions at the width given by the limits; the messages name the type.
int64_t ReadSigned(const std::string& text, CWhitespaceUtils::WhitespaceRule rule, uint64_t uLimitPositive,
                   const char* pszNotANumber, const char* pszTooLarge) {
    CProcessedText processed(text, rule);
    const std::string& strProcessed = processed.Get();
    if (strProcessed.empty()) ThrowInvalid(pszNotANumber, strProcessed);
    uint64_t uMagnitude = 0;
    bool bNegative = false;
    switch (ParseInteger(strProcessed.c_str(), uLimitPositive, uLimitPositive + 1, uMagnitude, bNegative)) {
        case Parse_TooLarge:
            ThrowInvalid(pszTooLarge, strProcessed);
        case Parse_NotANumber:
            ThrowInvalid(pszNotANumber, strProcessed);
        case Parse_Ok:
            break;
    }
    // The magnitude of a negative value may be one beyond the positive limit; negating in
    // unsigned arithmetic and converting back gives the lowest value without overflow.
    return bNegative ? static_cast<int64_t>(0 - uMagnitude) : static_cast<int64_t>(uMagnitude);
}

// The unsigned conversions: a "-" negates the magnitude modulo 2^width, where uMax is
// 2^width - 1.
uint64_t ReadUnsigned(const std::string& text, CWhitespaceUtils::WhitespaceRule rule, uint64_t uMax,
                      const char* pszNotANumber, const char* pszTooLarge) {
    CProcessedText processed(text, rule);
    const std::string& strProcessed = processed.Get();
    if (strProcessed.empty()) ThrowInvalid(pszNotANumber, strProcessed);
    uint64_t uMagnitude = 0;
    bool bNegative = false;
    switch (ParseInteger(strProcessed.c_str(), uMax, uMax, uMagnitude, bNegative)) {
        case Parse_TooLarge:
            ThrowInvalid(pszTooLarge, strProcessed);
        case Parse_NotANumber:
            ThrowInvalid(pszNotANumber, strProcessed);
        case Parse_Ok:
            break;
    }
    return bNegative ? (0 - uMagnitude) & uMax : uMagnitude;
}

// ---------------------------------------------------------------------------------------
// Floating point.

// The "C" locale, for the printf and strtod calls: XML numbers have a decimal point whatever
// locale the application set.
locale_t ClassicLocale() {
    static const locale_t s_locale = ::newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    return s_locale;
}

const size_t R4_BUFFER_SIZE = 32;
const size_t R8_BUFFER_SIZE = 48;

// Recognises the formats that generated code carries almost always: "%.<n>f", "%.<n>e" and
// "%.<n>g", with nothing before or after.
bool ParseSimpleFormat(const char* pszFormat, std::chars_format& eForm, int& nPrecision) {
    if (pszFormat[0] != '%' || pszFormat[1] != '.') return false;
    const char* p = pszFormat + 2;
    int n = 0;
    int nDigits = 0;
    for (; *p >= '0' && *p <= '9' && nDigits < 3; ++p, ++nDigits) n = n * 10 + (*p - '0');
    if (nDigits == 0 || p[1] != '\0') return false;
    switch (*p) {
        case 'f':
            eForm = std::chars_format::fixed;
            break;
        case 'e':
            eForm = std::chars_format::scientific;
            break;
        case 'g':
            eForm = std::chars_format::general;
            break;
        default:
            return false;
    }
    nPrecision = n;
    return true;
}

// 10^0 to 10^19, all that 64 bits hold.
struct CPowersOfTen {
    uint64_t a[20];
    constexpr CPowersOfTen() : a() {
        uint64_t n = 1;
        for (int i = 0; i < 20; ++i, n *= 10) a[i] = n;
    }
};

// printf's "%.<nPrecision>g" of a finite value by exact integer arithmetic, for the values
// that written documents carry almost always (prices, measures, amounts): the value times
// 10^k, with k that leaves nPrecision digits before the point, is rounded to an integer in
// 128 bits, half to even on an exact tie, as glibc rounds. Returns the end of the text at
// pOut (at most 25 bytes), or null where the value is outside the range that 128 bits hold
// exactly (zero, subnormals, very large or very small magnitudes, precisions beyond 17):
// the general path answers those.
char* FormatGeneralExact(double value, int nPrecision, char* pOut) {
    static constexpr CPowersOfTen s_powers{};
    const uint64_t* aPow10 = s_powers.a;
    if (nPrecision < 1 || nPrecision > 17) return nullptr;
    uint64_t nBits;
    std::memcpy(&nBits, &value, sizeof(nBits));
    const int nBiased = static_cast<int>((nBits >> 52) & 0x7FF);
    if (nBiased == 0 || nBiased == 0x7FF) return nullptr;  // zero, subnormal, or not finite
    // value = ±nMantissa * 2^nExp2 exactly.
    const uint64_t nMantissa = (nBits & ((1ULL << 52) - 1)) | (1ULL << 52);
    const int nExp2 = nBiased - 1075;
    // The decimal exponent of the value is floor(log10 2^e) or one more, e = floor(log2 |value|).
    int nExp10 = static_cast<int>(std::floor((nBiased - 1023) * 0.30102999566398120));
    const uint64_t nLow = aPow10[nPrecision - 1];
    const uint64_t nHigh = aPow10[nPrecision];
    unsigned __int128 nScaled = 0;
    unsigned __int128 nRest = 0;
    unsigned __int128 nHalf = 0;
    uint64_t nDigits = 0;
    for (int nTry = 0;; ++nTry) {
        if (nTry == 2) return nullptr;
        // k = nPrecision - 1 - nExp10 decimal places; 10^k times the mantissa must fit in 128 bits.
        const int k = nPrecision - 1 - nExp10;
        if (k < 0 || k > 19) return nullptr;
        nScaled = static_cast<unsigned __int128>(nMantissa) * aPow10[k];
        if (nExp2 >= 0) {
            if (nExp2 > 10) return nullptr;
            nScaled <<= nExp2;
            nRest = 0;
            nHalf = 1;  // above the rest of 0: no rounding
        } else {
            const int nShift = -nExp2;
            if (nShift > 126) return nullptr;
            const unsigned __int128 nOne = static_cast<unsigned __int128>(1) << nShift;
            nRest = nScaled & (nOne - 1);
            nHalf = nOne >> 1;
            nScaled >>= nShift;
        }
        if (nScaled >= nHigh) {
            ++nExp10;  // the estimate was one low
            continue;
        }
        if (nScaled < nLow) return nullptr;  // can't happen with the estimate above; be safe
        nDigits = static_cast<uint64_t>(nScaled);
        break;
    }
    if (nRest > nHalf || (nRest == nHalf && (nDigits & 1) != 0)) {
        if (++nDigits == nHigh) {  // 9.99.. rounded up to the next power of ten
            nDigits = nLow;
            ++nExp10;
        }
    }
    // nDigits lies in [10^(nPrecision-1), 10^nPrecision): exactly nPrecision digits.
    char szDigits[20];
    WriteUnsigned(nDigits, szDigits + nPrecision);
    // Trailing zeros go, as "%g" drops them.
    int nSignificant = nPrecision;
    while (nSignificant > 1 && szDigits[nSignificant - 1] == '0') --nSignificant;
    char* p = pOut;
    if (nBits >> 63) *p++ = '-';
    if (nExp10 >= -4 && nExp10 < nPrecision) {
        if (nExp10 >= 0) {
            // nExp10 + 1 digits before the point, padded with the zeros dropped above.
            for (int i = 0; i <= nExp10; ++i) *p++ = i < nSignificant ? szDigits[i] : '0';
            if (nSignificant > nExp10 + 1) {
                *p++ = '.';
                for (int i = nExp10 + 1; i < nSignificant; ++i) *p++ = szDigits[i];
            }
        } else {
            *p++ = '0';
            *p++ = '.';
            for (int i = -1; i > nExp10; --i) *p++ = '0';
            for (int i = 0; i < nSignificant; ++i) *p++ = szDigits[i];
        }
        return p;
    }
    *p++ = szDigits[0];
    if (nSignificant > 1) {
        *p++ = '.';
        for (int i = 1; i < nSignificant; ++i) *p++ = szDigits[i];
    }
    *p++ = 'e';
    *p++ = nExp10 < 0 ? '-' : '+';
    int nMagnitude = nExp10 < 0 ? -nExp10 : nExp10;
    if (nMagnitude >= 100) {
        *p++ = static_cast<char>('0' + nMagnitude / 100);
        nMagnitude %= 100;
    }
    *p++ = static_cast<char>('0' + nMagnitude / 10);
    *p++ = static_cast<char>('0' + nMagnitude % 10);
    return p;
}

// The special values have fixed names whatever the format. The default forms ("%.7g" and
// "%.16g") and the simple forms above go through FormatGeneralExact where it answers, else
// through std::to_chars, which gives exactly printf's text in the "C" locale, several times
// faster than printf. Any other format goes through snprintf in the
// "C" locale into a buffer of the given size, cut as snprintf cuts.
std::string FloatToString(double value, const char* pszFormat, int nDefaultPrecision, char* pBuffer,
                          size_t nBufferSize) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
    // One byte stays free, as snprintf keeps it for the terminator. The default forms are at
    // most 23 characters and always fit; a simple form with a large precision may not, and
    // then goes to snprintf below, which cuts it.
    std::chars_format eForm = std::chars_format::general;
    int nPrecision = nDefaultPrecision;
    bool bDefault = pszFormat == nullptr || *pszFormat == '\0';
    if (bDefault || ParseSimpleFormat(pszFormat, eForm, nPrecision)) {
        if (eForm == std::chars_format::general) {
            if (char* pEnd = FormatGeneralExact(value, nPrecision, pBuffer)) return std::string(pBuffer, pEnd);
        }
        std::to_chars_result result = std::to_chars(pBuffer, pBuffer + nBufferSize - 1, value, eForm, nPrecision);
        if (bDefault || result.ec == std::errc()) return std::string(pBuffer, result.ptr);
    }
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif
    locale_t previous = ::uselocale(ClassicLocale());
    int n = std::snprintf(pBuffer, nBufferSize, pszFormat, value);
    ::uselocale(previous);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
    if (n < 0) return std::string();
    size_t nLength = static_cast<size_t>(n) < nBufferSize ? static_cast<size_t>(n) : nBufferSize - 1;
    return std::string(pBuffer, nLength);
}

// A text that std::from_chars may read in place of strtod: it begins with a digit, a point,
// or a "-" before one of them, so that it can't be one of the special names, a "+" or
// leading blanks. from_chars rounds correctly, as glibc's strtod does, so where it reads the
// whole text without a range error both give the same value; everything else (an exponent
// out of range, a stop before the end, the special names) is left to the general path.
bool ReadPlainDecimal(const std::string& text, double& value) {
    const char* p = text.data();
    const char* pEnd = p + text.size();
    const char* pFirst = *p == '-' && text.size() > 1 ? p + 1 : p;
    if (!((*pFirst >= '0' && *pFirst <= '9') || *pFirst == '.')) return false;
    std::from_chars_result result = std::from_chars(p, pEnd, value, std::chars_format::general);
    return result.ec == std::errc() && result.ptr == pEnd;
}

double ReadFloat(const std::string& text, CWhitespaceUtils::WhitespaceRule rule, const char* pszNotANumber) {
    CProcessedText processed(text, rule);
    const std::string& strProcessed = processed.Get();
    if (strProcessed.empty()) ThrowInvalid(pszNotANumber, strProcessed);
    double dPlain = 0;
    if (ReadPlainDecimal(strProcessed, dPlain)) return dPlain;
    if (strProcessed == "NaN" || strProcessed == "1.#QNAN" || strProcessed == "-NAN") {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (strProcessed == "-INF") return -std::numeric_limits<double>::infinity();
    if (strProcessed == "INF") return std::numeric_limits<double>::infinity();
    const char* psz = strProcessed.c_str();
    char* pEnd = nullptr;
    // No range test: an overflow reads as an infinity, an underflow as what strtod gives.
    double value = ::strtod_l(psz, &pEnd, ClassicLocale());
    if (pEnd == nullptr || *pEnd != '\0') ThrowInvalid(pszNotANumber, strProcessed);
    return value;
}

bool EqualsNoCase(const std::string& text, const char* pszWord) {
    size_t nLength = std::strlen(pszWord);
    if (text.size() != nLength) return false;
    for (size_t i = 0; i < nLength; ++i) {
        char c = text[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != pszWord[i]) return false;
    }
    return true;
}

}  // namespace

// --- signed integers ----------------------------------------------------------------------

std::string CConversions::i1ToString(char value) { return SignedToString(static_cast<signed char>(value)); }
std::string CConversions::i2ToString(int16_t value) { return SignedToString(value); }
std::string CConversions::i4ToString(OxLong value) { return SignedToString(value); }
std::string CConversions::i8ToString(int64_t value) { return SignedToString(value); }

OxLong CConversions::i4FromString(const std::string& text, WhitespaceRule rule) {
    return static_cast<OxLong>(ReadSigned(text, rule, 2147483647u, "The value [%s] can not be converted to a i4",
                                          "The value [%s] is to large to fit in a i4"));
}

int64_t CConversions::i8FromString(const std::string& text, WhitespaceRule rule) {
    return ReadSigned(text, rule, 9223372036854775807u, "The value [%s] can not be converted to a i8",
                      "The value [%s] is to large to fit in a i8");
}

char CConversions::i1FromString(const std::string& text, WhitespaceRule rule) {
    OxLong lValue = i4FromString(text, rule);
    if (lValue < -128 || lValue > 127) ThrowInvalid("The value [%s] is to large to fit in a i1", text);
    return static_cast<char>(lValue);
}

int16_t CConversions::i2FromString(const std::string& text, WhitespaceRule rule) {
    OxLong lValue = i4FromString(text, rule);
    if (lValue < -32768 || lValue > 32767) ThrowInvalid("The value [%s] is to large to fit in a i2", text);
    return static_cast<int16_t>(lValue);
}

// --- unsigned integers --------------------------------------------------------------------

std::string CConversions::ui1ToString(uint8_t value) { return UnsignedToString(value); }
std::string CConversions::ui2ToString(uint16_t value) { return UnsignedToString(value); }
std::string CConversions::ui4ToString(OxULong value) { return UnsignedToString(value); }
std::string CConversions::ui8ToString(uint64_t value) { return UnsignedToString(value); }

OxULong CConversions::ui4FromString(const std::string& text, WhitespaceRule rule) {
    return static_cast<OxULong>(ReadUnsigned(text, rule, 4294967295u, "The value [%s] can not be converted to a ui4",
                                             "The value [%s] is to large to fit in a ui4"));
}

uint64_t CConversions::ui8FromString(const std::string& text, WhitespaceRule rule) {
    return ReadUnsigned(text, rule, 18446744073709551615u, "The value [%s] can not be converted to a ui8",
                        "The value [%s] is to large to fit in a ui8");
}

uint8_t CConversions::ui1FromString(const std::string& text, WhitespaceRule rule) {
    OxULong ulValue = ui4FromString(text, rule);
    if (ulValue >= 256) ThrowInvalid("The value [%s] is to large to fit in a ui1", text);
    return static_cast<uint8_t>(ulValue);
}

uint16_t CConversions::ui2FromString(const std::string& text, WhitespaceRule rule) {
    OxULong ulValue = ui4FromString(text, rule);
    if (ulValue >= 65536) ThrowInvalid("The value [%s] is to large to fit in a ui2", text);
    return static_cast<uint16_t>(ulValue);
}

// --- floating point -----------------------------------------------------------------------

std::string CConversions::r4ToString(float value) { return r4ToString(value, static_cast<const char*>(nullptr)); }

std::string CConversions::r4ToString(float value, const std::string& format) {
    return r4ToString(value, format.c_str());
}

std::string CConversions::r4ToString(float value, const char* pszFormat) {
    char szBuf[R4_BUFFER_SIZE];
    return FloatToString(static_cast<double>(value), pszFormat, 7, szBuf, sizeof(szBuf));
}

std::string CConversions::r8ToString(double value) { return r8ToString(value, static_cast<const char*>(nullptr)); }

std::string CConversions::r8ToString(double value, const std::string& format) {
    return r8ToString(value, format.c_str());
}

std::string CConversions::r8ToString(double value, const char* pszFormat) {
    char szBuf[R8_BUFFER_SIZE];
    return FloatToString(value, pszFormat, 16, szBuf, sizeof(szBuf));
}

float CConversions::r4FromString(const std::string& text, WhitespaceRule rule) {
    // Narrowed from the double that strtod gives; beyond the range of float that is an infinity.
    return static_cast<float>(ReadFloat(text, rule, "The value [%s] can not be converted to a r4"));
}

double CConversions::r8FromString(const std::string& text, WhitespaceRule rule) {
    return ReadFloat(text, rule, "The value [%s] can not be converted to a r8");
}

// --- char, string, boolean ----------------------------------------------------------------

std::string CConversions::charToString(char value) { return value == '\0' ? std::string() : std::string(1, value); }

char CConversions::charFromString(const std::string& text, WhitespaceRule rule) {
    CProcessedText processed(text, rule);
    const std::string& strProcessed = processed.Get();
    if (strProcessed.size() != 1) {
        ThrowInvalid("The value [%s] can not be a char as it is either empty of greater than 1 char long",
                     strProcessed);
    }
    return strProcessed[0];
}

std::string CConversions::stringFromString(const std::string& text, WhitespaceRule rule) {
    return CWhitespaceUtils::ApplyRule(rule, text);
}

bool CConversions::booleanFromString(const std::string& text, WhitespaceRule rule) {
    CProcessedText processed(text, rule);
    const std::string& strProcessed = processed.Get();
    if (EqualsNoCase(strProcessed, "true")) return true;
    if (EqualsNoCase(strProcessed, "false")) return false;
    if (strProcessed == "1") return true;
    if (strProcessed == "0") return false;
    ThrowInvalid(
        "A Boolean Value read from an XML document was invalid [%s]. Valid values are 'true', 'false', '1', or '0'",
        text);
}

// --- hexBinary, base64Binary --------------------------------------------------------------

std::string CConversions::hexBinaryToString(const CBinaryData& value) { return value.GetAsHexString(); }

std::string CConversions::base64BinaryToString(const CBinaryData& value) { return value.GetAsBase64(); }

CBinaryData CConversions::hexBinaryFromString(const std::string& text, WhitespaceRule rule) {
    CProcessedText processed(text, rule);
    CBinaryData value;
    value.SetAsHexString(processed.Get().c_str());
    return value;
}

CBinaryData CConversions::base64BinaryFromString(const std::string& text, WhitespaceRule rule) {
    CProcessedText processed(text, rule);
    CBinaryData value;
    value.SetAsBase64(processed.Get().c_str());
    return value;
}

// --- duration and the date kinds --------------------------------------------------------

std::string CConversions::durationToString(const CDateTimeSpan& value) { return value.ToString(); }
std::string CConversions::yearMonthToString(const CDateTime& value) { return value.ToString("s"); }
std::string CConversions::monthDayToString(const CDateTime& value) { return value.ToString("s"); }
std::string CConversions::dateToString(const CDateTime& value) { return value.ToString("s"); }
std::string CConversions::datetimeToString(const CDateTime& value) { return value.ToString("s"); }
std::string CConversions::timeToString(const CDateTime& value) { return value.ToString("s"); }

CDateTimeSpan CConversions::durationFromString(const std::string& text, WhitespaceRule rule) {
    CProcessedText processed(text, rule);
    CDateTimeSpan value;
    value.ParseXSDDuration(processed.Get().c_str());
    return value;
}

namespace {

// A value of the kind read by the parser that the kind's text goes through.
CDateTime ReadDate(const std::string& text, CWhitespaceUtils::WhitespaceRule rule, CDateTime::DTType eType,
                   void (CDateTime::*pfnParse)(const char*)) {
    CProcessedText processed(text, rule);
    CDateTime value(eType);
    (value.*pfnParse)(processed.Get().c_str());
    return value;
}

}  // namespace

CDateTime CConversions::yearMonthFromString(const std::string& text, WhitespaceRule rule) {
    return ReadDate(text, rule, CDateTime::dt_gYearMonth, &CDateTime::ParseXSDDate);
}

CDateTime CConversions::monthDayFromString(const std::string& text, WhitespaceRule rule) {
    return ReadDate(text, rule, CDateTime::dt_gMonthDay, &CDateTime::ParseXSDDate);
}

CDateTime CConversions::dateFromString(const std::string& text, WhitespaceRule rule) {
    return ReadDate(text, rule, CDateTime::dt_date, &CDateTime::ParseXSDDate);
}

CDateTime CConversions::datetimeFromString(const std::string& text, WhitespaceRule rule) {
    return ReadDate(text, rule, CDateTime::dt_dateTime, &CDateTime::ParseXSDDateTime);
}

CDateTime CConversions::timeFromString(const std::string& text, WhitespaceRule rule) {
    return ReadDate(text, rule, CDateTime::dt_time, &CDateTime::ParseXSDTime);
}

uint16_t CConversions::yearFromString(const std::string& text, WhitespaceRule rule) {
    return static_cast<uint16_t>(ReadDate(text, rule, CDateTime::dt_gYear, &CDateTime::ParseXSDDate).GetYear());
}

uint8_t CConversions::monthFromString(const std::string& text, WhitespaceRule rule) {
    return ReadDate(text, rule, CDateTime::dt_gMonth, &CDateTime::ParseXSDDate).GetMonth();
}

uint8_t CConversions::dayFromString(const std::string& text, WhitespaceRule rule) {
    return ReadDate(text, rule, CDateTime::dt_gDay, &CDateTime::ParseXSDDate).GetDay();
}

// --- decimal, integer ---------------------------------------------------------------------

std::string CConversions::decimalToString(const CDecimal& value) { return value.ToString(); }

std::string CConversions::decimalToString(const CDecimal& value, const std::string& format) {
    return decimalToString(value, format.c_str());
}

std::string CConversions::decimalToString(const CDecimal& value, const char* pszFormat) {
    if (pszFormat == nullptr || *pszFormat == '\0') return value.ToString();
    // A negative count has no text form of fixed places: it gives all places.
    const int nPlaces = std::atoi(pszFormat);
    return nPlaces < 0 ? value.ToString() : value.ToString(nPlaces);
}

std::string CConversions::integerToString(const CBigInteger& value) { return value.ToString(); }

CDecimal CConversions::decimalFromString(const std::string& text, WhitespaceRule rule) {
    CProcessedText processed(text, rule);
    return CDecimal(processed.Get().c_str());
}

CBigInteger CConversions::integerFromString(const std::string& text, WhitespaceRule rule) {
    CProcessedText processed(text, rule);
    return CBigInteger(processed.Get().c_str());
}

// --- year, month, day ---------------------------------------------------------------------

std::string CConversions::yearToString(uint16_t value) { return UnsignedToString(value); }

std::string CConversions::monthToString(uint8_t value) {
    // "--%02u": two hyphens and at least two digits.
    char szBuf[INT_TEXT_SIZE];
    char* pEnd = szBuf + sizeof(szBuf);
    char* p = WriteUnsigned(value, pEnd);
    if (value < 10) *--p = '0';
    *--p = '-';
    *--p = '-';
    return std::string(p, static_cast<size_t>(pEnd - p));
}

std::string CConversions::dayToString(uint8_t value) {
    // "---%02u": three hyphens and at least two digits.
    char szBuf[INT_TEXT_SIZE];
    char* pEnd = szBuf + sizeof(szBuf);
    char* p = WriteUnsigned(value, pEnd);
    if (value < 10) *--p = '0';
    *--p = '-';
    *--p = '-';
    *--p = '-';
    return std::string(p, static_cast<size_t>(pEnd - p));
}

}  // namespace OrvexXml
