#include "orvexxml/fastinfoset/fastinfosetwriter.h"

#include <cstring>

#include "orvexxml/fastinfoset/fastinfosetbinarydata.h"
#include "orvexxml/fastinfoset/fideclarations.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textencoder.h"

namespace OrvexXml {

namespace {

// The octets of the standard that this writer uses, named by their role.
const unsigned char byNone = 0x00;
const unsigned char byAttributesBit = 0x40;
const unsigned char byNamespaceAttributes = 0x38;    // "1110 00" after element bit and attributes bit
const unsigned char byDefaultNamespaceDecl = 0xCD;   // namespace attribute with a namespace name only
const unsigned char byPrefixedNamespaceDecl = 0xCF;  // namespace attribute with prefix and namespace name
const unsigned char byIndexBit = 0x80;               // identifying string or index: the index form
const unsigned char byTerminator = 0xF0;             // four bits 1111 and four bits of padding
const unsigned char byDoubleTerminator = 0xFF;       // two terminators, or the attribute value index 0
const unsigned char byAddToTable = 0x40;             // attribute value literal that enters its table
const unsigned char byChunkLiteral = 0x80;           // character chunk, literal
const unsigned char byChunkLiteralAdd = 0x90;        // character chunk, literal that enters its table
const unsigned char byChunkIndex = 0xA0;             // character chunk, index

const char* const pszAttributeAfterContent = "Attributes must be added before elements";

}  // namespace

CFastInfosetWriter::CFastInfosetWriter(CFastInfosetContext* pFIContext, CBinaryStream* pStream)
    : CXmlWriter("CFastInfosetWriter"),
      m_pStream(pStream),
      m_pFIContext(pFIContext),
      m_pPendingContext(nullptr),
      m_bTerminatorPending(false),
      m_pVocabulary(pFIContext->GetUseGeneratedVocabulary() ? new CFIVocabulary(*pFIContext->GetVocabulary())
                                                            : new CFIVocabulary) {}

CFastInfosetWriter::~CFastInfosetWriter() {
    // A pending element was made last: it goes back first, before the open ones.
    if (m_pPendingContext) DestroyContext(m_pPendingContext);
    delete m_pVocabulary;
}

void CFastInfosetWriter::EndDocument() {
    if (m_pPendingContext) throw COxException("An Element has not been closed.");
    CXmlWriter::EndDocument();
}

void CFastInfosetWriter::WriteComment(const std::string&) {}

void CFastInfosetWriter::WriteProcessingInstruction(const std::string&) { WritePendingElement(false); }

void CFastInfosetWriter::WriteInLineSchema(const std::string&) {}

void CFastInfosetWriter::WriteHeader(FInfoDecl eDecl) {
    if (eDecl < FInfoDecl_None || eDecl > FInfoDecl_Version11StandaloneNo)
        throw COxInvalidParamException(
            FormatString("Failed to write FastInfoset. Unknown XML declaration [%d]", static_cast<int>(eDecl)));
    if (eDecl != FInfoDecl_None) {
        const char* pszDecl = kFInfoDeclarations[eDecl];
        m_pStream->Append(LocalToUtf8(pszDecl, std::strlen(pszDecl)));
    }
    static const unsigned char s_abyIdentification[] = {0xE0, 0x00, 0x00, 0x01};
    m_pStream->Append(s_abyIdentification, sizeof(s_abyIdentification));
    if (!m_pFIContext->GetUseGeneratedVocabulary()) {
        Write(byNone);
        return;
    }
    // The optional component initial vocabulary, holding only an external vocabulary.
    Write(0x20);
    Write(0x10);
    Write(0x00);
    std::string strUri = m_pFIContext->GetExternalVocabularyURI();
    AppendNonEmptyOctetStringBit2(byNone, strUri.empty() ? std::string(DefaultVocabularyURI) : strUri);
}

void CFastInfosetWriter::WriteFooter() { Write(m_bTerminatorPending ? byDoubleTerminator : byTerminator); }

void CFastInfosetWriter::FlushTerminator() {
    if (m_bTerminatorPending) {
        Write(byTerminator);
        m_bTerminatorPending = false;
    }
}

void CFastInfosetWriter::EndStartTag() {
    if (m_pContext && m_pContext->m_bInStartTag) {
        m_pContext->m_bInStartTag = false;
        if (m_pContext->m_bHasAttributes) Write(byTerminator);
    }
}

void CFastInfosetWriter::WritePendingElement(bool bHasAttributes) {
    CXmlWriterContext* pPending = m_pPendingContext;
    if (!pPending) return;
    unsigned char byCurrent = byNone;
    if (bHasAttributes) {
        pPending->m_bHasAttributes = true;
        byCurrent = byAttributesBit;
    }
    const bool bRoot = m_pContext == nullptr;
    if ((bRoot && (!m_strDefaultNamespace.empty() || !m_mapNamespaces.empty())) || !m_vecPendingDeclarations.empty()) {
        Write(byCurrent | byNamespaceAttributes);
        byCurrent = byNone;
        if (bRoot) {
            if (!m_strDefaultNamespace.empty()) {
                Write(byDefaultNamespaceDecl);
                AppendIdentifyingString(m_strDefaultNamespace, m_pVocabulary->m_namespaceNamesMap,
                                        &CFIVocabulary::AddNamespaceName);
            }
            // The "xml" prefix is bound by the standard and never declared.
            const size_t nXmlLength = std::strlen(XmlNamespaceURI);
            for (const auto& entry : m_mapNamespaces) {
                if (entry.first.compare(0, nXmlLength, XmlNamespaceURI) == 0) continue;
                Write(byPrefixedNamespaceDecl);
                AppendIdentifyingString(entry.second, m_pVocabulary->m_prefixNamesMap, &CFIVocabulary::AddPrefixName);
                AppendIdentifyingString(entry.first, m_pVocabulary->m_namespaceNamesMap,
                                        &CFIVocabulary::AddNamespaceName);
            }
        }
        for (const auto& declaration : m_vecPendingDeclarations) {
            Write(byPrefixedNamespaceDecl);
            AppendIdentifyingString(declaration.first, m_pVocabulary->m_prefixNamesMap, &CFIVocabulary::AddPrefixName);
            AppendIdentifyingString(declaration.second, m_pVocabulary->m_namespaceNamesMap,
                                    &CFIVocabulary::AddNamespaceName);
        }
        m_vecPendingDeclarations.clear();
        Write(byTerminator);
    }

    const std::string& strNamespace = pPending->m_strNamespace;
    if (strNamespace.empty() || strNamespace == pPending->GetDefaultNamespace()) {
        AppendQualifiedName(byCurrent, true, std::string(), strNamespace, pPending->m_strName,
                            m_pVocabulary->m_elementNamesMap);
    } else {
        AppendQualifiedName(byCurrent, true, PrefixInScopeOf(pPending, strNamespace), strNamespace, pPending->m_strName,
                            m_pVocabulary->m_elementNamesMap);
    }
    m_pContext = pPending;
    m_pPendingContext = nullptr;
}

std::string CFastInfosetWriter::PrefixInScopeOf(CXmlWriterContext* pContext, const std::string& strNamespace) {
    const NamespaceMap& map = pContext->GetNamespaceMap();
    NamespaceMap::const_iterator it = map.find(strNamespace);
    if (it != map.end()) return it->second;
    std::string strPrefix = GenerateNamespacePrefix(map);
    pContext->SetNamespaceMapValue(strNamespace, strPrefix);
    return strPrefix;
}

void CFastInfosetWriter::WriteStartElement(const std::string& strName, const std::string& strNamespace) {
    WritePendingElement(false);
    FlushTerminator();
    if (m_pContext) {
        ++m_pContext->m_nChildCount;
        EndStartTag();
    }
    m_pPendingContext = CreateContext(strName, strNamespace);
}

void CFastInfosetWriter::WriteElementText(const std::string& strValue, ItemType eType, bool) {
    WritePendingElement(false);
    FlushTerminator();
    EndStartTag();
    if (!strValue.empty()) AppendCharacterChunk(strValue, eType);
}

void CFastInfosetWriter::WriteEndElement() {
    WritePendingElement(false);
    if (!m_pContext) throw COxInvalidStateException("No element is open.");
    EndStartTag();
    if (m_bTerminatorPending) {
        Write(byDoubleTerminator);
        m_bTerminatorPending = false;
    } else {
        m_bTerminatorPending = true;
    }
    PopContext();
}

void CFastInfosetWriter::CheckAttributeAllowed() const {
    // An element written without the attributes bit (after an instruction) can't take one either.
    if (!m_pContext || !m_pContext->m_bInStartTag || !m_pContext->m_bHasAttributes)
        throw COxException(pszAttributeAfterContent);
}

void CFastInfosetWriter::WriteAttribute(const std::string& strName, const std::string& strNamespace,
                                        const std::string& strValue, ItemType eType) {
    WritePendingElement(true);
    CheckAttributeAllowed();
    // A namespace without a prefix in scope gets a generated one, carried by the qualified
    // name itself; the default namespace does not apply to attributes.
    std::string strPrefix = strNamespace.empty() ? std::string() : PrefixInScopeOf(m_pContext, strNamespace);
    AppendQualifiedName(byNone, false, strPrefix, strNamespace, strName, m_pVocabulary->m_attributeNamesMap);
    AppendAttributeValue(strValue, eType);
}

void CFastInfosetWriter::WriteXsiType(const std::string& strNamespace, const std::string& strTypeName, ItemType eType) {
    // A type namespace without a prefix in scope is declared on the element itself while its
    // first octet is still unwritten, so that a reader can resolve the value's prefix.
    if (m_pPendingContext && !strNamespace.empty() && strNamespace != m_pPendingContext->GetDefaultNamespace() &&
        m_pPendingContext->GetNamespaceMapValue(strNamespace).empty()) {
        std::string strPrefix = GenerateNamespacePrefix(m_pPendingContext->GetNamespaceMap());
        m_pPendingContext->SetNamespaceMapValue(strNamespace, strPrefix);
        m_vecPendingDeclarations.emplace_back(strPrefix, strNamespace);
    }
    WritePendingElement(true);
    CheckAttributeAllowed();
    if (strNamespace.empty() || strNamespace == m_pContext->GetDefaultNamespace()) {
        WriteAttribute("type", XsiNamespaceURI, strTypeName, eType);
        return;
    }
    std::string strPrefix = PrefixInScopeOf(m_pContext, strNamespace);
    AppendQualifiedName(byNone, false, strPrefix, XsiNamespaceURI, "type", m_pVocabulary->m_attributeNamesMap);
    AppendAttributeValue(strPrefix + ":" + strTypeName, eType);
}

void CFastInfosetWriter::WriteXsiNil() {
    WritePendingElement(true);
    CheckAttributeAllowed();
    WriteAttribute("nil", XsiNamespaceURI, "true", ItemType_boolean);
}

// --- qualified names and identifying strings ------------------------------------------------

void CFastInfosetWriter::AppendQualifiedName(unsigned char byCurrent, bool bThirdBit, const std::string& strPrefix,
                                             const std::string& strNamespace, const std::string& strLocalName,
                                             CFIVocabulary::IndexMap& map) {
    std::string& strKey = m_strKeyScratch;
    CFIVocabulary::MakeQNameKey(strPrefix, strNamespace, strLocalName, strKey);
    uint32_t dwIndex;
    if (CFIVocabulary::FindIndex(map, strKey, dwIndex)) {
        if (bThirdBit)
            AppendIntegerBit3(byCurrent, dwIndex);
        else
            AppendIntegerBit2(byCurrent, dwIndex);
        return;
    }
    // The literal form: its marker bits, then one bit each for a prefix and a namespace.
    const unsigned char byLiteral = bThirdBit ? 0x3C : 0x78;
    Write(byCurrent | byLiteral | (strPrefix.empty() ? (strNamespace.empty() ? 0x00 : 0x01) : 0x03));
    AppendNameParts(strPrefix, strNamespace, strLocalName);
    CFIVocabulary::AddValueToMap(strKey, map);
}

void CFastInfosetWriter::AppendNameParts(const std::string& strPrefix, const std::string& strNamespace,
                                         const std::string& strLocalName) {
    if (!strPrefix.empty())
        AppendIdentifyingString(strPrefix, m_pVocabulary->m_prefixNamesMap, &CFIVocabulary::AddPrefixName);
    if (!strNamespace.empty())
        AppendIdentifyingString(strNamespace, m_pVocabulary->m_namespaceNamesMap, &CFIVocabulary::AddNamespaceName);
    AppendIdentifyingString(strLocalName, m_pVocabulary->m_localNamesMap, &CFIVocabulary::AddLocalName);
}

void CFastInfosetWriter::AppendIdentifyingString(const std::string& strValue, const CFIVocabulary::IndexMap& map,
                                                 void (CFIVocabulary::*pfnAdd)(std::string)) {
    uint32_t dwIndex;
    if (CFIVocabulary::FindIndex(map, strValue, dwIndex)) {
        AppendIntegerBit2(byIndexBit, dwIndex);
        return;
    }
    AppendNonEmptyOctetStringBit2(byNone, strValue);
    (m_pVocabulary->*pfnAdd)(strValue);
}

// --- values -------------------------------------------------------------------------------

void CFastInfosetWriter::AppendAttributeValue(const std::string& strValue, ItemType eType) {
    if (strValue.empty()) {
        Write(byDoubleTerminator);  // the index 0, the empty string
        return;
    }
    if (strValue.size() >= m_pFIContext->GetAttributeMaxAddLength()) {
        AppendEncodedCharacterStringBit5(byNone, strValue, eType);
        return;
    }
    uint32_t dwIndex;
    if (CFIVocabulary::FindIndex(m_pVocabulary->m_attributeValuesMap, strValue, dwIndex)) {
        AppendIntegerBit2(byIndexBit, dwIndex);
        return;
    }
    AppendEncodedCharacterStringBit5(byAddToTable, strValue, eType);
    CFIVocabulary::AddValueToMap(strValue, m_pVocabulary->m_attributeValuesMap);
}

void CFastInfosetWriter::AppendCharacterChunk(const std::string& strValue, ItemType eType) {
    if (strValue.size() >= m_pFIContext->GetElementMaxAddLength()) {
        AppendEncodedCharacterStringBit7(byChunkLiteral, strValue, eType);
        return;
    }
    uint32_t dwIndex;
    if (CFIVocabulary::FindIndex(m_pVocabulary->m_characterChunksMap, strValue, dwIndex)) {
        AppendIntegerBit4(byChunkIndex, dwIndex);
        return;
    }
    AppendEncodedCharacterStringBit7(byChunkLiteralAdd, strValue, eType);
    CFIVocabulary::AddValueToMap(strValue, m_pVocabulary->m_characterChunksMap);
}

CFastInfosetContext::EncodedCharacterString CFastInfosetWriter::EncodingOf(ItemType eType) const {
    // A type outside the context's table, which no walk passes, is written as a string.
    if (static_cast<uint32_t>(eType) >= CFastInfosetContext::EncodingCount)
        return {CFastInfosetContext::EncodingKind_DefaultString, 0};
    return m_pFIContext->GetEncoding(static_cast<uint32_t>(eType));
}

bool CFastInfosetWriter::IsPlainUtf8(ItemType eType) const {
    return EncodingOf(eType).eKind == CFastInfosetContext::EncodingKind_DefaultString &&
           m_pFIContext->GetDefaultStringEncoding() == CFastInfosetContext::StringEncoding_UTF8 &&
           IsLocalEncodingUtf8();
}

CBinaryData CFastInfosetWriter::EncodeValue(const std::string& strValue, ItemType eType, const char* pszUnknownKind,
                                            CFastInfosetContext::EncodingKind& eKind, uint32_t& dwIndex) const {
    CFastInfosetContext::EncodedCharacterString encoding = EncodingOf(eType);
    eKind = encoding.eKind;
    dwIndex = encoding.dwIndex;
    CBinaryData octets;
    switch (encoding.eKind) {
        case CFastInfosetContext::EncodingKind_DefaultString:
            if (m_pFIContext->GetDefaultStringEncoding() == CFastInfosetContext::StringEncoding_UTF16BE)
                throw COxException(
                    "Failed to write FastInfoset. Unsupported Feature UTF16BE in EncodedCharacterStringBit5.");
            octets = LocalToUtf8(strValue.data(), strValue.size());
            break;
        case CFastInfosetContext::EncodingKind_RestrictedAlphabet:
            if (dwIndex != 1 && dwIndex != 2)
                throw COxException(FormatString("Failed to write FastInfoset. Invalid Restricted Alphabet value [%d]",
                                                static_cast<int>(dwIndex)));
            octets = AppendRestrictedAlphabetString(dwIndex, strValue);
            break;
        case CFastInfosetContext::EncodingKind_Algorithm: {
            if (dwIndex < 1 || dwIndex > 10)
                throw COxException(FormatString("Failed to write FastInfoset. Invalid Encoding Algorithm value [%d]",
                                                static_cast<int>(dwIndex)));
            CFastInfosetBinaryData data;
            data.SetAsEncodedString(dwIndex, strValue.c_str());
            octets = data;
            break;
        }
        default:
            throw COxException(pszUnknownKind);
    }
    // The octet string forms hold one octet at least; base64 text of padding alone is the one
    // non-empty value that encodes to none.
    if (octets.GetLength() == 0)
        throw COxInvalidValueException(
            FormatString("Failed to write FastInfoset. The value [%s] encodes to no octets.", strValue.c_str()));
    return octets;
}

void CFastInfosetWriter::AppendEncodedCharacterStringBit5(unsigned char byCurrent, const std::string& strValue,
                                                          ItemType eType) {
    AppendEncodedCharacterString(byCurrent, strValue, eType, false);
}

void CFastInfosetWriter::AppendEncodedCharacterStringBit7(unsigned char byCurrent, const std::string& strValue,
                                                          ItemType eType) {
    AppendEncodedCharacterString(byCurrent, strValue, eType, true);
}

// The string starts on the fifth bit of an octet, or on the seventh with bBit7; its octets,
// after a discriminant and an index when they are encoded, start on that bit again.
void CFastInfosetWriter::AppendEncodedCharacterString(unsigned char byCurrent, const std::string& strValue,
                                                      ItemType eType, bool bBit7) {
    auto appendOctets = [this, bBit7](unsigned char byFirst, const unsigned char* pData, OxULong nLength) {
        if (bBit7)
            AppendNonEmptyOctetStringBit7(byFirst, pData, nLength);
        else
            AppendNonEmptyOctetStringBit5(byFirst, pData, nLength);
    };
    if (IsPlainUtf8(eType)) {
        appendOctets(byCurrent, reinterpret_cast<const unsigned char*>(strValue.data()),
                     static_cast<OxULong>(strValue.size()));
        return;
    }
    CFastInfosetContext::EncodingKind eKind;
    uint32_t dwIndex;
    CBinaryData octets =
        EncodeValue(strValue, eType,
                    bBit7 ? "Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit7."
                          : "Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit5.",
                    eKind, dwIndex);
    if (eKind == CFastInfosetContext::EncodingKind_DefaultString) {
        appendOctets(byCurrent, octets.GetData(), octets.GetLength());
        return;
    }
    // Discriminant 10 (alphabet) or 11 (algorithm), then the 8-bit index less one across the
    // octets: its high nHigh bits end this one, the rest begin the next.
    const int nHigh = bBit7 ? 2 : 4;
    const unsigned char byDiscriminant =
        static_cast<unsigned char>((eKind == CFastInfosetContext::EncodingKind_RestrictedAlphabet ? 2 : 3) << nHigh);
    Write(byCurrent | byDiscriminant | static_cast<unsigned char>((dwIndex - 1) >> (8 - nHigh)));
    appendOctets(static_cast<unsigned char>((dwIndex - 1) << nHigh), octets.GetData(), octets.GetLength());
}

CBinaryData CFastInfosetWriter::AppendRestrictedAlphabetString(uint32_t dwAlphabetIndex,
                                                               const std::string& strValue) const {
    // The vocabulary's alphabets are the two built-in ones, of 7-bit characters, so a character
    // is a byte here.
    const std::string& strAlphabet = m_pVocabulary->m_restrictedAlphabets[dwAlphabetIndex - 1];
    const size_t nCount = strAlphabet.size();
    if (nCount < 2 || nCount > CFIVocabulary::MaxTableEntries)
        throw COxException(
            "Failed to write FastInfoset. Invalid Restricted Alphabet. Alphabet must contain between 2 and 2^20 "
            "characters.");
    // The value of all one bits stays free: it ends the last octet of a 4-bit string.
    unsigned nBits = 2;
    while ((size_t(1) << nBits) <= nCount) ++nBits;
    if (nBits != 4 && nBits != 8)
        throw COxException("Failed to write FastInfoset. Unsupported Feature in AppendRestrictedAlphabetString.");

    CBinaryData octets;
    unsigned char byHigh = 0;
    bool bHalf = false;
    for (char c : strValue) {
        size_t nPos = strAlphabet.find(c);
        if (nPos == std::string::npos)
            throw COxException("Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.");
        if (nBits == 8) {
            octets.Append(static_cast<unsigned char>(nPos));
        } else if (!bHalf) {
            byHigh = static_cast<unsigned char>(nPos << 4);
            bHalf = true;
        } else {
            octets.Append(static_cast<unsigned char>(byHigh | nPos));
            bHalf = false;
        }
    }
    if (bHalf) octets.Append(static_cast<unsigned char>(byHigh | 0x0F));
    return octets;
}

// --- the primitive forms ------------------------------------------------------------------

void CFastInfosetWriter::AppendLength32(OxULong nValue) {
    unsigned char abyOctets[4] = {static_cast<unsigned char>(nValue >> 24), static_cast<unsigned char>(nValue >> 16),
                                  static_cast<unsigned char>(nValue >> 8), static_cast<unsigned char>(nValue)};
    m_pStream->Append(abyOctets, 4);
}

void CFastInfosetWriter::AppendNonEmptyOctetStringBit2(unsigned char byCurrent, const std::string& strLocal) {
    CBinaryData utf8 = IsLocalEncodingUtf8() ? CBinaryData() : LocalToUtf8(strLocal.data(), strLocal.size());
    const unsigned char* pData =
        IsLocalEncodingUtf8() ? reinterpret_cast<const unsigned char*>(strLocal.data()) : utf8.GetData();
    OxULong nLength = IsLocalEncodingUtf8() ? static_cast<OxULong>(strLocal.size()) : utf8.GetLength();
    if (nLength == 0) throw COxException("Failed to write FastInfoset. A name or namespace is empty.");
    AppendNonEmptyOctetString(byCurrent, pData, nLength, 64, 0x40, 0x60);
}

void CFastInfosetWriter::AppendNonEmptyOctetStringBit5(unsigned char byCurrent, const unsigned char* pData,
                                                       OxULong nLength) {
    AppendNonEmptyOctetString(byCurrent, pData, nLength, 8, 0x08, 0x0C);
}

void CFastInfosetWriter::AppendNonEmptyOctetStringBit7(unsigned char byCurrent, const unsigned char* pData,
                                                       OxULong nLength) {
    AppendNonEmptyOctetString(byCurrent, pData, nLength, 2, 0x02, 0x03);
}

// The length goes in the bits left of the first octet up to nSmall, in one more octet for the
// next 256 lengths, in four more octets beyond; byMedium and byLarge mark the two longer forms.
void CFastInfosetWriter::AppendNonEmptyOctetString(unsigned char byCurrent, const unsigned char* pData, OxULong nLength,
                                                   OxULong nSmall, unsigned char byMedium, unsigned char byLarge) {
    if (nLength <= nSmall) {
        Write(byCurrent | static_cast<unsigned char>(nLength - 1));
    } else if (nLength <= nSmall + 256) {
        Write(byCurrent | byMedium);
        Write(static_cast<unsigned char>(nLength - nSmall - 1));
    } else {
        Write(byCurrent | byLarge);
        AppendLength32(nLength - nSmall - 257);
    }
    m_pStream->Append(pData, nLength);
}

void CFastInfosetWriter::AppendIntegerBit2(unsigned char byCurrent, uint32_t dwIndex) {
    if (dwIndex <= 64) {
        Write(byCurrent | static_cast<unsigned char>(dwIndex - 1));
    } else if (dwIndex <= 8256) {
        uint32_t v = dwIndex - 65;  // '10' and 13 bits
        Write(byCurrent | 0x40 | static_cast<unsigned char>(v >> 8));
        Write(static_cast<unsigned char>(v));
    } else {
        uint32_t v = dwIndex - 8257;  // '110' and 20 bits
        Write(byCurrent | 0x60 | static_cast<unsigned char>(v >> 16));
        Write(static_cast<unsigned char>(v >> 8));
        Write(static_cast<unsigned char>(v));
    }
}

void CFastInfosetWriter::AppendIntegerBit3(unsigned char byCurrent, uint32_t dwIndex) {
    AppendIntegerBit3Or4(byCurrent, dwIndex, 3);
}

void CFastInfosetWriter::AppendIntegerBit4(unsigned char byCurrent, uint32_t dwIndex) {
    AppendIntegerBit3Or4(byCurrent, dwIndex, 2);
}

// nFree is the number of bits the first octet has after the integer's three-bit prefix: 3
// when the integer starts on the third bit, 2 on the fourth. The four forms hold the index
// in 2 + nFree bits ('0'), 8 + nFree bits ('100'), 16 + nFree bits ('101') and, after
// padding, 20 bits ('110').
void CFastInfosetWriter::AppendIntegerBit3Or4(unsigned char byCurrent, uint32_t dwIndex, int nFree) {
    const uint32_t dwSmall = 1u << (nFree + 2);
    const uint32_t dwMedium = dwSmall + (1u << (nFree + 8));
    const uint32_t dwLarge = dwMedium + (1u << (nFree + 16));
    if (dwIndex <= dwSmall) {
        Write(byCurrent | static_cast<unsigned char>(dwIndex - 1));
    } else if (dwIndex <= dwMedium) {
        uint32_t v = dwIndex - dwSmall - 1;
        Write(byCurrent | static_cast<unsigned char>(4 << nFree) | static_cast<unsigned char>(v >> 8));
        Write(static_cast<unsigned char>(v));
    } else if (dwIndex <= dwLarge) {
        uint32_t v = dwIndex - dwMedium - 1;
        Write(byCurrent | static_cast<unsigned char>(5 << nFree) | static_cast<unsigned char>(v >> 16));
        Write(static_cast<unsigned char>(v >> 8));
        Write(static_cast<unsigned char>(v));
    } else {
        uint32_t v = dwIndex - dwLarge - 1;
        Write(byCurrent | static_cast<unsigned char>(6 << nFree));
        Write(static_cast<unsigned char>(v >> 16));
        Write(static_cast<unsigned char>(v >> 8));
        Write(static_cast<unsigned char>(v));
    }
}

}  // namespace OrvexXml
