#include "orvexxml/binding/members/elementinfochoiceabsclsopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoChoiceAbsClsOpt::CElementInfoChoiceAbsClsOpt(const char* pszName, const char* pszNamespace,
                                                         int nPropertyIndex, XmlElementType eOwnType,
                                                         AbsClsFactoryFn pfnFactory)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType), m_pfnFactory(pfnFactory) {}

bool CElementInfoChoiceAbsClsOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                               CXmlWriter* pWriter) const {
    return ElementToXmlCls(ctx, pClass, pWriter, false);
}

bool CElementInfoChoiceAbsClsOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                                 CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                                 XmlElementType) {
    return ElementFromXmlAbsClsChoice(ctx, pClass, pParent, ppCurrent, m_pfnFactory);
}

void CElementInfoChoiceAbsClsOpt::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                            const CXmlGeneratedClass* pClass,
                                                            CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, false);
}

}  // namespace OrvexXmlData
