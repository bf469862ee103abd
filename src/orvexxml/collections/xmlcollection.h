#pragma once

#include <cstddef>
#include <iterator>

#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/smartptr.h"

namespace OrvexXml {

class CXmlElement;

template <class T>
class COxIterator;

// A collection of bindable objects in a doubly linked list. Generated collections of
// classes derive from it, wrap the protected insertion and lookup services in typed Add,
// Item and the like, and implement ToXml_Int and FromXml_Int.
//
// Both walks of a collection of classes are the same for every item class, so they are
// services here, and a generated collection's walks are one line each:
//
//     void ToXml_Int(CXmlWriter* w, bool, const char* ns, const CSerializationContext& ctx, bool) const override
//         { ItemsToXml_Int(w, ns, ctx); }
//     CXmlElement* FromXml_Int(CXmlElement* e, CXmlElement* first, const CSerializationContext& ctx, bool) override
//         { return ItemsFromXml_Int(e, first, ctx, &CLineFactory::CreateLine); }
//
// They are plain protected functions and not a template base over the item class: the item
// class only matters to the typed Add, Item and begin/end that the generated class declares
// anyway, the walks compile once into the library instead of into every generated
// collection, and a collection of substitutable classes differs from one of a fixed class
// only by the creator it passes (the factory of its AbsCls member, as it is).
//
// Each node holds a reference to its item, so an item lives as long as a node or anybody
// else holds it. Appending is constant-time; access by index walks from the head.
//
// Events carry the item object (as passed in) for add and add complete, and no index for
// remove and remove complete (null data): the list is not indexed. A change that a listener
// refuses by throwing is undone before the exception goes on (see CXmlCollectionBase).
class ORVEXXML_API CXmlCollection : public CXmlCollectionBase {
public:
    class ORVEXXML_API CNode {
    public:
        explicit CNode(CXmlObjectBase* pItem) : m_pItem(pItem), m_pNext(nullptr), m_pPrev(nullptr) {}

        CSmartPtr<CXmlObjectBase> m_pItem;
        CNode* m_pNext;
        CNode* m_pPrev;
    };

    // The creator of the items that ItemsFromXml_Int reads: a new object of the class the
    // element stands for, held by nobody yet. Null means the element is not for this
    // collection, and the run ends in front of it.
    typedef CSmartPtr<CXmlObjectBase> (*ItemCreator)(CXmlElement* pElement);

    CXmlCollection();
    CXmlCollection(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);
    // The copy gets a chain of its own whose nodes hold the same items; no listeners.
    CXmlCollection(const CXmlCollection& other);
    // Replaces the list by one holding other's items, without events; the target keeps its
    // listeners. The old nodes release their items.
    CXmlCollection& operator=(const CXmlCollection& other);

    int GetCount() const override { return m_nCount; }
    // Removes the items from the head one by one, each firing remove, remove complete and
    // change as Remove(0) would, in time linear in the count. A refusal puts every item back.
    void Clear() override;
    // Throws COxInvalidParamException for an index outside 0 to count - 1, before any event.
    void Remove(int nIndex) override;

    // Iteration from head to tail. Stepping past the end throws.
    COxIterator<CXmlObjectBase> begin() const;
    COxIterator<CXmlObjectBase> end() const;

protected:
    // Calls Clear, so each remaining item fires its events; if a listener refuses, the
    // nodes are freed without further events.
    ~CXmlCollection() override;

    // The attributes of each item, in order.
    void AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext& ctx) const override;

    // The writing walk of a collection of classes: ValidateCount, then each item in list
    // order through its own walk, under its own element name and in pszNamespace.
    void ItemsToXml_Int(CXmlWriter* pWriter, const char* pszNamespace, const CSerializationContext& ctx) const;
    // The reading walk of a collection of classes: from pFirst on, each sibling with the
    // collection's element name and namespace (DoesElementNameMatch) becomes an item made by
    // pfnCreate, read from the element's content and appended, with the add events. Returns
    // the first element not taken, or null. Counts are not tested; the member that drives the
    // collection does that. If an item fails to read or an add is refused, the exception goes
    // on and the items taken before stay in the collection, as in the other collections.
    CXmlElement* ItemsFromXml_Int(CXmlElement* pElement, CXmlElement* pFirst, const CSerializationContext& ctx,
                                  ItemCreator pfnCreate);
    // The same for a collection of model groups, whose items have no tags of their own: each
    // item made by pfnCreate (given the element at the cursor) reads on from the cursor among
    // the children of pParent, and the run ends at the first item that consumes nothing
    // (dropped) or at the end of the children.
    CXmlElement* GroupItemsFromXml_Int(CXmlElement* pParent, CXmlElement* pFirst, const CSerializationContext& ctx,
                                       ItemCreator pfnCreate);

