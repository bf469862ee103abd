#include "orvexxml/xml/xmlnodestore.h"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>

namespace OrvexXml {

namespace {

// The first blocks come from the heap, so that a small document costs one small
// allocation; from this size on, blocks are mapped and aligned for huge pages.
const size_t kFirstBlockSize = 8 * 1024;
const size_t kMappedBlockSize = 2 * 1024 * 1024;

// A mapping of nSize bytes aligned to nSize (a power of two), null on failure.
void* MapAligned(size_t nSize) {
    size_t nMapped = 2 * nSize;
    void* p = ::mmap(nullptr, nMapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (p == MAP_FAILED) return nullptr;
    uintptr_t nStart = reinterpret_cast<uintptr_t>(p);
    uintptr_t nAligned = (nStart + nSize - 1) & ~static_cast<uintptr_t>(nSize - 1);
    if (nAligned > nStart) ::munmap(p, nAligned - nStart);
    uintptr_t nEnd = nAligned + nSize;
    if (nStart + nMapped > nEnd) ::munmap(reinterpret_cast<void*>(nEnd), nStart + nMapped - nEnd);
#ifdef MADV_HUGEPAGE
    // Advice only: where huge pages are not available, this changes nothing.
    ::madvise(reinterpret_cast<void*>(nAligned), nSize, MADV_HUGEPAGE);
#endif
    return reinterpret_cast<void*>(nAligned);
}

#ifndef ORVEXXML_NODESTORE_ASAN
// Mapped blocks that documents gave back, kept for the next document: a program that reads
// one large document after another then builds its trees in memory that is already mapped.
// The kernel may take the pages of a kept block back at any time (MADV_FREE), so keeping
// them costs nothing under memory pressure. At most kMaxCachedBlocks are kept.
class CBlockCache {
public:
    void* Take() {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_nCount > 0 ? m_apBlocks[--m_nCount] : nullptr;
    }
    bool Put(void* pBlock) {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_nCount == kMaxCachedBlocks) return false;
        m_apBlocks[m_nCount++] = pBlock;
        return true;
    }

private:
    static const size_t kMaxCachedBlocks = 128;
    std::mutex m_mutex;
    void* m_apBlocks[kMaxCachedBlocks] = {};
    size_t m_nCount = 0;
};

CBlockCache& BlockCache() {
    // Never destroyed: documents with static storage may give blocks back during exit.
    static CBlockCache* s_pCache = new CBlockCache;
    return *s_pCache;
}
#endif

void* TakeMappedBlock() {
#ifndef ORVEXXML_NODESTORE_ASAN
    if (void* pBlock = BlockCache().Take()) return pBlock;
#endif
    return MapAligned(kMappedBlockSize);
}

void GiveBackMappedBlock(void* pBlock) {
#ifndef ORVEXXML_NODESTORE_ASAN
#ifdef MADV_FREE
    ::madvise(pBlock, kMappedBlockSize, MADV_FREE);
#endif
    if (BlockCache().Put(pBlock)) return;
#endif
    ::munmap(pBlock, kMappedBlockSize);
}

}  // namespace

CXmlNodeStore::CXmlNodeStore()
    : m_pCursor(nullptr),
      m_pLimit(nullptr),
      m_pBlocks(nullptr),
      m_nNextBlockSize(kFirstBlockSize),
      m_pStoredTexts(nullptr),
      m_ppTextTable(nullptr),
      m_nTextTableSize(0),
      m_nTextCount(0),
      m_apRecent{nullptr, nullptr},
      m_nNextRecent(0),
      m_apNameSlots{} {
    std::memset(m_apFree, 0, sizeof(m_apFree));
}

CXmlNodeStore::~CXmlNodeStore() { Release(); }

void* CXmlNodeStore::AllocateSlow(size_t nSize) {
    size_t nHeader = Round(sizeof(Block));
    size_t nBlockSize = m_nNextBlockSize;
    while (nBlockSize < nHeader + Round(nSize)) nBlockSize *= 2;

    void* pMemory = nullptr;
    bool bMapped = false;
    if (nBlockSize == kMappedBlockSize) {
        pMemory = TakeMappedBlock();
        bMapped = pMemory != nullptr;
    }
    if (!pMemory) {
        pMemory = std::malloc(nBlockSize);
        if (!pMemory) throw std::bad_alloc();
    }
    Block* pBlock = static_cast<Block*>(pMemory);
    pBlock->pNext = m_pBlocks;
    pBlock->nSize = nBlockSize;
    pBlock->bMapped = bMapped;
    m_pBlocks = pBlock;
    if (m_nNextBlockSize < kMappedBlockSize) m_nNextBlockSize *= 2;

    // What was left of the previous block is abandoned; it is less than one node.
    m_pCursor = static_cast<char*>(pMemory) + nHeader;
    m_pLimit = static_cast<char*>(pMemory) + nBlockSize;
    ORVEXXML_POISON(m_pCursor, static_cast<size_t>(m_pLimit - m_pCursor));
    void* p = m_pCursor;
    m_pCursor += Round(nSize);
    ORVEXXML_UNPOISON(p, Round(nSize));
    return p;
}

void CXmlNodeStore::Release() {
    // The stored texts live in the blocks: their buffers go first.
    while (m_pStoredTexts) {
        StoredText* pText = m_pStoredTexts;
        m_pStoredTexts = pText->pNext;
        pText->~StoredText();
    }
    m_ppTextTable = nullptr;
    m_nTextTableSize = 0;
    m_nTextCount = 0;
    while (m_pBlocks) {
        Block* pBlock = m_pBlocks;
        m_pBlocks = pBlock->pNext;
        ORVEXXML_UNPOISON(pBlock, pBlock->nSize);
        if (pBlock->bMapped)
            GiveBackMappedBlock(pBlock);
        else
            std::free(pBlock);
    }
    m_pCursor = m_pLimit = nullptr;
    m_nNextBlockSize = kFirstBlockSize;
    std::memset(m_apFree, 0, sizeof(m_apFree));
    m_apRecent[0] = m_apRecent[1] = nullptr;
    std::memset(static_cast<void*>(m_apNameSlots), 0, sizeof(m_apNameSlots));
}

namespace {

size_t HashText(const char* pText, size_t nLength) {
    // FNV-1a: names and URIs are short, and the table only needs a fair spread.
    uint64_t nHash = 14695981039346656037ULL;
    for (size_t i = 0; i < nLength; ++i) {
        nHash ^= static_cast<unsigned char>(pText[i]);
        nHash *= 1099511628211ULL;
    }
    return static_cast<size_t>(nHash ^ (nHash >> 32));
}

}  // namespace

const std::string* CXmlNodeStore::Store(const char* pText, size_t nLength) {
    const size_t nHash = HashText(pText, nLength);
    if (m_ppTextTable) {
        for (size_t i = nHash & (m_nTextTableSize - 1);; i = (i + 1) & (m_nTextTableSize - 1)) {
            const std::string* pStored = m_ppTextTable[i];
            if (!pStored) break;
            if (pStored->size() == nLength && std::memcmp(pStored->data(), pText, nLength) == 0) return pStored;
        }
    }
    if ((m_nTextCount + 1) * 2 > m_nTextTableSize) {
        // A new table twice the size (64 entries to start with); the old one stays in its block.
        const size_t nNewSize = m_nTextTableSize ? m_nTextTableSize * 2 : 64;
        const std::string** ppNew = static_cast<const std::string**>(Allocate(nNewSize * sizeof(const std::string*)));
        std::memset(static_cast<void*>(ppNew), 0, nNewSize * sizeof(const std::string*));
        for (size_t n = 0; n < m_nTextTableSize; ++n) {
            const std::string* pStored = m_ppTextTable[n];
            if (!pStored) continue;
            size_t i = HashText(pStored->data(), pStored->size()) & (nNewSize - 1);
            while (ppNew[i]) i = (i + 1) & (nNewSize - 1);
            ppNew[i] = pStored;
        }
        m_ppTextTable = ppNew;
        m_nTextTableSize = nNewSize;
    }
    // A failure to copy the text leaves its node's memory unused in the block, nothing else.
    StoredText* pNew = new (Allocate(sizeof(StoredText))) StoredText{m_pStoredTexts, std::string(pText, nLength)};
    m_pStoredTexts = pNew;
    size_t i = nHash & (m_nTextTableSize - 1);
    while (m_ppTextTable[i]) i = (i + 1) & (m_nTextTableSize - 1);
    m_ppTextTable[i] = &pNew->str;
    ++m_nTextCount;
    return &pNew->str;
}

const std::string* CXmlNodeStore::InternNamespace(const char* pUri, size_t nLength) {
    if (nLength == 0) return EmptyNamespace();
    // Elements and attributes usually alternate between very few URIs.
    for (const std::string* pRecent : m_apRecent) {
        if (pRecent && pRecent->size() == nLength && std::memcmp(pRecent->data(), pUri, nLength) == 0) return pRecent;
    }
    const std::string* pStored = Store(pUri, nLength);
    m_apRecent[m_nNextRecent] = pStored;
    m_nNextRecent ^= 1;
    return pStored;
}

const std::string* CXmlNodeStore::StoreName(const std::string*& pSlot, const char* pName, size_t nLength) {
    pSlot = Store(pName, nLength);
    return pSlot;
}

}  // namespace OrvexXml
