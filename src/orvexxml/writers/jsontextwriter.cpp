#include "orvexxml/writers/jsontextwriter.h"

#include <cstring>
#include <string>

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

// Marks the bytes that the escaper must stop at: the terminator, the control bytes, the
// double quote and the backslash.
struct CEscapeTable {
    unsigned char ab[256];
};

constexpr CEscapeTable MakeEscapeTable() {
    CEscapeTable table{};
    for (int c = 0; c < 0x20; ++c) table.ab[c] = 1;
    table.ab[static_cast<unsigned char>('"')] = 1;
    table.ab[static_cast<unsigned char>('\\')] = 1;
    return table;
}

constexpr CEscapeTable g_escapeTable = MakeEscapeTable();

const std::string& XsiNamespace() {
    static const std::string s_str(CXmlWriter::XsiNamespaceURI);
    return s_str;
}

inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Whether strText is a number in JSON's grammar: an optional minus, an integer part without
// leading zeros, an optional fraction and an optional exponent. "INF", "NaN", "+1", ".5" and
// "1." are not.
bool IsJsonNumber(const std::string& strText) {
    const char* p = strText.c_str();
    const char* pEnd = p + strText.size();
    if (p != pEnd && *p == '-') ++p;
    if (p == pEnd) return false;
    if (*p == '0') {
        ++p;
    } else if (IsDigit(*p)) {
        while (p != pEnd && IsDigit(*p)) ++p;
    } else {
        return false;
    }
    if (p != pEnd && *p == '.') {
        ++p;
        if (p == pEnd || !IsDigit(*p)) return false;
        while (p != pEnd && IsDigit(*p)) ++p;
    }
    if (p != pEnd && (*p == 'e' || *p == 'E')) {
        ++p;
        if (p != pEnd && (*p == '+' || *p == '-')) ++p;
        if (p == pEnd || !IsDigit(*p)) return false;
        while (p != pEnd && IsDigit(*p)) ++p;
    }
    return p == pEnd;
}

// The kinds whose text stands bare: the sized integers, the floats, boolean, decimal and
// integer.
inline bool IsBareType(ItemType eType) {
    return (eType >= ItemType_i1 && eType <= ItemType_r8) || eType == ItemType_boolean || eType == ItemType_decimal ||
           eType == ItemType_integer;
}

}  // namespace

CJsonTextWriter::CJsonTextWriter(CTextStream* pStream)
    : CXmlWriter("CJsonTextWriter"),
      m_strIndentChars("\t"),
      m_strEOL("\n"),
      m_eEOLType(EOLType_LF),
      m_eRoundTrip(JsonRoundTrip_Full),
      m_bFormatted(true),
      m_pStream(pStream),
      m_bValuePending(false),
      m_bScalarWritten(false) {}

CJsonTextWriter::~CJsonTextWriter() {}

void CJsonTextWriter::StartDocument() {
    CXmlWriter::StartDocument();
    m_pStream->Start();
}

void CJsonTextWriter::EndDocument() {
    m_pStream->End();
    CXmlWriter::EndDocument();
}

void CJsonTextWriter::SetEOLType(EOLType eEOLType) {
    m_strEOL = EOLText(eEOLType);
    m_eEOLType = eEOLType;
}

void CJsonTextWriter::SetIndentChars(const char* pszIndentChars) {
    m_strIndentChars = pszIndentChars ? pszIndentChars : "";
    m_strIndentRun.clear();
}

void CJsonTextWriter::WriteIndent(uint32_t nDepth) {
    WriteIndentRun(m_pStream, m_strIndentChars, m_strIndentRun, nDepth);
}

void CJsonTextWriter::WriteHeader() {
    m_pStream->WriteChar('{');
    if (m_bFormatted) WriteEOL();
    FlushIfLarge();
}

void CJsonTextWriter::WriteFooter() {
    if (m_bFormatted) WriteEOL();
    m_pStream->WriteChar('}');
}

void CJsonTextWriter::WriteComment(const std::string& strText) {
    PutLiteral(m_pStream, "/* ");
    EscapeAndWrite(strText.c_str());
    PutLiteral(m_pStream, " */");
    WriteEOL();
    FlushIfLarge();
}

