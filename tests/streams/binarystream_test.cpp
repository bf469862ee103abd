#include "orvexxml/infrastructure/binarystream.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <typeinfo>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/filebinarystream.h"
#include "orvexxml/infrastructure/textencoder.h"
#include "orvexxml/infrastructure/textstream.h"
#include "streamtesthelpers.h"

using namespace OrvexXml;
using namespace OrvexStreamTest;

namespace {

const unsigned char kSample[] = {0x00, 0xFF, 0x3C, 0x80, 0x0A};

void ExpectFileError(CFileBinaryStream& stream, const std::string& strMessage) {
    try {
        stream.WriteToFile();
        ADD_FAILURE() << "no exception; expected: " << strMessage;
    } catch (const COxException& e) {
        EXPECT_EQ(typeid(COxException), typeid(e));
        EXPECT_EQ(strMessage, e.GetMessage());
    }
}

// --- memory ----------------------------------------------------------------------------------

TEST(BinaryStream, AppendFormsAddInOrder) {
    CBinaryStream stream;
    EXPECT_EQ(0u, stream.GetData().GetLength());
    stream.Append(static_cast<unsigned char>(0xE0));
    stream.Append(kSample, sizeof(kSample));
    stream.Append(CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>("xy")), 2, false));
    stream.Append(nullptr, 5);
    stream.Append(kSample, 0);
    EXPECT_EQ(std::string("\xE0\x00\xFF\x3C\x80\x0Axy", 8), Bytes(stream.GetData()));
}

TEST(BinaryStream, AppendingItsOwnContentDoublesIt) {
    CBinaryStream stream(CBinaryData("ab"));
    stream.Append(stream.GetData());
    EXPECT_EQ("abab", Bytes(stream.GetData()));
}

TEST(BinaryStream, HandedOutDataIsSharedAndKeepsItsBytes) {
    CBinaryData source("start");
    CBinaryStream stream(source);
    EXPECT_EQ(source.GetData(), stream.GetData().GetData());

    const CBinaryData first = stream.GetData();
    EXPECT_EQ(first.GetData(), stream.GetData().GetData());
    stream.Append(static_cast<unsigned char>('!'));
    EXPECT_EQ("start", Bytes(first));
    EXPECT_EQ("start", Bytes(source));
    EXPECT_EQ("start!", Bytes(stream.GetData()));
}

TEST(BinaryStream, ManySingleBytesComeOutExactly) {
    CBinaryStream stream;
    std::string expected;
    for (int i = 0; i < 100000; ++i) {
        stream.Append(static_cast<unsigned char>(i * 31));
        expected += static_cast<char>(static_cast<unsigned char>(i * 31));
    }
    EXPECT_EQ(expected, Bytes(stream.GetData()));
}

// --- file ------------------------------------------------------------------------------------

class FileBinaryStream : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_folder.IsValid()); }
    CScratchFolder m_folder;
};

TEST_F(FileBinaryStream, WritesTheBytesAsTheyAreBehindAMarkForUtf16) {
    const CBinaryData data(const_cast<unsigned char*>(kSample), sizeof(kSample), false);
    const std::string strBytes(reinterpret_cast<const char*>(kSample), sizeof(kSample));
    const struct {
        XmlEncoding eEncoding;
        const char* pszMark;
    } cases[] = {{XmlEncoding_None, ""},
                 {XmlEncoding_UTF8, ""},
                 {XmlEncoding_UTF16, "\xFF\xFE"},
                 {XmlEncoding_UTF16NoDeclaration, "\xFF\xFE"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.eEncoding));
        const std::string strPath = m_folder.Path("out.bin");
        WriteFile(strPath, std::string(100, 'z'));  // a longer file is truncated
        CFileBinaryStream stream(strPath.c_str(), c.eEncoding, data);
        stream.WriteToFile();
        EXPECT_EQ(c.pszMark + strBytes, ReadFile(strPath));
    }
}

TEST_F(FileBinaryStream, EmptyContentGivesAnEmptyFileOrTheMarkAlone) {
    const std::string strPath = m_folder.Path("empty.xml");
    CFileBinaryStream utf8(strPath.c_str(), XmlEncoding_UTF8);
    utf8.WriteToFile();
    EXPECT_EQ(0, FileSize(strPath));
    CFileBinaryStream utf16(strPath.c_str(), XmlEncoding_UTF16);
    utf16.WriteToFile();
    EXPECT_EQ("\xFF\xFE", ReadFile(strPath));
}

TEST_F(FileBinaryStream, AppendedContentIsWrittenAndTheStreamCanWriteAgain) {
    const std::string strPath = m_folder.Path("appended.xml");
    CFileBinaryStream stream(strPath.c_str(), XmlEncoding_UTF8);
    stream.Append(kSample, 2);
    stream.WriteToFile();
    EXPECT_EQ(std::string("\x00\xFF", 2), ReadFile(strPath));
    stream.Append(static_cast<unsigned char>('x'));
    stream.WriteToFile();
    EXPECT_EQ(std::string("\x00\xFFx", 3), ReadFile(strPath));
}

TEST_F(FileBinaryStream, EncodedDocumentOfTheMemoryRouteReachesTheFileWhole) {
    CTextStream memory(XmlEncoding_UTF16);
    std::string strText;
    for (int i = 0; i < 300000; ++i) strText += "<v>\xC3\xA9\xF0\x9F\x98\x80</v>";
    memory.WriteString(strText);
    const CBinaryData encoded = memory.GetEncodedData();
    const std::string strPath = m_folder.Path("large.xml");
    CFileBinaryStream stream(strPath.c_str(), XmlEncoding_UTF16, encoded);
    stream.WriteToFile();
    const std::string strFile = ReadFile(strPath);
    ASSERT_EQ(2u + encoded.GetLength(), strFile.size());
    EXPECT_TRUE(strFile == "\xFF\xFE" + Bytes(encoded));
    EXPECT_EQ(std::string("\xFF\xFE<\0v\0>\0\xE9\0\x3D\xD8\x00\xDE<\0", 16), strFile.substr(0, 16));
}

TEST_F(FileBinaryStream, FailuresTellTheFileAndTheSystemCodeAndLeaveNoDescriptor) {
    WriteFile(m_folder.Path("plain"), "x");
    ASSERT_EQ(0, ::mkdir(m_folder.Path("folder").c_str(), 0755));
    const int nDescriptors = OpenDescriptors();
    const struct {
        std::string strPath;
        const char* pszCode;
    } cases[] = {
        {m_folder.Path("missing/doc.xml"), "0x00000002"},
        {m_folder.Path("plain/doc.xml"), "0x00000014"},
        {m_folder.Path("folder"), "0x00000015"},
        {"/dev/full", "0x0000001C"},  // opens, but every write fails: no space left
    };
    for (const auto& c : cases) {
        for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16}) {
            CFileBinaryStream stream(c.strPath.c_str(), eEncoding, CBinaryData("<a/>"));
            ExpectFileError(stream, "Failed to write data to the file [" + c.strPath + "] error [" + c.pszCode + "]");
            EXPECT_EQ(nDescriptors, OpenDescriptors()) << c.strPath;
        }
    }
}

}  // namespace
