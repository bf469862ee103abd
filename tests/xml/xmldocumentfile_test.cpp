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
// namespaces, CRLF line ends and multi-byte characters, padded with text at the end of the root.
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
std::string LoadResult(const char* pszPath, bool bAsync) {
    AsyncFromXmlFile(bAsync);
    CXmlDocument doc;
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
};

TEST_F(XmlDocumentFile, OpenReadAndParseFailuresInBothModes) {
    EXPECT_FALSE(GetAsyncFromXmlFile());
    std::string strMissing = ::testing::TempDir() + "orvexxml_no_such_file.xml";
    std::string strDirectory = ::testing::TempDir();
    if (!strDirectory.empty() && strDirectory.back() == '/') strDirectory.pop_back();
    TempFile empty("");
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        EXPECT_EQ(bAsync, GetAsyncFromXmlFile());
        CXmlDocument doc;
        ExpectOxError([&] { doc.Load(strMissing.c_str()); },
                      "Failed to open the file [" + strMissing + "] Error [0x00000002]");
        EXPECT_EQ(nullptr, doc.GetDocumentElement());
        ExpectOxError([&] { doc.Load(strDirectory.c_str()); },
                      "Failed to read the contents of the file [" + strDirectory + "] Error [0x00000015]");
        ExpectOxError([&] { doc.Load(empty.Path()); }, "no element found at line 1");
    }
}

TEST_F(XmlDocumentFile, SameTreeInBothModesAtChunkMultiplesTheirNeighboursAndOtherSizes) {
    std::vector<size_t> sizes = {100,        kChunk - 1,     kChunk,    kChunk + 1, 2 * kChunk - 1,
                                 2 * kChunk, 2 * kChunk + 1, 3 * kChunk};
    unsigned nState = 2024;
    for (int i = 0; i < 8; ++i) {
        nState = nState * 1103515245u + 12345u;
        sizes.push_back(64 + (nState >> 4) % (5 * kChunk));
    }
    for (size_t nSize : sizes) {
        TempFile file(MakeDocument(nSize, static_cast<unsigned>(nSize)));
        std::string strWhole = LoadResult(file.Path(), false);
        EXPECT_EQ(strWhole, LoadResult(file.Path(), true)) << "size " << nSize;
        EXPECT_EQ(0u, strWhole.rfind("({}root", 0)) << strWhole.substr(0, 200);
    }
    // A parse error in a later chunk gives the same message.
    std::string strXml = MakeDocument(3 * kChunk + 100, 7);
    TempFile broken(strXml.insert(strXml.size() - 8, "<open>"));
    std::string strError = LoadResult(broken.Path(), false);
    EXPECT_EQ(0u, strError.rfind("error: mismatched tag at line ", 0)) << strError;
    EXPECT_EQ(strError, LoadResult(broken.Path(), true));
    TempFile tiny("<root/>");
    EXPECT_EQ("({}root text=[])", LoadResult(tiny.Path(), false));
    EXPECT_EQ("({}root text=[])", LoadResult(tiny.Path(), true));
}

// Inputs of some megabytes: the whole-file form hands the parser its input in one piece and
// gives its own copy back before the tree is built. Every form gives the same tree or the same
// error as the chunked form, a caller's bytes are left as they were, and the document loads
// again after the input it held is gone.
TEST_F(XmlDocumentFile, LargeInputsGiveTheSameTreeInEveryFormAndLeaveTheCallersBytes) {
    const std::string strXml = MakeDocument(3 * 1024 * 1024 + 77, 11);
    TempFile file(strXml);
    const std::string strChunked = LoadResult(file.Path(), true);
    EXPECT_EQ(0u, strChunked.rfind("({}root", 0)) << strChunked.substr(0, 200);
    EXPECT_EQ(strChunked, LoadResult(file.Path(), false));

    CXmlDocument doc;
    std::string strBytes = strXml;
    doc.LoadXmlStream(reinterpret_cast<unsigned char*>(&strBytes[0]), static_cast<OxULong>(strBytes.size()));
    EXPECT_EQ(strChunked, Dump(doc.GetDocumentElement()));
    EXPECT_EQ(strXml, strBytes);
    doc.Load(file.Path());
    EXPECT_EQ(strChunked, Dump(doc.GetDocumentElement()));
    doc.LoadXml(strBytes.c_str());
    EXPECT_EQ(strChunked, Dump(doc.GetDocumentElement()));
    EXPECT_EQ(strXml, strBytes);

    std::string strBroken = strXml;
    TempFile broken(strBroken.insert(strBroken.size() - 8, "<open>"));
    const std::string strError = LoadResult(broken.Path(), true);
    EXPECT_EQ(0u, strError.rfind("error: mismatched tag at line ", 0)) << strError;
    EXPECT_EQ(strError, LoadResult(broken.Path(), false));
}

