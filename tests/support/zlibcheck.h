// zlib used directly, as an oracle independent of the library's own compression: inflating
// output in exactly one format, and making compressed input of a chosen shape.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace OrvexTest {

// Window bits that accept exactly one format.
const int kGZipOnly = 31;
const int kZLibOnly = 15;

// The bytes inflated in the one format that windowBits names; false unless they form one
// complete stream of that format with nothing behind it.
inline bool InflateExactly(const std::string& strIn, int nWindowBits, std::string& strOut) {
    z_stream stream;
    std::memset(&stream, 0, sizeof(stream));
    if (inflateInit2(&stream, nWindowBits) != Z_OK) return false;
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(strIn.data()));
    stream.avail_in = static_cast<uInt>(strIn.size());
    strOut.clear();
    char buffer[16384];
    int nCode;
    do {
        stream.next_out = reinterpret_cast<Bytef*>(buffer);
        stream.avail_out = sizeof(buffer);
        nCode = inflate(&stream, Z_NO_FLUSH);
        strOut.append(buffer, sizeof(buffer) - stream.avail_out);
    } while (nCode == Z_OK);
    const bool bWhole = nCode == Z_STREAM_END && stream.avail_in == 0;
    inflateEnd(&stream);
    return bWhole;
}

// strIn deflated at the given level in the format that windowBits names.
inline std::string DeflateAs(const std::string& strIn, int nWindowBits, int nLevel) {
    z_stream stream;
    std::memset(&stream, 0, sizeof(stream));
    deflateInit2(&stream, nLevel, Z_DEFLATED, nWindowBits, 8, Z_DEFAULT_STRATEGY);
    std::string strOut(deflateBound(&stream, strIn.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(strIn.data()));
    stream.avail_in = static_cast<uInt>(strIn.size());
    stream.next_out = reinterpret_cast<Bytef*>(&strOut[0]);
    stream.avail_out = static_cast<uInt>(strOut.size());
    deflate(&stream, Z_FINISH);
    strOut.resize(stream.total_out);
    deflateEnd(&stream);
    return strOut;
}

// A valid gzip member holding nTotal zero bytes, made without deflating them all: a chunk of
// zeros deflated with a full flush restarts the compressor, so its output is the same for
// every chunk and is simply repeated; the trailer's CRC is combined arithmetically.
inline std::string GZipOfZeros(uint64_t nTotal) {
    const uInt kChunk = 16u << 20;
    const std::string strZeros(kChunk, '\0');
    z_stream stream;
    std::memset(&stream, 0, sizeof(stream));
    deflateInit2(&stream, 9, Z_DEFLATED, -15, 9, Z_DEFAULT_STRATEGY);  // raw deflate
    std::string strBlock(deflateBound(&stream, kChunk) + 64, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(strZeros.data()));
    stream.avail_in = kChunk;
    stream.next_out = reinterpret_cast<Bytef*>(&strBlock[0]);
    stream.avail_out = static_cast<uInt>(strBlock.size());
    deflate(&stream, Z_FULL_FLUSH);
    strBlock.resize(stream.total_out);
    // The final empty block.
    char szEnd[16];
    stream.next_out = reinterpret_cast<Bytef*>(szEnd);
    stream.avail_out = sizeof(szEnd);
    deflate(&stream, Z_FINISH);
    const std::string strEnd(szEnd, sizeof(szEnd) - stream.avail_out);
    deflateEnd(&stream);

    const uLong nChunkCrc = crc32(crc32(0, nullptr, 0), reinterpret_cast<const Bytef*>(strZeros.data()), kChunk);
    const uint64_t nChunks = nTotal / kChunk;
    std::string strOut("\x1F\x8B\x08\x00\x00\x00\x00\x00\x00\x03", 10);
    strOut.reserve(10 + nChunks * strBlock.size() + strEnd.size() + 8);
    uLong nCrc = crc32(0, nullptr, 0);
    for (uint64_t i = 0; i < nChunks; ++i) {
        strOut += strBlock;
        nCrc = crc32_combine(nCrc, nChunkCrc, kChunk);
    }
    strOut += strEnd;
    const uint64_t nSize = nChunks * kChunk;
    for (int i = 0; i < 4; ++i) strOut += static_cast<char>((nCrc >> (8 * i)) & 0xFF);
    for (int i = 0; i < 4; ++i) strOut += static_cast<char>((nSize >> (8 * i)) & 0xFF);
    return strOut;
}

}  // namespace OrvexTest
