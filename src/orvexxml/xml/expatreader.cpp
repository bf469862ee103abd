#include "orvexxml/xml/expatreader.h"

#include <expat.h>

#include <climits>
#include <cstring>
#include <new>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/xml/xmldocument.h"

namespace OrvexXml {

namespace {

const OxULong kScratchSize = 1024;
// A chunk that is not the last goes to expat in pieces. expat copies what it is given into its
// own buffer before parsing (it keeps context bytes), and pieces of this size keep that buffer
// small and warm. The last chunk goes in one call: after every call that is not final, expat
// 2.5 brings its line and column count up to date by scanning every byte of the call once
// more, which costs several times the one copy of the input that a single final call makes.
const size_t kPieceSize = 0x40000;
// XML_Parse takes an int length.
const size_t kMaxPieceSize = 0x40000000;

const char kCDataStart[] = "<![CDATA[";
const char kCDataEnd[] = "]]>";

// A name from expat is "uri|local" with namespace processing, or the name as written.
// Local names can't hold "|"; current expat refuses a URI that holds it, and with an older
// one the last separator is still the right one. In UTF-8 a byte search is safe: "|" never
// occurs inside a multi-byte sequence.
struct SplitName {
    const char* pNamespace;
    size_t nNamespaceLength;
    const char* pLocal;
    size_t nLocalLength;
};

// One pass over the long part (the URI); only the short local name is measured again.
inline SplitName Split(const char* pszName) {
    const char* pBar = std::strrchr(pszName, '|');
    if (!pBar) return SplitName{"", 0, pszName, std::strlen(pszName)};
    return SplitName{pszName, static_cast<size_t>(pBar - pszName), pBar + 1, std::strlen(pBar + 1)};
}

}  // namespace

// The C callbacks that expat calls.
//
// expat is C code. Whether an exception may unwind through its frames depends on how it was
// compiled (with gcc only if built with -fexceptions, which a system expat need not be).
// So no exception ever leaves a handler: each one catches everything, keeps it as an
// exception_ptr, and stops the parser with XML_StopParser. XML_Parse then returns, and
// ParseChunk rethrows the original exception, with its dynamic type, after freeing the
// parser. expat may still deliver a few events after the stop; the handlers ignore them
// once an exception is pending.
struct CExpatReader::Handlers {
    static void XMLCALL OnStartElement(void* pUserData, const XML_Char* pszName, const XML_Char** ppAttributes) {
        CExpatReader* pReader = static_cast<CExpatReader*>(pUserData);
        if (pReader->m_pendingException) return;
        try {
            pReader->StartElement(pszName, ppAttributes);
        } catch (...) {
            pReader->Abort();
        }
    }

    static void XMLCALL OnEndElement(void* pUserData, const XML_Char*) {
        CExpatReader* pReader = static_cast<CExpatReader*>(pUserData);
        if (pReader->m_pendingException) return;
        try {
            pReader->EndElement();
        } catch (...) {
            pReader->Abort();
        }
    }

    static void XMLCALL OnCharacterData(void* pUserData, const XML_Char* pText, int nLength) {
        CExpatReader* pReader = static_cast<CExpatReader*>(pUserData);
        if (pReader->m_pendingException) return;
        try {
            pReader->CharacterData(pText, nLength);
        } catch (...) {
            pReader->Abort();
        }
    }

    static void XMLCALL OnStartCData(void* pUserData) {
        CExpatReader* pReader = static_cast<CExpatReader*>(pUserData);
        if (pReader->m_pendingException) return;
        try {
            pReader->StartCData();
        } catch (...) {
            pReader->Abort();
        }
    }

    static void XMLCALL OnEndCData(void* pUserData) {
        CExpatReader* pReader = static_cast<CExpatReader*>(pUserData);
        if (pReader->m_pendingException) return;
        try {
            pReader->EndCData();
        } catch (...) {
            pReader->Abort();
        }
    }

    static void XMLCALL OnStartNamespaceDecl(void* pUserData, const XML_Char* pszPrefix, const XML_Char* pszUri) {
        CExpatReader* pReader = static_cast<CExpatReader*>(pUserData);
        if (pReader->m_pendingException) return;
        try {
            pReader->StartNamespaceDecl(pszPrefix, pszUri);
        } catch (...) {
            pReader->Abort();
        }
    }

