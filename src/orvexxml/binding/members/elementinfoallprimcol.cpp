#include "orvexxml/binding/members/elementinfoallprimcol.h"

namespace OrvexXmlData {

CElementInfoAllPrimCol::CElementInfoAllPrimCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoAllCol(pszName, pszNamespace, nPropertyIndex) {}

}  // namespace OrvexXmlData
