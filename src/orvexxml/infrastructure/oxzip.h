#pragma once

#include <cstdint>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXml {

// gzip (RFC 1952) and zlib (RFC 1950) data around a finished document, over the system zlib.
// Output is compressed at level 1, with no framing of the library's own; input in either
// form is recognised by its header and inflated, and anything else passes unchanged.
//
// Blocks passed by pointer are new[] arrays: the class frees the block it replaces and
// hands out a new[] array in its place.
//
// Decompression refuses input that expands without measure (a decompression bomb): once
// the output passes MAX_RATIO_FREE_OUTPUT bytes it may be at most MAX_EXPANSION_RATIO times
// the compressed bytes consumed so far. Real documents compress 5 to 20 times, very
// repetitive ones to about 200 times at the level this class writes; a long run of one byte
// packed at the densest deflate settings expands about 1030 times. So every document this
// class writes, of any size, reads back, while a few megabytes that unpack to gigabytes are
// refused after 64 MiB of work instead of filling the memory. Output is bounded by the
// 32-bit length of a buffer in any case.
class ORVEXXML_API COxZip : public CInstanceMonitor {
public:
    // Below this output size any expansion is accepted.
    static constexpr uint64_t MAX_RATIO_FREE_OUTPUT = 64ull * 1024 * 1024;
    // Past it, the output may be at most this many times the compressed input consumed.
    static constexpr uint64_t MAX_EXPANSION_RATIO = 500;

    COxZip();
    ~COxZip() override;

    COxZip(const COxZip&) = delete;
    COxZip& operator=(const COxZip&) = delete;

    // Replaces the block at *ppData, *pLength bytes, by its compressed form. A type other
    // than GZip and ZLib leaves the block as it is. The compressed form must be shorter than
    // the input: data that don't shrink throw COxException "Failed to compress data. [Error
    // Code: %d]" with zlib's code, and the block then stays with the caller.
    void Compress(unsigned char** ppData, OxULong* pLength, CompressionType eType);
    // The same on a CBinaryData; the empty value stays empty.
    void Compress(CBinaryData& data, CompressionType eType);

    // Replaces the block at *ppData by its inflated form if it holds gzip or zlib data, and
    // returns true. Anything else (plain text, Fast Infoset, compressed data damaged behind
    // their header) stays as it is, and the result is false. Throws COxException only for a
    // decompression bomb (see above), and then the block stays with the caller.
    bool Decompress(unsigned char** ppData, OxULong* pLength);
    // The same without touching the input: the inflated bytes go to result, which is left as
    // it was when the result is false.
    bool Decompress(const unsigned char* pData, OxULong nLength, CBinaryData& result);
};

}  // namespace OrvexXml
