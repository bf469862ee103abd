#include "orvexxml/binding/elementinfoallcol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoAllCol::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                      CXmlWriter* pWriter) const {
    return ElementToXmlCountedCol(ctx, pClass, pWriter);
}

bool CElementInfoAllCol::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                        CXmlElement* pParent, CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlAllCol(ctx, pClass, pParent, ppCurrent);
}

}  // namespace OrvexXmlData
