#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 64-bit unsigned integers (xs:unsignedLong).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Cui8Col : public CXmlPrimitiveCollection<ItemType_ui8> {
public:
    using CXmlPrimitiveCollection<ItemType_ui8>::CXmlPrimitiveCollection;

protected:
    ~Cui8Col() override;
};

}  // namespace OrvexXml
