#include "orvexxml/infrastructure/textencoder.h"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <string>
#include <vector>

#include "orvexxml/infrastructure/codepage.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/xmltextwriter.h"
#include "streamtesthelpers.h"

using namespace OrvexXml;
using namespace OrvexStreamTest;

namespace {

using TextEncoder = StreamTest;
using EncodedData = StreamTest;

// a, e acute, euro sign, grinning face (U+1F600, a surrogate pair in UTF-16), z.
const char kMixedUtf8[] = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";

// --- UTF-16 and wide text to UTF-8 ---------------------------------------------------------

TEST_F(TextEncoder, Utf16ToUtf8EncodesEveryLengthClassAtItsBoundaries) {
    const char16_t text[] = {u'A', 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0xD800, 0xDC00, 0xDBFF, 0xDFFF, 0};
    EXPECT_EQ("A\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
              Bytes(Utf16ToUtf8(text)));
    EXPECT_EQ(kMixedUtf8, Bytes(Utf16ToUtf8(u"a\u00E9\u20AC\U0001F600z")));
    EXPECT_EQ("<a x=\"1\">\ttext</a>\r\n", Bytes(Utf16ToUtf8(u"<a x=\"1\">\ttext</a>\r\n")));
    // The counted form converts null units and ends at its length, even inside a pair.
    const char16_t counted[] = {u'a', 0, u'\u00E9', u'b'};
    EXPECT_EQ(std::string("a\0\xC3\xA9", 4), Bytes(Utf16ToUtf8(counted, 3)));
    const char16_t pair[] = {u'a', 0xD83D, 0xDE00};
    EXPECT_EQ("a", Bytes(Utf16ToUtf8(pair, 2)));
    EXPECT_EQ("a\xF0\x9F\x98\x80", Bytes(Utf16ToUtf8(pair, 3)));
    for (const CBinaryData& empty : {Utf16ToUtf8(u""), Utf16ToUtf8(static_cast<const char16_t*>(nullptr)),
                                     Utf16ToUtf8(u"abc", 0), Utf16ToUtf8(L"")}) {
        EXPECT_EQ(0u, empty.GetLength());
    }
}

TEST_F(TextEncoder, Utf16ToUtf8StopsAtAnUnpairedSurrogate) {
    const struct {
        std::vector<char16_t> units;
        const char* pszUtf8;
    } cases[] = {{{u'a', u'\u00E9', 0xD83D, u'b', u'c', 0}, "a\xC3\xA9"},  // lone high
                 {{u'a', 0xDE00, 0xD83D, 0xDE00, 0}, "a"},                 // lone low
                 {{u'a', 0xDC00, 0xDC00, u'b', 0}, "a"},
                 {{u'a', 0xD800, 0xD800, 0xDC00, 0}, "a"},
                 {{u'x', u'y', 0xD83D, 0}, "xy"},  // high at the end
                 {{0xDC00, u'a', 0}, ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszUtf8);
        EXPECT_EQ(c.pszUtf8, Bytes(Utf16ToUtf8(c.units.data())));
    }
    // Nothing before the surrogate: the empty value.
    const char16_t first[] = {0xDC00, u'a', 0};
    EXPECT_EQ(nullptr, Utf16ToUtf8(first).GetData());
}

TEST_F(TextEncoder, WideFormTakesUtf32AndPairsAndStopsAtWhatIsNoCharacter) {
    const struct {
        std::vector<wchar_t> text;
        const char* pszUtf8;
    } cases[] = {{{L'a', 0xE9, 0x20AC, 0x1F600, L'z', 0}, kMixedUtf8},
                 {{0x10FFFF, 0}, "\xF4\x8F\xBF\xBF"},
                 {{L'a', 0xD83D, 0xDE00, L'x', 0}, "a\xF0\x9F\x98\x80x"},  // UTF-16 units in wide characters
                 {{L'a', 0xD800, L'b', 0}, "a"},
                 {{L'a', L'b', 0xDFFF, L'c', 0}, "ab"},
                 {{0xE9, 0x110000, L'c', 0}, "\xC3\xA9"},
                 {{L'x', static_cast<wchar_t>(-1), 0}, "x"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszUtf8);
        EXPECT_EQ(c.pszUtf8, Bytes(Utf16ToUtf8(c.text.data())));
    }
}

// --- local text to UTF-8 and UTF-16 --------------------------------------------------------

TEST_F(TextEncoder, Utf8LocalTextIsCopiedToUtf8AndDecodedToUtf16) {
    EXPECT_EQ(kMixedUtf8, Bytes(LocalToUtf8(kMixedUtf8)));
    // No decoder runs for UTF-8, so bytes that are no UTF-8 go out unchanged.
    EXPECT_EQ("a\xFF\xC3", Bytes(LocalToUtf8("a\xFF\xC3")));
    EXPECT_EQ(std::string("a\0\xC3\xA9", 4), Bytes(LocalToUtf8("a\0\xC3\xA9xyz", 4)));

    EXPECT_EQ(Utf16Le(u"a\u00E9\u20AC\U0001F600z"), Bytes(LocalToUtf16(kMixedUtf8)));
    EXPECT_EQ(std::string("<\0a\0/\0>\0", 8), Bytes(LocalToUtf16("<a/>")));
    EXPECT_EQ(std::string("a\0\0\0\xE9\0", 6), Bytes(LocalToUtf16("a\0\xC3\xA9", 4)));
    // Each maximal ill-formed part becomes one U+FFFD.
    EXPECT_EQ(Utf16Le(u"a\uFFFDz\uFFFD"), Bytes(LocalToUtf16("a\xFFz\xE2\x82")));
    for (const CBinaryData& empty : {LocalToUtf8(""), LocalToUtf8(nullptr), LocalToUtf16(""), LocalToUtf16(nullptr)}) {
        EXPECT_EQ(0u, empty.GetLength());
    }
}

TEST_F(TextEncoder, CodePage1252IsConvertedAndOnlyUtf8HeedsTheAsciiSwitch) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ("caf\xC3\xA9 \xE2\x82\xAC 5 \xC2\xBD", Bytes(LocalToUtf8("caf\xE9 \x80 5 \xBD")));
    EXPECT_EQ("plain <ascii/>", Bytes(LocalToUtf8("plain <ascii/>")));
    EXPECT_EQ(std::string("\xC3\xBF\0\xC3\xA9", 5), Bytes(LocalToUtf8("\xFF\0\xE9", 3)));
    EXPECT_EQ(Utf16Le(u"caf\u00E9 \u20AC"), Bytes(LocalToUtf16("caf\xE9 \x80")));
    ASCIIOnly(true);
    EXPECT_EQ("caf\xE9", Bytes(LocalToUtf8("caf\xE9")));
    EXPECT_EQ(std::string("\xE9\0\xAC\x20", 4), Bytes(LocalToUtf16("\xE9\x80")));
}

