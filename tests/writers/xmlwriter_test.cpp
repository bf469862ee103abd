// The state all writers share (prefix generation, namespace scopes, element contexts and
// their instance counts), the memory text stream, and how the text writer drives a stream.
#include "orvexxml/writers/xmlwriter.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/xmltextwriter.h"

using namespace OrvexXml;

namespace {

typedef CXmlWriter::CXmlWriterContext Context;
typedef CXmlWriter::NamespaceMap NamespaceMap;

// Living and total instances of a class, as the instance monitor reports them.
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
};

// Behaves like a file stream: every Flush takes the buffered text away as one lump.
// Records the order of the calls it receives.
class CDrainingStream : public CTextStream {
public:
    CDrainingStream() : CTextStream("CDrainingStream", XmlEncoding_UTF8) {}

    void Start() override {
        CTextStream::Start();
        m_strCalls += 'S';
    }
    void Flush() override {
        m_strCalls += 'F';
        if (GetLength() == 0) return;
        m_vecLumps.push_back(GetText());
        m_buffer.Clear();
    }
    void End() override {
        Flush();
        m_strCalls += 'E';
    }

    std::string m_strCalls;
    std::vector<std::string> m_vecLumps;
};

const int kOrders = 11000;

void Leaf(CXmlWriter& writer, const std::string& strName, const std::string& strNamespace, const std::string& strText) {
    writer.WriteStartElement(strName, strNamespace);
    writer.WriteElementText(strText, ItemType_string, false);
    writer.WriteEndElement();
}

// The walk the binding engine makes for a list of orders: about a megabyte of text.
void WriteOrders(CXmlTextWriter& writer) {
    writer.StartDocument();
    writer.WriteHeader();
    writer.AddNamespaceAlias("xsi", "http://www.w3.org/2001/XMLSchema-instance");
    writer.SetDefaultNamespace("urn:orders");
    writer.WriteStartElement("orders", "urn:orders");
    for (int i = 0; i < kOrders; ++i) {
        writer.WriteStartElement("order", "urn:orders");
        writer.WriteAttribute("id", "", std::to_string(i), ItemType_string);
        Leaf(writer, "customer", "urn:orders", "Smith & Sons <" + std::to_string(i % 7) + ">");
        Leaf(writer, "qty", "urn:orders", std::to_string(i % 100));
        if (i % 10 == 0) Leaf(writer, "note", "urn:ext", "a\nb");
        if (i % 25 == 0) {
            writer.WriteStartElement("discount", "urn:orders");
            writer.WriteXsiNil();
            writer.WriteEndElement();
        }
        writer.WriteEndElement();
    }
    writer.WriteEndElement();
    writer.EndDocument();
}

}  // namespace

TEST(NamespacePrefixGenerator, TakesTheFirstFreePrefixFromAAtoZZThenRefuses) {
    // Values that are not two capital letters take no generated prefix away.
    NamespaceMap map = {{"urn:x1", "xml"}, {"urn:x2", "A"}, {"urn:x3", "AAA"}, {"urn:x4", "aa"}, {"urn:x5", "A["}};
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
    // A prefix freed in the middle is found again, ahead of later free ones.
    map.erase("urn:27");
    map.erase("urn:600");
    EXPECT_EQ("BB", CXmlWriter::GenerateNamespacePrefix(map));
}

// --- namespace scopes ------------------------------------------------------------------------

