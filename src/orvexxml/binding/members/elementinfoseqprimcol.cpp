#include "orvexxml/binding/members/elementinfoseqprimcol.h"

namespace OrvexXmlData {

CElementInfoSeqPrimCol::CElementInfoSeqPrimCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoSeqCol(pszName, pszNamespace, nPropertyIndex) {}

}  // namespace OrvexXmlData
