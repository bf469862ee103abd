#include "orvexxml/binding/members/elementinfoallprimmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoAllPrimMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlMandatory(ctx, pClass, pWriter);
}

bool CElementInfoAllPrimMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                                            CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlOptional(ctx, pClass, ppCurrent);
}

bool CElementInfoAllPrimMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool bFound,
                                      bool bCheck) const {
    return ValidateMandatory(bFound, bCheck);
}

}  // namespace OrvexXmlData
