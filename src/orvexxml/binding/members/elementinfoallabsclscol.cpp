#include "orvexxml/binding/members/elementinfoallabsclscol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CElementInfoAllAbsClsCol::CElementInfoAllAbsClsCol(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                   XmlElementType eOwnType)
    : CElementInfoAllCol(pszName, pszNamespace, nPropertyIndex), m_eOwnType(eOwnType) {}

void CElementInfoAllAbsClsCol::PseudoChildAttributeToXml(const CSerializationContext& ctx,
                                                         const CXmlGeneratedClass* pClass, CXmlWriter* pWriter) const {
    PseudoChildAttributeToXmlCls(ctx, pClass, pWriter, m_eOwnType, true);
}

}  // namespace OrvexXmlData
