#include "orvexxml/writers/xmlwriter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/xmltextwriter.h"

using namespace OrvexXml;

namespace {

typedef CXmlWriter::CXmlWriterContext Context;
typedef CXmlWriter::NamespaceMap NamespaceMap;

// Living and total instances of a class, as the monitor reports them.
std::pair<int, int> Counts(const char* pszClassName) {
    std::string dump = CInstanceMonitor::DumpState();
    std::string key = std::string(" ") + pszClassName + " = ";
    size_t pos = dump.find(key);
    if (pos == std::string::npos) return {0, 0};
    int nLiving = 0, nTotal = 0;
    std::sscanf(dump.c_str() + pos + key.size(), "%d/%d", &nLiving, &nTotal);
    return {nLiving, nTotal};
}

// Gives the tests a look at the innermost open element.
class CInspectableWriter : public CXmlTextWriter {
public:
    explicit CInspectableWriter(CTextStream* pStream) : CXmlTextWriter(pStream) {}
    Context* Current() const { return m_pContext; }
    const NamespaceMap& DocumentMap() const { return m_mapNamespaces; }
    const std::string& DocumentDefault() const { return m_strDefaultNamespace; }
};

std::string Prefix(int n) {
    char sz[3] = {static_cast<char>('A' + n / 26), static_cast<char>('A' + n % 26), '\0'};
    return sz;
}

}  // namespace

// --- prefix generator ------------------------------------------------------------------------

TEST(NamespacePrefixGenerator, TakesTheFirstFreeTwoLetterPrefix) {
    NamespaceMap map;
    EXPECT_EQ("AA", CXmlWriter::GenerateNamespacePrefix(map));
    map["urn:1"] = "AA";
    EXPECT_EQ("AB", CXmlWriter::GenerateNamespacePrefix(map));
    map["urn:2"] = "AC";
    EXPECT_EQ("AB", CXmlWriter::GenerateNamespacePrefix(map));
}

TEST(NamespacePrefixGenerator, IgnoresValuesThatAreNotGeneratedPrefixes) {
    NamespaceMap map;
    map["urn:1"] = "xml";
    map["urn:2"] = "A";
    map["urn:3"] = "AAA";
    map["urn:4"] = "aa";
    map["urn:5"] = "A[";
    EXPECT_EQ("AA", CXmlWriter::GenerateNamespacePrefix(map));
}

TEST(NamespacePrefixGenerator, RunsFromAAtoZZThenThrows) {
    // Each taken prefix moves the generator on by one: "AA", "AB", ... "AZ", "BA", ... "ZZ".
    NamespaceMap map;
    std::string strExpected = "AA";
    for (int n = 0; n < 676; ++n) {
        std::string strPrefix = CXmlWriter::GenerateNamespacePrefix(map);
        ASSERT_EQ(strExpected, strPrefix) << "after " << n << " prefixes";
        map["urn:" + std::to_string(n)] = strPrefix;
        if (++strExpected[1] > 'Z') {
            strExpected[1] = 'A';
            ++strExpected[0];
        }
    }
    try {
        CXmlWriter::GenerateNamespacePrefix(map);
        FAIL() << "no exception";
    } catch (const COxException& e) {
        EXPECT_EQ("Cannot generate a namespace prefix: all prefixes from AA to ZZ are already in use in this scope.",
                  e.GetMessage());
    }
    // A freed prefix in the middle is found again.
    map.erase("urn:27");
    EXPECT_EQ("BB", CXmlWriter::GenerateNamespacePrefix(map));
}

// --- namespace scopes ------------------------------------------------------------------------

TEST(WriterContextScopes, RootCopiesTheDocumentMapAndChildrenShareIt) {
    NamespaceMap document;
    document["urn:a"] = "a";
    Context* pRoot = new Context("r", "urn:a", "urn:d", document, nullptr);
    EXPECT_EQ(0u, pRoot->m_nDepth);
    EXPECT_TRUE(pRoot->m_bInStartTag);
    EXPECT_EQ(0u, pRoot->m_nChildCount);
    EXPECT_EQ(0u, pRoot->m_nCollectionState);
    EXPECT_FALSE(pRoot->m_bHasAttributes);
    EXPECT_NE(&document, &pRoot->GetNamespaceMap());
    EXPECT_EQ("urn:d", pRoot->GetDefaultNamespace());

    Context* pChild = new Context("c", "", pRoot);
    Context* pGrandChild = new Context("g", "", pChild);
    EXPECT_EQ(1u, pChild->m_nDepth);
    EXPECT_EQ(2u, pGrandChild->m_nDepth);
    EXPECT_EQ(&pRoot->GetNamespaceMap(), &pChild->GetNamespaceMap());
    EXPECT_EQ(&pRoot->GetNamespaceMap(), &pGrandChild->GetNamespaceMap());
    EXPECT_EQ("urn:d", pGrandChild->GetDefaultNamespace());
    EXPECT_EQ("a", pGrandChild->GetNamespaceMapValue("urn:a"));
    EXPECT_EQ("", pGrandChild->GetNamespaceMapValue("urn:none"));

    // The innermost context owns the chain.
    delete pGrandChild;
}

