#include "orvexxml/binding/members/elementinfochoiceenumopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoChoiceEnumOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                             CXmlWriter* pWriter) const {
    return ElementToXmlEnum(ctx, pClass, pWriter, m_pfnEnumToText);
}

bool CElementInfoChoiceEnumOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                               CXmlElement*, CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlOptional(ctx, pClass, ppCurrent);
}

}  // namespace OrvexXmlData
