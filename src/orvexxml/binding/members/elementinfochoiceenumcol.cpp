#include "orvexxml/binding/members/elementinfochoiceenumcol.h"

namespace OrvexXmlData {

CElementInfoChoiceEnumCol::CElementInfoChoiceEnumCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoChoiceCol(pszName, pszNamespace, nPropertyIndex) {}

}  // namespace OrvexXmlData
