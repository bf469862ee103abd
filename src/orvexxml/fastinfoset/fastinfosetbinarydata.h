#pragma once

#include <string>

#include "orvexxml/export.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXml {

// The octets of a value written by one of the ten built-in encoding algorithms of Fast
// Infoset, and the conversion between them and the value's text. The algorithms are numbered
// as the standard numbers them: 1 hexadecimal, 2 base64, 3 short, 4 int, 5 long, 6 boolean,
// 7 float, 8 double, 9 uuid, 10 cdata. Numbers are big-endian, floats their IEEE 754 bits.
class ORVEXXML_API CFastInfosetBinaryData : public CBinaryData {
public:
    CFastInfosetBinaryData() {}
    CFastInfosetBinaryData(const CBinaryData& other) : CBinaryData(other) {}
    CFastInfosetBinaryData(unsigned char* const data, OxULong length, bool takeOwnership)
        : CBinaryData(data, length, takeOwnership) {}
    CFastInfosetBinaryData(const char* text) : CBinaryData(text) {}
    CFastInfosetBinaryData(const CFastInfosetBinaryData& other) : CBinaryData(other) {}
    CFastInfosetBinaryData& operator=(const CFastInfosetBinaryData& other) = default;
    ~CFastInfosetBinaryData() override;

    // The octets as text. An algorithm that works on a sequence gives each item's text, one
    // blank between them. Empty data give the empty string. Throws COxException "Invalid value
    // for ... byte encoding." for a length that doesn't fit the algorithm, and "Unknown byte
    // encoding." for an unknown algorithm and for cdata, which is read as a string elsewhere.
    std::string GetAsString(OxULong dwAlgorithm) const;

    // Replaces the octets with pszValue encoded by the algorithm: one value per call. A text
    // that the value's conversion refuses throws that conversion's exception; an unknown
    // algorithm throws COxException "Unknown byte encoding.".
    void SetAsEncodedString(OxULong dwAlgorithm, const char* pszValue);

private:
    // The items of a fixed-size algorithm, each read as a big-endian number of nSize octets
    // and turned into text by ItemToText, joined by blanks.
    template <typename ItemToText>
    std::string JoinItems(OxULong nSize, const char* pszWrongLength, ItemToText itemToText) const;
    // Appends the nSize low octets of qwBits, most significant first.
    void AppendBigEndian(uint64_t qwBits, OxULong nSize);
};

}  // namespace OrvexXml
