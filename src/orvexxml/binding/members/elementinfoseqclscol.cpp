#include "orvexxml/binding/members/elementinfoseqclscol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqClsCol::CElementInfoSeqClsCol(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                             XmlElementType eOwnType)
    : CElementInfoSeqCol(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType) {}

void CElementInfoSeqClsCol::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                      const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, true);
}

}  // namespace OrvexXmlData
