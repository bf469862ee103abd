// The text forms that the library writes one way on purpose: a value written in one of them
// doesn't read back as the same value, or doesn't read back at all. The fuzzers' round-trip
// properties and the tests that pin these forms share this list, so that no property is
// stricter than what the library promises. Every entry names the rule it stands for.
#pragma once

#include <orvexxml/orvexxml.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

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

// A float text keeps fewer digits than the value can need, and rounding may carry it past the
// largest finite value of its kind ("%.16g" of the largest double gives 1.797693134862316e+308);
// read without a range test, such a text is infinity. Only a text with an exponent can, since a
// fixed-point text that long is cut first.
inline bool IsOverflowingFloatText(OrvexXml::ItemType eType, const std::string& strText) {
    if (!IsRoundedFloatType(eType) || strText.find_first_of("eE") == std::string::npos) return false;
    try {
        OrvexXml::OxVariant value;
        value.FromString(strText, eType, OrvexXml::CWhitespaceUtils::WhitespaceRule_preserve);
        return std::isinf(eType == OrvexXml::ItemType_r4 ? value.GetR4() : value.GetR8());
    } catch (const OrvexXml::COxException&) {
        return false;
    }
}

// A year (ItemType_year, 16 bits without sign) is written "%u", unpadded, and read as a gYear
// of four digits at least, between -9999 and 9999. So a year below 1000 writes a text too
// short, and one above 9999 (a negative year read wraps into 16 bits) a text out of range:
// neither reads back.
inline bool IsUnreadableYear(uint16_t nYear) { return nYear < 1000 || nYear > 9999; }

// The character 0 is written as the empty text, which a char refuses by definition.
inline bool IsUnreadableCharText(OrvexXml::ItemType eType, const std::string& strText) {
    return eType == OrvexXml::ItemType_char && strText.empty();
}

// A duration with every count 0 writes "P" (or "-P" when negative): no count follows, and a
// duration without a count is refused by definition.
inline bool IsEmptyDurationText(const std::string& strText) { return strText == "P" || strText == "-P"; }

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

// The texts of the elements of a written document, in document order (no attributes).
inline std::vector<std::string> ElementTexts(const std::string& strDocument) {
    std::vector<std::string> texts;
    size_t nPos = 0;
    while ((nPos = strDocument.find('>', nPos)) != std::string::npos) {
        size_t nEnd = strDocument.find('<', ++nPos);
        if (nEnd == std::string::npos) break;
        texts.push_back(strDocument.substr(nPos, nEnd - nPos));
        nPos = nEnd;
    }
    return texts;
}

// A written document holds a float text that reads back as infinity, as IsOverflowingFloatText
// says for r8, or for r4 with a magnitude that only a rounded float gives (below twice the
// largest float); a string of that shape is taken for one too.
inline bool HasOverflowingFloatText(const std::string& strDocument) {
    for (const std::string& strText : ElementTexts(strDocument)) {
        if (IsOverflowingFloatText(OrvexXml::ItemType_r8, strText)) return true;
        if (IsOverflowingFloatText(OrvexXml::ItemType_r4, strText) &&
            std::fabs(std::strtod(strText.c_str(), nullptr)) < 6.8e38)
            return true;
    }
    return false;
}

// A written document holds the text of an all-zero duration, as IsEmptyDurationText says.
inline bool HasEmptyDurationText(const std::string& strDocument) {
    for (const std::string& strText : ElementTexts(strDocument)) {
        if (IsEmptyDurationText(strText)) return true;
    }
    return false;
}

// A value that begins with a CDATA marker is written as that section, unescaped; read with
// CDATA stripped (the default) it comes back as the section's content. Only a context that
// keeps CDATA reads such a document back to the same values.
inline bool HasStrippedCDataSection(const std::string& strDocument, const OrvexXml::CSerializationContext& ctx) {
    return ctx.GetStripCDATA() && strDocument.find("<![CDATA[") != std::string::npos;
}

// Whether any element of a written document, or one of its attributes, passes the test; the
// document is parsed under the context's schema type.
inline bool AnyElementOf(const std::string& strDocument, const OrvexXml::CSerializationContext& ctx,
                         const std::function<bool(const OrvexXml::CXmlElement&)>& test) {
    OrvexXml::CXmlDocument doc(ctx);
    doc.LoadXml(strDocument.c_str());
    std::vector<const OrvexXml::CXmlElement*> stack{doc.GetDocumentElement()};
    while (!stack.empty()) {
        const OrvexXml::CXmlElement* pElement = stack.back();
        stack.pop_back();
        if (test(*pElement)) return true;
        for (const OrvexXml::CXmlElement* pChild = pElement->GetFirstElement(); pChild;
             pChild = pChild->GetNextSiblingElement())
            stack.push_back(pChild);
    }
    return false;
}

// A schema language without namespaces (SchemaType_DTD) reads names as written, prefix and
// all, and namespace declarations as plain attributes; writing still puts an element or an
// attribute of a namespace under a prefix, as it must. So a document that writes any namespace
// (a class with a target namespace, an xml:lang attribute, open content from a namespace)
// doesn't read back in that mode; only namespace-free documents round-trip there.
inline bool HasNamespacesUnreadWithoutNamespaces(const std::string& strDocument,
                                                 const OrvexXml::CSerializationContext& ctx) {
    if (ctx.GetSchemaType() != OrvexXml::SchemaType_DTD) return false;
    auto isQualified = [](const std::string& strName) {
        return strName.find(':') != std::string::npos || strName == "xmlns";
    };
    return AnyElementOf(strDocument, ctx, [&](const OrvexXml::CXmlElement& element) {
        if (isQualified(element.GetLocalName())) return true;
        for (const OrvexXml::CXmlAttribute* pAttribute : element.GetAttributes()) {
            if (isQualified(pAttribute->GetLocalName())) return true;
        }
        return false;
    });
}

// Open content keeps an element's text apart from its children and writes it after them. In
// a formatted document the indentation around the children joins the text of such mixed
// content when it is read back, so its text grows with each formatted round trip. Only mixed
// content written unformatted reads back the same.
inline bool HasFormattedMixedContent(const std::string& strDocument, const OrvexXml::CSerializationContext& ctx) {
    return AnyElementOf(strDocument, ctx, [](const OrvexXml::CXmlElement& element) {
        return element.GetFirstElement() && element.GetText().find_first_not_of(" \t\r\n") != std::string::npos;
    });
}

}  // namespace OrvexTest
