#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of days of the month held as plain numbers (xs:gDay).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CdayCol : public CXmlPrimitiveCollection<ItemType_day> {
public:
    using CXmlPrimitiveCollection<ItemType_day>::CXmlPrimitiveCollection;

protected:
    ~CdayCol() override;
};

}  // namespace OrvexXml
