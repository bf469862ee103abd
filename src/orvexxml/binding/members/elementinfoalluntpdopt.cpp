#include "orvexxml/binding/members/elementinfoalluntpdopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllUntpdOpt::CElementInfoAllUntpdOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                 const char* pszRestriction, const char* pszTargetNamespace)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_strNamespaceRestriction(pszRestriction ? pszRestriction : ""),
      m_strTargetNamespace(pszTargetNamespace ? pszTargetNamespace : "") {}

bool CElementInfoAllUntpdOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                           CXmlWriter* pWriter) const {
    return ElementToXmlCls(ctx, pClass, pWriter, false);
}

bool CElementInfoAllUntpdOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                             CXmlElement* pParent, CXmlElement** ppCurrent, const char* pszNamespace,
                                             XmlElementType) {
    return ElementFromXmlUntypedNew(ctx, pClass, pParent, ppCurrent, pszNamespace, XmlElementGroupType_All,
                                    m_strNamespaceRestriction, m_strTargetNamespace);
}

bool CElementInfoAllUntpdOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    return true;
}

}  // namespace OrvexXmlData
