#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "orvexxml/export.h"
#include "orvexxml/fastinfoset/fastinfosetcontext.h"
#include "orvexxml/fastinfoset/finfodecl.h"
#include "orvexxml/fastinfoset/fivocabulary.h"
#include "orvexxml/infrastructure/binarystream.h"
#include "orvexxml/writers/xmlwriter.h"

namespace OrvexXml {

// Writes the events of the binding engine as a Fast Infoset document (ITU-T X.891) into a
// CBinaryStream: elements, attributes, the namespace attributes of the root element and
// character chunks. Names always enter the vocabulary's tables; values enter them when they
// are shorter than the context's limits, so that a repeated short value is written as an index.
//
// An element's first octet says whether attributes follow, which only the next event tells:
// WriteStartElement keeps the element pending, and the next event writes it. An element's
// end is four bits, which share their octet with the next end when one follows.
class ORVEXXML_API CFastInfosetWriter : public CXmlWriter {
public:
    // Neither is owned. The vocabulary starts as a copy of the context's ready-made one when
    // the context asks for it, empty otherwise.
    CFastInfosetWriter(CFastInfosetContext* pFIContext, CBinaryStream* pStream);
    ~CFastInfosetWriter() override;

    // Throws COxException "An Element has not been closed." while an element is open or pending.
    void EndDocument() override;
    // Fast Infoset documents of this writer carry no comments, instructions or schemas.
    void WriteComment(const std::string& strText) override;
    void WriteProcessingInstruction(const std::string& strText) override;
    void WriteInLineSchema(const std::string& strText) override;
    void WriteStartElement(const std::string& strName, const std::string& strNamespace) override;
    void WriteElementText(const std::string& strValue, ItemType eType, bool bIsDefaultValue) override;
    void WriteEndElement() override;
    // Throws COxException "Attributes must be added before elements" once the element has content.
    void WriteAttribute(const std::string& strName, const std::string& strNamespace, const std::string& strValue,
                        ItemType eType) override;
    void WriteXsiType(const std::string& strNamespace, const std::string& strTypeName, ItemType eType) override;
    void WriteXsiNil() override;

    // The XML declaration if any, the identification and version, and the reference to the
    // ready-made vocabulary when the context uses one. Throws COxInvalidParamException for a
    // declaration outside FInfoDecl.
    void WriteHeader(FInfoDecl eDecl);
    // The end of the document, merged with a pending element end.
    void WriteFooter();

    // The URI written for a ready-made vocabulary that the context names none for.
    static constexpr const char* DefaultVocabularyURI = "urn:orvexxml:fastinfoset:generated-vocabulary";

private:
    void Write(unsigned char byOctet) { m_pStream->Append(byOctet); }
    // Writes the pending element, if any, with the attributes bit as given.
    void WritePendingElement(bool bHasAttributes);
    // Before content of the open element: an open attribute list is closed.
    void EndStartTag();
    // Before anything that follows a finished element: a pending end takes an octet of its own.
    void FlushTerminator();
    // The refusal of an attribute once content has begun.
    void CheckAttributeAllowed() const;
    // The prefix that strNamespace has in the scope of pContext; a new one, set in that scope,
    // if it has none.
    std::string PrefixInScopeOf(CXmlWriterContext* pContext, const std::string& strNamespace);

    // A qualified name starting on the second bit (attributes) or the third (elements): its
    // index if the name is in map, else the literal form, which enters map.
    void AppendQualifiedName(unsigned char byCurrent, bool bThirdBit, const std::string& strPrefix,
                             const std::string& strNamespace, const std::string& strLocalName,
                             CFIVocabulary::IndexMap& map);
    // The parts of a literal qualified name, each an index or a literal that enters its table.
    void AppendNameParts(const std::string& strPrefix, const std::string& strNamespace,
                         const std::string& strLocalName);
    // An identifying string starting on the first bit: the index from the map, or the literal
    // that then enters the table through pfnAdd.
    void AppendIdentifyingString(const std::string& strValue, const CFIVocabulary::IndexMap& map,
                                 void (CFIVocabulary::*pfnAdd)(std::string));

    void AppendAttributeValue(const std::string& strValue, ItemType eType);
    void AppendCharacterChunk(const std::string& strValue, ItemType eType);
    void AppendEncodedCharacterStringBit5(unsigned char byCurrent, const std::string& strValue, ItemType eType);
    void AppendEncodedCharacterStringBit7(unsigned char byCurrent, const std::string& strValue, ItemType eType);
    // The encoding of values of eType in the context.
    CFastInfosetContext::EncodedCharacterString EncodingOf(ItemType eType) const;
    // Whether values of eType are UTF-8 strings and the local text is UTF-8 already: the bytes
    // are written as they stand.
    bool IsPlainUtf8(ItemType eType) const;
    // The octets of the value as the encoding of its type gives them, with the kind and the
    // alphabet's or algorithm's index; pszUnknownKind is the refusal of an unknown kind.
    CBinaryData EncodeValue(const std::string& strValue, ItemType eType, const char* pszUnknownKind,
                            CFastInfosetContext::EncodingKind& eKind, uint32_t& dwIndex) const;
    CBinaryData AppendRestrictedAlphabetString(uint32_t dwAlphabetIndex, const std::string& strValue) const;

    void AppendNonEmptyOctetStringBit2(unsigned char byCurrent, const std::string& strLocal);
    void AppendNonEmptyOctetStringBit5(unsigned char byCurrent, const unsigned char* pData, OxULong nLength);
    void AppendNonEmptyOctetStringBit7(unsigned char byCurrent, const unsigned char* pData, OxULong nLength);
    void AppendIntegerBit2(unsigned char byCurrent, uint32_t dwIndex);
    void AppendIntegerBit3(unsigned char byCurrent, uint32_t dwIndex);
    void AppendIntegerBit4(unsigned char byCurrent, uint32_t dwIndex);
    void AppendNonEmptyOctetString(unsigned char byCurrent, const unsigned char* pData, OxULong nLength, OxULong nSmall,
                                   unsigned char byMedium, unsigned char byLarge);
    void AppendEncodedCharacterString(unsigned char byCurrent, const std::string& strValue, ItemType eType, bool bBit7);
    void AppendIntegerBit3Or4(unsigned char byCurrent, uint32_t dwIndex, int nFree);
    // The 32-bit length of the long octet string forms, most significant octet first.
    void AppendLength32(OxULong nValue);

    CBinaryStream* m_pStream;              // not owned
    CFastInfosetContext* m_pFIContext;     // not owned
    CXmlWriterContext* m_pPendingContext;  // begun but not yet written; owned while pending
    bool m_bTerminatorPending;             // an element end of four bits is owed
    CFIVocabulary* m_pVocabulary;          // owned: the tables of this document
    // Prefixes made for the pending element's xsi:type, declared by its namespace attributes.
    std::vector<std::pair<std::string, std::string>> m_vecPendingDeclarations;  // prefix, namespace
    std::string m_strKeyScratch;  // the key of the name being looked up; its buffer is reused
};

}  // namespace OrvexXml