TEST_F(TextEncoder, LocalToUtf16DecodesUtf8AsTheCodePageConverterDoes) {
    // Byte strings of lead bytes, trail bytes and 7-bit runs in random order, well-formed or
    // not, against the library's converter of the UTF-8 code page.
    const unsigned char pool[] = {'a',  'Z',  ' ',  0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1,
                                  0xC2, 0xDF, 0xE0, 0xE1, 0xED, 0xEE, 0xEF, 0xF0, 0xF3, 0xF4, 0xF5, 0xFF};
    unsigned int nSeed = 12345;
    for (int nCase = 0; nCase < 3000; ++nCase) {
        std::string strText(nCase % 3 == 0 ? nCase % 17 : 0, 'x');  // sometimes after a 7-bit run
        for (int i = 0; i < 1 + nCase % 23; ++i) {
            nSeed = nSeed * 1103515245u + 12345u;
            strText += static_cast<char>(pool[(nSeed >> 16) % sizeof(pool)]);
        }
        ASSERT_EQ(Utf16Le(CCodePage::ToUtf16(ORVEXXML_CP_UTF8, strText.data(), strText.size())),
                  Bytes(LocalToUtf16(strText.data(), strText.size())))
            << "case " << nCase << ": "
            << CBinaryData::GetAsHexString(reinterpret_cast<const unsigned char*>(strText.data()),
                                           static_cast<OxULong>(strText.size()));
    }
}

