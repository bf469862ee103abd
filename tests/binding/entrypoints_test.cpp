#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

#include "bindinghelpers.h"
#include "person.h"
#include "support/testfiles.h"
#include "tally.h"

using namespace OrvexXml;
using namespace OrvexTest;
using namespace OrvexBindTest;
using namespace Samples;

namespace {

// Each character of an ASCII text as a little-endian UTF-16 code unit.
std::string Utf16Le(const std::string& ascii) {
    std::string out;
    for (char c : ascii) out += std::string(1, c) + '\0';
    return out;
}

int CountOpenDescriptors() {
    int nCount = 0;
    DIR* pDir = opendir("/proc/self/fd");
    while (readdir(pDir)) ++nCount;
    closedir(pDir);
    return nCount;
}

class EntryPoints : public ::testing::Test {
protected:
    void SetUp() override {
        char szTemplate[] = "/tmp/orvexxml-entry-XXXXXX";
        m_strDir = mkdtemp(szTemplate);
        m_person->SetName("caf\xC3\xA9 \xE2\x82\xAC");
    }
    void TearDown() override {
        AsyncToXmlFile(false);
        AsyncFromXmlFile(false);
        EXPECT_EQ(std::system(("rm -rf '" + m_strDir + "'").c_str()), 0);
    }
    std::string Path(const char* pszName) const { return m_strDir + "/" + pszName; }
    void ToFile(const std::string& strPath, XmlEncoding eEncoding = XmlEncoding_UTF8,
                CompressionType eCompression = CompressionType_None) {
        m_person->ToXmlFile(strPath.c_str(), true, true, eEncoding, EOLType_LF, DefaultCtx(), eCompression);
    }
    std::string m_strDir;
    CSmartPtr<CPerson> m_person = CPerson::CreateInstance();
};

TEST_F(EntryPoints, ExactBytesOfEachEncodingReadBackFromTheStream) {
    const std::string kUtf16Body =
        Utf16Le("<Person><Name>caf") + std::string("\xE9\x00 \x00\xAC\x20", 6) + Utf16Le("</Name></Person>");
    struct {
        XmlEncoding eEncoding;
        bool bHeader, bFormat;
        std::string strBytes;
    } rows[] = {
        {XmlEncoding_UTF8, true, true,
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Person>\n\t<Name>caf\xC3\xA9 \xE2\x82\xAC</Name>\n</Person>\n"},
        {XmlEncoding_UTF8, false, false, "<Person><Name>caf\xC3\xA9 \xE2\x82\xAC</Name></Person>"},
        // In memory UTF-16 has no byte order mark.
        {XmlEncoding_UTF16, true, false, Utf16Le("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n") + kUtf16Body},
        {XmlEncoding_UTF16NoDeclaration, true, false, Utf16Le("<?xml version=\"1.0\"?>\n") + kUtf16Body},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.eEncoding);
        CBinaryData data = m_person->ToXmlStream(row.bHeader, row.bFormat, row.eEncoding, EOLType_LF, DefaultCtx(),
                                                 CompressionType_None);
        EXPECT_EQ(Bytes(data), row.strBytes);
        CSmartPtr<CPerson> copy = CPerson::CreateInstance();
        copy->FromXmlStream(data, DefaultCtx());
        EXPECT_EQ(copy->GetName(), m_person->GetName());
    }
    // Formatted with CRLF and with or without a header, every encoding reads back as well.
    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
        for (bool bHeader : {true, false}) {
            CSmartPtr<CPerson> copy = CPerson::CreateInstance();
            copy->FromXmlStream(
                m_person->ToXmlStream(bHeader, true, eEncoding, EOLType_CRLF, DefaultCtx(), CompressionType_None),
                DefaultCtx());
            EXPECT_EQ(copy->GetName(), m_person->GetName()) << eEncoding << bHeader;
        }
    }
}

