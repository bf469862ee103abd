#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of years held as plain numbers (xs:gYear).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CyearCol : public CXmlPrimitiveCollection<ItemType_year> {
public:
    using CXmlPrimitiveCollection<ItemType_year>::CXmlPrimitiveCollection;

protected:
    ~CyearCol() override;
};

}  // namespace OrvexXml
