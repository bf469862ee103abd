#include "orvexxml/fastinfoset/fastinfosetwriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace {

// A writer on its own stream and context; Run drives it and gives the octets in hex, one
// blank between octets.
struct CDocument {
    CFastInfosetContext fi;
    CBinaryStream stream;

    std::string Run(const std::function<void(CFastInfosetWriter&)>& events, FInfoDecl eDecl = FInfoDecl_None) {
        CFastInfosetWriter writer(&fi, &stream);
        writer.StartDocument();
        writer.WriteHeader(eDecl);
        events(writer);
        writer.WriteFooter();
        writer.EndDocument();
        return Hex();
    }
    std::string Hex() const {
        std::string strHex = stream.GetData().GetAsHexString(), strSpaced;
        for (size_t n = 0; n < strHex.size(); n += 2) strSpaced += (n ? " " : "") + strHex.substr(n, 2);
        return strSpaced;
    }
};

// The octets of a text in hex, as CDocument::Hex shows them.
std::string TextHex(const std::string& strText) {
    std::string strHex;
    for (char c : strText)
        strHex +=
            (strHex.empty() ? "" : " ") + CBinaryData::GetAsHexString(reinterpret_cast<const unsigned char*>(&c), 1);
    return strHex;
}

const char* const Head = "E0 00 00 01 00 ";

void TextElement(CFastInfosetWriter& w, const char* pszName, const char* pszText, ItemType eType) {
    w.WriteStartElement(pszName, "");
    w.WriteElementText(pszText, eType, false);
    w.WriteEndElement();
}

}  // namespace

// The element a with the attribute b="1" and the text x.
TEST(FastInfosetWriter, WorkedExample) {
    CDocument doc;
    EXPECT_EQ("E0 00 00 01 00 78 F0 3C 00 61 78 00 62 40 31 F0 90 78 FF", doc.Run([](CFastInfosetWriter& w) {
        w.WriteStartElement("a", "");
        w.WriteAttribute("b", "", "1", ItemType_string);
        w.WriteElementText("x", ItemType_string, false);
        w.WriteEndElement();
    }));
}

// Ends merge in pairs, an attribute list closes with a whole octet, a known name is one octet,
// and comments, schemas and instructions leave nothing.
TEST(FastInfosetWriter, TerminatorsAndNameIndexes) {
    CDocument doc;
    EXPECT_EQ(std::string(Head) + "38 F0 3C 00 72 3C 00 65 F0 01 F0 7C 00 66 78 00 67 FF F0 FF F0",
              doc.Run([](CFastInfosetWriter& w) {
                  w.WriteProcessingInstruction("pi");
                  w.WriteStartElement("r", "");
                  w.WriteComment("c");
                  w.WriteInLineSchema("<schema/>");
                  w.WriteStartElement("e", "");
                  w.WriteEndElement();
                  w.WriteStartElement("e", "");
                  w.WriteEndElement();
                  w.WriteStartElement("f", "");
                  w.WriteAttribute("g", "", "", ItemType_string);
                  w.WriteElementText("", ItemType_string, false);
                  w.WriteEndElement();
                  w.WriteEndElement();
              }));
}

// Values below the length limit enter their table and come back as indexes; longer ones stay
// literal. Local names are shared between attributes and elements.
TEST(FastInfosetWriter, ValueTablesAndTheLengthLimit) {
    CDocument doc;
    EXPECT_EQ(std::string(Head) +
                  "78 F0 3C 00 76 78 00 61 44 61 62 63 64 65 78 00 62 80 78 00 63 05 61 62 63 64 65 66 "
                  "78 00 64 05 61 62 63 64 65 66 F0 3C 83 91 61 62 F0 01 A0 F0 01 82 04 61 62 63 64 65 66 67 FF F0",
              doc.Run([](CFastInfosetWriter& w) {
                  w.WriteStartElement("v", "");
                  w.WriteAttribute("a", "", "abcde", ItemType_string);
                  w.WriteAttribute("b", "", "abcde", ItemType_i4);  // the type plays no part
                  w.WriteAttribute("c", "", "abcdef", ItemType_string);
                  w.WriteAttribute("d", "", "abcdef", ItemType_string);
                  TextElement(w, "c", "ab", ItemType_string);
                  TextElement(w, "c", "ab", ItemType_string);
                  TextElement(w, "c", "abcdefg", ItemType_string);
                  w.WriteEndElement();
              }));

    CDocument off;
    off.fi.SetAttributeMaxAddLength(0);
    off.fi.SetElementMaxAddLength(0);
    EXPECT_EQ(std::string(Head) + "78 F0 3C 00 76 78 00 61 00 31 78 00 62 00 31 F0 80 31 80 31 FF",
              off.Run([](CFastInfosetWriter& w) {
                  w.WriteStartElement("v", "");
                  w.WriteAttribute("a", "", "1", ItemType_string);
                  w.WriteAttribute("b", "", "1", ItemType_string);
                  w.WriteElementText("1", ItemType_string, false);
                  w.WriteElementText("1", ItemType_string, false);
                  w.WriteEndElement();
              }));
}

