#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of exact decimal numbers (xs:decimal).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CdecimalCol : public CXmlPrimitiveCollection<ItemType_decimal> {
public:
    using CXmlPrimitiveCollection<ItemType_decimal>::CXmlPrimitiveCollection;

protected:
    ~CdecimalCol() override;
};

}  // namespace OrvexXml
