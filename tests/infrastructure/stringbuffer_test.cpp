#include "orvexxml/infrastructure/stringbuffer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <random>
#include <string>

#include "orvexxml/infrastructure/instancemonitor.h"

using namespace OrvexXml;

namespace {

// Living and total instances of a class, as the monitor reports them.
std::pair<int, int> Counts(const char* pszClassName) {
    std::string dump = CInstanceMonitor::DumpState();
    std::string key = std::string(" ") + pszClassName + " = ";
    size_t pos = dump.find(key);
    if (pos == std::string::npos) return {0, 0};
    int nLiving = 0, nTotal = 0;
    std::sscanf(dump.c_str() + pos + key.size(), "%d/%d", &nLiving, &nTotal);
    return {nLiving, nTotal};
}

}  // namespace

TEST(StringBufferBlocks, EmptyBufferGivesSharedEmptyString) {
    CStringBuffer a;
    CStringBuffer b;
    EXPECT_EQ(0u, a.GetLength());
    EXPECT_STREQ("", a.GetBuffer());
    // No block was made for it: both buffers hand out the same static empty string.
    EXPECT_EQ(a.GetBuffer(), b.GetBuffer());
}

TEST(StringBufferBlocks, FullSingleBlockIsReturnedInPlace) {
    CStringBuffer buffer;
    std::string text(4095, 'x');
    buffer.Append(text);
    const char* p = buffer.GetBuffer();
    EXPECT_EQ(4095u, buffer.GetLength());
    EXPECT_EQ(text, std::string(p));
    EXPECT_EQ('\0', p[4095]);
    EXPECT_EQ(p, buffer.GetBuffer());
}

TEST(StringBufferBlocks, OneByteMoreThanABlockIsJoined) {
    CStringBuffer buffer;
    std::string text;
    for (int i = 0; i < 4096; ++i) text += static_cast<char>('a' + i % 26);
    buffer.Append(text);
    EXPECT_EQ(4096u, buffer.GetLength());
    EXPECT_EQ(text, std::string(buffer.GetBuffer()));
    EXPECT_EQ(4096u, std::strlen(buffer.GetBuffer()));
}

TEST(StringBufferBlocks, AppendAfterJoinStartsANewBlockAndJoinsAgain) {
    CStringBuffer buffer;
    std::string text(5000, 'a');
    buffer.Append(text);
    buffer.GetBuffer();
    buffer.Append("tail");
    text += "tail";
    EXPECT_EQ(5004u, buffer.GetLength());
    EXPECT_EQ(text, std::string(buffer.GetBuffer()));
    buffer.Append('!');
    EXPECT_EQ(text + "!", std::string(buffer.GetBuffer()));
}

TEST(StringBufferBlocks, ClearAfterJoinKeepsTheJoinedBlock) {
    CStringBuffer buffer;
    buffer.Append(std::string(8000, 'a'));
    const char* pJoined = buffer.GetBuffer();
    buffer.Clear();
    EXPECT_EQ(0u, buffer.GetLength());
    EXPECT_STREQ("", buffer.GetBuffer());
    EXPECT_EQ(pJoined, buffer.GetBuffer());
    // 8000 bytes fit into the kept block, so the text is handed out in place again.
    std::string text(8000, 'b');
    buffer.Append(text);
    EXPECT_EQ(pJoined, buffer.GetBuffer());
    EXPECT_EQ(text, std::string(buffer.GetBuffer()));
}

TEST(StringBufferBlocks, ClearWithSeveralBlocksReleasesAll) {
    CStringBuffer buffer;
    CStringBuffer empty;
    buffer.Append(std::string(9000, 'a'));
    buffer.Clear();
    EXPECT_EQ(0u, buffer.GetLength());
    EXPECT_EQ(empty.GetBuffer(), buffer.GetBuffer());
}

TEST(StringBufferBlocks, ClearOfSingleBlockZeroesTheOldText) {
    CStringBuffer buffer;
    buffer.Append("abcdef");
    buffer.Clear();
    buffer.Append("xy");
    EXPECT_STREQ("xy", buffer.GetBuffer());
}

