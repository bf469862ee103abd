#include "orvexxml/collections/xmlcollection.h"

#include <cassert>

#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/xml/xmlelement.h"

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
    CChangeScope scope(this);
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

CXmlCollection::~CXmlCollection() {
    try {
        Clear();
    } catch (...) {
        // A listener refused: nothing can go on to the caller of a destructor, and the
        // nodes are freed all the same.
        DeleteChain(m_pHead);
    }
}

void CXmlCollection::AppendNodesOf(const CXmlCollection& other) {
    for (CNode* pNode = other.m_pHead; pNode; pNode = pNode->m_pNext) LinkNewNode(pNode->m_pItem.Get(), nullptr);
}

void CXmlCollection::DeleteChain(CNode* pNode) {
    while (pNode) {
        CNode* pNext = pNode->m_pNext;
        DeleteNode(pNode);
        pNode = pNext;
    }
}

void CXmlCollection::DeleteNode(CNode* pNode) {
    // Releasing the item may free a tree below it; CXmlObjectBase keeps that off the stack.
    delete pNode;
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext& ctx) const {
    for (CNode* pNode = m_pHead; pNode; pNode = pNode->m_pNext) {
        CXmlObjectBase::AttributesToXml_Int(pNode->m_pItem->GetBase(), pWriter, ctx);
    }
}

CXmlCollection::CNode* CXmlCollection::LinkNewNode(CXmlObjectBase* pItem, CNode* pBefore) {
    CNode* pNode = new CNode(pItem);
    pNode->m_pPrev = pBefore ? pBefore->m_pPrev : m_pTail;
    pNode->m_pNext = pBefore;
    Relink(pNode);
    return pNode;
}

void CXmlCollection::Relink(CNode* pNode) {
    if (pNode->m_pPrev)
        pNode->m_pPrev->m_pNext = pNode;
    else
        m_pHead = pNode;
    if (pNode->m_pNext)
        pNode->m_pNext->m_pPrev = pNode;
    else
        m_pTail = pNode;
    ++m_nCount;
}

void CXmlCollection::Unlink(CNode* pNode) {
    if (pNode->m_pPrev)
        pNode->m_pPrev->m_pNext = pNode->m_pNext;
    else
        m_pHead = pNode->m_pNext;
    if (pNode->m_pNext)
        pNode->m_pNext->m_pPrev = pNode->m_pPrev;
    else
        m_pTail = pNode->m_pPrev;
    --m_nCount;
}

void CXmlCollection::InsertAndTell(CXmlObjectBase* pItem, CNode* pBefore) {
    CNode* pNode = LinkNewNode(pItem, pBefore);
    try {
        FireOnCollectionAddComplete(pItem);
        FireOnCollectionChange();
    } catch (...) {
        // Refused: the list goes back to what it was. The node's links still name its
        // neighbours, since nothing else could change the list meanwhile.
        Unlink(pNode);
        delete pNode;
        throw;
    }
}

void CXmlCollection::PrependItem(CXmlObjectBase* pItem) {
    assert(pItem);
    CSmartPtr<CXmlObjectBase> pHold(pItem);  // an item passed in fresh dies if it isn't taken
    CChangeScope scope(this);
    FireOnCollectionAdd(pItem);
    InsertAndTell(pItem, m_pHead);
}

void CXmlCollection::AppendItem(CXmlObjectBase* pItem) {
    assert(pItem);
    CSmartPtr<CXmlObjectBase> pHold(pItem);
    CChangeScope scope(this);
    FireOnCollectionAdd(pItem);
    InsertAndTell(pItem, nullptr);
}

void CXmlCollection::AddItemAt(int nIndex, CXmlObjectBase* pItem) {
    assert(pItem);
    CSmartPtr<CXmlObjectBase> pHold(pItem);
    if (nIndex < 0 || nIndex > m_nCount) throw COxInvalidParamException("Index out of range");
    if (nIndex == m_nCount) {
        AppendItem(pItem);
        return;
    }
    CChangeScope scope(this);
    FireOnCollectionAdd(pItem);
    CNode* pNode = m_pHead;
    for (int i = 0; i < nIndex; ++i) pNode = pNode->m_pNext;
    InsertAndTell(pItem, pNode);
}

