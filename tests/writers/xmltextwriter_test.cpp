#include "orvexxml/writers/xmltextwriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <string>
#include <typeinfo>
#include <utility>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/xml/xmldocument.h"
#include "orvexxml/xml/xmlelement.h"

using namespace OrvexXml;

namespace {

const std::string kXsi = "http://www.w3.org/2001/XMLSchema-instance";

// A writer on a memory stream, started as a caller would start it, with short forms of the
// calls the binding engine makes.
class XmlTextWriterTest : public ::testing::Test {
protected:
    XmlTextWriterTest() : m_writer(&m_stream) { m_writer.StartDocument(); }

    std::string Text() { return m_stream.GetText(); }
    void Open(const std::string& strName, const std::string& strNamespace = "") {
        m_writer.WriteStartElement(strName, strNamespace);
    }
    void Close() { m_writer.WriteEndElement(); }
    void Attr(const std::string& strName, const std::string& strValue, const std::string& strNamespace = "") {
        m_writer.WriteAttribute(strName, strNamespace, strValue, ItemType_string);
    }
    // An element holding only text; an empty text leaves it self-closed.
    void Leaf(const std::string& strName, const std::string& strText, const std::string& strNamespace = "",
              bool bIsDefaultValue = false) {
        Open(strName, strNamespace);
        m_writer.WriteElementText(strText, ItemType_string, bIsDefaultValue);
        Close();
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

TEST_F(XmlTextWriterTest, IndentationSelfClosingDefaultValuesAndChangedIndentChars) {
    Open("a");
    Leaf("b", "x");
    Leaf("empty", "");
    Leaf("default", "5", "", true);
    Open("c");
    Leaf("d", "y");
    Leaf("e", "");
    Close();
    m_writer.SetWriteDefaultValues(true);
    m_writer.SetIndentChars("-+");
    Leaf("f", "5", "", true);
    m_writer.SetIndentChars(nullptr);
    EXPECT_EQ("", m_writer.GetIndentChars());
    Leaf("g", "3");
    m_writer.WriteElementText("tail", ItemType_string, false);
    Close();
    m_writer.EndDocument();
    EXPECT_EQ(
        "<a>\n\t<b>x</b>\n\t<empty/>\n\t<default/>\n\t<c>\n\t\t<d>y</d>\n\t\t<e/>\n\t</c>\n"
        "-+<f>5</f>\n<g>3</g>\ntail</a>\n",
        Text());
}

TEST_F(XmlTextWriterTest, CustomIndentAtDepth) {
    m_writer.SetIndentChars("  ");
    const int kDepth = 40;
    for (int i = 0; i < kDepth; ++i) Open("n");
    for (int i = 0; i < kDepth; ++i) Close();
    std::string expected;
    for (int i = 0; i < kDepth - 1; ++i) expected += std::string(2 * i, ' ') + "<n>\n";
    expected += std::string(2 * (kDepth - 1), ' ') + "<n/>\n";
    for (int i = kDepth - 2; i >= 0; --i) expected += std::string(2 * i, ' ') + "</n>\n";
    EXPECT_EQ(expected, Text());
}

TEST_F(XmlTextWriterTest, CrLfLineEndsEverywhereAndAnInvalidTypeChangesNothing) {
    m_writer.SetEOLType(EOLType_CRLF);
    EXPECT_EQ("Invalid EOL type.", MessageOf([&] { m_writer.SetEOLType(static_cast<EOLType>(7)); }));
    EXPECT_EQ(EOLType_CRLF, m_writer.GetEOLType());
    m_writer.WriteHeader();
    m_writer.WriteProcessingInstruction("<?xml-stylesheet href=\"a&b.xsl\"?>");
    Open("a");
    Attr("t", "1\n2");
    Leaf("b", "x\ny");
    Close();
    EXPECT_EQ(
        "<?xml version=\"1.0\"?>\r\n<?xml-stylesheet href=\"a&b.xsl\"?>\r\n\r\n"
        "<a t=\"1&#xA;2\">\r\n\t<b>x\r\ny</b>\r\n</a>\r\n",
        Text());
}

TEST_F(XmlTextWriterTest, UnformattedOutputKeepsLineEndsOfHeaderCommentsAndInstructions) {
    m_writer.SetFormatted(false);
    m_writer.CloseStartTag();  // without an open element: nothing
    m_writer.WriteHeader();
    m_writer.WriteComment("a & b -- <c>");
    m_writer.WriteProcessingInstruction("<?pi data?>");
    Open("a");
    Leaf("b", "x");
    Leaf("c", "");
    Open("o");
    m_writer.CloseStartTag();
    m_writer.WriteRaw("<i/>");
    Close();
    Close();
    m_writer.EndDocument();
    EXPECT_EQ("<?xml version=\"1.0\"?>\n<!--a &amp; b -- &lt;c&gt;-->\n<?pi data?>\n\n<a><b>x</b><c/><o><i/></o></a>",
              Text());
}

TEST(XmlTextWriterHeader, NamesTheEncodingOfTheStream) {
    const std::pair<XmlEncoding, const char*> cases[] = {
        {XmlEncoding_None, "<?xml version=\"1.0\"?>"},
        {XmlEncoding_UTF8, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"},
        {XmlEncoding_UTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>"},
        {XmlEncoding_UTF16NoDeclaration, "<?xml version=\"1.0\"?>"}};
    for (const auto& c : cases) {
        CTextStream stream(c.first);
        CXmlTextWriter writer(&stream);
        writer.WriteHeader();
        EXPECT_EQ(std::string(c.second) + "\n", stream.GetText()) << "encoding " << c.first;
    }
}

TEST_F(XmlTextWriterTest, InLineSchemaAndRawTextAreSplicedInUnchanged) {
    Open("r");
    Attr("a", "1");
    m_writer.WriteInLineSchema("<xs:schema/>");
    Attr("b", "2");
    Leaf("c", "x");
    Open("outer");
    m_writer.CloseStartTag();
    m_writer.WriteRaw("\t<inner>a&b</inner>");
    Close();
    Close();
    EXPECT_EQ("<r a=\"1\" \n<xs:schema/>\n b=\"2\">\n\t<c>x</c>\n\t<outer>\n\t<inner>a&b</inner>\n\t</outer>\n</r>\n",
              Text());
}

// --- escaping --------------------------------------------------------------------------------

TEST_F(XmlTextWriterTest, TextAndAttributeEscaping) {
    const std::string kValue = "1<2>3&4\"5'6\r\n7\t8\xC3\xA9";
    Open("r");
    Attr("v", kValue);
    m_writer.WriteElementText(kValue, ItemType_string, false);
    Leaf("z", std::string("ab\0<cd", 6));  // text ends at an embedded null byte
    Close();
    EXPECT_EQ(
        "<r v=\"1&lt;2&gt;3&amp;4&quot;5'6&#xA;7\t8\xC3\xA9\">1&lt;2&gt;3&amp;4\"5'6\n7\t8\xC3\xA9\t<z>ab</z>\n</r>\n",
        Text());
}

// With checking on, a value XML can't carry is refused before any of it is written, in an
// attribute (with or without a namespace) as in text; what passes is written unchanged.
TEST_F(XmlTextWriterTest, CheckedCharactersRefuseTheValueWithItsPathAndWriteNothingOfIt) {
    const std::string kBad =
        "a\x1F"
        "b";
    const std::string kFine = "t\tn\ne\xC3\xA9\x7F";
    m_writer.SetCheckCharacters(true);
    Open("r");
    Attr("ok", kFine);
    const std::string strBefore = Text();
    struct {
        std::function<void()> write;
        const char* pszPath;
    } const cases[] = {
        {[&] { Attr("v", kBad); }, "/r/@v"},
        {[&] { Attr("w", std::string("\0", 1), "urn:x"); }, "/r/@w"},
        {[&] { m_writer.WriteElementText(kBad, ItemType_string, false); }, "/r"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszPath);
        try {
            c.write();
            ADD_FAILURE() << "the value was written";
        } catch (const COxException& e) {
            EXPECT_EQ(typeid(COxInvalidValueException), typeid(e));
            EXPECT_EQ(c.pszPath, e.GetPath());
        }
        EXPECT_EQ(strBefore, Text());
    }
    m_writer.SetCheckCharacters(false);
    Attr("v", kBad);  // the start tag of r is still open: nothing was written into it
    m_writer.SetCheckCharacters(true);
    m_writer.WriteElementText(kFine, ItemType_string, false);
    Close();
    EXPECT_EQ(
        "<r ok=\"t\tn&#xA;e\xC3\xA9\x7F\" v=\"a\x1F"
        "b\">t\tn\ne\xC3\xA9\x7F</r>\n",
        Text());
}
// A value that begins with a CDATA section keeps its complete sections; the text around them
// is escaped, and so is an unterminated section, so no value can close its element or add
// markup. Each document is read back by our own reader, with CDATA kept, to the same values.
TEST_F(XmlTextWriterTest, CDataPassesOnlyAtTheStartAndOnlyAsCompleteSections) {
    const char* const apszValues[] = {"<![CDATA[x < y & z]]>",
                                      " <![CDATA[x]]>",
                                      "<![CDATA",
                                      "<![CDATA[x]]></a><Injected/><a>",
                                      "<![CDATA[x]]><",
                                      "<![CDATA[x",
                                      "<![CDATA[]]>a<![CDATA[<b>]]>&<![CDATA[c"};
    Open("r");
    for (const char* pszValue : apszValues) Leaf("a", pszValue);
    Close();
    EXPECT_EQ(
        "<r>\n\t<a><![CDATA[x < y & z]]></a>\n\t<a> &lt;![CDATA[x]]&gt;</a>\n\t<a>&lt;![CDATA</a>\n"
        "\t<a><![CDATA[x]]>&lt;/a&gt;&lt;Injected/&gt;&lt;a&gt;</a>\n\t<a><![CDATA[x]]>&lt;</a>\n"
        "\t<a>&lt;![CDATA[x</a>\n\t<a><![CDATA[]]>a<![CDATA[<b>]]>&amp;&lt;![CDATA[c</a>\n</r>\n",
        Text());
    CSerializationContext keep;
    keep.SetStripCDATA(false);
    CXmlDocument doc(keep);
    doc.LoadXml(Text().c_str());
    const CXmlElement* pChild = doc.GetDocumentElement()->GetFirstElement();
    for (const char* pszValue : apszValues) {
        ASSERT_NE(nullptr, pChild);
        EXPECT_EQ(pszValue, pChild->GetText());
        pChild = pChild->GetNextSiblingElement();
    }
    EXPECT_EQ(nullptr, pChild);
}

TEST(XmlTextWriterEscaping, ArbitraryTextFollowsTheCharacterRules) {
    // Texts of every length up to 40 over an alphabet rich in special bytes, so that special
    // bytes fall on every position of the scan.
    const char alphabet[] = {'a', 'b', '\n', '\r', '"', '&', '<', '>', '\'', '\t', '\x80', '\xff'};
    std::mt19937 rng(7);
    for (bool bAttribute : {false, true}) {
        const std::map<char, std::string> escapes = {{'&', "&amp;"},
                                                     {'<', "&lt;"},
                                                     {'>', "&gt;"},
                                                     {'\r', ""},
                                                     {'\n', bAttribute ? "&#xA;" : "\n"},
                                                     {'"', bAttribute ? "&quot;" : "\""}};
        for (int i = 0; i < 400; ++i) {
            std::string value(1 + rng() % 40, 'a');
            for (char& c : value) c = alphabet[rng() % sizeof(alphabet)];
            std::string expected;
            for (char c : value) expected += escapes.count(c) ? escapes.at(c) : std::string(1, c);
            CTextStream stream;
            CXmlTextWriter writer(&stream);
            writer.SetFormatted(false);
            writer.WriteStartElement("e", "");
            if (bAttribute)
                writer.WriteAttribute("v", "", value, ItemType_string);
            else
                writer.WriteElementText(value, ItemType_string, false);
            writer.WriteEndElement();
            ASSERT_EQ(bAttribute ? "<e v=\"" + expected + "\"/>" : "<e>" + expected + "</e>",
                      std::string(stream.GetText()));
        }
    }
}

// --- namespaces ------------------------------------------------------------------------------

TEST_F(XmlTextWriterTest, PrefixesAliasesAndDefaultsAreScopedToTheElementThatSetsThem) {
    Open("root");
    Open("first", "urn:c");
    Leaf("inner", "1", "urn:c");
    Leaf("deeper", "2", "urn:d");
    Close();
    Leaf("second", "3", "urn:c");
    Leaf("third", "4", "urn:e");
    // Set on an open element, an alias and a default emit no declarations; they only decide
    // the names below.
    Open("a");
    m_writer.AddNamespaceAlias("q", "urn:q");
    m_writer.SetDefaultNamespace("urn:d");
    Leaf("x", "5", "urn:q");
    Leaf("y", "6", "urn:d");
    Close();
    Leaf("x", "7", "urn:q");
    Leaf("y", "8", "urn:d");
    Close();
    EXPECT_EQ(
        "<root>\n"
        "\t<AA:first xmlns:AA=\"urn:c\">\n"
        "\t\t<AA:inner>1</AA:inner>\n"
        "\t\t<AB:deeper xmlns:AB=\"urn:d\">2</AB:deeper>\n"
        "\t</AA:first>\n"
        "\t<AA:second xmlns:AA=\"urn:c\">3</AA:second>\n"
        "\t<AA:third xmlns:AA=\"urn:e\">4</AA:third>\n"
        "\t<a>\n"
        "\t\t<q:x>5</q:x>\n"
        "\t\t<y>6</y>\n"
        "\t</a>\n"
        "\t<AA:x xmlns:AA=\"urn:q\">7</AA:x>\n"
        "\t<AA:y xmlns:AA=\"urn:d\">8</AA:y>\n"
        "</root>\n",
        Text());
}

// An end tag takes its prefix from the scope as it is when the tag is written, so a default
// or an alias set on an open element shows in its own end tag; without such a change, the
// prefix found for the start tag serves again.
TEST_F(XmlTextWriterTest, EndTagsFollowTheScopeAsItIsWhenTheyAreWritten) {
    Open("root", "urn:c");
    m_writer.AddNamespaceAlias("c", "urn:c");
    Open("mid", "urn:c");
    m_writer.SetDefaultNamespace("urn:c");
    Leaf("leaf", "1", "urn:c");
    Close();
    Leaf("same", "2", "urn:c");
    Close();
    EXPECT_EQ(
        "<AA:root xmlns:AA=\"urn:c\">\n"
        "\t<c:mid>\n"
        "\t\t<leaf>1</leaf>\n"
        "\t</mid>\n"
        "\t<c:same>2</c:same>\n"
        "</c:root>\n",
        Text());
}

// Each sibling's scope is its own: a later sibling neither sees the prefixes an earlier one
// declared (the prefix of urn:c is declared again under "b", where "AA" means urn:d) nor keeps
// an alias its parent has since rebound ("r" replaces "q" for urn:q).
TEST_F(XmlTextWriterTest, ASiblingScopeHoldsNothingOfTheScopeOfTheSiblingBefore) {
    Open("root");
    m_writer.AddNamespaceAlias("q", "urn:q");
    Open("a", "urn:c");
    Leaf("x", "1", "urn:c");
    Leaf("y", "2", "urn:q");
    Close();
    m_writer.AddNamespaceAlias("r", "urn:q");
    Open("b", "urn:d");
    Leaf("x", "3", "urn:c");
    Leaf("y", "4", "urn:q");
    Close();
    Close();
    EXPECT_EQ(
        "<root>\n"
        "\t<AA:a xmlns:AA=\"urn:c\">\n"
        "\t\t<AA:x>1</AA:x>\n"
        "\t\t<q:y>2</q:y>\n"
        "\t</AA:a>\n"
        "\t<AA:b xmlns:AA=\"urn:d\">\n"
        "\t\t<AB:x xmlns:AB=\"urn:c\">3</AB:x>\n"
        "\t\t<r:y>4</r:y>\n"
        "\t</AA:b>\n"
        "</root>\n",
        Text());
}

TEST_F(XmlTextWriterTest, EachRootDeclaresItsPrefixFirstAndSkipsRegisteredPrefixes) {
    // A registered "AA" is skipped by the generator; a root in a registered namespace is
    // declared once, and a second root gets the declarations again.
    m_writer.AddNamespaceAlias("AA", "urn:x");
    m_writer.SetDefaultNamespace("urn:d");
    Leaf("a", "", "urn:r");
    Leaf("b", "", "urn:x");
    EXPECT_EQ(
        "<AB:a xmlns:AB=\"urn:r\" xmlns=\"urn:d\" xmlns:AA=\"urn:x\"/>\n"
        "<AA:b xmlns=\"urn:d\" xmlns:AA=\"urn:x\"/>\n",
        Text());
}

TEST_F(XmlTextWriterTest, RootDeclarationsAreSortedByURIAndXmlIsNeverDeclared) {
    m_writer.AddNamespaceAlias("z", "urn:a");
    m_writer.AddNamespaceAlias("q", "urn:c");
    m_writer.AddNamespaceAlias("a", "urn:c");  // a later alias replaces an earlier one
    m_writer.AddNamespaceAlias("m", "urn:b");
    m_writer.SetDefaultNamespace("urn:default");
    Open("root", "urn:default");
    Attr("lang", "en", "http://www.w3.org/XML/1998/namespace");
    Leaf("x", "1", "urn:c");
    Leaf("y", "2", "urn:default");
    Leaf("plain", "3");  // no namespace under a default one: not undeclared
    Close();
    EXPECT_EQ(
        "<root xmlns=\"urn:default\" xmlns:z=\"urn:a\" xmlns:m=\"urn:b\" xmlns:a=\"urn:c\" xml:lang=\"en\">\n"
        "\t<a:x>1</a:x>\n"
        "\t<y>2</y>\n"
        "\t<plain>3</plain>\n"
        "</root>\n",
        Text());
}

TEST_F(XmlTextWriterTest, AttributesInANamespaceAlwaysGetAPrefixScopedToTheirElement) {
    // Unprefixed attributes are in no namespace, so even the default namespace needs one.
    m_writer.SetDefaultNamespace("urn:d");
    Open("root", "urn:d");
    Attr("at", "v", "urn:d");
    Attr("plain", "w");
    Attr("again", "x", "urn:d");
    Open("a");
    Attr("x", "1", "urn:x");
    Leaf("inner", "2", "urn:x");
    Close();
    Open("b");
    Attr("x", "3", "urn:y");
    Close();
    Close();
    EXPECT_EQ(
        "<root xmlns=\"urn:d\" xmlns:AA=\"urn:d\" AA:at=\"v\" plain=\"w\" AA:again=\"x\">\n"
        "\t<a xmlns:AB=\"urn:x\" AB:x=\"1\">\n"
        "\t\t<AB:inner>2</AB:inner>\n"
        "\t</a>\n"
        "\t<b xmlns:AB=\"urn:y\" AB:x=\"3\"/>\n"
        "</root>\n",
        Text());
}

// --- xsi:type and xsi:nil --------------------------------------------------------------------

TEST_F(XmlTextWriterTest, XsiTypeAndNilWithoutAliasDeclareGeneratedPrefixes) {
    Open("r");
    m_writer.WriteXsiType("urn:t", "T", ItemType_string);
    m_writer.WriteXsiNil();
    Close();
    EXPECT_EQ("<r xmlns:AA=\"urn:t\"  xmlns:AB=\"" + kXsi + "\" AB:type=\"AA:T\" AB:nil=\"true\"/>\n", Text());
}

TEST_F(XmlTextWriterTest, XsiTypeWithRegisteredAliases) {
    m_writer.AddNamespaceAlias("xsi", kXsi);
    m_writer.AddNamespaceAlias("t", "urn:known");
    m_writer.SetDefaultNamespace("urn:d");
    Open("r", "urn:d");
    const char* aTypes[][3] = {{"a", "urn:t", "T"}, {"b", "urn:known", "K"}, {"c", "", "string"}, {"d", "urn:d", "T"}};
    for (const auto& type : aTypes) {
        Open(type[0]);
        m_writer.WriteXsiType(type[1], type[2], ItemType_string);
        if (type[0][0] == 'c') m_writer.WriteXsiNil();
        Close();
    }
    Close();
    // By URI the instance namespace ("http://www.w3.org/2...") sorts before "urn:known".
    EXPECT_EQ("<r xmlns=\"urn:d\" xmlns:xsi=\"" + kXsi +
                  "\" xmlns:t=\"urn:known\">\n"
                  "\t<a xmlns:AA=\"urn:t\"  xsi:type=\"AA:T\"/>\n"
                  "\t<b xsi:type=\"t:K\"/>\n"
                  "\t<c xsi:type=\"string\" xsi:nil=\"true\"/>\n"
                  "\t<d xsi:type=\"T\"/>\n"
                  "</r>\n",
              Text());
}

// --- state errors ----------------------------------------------------------------------------

TEST_F(XmlTextWriterTest, OperationsOutOfOrderAreRefusedAndWriteNothing) {
    const std::string kAttributes = "Attributes must be added before elements";
    const std::string kNotClosed = "An Element has not been closed.";
    EXPECT_EQ("There is no open element to end.", MessageOf([&] { Close(); }));
    EXPECT_EQ(kAttributes, MessageOf([&] { Attr("a", "1"); }));
    Open("r");
    EXPECT_EQ(kNotClosed, MessageOf([&] { m_writer.EndDocument(); }));
    m_writer.WriteElementText("text", ItemType_string, false);
    EXPECT_EQ(kNotClosed, MessageOf([&] { m_writer.EndDocument(); }));
    EXPECT_EQ(kAttributes, MessageOf([&] { Attr("a", "1"); }));
    EXPECT_EQ(kAttributes, MessageOf([&] { m_writer.WriteXsiType("urn:t", "T", ItemType_string); }));
    EXPECT_EQ(kAttributes, MessageOf([&] { m_writer.WriteXsiNil(); }));
    Leaf("c", "");
    EXPECT_EQ(kAttributes, MessageOf([&] { Attr("a", "1"); }));
    Close();
    m_writer.EndDocument();
    EXPECT_EQ("<r>text\t<c/>\n</r>\n", Text());
}

// Whatever alias a caller hands in, the document stays well-formed: the writer either refuses
// the alias or writes a document in which the parser finds the attribute in its namespace.
TEST(XmlTextWriterAliases, AnAliasIsTakenOnlyWhereTheDocumentStaysWellFormed) {
    const std::string kXml = CXmlWriter::XmlNamespaceURI;
    const struct {
        const char* pszAlias;
        std::string strNamespace;
        bool bTaken;
    } rows[] = {
        {"p", "urn:p", true},      {"p.q-1", "urn:p", true},
        {"_x", "urn:p", true},     {"xml", kXml, true},
        {"x", kXml, false},        {"xml", "urn:p", false},
        {"xmlns", "urn:p", false}, {"n", "http://www.w3.org/2000/xmlns/", false},
        {"", "urn:p", false},      {"a:b", "urn:p", false},
        {"1a", "urn:p", false},    {"a b", "urn:p", false},
        {"-a", "urn:p", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.pszAlias) + " " + row.strNamespace);
        CTextStream stream;
        CXmlTextWriter writer(&stream);
        writer.StartDocument();
        try {
            writer.AddNamespaceAlias(row.pszAlias, row.strNamespace);
            writer.WriteStartElement("r", "");
            writer.WriteAttribute("a", row.strNamespace, "1", ItemType_string);
            writer.WriteEndElement();
            writer.EndDocument();
        } catch (const COxInvalidParamException& e) {
            EXPECT_FALSE(row.bTaken);
            EXPECT_EQ(e.GetMessage(), "The alias [" + std::string(row.pszAlias) + "] can't stand for the namespace [" +
                                          row.strNamespace +
                                          "] in XML: an alias is a name without a colon, xml is the alias of the XML "
                                          "namespace alone, and xmlns and its namespace are never bound.");
            continue;
        }
        EXPECT_TRUE(row.bTaken);
        CXmlDocument doc;
        doc.LoadXml(stream.GetText());
        EXPECT_EQ(doc.GetDocumentElement()->GetAttributes().at(0)->GetNamespaceURI(), row.strNamespace);
    }
}

// Namespace names come from documents too (open content keeps them) and may hold markup and
// whitespace; each declaration form must read back as the same name.
TEST(XmlTextWriterAliases, NamespaceNamesWithMarkupAndWhitespaceReadBackUnchanged) {
    for (const std::string strNamespace : {"urn:a&b", "urn:<x>", "urn:\"q\"", "urn:a\tb c", "urn:l\nm\rn"}) {
        SCOPED_TRACE(strNamespace);
        CTextStream stream;
        CXmlTextWriter writer(&stream);
        writer.StartDocument();
        writer.SetDefaultNamespace(strNamespace);  // declared at the root
        writer.AddNamespaceAlias("p", strNamespace + "/p");
        writer.WriteStartElement("r", strNamespace);
        writer.WriteAttribute("a", strNamespace + "/p", "1", ItemType_string);
        writer.WriteStartElement("c", strNamespace + "/c");  // declared where it is used
        writer.WriteEndElement();
        writer.WriteEndElement();
        writer.EndDocument();
        CXmlDocument doc;
        doc.LoadXml(stream.GetText());
        const CXmlElement* pRoot = doc.GetDocumentElement();
        EXPECT_EQ(pRoot->GetNamespaceURI(), strNamespace);
        EXPECT_EQ(pRoot->GetAttributes().at(0)->GetNamespaceURI(), strNamespace + "/p");
        EXPECT_EQ(pRoot->GetFirstElement()->GetNamespaceURI(), strNamespace + "/c");
    }
}