void CJsonTextWriter::WriteProcessingInstruction(const std::string&) {}

void CJsonTextWriter::WriteInLineSchema(const std::string&) {}

void CJsonTextWriter::WriteXsiNil() {}

void CJsonTextWriter::WriteMemberName(bool bAttribute, const std::string& strPrefix, const std::string& strName) {
    if (bAttribute)
        PutLiteral(m_pStream, "\"@");
    else
        m_pStream->WriteChar('"');
    // An empty string would take the buffer's slow path.
    if (!strPrefix.empty()) m_pStream->WriteString(strPrefix);
    m_pStream->WriteString(strName);
    PutLiteral(m_pStream, "\": ");
}

void CJsonTextWriter::WriteDeclaration(CXmlWriterContext* pContext, const std::string& strPrefix,
                                       const std::string& strNamespace) {
    BeginMember(pContext);
    if (m_bFormatted) WriteIndent(pContext->m_nDepth + 1);
    if (strPrefix.empty()) {
        PutLiteral(m_pStream, "\"@xmlns\": \"");
    } else {
        PutLiteral(m_pStream, "\"@xmlns:");
        m_pStream->WriteString(strPrefix);
        PutLiteral(m_pStream, "\": \"");
    }
    // A URI of the usual kind passes unchanged; one read from a document may hold a quote or
    // a control character, which a JSON string can only carry escaped.
    EscapeAndWrite(strNamespace.c_str());
    m_pStream->WriteChar('"');
    m_bValuePending = false;
}

void CJsonTextWriter::ThrowHoldsValue() const {
    throw COxException(
        FormatString("The element %s holds a value already; JSON has no place for a further value or member of it.",
                     m_pContext ? m_pContext->m_strName.c_str() : ""),
        GetElementPath());
}

void CJsonTextWriter::BeginMember(CXmlWriterContext* pContext) {
    if (m_bValuePending) {
        if (m_bScalarWritten) ThrowHoldsValue();
        if (pContext->m_pParent && pContext->m_pParent->m_nCollectionState == 1) OpenArray(pContext);
        m_pStream->WriteChar('{');
    } else {
        m_pStream->WriteChar(',');
    }
    if (m_bFormatted) WriteEOL();
}

void CJsonTextWriter::OpenArray(CXmlWriterContext* pContext) {
    pContext->m_pParent->m_nCollectionState = 2;
    m_pStream->WriteChar('[');
    if (m_bFormatted) {
        for (CXmlWriterContext* p = pContext; p; p = p->m_pParent) ++p->m_nDepth;
        WriteEOL();
        WriteIndent(pContext->m_nDepth);
    }
}

void CJsonTextWriter::CloseArray(CXmlWriterContext* pContext) {
    pContext->m_nCollectionState = 0;
    if (m_bFormatted) {
        WriteEOL();
        WriteIndent(pContext->m_nDepth);
        for (CXmlWriterContext* p = pContext; p; p = p->m_pParent) {
            if (p->m_nDepth > 1) --p->m_nDepth;
        }
    }
    m_pStream->WriteChar(']');
}

void CJsonTextWriter::SetCollectionState(uint32_t nState) {
    if (!m_pContext) return;
    if (nState == 3 && m_pContext->m_nCollectionState == 2)
        CloseArray(m_pContext);
    else if (nState == 3 && m_pContext->m_nCollectionState == 1)
        m_pContext->m_nCollectionState = 0;
    else
        m_pContext->m_nCollectionState = nState;
}

const std::string& CJsonTextWriter::PrefixOf(const CXmlWriterContext* pContext, const std::string& strNamespace) const {
    const NamespaceMap& mapNamespaces = pContext->GetNamespaceMap();
    NamespaceMap::const_iterator it = mapNamespaces.find(strNamespace);
    if (it == mapNamespaces.end()) throw COxException(FormatString("Unknown Namespace: %s.", strNamespace.c_str()));
    return it->second;
}

