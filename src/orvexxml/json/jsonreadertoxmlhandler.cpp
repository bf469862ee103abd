#include "orvexxml/json/jsonreadertoxmlhandler.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/writers/xmltextwriter.h"

namespace OrvexXml {

namespace {

const char* const g_pszTextName = "#text";

// The writer takes names as they are. A byte that ends a name or opens markup (white space,
// control bytes, quotes, "=", "/", "<", ">", "&") would let a JSON name smuggle attributes or
// tags into the XML text, so it is refused here; everything else, prefixes included, is left
// to the XML parser.
void CheckName(const std::string& strName) {
    for (char ch : strName) {
        const unsigned char c = static_cast<unsigned char>(ch);
        if (c > 0x20 && c != 0x7F && c != '<' && c != '>' && c != '&' && c != '"' && c != '\'' && c != '=' && c != '/')
            continue;
        throw COxException(FormatString("The name holds the byte 0x%02X, which can't stand in an XML name.", c));
    }
}

}  // namespace

CJsonReaderToXmlHandler::CJsonReaderToXmlHandler(CXmlTextWriter* pWriter, JsonRoundTrip eRoundTrip,
                                                 IErrorPathProvider* pErrorPath)
    : m_pWriter(pWriter), m_eRoundTrip(eRoundTrip), m_pErrorPath(pErrorPath), m_bAttribute(false), m_bText(false) {}

CJsonReaderToXmlHandler::~CJsonReaderToXmlHandler() {}

void CJsonReaderToXmlHandler::Fail(const std::string& strMessage) const {
    throw COxValidationException(strMessage, m_pErrorPath ? m_pErrorPath->GetErrorPath() : std::string());
}

void CJsonReaderToXmlHandler::StartElementName(const std::string& strName) {
    m_bAttribute = false;
    m_strName = strName;
    try {
        CheckName(strName);
        m_pWriter->WriteStartElement(strName, std::string());
    } catch (const COxException& e) {
        throw COxInvalidStateException(
            FormatString("Failed to convert name '%s' to Element name in XML.", strName.c_str()), e);
    }
    m_elementStack.push_back(strName);
}

void CJsonReaderToXmlHandler::EndValue() {
    m_strName.clear();
    if (m_bAttribute) {
        m_bAttribute = false;
        return;
    }
    if (m_elementStack.empty()) return;
    m_elementStack.pop_back();
    m_pWriter->WriteEndElement();
}

void CJsonReaderToXmlHandler::StartArrayItem() {
    if (m_strName.empty() && !m_bText && !m_arrayStack.empty()) StartElementName(m_arrayStack.back());
}

void CJsonReaderToXmlHandler::Value(const std::string& strText) {
    StartArrayItem();
    if (m_bAttribute) {
        if (m_elementStack.empty()) Fail("JSON value has no element to hold it.");
        try {
            CheckName(m_strName);
            m_pWriter->WriteAttribute(m_strName, std::string(), strText, ItemType_string);
        } catch (const COxException& e) {
            throw COxInvalidStateException(
                FormatString("Failed to convert value '%s' to Attribute string value in XML.", strText.c_str()), e);
        }
    } else {
        // Text needs an open element: a scalar document or a top-level "#text" has none.
        if (m_elementStack.empty()) Fail("JSON value has no element to hold it.");
        try {
            m_pWriter->WriteElementText(strText, ItemType_string, false);
        } catch (const COxException& e) {
            throw COxInvalidStateException(
                FormatString("Failed to convert value '%s' to Element string value in XML.", strText.c_str()), e);
        }
    }
    EndValue();
}

void CJsonReaderToXmlHandler::StartDocument() {
    m_elementStack.clear();
    m_arrayStack.clear();
    m_strName.clear();
    m_bAttribute = false;
    m_bText = false;
    m_pWriter->WriteHeader();
}

void CJsonReaderToXmlHandler::EndDocument() {}

void CJsonReaderToXmlHandler::Name(const std::string& strName) {
    if (strName.empty()) Fail("JSON item has an empty Name.");
    // "#text" closed the element of its object: a later member would land in the parent.
    if (m_bText)
        Fail(FormatString("JSON item '%s' follows \"#text\", which must be the last member of its object.",
                          strName.c_str()));
    if (m_eRoundTrip != JsonRoundTrip_None) {
        if (strName == g_pszTextName) {
            m_bText = true;
            m_bAttribute = false;
            return;
        }
        if (strName[0] == '@') {
            m_bAttribute = true;
            m_strName.assign(strName, 1, std::string::npos);
            return;
        }
    }
    StartElementName(strName);
}

void CJsonReaderToXmlHandler::String(const std::string& strValue) { Value(strValue); }

void CJsonReaderToXmlHandler::Number(const std::string& strValue) { Value(strValue); }

void CJsonReaderToXmlHandler::Bool(bool bValue) {
    static const std::string s_strTrue("true");
    static const std::string s_strFalse("false");
    Value(bValue ? s_strTrue : s_strFalse);
}

void CJsonReaderToXmlHandler::Null() {
    // The element stays empty; an attribute with a null value is not written at all.
    StartArrayItem();
    EndValue();
}

void CJsonReaderToXmlHandler::StartObject() {
    if (m_bText) Fail("JSON item '#text' holds an Object.");
    if (m_strName.empty() && !m_arrayStack.empty()) StartElementName(m_arrayStack.back());
}

void CJsonReaderToXmlHandler::EndObject() {
    if (!m_bText) EndValue();
    m_bText = false;
}

void CJsonReaderToXmlHandler::StartArray() {
    // The items would be text of one element, and from the second on of the parent.
    if (m_bText) Fail("JSON item '#text' holds an Array.");
    if (m_strName.empty()) Fail("JSON Array has no Name.");
    if (m_bAttribute) Fail(FormatString("JSON attribute '%s' holds an Array.", m_strName.c_str()));
    m_arrayStack.push_back(m_strName);
}

void CJsonReaderToXmlHandler::EndArray() {
    // The first item takes the name that opened the array; while it is still awaited, no item
    // came.
    if (!m_strName.empty()) Fail(FormatString("JSON Array '%s' is empty.", m_strName.c_str()));
    m_arrayStack.pop_back();
}

}  // namespace OrvexXml
