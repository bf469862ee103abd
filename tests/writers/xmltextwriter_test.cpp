#include "orvexxml/writers/xmltextwriter.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/textstream.h"

using namespace OrvexXml;

namespace {

const char* const kXsi = "http://www.w3.org/2001/XMLSchema-instance";
const char* const kXml = "http://www.w3.org/XML/1998/namespace";

// A writer on a memory stream, started as a caller would start it.
class XmlTextWriterTest : public ::testing::Test {
protected:
    XmlTextWriterTest() : m_writer(&m_stream) { m_writer.StartDocument(); }

    std::string Text() { return m_stream.GetText(); }

    // Writes <name>text</name> as the binding engine does for a primitive element.
    void Leaf(const std::string& strName, const std::string& strText, const std::string& strNamespace = "") {
        m_writer.WriteStartElement(strName, strNamespace);
        m_writer.WriteElementText(strText, ItemType_string, false);
        m_writer.WriteEndElement();
    }

    // The message of the COxException that fn throws; fails the test if it throws none.
    template <class Fn>
    std::string MessageOf(Fn fn) {
        try {
            fn();
        } catch (const COxException& e) {
            return e.GetMessage();
        }
        ADD_FAILURE() << "no COxException thrown";
        return std::string();
    }

    CTextStream m_stream;
    CXmlTextWriter m_writer;
};

}  // namespace

// --- layout ----------------------------------------------------------------------------------

TEST_F(XmlTextWriterTest, DefaultsAreFormattedWithTabAndLF) {
    EXPECT_TRUE(m_writer.GetFormatted());
    EXPECT_EQ("\t", m_writer.GetIndentChars());
    EXPECT_EQ(EOLType_LF, m_writer.GetEOLType());
    EXPECT_FALSE(m_writer.GetWriteDefaultValues());
}

TEST_F(XmlTextWriterTest, EmptyElementIsSelfClosed) {
    m_writer.WriteStartElement("a", "");
    m_writer.WriteEndElement();
    m_writer.EndDocument();
    EXPECT_EQ("<a/>\n", Text());
}

TEST_F(XmlTextWriterTest, EmptyValueLeavesElementSelfClosed) {
    Leaf("a", "");
    EXPECT_EQ("<a/>\n", Text());
}

TEST_F(XmlTextWriterTest, DefaultValueIsSuppressedUnlessAskedFor) {
    m_writer.WriteStartElement("r", "");
    m_writer.WriteStartElement("a", "");
    m_writer.WriteElementText("5", ItemType_string, true);
    m_writer.WriteEndElement();
    m_writer.SetWriteDefaultValues(true);
    m_writer.WriteStartElement("b", "");
    m_writer.WriteElementText("5", ItemType_string, true);
    m_writer.WriteEndElement();
    m_writer.WriteEndElement();
    EXPECT_EQ("<r>\n\t<a/>\n\t<b>5</b>\n</r>\n", Text());
}

TEST_F(XmlTextWriterTest, NestedElementsAreIndentedOnePerLine) {
    m_writer.WriteStartElement("a", "");
    Leaf("b", "x");
    m_writer.WriteStartElement("c", "");
    Leaf("d", "y");
    m_writer.WriteStartElement("e", "");
    m_writer.WriteEndElement();
    m_writer.WriteEndElement();
    m_writer.WriteEndElement();
    m_writer.EndDocument();
    EXPECT_EQ("<a>\n\t<b>x</b>\n\t<c>\n\t\t<d>y</d>\n\t\t<e/>\n\t</c>\n</a>\n", Text());
}

TEST_F(XmlTextWriterTest, CustomIndentAndDeepNesting) {
    m_writer.SetIndentChars("  ");
    const int kDepth = 40;
    for (int i = 0; i < kDepth; ++i) m_writer.WriteStartElement("n", "");
    for (int i = 0; i < kDepth; ++i) m_writer.WriteEndElement();
    std::string expected;
    for (int i = 0; i < kDepth - 1; ++i) expected += std::string(2 * i, ' ') + "<n>\n";
    expected += std::string(2 * (kDepth - 1), ' ') + "<n/>\n";
    for (int i = kDepth - 2; i >= 0; --i) expected += std::string(2 * i, ' ') + "</n>\n";
    EXPECT_EQ(expected, Text());
}

