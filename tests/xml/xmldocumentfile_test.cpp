// Loading files: the whole-file form and the overlapped form with two chunk buffers must
// give the same tree or the same error, at every size and chunk boundary.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "orvexxml/xml/xmldocument.h"
#include "xml/xmltesthelpers.h"

using namespace OrvexXml;
using OrvexXmlTest::Children;
using OrvexXmlTest::Dump;
using OrvexXmlTest::ExpectOxError;
using OrvexXmlTest::OxErrorOf;

namespace {

const size_t kChunk = 131072;

class TempFile {
public:
    explicit TempFile(const std::string& strContent) {
        static int s_nCounter = 0;
        m_strPath = ::testing::TempDir() + "orvexxml_xmlfile_" + std::to_string(::getpid()) + "_" +
                    std::to_string(++s_nCounter) + ".xml";
        std::ofstream out(m_strPath, std::ios::binary | std::ios::trunc);
        out.write(strContent.data(), static_cast<std::streamsize>(strContent.size()));
    }
    ~TempFile() { std::remove(m_strPath.c_str()); }
    const char* Path() const { return m_strPath.c_str(); }

private:
    std::string m_strPath;
};

// A document of exactly nSize bytes (for nSize >= 64) with records that hold attributes,
// namespaces and multi-byte characters, padded with text at the end of the root.
std::string MakeDocument(size_t nSize, unsigned nSeed) {
    std::string strXml = "<?xml version='1.0' encoding='UTF-8'?>\n<root xmlns:p='urn:p'>\n";
    const std::string strFooter = "</root>\n";
    const char* aTexts[] = {"plain",     "caf\xC3\xA9",        "\xE4\xB8\xAD\xE6\x96\x87", "\xF0\x9F\x98\x80 smile",
                            "a &amp; b", "<![CDATA[raw <x>]]>"};
    const char* aValues[] = {"plain", "caf\xC3\xA9", "\xE4\xB8\xAD", "\xF0\x9F\x98\x80", "a &lt; b", "x&#13;y"};
    unsigned nState = nSeed;
    for (int i = 0;; ++i) {
        nState = nState * 1103515245u + 12345u;
        std::string strRecord = "<p:rec n='" + std::to_string(i) + "' v='" + aValues[(nState >> 8) % 6] + "'>" +
                                aTexts[(nState >> 16) % 6] + "<leaf>" + std::to_string(nState % 1000) +
                                "</leaf></p:rec>\r\n";
        if (strXml.size() + strRecord.size() + strFooter.size() > nSize) break;
        strXml += strRecord;
    }
    while (strXml.size() + strFooter.size() < nSize) {
        size_t nRemaining = nSize - strXml.size() - strFooter.size();
        strXml += (nRemaining >= 2 && strXml.size() % 3 == 0) ? "\xC3\xA9" : "x";
    }
    return strXml + strFooter;
}

// The tree, or the error message, of one load.
std::string LoadResult(const char* pszPath, bool bAsync, XmlElementCallback pfn = nullptr) {
    AsyncFromXmlFile(bAsync);
    CXmlDocument doc(pfn);
    try {
        doc.Load(pszPath);
    } catch (const COxException& e) {
        return "error: " + e.GetMessage();
    }
    return Dump(doc.GetDocumentElement());
}

class XmlDocumentFile : public ::testing::Test {
protected:
    void TearDown() override { AsyncFromXmlFile(false); }

    void ExpectSameInBothModes(const std::string& strContent) {
        TempFile file(strContent);
        std::string strWhole = LoadResult(file.Path(), false);
        std::string strAsync = LoadResult(file.Path(), true);
        EXPECT_EQ(strWhole, strAsync) << "size " << strContent.size();
        EXPECT_EQ(0u, strWhole.rfind("({}root", 0)) << strWhole.substr(0, 200);
    }
};

TEST_F(XmlDocumentFile, SwitchSelectsTheOverlappedForm) {
    EXPECT_FALSE(GetAsyncFromXmlFile());
    AsyncFromXmlFile(true);
    EXPECT_TRUE(GetAsyncFromXmlFile());
    AsyncFromXmlFile(false);
    EXPECT_FALSE(GetAsyncFromXmlFile());
}

TEST_F(XmlDocumentFile, MissingFileInBothModes) {
    std::string strPath = ::testing::TempDir() + "orvexxml_no_such_file.xml";
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        CXmlDocument doc;
        ExpectOxError([&] { doc.Load(strPath.c_str()); },
                      "Failed to open the file [" + strPath + "] Error [0x00000002]");
        EXPECT_EQ(nullptr, doc.GetDocumentElement());
    }
}

TEST_F(XmlDocumentFile, DirectoryFailsOnReadInBothModes) {
    std::string strPath = ::testing::TempDir();
    if (!strPath.empty() && strPath.back() == '/') strPath.pop_back();
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        CXmlDocument doc;
        ExpectOxError([&] { doc.Load(strPath.c_str()); },
                      "Failed to read the contents of the file [" + strPath + "] Error [0x00000015]");
    }
}

TEST_F(XmlDocumentFile, EmptyFileFailsOnTheFinalChunkInBothModes) {
    TempFile file("");
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        CXmlDocument doc;
        ExpectOxError([&] { doc.Load(file.Path()); }, "no element found at line 1");
    }
}

TEST_F(XmlDocumentFile, ExactChunkMultiplesAndTheirNeighbours) {
    for (size_t nSize : {kChunk - 1, kChunk, kChunk + 1, 2 * kChunk - 1, 2 * kChunk, 2 * kChunk + 1, 3 * kChunk})
        ExpectSameInBothModes(MakeDocument(nSize, static_cast<unsigned>(nSize)));
}

