#include "orvexxml/binding/members/elementinfoallclsopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllClsOpt::CElementInfoAllClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                             XmlElementType eOwnType, ClsFactoryFn pfnFactory, int nClassId)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_eOwnType(eOwnType),
      m_pfnFactory(pfnFactory),
      m_nClassId(nClassId) {}

bool CElementInfoAllClsOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                         CXmlWriter* pWriter) const {
    return ElementToXmlCls(ctx, pClass, pWriter, false);
}

bool CElementInfoAllClsOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlClsNew(ctx, pClass, pParent, ppCurrent, m_eOwnType, m_pfnFactory, m_nClassId,
                                XmlElementGroupType_All);
}

bool CElementInfoAllClsOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    return true;
}

void CElementInfoAllClsOpt::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                      const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