TEST_F(XmlTextWriterTest, ChangedIndentCharsTakeEffectAtOnce) {
    m_writer.WriteStartElement("a", "");
    Leaf("b", "1");
    m_writer.SetIndentChars("-+");
    Leaf("c", "2");
    m_writer.SetIndentChars(nullptr);
    EXPECT_EQ("", m_writer.GetIndentChars());
    Leaf("d", "3");
    m_writer.WriteEndElement();
    EXPECT_EQ("<a>\n\t<b>1</b>\n-+<c>2</c>\n<d>3</d>\n</a>\n", Text());
}

TEST_F(XmlTextWriterTest, CrLfLineEnds) {
    m_writer.SetEOLType(EOLType_CRLF);
    EXPECT_EQ(EOLType_CRLF, m_writer.GetEOLType());
    m_writer.WriteHeader();
    m_writer.WriteStartElement("a", "");
    m_writer.WriteAttribute("t", "", "1\n2", ItemType_string);
    Leaf("b", "x\ny");
    m_writer.WriteEndElement();
    EXPECT_EQ("<?xml version=\"1.0\"?>\r\n<a t=\"1&#xA;2\">\r\n\t<b>x\r\ny</b>\r\n</a>\r\n", Text());
}

TEST_F(XmlTextWriterTest, UnformattedOutputKeepsLineEndsOfHeaderCommentsAndInstructions) {
    m_writer.SetFormatted(false);
    EXPECT_FALSE(m_writer.GetFormatted());
    m_writer.WriteHeader();
    m_writer.WriteComment("note");
    m_writer.WriteProcessingInstruction("<?pi data?>");
    m_writer.WriteStartElement("a", "");
    Leaf("b", "x");
    m_writer.WriteStartElement("c", "");
    m_writer.WriteEndElement();
    m_writer.WriteEndElement();
    m_writer.EndDocument();
    EXPECT_EQ("<?xml version=\"1.0\"?>\n<!--note-->\n<?pi data?>\n\n<a><b>x</b><c/></a>", Text());
}

TEST_F(XmlTextWriterTest, InvalidEOLTypeIsRefusedAndChangesNothing) {
    m_writer.SetEOLType(EOLType_CRLF);
    EXPECT_EQ("Invalid EOL type.", MessageOf([&] { m_writer.SetEOLType(static_cast<EOLType>(7)); }));
    EXPECT_EQ(EOLType_CRLF, m_writer.GetEOLType());
    m_writer.WriteStartElement("a", "");
    m_writer.WriteEndElement();
    EXPECT_EQ("<a/>\r\n", Text());
}

TEST_F(XmlTextWriterTest, TextAfterChildKeepsIndentOfEndTag) {
    m_writer.WriteStartElement("a", "");
    Leaf("b", "x");
    m_writer.WriteElementText("tail", ItemType_string, false);
    m_writer.WriteEndElement();
    EXPECT_EQ("<a>\n\t<b>x</b>\ntail</a>\n", Text());
}

// --- header ----------------------------------------------------------------------------------

