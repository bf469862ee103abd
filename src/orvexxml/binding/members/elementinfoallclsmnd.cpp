#include "orvexxml/binding/members/elementinfoallclsmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllClsMnd::CElementInfoAllClsMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                             XmlElementType eOwnType, ClsFactoryFn pfnFactory, int nClassId,
                                             bool bMustConsume)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_eOwnType(eOwnType),
      m_pfnFactory(pfnFactory),
      m_nClassId(nClassId),
      m_bMustConsume(bMustConsume) {}

bool CElementInfoAllClsMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                         CXmlWriter* pWriter) const {
    return ElementToXmlMandatoryCls(ctx, pClass, pWriter);
}

bool CElementInfoAllClsMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                           XmlElementType eParentType) {
    return ElementFromXmlClsHeld(ctx, pClass, pParent, ppCurrent, eParentType, m_eOwnType, m_bMustConsume,
                                 XmlElementGroupType_All);
}

bool CElementInfoAllClsMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool bFound,
                                     bool bCheck) const {
    return ValidateClsHeld(bFound, bCheck, m_eOwnType, m_bMustConsume);
}

void CElementInfoAllClsMnd::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                      const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
