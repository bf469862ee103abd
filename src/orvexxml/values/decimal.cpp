#include "orvexxml/values/decimal.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/whitespaceutils.h"

namespace OrvexXml {

namespace {

// The digit limits of a text: before the point, after it, in the exponent.
constexpr size_t kMaxIntegerDigits = 511;
constexpr size_t kMaxFractionDigits = 511;
constexpr size_t kMaxExponentDigits = 31;
// Above this exponent, any value other than 0 has more than kMaxIntegerDigits digits before
// its point: the smallest such value a text can give is 10^-511.
constexpr unsigned kExponentCertainlyTooLarge = kMaxIntegerDigits + kMaxFractionDigits + 1;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Strict tests of the value, for which a negative zero is no negative number.
const CBigInteger& Zero() {
    static const CBigInteger s_zero(0);
    return s_zero;
}
bool Above0(const CBigInteger& x) { return x > Zero(); }
// A negative zero sorts below 0 but is equal to it.
bool Below0(const CBigInteger& x) { return x < Zero() && !(x == Zero()); }

[[noreturn]] void ThrowInvalidChar(size_t nPosition, const char* text) {
    throw COxInvalidValueException(
        FormatString("The string representing a Decimal, contained an invalid char at position %d [%s].",
                     static_cast<int>(nPosition), text));
}

[[noreturn]] void ThrowTooManyDigits(const char* pszWhere, const char* text) {
    throw COxInvalidValueException(std::string("The string representing a Decimal, has more than ") + pszWhere + " [" +
                                   text + "].");
}

// The digits of a magnitude, most significant first, padded with zeros on the left to
// nWidth characters.
std::string Digits(const CBigInteger& value, size_t nWidth) {
    std::string strDigits = value.GetAbs().ToString();
    if (strDigits.size() < nWidth) strDigits.insert(0, nWidth - strDigits.size(), '0');
    return strDigits;
}

}  // namespace

int CDecimal::m_maxDivider = 30;

CDecimal::CDecimal() : m_fractionDivider(1) {}

CDecimal::CDecimal(int value) : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(long value) : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(long long value) : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(const CBigInteger& value) : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(double value) : m_fractionDivider(1) {
    char buffer[1024];
    std::snprintf(buffer, sizeof(buffer), "%.13f\n", value);
    Parse(buffer);
}

CDecimal::CDecimal(const char* text) : m_fractionDivider(1) { Parse(text); }

CDecimal::CDecimal(const CDecimal& other)
    : m_integerPart(other.m_integerPart),
      m_fractionPart(other.m_fractionPart),
      m_fractionDivider(other.m_fractionDivider) {}

CDecimal::CDecimal(const CBigInteger& integer, const CBigInteger& fraction, int nDivider)
    : m_integerPart(integer), m_fractionPart(fraction), m_fractionDivider(nDivider) {}

CDecimal& CDecimal::operator=(const CDecimal& other) {
    m_integerPart = other.m_integerPart;
    m_fractionPart = other.m_fractionPart;
    m_fractionDivider = other.m_fractionDivider;
    return *this;
}

CDecimal::~CDecimal() {}

int CDecimal::GetMaxDecimalPlaces() { return m_maxDivider; }

void CDecimal::SetMaxDecimalPlaces(int nPlaces) { m_maxDivider = nPlaces; }

int CDecimal::EffectiveMaxDivider() { return m_maxDivider < 0 ? 0 : m_maxDivider; }

CBigInteger CDecimal::GetIntegerPart() const { return m_integerPart; }

CBigInteger CDecimal::GetFractionPart() const { return m_fractionPart; }

int CDecimal::GetFractionDivider() const { return m_fractionDivider; }

CDecimal CDecimal::GetNegative() const {
    CDecimal result(*this);
    result.Negate();
    return result;
}

void CDecimal::Negate() {
    m_integerPart.Negate();
    m_fractionPart.Negate();
}

void CDecimal::Parse(const char* text) {
    const char* pszText = text == nullptr ? "" : text;
    std::string strInteger;
    std::string strFraction;
    std::string strExponent;
    bool bNegative = false;
    bool bNegativeExponent = false;
    size_t nPos = 0;

    for (;; ++nPos) {
        const char c = pszText[nPos];
        if (c == '\0' || c == '.' || c == 'e' || c == 'E') break;
        if (IsDigit(c)) {
            if (strInteger.size() == kMaxIntegerDigits) ThrowTooManyDigits("511 digits before the point", pszText);
            strInteger += c;
        } else if (c == '+' || c == '-') {
            bNegative = c == '-';
        } else if (!CWhitespaceUtils::IsWhiteSpace(c)) {
            ThrowInvalidChar(nPos, pszText);
        }
    }
    if (pszText[nPos] == '.') {
        for (++nPos;; ++nPos) {
            const char c = pszText[nPos];
            if (IsDigit(c)) {
                if (strFraction.size() == kMaxFractionDigits) {
                    ThrowTooManyDigits("511 digits after the point", pszText);
                }
                strFraction += c;
            } else if (!CWhitespaceUtils::IsWhiteSpace(c)) {
                break;
            }
        }
    }
    if (pszText[nPos] == 'e' || pszText[nPos] == 'E') {
        for (++nPos;; ++nPos) {
            const char c = pszText[nPos];
            if (c == '+' || c == '-') {
                bNegativeExponent = c == '-';
            } else if (!CWhitespaceUtils::IsWhiteSpace(c)) {
                break;
            }
        }
        for (; IsDigit(pszText[nPos]); ++nPos) {
            if (strExponent.size() == kMaxExponentDigits) ThrowTooManyDigits("31 digits in its exponent", pszText);
            strExponent += pszText[nPos];
        }
    }
    if (pszText[nPos] != '\0') ThrowInvalidChar(nPos, pszText);

    // The sections hold digits only: their values are built from them directly, the same that
    // reading them as integer texts would give.
    auto fromDigits = [](const std::string& strDigits) {
        std::vector<char> digits(strDigits.rbegin(), strDigits.rend());
        for (char& c : digits) c = static_cast<char>(c - '0');
        CBigInteger::Clean(digits);
        if (digits.empty()) digits.push_back(0);
        return digits;
    };
    const int nDivider = strFraction.empty() ? 1 : static_cast<int>(strFraction.size());
    if (strExponent.empty()) {
        // The usual text: the digit sections become the parts in place, with no temporary
        // values. Nothing from here on can fail but an allocation, which happens before any
        // part changes.
        std::vector<char> integerDigits = fromDigits(strInteger);
        std::vector<char> fractionDigits = fromDigits(strFraction);
        m_integerPart.m_digits.swap(integerDigits);
        m_fractionPart.m_digits.swap(fractionDigits);
        m_integerPart.m_sign = m_fractionPart.m_sign = 1;
        if (bNegative) {
            m_integerPart.Negate();
            m_fractionPart.Negate();
        }
        m_fractionDivider = nDivider;
        Rationalise();
        ApplyMaxDivider();
        return;
    }
    CBigInteger integer(1, fromDigits(strInteger));
    CBigInteger fraction(1, fromDigits(strFraction));
    if (bNegative) {
        integer.Negate();
        fraction.Negate();
    }
    CDecimal value(integer, fraction, nDivider);

    {
        // Saturates far above any exponent that is used as it stands.
        unsigned nExponent = 0;
        for (char c : strExponent) {
            nExponent = nExponent > 100000000u ? nExponent : nExponent * 10 + static_cast<unsigned>(c - '0');
        }
        const bool bZero = integer == Zero() && fraction == Zero();
        if (bNegativeExponent) {
            // Once the quotient falls below the last of the places that division keeps, it
            // is 0 with the same sign for every larger exponent: the division by 10 to that
            // power gives the same result with far fewer digits.
            const unsigned nVanishing =
                static_cast<unsigned>(integer.m_digits.size()) + static_cast<unsigned>(EffectiveMaxDivider()) + 2;
            if (nExponent > nVanishing) nExponent = nVanishing;
            value = value / CDecimal(CBigInteger::Pow10(nExponent));
        } else {
            // 0 stays 0, with the signs of its parts, for any power of ten.
            if (bZero) nExponent = 0;
            if (nExponent > kExponentCertainlyTooLarge) ThrowTooManyDigits("511 digits before the point", pszText);
            value = value * CDecimal(CBigInteger::Pow10(nExponent));
            if (value.m_integerPart.m_digits.size() > kMaxIntegerDigits) {
                ThrowTooManyDigits("511 digits before the point", pszText);
            }
        }
    }
    value.Rationalise();
    value.ApplyMaxDivider();
    *this = value;
}

void CDecimal::ApplyMaxDivider() {
    if (m_fractionDivider <= EffectiveMaxDivider()) return;
    ChangeFractionalDivider(EffectiveMaxDivider());
    // Rounding can leave zeros at the end (0.0000200...0015 to 30 places); they go too, so
    // that every value prints the text that reads back as itself.
    Rationalise();
}

void CDecimal::Rationalise() {
    if (m_fractionDivider <= 1) return;
    // The places from the last one upwards that hold 0; a zero fraction holds 0 in all.
    const std::vector<char>& digits = m_fractionPart.m_digits;
    const bool bZero = digits.size() == 1 && digits[0] == 0;
    size_t nZeros = 0;
    if (bZero) {
        nZeros = static_cast<size_t>(m_fractionDivider);
    } else {
        while (nZeros < digits.size() && digits[nZeros] == 0) ++nZeros;
    }
    const size_t nDrop = std::min(nZeros, static_cast<size_t>(m_fractionDivider - 1));
    if (nDrop == 0) return;
    m_fractionPart = ShiftDown(m_fractionPart, static_cast<unsigned>(nDrop));
    m_fractionDivider -= static_cast<int32_t>(nDrop);
}

int CDecimal::Normalize(CDecimal& a, CDecimal& b) {
    const int nDivider = a.m_fractionDivider > b.m_fractionDivider ? a.m_fractionDivider : b.m_fractionDivider;
    a.ChangeFractionalDivider(nDivider);
    b.ChangeFractionalDivider(nDivider);
    return nDivider;
}

void CDecimal::ChangeFractionalDivider(int nPlaces) {
    if (nPlaces >= m_fractionDivider) {
        m_fractionPart = ShiftUp(m_fractionPart, static_cast<unsigned>(nPlaces - m_fractionDivider));
        m_fractionDivider = nPlaces;
        return;
    }
    const unsigned nDropped = static_cast<unsigned>(m_fractionDivider - nPlaces);
    const CBigInteger remainder = LowPlaces(m_fractionPart, nDropped);
    m_fractionPart = ShiftDown(m_fractionPart, nDropped);
    m_fractionDivider = nPlaces;

    // Half of 10^nDropped, and its negative.
    const CBigInteger half = CBigInteger::Pow10(nDropped) / CBigInteger(2);
    const CBigInteger negativeHalf = CBigInteger::Pow10(nDropped) / CBigInteger(-2);
    const int nCarry = remainder > half ? 1 : (remainder < negativeHalf ? -1 : 0);
    if (nCarry == 0) return;
    const CBigInteger carry(nCarry);
    if (nPlaces == 0) {
        m_integerPart += carry;
        return;
    }
    m_fractionPart += carry;
    const CBigInteger unit = CBigInteger::Pow10(static_cast<unsigned>(nPlaces));
    if (m_fractionPart.GetAbs() >= unit) {
        if (SignOf(m_fractionPart) == 1) {
            m_fractionPart -= unit;
        } else {
            m_fractionPart += unit;
        }
        m_integerPart += carry;
    }
    if (Above0(m_integerPart) && Below0(m_fractionPart)) {
        m_fractionPart += unit;
        m_integerPart -= CBigInteger(1);
    } else if (Below0(m_integerPart) && Above0(m_fractionPart)) {
        m_fractionPart -= unit;
        m_integerPart += CBigInteger(1);
    }
    if (m_integerPart == Zero()) m_integerPart = SignedZero(SignOf(m_fractionPart));
}

CDecimal CDecimal::operator+(const CDecimal& other) const {
    CDecimal a(*this);
    CDecimal b(other);
    const int nDivider = Normalize(a, b);
    const CBigInteger unit = CBigInteger::Pow10(static_cast<unsigned>(nDivider));
    const CBigInteger negativeUnit = unit.GetNegative();
    const CBigInteger one(1);
    CBigInteger fraction = a.m_fractionPart + b.m_fractionPart;
    CBigInteger integer = a.m_integerPart + b.m_integerPart;
    while (fraction >= unit) {
        fraction -= unit;
        integer += one;
    }
    while (fraction <= negativeUnit) {
        fraction += unit;
        integer -= one;
    }
    // The parts get one sign. Only values decide: a negative zero fraction of a positive
    // value (the negation of a negative whole number made from an integer has one) needs no
    // borrow, and borrowing for it would leave a fraction of a whole unit.
    if (Above0(integer) && Below0(fraction)) {
        fraction += unit;
        integer -= one;
    }
    if (Below0(integer) && Above0(fraction)) {
        fraction -= unit;
        integer += one;
    }
    if (integer == Zero()) integer = SignedZero(SignOf(fraction));
    CDecimal result(integer, fraction, nDivider);
    result.Rationalise();
    return result;
}

CDecimal CDecimal::operator-(const CDecimal& other) const { return *this + other.GetNegative(); }

CDecimal CDecimal::operator*(const CDecimal& other) const {
    CDecimal a(*this);
    CDecimal b(other);
    const unsigned nDivider = static_cast<unsigned>(Normalize(a, b));
    // The product of the operands as whole numbers of places. It is the sum of the four
    // products of their parts, and it is 0 exactly when that sum is, in which case both parts
    // of the result are a plain 0 either way.
    const CBigInteger product = (ShiftUp(a.m_integerPart, nDivider) + a.m_fractionPart) *
                                (ShiftUp(b.m_integerPart, nDivider) + b.m_fractionPart);
    CDecimal result(ShiftDown(product, 2 * nDivider), LowPlaces(product, 2 * nDivider), static_cast<int>(2 * nDivider));
    result.Rationalise();
    result.ApplyMaxDivider();
    return result;
}

CDecimal CDecimal::operator/(const CDecimal& other) const {
    CDecimal a(*this);
    CDecimal b(other);
    const unsigned nDivider = static_cast<unsigned>(Normalize(a, b));
    const unsigned nKept = static_cast<unsigned>(EffectiveMaxDivider()) + 2;
    const CBigInteger dividend = ShiftUp(a.m_integerPart, nDivider) + a.m_fractionPart;
    const CBigInteger divisor = ShiftUp(b.m_integerPart, nDivider) + b.m_fractionPart;
    const CBigInteger quotient = ShiftUp(dividend, nKept) / divisor;
    CDecimal result(ShiftDown(quotient, nKept), LowPlaces(quotient, nKept), static_cast<int>(nKept));
    result.Rationalise();
    result.ApplyMaxDivider();
    return result;
}

CDecimal& CDecimal::operator+=(const CDecimal& other) { return *this = *this + other; }

CDecimal& CDecimal::operator-=(const CDecimal& other) { return *this = *this - other; }

CDecimal& CDecimal::operator*=(const CDecimal& other) { return *this = *this * other; }

CDecimal& CDecimal::operator/=(const CDecimal& other) { return *this = *this / other; }

CDecimal& CDecimal::operator++() { return *this = *this + CDecimal(1); }

CDecimal& CDecimal::operator--() { return *this = *this - CDecimal(1); }

CDecimal CDecimal::operator++(int) const { return *this + CDecimal(1); }

CDecimal CDecimal::operator--(int) const { return *this - CDecimal(1); }

bool CDecimal::operator==(const CDecimal& other) const {
    CDecimal a(*this);
    CDecimal b(other);
    Normalize(a, b);
    return a.m_integerPart == b.m_integerPart && a.m_fractionPart == b.m_fractionPart;
}

bool CDecimal::operator!=(const CDecimal& other) const { return !(*this == other); }

bool CDecimal::operator<(const CDecimal& other) const {
    CDecimal a(*this);
    CDecimal b(other);
    Normalize(a, b);
    return a.m_integerPart < b.m_integerPart ||
           (a.m_integerPart == b.m_integerPart && a.m_fractionPart < b.m_fractionPart);
}

bool CDecimal::operator<=(const CDecimal& other) const {
    CDecimal a(*this);
    CDecimal b(other);
    Normalize(a, b);
    return a.m_integerPart < b.m_integerPart ||
           (a.m_integerPart == b.m_integerPart && a.m_fractionPart <= b.m_fractionPart);
}

bool CDecimal::operator>(const CDecimal& other) const { return other < *this; }

bool CDecimal::operator>=(const CDecimal& other) const { return other <= *this; }

std::string CDecimal::ToString() const {
    if (m_fractionPart == Zero()) return m_integerPart.ToString();
    std::string strText = SignOf(m_integerPart) == -1 ? "-" : "";
    strText += m_integerPart.GetAbs().ToString();
    strText += '.';
    strText += Digits(m_fractionPart, static_cast<size_t>(m_fractionDivider));
    return strText;
}

std::string CDecimal::ToString(int nPlaces) const {
    if (nPlaces < 0) {
        throw COxInvalidParamException(
            FormatString("ERROR: Negative number of places [%d] in CDecimal::ToString.", nPlaces));
    }
    // Half a unit of the last place kept, with the value's sign: 5 in place nPlaces + 1. Half
    // a unit beyond the bound would round to nothing, so nothing is added then.
    const int nSign = SignOf(m_integerPart);
    CDecimal sum(*this);
    if (nPlaces < EffectiveMaxDivider()) sum += CDecimal(SignedZero(nSign), CBigInteger(5 * nSign), nPlaces + 1);
    std::string strFraction = Digits(sum.m_fractionPart, static_cast<size_t>(sum.m_fractionDivider));
    if (strFraction.size() > static_cast<size_t>(nPlaces)) strFraction.resize(static_cast<size_t>(nPlaces));
    std::string strText = SignOf(sum.m_integerPart) == -1 ? "-" : "";
    strText += sum.m_integerPart.GetAbs().ToString();
    strText += '.';
    strText += strFraction;
    return strText;
}

CBigInteger CDecimal::ToBigInteger() const {
    CDecimal copy(*this);
    copy.ChangeFractionalDivider(0);
    return copy.m_integerPart;
}

OxLong CDecimal::ToLong() const {
    CDecimal copy(*this);
    copy.ChangeFractionalDivider(0);
    if (copy.m_integerPart > CBigInteger::MAX_LONG || copy.m_integerPart < CBigInteger::MIN_LONG) {
        throw COxOverFlowException("The Decimal value if to large to fit into a LONG");
    }
    return static_cast<OxLong>(std::atoi(copy.ToString().c_str()));
}

long long CDecimal::ToLongLong() const {
    CDecimal copy(*this);
    copy.ChangeFractionalDivider(1);
    if (copy.m_integerPart > CBigInteger::MAX_LONGLONG || copy.m_integerPart < CBigInteger::MIN_LONGLONG) {
        throw COxOverFlowException("The Decimal value if to large to fit into a LONGLONG");
    }
    // Reading stops at the point, so the one place left is dropped.
    return std::strtoll(copy.ToString().c_str(), nullptr, 10);
}

double CDecimal::ToDouble() const {
    if (m_integerPart > CBigInteger::MAX_DOUBLE || m_integerPart < CBigInteger::MIN_DOUBLE) {
        throw COxOverFlowException("The Decimal value if to large to fit into a Double");
    }
    return std::strtod(ToString().c_str(), nullptr);
}

CBigInteger CDecimal::ShiftUp(const CBigInteger& x, unsigned n) {
    CBigInteger result(x);
    const bool bZero = x.m_digits.size() == 1 && x.m_digits[0] == 0;
    if (!bZero) CBigInteger::ShiftLeft(result.m_digits, n);
    return result;
}

CBigInteger CDecimal::ShiftDown(const CBigInteger& x, unsigned n) {
    const bool bZero = x.m_digits.size() == 1 && x.m_digits[0] == 0;
    if (bZero) return CBigInteger(0);
    if (n >= x.m_digits.size()) return SignedZero(x.m_sign);
    return CBigInteger(x.m_sign, std::vector<char>(x.m_digits.begin() + n, x.m_digits.end()));
}

CBigInteger CDecimal::LowPlaces(const CBigInteger& x, unsigned n) {
    const bool bZero = x.m_digits.size() == 1 && x.m_digits[0] == 0;
    if (bZero) return CBigInteger(0);
    if (n >= x.m_digits.size()) return x;
    std::vector<char> digits(x.m_digits.begin(), x.m_digits.begin() + n);
    CBigInteger::Clean(digits);
    if (digits.empty()) digits.push_back(0);
    return CBigInteger(x.m_sign, digits);
}

int CDecimal::SignOf(const CBigInteger& x) { return x.m_sign; }

CBigInteger CDecimal::SignedZero(int nSign) {
    CBigInteger zero(0);
    zero.m_sign = nSign < 0 ? -1 : 1;
    return zero;
}

}  // namespace OrvexXml
