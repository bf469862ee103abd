#include "orvexxml/binding/members/elementinfoseqclsmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqClsMnd::CElementInfoSeqClsMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                             XmlElementType eOwnType, ClsFactoryFn pfnFactory, int nClassId,
                                             bool bMustConsume)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_eOwnType(eOwnType),
      m_bMustConsume(bMustConsume),
      m_pfnFactory(pfnFactory),
      m_nClassId(nClassId) {}

bool CElementInfoSeqClsMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                         CXmlWriter* pWriter) const {
    return ElementToXmlMandatoryCls(ctx, pClass, pWriter);
}

bool CElementInfoSeqClsMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                           XmlElementType eParentType) {
    return ElementFromXmlClsHeld(ctx, pClass, pParent, ppCurrent, eParentType, m_eOwnType, m_bMustConsume,
                                 XmlElementGroupType_Sequence);
}

void CElementInfoSeqClsMnd::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                      const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
