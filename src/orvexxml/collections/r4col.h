#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of single-precision floats (xs:float), written in the format override or "%.7g".
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Cr4Col : public CXmlPrimitiveCollection<ItemType_r4> {
public:
    using CXmlPrimitiveCollection<ItemType_r4>::CXmlPrimitiveCollection;

protected:
    ~Cr4Col() override;
};

}  // namespace OrvexXml