void CXmlCollection::AddAfterItem(const CXmlObjectBase* pAfter, CXmlObjectBase* pItem) {
    if (!pAfter) {
        PrependItem(pItem);
        return;
    }
    assert(pItem);
    CSmartPtr<CXmlObjectBase> pHold(pItem);
    CChangeScope scope(this);
    FireOnCollectionAdd(pItem);
    CNode* pAnchor = GetNodeForItem(pAfter);
    InsertAndTell(pItem, pAnchor->m_pNext);
}

void CXmlCollection::AddBeforeItem(const CXmlObjectBase* pBefore, CXmlObjectBase* pItem) {
    if (!pBefore) {
        AppendItem(pItem);
        return;
    }
    assert(pItem);
    CSmartPtr<CXmlObjectBase> pHold(pItem);
    CChangeScope scope(this);
    FireOnCollectionAdd(pItem);
    CNode* pAnchor = GetNodeForItem(pBefore);
    InsertAndTell(pItem, pAnchor);
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
    CChangeScope scope(this);
    FireOnCollectionRemove(-1);
    Unlink(pNode);
    try {
        FireOnCollectionRemoveComplete(-1);
        FireOnCollectionChange();
    } catch (...) {
        Relink(pNode);  // refused: back between its old neighbours
        throw;
    }
    // The item may die with its node, once the change stands.
    DeleteNode(pNode);
}

void CXmlCollection::Clear() {
    if (!m_pHead) return;
    CChangeScope scope(this);
    // The items leave from the head one by one, each with its events, as repeated removals
    // of index 0 would have them, but without a lookup per item. The nodes stay chained
    // behind pRemoved until all have gone, so that a refusal can put them all back.
    CNode* pRemoved = m_pHead;
    CNode* pLastRemoved = nullptr;
    OxLong nRemoved = 0;
    try {
        while (m_pHead) {
            FireOnCollectionRemove(-1);
            pLastRemoved = m_pHead;
            Unlink(pLastRemoved);  // its own link forward still names the next item
            ++nRemoved;
            FireOnCollectionRemoveComplete(-1);
            FireOnCollectionChange();
        }
    } catch (...) {
        if (pLastRemoved) {
            // The removed nodes still link forward to one another and the last to the new
            // head; the backward links that a removal cut are mended.
            for (CNode* pNode = pRemoved; pNode != pLastRemoved; pNode = pNode->m_pNext)
                pNode->m_pNext->m_pPrev = pNode;
            if (m_pHead)
                m_pHead->m_pPrev = pLastRemoved;
            else
                m_pTail = pLastRemoved;
            m_pHead = pRemoved;
            m_nCount += nRemoved;
        }
        throw;
    }
    DeleteChain(pRemoved);
}

void CXmlCollection::ItemsToXml_Int(CXmlWriter* pWriter, const char* pszNamespace,
                                    const CSerializationContext& ctx) const {
    ValidateCount(ctx);
    for (CNode* pNode = m_pHead; pNode; pNode = pNode->m_pNext)
        CXmlObjectBase::ToXml_Int(pNode->m_pItem, pWriter, false, pszNamespace, ctx, false);
}

CXmlElement* CXmlCollection::ItemsFromXml_Int(CXmlElement*, CXmlElement* pFirst, const CSerializationContext& ctx,
                                              ItemCreator pfnCreate) {
    CXmlElement* pCurrent = pFirst;
    const char* pszName = GetElementName().c_str();
    for (; pCurrent && DoesElementNameMatch(ctx, pCurrent, pszName, m_strNamespace.c_str());
         pCurrent = pCurrent->GetNextSiblingElement()) {
        CSmartPtr<CXmlObjectBase> pItem = pfnCreate(pCurrent);
        if (!pItem) break;
        CXmlObjectBase::FromXml_Int(pItem, pCurrent, pCurrent->GetFirstElement(), ctx);
        AppendItem(pItem);
    }
    return pCurrent;
}

CXmlElement* CXmlCollection::GroupItemsFromXml_Int(CXmlElement* pParent, CXmlElement* pFirst,
                                                   const CSerializationContext& ctx, ItemCreator pfnCreate) {
    CXmlElement* pCurrent = pFirst;
    while (pCurrent) {
        CSmartPtr<CXmlObjectBase> pItem = pfnCreate(pCurrent);
        if (!pItem) break;
        CXmlElement* pNext = CXmlObjectBase::FromXml_Int(pItem, pParent, pCurrent, ctx);
        if (pNext == pCurrent) break;
        AppendItem(pItem);
        pCurrent = pNext;
    }
    return pCurrent;
}

}  // namespace OrvexXml
