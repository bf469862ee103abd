#include "orvexxml/infrastructure/oxzip.h"

#include <zlib.h>

#include <cstring>
#include <memory>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

namespace {

// The level of all compressed output; it can't be chosen.
const int kLevel = 1;
// Window bits of a gzip member: 16 on top of the largest window.
const int kGZipWindowBits = 31;
// Window bits that let inflate accept a gzip or a zlib header: 32 on top of the largest window.
const int kDetectWindowBits = 47;
const int kMemoryLevel = 8;
// Output of one inflate step.
const OxULong kInflateStep = 65536;

// Ends a deflate or inflate stream on every way out of the function that started it.
class CDeflateEnd {
public:
    explicit CDeflateEnd(z_stream& stream) : m_stream(stream) {}
    ~CDeflateEnd() { deflateEnd(&m_stream); }

private:
    z_stream& m_stream;
};

class CInflateEnd {
public:
    explicit CInflateEnd(z_stream& stream) : m_stream(stream) {}
    ~CInflateEnd() { inflateEnd(&m_stream); }

private:
    z_stream& m_stream;
};

[[noreturn]] void ThrowCompressFailed(int nCode) {
    throw COxException(FormatString("Failed to compress data. [Error Code: %d]", nCode));
}

}  // namespace

COxZip::COxZip() : CInstanceMonitor("COxZip") {}

COxZip::~COxZip() {}

void COxZip::Compress(unsigned char** ppData, OxULong* pLength, CompressionType eType) {
    if (eType != CompressionType_GZip && eType != CompressionType_ZLib) return;
    const OxULong nLength = *pLength;
    // The output may not exceed the input: data that don't shrink are not worth compressing.
    std::unique_ptr<unsigned char[]> spOut(new unsigned char[nLength ? nLength : 1]);

    z_stream stream;
    std::memset(&stream, 0, sizeof(stream));  // zalloc, zfree and opaque null: zlib's allocator
    stream.next_in = *ppData;
    stream.avail_in = nLength;
    stream.next_out = spOut.get();
    stream.avail_out = nLength;
    int nCode = eType == CompressionType_GZip
                    ? deflateInit2(&stream, kLevel, Z_DEFLATED, kGZipWindowBits, kMemoryLevel, Z_DEFAULT_STRATEGY)
                    : deflateInit(&stream, kLevel);
    if (nCode != Z_OK) ThrowCompressFailed(nCode);
    uLong nTotalOut = 0;
    {
        CDeflateEnd end(stream);
        nCode = deflate(&stream, Z_NO_FLUSH);
        // Input left over means the output block ran out: the data can't be compressed.
        if (stream.avail_in != 0) ThrowCompressFailed(nCode);
        nCode = deflate(&stream, Z_FINISH);
        nTotalOut = stream.total_out;
    }
    if (nCode != Z_STREAM_END) ThrowCompressFailed(nCode);

    delete[] * ppData;
    *ppData = spOut.release();
    *pLength = static_cast<OxULong>(nTotalOut);
}

void COxZip::Compress(CBinaryData& data, CompressionType eType) {
    if (data.GetLength() == 0) return;
    if (eType != CompressionType_GZip && eType != CompressionType_ZLib) return;
    OxULong nLength = data.GetLength();
    unsigned char* pData = data.ReleaseData();
    try {
        Compress(&pData, &nLength, eType);
    } catch (...) {
        // A refused compression leaves the value as it was.
        data = CBinaryData(pData, nLength, true);
        throw;
    }
    data = CBinaryData(pData, nLength, true);
}

bool COxZip::Decompress(const unsigned char* pData, OxULong nLength, CBinaryData& result) {
    std::unique_ptr<unsigned char[]> spWork(new unsigned char[kInflateStep]);
    CBinaryData inflated;

    z_stream stream;
    std::memset(&stream, 0, sizeof(stream));
    stream.next_in = const_cast<unsigned char*>(pData);
    stream.avail_in = nLength;
    if (inflateInit2(&stream, kDetectWindowBits) != Z_OK) return false;
    CInflateEnd end(stream);
    int nCode = Z_OK;
    while (nCode == Z_OK) {
        stream.next_out = spWork.get();
        stream.avail_out = kInflateStep;
        nCode = inflate(&stream, Z_NO_FLUSH);
        if (nCode != Z_OK && nCode != Z_STREAM_END) break;
        const OxULong nProduced = kInflateStep - stream.avail_out;
        const uint64_t nTotalOut = stream.total_out;
        if (nTotalOut > MAX_RATIO_FREE_OUTPUT && nTotalOut > MAX_EXPANSION_RATIO * stream.total_in) {
            throw COxException(FormatString(
                "Compressed data expand more than %u times past %u MiB; refused as a decompression bomb",
                static_cast<unsigned>(MAX_EXPANSION_RATIO), static_cast<unsigned>(MAX_RATIO_FREE_OUTPUT >> 20)));
        }
        if (nTotalOut > CBinaryData::MAX_LENGTH) {
            throw COxException(FormatString("Compressed data expand past %u bytes, the most a buffer holds",
                                            static_cast<unsigned>(CBinaryData::MAX_LENGTH)));
        }
        inflated.Append(spWork.get(), nProduced);
    }
    // Anything but a complete stream (no header, a damaged or truncated body) passes as it is.
    if (nCode != Z_STREAM_END) return false;
    result = inflated;
    return true;
}

bool COxZip::Decompress(unsigned char** ppData, OxULong* pLength) {
    CBinaryData inflated;
    if (!Decompress(*ppData, *pLength, inflated)) return false;
    const OxULong nLength = inflated.GetLength();
    unsigned char* pInflated = inflated.ReleaseData();
    if (!pInflated) pInflated = new unsigned char[1];  // an empty document is still a block
    delete[] * ppData;
    *ppData = pInflated;
    *pLength = nLength;
    return true;
}

}  // namespace OrvexXml
