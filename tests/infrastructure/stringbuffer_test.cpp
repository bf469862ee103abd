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
    std::mt19937 rng(12345);
    for (uint32_t nBlockSize : {2u, 7u, 64u, 4096u}) {
        SCOPED_TRACE(nBlockSize);
        CStringBuffer buffer(nBlockSize);
        std::string expected;
        for (int step = 0; step < 3000; ++step) {
            const int op = static_cast<int>(rng() % 100);
            if (op < 50) {
                std::string piece(rng() % 200, 'a');
                for (char& c : piece) c = static_cast<char>('a' + rng() % 26);
                buffer.Append(piece.data(), static_cast<uint32_t>(piece.size()));
                expected += piece;
            } else if (op < 85) {
                const char c = static_cast<char>('A' + rng() % 26);
                buffer.Append(c);
                expected += c;
            } else if (op < 98) {
                ASSERT_EQ(expected, buffer.GetBuffer());
            } else {
                buffer.Clear();
                expected.clear();
            }
            ASSERT_EQ(expected.size(), buffer.GetLength());
        }
        EXPECT_EQ(expected, buffer.GetBuffer());
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
