#pragma once

#include "orvexxml/binding/members/elementinfoallcol.h"

namespace OrvexXmlData {

// A repeating enumeration element; the items, their type and their limits live in the collection held by the property.
class ORVEXXML_API CElementInfoAllEnumCol : public CElementInfoAllCol {
public:
    CElementInfoAllEnumCol(const char* pszName, const char* pszNamespace, int nPropertyIndex);
};

}  // namespace OrvexXmlData