TEST_F(XmlDocumentFile, CharactersLineEndsAndTagsAcrossChunkBoundaries) {
    // {as written, as stored}: a CRLF split between chunks is stored as LF as well.
    const std::string aCharacters[][2] = {{"\xC3\xA9", "\xC3\xA9"},
                                          {"\xE4\xB8\xAD", "\xE4\xB8\xAD"},
                                          {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
                                          {"\r\n", "\n"}};
    for (const auto& character : aCharacters) {
        for (size_t nSplit = 1; nSplit < character[0].size(); ++nSplit) {
            // The character starts nSplit bytes before the end of the first chunk, and a tag
            // straddles the end of the second.
            std::string strXml = "<root>" + std::string(kChunk - nSplit - 6, 'a') + character[0];
            std::string strText = std::string(kChunk - nSplit - 6, 'a') + character[1];
            strText.append(2 * kChunk - 5 - strXml.size(), 'b');
            strXml.append(2 * kChunk - 5 - strXml.size(), 'b');
            strXml += "<leaf attr='\xF0\x9F\x98\x80'>z\r\nz</leaf></root>";
            TempFile file(strXml);
            for (bool bAsync : {false, true}) {
                AsyncFromXmlFile(bAsync);
                CXmlDocument doc;
                doc.Load(file.Path());
                const CXmlElement* pRoot = doc.GetDocumentElement();
                ASSERT_NE(nullptr, pRoot);
                EXPECT_TRUE(pRoot->GetText() == strText) << "split " << nSplit << " async " << bAsync;
                EXPECT_EQ("({}leaf {}attr=[\xF0\x9F\x98\x80] text=[z\nz])", Dump(pRoot->GetFirstElement()));
            }
        }
    }
}

TEST_F(XmlDocumentFile, ElementCallbackInBothModes) {
    TempFile file(MakeDocument(4 * kChunk, 3));
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        CXmlDocument doc(+[](CXmlElement* pElement) { return pElement->GetLocalName() == "rec"; });
        doc.Load(file.Path());
        ASSERT_NE(nullptr, doc.GetDocumentElement());
        EXPECT_EQ(nullptr, doc.GetDocumentElement()->GetFirstElement());
    }

    // An exception from the callback ends an overlapped load and leaves no tree behind.
    AsyncFromXmlFile(true);
    CXmlDocument doc(+[](CXmlElement* pElement) -> bool {
        if (pElement->GetAttribute("n") == "2000") throw COxException("stopped");
        return false;
    });
    ExpectOxError([&] { doc.Load(file.Path()); }, "stopped");
    EXPECT_EQ(nullptr, doc.GetDocumentElement());
    // The same document loads again; the whole-file form keeps what it had built.
    AsyncFromXmlFile(false);
    ExpectOxError([&] { doc.Load(file.Path()); }, "stopped");
    ASSERT_NE(nullptr, doc.GetDocumentElement());
    EXPECT_EQ("root", doc.GetDocumentElement()->GetLocalName());
}

TEST_F(XmlDocumentFile, OverlappedLoadsInARowOnOneDocument) {
    TempFile big(MakeDocument(2 * kChunk + 17, 11));
    TempFile small("<small a='1'>\r\none\r\n</small>");
    AsyncFromXmlFile(true);
    CXmlDocument doc;
    doc.Load(big.Path());
    EXPECT_FALSE(Children(doc.GetDocumentElement()).empty());
    doc.Load(small.Path());
    EXPECT_EQ("({}small {}a=[1] text=[\none\n])", Dump(doc.GetDocumentElement()));
    doc.Load(big.Path());
    EXPECT_EQ(LoadResult(big.Path(), false), Dump(doc.GetDocumentElement()));
}

}  // namespace
