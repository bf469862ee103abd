#include "orvexxml/binding/members/elementinfoallabsclsmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType, AbsClsFactoryFn pfnFactory, int nReserved)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_eOwnType(eOwnType),
      m_pfnFactory(pfnFactory),
      m_nReserved(nReserved) {}

bool CElementInfoAllAbsClsMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                            CXmlWriter* pWriter) const {
    return ElementToXmlMandatoryCls(ctx, pClass, pWriter);
}

bool CElementInfoAllAbsClsMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                              CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                              XmlElementType) {
    return ElementFromXmlAbsClsAll(ctx, pClass, pParent, ppCurrent, m_eOwnType, m_pfnFactory);
}

bool CElementInfoAllAbsClsMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool bFound,
                                        bool bCheck) const {
    return ValidateMandatory(bFound, bCheck);
}

void CElementInfoAllAbsClsMnd::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
