#include <gtest/gtest.h>

#include <dirent.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include <orvexxml/orvexxml.h>

#include "person.h"
#include "tally.h"

using namespace OrvexXml;
using namespace Samples;

namespace {

const CSerializationContext& DefaultCtx() { return CSerializationContext::GetDefaultContext(); }

std::string MessageOf(const std::function<void()>& fn) {
    try {
        fn();
    } catch (const COxException& e) {
        return e.GetFullMessage();
    }
    return "(no exception)";
}

std::string Bytes(const CBinaryData& data) {
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

// Each character of an ASCII text as a little-endian UTF-16 code unit.
std::string Utf16Le(const std::string& ascii) {
    std::string out;
    for (char c : ascii) {
        out += c;
        out += '\0';
    }
    return out;
}

std::string ReadFile(const std::string& strPath) {
    std::ifstream in(strPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

int CountOpenDescriptors() {
    int nCount = 0;
    DIR* pDir = opendir("/proc/self/fd");
    while (readdir(pDir)) ++nCount;
    closedir(pDir);
    return nCount;
}

CSmartPtr<CPerson> NonAsciiPerson() {
    CSmartPtr<CPerson> person = CPerson::CreateInstance();
    person->SetName("caf\xC3\xA9 \xE2\x82\xAC");
    return person;
}

class EntryPoints : public ::testing::Test {
protected:
    void SetUp() override {
        char szTemplate[] = "/tmp/orvexxml-entry-XXXXXX";
        m_strDir = mkdtemp(szTemplate);
    }
    void TearDown() override {
        AsyncToXmlFile(false);
        AsyncFromXmlFile(false);
        std::string cmd = "rm -rf '" + m_strDir + "'";
        EXPECT_EQ(std::system(cmd.c_str()), 0);
    }
    std::string Path(const char* pszName) const { return m_strDir + "/" + pszName; }
    std::string m_strDir;
};

TEST_F(EntryPoints, Utf8BytesWithAndWithoutDeclaration) {
    CSmartPtr<CPerson> person = NonAsciiPerson();
    EXPECT_EQ(Bytes(person->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_None)),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Person>\n\t<Name>caf\xC3\xA9 \xE2\x82\xAC</Name>\n</Person>\n");
    EXPECT_EQ(Bytes(person->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_None)),
              "<Person><Name>caf\xC3\xA9 \xE2\x82\xAC</Name></Person>");
}

TEST_F(EntryPoints, Utf16BytesHaveNoByteOrderMarkInMemory) {
    CSmartPtr<CPerson> person = NonAsciiPerson();
    std::string expectedBody = Utf16Le("<Person><Name>caf") + std::string("\xE9\x00 \x00\xAC\x20", 6) +
                               Utf16Le("</Name></Person>");
    EXPECT_EQ(Bytes(person->ToXmlStream(true, false, XmlEncoding_UTF16, EOLType_LF, DefaultCtx(), CompressionType_None)),
              Utf16Le("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n") + expectedBody);
    EXPECT_EQ(Bytes(person->ToXmlStream(true, false, XmlEncoding_UTF16NoDeclaration, EOLType_LF, DefaultCtx(),
                                        CompressionType_None)),
              Utf16Le("<?xml version=\"1.0\"?>\n") + expectedBody);
}

TEST_F(EntryPoints, EveryEncodingReadsBackFromBytes) {
    CSmartPtr<CPerson> person = NonAsciiPerson();
    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
        for (bool bHeader : {true, false}) {
            CBinaryData data = person->ToXmlStream(bHeader, true, eEncoding, EOLType_CRLF, DefaultCtx(),
                                                   CompressionType_None);
            CSmartPtr<CPerson> copy = CPerson::CreateInstance();
            copy->FromXmlStream(data, DefaultCtx());
            EXPECT_EQ(copy->GetName(), person->GetName()) << eEncoding << bHeader;
        }
    }
}

TEST_F(EntryPoints, StreamRefusals) {
    CSmartPtr<CPerson> person = NonAsciiPerson();
    EXPECT_EQ(MessageOf([&] {
                  person->ToXmlStream(true, true, XmlEncoding_None, EOLType_LF, DefaultCtx(), CompressionType_None);
              }),
              "Unknown Encoding, select UTF-8 (contact our support team)");
    EXPECT_EQ(MessageOf([&] { person->FromXmlStream(CBinaryData(), DefaultCtx()); }), "XML Stream is empty!");
    EXPECT_EQ(MessageOf([&] {
                  person->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(), CompressionType_GZip);
              }),
              "Compressed output is not supported by this build of the library");
}

TEST_F(EntryPoints, BothFileRoutesWriteIdenticalFilesThatReadBack) {
    CSmartPtr<CTally> tally = CTally::CreateInstance();
    tally->SetLabel("many");
    for (int i = 0; i < 5000; ++i) tally->GetCount().Add(i * 7919);  // well past one flush
    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
        AsyncToXmlFile(false);
        tally->ToXmlFile(Path("memory.xml").c_str(), true, true, eEncoding, EOLType_LF, DefaultCtx(),
                         CompressionType_None);
        AsyncToXmlFile(true);
        tally->ToXmlFile(Path("direct.xml").c_str(), true, true, eEncoding, EOLType_LF, DefaultCtx(),
                         CompressionType_None);
        std::string strMemory = ReadFile(Path("memory.xml"));
        ASSERT_EQ(strMemory, ReadFile(Path("direct.xml"))) << eEncoding;
        if (eEncoding == XmlEncoding_UTF8) {
            EXPECT_EQ(strMemory.substr(0, 5), "<?xml");
        } else {
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

TEST_F(EntryPoints, FileRefusalsAndFailuresLeaveNoDescriptorOpen) {
    CSmartPtr<CPerson> person = NonAsciiPerson();
    int nBefore = CountOpenDescriptors();
    // ZLib is refused for files before anything else, the version included.
    Register(1, 0);
    std::string message = MessageOf([&] {
        person->ToXmlFile(Path("z.xml").c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(),
                          CompressionType_ZLib);
    });
    Register(16, 1);
    EXPECT_EQ(message, "ZLIB Compression only available for To Stream methods.");

    std::string strMissing = Path("no-such-folder/out.xml");
    for (bool bAsync : {false, true}) {
        AsyncToXmlFile(bAsync);
        EXPECT_EQ(MessageOf([&] {
                      person->ToXmlFile(strMissing.c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(),
                                        CompressionType_None);
                  }),
                  "Failed to write data to the file [" + strMissing + "] error [0x00000002]")
            << bAsync;
        EXPECT_EQ(MessageOf([&] {
                      person->ToXmlFile(m_strDir.c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, DefaultCtx(),
                                        CompressionType_None);
                  }),
                  "Failed to write data to the file [" + m_strDir + "] error [0x00000015]")
            << bAsync;
    }
    EXPECT_EQ(MessageOf([&] { person->FromXmlFile(strMissing.c_str(), DefaultCtx()); }),
              "Failed to open the file [" + strMissing + "] Error [0x00000002]");
    EXPECT_EQ(CountOpenDescriptors(), nBefore);
}

}  // namespace
