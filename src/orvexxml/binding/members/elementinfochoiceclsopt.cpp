#include "orvexxml/binding/members/elementinfochoiceclsopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoChoiceClsOpt::CElementInfoChoiceClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType, ClsFactoryFn pfnFactory, int nClassId)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_eOwnType(eOwnType),
      m_pfnFactory(pfnFactory),
      m_nClassId(nClassId) {}

bool CElementInfoChoiceClsOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                            CXmlWriter* pWriter) const {
    // The chosen child may itself be an empty choice.
    return ElementToXmlCls(ctx, pClass, pWriter, true);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                              CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                              XmlElementType) {
    return ElementFromXmlClsNew(ctx, pClass, pParent, ppCurrent, m_eOwnType, m_pfnFactory, m_nClassId,
                                XmlElementGroupType_Choice);
}

void CElementInfoChoiceClsOpt::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