TEST(WriterContextScopes, NestedScopesShareTheMapUntilAPrefixIsSetThenCopyItOnce) {
    NamespaceMap document = {{"urn:p", "p"}};
    Context* pRoot = new Context("r", "urn:p", "urn:d", document, nullptr);
    Context* pChild = new Context("c", "", pRoot);
    Context* pGrandChild = new Context("g", "", pChild);
    document["urn:p"] = "changed";  // the root holds a copy of the document's map
    EXPECT_EQ(0u, pRoot->m_nDepth);
    EXPECT_EQ(2u, pGrandChild->m_nDepth);
    EXPECT_EQ(&pRoot->GetNamespaceMap(), &pGrandChild->GetNamespaceMap());
    EXPECT_EQ("p", pGrandChild->GetNamespaceMapValue("urn:p"));
    EXPECT_EQ("", pGrandChild->GetNamespaceMapValue("urn:none"));
    EXPECT_EQ("urn:d", pGrandChild->GetDefaultNamespace());

    pChild->SetNamespaceMapValue("urn:p", "p");  // an existing binding: no copy
    EXPECT_EQ(&pRoot->GetNamespaceMap(), &pChild->GetNamespaceMap());
    // A default namespace alone detaches the scope without copying the map.
    pChild->SetDefaultNamespace("urn:e");
    EXPECT_EQ(&pRoot->GetNamespaceMap(), &pChild->GetNamespaceMap());
    EXPECT_EQ("urn:e", pGrandChild->GetDefaultNamespace());
    EXPECT_EQ("urn:d", pRoot->GetDefaultNamespace());

    pChild->SetNamespaceMapValue("urn:p", "q");  // a new binding: a copy for this scope
    EXPECT_NE(&pRoot->GetNamespaceMap(), &pChild->GetNamespaceMap());
    EXPECT_EQ(&pChild->GetNamespaceMap(), &pGrandChild->GetNamespaceMap());
    EXPECT_EQ("q", pGrandChild->GetNamespaceMapValue("urn:p"));
    EXPECT_EQ("p", pRoot->GetNamespaceMapValue("urn:p"));
    EXPECT_EQ("urn:e", pChild->GetDefaultNamespace());
    // A later change of the copy is made in place.
    const NamespaceMap* pOwn = &pChild->GetNamespaceMap();
    pChild->SetNamespaceMapValue("urn:x", "x");
    EXPECT_EQ(pOwn, &pChild->GetNamespaceMap());
    EXPECT_EQ("x", pGrandChild->GetNamespaceMapValue("urn:x"));
    EXPECT_EQ("", pRoot->GetNamespaceMapValue("urn:x"));

    // A prefix set on an inheriting scope keeps the default namespace it inherited.
    pGrandChild->SetNamespaceMapValue("urn:y", "y");
    EXPECT_EQ("urn:e", pGrandChild->GetDefaultNamespace());
    EXPECT_EQ("x", pGrandChild->GetNamespaceMapValue("urn:x"));
    EXPECT_EQ("", pChild->GetNamespaceMapValue("urn:y"));
    delete pGrandChild;  // the innermost context owns the chain
}

// --- the writer's own state ------------------------------------------------------------------

TEST(XmlWriterState, CollectionStateIsKeptOnTheOpenElement) {
    CTextStream stream;
    CInspectableWriter writer(&stream);
    writer.SetCollectionState(1);  // no open element: nothing happens
    writer.WriteStartElement("r", "");
    Context* pRoot = writer.Current();
    writer.SetCollectionState(1);
    writer.WriteStartElement("a", "");
    EXPECT_EQ(0u, writer.Current()->m_nCollectionState);
    EXPECT_EQ(1u, pRoot->m_nCollectionState);
    writer.WriteEndElement();
    writer.SetCollectionState(3);
    EXPECT_EQ(3u, pRoot->m_nCollectionState);
    writer.WriteEndElement();
    EXPECT_EQ(nullptr, writer.Current());
}

// --- instance counts -------------------------------------------------------------------------

TEST(XmlWriterInstances, OneContextPerElementAndNoneLeftBehind) {
    std::pair<int, int> before = Counts("CXmlWriterContext");
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
    }
    EXPECT_EQ(before.second + 101, Counts("CXmlWriterContext").second);
}

TEST(XmlWriterInstances, FailedOrUnclosedElementsLeaveNoContext) {
    std::pair<int, int> before = Counts("CXmlWriterContext");
    {
        CTextStream stream;
        CInspectableWriter writer(&stream);
        writer.WriteStartElement("r", "");
        for (int n = 0; n < 676; ++n) {
            const char szPrefix[3] = {static_cast<char>('A' + n / 26), static_cast<char>('A' + n % 26), '\0'};
            writer.AddNamespaceAlias(szPrefix, "urn:" + std::to_string(n));
        }
        Context* pRoot = writer.Current();
        EXPECT_THROW(writer.WriteStartElement("c", "urn:new"), COxException);
        EXPECT_EQ(pRoot, writer.Current());
        EXPECT_EQ(before.first + 1, Counts("CXmlWriterContext").first);
        writer.WriteStartElement("c", "urn:0");
        writer.WriteEndElement();
        writer.WriteStartElement("d", "");
        writer.WriteElementText("x", ItemType_string, false);
        EXPECT_THROW(writer.WriteXsiNil(), COxException);
        EXPECT_THROW(writer.EndDocument(), COxException);
        EXPECT_EQ("<r>\n\t<\t<AA:c/>\n\t<d>x", std::string(stream.GetText()));
        EXPECT_EQ(before.first + 2, Counts("CXmlWriterContext").first);
    }  // the writer frees the elements an exception left open
    EXPECT_EQ(before.first, Counts("CXmlWriterContext").first);
    EXPECT_EQ(before.second + 4, Counts("CXmlWriterContext").second);
}

