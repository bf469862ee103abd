#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of binary data written in base64 (xs:base64Binary).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Cbase64BinaryCol : public CXmlPrimitiveCollection<ItemType_base64Binary> {
public:
    using CXmlPrimitiveCollection<ItemType_base64Binary>::CXmlPrimitiveCollection;

protected:
    ~Cbase64BinaryCol() override;
};

}  // namespace OrvexXml
