#include "orvexxml/values/binarydata.h"

#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/base64.h"

namespace OrvexXml {

// The block that handles share. It exists only with at least one byte; the empty value is
// a handle without a block.
//
// The count is atomic: adding a reference is one increment, and the handle that brings it
// to 0 frees the block. The bytes change only while the count is 1, that is while the one
// handle that changes them is the only one that can see them, so they need no lock.
class CBinaryDataBuffer {
public:
    // A block that owns data, which was allocated with new[]; no spare room.
    static CBinaryDataBuffer* TakeOver(unsigned char* data, OxULong length) {
        return new CBinaryDataBuffer(data, length, length);
    }

    // A block with a copy of length bytes, with room to grow: twice the length, at least
    // MIN_COPY_CAPACITY bytes.
    static CBinaryDataBuffer* CopyOf(const unsigned char* data, OxULong length) {
        const uint64_t nCapacity = CopyCapacity(length);
        std::unique_ptr<unsigned char[]> spData(new unsigned char[nCapacity]);
        std::memcpy(spData.get(), data, length);
        CBinaryDataBuffer* pBuffer = new CBinaryDataBuffer(spData.get(), length, static_cast<OxULong>(nCapacity));
        spData.release();
        return pBuffer;
    }

    static void AddRef(CBinaryDataBuffer* pBuffer) { pBuffer->m_refCount.fetch_add(1, std::memory_order_relaxed); }

    // Drops one reference; the last one frees the bytes and the block. The release order
    // makes every use of the block through other handles happen before the freeing.
    static void Release(CBinaryDataBuffer* pBuffer) {
        if (pBuffer->m_refCount.fetch_sub(1, std::memory_order_acq_rel) == 1) delete pBuffer;
    }

    // Drops the last reference and frees the block but not the bytes, which go to the
    // caller. Refused while another handle shares the block.
    static unsigned char* ReleaseForHandOver(CBinaryDataBuffer* pBuffer) {
        OxLong lExpected = 1;
        if (!pBuffer->m_refCount.compare_exchange_strong(lExpected, 0, std::memory_order_acq_rel,
                                                         std::memory_order_acquire)) {
            throw COxException(FormatString("Failed to release data. [RefCount=%d]", static_cast<int>(lExpected)));
        }
        unsigned char* pData = pBuffer->m_lpData;
        pBuffer->m_lpData = nullptr;
        delete pBuffer;
        return pData;
    }

    // The acquire order makes the former uses through handles that are gone happen before
    // a change of the bytes by the one handle left.
    OxLong GetRefCount() const { return m_refCount.load(std::memory_order_acquire); }
    bool IsShared() const { return GetRefCount() > 1; }

    // Room for a copy of length bytes.
    static uint64_t CopyCapacity(OxULong length) {
        const uint64_t nDouble = static_cast<uint64_t>(length) * 2;
        if (nDouble < MIN_COPY_CAPACITY) return MIN_COPY_CAPACITY;
        return nDouble > UINT32_MAX ? UINT32_MAX : nDouble;
    }

    // Room after growing to length bytes: twice that length, so that appending byte by
    // byte reallocates only a logarithmic number of times.
    static uint64_t GrownCapacity(uint64_t length) {
        const uint64_t nDouble = length * 2;
        return nDouble > UINT32_MAX ? UINT32_MAX : nDouble;
    }

    unsigned char* m_lpData;  // allocated with new[]
    OxULong m_dwLen;          // bytes in use, above 0
    OxULong m_dwCapacity;     // bytes allocated
    std::atomic<OxLong> m_refCount;

private:
    static constexpr uint64_t MIN_COPY_CAPACITY = 8192;

