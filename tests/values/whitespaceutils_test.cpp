#include "orvexxml/values/whitespaceutils.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "expectthrow.h"

using OrvexXml::COxException;
using OrvexXml::CWhitespaceUtils;

namespace {

std::string Bytes(const char* p, size_t n) { return std::string(p, n); }

TEST(WhitespaceUtils, IsWhiteSpaceKnowsExactlyFourCharacters) {
    EXPECT_TRUE(CWhitespaceUtils::IsWhiteSpace(' '));
    EXPECT_TRUE(CWhitespaceUtils::IsWhiteSpace('\t'));
    EXPECT_TRUE(CWhitespaceUtils::IsWhiteSpace('\r'));
    EXPECT_TRUE(CWhitespaceUtils::IsWhiteSpace('\n'));
    EXPECT_FALSE(CWhitespaceUtils::IsWhiteSpace('\v'));
    EXPECT_FALSE(CWhitespaceUtils::IsWhiteSpace('\f'));
    EXPECT_FALSE(CWhitespaceUtils::IsWhiteSpace('\0'));
    EXPECT_FALSE(CWhitespaceUtils::IsWhiteSpace('a'));
    EXPECT_FALSE(CWhitespaceUtils::IsWhiteSpace(static_cast<char>(0xA0)));
}

TEST(WhitespaceUtils, PreserveNormalisesLineEnds) {
    EXPECT_EQ("a\nb\nc", CWhitespaceUtils::Preserve(std::string("a\r\nb\rc")));
    EXPECT_EQ("\n\n", CWhitespaceUtils::Preserve(std::string("\r\r\n")));
    EXPECT_EQ("a\n", CWhitespaceUtils::Preserve(std::string("a\r")));
    EXPECT_EQ("\n\n", CWhitespaceUtils::Preserve(std::string("\n\r")));
    // Tabs, blanks and line feeds are left alone.
    EXPECT_EQ(" a\t b \n", CWhitespaceUtils::Preserve(std::string(" a\t b \n")));
}

TEST(WhitespaceUtils, PreserveWithoutCarriageReturnReturnsTextUnchanged) {
    std::string withNul = Bytes("a\0b", 3);
    EXPECT_EQ(withNul, CWhitespaceUtils::Preserve(withNul));
    EXPECT_EQ("", CWhitespaceUtils::Preserve(std::string()));
}

TEST(WhitespaceUtils, PreserveWithCarriageReturnStopsAtNul) {
    EXPECT_EQ("a\n", CWhitespaceUtils::Preserve(Bytes("a\r\0b\r", 5)));
}

TEST(WhitespaceUtils, PreserveOfBufferTakesGivenLength) {
    EXPECT_EQ("a\nb", CWhitespaceUtils::Preserve("a\r\nb", 4));
    EXPECT_EQ("a\n", CWhitespaceUtils::Preserve("a\rbc", 2));
    // A CR at the last position counted is not joined with a LF beyond the length.
    EXPECT_EQ("a\n", CWhitespaceUtils::Preserve("a\r\n", 2));
    EXPECT_EQ("x", CWhitespaceUtils::Preserve(Bytes("x\0\r", 3).c_str(), 3));
    EXPECT_EQ("", CWhitespaceUtils::Preserve("abc", 0));
}

TEST(WhitespaceUtils, ReplaceTurnsEachWhitespaceIntoOneSpace) {
    EXPECT_EQ("a b", CWhitespaceUtils::Replace(std::string("a\r\nb")));
    EXPECT_EQ("a b c d", CWhitespaceUtils::Replace(std::string("a\tb\nc\rd")));
    EXPECT_EQ("  ", CWhitespaceUtils::Replace(std::string("\r\n\r\n")));
    EXPECT_EQ("   ", CWhitespaceUtils::Replace(std::string("\n\r\t")));
    EXPECT_EQ("  a  ", CWhitespaceUtils::Replace(std::string("  a  ")));
    EXPECT_EQ("a", CWhitespaceUtils::Replace(Bytes("a\0\tb", 4)));
}

TEST(WhitespaceUtils, CollapseJoinsWordsWithOneSpace) {
    EXPECT_EQ("hello world", CWhitespaceUtils::Collapse(std::string("  hello \t\r\n world  ")));
    EXPECT_EQ("a b c", CWhitespaceUtils::Collapse(std::string("a\tb\r\nc")));
    EXPECT_EQ("", CWhitespaceUtils::Collapse(std::string(" \t\r\n ")));
    EXPECT_EQ("", CWhitespaceUtils::Collapse(std::string()));
    EXPECT_EQ("x", CWhitespaceUtils::Collapse(std::string("x")));
    // Bytes of a multi-byte character are copied as they are.
    EXPECT_EQ("\xC3\xA9 x", CWhitespaceUtils::Collapse(std::string("\xC3\xA9  x")));
    EXPECT_EQ("a", CWhitespaceUtils::Collapse(Bytes("a\0 b", 4)));
}

TEST(WhitespaceUtils, ApplyRuleDispatches) {
    const std::string text = " a\r\nb  ";
    EXPECT_EQ(text, CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_none, text));
    EXPECT_EQ(" a\nb  ", CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_preserve, text));
    EXPECT_EQ(" a b  ", CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_replace, text));
    EXPECT_EQ("a b", CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_collapse, text));
}

