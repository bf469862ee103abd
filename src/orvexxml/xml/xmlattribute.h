#pragma once

#include <cstddef>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"

namespace OrvexXml {

class CXmlElement;

// One attribute of a parsed element: local name, namespace URI (empty for none) and value,
// all in the local encoding. Attributes are created and destroyed by their element only.
class ORVEXXML_API CXmlAttribute : public CInstanceMonitor {
    friend class CXmlElement;

public:
    // A copy would make a second owner of the same node: the tree is not copyable.
    CXmlAttribute(const CXmlAttribute&) = delete;
    CXmlAttribute& operator=(const CXmlAttribute&) = delete;

    const CXmlElement* GetElement() const { return m_pElement; }
    const std::string& GetLocalName() const { return *m_pLocalName; }
    const std::string& GetNamespaceURI() const { return *m_pNamespace; }
    const std::string& GetValue() const { return m_strValue; }

    // True for xsi:type, xsi:schemaLocation, xsi:noNamespaceSchemaLocation and xmlns, in the
    // XML Schema instance or the xmlns namespace. xsi:nil is not one of them.
    bool IsNamespaceAttribute() const;
    // True for "nil" in the XML Schema instance or the xmlns namespace.
    bool IsNilAttribute() const;
    // The element's path, "/", the prefix of the namespace with ":" when it has one, then
    // "@" and the local name: /order/xs:@name.
    std::string GetXPath() const;

protected:
    // pLocalName and pNamespace are the document's stored copies of the name and the URI.
    CXmlAttribute(const CXmlElement* pElement, const std::string* pLocalName, const char* pValue, size_t nValueLength,
                  const std::string* pNamespace);
    ~CXmlAttribute() override;

private:
    const CXmlElement* m_pElement;
    // The name is stored once per document, like the names of elements: a document repeats a
    // handful of attribute names.
    const std::string* m_pLocalName;
    std::string m_strValue;
    const std::string* m_pNamespace;  // the namespace URI, stored once per document
};

}  // namespace OrvexXml