TEST(XmlTextWriterHeader, NamesTheEncodingOfTheStream) {
    struct Case {
        XmlEncoding eEncoding;
        const char* pszExpected;
    } cases[] = {
        {XmlEncoding_None, "<?xml version=\"1.0\"?>\n"},
        {XmlEncoding_UTF8, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"},
        {XmlEncoding_UTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"},
        {XmlEncoding_UTF16NoDeclaration, "<?xml version=\"1.0\"?>\n"},
    };
    for (const Case& c : cases) {
        CTextStream stream(c.eEncoding);
        CXmlTextWriter writer(&stream);
        writer.StartDocument();
        writer.SetFormatted(false);
        writer.WriteHeader();
        EXPECT_EQ(c.pszExpected, std::string(stream.GetText())) << "encoding " << c.eEncoding;
    }
}

// --- comments, instructions, schema, raw text --------------------------------------------------

TEST_F(XmlTextWriterTest, CommentIsEscapedButDoubleHyphenStays) {
    m_writer.WriteComment("a & b -- <c>");
    EXPECT_EQ("<!--a &amp; b -- &lt;c&gt;-->\n", Text());
}

TEST_F(XmlTextWriterTest, ProcessingInstructionIsWrittenUnchangedWithTwoLineEnds) {
    m_writer.SetEOLType(EOLType_CRLF);
    m_writer.WriteProcessingInstruction("<?xml-stylesheet href=\"a&b.xsl\"?>");
    m_writer.WriteStartElement("a", "");
    m_writer.WriteEndElement();
    EXPECT_EQ("<?xml-stylesheet href=\"a&b.xsl\"?>\r\n\r\n<a/>\r\n", Text());
}

TEST_F(XmlTextWriterTest, InLineSchemaLandsInsideTheOpenStartTag) {
    m_writer.WriteStartElement("r", "");
    m_writer.WriteAttribute("a", "", "1", ItemType_string);
    m_writer.WriteInLineSchema("<xs:schema/>");
    m_writer.WriteAttribute("b", "", "2", ItemType_string);
    Leaf("c", "x");
    m_writer.WriteEndElement();
    EXPECT_EQ("<r a=\"1\" \n<xs:schema/>\n b=\"2\">\n\t<c>x</c>\n</r>\n", Text());
}

TEST_F(XmlTextWriterTest, CloseStartTagAndWriteRawSpliceForeignText) {
    m_writer.WriteStartElement("outer", "");
    m_writer.CloseStartTag();
    m_writer.WriteRaw("\t<inner>a&b</inner>");
    m_writer.WriteEndElement();
    EXPECT_EQ("<outer>\n\t<inner>a&b</inner>\n</outer>\n", Text());

    CTextStream stream;
    CXmlTextWriter unformatted(&stream);
    unformatted.SetFormatted(false);
    unformatted.CloseStartTag();  // without an open element: nothing
    unformatted.WriteStartElement("o", "");
    unformatted.CloseStartTag();
    unformatted.WriteRaw("<i/>");
    unformatted.WriteEndElement();
    EXPECT_EQ("<o><i/></o>", std::string(stream.GetText()));
}

// --- escaping --------------------------------------------------------------------------------

TEST_F(XmlTextWriterTest, ElementTextEscaping) {
    Leaf("a", "1<2>3&4\"5'6\r\n7\t8\xC3\xA9");
    EXPECT_EQ("<a>1&lt;2&gt;3&amp;4\"5'6\n7\t8\xC3\xA9</a>\n", Text());
}

TEST_F(XmlTextWriterTest, AttributeEscaping) {
    m_writer.WriteStartElement("a", "");
    m_writer.WriteAttribute("v", "", "1<2>3&4\"5'6\r\n7\t8\xC3\xA9", ItemType_string);
    m_writer.WriteEndElement();
    EXPECT_EQ("<a v=\"1&lt;2&gt;3&amp;4&quot;5'6&#xA;7\t8\xC3\xA9\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, CDataPassesOnlyAtTheStart) {
    m_writer.WriteStartElement("r", "");
    Leaf("a", "<![CDATA[x < y & z]]>");
    Leaf("b", " <![CDATA[x]]>");
    Leaf("c", "<![CDATA");
    m_writer.WriteEndElement();
    EXPECT_EQ("<r>\n\t<a><![CDATA[x < y & z]]></a>\n\t<b> &lt;![CDATA[x]]&gt;</b>\n\t<c>&lt;![CDATA</c>\n</r>\n",
              Text());
}

TEST_F(XmlTextWriterTest, TextEndsAtAnEmbeddedNullByte) {
    Leaf("a", std::string("ab\0<cd", 6));
    EXPECT_EQ("<a>ab</a>\n", Text());
}

TEST_F(XmlTextWriterTest, EscapingOfArbitraryTextMatchesTheCharacterRules) {
    // Texts of every length up to 40 over an alphabet rich in special bytes, so that special
    // bytes fall on every position of the scan.
    const char alphabet[] = {'a', 'b', '\n', '\r', '"', '&', '<', '>', '\'', '\t', '\x80', '\xff'};
    std::mt19937 rng(7);
    for (bool bAttribute : {false, true}) {
        for (int i = 0; i < 400; ++i) {
            std::string value(1 + rng() % 40, 'a');
            for (char& c : value) c = alphabet[rng() % sizeof(alphabet)];
            std::string expected;
            for (char c : value) {
                switch (c) {
                    case '\n':
                        expected += bAttribute ? "&#xA;" : "\n";
                        break;
                    case '\r':
                        break;
                    case '"':
                        expected += bAttribute ? "&quot;" : "\"";
                        break;
                    case '&':
                        expected += "&amp;";
                        break;
                    case '<':
                        expected += "&lt;";
                        break;
                    case '>':
                        expected += "&gt;";
                        break;
                    default:
                        expected += c;
                }
            }
            CTextStream stream;
            CXmlTextWriter writer(&stream);
            writer.SetFormatted(false);
            writer.WriteStartElement("e", "");
            if (bAttribute) {
                writer.WriteAttribute("v", "", value, ItemType_string);
                writer.WriteEndElement();
                ASSERT_EQ("<e v=\"" + expected + "\"/>", std::string(stream.GetText()));
            } else {
                writer.WriteElementText(value, ItemType_string, false);
                writer.WriteEndElement();
                ASSERT_EQ("<e>" + expected + "</e>", std::string(stream.GetText()));
            }
        }
    }
}

// --- namespaces ------------------------------------------------------------------------------

TEST_F(XmlTextWriterTest, UnregisteredNamespacesGetAAandAB) {
    m_writer.WriteStartElement("root", "urn:a");
    Leaf("child", "x", "urn:b");
    Leaf("other", "y", "urn:a");
    m_writer.WriteEndElement();
    EXPECT_EQ(
        "<AA:root xmlns:AA=\"urn:a\">\n"
        "\t<AB:child xmlns:AB=\"urn:b\">x</AB:child>\n"
        "\t<AA:other>y</AA:other>\n"
        "</AA:root>\n",
        Text());
}

TEST_F(XmlTextWriterTest, RegisteredAliasAASkippedByGenerator) {
    m_writer.AddNamespaceAlias("AA", "urn:x");
    m_writer.WriteStartElement("root", "urn:a");
    m_writer.WriteEndElement();
    EXPECT_EQ("<AB:root xmlns:AB=\"urn:a\" xmlns:AA=\"urn:x\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, SiblingsDoNotSeeAChildsPrefix) {
    m_writer.WriteStartElement("root", "");
    m_writer.WriteStartElement("first", "urn:c");
    Leaf("inner", "1", "urn:c");
    Leaf("deeper", "2", "urn:d");
    m_writer.WriteEndElement();
    Leaf("second", "3", "urn:c");
    Leaf("third", "4", "urn:e");
    m_writer.WriteEndElement();
    EXPECT_EQ(
        "<root>\n"
        "\t<AA:first xmlns:AA=\"urn:c\">\n"
        "\t\t<AA:inner>1</AA:inner>\n"
        "\t\t<AB:deeper xmlns:AB=\"urn:d\">2</AB:deeper>\n"
        "\t</AA:first>\n"
        "\t<AA:second xmlns:AA=\"urn:c\">3</AA:second>\n"
        "\t<AA:third xmlns:AA=\"urn:e\">4</AA:third>\n"
        "</root>\n",
        Text());
}

TEST_F(XmlTextWriterTest, RootDeclarationsAreSortedByURI) {
    m_writer.AddNamespaceAlias("z", "urn:a");
    m_writer.AddNamespaceAlias("a", "urn:c");
    m_writer.AddNamespaceAlias("m", "urn:b");
    m_writer.SetDefaultNamespace("urn:default");
    m_writer.WriteStartElement("root", "urn:default");
    Leaf("x", "1", "urn:c");
    Leaf("y", "2", "urn:default");
    m_writer.WriteEndElement();
    EXPECT_EQ(
        "<root xmlns=\"urn:default\" xmlns:z=\"urn:a\" xmlns:m=\"urn:b\" xmlns:a=\"urn:c\">\n"
        "\t<a:x>1</a:x>\n"
        "\t<y>2</y>\n"
        "</root>\n",
        Text());
}

TEST_F(XmlTextWriterTest, RootInARegisteredNamespaceIsDeclaredOnce) {
    m_writer.AddNamespaceAlias("p", "urn:p");
    m_writer.WriteStartElement("root", "urn:p");
    m_writer.WriteEndElement();
    EXPECT_EQ("<p:root xmlns:p=\"urn:p\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, GeneratedRootPrefixComesBeforeTheRegisteredDeclarations) {
    m_writer.AddNamespaceAlias("q", "urn:q");
    m_writer.SetDefaultNamespace("urn:d");
    m_writer.WriteStartElement("root", "urn:r");
    m_writer.WriteEndElement();
    EXPECT_EQ("<AA:root xmlns:AA=\"urn:r\" xmlns=\"urn:d\" xmlns:q=\"urn:q\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, NoNamespaceUnderADefaultNamespaceIsNotUndeclared) {
    m_writer.SetDefaultNamespace("urn:d");
    m_writer.WriteStartElement("root", "urn:d");
    Leaf("plain", "1", "");
    m_writer.WriteEndElement();
    EXPECT_EQ("<root xmlns=\"urn:d\">\n\t<plain>1</plain>\n</root>\n", Text());
}

TEST_F(XmlTextWriterTest, XmlPrefixIsNeverDeclared) {
    m_writer.AddNamespaceAlias("p", "urn:p");
    m_writer.WriteStartElement("root", "");
    m_writer.WriteAttribute("lang", kXml, "en", ItemType_string);
    m_writer.WriteEndElement();
    EXPECT_EQ("<root xmlns:p=\"urn:p\" xml:lang=\"en\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, AttributeInTheDefaultNamespaceGetsAPrefix) {
    m_writer.SetDefaultNamespace("urn:d");
    m_writer.WriteStartElement("root", "urn:d");
    m_writer.WriteAttribute("at", "urn:d", "v", ItemType_string);
    m_writer.WriteAttribute("plain", "", "w", ItemType_string);
    m_writer.WriteAttribute("again", "urn:d", "x", ItemType_string);
    m_writer.WriteEndElement();
    EXPECT_EQ("<root xmlns=\"urn:d\" xmlns:AA=\"urn:d\" AA:at=\"v\" plain=\"w\" AA:again=\"x\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, AttributePrefixIsScopedToItsElement) {
    m_writer.WriteStartElement("root", "");
    m_writer.WriteStartElement("a", "");
    m_writer.WriteAttribute("x", "urn:x", "1", ItemType_string);
    Leaf("inner", "2", "urn:x");
    m_writer.WriteEndElement();
    m_writer.WriteStartElement("b", "");
    m_writer.WriteAttribute("x", "urn:y", "3", ItemType_string);
    m_writer.WriteEndElement();
    m_writer.WriteEndElement();
    EXPECT_EQ(
        "<root>\n"
        "\t<a xmlns:AA=\"urn:x\" AA:x=\"1\">\n"
        "\t\t<AA:inner>2</AA:inner>\n"
        "\t</a>\n"
        "\t<b xmlns:AA=\"urn:y\" AA:x=\"3\"/>\n"
        "</root>\n",
        Text());
}

TEST_F(XmlTextWriterTest, AliasAndDefaultSetInsideAnElementStayInItsScope) {
    m_writer.WriteStartElement("root", "");
    m_writer.WriteStartElement("a", "");
    m_writer.AddNamespaceAlias("q", "urn:q");
    m_writer.SetDefaultNamespace("urn:d");
    Leaf("x", "1", "urn:q");
    Leaf("y", "2", "urn:d");
    m_writer.WriteEndElement();
    Leaf("x", "3", "urn:q");
    Leaf("y", "4", "urn:d");
    m_writer.WriteEndElement();
    // Set on an open element these emit no declarations; they only decide the names below.
    EXPECT_EQ(
        "<root>\n"
        "\t<a>\n"
        "\t\t<q:x>1</q:x>\n"
        "\t\t<y>2</y>\n"
        "\t</a>\n"
        "\t<AA:x xmlns:AA=\"urn:q\">3</AA:x>\n"
        "\t<AA:y xmlns:AA=\"urn:d\">4</AA:y>\n"
        "</root>\n",
        Text());
}

TEST_F(XmlTextWriterTest, SecondRootGetsItsDeclarationsAgain) {
    m_writer.AddNamespaceAlias("p", "urn:p");
    m_writer.WriteStartElement("a", "urn:p");
    m_writer.WriteEndElement();
    m_writer.WriteStartElement("b", "urn:p");
    m_writer.WriteEndElement();
    EXPECT_EQ("<p:a xmlns:p=\"urn:p\"/>\n<p:b xmlns:p=\"urn:p\"/>\n", Text());
}

// --- xsi:type and xsi:nil --------------------------------------------------------------------

TEST_F(XmlTextWriterTest, XsiTypeDeclaresBothNamespacesWithTwoBlanks) {
    m_writer.WriteStartElement("r", "");
    m_writer.WriteXsiType("urn:t", "T", ItemType_string);
    m_writer.WriteEndElement();
    EXPECT_EQ(std::string("<r xmlns:AA=\"urn:t\"  xmlns:AB=\"") + kXsi + "\" AB:type=\"AA:T\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, XsiTypeWithRegisteredXsiAlias) {
    m_writer.AddNamespaceAlias("xsi", kXsi);
    m_writer.AddNamespaceAlias("t", "urn:known");
    m_writer.WriteStartElement("r", "");
    m_writer.WriteStartElement("a", "");
    m_writer.WriteXsiType("urn:t", "T", ItemType_string);
    m_writer.WriteEndElement();
    m_writer.WriteStartElement("b", "");
    m_writer.WriteXsiType("urn:known", "K", ItemType_string);
    m_writer.WriteEndElement();
    m_writer.WriteStartElement("c", "");
    m_writer.WriteXsiType("", "string", ItemType_string);
    m_writer.WriteXsiNil();
    m_writer.WriteEndElement();
    m_writer.WriteEndElement();
    // By URI the instance namespace ("http://www.w3.org/2...") sorts before "urn:known".
    EXPECT_EQ(std::string("<r xmlns:xsi=\"") + kXsi +
                  "\" xmlns:t=\"urn:known\">\n"
                  "\t<a xmlns:AA=\"urn:t\"  xsi:type=\"AA:T\"/>\n"
                  "\t<b xsi:type=\"t:K\"/>\n"
                  "\t<c xsi:type=\"string\" xsi:nil=\"true\"/>\n"
                  "</r>\n",
              Text());
}

TEST_F(XmlTextWriterTest, XsiTypeInTheDefaultNamespaceIsUnprefixed) {
    m_writer.AddNamespaceAlias("xsi", kXsi);
    m_writer.SetDefaultNamespace("urn:d");
    m_writer.WriteStartElement("r", "urn:d");
    m_writer.WriteXsiType("urn:d", "T", ItemType_string);
    m_writer.WriteEndElement();
    EXPECT_EQ(std::string("<r xmlns=\"urn:d\" xmlns:xsi=\"") + kXsi + "\" xsi:type=\"T\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, XsiNilWithoutAliasDeclaresAGeneratedPrefix) {
    m_writer.WriteStartElement("r", "");
    m_writer.WriteXsiNil();
    m_writer.WriteEndElement();
    EXPECT_EQ(std::string("<r xmlns:AA=\"") + kXsi + "\" AA:nil=\"true\"/>\n", Text());
}

// --- state errors ----------------------------------------------------------------------------

TEST_F(XmlTextWriterTest, AttributeOperationsAfterContentAreRefused) {
    const std::string kMessage = "Attributes must be added before elements";
    m_writer.WriteStartElement("r", "");
    m_writer.WriteElementText("text", ItemType_string, false);
    EXPECT_EQ(kMessage, MessageOf([&] { m_writer.WriteAttribute("a", "", "1", ItemType_string); }));
    EXPECT_EQ(kMessage, MessageOf([&] { m_writer.WriteXsiType("urn:t", "T", ItemType_string); }));
    EXPECT_EQ(kMessage, MessageOf([&] { m_writer.WriteXsiNil(); }));

    m_writer.WriteStartElement("c", "");
    m_writer.WriteEndElement();
    EXPECT_EQ(kMessage, MessageOf([&] { m_writer.WriteAttribute("a", "", "1", ItemType_string); }));
    m_writer.WriteEndElement();
    // Nothing of the refused operations reached the text.
    EXPECT_EQ("<r>text\t<c/>\n</r>\n", Text());
}

TEST_F(XmlTextWriterTest, AttributeWithoutOpenElementIsRefused) {
    EXPECT_EQ("Attributes must be added before elements",
              MessageOf([&] { m_writer.WriteAttribute("a", "", "1", ItemType_string); }));
}

TEST_F(XmlTextWriterTest, EndDocumentWithOpenElementThrows) {
    m_writer.WriteStartElement("r", "");
    EXPECT_EQ("An Element has not been closed.", MessageOf([&] { m_writer.EndDocument(); }));
    m_writer.WriteElementText("x", ItemType_string, false);
    EXPECT_EQ("An Element has not been closed.", MessageOf([&] { m_writer.EndDocument(); }));
    m_writer.WriteEndElement();
    m_writer.EndDocument();
    EXPECT_EQ("<r>x</r>\n", Text());
}

TEST_F(XmlTextWriterTest, EndElementWithoutOpenElementThrows) {
    EXPECT_EQ("There is no open element to end.", MessageOf([&] { m_writer.WriteEndElement(); }));
}
