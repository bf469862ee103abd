#include <gtest/gtest.h>

#include <string>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/xmltextwriter.h"
#include "streamtesthelpers.h"

using namespace OrvexXml;
using OrvexStreamTest::Bytes;

namespace {

class EncodedData : public ::testing::Test {
protected:
    void TearDown() override {
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
        ASCIIOnly(false);
    }
};

// A document as the writer leaves it in memory: "<t a="é">€😀ü</t>" in local text.
std::string WriteDocument(CTextStream& stream, const std::string& strAttribute, const std::string& strText) {
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    writer.SetFormatted(false);
    writer.WriteHeader();
    writer.WriteStartElement("t", "");
    writer.WriteAttribute("a", "", strAttribute, ItemType_string);
    writer.WriteElementText(strText, ItemType_string, false);
    writer.WriteEndElement();
    writer.EndDocument();
    return stream.GetText();
}

TEST_F(EncodedData, Utf8StreamOfUtf8LocalTextGivesTheSameBytes) {
    CTextStream stream(XmlEncoding_UTF8);
    WriteDocument(stream, "\xC3\xA9", "\xE2\x82\xAC\xF0\x9F\x98\x80\xC3\xBC");
    EXPECT_EQ(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<t a=\"\xC3\xA9\">\xE2\x82\xAC\xF0\x9F\x98\x80\xC3\xBC</t>",
        Bytes(stream.GetEncodedData()));
}

TEST_F(EncodedData, Utf16StreamGivesLittleEndianUnitsWithoutMark) {
    CTextStream stream(XmlEncoding_UTF16);
    stream.WriteString("<t a=\"\xC3\xA9\">\xE2\x82\xAC\xF0\x9F\x98\x80</t>");
    const std::string expected("<\0t\0 \0a\0=\0\"\0\xE9\0\"\0>\0\xAC\x20\x3D\xD8\x00\xDE<\0/\0t\0>\0", 32);
    EXPECT_EQ(expected, Bytes(stream.GetEncodedData()));

    CTextStream noDeclaration(XmlEncoding_UTF16NoDeclaration);
    noDeclaration.WriteString("<t a=\"\xC3\xA9\">\xE2\x82\xAC\xF0\x9F\x98\x80</t>");
    EXPECT_EQ(expected, Bytes(noDeclaration.GetEncodedData()));
}

TEST_F(EncodedData, HeaderNamesTheEncodingOnlyWhereItShould) {
    CTextStream utf16(XmlEncoding_UTF16);
    const std::string strUtf16 = WriteDocument(utf16, "1", "x");
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<t a=\"1\">x</t>", strUtf16);
    const CBinaryData data = utf16.GetEncodedData();
    ASSERT_EQ(strUtf16.size() * 2, data.GetLength());
    EXPECT_EQ('<', data[0]);
    EXPECT_EQ(0, data[1]);

    CTextStream noDeclaration(XmlEncoding_UTF16NoDeclaration);
    EXPECT_EQ("<?xml version=\"1.0\"?>\n<t a=\"1\">x</t>", WriteDocument(noDeclaration, "1", "x"));
}

TEST_F(EncodedData, CodePage1252TextIsConvertedToBothEncodings) {
    SetLocalCharEncoding(1252);
    CTextStream utf8(XmlEncoding_UTF8);
    WriteDocument(utf8, "\xE9", "\x80\xFC");
    EXPECT_EQ(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<t a=\"\xC3\xA9\">\xE2\x82\xAC\xC3\xBC</t>",
        Bytes(utf8.GetEncodedData()));

    CTextStream utf16(XmlEncoding_UTF16NoDeclaration);
    utf16.WriteString("<t a=\"\xE9\">\x80\xFC</t>");
    EXPECT_EQ(std::string("<\0t\0 \0a\0=\0\"\0\xE9\0\"\0>\0\xAC\x20\xFC\0<\0/\0t\0>\0", 30),
              Bytes(utf16.GetEncodedData()));
}

TEST_F(EncodedData, TextEndsAtTheFirstNullByte) {
    CTextStream stream(XmlEncoding_UTF8);
    stream.WriteString("ab\0cd", 5);
    EXPECT_EQ("ab", Bytes(stream.GetEncodedData()));
    CTextStream utf16(XmlEncoding_UTF16);
    utf16.WriteString("a\0b", 3);
    EXPECT_EQ(std::string("a\0", 2), Bytes(utf16.GetEncodedData()));
}

TEST_F(EncodedData, EmptyStreamGivesTheEmptyValue) {
    CTextStream stream(XmlEncoding_UTF8);
    EXPECT_EQ(0u, stream.GetEncodedData().GetLength());
    CTextStream utf16(XmlEncoding_UTF16);
    EXPECT_EQ(0u, utf16.GetEncodedData().GetLength());
}

TEST_F(EncodedData, LargeTextOverManyBlocksComesOutWhole) {
    CTextStream stream(XmlEncoding_UTF8);
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        const std::string piece = "<v>" + std::to_string(i) + "\xC3\xA9</v>";
        stream.WriteString(piece);
        expected += piece;
    }
    EXPECT_EQ(expected, Bytes(stream.GetEncodedData()));
    // The text is still there for a second call.
    EXPECT_EQ(expected.size(), stream.GetEncodedData().GetLength());
}

TEST_F(EncodedData, StreamWithoutEncodingHasNoByteForm) {
    CTextStream stream;
    stream.WriteString("<a/>");
    try {
        stream.GetEncodedData();
        FAIL() << "no exception";
    } catch (const COxException& e) {
        EXPECT_EQ(typeid(COxException), typeid(e));
        EXPECT_EQ("Unknown Encoding, select UTF-8 (contact our support team)", e.GetMessage());
    }
    // The text stays usable.
    EXPECT_STREQ("<a/>", stream.GetText());

    CTextStream outOfRange(static_cast<XmlEncoding>(7));
    try {
        outOfRange.GetEncodedData();
        FAIL() << "no exception";
    } catch (const COxException& e) {
        EXPECT_EQ("Unknown Encoding, select UTF-8 (contact our support team)", e.GetMessage());
    }
}

}  // namespace
