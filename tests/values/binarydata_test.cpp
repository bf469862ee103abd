#include "orvexxml/values/binarydata.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "expectthrow.h"

using OrvexXml::CBinaryData;
using OrvexXml::COxException;
using OrvexXml::OxULong;

namespace {

// The bytes of a value as a string, for comparisons with readable failure output.
std::string Bytes(const CBinaryData& data) {
    if (data.GetData() == nullptr) return std::string();
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

std::vector<unsigned char> RandomBytes(size_t nCount, unsigned nSeed) {
    std::mt19937 engine(nSeed);
    std::uniform_int_distribution<int> dist(0, 255);
    std::vector<unsigned char> bytes(nCount);
    for (unsigned char& b : bytes) b = static_cast<unsigned char>(dist(engine));
    return bytes;
}

// True when the value holds its block alone: writing a byte through the non-const index
// then leaves the bytes where they are. The byte is written back unchanged.
bool IsUnshared(CBinaryData& data) {
    const unsigned char* pBefore = data.GetData();
    unsigned char& byte = data[0];
    const unsigned char value = byte;
    byte = value;
    return data.GetData() == pBefore;
}

// --- construction ----------------------------------------------------------------------------

TEST(BinaryDataConstruction, DefaultIsEmpty) {
    CBinaryData data;
    EXPECT_EQ(nullptr, data.GetData());
    EXPECT_EQ(0u, data.GetLength());
    EXPECT_EQ("", data.GetAsHexString());
    EXPECT_EQ("", data.GetAsBase64());
}

TEST(BinaryDataConstruction, CopiesBytesUnlessTakingOwnership) {
    unsigned char source[] = {1, 2, 3};
    CBinaryData copied(source, 3, false);
    source[0] = 9;
    EXPECT_NE(source, copied.GetData());
    EXPECT_EQ(std::string("\x01\x02\x03", 3), Bytes(copied));

    unsigned char* pOwned = new unsigned char[2]{7, 8};
    CBinaryData owned(pOwned, 2, true);
    EXPECT_EQ(pOwned, owned.GetData());
    EXPECT_EQ(std::string("\x07\x08", 2), Bytes(owned));
}

TEST(BinaryDataConstruction, ZeroLengthStaysEmptyAndLeavesTheArrayToTheCaller) {
    unsigned char* pArray = new unsigned char[4]{1, 2, 3, 4};
    {
        CBinaryData data(pArray, 0, true);
        EXPECT_EQ(nullptr, data.GetData());
        EXPECT_EQ(0u, data.GetLength());
    }
    // Still the caller's: readable after the value is gone, and freed here exactly once.
    EXPECT_EQ(4, pArray[3]);
    delete[] pArray;
}

TEST(BinaryDataConstruction, TextGivesItsBytesWithoutTerminator) {
    CBinaryData data("abc");
    EXPECT_EQ(3u, data.GetLength());
    EXPECT_EQ("abc", Bytes(data));
    EXPECT_EQ(nullptr, CBinaryData("").GetData());
    EXPECT_EQ(nullptr, CBinaryData(static_cast<const char*>(nullptr)).GetData());
}

// --- sharing and copy on write ---------------------------------------------------------------

TEST(BinaryDataSharing, CopyAndAssignmentShareTheBytes) {
    CBinaryData a("shared");
    CBinaryData b(a);
    CBinaryData c;
    c = a;
    EXPECT_EQ(a.GetData(), b.GetData());
    EXPECT_EQ(a.GetData(), c.GetData());
    CBinaryData empty;
    CBinaryData emptyCopy(empty);
    EXPECT_EQ(nullptr, emptyCopy.GetData());
}

TEST(BinaryDataSharing, AppendOnOneHandleLeavesTheOtherAlone) {
    CBinaryData a("abc");
    CBinaryData b(a);
    const unsigned char* pShared = a.GetData();
    a.Append('d');
    EXPECT_EQ("abcd", Bytes(a));
    EXPECT_EQ("abc", Bytes(b));
    // Only the handle that changed moved to a block of its own.
    EXPECT_NE(pShared, a.GetData());
    EXPECT_EQ(pShared, b.GetData());
}

TEST(BinaryDataSharing, WritingThroughTheIndexUnsharesReadingDoesNot) {
    CBinaryData a("abc");
    CBinaryData b(a);
    const CBinaryData& constA = a;
    EXPECT_EQ('b', constA[1]);
    EXPECT_EQ(a.GetData(), b.GetData());

    a[1] = 'X';
    EXPECT_EQ("aXc", Bytes(a));
    EXPECT_EQ("abc", Bytes(b));
    EXPECT_NE(a.GetData(), b.GetData());
    // Each handle is now alone with its block and writes in place.
    EXPECT_TRUE(IsUnshared(a));
    EXPECT_TRUE(IsUnshared(b));
}

TEST(BinaryDataSharing, ReleasedCopiesLeaveTheBlockUnshared) {
    CBinaryData a("abc");
    {
        CBinaryData b(a);
        CBinaryData c(b);
    }
    EXPECT_TRUE(IsUnshared(a));
}

TEST(BinaryDataSharing, AssignmentDropsTheFormerBlock) {
    CBinaryData a("first");
    CBinaryData b(a);
    CBinaryData c("second");
    b = c;
    EXPECT_EQ("second", Bytes(b));
    EXPECT_EQ(c.GetData(), b.GetData());
    EXPECT_TRUE(IsUnshared(a));
    EXPECT_EQ("first", Bytes(a));

    // Assigning a handle to itself, or to another handle on the same block, keeps the bytes.
    const CBinaryData& sameB = b;
    b = sameB;
    b = c;
    EXPECT_EQ("second", Bytes(b));
    EXPECT_EQ("second", Bytes(c));
    b = CBinaryData();
    EXPECT_EQ(nullptr, b.GetData());
    EXPECT_TRUE(IsUnshared(c));
}

TEST(BinaryDataSharing, ClearAndSetBufferTouchOnlyTheirOwnHandle) {
    CBinaryData a("keep");
    CBinaryData b(a);
    CBinaryData c(a);
    b.Clear();
    EXPECT_EQ(nullptr, b.GetData());
    EXPECT_EQ(0u, b.GetLength());
    c.SetBuffer("new");
    EXPECT_EQ("new", Bytes(c));
    EXPECT_EQ("keep", Bytes(a));
    EXPECT_TRUE(IsUnshared(a));
}

TEST(BinaryDataSharing, SetBufferCopiesAndZeroLengthEmpties) {
    CBinaryData data("old");
    unsigned char bytes[] = {0, 1};
    data.SetBuffer(bytes, 2);
    bytes[0] = 5;
    EXPECT_EQ(std::string("\x00\x01", 2), Bytes(data));
    data.SetBuffer(bytes, 0);
    EXPECT_EQ(nullptr, data.GetData());
    data.SetBuffer("text");
    EXPECT_EQ("text", Bytes(data));
    data.SetBuffer("");
    EXPECT_EQ(nullptr, data.GetData());
    // The new bytes may come from the value itself.
    data.SetBuffer("abcdef");
    data.SetBuffer(data.GetData() + 2, 3);
    EXPECT_EQ("cde", Bytes(data));
}

// --- handing the bytes over ------------------------------------------------------------------

TEST(BinaryDataRelease, UnsharedValueHandsOverItsOwnArray) {
    CBinaryData data("abc");
    const unsigned char* pBytes = data.GetData();
    unsigned char* pReleased = data.ReleaseData();
    EXPECT_EQ(pBytes, pReleased);
    EXPECT_EQ(nullptr, data.GetData());
    EXPECT_EQ(0u, data.GetLength());
    EXPECT_EQ(0, std::memcmp(pReleased, "abc", 3));
    delete[] pReleased;
}

TEST(BinaryDataRelease, SharedValueHandsOverAPrivateCopy) {
    CBinaryData a("abc");
    CBinaryData b(a);
    unsigned char* pReleased = a.ReleaseData();
    ASSERT_NE(nullptr, pReleased);
    EXPECT_NE(b.GetData(), pReleased);
    EXPECT_EQ(0, std::memcmp(pReleased, "abc", 3));
    pReleased[0] = 'X';
    EXPECT_EQ("abc", Bytes(b));
    EXPECT_TRUE(IsUnshared(b));
    delete[] pReleased;
}

TEST(BinaryDataRelease, EmptyValueGivesNull) {
    CBinaryData data;
    EXPECT_EQ(nullptr, data.ReleaseData());
}

// --- index ---------------------------------------------------------------------------------

TEST(BinaryDataIndex, IndexAtOrBeyondTheLengthIsRefused) {
    CBinaryData data("abc");
    const CBinaryData& constData = data;
    EXPECT_EQ('c', constData[2]);
    EXPECT_OX_THROW(constData[3], COxException, "Index Out of range [3]");
    EXPECT_OX_THROW(data[3], COxException, "Index Out of range [3]");
    EXPECT_OX_THROW(data[100], COxException, "Index Out of range [100]");

    CBinaryData empty;
    const CBinaryData& constEmpty = empty;
    EXPECT_OX_THROW(empty[0], COxException, "Index Out of range [0]");
    EXPECT_OX_THROW(constEmpty[0], COxException, "Index Out of range [0]");
}

// --- appending -----------------------------------------------------------------------------

TEST(BinaryDataAppend, EveryFormAppendsItsBytes) {
    CBinaryData data;
    data.Append('a');
    data.Append(static_cast<unsigned char>(0));
    data.Append(static_cast<unsigned char>(0xFF));
    const unsigned char bytes[] = {'b', 'c'};
    data.Append(bytes, 2);
    data.Append("de");
    data.Append(std::string("f\0ignored", 9));  // up to the first NUL
    data.Append(CBinaryData("gh"));
    EXPECT_EQ(std::string("a\x00\xFF"
                          "bcdefgh",
                          10),
              Bytes(data));
}

TEST(BinaryDataAppend, NothingToAppendChangesNothing) {
    CBinaryData empty;
    const unsigned char bytes[] = {1};
    empty.Append(bytes, 0);
    empty.Append("");
    empty.Append(std::string());
    empty.Append(static_cast<const char*>(nullptr));
    empty.Append(CBinaryData());
    EXPECT_EQ(nullptr, empty.GetData());

    CBinaryData data("x");
    CBinaryData shared(data);
    data.Append(bytes, 0);
    data.Append(CBinaryData());
    EXPECT_EQ("x", Bytes(data));
    EXPECT_EQ(shared.GetData(), data.GetData());
}

TEST(BinaryDataAppend, FirstAppendCopiesTheBytes) {
    unsigned char bytes[] = {1, 2};
    CBinaryData data;
    data.Append(bytes, 2);
    bytes[0] = 9;
    EXPECT_NE(bytes, data.GetData());
    EXPECT_EQ(std::string("\x01\x02", 2), Bytes(data));
}

TEST(BinaryDataAppend, ValueCanAppendItself) {
    CBinaryData data("ab");
    data.Append(data);
    EXPECT_EQ("abab", Bytes(data));

    CBinaryData shared(data);
    data.Append(data);
    EXPECT_EQ("abababab", Bytes(data));
    EXPECT_EQ("abab", Bytes(shared));
}

TEST(BinaryDataAppend, OwnBytesStayValidWhenTheArrayGrowsOrIsUnshared) {
    // A decoded value has no spare room, so this append has to reallocate.
    CBinaryData data;
    data.SetAsHexString("0102030405");
    data.Append(data.GetData() + 1, 3);
    EXPECT_EQ("0102030405020304", data.GetAsHexString());

    // Shared: the bytes come from the block that the append leaves behind.
    CBinaryData shared(data);
    data.Append(data.GetData() + 5, 2);
    EXPECT_EQ("01020304050203040203", data.GetAsHexString());
    EXPECT_EQ("0102030405020304", shared.GetAsHexString());
}

TEST(BinaryDataAppend, ByteByByteMatchesAReference) {
    std::vector<unsigned char> expected = RandomBytes(100000, 1);
    CBinaryData data;
    for (unsigned char b : expected) data.Append(b);
    ASSERT_EQ(expected.size(), data.GetLength());
    EXPECT_EQ(0, std::memcmp(expected.data(), data.GetData(), expected.size()));
}

TEST(BinaryDataAppend, UnsharedValueGrowsInPlaceWhileThereIsRoom) {
    // A value copied in has room to grow; appending within it moves nothing.
    unsigned char bytes[10] = {};
    CBinaryData data(bytes, 10, false);
    const unsigned char* pBefore = data.GetData();
    std::vector<unsigned char> more = RandomBytes(1000, 2);
    data.Append(more.data(), static_cast<OxULong>(more.size()));
    EXPECT_EQ(pBefore, data.GetData());
    EXPECT_EQ(1010u, data.GetLength());
    EXPECT_EQ(0, std::memcmp(more.data(), data.GetData() + 10, more.size()));
}

// --- comparison ----------------------------------------------------------------------------

TEST(BinaryDataCompare, EqualityFollowsTheBytes) {
    CBinaryData empty1;
    CBinaryData empty2;
    CBinaryData abc1("abc");
    CBinaryData abc2("abc");
    EXPECT_TRUE(empty1 == empty2);
    EXPECT_FALSE(empty1 != empty2);
    EXPECT_FALSE(empty1 == abc1);
    EXPECT_FALSE(abc1 == empty1);
    EXPECT_TRUE(empty1 != abc1);
    // Separate blocks with equal bytes.
    ASSERT_NE(abc1.GetData(), abc2.GetData());
    EXPECT_TRUE(abc1 == abc2);
    EXPECT_FALSE(abc1 == CBinaryData("abd"));
    EXPECT_FALSE(abc1 == CBinaryData("ab"));
    EXPECT_TRUE(abc1 != CBinaryData("abcd"));
}

// --- hex -------------------------------------------------------------------------------------

TEST(BinaryDataHex, UpperCaseDigitsHighNibbleFirst) {
    const unsigned char bytes[] = {0x00, 0xFF, 0x1A, 0xB2};
    CBinaryData data(const_cast<unsigned char*>(bytes), 4, false);
    EXPECT_EQ("00FF1AB2", data.GetAsHexString());
    EXPECT_EQ("00FF", CBinaryData::GetAsHexString(bytes, 2));
    EXPECT_EQ("", CBinaryData::GetAsHexString(nullptr, 5));
}

TEST(BinaryDataHex, EveryByteValueRoundTrips) {
    std::vector<unsigned char> bytes(256);
    for (int i = 0; i < 256; ++i) bytes[i] = static_cast<unsigned char>(i);
    const std::string text = CBinaryData::GetAsHexString(bytes.data(), 256);
    ASSERT_EQ(512u, text.size());
    EXPECT_EQ("000102", text.substr(0, 6));
    EXPECT_EQ("7F80", text.substr(254, 4));
    EXPECT_EQ("FDFEFF", text.substr(506));
    CBinaryData data;
    data.SetAsHexString(text.c_str());
    ASSERT_EQ(256u, data.GetLength());
    EXPECT_EQ(0, std::memcmp(bytes.data(), data.GetData(), 256));
}

TEST(BinaryDataHex, ReadsBothCases) {
    CBinaryData data;
    data.SetAsHexString("abcdefABCDEF09");
    EXPECT_EQ("ABCDEFABCDEF09", data.GetAsHexString());
    data.SetAsHexString("aF");
    EXPECT_EQ(std::string("\xAF", 1), Bytes(data));
}

TEST(BinaryDataHex, EmptyTextGivesTheEmptyValue) {
    CBinaryData data("old");
    data.SetAsHexString("");
    EXPECT_EQ(nullptr, data.GetData());
    data.SetBuffer("old");
    data.SetAsHexString(nullptr);
    EXPECT_EQ(nullptr, data.GetData());
}

TEST(BinaryDataHex, RefusalsNameTheFaultAndLeaveTheValueEmpty) {
    CBinaryData data("old");
    CBinaryData other(data);
    EXPECT_OX_THROW(data.SetAsHexString("ABC"), COxException, "Invalid length in hex string");
    EXPECT_EQ(nullptr, data.GetData());
    // The length is tested before any character.
    EXPECT_OX_THROW(data.SetAsHexString("XYZ"), COxException, "Invalid length in hex string");

    data.SetBuffer("old");
    EXPECT_OX_THROW(data.SetAsHexString("00G1"), COxException, "Invalid char in hex string [G]");
    EXPECT_EQ(nullptr, data.GetData());
    EXPECT_OX_THROW(data.SetAsHexString("001G"), COxException, "Invalid char in hex string [G]");
    // The first character of a pair is tested first.
    EXPECT_OX_THROW(data.SetAsHexString("zG"), COxException, "Invalid char in hex string [z]");
    EXPECT_OX_THROW(data.SetAsHexString("0A 0"), COxException, "Invalid char in hex string [ ]");
    EXPECT_OX_THROW(data.SetAsHexString("0x0A"), COxException, "Invalid char in hex string [x]");
    EXPECT_EQ("old", Bytes(other));
}

TEST(BinaryDataHex, DecodedValueAcceptsAppends) {
    CBinaryData data;
    data.SetAsHexString("CAFE");
    data.Append(static_cast<unsigned char>(0xBA));
    data.Append(static_cast<unsigned char>(0xBE));
    EXPECT_EQ("CAFEBABE", data.GetAsHexString());
}

// --- base64 ----------------------------------------------------------------------------------

TEST(BinaryDataBase64, PaddingFollowsTheLastGroup) {
    EXPECT_EQ("Zg==", CBinaryData("f").GetAsBase64());
    EXPECT_EQ("Zm8=", CBinaryData("fo").GetAsBase64());
    EXPECT_EQ("Zm9v", CBinaryData("foo").GetAsBase64());
    const unsigned char bytes[] = {0x00, 0xFF};
    EXPECT_EQ("AP8=", CBinaryData(const_cast<unsigned char*>(bytes), 2, false).GetAsBase64());
}

TEST(BinaryDataBase64, SetAsBase64ReadsTolerantText) {
    CBinaryData data;
    data.SetAsBase64("Zm9v\r\nYmFy");
    EXPECT_EQ("foobar", Bytes(data));
    data.SetAsBase64(" Zm =9v\tYg= =");
    EXPECT_EQ("foob", Bytes(data));
}

TEST(BinaryDataBase64, EmptyOrInvalidTextGivesTheEmptyValueWithoutError) {
    CBinaryData data("old");
    CBinaryData other(data);
    data.SetAsBase64("Zm9v*mFy");
    EXPECT_EQ(nullptr, data.GetData());
    data.SetBuffer("old");
    data.SetAsBase64("");
    EXPECT_EQ(nullptr, data.GetData());
    data.SetBuffer("old");
    data.SetAsBase64(" \r\n==");
    EXPECT_EQ(nullptr, data.GetData());
    data.SetBuffer("old");
    data.SetAsBase64(nullptr);
    EXPECT_EQ(nullptr, data.GetData());
    EXPECT_EQ("old", Bytes(other));
}

TEST(BinaryDataBase64, RoundTripsEveryShortLength) {
    for (size_t n = 1; n <= 300; ++n) {
        std::vector<unsigned char> bytes = RandomBytes(n, static_cast<unsigned>(n));
        CBinaryData data(bytes.data(), static_cast<OxULong>(n), false);
        const std::string text = data.GetAsBase64();
        EXPECT_EQ((n + 2) / 3 * 4, text.size());
        CBinaryData back;
        back.SetAsBase64(text.c_str());
        EXPECT_TRUE(back == data) << "length " << n;
    }
}

TEST(BinaryDataBase64, DecodedValueAcceptsAppends) {
    CBinaryData data;
    data.SetAsBase64("Zm9v");
    data.Append("bar");
    EXPECT_EQ("foobar", Bytes(data));
}

// --- threads ---------------------------------------------------------------------------------

TEST(BinaryDataThreads, ConcurrentCopiesAndReleasesKeepTheCountExact) {
    const std::vector<unsigned char> expected = RandomBytes(4096, 3);
    CBinaryData original(const_cast<unsigned char*>(expected.data()), static_cast<OxULong>(expected.size()), false);
    const CBinaryData& source = original;

    const int nThreads = 4;
    std::vector<std::thread> threads;
    std::vector<int> failures(nThreads, 0);
    for (int t = 0; t < nThreads; ++t) {
        threads.emplace_back([&source, &expected, &failures, t]() {
            for (int round = 0; round < 200; ++round) {
                // Many handles alive at once, copied from the shared one and from each other,
                // then all dropped together.
                std::vector<CBinaryData> copies;
                copies.reserve(64);
                for (int i = 0; i < 64; ++i) copies.push_back(i % 2 == 0 ? source : copies.back());
                CBinaryData assigned;
                for (const CBinaryData& copy : copies) assigned = copy;
                if (assigned.GetData() != source.GetData() || assigned.GetLength() != expected.size()) ++failures[t];
            }
        });
    }
    for (std::thread& thread : threads) thread.join();

    for (int t = 0; t < nThreads; ++t) EXPECT_EQ(0, failures[t]) << "thread " << t;
    // Every reference taken was dropped again: the one handle left holds the block alone,
    // and the bytes were never freed or changed on the way.
    ASSERT_EQ(expected.size(), original.GetLength());
    EXPECT_EQ(0, std::memcmp(expected.data(), original.GetData(), expected.size()));
    EXPECT_TRUE(IsUnshared(original));
}

TEST(BinaryDataThreads, ConcurrentWritersEachGetTheirOwnCopy) {
    CBinaryData original("shared bytes");
    const int nThreads = 4;
    std::vector<CBinaryData> handles(nThreads, original);
    std::vector<std::string> results(nThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < nThreads; ++t) {
        threads.emplace_back([&handles, &results, t]() {
            CBinaryData& mine = handles[t];
            for (int i = 0; i < 1000; ++i) {
                CBinaryData passing(mine);  // shares for a moment, then goes away
                mine.Append(static_cast<char>('0' + t));
            }
            mine[0] = static_cast<unsigned char>('A' + t);
            results[t] = Bytes(mine);
            handles[t].Clear();
        });
    }
    for (std::thread& thread : threads) thread.join();

    for (int t = 0; t < nThreads; ++t) {
        std::string expected = "shared bytes" + std::string(1000, static_cast<char>('0' + t));
        expected[0] = static_cast<char>('A' + t);
        EXPECT_EQ(expected, results[t]) << "thread " << t;
    }
    EXPECT_EQ("shared bytes", Bytes(original));
    EXPECT_TRUE(IsUnshared(original));
}

TEST(BinaryDataThreads, LastHandleOnAnyThreadFreesTheBlock) {
    for (int round = 0; round < 50; ++round) {
        std::vector<CBinaryData> handles(4, CBinaryData("last one out"));
        std::vector<int> seen(4, 0);
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&handles, &seen, t]() {
                CBinaryData mine;
                mine = handles[t];
                handles[t].Clear();
                seen[t] = Bytes(mine) == "last one out" ? 1 : 0;
            });
        }
        for (std::thread& thread : threads) thread.join();
        for (int t = 0; t < 4; ++t) EXPECT_EQ(1, seen[t]) << "round " << round << ", thread " << t;
    }
}

}  // namespace
