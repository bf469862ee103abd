#pragma once

#include <string>
#include <vector>

#include "orvexxml/export.h"
#include "orvexxml/json/errorpathprovider.h"
#include "orvexxml/json/jsonreaderhandler.h"
#include "orvexxml/writers/jsoncontext.h"

namespace OrvexXml {

class CXmlTextWriter;

// Turns the events of a JSON document back into the XML calls that CJsonTextWriter folds
// into JSON: a member opens an element of its name, which its value closes; "@name" members
// are attributes and "#text" the text beside them (except under JsonRoundTrip_None, where
// both are plain names); the items of an array repeat the array's name. Every value goes
// to the writer as text: types and namespaces are left to the XML reader, which sees prefixes
// and "@xmlns" declarations as the literal names they are.
//
// Refused, with a COxValidationException that carries the reader's path: an empty member
// name, an array without a name or for an attribute, an empty array (an empty collection has
// no member at all, and an element for it would read back as one item), a value or attribute
// with no element to hold it, a member behind "#text" (it would land in the parent). Names
// that would break the XML markup, and what the writer refuses, fail with
// COxInvalidStateException naming the name or value.
class ORVEXXML_API CJsonReaderToXmlHandler : public IJsonReaderHandler {
public:
    // The writer and the path provider are borrowed and must outlive the handler.
    CJsonReaderToXmlHandler(CXmlTextWriter* pWriter, JsonRoundTrip eRoundTrip, IErrorPathProvider* pErrorPath);
    ~CJsonReaderToXmlHandler() override;
    CJsonReaderToXmlHandler(const CJsonReaderToXmlHandler&) = delete;
    CJsonReaderToXmlHandler& operator=(const CJsonReaderToXmlHandler&) = delete;

    void StartDocument() override;
    void EndDocument() override;
    void Name(const std::string& strName) override;
    void String(const std::string& strValue) override;
    void Number(const std::string& strValue) override;
    void StartObject() override;
    void EndObject() override;
    void StartArray() override;
    void EndArray() override;
    void Bool(bool bValue) override;
    void Null() override;

private:
    // Opens the element of a member or array item.
    void StartElementName(const std::string& strName);
    // A value is complete: closes its element (an attribute has none to close).
    void EndValue();
    // String, Number and Bool: the text of the awaited element or attribute.
    void Value(const std::string& strText);
    // Opens the next item of the innermost array when no name awaits a value.
    void StartArrayItem();
    [[noreturn]] void Fail(const std::string& strMessage) const;

    CXmlTextWriter* m_pWriter;
    JsonRoundTrip m_eRoundTrip;
    IErrorPathProvider* m_pErrorPath;
    std::vector<std::string> m_elementStack;
    std::vector<std::string> m_arrayStack;
    std::string m_strName;
    bool m_bAttribute;
    bool m_bText;
};

}  // namespace OrvexXml
