#include "orvexxml/infrastructure/codepage.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <typeinfo>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace {

template <class TFunc>
void ExpectOxException(TFunc func, const std::string& strMessage) {
    try {
        func();
        ADD_FAILURE() << "nothing was thrown; expected: " << strMessage;
    } catch (const COxException& e) {
        EXPECT_EQ(typeid(e), typeid(COxException));
        EXPECT_EQ(e.GetFullMessage(), strMessage);
    }
}

TEST(CodePageUtf8, DecodesEachSequenceAndEachMaximalIllFormedPartBecomesOneReplacement) {
    const struct {
        std::string strUtf8;
        std::u16string strUnits;
    } cases[] = {
        {"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", u"a\u00E9\u20AC\xD83D\xDE00"},
        {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
        {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
        {"\x80z\xFF\xFE", u"\uFFFDz\uFFFD\uFFFD"},  // a lone trail byte, bytes that never start one
        {"\xE2\x82", u"\uFFFD"},                    // truncated, at the end and before other text
        {"\xF0\x9F\x98z", u"\uFFFDz"},
        {"\xE2\x82\xE2\x82\xAC", u"\uFFFD\u20AC"},
        {"\xC0\xAF", u"\uFFFD\uFFFD"},  // overlong forms
        {"\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x80\x80\xAF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},  // an encoded surrogate, a value beyond U+10FFFF
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xED\x9F\xBF\xEE\x80\x80", u"\uD7FF\uE000"},  // the last valid values around the checks
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.strUtf8);
        EXPECT_EQ(CCodePage::ToUtf16(65001, c.strUtf8.data(), c.strUtf8.size()), c.strUnits);
    }
}

TEST(CodePageUtf8, EncodesPairsAndReplacesUnpairedSurrogates) {
    const char16_t units[] = {u'a', 0x00E9, 0x20AC, 0xD83D, 0xDE00, 0xDC00, 0xD800, u'z', 0xD800};
    EXPECT_EQ(CCodePage::FromUtf16(65001, units, 9),
              "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD\xEF\xBF\xBDz\xEF\xBF\xBD");
}

TEST(CodePageConversion, SizeQueryAndBufferLimits) {
    const char16_t units[] = {0x00E9, 0x20AC, u'x'};
    EXPECT_EQ(CCodePage::WideCharToMultiByte(65001, units, 3, nullptr, 0), 6u);
    EXPECT_EQ(CCodePage::WideCharToMultiByte(1252, units, 3, nullptr, 0), 3u);
    EXPECT_EQ(CCodePage::WideCharToMultiByte(932, units, 3, nullptr, 0), 3u);  // two default characters

    char narrow[8] = {};
    EXPECT_EQ(CCodePage::WideCharToMultiByte(1252, units, 3, narrow, 3), 3u);
    EXPECT_EQ(std::string(narrow, 3), "\xE9\x80x");
    const std::string strTooSmall = "The converted text does not fit into the buffer given for it";
    ExpectOxException([&]() { CCodePage::WideCharToMultiByte(1252, units, 3, narrow, 2); }, strTooSmall);
    ExpectOxException([&]() { CCodePage::WideCharToMultiByte(65001, units, 3, narrow, 5); }, strTooSmall);
    ExpectOxException([&]() { CCodePage::WideCharToMultiByte(65001, u"abc", 3, narrow, 2); }, strTooSmall);

    char16_t wide[4] = {};
    EXPECT_EQ(CCodePage::MultiByteToWideChar(932, "\x93\xFAz", 3, nullptr, 0), 2u);
    EXPECT_EQ(CCodePage::MultiByteToWideChar(932, "\x93\xFAz", 3, wide, 2), 2u);
    EXPECT_EQ(std::u16string(wide, 2), u"\u65E5z");
    ExpectOxException([&]() { CCodePage::MultiByteToWideChar(932, "\x93\xFAz", 3, wide, 1); }, strTooSmall);
}

TEST(CodePageConversion, UnknownCodePageIsRefused) {
    char16_t wide[4];
    char narrow[4];
    ExpectOxException([&]() { CCodePage::MultiByteToWideChar(12345, "a", 1, wide, 4); },
                      "The code page 12345 is not supported");
    ExpectOxException([&]() { CCodePage::WideCharToMultiByte(12345, u"a", 1, narrow, 4); },
                      "The code page 12345 is not supported");
    ExpectOxException([&]() { CCodePage::CheckAvailable(12345); }, "The code page 12345 is not supported");
    EXPECT_NO_THROW(CCodePage::CheckAvailable(932));
    EXPECT_EQ(CCodePage::Resolve(0), 65001u);
    EXPECT_EQ(CCodePage::Resolve(3), 65001u);
    EXPECT_EQ(CCodePage::Resolve(1252), 1252u);
}

TEST(CodePageConversion, BytesTheCodePageDoesNotDefineBecomeReplacementCharacters) {
    EXPECT_EQ(CCodePage::ToUtf16(1252, "a\x81\x80", 3), u"a\uFFFD\u20AC");  // 0x81 is unassigned
    EXPECT_EQ(CCodePage::ToUtf16(932, "a\x93", 2), u"a\uFFFD");             // a lead byte without trail
    EXPECT_EQ(CCodePage::ToUtf16(20127, "x\x80y", 3), u"x\uFFFDy");         // no character in US-ASCII
}

TEST(CodePageConversionThreads, ConversionsRunOnManyThreadsAtOnce) {
    // Each thread has its own converters; a shared converter would mix up the texts, above all
    // that of the Vietnamese code page, whose converter holds each letter back for a moment.
    std::string strLatin;
    std::u16string strLatinUnits;
    for (int i = 0; i < 200; ++i) {
        strLatin += "\xE9\x80\x81z";
        strLatinUnits += u"\u00E9\u20AC\uFFFDz";
    }
    const std::u16string strJapanese = u"\u65E5\u672C\u8A9E";
    std::vector<int> failures(4, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t]() {
            // A letter of its own for each thread: a with grave, acute, circumflex, diaeresis.
            const unsigned char letters[] = {0xE0, 0xE1, 0xE2, 0xE4};
            const std::string strVietnamese(300, static_cast<char>(letters[t]));
            const std::u16string strVietnameseUnits(300, static_cast<char16_t>(letters[t]));
            for (int i = 0; i < 300; ++i) {
                failures[t] += CCodePage::ToUtf16(1252, strLatin.data(), strLatin.size()) != strLatinUnits;
                failures[t] +=
                    CCodePage::FromUtf16(932, strJapanese.data(), strJapanese.size()) != "\x93\xFA\x96\x7B\x8C\xEA";
                failures[t] +=
                    CCodePage::ToUtf16(1258, strVietnamese.data(), strVietnamese.size()) != strVietnameseUnits;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (int t = 0; t < 4; ++t) EXPECT_EQ(failures[t], 0) << "thread " << t;
}

}  // namespace
