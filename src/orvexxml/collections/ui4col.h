#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of 32-bit unsigned integers (xs:unsignedInt).
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Cui4Col : public CXmlPrimitiveCollection<ItemType_ui4> {
public:
    using CXmlPrimitiveCollection<ItemType_ui4>::CXmlPrimitiveCollection;

protected:
    ~Cui4Col() override;
};

}  // namespace OrvexXml
