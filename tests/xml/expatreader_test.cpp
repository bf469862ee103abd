// What expat's events become in the tree: names split by namespace, text, CDATA, line ends,
// the namespace-unaware mode, conversion to a non-UTF-8 local encoding, and error texts.
#include "orvexxml/xml/expatreader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/xml/xmldocument.h"
#include "xml/xmltesthelpers.h"

using namespace OrvexXml;
using OrvexXmlTest::Children;
using OrvexXmlTest::Dump;
using OrvexXmlTest::ExpectOxError;

namespace {

TEST(ExpatReaderNames, PrefixedElementSplitsIntoNamespaceAndLocalName) {
    CXmlDocument doc;
    doc.LoadXml("<p:a xmlns:p='urn:x'><p:b/><c/></p:a>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("a", pRoot->GetLocalName());
    EXPECT_EQ("urn:x", pRoot->GetNamespaceURI());
    EXPECT_EQ("p", doc.LookupAliasFromNamespace("urn:x"));
    std::vector<CXmlElement*> children = Children(pRoot);
    EXPECT_EQ("urn:x", children[0]->GetNamespaceURI());
    EXPECT_EQ("b", children[0]->GetLocalName());
    EXPECT_EQ("", children[1]->GetNamespaceURI());
    // Namespace declarations are not attributes.
    EXPECT_TRUE(pRoot->GetAttributes().empty());
}

TEST(ExpatReaderNames, PrefixlessAttributeHasNoNamespaceEvenUnderADefault) {
    CXmlDocument doc;
    doc.LoadXml("<a xmlns='urn:d' xmlns:q='urn:q' plain='1' q:named='2'><b/></a>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("urn:d", pRoot->GetNamespaceURI());
    EXPECT_EQ("urn:d", pRoot->GetFirstElement()->GetNamespaceURI());
    ASSERT_EQ(2u, pRoot->GetAttributes().size());
    EXPECT_EQ("plain", pRoot->GetAttributes()[0]->GetLocalName());
    EXPECT_EQ("", pRoot->GetAttributes()[0]->GetNamespaceURI());
    EXPECT_EQ("named", pRoot->GetAttributes()[1]->GetLocalName());
    EXPECT_EQ("urn:q", pRoot->GetAttributes()[1]->GetNamespaceURI());
    EXPECT_EQ("2", pRoot->GetAttribute("named", "urn:q"));
}

TEST(ExpatReaderNames, NamespaceUriWithTheSeparatorIsRefused) {
    // "|" joins URI and local name in expat's reports; expat refuses a URI that holds it.
    CXmlDocument doc;
    ExpectOxError([&] { doc.LoadXml("<p:a xmlns:p='urn:a|b'/>"); }, "syntax error at line 1");
    ExpectOxError([&] { doc.LoadXml("<a xmlns='urn:a|b'/>"); }, "syntax error at line 1");
}

TEST(ExpatReaderNames, XmlPrefixNeedsNoDeclaration) {
    CXmlDocument doc;
    doc.LoadXml("<a xml:lang='en'/>");
    const CXmlAttribute* pAttribute = doc.GetDocumentElement()->GetAttributes()[0];
    EXPECT_EQ("lang", pAttribute->GetLocalName());
    EXPECT_EQ("http://www.w3.org/XML/1998/namespace", pAttribute->GetNamespaceURI());
}

TEST(ExpatReaderNames, DtdSchemaTypeKeepsNamesAsWritten) {
    CSerializationContext ctx;
    ctx.SetSchemaType(SchemaType_DTD);
    CXmlDocument doc(ctx);
    doc.LoadXml("<p:a xmlns:p='urn:x' p:b='1'><undeclared:c/></p:a>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("p:a", pRoot->GetLocalName());
    EXPECT_EQ("", pRoot->GetNamespaceURI());
    EXPECT_EQ("undeclared:c", pRoot->GetFirstElement()->GetLocalName());
    ASSERT_EQ(2u, pRoot->GetAttributes().size());
    EXPECT_EQ("xmlns:p", pRoot->GetAttributes()[0]->GetLocalName());
    EXPECT_EQ("urn:x", pRoot->GetAttributes()[0]->GetValue());
    EXPECT_EQ("p:b", pRoot->GetAttributes()[1]->GetLocalName());
    EXPECT_EQ("", doc.LookupNamespaceFromAlias("p"));
    EXPECT_EQ("/p:a/undeclared:c", pRoot->GetFirstElement()->GetXPath());
}

TEST(ExpatReaderNames, UnboundPrefixIsAnErrorWithNamespaces) {
    CXmlDocument doc;
    ExpectOxError([&] { doc.LoadXml("<a>\n<u:c/></a>"); }, "unbound prefix at line 2");
}

TEST(ExpatReaderText, CDataKeptWithMarkersOrStripped) {
    CSerializationContext keep;
    keep.SetStripCDATA(false);
    CXmlDocument kept(keep);
    kept.LoadXml("<a>a<![CDATA[b<&>]]>c</a>");
    EXPECT_EQ("a<![CDATA[b<&>]]>c", kept.GetDocumentElement()->GetText());

    CSerializationContext ctx;
    ctx.SetStripCDATA(true);
    CXmlDocument stripped(ctx);
    stripped.LoadXml("<a>a<![CDATA[b<&>]]>c</a>");
    EXPECT_EQ("ab<&>c", stripped.GetDocumentElement()->GetText());
}

TEST(ExpatReaderText, CommentsAndProcessingInstructionsLeaveNoTrace) {
    CXmlDocument doc;
    doc.LoadXml("<?xml version='1.0'?><!DOCTYPE a><!--x--><a>be<!-- inside -->fore<?pi data?>after</a><!--y-->");
    EXPECT_EQ("beforeafter", doc.GetDocumentElement()->GetText());
    EXPECT_EQ(nullptr, doc.GetDocumentElement()->GetFirstElement());
}

TEST(ExpatReaderText, CarriageReturnsAreNeverStored) {
    CXmlDocument doc;
    doc.LoadXml("<a t='x\r\ny'>one\r\ntwo\rthree&#13;four\r\n<b>\r\n</b></a>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("one\ntwo\nthreefour\n", pRoot->GetText());
    EXPECT_EQ("\n", pRoot->GetFirstElement()->GetText());
    // Attribute values are normalised by expat itself: a line end becomes a blank.
    EXPECT_EQ("x y", pRoot->GetAttribute("t"));
}

TEST(ExpatReaderText, EntitiesAndCharacterReferencesAreResolved) {
    CXmlDocument doc;
    doc.LoadXml("<!DOCTYPE a [<!ENTITY me 'mine'>]><a v='&lt;&#x41;'>&amp;&me;&#x1F600;</a>");
    EXPECT_EQ("&mine\xF0\x9F\x98\x80", doc.GetDocumentElement()->GetText());
    EXPECT_EQ("<A", doc.GetDocumentElement()->GetAttribute("v"));
}

TEST(ExpatReaderErrors, ExpatTextAndLine) {
    CXmlDocument doc;
    ExpectOxError([&] { doc.LoadXml("<a>\n<b>\n</a>"); }, "mismatched tag at line 3");
    ExpectOxError([&] { doc.LoadXml("<a>"); }, "no element found at line 1");
    ExpectOxError([&] { doc.LoadXml("<a>\n\n<b>text"); }, "no element found at line 3");
    ExpectOxError([&] { doc.LoadXml("   "); }, "no element found at line 1");
    ExpectOxError([&] { doc.LoadXml("<a/><b/>"); }, "junk after document element at line 1");
    ExpectOxError([&] { doc.LoadXml("<a x='1' x='2'/>"); }, "duplicate attribute at line 1");
    ExpectOxError([&] { doc.LoadXml("<a>&nope;</a>"); }, "undefined entity at line 1");
    ExpectOxError([&] { doc.LoadXml("<a>\n\n\n\n<"); }, "unclosed token at line 5");
}

TEST(ExpatReaderUse, ParserIsGoneAfterTheFinalChunk) {
    CXmlDocument doc;
    CExpatReader reader(doc);
    reader.Init();
    ExpectOxError([&] { reader.ParseChunk(true); }, "no element found at line 1");
    EXPECT_THROW(reader.ParseChunk(true), COxInvalidStateException);
}

// With a local encoding other than UTF-8 every name, value and text is converted.
class ExpatReaderLocalEncoding : public ::testing::Test {
protected:
    void SetUp() override {
        m_nSaved = GetLocalCharEncoding();
        SetLocalCharEncoding(1252);
    }
    void TearDown() override { SetLocalCharEncoding(m_nSaved); }
    unsigned int m_nSaved = ORVEXXML_CP_UTF8;
};

TEST_F(ExpatReaderLocalEncoding, NamesValuesTextAndPrefixesAreConverted) {
    ASSERT_FALSE(IsLocalEncodingUtf8());
    CSerializationContext ctx;
    ctx.SetStripCDATA(false);
    CXmlDocument doc(ctx);
    std::string strLongText(3000, 'x');  // longer than the scratch buffer
    doc.LoadXml(("<\xC3\xA9:r xmlns:\xC3\xA9='urn:\xE2\x82\xAC' a\xC3\xA9='v\xC3\xA9' \xC3\xA9:q='1'>"
                 "caf\xC3\xA9 \xE4\xB8\xAD<\xC3\xA9:c>" +
                 strLongText + "\xC3\xA9</\xC3\xA9:c><![CDATA[\xC3\xA9]]></\xC3\xA9:r>")
                    .c_str());
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("r", pRoot->GetLocalName());
    EXPECT_EQ("urn:\x80", pRoot->GetNamespaceURI());
    EXPECT_EQ("caf\xE9 ?<![CDATA[\xE9]]>", pRoot->GetText());
    EXPECT_EQ("v\xE9", pRoot->GetAttribute("a\xE9"));
    EXPECT_EQ("1", pRoot->GetAttribute("q", "urn:\x80"));
    EXPECT_EQ("urn:\x80", doc.LookupNamespaceFromAlias("\xE9"));
    EXPECT_EQ("\xE9", doc.LookupAliasFromNamespace("urn:\x80"));
    EXPECT_EQ(strLongText + "\xE9", pRoot->GetFirstElement()->GetText());
    EXPECT_EQ("urn:\x80", pRoot->GetFirstElement()->GetNamespaceURI());
    EXPECT_EQ("/\xE9:r/\xE9:c", pRoot->GetFirstElement()->GetXPath());
}

}  // namespace
