#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/values/biginteger.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/datetime.h"
#include "orvexxml/values/datetimespan.h"
#include "orvexxml/values/decimal.h"
#include "orvexxml/values/whitespaceutils.h"

namespace OrvexXml {

// The text form of each primitive kind, in both directions. Stateless; all members static.
//
// Every ...FromString first passes the text through CWhitespaceUtils::ApplyRule and refuses
// a text it can't take with COxInvalidValueException.
class ORVEXXML_API CConversions {
public:
    typedef CWhitespaceUtils::WhitespaceRule WhitespaceRule;

    // --- signed integers: base 10, "-" for negatives -----------------------------------
    static std::string i1ToString(char value);  // the value is taken as signed
    static std::string i2ToString(int16_t value);
    static std::string i4ToString(OxLong value);
    static std::string i8ToString(int64_t value);

    // Leading whitespace, an optional sign and base-10 digits, as strtol reads them, with
    // nothing behind. A magnitude beyond the type is refused as too large before the
    // character that stopped reading is looked at.
    static char i1FromString(const std::string& text, WhitespaceRule rule);
    static int16_t i2FromString(const std::string& text, WhitespaceRule rule);
    static OxLong i4FromString(const std::string& text, WhitespaceRule rule);
    static int64_t i8FromString(const std::string& text, WhitespaceRule rule);

    // --- unsigned integers ------------------------------------------------------------------
    static std::string ui1ToString(uint8_t value);
    static std::string ui2ToString(uint16_t value);
    static std::string ui4ToString(OxULong value);
    static std::string ui8ToString(uint64_t value);

    // As the signed forms; a "-" is accepted and negates the magnitude modulo 2^width, as
    // strtoul does ("-1" read as ui4 is 4294967295).
    static uint8_t ui1FromString(const std::string& text, WhitespaceRule rule);
    static uint16_t ui2FromString(const std::string& text, WhitespaceRule rule);
    static OxULong ui4FromString(const std::string& text, WhitespaceRule rule);
    static uint64_t ui8FromString(const std::string& text, WhitespaceRule rule);

    // --- floating point ---------------------------------------------------------------------
    // "NaN", "-INF" and "INF" for the special values; otherwise "%.7g" (r4) or "%.16g" (r8),
    // or the printf format given, which receives the value as a double. The text is cut at
    // 31 (r4) or 47 (r8) characters.
    static std::string r4ToString(float value);
    static std::string r4ToString(float value, const std::string& format);
    static std::string r8ToString(double value);
    static std::string r8ToString(double value, const std::string& format);

    // "NaN", "1.#QNAN", "-NAN", "INF", "-INF", else whatever strtod reads whole.
    static float r4FromString(const std::string& text, WhitespaceRule rule);
    static double r8FromString(const std::string& text, WhitespaceRule rule);

    // --- char, string, boolean ----------------------------------------------------------------
    // The one character; the character 0 gives the empty string.
    static std::string charToString(char value);
    static std::string stringToString(const std::string& value) { return value; }
    static std::string booleanToString(bool value) { return value ? "true" : "false"; }

    // Exactly one character after the whitespace rule.
    static char charFromString(const std::string& text, WhitespaceRule rule);
    static std::string stringFromString(const std::string& text, WhitespaceRule rule);
    // "true", "false", "1" or "0", without regard to case.
    static bool booleanFromString(const std::string& text, WhitespaceRule rule);

    // --- hexBinary, base64Binary ---------------------------------------------------------------
    // Upper-case hex, two digits per byte; one line of base64. The empty value gives "".
    static std::string hexBinaryToString(const CBinaryData& value);
    static std::string base64BinaryToString(const CBinaryData& value);

    // The processed text as CBinaryData::SetAsHexString and SetAsBase64 read it: hex throws
    // COxException for an odd length or a character that isn't a hex digit; base64 gives the
    // empty value for a text with a character outside its alphabet.
    static CBinaryData hexBinaryFromString(const std::string& text, WhitespaceRule rule);
    static CBinaryData base64BinaryFromString(const std::string& text, WhitespaceRule rule);

    // --- decimal, integer ---------------------------------------------------------------------
    // All places held; with a format, the number of places it gives (read as atoi reads it,
    // so a text that is no number means 0), rounded half away from zero.
    static std::string decimalToString(const CDecimal& value);
    static std::string decimalToString(const CDecimal& value, const std::string& format);
    static std::string integerToString(const CBigInteger& value);
    // The processed text as CDecimal(const char*) and CBigInteger(const char*) read it.
    static CDecimal decimalFromString(const std::string& text, WhitespaceRule rule);
    static CBigInteger integerFromString(const std::string& text, WhitespaceRule rule);

    // --- duration and the date kinds --------------------------------------------------------
    // The text form of the value's own kind, whichever function is called.
    static std::string durationToString(const CDateTimeSpan& value);
    static std::string yearMonthToString(const CDateTime& value);
    static std::string monthDayToString(const CDateTime& value);
    static std::string dateToString(const CDateTime& value);
    static std::string datetimeToString(const CDateTime& value);
    static std::string timeToString(const CDateTime& value);
    // The processed text read by the parser of the kind; a refusal throws its
    // COxInvalidValueException.
    static CDateTimeSpan durationFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime yearMonthFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime monthDayFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime dateFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime datetimeFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime timeFromString(const std::string& text, WhitespaceRule rule);

    // --- year, month, day (the gYear, gMonth and gDay kinds held as plain numbers) ----------
    static std::string yearToString(uint16_t value);  // "%u", unpadded
    static std::string monthToString(uint8_t value);  // "--%02u"
    static std::string dayToString(uint8_t value);    // "---%02u"
    // Read as gYear, gMonth and gDay texts ("2024", "--03", "---07"); a negative year wraps
    // to 16 unsigned bits.
    static uint16_t yearFromString(const std::string& text, WhitespaceRule rule);
    static uint8_t monthFromString(const std::string& text, WhitespaceRule rule);
    static uint8_t dayFromString(const std::string& text, WhitespaceRule rule);

    // Used by OxVariant::ToString, which takes its format as a C string: a null or empty
    // format means the default one. Same results as the std::string overloads.
    static std::string r4ToString(float value, const char* pszFormat);
    static std::string r8ToString(double value, const char* pszFormat);
    static std::string decimalToString(const CDecimal& value, const char* pszFormat);

    CConversions() = delete;
};

}  // namespace OrvexXml
