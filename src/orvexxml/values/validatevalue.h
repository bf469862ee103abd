#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/values/itemtype.h"

namespace OrvexXml {

class CBigInteger;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CPrimitiveRestrictions;
class OxVariant;

// The checks of a primitive value against the facets of its schema type. Each takes the name
// that a refusal shows (of the element or attribute), the value and the facet set, and throws
// COxException "Invalid Value for <name> [<value>]." (for the sized integers up to 32 bits
// and the floats without the full stop) at the first facet that the value breaks; the
// message doesn't tell which. A bound is read with the conversion of the value's own type, and
// a bound that can't be read throws that conversion's exception instead. The checks only
// read.
//
// Bounds: the integer kinds, decimal and integer compare with their own operators; the floats
// pass a bound only when the comparison holds, so NaN, as value or bound, fails every bound
// that is set. Dates and durations are partially ordered: an indeterminate comparison (a
// value with a time zone against one without, within 14 hours) passes every bound. Total digits count the characters of
// the text form of an integer kind (a minus sign too: -12 has three), and the digits of a decimal without its leading 0
// and trailing zeros. Lengths count bytes: of binary data, and of a string in the local encoding. A string is then
// matched against the pattern, as MatchesPattern says; a pattern that doesn't compile throws COxException with the
// compiler's message and the refusal on the next line.
ORVEXXML_API void ValidateValue(const char* pszName, char value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, int16_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, int32_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, int64_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, uint8_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, uint16_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, uint32_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, uint64_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, float value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, double value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, const std::string& value,
                                const CPrimitiveRestrictions& restrictions);
// The same check for a string given as a C string (which would otherwise pass as a boolean).
ORVEXXML_API void ValidateValue(const char* pszName, const char* value, const CPrimitiveRestrictions& restrictions);
// Every boolean passes.
ORVEXXML_API void ValidateValue(const char* pszName, bool value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, const CDecimal& value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, const CBigInteger& value,
                                const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateValue(const char* pszName, const CDateTimeSpan& value,
                                const CPrimitiveRestrictions& restrictions);
// The five date kinds: the bounds are read as texts of the value's own kind.
ORVEXXML_API void ValidateValue(const char* pszName, const CDateTime& value,
                                const CPrimitiveRestrictions& restrictions);

// The kinds that share their C++ type with another kind have checks of their own name: the
// two binary kinds differ in the text a refusal shows, and year, month and day (held as plain
// numbers) read their bounds as gYear, gMonth and gDay texts.
ORVEXXML_API void ValidateHexBinary(const char* pszName, const CBinaryData& value,
                                    const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateBase64Binary(const char* pszName, const CBinaryData& value,
                                       const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateYear(const char* pszName, uint16_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateMonth(const char* pszName, uint8_t value, const CPrimitiveRestrictions& restrictions);
ORVEXXML_API void ValidateDay(const char* pszName, uint8_t value, const CPrimitiveRestrictions& restrictions);

// The check of the declared type, on the value that the variant holds of it. Types without a
// check (char, and any number that isn't a primitive kind) throw COxInvalidValueException
// "Unknown type [<the variant's type name>]."; a variant whose type has no name throws
// "Invalid Type %d" first.
ORVEXXML_API void ValidatePrimitive(const char* pszName, const OxVariant& value, ItemType eType,
                                    const CPrimitiveRestrictions& restrictions);

// True when the whole value matches the XML Schema regular expression. The pattern is
// translated to the PCRE dialect: "\\" is kept as it is, and "\i", "\I", "\c", "\C" and the
// four Latin blocks "\p{IsBasicLatin}", "\p{IsLatin-1Supplement}", "\p{IsLatinExtended-A}",
// "\p{IsLatinExtended-B}" become PCRE classes, as plain text wherever they stand (in a
// character class too); everything else goes to PCRE unchanged. The pattern is UTF-8 (the
// string check converts the facet's local text), the value local text; each is taken up to
// its first null byte. A value that matches up to a line feed at its
// end doesn't match. A pattern that doesn't compile throws COxException "Invalid Regular
// Expression: <pattern as translated> Error: '<PCRE's text>'". A match that backtracks past
// a fixed bound (about a million steps) ends as no match.
ORVEXXML_API bool MatchesPattern(std::string strPattern, std::string strValue);

}  // namespace OrvexXml
