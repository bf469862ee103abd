#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// The shared block behind CBinaryData: the bytes, their length and capacity, and the count
// of handles that share it. Private to the implementation.
class CBinaryDataBuffer;

// The library's byte buffer: the value of hexBinary and base64Binary, and the result of the
// in-memory serialisers.
//
// A small handle on a reference-counted block with copy on write. Copying a handle costs one
// reference, no copy of the bytes; a handle that is about to change its bytes first takes a
// private copy if another handle shares the block, so that no change ever shows through
// another handle. An unshared handle changes its block in place.
//
// The empty value holds no block at all (GetData() is null, GetLength() is 0).
//
// Handles on one block may be copied and destroyed on different threads at once; the count
// of the block is kept exact. A single handle must not be used from two threads at once.
class ORVEXXML_API CBinaryData {
public:
    // The most bytes a value can hold: its lengths are 32-bit.
    static constexpr OxULong MAX_LENGTH = UINT32_MAX;

    // nLength as a length of this class. Longer data throw COxOverFlowException, so that a
    // caller checks before it allocates or cuts anything.
    static OxULong CheckLength(uint64_t nLength);

    // The empty value.
    CBinaryData();
    // length bytes at data. With takeOwnership the handle takes data itself (allocated with
    // new[]) instead of a copy. A length of 0 gives the empty value, and data is then not
    // taken even with takeOwnership.
    CBinaryData(unsigned char* const data, OxULong length, bool takeOwnership);
    // A copy of the bytes of text, without its terminator. Null gives the empty value.
    CBinaryData(const char* text);
    // Shares the block of other.
    CBinaryData(const CBinaryData& other);
    // Drops the former block, then shares the block of other.
    CBinaryData& operator=(const CBinaryData& other);
    virtual ~CBinaryData();

    // Drops the block; the handle is empty.
    void Clear();

    // The bytes, null when empty. Valid until the handle changes or is destroyed.
    const unsigned char* GetData() const;
    // The number of bytes, 0 when empty.
    OxULong GetLength() const;

    // Hands the bytes to the caller, who frees them with delete[], and leaves the handle
    // empty. A shared block is first copied, so the caller always gets a private array and
    // the other handles keep theirs. Null when empty.
    unsigned char* ReleaseData();

    // Append one byte.
    void Append(unsigned char byte);
    void Append(char byte);
    // Append length bytes; a length of 0 (or a null pointer) does nothing. The bytes may lie
    // inside this value's own data. Growing past MAX_LENGTH throws COxOverFlowException and
    // leaves the value as it was.
    void Append(const unsigned char* data, OxULong length);
    // Append the text up to its first NUL.
    void Append(const char* text);
    void Append(const std::string& text);
    // Append the bytes of another value (which may be this one).
    void Append(const CBinaryData& other);

    // Replaces the value with a copy of length bytes; a length of 0 leaves it empty.
    void SetBuffer(const unsigned char* data, OxULong length);
    // Replaces the value with a copy of the text up to its NUL.
    void SetBuffer(const char* text);

    // Equal when both are empty, or both hold the same bytes.
    bool operator==(const CBinaryData& other) const;
    bool operator!=(const CBinaryData& other) const { return !(*this == other); }

    // The byte at index, read only; the block stays shared. Throws COxException
    // "Index Out of range [%d]" for an index at or beyond the length.
    const unsigned char& operator[](OxULong index) const;
    // The byte at index, writable: the value takes a private copy of a shared block first.
    // The reference is valid until the handle changes, is copied or is destroyed. Throws as
    // the const form.
    unsigned char& operator[](OxULong index);

    // Two upper-case hex digits per byte, high nibble first, no separators. The empty value
    // gives the empty string.
    std::string GetAsHexString() const;
    // The same for length raw bytes; a null pointer gives the empty string.
    static std::string GetAsHexString(const unsigned char* data, OxULong length);
    // Replaces the value with the bytes of hex text (either case). The value is cleared
    // first, so a refused text leaves it empty. Throws COxException "Invalid length in hex
    // string" for an odd length and "Invalid char in hex string [%c]" for a character that
    // isn't a hex digit.
    void SetAsHexString(const char* text);

    // The bytes as one line of base64 text, padded with "=". The empty value gives the empty
    // string.
    std::string GetAsBase64() const;
    // Replaces the value with the bytes of base64 text. Blanks, line breaks and "=" are
    // skipped wherever they stand. A text with any other character outside the alphabet
    // gives the empty value; nothing is thrown.
    void SetAsBase64(const char* text);

protected:
    // Decodes hex text into a new array (freed with delete[]) at *out and gives its byte
    // count. Empty text gives 0 and a null *out. Throws as SetAsHexString, after freeing the
    // partly filled array.
    static OxULong ConvertToHexData(const char* text, unsigned char** out);

private:
    // Before a change of the bytes: a block that other handles share is replaced by a
    // private copy. An unshared block stays where it is.
    void Unshare();

    CBinaryDataBuffer* m_pBuffer;
};

}  // namespace OrvexXml
