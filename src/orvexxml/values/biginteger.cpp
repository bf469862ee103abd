#include "orvexxml/values/biginteger.h"

#include <cmath>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/values/decimal.h"

namespace OrvexXml {

namespace {

// The characters a plain integer text may hold; any other sends the text to the decimal
// reader.
bool IsIntegerTextChar(char c) {
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::vector<char> SingleZero() { return std::vector<char>(1, 0); }

bool IsZero(const std::vector<char>& digits) { return digits.empty() || (digits.size() == 1 && digits[0] == 0); }

constexpr uint64_t kLimbBase = 1000000000;
constexpr size_t kLimbDigits = 9;

// The digits (least significant first) as limbs of nine digits, least significant first.
std::vector<uint32_t> ToLimbs(const std::vector<char>& digits) {
    std::vector<uint32_t> limbs((digits.size() + kLimbDigits - 1) / kLimbDigits, 0);
    for (size_t i = digits.size(); i-- > 0;) {
        uint32_t& nLimb = limbs[i / kLimbDigits];
        nLimb = nLimb * 10 + static_cast<uint32_t>(digits[i]);
    }
    return limbs;
}

}  // namespace

const CBigInteger CBigInteger::MAX_LONG("2147483647");
const CBigInteger CBigInteger::MIN_LONG("-2147483648");
const CBigInteger CBigInteger::MAX_LONGLONG("9223372036854775807");
const CBigInteger CBigInteger::MIN_LONGLONG("-9223372036854775808");
// Read through the decimal reader, which knows the exponent form. Its bound on places plays
// no part here, and it is a constant, so it is set before any dynamic initialisation.
const CBigInteger CBigInteger::MAX_DOUBLE("1.7E+308");
const CBigInteger CBigInteger::MIN_DOUBLE("-1.7E+308");

CBigInteger::CBigInteger() : m_sign(1), m_digits(SingleZero()) {}

CBigInteger::CBigInteger(int value) : m_sign(value < 0 ? -1 : 1) {
    // The magnitude in unsigned arithmetic, so that the most negative value has one too.
    const unsigned nMagnitude = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    Build(nMagnitude, m_digits);
}

CBigInteger::CBigInteger(long value) : m_sign(value < 0 ? -1 : 1) {
    const unsigned long long nMagnitude =
        value < 0 ? 0ull - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value);
    BuildDWORDLONG(nMagnitude, m_digits);
}

CBigInteger::CBigInteger(unsigned long value) : m_sign(1) { BuildDWORDLONG(value, m_digits); }

CBigInteger::CBigInteger(unsigned long long value) : m_sign(1) { BuildDWORDLONG(value, m_digits); }

CBigInteger::CBigInteger(long long value) : m_sign(value < 0 ? -1 : 1) {
    const unsigned long long nMagnitude =
        value < 0 ? 0ull - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value);
    BuildDWORDLONG(nMagnitude, m_digits);
}

CBigInteger::CBigInteger(double value) : m_sign(0.0 > value ? -1 : 1) {
    // An infinity would never leave the digit loop, and NaN gives no digit at all.
    if (!std::isfinite(value)) {
        throw COxInvalidValueException("ERROR: Value is not a finite number in CBigInteger(double).");
    }
    BuildDouble(std::fabs(value), m_digits);
}

CBigInteger::CBigInteger(const char* text) : m_sign(1), m_digits(SingleZero()) { Parse(text); }

CBigInteger::CBigInteger(const CDecimal& value) : m_sign(1), m_digits(SingleZero()) {
    CDecimal copy(value);
    copy.ChangeFractionalDivider(0);
    *this = copy.m_integerPart;
}

CBigInteger::CBigInteger(const CBigInteger& other) : m_sign(other.m_sign), m_digits(other.m_digits) {}

CBigInteger::CBigInteger(int sign, const std::vector<char>& digits) : m_sign(sign), m_digits(digits) {}

