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
      m_apRecent{nullptr, nullptr},
      m_nNextRecent(0),
      m_apRecentNames{},
      m_nNextRecentName(0) {
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
    m_mapNamespaces.clear();
    m_deqNamespaces.clear();
    m_apRecent[0] = m_apRecent[1] = nullptr;
    for (const std::string*& pRecent : m_apRecentNames) pRecent = nullptr;
}

const std::string* CXmlNodeStore::EmptyNamespace() {
    static const std::string s_strEmpty;
    return &s_strEmpty;
}

const std::string* CXmlNodeStore::Store(const char* pText, size_t nLength) {
    auto it = m_mapNamespaces.find(std::string_view(pText, nLength));
    if (it != m_mapNamespaces.end()) return it->second;
    m_deqNamespaces.emplace_back(pText, nLength);
    const std::string* pStored = &m_deqNamespaces.back();
    try {
        m_mapNamespaces.emplace(std::string_view(*pStored), pStored);
    } catch (...) {
        m_deqNamespaces.pop_back();
        throw;
    }
    return pStored;
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

const std::string* CXmlNodeStore::InternName(const char* pName, size_t nLength) {
    if (nLength == 0) return EmptyNamespace();
    // A document repeats a handful of names: a short list of recent ones saves the hashing.
    for (const std::string* pRecent : m_apRecentNames) {
        if (pRecent && pRecent->size() == nLength && std::memcmp(pRecent->data(), pName, nLength) == 0) return pRecent;
    }
    const std::string* pStored = Store(pName, nLength);
    m_apRecentNames[m_nNextRecentName] = pStored;
    m_nNextRecentName = (m_nNextRecentName + 1) % kRecentNames;
    return pStored;
}

}  // namespace OrvexXml
