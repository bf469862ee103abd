#include "orvexxml/collections/xmlprimitivecollection.h"

namespace OrvexXml {

// The one place where the primitive collections are compiled; the concrete classes derive
// from these instantiations.
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_i1>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_i2>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_i4>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_i8>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_ui1>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_ui2>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_ui4>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_ui8>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_r4>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_r8>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_string>;
template class ORVEXXML_INSTANTIATION_API CXmlPrimitiveCollection<ItemType_boolean>;

}  // namespace OrvexXml
