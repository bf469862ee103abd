// The text forms that the library writes one way on purpose: a value written in one of them
// doesn't read back as the same value, or doesn't read back at all. The fuzzers' round-trip
// properties and the tests that pin these forms share this list, so that no property is
// stricter than what the library promises. Every entry names the rule it stands for.
#pragma once

#include <orvexxml/orvexxml.h>

#include <cstddef>
#include <string>

namespace OrvexTest {

// A float is formatted into a fixed buffer of 32 bytes (r4) or 48 bytes (r8) and a longer
// text is cut, as snprintf cuts it, without an error. The default forms ("%.7g", "%.16g")
// never reach the limit; a format override ("%.2f" of 4.4e61) can.
constexpr size_t kR4TextLimit = 31;
constexpr size_t kR8TextLimit = 47;

inline bool IsCutFloatText(OrvexXml::ItemType eType, const std::string& strText) {
    return (eType == OrvexXml::ItemType_r4 && strText.size() >= kR4TextLimit) ||
           (eType == OrvexXml::ItemType_r8 && strText.size() >= kR8TextLimit);
}

// The default float forms keep 7 (r4) and 16 (r8) significant digits, fewer than a value can
// need: the text reads back as a neighbour of the value. The neighbour prints the same text
// again, so a float's text is stable from its second writing on.
inline bool IsRoundedFloatType(OrvexXml::ItemType eType) {
    return eType == OrvexXml::ItemType_r4 || eType == OrvexXml::ItemType_r8;
}

// The character 0 is written as the empty text, which a char refuses by definition.
inline bool IsUnreadableCharText(OrvexXml::ItemType eType, const std::string& strText) {
    return eType == OrvexXml::ItemType_char && strText.empty();
}

// A written document holds a cut float when one of its element texts is as long as a cut
// r4 or r8 text and reads as a number. A document knows no types, so a string member of
// exactly that length and shape is taken for one too; such a string never changes in a
// round trip, which the caller still sees through the other texts.
inline bool HasCutFloatText(const std::string& strDocument) {
    size_t nPos = 0;
    while ((nPos = strDocument.find('>', nPos)) != std::string::npos) {
        size_t nEnd = strDocument.find('<', ++nPos);
        if (nEnd == std::string::npos) break;
        std::string strText = strDocument.substr(nPos, nEnd - nPos);
        if (strText.size() == kR4TextLimit || strText.size() == kR8TextLimit) {
            try {
                OrvexXml::OxVariant value;
                value.FromString(strText, OrvexXml::ItemType_r8, OrvexXml::CWhitespaceUtils::WhitespaceRule_preserve);
                return true;
            } catch (const OrvexXml::COxException&) {
            }
        }
        nPos = nEnd;
    }
    return false;
}

// A value that begins with a CDATA marker is written as that section, unescaped; read with
// CDATA stripped (the default) it comes back as the section's content. Only a context that
// keeps CDATA reads such a document back to the same values.
inline bool HasStrippedCDataSection(const std::string& strDocument, const OrvexXml::CSerializationContext& ctx) {
    return ctx.GetStripCDATA() && strDocument.find("<![CDATA[") != std::string::npos;
}

}  // namespace OrvexTest
