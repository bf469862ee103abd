#include "orvexxml/binding/members/elementinfochoiceprimcol.h"

namespace OrvexXmlData {

CElementInfoChoicePrimCol::CElementInfoChoicePrimCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoChoiceCol(pszName, pszNamespace, nPropertyIndex) {}

}  // namespace OrvexXmlData
