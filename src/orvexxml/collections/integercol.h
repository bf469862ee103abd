#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of integers of unlimited size (xs:integer).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CintegerCol : public CXmlPrimitiveCollection<ItemType_integer> {
public:
    using CXmlPrimitiveCollection<ItemType_integer>::CXmlPrimitiveCollection;

protected:
    ~CintegerCol() override;
};

}  // namespace OrvexXml
