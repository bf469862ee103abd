#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"

namespace OrvexXml {

// Accumulates text in fixed blocks, so that output grows without moving what was already
// written. The blocks are joined only when the whole text is asked for.
//
// Every block is allocated with one byte more than its capacity and zero-filled, so the last
// block is always null-terminated. The appends that fit into the last block are inline; only
// the crossing into a new block goes out of line.
//
// Lengths are kept in size_t, so a text may grow past 4 GiB; only the size of new blocks is
// a 32-bit quantity.
class ORVEXXML_API CStringBuffer : public CInstanceMonitor {
public:
    // Blocks of 4096 bytes: 4095 bytes of text and the terminator.
    CStringBuffer();
    // nBlockSize counts the terminator, so a block holds nBlockSize - 1 bytes of text.
    // Sizes below 2 are raised to 2: a block must be able to hold at least one byte.
    explicit CStringBuffer(uint32_t nBlockSize);
    ~CStringBuffer() override;

    CStringBuffer(const CStringBuffer&) = delete;
    CStringBuffer& operator=(const CStringBuffer&) = delete;

    // Adds the bytes up to the terminator.
    void Append(const char* psz) { Append(psz, std::strlen(psz)); }
    // Adds the bytes up to the first null byte, like the const char* form. Short strings
    // (names, prefixes, numbers) are scanned here, which is cheaper than a call to strlen.
    void Append(const std::string& str) {
        const char* pData = str.data();
        const size_t nSize = str.size();
        if (nSize > kInlineScan) {
            const void* pNull = std::memchr(pData, 0, nSize);
            Append(pData, pNull ? static_cast<size_t>(static_cast<const char*>(pNull) - pData) : nSize);
            return;
        }
        size_t nLen = 0;
        while (nLen < nSize && pData[nLen] != '\0') ++nLen;
        Append(pData, nLen);
    }
    // Adds one byte; a null byte is counted like any other.
    void Append(char c) {
        if (m_LastBlock_DataIn < m_LastBlock_SizeOf) {
            m_pLastBlock[m_LastBlock_DataIn++] = c;
            ++m_dwTotalBufferLen;
        } else {
            AppendSlow(&c, 1);
        }
    }
    // Adds exactly nLen bytes, null bytes included.
    void Append(const char* pData, size_t nLen) {
        if (nLen != 0 && nLen <= m_LastBlock_SizeOf - m_LastBlock_DataIn) {
            std::memcpy(m_pLastBlock + m_LastBlock_DataIn, pData, nLen);
            m_LastBlock_DataIn += nLen;
            m_dwTotalBufferLen += nLen;
        } else {
            AppendSlow(pData, nLen);
        }
    }

    // From now on keeps the text in one contiguous string instead of blocks, grown
    // geometrically, so that TakeString can hand it out without a copy. nExpected bytes are
    // reserved at once (0 for no guess). Empties the buffer first.
    void KeepContiguous(size_t nExpected);
    bool IsContiguous() const { return m_bContiguous; }
    // The whole text as a string; the buffer is empty afterwards. A contiguous text is moved
    // out, blocks are copied.
    std::string TakeString();

    // Releases everything, then appends.
    void Assign(const char* psz);
    // Empties the buffer. With exactly one block, that block is kept for further text.
    void Clear();

    size_t GetLength() const { return m_dwTotalBufferLen; }
    // The whole text as one null-terminated string. Joins the blocks if there are several;
    // the pointer stays valid until the next change of the buffer.
    const char* GetBuffer();
    // Copies the whole text (GetLength() bytes) to pDest in order, without joining the blocks.
    void CopyTo(char* pDest) const;

private:
    static const size_t kInlineScan = 32;

    void AppendSlow(const char* pData, size_t nLen);
    void AddBlock();
    // Makes room for nLen more bytes in the contiguous text.
    void GrowContiguous(size_t nLen);
    void ReleaseAll();

    std::vector<char*> m_vecBlocks;       // oldest first; owned
    std::vector<size_t> m_vecBlockSizes;  // capacity of each block, in step with m_vecBlocks
    uint32_t m_dwBlockSize;               // capacity of new blocks
    size_t m_LastBlock_DataIn;            // bytes used in the last block
    size_t m_LastBlock_SizeOf;            // capacity of the last block (a joined one may pass 4 GiB)
    char* m_pLastBlock;                   // null with no blocks
    size_t m_dwTotalBufferLen;            // all bytes held
    // In contiguous mode the only storage: its size is the zero-filled room (the capacity of
    // the "last block"), m_LastBlock_DataIn the bytes used. No entries in m_vecBlocks then.
    std::string m_strContiguous;
    bool m_bContiguous;
};

}  // namespace OrvexXml