TEST_F(XmlDocumentFile, RandomSizes) {
    unsigned nState = 2024;
    for (int i = 0; i < 8; ++i) {
        nState = nState * 1103515245u + 12345u;
        size_t nSize = 64 + (nState >> 4) % (5 * kChunk);
        ExpectSameInBothModes(MakeDocument(nSize, nState));
    }
}

TEST_F(XmlDocumentFile, SmallFiles) {
    ExpectSameInBothModes("<root/>");
    ExpectSameInBothModes(MakeDocument(100, 1));
}

TEST_F(XmlDocumentFile, MultiByteCharactersAndTagsAcrossChunkBoundaries) {
    const std::string aCharacters[] = {"\xC3\xA9", "\xE4\xB8\xAD", "\xF0\x9F\x98\x80"};
    for (const std::string& strCharacter : aCharacters) {
        for (size_t nSplit = 1; nSplit < strCharacter.size(); ++nSplit) {
            // The character starts nSplit bytes before the end of the first chunk, and a tag
            // straddles the end of the second.
            std::string strXml = "<root>";
            strXml.append(kChunk - nSplit - strXml.size(), 'a');
            strXml += strCharacter;
            std::string strText = strXml.substr(6);
            strXml.append(2 * kChunk - 5 - strXml.size(), 'b');
            strText.append(2 * kChunk - 5 - 6 - strText.size(), 'b');
            strXml += "<leaf attr='\xF0\x9F\x98\x80'>z</leaf></root>";
            TempFile file(strXml);
            for (bool bAsync : {false, true}) {
                AsyncFromXmlFile(bAsync);
                CXmlDocument doc;
                doc.Load(file.Path());
                const CXmlElement* pRoot = doc.GetDocumentElement();
                ASSERT_NE(nullptr, pRoot);
                EXPECT_TRUE(pRoot->GetText() == strText) << "split " << nSplit << " async " << bAsync;
                ASSERT_NE(nullptr, pRoot->GetFirstElement());
                EXPECT_EQ("\xF0\x9F\x98\x80", pRoot->GetFirstElement()->GetAttribute("attr"));
                EXPECT_EQ("z", pRoot->GetFirstElement()->GetText());
            }
        }
    }
}

TEST_F(XmlDocumentFile, ParseErrorInALaterChunkGivesTheSameMessage) {
    std::string strXml = MakeDocument(3 * kChunk + 100, 7);
    strXml.insert(strXml.size() - 8, "<open>");
    TempFile file(strXml);
    std::string strWhole = LoadResult(file.Path(), false);
    EXPECT_EQ(0u, strWhole.rfind("error: mismatched tag at line ", 0)) << strWhole;
    EXPECT_EQ(strWhole, LoadResult(file.Path(), true));
}

bool ThrowAtRecordTwoThousand(CXmlElement* pElement) {
    if (pElement->GetAttribute("n") == "2000") throw COxException("stopped");
    return false;
}

bool DropRecords(CXmlElement* pElement) { return pElement->GetLocalName() == "rec"; }

TEST_F(XmlDocumentFile, CallbackExceptionInOverlappedModeCleansUp) {
    TempFile file(MakeDocument(4 * kChunk, 3));
    AsyncFromXmlFile(true);
    CXmlDocument doc(&ThrowAtRecordTwoThousand);
    ExpectOxError([&] { doc.Load(file.Path()); }, "stopped");
    EXPECT_EQ(nullptr, doc.GetDocumentElement());
    // Loading again works, on the same document.
    AsyncFromXmlFile(false);
    ExpectOxError([&] { doc.Load(file.Path()); }, "stopped");
    // The whole-file form keeps what it had built.
    ASSERT_NE(nullptr, doc.GetDocumentElement());
    EXPECT_EQ("root", doc.GetDocumentElement()->GetLocalName());
}

TEST_F(XmlDocumentFile, StreamingCallbackKeepsTheRootEmptyInBothModes) {
    TempFile file(MakeDocument(3 * kChunk, 5));
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        CXmlDocument doc(&DropRecords);
        doc.Load(file.Path());
        ASSERT_NE(nullptr, doc.GetDocumentElement());
        EXPECT_EQ(nullptr, doc.GetDocumentElement()->GetFirstElement());
    }
}

TEST_F(XmlDocumentFile, OverlappedLoadsInARowOnOneDocument) {
    TempFile big(MakeDocument(2 * kChunk + 17, 11));
    TempFile small("<small a='1'/>");
    AsyncFromXmlFile(true);
    CXmlDocument doc;
    doc.Load(big.Path());
    EXPECT_EQ("root", doc.GetDocumentElement()->GetLocalName());
    EXPECT_FALSE(Children(doc.GetDocumentElement()).empty());
    doc.Load(small.Path());
    ASSERT_NE(nullptr, doc.GetDocumentElement());
    EXPECT_EQ("small", doc.GetDocumentElement()->GetLocalName());
    EXPECT_EQ("1", doc.GetDocumentElement()->GetAttribute("a"));
    doc.Load(big.Path());
    EXPECT_EQ(LoadResult(big.Path(), false), Dump(doc.GetDocumentElement()));
}

TEST_F(XmlDocumentFile, CrLfInFilesIsStoredAsLf) {
    TempFile file("<a>\r\none\r\n<b>two\r\nthree</b>\r\n</a>\r\n");
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        CXmlDocument doc;
        doc.Load(file.Path());
        EXPECT_EQ("\none\n\n", doc.GetDocumentElement()->GetText());
        EXPECT_EQ("two\nthree", doc.GetDocumentElement()->GetFirstElement()->GetText());
    }
}

}  // namespace