// Namespaces: the root declares the default namespace and the aliases (never "xml"); a child
// in an undeclared namespace, and an attribute in the default one, carry a generated prefix
// in the qualified name; an xsi:type of an undeclared namespace declares it on its element.
TEST(FastInfosetWriter, NamespacesAndGeneratedPrefixes) {
    std::string strXsi;  // the XML Schema instance namespace, 41 octets
    for (char c : std::string(CXmlWriter::XsiNamespaceURI))
        strXsi += " " + CBinaryData::GetAsHexString(reinterpret_cast<const unsigned char*>(&c), 1);
    CDocument doc;
    EXPECT_EQ(std::string(Head) +
                  "38 CD 00 64 CF 00 70 00 71 F0 3D 81 00 72 "  // xmlns="d" xmlns:p="q", r in d
                  "7F 01 41 41 00 78 00 63 "                    // AA:c in x, with attributes
                  "7B 01 41 42 81 00 61 44 76 61 6C 75 65 F0 "  // AB:a="value" in d
                  "F0 78 CF 82 00 7A F0 3D 81 00 74 "           // t in d, declaring AA for z
                  "7B 82 28" +
                  strXsi +
                  " 03 74 79 70 65 "          // AA:type in the instance namespace
                  "43 41 41 3A 54 F0 FF F0",  // ="AA:T"
              doc.Run([](CFastInfosetWriter& w) {
                  w.SetDefaultNamespace("d");
                  w.AddNamespaceAlias("p", "q");
                  w.WriteStartElement("r", "d");
                  w.WriteStartElement("c", "x");
                  w.WriteAttribute("a", "d", "value", ItemType_string);
                  w.WriteEndElement();
                  w.WriteStartElement("t", "d");
                  w.WriteXsiType("z", "T", ItemType_string);
                  w.WriteEndElement();
                  w.WriteEndElement();
              }));
}

// After SetSuggestedValues: integers by algorithm, decimals and dates packed by the two
// alphabets, as attribute values (index on the fifth bit) and as chunks (on the seventh).
TEST(FastInfosetWriter, SuggestedEncodings) {
    CDocument doc;
    doc.fi.SetSuggestedValues();
    EXPECT_EQ(std::string(Head) +
                  "78 F0 3C 00 6E 78 00 69 70 33 FF FF FF FE "           // i="-2": algorithm 4, four octets
                  "F0 9C 0E 01 00 00 00 07 "                             // 7 as int
                  "98 01 1C 5F "                                         // 1.5 in the numeric alphabet
                  "88 06 0A 20 24 A0 1A 02 C0 3B 04 B0 5A 05 B0 0F FF",  // 25 characters in 4 bits each
              doc.Run([](CFastInfosetWriter& w) {
                  w.WriteStartElement("n", "");
                  w.WriteAttribute("i", "", "-2", ItemType_i4);
                  w.WriteElementText("7", ItemType_i4, false);
                  w.WriteElementText("1.5", ItemType_decimal, false);
                  w.WriteElementText("2024-01-02T03:04:05-05:00", ItemType_datetime, false);
                  w.WriteEndElement();
              }));
}

