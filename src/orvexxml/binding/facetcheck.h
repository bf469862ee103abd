#pragma once

#include <string>

#include "orvexxml/values/itemtype.h"

namespace OrvexXml {
class CPrimitiveRestrictions;
class OxVariant;
}  // namespace OrvexXml

namespace OrvexXmlData {

// The facet check of a primitive value held by a metadata entry (element or attribute),
// under the name that a refusal shows. Internal to the library: the metadata classes share
// it so that the check joins in one place.
void CheckPrimitiveFacets(const std::string& strName, const OrvexXml::OxVariant& value, OrvexXml::ItemType eItemType,
                          const OrvexXml::CPrimitiveRestrictions& restrictions);

}  // namespace OrvexXmlData
