#pragma once

#include "orvexxml/binding/members/elementinfoallcol.h"

namespace OrvexXmlData {

// A repeating primitive element; the items, their type and their limits live in the collection held by the property.
class ORVEXXML_API CElementInfoAllPrimCol : public CElementInfoAllCol {
public:
    CElementInfoAllPrimCol(const char* pszName, const char* pszNamespace, int nPropertyIndex);
};

}  // namespace OrvexXmlData
