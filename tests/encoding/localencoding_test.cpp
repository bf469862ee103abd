#include "orvexxml/infrastructure/localencoding.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <typeinfo>

#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace {

// Every test leaves the process-wide settings at their defaults, which the other tests of the
// program rely on.
class LocalEncoding : public ::testing::Test {
protected:
    void TearDown() override {
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
        ASCIIOnly(false);
    }
};

std::string Bytes(const char* p, size_t n) { return std::string(p, n); }

TEST_F(LocalEncoding, DefaultsAreUtf8WithoutAsciiSwitch) {
    EXPECT_EQ(GetLocalCharEncoding(), 65001u);
    EXPECT_FALSE(IsASCIIOnly());
    EXPECT_TRUE(IsLocalEncodingUtf8());
}

TEST_F(LocalEncoding, Utf8CodePageCopiesTheBytes) {
    EXPECT_EQ(Utf8ToLocal("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"), "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80");
    EXPECT_EQ(Utf8ToLocal("\xC3\xA9x", 2), "\xC3\xA9");
    // The copy takes the bytes as they come, even when they are no valid UTF-8.
    EXPECT_EQ(Utf8ToLocal("a\xFF\xC3"), "a\xFF\xC3");
    // Like every conversion, the text ends at an embedded null.
    EXPECT_EQ(Utf8ToLocal("ab\0cd", 5), "ab");
}

TEST_F(LocalEncoding, WindowsLatin1CodePage) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ(GetLocalCharEncoding(), 1252u);
    EXPECT_FALSE(IsLocalEncodingUtf8());

    EXPECT_EQ(Utf8ToLocal("caf\xC3\xA9"), "caf\xE9");
    EXPECT_EQ(Utf8ToLocal("\xE2\x82\xAC"), "\x80");
    EXPECT_EQ(Utf8ToLocal("plain ascii"), "plain ascii");
    // Greek omega and an emoji are not in the code page: each becomes one default character.
    EXPECT_EQ(Utf8ToLocal("a\xC3\xA9x\xE2\x82\xAC\xCE\xA9y\xF0\x9F\x98\x80z"), "a\xE9x\x80?y?z");
}

TEST_F(LocalEncoding, IsoLatin1CodePageLacksTheEuroSign) {
    SetLocalCharEncoding(28591);
    EXPECT_EQ(Utf8ToLocal("\xC3\xA9"), "\xE9");
    EXPECT_EQ(Utf8ToLocal("1\xE2\x82\xAC"), "1?");
}

TEST_F(LocalEncoding, UsAsciiCodePageReplacesEveryNonAsciiCharacter) {
    SetLocalCharEncoding(20127);
    EXPECT_EQ(Utf8ToLocal("na\xC3\xAFve \xE2\x82\xAC"), "na?ve ?");
}

TEST_F(LocalEncoding, CharacterOutsideTheCodePageDoesNotSurviveARoundTrip) {
    SetLocalCharEncoding(1252);
    const std::string strLocal = Utf8ToLocal("x\xE4\xB8\xADy");  // U+4E2D
    EXPECT_EQ(strLocal, "x?y");
    EXPECT_EQ(LocalToUtf16String(strLocal.data(), strLocal.size()), u"x?y");
}

TEST_F(LocalEncoding, InvalidUtf8BecomesTheDefaultCharacter) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ(Utf8ToLocal("a\xFFz"), "a?z");
    // A sequence cut short counts as one bad character, whatever follows.
    EXPECT_EQ(Utf8ToLocal("a\xE2\x82"), "a?");
    EXPECT_EQ(Utf8ToLocal("a\xE2\x82z"), "a?z");
    // An overlong form is two bad bytes.
    EXPECT_EQ(Utf8ToLocal("\xC0\xAF"), "??");
}

TEST_F(LocalEncoding, ShiftJisRoundTrip) {
    SetLocalCharEncoding(932);
    const std::string strLocal = Utf8ToLocal("\xE6\x97\xA5\xE6\x9C\xACz");  // U+65E5 U+672C
    EXPECT_EQ(strLocal, "\x93\xFA\x96\x7Bz");
    const std::u16string strUnits = LocalToUtf16String(strLocal.data(), strLocal.size());
    EXPECT_EQ(strUnits, u"\u65E5\u672Cz");
    EXPECT_EQ(Utf16ToLocal(strUnits.data(), strUnits.size()), strLocal);
    // Hangul is not in Shift-JIS.
    EXPECT_EQ(Utf8ToLocal("\xED\x95\x9C"), "?");
}

