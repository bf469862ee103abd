#pragma once

#include "orvexxml/binding/members/elementinfochoicecol.h"

namespace OrvexXmlData {

// A repeating enumeration element; the items, their type and their limits live in the collection held by the property.
class ORVEXXML_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceEnumCol(const char* pszName, const char* pszNamespace, int nPropertyIndex);
};

}  // namespace OrvexXmlData
