#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of binary data written as hex digits (xs:hexBinary).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API ChexBinaryCol : public CXmlPrimitiveCollection<ItemType_hexBinary> {
public:
    using CXmlPrimitiveCollection<ItemType_hexBinary>::CXmlPrimitiveCollection;

protected:
    ~ChexBinaryCol() override;
};

}  // namespace OrvexXml
