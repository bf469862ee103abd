#include "orvexxml/infrastructure/textencoder.h"

#include <gtest/gtest.h>

#include <string>

#include "orvexxml/infrastructure/codepage.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "streamtesthelpers.h"

using namespace OrvexXml;
using OrvexStreamTest::Bytes;

namespace {

// Each test leaves the default local encoding behind, which the other tests rely on.
class TextEncoder : public ::testing::Test {
protected:
    void TearDown() override {
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
        ASCIIOnly(false);
    }
};

// a, e acute, euro sign, grinning face (U+1F600, a surrogate pair in UTF-16), z.
const char kMixedUtf8[] = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";
const char kMixedUtf16Le[] =
    "a\0\xE9\0\xAC\x20\x3D\xD8\x00\xDE"
    "z\0";

// --- UTF-16 to UTF-8 -------------------------------------------------------------------------

TEST_F(TextEncoder, Utf16ToUtf8EncodesEveryLengthClassAtItsBoundaries) {
    const char16_t text[] = {u'A', 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0xD800, 0xDC00, 0xDBFF, 0xDFFF, 0};
    EXPECT_EQ(std::string("A\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
              Bytes(Utf16ToUtf8(text)));
    EXPECT_EQ(std::string(kMixedUtf8), Bytes(Utf16ToUtf8(u"a\u00E9\u20AC\U0001F600z")));
}

TEST_F(TextEncoder, Utf16ToUtf8OfAsciiTextIsTheNarrowedUnits) {
    const CBinaryData result = Utf16ToUtf8(u"<a x=\"1\">\ttext</a>\r\n");
    EXPECT_EQ("<a x=\"1\">\ttext</a>\r\n", Bytes(result));
}

TEST_F(TextEncoder, Utf16ToUtf8StopsAtAnUnpairedSurrogate) {
    const char16_t loneHigh[] = {u'a', u'\u00E9', 0xD83D, u'b', u'c', 0};
    EXPECT_EQ("a\xC3\xA9", Bytes(Utf16ToUtf8(loneHigh)));
    const char16_t loneLow[] = {u'a', 0xDE00, 0xD83D, 0xDE00, 0};
    EXPECT_EQ("a", Bytes(Utf16ToUtf8(loneLow)));
    const char16_t twoLows[] = {u'a', 0xDC00, 0xDC00, u'b', 0};
    EXPECT_EQ("a", Bytes(Utf16ToUtf8(twoLows)));
    const char16_t twoHighs[] = {u'a', 0xD800, 0xD800, 0xDC00, 0};
    EXPECT_EQ("a", Bytes(Utf16ToUtf8(twoHighs)));
    const char16_t highAtEnd[] = {u'x', u'y', 0xD83D, 0};
    EXPECT_EQ("xy", Bytes(Utf16ToUtf8(highAtEnd)));
    // Nothing before the surrogate: the empty value.
    const char16_t first[] = {0xDC00, u'a', 0};
    const CBinaryData empty = Utf16ToUtf8(first);
    EXPECT_EQ(0u, empty.GetLength());
    EXPECT_EQ(nullptr, empty.GetData());
}

TEST_F(TextEncoder, Utf16ToUtf8CountedFormConvertsNullUnitsAndEndsAtItsLength) {
    const char16_t text[] = {u'a', 0, u'\u00E9', u'b', u'c'};
    EXPECT_EQ(std::string("a\0\xC3\xA9", 4), Bytes(Utf16ToUtf8(text, 3)));
    // A pair cut by the length is an unpaired surrogate.
    const char16_t pair[] = {u'a', 0xD83D, 0xDE00};
    EXPECT_EQ("a", Bytes(Utf16ToUtf8(pair, 2)));
    EXPECT_EQ("a\xF0\x9F\x98\x80", Bytes(Utf16ToUtf8(pair, 3)));
}

TEST_F(TextEncoder, Utf16ToUtf8OfNothingIsTheEmptyValue) {
    EXPECT_EQ(0u, Utf16ToUtf8(u"").GetLength());
    EXPECT_EQ(0u, Utf16ToUtf8(static_cast<const char16_t*>(nullptr)).GetLength());
    EXPECT_EQ(0u, Utf16ToUtf8(u"abc", 0).GetLength());
    EXPECT_EQ(0u, Utf16ToUtf8(L"").GetLength());
}

TEST_F(TextEncoder, WideFormTakesUtf32CharactersAndSurrogatePairs) {
    EXPECT_EQ(std::string(kMixedUtf8), Bytes(Utf16ToUtf8(L"a\u00E9\u20AC\U0001F600z")));
    EXPECT_EQ("\xF4\x8F\xBF\xBF", Bytes(Utf16ToUtf8(L"\U0010FFFF")));
    // UTF-16 units carried in wide characters.
    const wchar_t pair[] = {L'a', 0xD83D, 0xDE00, L'b', 0};
    EXPECT_EQ(
        "a\xF0\x9F\x98\x80"
        "b",
        Bytes(Utf16ToUtf8(pair)));
}

TEST_F(TextEncoder, WideFormStopsAtALoneSurrogateAndBeyondUnicode) {
    const wchar_t loneHigh[] = {L'a', 0xD800, L'b', 0};
    EXPECT_EQ("a", Bytes(Utf16ToUtf8(loneHigh)));
    const wchar_t loneLow[] = {L'a', L'b', 0xDFFF, L'c', 0};
    EXPECT_EQ("ab", Bytes(Utf16ToUtf8(loneLow)));
    const wchar_t tooLarge[] = {L'\u00E9', 0x110000, L'c', 0};
    EXPECT_EQ("\xC3\xA9", Bytes(Utf16ToUtf8(tooLarge)));
    const wchar_t negative[] = {L'x', static_cast<wchar_t>(-1), 0};
    EXPECT_EQ("x", Bytes(Utf16ToUtf8(negative)));
}

// --- local text to UTF-8 ---------------------------------------------------------------------

TEST_F(TextEncoder, LocalToUtf8WithTheUtf8CodePageCopiesTheBytes) {
    EXPECT_EQ(std::string(kMixedUtf8), Bytes(LocalToUtf8(kMixedUtf8)));
    // No decoder runs, so bytes that are no UTF-8 go out unchanged.
    EXPECT_EQ("a\xFF\xC3", Bytes(LocalToUtf8("a\xFF\xC3")));
    // The counted form takes null bytes along.
    EXPECT_EQ(std::string("a\0\xC3\xA9", 4), Bytes(LocalToUtf8("a\0\xC3\xA9xyz", 4)));
    EXPECT_EQ(0u, LocalToUtf8("").GetLength());
    EXPECT_EQ(0u, LocalToUtf8(nullptr).GetLength());
}

TEST_F(TextEncoder, LocalToUtf8ConvertsThroughCodePage1252) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ("caf\xC3\xA9 \xE2\x82\xAC 5 \xC2\xBD", Bytes(LocalToUtf8("caf\xE9 \x80 5 \xBD")));
    EXPECT_EQ("plain <ascii/>", Bytes(LocalToUtf8("plain <ascii/>")));
    EXPECT_EQ(std::string("\xC3\xBF\0\xC3\xA9", 5), Bytes(LocalToUtf8("\xFF\0\xE9", 3)));
}

TEST_F(TextEncoder, LocalToUtf8WithTheAsciiSwitchCopiesWhateverTheCodePage) {
    SetLocalCharEncoding(1252);
    ASCIIOnly(true);
    EXPECT_EQ("caf\xE9", Bytes(LocalToUtf8("caf\xE9")));
}

// --- local text to UTF-16 --------------------------------------------------------------------

TEST_F(TextEncoder, LocalToUtf16GivesLittleEndianUnitsWithoutMarkOrTerminator) {
    EXPECT_EQ(std::string(kMixedUtf16Le, sizeof(kMixedUtf16Le) - 1), Bytes(LocalToUtf16(kMixedUtf8)));
    EXPECT_EQ(std::string("<\0a\0/\0>\0", 8), Bytes(LocalToUtf16("<a/>")));
    EXPECT_EQ(std::string("a\0\0\0\xE9\0", 6), Bytes(LocalToUtf16("a\0\xC3\xA9", 4)));
    EXPECT_EQ(0u, LocalToUtf16("").GetLength());
    EXPECT_EQ(0u, LocalToUtf16(nullptr).GetLength());
}

TEST_F(TextEncoder, LocalToUtf16ReplacesInvalidUtf8) {
    // Each maximal ill-formed part becomes one U+FFFD.
    EXPECT_EQ(std::string("a\0\xFD\xFF"
                          "b\0\xFD\xFF",
                          8),
              Bytes(LocalToUtf16("a\xFF"
                                 "b\xE2\x82")));
}

TEST_F(TextEncoder, LocalToUtf16DecodesUtf8AsTheCodePageConverterDoes) {
    // Byte strings of lead bytes, trail bytes and 7-bit runs in random order, well-formed or
    // not, against the library's converter of the UTF-8 code page.
    const unsigned char pool[] = {'a',  'Z',  ' ',  0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1,
                                  0xC2, 0xDF, 0xE0, 0xE1, 0xED, 0xEE, 0xEF, 0xF0, 0xF3, 0xF4, 0xF5, 0xFF};
    unsigned int nSeed = 12345;
    for (int nCase = 0; nCase < 3000; ++nCase) {
        std::string strText;
        const int nLength = 1 + nCase % 23;
        for (int i = 0; i < nLength; ++i) {
            nSeed = nSeed * 1103515245u + 12345u;
            strText += static_cast<char>(pool[(nSeed >> 16) % sizeof(pool)]);
        }
        if (nCase % 3 == 0) strText = std::string(nCase % 17, 'x') + strText;  // after a 7-bit run
        const std::u16string units = CCodePage::ToUtf16(ORVEXXML_CP_UTF8, strText.data(), strText.size());
        std::string strExpected;
        for (char16_t u : units) {
            strExpected += static_cast<char>(u & 0xFF);
            strExpected += static_cast<char>(u >> 8);
        }
        ASSERT_EQ(strExpected, Bytes(LocalToUtf16(strText.data(), strText.size())))
            << "case " << nCase << ": "
            << CBinaryData::GetAsHexString(reinterpret_cast<const unsigned char*>(strText.data()),
                                           static_cast<OxULong>(strText.size()));
    }
}

TEST_F(TextEncoder, NonAsciiByteIsFoundAtEveryPositionOfALongRun) {
    for (size_t nOffset = 0; nOffset < 20; ++nOffset) {
        SCOPED_TRACE(nOffset);
        const std::string strRun(nOffset, 'a');
        const std::string strTail(11, 'b');
        std::string strUtf16;
        for (char c : strRun) strUtf16 += std::string(1, c) + '\0';
        strUtf16 += std::string("\xE9\0", 2);
        for (char c : strTail) strUtf16 += std::string(1, c) + '\0';
        EXPECT_EQ(strUtf16, Bytes(LocalToUtf16((strRun + "\xC3\xA9" + strTail).c_str())));

        SetLocalCharEncoding(1252);
        EXPECT_EQ(strRun + "\xC3\xA9" + strTail, Bytes(LocalToUtf8((strRun + "\xE9" + strTail).c_str())));
        EXPECT_EQ(strUtf16, Bytes(LocalToUtf16((strRun + "\xE9" + strTail).c_str())));
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
    }
}

TEST_F(TextEncoder, LocalToUtf16ConvertsThroughCodePage1252) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ(std::string("c\0a\0f\0\xE9\0 \0\xAC\x20", 12), Bytes(LocalToUtf16("caf\xE9 \x80")));
}