TEST(WriterContextScopes, SettingAPrefixCopiesTheMapForThisScopeOnly) {
    Context root("r", "", "urn:d", NamespaceMap(), nullptr);
    Context child("c", "", &root);
    const NamespaceMap* pShared = &root.GetNamespaceMap();

    child.SetNamespaceMapValue("urn:x", "x");
    EXPECT_NE(pShared, &child.GetNamespaceMap());
    EXPECT_EQ("x", child.GetNamespaceMapValue("urn:x"));
    EXPECT_EQ("", root.GetNamespaceMapValue("urn:x"));
    EXPECT_EQ("urn:d", child.GetDefaultNamespace());

    Context grandChild("g", "", &child);
    EXPECT_EQ(&child.GetNamespaceMap(), &grandChild.GetNamespaceMap());
    EXPECT_EQ("x", grandChild.GetNamespaceMapValue("urn:x"));

    // A later change of the copy is made in place.
    const NamespaceMap* pOwn = &child.GetNamespaceMap();
    child.SetNamespaceMapValue("urn:y", "y");
    EXPECT_EQ(pOwn, &child.GetNamespaceMap());
    EXPECT_EQ("y", grandChild.GetNamespaceMapValue("urn:y"));

    // These contexts live on the stack: detach them, so no destructor deletes a parent.
    grandChild.m_pParent = nullptr;
    child.m_pParent = nullptr;
}

TEST(WriterContextScopes, SettingAnExistingBindingCopiesNothing) {
    NamespaceMap document;
    document["urn:p"] = "p";
    Context root("r", "", "", document, nullptr);
    Context child("c", "", &root);
    child.SetNamespaceMapValue("urn:p", "p");
    EXPECT_EQ(&root.GetNamespaceMap(), &child.GetNamespaceMap());
    child.SetNamespaceMapValue("urn:p", "q");
    EXPECT_NE(&root.GetNamespaceMap(), &child.GetNamespaceMap());
    EXPECT_EQ("q", child.GetNamespaceMapValue("urn:p"));
    EXPECT_EQ("p", root.GetNamespaceMapValue("urn:p"));
    child.m_pParent = nullptr;
}

TEST(WriterContextScopes, DefaultNamespaceChangeKeepsTheSharedMap) {
    Context root("r", "", "urn:d", NamespaceMap(), nullptr);
    Context child("c", "", &root);
    child.SetDefaultNamespace("urn:e");
    EXPECT_EQ("urn:e", child.GetDefaultNamespace());
    EXPECT_EQ("urn:d", root.GetDefaultNamespace());
    EXPECT_EQ(&root.GetNamespaceMap(), &child.GetNamespaceMap());

    Context grandChild("g", "", &child);
    EXPECT_EQ("urn:e", grandChild.GetDefaultNamespace());
    // A prefix set below keeps the default namespace it inherited.
    grandChild.SetNamespaceMapValue("urn:x", "x");
    EXPECT_EQ("urn:e", grandChild.GetDefaultNamespace());
    EXPECT_EQ("", child.GetNamespaceMapValue("urn:x"));

    grandChild.m_pParent = nullptr;
    child.m_pParent = nullptr;
}

// --- the writer's own state ------------------------------------------------------------------

TEST(XmlWriterState, RegistrationsBeforeTheRootGoToTheDocument) {
    CTextStream stream;
    CInspectableWriter writer(&stream);
    EXPECT_EQ("xml", writer.DocumentMap().at("http://www.w3.org/XML/1998/namespace"));
    writer.SetDefaultNamespace("urn:d");
    writer.AddNamespaceAlias("p", "urn:p");
    writer.AddNamespaceAlias("q", "urn:p");
    EXPECT_EQ("urn:d", writer.DocumentDefault());
    EXPECT_EQ("q", writer.DocumentMap().at("urn:p"));

    writer.WriteStartElement("r", "");
    writer.AddNamespaceAlias("z", "urn:z");
    writer.SetDefaultNamespace("urn:e");
    EXPECT_EQ(0u, writer.DocumentMap().count("urn:z"));
    EXPECT_EQ("urn:d", writer.DocumentDefault());
    EXPECT_EQ("z", writer.Current()->GetNamespaceMapValue("urn:z"));
    EXPECT_EQ("urn:e", writer.Current()->GetDefaultNamespace());
    writer.WriteEndElement();
}

