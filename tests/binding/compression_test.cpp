// Compressed output of the stream and file entry points, checked with zlib itself and the gzip
// program, and compressed input on every reading path that inflates.
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "bindinghelpers.h"
#include "support/testfiles.h"
#include "support/zlibcheck.h"
#include "tally.h"

using namespace OrvexXml;
using namespace OrvexBindTest;
using namespace OrvexTest;
using namespace Samples;

namespace {

class Compression : public ::testing::Test {
protected:
    void SetUp() override {
        char szTemplate[] = "/tmp/orvexxml-zip-XXXXXX";
        m_strDir = mkdtemp(szTemplate);
        m_tally->SetLabel("compressed");
        for (int i = 0; i < 300; ++i) m_tally->GetCount().Add(i * 7919 % 1000);
    }
    void TearDown() override {
        AsyncToXmlFile(false);
        AsyncFromXmlFile(false);
        EXPECT_EQ(std::system(("rm -rf '" + m_strDir + "'").c_str()), 0);
    }
    std::string Path(const char* pszName) const { return m_strDir + "/" + pszName; }
    // The object read back from bytes, or from a file, holds what was written.
    void ExpectReadsBack(const std::function<void(CTally&)>& read) {
        CSmartPtr<CTally> copy = CTally::CreateInstance();
        read(*copy);
        EXPECT_EQ(Flat(m_tally), Flat(copy));
    }
    std::string m_strDir;
    CSmartPtr<CTally> m_tally = CTally::CreateInstance();
};

// Each stream form, compressed, is exactly the uncompressed bytes of the same call inside
// exactly the asked format; the XML and JSON forms read back without naming the compression.
TEST_F(Compression, StreamOutputInflatesToTheUncompressedBytes) {
    const struct {
        CompressionType eType;
        int nWindowBits;
    } formats[] = {{CompressionType_GZip, kGZipOnly}, {CompressionType_ZLib, kZLibOnly}};
    for (const auto& format : formats) {
        for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16}) {
            SCOPED_TRACE(std::to_string(format.eType) + "/" + std::to_string(eEncoding));
            auto xml = [&](CompressionType eType) {
                return m_tally->ToXmlStream(true, true, eEncoding, EOLType_LF, DefaultCtx(), eType);
            };
            auto json = [&](CompressionType eType) {
                return m_tally->ToJsonStream(true, eEncoding, EOLType_CRLF, DefaultCtx(), eType);
            };
            const std::function<CBinaryData(CompressionType)> writers[] = {xml, json};
            for (const auto& write : writers) {
                std::string strInflated;
                ASSERT_TRUE(InflateExactly(Bytes(write(format.eType)), format.nWindowBits, strInflated));
                EXPECT_EQ(Bytes(write(CompressionType_None)), strInflated);
            }
            const CBinaryData compressed = xml(format.eType);
            ExpectReadsBack([&](CTally& copy) { copy.FromXmlStream(compressed, DefaultCtx()); });
            if (eEncoding == XmlEncoding_UTF8) {  // JSON is read as UTF-8 only
                const CBinaryData compressedJson = json(format.eType);
                ExpectReadsBack([&](CTally& copy) { copy.FromJsonStream(compressedJson, DefaultCtx()); });
            }
        }
    }
}

// A gzip file holds the document's bytes whichever route AsyncToXmlFile picks, the gzip
// program restores it, and a file made by the gzip program reads back as well. Overlapped
// reading parses plain XML only, so there the compressed file is a parse error.
TEST_F(Compression, GZipFilesOfTheLibraryAndOfTheGZipProgram) {
    const std::string strPlain =
        Bytes(m_tally->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_None));
    const std::string strPlainJson =
        Bytes(m_tally->ToJsonStream(true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_None));
    for (bool bAsync : {false, true}) {
        AsyncToXmlFile(bAsync);
        const std::string strXml = Path(bAsync ? "direct.xml.gz" : "memory.xml.gz");
        const std::string strJson = Path(bAsync ? "direct.json.gz" : "memory.json.gz");
        m_tally->ToXmlFile(strXml.c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(),
                           CompressionType_GZip);
        m_tally->ToJsonFile(strJson.c_str(), true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_GZip);
        std::string strInflated;
        ASSERT_TRUE(InflateExactly(ReadFile(strXml), kGZipOnly, strInflated));
        EXPECT_EQ(strPlain, strInflated);
        ASSERT_TRUE(InflateExactly(ReadFile(strJson), kGZipOnly, strInflated));
        EXPECT_EQ(strPlainJson, strInflated);
        ExpectReadsBack([&](CTally& copy) { copy.FromXmlFile(strXml.c_str(), DefaultCtx()); });
        ExpectReadsBack([&](CTally& copy) { copy.FromJsonFile(strJson.c_str(), DefaultCtx()); });
    }
    ASSERT_EQ(0, std::system(("gzip -dc '" + Path("memory.xml.gz") + "' > '" + Path("gunzipped.xml") + "'").c_str()));
    EXPECT_EQ(strPlain, ReadFile(Path("gunzipped.xml")));

    WriteFile(Path("plain.xml"), strPlain);
    ASSERT_EQ(0, std::system(("gzip -9 '" + Path("plain.xml") + "'").c_str()));
    ExpectReadsBack([&](CTally& copy) { copy.FromXmlFile(Path("plain.xml.gz").c_str(), DefaultCtx()); });

    AsyncFromXmlFile(true);
    CSmartPtr<CTally> copy = CTally::CreateInstance();
    EXPECT_EQ("not well-formed (invalid token) at line 1",
              Thrown([&] { copy->FromXmlFile(Path("plain.xml.gz").c_str(), DefaultCtx()); }));
}

// Compressed input that is not one complete stream passes to the parser as it is, which then
// reports it.
TEST_F(Compression, DamagedCompressedInputEndsInTheParserError) {
    const std::string strGZip =
        Bytes(m_tally->ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_GZip));
    std::string strDamaged = strGZip;
    strDamaged[strDamaged.size() / 2] ^= 0x55;
    const std::string strPlain = Flat(m_tally);
    const struct {
        const char* pszName;
        std::string strInput;
        const char* pszMessage;
    } rows[] = {
        {"truncated", strGZip.substr(0, strGZip.size() - 4), "not well-formed (invalid token) at line 1"},
        {"damaged", strDamaged, "not well-formed (invalid token) at line 1"},
        {"zlib header over text", std::string("\x78\x9C", 2) + strPlain, "not well-formed (invalid token) at line 1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszName);
        CSmartPtr<CTally> copy = CTally::CreateInstance();
        EXPECT_EQ(row.pszMessage, Thrown([&] {
                      copy->FromXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(row.strInput.data())),
                                          static_cast<OxULong>(row.strInput.size()), DefaultCtx());
                  }));
    }
}

}  // namespace