// Every refusal of a value or of a setting, with its exact message.
TEST(FastInfosetWriter, RefusedValuesAndSettings) {
    typedef CFastInfosetContext::EncodingKind Kind;
    struct Case {
        ItemType eType;
        Kind eKind;
        uint32_t dwIndex;
        bool bAttribute;
        const char* pszValue;
        const char* pszMessage;
    } const cases[] = {
        {ItemType_datetime, CFastInfosetContext::EncodingKind_RestrictedAlphabet, 2, false, "2024-01-02T03:04:05.5",
         "Failed to write FastInfoset. Invalid character not found for Restricted Alphabet."},
        {ItemType_time, CFastInfosetContext::EncodingKind_RestrictedAlphabet, 2, true, "03:04:05+01:00",
         "Failed to write FastInfoset. Invalid character not found for Restricted Alphabet."},
        {ItemType_decimal, CFastInfosetContext::EncodingKind_RestrictedAlphabet, 1, false, "1E5",
         "Failed to write FastInfoset. Invalid character not found for Restricted Alphabet."},
        {ItemType_string, CFastInfosetContext::EncodingKind_RestrictedAlphabet, 3, false, "1",
         "Failed to write FastInfoset. Invalid Restricted Alphabet value [3]"},
        {ItemType_string, CFastInfosetContext::EncodingKind_RestrictedAlphabet, 0, true, "1",
         "Failed to write FastInfoset. Invalid Restricted Alphabet value [0]"},
        {ItemType_string, CFastInfosetContext::EncodingKind_Algorithm, 11, true, "1",
         "Failed to write FastInfoset. Invalid Encoding Algorithm value [11]"},
        {ItemType_string, CFastInfosetContext::EncodingKind_Algorithm, 0, false, "1",
         "Failed to write FastInfoset. Invalid Encoding Algorithm value [0]"},
        {ItemType_string, static_cast<Kind>(3), 1, true, "1",
         "Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit5."},
        {ItemType_string, static_cast<Kind>(-1), 1, false, "1",
         "Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit7."},
        {ItemType_i4, CFastInfosetContext::EncodingKind_Algorithm, 4, false, "12abc",
         "The value [12abc] can not be converted to a i4"},
        {ItemType_hexBinary, CFastInfosetContext::EncodingKind_Algorithm, 1, true, "ABC",
         "Invalid length in hex string"},
        {ItemType_ui8, CFastInfosetContext::EncodingKind_Algorithm, 5, false, "9223372036854775808",
         "The value [9223372036854775808] is to large to fit in a i8"},
        {ItemType_base64Binary, CFastInfosetContext::EncodingKind_Algorithm, 2, false,
         "====", "Failed to write FastInfoset. The value [====] encodes to no octets."},
    };
    for (const Case& c : cases) {
        CDocument doc;
        doc.fi.SetEncoding(c.eType, {c.eKind, c.dwIndex});
        try {
            doc.Run([&c](CFastInfosetWriter& w) {
                w.WriteStartElement("e", "");
                if (c.bAttribute)
                    w.WriteAttribute("a", "", c.pszValue, c.eType);
                else
                    w.WriteElementText(c.pszValue, c.eType, false);
                w.WriteEndElement();
            });
            ADD_FAILURE() << c.pszValue;
        } catch (const COxException& e) {
            EXPECT_EQ(c.pszMessage, e.GetMessage()) << c.pszValue;
        }
    }
}

// Misuse of the event order is refused instead of producing a document no reader can parse.
TEST(FastInfosetWriter, RefusedEventOrder) {
    struct Case {
        const char* pszWhat;
        std::function<void(CFastInfosetWriter&)> events;
        const char* pszMessage;
    } const cases[] = {
        {"attribute after text",
         [](CFastInfosetWriter& w) {
             w.WriteStartElement("e", "");
             w.WriteElementText("t", ItemType_string, false);
             w.WriteAttribute("a", "", "1", ItemType_string);
         },
         "Attributes must be added before elements"},
        {"attribute after a child",
         [](CFastInfosetWriter& w) {
             w.WriteStartElement("e", "");
             w.WriteStartElement("c", "");
             w.WriteEndElement();
             w.WriteXsiNil();
         },
         "Attributes must be added before elements"},
        {"attribute after an instruction wrote the element without the attributes bit",
         [](CFastInfosetWriter& w) {
             w.WriteStartElement("e", "");
             w.WriteProcessingInstruction("pi");
             w.WriteXsiType("", "T", ItemType_string);
         },
         "Attributes must be added before elements"},
        {"attribute without element", [](CFastInfosetWriter& w) { w.WriteAttribute("a", "", "1", ItemType_string); },
         "Attributes must be added before elements"},
        {"open element", [](CFastInfosetWriter& w) { w.WriteStartElement("e", ""); },
         "An Element has not been closed."},
        {"declaration out of range", [](CFastInfosetWriter& w) { w.WriteHeader(static_cast<FInfoDecl>(10)); },
         "Failed to write FastInfoset. Unknown XML declaration [10]"},
        {"type outside the table is a string, and the element is left open",
         [](CFastInfosetWriter& w) {
             w.WriteStartElement("e", "");
             w.WriteElementText("x", static_cast<ItemType>(29), false);
         },
         "An Element has not been closed."},
        {"open written element",
         [](CFastInfosetWriter& w) {
             w.WriteStartElement("e", "");
             w.WriteElementText("t", ItemType_string, false);
         },
         "An Element has not been closed."},
    };
    for (const Case& c : cases) {
        CDocument doc;
        try {
            doc.Run(c.events);
            ADD_FAILURE() << c.pszWhat;
        } catch (const COxException& e) {
            EXPECT_EQ(c.pszMessage, e.GetMessage()) << c.pszWhat;
        }
    }
}

