#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"

// expat's parser handle, declared as expat declares it, so that this header doesn't need
// expat's headers.
struct XML_ParserStruct;

namespace OrvexXml {

class CXmlDocument;

// Adaptor between expat and CXmlDocument. expat reports names and text in UTF-8; the reader
// converts them to the local encoding (or takes the bytes as they are when the local
// encoding is UTF-8), splits "uri|local" names and calls the document's builder operations.
//
// Use: construct, Init(), then ParseChunk(false) any number of times and ParseChunk(true)
// once. The parser is freed after the final chunk, on a parse error, and at the latest by
// the destructor.
class ORVEXXML_API CExpatReader : public CInstanceMonitor {
public:
    explicit CExpatReader(CXmlDocument& doc);
    ~CExpatReader() override;

    CExpatReader(const CExpatReader&) = delete;
    CExpatReader& operator=(const CExpatReader&) = delete;

    // Allocates the scratch buffer and the parser and sets the handlers: namespace
    // processing unless the document's schema type is DTD, CDATA markers unless the context
    // strips CDATA.
    void Init();
    // Hands the document's current buffer to expat. A parse error throws COxException with
    // "<expat's text> at line <n>"; an exception raised while building the tree (by the
    // element callback, or out of memory) reaches the caller unchanged.
    void ParseChunk(bool bFinal);

private:
    struct Handlers;
    friend struct Handlers;

    void StartElement(const char* pszName, const char** ppAttributes);
    void EndElement();
    void CharacterData(const char* pText, int nLength);
    void StartCData();
    void EndCData();
    void StartNamespaceDecl(const char* pszPrefix, const char* pszUri);

    // Stores the exception in flight and stops the parser (see Handlers in the source).
    void Abort();
    void Release();
    // UTF-8 to local text through the scratch buffer.
    std::string ConvertWithScratch(const char* pUtf8, size_t nLength);

    CXmlDocument& m_doc;
    unsigned char* m_pScratch;
    OxULong m_nScratchSize;
    XML_ParserStruct* m_parser;
    // Local encoding is UTF-8: expat's bytes go into the tree as they are.
    bool m_bLocalIsUtf8;
    // Namespace URI of the last converted element name, in UTF-8 and in local form, so that
    // a run of elements in one namespace converts its URI once.
    std::string m_strLastNamespaceUtf8;
    std::string m_strLastNamespaceLocal;
    // Element and text events so far; tells ParseChunk whether a piece made progress.
    uint64_t m_nEvents;
    // An exception raised inside a handler, to be rethrown once expat has returned.
    std::exception_ptr m_pendingException;
};

}  // namespace OrvexXml
