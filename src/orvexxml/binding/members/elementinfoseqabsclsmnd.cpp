#include "orvexxml/binding/members/elementinfoseqabsclsmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqAbsClsMnd::CElementInfoSeqAbsClsMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType, AbsClsFactoryFn pfnFactory)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType), m_pfnFactory(pfnFactory) {}

bool CElementInfoSeqAbsClsMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                            CXmlWriter* pWriter) const {
    return ElementToXmlMandatoryCls(ctx, pClass, pWriter);
}

bool CElementInfoSeqAbsClsMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                              CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                              XmlElementType eParentType) {
    return ElementFromXmlAbsClsSeq(ctx, pClass, pParent, ppCurrent, eParentType, m_pfnFactory, true);
}

void CElementInfoSeqAbsClsMnd::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
