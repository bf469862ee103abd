#include "orvexxml/binding/members/elementinfochoiceuntpdcol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoChoiceUntpdCol::CElementInfoChoiceUntpdCol(const char* pszName, const char* pszNamespace,
                                                       int nPropertyIndex)
    : CElementInfoChoiceCol(pszName, pszNamespace, nPropertyIndex) {}

bool CElementInfoChoiceUntpdCol::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                                CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                                XmlElementType eParentType) {
    return ElementFromXmlUntypedCol(ctx, pClass, pParent, ppCurrent, eParentType, true);
}

}  // namespace OrvexXmlData
