#include "orvexxml/binding/elementinfoallprimmnd.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoAllPrimMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    if (!ElementToXmlPrim(ctx, pClass, pWriter)) {
        throw COxInvalidParamException(
            FormatString("The Property [%s] is mandatory, it may not be NULL", GetElementName().c_str()));
    }
    return true;
}

bool CElementInfoAllPrimMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                                            CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlOptional(ctx, pClass, ppCurrent);
}

bool CElementInfoAllPrimMnd::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool bFound,
                                      bool bCheck) const {
    if (!bFound && bCheck) {
        throw COxValidationException(
            FormatString("Failed to find the mandatory element [%s].", GetElementName().c_str()), std::string());
    }
    return bFound;
}

}  // namespace OrvexXmlData
