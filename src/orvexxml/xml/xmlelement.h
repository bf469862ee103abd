#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"

namespace OrvexXml {

class CXmlAttribute;
class CXmlDocument;
class CXmlNodeStore;

// One element of a parsed document. The children form a singly linked list (first child,
// next sibling; the document that builds the tree remembers the last child of each open
// element for appending); the element owns its children and its attributes. All text of the element, including the text
// between its children, is kept in one string. Strings are in the local encoding.
//
// Elements are built and destroyed by their document only. Destruction is iterative in
// both directions, along siblings and along depth, so that arbitrarily deep or wide trees
// never exhaust the stack.
class ORVEXXML_API CXmlElement : public CInstanceMonitor {
    friend class CXmlDocument;

public:
    // The attributes of an element in document order, iterated like a vector: a view of an
    // array in the tree's own memory, valid as long as the element.
    class CAttributeList {
    public:
        typedef CXmlAttribute* const* const_iterator;
        CAttributeList(CXmlAttribute* const* ppItems, size_t nCount) : m_ppItems(ppItems), m_nCount(nCount) {}
        const_iterator begin() const { return m_ppItems; }
        const_iterator end() const { return m_ppItems + m_nCount; }
        size_t size() const { return m_nCount; }
        bool empty() const { return m_nCount == 0; }
        CXmlAttribute* operator[](size_t nIndex) const { return m_ppItems[nIndex]; }
        CXmlAttribute* at(size_t nIndex) const;  // std::out_of_range past the end

    private:
        CXmlAttribute* const* m_ppItems;
        size_t m_nCount;
    };

    // A copy would make a second owner of the same nodes: the tree is not copyable.
    CXmlElement(const CXmlElement&) = delete;
    CXmlElement& operator=(const CXmlElement&) = delete;

    // The document, found through the root: only the root keeps it.
    const CXmlDocument* GetDocument() const;
    const CXmlElement* GetParentElm() const { return m_pParent; }
    // The first child element, null if there is none.
    CXmlElement* GetFirstElement() const { return m_pFirstChild; }
    // The next sibling element, null at the end of the parent's children.
    CXmlElement* GetNextSiblingElement() const { return m_pParent ? m_pNextSibling : nullptr; }
    const std::string& GetLocalName() const { return *m_pElementName; }
    const std::string& GetNamespaceURI() const { return *m_pNamespace; }
    const std::string& GetText() const;
    // The text without making a string of it: what the reading walk uses, so that the text
    // between child elements, which nobody reads as a rule, never becomes a string.
    std::string_view GetTextView() const { return std::string_view(m_pText, m_nTextLength); }
    // In document order.
    CAttributeList GetAttributes() const {
        return m_pAttributes ? CAttributeList(m_pAttributes->apItems, m_pAttributes->nCount)
                             : CAttributeList(nullptr, 0);
    }
    // The value of the first attribute with that local name and namespace (null counts as
    // empty). Without a match: a reference to a shared empty string that stays valid.
    const std::string& GetAttribute(const char* pszLocalName, const char* pszNamespace = "") const;
    // An XPath-like location of the element: /order/item[2]/price. Position predicates
    // appear only where the parent has more than one child of the same qualified name.
    std::string GetXPath() const;

protected:
    CXmlElement(const CXmlDocument* pDocument, const CXmlElement* pParent);
    ~CXmlElement() override;

