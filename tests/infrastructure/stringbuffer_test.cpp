#include "orvexxml/infrastructure/stringbuffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "orvexxml/infrastructure/instancemonitor.h"

using namespace OrvexXml;

namespace {

TEST(StringBuffer, EmptyBufferGivesOneSharedEmptyStringAndEmptyAppendsAddNoBlock) {
    CStringBuffer a, b;
    EXPECT_EQ(0u, a.GetLength());
    EXPECT_STREQ("", a.GetBuffer());
    EXPECT_EQ(a.GetBuffer(), b.GetBuffer());  // no block was made for either
    a.Append("");
    a.Append(std::string());
    a.Append("", 0);
    EXPECT_EQ(0u, a.GetLength());
    EXPECT_EQ(b.GetBuffer(), a.GetBuffer());
}

TEST(StringBuffer, FullBlockIsReturnedInPlaceAndOneByteMoreIsJoined) {
    CStringBuffer buffer;
    const std::string text(4095, 'x');
    buffer.Append(text);
    const char* p = buffer.GetBuffer();
    EXPECT_EQ(4095u, buffer.GetLength());
    EXPECT_EQ(text, p);
    buffer.Append("");  // a full block stays the only one
    EXPECT_EQ(p, buffer.GetBuffer());
    buffer.Append('y');
    EXPECT_EQ(4096u, buffer.GetLength());
    EXPECT_EQ(text + "y", buffer.GetBuffer());
    EXPECT_EQ(4096u, std::strlen(buffer.GetBuffer()));
    // The same bytes in one append that spans two blocks; after the join, an append starts a
    // new block and the next GetBuffer joins again.
    CStringBuffer whole;
    whole.Append(text + "y");
    EXPECT_EQ(text + "y", whole.GetBuffer());
    whole.Append("tail");
    whole.Append('!');
    EXPECT_EQ(4101u, whole.GetLength());
    EXPECT_EQ(text + "ytail!", whole.GetBuffer());

    // Blocks of 4 bytes hold 3 bytes of text each; a size below 2 still stores text.
    CStringBuffer small(4);
    small.Append("abc");
    const char* pSmall = small.GetBuffer();
    small.Append('d');
    EXPECT_STREQ("abcd", small.GetBuffer());
    EXPECT_NE(pSmall, small.GetBuffer());
    CStringBuffer tiny(1);
    tiny.Append("hello");
    tiny.Append('!');
    EXPECT_EQ(6u, tiny.GetLength());
    EXPECT_STREQ("hello!", tiny.GetBuffer());
}

TEST(StringBuffer, ClearKeepsASingleBlockZeroedAndReleasesSeveral) {
    CStringBuffer buffer, empty;
    buffer.Append(std::string(8000, 'a'));
    const char* pJoined = buffer.GetBuffer();
    buffer.Clear();
    EXPECT_EQ(0u, buffer.GetLength());
    EXPECT_EQ(pJoined, buffer.GetBuffer());
    EXPECT_STREQ("", buffer.GetBuffer());
    // 8000 bytes fit into the kept block, so the text is handed out in place again.
    const std::string text(8000, 'b');
    buffer.Append(text);
    EXPECT_EQ(pJoined, buffer.GetBuffer());
    EXPECT_EQ(text, buffer.GetBuffer());

    CStringBuffer single;
    single.Append("abcdef");
    single.Clear();
    single.Append("xy");
    EXPECT_STREQ("xy", single.GetBuffer());

    CStringBuffer several;
    several.Append(std::string(9000, 'a'));
    several.Clear();
    EXPECT_EQ(0u, several.GetLength());
    EXPECT_EQ(empty.GetBuffer(), several.GetBuffer());
    several.Append(std::string(6000, 'a'));
    several.Assign("new");
    EXPECT_EQ(3u, several.GetLength());
    EXPECT_STREQ("new", several.GetBuffer());
}

TEST(StringBuffer, NullBytesAreCountedWhenAppendedAloneAndEndStringAppends) {
    CStringBuffer buffer;
    buffer.Append(std::string("ab\0cd", 5));
    EXPECT_EQ(2u, buffer.GetLength());
    buffer.Append('\0');
    buffer.Append("xy\0z", 4);
    EXPECT_EQ(7u, buffer.GetLength());
    EXPECT_STREQ("ab", buffer.GetBuffer());
    EXPECT_EQ(0, std::memcmp("ab\0xy\0z", buffer.GetBuffer(), 8));
}

TEST(StringBuffer, MixedOperationsMatchAPlainString) {
    // Blocks of several sizes, and the contiguous form with no guess, a small and a large one.
    struct Case {
        uint32_t nBlockSize;
        bool bContiguous;
        size_t nExpected;
    };
    const Case aCases[] = {{2, false, 0},   {7, false, 0},     {64, false, 0},       {4096, false, 0},
                           {4096, true, 0}, {4096, true, 100}, {4096, true, 1 << 20}};
    std::mt19937 rng(12345);
    for (const Case& c : aCases) {
        SCOPED_TRACE(testing::Message() << c.nBlockSize << (c.bContiguous ? " contiguous " : " blocks ")
                                        << c.nExpected);
        CStringBuffer buffer(c.nBlockSize);
        if (c.bContiguous) buffer.KeepContiguous(c.nExpected);
        std::string expected;
        for (int step = 0; step < 3000; ++step) {
            const int op = static_cast<int>(rng() % 100);
            if (op < 40) {
                // Now and then a piece larger than the steps in which contiguous room grows.
                std::string piece(rng() % 50 == 0 ? 70000 + rng() % 1000 : rng() % 200, 'a');
                for (char& ch : piece) ch = static_cast<char>('a' + rng() % 26);
                buffer.Append(piece.data(), static_cast<uint32_t>(piece.size()));
                expected += piece;
            } else if (op < 50) {
                // A string ends at its first null byte, short or long.
                std::string piece(rng() % 80, 'q');
                if (!piece.empty() && rng() % 2 == 0) piece[rng() % piece.size()] = '\0';
                buffer.Append(piece);
                expected += piece.c_str();
            } else if (op < 85) {
                const char ch = static_cast<char>('A' + rng() % 26);
                buffer.Append(ch);
                expected += ch;
            } else if (op < 97) {
                ASSERT_EQ(expected, buffer.GetBuffer());
            } else if (op < 98) {
                std::string copy(buffer.GetLength(), '\0');
                buffer.CopyTo(&copy[0]);
                ASSERT_EQ(expected, copy);
            } else {
                buffer.Clear();
                expected.clear();
            }
            ASSERT_EQ(expected.size(), buffer.GetLength());
        }
        EXPECT_EQ(expected, buffer.GetBuffer());
        EXPECT_EQ(c.bContiguous, buffer.IsContiguous());
        EXPECT_EQ(expected, buffer.TakeString());
        EXPECT_EQ(0u, buffer.GetLength());
        EXPECT_STREQ("", buffer.GetBuffer());
        buffer.Assign("again");
        EXPECT_STREQ("again", buffer.GetBuffer());
        EXPECT_EQ("again", buffer.TakeString());
    }
}

TEST(StringBuffer, RegistersWithTheMonitorUnderItsClassName) {
    CInstanceMonitor::Cleanup();
    const std::string kHeader = "Instances of classes still in existence/Total Number of instances created\n";
    {
        CStringBuffer buffer;
        EXPECT_EQ(kHeader + "--> CStringBuffer = 1/1", CInstanceMonitor::DumpState());
    }
    EXPECT_EQ(kHeader + "    CStringBuffer = 0/1", CInstanceMonitor::DumpState());
}

}  // namespace
