#include "orvexxml/binding/members/elementinfochoiceprimopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoChoicePrimOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                             CXmlWriter* pWriter) const {
    return ElementToXmlPrim(ctx, pClass, pWriter);
}

bool CElementInfoChoicePrimOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                               CXmlElement*, CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlOptional(ctx, pClass, ppCurrent);
}

}  // namespace OrvexXmlData