void CJsonTextWriter::WriteStartElement(const std::string& strName, const std::string& strNamespace) {
    bool bWriteName = true;
    if (m_pContext) {
        bWriteName = m_pContext->m_nCollectionState != 2;
        BeginMember(m_pContext);
    }
    const CXmlWriterContext* pParent = m_pContext;
    CXmlWriterContext* pNew = CreateContext(strName, strNamespace);
    try {
        if (!pParent) pNew->m_nDepth = 1;
        if (m_bFormatted) WriteIndent(pNew->m_nDepth);
        m_bScalarWritten = false;
        m_bValuePending = true;
        if (m_eRoundTrip != JsonRoundTrip_Full) {
            if (bWriteName) WriteMemberName(false, std::string(), strName);
        } else if (pParent && !pParent->m_strPrefix.empty() &&
                   pParent->m_nPrefixGeneration == CXmlWriterContext::ScopeGeneration() &&
                   pParent->m_strNamespace == strNamespace) {
            // A child in its parent's namespace, with no scope changed since the parent took
            // its prefix: the lookup would give the same prefix.
            pNew->m_strPrefix.assign(pParent->m_strPrefix);
            pNew->m_nPrefixGeneration = pParent->m_nPrefixGeneration;
            if (bWriteName) WriteMemberName(false, pNew->m_strPrefix, strName);
        } else if (strNamespace.empty() || strNamespace == pNew->GetDefaultNamespace()) {
            if (bWriteName) WriteMemberName(false, std::string(), strName);
        } else {
            const NamespaceMap& mapNamespaces = pNew->GetNamespaceMap();
            NamespaceMap::const_iterator it = mapNamespaces.find(strNamespace);
            if (it != mapNamespaces.end()) {
                pNew->m_strPrefix.assign(it->second).push_back(':');
                pNew->m_nPrefixGeneration = CXmlWriterContext::ScopeGeneration();
                if (bWriteName) WriteMemberName(false, pNew->m_strPrefix, strName);
            } else if (!pParent) {
                std::string strPrefix = GenerateNamespacePrefix(mapNamespaces);
                pNew->SetNamespaceMapValue(strNamespace, strPrefix);
                pNew->m_strPrefix.assign(strPrefix).push_back(':');
                pNew->m_nPrefixGeneration = CXmlWriterContext::ScopeGeneration();
                WriteMemberName(false, pNew->m_strPrefix, strName);
                WriteDeclaration(pNew, strPrefix, strNamespace);
            } else if (bWriteName) {
                // Only the root can declare a prefix: the members of an object can't precede
                // its name, so a declaration below it would come too late. An item of an
                // array has no name to prefix.
                throw COxException(FormatString("Unknown Namespace: %s.", strNamespace.c_str()));
            }
        }
        if (!pParent && m_eRoundTrip == JsonRoundTrip_Full) {
            // The declarations registered for the document, the default one first, then by
            // ascending URI; "xml" is implicit.
            if (!m_strDefaultNamespace.empty()) WriteDeclaration(pNew, std::string(), m_strDefaultNamespace);
            const size_t nXmlLength = std::strlen(XmlNamespaceURI);
            for (NamespaceMap::const_iterator it = m_mapNamespaces.begin(); it != m_mapNamespaces.end(); ++it) {
                if (it->first.compare(0, nXmlLength, XmlNamespaceURI) == 0) continue;
                WriteDeclaration(pNew, it->second, it->first);
            }
        }
        FlushIfLarge();
    } catch (...) {
        DestroyContext(pNew);
        throw;
    }
    m_pContext = pNew;
}

void CJsonTextWriter::WriteAttribute(const std::string& strName, const std::string& strNamespace,
                                     const std::string& strValue, ItemType eType) {
    if (!m_pContext) throw COxException("Attributes must be added before elements");
    const std::string* pPrefix = nullptr;
    if (!strNamespace.empty() && m_eRoundTrip == JsonRoundTrip_Full) pPrefix = &PrefixOf(m_pContext, strNamespace);
    BeginMember(m_pContext);
    if (m_bFormatted) WriteIndent(m_pContext->m_nDepth + 1);
    if (pPrefix) {
        PutLiteral(m_pStream, "\"@");
        m_pStream->WriteString(*pPrefix);
        m_pStream->WriteChar(':');
        m_pStream->WriteString(strName);
        PutLiteral(m_pStream, "\": ");
    } else {
        WriteMemberName(m_eRoundTrip != JsonRoundTrip_None, std::string(), strName);
    }
    WriteValue(strValue, eType);
    m_bValuePending = false;
}

