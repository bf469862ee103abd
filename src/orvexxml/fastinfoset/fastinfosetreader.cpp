#include "orvexxml/fastinfoset/fastinfosetreader.h"

#include <cstring>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/fastinfoset/fastinfosetbinarydata.h"
#include "orvexxml/fastinfoset/fastinfosetcontext.h"
#include "orvexxml/fastinfoset/fideclarations.h"
#include "orvexxml/fastinfoset/fivocabulary.h"
#include "orvexxml/infrastructure/debugtrace.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/xml/xmldocument.h"

namespace OrvexXml {

namespace {

const uint32_t kScratchSize = 1024;

const char kInvalidElement[] = "Failed to parse FastInfoset. Invalid Encoding of Element type.";
const char kPrefixWithoutNamespace[] = "Failed to parse FastInfoset. Invalid QName type Prefix without Namespace.";
const char kInvalidOctetStringBit2[] =
    "Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the second bit of an octet.";
const char kInvalidOctetStringBit5[] =
    "Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the fifth bit of an octet.";
const char kInvalidIntegerBit3[] =
    "Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet.";
const char kInvalidIntegerBit4[] =
    "Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.";
const char kAttributeValueIndexCut[] =
    "Failed to parse FastInfoset. Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.";
const char kInvalidAlphabetSize[] =
    "Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and 2^20 "
    "characters.";
const char kInvalidAlphabetPosition[] =
    "Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Character position beyond the alphabet.";
const char kInvalidUtf16Length[] = "Failed to parse FastInfoset. Invalid length of a UTF-16 string.";
const char kInvalidName[] = "Failed to parse FastInfoset. Invalid Encoding of a name: not an XML name.";
const char kInvalidUtf8[] = "Failed to parse FastInfoset. Invalid UTF-8 string.";
const char kInvalidDocumentType[] = "Failed to parse FastInfoset. Invalid Encoding of Document Type Declaration.";

// Whether UTF-8 octets can be an XML name without a colon. Only the ASCII range is checked:
// what XML text can't hold there (blanks, controls, markup and punctuation, a colon, a digit,
// "-" or "." in front) would come out of the XML writer as another name or as no XML at all.
// Well-formed UTF-8: no stray continuation byte, no overlong form, no surrogate, nothing past
// U+10FFFF. Strings of the document go into the tree as they are, and from there into XML and
// JSON text, which must not carry broken characters. ASCII is passed over eight bytes a step.
bool IsValidUtf8(const unsigned char* pData, size_t nLength) {
    size_t i = 0;
    while (i < nLength) {
        if (nLength - i >= 8) {
            uint64_t nWord;
            std::memcpy(&nWord, pData + i, 8);
            if ((nWord & 0x8080808080808080ull) == 0) {
                i += 8;
                continue;
            }
        }
        const unsigned char c = pData[i];
        if (c < 0x80) {
            ++i;
            continue;
        }
        size_t nMore = 2;
        unsigned char byLow = 0x80, byHigh = 0xBF;  // the range of the second byte
        if (c >= 0xC2 && c <= 0xDF)
            nMore = 1;
        else if (c == 0xE0)
            byLow = 0xA0;
        else if (c == 0xED)
            byHigh = 0x9F;
        else if (c >= 0xE1 && c <= 0xEF)
            nMore = 2;
        else if (c >= 0xF0 && c <= 0xF4)
            nMore = 3;
        else
            return false;
        if (c == 0xF0) byLow = 0x90;
        if (c == 0xF4) byHigh = 0x8F;
        if (nLength - i <= nMore || pData[i + 1] < byLow || pData[i + 1] > byHigh) return false;
        for (size_t k = 2; k <= nMore; ++k) {
            if ((pData[i + k] & 0xC0) != 0x80) return false;
        }
        i += nMore + 1;
    }
    return true;
}

bool IsNCName(const unsigned char* pData, size_t nLength) {
    for (size_t i = 0; i < nLength; ++i) {
        const unsigned char c = pData[i];
        if (c >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_') continue;
        if (i > 0 && ((c >= '0' && c <= '9') || c == '-' || c == '.')) continue;
        return false;
    }
    return true;
}

// Element tracing is off; the formats stay for debugging.
const bool kTrace = false;

}  // namespace

const char* const CFastInfosetReader::ms_pszEndOfFile = "Failed to parse FastInfoset. Unexpected End of File.";

CFastInfosetReader::CFastInfosetReader(CFastInfosetContext* pFIContext, CXmlDocument* pDocument)
    : CInstanceMonitor("CFastInfosetReader"),
      m_pFIContext(pFIContext),
      m_pDocument(pDocument),
      m_pCurrent(nullptr),
      m_pLast(nullptr),
      m_nBitsWanted(0),
      m_nBitsLeft(0),
      m_byBits(0),
      m_bDoubleTerminator(false),
      m_dwLastValue(0),
      m_bAddToTable(false),
      m_pScratch(nullptr),
      m_dwScratchSize(0),
      m_pVocabulary(nullptr),
      m_pEnd(nullptr),
      m_bLocalIsUtf8(IsLocalEncodingUtf8()),
      m_pNamespace(&m_strNamespace),
      m_pLocalName(&m_strLocalName) {}

CFastInfosetReader::~CFastInfosetReader() { Cleanup(); }

void CFastInfosetReader::Cleanup() {
    delete m_pVocabulary;
    m_pVocabulary = nullptr;
    delete[] m_pScratch;
    m_pScratch = nullptr;
    m_dwScratchSize = 0;
}

void CFastInfosetReader::Fail(const char* pszMessage) {
    Cleanup();
    throw COxException(pszMessage);
}

// --- the document --------------------------------------------------------------------

bool CFastInfosetReader::CheckHeader() {
    if (m_pEnd - m_pCurrent <= 4) return false;
    static const unsigned char kHeader[4] = {0xE0, 0x00, 0x00, 0x01};
    if (std::memcmp(m_pCurrent, kHeader, 4) != 0) return false;
    m_pCurrent += 4;
    return true;
}

bool CFastInfosetReader::Parse() {
    const unsigned char* pStart = m_pDocument->m_pBuffer;
    if (!pStart) return false;
    m_pCurrent = pStart;
    m_pEnd = pStart + m_pDocument->m_nBufferLength;

    if (!CheckHeader()) {
        bool bFound = false;
        for (int nDecl = FInfoDecl_Encoding; nDecl <= FInfoDecl_Version11StandaloneNo; ++nDecl) {
            const char* pszDeclaration = kFInfoDeclarations[nDecl];
            size_t nLength = std::strlen(pszDeclaration);
            if (static_cast<size_t>(m_pEnd - m_pCurrent) < nLength || std::memcmp(m_pCurrent, pszDeclaration, nLength))
                continue;
            m_pCurrent += nLength;
            bFound = CheckHeader();
            break;
        }
        if (!bFound) {
            m_pCurrent = pStart;
            return false;
        }
    }

    // Every input of a document passes here, XML text too: the vocabulary and the scratch
    // buffer are made only for Fast Infoset.
    Cleanup();
    m_pVocabulary = m_pFIContext->GetUseGeneratedVocabulary() ? new CFIVocabulary(*m_pFIContext->GetVocabulary())
                                                              : new CFIVocabulary;
    m_pScratch = new unsigned char[kScratchSize];
    m_dwScratchSize = kScratchSize;
    ReadPreamble();
    ReadDocumentChildren();
    return true;
}

void CFastInfosetReader::ReadPreamble() {
    const unsigned byComponents = ReadOctet();
    if (byComponents & 0x40) {
        // Additional data: pairs of an id and its data, both octet strings.
        for (uint32_t n = ReadSequenceLength(); n > 0; --n) {
            SkipNonEmptyOctetStringBit2(ReadOctet());
            SkipNonEmptyOctetStringBit2(ReadOctet());
        }
    }
    if (byComponents & 0x20) ReadInitialVocabulary();
    if (byComponents & 0x10) {
        // Notations: name, then the system and the public identifier if present.
        unsigned byItem;
        while (((byItem = ReadOctet()) & 0xFC) == 0xC0) {
            SkipIdentifyingStringOrIndex();
            if (byItem & 0x02) SkipIdentifyingStringOrIndex();
            if (byItem & 0x01) SkipIdentifyingStringOrIndex();
        }
    }
    if (byComponents & 0x08) {
        // Unparsed entities: name, system identifier, public identifier if present, notation.
        unsigned byItem;
        while (((byItem = ReadOctet()) & 0xFE) == 0xD0) {
            SkipIdentifyingStringOrIndex();
            SkipIdentifyingStringOrIndex();
            if (byItem & 0x01) SkipIdentifyingStringOrIndex();
            SkipIdentifyingStringOrIndex();
        }
    }
    if (byComponents & 0x04) SkipNonEmptyOctetStringBit2(ReadOctet());  // character encoding scheme
    if (byComponents & 0x02) ReadOctets(1);                             // standalone
    if (byComponents & 0x01) SkipNonIdentifyingStringOrIndex();         // version
}

// The entries of an initial vocabulary in the document are added to the tables the reader
// keeps, behind the built-in entries, as the standard adds them, so that the indexes of the
// document resolve. The external vocabulary is only named: which content stands behind it
// is the context's business. The tables of other names, URIs and strings serve only items
// that are passed over and are not kept.
void CFastInfosetReader::ReadInitialVocabulary() {
    const unsigned byFirst = ReadOctet();
    const unsigned bySecond = ReadOctet();
    CFIVocabulary& vocabulary = *m_pVocabulary;

    auto readStrings = [this](CFIStringTable* pTable, bool bNames) {
        for (uint32_t n = ReadSequenceLength(); n > 0; --n) {
            const unsigned byItem = ReadOctet();
            const uint64_t nLength = ReadNonEmptyOctetStringLengthBit2(byItem);
            const unsigned char* pData = ReadOctets(nLength);
            if (!pTable) continue;
            if (bNames && !IsNCName(pData, static_cast<size_t>(nLength))) Fail(kInvalidName);
            Utf8ToLocalText(pData, static_cast<size_t>(nLength), m_strValue);
            CFIVocabulary::AddValueToVector(m_strValue, *pTable);
        }
    };
    auto readValues = [this](CFIStringTable* pTable) {
        for (uint32_t n = ReadSequenceLength(); n > 0; --n) {
            StringView value = ReadEncodedCharacterStringBit3(ReadOctet());
            if (pTable) CFIVocabulary::AddValueToVector(std::string(value.pData, value.nLength), *pTable);
        }
    };
    auto readSurrogates = [this](CFIQNameTable& table) {
        for (uint32_t n = ReadSequenceLength(); n > 0; --n) {
            const unsigned byItem = ReadOctet();
            uint32_t dwPrefix = 0, dwNamespace = 0;
            if (byItem & 0x02) dwPrefix = ReadIntegerBit2(ReadOctet());
            if (byItem & 0x01) dwNamespace = ReadIntegerBit2(ReadOctet());
            const uint32_t dwLocal = ReadIntegerBit2(ReadOctet());
            CFIVocabulary::AddQNameToVector(dwPrefix, dwNamespace, dwLocal, table);
        }
    };

    if (byFirst & 0x10) SkipNonEmptyOctetStringBit2(ReadOctet());  // external vocabulary URI
    if (byFirst & 0x08) {
        // Restricted alphabets follow the two built-in ones.
        for (uint32_t n = ReadSequenceLength(); n > 0; --n) {
            const uint64_t nLength = ReadNonEmptyOctetStringLengthBit2(ReadOctet());
            const unsigned char* pData = ReadOctets(nLength);
            Utf8ToLocalText(pData, static_cast<size_t>(nLength), m_strValue);
            if (vocabulary.m_restrictedAlphabets.size() < CFIVocabulary::MaxTableEntries)
                vocabulary.m_restrictedAlphabets.push_back(m_strValue);
        }
    }
    if (byFirst & 0x04) readStrings(nullptr, false);  // encoding algorithm URIs
    if (byFirst & 0x02) readStrings(&vocabulary.m_prefixNames, true);
    if (byFirst & 0x01) readStrings(&vocabulary.m_namespaceNames, false);
    if (bySecond & 0x80) readStrings(&vocabulary.m_localNames, true);
    if (bySecond & 0x40) readStrings(nullptr, false);  // other NCNames
    if (bySecond & 0x20) readStrings(nullptr, false);  // other URIs
    if (bySecond & 0x10) readValues(&vocabulary.m_attributeValues);
    if (bySecond & 0x08) readValues(&vocabulary.m_characterChunks);
    if (bySecond & 0x04) readValues(nullptr);  // other strings
    if (bySecond & 0x02) readSurrogates(vocabulary.m_elementNames);
    if (bySecond & 0x01) readSurrogates(vocabulary.m_attributeNames);
}

// Reading ends with the root element: whatever follows it, the document's terminator
// included, is not looked at.
void CFastInfosetReader::ReadDocumentChildren() {
    for (;;) {
        const unsigned byItem = ReadOctet();
        if (byItem < 0x80) {
            ReadElement(byItem);
            return;
        }
        if (byItem == 0xF0 || byItem == 0xFF) return;
        if (byItem == 0xE1)
            SkipProcessingInstruction();
        else if (byItem == 0xE2)
            SkipComment();
        else if ((byItem & 0xFC) == 0xC4 && !SkipDocumentTypeDeclaration(byItem))
            return;
    }
}

// The element and everything inside it. Nesting is followed on the document's stack of
// open elements, not by recursion, so that the depth of a document costs no machine stack;
// the document refuses a depth beyond its context's limit as it adds the element.
void CFastInfosetReader::ReadElement(unsigned byFirst) {
    std::vector<CXmlDocument::OpenElement>& stack = m_pDocument->m_pElementStack;
    const size_t nBase = stack.size();
    if (StartElement(byFirst)) stack.pop_back();
    while (stack.size() > nBase) {
        const unsigned byItem = ReadOctet();
        if (byItem < 0x80) {
            if (StartElement(byItem)) stack.pop_back();
        } else if (byItem < 0xC0) {
            ReadCharacterChunk(byItem, stack.back().pElement);
        } else if (byItem == 0xF0) {
            if (kTrace)
                DebugTrace("End Elm: %s::%s\n", stack.back().pElement->GetNamespaceURI().c_str(),
                           stack.back().pElement->GetLocalName().c_str());
            stack.pop_back();
        } else if (byItem == 0xFF) {
            // The terminator of this element and of its parent in one octet.
            stack.pop_back();
            if (stack.size() > nBase)
                stack.pop_back();
            else
                m_bDoubleTerminator = true;
        } else if (byItem == 0xE1) {
            SkipProcessingInstruction();
        } else if (byItem == 0xE2) {
            SkipComment();
        } else if ((byItem & 0xFC) == 0xC8) {
            SkipEntityReference(byItem);
        } else {
            Fail(kInvalidElement);
        }
    }
}

bool CFastInfosetReader::StartElement(unsigned byFirst) {
    const bool bHasAttributes = (byFirst & 0x40) != 0;
    unsigned byName = byFirst;
    if ((byFirst & 0x3C) == 0x38) {
        unsigned byItem;
        while (((byItem = ReadOctet()) & 0xFC) == 0xCC) ReadNamespaceAttribute(byItem);
        byName = ReadOctet();
    }
    ReadQualifiedNameBit3(byName);

    CXmlElement* pElement;
    if (m_pDocument->m_pDocumentElement) {
        pElement = m_pDocument->AddChildElement(m_pNamespace->data(), m_pNamespace->size(), m_pLocalName->data(),
                                                m_pLocalName->size());
        if (kTrace) DebugTrace("New Elm: %s::%s\n", m_pNamespace->c_str(), m_pLocalName->c_str());
    } else {
        pElement = m_pDocument->AddDocElement(m_pNamespace->data(), m_pNamespace->size(), m_pLocalName->data(),
                                              m_pLocalName->size());
        if (kTrace) DebugTrace("New Root Elm: %s::%s\n", m_pNamespace->c_str(), m_pLocalName->c_str());
    }

    if (!bHasAttributes) return false;
    unsigned byItem;
    while ((byItem = ReadOctet()) < 0x80) ReadAttribute(byItem, pElement);
    return byItem == 0xFF;
}

void CFastInfosetReader::ReadNamespaceAttribute(unsigned byFirst) {
    m_strPrefix.clear();
    m_strNamespace.clear();
    if (byFirst & 0x02) ReadIdentifyingStringOrIndex(m_pVocabulary->m_prefixNames, m_strPrefix, "prefixes", true);
    if (byFirst & 0x01) ReadIdentifyingStringOrIndex(m_pVocabulary->m_namespaceNames, m_strNamespace, "namespaces");
    m_pDocument->m_mapAliases[m_strPrefix] = m_strNamespace;
}

void CFastInfosetReader::ReadAttribute(unsigned byFirst, CXmlElement* pElement) {
    ReadQualifiedNameBit2(byFirst);
    // The name may live in m_strNamespace and m_strLocalName; the value goes elsewhere.
    StringView value;
    const unsigned byValue = ReadOctet();
    if (byValue < 0x80) {
        m_bAddToTable = (byValue & 0x40) != 0;
        value = ReadEncodedCharacterStringBit3(byValue);
        if (m_bAddToTable)
            CFIVocabulary::AddValueToVector(std::string(value.pData, value.nLength), m_pVocabulary->m_attributeValues);
    } else if ((byValue & 0x7F) == 0x7F) {
        value = StringView{"", 0};
    } else {
        m_dwLastValue = ReadIntegerBit2(byValue, kAttributeValueIndexCut);
        const std::string& strValue = Lookup(m_pVocabulary->m_attributeValues, m_dwLastValue, "attribute values");
        value = StringView{strValue.data(), strValue.size()};
    }
    m_pDocument->AddAttribute(pElement, m_pLocalName->data(), m_pLocalName->size(), value.pData, value.nLength,
                              m_pNamespace->data(), m_pNamespace->size());
}

void CFastInfosetReader::ReadCharacterChunk(unsigned byFirst, CXmlElement* pElement) {
    StringView text;
    if (byFirst & 0x20) {
        m_dwLastValue = ReadIntegerBit4(byFirst);
        const std::string& strText = Lookup(m_pVocabulary->m_characterChunks, m_dwLastValue, "character chunks");
        text = StringView{strText.data(), strText.size()};
    } else {
        m_bAddToTable = (byFirst & 0x10) != 0;
        text = ReadEncodedCharacterStringBit5(byFirst);
        if (m_bAddToTable)
            CFIVocabulary::AddValueToVector(std::string(text.pData, text.nLength), m_pVocabulary->m_characterChunks);
    }
    // The text ends at its first null already (see DecodeString), and the table holds such
    // texts only: what is left is to drop CR.
    m_pDocument->AppendRun(pElement, text.pData, text.nLength);
}

// --- names ----------------------------------------------------------------------------

void CFastInfosetReader::ReadQualifiedNameBit3(unsigned byFirst) {
    if ((byFirst & 0x3C) == 0x3C) {
        ReadLiteralQualifiedName(byFirst, m_pVocabulary->m_elementNames);
        return;
    }
    m_dwLastValue = ReadIntegerBit3(byFirst);
    ResolveQualifiedName(m_pVocabulary->m_elementNames, m_dwLastValue, "element names");
}

void CFastInfosetReader::ReadQualifiedNameBit2(unsigned byFirst) {
    if ((byFirst & 0x78) == 0x78) {
        ReadLiteralQualifiedName(byFirst, m_pVocabulary->m_attributeNames);
        return;
    }
    m_dwLastValue = ReadIntegerBit2(byFirst);
    ResolveQualifiedName(m_pVocabulary->m_attributeNames, m_dwLastValue, "attribute names");
}

void CFastInfosetReader::ReadLiteralQualifiedName(unsigned byFlags, CFIQNameTable& table) {
    if ((byFlags & 0x03) == 0x02) Fail(kPrefixWithoutNamespace);
    CFIVocabulary& vocabulary = *m_pVocabulary;
    uint32_t dwPrefix = 0, dwNamespace = 0;
    m_strPrefix.clear();
    m_strNamespace.clear();
    if (byFlags & 0x02)
        dwPrefix = ReadIdentifyingStringOrIndex(vocabulary.m_prefixNames, m_strPrefix, "prefixes", true);
    if (byFlags & 0x01)
        dwNamespace = ReadIdentifyingStringOrIndex(vocabulary.m_namespaceNames, m_strNamespace, "namespaces");
    const uint32_t dwLocal = ReadIdentifyingStringOrIndex(vocabulary.m_localNames, m_strLocalName, "local names", true);
    CFIVocabulary::AddQNameToVector(dwPrefix, dwNamespace, dwLocal, table);
    m_pNamespace = &m_strNamespace;
    m_pLocalName = &m_strLocalName;
}

void CFastInfosetReader::ResolveQualifiedName(const CFIQNameTable& table, uint32_t dwIndex, const char* pszTable) {
    if (dwIndex == 0 || dwIndex > table.size())
        Fail(FormatString("Failed to parse FastInfoset. Index [%u] is not in the table of %s.", dwIndex, pszTable)
                 .c_str());
    const CQNameParts& parts = table[dwIndex - 1];
    static const std::string s_strNone;
    m_pNamespace = parts.m_dwNamespaceIndex
                       ? &Lookup(m_pVocabulary->m_namespaceNames, parts.m_dwNamespaceIndex, "namespaces")
                       : &s_strNone;
    m_pLocalName = &Lookup(m_pVocabulary->m_localNames, parts.m_dwLocalNameIndex, "local names");
}

uint32_t CFastInfosetReader::ReadIdentifyingStringOrIndex(CFIStringTable& table, std::string& strTarget,
                                                          const char* pszTable, bool bName) {
    const unsigned byFirst = ReadOctet();
    if (byFirst & 0x80) {
        const uint32_t dwIndex = ReadIntegerBit2(byFirst);
        strTarget = Lookup(table, dwIndex, pszTable);
        return dwIndex;
    }
    const uint64_t nLength = ReadNonEmptyOctetStringLengthBit2(byFirst);
    const unsigned char* pData = ReadOctets(nLength);
    if (bName && !IsNCName(pData, static_cast<size_t>(nLength))) Fail(kInvalidName);
    Utf8ToLocalText(pData, static_cast<size_t>(nLength), strTarget);
    CFIVocabulary::AddValueToVector(strTarget, table);
    return static_cast<uint32_t>(table.size());
}

const std::string& CFastInfosetReader::Lookup(const CFIStringTable& table, uint32_t dwIndex, const char* pszTable) {
    if (dwIndex == 0 || dwIndex > table.size())
        Fail(FormatString("Failed to parse FastInfoset. Index [%u] is not in the table of %s.", dwIndex, pszTable)
                 .c_str());
    return table[dwIndex - 1];
}

// --- encoded character strings --------------------------------------------------------

CFastInfosetReader::StringView CFastInfosetReader::ReadEncodedCharacterStringBit3(unsigned byFirst) {
    const unsigned nDiscriminant = (byFirst >> 4) & 0x03;
    uint32_t dwIndex = 0;
    unsigned byLength = byFirst;
    if (nDiscriminant >= 2) {
        byLength = ReadOctet();
        dwIndex = (((byFirst & 0x0F) << 4) | (byLength >> 4)) + 1;
    }
    const uint64_t nLength = ReadNonEmptyOctetStringLengthBit5(byLength);
    const unsigned char* pData = ReadOctets(nLength);
    return DecodeString(nDiscriminant, dwIndex, pData, static_cast<size_t>(nLength));
}

CFastInfosetReader::StringView CFastInfosetReader::ReadEncodedCharacterStringBit5(unsigned byFirst) {
    const unsigned nDiscriminant = (byFirst >> 2) & 0x03;
    uint32_t dwIndex = 0;
    unsigned byLength = byFirst;
    if (nDiscriminant >= 2) {
        byLength = ReadOctet();
        dwIndex = (((byFirst & 0x03) << 6) | (byLength >> 2)) + 1;
    }
    const uint64_t nLength = ReadNonEmptyOctetStringLengthBit7(byLength);
    const unsigned char* pData = ReadOctets(nLength);
    return DecodeString(nDiscriminant, dwIndex, pData, static_cast<size_t>(nLength));
}

CFastInfosetReader::StringView CFastInfosetReader::DecodeString(unsigned nDiscriminant, uint32_t dwIndex,
                                                                const unsigned char* pData, size_t nLength) {
    switch (nDiscriminant) {
        case 0:
            if (!IsValidUtf8(pData, nLength)) Fail(kInvalidUtf8);
            if (m_bLocalIsUtf8) {
                // In place: the text ends at an embedded null, as every conversion ends it.
                const char* pText = reinterpret_cast<const char*>(pData);
                return StringView{pText, ::strnlen(pText, nLength)};
            }
            Utf8ToLocalText(pData, nLength, m_strValue);
            break;
        case 1: {
            if (nLength % 2) Fail(kInvalidUtf16Length);
            std::u16string strUnits(nLength / 2, u'\0');
            for (size_t i = 0; i < strUnits.size(); ++i)
                strUnits[i] = static_cast<char16_t>((pData[2 * i] << 8) | pData[2 * i + 1]);
            m_strValue = Utf16ToLocal(strUnits.data(), strUnits.size());
            m_strValue.resize(::strnlen(m_strValue.c_str(), m_strValue.size()));
            break;
        }
        case 2:
            ReadRestrictedAlphabet(pData, nLength, dwIndex);
            break;
        default:
            if (dwIndex == 10) {
                // The cdata algorithm is plain UTF-8 text.
                Utf8ToLocalText(pData, nLength, m_strValue);
            } else {
                CFastInfosetBinaryData data(const_cast<unsigned char*>(pData), static_cast<OxULong>(nLength), false);
                m_strValue = data.GetAsString(dwIndex);
            }
            break;
    }
    return StringView{m_strValue.data(), m_strValue.size()};
}

void CFastInfosetReader::ReadRestrictedAlphabet(const unsigned char* pData, size_t nLength, uint32_t dwIndex) {
    const std::vector<std::string>& alphabets = m_pVocabulary->m_restrictedAlphabets;
    if (dwIndex == 0 || dwIndex > alphabets.size())
        Fail(FormatString("Failed to parse FastInfoset. Index [%u] is not in the table of restricted alphabets.",
                          dwIndex)
                 .c_str());
    // The alphabet as characters: a character of a multibyte code page may take several
    // bytes, and so may a character of UTF-8.
    if (m_alphabetCharacters.size() < alphabets.size()) m_alphabetCharacters.resize(alphabets.size());
    std::vector<std::string>& characters = m_alphabetCharacters[dwIndex - 1];
    if (characters.empty()) {
        const std::string& strAlphabet = alphabets[dwIndex - 1];
        std::u16string strUnits = LocalToUtf16String(strAlphabet.data(), strAlphabet.size());
        for (size_t i = 0; i < strUnits.size() && characters.size() <= CFIVocabulary::MaxTableEntries;) {
            size_t nUnits = (strUnits[i] >= 0xD800 && strUnits[i] < 0xDC00 && i + 1 < strUnits.size()) ? 2 : 1;
            characters.push_back(Utf16ToLocal(strUnits.data() + i, nUnits));
            i += nUnits;
        }
    }
    const size_t nCharacters = characters.size();
    if (nCharacters < 2 || nCharacters > CFIVocabulary::MaxTableEntries) {
        characters.clear();
        Fail(kInvalidAlphabetSize);
    }
    uint32_t nBits = 2;
    while ((size_t(1) << nBits) <= nCharacters) ++nBits;

    m_strValue.clear();
    auto append = [&](uint32_t nPosition) {
        if (nPosition >= nCharacters) Fail(kInvalidAlphabetPosition);
        m_strValue += characters[nPosition];
    };
    if (nBits == 8) {
        for (size_t i = 0; i < nLength; ++i) append(pData[i]);
    } else if (nBits == 4) {
        for (size_t i = 0; i < nLength; ++i) {
            append(pData[i] >> 4);
            if ((pData[i] & 0x0F) == 0x0F) break;
            append(pData[i] & 0x0F);
        }
    } else {
        // Any other width: a stream of values, most significant bit first, ended by the
        // count that the octets hold or by a value of all one bits.
        m_nBitsWanted = nBits;
        m_nBitsLeft = 0;
        const uint32_t nAllOnes = (uint32_t(1) << nBits) - 1;
        const uint64_t nValues = static_cast<uint64_t>(nLength) * 8 / nBits;
        size_t nNext = 0;
        for (uint64_t n = 0; n < nValues; ++n) {
            uint32_t nValue = 0;
            for (uint32_t nWanted = m_nBitsWanted; nWanted > 0;) {
                if (m_nBitsLeft == 0) {
                    m_byBits = pData[nNext++];
                    m_nBitsLeft = 8;
                }
                const uint32_t nTake = nWanted < m_nBitsLeft ? nWanted : m_nBitsLeft;
                nValue = (nValue << nTake) | ((m_byBits >> (m_nBitsLeft - nTake)) & ((1u << nTake) - 1));
                m_nBitsLeft -= nTake;
                nWanted -= nTake;
            }
            if (nValue == nAllOnes) break;
            append(nValue);
        }
    }
}

void CFastInfosetReader::Utf8ToLocalText(const unsigned char* pData, size_t nLength, std::string& strTarget) {
    const char* pText = reinterpret_cast<const char*>(pData);
    if (!IsValidUtf8(pData, nLength)) Fail(kInvalidUtf8);
    if (m_bLocalIsUtf8) {
        strTarget.assign(pText, ::strnlen(pText, nLength));
        return;
    }
    // The scratch buffer: UTF-16 in the first half, the narrow result in the second.
    char16_t* pWide = reinterpret_cast<char16_t*>(m_pScratch);
    char* pNarrow = reinterpret_cast<char*>(m_pScratch + m_dwScratchSize / 2);
    strTarget = Utf8ToLocal(pText, nLength, pWide, m_dwScratchSize / 4, pNarrow, m_dwScratchSize / 2);
}

// --- lengths and integers -------------------------------------------------------------

uint64_t CFastInfosetReader::ReadUInt32() {
    const unsigned char* p = ReadOctets(4);
    return (uint64_t(p[0]) << 24) | (uint64_t(p[1]) << 16) | (uint64_t(p[2]) << 8) | p[3];
}

uint64_t CFastInfosetReader::ReadNonEmptyOctetStringLengthBit2(unsigned byFirst) {
    if ((byFirst & 0x40) == 0) return (byFirst & 0x3F) + 1;
    switch (byFirst & 0x7F) {
        case 0x40:
            return ReadOctet() + 65;
        case 0x60:
            return ReadUInt32() + 321;
        default:
            Fail(kInvalidOctetStringBit2);
    }
}

uint64_t CFastInfosetReader::ReadNonEmptyOctetStringLengthBit5(unsigned byFirst) {
    if ((byFirst & 0x08) == 0) return (byFirst & 0x07) + 1;
    switch (byFirst & 0x0F) {
        case 0x08:
            return ReadOctet() + 9;
        case 0x0C:
            return ReadUInt32() + 265;
        default:
            Fail(kInvalidOctetStringBit5);
    }
}

// Every pattern of the two bits is a form.
uint64_t CFastInfosetReader::ReadNonEmptyOctetStringLengthBit7(unsigned byFirst) {
    if ((byFirst & 0x02) == 0) return (byFirst & 0x01) + 1;
    if ((byFirst & 0x03) == 0x02) return ReadOctet() + 3;
    return ReadUInt32() + 259;
}

// On the second bit every pattern is an integer: whatever starts with 11 is the long form.
uint32_t CFastInfosetReader::ReadIntegerBit2(unsigned byFirst, const char* pszEndMessage) {
    if ((byFirst & 0x40) == 0) return (byFirst & 0x3F) + 1;
    if ((byFirst & 0x20) == 0) return (((byFirst & 0x1F) << 8) | ReadOctet(pszEndMessage)) + 65;
    const unsigned char* p = ReadOctets(2, pszEndMessage);
    return (((byFirst & 0x0F) << 16) | (p[0] << 8) | p[1]) + 8257;
}

uint32_t CFastInfosetReader::ReadIntegerBit3(unsigned byFirst) {
    if ((byFirst & 0x20) == 0) return (byFirst & 0x1F) + 1;
    switch (byFirst & 0x38) {
        case 0x20:
            return (((byFirst & 0x07) << 8) | ReadOctet()) + 33;
        case 0x28: {
            const unsigned char* p = ReadOctets(2);
            return (((byFirst & 0x07) << 16) | (p[0] << 8) | p[1]) + 2081;
        }
        case 0x30: {
            const unsigned char* p = ReadOctets(3);
            return (((p[0] & 0x0F) << 16) | (p[1] << 8) | p[2]) + 526369;
        }
        default:
            Fail(kInvalidIntegerBit3);
    }
}

uint32_t CFastInfosetReader::ReadIntegerBit4(unsigned byFirst) {
    if ((byFirst & 0x10) == 0) return (byFirst & 0x0F) + 1;
    switch (byFirst & 0x1C) {
        case 0x10:
            return (((byFirst & 0x03) << 8) | ReadOctet()) + 17;
        case 0x14: {
            const unsigned char* p = ReadOctets(2);
            return (((byFirst & 0x03) << 16) | (p[0] << 8) | p[1]) + 1041;
        }
        case 0x18: {
            const unsigned char* p = ReadOctets(3);
            return (((p[0] & 0x0F) << 16) | (p[1] << 8) | p[2]) + 263185;
        }
        default:
            Fail(kInvalidIntegerBit4);
    }
}

uint32_t CFastInfosetReader::ReadSequenceLength() {
    const unsigned byFirst = ReadOctet();
    if (byFirst < 0x80) return byFirst + 1;
    const unsigned char* p = ReadOctets(2);
    return (((byFirst & 0x0F) << 16) | (p[0] << 8) | p[1]) + 129;
}

// --- items passed over ----------------------------------------------------------------

void CFastInfosetReader::SkipNonEmptyOctetStringBit2(unsigned byFirst) {
    ReadOctets(ReadNonEmptyOctetStringLengthBit2(byFirst));
}

void CFastInfosetReader::SkipIdentifyingStringOrIndex() {
    const unsigned byFirst = ReadOctet();
    if (byFirst & 0x80)
        ReadIntegerBit2(byFirst);
    else
        SkipNonEmptyOctetStringBit2(byFirst);
}

void CFastInfosetReader::SkipNonIdentifyingStringOrIndex() {
    const unsigned byFirst = ReadOctet();
    if (byFirst & 0x80) {
        if ((byFirst & 0x7F) != 0x7F) ReadIntegerBit2(byFirst);
        return;
    }
    // The octets are passed over undecoded: their content goes nowhere.
    unsigned byLength = byFirst;
    if (((byFirst >> 4) & 0x03) >= 2) byLength = ReadOctet();
    ReadOctets(ReadNonEmptyOctetStringLengthBit5(byLength));
}

void CFastInfosetReader::SkipProcessingInstruction() {
    SkipIdentifyingStringOrIndex();  // target
    SkipNonIdentifyingStringOrIndex();
}

void CFastInfosetReader::SkipComment() { SkipNonIdentifyingStringOrIndex(); }

void CFastInfosetReader::SkipEntityReference(unsigned byFirst) {
    SkipIdentifyingStringOrIndex();  // name
    if (byFirst & 0x02) SkipIdentifyingStringOrIndex();
    if (byFirst & 0x01) SkipIdentifyingStringOrIndex();
}

// The identifiers, then the processing instructions inside the declaration up to its
// terminator. An octet FF ends the declaration and the document in one.
bool CFastInfosetReader::SkipDocumentTypeDeclaration(unsigned byFirst) {
    if (byFirst & 0x02) SkipIdentifyingStringOrIndex();
    if (byFirst & 0x01) SkipIdentifyingStringOrIndex();
    for (;;) {
        const unsigned byItem = ReadOctet();
        if (byItem == 0xE1)
            SkipProcessingInstruction();
        else if (byItem == 0xF0)
            return true;
        else if (byItem == 0xFF)
            return false;
        else
            Fail(kInvalidDocumentType);
    }
}

}  // namespace OrvexXml