CBigInteger& CBigInteger::operator=(const CBigInteger& other) {
    m_sign = other.m_sign;
    m_digits = other.m_digits;
    return *this;
}

CBigInteger::~CBigInteger() {}

void CBigInteger::Parse(const char* text) {
    const std::string strText = text == nullptr ? std::string() : std::string(text);
    for (char c : strText) {
        if (!IsIntegerTextChar(c)) {
            ParseThroughDecimal(text);
            return;
        }
    }

    const size_t nFirst = strText.find_first_not_of(' ');
    if (nFirst == std::string::npos) {
        m_sign = 1;
        m_digits = SingleZero();
        return;
    }
    const size_t nLast = strText.find_last_not_of(' ');
    std::string strTrimmed = strText.substr(nFirst, nLast - nFirst + 1);

    int32_t nSign = 1;
    if (strTrimmed[0] == '-') {
        nSign = -1;
        strTrimmed.erase(0, 1);
    }
    std::vector<char> digits;
    Build(strTrimmed, digits);
    if (digits.empty()) {
        // The text ends in a sign or a blank, so no digit counts: read it as the empty text.
        m_sign = 1;
        m_digits = SingleZero();
        return;
    }
    m_sign = nSign;
    m_digits.swap(digits);
}

void CBigInteger::ParseThroughDecimal(const char* text) {
    // Built first, so that a text the decimal reader refuses leaves this value as it was.
    const CBigInteger value{CDecimal(text)};
    *this = value;
}

std::string CBigInteger::ToString() const {
    if (IsZero(m_digits)) return "0";
    std::string strText;
    strText.reserve(m_digits.size() + 1);
    if (m_sign == -1) strText += '-';
    for (auto it = m_digits.rbegin(); it != m_digits.rend(); ++it) strText += static_cast<char>('0' + *it);
    return strText;
}

CBigInteger CBigInteger::GetAbs() const { return CBigInteger(1, m_digits); }

CBigInteger CBigInteger::GetNegative() const { return CBigInteger(-m_sign, m_digits); }

void CBigInteger::Abs() { m_sign = 1; }

void CBigInteger::Negate() { m_sign = -m_sign; }

CBigInteger& CBigInteger::operator-() {
    m_sign = -m_sign;
    return *this;
}

bool CBigInteger::operator==(const CBigInteger& other) const {
    if (m_digits != other.m_digits) return false;
    if (m_digits.size() == 1 && m_digits[0] == 0) return true;
    return m_sign == other.m_sign;
}

bool CBigInteger::operator!=(const CBigInteger& other) const { return !(*this == other); }

bool CBigInteger::operator<(const CBigInteger& other) const {
    if (m_sign == -1 && other.m_sign == 1) return true;
    if (m_sign == 1 && other.m_sign == -1) return false;
    if (m_sign == -1) return Compare(other.m_digits, m_digits) < 0;
    return Compare(m_digits, other.m_digits) < 0;
}

bool CBigInteger::operator>(const CBigInteger& other) const {
    if (m_sign == -1 && other.m_sign == 1) return false;
    if (m_sign == 1 && other.m_sign == -1) return true;
    if (m_sign == -1) return Compare(other.m_digits, m_digits) > 0;
    return Compare(m_digits, other.m_digits) > 0;
}

bool CBigInteger::operator<=(const CBigInteger& other) const { return !(*this > other); }

bool CBigInteger::operator>=(const CBigInteger& other) const { return !(*this < other); }

CBigInteger CBigInteger::operator+(const CBigInteger& other) const {
    CBigInteger result(*this);
    result += other;
    return result;
}

CBigInteger CBigInteger::operator-(const CBigInteger& other) const {
    CBigInteger result(*this);
    result -= other;
    return result;
}

CBigInteger CBigInteger::operator*(const CBigInteger& other) const {
    CBigInteger result(*this);
    result *= other;
    return result;
}

