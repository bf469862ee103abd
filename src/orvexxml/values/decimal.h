#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/values/biginteger.h"

namespace OrvexXml {

// An exact signed decimal number: the value of the schema type decimal.
//
// The value is m_integerPart + m_fractionPart / 10^m_fractionDivider. Both parts carry the
// value's sign; a value between -1 and 0 keeps its sign in a negative zero as integer part.
// The whole part has no size limit; the fraction keeps at most GetMaxDecimalPlaces() places
// (30 unless changed). Addition and subtraction are exact, multiplication is exact up to the
// bound and rounded there, and division is truncated two places past the bound and then
// rounded to it. Rounding to the bound goes to the nearest value, an exact half towards zero.
//
// Every value that a constructor, Parse or an operator gives has at least one place and no
// trailing zero in its fraction, also after rounding to the bound, except that a zero
// fraction has one place (with a bound of 0, none).
//
// The bound is one process-wide integer without a lock: set it before values are in use.
// Everything else lives in the object, so distinct objects can be used from distinct threads.
class ORVEXXML_API CDecimal {
public:
    // 0.
    CDecimal();
    CDecimal(int value);
    CDecimal(long value);
    CDecimal(long long value);
    CDecimal(const CBigInteger& value);
    // The value as "%.13f" prints it: 13 places, trailing zeros dropped. NaN and the
    // infinities throw, on the letters that are printed for them.
    CDecimal(double value);
    // Reads the text; see Parse.
    CDecimal(const char* text);
    CDecimal(const CDecimal& other);
    CDecimal& operator=(const CDecimal& other);
    virtual ~CDecimal();

    // The bound on places, shared by the whole process. The setter checks nothing; a negative
    // bound acts as 0.
    static int GetMaxDecimalPlaces();
    static void SetMaxDecimalPlaces(int nPlaces);

    // Copies of the parts, each with the value's sign, and the number of places that the
    // fraction part stands for.
    CBigInteger GetIntegerPart() const;
    CBigInteger GetFractionPart() const;
    int GetFractionDivider() const;

    // A copy with the sign flipped; the same in place.
    CDecimal GetNegative() const;
    void Negate();

    // Every place held, without a point when the fraction is 0; a negative zero reads "0".
    std::string ToString() const;
    // Rounded half away from zero to at most nPlaces places, always with a point ("2." for
    // 1.5 and 0 places). Trailing zeros that the rounding leaves are dropped, so 1.995 gives
    // "2.0". A negative nPlaces throws COxInvalidParamException.
    std::string ToString(int nPlaces) const;

    // Checked conversions; a value out of range throws COxOverFlowException. ToLongLong
    // rounds to one place first and then drops it; ToLong and ToBigInteger round to the
    // nearest integer, an exact half towards zero.
    long long ToLongLong() const;
    OxLong ToLong() const;
    double ToDouble() const;
    CBigInteger ToBigInteger() const;

    CDecimal operator+(const CDecimal& other) const;
    CDecimal operator-(const CDecimal& other) const;
    CDecimal operator*(const CDecimal& other) const;
    // A zero divisor throws COxInvalidValueException.
    CDecimal operator/(const CDecimal& other) const;
    CDecimal& operator+=(const CDecimal& other);
    CDecimal& operator-=(const CDecimal& other);
    CDecimal& operator*=(const CDecimal& other);
    CDecimal& operator/=(const CDecimal& other);
    // Add or subtract 1 and give the object.
    CDecimal& operator++();
    CDecimal& operator--();
    // Give the value plus or minus 1 and leave the object as it is.
    CDecimal operator++(int) const;
    CDecimal operator--(int) const;

    // Compare place by place after bringing both to the same number of places. The whole
    // parts decide first, with the signs first, so a negative zero whole part sorts below a
    // positive one: -0.5 < 0.5, and a parsed "-0" is equal to 0 yet less than 0.
    bool operator==(const CDecimal& other) const;
    bool operator!=(const CDecimal& other) const;
    bool operator<(const CDecimal& other) const;
    bool operator<=(const CDecimal& other) const;
    bool operator>(const CDecimal& other) const;
    bool operator>=(const CDecimal& other) const;

private:
    // Takes the three fields unchanged.
    CDecimal(const CBigInteger& integer, const CBigInteger& fraction, int nDivider);

    // Replaces the value with the one the text gives, in one scan:
    // - the whole section: digits; "+" and "-" anywhere, the last one setting the sign;
    //   blanks skipped; it ends at ".", "e", "E" or the end;
    // - after ".", the fraction: digits, blanks skipped, ending at any other character;
    // - after "e" or "E", the exponent: a run of blanks and signs (the last sign counts), then
    //   digits and nothing else.
    // Any other character is refused with its position. No digits read as 0, so the empty
    // text, "." and "-" are 0. An exponent multiplies or divides with the precision of the
    // operators. The result is rounded to the bound.
    //
    // A text is limited to 511 digits before the point, 511 after it and 31 in the exponent,
    // and a value read may have at most 511 digits before its point, exponent included;
    // beyond these the text is refused.
    void Parse(const char* text);
    // Brings the fraction to nPlaces places: exact upwards; downwards rounded to nearest, an
    // exact half towards zero, with the carry into the whole part. 0 places are allowed on
    // copies that are only read.
    void ChangeFractionalDivider(int nPlaces);
    // Drops trailing zeros of the fraction, keeping at least one place.
    void Rationalise();
    // Brings both to the larger number of places and gives it.
    static int Normalize(CDecimal& a, CDecimal& b);
    // The bound as the operations use it: never below 0.
    static int EffectiveMaxDivider();
    // Rounds to the bound when there are more places.
    void ApplyMaxDivider();

    // x * 10^n, x / 10^n and x % 10^n, with the signs that the operators of CBigInteger give
    // them, by moving digits instead of multiplying and dividing.
    static CBigInteger ShiftUp(const CBigInteger& x, unsigned n);
    static CBigInteger ShiftDown(const CBigInteger& x, unsigned n);
    static CBigInteger LowPlaces(const CBigInteger& x, unsigned n);
    // The sign field of x: -1 also for a negative zero.
    static int SignOf(const CBigInteger& x);
    // A zero with the given sign.
    static CBigInteger SignedZero(int nSign);

    friend class CBigInteger;

    static int m_maxDivider;

    CBigInteger m_integerPart;
    CBigInteger m_fractionPart;
    int32_t m_fractionDivider;
};

}  // namespace OrvexXml
