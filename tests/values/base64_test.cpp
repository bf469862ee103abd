#include "orvexxml/values/base64.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

using OrvexXml::CBase64;
using OrvexXml::OxULong;

namespace {

std::string Encode(const std::string& bytes) {
    CBase64 codec;
    return codec.Encode(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<OxULong>(bytes.size()));
}

// Decodes into an array of exactly strlen(text) bytes, the least the codec may ask for.
// The byte count the codec returned goes to *pCount.
std::string Decode(const std::string& text, OxULong* pCount = nullptr) {
    std::vector<unsigned char> out(text.empty() ? 1 : text.size(), 0xEE);
    CBase64 codec;
    const OxULong nCount = codec.Decode(text.c_str(), out.data());
    if (pCount) *pCount = nCount;
    return std::string(reinterpret_cast<const char*>(out.data()), nCount);
}

// The text with the top bit set on every character.
std::string WithTopBits(std::string text) {
    for (char& c : text) c = static_cast<char>(static_cast<unsigned char>(c) | 0x80);
    return text;
}

TEST(Base64, StandardVectorsBothWaysOnOneCodec) {
    const struct {
        std::string bytes;
        std::string text;
    } rows[] = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
        // The last two characters of the alphabet, and zero bits filled in on the right.
        {std::string("\xFB\xFF", 2), "+/8="},
        {std::string("\0\0\0", 3), "AAAA"},
    };
    // One codec serves run after run: nothing of a refused run is carried into the next.
    CBase64 codec;
    unsigned char out[8] = {};
    EXPECT_EQ(0u, codec.Decode("Zm9v*", out));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(row.text, codec.Encode(reinterpret_cast<const unsigned char*>(row.bytes.data()),
                                         static_cast<OxULong>(row.bytes.size())));
        const OxULong nCount = codec.Decode(row.text.c_str(), out);
        EXPECT_EQ(row.bytes, std::string(reinterpret_cast<const char*>(out), nCount));
    }
    const unsigned char byte = 1;
    EXPECT_EQ("", codec.Encode(nullptr, 3));
    EXPECT_EQ("", codec.Encode(&byte, 0));
    EXPECT_EQ(0u, codec.Decode(nullptr, out));
}

TEST(Base64, DecodingToleratesBlanksPaddingTopBitsAndShortGroups) {
    const struct {
        std::string text;
        std::string bytes;
    } rows[] = {
        // Blanks, line breaks and "=" are skipped wherever they stand.
        {"Zm9v\r\nYmFy", "foobar"},
        {" Z m\t9 v\nY m F y \r\n", "foobar"},
        {"Zm=9vYm==Fy", "foobar"},
        {"Zm9v====YmFy====", "foobar"},
        {"==Zm9vYmFy", "foobar"},
        {" \t\r\n==", ""},
        // Missing padding; six bits make no byte, a partial last group keeps the whole bytes
        // before it, and pad bits that are not zero are dropped.
        {"Zg", "f"},
        {"Zm8", "fo"},
        {"Z", ""},
        {"Zm9vY", "foo"},
        {"Zh==", "f"},
        // The top bit of a character is ignored, on the fast and the slow path.
        {WithTopBits("Zm9vYmFy"), "foobar"},
        {WithTopBits("Zg=="), "f"},
        {WithTopBits("Zm9v\r\n YmFy"), "foobar"},
        {"Zm9v" + WithTopBits("Ym") + "Fy", "foobar"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(row.bytes, Decode(row.text));
    }
}

TEST(Base64, CharacterOutsideTheAlphabetGivesZero) {
    // Within a group, after whole groups, at the very end; the URL-safe alphabet, other
    // separators, and "*" with the top bit set (0xAA) are all refused.
    const char* texts[] = {"Zm9v*mFy", "Zm9vYmFy!", "Zm9-", "Zm9_", "Zm9v\fYmFy", "Zm9v.", "Zm9v\xAA"};
    for (const char* pszText : texts) {
        SCOPED_TRACE(pszText);
        OxULong nCount = 99;
        Decode(pszText, &nCount);
        EXPECT_EQ(0u, nCount);
    }
}

TEST(Base64, EveryAlphabetCharacterHasItsValue) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    // The 64 characters in order encode the 6-bit values 0 to 63, that is 48 bytes.
    const std::string bytes = Decode(alphabet);
    ASSERT_EQ(48u, bytes.size());
    for (int i = 0; i < 64; ++i) {
        int value = 0;
        for (int nPos = i * 6; nPos < i * 6 + 6; ++nPos) {
            value = (value << 1) | ((static_cast<unsigned char>(bytes[nPos / 8]) >> (7 - nPos % 8)) & 1);
        }
        EXPECT_EQ(i, value) << "character " << alphabet[i];
    }
    EXPECT_EQ(alphabet, Encode(bytes));
}

TEST(Base64, LargeBufferRoundTripsWithAndWithoutLineBreaks) {
    std::mt19937 engine(5);
    std::vector<unsigned char> bytes(3 * 1024 * 1024 + 1);
    for (unsigned char& b : bytes) b = static_cast<unsigned char>(engine());
    CBase64 codec;
    const std::string text = codec.Encode(bytes.data(), static_cast<OxULong>(bytes.size()));
    // One line, padded after the one byte of the last group.
    ASSERT_EQ((bytes.size() + 2) / 3 * 4, text.size());
    EXPECT_EQ(std::string::npos, text.find_first_of("\r\n"));
    EXPECT_EQ("==", text.substr(text.size() - 2));

    std::vector<unsigned char> out(text.size() + 1);
    ASSERT_EQ(bytes.size(), codec.Decode(text.c_str(), out.data()));
    EXPECT_EQ(0, std::memcmp(bytes.data(), out.data(), bytes.size()));

    // The same text wrapped at 76 characters, as mail and other writers do.
    std::string wrapped;
    for (size_t i = 0; i < text.size(); i += 76) wrapped += text.substr(i, 76) + "\r\n";
    std::vector<unsigned char> outWrapped(wrapped.size() + 1);
    ASSERT_EQ(bytes.size(), codec.Decode(wrapped.c_str(), outWrapped.data()));
    EXPECT_EQ(0, std::memcmp(bytes.data(), outWrapped.data(), bytes.size()));
}

}  // namespace
