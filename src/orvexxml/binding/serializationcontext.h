#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "orvexxml/binding/attributecol.h"
#include "orvexxml/export.h"
#include "orvexxml/fastinfoset/fastinfosetcontext.h"
#include "orvexxml/infrastructure/smartptr.h"
#include "orvexxml/writers/jsoncontext.h"
#include "orvexxml/xml/namespacealiasmap.h"

namespace OrvexXml {

class CXmlGeneratedClass;

// The schema language the generated code came from. Only SchemaType_DTD changes behaviour:
// a DTD has no namespaces, so namespace URIs are not compared while reading.
enum SchemaType : int32_t { SchemaType_XSD = 0, SchemaType_XDR = 1, SchemaType_DTD = 2 };

// The settings of a write or read call. One object may serve many calls; operations take
// it by const reference. Copyable.
class ORVEXXML_API CSerializationContext {
    // The root element reads the additional root attributes without creating them.
    friend class CXmlGeneratedClass;
    // FromJson_Int saves and restores the stored IgnoreNamespaces flag around its call.
    friend class CXmlObjectBase;

public:
    CSerializationContext();
    CSerializationContext(const CSerializationContext& other) = default;
    CSerializationContext& operator=(const CSerializationContext& other) = default;
    virtual ~CSerializationContext();

    // The process-wide context with the default settings.
    static CSerializationContext& GetDefaultContext();

    const std::string& GetDefaultNamespaceURI() const { return m_strDefaultNamespaceURI; }
    void SetDefaultNamespaceURI(const char* pszUri) { m_strDefaultNamespaceURI = pszUri ? pszUri : ""; }

    bool GetWriteTypeAttribute() const { return m_bWriteTypeAttribute; }
    void SetWriteTypeAttribute(bool bValue) { m_bWriteTypeAttribute = bValue; }

    CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }
    const CNamespaceAliasMap& GetNamespaceAliases() const { return m_namespaceAliases; }

    std::vector<std::string>& GetProcessingInstructions() { return m_vecProcessingInstructions; }
    const std::vector<std::string>& GetProcessingInstructions() const { return m_vecProcessingInstructions; }

    const std::string& GetInLineSchema() const { return m_strInLineSchema; }
    void SetInLineSchema(const char* pszSchema) { m_strInLineSchema = pszSchema ? pszSchema : ""; }

    bool GetIgnoreInvalidCollectionCounts() const { return m_bIgnoreInvalidCollectionCounts; }
    void SetIgnoreInvalidCollectionCounts(bool bValue) { m_bIgnoreInvalidCollectionCounts = bValue; }

    bool GetIgnoreMissingChoice() const { return m_bIgnoreMissingChoice; }
    void SetIgnoreMissingChoice(bool bValue) { m_bIgnoreMissingChoice = bValue; }

    // These two can't both be on: true is refused while the other one is set.
    bool GetIgnoreMissingMandatoryElements() const { return m_bIgnoreMissingMandatoryElements; }
    void SetIgnoreMissingMandatoryElements(bool bValue);
    bool GetIgnoreUnknownElements() const { return m_bIgnoreUnknownElements; }
    void SetIgnoreUnknownElements(bool bValue);

    bool GetIgnoreUnknownAttributes() const { return m_bIgnoreUnknownAttributes; }
    void SetIgnoreUnknownAttributes(bool bValue) { m_bIgnoreUnknownAttributes = bValue; }

    // True when the flag is set or the schema language has no namespaces.
    bool GetIgnoreNamespaces() const { return m_bIgnoreNamespaces || m_eSchemaType == SchemaType_DTD; }
    void SetIgnoreNamespaces(bool bValue) { m_bIgnoreNamespaces = bValue; }

    SchemaType GetSchemaType() const { return m_eSchemaType; }
    void SetSchemaType(SchemaType eType) { m_eSchemaType = eType; }

    bool GetNoOptionalAttributeDefaultOutput() const { return m_bNoOptionalAttributeDefaultOutput; }
    void SetNoOptionalAttributeDefaultOutput(bool bValue) { m_bNoOptionalAttributeDefaultOutput = bValue; }

