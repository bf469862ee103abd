#include "orvexxml/binding/members/elementinfoseqenumcol.h"

namespace OrvexXmlData {

CElementInfoSeqEnumCol::CElementInfoSeqEnumCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoSeqCol(pszName, pszNamespace, nPropertyIndex) {}

}  // namespace OrvexXmlData
