#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/jsoncontext.h"
#include "orvexxml/writers/xmlwriter.h"

namespace OrvexXml {

// Writes the events of CXmlWriter as JSON text into a CTextStream, which it does not own.
// The document is one object with one member named after the root element. An element with
// only text is a plain member; attributes, children or declarations make it an object, whose
// "{" is written when its first member arrives. The items of a collection (marked by the
// binding engine through SetCollectionState) form an array behind one name, whose "[" is
// written with the first item's content and whose "]" ends the collection.
//
// The writer's contexts use m_nDepth as the indentation level of the element's member line,
// m_nCollectionState as 0 (no collection), 1 (collection begun, array not open yet) or 2
// (array open), and m_strPrefix ("p:") as in the XML writer, under the full mode only.
//
// Usage: StartDocument, the setters, WriteHeader, the elements, WriteFooter, EndDocument.
// Not reachable from the umbrella header: the ToJson entry points of the objects make it;
// it is visible for the tests of the library.
class ORVEXXML_API CJsonTextWriter : public CXmlWriter {
public:
    explicit CJsonTextWriter(CTextStream* pStream);
    ~CJsonTextWriter() override;

    // --- CXmlWriter ------------------------------------------------------------------------
    void StartDocument() override;
    void EndDocument() override;
    // A "/* */" comment on a line of its own; JSON readers that allow comments skip it.
    void WriteComment(const std::string& strText) override;
    // JSON has no place for these two: they leave no trace.
    void WriteProcessingInstruction(const std::string& strText) override;
    void WriteInLineSchema(const std::string& strText) override;
    // Throws COxException "Unknown Namespace: %s." for an element below the root, under
    // JsonRoundTrip_Full, whose namespace has no prefix in scope.
    void WriteStartElement(const std::string& strName, const std::string& strNamespace) override;
    // Default values are always written. A second value of one element, or a member behind
    // a value, is refused: JSON has no form for either.
    void WriteElementText(const std::string& strValue, ItemType eType, bool bIsDefaultValue) override;
    // An element that got neither members nor a value (a nil element, an empty object) is
    // written as null.
    void WriteEndElement() override;
    void WriteAttribute(const std::string& strName, const std::string& strNamespace, const std::string& strValue,
                        ItemType eType) override;
    // Only under JsonRoundTrip_Full, as the attribute "type" of the XML Schema instance
    // namespace, which then needs a registered prefix.
    void WriteXsiType(const std::string& strNamespace, const std::string& strTypeName, ItemType eType) override;
    // A nil element is told by its empty value; nothing is written.
    void WriteXsiNil() override;
    // 3 on an open array closes it; 3 on a collection that opened no array ends it.
    void SetCollectionState(uint32_t nState) override;

    // --- settings, before the first element ------------------------------------------------
    bool GetFormatted() const { return m_bFormatted; }
    void SetFormatted(bool bFormatted) { m_bFormatted = bFormatted; }
    EOLType GetEOLType() const { return m_eEOLType; }
    // Throws COxException "Invalid EOL type." for any value but CRLF and LF, changing nothing.
    void SetEOLType(EOLType eEOLType);
    JsonRoundTrip GetSupportRoundtrip() const { return m_eRoundTrip; }
    void SetSupportRoundtrip(JsonRoundTrip eMode) { m_eRoundTrip = eMode; }
    const std::string& GetIndentChars() const { return m_strIndentChars; }
    // A null pointer stands for no indentation.
    void SetIndentChars(const char* pszIndentChars);

    // The opening brace of the document, before the first element.
    void WriteHeader();
    // The closing brace, after the last element.
    void WriteFooter();

private:
    void WriteEOL() { m_pStream->WriteString(m_strEOL.data(), m_strEOL.size()); }
    void WriteIndent(uint32_t nDepth);
    // Writes "name": with "@" in front for an attribute and strPrefix ("p:" or empty) before
    // the name.
    void WriteMemberName(bool bAttribute, const std::string& strPrefix, const std::string& strName);
    // "@xmlns" or "@xmlns:prefix" with the URI as its value, as a member of pContext.
    void WriteDeclaration(CXmlWriterContext* pContext, const std::string& strPrefix, const std::string& strNamespace);
    // The separator before a member of pContext: "{" (after "[" for the first item of an
    // array) while the element has nothing yet, "," otherwise; then a line end.
    void BeginMember(CXmlWriterContext* pContext);
    void OpenArray(CXmlWriterContext* pContext);
    void CloseArray(CXmlWriterContext* pContext);
    // A number or boolean bare when its text is one in JSON's grammar; everything else as a
    // quoted, escaped string.
    void WriteValue(const std::string& strValue, ItemType eType);
    void EscapeAndWrite(const char* pszText);
    // The prefix of strNamespace in the open element's scope; throws "Unknown Namespace: %s."
    // when there is none.
    const std::string& PrefixOf(const CXmlWriterContext* pContext, const std::string& strNamespace) const;
    [[noreturn]] void ThrowHoldsValue() const;
    void FlushIfLarge() {
        if (m_pStream->GetLength() >= 4096) m_pStream->Flush();
    }

    std::string m_strIndentChars;  // written once per depth level
    std::string m_strEOL;          // line end of m_eEOLType
    EOLType m_eEOLType;
    JsonRoundTrip m_eRoundTrip;
    bool m_bFormatted;
    CTextStream* m_pStream;  // not owned
    // The innermost element's name is written and nothing behind it yet: neither "{" nor a
    // value.
    bool m_bValuePending;
    // The innermost element has its value behind its name: it can take nothing more.
    bool m_bScalarWritten;
    // m_strIndentChars repeated, so that an indent of any depth is one append.
    std::string m_strIndentRun;
};

}  // namespace OrvexXml