TEST(WhitespaceUtils, RuleNoneKeepsCarriageReturnWherePreserveDoesNot) {
    EXPECT_EQ("a\rb", CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_none, "a\rb"));
    EXPECT_EQ("a\nb", CWhitespaceUtils::ApplyRule(CWhitespaceUtils::WhitespaceRule_preserve, "a\rb"));
}

TEST(WhitespaceUtils, UnknownRuleIsRefused) {
    const auto badRule = static_cast<CWhitespaceUtils::WhitespaceRule>(4);
    EXPECT_OX_THROW(CWhitespaceUtils::ApplyRule(badRule, "x"), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CWhitespaceUtils::IsUnchangedByRule(badRule, "x"), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CWhitespaceUtils::ApplyRule(static_cast<CWhitespaceUtils::WhitespaceRule>(-1), ""), COxException,
                    "Unknown WhitespaceRule");
}

// The shortcut that lets conversions skip the copy must agree with the rules themselves, on
// every short text over an alphabet that holds each kind of byte the rules treat specially.
TEST(WhitespaceUtils, IsUnchangedByRuleAgreesWithApplyRule) {
    const char alphabet[] = {'a', ' ', '\t', '\r', '\n', '\0'};
    std::vector<std::string> texts{std::string()};
    for (size_t nLen = 1; nLen <= 4; ++nLen) {
        std::vector<std::string> longer;
        for (const std::string& s : texts) {
            if (s.size() != nLen - 1) continue;
            for (char c : alphabet) longer.push_back(s + c);
        }
        texts.insert(texts.end(), longer.begin(), longer.end());
    }
    ASSERT_EQ(1u + 6u + 36u + 216u + 1296u, texts.size());

    const CWhitespaceUtils::WhitespaceRule rules[] = {
        CWhitespaceUtils::WhitespaceRule_none, CWhitespaceUtils::WhitespaceRule_preserve,
        CWhitespaceUtils::WhitespaceRule_replace, CWhitespaceUtils::WhitespaceRule_collapse};
    for (CWhitespaceUtils::WhitespaceRule rule : rules) {
        for (const std::string& s : texts) {
            bool bUnchanged = CWhitespaceUtils::ApplyRule(rule, s) == s;
            EXPECT_EQ(bUnchanged, CWhitespaceUtils::IsUnchangedByRule(rule, s))
                << "rule " << rule << ", text of " << s.size() << " bytes";
        }
    }
}

}  // namespace
