#pragma once

#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// The XML Schema whitespace rules, applied to every text before it is converted to a value.
// All rules work on bytes. A NUL inside a text ends it, except where a rule leaves the text
// untouched (rule none, and Preserve of a text without carriage return).
class ORVEXXML_API CWhitespaceUtils {
public:
    // Fixed underlying type: a value outside the enumerators is representable, and refused.
    enum WhitespaceRule : int {
        WhitespaceRule_none = 0,      // the text unchanged
        WhitespaceRule_preserve = 1,  // line ends normalised (Preserve)
        WhitespaceRule_replace = 2,   // each whitespace character becomes a space (Replace)
        WhitespaceRule_collapse = 3   // runs of whitespace become one space, ends trimmed (Collapse)
    };

    // Space, tab, carriage return and line feed.
    static bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

    // Turns each CR LF pair into one line feed and each other carriage return into a line feed.
    // A text without carriage return comes back unchanged.
    static std::string Preserve(const std::string& text);
    // The same on the first nLength bytes of pszText (up to a NUL within them).
    static std::string Preserve(const char* pszText, int nLength);
    // Turns a CR LF pair into one space, and a lone carriage return, a tab or a line feed into a space.
    static std::string Replace(const std::string& text);
    // Replaces each run of whitespace by one space and drops whitespace at both ends.
    static std::string Collapse(const std::string& text);
    // Applies one of the rules above; throws COxException "Unknown WhitespaceRule" for a value
    // outside the enum.
    static std::string ApplyRule(WhitespaceRule rule, const std::string& text);

    // True when ApplyRule(rule, text) would give text back byte for byte, so a caller on a hot
    // path can skip the copy. Throws like ApplyRule for a rule outside the enum.
    static bool IsUnchangedByRule(WhitespaceRule rule, const std::string& text);
};

}  // namespace OrvexXml
