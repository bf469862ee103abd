#include "orvexxml/binding/members/elementinfosequntpdcol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqUntpdCol::CElementInfoSeqUntpdCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : CElementInfoSeqCol(pszName, pszNamespace, nPropertyIndex) {}

bool CElementInfoSeqUntpdCol::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                             CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                             XmlElementType eParentType) {
    return ElementFromXmlUntypedCol(ctx, pClass, pParent, ppCurrent, eParentType, false);
}

}  // namespace OrvexXmlData