    // Declarations stay in the document's map after their element ends.
    static void XMLCALL OnEndNamespaceDecl(void*, const XML_Char*) {}
};

CExpatReader::CExpatReader(CXmlDocument& doc)
    : CInstanceMonitor("CExpatReader"),
      m_doc(doc),
      m_pScratch(nullptr),
      m_nScratchSize(0),
      m_parser(nullptr),
      m_bLocalIsUtf8(true),
      m_nEvents(0) {}

CExpatReader::~CExpatReader() { Release(); }

void CExpatReader::Release() {
    if (m_parser) {
        XML_ParserFree(m_parser);
        m_parser = nullptr;
    }
    if (m_pScratch) {
        ::operator delete(m_pScratch);
        m_pScratch = nullptr;
        m_nScratchSize = 0;
    }
}

void CExpatReader::Init() {
    Release();
    m_pendingException = nullptr;
    m_bLocalIsUtf8 = IsLocalEncodingUtf8();
    m_pScratch = static_cast<unsigned char*>(::operator new(kScratchSize));
    m_nScratchSize = kScratchSize;

    // The encoding argument is NULL: expat takes the encoding from a byte order mark or the
    // XML declaration. A schema language without namespaces gets the names as written.
    if (m_doc.m_eSchemaType != SchemaType_DTD)
        m_parser = XML_ParserCreateNS(nullptr, '|');
    else
        m_parser = XML_ParserCreate(nullptr);
    if (!m_parser) {
        Release();
        throw std::bad_alloc();
    }
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, &Handlers::OnStartElement, &Handlers::OnEndElement);
    XML_SetNamespaceDeclHandler(m_parser, &Handlers::OnStartNamespaceDecl, &Handlers::OnEndNamespaceDecl);
    XML_SetCharacterDataHandler(m_parser, &Handlers::OnCharacterData);
    // With CDATA kept, a section reaches the text with its markers; stripped, its content
    // arrives as plain character data.
    if (!m_doc.GetContext().GetStripCDATA())
        XML_SetCdataSectionHandler(m_parser, &Handlers::OnStartCData, &Handlers::OnEndCData);
    // No other handler: comments, processing instructions and the document type declaration
    // are parsed and dropped, and external entities are never fetched.
}

void CExpatReader::ParseChunk(bool bFinal) {
    if (!m_parser) throw COxInvalidStateException("The XML parser is not initialised or has finished");
    const char* pData = reinterpret_cast<const char*>(m_doc.m_pBuffer);
    size_t nRemaining = m_doc.m_nBufferLength;
    // expat 2.5 tokenises a token that is cut by the end of a piece again from its start when
    // the next piece arrives. While a piece yields no event at all, expat is inside one large
    // token (a huge attribute value, say): the next piece is twice as large, so such a token
    // costs a bounded number of rescans instead of one per piece.
    size_t nPieceSize = bFinal ? kMaxPieceSize : kPieceSize;
    do {
        size_t nPiece = nRemaining > nPieceSize ? nPieceSize : nRemaining;
        bool bLast = nPiece == nRemaining;
        uint64_t nEventsBefore = m_nEvents;
        XML_Status status;
        if (bFinal && bLast && pData == reinterpret_cast<const char*>(m_doc.m_pBuffer) && nPiece > 0) {
            // The whole input in one final call. expat would copy it into its own buffer
            // anyway: copied there by hand, the document's copy can go before the tree grows,
            // so that the input is not held twice at the peak (a caller's buffer stays the
            // caller's).
            // A buffer that can't be had is expat's "out of memory", as from XML_Parse.
            void* pTarget = XML_GetBuffer(m_parser, static_cast<int>(nPiece));
            if (pTarget) {
                std::memcpy(pTarget, pData, nPiece);
                m_doc.FreeBuffer();
                status = XML_ParseBuffer(m_parser, static_cast<int>(nPiece), XML_TRUE);
            } else {
                status = XML_STATUS_ERROR;
            }
        } else {
            status = XML_Parse(m_parser, pData, static_cast<int>(nPiece), bLast && bFinal ? XML_TRUE : XML_FALSE);
        }
        if (m_pendingException) {
            std::exception_ptr pending = m_pendingException;
            m_pendingException = nullptr;
            Release();
            std::rethrow_exception(pending);
        }
        if (status == XML_STATUS_ERROR) {
            const XML_LChar* pszError = XML_ErrorString(XML_GetErrorCode(m_parser));
            unsigned long nLine = static_cast<unsigned long>(XML_GetCurrentLineNumber(m_parser));
            std::string strMessage = FormatString("%s at line %lu", pszError ? pszError : "unknown error", nLine);
            Release();
            throw COxException(strMessage);
        }
        nRemaining -= nPiece;
        if (nRemaining == 0) break;  // the input may be gone (see above)
        pData += nPiece;
        if (bFinal)
            nPieceSize = kMaxPieceSize;
        else if (m_nEvents != nEventsBefore)
            nPieceSize = kPieceSize;
        else if (nPieceSize < kMaxPieceSize)
            nPieceSize *= 2;
    } while (nRemaining > 0);
    if (bFinal) Release();
}

void CExpatReader::Abort() {
    m_pendingException = std::current_exception();
    XML_StopParser(m_parser, XML_FALSE);
}

