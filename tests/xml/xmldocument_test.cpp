// The parse tree: loading from strings and buffers, navigation, XPaths, lookups, the
// element callback, and the limits of hostile input.
#include "orvexxml/xml/xmldocument.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <typeinfo>
#include <vector>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/xml/namespacealiasmap.h"
#include "xml/xmltesthelpers.h"

using namespace OrvexXml;
using OrvexXmlTest::Children;
using OrvexXmlTest::Dump;
using OrvexXmlTest::ExpectOxError;

namespace {

TEST(XmlDocumentLoad, EachFormRejectsEmptyInputWithItsMessage) {
    CXmlDocument doc;
    ExpectOxError([&] { doc.LoadXml(""); }, "XML String is empty!");
    ExpectOxError([&] { doc.LoadXml(static_cast<const char*>(nullptr)); }, "XML String is empty!");
    ExpectOxError([&] { doc.LoadXml(L""); }, "XML String is empty!");
    ExpectOxError([&] { doc.LoadXml(static_cast<const wchar_t*>(nullptr)); }, "XML String is empty!");
    unsigned char bytes[] = {'<', 'a', '/', '>'};
    ExpectOxError([&] { doc.LoadXmlStream(bytes, 0); }, "XML Stream is empty!");
    EXPECT_EQ(nullptr, doc.GetDocumentElement());
}

TEST(XmlDocumentLoad, BuildsTheTreeInDocumentOrderAndEachLoadReplacesIt) {
    CXmlDocument doc;
    doc.LoadXml("<order id=\"7\" state='open'>head<item>one</item>mid<item>two</item>tail</order>");
    CXmlElement* pRoot = doc.GetDocumentElement();
    ASSERT_NE(nullptr, pRoot);
    EXPECT_EQ("({}order {}id=[7] {}state=[open] text=[headmidtail]({}item text=[one])({}item text=[two]))",
              Dump(pRoot));
    EXPECT_EQ(&doc, pRoot->GetDocument());
    EXPECT_EQ(&doc, Children(pRoot)[1]->GetDocument());
    EXPECT_EQ(nullptr, pRoot->GetParentElm());
    EXPECT_EQ(nullptr, pRoot->GetNextSiblingElement());
    EXPECT_EQ(pRoot, pRoot->GetAttributes()[0]->GetElement());
    EXPECT_EQ(pRoot, Children(pRoot)[1]->GetParentElm());

    // Each load replaces the tree and the prefixes; what a failed load built stays until the next.
    doc.LoadXml("<p:first xmlns:p='urn:one'><c/></p:first>");
    EXPECT_EQ("urn:one", doc.LookupNamespaceFromAlias("p"));
    doc.LoadXml("<second/>");
    EXPECT_EQ("({}second text=[])", Dump(doc.GetDocumentElement()));
    EXPECT_EQ("", doc.LookupNamespaceFromAlias("p"));
    EXPECT_THROW(doc.LoadXml("<bad>"), COxException);
    EXPECT_EQ("({}bad text=[])", Dump(doc.GetDocumentElement()));
}

// Names and URIs are stored once per document in a table that grows with them: hundreds of
// distinct ones, short and long, some differing only in their last byte, come back exactly on
// every load into the same document.
TEST(XmlDocumentLoad, ManyDistinctNamesAndUrisComeBackExactly) {
    std::string strXml = "<root>", strExpected;
    for (int i = 0; i < 600; ++i) {
        std::string strName = (i % 3 == 0 ? "a-name-long-enough-for-the-heap-" : "n") + std::to_string(i);
        std::string strUri = "urn:" + std::string(i % 2 ? 40 : 1, 'u') + std::to_string(i % 150);
        strXml += "<p:" + strName + " xmlns:p=\"" + strUri + "\" p:" + strName + "=\"v\"/>";
        strExpected += "{" + strUri + "}" + strName + " @{" + strUri + "}" + strName + "\n";
    }
    strXml += "</root>";
    CXmlDocument doc;
    for (int nLoad = 0; nLoad < 2; ++nLoad) {
        doc.LoadXml(strXml.c_str());
        std::string strActual;
        for (const CXmlElement* pChild : Children(doc.GetDocumentElement())) {
            const auto* pAttr = pChild->GetAttributes()[0];
            strActual += "{" + pChild->GetNamespaceURI() + "}" + pChild->GetLocalName() + " @{" +
                         pAttr->GetNamespaceURI() + "}" + pAttr->GetLocalName() + "\n";
        }
        EXPECT_EQ(strExpected, strActual);
    }
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
    EXPECT_TRUE(strMissing.empty());
}

TEST(XmlDocumentLoad, BytesNarrowAndWideStringsArriveAsUtf8) {
    CXmlDocument doc;
    std::string strXml = "<a>x\xC3\xA9</a>";
    std::vector<unsigned char> bytes(strXml.begin(), strXml.end());
    doc.LoadXmlStream(bytes.data(), static_cast<OxULong>(bytes.size()));
    bytes.assign(bytes.size(), 'z');  // the tree holds its own text
    EXPECT_EQ("x\xC3\xA9", doc.GetDocumentElement()->GetText());
    // UTF-16 big-endian with a byte order mark: <b>Ω</b>
    unsigned char utf16[] = {0xFE, 0xFF, 0, '<', 0, 'b', 0, '>', 0x03, 0xA9, 0, '<', 0, '/', 0, 'b', 0, '>'};
    doc.LoadXmlStream(utf16, sizeof(utf16));
    EXPECT_EQ("({}b text=[\xCE\xA9])", Dump(doc.GetDocumentElement()));

    doc.LoadXml(L"<r a=\"\u00E9\">caf\u00E9 \u4E2D \U0001F600</r>");
    EXPECT_EQ("({}r {}a=[\xC3\xA9] text=[caf\xC3\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80])", Dump(doc.GetDocumentElement()));
    // The wide form always arrives as UTF-16; a declaration of another width is expat's to refuse.
    EXPECT_NO_THROW(doc.LoadXml(L"<?xml version=\"1.0\" encoding=\"UTF-16\"?><r/>"));
    EXPECT_THROW(doc.LoadXml(L"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r/>"), COxException);
    // A narrow string is read in the encoding its declaration names.
    doc.LoadXml("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>caf\xE9</a>");
    EXPECT_EQ("caf\xC3\xA9", doc.GetDocumentElement()->GetText());
}

TEST(XmlDocumentXPath, PredicatesOnlyWhereSiblingsShareTheQualifiedName) {
    CXmlDocument doc;
    doc.LoadXml(
        "<p:a xmlns:p='urn:p' xmlns:q='urn:q' xmlns:xs='urn:s' xs:name='n' plain='v'>"
        "<p:b/><c><d/></c><q:b/><p:b xs:name='m'><e/><e/></p:b><b/></p:a>");
    const CXmlElement* pRoot = doc.GetDocumentElement();
    std::vector<std::string> paths = {pRoot->GetXPath()};
    for (const CXmlElement* pChild : Children(pRoot)) {
        paths.push_back(pChild->GetXPath());
        for (const CXmlElement* pGrandChild : Children(pChild)) paths.push_back(pGrandChild->GetXPath());
    }
    std::vector<std::string> expected = {"/p:a",        "/p:a/p:b[1]",      "/p:a/c",           "/p:a/c/d", "/p:a/q:b",
                                         "/p:a/p:b[2]", "/p:a/p:b[2]/e[1]", "/p:a/p:b[2]/e[2]", "/p:a/b"};
    EXPECT_EQ(expected, paths);
    // An attribute's prefix stands before the "@".
    EXPECT_EQ("/p:a/xs:@name", pRoot->GetAttributes()[0]->GetXPath());
    EXPECT_EQ("/p:a/@plain", pRoot->GetAttributes()[1]->GetXPath());
    EXPECT_EQ("/p:a/p:b[2]/xs:@name", Children(pRoot)[3]->GetAttributes()[0]->GetXPath());

    // The default namespace has no prefix.
    doc.LoadXml("<order xmlns='urn:d'><item/><item/><one/></order>");
    EXPECT_EQ("/order/item[2]", Children(doc.GetDocumentElement())[1]->GetXPath());
    EXPECT_EQ("/order/one", Children(doc.GetDocumentElement())[2]->GetXPath());
}

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

TEST(XmlDocumentNamespaces, AliasMapKeepsOneAliasPerNamespaceInUriOrder) {
    CNamespaceAliasMap map;
    EXPECT_EQ(map.GetAliasFromNamespace("urn:none"), "");
    EXPECT_EQ(map.GetNamespaceCount(), 0);  // asking does not add an entry
    try {
        map.GetNamespaceFromAlias("q");
        FAIL() << "no exception";
    } catch (const COxException& e) {
        EXPECT_EQ(e.GetMessage(), "Namespace alias [q] not found");
    }
    map.Add("a", "urn:x");
    map.Add("b", "urn:x");
    EXPECT_EQ(map.GetNamespaceCount(), 1);
    EXPECT_EQ(map.GetAliasFromNamespace("urn:x"), "b");
    EXPECT_FALSE(map.DoesAliasExist("a"));
    map.Add("a", "urn:z");
    map.Add("a", "urn:y");
    EXPECT_EQ(map.GetNamespaceFromAlias("a"), "urn:y");  // the smaller URI of the two
    ASSERT_EQ(map.GetNamespaceCount(), 3);
    EXPECT_EQ(map.GetNamespaceAt(0), "urn:x");
    EXPECT_EQ(map.GetNamespaceAt(1), "urn:y");
    EXPECT_EQ(map.GetNamespaceAt(2), "urn:z");
    map.RemoveNamespace("urn:y");
    map.RemoveNamespace("urn:unknown");
    EXPECT_EQ(map.GetNamespaceAt(1), "urn:z");
    EXPECT_TRUE(map.DoesNamespaceExist("urn:z"));
}

TEST(XmlDocumentNamespaces, NamespaceAndNilAttributes) {
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

TEST(XmlDocumentCallback, ClaimedElementsAreRemovedButTheRootStays) {
    g_vecSeen.clear();
    CXmlDocument doc(+[](CXmlElement* pElement) {
        g_vecSeen.push_back(pElement->GetLocalName() + ":" + pElement->GetText());
        return pElement->GetParentElm() != nullptr && pElement->GetParentElm()->GetParentElm() == nullptr;
    });
    doc.LoadXml("<root><rec>1<x/></rec><rec>2</rec><other>3</other></root>");
    EXPECT_EQ("({}root text=[])", Dump(doc.GetDocumentElement()));
    std::vector<std::string> expected = {"x:", "rec:1", "rec:2", "other:3", "root:"};
    EXPECT_EQ(expected, g_vecSeen);

    CXmlDocument claimed(
        +[](CXmlElement*) { return true; }, CSerializationContext::GetDefaultContext());
    claimed.LoadXml("<root a='1'><a/><b/></root>");
    EXPECT_EQ("({}root {}a=[1] text=[])", Dump(claimed.GetDocumentElement()));
}

TEST(XmlDocumentCallback, ExceptionsFromTheCallbackReachTheCallerUnchanged) {
    CXmlDocument doc(+[](CXmlElement* pElement) {
        if (pElement->GetLocalName() == "rec" && pElement->GetText() == "2") throw COxException("stop at record 2");
        return false;
    });
    ExpectOxError([&] { doc.LoadXml("<root><rec>1</rec><rec>2</rec><rec>3</rec></root>"); }, "stop at record 2");
    // The document stays usable.
    doc.LoadXml("<root><rec>1</rec></root>");
    EXPECT_EQ("1", doc.GetDocumentElement()->GetFirstElement()->GetText());

    CXmlDocument foreign(+[](CXmlElement*) -> bool { throw std::runtime_error("foreign"); });
    EXPECT_THROW(foreign.LoadXml("<root><a/></root>"), std::runtime_error);
}

// --- large and hostile input ----------------------------------------------------------------

TEST(XmlDocumentHostile, TextArrivingInManyPiecesIsKeptWhole) {
    std::string strBody, strExpected;
    for (int i = 0; i < 20000; ++i) {
        strBody += "line " + std::to_string(i) + "\n&amp;\n";
        strExpected += "line " + std::to_string(i) + "\n&\n";
    }
    CXmlDocument doc;
    doc.LoadXml(("<a>" + strBody + "</a>").c_str());
    EXPECT_EQ(strExpected, doc.GetDocumentElement()->GetText());
}

TEST(XmlDocumentHostile, EntityExpansionBombIsRefused) {
    std::string strXml = "<?xml version=\"1.0\"?>\n<!DOCTYPE lolz [\n<!ENTITY lol \"lol\">\n";
    for (int i = 1; i <= 9; ++i) {
        std::string strPrevious = i == 1 ? "lol" : "lol" + std::to_string(i - 1);
        strXml += "<!ENTITY lol" + std::to_string(i) + " \"";
        for (int j = 0; j < 10; ++j) strXml += "&" + strPrevious + ";";
        strXml += "\">\n";
    }
    strXml += "]>\n<lolz>&lol9;</lolz>\n";
    CXmlDocument doc;
    ExpectOxError([&] { doc.LoadXml(strXml.c_str()); },
                  "limit on input amplification factor (from DTD and entities) breached at line 14");
}

TEST(XmlDocumentHostile, MillionLevelsDeepBuildsWalksAndDies) {
    const size_t nDepth = 1000000;
    std::string strXml;
    strXml.reserve(nDepth * 7);
    for (size_t i = 0; i < nDepth; ++i) strXml += "<a>";
    strXml += "x";
    for (size_t i = 0; i < nDepth; ++i) strXml += "</a>";
    {
        // Far above the default limit of the walks: the tree alone takes any depth allowed.
        CSerializationContext ctx;
        ctx.SetMaxDepth(static_cast<int32_t>(nDepth));
        CXmlDocument doc(ctx);
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

// A document exactly at the limit loads; one level more is refused at its first element too
// deep, with the limit in the message and that element's path, from text and from bytes.
TEST(XmlDocumentHostile, DepthLimitRefusesTheFirstLevelPastIt) {
    auto Nest = [](int32_t nLevels) {
        std::string strXml;
        for (int32_t i = 0; i < nLevels; ++i) strXml.insert(0, "<a>") += "</a>";
        return strXml;
    };
    const int32_t nDefault = CSerializationContext::DefaultMaxDepth;
    std::string strDefaultPath;
    for (int32_t i = 0; i <= nDefault; ++i) strDefaultPath += "/a";
    struct {
        int32_t nLimit;
        std::string strAtLimit, strPastLimit, strPath;
    } const cases[] = {
        {1, "<a x='1'>t</a>", "<a x='1'>t<b/></a>", "/a/b"},
        {3, "<a><b/><b><c/></b></a>", "<a><b/><b><c><d x='1'/></c></b></a>", "/a/b[2]/c/d"},
        {nDefault, Nest(nDefault), Nest(nDefault + 1), strDefaultPath},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.nLimit);
        CSerializationContext ctx;
        if (c.nLimit != nDefault) ctx.SetMaxDepth(c.nLimit);
        CXmlDocument doc(ctx);
        EXPECT_NO_THROW(doc.LoadXml(c.strAtLimit.c_str()));
        const std::string strMessage =
            "The element is nested deeper than the limit of " + std::to_string(c.nLimit) +
            " levels; raise MaxDepth of the context if such a document is intended.\nPath: " + c.strPath;
        ExpectOxError([&] { doc.LoadXml(c.strPastLimit.c_str()); }, strMessage, typeid(COxValidationException));
        std::string strBytes = c.strPastLimit;
        ExpectOxError([&] { doc.LoadXmlStream(reinterpret_cast<unsigned char*>(&strBytes[0]), strBytes.size()); },
                      strMessage, typeid(COxValidationException));
    }
}

TEST(XmlDocumentHostile, HugeTokensAndMillionSiblings) {
    // Tokens far larger than the pieces in which the input reaches expat.
    const std::string strBig(6 * 1024 * 1024 + 3, 'v');
    CXmlDocument doc;
    doc.LoadXml(("<a v='" + strBig + "'><!--" + strBig + "--><?pi " + strBig + "?>" + strBig + "</a>").c_str());
    EXPECT_TRUE(doc.GetDocumentElement()->GetAttribute("v") == strBig);
    EXPECT_TRUE(doc.GetDocumentElement()->GetText() == strBig);

    std::string strXml = "<r>";
    for (int i = 0; i < 1000000; ++i) strXml += "<b/>";
    doc.LoadXml((strXml + "</r>").c_str());
    EXPECT_EQ("/r/b[1]", doc.GetDocumentElement()->GetFirstElement()->GetXPath());
}

TEST(XmlDocumentHostile, EveryTruncationOfADocumentFailsCleanly) {
    const std::string strXml =
        "<?xml version='1.0' encoding='UTF-8'?>\n"
        "<!DOCTYPE r [<!ENTITY e 'ent'>]>\n"
        "<p:r xmlns:p='urn:p' a='1'>t&e;<!--c--><![CDATA[d]]><?pi x?>\xE2\x82\xAC<p:c p:b='2'/></p:r>";
    CXmlDocument doc;
    doc.LoadXml(strXml.c_str());
    for (size_t n = 1; n < strXml.size(); ++n)
        EXPECT_THROW(doc.LoadXml(strXml.substr(0, n).c_str()), COxException) << n;
}

}  // namespace

// Element texts become strings only when first asked for. Threads that read one finished
// tree at once each get the same, complete text, whatever the length (stored in the tree's
// own memory or on the heap) and however many pieces the parser delivered it in.
TEST(XmlElementTextThreads, ThreadsAskingForTheSameTextsAllGetThemWhole) {
    std::string strXml = "<r>";
    std::vector<std::string> vecExpected;
    for (int i = 0; i < 40; ++i) {
        std::string strText;
        for (int j = 0; j < i * 29; ++j) strText += static_cast<char>('a' + (i + j) % 26);
        vecExpected.push_back(strText + "&<x");
        strXml += "<e>" + strText + "&amp;&lt;x</e>";
    }
    strXml += "</r>";
    CXmlDocument doc;
    doc.LoadXml(strXml.c_str());
    std::vector<CXmlElement*> vecElements = Children(doc.GetDocumentElement());
    ASSERT_EQ(vecElements.size(), vecExpected.size());
    std::vector<std::thread> vecThreads;
    std::vector<int> vecMismatches(4, 0);
    for (int t = 0; t < 4; ++t) {
        vecThreads.emplace_back([&, t] {
            for (size_t i = 0; i < vecElements.size(); ++i) {
                const std::string& strText = vecElements[(i + 7 * t) % vecElements.size()]->GetText();
                if (strText != vecExpected[(i + 7 * t) % vecElements.size()]) ++vecMismatches[t];
            }
        });
    }
    for (std::thread& thread : vecThreads) thread.join();
    EXPECT_EQ(vecMismatches, std::vector<int>(4, 0));
    for (size_t i = 0; i < vecElements.size(); ++i) {
        EXPECT_EQ(&vecElements[i]->GetText(), &vecElements[i]->GetText());  // made once, then kept
        EXPECT_EQ(vecElements[i]->GetTextView(), vecExpected[i]);
    }
}
