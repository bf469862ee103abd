#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 16-bit unsigned integers (xs:unsignedShort).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Cui2Col : public CXmlPrimitiveCollection<ItemType_ui2> {
public:
    using CXmlPrimitiveCollection<ItemType_ui2>::CXmlPrimitiveCollection;

protected:
    ~Cui2Col() override;
};

}  // namespace OrvexXml
