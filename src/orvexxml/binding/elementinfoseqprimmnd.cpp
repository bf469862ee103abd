#include "orvexxml/binding/elementinfoseqprimmnd.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoSeqPrimMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    if (!ElementToXmlPrim(ctx, pClass, pWriter)) {
        throw COxInvalidParamException(
            FormatString("The Property [%s] is mandatory, it may not be NULL", GetElementName().c_str()));
    }
    return true;
}

bool CElementInfoSeqPrimMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                            CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                            XmlElementType eParentType) {
    return ElementFromXmlSeqMandatory(ctx, pClass, pParent, ppCurrent, eParentType);
}

}  // namespace OrvexXmlData
