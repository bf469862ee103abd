#include "orvexxml/binding/members/elementinfoallabsclsopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllAbsClsOpt::CElementInfoAllAbsClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType, AbsClsFactoryFn pfnFactory)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType), m_pfnFactory(pfnFactory) {}

bool CElementInfoAllAbsClsOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                            CXmlWriter* pWriter) const {
    return ElementToXmlCls(ctx, pClass, pWriter, false);
}

bool CElementInfoAllAbsClsOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                              CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                              XmlElementType) {
    return ElementFromXmlAbsClsAll(ctx, pClass, pParent, ppCurrent, m_eOwnType, m_pfnFactory);
}

bool CElementInfoAllAbsClsOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    return true;
}

void CElementInfoAllAbsClsOpt::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
