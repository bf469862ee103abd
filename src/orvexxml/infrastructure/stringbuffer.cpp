#include "orvexxml/infrastructure/stringbuffer.h"

#include <cstdlib>
#include <new>

#include "orvexxml/infrastructure/textencoder.h"

namespace OrvexXml {

namespace {

const uint32_t kDefaultBlockSize = 4096;

// The contiguous text's zero-filled room grows by this much at a time, so that filling it
// touches hardly more memory than the text itself.
const size_t kContiguousStep = 64 * 1024;

// What GetBuffer returns while there is no block at all.
const char g_szEmpty[1] = {'\0'};

char* AllocateZeroed(size_t nBytes) {
    void* p = std::calloc(nBytes, 1);
    if (!p) throw std::bad_alloc();
    return static_cast<char*>(p);
}

}  // namespace

CStringBuffer::CStringBuffer() : CStringBuffer(kDefaultBlockSize) {}

CStringBuffer::CStringBuffer(uint32_t nBlockSize)
    : CInstanceMonitor("CStringBuffer"),
      m_dwBlockSize(nBlockSize < 2 ? 1 : nBlockSize - 1),
      m_LastBlock_DataIn(0),
      m_LastBlock_SizeOf(0),
      m_pLastBlock(nullptr),
      m_dwTotalBufferLen(0),
      m_bContiguous(false) {}

CStringBuffer::~CStringBuffer() { ReleaseAll(); }

void CStringBuffer::AppendSlow(const char* pData, size_t nLen) {
    if (m_bContiguous) {
        if (nLen == 0) return;
        GrowContiguous(nLen);
        std::memcpy(m_pLastBlock + m_LastBlock_DataIn, pData, nLen);
        m_LastBlock_DataIn += nLen;
        m_dwTotalBufferLen += nLen;
        return;
    }
    while (nLen > 0) {
        if (m_LastBlock_SizeOf == m_LastBlock_DataIn) {
            AddBlock();
            continue;
        }
        size_t nFree = m_LastBlock_SizeOf - m_LastBlock_DataIn;
        size_t nCopy = nLen < nFree ? nLen : nFree;
        std::memcpy(m_pLastBlock + m_LastBlock_DataIn, pData, nCopy);
        m_LastBlock_DataIn += nCopy;
        m_dwTotalBufferLen += nCopy;
        pData += nCopy;
        nLen -= nCopy;
    }
}

void CStringBuffer::AddBlock() {
    // Reserve the vector slots first, so that a failing push_back cannot leak the block. The
    // room doubles: growing it by one slot at a time would copy the whole list at every block,
    // which for a document of gigabytes (a million blocks) is quadratic.
    if (m_vecBlocks.size() == m_vecBlocks.capacity()) {
        const size_t nSlots = m_vecBlocks.empty() ? 4 : 2 * m_vecBlocks.size();
        m_vecBlocks.reserve(nSlots);
    }
    m_vecBlockSizes.reserve(m_vecBlocks.capacity());
    char* pBlock = AllocateZeroed(static_cast<size_t>(m_dwBlockSize) + 1);
    m_vecBlocks.push_back(pBlock);
    m_vecBlockSizes.push_back(m_dwBlockSize);
    m_pLastBlock = pBlock;
    m_LastBlock_SizeOf = m_dwBlockSize;
    m_LastBlock_DataIn = 0;
}

void CStringBuffer::GrowContiguous(size_t nLen) {
    const size_t nNeeded = m_LastBlock_DataIn + nLen;
    if (nNeeded > m_strContiguous.capacity()) {
        size_t nCapacity = 2 * m_strContiguous.capacity();
        if (nCapacity < m_dwBlockSize) nCapacity = m_dwBlockSize;
        if (nCapacity < nNeeded) nCapacity = nNeeded;
        // Only the bytes in use move to the new area, not the zeros of the room behind them.
        m_strContiguous.resize(m_LastBlock_DataIn);
        m_strContiguous.reserve(nCapacity);
        AdviseHugePages(&m_strContiguous[0], m_strContiguous.capacity());
    }
    size_t nRoom = m_strContiguous.size() + kContiguousStep;
    if (nRoom < nNeeded) nRoom = nNeeded;
    if (nRoom > m_strContiguous.capacity()) nRoom = m_strContiguous.capacity();
    m_strContiguous.resize(nRoom);
    m_pLastBlock = &m_strContiguous[0];
    m_LastBlock_SizeOf = nRoom;
}

void CStringBuffer::KeepContiguous(size_t nExpected) {
    ReleaseAll();
    m_bContiguous = true;
    if (nExpected != 0) {
        m_strContiguous.reserve(nExpected);
        AdviseHugePages(&m_strContiguous[0], m_strContiguous.capacity());
    }
}

std::string CStringBuffer::TakeString() {
    std::string strText;
    if (m_bContiguous) {
        m_strContiguous.resize(m_LastBlock_DataIn);
        strText.swap(m_strContiguous);
        // A guess far above the text would otherwise stay with the caller's string.
        if (strText.capacity() / 2 > strText.size()) strText.shrink_to_fit();
    } else if (m_dwTotalBufferLen != 0) {
        // Reserve, advise, then fill: the one pass over fresh memory is the copy itself.
        strText.reserve(m_dwTotalBufferLen);
        AdviseHugePages(&strText[0], m_dwTotalBufferLen);
        strText.resize(m_dwTotalBufferLen);
        CopyTo(&strText[0]);
    }
    ReleaseAll();
    return strText;
}

void CStringBuffer::Assign(const char* psz) {
    ReleaseAll();
    Append(psz);
}

void CStringBuffer::Clear() {
    if (m_bContiguous) {
        // The room is kept; only the bytes in use need zeroing again.
        if (m_LastBlock_DataIn != 0) std::memset(m_pLastBlock, 0, m_LastBlock_DataIn);
        m_LastBlock_DataIn = 0;
        m_dwTotalBufferLen = 0;
        return;
    }
    if (m_vecBlocks.size() == 1) {
        std::memset(m_pLastBlock, 0, m_LastBlock_SizeOf + 1);
        m_LastBlock_DataIn = 0;
        m_dwTotalBufferLen = 0;
    } else {
        ReleaseAll();
    }
}

const char* CStringBuffer::GetBuffer() {
    // The contiguous room is zero-filled behind the text, or ends at the string's terminator.
    if (m_bContiguous) return m_pLastBlock ? m_pLastBlock : g_szEmpty;
    if (m_vecBlocks.empty()) return g_szEmpty;
    if (m_vecBlocks.size() == 1) return m_pLastBlock;

    char* pJoined = static_cast<char*>(std::malloc(m_dwTotalBufferLen + 1));
    if (!pJoined) throw std::bad_alloc();
    char* pOut = pJoined;
    size_t nLast = m_vecBlocks.size() - 1;
    for (size_t i = 0; i < nLast; ++i) {
        std::memcpy(pOut, m_vecBlocks[i], m_vecBlockSizes[i]);
        pOut += m_vecBlockSizes[i];
    }
    std::memcpy(pOut, m_pLastBlock, m_LastBlock_DataIn);
    pOut[m_LastBlock_DataIn] = '\0';

    const size_t nTotal = m_dwTotalBufferLen;
    ReleaseAll();
    // Both vectors had capacity for several entries, so these pushes do not allocate.
    m_vecBlocks.push_back(pJoined);
    m_vecBlockSizes.push_back(nTotal);
    m_pLastBlock = pJoined;
    m_LastBlock_SizeOf = nTotal;
    m_LastBlock_DataIn = nTotal;
    m_dwTotalBufferLen = nTotal;
    return pJoined;
}

void CStringBuffer::ReleaseAll() {
    for (char* pBlock : m_vecBlocks) std::free(pBlock);
    m_vecBlocks.clear();
    m_vecBlockSizes.clear();
    std::string().swap(m_strContiguous);
    m_LastBlock_DataIn = 0;
    m_LastBlock_SizeOf = 0;
    m_pLastBlock = nullptr;
    m_dwTotalBufferLen = 0;
}

void CStringBuffer::CopyTo(char* pDest) const {
    if (m_bContiguous) {
        if (m_LastBlock_DataIn != 0) std::memcpy(pDest, m_pLastBlock, m_LastBlock_DataIn);
        return;
    }
    // Every block but the last is full; the last holds m_LastBlock_DataIn bytes.
    const size_t nBlocks = m_vecBlocks.size();
    for (size_t i = 0; i + 1 < nBlocks; ++i) {
        std::memcpy(pDest, m_vecBlocks[i], m_vecBlockSizes[i]);
        pDest += m_vecBlockSizes[i];
    }
    if (nBlocks != 0) std::memcpy(pDest, m_pLastBlock, m_LastBlock_DataIn);
}

}  // namespace OrvexXml
