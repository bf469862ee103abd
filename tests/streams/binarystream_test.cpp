#include "orvexxml/infrastructure/binarystream.h"

#include <gtest/gtest.h>

#include <string>

#include "orvexxml/infrastructure/filebinarystream.h"
#include "orvexxml/infrastructure/textstream.h"
#include "streamtesthelpers.h"

using namespace OrvexXml;
using namespace OrvexStreamTest;

namespace {

const unsigned char kSample[] = {0x00, 0xFF, 0x3C, 0x80, 0x0A};
const std::string kSampleBytes(reinterpret_cast<const char*>(kSample), sizeof(kSample));

TEST(BinaryStream, AppendFormsAddInOrderAndItsOwnContentDoublesIt) {
    CBinaryStream stream;
    EXPECT_EQ(0u, stream.GetData().GetLength());
    stream.Append(static_cast<unsigned char>(0xE0));
    stream.Append(kSample, sizeof(kSample));
    stream.Append(CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>("xy")), 2, false));
    stream.Append(nullptr, 5);
    stream.Append(kSample, 0);
    EXPECT_EQ("\xE0" + kSampleBytes + "xy", Bytes(stream.GetData()));
    stream.Append(stream.GetData());
    std::string expected = "\xE0" + kSampleBytes + "xy\xE0" + kSampleBytes + "xy";
    EXPECT_EQ(expected, Bytes(stream.GetData()));
    for (int i = 0; i < 100000; ++i) {
        stream.Append(static_cast<unsigned char>(i * 31));
        expected += static_cast<char>(i * 31);
    }
    EXPECT_EQ(expected, Bytes(stream.GetData()));
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

using FileBinaryStream = StreamTest;

TEST_F(FileBinaryStream, WritesTheBytesAsTheyAreBehindAMarkForUtf16) {
    const CBinaryData sample(const_cast<unsigned char*>(kSample), sizeof(kSample), false);
    const struct {
        XmlEncoding eEncoding;
        CBinaryData data;
        std::string strFile;
    } cases[] = {{XmlEncoding_None, sample, kSampleBytes},
                 {XmlEncoding_UTF8, sample, kSampleBytes},
                 {XmlEncoding_UTF16, sample, "\xFF\xFE" + kSampleBytes},
                 {XmlEncoding_UTF16NoDeclaration, sample, "\xFF\xFE" + kSampleBytes},
                 {XmlEncoding_UTF8, CBinaryData(), ""},
                 {XmlEncoding_UTF16, CBinaryData(), "\xFF\xFE"}};
    const std::string strPath = Path("out.bin");
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.eEncoding));
        WriteFile(strPath, std::string(100, 'z'));  // a longer file is truncated
        CFileBinaryStream stream(strPath.c_str(), c.eEncoding, c.data);
        stream.WriteToFile();
        EXPECT_EQ(static_cast<long long>(c.strFile.size()), FileSize(strPath));
        EXPECT_EQ(c.strFile, ReadFile(strPath));
    }
}

TEST_F(FileBinaryStream, AppendedContentIsWrittenAndTheStreamCanWriteAgain) {
    const std::string strPath = Path("appended.xml");
    CFileBinaryStream stream(strPath.c_str(), XmlEncoding_UTF8);
    stream.Append(kSample, 2);
    stream.WriteToFile();
    EXPECT_EQ(kSampleBytes.substr(0, 2), ReadFile(strPath));
    stream.Append(static_cast<unsigned char>('x'));
    stream.WriteToFile();
    EXPECT_EQ(kSampleBytes.substr(0, 2) + "x", ReadFile(strPath));
}

TEST_F(FileBinaryStream, LargeEncodedDocumentReachesTheFileWhole) {
    CTextStream memory(XmlEncoding_UTF16);
    std::string strExpected = "\xFF\xFE";
    for (int i = 0; i < 300000; ++i) {
        memory.WriteString("<v>\xC3\xA9\xF0\x9F\x98\x80</v>");
        strExpected += Utf16Le(u"<v>\u00E9\U0001F600</v>");
    }
    const std::string strPath = Path("large.xml");
    CFileBinaryStream stream(strPath.c_str(), XmlEncoding_UTF16, memory.GetEncodedData());
    stream.WriteToFile();
    EXPECT_TRUE(strExpected == ReadFile(strPath));
}

}  // namespace