CBigInteger CBigInteger::operator/(const CBigInteger& other) const {
    CheckDivisor(other, "ERROR: Overflow in operator/.");
    CBigInteger result(*this);
    result /= other;
    return result;
}

CBigInteger CBigInteger::operator%(const CBigInteger& other) const {
    CheckDivisor(other, "ERROR: Overflow in operator%.");
    CBigInteger result(*this);
    result %= other;
    return result;
}

CBigInteger& CBigInteger::operator+=(const CBigInteger& other) {
    if (m_sign == other.m_sign) {
        Add(m_digits, other.m_digits, m_digits);
        return *this;
    }
    const int nCompare = Compare(m_digits, other.m_digits);
    if (nCompare == 0) {
        m_sign = 1;
        m_digits = SingleZero();
    } else if (nCompare > 0) {
        Subtract(m_digits, other.m_digits, m_digits);
    } else {
        Subtract(other.m_digits, m_digits, m_digits);
        m_sign = other.m_sign;
    }
    return *this;
}

CBigInteger& CBigInteger::operator-=(const CBigInteger& other) {
    // A negated copy, so that x -= x doesn't flip the left side's sign along with the right.
    return *this += CBigInteger(-other.m_sign, other.m_digits);
}

CBigInteger& CBigInteger::operator*=(const CBigInteger& other) {
    Multiply(m_digits, other.m_digits, m_digits);
    m_sign *= other.m_sign;
    return *this;
}

CBigInteger& CBigInteger::operator/=(const CBigInteger& other) {
    DivideInPlace(other, "ERROR: Overflow in operator /=.", true);
    return *this;
}

CBigInteger& CBigInteger::operator%=(const CBigInteger& other) {
    DivideInPlace(other, "ERROR: Overflow in operator%=.", false);
    return *this;
}

void CBigInteger::DivideInPlace(const CBigInteger& other, const char* pszZeroDivisor, bool bQuotient) {
    CheckDivisor(other, pszZeroDivisor);
    if (IsZero(m_digits)) {
        m_sign = 1;
        m_digits = SingleZero();
        return;
    }
    std::vector<char> quotient;
    std::vector<char> remainder;
    Divide(m_digits, other.m_digits, quotient, remainder);
    if (bQuotient) {
        // Truncated toward zero; a zero quotient of unequal signs keeps its sign -1.
        m_sign = m_sign == other.m_sign ? 1 : -1;
        m_digits.swap(quotient);
    } else {
        // The remainder keeps the sign of the dividend.
        m_digits.swap(remainder);
    }
}

void CBigInteger::CheckDivisor(const CBigInteger& other, const char* strMessage) {
    if (IsZero(other.m_digits)) throw COxInvalidValueException(strMessage);
}

CBigInteger::operator int() const {
    if (*this < MIN_LONG || *this > MAX_LONG) throw COxInvalidValueException("ERROR: Value out of bound of int.");
    // Summed in 64 bits: the top digit of a ten-digit value times its multiplier already
    // leaves the range of int.
    long long nValue = 0;
    long long nMultiplier = 1;
    for (size_t i = 0; i < m_digits.size(); ++i) {
        if (i > 0) nMultiplier *= 10;
        nValue += m_sign == -1 ? -m_digits[i] * nMultiplier : m_digits[i] * nMultiplier;
    }
    return static_cast<int>(nValue);
}

CBigInteger::operator long long() const {
    if (*this < MIN_LONGLONG || *this > MAX_LONGLONG) {
        throw COxInvalidValueException("ERROR: Value out of bound of LONGLONG.");
    }
    // The multiplier grows only ahead of each digit, so it stops at 10^18 and never
    // overflows; the running sum stays within the range that was just tested.
    long long nValue = 0;
    long long nMultiplier = 1;
    for (size_t i = 0; i < m_digits.size(); ++i) {
        if (i > 0) nMultiplier *= 10;
        nValue += m_sign == -1 ? -m_digits[i] * nMultiplier : m_digits[i] * nMultiplier;
    }
    return nValue;
}

