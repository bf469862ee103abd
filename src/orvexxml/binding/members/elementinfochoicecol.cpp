#include "orvexxml/binding/members/elementinfochoicecol.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoChoiceCol::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                         CXmlWriter* pWriter) const {
    return ElementToXmlCol(ctx, pClass, pWriter);
}

bool CElementInfoChoiceCol::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                           XmlElementType eParentType) {
    return ElementFromXmlChoiceCol(ctx, pClass, pParent, ppCurrent, eParentType);
}

}  // namespace OrvexXmlData
