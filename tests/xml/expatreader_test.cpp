// What expat's events become in the tree: names split by namespace, text, CDATA, line ends,
// the namespace-unaware mode, conversion to a non-UTF-8 local encoding, and error texts.
#include "orvexxml/xml/expatreader.h"

#include <gtest/gtest.h>

#include <string>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/xml/xmldocument.h"
#include "xml/xmltesthelpers.h"

using namespace OrvexXml;
using OrvexXmlTest::Dump;
using OrvexXmlTest::ExpectOxError;

namespace {

TEST(ExpatReaderNames, NamesSplitIntoNamespaceAndLocalName) {
    // Declarations are not attributes; a prefixless attribute has no namespace even under a
    // default one; the xml prefix needs no declaration.
    CXmlDocument doc;
    doc.LoadXml(
        "<p:a xmlns:p='urn:x' xmlns:q='urn:q' q:named='2' xml:lang='en'>"
        "<p:b/><c xmlns='urn:d' plain='1'><d/></c><e/></p:a>");
    EXPECT_EQ(
        "({urn:x}a {urn:q}named=[2] {http://www.w3.org/XML/1998/namespace}lang=[en] text=[]({urn:x}b text=[])"
        "({urn:d}c {}plain=[1] text=[]({urn:d}d text=[]))({}e text=[]))",
        Dump(doc.GetDocumentElement()));
    EXPECT_EQ("2", doc.GetDocumentElement()->GetAttribute("named", "urn:q"));
    EXPECT_EQ("p", doc.LookupAliasFromNamespace("urn:x"));
}

TEST(ExpatReaderNames, DtdSchemaTypeKeepsNamesAsWritten) {
    CSerializationContext ctx;
    ctx.SetSchemaType(SchemaType_DTD);
    CXmlDocument doc(ctx);
    doc.LoadXml("<p:a xmlns:p='urn:x' p:b='1'><undeclared:c/></p:a>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("({}p:a {}xmlns:p=[urn:x] {}p:b=[1] text=[]({}undeclared:c text=[]))", Dump(pRoot));
    EXPECT_EQ("", doc.LookupNamespaceFromAlias("p"));
    EXPECT_EQ("/p:a/undeclared:c", pRoot->GetFirstElement()->GetXPath());
}

TEST(ExpatReaderText, MarkupLeavesNoTraceReferencesResolveCarriageReturnsGoCDataAsConfigured) {
    CXmlDocument doc;
    doc.LoadXml("<?xml version='1.0'?><!DOCTYPE a><!--x--><a>be<!-- inside -->fore<?pi data?>after</a><!--y-->");
    EXPECT_EQ("({}a text=[beforeafter])", Dump(doc.GetDocumentElement()));

    doc.LoadXml("<!DOCTYPE a [<!ENTITY me 'mine'>]><a v='&lt;&#x41;'>&amp;&me;&#x1F600;</a>");
    EXPECT_EQ("&mine\xF0\x9F\x98\x80", doc.GetDocumentElement()->GetText());
    EXPECT_EQ("<A", doc.GetDocumentElement()->GetAttribute("v"));

    // Attribute values are normalised by expat itself: a line end becomes a blank.
    doc.LoadXml("<a t='x\r\ny'>one\r\ntwo\rthree&#13;four\r\n<b>\r\n</b></a>");
    EXPECT_EQ("({}a {}t=[x y] text=[one\ntwo\nthreefour\n]({}b text=[\n]))", Dump(doc.GetDocumentElement()));

    for (bool bStrip : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStripCDATA(bStrip);
        CXmlDocument cdata(ctx);
        cdata.LoadXml("<a>a<![CDATA[b<&>]]>c</a>");
        EXPECT_EQ(bStrip ? "ab<&>c" : "a<![CDATA[b<&>]]>c", cdata.GetDocumentElement()->GetText());
    }
}

TEST(ExpatReaderErrors, ExpatTextAndLine) {
    const char* aCases[][2] = {
        {"<a>\n<b>\n</a>", "mismatched tag at line 3"},
        {"<a>", "no element found at line 1"},
        {"<a>\n\n<b>text", "no element found at line 3"},
        {"   ", "no element found at line 1"},
        {"<a/><b/>", "junk after document element at line 1"},
        {"<a x='1' x='2'/>", "duplicate attribute at line 1"},
        {"<a>&nope;</a>", "undefined entity at line 1"},
        {"<a>\n\n\n\n<", "unclosed token at line 5"},
        {"<a>\n<u:c/></a>", "unbound prefix at line 2"},
        // "|" joins URI and local name in expat's reports; expat refuses a URI that holds it.
        {"<p:a xmlns:p='urn:a|b'/>", "syntax error at line 1"},
        {"<a xmlns='urn:a|b'/>", "syntax error at line 1"},
        // Without a declaration a narrow string must be UTF-8.
        {"<a>caf\xE9</a>", "not well-formed (invalid token) at line 1"},
    };
    CXmlDocument doc;
    for (const auto& c : aCases) {
        SCOPED_TRACE(c[0]);
        ExpectOxError([&] { doc.LoadXml(c[0]); }, c[1]);
    }
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
    EXPECT_EQ("({urn:\x80}r {}a\xE9=[v\xE9] {urn:\x80}q=[1] text=[caf\xE9 ?<![CDATA[\xE9]]>]({urn:\x80}c text=[" +
                  strLongText + "\xE9]))",
              Dump(pRoot));
    EXPECT_EQ("urn:\x80", doc.LookupNamespaceFromAlias("\xE9"));
    EXPECT_EQ("\xE9", doc.LookupAliasFromNamespace("urn:\x80"));
    EXPECT_EQ("/\xE9:r/\xE9:c", pRoot->GetFirstElement()->GetXPath());
}

}  // namespace
