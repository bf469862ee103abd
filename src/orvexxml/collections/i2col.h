#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 16-bit signed integers (xs:short).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Ci2Col : public CXmlPrimitiveCollection<ItemType_i2> {
public:
    using CXmlPrimitiveCollection<ItemType_i2>::CXmlPrimitiveCollection;

protected:
    ~Ci2Col() override;
};

}  // namespace OrvexXml
