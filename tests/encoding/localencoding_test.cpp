#include "orvexxml/infrastructure/localencoding.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <typeinfo>

#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace {

// Every test leaves the process-wide settings at their defaults, which the other tests rely on.
class LocalEncoding : public ::testing::Test {
protected:
    void TearDown() override {
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
        ASCIIOnly(false);
    }
};

TEST_F(LocalEncoding, DefaultIsUtf8AndUtf8IsConvertedToTheBytesOfEachCodePage) {
    EXPECT_EQ(GetLocalCharEncoding(), 65001u);
    EXPECT_FALSE(IsASCIIOnly());
    EXPECT_TRUE(IsLocalEncodingUtf8());
    const struct {
        unsigned int nCodePage;
        std::string strUtf8, strLocal;
    } cases[] = {
        // UTF-8 copies the bytes as they come, valid or not, up to an embedded null.
        {65001, "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {65001, "a\xFF\xC3", "a\xFF\xC3"},
        {65001, std::string("ab\0cd", 5), "ab"},
        {1252, "caf\xC3\xA9", "caf\xE9"},
        {1252, "\xE2\x82\xAC", "\x80"},
        {1252, "plain ascii", "plain ascii"},
        // Greek omega, an emoji and U+4E2D are not in the code page: each is one default character.
        {1252, "a\xC3\xA9x\xE2\x82\xAC\xCE\xA9y\xF0\x9F\x98\x80z", "a\xE9x\x80?y?z"},
        {1252, "x\xE4\xB8\xADy", "x?y"},
        {1252, std::string("\xC3\xA9\0\xC3\xA9", 5), "\xE9"},
        // Invalid UTF-8: a sequence cut short is one bad character, an overlong form two bad bytes.
        {1252, "a\xFFz", "a?z"},
        {1252, "a\xE2\x82", "a?"},
        {1252, "a\xE2\x82z", "a?z"},
        {1252, "\xC0\xAF", "??"},
        {28591, "\xC3\xA9", "\xE9"},
        {28591, "1\xE2\x82\xAC", "1?"},  // ISO Latin 1 lacks the euro sign
        {20127, "na\xC3\xAFve \xE2\x82\xAC", "na?ve ?"},
        {932, "\xE6\x97\xA5\xE6\x9C\xACz", "\x93\xFA\x96\x7Bz"},  // U+65E5 U+672C
        {932, "\xED\x95\x9C", "?"},                               // no Hangul in Shift-JIS
        {936, "\xE4\xB8\xAD\xE2\x82\xAC", "\xD6\xD0\x80"},        // U+4E2D, euro sign
        {949, "\xED\x95\x9C", "\xC7\xD1"},                        // U+D55C
        {950, "\xE4\xB8\xAD", "\xA4\xA4"},
        {950, "\xE6\x97\xA5\xE2\x82\xAC", "\xA4\xE9\xA3\xE1"},
        {950, "\xED\x95\x9C", "?"},
        {1258, "\xC3\xA0", "\xE0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.nCodePage) + " " + c.strUtf8);
        SetLocalCharEncoding(c.nCodePage);
        EXPECT_EQ(Utf8ToLocal(c.strUtf8.data(), c.strUtf8.size()), c.strLocal);
        EXPECT_EQ(Utf8ToLocal(c.strUtf8.c_str()), c.strLocal.substr(0, std::strlen(c.strLocal.c_str())));
    }
    SetLocalCharEncoding(1252);
    EXPECT_EQ(GetLocalCharEncoding(), 1252u);
    EXPECT_FALSE(IsLocalEncodingUtf8());
}

TEST_F(LocalEncoding, AllAgreedCodePagesCanBeSetAndWindowsAnsiAliasesNameUtf8) {
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
    for (unsigned int nAlias : {0u, 3u}) {  // CP_ACP, CP_THREAD_ACP
        SetLocalCharEncoding(1252);
        SetLocalCharEncoding(nAlias);
        EXPECT_EQ(GetLocalCharEncoding(), 65001u);
        EXPECT_TRUE(IsLocalEncodingUtf8());
    }
}

TEST_F(LocalEncoding, UnknownCodePageIsRefusedAndTheOldOneStays) {
    SetLocalCharEncoding(1252);
    for (unsigned int nCodePage : {12345u, 1u, 1200u, 65000u}) {
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
    EXPECT_EQ(Utf8ToLocal("a\0b", 3), std::string("a\0b", 3));  // the counted bytes as they are
    ASCIIOnly(false);
    EXPECT_FALSE(IsLocalEncodingUtf8());
    EXPECT_EQ(Utf8ToLocal("caf\xC3\xA9"), "caf\xE9");
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

TEST_F(LocalEncoding, ScratchBuffersHoldShortTextAndLongerTextIsConvertedWhole) {
    SetLocalCharEncoding(1252);
    char16_t wide[256];
    char narrow[512];
    std::memset(narrow, 'X', sizeof(narrow));
    EXPECT_EQ(Utf8ToLocal("caf\xC3\xA9", 5, wide, 256, narrow, 512), "caf\xE9");
    // The conversion went through the caller's buffers, not through an allocation.
    EXPECT_EQ(wide[3], u'\u00E9');
    EXPECT_EQ(wide[4], u'\0');
    EXPECT_EQ(std::string(narrow, 6), std::string("caf\xE9\0X", 6));
    EXPECT_EQ(Utf8ToLocal("\xE2\x82\xAC", wide, 256, narrow, 512), "\x80");

    std::string strUtf8, strExpected;
    for (int i = 0; i < 400; ++i) {
        strUtf8 += "\xC3\xA9x\xE2\x82\xAC";
        strExpected += "\xE9x\x80";
    }
    strUtf8 += "end";
    strExpected += "end";
    EXPECT_EQ(Utf8ToLocal(strUtf8.data(), strUtf8.size(), wide, 256, narrow, 512), strExpected);
    EXPECT_EQ(Utf8ToLocal(strUtf8.c_str(), wide, 256, narrow, 512), strExpected);
    // 200 characters of two UTF-8 bytes fit the wide scratch but not 100 bytes of narrow scratch;
    // missing scratch is as good as small scratch.
    std::string strShort;
    for (int i = 0; i < 200; ++i) strShort += "\xC3\xA9";
    EXPECT_EQ(Utf8ToLocal(strShort.data(), strShort.size(), wide, 256, narrow, 100), std::string(200, '\xE9'));
    EXPECT_EQ(Utf8ToLocal(strShort.data(), strShort.size(), nullptr, 0, nullptr, 0), std::string(200, '\xE9'));
    SetLocalCharEncoding(65001);
    EXPECT_EQ(Utf8ToLocal(strUtf8.data(), strUtf8.size(), wide, 256, narrow, 512), strUtf8);
}

TEST_F(LocalEncoding, Utf16ConvertsBothWaysThroughTheCodePage) {
    const char16_t pair[] = {u'a', 0xD83D, 0xDE00, u'z'};  // U+1F600
    const char16_t lone[] = {u'a', 0xDE00, u'z', 0xD83D};
    const char16_t nulls[] = {u'a', 0, u'b'};
    EXPECT_EQ(Utf16ToLocal(pair, 4), "a\xF0\x9F\x98\x80z");
    EXPECT_EQ(Utf16ToLocal(lone, 4), "a\xEF\xBF\xBDz\xEF\xBF\xBD");
    EXPECT_EQ(Utf16ToLocal(u"\u00E9\u20AC", 2), "\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(LocalToUtf16String("\xF0\x9F\x98\x80", 4), u"\U0001F600");
    for (unsigned int nCodePage : {65001u, 1252u, 28591u}) {
        SetLocalCharEncoding(nCodePage);
        EXPECT_EQ(Utf16ToLocal(nulls, 3), std::string("a\0b", 3)) << nCodePage;  // the counted units
    }
    SetLocalCharEncoding(1252);
    EXPECT_EQ(Utf16ToLocal(u"\u00E9\u20AC", 2), "\xE9\x80");
    // A pair outside the code page is one default character; so is an unpaired surrogate.
    EXPECT_EQ(Utf16ToLocal(pair, 4), "a?z");
    EXPECT_EQ(Utf16ToLocal(lone, 4), "a?z?");
    EXPECT_EQ(LocalToUtf16String("\x80\xE9?", 3), u"\u20AC\u00E9?");
    ASCIIOnly(true);  // the switch leaves this direction alone
    EXPECT_EQ(LocalToUtf16String("\x80\xE9", 2), u"\u20AC\u00E9");
    ASCIIOnly(false);
    SetLocalCharEncoding(932);
    EXPECT_EQ(LocalToUtf16String("\x93\xFA\x96\x7Bz", 5), u"\u65E5\u672Cz");
    EXPECT_EQ(Utf16ToLocal(u"\u65E5\u672Cz", 3), "\x93\xFA\x96\x7Bz");
    // The Vietnamese converter holds a base letter back until it knows that no combining mark
    // follows; the end of the text must release it.
    SetLocalCharEncoding(1258);
    EXPECT_EQ(LocalToUtf16String("ab\xE0", 3), u"ab\u00E0");
}

TEST(WideText, ConvertsBetweenUtf32AndSurrogatePairs) {
    EXPECT_EQ(WideToUtf16(L"a\U0001F600\u00E9\U0010FFFF"), u"a\xD83D\xDE00\u00E9\xDBFF\xDFFF");
    EXPECT_EQ(WideToUtf16(L"\U00010000x", 1), u"\xD800\xDC00");
    EXPECT_EQ(WideToUtf16(L""), u"");
    EXPECT_EQ(WideToUtf16(L"abc", 0), u"");
    const wchar_t invalid[] = {0xD800, 0xDFFF, 0x110000, L'z'};
    EXPECT_EQ(WideToUtf16(invalid, 4), u"\uFFFD\uFFFD\uFFFDz");

    const char16_t units[] = {u'a', 0xD83D, 0xDE00, 0xDBFF, 0xDFFF, 0};
    EXPECT_EQ(Utf16ToWide(units, 5), L"a\U0001F600\U0010FFFF");
    EXPECT_EQ(Utf16ToWide(units, 6), std::wstring(L"a\U0001F600\U0010FFFF", 3) + L'\0');  // nulls are counted
    const char16_t lone[] = {0xDE00, u'x', 0xD83D};
    EXPECT_EQ(Utf16ToWide(lone, 3), L"\uFFFDx\uFFFD");
    EXPECT_EQ(Utf16ToWide(units, 0), L"");
    const std::wstring strRoundTrip = L"\u00E9\U0001D11E\u4E2D";
    const std::u16string strUnits = WideToUtf16(strRoundTrip.c_str());
    EXPECT_EQ(strUnits.size(), 4u);
    EXPECT_EQ(Utf16ToWide(strUnits.data(), strUnits.size()), strRoundTrip);
}

}  // namespace
