#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/xml/xmlattribute.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

class CExpatReader;
class CFastInfosetReader;
class CXmlNodeStore;

// Process-wide switch, off at load: with it on, CXmlDocument::Load reads a file in chunks
// of 131072 bytes with the next read in flight while the parser works on the previous
// chunk. That form reads plain XML text only (no decompression, no Fast Infoset). Set it
// before loads start.
ORVEXXML_API void AsyncFromXmlFile(bool bAsync);
ORVEXXML_API bool GetAsyncFromXmlFile();

// Called at the end of each element of XML input. Returning true tells the document that
// the element has been dealt with: it is removed from its parent and deleted, which keeps
// memory flat while a large document streams through. A true for the root element is
// ignored: the root stays.
typedef bool (*XmlElementCallback)(CXmlElement* pElement);

// The parse tree: loads a document from a file, a string or a byte buffer, drives the right
// reader over it and owns the resulting elements. A document can be loaded again; each load
// replaces the tree, and element pointers from before dangle.
class ORVEXXML_API CXmlDocument : public CInstanceMonitor {
    friend class CExpatReader;
    friend class CFastInfosetReader;
    friend class CXmlElement;

public:
    // Without a context the process-wide default context serves; the context must outlive
    // the document.
    CXmlDocument();
    explicit CXmlDocument(const CSerializationContext& context);
    explicit CXmlDocument(XmlElementCallback pfnElementCallback);
    CXmlDocument(XmlElementCallback pfnElementCallback, const CSerializationContext& context);
    ~CXmlDocument() override;

    // A copy would make two owners of the same tree.
    CXmlDocument(const CXmlDocument&) = delete;
    CXmlDocument& operator=(const CXmlDocument&) = delete;

    // Deletes the tree, frees the buffer, forgets the open elements and the prefixes.
    virtual void Cleanup();

    // Reads a file: whole into memory by default, where gzip or zlib data are inflated
    // first, in overlapped chunks of plain XML with AsyncFromXmlFile(true).
    void Load(const char* pszFileName);
    // Parses a null-terminated narrow string byte for byte, in the encoding its declaration
    // names (UTF-8 without one).
    void LoadXml(const char* pszXml);
    // Parses a null-terminated wide string.
    void LoadXml(const wchar_t* pszXml);
    // Parses bytes, which may be compressed (gzip or zlib, inflated first) or Fast Infoset.
    // The bytes are copied. Compressed data that expand without measure are refused (see
    // COxZip).
    void LoadXmlStream(unsigned char* const pData, OxULong nLength);

    // JSON input: each converts a JSON document to an XML document in UTF-8 (the reverse of
    // the JSON writer, in the mode of the context's CJsonContext) and returns it. The tree is
    // not built; the caller reads the bytes as XML. Text is taken as local text, byte for
    // byte; a wide string is converted to local text first.
    CBinaryData LoadJson(const char* pszJson);
    CBinaryData LoadJson(const wchar_t* pszJson);
    // Files and bytes are UTF-8, with or without a byte order mark, and may be compressed.
    CBinaryData LoadJsonFile(const char* pszFileName);
    CBinaryData LoadJsonStream(unsigned char* const pData, OxULong nLength);

    // The root element, null before a load.
    CXmlElement* GetDocumentElement() const { return m_pDocumentElement; }
    // The URI declared for a prefix anywhere in the document (the default namespace has the
    // empty prefix); empty if unknown.
    const std::string& LookupNamespaceFromAlias(const char* pszAlias) const;
    // The first prefix, in prefix order, declared for the URI; empty if none.
    const std::string& LookupAliasFromNamespace(const char* pszNamespace) const;
    // Every prefix the document declared, with its namespace: what the two lookups above
    // answer one prefix at a time, for a reader that doesn't know the prefixes in advance.
    const std::map<std::string, std::string>& GetAliases() const { return m_mapAliases; }

    const CSerializationContext& GetContext() const { return *m_pContext; }

protected:
    void Init();

private:
    struct COverlappedRead;
    class CBorrowedBuffer;

