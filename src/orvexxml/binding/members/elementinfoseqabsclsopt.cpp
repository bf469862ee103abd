#include "orvexxml/binding/members/elementinfoseqabsclsopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqAbsClsOpt::CElementInfoSeqAbsClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType, AbsClsFactoryFn pfnFactory)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType), m_pfnFactory(pfnFactory) {}

bool CElementInfoSeqAbsClsOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                            CXmlWriter* pWriter) const {
    return ElementToXmlCls(ctx, pClass, pWriter, false);
}

bool CElementInfoSeqAbsClsOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                              CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                              XmlElementType eParentType) {
    return ElementFromXmlAbsClsSeq(ctx, pClass, pParent, ppCurrent, eParentType, m_pfnFactory, false);
}

void CElementInfoSeqAbsClsOpt::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
