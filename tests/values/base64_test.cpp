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
// Gives the decoded bytes, and the byte count through nCount.
std::string Decode(const std::string& text, OxULong& nCount) {
    std::vector<unsigned char> out(text.empty() ? 1 : text.size(), 0xEE);
    CBase64 codec;
    nCount = codec.Decode(text.c_str(), out.data());
    return std::string(reinterpret_cast<const char*>(out.data()), nCount);
}

std::string Decode(const std::string& text) {
    OxULong nCount = 0;
    return Decode(text, nCount);
}

// The text with the top bit set on every character.
std::string WithTopBits(const std::string& text) {
    std::string result = text;
    for (char& c : result) c = static_cast<char>(static_cast<unsigned char>(c) | 0x80);
    return result;
}

std::vector<unsigned char> RandomBytes(size_t nCount, unsigned nSeed) {
    std::mt19937 engine(nSeed);
    std::uniform_int_distribution<int> dist(0, 255);
    std::vector<unsigned char> bytes(nCount);
    for (unsigned char& b : bytes) b = static_cast<unsigned char>(dist(engine));
    return bytes;
}

// --- encoding ------------------------------------------------------------------------------

TEST(Base64Encode, StandardVectors) {
    EXPECT_EQ("", Encode(""));
    EXPECT_EQ("Zg==", Encode("f"));
    EXPECT_EQ("Zm8=", Encode("fo"));
    EXPECT_EQ("Zm9v", Encode("foo"));
    EXPECT_EQ("Zm9vYg==", Encode("foob"));
    EXPECT_EQ("Zm9vYmE=", Encode("fooba"));
    EXPECT_EQ("Zm9vYmFy", Encode("foobar"));
    // The last two characters of the alphabet, and zero bits filled in on the right.
    EXPECT_EQ("+/8=", Encode(std::string("\xFB\xFF", 2)));
    EXPECT_EQ("AAAA", Encode(std::string("\0\0\0", 3)));
}

TEST(Base64Encode, NullOrZeroLengthGivesTheEmptyText) {
    CBase64 codec;
    const unsigned char byte = 1;
    EXPECT_EQ("", codec.Encode(nullptr, 3));
    EXPECT_EQ("", codec.Encode(&byte, 0));
}

TEST(Base64Encode, LongInputStaysOneLine) {
    std::vector<unsigned char> bytes = RandomBytes(1000, 4);
    CBase64 codec;
    const std::string text = codec.Encode(bytes.data(), 1000);
    EXPECT_EQ(1336u, text.size());
    EXPECT_EQ(std::string::npos, text.find_first_of("\r\n"));
    EXPECT_EQ("==", text.substr(1334));
}

// --- decoding ------------------------------------------------------------------------------

TEST(Base64Decode, StandardVectors) {
    OxULong nCount = 99;
    EXPECT_EQ("", Decode("", nCount));
    EXPECT_EQ(0u, nCount);
    EXPECT_EQ("f", Decode("Zg==", nCount));
    EXPECT_EQ(1u, nCount);
    EXPECT_EQ("fo", Decode("Zm8="));
    EXPECT_EQ("foo", Decode("Zm9v"));
    EXPECT_EQ("foob", Decode("Zm9vYg=="));
    EXPECT_EQ("fooba", Decode("Zm9vYmE="));
    EXPECT_EQ("foobar", Decode("Zm9vYmFy", nCount));
    EXPECT_EQ(6u, nCount);
    EXPECT_EQ(std::string("\xFB\xFF", 2), Decode("+/8="));
}

TEST(Base64Decode, NullTextGivesZero) {
    CBase64 codec;
    unsigned char out[4] = {};
    EXPECT_EQ(0u, codec.Decode(nullptr, out));
}

TEST(Base64Decode, BlanksLineBreaksAndPaddingAreSkippedAnywhere) {
    EXPECT_EQ("foobar", Decode("Zm9v\r\nYmFy"));
    EXPECT_EQ("foobar", Decode(" Z m\t9 v\nY m F y \r\n"));
    EXPECT_EQ("foobar", Decode("Zm=9vYm==Fy"));
    EXPECT_EQ("foobar", Decode("Zm9v====YmFy===="));
    EXPECT_EQ("foobar", Decode("==Zm9vYmFy"));
    EXPECT_EQ("", Decode(" \t\r\n=="));
}