TEST_F(LocalEncoding, OtherDoubleByteCodePages) {
    SetLocalCharEncoding(936);
    EXPECT_EQ(Utf8ToLocal("\xE4\xB8\xAD\xE2\x82\xAC"), "\xD6\xD0\x80");  // U+4E2D, euro sign
    SetLocalCharEncoding(949);
    EXPECT_EQ(Utf8ToLocal("\xED\x95\x9C"), "\xC7\xD1");  // U+D55C
    SetLocalCharEncoding(950);
    EXPECT_EQ(Utf8ToLocal("\xE4\xB8\xAD"), "\xA4\xA4");                      // U+4E2D
    EXPECT_EQ(Utf8ToLocal("\xE6\x97\xA5\xE2\x82\xAC"), "\xA4\xE9\xA3\xE1");  // U+65E5, euro sign
    EXPECT_EQ(Utf8ToLocal("\xED\x95\x9C"), "?");
}

TEST_F(LocalEncoding, AllAgreedCodePagesCanBeSet) {
    const unsigned int codePages[] = {1250,  1251,  1252,  1253,  1254,  1255,  1256,  1257, 1258, 28591, 28592, 28593,
                                      28594, 28595, 28596, 28597, 28598, 28599, 20127, 932,  936,  949,   950,   65001};
    for (unsigned int nCodePage : codePages) {
        SCOPED_TRACE(nCodePage);
        ASSERT_NO_THROW(SetLocalCharEncoding(nCodePage));
        EXPECT_EQ(GetLocalCharEncoding(), nCodePage);
        EXPECT_EQ(Utf8ToLocal("ab\xC3\xA9", 2), "ab");
        // Malayalam U+0D05 is in none of them but UTF-8.
        EXPECT_EQ(Utf8ToLocal("\xE0\xB4\x85"), nCodePage == 65001 ? "\xE0\xB4\x85" : "?");
    }
}

TEST_F(LocalEncoding, WindowsAnsiAliasesNameUtf8) {
    SetLocalCharEncoding(1252);
    SetLocalCharEncoding(0);  // CP_ACP
    EXPECT_EQ(GetLocalCharEncoding(), 65001u);
    SetLocalCharEncoding(1252);
    SetLocalCharEncoding(3);  // CP_THREAD_ACP
    EXPECT_EQ(GetLocalCharEncoding(), 65001u);
    EXPECT_TRUE(IsLocalEncodingUtf8());
}

TEST_F(LocalEncoding, UnknownCodePageIsRefusedAndTheOldOneStays) {
    SetLocalCharEncoding(1252);
    const unsigned int refused[] = {12345, 1, 1200, 65000};
    for (unsigned int nCodePage : refused) {
        SCOPED_TRACE(nCodePage);
        try {
            SetLocalCharEncoding(nCodePage);
            ADD_FAILURE() << "code page accepted";
        } catch (const COxException& e) {
            EXPECT_EQ(typeid(e), typeid(COxException));
            const std::string strNumber = std::to_string(nCodePage);
            EXPECT_EQ(e.GetFullMessage(), "The local character encoding can not be set to the code page " + strNumber +
                                              "\nThe code page " + strNumber + " is not supported");
        }
        EXPECT_EQ(GetLocalCharEncoding(), 1252u);
        EXPECT_EQ(Utf8ToLocal("\xC3\xA9"), "\xE9");
    }
}

TEST_F(LocalEncoding, AsciiSwitchCopiesUtf8Unchanged) {
    SetLocalCharEncoding(1252);
    ASCIIOnly(true);
    EXPECT_TRUE(IsASCIIOnly());
    EXPECT_TRUE(IsLocalEncodingUtf8());
    EXPECT_EQ(Utf8ToLocal("caf\xC3\xA9 \xE2\x82\xAC"), "caf\xC3\xA9 \xE2\x82\xAC");
    EXPECT_EQ(Utf8ToLocal("a\xFFz", 3), "a\xFFz");
    // The switch copies the counted bytes as they are.
    EXPECT_EQ(Utf8ToLocal("a\0b", 3), Bytes("a\0b", 3));

    ASCIIOnly(false);
    EXPECT_FALSE(IsLocalEncodingUtf8());
    EXPECT_EQ(Utf8ToLocal("caf\xC3\xA9"), "caf\xE9");
}

