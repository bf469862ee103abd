#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

// Under AddressSanitizer, memory of the store that holds no living node is poisoned, so that
// a use of a dead node is reported as it would be with the heap.
#if defined(__SANITIZE_ADDRESS__)
#define ORVEXXML_NODESTORE_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVEXXML_NODESTORE_ASAN 1
#endif
#endif
#ifdef ORVEXXML_NODESTORE_ASAN
#include <sanitizer/asan_interface.h>
#define ORVEXXML_POISON(p, n) ASAN_POISON_MEMORY_REGION((p), (n))
#define ORVEXXML_UNPOISON(p, n) ASAN_UNPOISON_MEMORY_REGION((p), (n))
#else
#define ORVEXXML_POISON(p, n) ((void)(p), (void)(n))
#define ORVEXXML_UNPOISON(p, n) ((void)(p), (void)(n))
#endif

namespace OrvexXml {

// Memory of one document's tree (internal to the library).
//
// Nodes: elements and attributes are carved from blocks that grow geometrically, and a
// node that dies goes onto a free list of its size, so a streaming load that deletes every
// record reuses the same few nodes. Large blocks are mapped on their own and offered to the
// kernel for transparent huge pages: a large tree then costs a few page faults per 2 MiB
// instead of one per 4 KiB, which is what dominates building a big tree from fresh memory.
//
// Namespace URIs: each distinct URI is stored once, and elements and attributes point to it,
// so that a document in one namespace doesn't copy the URI into every node. The stored texts
// and the table that finds them live in the blocks too: a small document costs no allocation
// for them beyond the buffers of texts too long for a short string.
//
// One document, one thread at a time. Release() may only be called when no node lives.
class CXmlNodeStore {
public:
    CXmlNodeStore();
    ~CXmlNodeStore();
    CXmlNodeStore(const CXmlNodeStore&) = delete;
    CXmlNodeStore& operator=(const CXmlNodeStore&) = delete;

    void* Allocate(size_t nSize) {
        size_t nClass = SizeClass(nSize);
        size_t nRounded = Round(nSize);
        if (nClass < kFreeLists && m_apFree[nClass]) {
            FreeNode* pNode = m_apFree[nClass];
            ORVEXXML_UNPOISON(pNode, nRounded);
            m_apFree[nClass] = pNode->pNext;
            return pNode;
        }
        if (static_cast<size_t>(m_pLimit - m_pCursor) < nRounded) return AllocateSlow(nSize);
        void* p = m_pCursor;
        m_pCursor += nRounded;
        ORVEXXML_UNPOISON(p, nRounded);
        return p;
    }

    void Free(void* p, size_t nSize) {
        size_t nClass = SizeClass(nSize);
        if (nClass >= kFreeLists) return;  // larger than any node: stays until Release
        FreeNode* pNode = static_cast<FreeNode*>(p);
        pNode->pNext = m_apFree[nClass];
        m_apFree[nClass] = pNode;
        ORVEXXML_POISON(p, Round(nSize));
    }

    // The stored copy of a namespace URI; the shared empty string for length 0.
    const std::string* InternNamespace(const char* pUri, size_t nLength);
    // Inline, as every element asks for it: one test of the initialisation flag, no call.
    static const std::string* EmptyNamespace() {
        static const std::string s_strEmpty;
        return &s_strEmpty;
    }
    // The stored copy of an element name (names and URIs share one table).
    // Inline for a name already in its slot, as almost every name of a document is.
    const std::string* InternName(const char* pName, size_t nLength) {
        if (nLength == 0) return EmptyNamespace();
        const std::string*& pSlot = m_apNameSlots[NameSlot(pName, nLength)];
        if (pSlot && pSlot->size() == nLength && std::memcmp(pSlot->data(), pName, nLength) == 0) return pSlot;
        return StoreName(pSlot, pName, nLength);
    }

    // Gives back all blocks and forgets the stored URIs.
    void Release();

private:
    struct FreeNode {
        FreeNode* pNext;
    };
    struct Block {
        Block* pNext;
        size_t nSize;  // bytes of the whole block, header included
        bool bMapped;  // mapped on its own, else from the heap
    };

    // Nodes hold pointers and 64-bit integers at most: 8 bytes of alignment suffice, and an
    // element of 88 bytes takes 88 rather than 96.
    static const size_t kAlign = 8;
    static const size_t kFreeLists = 65;  // nodes up to 512 bytes

    static size_t Round(size_t nSize) { return (nSize + kAlign - 1) & ~(kAlign - 1); }
    static size_t SizeClass(size_t nSize) { return Round(nSize) / kAlign; }

    void* AllocateSlow(size_t nSize);

    char* m_pCursor;
    char* m_pLimit;
    Block* m_pBlocks;
    size_t m_nNextBlockSize;
    FreeNode* m_apFree[kFreeLists];

    // A stored text, carved from the blocks; the list lets Release destroy them.
    struct StoredText {
        StoredText* pNext;
        std::string str;
    };
    StoredText* m_pStoredTexts;
    // Open addressing over the stored texts, in the blocks; a power of two in size, at most
    // half full. Outgrown tables are left where they are until Release.
    const std::string** m_ppTextTable;
    size_t m_nTextTableSize;
    size_t m_nTextCount;
    const std::string* m_apRecent[2];
    unsigned m_nNextRecent;
    // Names already stored, each in the slot of a cheap hash of its length and three of its
    // bytes: a document's few dozen names mostly sit in slots of their own, so that a name
    // is found with one comparison and the full hash of Store is paid once per slot conflict.
    static const size_t kNameSlots = 256;
    const std::string* m_apNameSlots[kNameSlots];
    static size_t NameSlot(const char* pName, size_t nLength) {
        size_t nHash = nLength;
        nHash = nHash * 131 + static_cast<unsigned char>(pName[0]);
        nHash = nHash * 131 + static_cast<unsigned char>(pName[nLength - 1]);
        nHash = nHash * 131 + static_cast<unsigned char>(pName[nLength / 2]);
        return (nHash ^ (nHash >> 8)) & (kNameSlots - 1);
    }

    const std::string* Store(const char* pText, size_t nLength);
    // A name not in its slot: stored, and put in the slot in place of the one there.
    const std::string* StoreName(const std::string*& pSlot, const char* pName, size_t nLength);
};

}  // namespace OrvexXml
