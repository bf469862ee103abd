#include "orvexxml/binding/members/elementinfochoiceuntpdopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoChoiceUntpdOpt::CElementInfoChoiceUntpdOpt(const char* pszName, const char* pszNamespace,
                                                       int nPropertyIndex, const char* pszRestriction,
                                                       const char* pszTargetNamespace)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_strNamespaceRestriction(pszRestriction ? pszRestriction : ""),
      m_strTargetNamespace(pszTargetNamespace ? pszTargetNamespace : "") {}

bool CElementInfoChoiceUntpdOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                              CXmlWriter* pWriter) const {
    return ElementToXmlCls(ctx, pClass, pWriter, false);
}

bool CElementInfoChoiceUntpdOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                                CXmlElement* pParent, CXmlElement** ppCurrent, const char* pszNamespace,
                                                XmlElementType) {
    return ElementFromXmlUntypedNew(ctx, pClass, pParent, ppCurrent, pszNamespace, XmlElementGroupType_Choice,
                                    m_strNamespaceRestriction, m_strTargetNamespace);
}

}  // namespace OrvexXmlData
