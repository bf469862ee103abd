#include "orvexxml/binding/members/elementinfoseqenumopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoSeqEnumOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlEnum(ctx, pClass, pWriter, m_pfnEnumToText);
}

bool CElementInfoSeqEnumOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                                            CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlSeqOptional(ctx, pClass, ppCurrent);
}

}  // namespace OrvexXmlData
