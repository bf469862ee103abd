#include "orvexxml/binding/members/elementinfoalluntpdmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllUntpdMnd::CElementInfoAllUntpdMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                 const char* pszRestriction, const char* pszTargetNamespace)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_strNamespaceRestriction(pszRestriction ? pszRestriction : ""),
      m_strTargetNamespace(pszTargetNamespace ? pszTargetNamespace : "") {}

bool CElementInfoAllUntpdMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                           CXmlWriter* pWriter) const {
    return ElementToXmlMandatoryCls(ctx, pClass, pWriter);
}

bool CElementInfoAllUntpdMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                             CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                             XmlElementType eParentType) {
    return ElementFromXmlUntypedHeld(ctx, pClass, pParent, ppCurrent, eParentType, true);
}

bool CElementInfoAllUntpdMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool bFound,
                                       bool bCheck) const {
    return ValidateMandatory(bFound, bCheck);
}

}  // namespace OrvexXmlData