// Writers hand their spare contexts on to the next writer of their thread. A writer made
// while another is open on the same thread (a nested rendering), a writer that dies with
// elements open, and writers on several threads at once must each still write exactly the
// document they were given.
std::string WriteNamespacedSample(const std::function<void()>& midway = nullptr) {
    const std::string strLong = "urn:a-namespace-long-enough-for-the-heap";
    CTextStream stream;
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    writer.WriteStartElement("root", strLong);
    for (int i = 0; i < 3; ++i) {
        writer.WriteStartElement(i == 1 ? "a-name-long-enough-for-the-heap" : "item", i == 2 ? "urn:b" : strLong);
        if (i == 1 && midway) midway();
        writer.WriteStartElement("leaf", strLong);
        writer.WriteElementText(std::to_string(i), ItemType_string, false);
        writer.WriteEndElement();
        writer.WriteEndElement();
    }
    writer.WriteEndElement();
    writer.EndDocument();
    return stream.GetText();
}

TEST(XmlWriterInstancesThreads, SpareContextsPassBetweenNestedFailedAndConcurrentWriters) {
    const std::string strExpected =
        "<AA:root xmlns:AA=\"urn:a-namespace-long-enough-for-the-heap\">\n"
        "\t<AA:item>\n\t\t<AA:leaf>0</AA:leaf>\n\t</AA:item>\n"
        "\t<AA:a-name-long-enough-for-the-heap>\n\t\t<AA:leaf>1</AA:leaf>\n\t</AA:a-name-long-enough-for-the-heap>\n"
        "\t<AB:item xmlns:AB=\"urn:b\">\n\t\t<AA:leaf>2</AA:leaf>\n\t</AB:item>\n"
        "</AA:root>\n";
    std::pair<int, int> before = Counts("CXmlWriterContext");
    EXPECT_EQ(strExpected, WriteNamespacedSample());
    std::string strInner;
    EXPECT_EQ(strExpected, WriteNamespacedSample([&] {
                  strInner = WriteNamespacedSample();
                  // A writer that dies with three elements open.
                  CTextStream stream;
                  CXmlTextWriter writer(&stream);
                  for (const char* pszName : {"x", "y", "z"}) writer.WriteStartElement(pszName, "urn:c");
              }));
    EXPECT_EQ(strExpected, strInner);
    EXPECT_EQ(strExpected, WriteNamespacedSample());

    std::vector<std::thread> vecThreads;
    std::atomic<int> nWrong(0);
    for (int t = 0; t < 4; ++t) {
        vecThreads.emplace_back([&] {
            for (int i = 0; i < 200; ++i) {
                if (WriteNamespacedSample(i % 7 ? std::function<void()>() : [] { WriteNamespacedSample(); }) !=
                    strExpected)
                    ++nWrong;
            }
        });
    }
    for (std::thread& thread : vecThreads) thread.join();
    EXPECT_EQ(0, nWrong.load());
    EXPECT_EQ(before.first, Counts("CXmlWriterContext").first);
}

// --- the text stream ------------------------------------------------------------------------

TEST(TextStreamMemory, WritesAppendStartEmptiesAndTheEncodingIsOnlyRecorded) {
    CTextStream stream;
    EXPECT_EQ(XmlEncoding_None, stream.GetEncoding());
    EXPECT_STREQ("", stream.GetText());
    stream.WriteChar('<');
    stream.WriteString("ab");
    stream.WriteString(std::string("cd"));
    stream.WriteString("efgh", 2);
    EXPECT_EQ(7u, stream.GetLength());
    stream.Flush();
    stream.End();
    EXPECT_STREQ("<abcdef", stream.GetText());
    stream.Start();
    EXPECT_EQ(0u, stream.GetLength());
    EXPECT_STREQ("", stream.GetText());

    // A counted write keeps null bytes; a string write stops at the first.
    stream.WriteString(std::string("a\0b", 3));
    stream.WriteString("c\0d", 3);
    EXPECT_EQ(4u, stream.GetLength());
    EXPECT_EQ(0, std::memcmp("ac\0d", stream.GetText(), 5));

    // Text spanning many buffer blocks comes back whole.
    stream.Start();
    std::string expected;
    for (int i = 0; i < 3000; ++i) {
        stream.WriteString(std::to_string(i) + ";");
        expected += std::to_string(i) + ";";
    }
    EXPECT_EQ(expected.size(), stream.GetLength());
    EXPECT_EQ(expected, stream.GetText());

    CTextStream utf16(XmlEncoding_UTF16);
    EXPECT_EQ(XmlEncoding_UTF16, utf16.GetEncoding());
    utf16.WriteString("abc");
    EXPECT_STREQ("abc", utf16.GetText());
}

