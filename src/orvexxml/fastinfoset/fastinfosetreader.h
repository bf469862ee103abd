#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"

namespace OrvexXml {

class CFastInfosetContext;
class CFIStringTable;
class CFIQNameTable;
class CFIVocabulary;
class CXmlDocument;
class CXmlElement;

// Reads a Fast Infoset document (ITU-T X.891) from the document's buffer, in place, and
// builds the tree through the same operations as the XML text reader, so that the binding
// walks can't tell the two forms apart. It is also the detector of the format: Parse()
// returns false, having changed nothing, for bytes that are no Fast Infoset.
//
// What the tree can't hold is read and passed over: comments, processing instructions,
// document type declarations, entity references, notations, unparsed entities and the other
// parts of the preamble. Namespace declarations fill the document's prefix map and never
// become attributes. Reading ends with the terminator of the root element.
class ORVEXXML_API CFastInfosetReader : public CInstanceMonitor {
public:
    // The vocabulary of the document starts as a copy of the context's ready-made vocabulary
    // when the context says so, and empty otherwise; it is made once the input has been
    // recognised as Fast Infoset.
    CFastInfosetReader(CFastInfosetContext* pFIContext, CXmlDocument* pDocument);
    ~CFastInfosetReader() override;

    CFastInfosetReader(const CFastInfosetReader&) = delete;
    CFastInfosetReader& operator=(const CFastInfosetReader&) = delete;

    // False for data that is no Fast Infoset; true once the document has been read into the
    // tree. A malformed document throws COxException. Runs once per reader.
    bool Parse();

private:
    // A decoded string: either bytes of the input, in place, or the text of a member.
    struct StringView {
        const char* pData;
        size_t nLength;
    };

    // Frees the vocabulary and the scratch buffer; may run twice.
    void Cleanup();
    [[noreturn]] void Fail(const char* pszMessage);

    // Moves past n octets and returns the first; fails at the end of the input.
    const unsigned char* ReadOctets(uint64_t n, const char* pszEndMessage = nullptr) {
        m_pLast = m_pCurrent;
        if (n > static_cast<uint64_t>(m_pEnd - m_pCurrent)) Fail(pszEndMessage ? pszEndMessage : ms_pszEndOfFile);
        m_pCurrent += n;
        return m_pLast;
    }
    unsigned ReadOctet(const char* pszEndMessage = nullptr) { return *ReadOctets(1, pszEndMessage); }

    bool CheckHeader();
    void ReadPreamble();
    void ReadInitialVocabulary();
    void ReadDocumentChildren();
    void ReadElement(unsigned byFirst);
    // Opens one element: namespace attributes, name, attributes. True when the attribute
    // list ended with the terminator of the element too.
    bool StartElement(unsigned byFirst);
    void ReadNamespaceAttribute(unsigned byFirst);
    void ReadAttribute(unsigned byFirst, CXmlElement* pElement);
    void ReadCharacterChunk(unsigned byFirst, CXmlElement* pElement);

    // Names: the result is in m_pNamespace and m_pLocalName.
    void ReadQualifiedNameBit3(unsigned byFirst);
    void ReadQualifiedNameBit2(unsigned byFirst);
    void ReadLiteralQualifiedName(unsigned byFlags, CFIQNameTable& table);
    void ResolveQualifiedName(const CFIQNameTable& table, uint32_t dwIndex, const char* pszTable);
    // An identifying string or index; a literal enters the table. Returns the index. A
    // literal that is to be a name must look like an XML name.
    uint32_t ReadIdentifyingStringOrIndex(CFIStringTable& table, std::string& strTarget, const char* pszTable,
                                          bool bName = false);
    const std::string& Lookup(const CFIStringTable& table, uint32_t dwIndex, const char* pszTable);

    // Encoded character strings, starting on the third and on the fifth bit of byFirst.
    StringView ReadEncodedCharacterStringBit3(unsigned byFirst);
    StringView ReadEncodedCharacterStringBit5(unsigned byFirst);
    StringView DecodeString(unsigned nDiscriminant, uint32_t dwIndex, const unsigned char* pData, size_t nLength);
    void ReadRestrictedAlphabet(const unsigned char* pData, size_t nLength, uint32_t dwIndex);
    // UTF-8 to local text into strTarget.
    void Utf8ToLocalText(const unsigned char* pData, size_t nLength, std::string& strTarget);

    // Lengths and integers by the position they start at.
    uint64_t ReadNonEmptyOctetStringLengthBit2(unsigned byFirst);
    uint64_t ReadNonEmptyOctetStringLengthBit5(unsigned byFirst);
    uint64_t ReadNonEmptyOctetStringLengthBit7(unsigned byFirst);
    uint32_t ReadIntegerBit2(unsigned byFirst, const char* pszEndMessage = nullptr);
    uint32_t ReadIntegerBit3(unsigned byFirst);
    uint32_t ReadIntegerBit4(unsigned byFirst);
    uint32_t ReadSequenceLength();
    uint64_t ReadUInt32();

    // Items that are read only to be passed over.
    void SkipNonEmptyOctetStringBit2(unsigned byFirst);
    void SkipIdentifyingStringOrIndex();
    void SkipNonIdentifyingStringOrIndex();
    void SkipProcessingInstruction();
    void SkipComment();
    void SkipEntityReference(unsigned byFirst);
    // Returns false when its terminator ended the document as well.
    bool SkipDocumentTypeDeclaration(unsigned byFirst);

    static const char* const ms_pszEndOfFile;

    CFastInfosetContext* m_pFIContext;
    CXmlDocument* m_pDocument;
    const unsigned char* m_pCurrent;
    const unsigned char* m_pLast;
    uint32_t m_nBitsWanted;
    uint32_t m_nBitsLeft;
    uint8_t m_byBits;
    std::string m_strPrefix;
    std::string m_strNamespace;
    std::string m_strLocalName;
    bool m_bDoubleTerminator;
    std::string m_strValue;
    uint32_t m_dwLastValue;
    bool m_bAddToTable;
    unsigned char* m_pScratch;
    uint32_t m_dwScratchSize;
    CFIVocabulary* m_pVocabulary;

    const unsigned char* m_pEnd;  // one past the last octet of the input
    bool m_bLocalIsUtf8;          // UTF-8 input goes into the tree as it is
    // The last name read: into a table of the vocabulary or into the m_str... members.
    const std::string* m_pNamespace;
    const std::string* m_pLocalName;
    // The characters of each restricted alphabet, one local string each, built on first use.
    std::vector<std::vector<std::string>> m_alphabetCharacters;
};

}  // namespace OrvexXml