    CBinaryDataBuffer(unsigned char* data, OxULong length, OxULong capacity)
        : m_lpData(data), m_dwLen(length), m_dwCapacity(capacity), m_refCount(1) {}
    ~CBinaryDataBuffer() { delete[] m_lpData; }
    CBinaryDataBuffer(const CBinaryDataBuffer&) = delete;
    CBinaryDataBuffer& operator=(const CBinaryDataBuffer&) = delete;
};

namespace {

// Two upper-case hex digits for each byte value.
struct CHexPairs {
    char m_digits[512];
};

constexpr CHexPairs MakeHexPairs() {
    const char szDigits[] = "0123456789ABCDEF";
    CHexPairs pairs{};
    for (int i = 0; i < 256; ++i) {
        pairs.m_digits[2 * i] = szDigits[i >> 4];
        pairs.m_digits[2 * i + 1] = szDigits[i & 0x0F];
    }
    return pairs;
}

constexpr CHexPairs g_hexPairs = MakeHexPairs();

// The value of each hex digit, HEX_INVALID for every other character.
constexpr unsigned char HEX_INVALID = 0xFF;

struct CHexValues {
    unsigned char m_values[256];
};

constexpr CHexValues MakeHexValues() {
    CHexValues values{};
    for (int i = 0; i < 256; ++i) values.m_values[i] = HEX_INVALID;
    for (int i = 0; i < 10; ++i) values.m_values['0' + i] = static_cast<unsigned char>(i);
    for (int i = 0; i < 6; ++i) {
        values.m_values['A' + i] = static_cast<unsigned char>(10 + i);
        values.m_values['a' + i] = static_cast<unsigned char>(10 + i);
    }
    return values;
}

constexpr CHexValues g_hexValues = MakeHexValues();

[[noreturn]] void ThrowIndexOutOfRange(OxULong index) {
    throw COxException(FormatString("Index Out of range [%d]", static_cast<int>(index)));
}

// Whether p points into the length bytes at pBlock. Compared as numbers, since the two
// pointers need not belong to the same array.
bool PointsInto(const unsigned char* p, const unsigned char* pBlock, OxULong length) {
    const uintptr_t nAddress = reinterpret_cast<uintptr_t>(p);
    const uintptr_t nStart = reinterpret_cast<uintptr_t>(pBlock);
    return nAddress >= nStart && nAddress - nStart < length;
}

}  // namespace

// --- construction and sharing ------------------------------------------------------------

CBinaryData::CBinaryData() : m_pBuffer(nullptr) {}

CBinaryData::CBinaryData(unsigned char* const data, OxULong length, bool takeOwnership) : m_pBuffer(nullptr) {
    if (data == nullptr || length == 0) return;
    m_pBuffer = takeOwnership ? CBinaryDataBuffer::TakeOver(data, length) : CBinaryDataBuffer::CopyOf(data, length);
}

CBinaryData::CBinaryData(const char* text) : m_pBuffer(nullptr) { SetBuffer(text); }

CBinaryData::CBinaryData(const CBinaryData& other) : m_pBuffer(other.m_pBuffer) {
    if (m_pBuffer) CBinaryDataBuffer::AddRef(m_pBuffer);
}

CBinaryData& CBinaryData::operator=(const CBinaryData& other) {
    // The new reference is taken before the old one is dropped, so that assigning a handle
    // on the same block never frees it on the way.
    CBinaryDataBuffer* pOld = m_pBuffer;
    m_pBuffer = other.m_pBuffer;
    if (m_pBuffer) CBinaryDataBuffer::AddRef(m_pBuffer);
    if (pOld) CBinaryDataBuffer::Release(pOld);
    return *this;
}

CBinaryData::~CBinaryData() { Clear(); }

void CBinaryData::Clear() {
    CBinaryDataBuffer* pOld = m_pBuffer;
    m_pBuffer = nullptr;
    if (pOld) CBinaryDataBuffer::Release(pOld);
}

void CBinaryData::Unshare() {
    if (m_pBuffer == nullptr || !m_pBuffer->IsShared()) return;
    CBinaryDataBuffer* pCopy = CBinaryDataBuffer::CopyOf(m_pBuffer->m_lpData, m_pBuffer->m_dwLen);
    CBinaryDataBuffer::Release(m_pBuffer);
    m_pBuffer = pCopy;
}

// --- access ------------------------------------------------------------------------------

const unsigned char* CBinaryData::GetData() const { return m_pBuffer ? m_pBuffer->m_lpData : nullptr; }

OxULong CBinaryData::GetLength() const { return m_pBuffer ? m_pBuffer->m_dwLen : 0; }

unsigned char* CBinaryData::ReleaseData() {
    if (m_pBuffer == nullptr) return nullptr;
    Unshare();
    unsigned char* pData = CBinaryDataBuffer::ReleaseForHandOver(m_pBuffer);
    m_pBuffer = nullptr;
    return pData;
}

const unsigned char& CBinaryData::operator[](OxULong index) const {
    if (m_pBuffer == nullptr || index >= m_pBuffer->m_dwLen) ThrowIndexOutOfRange(index);
    return m_pBuffer->m_lpData[index];
}

unsigned char& CBinaryData::operator[](OxULong index) {
    // The index is tested before unsharing, so that a refused index costs no copy.
    if (m_pBuffer == nullptr || index >= m_pBuffer->m_dwLen) ThrowIndexOutOfRange(index);
    Unshare();
    return m_pBuffer->m_lpData[index];
}

bool CBinaryData::operator==(const CBinaryData& other) const {
    if (m_pBuffer == other.m_pBuffer) return true;  // both empty, or the same block
    if (m_pBuffer == nullptr || other.m_pBuffer == nullptr) return false;
    return m_pBuffer->m_dwLen == other.m_pBuffer->m_dwLen &&
           std::memcmp(m_pBuffer->m_lpData, other.m_pBuffer->m_lpData, m_pBuffer->m_dwLen) == 0;
}

// --- appending and replacing -------------------------------------------------------------

void CBinaryData::Append(unsigned char byte) {
    // Writers append octet by octet: a block of this handle alone with room left takes the
    // byte at once; everything else goes the general way.
    CBinaryDataBuffer* pBuffer = m_pBuffer;
    if (pBuffer != nullptr && pBuffer->m_dwLen < pBuffer->m_dwCapacity && !pBuffer->IsShared()) {
        pBuffer->m_lpData[pBuffer->m_dwLen++] = byte;
        return;
    }
    Append(&byte, 1);
}

void CBinaryData::Append(char byte) { Append(static_cast<unsigned char>(byte)); }

OxULong CBinaryData::CheckLength(uint64_t nLength) {
    if (nLength > MAX_LENGTH) {
        throw COxOverFlowException(
            FormatString("Data of %llu bytes are too long for a binary buffer, which holds at most %u bytes",
                         static_cast<unsigned long long>(nLength), static_cast<unsigned int>(MAX_LENGTH)));
    }
    return static_cast<OxULong>(nLength);
}

void CBinaryData::Append(const char* text) {
    if (text == nullptr) return;
    Append(reinterpret_cast<const unsigned char*>(text), CheckLength(std::strlen(text)));
}

void CBinaryData::Append(const std::string& text) { Append(text.c_str()); }

void CBinaryData::Append(const CBinaryData& other) { Append(other.GetData(), other.GetLength()); }

void CBinaryData::Append(const unsigned char* data, OxULong length) {
    if (data == nullptr || length == 0) return;
    if (m_pBuffer == nullptr) {
        m_pBuffer = CBinaryDataBuffer::CopyOf(data, length);
        return;
    }

    // Bytes taken from this value's own block are found again at the same place in the
    // private copy that unsharing may make, since the old block may be gone after that.
    const bool bOwnBytes = PointsInto(data, m_pBuffer->m_lpData, m_pBuffer->m_dwLen);
    const size_t nOffset = bOwnBytes ? static_cast<size_t>(data - m_pBuffer->m_lpData) : 0;
    Unshare();
    if (bOwnBytes) data = m_pBuffer->m_lpData + nOffset;

    // Only another thread that copies this very handle meanwhile can share the block again.
    const OxLong lRefCount = m_pBuffer->GetRefCount();
    if (lRefCount > 1) throw COxException(FormatString("Failed to append. [RefCount=%d]", static_cast<int>(lRefCount)));

    CBinaryDataBuffer& buffer = *m_pBuffer;
    const uint64_t nNewLength = static_cast<uint64_t>(buffer.m_dwLen) + length;
    CheckLength(nNewLength);
    if (nNewLength > buffer.m_dwCapacity) {
        // The new array takes the old bytes and the appended ones before the old array is
        // freed, which keeps bytes taken from the old array valid while they are copied.
        const uint64_t nNewCapacity = CBinaryDataBuffer::GrownCapacity(nNewLength);
        unsigned char* pNew = new unsigned char[nNewCapacity];
        std::memcpy(pNew, buffer.m_lpData, buffer.m_dwLen);
        std::memcpy(pNew + buffer.m_dwLen, data, length);
        delete[] buffer.m_lpData;
        buffer.m_lpData = pNew;
        buffer.m_dwCapacity = static_cast<OxULong>(nNewCapacity);
    } else {
        // memmove: a caller may name bytes that run into the room behind the data.
        std::memmove(buffer.m_lpData + buffer.m_dwLen, data, length);
    }
    buffer.m_dwLen = static_cast<OxULong>(nNewLength);
}

void CBinaryData::SetBuffer(const unsigned char* data, OxULong length) {
    // The new block is made before the old one is dropped, so the bytes may come from it.
    CBinaryDataBuffer* pNew = (data != nullptr && length != 0) ? CBinaryDataBuffer::CopyOf(data, length) : nullptr;
    Clear();
    m_pBuffer = pNew;
}

void CBinaryData::SetBuffer(const char* text) {
    if (text == nullptr) {
        Clear();
        return;
    }
    SetBuffer(reinterpret_cast<const unsigned char*>(text), CheckLength(std::strlen(text)));
}

// --- hex ---------------------------------------------------------------------------------

std::string CBinaryData::GetAsHexString() const {
    if (m_pBuffer == nullptr) return std::string();
    return GetAsHexString(m_pBuffer->m_lpData, m_pBuffer->m_dwLen);
}

std::string CBinaryData::GetAsHexString(const unsigned char* data, OxULong length) {
    if (data == nullptr || length == 0) return std::string();
    std::string text(static_cast<size_t>(length) * 2, '\0');
    char* pOut = &text[0];
    for (OxULong i = 0; i < length; ++i, pOut += 2) {
        const char* pPair = &g_hexPairs.m_digits[2 * data[i]];
        pOut[0] = pPair[0];
        pOut[1] = pPair[1];
    }
    return text;
}

OxULong CBinaryData::ConvertToHexData(const char* text, unsigned char** out) {
    *out = nullptr;
    if (text == nullptr) return 0;
    const size_t nLength = std::strlen(text);
    if (nLength % 2 != 0) throw COxException("Invalid length in hex string");
    if (nLength == 0) return 0;
    const OxULong nCount = CheckLength(nLength / 2);
    // Freed by the unique_ptr if a character is refused.
    std::unique_ptr<unsigned char[]> spData(new unsigned char[nCount]);
    const unsigned char* p = reinterpret_cast<const unsigned char*>(text);
    for (OxULong i = 0; i < nCount; ++i, p += 2) {
        const unsigned char nHigh = g_hexValues.m_values[p[0]];
        if (nHigh == HEX_INVALID) throw COxException(FormatString("Invalid char in hex string [%c]", p[0]));
        const unsigned char nLow = g_hexValues.m_values[p[1]];
        if (nLow == HEX_INVALID) throw COxException(FormatString("Invalid char in hex string [%c]", p[1]));
        spData[i] = static_cast<unsigned char>((nHigh << 4) | nLow);
    }
    *out = spData.release();
    return nCount;
}

void CBinaryData::SetAsHexString(const char* text) {
    // Decoded before the old value goes, since text may lie in this value's own bytes; a
    // refused text still leaves the value empty.
    unsigned char* pData = nullptr;
    OxULong nCount = 0;
    try {
        nCount = ConvertToHexData(text, &pData);
    } catch (...) {
        Clear();
        throw;
    }
    // The decoded array becomes the block as it is, without a copy.
    CBinaryDataBuffer* pNew = nullptr;
    if (nCount != 0) {
        std::unique_ptr<unsigned char[]> spData(pData);
        pNew = CBinaryDataBuffer::TakeOver(pData, nCount);
        spData.release();
    }
    Clear();
    m_pBuffer = pNew;
}

// --- base64 ------------------------------------------------------------------------------

std::string CBinaryData::GetAsBase64() const {
    if (m_pBuffer == nullptr) return std::string();
    CBase64 codec;
    return codec.Encode(m_pBuffer->m_lpData, m_pBuffer->m_dwLen);
}

void CBinaryData::SetAsBase64(const char* text) {
    // Decoded before the old value goes, since text may lie in this value's own bytes.
    CBinaryDataBuffer* pNew = nullptr;
    if (text != nullptr && *text != '\0') {
        const size_t nLength = std::strlen(text);
        // Base64 never decodes to more bytes than it has characters.
        std::unique_ptr<unsigned char[]> spData(new unsigned char[nLength + 1]);
        CBase64 codec;
        const OxULong nCount = codec.Decode(text, spData.get());
        // The array becomes the block without a copy; an invalid text decodes to 0 bytes and
        // leaves the value empty.
        if (nCount != 0) {
            pNew = CBinaryDataBuffer::TakeOver(spData.get(), nCount);
            spData.release();
        }
    }
    Clear();
    m_pBuffer = pNew;
}

}  // namespace OrvexXml
