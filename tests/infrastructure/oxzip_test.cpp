#include "orvexxml/infrastructure/oxzip.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "orvexxml/infrastructure/exceptions.h"
#include "support/testfiles.h"
#include "support/zlibcheck.h"

using namespace OrvexXml;
using namespace OrvexTest;

namespace {

CBinaryData Data(const std::string& str) {
    return CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(str.data())),
                       static_cast<OxULong>(str.size()), false);
}

// A document of some size whose text repeats enough to shrink.
std::string Document() {
    std::string str = "<?xml version=\"1.0\"?>\n<log>\n";
    for (int i = 0; i < 400; ++i) str += "\t<entry id=\"" + std::to_string(i * 7919 % 1000) + "\">ok</entry>\n";
    return str + "</log>\n";
}

std::string Random(size_t nLength) {
    std::mt19937 rng(42);
    std::string str(nLength, '\0');
    for (char& c : str) c = static_cast<char>(rng());
    return str;
}

// The message of what fn throws, "(no exception)" if nothing.
template <class F>
std::string Thrown(F fn) {
    try {
        fn();
    } catch (const COxException& e) {
        return e.GetFullMessage();
    }
    return "(no exception)";
}

// Each form is exactly the format it names (a zlib inflater set to that format alone takes
// it whole), the two entry points agree, and the library inflates both without being told.
TEST(OxZip, EachTypeIsExactlyItsFormatAndInflatesBackWithoutNamingIt) {
    const std::string strDoc = Document();
    const struct {
        CompressionType eType;
        int nWindowBits;
    } rows[] = {{CompressionType_GZip, kGZipOnly}, {CompressionType_ZLib, kZLibOnly}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.eType);
        CBinaryData data = Data(strDoc);
        COxZip().Compress(data, row.eType);
        const std::string strCompressed = Bytes(data);
        std::string strInflated;
        ASSERT_TRUE(InflateExactly(strCompressed, row.nWindowBits, strInflated));
        EXPECT_EQ(strDoc, strInflated);
        if (row.eType == CompressionType_GZip) {
            EXPECT_EQ("\x1F\x8B", strCompressed.substr(0, 2));
        } else {  // deflate with a 32 KiB window, and the check bits of RFC 1950
            EXPECT_EQ(0x78, static_cast<unsigned char>(strCompressed[0]));
            EXPECT_EQ(
                0, (static_cast<unsigned char>(strCompressed[0]) * 256 + static_cast<unsigned char>(strCompressed[1])) %
                       31);
        }

        OxULong nLength = static_cast<OxULong>(strDoc.size());
        unsigned char* pBlock = new unsigned char[nLength];
        std::memcpy(pBlock, strDoc.data(), nLength);
        COxZip().Compress(&pBlock, &nLength, row.eType);
        EXPECT_EQ(strCompressed, std::string(reinterpret_cast<char*>(pBlock), nLength));
        EXPECT_TRUE(COxZip().Decompress(&pBlock, &nLength));
        EXPECT_EQ(strDoc, std::string(reinterpret_cast<char*>(pBlock), nLength));
        delete[] pBlock;
    }
}

