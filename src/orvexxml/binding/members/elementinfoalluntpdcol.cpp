#include "orvexxml/binding/members/elementinfoalluntpdcol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllUntpdCol::CElementInfoAllUntpdCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoAllCol(pszName, pszNamespace, nPropertyIndex) {}

}  // namespace OrvexXmlData