// Text of 4 GiB and more without the memory: address space that may not be touched beyond its
// first page, so the conversions must refuse a result that a CBinaryData can't hold from its
// measured length, before they read, copy or allocate anything for it.
TEST_F(TextEncoder, ResultsPastFourGiBOverflowBeforeTheTextIsRead) {
    const size_t kPage = 4096;
    const size_t kSize = (size_t(1) << 32) + kPage;
    void* pMap = ::mmap(nullptr, kSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(MAP_FAILED, pMap);
    ASSERT_EQ(0, ::mprotect(pMap, kPage, PROT_READ | PROT_WRITE));
    char* pText = static_cast<char*>(pMap);
    pText[0] = '\x80';  // not 7-bit: the code page route gives up its search for an ASCII run here

    const std::string strFourGiB =
        "Data of 4294967296 bytes are too long for a binary buffer, which holds at most 4294967295 bytes";
    // Local UTF-8 goes out as it is: 2^32 bytes.
    ExpectOxException([&]() { LocalToUtf8(pText, size_t(1) << 32); }, strFourGiB, typeid(COxOverFlowException));
    // A single-byte code page gives two bytes per character: 2^31 characters are 2^32 bytes.
    SetLocalCharEncoding(1252);
    ExpectOxException([&]() { LocalToUtf16(pText, size_t(1) << 31); }, strFourGiB, typeid(COxOverFlowException));
    EXPECT_EQ(0, ::munmap(pMap, kSize));
}

TEST_F(TextEncoder, NonAsciiByteIsFoundAtEveryPositionOfALongRun) {
    for (size_t nOffset = 0; nOffset < 20; ++nOffset) {
        SCOPED_TRACE(nOffset);
        const std::string strRun(nOffset, 'a'), strTail(11, 'b');
        const std::string strUtf16 = Utf16Le(std::u16string(nOffset, u'a') + u"\u00E9" + std::u16string(11, u'b'));
        EXPECT_EQ(strUtf16, Bytes(LocalToUtf16((strRun + "\xC3\xA9" + strTail).c_str())));
        SetLocalCharEncoding(1252);
        EXPECT_EQ(strRun + "\xC3\xA9" + strTail, Bytes(LocalToUtf8((strRun + "\xE9" + strTail).c_str())));
        EXPECT_EQ(strUtf16, Bytes(LocalToUtf16((strRun + "\xE9" + strTail).c_str())));
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
    }
}

TEST_F(TextEncoder, SingleByteCodePagesAgreeWithTheCodePageConverterOnEveryByte) {
    std::string strAll;
    for (int b = 1; b < 256; ++b) strAll += static_cast<char>(b);
    for (unsigned int nCodePage : {1251u, 1252u, 28591u, 20127u}) {
        SCOPED_TRACE(nCodePage);
        SetLocalCharEncoding(nCodePage);
        const std::u16string units = CCodePage::ToUtf16(nCodePage, strAll.data(), strAll.size());
        EXPECT_EQ(Utf16Le(units), Bytes(LocalToUtf16(strAll.c_str())));
        EXPECT_EQ(Bytes(Utf16ToUtf8(units.data(), units.size())), Bytes(LocalToUtf8(strAll.c_str())));
    }
    SetLocalCharEncoding(1251);
    EXPECT_EQ("\xD0\x9F\xD1\x80\xD0\xB8 ok", Bytes(LocalToUtf8("\xCF\xF0\xE8 ok")));
    EXPECT_EQ(std::string("\x1F\x04\x40\x04\x38\x04", 6), Bytes(LocalToUtf16("\xCF\xF0\xE8")));
    // A double-byte code page converts whole sequences: hiragana A (U+3042), then a kanji
    // whose second byte is the 7-bit "\\" (U+8868).
    SetLocalCharEncoding(932);
    EXPECT_EQ("<\xE3\x81\x82\xE8\xA1\xA8>", Bytes(LocalToUtf8("<\x82\xA0\x95\x5C>")));
    EXPECT_EQ(std::string("<\0\x42\x30\x68\x88>\0", 8), Bytes(LocalToUtf16("<\x82\xA0\x95\x5C>")));
}

// --- the byte form of a text stream ------------------------------------------------------

// A document as the writer leaves it in memory, with its header and text that is not all ASCII.
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

TEST_F(EncodedData, DocumentGivesTheExactBytesOfEachEncoding) {
    // The units spelled out byte by byte: little-endian, no mark, no terminator.
    CTextStream utf16(XmlEncoding_UTF16);
    utf16.WriteString("<t a=\"\xC3\xA9\">\xE2\x82\xAC\xF0\x9F\x98\x80</t>");
    EXPECT_EQ(std::string("<\0t\0 \0a\0=\0\"\0\xE9\0\"\0>\0\xAC\x20\x3D\xD8\x00\xDE<\0/\0t\0>\0", 32),
              Bytes(utf16.GetEncodedData()));
    const struct {
        XmlEncoding eEncoding;
        std::string strHeader;
    } cases[] = {{XmlEncoding_UTF8, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"},
                 {XmlEncoding_UTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"},
                 {XmlEncoding_UTF16NoDeclaration, "<?xml version=\"1.0\"?>\n"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.strHeader);
        CTextStream stream(c.eEncoding);
        const std::string strText = c.strHeader + "<t a=\"\xC3\xA9\">\xE2\x82\xAC\xF0\x9F\x98\x80\xC3\xBC</t>";
        EXPECT_EQ(strText, WriteDocument(stream, "\xC3\xA9", "\xE2\x82\xAC\xF0\x9F\x98\x80\xC3\xBC"));
        const std::u16string strUnits =
            std::u16string(c.strHeader.begin(), c.strHeader.end()) + u"<t a=\"\u00E9\">\u20AC\U0001F600\u00FC</t>";
        EXPECT_EQ(c.eEncoding == XmlEncoding_UTF8 ? strText : Utf16Le(strUnits), Bytes(stream.GetEncodedData()));
    }
    // Local text of code page 1252 is converted: e acute, euro sign, u umlaut.
    SetLocalCharEncoding(1252);
    CTextStream stream(XmlEncoding_UTF8);
    WriteDocument(stream, "\xE9", "\x80\xFC");
    EXPECT_EQ(cases[0].strHeader + "<t a=\"\xC3\xA9\">\xE2\x82\xAC\xC3\xBC</t>", Bytes(stream.GetEncodedData()));
}

TEST_F(EncodedData, LargeTextOverManyBlocksComesOutWholeAndStays) {
    CTextStream stream(XmlEncoding_UTF8);
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        const std::string piece = "<v>" + std::to_string(i) + "\xC3\xA9</v>";
        stream.WriteString(piece);
        expected += piece;
    }
    EXPECT_EQ(expected, Bytes(stream.GetEncodedData()));
    EXPECT_EQ(expected, Bytes(stream.GetEncodedData()));
}

TEST_F(EncodedData, TextEndsAtTheFirstNullByteAndAnUnknownEncodingHasNoByteForm) {
    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16}) {
        CTextStream stream(eEncoding);
        EXPECT_EQ(0u, stream.GetEncodedData().GetLength());
        stream.WriteString("a\0b", 3);
        EXPECT_EQ(eEncoding == XmlEncoding_UTF8 ? "a" : std::string("a\0", 2), Bytes(stream.GetEncodedData()));
    }
    for (XmlEncoding eEncoding : {XmlEncoding_None, static_cast<XmlEncoding>(7)}) {
        CTextStream stream(eEncoding);
        stream.WriteString("<a/>");
        ExpectOxException([&]() { stream.GetEncodedData(); },
                          "Unknown Encoding, select UTF-8 (contact our support team)");
        EXPECT_STREQ("<a/>", stream.GetText());  // the text stays usable
    }
}

}  // namespace
