#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 8-bit unsigned integers (xs:unsignedByte).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Cui1Col : public CXmlPrimitiveCollection<ItemType_ui1> {
public:
    using CXmlPrimitiveCollection<ItemType_ui1>::CXmlPrimitiveCollection;

protected:
    ~Cui1Col() override;
};

}  // namespace OrvexXml
