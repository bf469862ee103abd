#include "orvexxml/xml/xmlelement.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

#include "orvexxml/xml/xmlattribute.h"
#include "orvexxml/xml/xmldocument.h"
#include "orvexxml/xml/xmlnodestore.h"

namespace OrvexXml {

namespace {

const std::string& EmptyString() {
    static const std::string s_strEmpty;
    return s_strEmpty;
}

inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

}  // namespace

// A node is made per element or attribute parsed: its instance record is found once.
static CInstanceMonitor::ClassHandle s_monitor("CXmlElement");

CXmlElement::CXmlElement(const CXmlDocument* pDocument, const CXmlElement* pParent)
    : CInstanceMonitor(s_monitor),
      m_pParent(pParent),
      m_pNextSibling(nullptr),
      m_pFirstChild(nullptr),
      m_pAttributes(nullptr),
      m_pText(nullptr),
      m_nTextLength(0),
      m_nTextCapacity(0),
      m_pTextString(nullptr),
      m_pElementName(CXmlNodeStore::EmptyNamespace()),
      m_pNamespace(CXmlNodeStore::EmptyNamespace()) {
    if (!pParent) m_pDocument = pDocument;
}

CXmlElement* CXmlElement::Create(CXmlNodeStore* pStore, const CXmlDocument* pDocument, const CXmlElement* pParent) {
    void* pMemory = pStore->Allocate(sizeof(CXmlElement));
    try {
        return new (pMemory) CXmlElement(pDocument, pParent);
    } catch (...) {
        pStore->Free(pMemory, sizeof(CXmlElement));
        throw;
    }
}

void CXmlElement::Destroy(CXmlNodeStore* pStore, CXmlElement* pElement) {
    if (!pElement) return;
    // The whole subtree without recursion. The pending nodes form one list linked through
    // m_pNextSibling, starting with the element itself (its own sibling, or the document if
    // it is the root, is not followed). A node with children splices them in front of its
    // successor and is then ended childless. Finding the end of the children walks each list
    // of children once: linear in the tree.
    CXmlElement* pNode = pElement;
    bool bFirst = true;
    while (pNode) {
        CXmlElement* pNext = bFirst ? nullptr : pNode->m_pNextSibling;
        bFirst = false;
        if (pNode->m_pFirstChild) {
            CXmlElement* pLast = pNode->m_pFirstChild;
            while (pLast->m_pNextSibling) pLast = pLast->m_pNextSibling;
            pLast->m_pNextSibling = pNext;
            pNext = pNode->m_pFirstChild;
            pNode->m_pFirstChild = nullptr;
        }
        pNode->FreeText(pStore);
        if (AttributeArray* pAttributes = pNode->m_pAttributes) {
            for (uint32_t i = 0; i < pAttributes->nCount; ++i) DestroyAttribute(pStore, pAttributes->apItems[i]);
            pStore->Free(pAttributes, AttributeArray::SizeFor(pAttributes->nCapacity));
            pNode->m_pAttributes = nullptr;
        }
        pNode->~CXmlElement();
        pStore->Free(pNode, sizeof(CXmlElement));
        pNode = pNext;
    }
}

void CXmlElement::DestroyAttribute(CXmlNodeStore* pStore, CXmlAttribute* pAttribute) {
    pAttribute->~CXmlAttribute();
    pStore->Free(pAttribute, sizeof(CXmlAttribute));
}

// Destroy has given back the text, the attributes and the children.
CXmlElement::~CXmlElement() {}

const CXmlDocument* CXmlElement::GetDocument() const {
    const CXmlElement* pRoot = this;
    while (pRoot->m_pParent) pRoot = pRoot->m_pParent;
    return pRoot->m_pDocument;
}

CXmlNodeStore* CXmlElement::GetStore() const { return GetDocument()->m_pNodeStore; }

CXmlAttribute* CXmlElement::CAttributeList::at(size_t nIndex) const {
    if (nIndex >= m_nCount) throw std::out_of_range("CXmlElement::CAttributeList::at");
    return m_ppItems[nIndex];
}

void CXmlElement::ReserveAttributes(CXmlNodeStore* pStore, size_t nCount) {
    // The array comes from the node store, like the attributes themselves: an element with
    // attributes costs no heap allocation.
    const uint32_t nOldCount = m_pAttributes ? m_pAttributes->nCount : 0;
    const uint32_t nOldCapacity = m_pAttributes ? m_pAttributes->nCapacity : 0;
    if (nCount <= nOldCapacity) return;
    if (nCount > UINT32_MAX / 2) throw std::bad_alloc();
    AttributeArray* pNew = static_cast<AttributeArray*>(pStore->Allocate(AttributeArray::SizeFor(nCount)));
    pNew->nCount = nOldCount;
    pNew->nCapacity = static_cast<uint32_t>(nCount);
    if (nOldCount) std::memcpy(pNew->apItems, m_pAttributes->apItems, nOldCount * sizeof(CXmlAttribute*));
    if (m_pAttributes) pStore->Free(m_pAttributes, AttributeArray::SizeFor(nOldCapacity));
    m_pAttributes = pNew;
}

const std::string& CXmlElement::GetAttribute(const char* pszLocalName, const char* pszNamespace) const {
    pszLocalName = NotNull(pszLocalName);
    pszNamespace = NotNull(pszNamespace);
    for (const CXmlAttribute* pAttribute : GetAttributes()) {
        if (pAttribute->GetLocalName() == pszLocalName && pAttribute->GetNamespaceURI() == pszNamespace)
            return pAttribute->GetValue();
    }
    return EmptyString();
}

std::string CXmlElement::GetXPath() const {
    // Iterative, root first: a path through a very deep tree needs no stack depth.
    std::vector<const CXmlElement*> vecChain;
    for (const CXmlElement* p = this; p; p = p->m_pParent) vecChain.push_back(p);
    std::string strPath;
    strPath.reserve(vecChain.size() * 8);
    for (auto it = vecChain.rbegin(); it != vecChain.rend(); ++it) {
        strPath += '/';
        strPath += (*it)->GetNameWithPredicate();
    }
    return strPath;
}

std::string CXmlElement::GetQName() const {
    const CXmlDocument* pDocument = m_pNamespace->empty() ? nullptr : GetDocument();
    if (pDocument) {
        const std::string& strPrefix = pDocument->LookupAliasFromNamespace(m_pNamespace->c_str());
        if (!strPrefix.empty()) {
            std::string strQName;
            strQName.reserve(strPrefix.size() + 1 + m_pElementName->size());
            strQName += strPrefix;
            strQName += ':';
            strQName += *m_pElementName;
            return strQName;
        }
    }
    return *m_pElementName;
}

std::string CXmlElement::GetNameWithPredicate() const {
    std::string strQName = GetQName();
    if (!m_pParent) return strQName;

    size_t nCount = 0;
    size_t nPosition = 0;
    for (const CXmlElement* p = m_pParent->m_pFirstChild; p; p = p->m_pNextSibling) {
        if (p == this) {
            nPosition = ++nCount;
            continue;
        }
        // A sibling's qualified name ends with its local name: only siblings whose local
        // name is a suffix of ours can match, and only they pay for the prefix lookup.
        const std::string& strOther = *p->m_pElementName;
        if (strOther.size() > strQName.size() ||
            strQName.compare(strQName.size() - strOther.size(), strOther.size(), strOther) != 0)
            continue;
        if (p->GetQName() == strQName) ++nCount;
    }
    if (nCount <= 1) return strQName;
    strQName += '[';
    strQName += std::to_string(nPosition);
    strQName += ']';
    return strQName;
}

void CXmlElement::SetElementName(CXmlNodeStore* pStore, const char* pszName) {
    pszName = NotNull(pszName);
    SetElementName(pStore, pszName, std::strlen(pszName));
}

void CXmlElement::SetElementName(CXmlNodeStore* pStore, const char* pName, size_t nLength) {
    m_pElementName = pStore->InternName(pName, nLength);
}

void CXmlElement::SetNamespace(CXmlNodeStore* pStore, const char* pszNamespace) {
    pszNamespace = NotNull(pszNamespace);
    SetNamespace(pStore, pszNamespace, std::strlen(pszNamespace));
}

void CXmlElement::SetNamespace(CXmlNodeStore* pStore, const char* pNamespace, size_t nLength) {
    m_pNamespace = pStore->InternNamespace(pNamespace, nLength);
}

void CXmlElement::AppendText(CXmlNodeStore* pStore, const char* pszText) {
    if (pszText) AppendText(pStore, pszText, static_cast<OxULong>(std::strlen(pszText)));
}

void CXmlElement::AppendText(CXmlNodeStore* pStore, const char* pText, OxULong nLength) {
    if (nLength == 0) return;
    if (nLength > UINT32_MAX - m_nTextLength) throw std::bad_alloc();  // the length is 32 bits
    const size_t nNewLength = m_nTextLength + nLength;
    if (nNewLength > m_nTextCapacity) GrowText(pStore, nNewLength);
    std::memcpy(m_pText + m_nTextLength, pText, nLength);
    m_nTextLength = static_cast<uint32_t>(nNewLength);
    DropTextString();  // a string made of the former text no longer matches
}

namespace {
// Texts up to this length take their memory from the node store, which has no per-block
// header and hands freed sizes to the next text; longer ones grow on the heap with realloc.
const size_t kMaxStoredText = 512;
}  // namespace

void CXmlElement::GrowText(CXmlNodeStore* pStore, size_t nNeeded) {
    // The capacity at least doubles, so that text arriving in many pieces (the line breaks and
    // indentation between the children of an element) is copied a bounded number of times.
    size_t nCapacity = m_nTextCapacity < 8 ? 16 : 2 * static_cast<size_t>(m_nTextCapacity);
    if (nCapacity < nNeeded) nCapacity = nNeeded;
    if (nCapacity > UINT32_MAX) nCapacity = UINT32_MAX;  // nNeeded fits: AppendText checked it
    if (nCapacity <= kMaxStoredText) {
        nCapacity = (nCapacity + 15) & ~static_cast<size_t>(15);
        char* pNew = static_cast<char*>(pStore->Allocate(nCapacity));
        if (m_nTextLength) std::memcpy(pNew, m_pText, m_nTextLength);
        if (m_pText) pStore->Free(m_pText, m_nTextCapacity);
        m_pText = pNew;
    } else if (m_nTextCapacity > kMaxStoredText) {
        char* pNew = static_cast<char*>(std::realloc(m_pText, nCapacity));
        if (!pNew) throw std::bad_alloc();
        m_pText = pNew;
    } else {
        char* pNew = static_cast<char*>(std::malloc(nCapacity));
        if (!pNew) throw std::bad_alloc();
        if (m_nTextLength) std::memcpy(pNew, m_pText, m_nTextLength);
        if (m_pText) pStore->Free(m_pText, m_nTextCapacity);
        m_pText = pNew;
    }
    m_nTextCapacity = static_cast<uint32_t>(nCapacity);
}

void CXmlElement::DropTextString() {
    // The text changes or goes only while one thread owns the tree (building it, freeing it),
    // so a plain look first spares the locked exchange on every piece of text appended.
    std::string* pString = m_pTextString.load(std::memory_order_relaxed);
    if (!pString) return;
    m_pTextString.store(nullptr, std::memory_order_relaxed);
    delete pString;
}

void CXmlElement::FreeText(CXmlNodeStore* pStore) {
    DropTextString();
    if (!m_pText) return;
    if (m_nTextCapacity > kMaxStoredText)
        std::free(m_pText);
    else
        pStore->Free(m_pText, m_nTextCapacity);
    m_pText = nullptr;
    m_nTextLength = m_nTextCapacity = 0;
}

const std::string& CXmlElement::GetText() const {
    std::string* pString = m_pTextString.load(std::memory_order_acquire);
    if (pString) return *pString;
    if (m_nTextLength == 0) return EmptyString();
    std::string* pNew = new std::string(m_pText, m_nTextLength);
    if (m_pTextString.compare_exchange_strong(pString, pNew, std::memory_order_acq_rel, std::memory_order_acquire))
        return *pNew;
    delete pNew;  // another thread was first
    return *pString;
}

CXmlElement* CXmlElement::CreateNewChildElement(CXmlNodeStore* pStore, CXmlElement* pLastChild) {
    CXmlElement* pChild = Create(pStore, nullptr, this);
    if (pLastChild)
        pLastChild->m_pNextSibling = pChild;
    else
        m_pFirstChild = pChild;
    return pChild;
}

CXmlAttribute* CXmlElement::AddAttribute(CXmlNodeStore* pStore, const char* pszLocalName, const char* pszValue,
                                         const char* pszNamespace) {
    pszLocalName = NotNull(pszLocalName);
    pszValue = NotNull(pszValue);
    pszNamespace = NotNull(pszNamespace);
    return AddAttribute(pStore, pszLocalName, std::strlen(pszLocalName), pszValue, std::strlen(pszValue), pszNamespace,
                        std::strlen(pszNamespace));
}

CXmlAttribute* CXmlElement::AddAttribute(CXmlNodeStore* pStore, const char* pLocalName, size_t nLocalNameLength,
                                         const char* pValue, size_t nValueLength, const char* pNamespace,
                                         size_t nNamespaceLength) {
    // Make room first, so that a failing push_back can't lose the new attribute.
    const uint32_t nCount = m_pAttributes ? m_pAttributes->nCount : 0;
    if (!m_pAttributes || nCount == m_pAttributes->nCapacity) ReserveAttributes(pStore, nCount ? 2 * nCount : 4);
    const std::string* pStoredNamespace = pStore->InternNamespace(pNamespace, nNamespaceLength);
    const std::string* pStoredName = pStore->InternName(pLocalName, nLocalNameLength);
    void* pMemory = pStore->Allocate(sizeof(CXmlAttribute));
    CXmlAttribute* pAttribute;
    try {
        pAttribute = new (pMemory) CXmlAttribute(this, pStoredName, pValue, nValueLength, pStoredNamespace);
    } catch (...) {
        pStore->Free(pMemory, sizeof(CXmlAttribute));
        throw;
    }
    m_pAttributes->apItems[m_pAttributes->nCount++] = pAttribute;
    return pAttribute;
}

CXmlElement* CXmlElement::RemoveLastChildElement(CXmlElement* pLastChild) {
    if (m_pFirstChild == pLastChild) {
        m_pFirstChild = nullptr;
        return nullptr;
    }
    CXmlElement* pPrevious = m_pFirstChild;
    while (pPrevious->m_pNextSibling != pLastChild) pPrevious = pPrevious->m_pNextSibling;
    pPrevious->m_pNextSibling = nullptr;
    return pPrevious;
}

}  // namespace OrvexXml
