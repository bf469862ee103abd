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

bool CElementInfoSeqPrimMnd::ElementFromXml(const CSerializationContext&, CXmlGeneratedClass*, CXmlElement*,
                                            CXmlElement**, const char*, XmlElementType) {
    // The document tree and the reading drivers are not part of this build yet.
    throw COxInvalidStateException("Reading XML is not available in this build");
}

}  // namespace OrvexXmlData
