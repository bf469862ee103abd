#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of durations (xs:duration).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API CdurationCol : public CXmlPrimitiveCollection<ItemType_duration> {
public:
    using CXmlPrimitiveCollection<ItemType_duration>::CXmlPrimitiveCollection;

protected:
    ~CdurationCol() override;
};

}  // namespace OrvexXml
