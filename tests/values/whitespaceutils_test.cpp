#include "orvexxml/values/whitespaceutils.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "expectthrow.h"

using OrvexXml::COxException;
using OrvexXml::CWhitespaceUtils;

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;
const Rule NONE = CWhitespaceUtils::WhitespaceRule_none;
const Rule PRESERVE = CWhitespaceUtils::WhitespaceRule_preserve;
const Rule REPLACE = CWhitespaceUtils::WhitespaceRule_replace;
const Rule COLLAPSE = CWhitespaceUtils::WhitespaceRule_collapse;

std::string Bytes(const char* p, size_t n) { return std::string(p, n); }

TEST(WhitespaceUtils, IsWhiteSpaceKnowsExactlyFourCharacters) {
    for (char c : {' ', '\t', '\r', '\n'}) EXPECT_TRUE(CWhitespaceUtils::IsWhiteSpace(c)) << static_cast<int>(c);
    for (char c : {'\v', '\f', '\0', 'a', static_cast<char>(0xA0)}) {
        EXPECT_FALSE(CWhitespaceUtils::IsWhiteSpace(c)) << static_cast<int>(c);
    }
}

// Each text under the three rules, through the named functions and through ApplyRule; the
// rule "none" gives the text back as it is, carriage returns and NULs included.
TEST(WhitespaceUtils, PreserveReplaceAndCollapse) {
    const struct {
        std::string text;
        std::string preserved;  // line ends become LF, a CRLF one LF
        std::string replaced;   // each whitespace, a CRLF counting as one, becomes a space
        std::string collapsed;  // words joined by one space, none at either end
    } rows[] = {
        {"a\r\nb\rc", "a\nb\nc", "a b c", "a b c"},
        {"a\rb", "a\nb", "a b", "a b"},
        {"\r\r\n", "\n\n", "  ", ""},
        {"\r\n\r\n", "\n\n", "  ", ""},
        {"\n\r", "\n\n", "  ", ""},
        {"\n\r\t", "\n\n\t", "   ", ""},
        {"a\r", "a\n", "a ", "a"},
        {" a\r\nb  ", " a\nb  ", " a b  ", "a b"},
        {"a\tb\nc\rd", "a\tb\nc\nd", "a b c d", "a b c d"},
        {" a\t b \n", " a\t b \n", " a  b  ", "a b"},
        {"  hello \t\r\n world  ", "  hello \t\n world  ", "  hello    world  ", "hello world"},
        {" \t\r\n ", " \t\n ", "    ", ""},
        {"  a  ", "  a  ", "  a  ", "a"},
        {"x", "x", "x", "x"},
        {"", "", "", ""},
        // Bytes of a multi-byte character are copied as they are.
        {"\xC3\xA9  x", "\xC3\xA9  x", "\xC3\xA9  x", "\xC3\xA9 x"},
        // The rules end the text at a NUL, except preserve when there is no CR to change.
        {Bytes("a\0b", 3), Bytes("a\0b", 3), "a", "a"},
        {Bytes("a\0\tb", 4), Bytes("a\0\tb", 4), "a", "a"},
        {Bytes("a\0 b", 4), Bytes("a\0 b", 4), "a", "a"},
        {Bytes("a\r\0b\r", 5), "a\n", "a ", "a"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        EXPECT_EQ(row.preserved, CWhitespaceUtils::Preserve(row.text));
        EXPECT_EQ(row.replaced, CWhitespaceUtils::Replace(row.text));
        EXPECT_EQ(row.collapsed, CWhitespaceUtils::Collapse(row.text));
        EXPECT_EQ(row.text, CWhitespaceUtils::ApplyRule(NONE, row.text));
        EXPECT_EQ(row.preserved, CWhitespaceUtils::ApplyRule(PRESERVE, row.text));
        EXPECT_EQ(row.replaced, CWhitespaceUtils::ApplyRule(REPLACE, row.text));
        EXPECT_EQ(row.collapsed, CWhitespaceUtils::ApplyRule(COLLAPSE, row.text));
    }
}

TEST(WhitespaceUtils, PreserveOfBufferTakesGivenLength) {
    EXPECT_EQ("a\nb", CWhitespaceUtils::Preserve("a\r\nb", 4));
    EXPECT_EQ("a\n", CWhitespaceUtils::Preserve("a\rbc", 2));
    // A CR at the last position counted is not joined with a LF beyond the length.
    EXPECT_EQ("a\n", CWhitespaceUtils::Preserve("a\r\n", 2));
    EXPECT_EQ("x", CWhitespaceUtils::Preserve(Bytes("x\0\r", 3).c_str(), 3));
    EXPECT_EQ("", CWhitespaceUtils::Preserve("abc", 0));
}

TEST(WhitespaceUtils, UnknownRuleIsRefused) {
    const auto badRule = static_cast<Rule>(4);
    EXPECT_OX_THROW(CWhitespaceUtils::ApplyRule(badRule, "x"), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CWhitespaceUtils::IsUnchangedByRule(badRule, "x"), COxException, "Unknown WhitespaceRule");
    EXPECT_OX_THROW(CWhitespaceUtils::ApplyRule(static_cast<Rule>(-1), ""), COxException, "Unknown WhitespaceRule");
}

// The shortcut that lets conversions skip the copy must agree with the rules themselves, on
// every short text over an alphabet that holds each kind of byte the rules treat specially.
TEST(WhitespaceUtils, IsUnchangedByRuleAgreesWithApplyRule) {
    const char alphabet[] = {'a', ' ', '\t', '\r', '\n', '\0'};
    std::vector<std::string> texts{std::string()};
    // Shortest first: each text gets every one-byte extension until the length reaches 4.
    for (size_t i = 0; texts[i].size() < 4; ++i) {
        for (char c : alphabet) texts.push_back(texts[i] + c);
    }
    ASSERT_EQ(1u + 6u + 36u + 216u + 1296u, texts.size());
    for (Rule rule : {NONE, PRESERVE, REPLACE, COLLAPSE}) {
        for (const std::string& s : texts) {
            EXPECT_EQ(CWhitespaceUtils::ApplyRule(rule, s) == s, CWhitespaceUtils::IsUnchangedByRule(rule, s))
                << "rule " << rule << ", text " << testing::PrintToString(s);
        }
    }
}

}  // namespace