TEST(XmlWriterState, ContextTracksDepthChildrenAndStartTag) {
    CTextStream stream;
    CInspectableWriter writer(&stream);
    EXPECT_EQ(nullptr, writer.Current());
    writer.WriteStartElement("r", "urn:r");
    Context* pRoot = writer.Current();
    EXPECT_EQ("r", pRoot->m_strName);
    EXPECT_EQ("urn:r", pRoot->m_strNamespace);
    EXPECT_TRUE(pRoot->m_bInStartTag);
    writer.WriteStartElement("a", "");
    EXPECT_EQ(pRoot, writer.Current()->m_pParent);
    EXPECT_EQ(1u, writer.Current()->m_nDepth);
    EXPECT_FALSE(pRoot->m_bInStartTag);
    EXPECT_EQ(1u, pRoot->m_nChildCount);
    writer.WriteEndElement();
    writer.WriteStartElement("b", "");
    writer.WriteEndElement();
    EXPECT_EQ(pRoot, writer.Current());
    EXPECT_EQ(2u, pRoot->m_nChildCount);
    writer.WriteEndElement();
    EXPECT_EQ(nullptr, writer.Current());
}

TEST(XmlWriterState, CollectionStateIsStoredOnTheOpenElement) {
    CTextStream stream;
    CInspectableWriter writer(&stream);
    writer.SetCollectionState(1);  // no open element: nothing happens
    writer.WriteStartElement("r", "");
    writer.SetCollectionState(1);
    EXPECT_EQ(1u, writer.Current()->m_nCollectionState);
    writer.WriteStartElement("item", "");
    EXPECT_EQ(0u, writer.Current()->m_nCollectionState);
    writer.WriteEndElement();
    writer.SetCollectionState(3);
    EXPECT_EQ(3u, writer.Current()->m_nCollectionState);
    writer.WriteEndElement();
    EXPECT_EQ("<r>\n\t<item/>\n</r>\n", std::string(stream.GetText()));
}

// --- instance counts -------------------------------------------------------------------------

TEST(XmlWriterInstances, OneContextPerElementAndNoneLeftBehind) {
    std::pair<int, int> before = Counts("CXmlWriterContext");
    std::pair<int, int> writersBefore = Counts("CXmlTextWriter");
    {
        CTextStream stream;
        CXmlTextWriter writer(&stream);
        writer.StartDocument();
        writer.WriteStartElement("r", "");
        for (int i = 0; i < 50; ++i) {
            writer.WriteStartElement("a", "urn:a");
            writer.WriteStartElement("b", "");
            EXPECT_EQ(before.first + 3, Counts("CXmlWriterContext").first);
            writer.WriteEndElement();
            writer.WriteEndElement();
        }
        writer.WriteEndElement();
        writer.EndDocument();
        EXPECT_EQ(before.first, Counts("CXmlWriterContext").first);
        EXPECT_EQ(writersBefore.first + 1, Counts("CXmlTextWriter").first);
    }
    std::pair<int, int> after = Counts("CXmlWriterContext");
    EXPECT_EQ(before.first, after.first);
    EXPECT_EQ(before.second + 101, after.second);
    EXPECT_EQ(writersBefore.first, Counts("CXmlTextWriter").first);
}

TEST(XmlWriterInstances, WriterFreesElementsLeftOpenByAnException) {
    std::pair<int, int> before = Counts("CXmlWriterContext");
    {
        CTextStream stream;
        CXmlTextWriter writer(&stream);
        writer.StartDocument();
        writer.WriteStartElement("r", "");
        writer.WriteStartElement("a", "");
        writer.WriteElementText("x", ItemType_string, false);
        EXPECT_THROW(writer.WriteXsiNil(), COxException);
        EXPECT_THROW(writer.EndDocument(), COxException);
        EXPECT_EQ(before.first + 2, Counts("CXmlWriterContext").first);
    }
    EXPECT_EQ(before.first, Counts("CXmlWriterContext").first);
    EXPECT_EQ(before.second + 2, Counts("CXmlWriterContext").second);
}

TEST(XmlWriterInstances, FailedStartElementLeavesNoContext) {
    std::pair<int, int> before = Counts("CXmlWriterContext");
    CTextStream stream;
    CInspectableWriter writer(&stream);
    writer.WriteStartElement("r", "");
    for (int n = 0; n < 676; ++n) writer.AddNamespaceAlias(Prefix(n), "urn:" + std::to_string(n));
    Context* pRoot = writer.Current();
    EXPECT_THROW(writer.WriteStartElement("c", "urn:new"), COxException);
    EXPECT_EQ(pRoot, writer.Current());
    EXPECT_EQ(before.first + 1, Counts("CXmlWriterContext").first);
    writer.WriteStartElement("c", "urn:0");
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<r>\n\t<\t<AA:c/>\n</r>\n", std::string(stream.GetText()));
}
