// Generated class factory of the abstract type Product: the class of a Product element is the
// one its xsi:type names.
#pragma once

#include <orvexxml/orvexxml.h>

namespace Samples {

class CProductFactory : public OrvexXmlData::CClassfactoryBase {
public:
    // A new object of the derived type that the element's xsi:type names, with the type's
    // namespace from its prefix or, unprefixed, the element's own; null for a type that is no
    // Product (Product itself is abstract) or for an element without xsi:type.
    static OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> CreateProduct(OrvexXml::CXmlElement* pElement);
};

}  // namespace Samples
