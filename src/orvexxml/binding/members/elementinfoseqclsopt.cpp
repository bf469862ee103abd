#include "orvexxml/binding/members/elementinfoseqclsopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqClsOpt::CElementInfoSeqClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                             XmlElementType eOwnType, ClsFactoryFn pfnFactory, int nClassId)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_eOwnType(eOwnType),
      m_pfnFactory(pfnFactory),
      m_nClassId(nClassId) {}

bool CElementInfoSeqClsOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                         CXmlWriter* pWriter) const {
    return ElementToXmlCls(ctx, pClass, pWriter, false);
}

bool CElementInfoSeqClsOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlClsNew(ctx, pClass, pParent, ppCurrent, m_eOwnType, m_pfnFactory, m_nClassId,
                                XmlElementGroupType_Sequence);
}

void CElementInfoSeqClsOpt::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                      const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
