#include "orvexxml/binding/elementinfoseqprimopt.h"

#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoSeqPrimOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlPrim(ctx, pClass, pWriter);
}

bool CElementInfoSeqPrimOpt::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                                            CXmlElement** ppCurrent, const char*, XmlElementType) {
    ElementFromXmlOptional(ctx, pClass, ppCurrent);
    return true;  // an absent optional element leaves the cursor where it is
}

}  // namespace OrvexXmlData
