#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 64-bit signed integers (xs:long).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Ci8Col : public CXmlPrimitiveCollection<ItemType_i8> {
public:
    using CXmlPrimitiveCollection<ItemType_i8>::CXmlPrimitiveCollection;

protected:
    ~Ci8Col() override;
};

}  // namespace OrvexXml