TEST(Base64Decode, MissingPaddingAndLeftoverBits) {
    EXPECT_EQ("f", Decode("Zg"));
    EXPECT_EQ("fo", Decode("Zm8"));
    // Six bits make no byte; a partial last group keeps the whole bytes before it.
    EXPECT_EQ("", Decode("Z"));
    EXPECT_EQ("foo", Decode("Zm9vY"));
    // Pad bits that are not zero are dropped as well.
    EXPECT_EQ("f", Decode("Zh=="));
}

TEST(Base64Decode, CharacterOutsideTheAlphabetGivesZero) {
    OxULong nCount = 99;
    Decode("Zm9v*mFy", nCount);
    EXPECT_EQ(0u, nCount);
    // Even after whole groups, and even at the very end.
    Decode("Zm9vYmFy!", nCount);
    EXPECT_EQ(0u, nCount);
    // The URL-safe alphabet's characters and other separators are not accepted.
    Decode("Zm9-", nCount);
    EXPECT_EQ(0u, nCount);
    Decode("Zm9_", nCount);
    EXPECT_EQ(0u, nCount);
    Decode("Zm9v\fYmFy", nCount);
    EXPECT_EQ(0u, nCount);
    Decode("Zm9v.", nCount);
    EXPECT_EQ(0u, nCount);
}

TEST(Base64Decode, TopBitOfACharacterIsIgnored) {
    EXPECT_EQ("foobar", Decode(WithTopBits("Zm9vYmFy")));
    EXPECT_EQ("f", Decode(WithTopBits("Zg==")));
    EXPECT_EQ("foobar", Decode(WithTopBits("Zm9v\r\n YmFy")));
    EXPECT_EQ("foobar", Decode("Zm9v" + WithTopBits("Ym") + "Fy"));
    // 0xAA is "*" with the top bit: invalid like "*" itself.
    OxULong nCount = 99;
    Decode("Zm9v\xAA", nCount);
    EXPECT_EQ(0u, nCount);
}

TEST(Base64Decode, EveryAlphabetCharacterHasItsValue) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    // The 64 characters in order encode the 6-bit values 0 to 63, that is 48 bytes.
    const std::string bytes = Decode(alphabet);
    ASSERT_EQ(48u, bytes.size());
    for (int i = 0; i < 64; ++i) {
        const int nBit = i * 6;
        int value = 0;
        for (int b = 0; b < 6; ++b) {
            const int nPos = nBit + b;
            const int bit = (static_cast<unsigned char>(bytes[nPos / 8]) >> (7 - nPos % 8)) & 1;
            value = (value << 1) | bit;
        }
        EXPECT_EQ(i, value) << "character " << alphabet[i];
    }
    EXPECT_EQ(alphabet, Encode(bytes));
}

// --- both ways -----------------------------------------------------------------------------

TEST(Base64RoundTrip, OneObjectServesRunAfterRun) {
    CBase64 codec;
    unsigned char out[16] = {};
    EXPECT_EQ(0u, codec.Decode("Zm9v*", out));
    // Nothing of the refused run is carried into the next one.
    EXPECT_EQ(1u, codec.Decode("Zg", out));
    EXPECT_EQ('f', out[0]);
    EXPECT_EQ("Zm9v", codec.Encode(reinterpret_cast<const unsigned char*>("foo"), 3));
    EXPECT_EQ(3u, codec.Decode("YmFy", out));
    EXPECT_EQ(0, std::memcmp(out, "bar", 3));
}

TEST(Base64RoundTrip, LargeBufferWithAndWithoutLineBreaks) {
    const std::vector<unsigned char> bytes = RandomBytes(3 * 1024 * 1024 + 1, 5);
    CBase64 codec;
    const std::string text = codec.Encode(bytes.data(), static_cast<OxULong>(bytes.size()));
    ASSERT_EQ((bytes.size() + 2) / 3 * 4, text.size());

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
