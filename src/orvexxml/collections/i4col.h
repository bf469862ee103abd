#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 32-bit signed integers (xs:int).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Ci4Col : public CXmlPrimitiveCollection<ItemType_i4> {
public:
    using CXmlPrimitiveCollection<ItemType_i4>::CXmlPrimitiveCollection;

protected:
    ~Ci4Col() override;
};

}  // namespace OrvexXml
