#include "orvexxml/binding/members/elementinfoallprimopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoAllPrimOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlPrim(ctx, pClass, pWriter);
}

bool CElementInfoAllPrimOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                                            CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlOptional(ctx, pClass, ppCurrent);
}

bool CElementInfoAllPrimOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    return true;
}

}  // namespace OrvexXmlData
