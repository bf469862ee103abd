// The parse tree: loading from strings and buffers, navigation, XPaths, lookups, the
// element callback, and the limits of hostile input.
#include "orvexxml/xml/xmldocument.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "orvexxml/binding/serializationcontext.h"
#include "xml/xmltesthelpers.h"

using namespace OrvexXml;
using OrvexXmlTest::Children;
using OrvexXmlTest::Dump;
using OrvexXmlTest::ExpectOxError;
using OrvexXmlTest::OxErrorOf;

namespace {

TEST(XmlDocumentEmptyInput, EachFormRejectsEmptyInputWithItsMessage) {
    CXmlDocument doc;
    ExpectOxError([&] { doc.LoadXml(""); }, "XML String is empty!");
    ExpectOxError([&] { doc.LoadXml(static_cast<const char*>(nullptr)); }, "XML String is empty!");
    ExpectOxError([&] { doc.LoadXml(L""); }, "XML String is empty!");
    ExpectOxError([&] { doc.LoadXml(static_cast<const wchar_t*>(nullptr)); }, "XML String is empty!");
    unsigned char bytes[] = {'<', 'a', '/', '>'};
    ExpectOxError([&] { doc.LoadXmlStream(bytes, 0); }, "XML Stream is empty!");
    EXPECT_EQ(nullptr, doc.GetDocumentElement());
}

TEST(XmlDocumentLoad, BuildsElementsAttributesAndTextInDocumentOrder) {
    CXmlDocument doc;
    EXPECT_EQ(nullptr, doc.GetDocumentElement());
    doc.LoadXml("<order id=\"7\" state='open'>head<item>one</item>mid<item>two</item>tail</order>");
    CXmlElement* pRoot = doc.GetDocumentElement();
    ASSERT_NE(nullptr, pRoot);
    EXPECT_EQ(&doc, pRoot->GetDocument());
    EXPECT_EQ(nullptr, pRoot->GetParentElm());
    EXPECT_EQ("order", pRoot->GetLocalName());
    EXPECT_EQ("", pRoot->GetNamespaceURI());
    EXPECT_EQ("headmidtail", pRoot->GetText());
    ASSERT_EQ(2u, pRoot->GetAttributes().size());
    EXPECT_EQ("id", pRoot->GetAttributes()[0]->GetLocalName());
    EXPECT_EQ("7", pRoot->GetAttributes()[0]->GetValue());
    EXPECT_EQ(pRoot, pRoot->GetAttributes()[0]->GetElement());
    EXPECT_EQ("state", pRoot->GetAttributes()[1]->GetLocalName());
    EXPECT_EQ("open", pRoot->GetAttribute("state", ""));
    std::vector<CXmlElement*> items = Children(pRoot);
    ASSERT_EQ(2u, items.size());
    EXPECT_EQ("one", items[0]->GetText());
    EXPECT_EQ("two", items[1]->GetText());
    EXPECT_EQ(pRoot, items[1]->GetParentElm());
    EXPECT_EQ(nullptr, items[1]->GetNextSiblingElement());
    EXPECT_EQ(nullptr, items[0]->GetFirstElement());
}

TEST(XmlDocumentLoad, MissingAttributeGivesASharedEmptyStringThatStaysValid) {
    CXmlDocument doc;
    doc.LoadXml("<a x='1' xmlns:p='urn:p' p:y='2'/>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    const std::string& strMissing = pRoot->GetAttribute("nothere", "");
    EXPECT_EQ("", strMissing);
    EXPECT_EQ("", pRoot->GetAttribute("y", ""));       // right name, wrong namespace
    EXPECT_EQ("", pRoot->GetAttribute("x", "urn:p"));  // right name, wrong namespace
    EXPECT_EQ("2", pRoot->GetAttribute("y", "urn:p"));
    EXPECT_EQ("1", pRoot->GetAttribute("x", nullptr));
    doc.Cleanup();
    EXPECT_EQ("", strMissing);
    EXPECT_TRUE(strMissing.empty());
}

TEST(XmlDocumentLoad, SecondLoadReplacesTreeAndPrefixes) {
    CXmlDocument doc;
    doc.LoadXml("<p:first xmlns:p='urn:one'><c/></p:first>");
    EXPECT_EQ("urn:one", doc.LookupNamespaceFromAlias("p"));
    doc.LoadXml("<second/>");
    ASSERT_NE(nullptr, doc.GetDocumentElement());
    EXPECT_EQ("second", doc.GetDocumentElement()->GetLocalName());
    EXPECT_EQ(nullptr, doc.GetDocumentElement()->GetFirstElement());
    EXPECT_EQ("", doc.LookupNamespaceFromAlias("p"));
}

TEST(XmlDocumentLoad, FailedLoadAfterGoodOneLeavesNoOldTree) {
    CXmlDocument doc;
    doc.LoadXml("<good/>");
    EXPECT_THROW(doc.LoadXml("<bad>"), COxException);
    // What the failed load built stays until the next load.
    ASSERT_NE(nullptr, doc.GetDocumentElement());
    EXPECT_EQ("bad", doc.GetDocumentElement()->GetLocalName());
    doc.LoadXml("<again/>");
    EXPECT_EQ("again", doc.GetDocumentElement()->GetLocalName());
}

TEST(XmlDocumentLoad, StreamTakesUtf8AndUtf16BytesAndKeepsNoHoldOnThem) {
    CXmlDocument doc;
    std::string strXml = "<a>x\xC3\xA9</a>";
    std::vector<unsigned char> bytes(strXml.begin(), strXml.end());
    doc.LoadXmlStream(bytes.data(), static_cast<OxULong>(bytes.size()));
    bytes.assign(bytes.size(), 'z');  // the tree holds its own text
    EXPECT_EQ("x\xC3\xA9", doc.GetDocumentElement()->GetText());

    // UTF-16 big-endian with a byte order mark: <b>Ω</b>
    unsigned char utf16[] = {0xFE, 0xFF, 0, '<', 0, 'b', 0, '>', 0x03, 0xA9, 0, '<', 0, '/', 0, 'b', 0, '>'};
    doc.LoadXmlStream(utf16, sizeof(utf16));
    EXPECT_EQ("b", doc.GetDocumentElement()->GetLocalName());
    EXPECT_EQ("\xCE\xA9", doc.GetDocumentElement()->GetText());
}

TEST(XmlDocumentWide, NonAsciiAndSupplementaryCharactersArriveAsUtf8) {
    CXmlDocument doc;
    doc.LoadXml(L"<r a=\"\u00E9\">caf\u00E9 \u4E2D \U0001F600</r>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    ASSERT_NE(nullptr, pRoot);
    EXPECT_EQ("caf\xC3\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80", pRoot->GetText());
    EXPECT_EQ("\xC3\xA9", pRoot->GetAttribute("a"));
}

TEST(XmlDocumentWide, WideTextWithContradictingDeclarationIsAParseError) {
    CXmlDocument doc;
    // The wide form always arrives as UTF-16; a declaration that names another encoding of
    // different width is expat's to refuse.
    EXPECT_NO_THROW(doc.LoadXml(L"<?xml version=\"1.0\" encoding=\"UTF-16\"?><r/>"));
    EXPECT_THROW(doc.LoadXml(L"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r/>"), COxException);
}

TEST(XmlDocumentNarrow, BytesAboveAsciiWithoutDeclarationMustBeUtf8) {
    CXmlDocument doc;
    ExpectOxError([&] { doc.LoadXml("<a>caf\xE9</a>"); }, "not well-formed (invalid token) at line 1");
    doc.LoadXml("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>caf\xE9</a>");
    EXPECT_EQ("caf\xC3\xA9", doc.GetDocumentElement()->GetText());
}

// --- XPaths --------------------------------------------------------------------------

TEST(XmlElementXPath, PredicatesOnlyWhereSiblingsShareTheName) {
    CXmlDocument doc;
    doc.LoadXml("<a><b/><c><d/></c><b><e/><e/></b></a>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("/a", pRoot->GetXPath());
    std::vector<CXmlElement*> children = Children(pRoot);
    ASSERT_EQ(3u, children.size());
    EXPECT_EQ("/a/b[1]", children[0]->GetXPath());
    EXPECT_EQ("/a/c", children[1]->GetXPath());
    EXPECT_EQ("/a/b[2]", children[2]->GetXPath());
    EXPECT_EQ("/a/c/d", children[1]->GetFirstElement()->GetXPath());
    std::vector<CXmlElement*> es = Children(children[2]);
    EXPECT_EQ("/a/b[2]/e[1]", es[0]->GetXPath());
    EXPECT_EQ("/a/b[2]/e[2]", es[1]->GetXPath());

    doc.LoadXml("<a><b/></a>");
    EXPECT_EQ("/a/b", doc.GetDocumentElement()->GetFirstElement()->GetXPath());
}

TEST(XmlElementXPath, PrefixesComeFromTheDocumentAndCountInTheName) {
    CXmlDocument doc;
    doc.LoadXml(
        "<p:order xmlns:p='urn:p' xmlns:q='urn:q'>"
        "<p:item/><q:item/><p:item/><item/></p:order>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    EXPECT_EQ("/p:order", pRoot->GetXPath());
    std::vector<CXmlElement*> items = Children(pRoot);
    ASSERT_EQ(4u, items.size());
    EXPECT_EQ("/p:order/p:item[1]", items[0]->GetXPath());
    EXPECT_EQ("/p:order/q:item", items[1]->GetXPath());
    EXPECT_EQ("/p:order/p:item[2]", items[2]->GetXPath());
    EXPECT_EQ("/p:order/item", items[3]->GetXPath());
}

TEST(XmlElementXPath, DefaultNamespaceHasNoPrefix) {
    CXmlDocument doc;
    doc.LoadXml("<order xmlns='urn:d'><item/><item/></order>");
    EXPECT_EQ("/order/item[2]", Children(doc.GetDocumentElement())[1]->GetXPath());
}

TEST(XmlAttributeXPath, PrefixStandsBeforeTheAt) {
    CXmlDocument doc;
    doc.LoadXml("<order xmlns:xs='urn:s' xs:name='n' plain='p'><item xs:name='m'/><item/></order>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    ASSERT_EQ(2u, pRoot->GetAttributes().size());
    EXPECT_EQ("/order/xs:@name", pRoot->GetAttributes()[0]->GetXPath());
    EXPECT_EQ("/order/@plain", pRoot->GetAttributes()[1]->GetXPath());
    EXPECT_EQ("/order/item[1]/xs:@name", pRoot->GetFirstElement()->GetAttributes()[0]->GetXPath());
}

// --- namespaces and special attributes ---------------------------------------------------

TEST(XmlDocumentNamespaces, AliasLookupsBothWays) {
    CXmlDocument doc;
    doc.LoadXml("<a xmlns='urn:default' xmlns:p='urn:x' xmlns:z='urn:x'><p:b xmlns:p='urn:other'/></a>");
    EXPECT_EQ("urn:default", doc.LookupNamespaceFromAlias(""));
    // One scope: the later declaration of p wins and stays after its element.
    EXPECT_EQ("urn:other", doc.LookupNamespaceFromAlias("p"));
    EXPECT_EQ("urn:x", doc.LookupNamespaceFromAlias("z"));
    EXPECT_EQ("", doc.LookupNamespaceFromAlias("unknown"));
    EXPECT_EQ("", doc.LookupAliasFromNamespace("urn:default"));  // the empty prefix comes first
    EXPECT_EQ("z", doc.LookupAliasFromNamespace("urn:x"));
    EXPECT_EQ("p", doc.LookupAliasFromNamespace("urn:other"));
    EXPECT_EQ("", doc.LookupAliasFromNamespace("urn:nobody"));
    EXPECT_EQ("urn:other", doc.GetDocumentElement()->GetFirstElement()->GetNamespaceURI());
}

TEST(XmlAttributeKinds, NamespaceAndNilAttributes) {
    CXmlDocument doc;
    doc.LoadXml(
        "<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:o='urn:o' "
        "xsi:type='T' xsi:schemaLocation='s' xsi:noNamespaceSchemaLocation='n' xsi:nil='true' "
        "xsi:other='x' o:type='t' o:nil='1' nil='1' type='t'/>");
    std::vector<std::string> result;
    for (const CXmlAttribute* pAttribute : doc.GetDocumentElement()->GetAttributes())
        result.push_back(pAttribute->GetLocalName() + (pAttribute->IsNamespaceAttribute() ? " ns" : "") +
                         (pAttribute->IsNilAttribute() ? " nil" : ""));
    std::vector<std::string> expected = {
        "type ns", "schemaLocation ns", "noNamespaceSchemaLocation ns", "nil nil", "other", "type", "nil", "nil",
        "type"};
    EXPECT_EQ(expected, result);
}

// --- the element callback ---------------------------------------------------------------

std::vector<std::string> g_vecSeen;

bool RemoveChildrenOfRoot(CXmlElement* pElement) {
    g_vecSeen.push_back(pElement->GetLocalName() + ":" + pElement->GetText());
    return pElement->GetParentElm() != nullptr && pElement->GetParentElm()->GetParentElm() == nullptr;
}

bool ClaimEverything(CXmlElement*) { return true; }

bool ThrowAtSecondRecord(CXmlElement* pElement) {
    if (pElement->GetLocalName() == "rec" && pElement->GetText() == "2") throw COxException("stop at record 2");
    return false;
}

bool ThrowForeign(CXmlElement*) { throw std::runtime_error("foreign"); }

TEST(XmlDocumentCallback, RemovingEveryRecordLeavesTheRootWithoutChildren) {
    g_vecSeen.clear();
    CXmlDocument doc(&RemoveChildrenOfRoot);
    doc.LoadXml("<root><rec>1<x/></rec><rec>2</rec><other>3</other></root>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    ASSERT_NE(nullptr, pRoot);
    EXPECT_EQ(nullptr, pRoot->GetFirstElement());
    std::vector<std::string> expected = {"x:", "rec:1", "rec:2", "other:3", "root:"};
    EXPECT_EQ(expected, g_vecSeen);
}

TEST(XmlDocumentCallback, TrueForTheRootKeepsTheRoot) {
    CXmlDocument doc(&ClaimEverything, CSerializationContext::GetDefaultContext());
    doc.LoadXml("<root a='1'><a/><b/></root>");
    ASSERT_NE(nullptr, doc.GetDocumentElement());
    EXPECT_EQ("root", doc.GetDocumentElement()->GetLocalName());
    EXPECT_EQ("1", doc.GetDocumentElement()->GetAttribute("a"));
    EXPECT_EQ(nullptr, doc.GetDocumentElement()->GetFirstElement());
}

TEST(XmlDocumentCallback, ExceptionsFromTheCallbackReachTheCallerUnchanged) {
    CXmlDocument doc(&ThrowAtSecondRecord);
    ExpectOxError([&] { doc.LoadXml("<root><rec>1</rec><rec>2</rec><rec>3</rec></root>"); }, "stop at record 2");
    // The document stays usable.
    doc.LoadXml("<root><rec>1</rec></root>");
    EXPECT_EQ("1", doc.GetDocumentElement()->GetFirstElement()->GetText());

    CXmlDocument foreign(&ThrowForeign);
    EXPECT_THROW(foreign.LoadXml("<root><a/></root>"), std::runtime_error);
}

// --- text ------------------------------------------------------------------------------

TEST(XmlElementText, TextArrivingInManyPiecesIsKeptWhole) {
    std::string strBody;
    for (int i = 0; i < 20000; ++i) strBody += "line " + std::to_string(i) + "\n&amp;\n";
    std::string strExpected;
    for (int i = 0; i < 20000; ++i) strExpected += "line " + std::to_string(i) + "\n&\n";
    CXmlDocument doc;
    doc.LoadXml(("<a>" + strBody + "</a>").c_str());
    EXPECT_EQ(strExpected, doc.GetDocumentElement()->GetText());
}

// --- hostile input ----------------------------------------------------------------------

TEST(XmlDocumentHostile, EntityExpansionBombIsRefused) {
    std::string strXml =
        "<?xml version=\"1.0\"?>\n"
        "<!DOCTYPE lolz [\n"
        "<!ENTITY lol \"lol\">\n";
    for (int i = 1; i <= 9; ++i) {
        std::string strPrevious = i == 1 ? "lol" : "lol" + std::to_string(i - 1);
        strXml += "<!ENTITY lol" + std::to_string(i) + " \"";
        for (int j = 0; j < 10; ++j) strXml += "&" + strPrevious + ";";
        strXml += "\">\n";
    }
    strXml += "]>\n<lolz>&lol9;</lolz>\n";
    CXmlDocument doc;
    std::string strMessage = OxErrorOf([&] { doc.LoadXml(strXml.c_str()); });
    EXPECT_EQ("limit on input amplification factor (from DTD and entities) breached at line 14", strMessage);
}

TEST(XmlDocumentHostile, MillionLevelsDeepBuildsWalksAndDies) {
    const size_t nDepth = 1000000;
    std::string strXml;
    strXml.reserve(nDepth * 7);
    for (size_t i = 0; i < nDepth; ++i) strXml += "<a>";
    strXml += "x";
    for (size_t i = 0; i < nDepth; ++i) strXml += "</a>";
    {
        CXmlDocument doc;
        doc.LoadXml(strXml.c_str());
        const CXmlElement* pDeepest = doc.GetDocumentElement();
        size_t nLevels = 1;
        while (pDeepest->GetFirstElement()) {
            pDeepest = pDeepest->GetFirstElement();
            ++nLevels;
        }
        EXPECT_EQ(nDepth, nLevels);
        EXPECT_EQ("x", pDeepest->GetText());
        std::string strPath = pDeepest->GetXPath();
        EXPECT_EQ(2 * nDepth, strPath.size());
        EXPECT_EQ("/a/a/a", strPath.substr(strPath.size() - 6));
    }  // the destructor takes the deep tree down
}

TEST(XmlDocumentHostile, HugeTokensParseWhole) {
    // Tokens far larger than the pieces in which the input reaches expat.
    const std::string strBig(6 * 1024 * 1024 + 3, 'v');
    CXmlDocument doc;
    doc.LoadXml(("<a v='" + strBig + "'><!--" + strBig + "--><?pi " + strBig + "?>" + strBig + "</a>").c_str());
    EXPECT_TRUE(doc.GetDocumentElement()->GetAttribute("v") == strBig);
    EXPECT_TRUE(doc.GetDocumentElement()->GetText() == strBig);
}

TEST(XmlDocumentHostile, MillionSiblingsDie) {
    std::string strXml = "<r>";
    for (int i = 0; i < 1000000; ++i) strXml += "<b/>";
    strXml += "</r>";
    CXmlDocument doc;
    doc.LoadXml(strXml.c_str());
    EXPECT_EQ("/r/b[1]", doc.GetDocumentElement()->GetFirstElement()->GetXPath());
}

TEST(XmlDocumentHostile, EveryTruncationOfADocumentFailsCleanly) {
    const std::string strXml =
        "<?xml version='1.0' encoding='UTF-8'?>\n"
        "<!DOCTYPE r [<!ENTITY e 'ent'>]>\n"
        "<p:r xmlns:p='urn:p' a='1'>t&e;<!--c--><![CDATA[d]]><?pi x?>\xE2\x82\xAC<p:c p:b='2'/></p:r>";
    CXmlDocument doc;
    doc.LoadXml(strXml.c_str());
    for (size_t n = 1; n < strXml.size(); ++n) {
        std::string strPart = strXml.substr(0, n);
        EXPECT_THROW(doc.LoadXml(strPart.c_str()), COxException) << n;
    }
}

TEST(XmlDocumentHostile, ArbitraryBytesNeverCrash) {
    const std::string strSeed = "<a xmlns:p='urn:p' p:x='1'><b>t&amp;</b><![CDATA[c]]><!--k--></a>";
    const char aAlphabet[] = "<>/='\"&;:!-[]?xmlnsp \r\n\t\x80\xC3\xA9\xEF\xBB\xBF\xFF\xFE|";
    unsigned nState = 12345;
    auto next = [&] { return nState = nState * 1103515245u + 12345u; };
    CXmlDocument doc;
    for (int i = 0; i < 3000; ++i) {
        std::string strInput = strSeed;
        int nEdits = 1 + static_cast<int>(next() % 6);
        for (int j = 0; j < nEdits; ++j) {
            size_t nAt = next() % strInput.size();
            char c = aAlphabet[next() % (sizeof(aAlphabet) - 1)];
            switch (next() % 3) {
                case 0:
                    strInput[nAt] = c;
                    break;
                case 1:
                    strInput.insert(strInput.begin() + static_cast<long>(nAt), c);
                    break;
                default:
                    if (strInput.size() > 1) strInput.erase(nAt, 1);
            }
        }
        try {
            doc.LoadXml(strInput.c_str());
            ASSERT_NE(nullptr, doc.GetDocumentElement());
            doc.GetDocumentElement()->GetXPath();
        } catch (const COxException& e) {
            EXPECT_NE(std::string::npos, e.GetMessage().find(" at line ")) << e.GetMessage();
        }
    }
}

}  // namespace