    // The builders pass the document's node store, where the element's memory comes from: an
    // element keeps no pointer to it, and finding it through the root would cost a walk up
    // the tree per call.
    void SetElementName(CXmlNodeStore* pStore, const char* pszName);
    void SetElementName(CXmlNodeStore* pStore, const char* pName, size_t nLength);
    void SetNamespace(CXmlNodeStore* pStore, const char* pszNamespace);
    void SetNamespace(CXmlNodeStore* pStore, const char* pNamespace, size_t nLength);
    void AppendText(CXmlNodeStore* pStore, const char* pszText);
    // Appends nLength bytes. Capacity at least doubles when it has to grow, so text that
    // arrives in many small pieces is copied a logarithmic number of times.
    void AppendText(CXmlNodeStore* pStore, const char* pText, OxULong nLength);
    // A new child of this element after pLastChild, its last child so far (null for the first).
    CXmlElement* CreateNewChildElement(CXmlNodeStore* pStore, CXmlElement* pLastChild);
    CXmlAttribute* AddAttribute(CXmlNodeStore* pStore, const char* pszLocalName, const char* pszValue,
                                const char* pszNamespace);
    CXmlAttribute* AddAttribute(CXmlNodeStore* pStore, const char* pLocalName, size_t nLocalNameLength,
                                const char* pValue, size_t nValueLength, const char* pNamespace,
                                size_t nNamespaceLength);
    // Unlinks pLastChild, the last child, and returns the child before it, the new last child
    // (null when none is left). The caller deletes pLastChild.
    CXmlElement* RemoveLastChildElement(CXmlElement* pLastChild);

private:
    // Elements and attributes live in the document's node store: these make and end them.
    // pDocument is kept by the root only (pParent null).
    static CXmlElement* Create(CXmlNodeStore* pStore, const CXmlDocument* pDocument, const CXmlElement* pParent);
    // The element with its whole subtree and their attributes.
    static void Destroy(CXmlNodeStore* pStore, CXmlElement* pElement);
    static void DestroyAttribute(CXmlNodeStore* pStore, CXmlAttribute* pAttribute);
    // The node store of the element's document, found through the root.
    CXmlNodeStore* GetStore() const;
    // The list of attributes, made empty in the node store on first use.
    void ReserveAttributes(CXmlNodeStore* pStore, size_t nCount);

    // The prefix of the namespace, ":" and the local name; the local name alone when the
    // element has no namespace or the namespace has no prefix.
    std::string GetQName() const;
    // The qualified name, with "[n]" when siblings share it.
    std::string GetNameWithPredicate() const;

    // The attributes: their count and room, then the pointers, in one piece of the node
    // store, so that an element pays one pointer for them and most elements, which have none,
    // nothing else.
    struct AttributeArray {
        uint32_t nCount;
        uint32_t nCapacity;
        CXmlAttribute* apItems[1];  // nCapacity items
        static size_t SizeFor(size_t nCapacity) {
            return offsetof(AttributeArray, apItems) + nCapacity * sizeof(CXmlAttribute*);
        }
    };

    const CXmlElement* m_pParent;
    // The root has no sibling: it keeps the document in that place instead.
    union {
        CXmlElement* m_pNextSibling;      // with a parent
        const CXmlDocument* m_pDocument;  // the root
    };
    CXmlElement* m_pFirstChild;
    AttributeArray* m_pAttributes;  // null until the first attribute arrives
    void GrowText(CXmlNodeStore* pStore, size_t nNeeded);
    void DropTextString();
    void FreeText(CXmlNodeStore* pStore);
    // Appends a short piece that fits the room the text already has, leaving out every CR
    // byte, without a call; false, with nothing appended, when it doesn't fit. The parser's
    // pieces are mostly that short: a line break, the tabs of indentation, a number, a word.
    static const size_t kShortPiece = 64;
    bool AppendShortPiece(const char* pText, size_t nLength) {
        if (nLength == 0 || nLength > kShortPiece || nLength > m_nTextCapacity - m_nTextLength) return false;
        char* pOut = m_pText + m_nTextLength;
        for (size_t i = 0; i < nLength; ++i) {
            const char c = pText[i];
            *pOut = c;
            pOut += c != '\r';
        }
        m_nTextLength = static_cast<uint32_t>(pOut - m_pText);
        // A string made of the former text no longer matches.
        if (m_pTextString.load(std::memory_order_relaxed)) DropTextString();
        return true;
    }

    // The text lives in the document's node store (on the heap past kMaxStoredText bytes) and
    // becomes a string only when GetText asks for one; that string is kept until the text
    // changes. Threads that read one tree may race to make it: one string wins, the others
    // are deleted. Length and room are 32 bits, which keeps the node at 88 bytes; a text of
    // 4 GiB or more in one element is refused as memory that can't be had.
    char* m_pText;
    uint32_t m_nTextLength;
    uint32_t m_nTextCapacity;
    mutable std::atomic<std::string*> m_pTextString;
    // Names are stored once per document and shared by the elements that carry them.
    const std::string* m_pElementName;
    // The namespace URI, empty for none. The document stores each URI once; its elements and
    // attributes point to that copy.
    const std::string* m_pNamespace;
};

}  // namespace OrvexXml
