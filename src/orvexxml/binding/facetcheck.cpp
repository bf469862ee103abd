#include "orvexxml/binding/facetcheck.h"

#include "orvexxml/values/oxvariant.h"
#include "orvexxml/values/primitiverestrictions.h"

namespace OrvexXmlData {

void CheckPrimitiveFacets(const std::string&, const OrvexXml::OxVariant&, OrvexXml::ItemType,
                          const OrvexXml::CPrimitiveRestrictions&) {
    // Facet validation of primitive values joins here once the facet checker exists;
    // until then a value is written unchecked and the restrictions are only stored.
}

}  // namespace OrvexXmlData
