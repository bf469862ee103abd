#pragma once

#include "orvexxml/binding/members/elementinfoallcol.h"

namespace OrvexXmlData {

// A repeating untyped element of an All group, held in a CElementCol that takes the elements
// its namespaces allow in any pass of the driver.
class ORVEXXML_API CElementInfoAllUntpdCol : public CElementInfoAllCol {
public:
    CElementInfoAllUntpdCol(const char* pszName, const char* pszNamespace, int nPropertyIndex);
};

}  // namespace OrvexXmlData