TEST_F(LocalEncoding, EmbeddedNullEndsAConvertedText) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ(Utf8ToLocal("\xC3\xA9\0\xC3\xA9", 5), "\xE9");
    EXPECT_EQ(Utf8ToLocal("ab\0cd", 5), "ab");
}

TEST_F(LocalEncoding, LengthZeroGivesEmptyText) {
    char16_t wide[4];
    char narrow[4];
    EXPECT_EQ(Utf8ToLocal(""), "");
    EXPECT_EQ(Utf8ToLocal("abc", 0), "");
    EXPECT_EQ(Utf16ToLocal(u"abc", 0), "");
    SetLocalCharEncoding(1252);
    EXPECT_EQ(Utf8ToLocal("\xC3\xA9", 0), "");
    EXPECT_EQ(Utf8ToLocal("\xC3\xA9", 0, wide, 4, narrow, 4), "");
    EXPECT_EQ(Utf8ToLocal("", wide, 4, narrow, 4), "");
    EXPECT_EQ(Utf16ToLocal(u"\u00E9", 0), "");
    EXPECT_EQ(LocalToUtf16String("\xE9", 0), u"");
    ASCIIOnly(true);
    EXPECT_EQ(Utf8ToLocal("abc", 0), "");
}

TEST_F(LocalEncoding, ScratchBuffersHoldShortText) {
    SetLocalCharEncoding(1252);
    char16_t wide[256];
    char narrow[512];
    std::memset(narrow, 'X', sizeof(narrow));
    EXPECT_EQ(Utf8ToLocal("caf\xC3\xA9", 5, wide, 256, narrow, 512), "caf\xE9");
    // The conversion went through the caller's buffers, not through an allocation.
    EXPECT_EQ(wide[3], u'\u00E9');
    EXPECT_EQ(wide[4], u'\0');
    EXPECT_EQ(Bytes(narrow, 6), Bytes("caf\xE9\0X", 6));
    EXPECT_EQ(Utf8ToLocal("\xE2\x82\xAC", wide, 256, narrow, 512), "\x80");
}

TEST_F(LocalEncoding, TextLongerThanTheScratchIsConvertedWhole) {
    char16_t wide[256];
    char narrow[512];
    std::string strUtf8;
    std::string strExpected;
    for (int i = 0; i < 400; ++i) {
        strUtf8 += "\xC3\xA9x\xE2\x82\xAC";
        strExpected += "\xE9x\x80";
    }
    strUtf8 += "end";
    strExpected += "end";

    SetLocalCharEncoding(1252);
    EXPECT_EQ(Utf8ToLocal(strUtf8.data(), strUtf8.size(), wide, 256, narrow, 512), strExpected);
    EXPECT_EQ(Utf8ToLocal(strUtf8.c_str(), wide, 256, narrow, 512), strExpected);
    // Scratch too small for the narrow result only: 200 characters of two UTF-8 bytes fit the
    // wide part but not 100 bytes of narrow scratch.
    std::string strShort;
    for (int i = 0; i < 100; ++i) strShort += "\xC3\xA9\xC3\xA9";
    EXPECT_EQ(Utf8ToLocal(strShort.data(), strShort.size(), wide, 256, narrow, 100), std::string(200, '\xE9'));
    // Missing scratch is as good as small scratch.
    EXPECT_EQ(Utf8ToLocal(strShort.data(), strShort.size(), nullptr, 0, nullptr, 0), std::string(200, '\xE9'));

    SetLocalCharEncoding(65001);
    EXPECT_EQ(Utf8ToLocal(strUtf8.data(), strUtf8.size(), wide, 256, narrow, 512), strUtf8);
}