TEST(StringBufferBlocks, EmptyAppendAddsNoBlock) {
    CStringBuffer buffer;
    CStringBuffer empty;
    buffer.Append("");
    buffer.Append(std::string());
    buffer.Append("", 0);
    EXPECT_EQ(0u, buffer.GetLength());
    EXPECT_EQ(empty.GetBuffer(), buffer.GetBuffer());

    // A full block stays the only one: the text is still returned in place.
    buffer.Append(std::string(4095, 'x'));
    const char* p = buffer.GetBuffer();
    buffer.Append("");
    EXPECT_EQ(p, buffer.GetBuffer());
    EXPECT_EQ(4095u, buffer.GetLength());
}

TEST(StringBufferBlocks, NullByteIsCountedAndEndsTheString) {
    CStringBuffer buffer;
    buffer.Append("ab");
    buffer.Append('\0');
    buffer.Append("cd");
    EXPECT_EQ(5u, buffer.GetLength());
    const char* p = buffer.GetBuffer();
    EXPECT_STREQ("ab", p);
    EXPECT_EQ(0, std::memcmp("ab\0cd", p, 6));
}

TEST(StringBufferBlocks, StringAppendsStopAtTheFirstNullByte) {
    CStringBuffer buffer;
    buffer.Append(std::string("ab\0cd", 5));
    EXPECT_EQ(2u, buffer.GetLength());
    buffer.Append("xy\0z", 4);
    EXPECT_EQ(6u, buffer.GetLength());
    EXPECT_EQ(0, std::memcmp("abxy\0z", buffer.GetBuffer(), 7));
}

TEST(StringBufferBlocks, AssignReplacesTheText) {
    CStringBuffer buffer;
    buffer.Append(std::string(6000, 'a'));
    buffer.Assign("new");
    EXPECT_EQ(3u, buffer.GetLength());
    EXPECT_STREQ("new", buffer.GetBuffer());
}

TEST(StringBufferBlocks, SmallBlockSizeCountsTheTerminator) {
    // Blocks of 4 bytes hold 3 bytes of text each.
    CStringBuffer buffer(4);
    buffer.Append("abc");
    const char* p = buffer.GetBuffer();
    buffer.Append("");
    EXPECT_EQ(p, buffer.GetBuffer());  // still one block
    buffer.Append('d');
    EXPECT_STREQ("abcd", buffer.GetBuffer());
    EXPECT_NE(p, buffer.GetBuffer());
}

TEST(StringBufferBlocks, DegenerateBlockSizeStillStoresText) {
    CStringBuffer buffer(1);
    buffer.Append("hello");
    buffer.Append('!');
    EXPECT_EQ(6u, buffer.GetLength());
    EXPECT_STREQ("hello!", buffer.GetBuffer());
}

TEST(StringBufferBlocks, MixedOperationsMatchAPlainString) {
    std::mt19937 rng(12345);
    for (uint32_t nBlockSize : {2u, 7u, 64u, 4096u}) {
        CStringBuffer buffer(nBlockSize);
        std::string expected;
        for (int step = 0; step < 3000; ++step) {
            int op = static_cast<int>(rng() % 100);
            if (op < 50) {
                std::string piece(rng() % 200, 'a');
                for (char& c : piece) c = static_cast<char>('a' + rng() % 26);
                buffer.Append(piece.data(), static_cast<uint32_t>(piece.size()));
                expected += piece;
            } else if (op < 85) {
                char c = static_cast<char>('A' + rng() % 26);
                buffer.Append(c);
                expected += c;
            } else if (op < 98) {
                ASSERT_EQ(expected, std::string(buffer.GetBuffer())) << "block size " << nBlockSize;
            } else {
                buffer.Clear();
                expected.clear();
            }
            ASSERT_EQ(expected.size(), buffer.GetLength());
        }
        EXPECT_EQ(expected, std::string(buffer.GetBuffer()));
    }
}

TEST(StringBufferMonitor, RegistersUnderItsClassName) {
    std::pair<int, int> before = Counts("CStringBuffer");
    {
        CStringBuffer buffer;
        std::pair<int, int> during = Counts("CStringBuffer");
        EXPECT_EQ(before.first + 1, during.first);
        EXPECT_EQ(before.second + 1, during.second);
    }
    std::pair<int, int> after = Counts("CStringBuffer");
    EXPECT_EQ(before.first, after.first);
    EXPECT_EQ(before.second + 1, after.second);
}
