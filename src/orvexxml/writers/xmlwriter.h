#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/values/itemtype.h"

namespace OrvexXml {

// The event sink through which the binding engine emits a document. It keeps the state that
// all output formats share: the stack of open elements with their namespace scopes, and the
// generator of namespace prefixes. The text, JSON and Fast Infoset writers derive from it.
//
// The order of the virtual operations is part of the contract between the writers and the
// code that drives them; new operations go to the end.
class ORVEXXML_API CXmlWriter : public CInstanceMonitor {
public:
    // Namespace URI to prefix, ordered by byte comparison of the URI.
    typedef std::map<std::string, std::string> NamespaceMap;

    // The namespace of the "xml" prefix, and the XML Schema instance namespace.
    static constexpr const char* XmlNamespaceURI = "http://www.w3.org/XML/1998/namespace";
    static constexpr const char* XsiNamespaceURI = "http://www.w3.org/2001/XMLSchema-instance";

    // The state of one open element. Namespace scopes are copy-on-write: a nested element
    // shares the map of its ancestors until a prefix is set on it, and only then takes a private
    // copy, visible to itself and its descendants. Setting a default namespace alone detaches
    // the scope from its parent without copying the map.
    //
    // The fields are public because every writer format keeps its own per-element state in
    // them (collection state, attribute flag, its own idea of depth).
    class ORVEXXML_API CXmlWriterContext : public CInstanceMonitor {
    public:
        // Root form: depth 0, a scope of its own holding a copy of the writer's map. The name
        // and the namespace are taken by value, so that a caller can move buffers in.
        CXmlWriterContext(std::string strName, std::string strNamespace, const std::string& strDefaultNamespace,
                          const NamespaceMap& mapNamespaces, CXmlWriterContext* pParent);
        // Nested form: one level below pParent, sharing its namespace scope.
        CXmlWriterContext(std::string strName, std::string strNamespace, CXmlWriterContext* pParent);
        // Frees an owned map and the parent chain.
        ~CXmlWriterContext() override;

        CXmlWriterContext(const CXmlWriterContext&) = delete;
        CXmlWriterContext& operator=(const CXmlWriterContext&) = delete;

        // The default namespace and the map of the nearest scope that has its own.
        const std::string& GetDefaultNamespace() const { return ScopeOwner()->m_strContextDefaultNamespace; }
        const NamespaceMap& GetNamespaceMap() const { return *ScopeOwner()->m_pNamespaceMap; }
        // The prefix of strNamespace in the effective map; empty if there is none.
        const std::string& GetNamespaceMapValue(const std::string& strNamespace) const;
        void SetDefaultNamespace(const std::string& strNamespace);
        void SetNamespaceMapValue(const std::string& strNamespace, const std::string& strPrefix);
        // A count that moves whenever any context's default namespace or map changes: while
        // it stands still, a prefix found earlier is still the one a lookup would give.
        static uint64_t ScopeGeneration();

        uint32_t m_nChildCount;  // child elements begun inside this element so far
        bool m_bInStartTag;      // the start tag is still open, attributes are allowed
        uint32_t m_nDepth;       // 0 for the root
        std::string m_strNamespace;
        std::string m_strName;
        std::string m_strPrefix;       // "prefix:" as the start tag was written; empty for none
        uint64_t m_nPrefixGeneration;  // ScopeGeneration() when m_strPrefix was taken
        CXmlWriterContext* m_pParent;  // owning; null for the root
        bool m_bHasAttributes;
        uint32_t m_nCollectionState;               // 0 none, 1 first item pending, 2 inside, 3 finished
        std::string m_strContextDefaultNamespace;  // meaningful only when the scope is its own
        NamespaceMap* m_pNamespaceMap;             // owned or borrowed, see m_bOwnsNamespaceMap
        bool m_bInheritsNamespaces;                // true: no scope of its own, ask the parent
        bool m_bOwnsNamespaceMap;
        // Owned; null if none. A map that an earlier context at this level made its own, with
        // its entries still in it: SetNamespaceMapValue fills it rather than a fresh copy, so
        // that siblings declaring the same prefix (an xsi:type on every item) allocate nothing.
        NamespaceMap* m_pSpareNamespaceMap;

