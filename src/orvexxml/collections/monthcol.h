#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of months held as plain numbers (xs:gMonth).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CmonthCol : public CXmlPrimitiveCollection<ItemType_month> {
public:
    using CXmlPrimitiveCollection<ItemType_month>::CXmlPrimitiveCollection;

protected:
    ~CmonthCol() override;
};

}  // namespace OrvexXml