TEST_F(EntryPoints, StreamRefusals) {
    EXPECT_EQ(Thrown([&] {
                  m_person->ToXmlStream(true, true, XmlEncoding_None, EOLType_LF, DefaultCtx(), CompressionType_None);
              }),
              "Unknown Encoding, select UTF-8 (contact our support team)");
    EXPECT_EQ(Thrown([&] { m_person->FromXmlStream(CBinaryData(), DefaultCtx()); }), "XML Stream is empty!");
    // A document of a few bytes doesn't shrink, so it can't be compressed.
    EXPECT_EQ(Thrown([&] {
                  m_person->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_GZip);
              }),
              "Failed to compress data. [Error Code: 0]");
}

TEST_F(EntryPoints, BothFileRoutesWriteIdenticalFilesThatReadBack) {
    CSmartPtr<CTally> tally = CTally::CreateInstance();
    tally->SetLabel("many");
    for (int i = 0; i < 5000; ++i) tally->GetCount().Add(i * 7919);  // well past one flush
    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
        SCOPED_TRACE(eEncoding);
        for (bool bAsync : {false, true}) {
            AsyncToXmlFile(bAsync);
            tally->ToXmlFile(Path(bAsync ? "direct.xml" : "memory.xml").c_str(), true, true, eEncoding, EOLType_LF,
                             DefaultCtx(), CompressionType_None);
        }
        std::string strMemory = ReadFile(Path("memory.xml"));
        ASSERT_EQ(strMemory, ReadFile(Path("direct.xml")));
        if (eEncoding == XmlEncoding_UTF8) {
            EXPECT_EQ(strMemory.substr(0, 5), "<?xml");
        } else {  // one byte order mark, at the start of the file only
            EXPECT_EQ(strMemory.substr(0, 4), std::string("\xFF\xFE<\0", 4));
            EXPECT_EQ(strMemory.find("\xFF\xFE", 2), std::string::npos);
        }
        for (bool bAsyncRead : {false, true}) {
            AsyncFromXmlFile(bAsyncRead);
            CSmartPtr<CTally> copy = CTally::CreateInstance();
            copy->FromXmlFile(Path("direct.xml").c_str(), DefaultCtx());
            ASSERT_EQ(copy->GetCount().GetCount(), 5000);
            EXPECT_EQ(copy->GetCount().Item(4999), 4999 * 7919);
        }
    }
}

TEST_F(EntryPoints, FileFailuresGiveTheSystemCodeAndLeaveNoDescriptorOpen) {
    int nBefore = CountOpenDescriptors();
    // ZLib is refused for files before anything else, the version included.
    Register(1, 0);
    std::string message = Thrown([&] { ToFile(Path("z.xml"), XmlEncoding_UTF8, CompressionType_ZLib); });
    Register(16, 1);
    EXPECT_EQ(message, "ZLIB Compression only available for To Stream methods.");

    std::string strMissing = Path("no-such-folder/out.xml");
    std::vector<std::pair<std::string, std::string>> rows = {{strMissing, "0x00000002"}, {m_strDir, "0x00000015"}};
    // A file sysfs won't let anyone create: "permission denied", or "read-only file system" where it is mounted so.
    const std::string strDenied = "/sys/orvexxml-entry-test.xml";
    int hProbe = ::open(strDenied.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    int nError = errno;
    if (hProbe >= 0) {
        ::close(hProbe);
        ::unlink(strDenied.c_str());
    } else if (nError == EACCES || nError == EROFS) {
        rows.push_back({strDenied, nError == EACCES ? "0x0000000D" : "0x0000001E"});
    }
    for (bool bAsync : {false, true}) {
        AsyncToXmlFile(bAsync);
        for (const auto& row : rows) {
            EXPECT_EQ(Thrown([&] { ToFile(row.first); }),
                      "Failed to write data to the file [" + row.first + "] error [" + row.second + "]")
                << bAsync;
        }
    }
    for (bool bAsync : {false, true}) {
        AsyncFromXmlFile(bAsync);
        EXPECT_EQ(Thrown([&] { m_person->FromXmlFile(strMissing.c_str(), DefaultCtx()); }),
                  "Failed to open the file [" + strMissing + "] Error [0x00000002]");
    }
    EXPECT_EQ(CountOpenDescriptors(), nBefore);
}

}  // namespace
