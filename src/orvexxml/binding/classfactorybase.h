#pragma once

#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {
class CXmlElement;
}  // namespace OrvexXml

namespace OrvexXmlData {

// Base of the class factories that generated code supplies for its class members. A factory
// holds no data here: the table of its classes, the lookup by name and any tie-breaks are the
// generated code's own. What the library adds are the two readings of an element's xsi:type
// that a factory of substitutable classes needs to pick the class an element names.
class ORVEXXML_API CClassfactoryBase {
public:
    virtual ~CClassfactoryBase();

protected:
    // The local part of the element's xsi:type: what follows the first ':' of the value, or
    // the whole value when it has no prefix. Empty when the element has no xsi:type, and for
    // a null element.
    static std::string GetElementType(OrvexXml::CXmlElement* pElement);
    // The namespace of that type: the URI the document declares for the prefix of the value.
    // When the value has no prefix, or the prefix is declared nowhere in the document, the
    // element's own namespace. Empty for a null element.
    static std::string GetElementTypeNamespaceUri(OrvexXml::CXmlElement* pElement);
};

}  // namespace OrvexXmlData
