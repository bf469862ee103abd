#pragma once

#include "orvexxml/collections/xmlprimitivecollection.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// A repeating element of double-precision floats (xs:double), written in the format override or "%.16g".
// Constructed with element name, namespace, minOccurs, maxOccurs, the ten facets, the
// whitespace rule and the format override; held through CSmartPtr.
class ORVEXXML_API Cr8Col : public CXmlPrimitiveCollection<ItemType_r8> {
public:
    using CXmlPrimitiveCollection<ItemType_r8>::CXmlPrimitiveCollection;

protected:
    ~Cr8Col() override;
};

}  // namespace OrvexXml
