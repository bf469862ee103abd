#include "orvexxml/binding/members/elementinfoallenumcol.h"

namespace OrvexXmlData {

CElementInfoAllEnumCol::CElementInfoAllEnumCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoAllCol(pszName, pszNamespace, nPropertyIndex) {}

}  // namespace OrvexXmlData