// The declaration stands in front of the identification; a ready-made vocabulary is named by
// URI and its names are indexes from their first use, new names following its last entry.
TEST(FastInfosetWriter, DeclarationAndReadyMadeVocabulary) {
    CDocument doc;
    doc.fi.SetUseGeneratedVocabulary(true);
    doc.fi.GetVocabulary()->AddElement("", "", "a");
    doc.fi.GetVocabulary()->AddElement("", "", "b");
    doc.fi.SetExternalVocabularyURI("urn:v");
    EXPECT_EQ(TextHex("<?xml version='1.0' encoding='finf' standalone='yes'?>") +
                  " E0 00 00 01 20 10 00 04 75 72 6E 3A 76 38 F0 01 3C 00 63 F0 02 FF F0",
              doc.Run(
                  [](CFastInfosetWriter& w) {
                      w.WriteStartElement("b", "");
                      w.WriteStartElement("c", "");
                      w.WriteEndElement();
                      w.WriteStartElement("c", "");
                      w.WriteEndElement();
                      w.WriteEndElement();
                  },
                  FInfoDecl_Version10StandaloneYes));
    EXPECT_EQ(2u, doc.fi.GetVocabulary()->GetElementNamesTable().size()) << "the document works on a copy";

    CDocument unnamed;
    unnamed.fi.SetUseGeneratedVocabulary(true);
    std::string strUri = CFastInfosetWriter::DefaultVocabularyURI;
    ASSERT_LE(strUri.size(), 64u);
    EXPECT_EQ("E0 00 00 01 20 10 00 " + TextHex(std::string(1, static_cast<char>(strUri.size() - 1)) + strUri) +
                  " 38 F0 3C 00 61 FF",
              unnamed.Run([](CFastInfosetWriter& w) {
                  w.WriteStartElement("a", "");
                  w.WriteEndElement();
              }));
}

// A full table of character chunks takes no more values: the value past the largest index is
// written literally each time, never as an index the reader's table can't have, while the
// last value that entered is the largest index, in the longest form.
TEST(FastInfosetWriter, FullTableWritesLiterals) {
    auto base36 = [](uint32_t n) {
        std::string strText;
        do {
            strText.insert(strText.begin(), "0123456789abcdefghijklmnopqrstuvwxyz"[n % 36]);
            n /= 36;
        } while (n);
        return strText;
    };
    const std::string strDropped = base36(CFIVocabulary::MaxTableEntries);  // "mh34", four octets
    CDocument doc;
    std::string strHex = doc.Run([&](CFastInfosetWriter& w) {
        w.WriteStartElement("e", "");
        for (uint32_t n = 0; n <= CFIVocabulary::MaxTableEntries; ++n)
            w.WriteElementText(base36(n), ItemType_string, false);
        w.WriteElementText(strDropped, ItemType_string, false);
        w.WriteElementText(base36(CFIVocabulary::MaxTableEntries - 1), ItemType_string, false);
        w.WriteEndElement();
    });
    ASSERT_EQ("mh34", strDropped);
    // The dropped value twice as a literal with the add bit (90, length 4), then index 1048576.
    const std::string strTail = "92 01 6D 68 33 34 92 01 6D 68 33 34 B8 0B FB EF FF";
    ASSERT_GT(strHex.size(), strTail.size());
    EXPECT_EQ(strTail, strHex.substr(strHex.size() - strTail.size()));
}
