#include "orvexxml/values/binarydata.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "expectthrow.h"
#include "support/testfiles.h"

using OrvexTest::Bytes;
using OrvexXml::CBinaryData;
using OrvexXml::COxException;
using OrvexXml::OxULong;

namespace {

std::vector<unsigned char> RandomBytes(size_t nCount, unsigned nSeed) {
    std::mt19937 engine(nSeed);
    std::vector<unsigned char> bytes(nCount);
    for (unsigned char& b : bytes) b = static_cast<unsigned char>(engine());
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

TEST(BinaryData, ConstructionCopiesUnlessTakingOwnership) {
    CBinaryData empty;
    EXPECT_EQ(nullptr, empty.GetData());
    EXPECT_EQ(0u, empty.GetLength());
    EXPECT_EQ("", empty.GetAsHexString());
    EXPECT_EQ("", empty.GetAsBase64());
    EXPECT_EQ(nullptr, empty.ReleaseData());

    unsigned char source[] = {1, 2, 3};
    CBinaryData copied(source, 3, false);
    source[0] = 9;
    EXPECT_EQ(std::string("\x01\x02\x03", 3), Bytes(copied));
    unsigned char* pOwned = new unsigned char[2]{7, 8};
    EXPECT_EQ(pOwned, CBinaryData(pOwned, 2, true).GetData());
    // Text gives its bytes without the terminator; no text, no bytes.
    EXPECT_EQ("abc", Bytes(CBinaryData("abc")));
    EXPECT_EQ(nullptr, CBinaryData("").GetData());
    EXPECT_EQ(nullptr, CBinaryData(static_cast<const char*>(nullptr)).GetData());
    // Zero bytes: the array stays the caller's, readable afterwards and freed here once.
    unsigned char* pArray = new unsigned char[4]{1, 2, 3, 4};
    EXPECT_EQ(nullptr, CBinaryData(pArray, 0, true).GetData());
    EXPECT_EQ(4, pArray[3]);
    delete[] pArray;
}

TEST(BinaryData, IndexAtOrBeyondTheLengthIsRefused) {
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

TEST(BinaryData, EqualityFollowsTheBytes) {
    const CBinaryData empty;
    const CBinaryData abc("abc");
    EXPECT_TRUE(empty == CBinaryData());
    EXPECT_FALSE(empty != CBinaryData());
    EXPECT_TRUE(empty != abc);
    EXPECT_FALSE(abc == empty);
    // Separate blocks with equal bytes.
    EXPECT_TRUE(abc == CBinaryData("abc"));
    EXPECT_FALSE(abc == CBinaryData("abd"));
    EXPECT_FALSE(abc == CBinaryData("ab"));
    EXPECT_TRUE(abc != CBinaryData("abcd"));
}

// --- sharing and copy on write -------------------------------------------------------------

TEST(BinaryDataSharing, ChangeThroughOneHandleNeverShowsThroughAnother) {
    CBinaryData a("abc");
    CBinaryData b(a);
    CBinaryData c;
    c = a;
    EXPECT_EQ(a.GetData(), b.GetData());
    EXPECT_EQ(a.GetData(), c.GetData());
    // Reading through the index does not unshare.
    const CBinaryData& constA = a;
    EXPECT_EQ('b', constA[1]);
    EXPECT_EQ(a.GetData(), b.GetData());

    const unsigned char* pShared = a.GetData();
    a.Append('d');
    EXPECT_EQ("abcd", Bytes(a));
    EXPECT_EQ("abc", Bytes(b));
    // Only the handle that changed moved to a block of its own.
    EXPECT_NE(pShared, a.GetData());
    EXPECT_EQ(pShared, b.GetData());

    b[1] = 'X';
    EXPECT_EQ("aXc", Bytes(b));
    EXPECT_EQ("abc", Bytes(c));
    // Each handle is now alone with its block and writes in place.
    EXPECT_TRUE(IsUnshared(b));
    EXPECT_TRUE(IsUnshared(c));
}

TEST(BinaryDataSharing, DroppedHandlesReleaseTheirReference) {
    CBinaryData a("keep");
    {
        CBinaryData b(a);
        CBinaryData c(b);
    }
    EXPECT_TRUE(IsUnshared(a));

    CBinaryData b(a);
    CBinaryData c(a);
    CBinaryData d(a);
    b.Clear();
    EXPECT_EQ(nullptr, b.GetData());
    EXPECT_EQ(0u, b.GetLength());
    c.SetBuffer("new");
    EXPECT_EQ("new", Bytes(c));
    CBinaryData other("other");
    d = other;
    EXPECT_EQ(other.GetData(), d.GetData());
    EXPECT_EQ("keep", Bytes(a));
    EXPECT_TRUE(IsUnshared(a));
    // Assigning a handle to itself, or to another handle on the same block, keeps the bytes.
    const CBinaryData& sameD = d;
    d = sameD;
    d = other;
    EXPECT_EQ("other", Bytes(d));
    d = CBinaryData();
    EXPECT_EQ(nullptr, d.GetData());
    EXPECT_TRUE(IsUnshared(other));
}

TEST(BinaryDataSharing, ReleaseDataHandsOverTheArrayOrAPrivateCopy) {
    CBinaryData alone("abc");
    const unsigned char* pBytes = alone.GetData();
    unsigned char* pReleased = alone.ReleaseData();
    EXPECT_EQ(pBytes, pReleased);
    EXPECT_EQ(nullptr, alone.GetData());
    EXPECT_EQ(0u, alone.GetLength());
    EXPECT_EQ(0, std::memcmp(pReleased, "abc", 3));
    delete[] pReleased;

    CBinaryData a("abc");
    CBinaryData b(a);
    pReleased = a.ReleaseData();
    ASSERT_NE(nullptr, pReleased);
    EXPECT_NE(b.GetData(), pReleased);
    pReleased[0] = 'X';
    EXPECT_EQ("abc", Bytes(b));
    EXPECT_TRUE(IsUnshared(b));
    delete[] pReleased;
}

// --- setting and appending -------------------------------------------------------------------

TEST(BinaryDataAppend, SetBufferAndEveryAppendTakeACopyOfTheBytes) {
    CBinaryData data("old");
    unsigned char bytes[] = {'a', 0};
    data.SetBuffer(bytes, 2);
    bytes[0] = 'z';
    EXPECT_EQ(std::string("a\0", 2), Bytes(data));
    data.SetBuffer(bytes, 0);
    EXPECT_EQ(nullptr, data.GetData());
    data.SetBuffer("");
    EXPECT_EQ(nullptr, data.GetData());
    // The new bytes may come from the value itself.
    data.SetBuffer("abcdef");
    data.SetBuffer(data.GetData() + 2, 3);
    EXPECT_EQ("cde", Bytes(data));

    data.Clear();
    data.Append(bytes, 2);
    bytes[0] = 'y';
    data.Append(static_cast<unsigned char>(0xFF));
    data.Append('b');
    data.Append("cd");
    data.Append(std::string("e\0ignored", 9));  // up to the first NUL
    data.Append(CBinaryData("fg"));
    EXPECT_EQ(std::string("z\0\xFF"
                          "bcdefg",
                          9),
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

TEST(BinaryDataAppend, OwnBytesStayValidWhenTheArrayGrowsOrIsUnshared) {
    CBinaryData data("ab");
    data.Append(data);
    EXPECT_EQ("abab", Bytes(data));
    CBinaryData shared(data);
    data.Append(data);
    EXPECT_EQ("abababab", Bytes(data));
    EXPECT_EQ("abab", Bytes(shared));

    // A decoded value has no spare room, so this append has to reallocate.
    CBinaryData decoded;
    decoded.SetAsHexString("0102030405");
    decoded.Append(decoded.GetData() + 1, 3);
    EXPECT_EQ("0102030405020304", decoded.GetAsHexString());
    // Shared: the bytes come from the block that the append leaves behind.
    CBinaryData sharedDecoded(decoded);
    decoded.Append(decoded.GetData() + 5, 2);
    EXPECT_EQ("01020304050203040203", decoded.GetAsHexString());
    EXPECT_EQ("0102030405020304", sharedDecoded.GetAsHexString());
    decoded.SetAsBase64("Zm9v");
    decoded.Append("bar");
    EXPECT_EQ("foobar", Bytes(decoded));
}

TEST(BinaryDataAppend, ByteByByteFarPastEveryCapacityStep) {
    const std::vector<unsigned char> expected = RandomBytes(100000, 1);
    CBinaryData grown;
    for (unsigned char b : expected) grown.Append(b);
    ASSERT_EQ(expected.size(), grown.GetLength());
    EXPECT_EQ(0, std::memcmp(expected.data(), grown.GetData(), expected.size()));
}

// --- hex and base64 text -----------------------------------------------------------------------

// Every length that crosses into a CBinaryData passes this check, so the boundary is tested here
// rather than with gigabytes of data.
TEST(BinaryDataLimit, LengthsPastFourGiBMinusOneOverflowWithTheirSize) {
    const struct {
        uint64_t nLength;
        const char* pszMessage;  // null: accepted
    } rows[] = {
        {0, nullptr},
        {1, nullptr},
        {0xFFFFFFFFull, nullptr},
        {0x100000000ull,
         "Data of 4294967296 bytes are too long for a binary buffer, which holds at most 4294967295 bytes"},
        {0x100000001ull,
         "Data of 4294967297 bytes are too long for a binary buffer, which holds at most 4294967295 bytes"},
        {UINT64_MAX,
         "Data of 18446744073709551615 bytes are too long for a binary buffer, which holds at most "
         "4294967295 bytes"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.nLength);
        if (row.pszMessage == nullptr) {
            EXPECT_EQ(row.nLength, CBinaryData::CheckLength(row.nLength));
        } else {
            EXPECT_OX_THROW(CBinaryData::CheckLength(row.nLength), OrvexXml::COxOverFlowException, row.pszMessage);
        }
    }
}

TEST(BinaryDataText, HexIsUpperCaseHighNibbleFirstAndEveryByteRoundTrips) {
    std::vector<unsigned char> bytes(256);
    std::string expected;
    for (int i = 0; i < 256; ++i) {
        bytes[i] = static_cast<unsigned char>(i);
        char szPair[3];
        std::snprintf(szPair, sizeof(szPair), "%02X", i);
        expected += szPair;
    }
    EXPECT_EQ(expected, CBinaryData::GetAsHexString(bytes.data(), 256));
    EXPECT_EQ("", CBinaryData::GetAsHexString(nullptr, 5));
    CBinaryData data;
    data.SetAsHexString(expected.c_str());
    ASSERT_EQ(256u, data.GetLength());
    EXPECT_EQ(0, std::memcmp(bytes.data(), data.GetData(), 256));
    EXPECT_EQ(expected, data.GetAsHexString());

    // Both cases are read; empty or no text gives the empty value.
    data.SetAsHexString("abcdefABCDEF09");
    EXPECT_EQ("ABCDEFABCDEF09", data.GetAsHexString());
    data.SetAsHexString("");
    EXPECT_EQ(nullptr, data.GetData());
    data.SetBuffer("old");
    data.SetAsHexString(nullptr);
    EXPECT_EQ(nullptr, data.GetData());
}

TEST(BinaryDataText, HexRefusalsNameTheFaultAndLeaveTheValueEmpty) {
    const struct {
        const char* pszText;
        const char* pszMessage;
    } rows[] = {
        {"ABC", "Invalid length in hex string"},
        // The length is tested before any character.
        {"XYZ", "Invalid length in hex string"},
        {"001G", "Invalid char in hex string [G]"},
        // The first character of a pair is tested first.
        {"zG", "Invalid char in hex string [z]"},
        {"0x0A", "Invalid char in hex string [x]"},
    };
    CBinaryData data("old");
    const CBinaryData other(data);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszText);
        data.SetBuffer("old");
        EXPECT_OX_THROW(data.SetAsHexString(row.pszText), COxException, row.pszMessage);
        EXPECT_EQ(nullptr, data.GetData());
    }
    EXPECT_EQ("old", Bytes(other));
}

TEST(BinaryDataText, Base64PadsTheLastGroupAndReadsTolerantText) {
    const unsigned char bytes[] = {0x00, 0xFF};
    EXPECT_EQ("AP8=", CBinaryData(const_cast<unsigned char*>(bytes), 2, false).GetAsBase64());

    CBinaryData data;
    data.SetAsBase64("Zm9v\r\nYmFy");
    EXPECT_EQ("foobar", Bytes(data));
    data.SetAsBase64(" Zm =9v\tYg= =");
    EXPECT_EQ("foob", Bytes(data));

    // Invalid, empty or no text gives the empty value without an error.
    const CBinaryData other(data);
    for (const char* pszText : {"Zm9v*mFy", "", " \r\n==", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(pszText ? pszText : "(null)");
        data.SetBuffer("old");
        data.SetAsBase64(pszText);
        EXPECT_EQ(nullptr, data.GetData());
    }
    EXPECT_EQ("foob", Bytes(other));
}

TEST(BinaryDataText, Base64RoundTripsEveryShortLength) {
    for (size_t n = 1; n <= 300; ++n) {
        const std::vector<unsigned char> bytes = RandomBytes(n, static_cast<unsigned>(n));
        CBinaryData data(const_cast<unsigned char*>(bytes.data()), static_cast<OxULong>(n), false);
        const std::string text = data.GetAsBase64();
        EXPECT_EQ((n + 2) / 3 * 4, text.size());
        CBinaryData back;
        back.SetAsBase64(text.c_str());
        EXPECT_TRUE(back == data) << "length " << n;
    }
}

// --- threads ---------------------------------------------------------------------------------

// Runs body(t) on threads 0 to nThreads - 1 at once and waits for all of them.
template <class TBody>
void OnThreads(int nThreads, TBody body) {
    std::vector<std::thread> threads;
    for (int t = 0; t < nThreads; ++t) threads.emplace_back(body, t);
    for (std::thread& thread : threads) thread.join();
}

TEST(BinaryDataThreads, ConcurrentCopiesAndReleasesKeepTheCountExact) {
    const std::vector<unsigned char> expected = RandomBytes(4096, 3);
    CBinaryData original(const_cast<unsigned char*>(expected.data()), static_cast<OxULong>(expected.size()), false);
    const CBinaryData& source = original;
    std::vector<int> failures(4, 0);
    OnThreads(4, [&](int t) {
        for (int round = 0; round < 200; ++round) {
            // Many handles alive at once, copied from the shared one and from each other, then
            // all dropped together.
            std::vector<CBinaryData> copies;
            copies.reserve(64);
            for (int i = 0; i < 64; ++i) copies.push_back(i % 2 == 0 ? source : copies.back());
            CBinaryData assigned;
            for (const CBinaryData& copy : copies) assigned = copy;
            if (assigned.GetData() != source.GetData() || assigned.GetLength() != expected.size()) ++failures[t];
        }
    });
    EXPECT_EQ(std::vector<int>(4, 0), failures);
    // Every reference taken was dropped again: the one handle left holds the block alone,
    // and the bytes were never freed or changed on the way.
    ASSERT_EQ(expected.size(), original.GetLength());
    EXPECT_EQ(0, std::memcmp(expected.data(), original.GetData(), expected.size()));
    EXPECT_TRUE(IsUnshared(original));
}

TEST(BinaryDataThreads, ConcurrentWritersEachGetTheirOwnCopy) {
    CBinaryData original("shared bytes");
    std::vector<CBinaryData> handles(4, original);
    std::vector<std::string> results(4);
    OnThreads(4, [&](int t) {
        CBinaryData& mine = handles[t];
        for (int i = 0; i < 1000; ++i) {
            CBinaryData passing(mine);  // shares for a moment, then goes away
            mine.Append(static_cast<char>('0' + t));
        }
        mine[0] = static_cast<unsigned char>('A' + t);
        results[t] = Bytes(mine);
        mine.Clear();
    });
    for (int t = 0; t < 4; ++t) {
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
        std::vector<std::string> seen(4);
        OnThreads(4, [&](int t) {
            CBinaryData mine;
            mine = handles[t];
            handles[t].Clear();
            seen[t] = Bytes(mine);
        });
        EXPECT_EQ(std::vector<std::string>(4, "last one out"), seen) << "round " << round;
    }
}

}  // namespace