    bool GetWriteDefaultElementValues() const { return m_bWriteDefaultElementValues; }
    void SetWriteDefaultElementValues(bool bValue) { m_bWriteDefaultElementValues = bValue; }

    bool GetStripCDATA() const { return m_bStripCDATA; }
    void SetStripCDATA(bool bValue) { m_bStripCDATA = bValue; }

    // Only blanks and tabs; a null pointer stores the empty string.
    const std::string& GetIndentChars() const { return m_strIndentChars; }
    void SetIndentChars(const char* pszIndent);

    // Off by default. On, a value holding a byte that XML 1.0 text can't carry (a control
    // character other than tab, LF and CR, or a null byte inside the string) is refused with
    // COxInvalidValueException and the element's path instead of being written. Off, such
    // bytes are written as they are and a null byte ends the value.
    bool GetCheckCharacters() const { return m_bCheckCharacters; }
    void SetCheckCharacters(bool bValue) { m_bCheckCharacters = bValue; }

    // The deepest element nesting that reading and writing accept, the root being level 1.
    // A document or object tree one level deeper is refused with COxValidationException
    // before the walks, which recurse once per level, can exhaust the stack. The default is
    // safe on a thread stack of 1 MiB. Values below 1 are refused.
    int32_t GetMaxDepth() const { return m_nMaxDepth; }
    void SetMaxDepth(int32_t nDepth);
    static constexpr int32_t DefaultMaxDepth = 256;
    // Refuses an element one level past nMaxDepth, at strPath: the one refusal that the
    // document, the writer and the object walks share.
    [[noreturn]] static void ThrowTooDeep(int32_t nMaxDepth, const std::string& strPath);

    // Attributes written on the root element before the object's own, each in its namespace:
    // the way to add a schema location. The first call creates the collection (no namespace of
    // its own, any namespace allowed), also through a const context. A copy of the context
    // gets a copy of the collection, so two contexts never share one list.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;

    // The JSON settings: created on first use, also through a const context, without a lock,
    // so a context shared between threads needs one call from one thread first. A copy of the
    // context gets a copy of them.
    CJsonContext& GetJsonContext() const;

    // The Fast Infoset settings: created on first use like the JSON settings, and copied with
    // the context, ready-made vocabulary included.
    CFastInfosetContext& GetFIContext() const;

private:
    // Holds the additional root attributes: null until asked for, cloned when copied.
    class ORVEXXML_API CRootAttributes {
    public:
        CRootAttributes() {}
        CRootAttributes(const CRootAttributes& other);
        CRootAttributes& operator=(const CRootAttributes& other);

        CSmartPtr<CAttributeCol> m_pAttributes;
    };

    // Holds a settings object (JSON, Fast Infoset): null until asked for, copied with the
    // context. The members are defined and instantiated for both kinds in the source.
    template <class T>
    class ORVEXXML_API CContextHolder {
    public:
        CContextHolder() : m_pContext(nullptr) {}
        CContextHolder(const CContextHolder& other);
        CContextHolder& operator=(const CContextHolder& other);
        ~CContextHolder();

        // The held object, created with its defaults on first use.
        T& Get();

        T* m_pContext;  // owned
    };

    std::string m_strDefaultNamespaceURI;
    bool m_bWriteTypeAttribute;
    CNamespaceAliasMap m_namespaceAliases;
    std::vector<std::string> m_vecProcessingInstructions;
    std::string m_strInLineSchema;
    bool m_bIgnoreInvalidCollectionCounts;
    bool m_bIgnoreMissingChoice;
    bool m_bIgnoreMissingMandatoryElements;
    bool m_bIgnoreUnknownElements;
    bool m_bIgnoreUnknownAttributes;
    bool m_bIgnoreNamespaces;
    SchemaType m_eSchemaType;
    bool m_bNoOptionalAttributeDefaultOutput;
    bool m_bWriteDefaultElementValues;
    bool m_bStripCDATA;
    std::string m_strIndentChars;
    bool m_bCheckCharacters;
    int32_t m_nMaxDepth;
    // Created on first use, through a const reference too.
    mutable CRootAttributes m_rootAttributes;
    mutable CContextHolder<CJsonContext> m_jsonContext;
    mutable CContextHolder<CFastInfosetContext> m_fiContext;
};

}  // namespace OrvexXml
