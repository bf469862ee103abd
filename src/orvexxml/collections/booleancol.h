#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of booleans, written "true" and "false", read also from "1" and "0".
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CbooleanCol : public CXmlPrimitiveCollection<ItemType_boolean> {
public:
    using CXmlPrimitiveCollection<ItemType_boolean>::CXmlPrimitiveCollection;

protected:
    ~CbooleanCol() override;
};

}  // namespace OrvexXml