TEST(TextWriterStreamCalls, EndDocumentEndsTheStreamBeforeTheOpenElementCheck) {
    std::pair<int, int> base = Counts("CTextStream");
    CDrainingStream stream;
    // A derived stream registers under its own name.
    EXPECT_EQ(1, Counts("CDrainingStream").first);
    EXPECT_EQ(base, Counts("CTextStream"));
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    writer.WriteComment(std::string(4088, 'c'));  // takes the text to exactly 4096: flushed
    writer.WriteStartElement("a", "");
    try {
        writer.EndDocument();
        FAIL() << "no exception";
    } catch (const COxException& e) {
        EXPECT_EQ("An Element has not been closed.", e.GetMessage());
    }
    EXPECT_EQ("SFFE", stream.m_strCalls);
    ASSERT_EQ(2u, stream.m_vecLumps.size());
    EXPECT_EQ("<!--" + std::string(4088, 'c') + "-->\n", stream.m_vecLumps[0]);
    EXPECT_EQ("<a", stream.m_vecLumps[1]);
}

TEST(TextWriterStreamCalls, MegabyteDocumentArrivesInLumpsOfAtLeast4096AndExactly) {
    CDrainingStream draining;
    draining.WriteString("stale");
    CXmlTextWriter writer(&draining);
    WriteOrders(writer);
    ASSERT_GT(draining.m_vecLumps.size(), 200u);
    // StartDocument starts the stream, and only a large text or EndDocument flushes it.
    EXPECT_EQ("S" + std::string(draining.m_vecLumps.size(), 'F') + "E", draining.m_strCalls);
    std::string text;
    for (size_t i = 0; i < draining.m_vecLumps.size(); ++i) {
        const std::string& lump = draining.m_vecLumps[i];
        if (i + 1 < draining.m_vecLumps.size()) {
            // A lump goes out as soon as an operation takes the text to 4096 or beyond.
            EXPECT_GE(lump.size(), 4096u);
            EXPECT_LT(lump.size(), 4096u + 32u);
        }
        text += lump;
    }
    const std::string kPrefix =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<orders xmlns=\"urn:orders\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n"
        "\t<order id=\"0\">\n"
        "\t\t<customer>Smith &amp; Sons &lt;0&gt;</customer>\n"
        "\t\t<qty>0</qty>\n"
        "\t\t<AA:note xmlns:AA=\"urn:ext\">a\nb</AA:note>\n"
        "\t\t<discount xsi:nil=\"true\"/>\n"
        "\t</order>\n"
        "\t<order id=\"1\">\n"
        "\t\t<customer>Smith &amp; Sons &lt;1&gt;</customer>\n"
        "\t\t<qty>1</qty>\n"
        "\t</order>\n";
    ASSERT_GE(text.size(), kPrefix.size());
    EXPECT_EQ(kPrefix, text.substr(0, kPrefix.size()));
    EXPECT_EQ(
        "\t<order id=\"10999\">\n"
        "\t\t<customer>Smith &amp; Sons &lt;2&gt;</customer>\n"
        "\t\t<qty>99</qty>\n"
        "\t</order>\n"
        "</orders>\n",
        text.substr(text.size() - 106));
    EXPECT_EQ(1105081u, text.size());

    // Unformatted with CRLF, the memory stream holds the same document without its layout:
    // only the header's line end and the line feeds inside the notes remain, as CRLF.
    std::string expected;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\n') {
            expected += text[i];
        } else if (expected.size() == kPrefix.find('\n') || (text[i - 1] == 'a' && text[i + 1] == 'b')) {
            expected += "\r\n";
        } else {
            while (i + 1 < text.size() && text[i + 1] == '\t') ++i;
        }
    }
    CTextStream stream(XmlEncoding_UTF8);
    CXmlTextWriter flat(&stream);
    flat.SetFormatted(false);
    flat.SetEOLType(EOLType_CRLF);
    WriteOrders(flat);
    std::string flatText = stream.GetText();
    EXPECT_EQ(flatText.size(), stream.GetLength());
    ASSERT_EQ(expected.size(), flatText.size());
    EXPECT_TRUE(expected == flatText);
}