CBigInteger CBigInteger::SquareRoot() const {
    if (*this < CBigInteger(0)) throw COxInvalidValueException("ERROR: Negative Number in function SquareRoot().");
    // A start above the root: 10 to the power of one more than the number of times that the
    // value can be divided by 100 without reaching 0.
    const CBigInteger hundred(100);
    const CBigInteger zero(0);
    CBigInteger x(10);
    CBigInteger r(*this);
    for (;;) {
        r /= hundred;
        if (!(r > zero)) break;
        x *= CBigInteger(10);
    }
    // Newton's steps fall towards the root from above; the first one that doesn't fall any
    // further leaves the floor of the root in previous.
    const CBigInteger two(2);
    CBigInteger previous;
    do {
        previous = x;
        x = (x + *this / x) / two;
    } while (!(x >= previous));
    return previous;
}

CBigInteger CBigInteger::Pow10(unsigned n) {
    std::vector<char> digits;
    Pow10(n, digits);
    return CBigInteger(1, digits);
}

void CBigInteger::Build(unsigned value, std::vector<char>& digits) { BuildDWORDLONG(value, digits); }

void CBigInteger::BuildDWORDLONG(unsigned long long value, std::vector<char>& digits) {
    digits.clear();
    if (value == 0) {
        digits.push_back(0);
        return;
    }
    while (value > 0) {
        digits.push_back(static_cast<char>(value % 10));
        value /= 10;
    }
}

void CBigInteger::BuildDouble(double value, std::vector<char>& digits) {
    digits.clear();
    double d = std::ceil(value - 0.5);
    if (d == 0) {
        digits.push_back(0);
        return;
    }
    while (d > 0) {
        digits.push_back(static_cast<char>(static_cast<int>(std::fmod(d, 10))));
        d = std::trunc(d / 10);
    }
}

void CBigInteger::Build(const std::string& text, std::vector<char>& digits) {
    digits.clear();
    for (auto it = text.rbegin(); it != text.rend() && *it >= '0' && *it <= '9'; ++it) {
        digits.push_back(static_cast<char>(*it - '0'));
    }
    Clean(digits);
}

void CBigInteger::Clean(std::vector<char>& digits) {
    while (digits.size() > 1 && digits.back() == 0) digits.pop_back();
}

int CBigInteger::Compare(const std::vector<char>& a, const std::vector<char>& b) {
    if (a.size() != b.size()) return a.size() > b.size() ? 1 : -1;
    for (size_t i = a.size(); i-- > 0;) {
        if (a[i] != b[i]) return a[i] > b[i] ? 1 : -1;
    }
    return 0;
}

void CBigInteger::Add(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& out) {
    const std::vector<char>& longer = a.size() >= b.size() ? a : b;
    const std::vector<char>& shorter = a.size() >= b.size() ? b : a;
    std::vector<char> sum;
    sum.reserve(longer.size() + 1);
    int nCarry = 0;
    for (size_t i = 0; i < longer.size(); ++i) {
        int nDigit = longer[i] + (i < shorter.size() ? shorter[i] : 0) + nCarry;
        nCarry = nDigit > 9 ? 1 : 0;
        sum.push_back(static_cast<char>(nDigit - 10 * nCarry));
    }
    if (nCarry > 0) sum.push_back(static_cast<char>(nCarry));
    out.swap(sum);
}

void CBigInteger::Subtract(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& out) {
    // Borrowing digit by digit; for a >= b this gives the same digits as borrowing from the
    // next non-zero digit upwards.
    std::vector<char> difference;
    difference.reserve(a.size());
    int nBorrow = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        int nDigit = a[i] - (i < b.size() ? b[i] : 0) - nBorrow;
        nBorrow = nDigit < 0 ? 1 : 0;
        difference.push_back(static_cast<char>(nDigit + 10 * nBorrow));
    }
    Clean(difference);
    out.swap(difference);
}

