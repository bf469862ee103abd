#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/xmlwriter.h"

namespace OrvexXml {

// Writes the events of CXmlWriter as XML text into a CTextStream, which it does not own.
// Strings are written byte by byte in the local encoding; the stream converts them later.
//
// Usage: StartDocument, the setters, WriteHeader if a declaration is wanted, the elements,
// EndDocument; then read the text from the stream.
class ORVEXXML_API CXmlTextWriter : public CXmlWriter {
public:
    explicit CXmlTextWriter(CTextStream* pStream);
    ~CXmlTextWriter() override;

    // --- CXmlWriter ------------------------------------------------------------------------
    // The base, then Start on the stream.
    void StartDocument() override;
    // End on the stream first, so that a file is complete before the open-element check.
    void EndDocument() override;
    void WriteComment(const std::string& strText) override;
    void WriteProcessingInstruction(const std::string& strText) override;
    // Lands inside the root element's start tag, after its attributes; the tag stays open.
    void WriteInLineSchema(const std::string& strText) override;
    void WriteStartElement(const std::string& strName, const std::string& strNamespace) override;
    void WriteElementText(const std::string& strValue, ItemType eType, bool bIsDefaultValue) override;
    void WriteEndElement() override;
    void WriteAttribute(const std::string& strName, const std::string& strNamespace, const std::string& strValue,
                        ItemType eType) override;
    void WriteXsiType(const std::string& strNamespace, const std::string& strTypeName, ItemType eType) override;
    void WriteXsiNil() override;

    // --- settings, before the first element ------------------------------------------------
    bool GetFormatted() const { return m_bFormatted; }
    void SetFormatted(bool bFormatted) { m_bFormatted = bFormatted; }
    EOLType GetEOLType() const { return m_eEOLType; }
    // Throws COxException "Invalid EOL type." for any value but CRLF and LF, changing nothing.
    void SetEOLType(EOLType eEOLType);
    const std::string& GetIndentChars() const { return m_strIndentChars; }
    // A null pointer stands for no indentation.
    void SetIndentChars(const char* pszIndentChars);
    bool GetWriteDefaultValues() const { return m_bWriteDefaultValues; }
    void SetWriteDefaultValues(bool bWriteDefaultValues) { m_bWriteDefaultValues = bWriteDefaultValues; }
    // Off by default: element text and attribute values are written byte for byte, and a null
    // byte ends the value. On, a value holding a byte that XML 1.0 can't carry (below 0x20
    // other than tab, LF and CR, or a null byte inside the string) throws
    // COxInvalidValueException with the path of the element or attribute, before anything of
    // the value is written.
    bool GetCheckCharacters() const { return m_bCheckCharacters; }
    void SetCheckCharacters(bool bCheckCharacters) { m_bCheckCharacters = bCheckCharacters; }
    // The deepest element level WriteStartElement accepts, the root being level 1. One level
    // deeper throws COxValidationException with the limit and the element's path.
    int32_t GetMaxDepth() const { return m_nMaxDepth; }
    void SetMaxDepth(int32_t nMaxDepth) { m_nMaxDepth = nMaxDepth; }

    // The XML declaration, naming the stream's encoding if it has one to name.
    void WriteHeader();
    // Counts a child of the open element and closes its start tag if still open.
    void CloseStartTag();
    // Writes strText unchanged, then a line end if formatted. With CloseStartTag, splices in
    // an element rendered by another writer.
    void WriteRaw(const std::string& strText);

protected:
    CXmlTextWriter(const char* pszClassName, CTextStream* pStream);

    // Writes a null-terminated text with the XML special characters replaced; in attribute
    // mode also the double quote and the line feed.
    // Writes a namespace URI as an attribute value that reads back as the same URI.
    void WriteNamespaceURI(const std::string& strNamespace);
    void EscapeAndWrite(const char* pszText, bool bAttribute);
    // Writes a value that begins with a CDATA section: complete sections unchanged, the text
    // around them escaped.
    void WriteCDataText(const char* pszValue);
    // Passes the text on once 4096 characters have piled up.
    void FlushIfLarge() {
        if (m_pStream->GetLength() >= 4096) m_pStream->Flush();
    }

    bool m_bWriteDefaultValues;
    std::string m_strIndentChars;  // written once per depth level
    std::string m_strEOL;          // line end of m_eEOLType
    EOLType m_eEOLType;
    bool m_bFormatted;
    bool m_bCheckCharacters;
    int32_t m_nMaxDepth;
    CTextStream* m_pStream;  // not owned

private:
    void WriteEOL() { m_pStream->WriteString(m_strEOL.data(), m_strEOL.size()); }
    void WriteIndent(uint32_t nDepth);
    void WriteNamespaceDeclaration(const std::string& strPrefix, const std::string& strNamespace);
    void CheckInStartTag() const;
    // Throws if m_bCheckCharacters and strValue holds a byte that XML 1.0 can't carry;
    // pszAttribute names the attribute, null for element text.
    void CheckCharacters(const std::string& strValue, const char* pszAttribute) const;

    // m_strIndentChars repeated, so that an indent of any depth is one append.
    std::string m_strIndentRun;
};

}  // namespace OrvexXml
