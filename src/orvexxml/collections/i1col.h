#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 8-bit signed integers (xs:byte), held as char.
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Ci1Col : public CXmlPrimitiveCollection<ItemType_i1> {
public:
    using CXmlPrimitiveCollection<ItemType_i1>::CXmlPrimitiveCollection;

protected:
    ~Ci1Col() override;
};

}  // namespace OrvexXml
