#pragma once

#include <cstdint>

namespace OrvexXml {

// Output encoding of a stream. None keeps the text in the local encoding and declares nothing.
enum XmlEncoding : int32_t {
    XmlEncoding_None = 0,
    XmlEncoding_UTF8 = 1,
    XmlEncoding_UTF16 = 2,
    XmlEncoding_UTF16NoDeclaration = 3
};

// Line end written by the text writers.
enum EOLType : int32_t { EOLType_CRLF = 0, EOLType_LF = 1 };

// Compression applied to stream output.
enum CompressionType : int32_t { CompressionType_None = 0, CompressionType_GZip = 1, CompressionType_ZLib = 2 };

}  // namespace OrvexXml