// What compression refuses or leaves alone: the value or block stays exactly as it was.
TEST(OxZip, CompressionEdgeCases) {
    const struct {
        const char* pszName;
        std::string strInput;
        CompressionType eType;
        const char* pszMessage;
    } rows[] = {
        {"empty", "", CompressionType_GZip, "(no exception)"},
        {"no compression", Document(), CompressionType_None, "(no exception)"},
        {"unknown type", Document(), static_cast<CompressionType>(7), "(no exception)"},
        {"a few bytes, gzip", "<a/>", CompressionType_GZip, "Failed to compress data. [Error Code: 0]"},
        {"a few bytes, zlib", "<a/>", CompressionType_ZLib, "Failed to compress data. [Error Code: 0]"},
        {"random bytes", Random(100000), CompressionType_ZLib, "Failed to compress data. [Error Code: 0]"},
        {"already compressed", DeflateAs(Random(20000), kGZipOnly, 9), CompressionType_GZip,
         "Failed to compress data. [Error Code: 0]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszName);
        CBinaryData data = Data(row.strInput);
        EXPECT_EQ(row.pszMessage, Thrown([&] { COxZip().Compress(data, row.eType); }));
        EXPECT_EQ(row.strInput, Bytes(data));

        OxULong nLength = static_cast<OxULong>(row.strInput.size());
        unsigned char* pBlock = new unsigned char[nLength + 1];
        std::memcpy(pBlock, row.strInput.data(), nLength);
        unsigned char* const pBefore = pBlock;
        if (nLength != 0) {  // the pointer form is only ever given a block with bytes
            EXPECT_EQ(row.pszMessage, Thrown([&] { COxZip().Compress(&pBlock, &nLength, row.eType); }));
            EXPECT_EQ(pBefore, pBlock);
            EXPECT_EQ(row.strInput, std::string(reinterpret_cast<char*>(pBlock), nLength));
        }
        delete[] pBlock;
    }
}

// Anything but one complete gzip or zlib stream passes unchanged: the same block, the same
// length, no exception.
TEST(OxZip, DecompressionLeavesAnythingButACompleteStreamAsItIs) {
    const std::string strGZip = DeflateAs(Document(), kGZipOnly, 6);
    std::string strDamaged = strGZip;
    strDamaged[strDamaged.size() / 2] ^= 0x55;
    const std::string rows[] = {
        Document(),                               // plain XML
        std::string("\xFF\xFE<\0a\0/\0>\0", 10),  // UTF-16 with its mark
        std::string("\xE0\x00\x00\x01\x00", 5),   // a Fast Infoset header
        strGZip.substr(0, strGZip.size() - 12),   // truncated
        strDamaged,                               // damaged behind the header
        std::string("\x78\x9C", 2) + Document(),  // a zlib header over plain text
        std::string("\x1F\x8B\x08\x00", 4),       // a gzip header alone
        std::string("\x1F", 1),                   // one byte
    };
    for (const std::string& strInput : rows) {
        SCOPED_TRACE(strInput.substr(0, 8));
        OxULong nLength = static_cast<OxULong>(strInput.size());
        unsigned char* pBlock = new unsigned char[nLength];
        std::memcpy(pBlock, strInput.data(), nLength);
        unsigned char* const pBefore = pBlock;
        EXPECT_FALSE(COxZip().Decompress(&pBlock, &nLength));
        EXPECT_EQ(pBefore, pBlock);
        EXPECT_EQ(strInput, std::string(reinterpret_cast<char*>(pBlock), nLength));
        delete[] pBlock;
    }
}

// The guard against decompression bombs: below 64 MiB of output any expansion passes, and so
// does the densest output the library writes itself (level 1, about 200 times) past it; the
// densest deflate (about 1030 times) is refused once 64 MiB are out, long before the
// 10 GB of zeros are.
TEST(OxZip, RefusesADecompressionBombButNotLargeDenseDocuments) {
    const std::string kBomb = "Compressed data expand more than 500 times past 64 MiB; refused as a decompression bomb";
    std::string strRun = "<a/>";
    while (strRun.size() < (68u << 20)) strRun += strRun;
    strRun.resize(68u << 20);
    const struct {
        const char* pszName;
        std::string strCompressed;
        uint64_t nInflatedLength;  // 0: refused
    } rows[] = {
        {"60 MiB of zeros, level 9", DeflateAs(std::string(60u << 20, '\0'), kGZipOnly, 9), 60u << 20},
        {"68 MiB of empty elements, level 1", DeflateAs(strRun, kZLibOnly, 1), 68u << 20},
        {"10 GB of zeros, level 9", GZipOfZeros(10ull << 30), 0},
    };
    strRun.clear();
    strRun.shrink_to_fit();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszName);
        CBinaryData result;
        const std::string strMessage = Thrown([&] {
            COxZip().Decompress(reinterpret_cast<const unsigned char*>(row.strCompressed.data()),
                                static_cast<OxULong>(row.strCompressed.size()), result);
        });
        if (row.nInflatedLength == 0) {
            EXPECT_EQ(kBomb, strMessage);
            EXPECT_EQ(0u, result.GetLength());
        } else {
            EXPECT_EQ("(no exception)", strMessage);
            EXPECT_EQ(row.nInflatedLength, result.GetLength());
        }
    }
    // The bomb is a valid gzip member: what refuses it is the guard, not damage.
    std::string strSmall;
    ASSERT_TRUE(InflateExactly(GZipOfZeros(48u << 20), kGZipOnly, strSmall));
    EXPECT_EQ(std::string(48u << 20, '\0'), strSmall);
}

}  // namespace