TEST_F(LocalEncoding, Utf16ToLocalJoinsSurrogatePairs) {
    const char16_t pair[] = {u'a', 0xD83D, 0xDE00, u'z'};  // U+1F600
    EXPECT_EQ(Utf16ToLocal(pair, 4), "a\xF0\x9F\x98\x80z");
    const char16_t lone[] = {u'a', 0xDE00, u'z', 0xD83D};
    EXPECT_EQ(Utf16ToLocal(lone, 4), "a\xEF\xBF\xBDz\xEF\xBF\xBD");
    EXPECT_EQ(Utf16ToLocal(u"\u00E9\u20AC", 2), "\xC3\xA9\xE2\x82\xAC");

    SetLocalCharEncoding(1252);
    EXPECT_EQ(Utf16ToLocal(u"\u00E9\u20AC", 2), "\xE9\x80");
    // A pair outside the code page is one character and one default character; so is an
    // unpaired surrogate.
    EXPECT_EQ(Utf16ToLocal(pair, 4), "a?z");
    EXPECT_EQ(Utf16ToLocal(lone, 4), "a?z?");
}

TEST_F(LocalEncoding, Utf16ToLocalKeepsTheCountedUnits) {
    const char16_t units[] = {u'a', 0, u'b'};
    EXPECT_EQ(Utf16ToLocal(units, 3), Bytes("a\0b", 3));
    SetLocalCharEncoding(28591);
    EXPECT_EQ(Utf16ToLocal(units, 3), Bytes("a\0b", 3));
}

TEST_F(LocalEncoding, LocalToUtf16DecodesThroughTheCodePage) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ(LocalToUtf16String("\x80\xE9", 2), u"\u20AC\u00E9");
    // The ASCII switch leaves this direction alone.
    ASCIIOnly(true);
    EXPECT_EQ(LocalToUtf16String("\x80\xE9", 2), u"\u20AC\u00E9");
    ASCIIOnly(false);
    SetLocalCharEncoding(65001);
    EXPECT_EQ(LocalToUtf16String("\xF0\x9F\x98\x80", 4), u"\U0001F600");
}

TEST_F(LocalEncoding, VietnameseCodePageKeepsTheLastCharacter) {
    // The converter of this code page holds a base letter back until it knows that no
    // combining mark follows; the end of the text must release it.
    SetLocalCharEncoding(1258);
    EXPECT_EQ(LocalToUtf16String("ab\xE0", 3), u"ab\u00E0");
    EXPECT_EQ(Utf8ToLocal("\xC3\xA0"), "\xE0");
}

TEST(WideText, SupplementaryCharactersBecomeSurrogatePairs) {
    EXPECT_EQ(WideToUtf16(L"a\U0001F600\u00E9\U0010FFFF"), u"a\xD83D\xDE00\u00E9\xDBFF\xDFFF");
    EXPECT_EQ(WideToUtf16(L"\U00010000x", 1), u"\xD800\xDC00");
    EXPECT_EQ(WideToUtf16(L""), u"");
    EXPECT_EQ(WideToUtf16(L"abc", 0), u"");
    const wchar_t invalid[] = {0xD800, 0x110000, L'z'};
    EXPECT_EQ(WideToUtf16(invalid, 3), u"\uFFFD\uFFFDz");
}

TEST(WideText, SurrogatePairsBecomeOneWideCharacter) {
    const char16_t units[] = {u'a', 0xD83D, 0xDE00, 0xDBFF, 0xDFFF, 0};
    EXPECT_EQ(Utf16ToWide(units, 5), L"a\U0001F600\U0010FFFF");
    // Embedded nulls are counted units like any other.
    EXPECT_EQ(Utf16ToWide(units, 6), std::wstring(L"a\U0001F600\U0010FFFF", 3) + L'\0');
    const char16_t lone[] = {0xDE00, u'x', 0xD83D};
    EXPECT_EQ(Utf16ToWide(lone, 3), L"\uFFFDx\uFFFD");
    EXPECT_EQ(Utf16ToWide(units, 0), L"");
    const std::wstring strRoundTrip = L"\u00E9\U0001D11E\u4E2D";
    const std::u16string strUnits = WideToUtf16(strRoundTrip.c_str());
    EXPECT_EQ(strUnits.size(), 4u);
    EXPECT_EQ(Utf16ToWide(strUnits.data(), strUnits.size()), strRoundTrip);
}

}  // namespace
