#include "orvexxml/writers/xmlwriter.h"

#include <atomic>
#include <memory>
#include <new>
#include <optional>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/perthread.h"

namespace OrvexXml {

namespace {

const std::string& EmptyString() {
    static const std::string s_strEmpty;
    return s_strEmpty;
}

const int kPrefixLetters = 26;
const int kPrefixCount = kPrefixLetters * kPrefixLetters;  // "AA" to "ZZ"

}  // namespace

// --- CXmlWriterContext -----------------------------------------------------------------------

// Moved by every change of a default namespace or a map, in any writer of any thread; a
// change elsewhere only costs a context its shortcut, never a wrong prefix.
static std::atomic<uint64_t> s_nScopeGeneration(0);

uint64_t CXmlWriter::CXmlWriterContext::ScopeGeneration() { return s_nScopeGeneration.load(std::memory_order_relaxed); }

// One context is made per element written: its instance record is found once.
static CInstanceMonitor::ClassHandle s_contextMonitor("CXmlWriterContext");

CXmlWriter::CXmlWriterContext::CXmlWriterContext(std::string strName, std::string strNamespace,
                                                 const std::string& strDefaultNamespace,
                                                 const NamespaceMap& mapNamespaces, CXmlWriterContext* pParent)
    : CInstanceMonitor(s_contextMonitor),
      m_nChildCount(0),
      m_bInStartTag(true),
      m_nDepth(0),
      m_strNamespace(std::move(strNamespace)),
      m_strName(std::move(strName)),
      m_nPrefixGeneration(0),
      m_pParent(nullptr),
      m_bHasAttributes(false),
      m_nCollectionState(0),
      m_strContextDefaultNamespace(strDefaultNamespace),
      m_pNamespaceMap(new NamespaceMap(mapNamespaces)),
      m_bInheritsNamespaces(false),
      m_bOwnsNamespaceMap(true),
      m_pSpareNamespaceMap(nullptr) {
    // Taken last: once the parent is held, this context's destructor is responsible for it.
    m_pParent = pParent;
}

CXmlWriter::CXmlWriterContext::CXmlWriterContext(std::string strName, std::string strNamespace,
                                                 CXmlWriterContext* pParent)
    : CInstanceMonitor(s_contextMonitor),
      m_nChildCount(0),
      m_bInStartTag(true),
      m_nDepth(pParent->m_nDepth + 1),
      m_strNamespace(std::move(strNamespace)),
      m_strName(std::move(strName)),
      m_nPrefixGeneration(0),
      m_pParent(pParent),
      m_bHasAttributes(false),
      m_nCollectionState(0),
      m_pNamespaceMap(const_cast<NamespaceMap*>(&pParent->GetNamespaceMap())),
      m_bInheritsNamespaces(true),
      m_bOwnsNamespaceMap(false),
      m_pSpareNamespaceMap(nullptr) {}

CXmlWriter::CXmlWriterContext::~CXmlWriterContext() {
    if (m_bOwnsNamespaceMap) delete m_pNamespaceMap;
    delete m_pSpareNamespaceMap;
    delete m_pParent;
}

const std::string& CXmlWriter::CXmlWriterContext::GetNamespaceMapValue(const std::string& strNamespace) const {
    const NamespaceMap& map = GetNamespaceMap();
    NamespaceMap::const_iterator it = map.find(strNamespace);
    return it == map.end() ? EmptyString() : it->second;
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(const std::string& strNamespace) {
    if (m_bInheritsNamespaces) {
        const CXmlWriterContext* pOwner = ScopeOwner();
        if (pOwner->m_strContextDefaultNamespace == strNamespace) return;  // nothing changes
        // The scope becomes its own for the default namespace; the map stays shared until a
        // prefix is set.
        m_strContextDefaultNamespace = strNamespace;
        m_pNamespaceMap = pOwner->m_pNamespaceMap;
        m_bInheritsNamespaces = false;
    } else {
        m_strContextDefaultNamespace = strNamespace;
    }
    s_nScopeGeneration.fetch_add(1, std::memory_order_relaxed);
}

// Makes mapTarget hold the entries of mapSource, and keeps its entry for strKeep if it has one
// (the caller sets that entry next). Entries whose key both maps hold keep their node and
// buffers: a map left by a sibling that declared the same prefix changes in place, without an
// allocation, where a copy would allocate every node and every long namespace again.
static void FillNamespaceMap(CXmlWriter::NamespaceMap& mapTarget, const CXmlWriter::NamespaceMap& mapSource,
                             const std::string& strKeep) {
    CXmlWriter::NamespaceMap::iterator itTarget = mapTarget.begin();
    auto dropUpTo = [&](const std::string* pKey) {
        // Removes the target's entries ordered before *pKey (all of them for null), but strKeep.
        while (itTarget != mapTarget.end() && (!pKey || itTarget->first < *pKey)) {
            if (itTarget->first == strKeep)
                ++itTarget;
            else
                itTarget = mapTarget.erase(itTarget);
        }
    };
    for (const auto& entry : mapSource) {
        dropUpTo(&entry.first);
        if (itTarget != mapTarget.end() && itTarget->first == entry.first) {
            if (itTarget->second != entry.second) itTarget->second = entry.second;
            ++itTarget;
        } else {
            mapTarget.emplace_hint(itTarget, entry);
        }
    }
    dropUpTo(nullptr);
}

void CXmlWriter::CXmlWriterContext::SetNamespaceMapValue(const std::string& strNamespace,
                                                         const std::string& strPrefix) {
    if (!m_bOwnsNamespaceMap) {
        const NamespaceMap& mapShared = GetNamespaceMap();
        NamespaceMap::const_iterator it = mapShared.find(strNamespace);
        if (it != mapShared.end() && it->second == strPrefix) return;  // nothing changes
        std::unique_ptr<NamespaceMap> pCopy;
        if (m_pSpareNamespaceMap) {
            pCopy.reset(m_pSpareNamespaceMap);
            m_pSpareNamespaceMap = nullptr;
            FillNamespaceMap(*pCopy, mapShared, strNamespace);
        } else {
            pCopy.reset(new NamespaceMap(mapShared));
        }
        if (m_bInheritsNamespaces) {
            m_strContextDefaultNamespace = GetDefaultNamespace();
            m_bInheritsNamespaces = false;
        }
        m_pNamespaceMap = pCopy.release();
        m_bOwnsNamespaceMap = true;
    }
    (*m_pNamespaceMap)[strNamespace] = strPrefix;
    s_nScopeGeneration.fetch_add(1, std::memory_order_relaxed);
}

// --- CXmlWriter ------------------------------------------------------------------------------

// The spare contexts of the writers of one thread, handed from each writer to the next. Once
// the thread has destroyed its pool (at its exit), a writer keeps its spares to itself.
class CSpareContextPool {
public:
    // Spares beyond this many are freed rather than kept between writers.
    static const size_t kMaxKept = 64;

    ~CSpareContextPool() { CXmlWriter::FreeSpareContexts(m_vecSpares); }

    CXmlWriter::SpareContexts m_vecSpares;
};

void CXmlWriter::FreeSpareContexts(SpareContexts& vecSpares) noexcept {
    for (CSpareContext& spare : vecSpares) {
        if (spare.pStorage) ::operator delete(spare.pStorage);
        delete spare.pNamespaceMap;
    }
    vecSpares.clear();
}

CXmlWriter::CXmlWriter(const char* pszClassName)
    : CInstanceMonitor(pszClassName), m_pContext(nullptr), m_nLiveContexts(0) {
    std::optional<CSpareContextPool> latePool;
    m_vecFreeContexts.swap(CPerThread<CSpareContextPool>::Get(latePool).m_vecSpares);
    try {
        AddNamespaceAlias("xml", XmlNamespaceURI);
    } catch (...) {
        FreeSpareContexts(m_vecFreeContexts);
        throw;
    }
}

CXmlWriter::~CXmlWriter() {
    // Elements left open by an exception: free the whole chain.
    while (m_pContext) PopContext();
    // Handed on unless the pool already holds the spares of another writer (writers nested on
    // one thread). A pool made for this call alone frees them as it goes.
    std::optional<CSpareContextPool> latePool;
    CSpareContextPool& pool = CPerThread<CSpareContextPool>::Get(latePool);
    if (pool.m_vecSpares.empty() && m_vecFreeContexts.size() <= CSpareContextPool::kMaxKept)
        pool.m_vecSpares.swap(m_vecFreeContexts);
    FreeSpareContexts(m_vecFreeContexts);
}

void CXmlWriter::StartDocument() {}

void CXmlWriter::EndDocument() {
    if (m_pContext) throw COxException("An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(const std::string& strNamespace) {
    if (m_pContext)
        m_pContext->SetDefaultNamespace(strNamespace);
    else
        m_strDefaultNamespace = strNamespace;
}

// Whether an alias can stand for a namespace in well-formed XML: a name without a colon, and
// none of the prefixes or namespaces that XML reserves (xml belongs to the XML namespace and
// to nothing else; xmlns and its namespace are never bound).
static bool IsBindableAlias(const std::string& strAlias, const std::string& strNamespace) {
    if (strAlias.empty()) return false;
    for (size_t i = 0; i < strAlias.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(strAlias[i]);
        const bool bStart = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c >= 0x80;
        if (!bStart && (i == 0 || !((c >= '0' && c <= '9') || c == '-' || c == '.'))) return false;
    }
    const bool bXmlNamespace = strNamespace == CXmlWriter::XmlNamespaceURI;
    if (bXmlNamespace != (strAlias == "xml")) return false;
    return strAlias != "xmlns" && strNamespace != "http://www.w3.org/2000/xmlns/";
}

void CXmlWriter::AddNamespaceAlias(const std::string& strAlias, const std::string& strNamespace) {
    if (!IsBindableAlias(strAlias, strNamespace)) {
        throw COxInvalidParamException(FormatString(
            "The alias [%s] can't stand for the namespace [%s] in XML: an alias is a name without a colon, "
            "xml is the alias of the XML namespace alone, and xmlns and its namespace are never bound.",
            strAlias.c_str(), strNamespace.c_str()));
    }
    if (m_pContext)
        m_pContext->SetNamespaceMapValue(strNamespace, strAlias);
    else
        m_mapNamespaces[strNamespace] = strAlias;
}

void CXmlWriter::SetCollectionState(uint32_t nState) {
    if (m_pContext) m_pContext->m_nCollectionState = nState;
}

std::string CXmlWriter::GenerateNamespacePrefix(const NamespaceMap& mapNamespaces) {
    // One pass marks the generated prefixes in use; the first unmarked one is the answer.
    // This gives the same result as trying "AA", "AB", ... against every value in turn.
    bool abUsed[kPrefixCount] = {};
    for (NamespaceMap::const_iterator it = mapNamespaces.begin(); it != mapNamespaces.end(); ++it) {
        const std::string& strPrefix = it->second;
        if (strPrefix.size() == 2 && strPrefix[0] >= 'A' && strPrefix[0] <= 'Z' && strPrefix[1] >= 'A' &&
            strPrefix[1] <= 'Z')
            abUsed[(strPrefix[0] - 'A') * kPrefixLetters + (strPrefix[1] - 'A')] = true;
    }
    for (int n = 0; n < kPrefixCount; ++n) {
        if (!abUsed[n]) {
            char szPrefix[3] = {static_cast<char>('A' + n / kPrefixLetters),
                                static_cast<char>('A' + n % kPrefixLetters), '\0'};
            return std::string(szPrefix, 2);
        }
    }
    throw COxException(
        "Cannot generate a namespace prefix: all prefixes from AA to ZZ are already in use in this scope.");
}

CXmlWriter::CXmlWriterContext* CXmlWriter::CreateContext(const std::string& strName, const std::string& strNamespace) {
    if (m_vecFreeContexts.size() <= m_nLiveContexts) m_vecFreeContexts.resize(m_nLiveContexts + 1);
    CSpareContext& spare = m_vecFreeContexts[m_nLiveContexts];
    // The buffers usually hold the texts already: siblings at one level share name and
    // namespace more often than not.
    if (spare.strName != strName) spare.strName.assign(strName);
    if (spare.strNamespace != strNamespace) spare.strNamespace.assign(strNamespace);
    // Exactly the storage a plain new of the class would take, so that such a context can
    // also be released by delete (the parent chain of a context is deleted that way).
    void* pStorage = spare.pStorage ? spare.pStorage : ::operator new(sizeof(CXmlWriterContext));
    spare.pStorage = nullptr;
    CXmlWriterContext* pContext;
    try {
        if (m_pContext)
            pContext =
                new (pStorage) CXmlWriterContext(std::move(spare.strName), std::move(spare.strNamespace), m_pContext);
        else
            pContext = new (pStorage) CXmlWriterContext(std::move(spare.strName), std::move(spare.strNamespace),
                                                        m_strDefaultNamespace, m_mapNamespaces, nullptr);
    } catch (...) {
        spare.pStorage = pStorage;
        throw;
    }
    // Handed over only now that the context exists to own it.
    pContext->m_pSpareNamespaceMap = spare.pNamespaceMap;
    spare.pNamespaceMap = nullptr;
    ++m_nLiveContexts;
    return pContext;
}

void CXmlWriter::DestroyContext(CXmlWriterContext* pContext) noexcept {
    // Contexts die in the reverse order of their making: this one holds the last slot taken.
    CSpareContext& spare = m_vecFreeContexts[--m_nLiveContexts];
    pContext->m_pParent = nullptr;
    spare.strName = std::move(pContext->m_strName);
    spare.strNamespace = std::move(pContext->m_strNamespace);
    // A private map goes back with its entries, since the next sibling likely makes the same;
    // otherwise the spare the context was given and did not use.
    NamespaceMap*& pKept = pContext->m_bOwnsNamespaceMap ? pContext->m_pNamespaceMap : pContext->m_pSpareNamespaceMap;
    spare.pNamespaceMap = pKept;
    pKept = nullptr;
    pContext->~CXmlWriterContext();
    spare.pStorage = pContext;
}

void CXmlWriter::PopContext() noexcept {
    CXmlWriterContext* pContext = m_pContext;
    m_pContext = pContext->m_pParent;
    DestroyContext(pContext);
}

std::string CXmlWriter::GetElementPath() const {
    // Root first, without recursion: the chain may be as deep as the document.
    std::vector<const CXmlWriterContext*> vecChain;
    for (const CXmlWriterContext* p = m_pContext; p; p = p->m_pParent) vecChain.push_back(p);
    std::string strPath;
    for (auto it = vecChain.rbegin(); it != vecChain.rend(); ++it) {
        strPath += '/';
        strPath += (*it)->m_strName;
    }
    return strPath;
}

}  // namespace OrvexXml
