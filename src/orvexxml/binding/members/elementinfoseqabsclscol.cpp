#include "orvexxml/binding/members/elementinfoseqabsclscol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoSeqAbsClsCol::CElementInfoSeqAbsClsCol(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType)
    : CElementInfoSeqCol(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType) {}

void CElementInfoSeqAbsClsCol::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, true);
}

}  // namespace OrvexXmlData
