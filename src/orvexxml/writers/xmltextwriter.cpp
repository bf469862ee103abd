#include "orvexxml/writers/xmltextwriter.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/writers/textlayout.h"

namespace OrvexXml {

namespace {

// Appends a string literal without measuring it at run time.
template <size_t N>
inline void PutLiteral(CTextStream* pStream, const char (&szText)[N]) {
    pStream->WriteString(szText, N - 1);
}

// Marks the bytes that the escaper must stop at, one table per mode. The terminator is
// marked too, so the scan needs no separate length check.
struct CEscapeTables {
    unsigned char abText[256];
    unsigned char abAttribute[256];
};

constexpr CEscapeTables MakeEscapeTables() {
    CEscapeTables tables{};
    const unsigned char abSpecial[] = {'\0', '\n', '\r', '&', '<', '>'};
    for (unsigned char c : abSpecial) {
        tables.abText[c] = 1;
        tables.abAttribute[c] = 1;
    }
    tables.abAttribute[static_cast<unsigned char>('"')] = 1;
    return tables;
}

constexpr CEscapeTables g_escapeTables = MakeEscapeTables();

const char g_szCDataStart[] = "<![CDATA[";

const std::string& XsiNamespace() {
    static const std::string s_str(CXmlWriter::XsiNamespaceURI);
    return s_str;
}

}  // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream* pStream) : CXmlTextWriter("CXmlTextWriter", pStream) {}

CXmlTextWriter::CXmlTextWriter(const char* pszClassName, CTextStream* pStream)
    : CXmlWriter(pszClassName),
      m_bWriteDefaultValues(false),
      m_strIndentChars("\t"),
      m_strEOL("\n"),
      m_eEOLType(EOLType_LF),
      m_bFormatted(true),
      m_bCheckCharacters(false),
      m_nMaxDepth(INT32_MAX),
      m_pStream(pStream) {}

CXmlTextWriter::~CXmlTextWriter() {}

void CXmlTextWriter::StartDocument() {
    CXmlWriter::StartDocument();
    m_pStream->Start();
}

void CXmlTextWriter::EndDocument() {
    m_pStream->End();
    CXmlWriter::EndDocument();
}

void CXmlTextWriter::SetEOLType(EOLType eEOLType) {
    m_strEOL = EOLText(eEOLType);
    m_eEOLType = eEOLType;
}

void CXmlTextWriter::SetIndentChars(const char* pszIndentChars) {
    m_strIndentChars = pszIndentChars ? pszIndentChars : "";
    m_strIndentRun.clear();
}

void CXmlTextWriter::WriteIndent(uint32_t nDepth) {
    WriteIndentRun(m_pStream, m_strIndentChars, m_strIndentRun, nDepth);
}

void CXmlTextWriter::WriteNamespaceDeclaration(const std::string& strPrefix, const std::string& strNamespace) {
    PutLiteral(m_pStream, "xmlns:");
    m_pStream->WriteString(strPrefix);
    PutLiteral(m_pStream, "=\"");
    WriteNamespaceURI(strNamespace);
    m_pStream->WriteChar('"');
}

// A namespace name is compared character for character, so it is written to read back exactly:
// markup characters as entities, and the whitespace that attribute values normalise as
// character references. A URI of the usual kind passes unchanged. Namespaces read from a
// document (open content keeps them) may hold any of these.
void CXmlTextWriter::WriteNamespaceURI(const std::string& strNamespace) {
    size_t nRun = 0;
    for (size_t i = 0; i < strNamespace.size(); ++i) {
        const char* pszEntity;
        switch (strNamespace[i]) {
            case '&':
                pszEntity = "&amp;";
                break;
            case '<':
                pszEntity = "&lt;";
                break;
            case '>':
                pszEntity = "&gt;";
                break;
            case '"':
                pszEntity = "&quot;";
                break;
            case '\t':
                pszEntity = "&#x9;";
                break;
            case '\n':
                pszEntity = "&#xA;";
                break;
            case '\r':
                pszEntity = "&#xD;";
                break;
            default:
                continue;
        }
        m_pStream->WriteString(strNamespace.data() + nRun, i - nRun);
        m_pStream->WriteString(pszEntity);
        nRun = i + 1;
    }
    m_pStream->WriteString(strNamespace.data() + nRun, strNamespace.size() - nRun);
}

void CXmlTextWriter::CheckInStartTag() const {
    if (!m_pContext || !m_pContext->m_bInStartTag) throw COxException("Attributes must be added before elements");
}

void CXmlTextWriter::WriteHeader() {
    PutLiteral(m_pStream, "<?xml version=\"1.0\"");
    switch (m_pStream->GetEncoding()) {
        case XmlEncoding_UTF8:
            PutLiteral(m_pStream, " encoding=\"UTF-8\"");
            break;
        case XmlEncoding_UTF16:
            PutLiteral(m_pStream, " encoding=\"UTF-16\"");
            break;
        default:  // None and UTF16NoDeclaration name no encoding
            break;
    }
    PutLiteral(m_pStream, "?>");
    WriteEOL();
    FlushIfLarge();
}

void CXmlTextWriter::WriteComment(const std::string& strText) {
    PutLiteral(m_pStream, "<!--");
    EscapeAndWrite(strText.c_str(), false);
    PutLiteral(m_pStream, "-->");
    WriteEOL();
    FlushIfLarge();
}

void CXmlTextWriter::WriteProcessingInstruction(const std::string& strText) {
    m_pStream->WriteString(strText);
    WriteEOL();
    WriteEOL();
    FlushIfLarge();
}

void CXmlTextWriter::WriteInLineSchema(const std::string& strText) {
    m_pStream->WriteChar(' ');
    WriteEOL();
    m_pStream->WriteString(strText);
    WriteEOL();
    FlushIfLarge();
}

void CXmlTextWriter::CloseStartTag() {
    if (!m_pContext) return;
    ++m_pContext->m_nChildCount;
    if (m_pContext->m_bInStartTag) {
        m_pContext->m_bInStartTag = false;
        m_pStream->WriteChar('>');
        if (m_bFormatted) WriteEOL();
    }
}

void CXmlTextWriter::WriteRaw(const std::string& strText) {
    m_pStream->WriteString(strText);
    if (m_bFormatted) WriteEOL();
}

void CXmlTextWriter::WriteStartElement(const std::string& strName, const std::string& strNamespace) {
    // m_nDepth counts from 0 at the root; the limit counts levels from 1.
    if (m_pContext && m_pContext->m_nDepth + 2 > static_cast<uint32_t>(m_nMaxDepth))
        CSerializationContext::ThrowTooDeep(m_nMaxDepth, GetElementPath() + "/" + strName);
    CloseStartTag();
    CXmlWriterContext* pNew = CreateContext(strName, strNamespace);
    try {
        pNew->m_bInStartTag = true;
        if (m_bFormatted) WriteIndent(pNew->m_nDepth);
        m_pStream->WriteChar('<');

        const CXmlWriterContext* pParent = m_pContext;
        if (pParent && !pParent->m_strPrefix.empty() &&
            pParent->m_nPrefixGeneration == CXmlWriterContext::ScopeGeneration() &&
            pParent->m_strNamespace == strNamespace) {
            // A new element shares its parent's scope. While no scope has changed since the
            // parent's start tag, the parent's prefix is what a lookup of the same namespace
            // would give, and the namespace still differs from the default.
            pNew->m_strPrefix.assign(pParent->m_strPrefix);
            pNew->m_nPrefixGeneration = pParent->m_nPrefixGeneration;
            m_pStream->WriteString(pNew->m_strPrefix);
            m_pStream->WriteString(strName);
        } else if (!strNamespace.empty() && strNamespace != pNew->GetDefaultNamespace()) {
            const NamespaceMap& mapNamespaces = pNew->GetNamespaceMap();
            NamespaceMap::const_iterator it = mapNamespaces.find(strNamespace);
            if (it != mapNamespaces.end()) {
                pNew->m_strPrefix.assign(it->second).push_back(':');
                m_pStream->WriteString(pNew->m_strPrefix);
                m_pStream->WriteString(strName);
            } else {
                std::string strPrefix = GenerateNamespacePrefix(mapNamespaces);
                pNew->SetNamespaceMapValue(strNamespace, strPrefix);
                pNew->m_strPrefix.assign(strPrefix).push_back(':');
                m_pStream->WriteString(pNew->m_strPrefix);
                m_pStream->WriteString(strName);
                m_pStream->WriteChar(' ');
                WriteNamespaceDeclaration(strPrefix, strNamespace);
            }
            // Taken after the map change above: the end tag may reuse the prefix as long as no
            // scope changes in between.
            pNew->m_nPrefixGeneration = CXmlWriterContext::ScopeGeneration();
        } else {
            // An element in no namespace under a default namespace gets no undeclaration.
            m_pStream->WriteString(strName);
        }

        if (!m_pContext) {
            // The root carries the declarations registered for the document, by ascending URI.
            if (!m_strDefaultNamespace.empty()) {
                PutLiteral(m_pStream, " xmlns=\"");
                WriteNamespaceURI(m_strDefaultNamespace);
                m_pStream->WriteChar('"');
            }
            for (NamespaceMap::const_iterator it = m_mapNamespaces.begin(); it != m_mapNamespaces.end(); ++it) {
                if (it->first == XmlNamespaceURI) continue;  // "xml" is implicit
                m_pStream->WriteChar(' ');
                WriteNamespaceDeclaration(it->second, it->first);
            }
        }
        FlushIfLarge();
    } catch (...) {
        DestroyContext(pNew);
        throw;
    }
    m_pContext = pNew;
}

void CXmlTextWriter::WriteElementText(const std::string& strValue, ItemType /*eType*/, bool bIsDefaultValue) {
    if (strValue.empty()) return;
    if (bIsDefaultValue && !m_bWriteDefaultValues) return;
    if (m_bCheckCharacters) CheckCharacters(strValue, nullptr);
    if (m_pContext && m_pContext->m_bInStartTag) {
        m_pStream->WriteChar('>');
        m_pContext->m_bInStartTag = false;
    }
    const char* pszValue = strValue.c_str();
    if (pszValue[0] == '<' && std::strncmp(pszValue, g_szCDataStart, sizeof(g_szCDataStart) - 1) == 0)
        WriteCDataText(pszValue);
    else
        EscapeAndWrite(pszValue, false);
    FlushIfLarge();
}

void CXmlTextWriter::WriteEndElement() {
    CXmlWriterContext* pContext = m_pContext;
    if (!pContext) throw COxException("There is no open element to end.");
    if (pContext->m_bInStartTag) {
        PutLiteral(m_pStream, "/>");
    } else {
        // An element that holds only text keeps its end tag on the same line.
        if (m_bFormatted && pContext->m_nChildCount != 0) WriteIndent(pContext->m_nDepth);
        PutLiteral(m_pStream, "</");
        // The prefix is looked up in the scope as it is now. While no scope has changed since
        // the start tag, that is the prefix the start tag found, kept in the context.
        const std::string& strNamespace = pContext->m_strNamespace;
        if (!pContext->m_strPrefix.empty() && pContext->m_nPrefixGeneration == CXmlWriterContext::ScopeGeneration()) {
            m_pStream->WriteString(pContext->m_strPrefix);
        } else if (!strNamespace.empty() && strNamespace != pContext->GetDefaultNamespace()) {
            m_pStream->WriteString(pContext->GetNamespaceMapValue(strNamespace));
            m_pStream->WriteChar(':');
        }
        m_pStream->WriteString(pContext->m_strName);
        m_pStream->WriteChar('>');
    }
    if (m_bFormatted) WriteEOL();
    FlushIfLarge();
    PopContext();
}

void CXmlTextWriter::WriteAttribute(const std::string& strName, const std::string& strNamespace,
                                    const std::string& strValue, ItemType /*eType*/) {
    CheckInStartTag();
    if (m_bCheckCharacters) CheckCharacters(strValue, strName.c_str());
    m_pStream->WriteChar(' ');
    if (!strNamespace.empty()) {
        // Unprefixed attributes are in no namespace, so even the default namespace needs a
        // prefix here.
        const NamespaceMap& mapNamespaces = m_pContext->GetNamespaceMap();
        NamespaceMap::const_iterator it = mapNamespaces.find(strNamespace);
        if (it != mapNamespaces.end()) {
            m_pStream->WriteString(it->second);
        } else {
            std::string strPrefix = GenerateNamespacePrefix(mapNamespaces);
            m_pContext->SetNamespaceMapValue(strNamespace, strPrefix);
            WriteNamespaceDeclaration(strPrefix, strNamespace);
            m_pStream->WriteChar(' ');
            m_pStream->WriteString(strPrefix);
        }
        m_pStream->WriteChar(':');
    }
    m_pStream->WriteString(strName);
    PutLiteral(m_pStream, "=\"");
    EscapeAndWrite(strValue.c_str(), true);
    m_pStream->WriteChar('"');
    FlushIfLarge();
}

void CXmlTextWriter::WriteXsiType(const std::string& strNamespace, const std::string& strTypeName, ItemType eType) {
    CheckInStartTag();
    if (!strNamespace.empty() && strNamespace != m_pContext->GetDefaultNamespace()) {
        const NamespaceMap& mapNamespaces = m_pContext->GetNamespaceMap();
        NamespaceMap::const_iterator it = mapNamespaces.find(strNamespace);
        std::string strPrefix;
        if (it != mapNamespaces.end()) {
            strPrefix = it->second;
        } else {
            strPrefix = GenerateNamespacePrefix(mapNamespaces);
            m_pContext->SetNamespaceMapValue(strNamespace, strPrefix);
            m_pStream->WriteChar(' ');
            WriteNamespaceDeclaration(strPrefix, strNamespace);
            m_pStream->WriteChar(' ');
        }
        WriteAttribute("type", XsiNamespace(), strPrefix + ":" + strTypeName, eType);
    } else {
        WriteAttribute("type", XsiNamespace(), strTypeName, eType);
    }
}

void CXmlTextWriter::WriteXsiNil() {
    CheckInStartTag();
    WriteAttribute("nil", XsiNamespace(), "true", ItemType_boolean);
}

// A value that begins with a CDATA section (read with CDATA kept, or set so by the caller)
// goes out with its complete sections unchanged. Text outside them, an unterminated section
// included, is escaped: written raw it could close the element or open markup that the value
// never held ("<![CDATA[x]]></Name><Injected/>").
void CXmlTextWriter::WriteCDataText(const char* pszValue) {
    // Like the escaper, this reads the value as a null-terminated text.
    const std::string_view value(pszValue);
    const std::string_view start(g_szCDataStart, sizeof(g_szCDataStart) - 1);
    const std::string_view end("]]>");
    size_t nPos = 0;
    while (nPos < value.size()) {
        size_t nEnd = std::string_view::npos;
        if (value.compare(nPos, start.size(), start) == 0) nEnd = value.find(end, nPos + start.size());
        if (nEnd != std::string_view::npos) {
            nEnd += end.size();
            m_pStream->WriteString(pszValue + nPos, nEnd - nPos);
            nPos = nEnd;
            continue;
        }
        // Text up to the next complete section, or to the end. If the next start has no end,
        // no later one has either.
        size_t nNext = value.find(start, nPos + 1);
        if (nNext != std::string_view::npos && value.find(end, nNext + start.size()) == std::string_view::npos)
            nNext = std::string_view::npos;
        if (nNext == std::string_view::npos) {
            EscapeAndWrite(pszValue + nPos, false);
            return;
        }
        EscapeAndWrite(std::string(value.substr(nPos, nNext - nPos)).c_str(), false);
        nPos = nNext;
    }
}

void CXmlTextWriter::CheckCharacters(const std::string& strValue, const char* pszAttribute) const {
    // XML 1.0 allows tab, LF and CR below 0x20 and nothing else, not even as a character
    // reference. Bytes from 0x80 up belong to the local encoding and are its business.
    for (size_t i = 0; i < strValue.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(strValue[i]);
        if (c >= 0x20 || c == '\t' || c == '\n' || c == '\r') continue;
        std::string strPath = GetElementPath();
        if (pszAttribute) strPath.append("/@").append(pszAttribute);
        throw COxInvalidValueException(COxException(
            FormatString("The value holds the byte 0x%02X at offset %d, which XML 1.0 can't carry; remove it, or "
                         "store the data as binary (base64) instead of text.",
                         c, static_cast<int>(i)),
            strPath));
    }
}

void CXmlTextWriter::EscapeAndWrite(const char* pszText, bool bAttribute) {
    const unsigned char* pTable = bAttribute ? g_escapeTables.abAttribute : g_escapeTables.abText;
    const char* p = pszText;
    for (;;) {
        // Find the next byte that needs attention; everything before it goes out in one piece.
        const char* pRun = p;
        for (;;) {
            if (pTable[static_cast<unsigned char>(p[0])]) break;
            if (pTable[static_cast<unsigned char>(p[1])]) {
                p += 1;
                break;
            }
            if (pTable[static_cast<unsigned char>(p[2])]) {
                p += 2;
                break;
            }
            if (pTable[static_cast<unsigned char>(p[3])]) {
                p += 3;
                break;
            }
            p += 4;
        }
        if (p != pRun) m_pStream->WriteString(pRun, static_cast<size_t>(p - pRun));

        switch (*p) {
            case '\0':
                return;
            case '\n':
                if (bAttribute)
                    PutLiteral(m_pStream, "&#xA;");
                else
                    WriteEOL();
                break;
            case '\r':
                // Line ends inside the library are LF; a stray CR is dropped.
                break;
            case '"':
                PutLiteral(m_pStream, "&quot;");
                break;
            case '&':
                PutLiteral(m_pStream, "&amp;");
                break;
            case '<':
                PutLiteral(m_pStream, "&lt;");
                break;
            case '>':
                PutLiteral(m_pStream, "&gt;");
                break;
        }
        ++p;
    }
}

}  // namespace OrvexXml
