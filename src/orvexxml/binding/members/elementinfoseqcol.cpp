#include "orvexxml/binding/members/elementinfoseqcol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoSeqCol::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                      CXmlWriter* pWriter) const {
    return ElementToXmlCountedCol(ctx, pClass, pWriter);
}

bool CElementInfoSeqCol::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                        CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                        XmlElementType eParentType) {
    return ElementFromXmlSeqCol(ctx, pClass, pParent, ppCurrent, eParentType);
}

}  // namespace OrvexXmlData
