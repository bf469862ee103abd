#include "orvexxml/infrastructure/textstream.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/writers/xmltextwriter.h"

using namespace OrvexXml;

namespace {

std::pair<int, int> Counts(const char* pszClassName) {
    std::string dump = CInstanceMonitor::DumpState();
    std::string key = std::string(" ") + pszClassName + " = ";
    size_t pos = dump.find(key);
    if (pos == std::string::npos) return {0, 0};
    int nLiving = 0, nTotal = 0;
    std::sscanf(dump.c_str() + pos + key.size(), "%d/%d", &nLiving, &nTotal);
    return {nLiving, nTotal};
}

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

}  // namespace

TEST(TextStreamMemory, EncodingIsRecordedOnly) {
    CTextStream plain;
    EXPECT_EQ(XmlEncoding_None, plain.GetEncoding());
    CTextStream utf16(XmlEncoding_UTF16);
    EXPECT_EQ(XmlEncoding_UTF16, utf16.GetEncoding());
    utf16.WriteString("abc");
    EXPECT_STREQ("abc", utf16.GetText());
}

TEST(TextStreamMemory, WritesAppendAndStartEmpties) {
    CTextStream stream;
    EXPECT_EQ(0u, stream.GetLength());
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
    stream.WriteString("x");
    EXPECT_STREQ("x", stream.GetText());
}

TEST(TextStreamMemory, CountedWriteKeepsNullBytesStringWriteStopsAtThem) {
    CTextStream stream;
    stream.WriteString(std::string("a\0b", 3));
    stream.WriteString("c\0d", 3);
    EXPECT_EQ(4u, stream.GetLength());
    EXPECT_EQ(0, std::memcmp("ac\0d", stream.GetText(), 5));
}

TEST(TextStreamMemory, LongTextSpansBlocks) {
    CTextStream stream;
    std::string expected;
    for (int i = 0; i < 3000; ++i) {
        std::string piece = std::to_string(i) + ";";
        stream.WriteString(piece);
        expected += piece;
    }
    EXPECT_EQ(expected.size(), stream.GetLength());
    EXPECT_EQ(expected, stream.GetText());
}

TEST(TextStreamMemory, DerivedStreamRegistersUnderItsOwnName) {
    std::pair<int, int> base = Counts("CTextStream");
    std::pair<int, int> derived = Counts("CDrainingStream");
    {
        CDrainingStream stream;
        EXPECT_EQ(base.first, Counts("CTextStream").first);
        EXPECT_EQ(derived.first + 1, Counts("CDrainingStream").first);
        CTextStream plain;
        EXPECT_EQ(base.first + 1, Counts("CTextStream").first);
    }
    EXPECT_EQ(base.first, Counts("CTextStream").first);
    EXPECT_EQ(base.second + 1, Counts("CTextStream").second);
}

// --- how the text writer drives its stream ---------------------------------------------------

TEST(TextWriterStreamCalls, StartDocumentStartsTheStreamAndSmallDocumentsFlushOnlyAtEnd) {
    CDrainingStream stream;
    stream.WriteString("stale");
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    writer.WriteHeader();
    writer.WriteStartElement("a", "");
    writer.WriteElementText("x", ItemType_string, false);
    writer.WriteEndElement();
    writer.EndDocument();
    EXPECT_EQ("SFE", stream.m_strCalls);
    ASSERT_EQ(1u, stream.m_vecLumps.size());
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>x</a>\n", stream.m_vecLumps[0]);
}

TEST(TextWriterStreamCalls, EndDocumentEndsTheStreamBeforeTheOpenElementCheck) {
    CDrainingStream stream;
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    writer.WriteStartElement("a", "");
    try {
        writer.EndDocument();
        FAIL() << "no exception";
    } catch (const COxException& e) {
        EXPECT_EQ("An Element has not been closed.", e.GetMessage());
    }
    EXPECT_EQ("SFE", stream.m_strCalls);
    ASSERT_EQ(1u, stream.m_vecLumps.size());
    EXPECT_EQ("<a", stream.m_vecLumps[0]);
}

TEST(TextWriterStreamCalls, OutputIsPassedOnInLumpsOfAtLeast4096) {
    CDrainingStream stream;
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    writer.WriteStartElement("list", "");
    std::string expected = "<list>\n";
    for (int i = 0; i < 1000; ++i) {
        writer.WriteStartElement("item", "");
        writer.WriteAttribute("n", "", std::to_string(i), ItemType_string);
        writer.WriteElementText("value & more", ItemType_string, false);
        writer.WriteEndElement();
        expected += "\t<item n=\"" + std::to_string(i) + "\">value &amp; more</item>\n";
    }
    writer.WriteEndElement();
    writer.EndDocument();
    expected += "</list>\n";

    ASSERT_GT(stream.m_vecLumps.size(), 5u);
    std::string joined;
    for (size_t i = 0; i < stream.m_vecLumps.size(); ++i) {
        const std::string& lump = stream.m_vecLumps[i];
        if (i + 1 < stream.m_vecLumps.size()) {
            // A lump goes out as soon as an operation takes the text to 4096 or beyond.
            EXPECT_GE(lump.size(), 4096u);
            EXPECT_LT(lump.size(), 4096u + 32u);
        }
        joined += lump;
    }
    EXPECT_EQ(expected, joined);
}