void CJsonTextWriter::WriteXsiType(const std::string& strNamespace, const std::string& strTypeName, ItemType eType) {
    if (m_eRoundTrip != JsonRoundTrip_Full) return;
    if (!m_pContext) throw COxException("Attributes must be added before elements");
    if (!strNamespace.empty() && strNamespace != m_pContext->GetDefaultNamespace())
        WriteAttribute("type", XsiNamespace(), PrefixOf(m_pContext, strNamespace) + ":" + strTypeName, eType);
    else
        WriteAttribute("type", XsiNamespace(), strTypeName, eType);
}

void CJsonTextWriter::WriteElementText(const std::string& strValue, ItemType eType, bool /*bIsDefaultValue*/) {
    if (!m_pContext) throw COxException("There is no open element to hold the text.");
    if (!m_bValuePending) {
        m_pStream->WriteChar(',');
        if (m_bFormatted) {
            WriteEOL();
            WriteIndent(m_pContext->m_nDepth + 1);
        }
        if (m_eRoundTrip == JsonRoundTrip_None)
            PutLiteral(m_pStream, "\"\": ");
        else
            PutLiteral(m_pStream, "\"#text\": ");
    } else {
        if (m_bScalarWritten) ThrowHoldsValue();
        if (m_pContext->m_pParent && m_pContext->m_pParent->m_nCollectionState == 1) OpenArray(m_pContext);
        m_bScalarWritten = true;
    }
    WriteValue(strValue, eType);
}

void CJsonTextWriter::WriteEndElement() {
    CXmlWriterContext* pContext = m_pContext;
    if (!pContext) throw COxException("There is no open element to end.");
    if (!m_bValuePending) {
        if (m_bFormatted) {
            WriteEOL();
            WriteIndent(pContext->m_nDepth);
        }
        m_pStream->WriteChar('}');
    } else if (!m_bScalarWritten) {
        // Nothing behind the name: a nil element or an empty object. null reads back as an
        // element without text; as the first item of a collection it opens the array too.
        if (pContext->m_pParent && pContext->m_pParent->m_nCollectionState == 1) OpenArray(pContext);
        PutLiteral(m_pStream, "null");
    }
    PopContext();
    m_bValuePending = false;
    m_bScalarWritten = false;
}

void CJsonTextWriter::WriteValue(const std::string& strValue, ItemType eType) {
    if (IsBareType(eType) &&
        (IsJsonNumber(strValue) || (eType == ItemType_boolean && (strValue == "true" || strValue == "false")))) {
        m_pStream->WriteString(strValue);
        return;
    }
    m_pStream->WriteChar('"');
    EscapeAndWrite(strValue.c_str());
    m_pStream->WriteChar('"');
}

void CJsonTextWriter::EscapeAndWrite(const char* pszText) {
    static const char s_szHex[] = "0123456789ABCDEF";
    const unsigned char* pTable = g_escapeTable.ab;
    const char* p = pszText;
    for (;;) {
        // Find the next byte that needs attention; everything before it goes out in one piece.
        const char* pRun = p;
        while (!pTable[static_cast<unsigned char>(*p)]) ++p;
        if (p != pRun) m_pStream->WriteString(pRun, static_cast<size_t>(p - pRun));
        const unsigned char c = static_cast<unsigned char>(*p);
        switch (c) {
            case '\0':
                return;
            case '\b':
                PutLiteral(m_pStream, "\\b");
                break;
            case '\t':
                PutLiteral(m_pStream, "\\t");
                break;
            case '\n':
                PutLiteral(m_pStream, "\\n");
                break;
            case '\f':
                PutLiteral(m_pStream, "\\f");
                break;
            case '\r':
                // Line ends inside the library are LF; a stray CR is dropped.
                break;
            case '"':
                PutLiteral(m_pStream, "\\\"");
                break;
            case '\\':
                PutLiteral(m_pStream, "\\\\");
                break;
            default: {
                char szEscape[6] = {'\\', 'u', '0', '0', s_szHex[c >> 4], s_szHex[c & 0xF]};
                m_pStream->WriteString(szEscape, sizeof(szEscape));
                break;
            }
        }
        ++p;
    }
}

}  // namespace OrvexXml
