#include "orvexxml/binding/members/elementinfoseqprimopt.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoSeqPrimOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlPrim(ctx, pClass, pWriter);
}

bool CElementInfoSeqPrimOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                                            CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlSeqOptional(ctx, pClass, ppCurrent);
}

}  // namespace OrvexXmlData