TEST_F(TextEncoder, LocalToUtf16IgnoresTheAsciiSwitch) {
    SetLocalCharEncoding(1252);
    ASCIIOnly(true);
    EXPECT_EQ(std::string("\xE9\0\xAC\x20", 4), Bytes(LocalToUtf16("\xE9\x80")));
}

TEST_F(TextEncoder, SingleByteCodePagesAgreeWithTheCodePageConverterOnEveryByte) {
    for (unsigned int nCodePage : {1251u, 1252u, 28591u, 20127u}) {
        SCOPED_TRACE(nCodePage);
        SetLocalCharEncoding(nCodePage);
        std::string strAll;
        for (int b = 1; b < 256; ++b) strAll += static_cast<char>(b);
        const std::u16string units = CCodePage::ToUtf16(nCodePage, strAll.data(), strAll.size());
        std::string strUtf16Le;
        for (char16_t u : units) {
            strUtf16Le += static_cast<char>(u & 0xFF);
            strUtf16Le += static_cast<char>(u >> 8);
        }
        EXPECT_EQ(strUtf16Le, Bytes(LocalToUtf16(strAll.c_str())));
        EXPECT_EQ(Bytes(Utf16ToUtf8(units.data(), units.size())), Bytes(LocalToUtf8(strAll.c_str())));
    }
    SetLocalCharEncoding(1251);
    EXPECT_EQ("\xD0\x9F\xD1\x80\xD0\xB8 ok", Bytes(LocalToUtf8("\xCF\xF0\xE8 ok")));
    EXPECT_EQ(std::string("\x1F\x04\x40\x04\x38\x04", 6), Bytes(LocalToUtf16("\xCF\xF0\xE8")));
}

TEST_F(TextEncoder, MultiByteCodePageConvertsWholeSequences) {
    SetLocalCharEncoding(932);
    // Hiragana A (U+3042), then a kanji whose second byte is the 7-bit "\\" (U+8868).
    EXPECT_EQ("<\xE3\x81\x82\xE8\xA1\xA8>", Bytes(LocalToUtf8("<\x82\xA0\x95\x5C>")));
    EXPECT_EQ(std::string("<\0\x42\x30\x68\x88>\0", 8), Bytes(LocalToUtf16("<\x82\xA0\x95\x5C>")));
}

TEST_F(TextEncoder, LargeTextKeepsEveryByte) {
    std::string strLocal;
    std::string strUtf16;
    for (int i = 0; i < 50000; ++i) {
        strLocal += "x\xC3\xA9\xF0\x9F\x98\x80";
        strUtf16.append("x\0\xE9\0\x3D\xD8\x00\xDE", 8);
    }
    EXPECT_EQ(strLocal, Bytes(LocalToUtf8(strLocal.c_str())));
    EXPECT_EQ(strUtf16, Bytes(LocalToUtf16(strLocal.c_str())));
}

}  // namespace
