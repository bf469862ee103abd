#include "orvexxml/collections/xmlcollection.h"

#include <cassert>

#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

CXmlCollection::CXmlCollection() : m_pHead(nullptr), m_pTail(nullptr), m_nCount(0) {}

CXmlCollection::CXmlCollection(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs)
    : CXmlCollectionBase(pszElementName, pszNamespace, nMinOccurs, nMaxOccurs),
      m_pHead(nullptr),
      m_pTail(nullptr),
      m_nCount(0) {}

CXmlCollection::CXmlCollection(const CXmlCollection& other)
    : CXmlCollectionBase(other), m_pHead(nullptr), m_pTail(nullptr), m_nCount(0) {
    try {
        AppendNodesOf(other);
    } catch (...) {
        DeleteChain(m_pHead);
        throw;
    }
}

CXmlCollection& CXmlCollection::operator=(const CXmlCollection& other) {
    if (this == &other) return *this;
    // Build the new chain first, so that a failure leaves this collection as it was.
    CNode* pOldHead = m_pHead;
    CNode* pOldTail = m_pTail;
    OxLong nOldCount = m_nCount;
    m_pHead = m_pTail = nullptr;
    m_nCount = 0;
    try {
        AppendNodesOf(other);
    } catch (...) {
        DeleteChain(m_pHead);
        m_pHead = pOldHead;
        m_pTail = pOldTail;
        m_nCount = nOldCount;
        throw;
    }
    CXmlCollectionBase::operator=(other);
    DeleteChain(pOldHead);
    return *this;
}

CXmlCollection::~CXmlCollection() { Clear(); }

void CXmlCollection::AppendNodesOf(const CXmlCollection& other) {
    for (CNode* pNode = other.m_pHead; pNode; pNode = pNode->m_pNext) LinkNewNode(pNode->m_pItem.Get(), nullptr);
}

void CXmlCollection::DeleteChain(CNode* pNode) {
    while (pNode) {
        CNode* pNext = pNode->m_pNext;
        delete pNode;
        pNode = pNext;
    }
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext& ctx) const {
    for (CNode* pNode = m_pHead; pNode; pNode = pNode->m_pNext) {
        CXmlObjectBase::AttributesToXml_Int(pNode->m_pItem->GetBase(), pWriter, ctx);
    }
}

void CXmlCollection::LinkNewNode(CXmlObjectBase* pItem, CNode* pBefore) {
    CNode* pNode = new CNode(pItem);
    CNode* pAfter = pBefore ? pBefore->m_pPrev : m_pTail;
    pNode->m_pPrev = pAfter;
    pNode->m_pNext = pBefore;
    if (pAfter)
        pAfter->m_pNext = pNode;
    else
        m_pHead = pNode;
    if (pBefore)
        pBefore->m_pPrev = pNode;
    else
        m_pTail = pNode;
    ++m_nCount;
}

void CXmlCollection::FireInserted(CXmlObjectBase* pItem) {
    FireOnCollectionAddComplete(pItem);
    FireOnCollectionChange();
}

void CXmlCollection::PrependItem(CXmlObjectBase* pItem) {
    assert(pItem);
    FireOnCollectionAdd(pItem);
    LinkNewNode(pItem, m_pHead);
    FireInserted(pItem);
}

void CXmlCollection::AppendItem(CXmlObjectBase* pItem) {
    assert(pItem);
    FireOnCollectionAdd(pItem);
    LinkNewNode(pItem, nullptr);
    FireInserted(pItem);
}

void CXmlCollection::AddItemAt(int nIndex, CXmlObjectBase* pItem) {
    if (nIndex < 0 || nIndex > m_nCount) throw COxInvalidParamException("Index out of range");
    if (nIndex == m_nCount) {
        AppendItem(pItem);
        return;
    }
    assert(pItem);
    FireOnCollectionAdd(pItem);
    CNode* pNode = m_pHead;
    for (int i = 0; i < nIndex; ++i) pNode = pNode->m_pNext;
    LinkNewNode(pItem, pNode);
    FireInserted(pItem);
}

void CXmlCollection::AddAfterItem(const CXmlObjectBase* pAfter, CXmlObjectBase* pItem) {
    if (!pAfter) {
        PrependItem(pItem);
        return;
    }
    assert(pItem);
    FireOnCollectionAdd(pItem);
    CNode* pAnchor = GetNodeForItem(pAfter);
    LinkNewNode(pItem, pAnchor->m_pNext);
    FireInserted(pItem);
}

void CXmlCollection::AddBeforeItem(const CXmlObjectBase* pBefore, CXmlObjectBase* pItem) {
    if (!pBefore) {
        AppendItem(pItem);
        return;
    }
    assert(pItem);
    FireOnCollectionAdd(pItem);
    CNode* pAnchor = GetNodeForItem(pBefore);
    LinkNewNode(pItem, pAnchor);
    FireInserted(pItem);
}

CXmlCollection::CNode* CXmlCollection::GetNodeAtIndex(int nIndex) const {
    if (nIndex < 0 || nIndex >= m_nCount) {
        throw COxInvalidParamException(
            FormatString("Index %d is out of range, use 0 - %d", nIndex, static_cast<int>(m_nCount) - 1));
    }
    CNode* pNode = m_pHead;
    for (int i = 0; i < nIndex; ++i) pNode = pNode->m_pNext;
    return pNode;
}

CXmlCollection::CNode* CXmlCollection::GetNodeForItem(const CXmlObjectBase* pItem) const {
    const CXmlObjectBase* pWanted = pItem->GetBase();
    for (CNode* pNode = m_pHead; pNode; pNode = pNode->m_pNext) {
        if (pNode->m_pItem->GetBase() == pWanted) return pNode;
    }
    throw COxInvalidParamException("The object was not found in the collection");
}

void CXmlCollection::Remove(int nIndex) { RemoveNode(GetNodeAtIndex(nIndex)); }

void CXmlCollection::RemoveNode(CNode* pNode) {
    FireOnCollectionRemove(-1);
    if (pNode->m_pPrev)
        pNode->m_pPrev->m_pNext = pNode->m_pNext;
    else
        m_pHead = pNode->m_pNext;
    if (pNode->m_pNext)
        pNode->m_pNext->m_pPrev = pNode->m_pPrev;
    else
        m_pTail = pNode->m_pPrev;
    --m_nCount;
    // The item may die with its node; the list is consistent before that happens.
    delete pNode;
    FireOnCollectionRemoveComplete(-1);
    FireOnCollectionChange();
}

void CXmlCollection::Clear() {
    while (GetCount() >= 1) Remove(0);
}

}  // namespace OrvexXml