    private:
        // The context whose scope answers for this one.
        const CXmlWriterContext* ScopeOwner() const {
            const CXmlWriterContext* pContext = this;
            while (pContext->m_bInheritsNamespaces && pContext->m_pParent) pContext = pContext->m_pParent;
            return pContext;
        }
    };

    ~CXmlWriter() override;

    CXmlWriter(const CXmlWriter&) = delete;
    CXmlWriter& operator=(const CXmlWriter&) = delete;

    // --- virtual operations, in slot order -----------------------------------------------
    virtual void StartDocument();
    // Throws COxException "An Element has not been closed." while an element is open.
    virtual void EndDocument();
    // Sets the default namespace of the open element's scope, or of the document before the
    // root element. Emits nothing.
    virtual void SetDefaultNamespace(const std::string& strNamespace);
    // Binds strAlias to strNamespace in the open element's scope, or in the document's map
    // before the root element. Emits nothing.
    virtual void AddNamespaceAlias(const std::string& strAlias, const std::string& strNamespace);
    virtual void WriteComment(const std::string& strText) = 0;
    virtual void WriteProcessingInstruction(const std::string& strText) = 0;
    virtual void WriteInLineSchema(const std::string& strText) = 0;
    virtual void WriteStartElement(const std::string& strName, const std::string& strNamespace) = 0;
    virtual void WriteElementText(const std::string& strValue, ItemType eType, bool bIsDefaultValue) = 0;
    virtual void WriteEndElement() = 0;
    virtual void WriteAttribute(const std::string& strName, const std::string& strNamespace,
                                const std::string& strValue, ItemType eType) = 0;
    virtual void WriteXsiType(const std::string& strNamespace, const std::string& strTypeName, ItemType eType) = 0;
    virtual void WriteXsiNil() = 0;
    // Stores nState in the open element's m_nCollectionState; nothing without an open element.
    // Virtual so that a writer that folds collections (JSON) sees the call itself.
    virtual void SetCollectionState(uint32_t nState);
    // --- end of virtual operations --------------------------------------------------------

    // The first two-letter prefix "AA", "AB", ... "ZZ" that is not a value of mapNamespaces.
    // Throws COxException when all 676 are taken.
    static std::string GenerateNamespacePrefix(const NamespaceMap& mapNamespaces);

    // The names of the open elements from the root down, "/order/item/price", for the path of
    // an error raised while writing; empty before the root element. Elements are named as the
    // caller named them, without prefix or position.
    std::string GetElementPath() const;

protected:
    // Registers the "xml" prefix for the XML namespace.
    explicit CXmlWriter(const char* pszClassName);

    // Makes the context of a new element below m_pContext (root form when no element is
    // open) without installing it. The storage of finished contexts and the buffers of their
    // name and namespace are reused, but every context is fully constructed and destroyed,
    // once per element.
    CXmlWriterContext* CreateContext(const std::string& strName, const std::string& strNamespace);
    // Detaches the parent from pContext, destroys pContext and keeps its storage and string
    // buffers for reuse.
    void DestroyContext(CXmlWriterContext* pContext) noexcept;
    // Ends the innermost element: m_pContext becomes its parent.
    void PopContext() noexcept;

    std::string m_strDefaultNamespace;  // of the document; used until the root element opens
    CXmlWriterContext* m_pContext;      // innermost open element; owning
    NamespaceMap m_mapNamespaces;       // registered before the root element

private:
    // What a destroyed context leaves for the next one at its level: its storage, the
    // buffers of its name and namespace, and its private namespace map if it had one, so
    // that an element whose namespace is longer than a short string, or that declares the
    // prefix its previous sibling declared, costs no allocation once the writer has reached
    // its depth. Contexts live
    // and die in stack order, so the spares are kept by level, the innermost living context
    // owning the slot m_nLiveContexts - 1. A writer takes the spares that the last writer of
    // its thread left, and leaves its own when it goes, so that many small documents written
    // one after the other don't pay for them each time.
    struct CSpareContext {
        void* pStorage = nullptr;
        std::string strName;
        std::string strNamespace;
        NamespaceMap* pNamespaceMap = nullptr;  // the last private scope made at this level
    };
    typedef std::vector<CSpareContext> SpareContexts;
    static void FreeSpareContexts(SpareContexts& vecSpares) noexcept;
    friend class CSpareContextPool;

    size_t m_nLiveContexts;
    SpareContexts m_vecFreeContexts;
};

}  // namespace OrvexXml
