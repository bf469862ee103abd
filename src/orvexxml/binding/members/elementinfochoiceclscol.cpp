#include "orvexxml/binding/members/elementinfochoiceclscol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoChoiceClsCol::CElementInfoChoiceClsCol(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType)
    : CElementInfoChoiceCol(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType) {}

void CElementInfoChoiceClsCol::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, true);
}

}  // namespace OrvexXmlData
