#include "orvexxml/binding/members/elementinfosequntpdmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqUntpdMnd::CElementInfoSeqUntpdMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                 const char* pszRestriction, const char* pszTargetNamespace)
    : CElementInfo(pszName, pszNamespace, nPropertyIndex),
      m_strNamespaceRestriction(pszRestriction ? pszRestriction : ""),
      m_strTargetNamespace(pszTargetNamespace ? pszTargetNamespace : "") {}

bool CElementInfoSeqUntpdMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                           CXmlWriter* pWriter) const {
    return ElementToXmlMandatoryCls(ctx, pClass, pWriter);
}

bool CElementInfoSeqUntpdMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                             CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                             XmlElementType eParentType) {
    return ElementFromXmlUntypedHeld(ctx, pClass, pParent, ppCurrent, eParentType, false);
}

}  // namespace OrvexXmlData