    // Tree building for the readers. Text arguments are in the local encoding.
    CXmlElement* AddDocElement(const char* pszNamespace, const char* pszName);
    CXmlElement* AddDocElement(const char* pNamespace, size_t nNamespaceLength, const char* pName, size_t nNameLength);
    CXmlElement* AddChildElement(const char* pszNamespace, const char* pszName);
    CXmlElement* AddChildElement(const char* pNamespace, size_t nNamespaceLength, const char* pName,
                                 size_t nNameLength);
    // Closes the innermost open element and offers it to the element callback.
    void EndElement();
    static CXmlAttribute* AddElementAttribute(CXmlElement* pElement, const char* pszLocalName, const char* pszValue,
                                              const char* pszNamespace);
    static CXmlAttribute* AddElementAttribute(CXmlElement* pElement, const char* pLocalName, size_t nLocalNameLength,
                                              const char* pValue, size_t nValueLength, const char* pNamespace,
                                              size_t nNamespaceLength);
    static void ReserveElementAttributes(CXmlElement* pElement, size_t nCount);
    // Appends the text up to its end or maxLength bytes, whichever comes first, leaving out
    // every CR byte.
    static void AppendTextExcludingCR(CXmlElement* pElement, const char* pszText);
    static void AppendTextExcludingCR(CXmlElement* pElement, const char* pText, OxULong nMaxLength);
    // The same for text of exactly nLength bytes known to hold no null byte, as the parser's
    // text always is: no search for the end.
    static void AppendRunExcludingCR(CXmlElement* pElement, const char* pText, size_t nLength);
    // The parser's own calls, for elements of this document: the static forms above find the
    // document's node store by a walk to the root, these have it at hand.
    CXmlAttribute* AddAttribute(CXmlElement* pElement, const char* pLocalName, size_t nLocalNameLength,
                                const char* pValue, size_t nValueLength, const char* pNamespace,
                                size_t nNamespaceLength);
    void ReserveAttributes(CXmlElement* pElement, size_t nCount);
    void AppendRun(CXmlElement* pElement, const char* pText, size_t nLength) {
        AppendRun(m_pNodeStore, pElement, pText, nLength);
    }
    static void AppendRun(CXmlNodeStore* pStore, CXmlElement* pElement, const char* pText, size_t nLength);
    // The element at the back of the stack of open elements, null if none is open.
    CXmlElement* GetCurrentElement() const {
        return m_pElementStack.empty() ? nullptr : m_pElementStack.back().pElement;
    }

    // The input forms that may be compressed or Fast Infoset.
    void InflateBuffer();
    void Parse();
    // Plain XML text in m_pBuffer, one final chunk.
    void ParseText();

    // JSON bytes in m_pBuffer: decompressed, without a byte order mark, to local text.
    CBinaryData ParseJson();
    // JSON local text to XML bytes.
    CBinaryData ParseJsonText(std::string_view json);

    void LoadWhole(const char* pszFileName);
    // Reads the whole file into m_pBuffer and m_nBufferLength.
    void ReadWholeFile(const char* pszFileName);
    void LoadOverlapped(const char* pszFileName);
    void AsyncParse(bool bFinal);
    void ReadChunkFromFile(unsigned char* pBuffer);
    bool WaitForChunk(OxULong& nRead, int& nError);
    void CancelChunk();
    void CloseFile();
    void FreeBuffer();
    // A buffer of nSize bytes for m_pBuffer, freed by FreeBuffer. A large one is mapped on its
    // own, so that freeing it gives its pages back to the system at once: the parser frees
    // the input as soon as it has its own copy, and the memory serves the tree and the objects.
    unsigned char* NewInputBuffer(size_t nSize);

    CXmlNodeStore* m_pNodeStore;     // memory of the tree's nodes and namespace URIs
    COverlappedRead* m_pOverlapped;  // the read in flight during an overlapped load, else null
    uint64_t m_nFilePosition;        // offset of the next read
    int m_hFile;                     // descriptor of the file during an overlapped load, else -1
    CXmlElement* m_pDocumentElement;
    // An element being built and its last child so far, where the next child is linked: the
    // elements themselves keep no pointer to their last child.
    struct OpenElement {
        CXmlElement* pElement;
        CXmlElement* pLastChild;
    };
    std::vector<OpenElement> m_pElementStack;
    std::map<std::string, std::string> m_mapAliases;
    unsigned char* m_pBuffer;
    bool m_bOwnsBuffer;  // false while m_pBuffer is the caller's input (see CBorrowedBuffer)
    // Bytes of the mapping when m_pBuffer is mapped on its own (see NewInputBuffer), else 0.
    size_t m_nMappedBuffer;
    OxULong m_nBufferLength;
    SchemaType m_eSchemaType;
    XmlElementCallback m_pfnElementCallback;
    const CSerializationContext* m_pContext;
};

}  // namespace OrvexXml
