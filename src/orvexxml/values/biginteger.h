#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "orvexxml/export.h"

namespace OrvexXml {

class CDecimal;

// A signed integer of unlimited size: the value of the schema type integer.
//
// Held as decimal digits, one per byte, least significant first, so that the text form is a
// walk over the digits. Arithmetic is schoolbook, digit by digit, and every operator works
// on copies of its operands.
//
// The digit vector always holds at least one digit and no leading zero, except that zero is
// the one digit 0. Zero normally has sign 1, but a negative zero (sign -1, digit 0) is a
// legal state: parsing "-0" makes one, and so does a product or quotient with a negative
// factor. A negative zero reads "0" and is equal to 0, yet is less than 0, because the
// ordering tests the signs first.
//
// Values share no state apart from the read-only constants, so distinct objects can be used
// from distinct threads.
class ORVEXXML_API CBigInteger {
public:
    // The range limits of the built-in types, as values of this class.
    static const CBigInteger MAX_DOUBLE;
    static const CBigInteger MIN_DOUBLE;
    static const CBigInteger MAX_LONG;
    static const CBigInteger MIN_LONG;
    static const CBigInteger MAX_LONGLONG;
    static const CBigInteger MIN_LONGLONG;

    // Zero with sign 1.
    CBigInteger();
    CBigInteger(int value);
    CBigInteger(long value);
    CBigInteger(unsigned long value);
    CBigInteger(unsigned long long value);
    CBigInteger(long long value);
    // Rounds to the nearest integer, halves downwards (2.5 gives 2, -2.6 gives -3). The low
    // digits of a large value are those that repeated division by 10 in double arithmetic
    // gives, not the exact binary value. NaN and the infinities throw
    // COxInvalidValueException.
    CBigInteger(double value);
    // Parse(text).
    CBigInteger(const char* text);
    // The decimal rounded to the nearest integer, an exact half towards zero (1.5 gives 1,
    // 1.6 gives 2). Explicit, since it drops the fraction.
    explicit CBigInteger(const CDecimal& value);
    CBigInteger(const CBigInteger& other);
    CBigInteger& operator=(const CBigInteger& other);
    virtual ~CBigInteger();

    // Replaces the value with the one the text gives. A text of digits, signs, spaces, tabs,
    // carriage returns and line feeds is read here: spaces are trimmed from both ends, a
    // leading "-" makes the value negative, and then only the trailing run of digits counts
    // (so "+5" is 5, "12-3" is 3, "1 2" is 2). An empty text, or one whose last character is
    // no digit ("-", "5-"), gives 0 with sign 1. A null pointer reads as the empty text.
    // Any other character hands the text to the decimal reader, and the value is the
    // decimal's, rounded as CBigInteger(CDecimal) rounds it; what that reader refuses
    // throws its COxInvalidValueException.
    void Parse(const char* text);
    // The digits, with "-" ahead of a negative value; a negative zero reads "0".
    std::string ToString() const;

    // Copies with sign 1, or with the sign flipped.
    CBigInteger GetAbs() const;
    CBigInteger GetNegative() const;
    // In place: the sign becomes 1; the sign flips.
    void Abs();
    void Negate();
    // In place: flips the sign of this object and gives the object itself, not a copy.
    CBigInteger& operator-();

    // Equal digits, and equal signs unless the value is zero (a negative zero equals 0).
    bool operator==(const CBigInteger& other) const;
    bool operator!=(const CBigInteger& other) const;
    // The signs decide first, then the magnitudes; so a negative zero is below 0.
    // operator<= is the negation of operator>, operator>= that of operator<.
    bool operator<(const CBigInteger& other) const;
    bool operator<=(const CBigInteger& other) const;
    bool operator>(const CBigInteger& other) const;
    bool operator>=(const CBigInteger& other) const;

    CBigInteger operator+(const CBigInteger& other) const;
    CBigInteger operator-(const CBigInteger& other) const;
    CBigInteger operator*(const CBigInteger& other) const;
    // Truncates towards zero; a zero quotient of operands with unequal signs is a negative
    // zero. A zero divisor throws COxInvalidValueException and changes nothing.
    CBigInteger operator/(const CBigInteger& other) const;
    // The remainder, with the sign of the dividend. A zero divisor throws.
    CBigInteger operator%(const CBigInteger& other) const;
    CBigInteger& operator+=(const CBigInteger& other);
    CBigInteger& operator-=(const CBigInteger& other);
    CBigInteger& operator*=(const CBigInteger& other);
    CBigInteger& operator/=(const CBigInteger& other);
    CBigInteger& operator%=(const CBigInteger& other);

    // The value, when it lies in the range of the type; else COxInvalidValueException.
    // Explicit, so that mixing values with integer literals in the operators stays
    // unambiguous.
    explicit operator int() const;
    explicit operator long long() const;

    // The floor of the square root, by Newton's method. A negative value (a negative zero
    // included) throws; so does 0, whose iteration ends in a division by zero.
    CBigInteger SquareRoot() const;

    // 10 to the power n.
    static CBigInteger Pow10(unsigned n);

protected:
    // Takes both fields unchanged.
    CBigInteger(int sign, const std::vector<char>& digits);

    // Services on magnitudes (digit vectors, least significant first). Each replaces its
    // output; an output may be one of the inputs.

    // The digits of value; 0 gives the single digit 0.
    static void Build(unsigned value, std::vector<char>& digits);
    static void BuildDWORDLONG(unsigned long long value, std::vector<char>& digits);
    // value rounded (halves downwards) and split by repeated division by 10. value must be
    // finite and not negative.
    static void BuildDouble(double value, std::vector<char>& digits);
    // The trailing run of digits of text, cleaned; empty when the text ends in no digit.
    static void Build(const std::string& text, std::vector<char>& digits);
    // Drops most significant zeros, keeping one digit.
    static void Clean(std::vector<char>& digits);
    // 1, 0 or -1 as a is above, equal to or below b. Both must be clean.
    static int Compare(const std::vector<char>& a, const std::vector<char>& b);
    static void Add(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& out);
    // a - b; requires a >= b.
    static void Subtract(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& out);
    static void Multiply(const std::vector<char>& a, char digit, std::vector<char>& out);
    static void Multiply(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& out);
    // Multiplies by 10 to the power n: n zeros at the least significant end.
    static void ShiftLeft(std::vector<char>& digits, unsigned n);
    // The digit count; 1 for an empty vector.
    static unsigned Position(const std::vector<char>& digits);
    static void Pow10(unsigned n, std::vector<char>& out);
    // Truncating division; b must not be zero.
    static void Divide(const std::vector<char>& a, const std::vector<char>& b, std::vector<char>& quotient,
                       std::vector<char>& remainder);

private:
    // Reads a text that isn't a plain integer (a fraction, an exponent) through the decimal
    // reader.
    void ParseThroughDecimal(const char* text);
    // Throws strMessage when other is zero.
    static void CheckDivisor(const CBigInteger& other, const char* strMessage);
    // The body of /= and %=: the quotient or the remainder of this by other replaces this.
    void DivideInPlace(const CBigInteger& other, const char* pszZeroDivisor, bool bQuotient);

    // The decimal works on the digits of its parts directly where it moves them by whole
    // places.
    friend class CDecimal;

    int32_t m_sign;
    std::vector<char> m_digits;
};

}  // namespace OrvexXml
