#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of strings; input text passes the collection's whitespace rule.
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CstringCol : public CXmlPrimitiveCollection<ItemType_string> {
public:
    using CXmlPrimitiveCollection<ItemType_string>::CXmlPrimitiveCollection;

protected:
    ~CstringCol() override;
};

}  // namespace OrvexXml
