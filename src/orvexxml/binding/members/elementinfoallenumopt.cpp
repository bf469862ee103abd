#include "orvexxml/binding/members/elementinfoallenumopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoAllEnumOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlEnum(ctx, pClass, pWriter, m_pfnEnumToText);
}

bool CElementInfoAllEnumOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                                            CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlOptional(ctx, pClass, ppCurrent);
}

bool CElementInfoAllEnumOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    return true;
}

}  // namespace OrvexXmlData