std::string CExpatReader::ConvertWithScratch(const char* pUtf8, size_t nLength) {
    // First half: UTF-16 code units; second half: the narrow result.
    char16_t* pWide = reinterpret_cast<char16_t*>(m_pScratch);
    char* pNarrow = reinterpret_cast<char*>(m_pScratch + m_nScratchSize / 2);
    return Utf8ToLocal(pUtf8, nLength, pWide, m_nScratchSize / 4, pNarrow, m_nScratchSize / 2);
}

void CExpatReader::StartElement(const char* pszName, const char** ppAttributes) {
    ++m_nEvents;
    SplitName name = Split(pszName);
    CXmlElement* pElement;
    if (m_bLocalIsUtf8) {
        pElement = m_doc.m_pDocumentElement
                       ? m_doc.AddChildElement(name.pNamespace, name.nNamespaceLength, name.pLocal, name.nLocalLength)
                       : m_doc.AddDocElement(name.pNamespace, name.nNamespaceLength, name.pLocal, name.nLocalLength);
    } else {
        // Split in UTF-8, where "|" can't be part of a multi-byte character, then convert
        // both parts. The URI is converted once per run of elements in the same namespace.
        if (m_strLastNamespaceUtf8.size() != name.nNamespaceLength ||
            m_strLastNamespaceUtf8.compare(0, name.nNamespaceLength, name.pNamespace, name.nNamespaceLength) != 0) {
            m_strLastNamespaceLocal = ConvertWithScratch(name.pNamespace, name.nNamespaceLength);
            m_strLastNamespaceUtf8.assign(name.pNamespace, name.nNamespaceLength);
        }
        std::string strLocal = ConvertWithScratch(name.pLocal, name.nLocalLength);
        const std::string& strNamespace = m_strLastNamespaceLocal;
        pElement =
            m_doc.m_pDocumentElement
                ? m_doc.AddChildElement(strNamespace.data(), strNamespace.size(), strLocal.data(), strLocal.size())
                : m_doc.AddDocElement(strNamespace.data(), strNamespace.size(), strLocal.data(), strLocal.size());
    }

    if (!ppAttributes || !ppAttributes[0]) return;
    size_t nCount = 0;
    while (ppAttributes[2 * nCount]) ++nCount;
    m_doc.ReserveAttributes(pElement, nCount);
    for (size_t i = 0; i < nCount; ++i) {
        SplitName attribute = Split(ppAttributes[2 * i]);
        const char* pszValue = ppAttributes[2 * i + 1];
        if (m_bLocalIsUtf8) {
            m_doc.AddAttribute(pElement, attribute.pLocal, attribute.nLocalLength, pszValue, std::strlen(pszValue),
                               attribute.pNamespace, attribute.nNamespaceLength);
        } else {
            std::string strLocal = Utf8ToLocal(attribute.pLocal, attribute.nLocalLength);
            std::string strValue = Utf8ToLocal(pszValue);
            std::string strNamespace = Utf8ToLocal(attribute.pNamespace, attribute.nNamespaceLength);
            m_doc.AddAttribute(pElement, strLocal.data(), strLocal.size(), strValue.data(), strValue.size(),
                               strNamespace.data(), strNamespace.size());
        }
    }
}

void CExpatReader::EndElement() {
    ++m_nEvents;
    m_doc.EndElement();
}

void CExpatReader::CharacterData(const char* pText, int nLength) {
    ++m_nEvents;
    if (nLength <= 0) return;
    CXmlElement* pElement = m_doc.GetCurrentElement();
    if (!pElement) return;  // expat reports text only inside an element
    // XML text can't hold the character 0 (expat refuses even "&#0;"), so neither the text
    // nor its conversion has a null byte to stop at.
    if (m_bLocalIsUtf8) {
        m_doc.AppendRun(pElement, pText, static_cast<size_t>(nLength));
    } else {
        std::string strText = ConvertWithScratch(pText, static_cast<size_t>(nLength));
        m_doc.AppendRun(pElement, strText.data(), strText.size());
    }
}

void CExpatReader::StartCData() {
    CXmlElement* pElement = m_doc.GetCurrentElement();
    if (pElement) CXmlDocument::AppendTextExcludingCR(pElement, kCDataStart);
}

void CExpatReader::EndCData() {
    CXmlElement* pElement = m_doc.GetCurrentElement();
    if (pElement) CXmlDocument::AppendTextExcludingCR(pElement, kCDataEnd);
}

void CExpatReader::StartNamespaceDecl(const char* pszPrefix, const char* pszUri) {
    pszPrefix = pszPrefix ? pszPrefix : "";
    pszUri = pszUri ? pszUri : "";
    if (m_bLocalIsUtf8)
        m_doc.m_mapAliases[pszPrefix] = pszUri;
    else
        m_doc.m_mapAliases[Utf8ToLocal(pszPrefix)] = Utf8ToLocal(pszUri);
}

}  // namespace OrvexXml