void CBigInteger::Multiply(const std::vector<char>& a, char digit, std::vector<char>& out) {
    std::vector<char> product;
    if (digit == 0 || IsZero(a)) {
        product.push_back(0);
        out.swap(product);
        return;
    }
    product.reserve(a.size() + 1);
    int nCarry = 0;
    for (char c : a) {
        const int nValue = c * digit + nCarry;
        product.push_back(static_cast<char>(nValue % 10));
        nCarry = nValue / 10;
    }
    if (nCarry > 0) product.push_back(static_cast<char>(nCarry));
    out.swap(product);
}

void CBigInteger::Multiply(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& out) {
    if (IsZero(a) || IsZero(b)) {
        out = SingleZero();
        return;
    }
    // Schoolbook multiplication on limbs of nine digits (base 10^9): the same product as
    // digit by digit, with 81 times fewer steps. A limb product stays below 10^18, so a step
    // with its carry fits 64 bits.
    const std::vector<uint32_t> limbsA = ToLimbs(a);
    const std::vector<uint32_t> limbsB = ToLimbs(b);
    std::vector<uint32_t> limbs(limbsA.size() + limbsB.size(), 0);
    for (size_t j = 0; j < limbsB.size(); ++j) {
        const uint64_t nFactor = limbsB[j];
        if (nFactor == 0) continue;
        uint64_t nCarry = 0;
        for (size_t i = 0; i < limbsA.size(); ++i) {
            const uint64_t nValue = limbs[i + j] + nFactor * limbsA[i] + nCarry;
            limbs[i + j] = static_cast<uint32_t>(nValue % kLimbBase);
            nCarry = nValue / kLimbBase;
        }
        for (size_t k = j + limbsA.size(); nCarry > 0; ++k) {
            const uint64_t nValue = limbs[k] + nCarry;
            limbs[k] = static_cast<uint32_t>(nValue % kLimbBase);
            nCarry = nValue / kLimbBase;
        }
    }
    std::vector<char> product;
    product.reserve(limbs.size() * kLimbDigits);
    for (uint32_t nLimb : limbs) {
        for (size_t d = 0; d < kLimbDigits; ++d) {
            product.push_back(static_cast<char>(nLimb % 10));
            nLimb /= 10;
        }
    }
    Clean(product);
    out.swap(product);
}

void CBigInteger::ShiftLeft(std::vector<char>& digits, unsigned n) { digits.insert(digits.begin(), n, 0); }

unsigned CBigInteger::Position(const std::vector<char>& digits) {
    return digits.empty() ? 1u : static_cast<unsigned>(digits.size());
}

void CBigInteger::Pow10(unsigned n, std::vector<char>& out) {
    std::vector<char> power(1, 1);
    ShiftLeft(power, n);
    out.swap(power);
}

void CBigInteger::Divide(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& quotient,
                         std::vector<char>& remainder) {
    if (Compare(a, b) < 0) {
        std::vector<char> copy(a);
        quotient = SingleZero();
        remainder.swap(copy);
        return;
    }
    // Long division from the most significant digit: the running remainder takes the next
    // digit of a, and b is subtracted from it at most nine times. The quotient and remainder
    // are those of repeated subtraction of shifted divisors, found with fewer copies.
    std::vector<char> result(a.size(), 0);
    std::vector<char> running;
    for (size_t i = a.size(); i-- > 0;) {
        running.insert(running.begin(), a[i]);
        Clean(running);
        char nDigit = 0;
        while (Compare(running, b) >= 0) {
            Subtract(running, b, running);
            ++nDigit;
        }
        result[i] = nDigit;
    }
    Clean(result);
    quotient.swap(result);
    remainder.swap(running);
}

}  // namespace OrvexXml