    // Insertion. Every successful insertion fires add, add complete and change, with the
    // item as data. pItem must not be null. The collection takes a reference to pItem at
    // once, so a fresh item whose insertion fails or is refused is freed.
    void PrependItem(CXmlObjectBase* pItem);
    void AppendItem(CXmlObjectBase* pItem);
    // An index of count appends; outside 0 to count: COxInvalidParamException before any event.
    void AddItemAt(int nIndex, CXmlObjectBase* pItem);
    // Null for pAfter prepends. The add event fires before the anchor is looked up; an anchor
    // that isn't in the list throws and nothing is inserted.
    void AddAfterItem(const CXmlObjectBase* pAfter, CXmlObjectBase* pItem);
    // Null for pBefore appends; otherwise as AddAfterItem.
    void AddBeforeItem(const CXmlObjectBase* pBefore, CXmlObjectBase* pItem);

    // Lookup. Both throw COxInvalidParamException when there is no such node.
    CNode* GetNodeAtIndex(int nIndex) const;
    // Compares the items through GetBase(), so any base pointer of an item finds it.
    CNode* GetNodeForItem(const CXmlObjectBase* pItem) const;
    // Unlinks and deletes pNode, releasing its item; fires remove, remove complete and change.
    // The node is deleted once the events have passed, so a refusal can link it back.
    void RemoveNode(CNode* pNode);

    CNode* m_pHead;
    CNode* m_pTail;
    OxLong m_nCount;

private:
    // Creates a node for pItem and links it in front of pBefore, or at the tail when pBefore
    // is null; counts it.
    CNode* LinkNewNode(CXmlObjectBase* pItem, CNode* pBefore);
    // Links pNode between the neighbours its own links name, and counts it.
    void Relink(CNode* pNode);
    // Takes pNode out of the list, leaving its own links as they were; uncounts it.
    void Unlink(CNode* pNode);
    // Links a new node for pItem in front of pBefore (null: at the tail) and fires add
    // complete and change; a refusal unlinks and deletes the node again.
    void InsertAndTell(CXmlObjectBase* pItem, CNode* pBefore);
    // Deletes the chain starting at pNode, without events.
    static void DeleteChain(CNode* pNode);
    // Deletes a node, releasing its item.
    static void DeleteNode(CNode* pNode);
    // Links copies of the nodes of other (sharing their items) behind the tail.
    void AppendNodesOf(const CXmlCollection& other);
};

// Forward iterator over a CXmlCollection, standing on a node or on null (the end).
// Dereferencing gives the item as T*; stepping from the end throws COxException
// "No More Elements in the Collection". Generated collections instantiate it with their
// item class; T must derive from CXmlObjectBase without virtual inheritance.
template <class T>
class COxIterator {
public:
    typedef std::forward_iterator_tag iterator_category;
    typedef T* value_type;
    typedef std::ptrdiff_t difference_type;
    typedef T* const* pointer;
    typedef T* reference;

    COxIterator() : m_pNode(nullptr) {}
    explicit COxIterator(CXmlCollection::CNode* pNode) : m_pNode(pNode) {}

    // The item of the node; null at the end.
    T* operator*() const { return m_pNode ? static_cast<T*>(m_pNode->m_pItem.Get()) : nullptr; }
    T* operator->() const { return **this; }

    COxIterator& operator++() {
        if (!m_pNode) throw COxException("No More Elements in the Collection");
        m_pNode = m_pNode->m_pNext;
        return *this;
    }
    COxIterator operator++(int) {
        COxIterator old(*this);
        ++*this;
        return old;
    }

    bool operator==(const COxIterator& other) const { return m_pNode == other.m_pNode; }
    bool operator!=(const COxIterator& other) const { return m_pNode != other.m_pNode; }

private:
    CXmlCollection::CNode* m_pNode;
};

inline COxIterator<CXmlObjectBase> CXmlCollection::begin() const { return COxIterator<CXmlObjectBase>(m_pHead); }
inline COxIterator<CXmlObjectBase> CXmlCollection::end() const { return COxIterator<CXmlObjectBase>(nullptr); }

}  // namespace OrvexXml
