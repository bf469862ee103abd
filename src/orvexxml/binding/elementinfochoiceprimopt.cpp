#include "orvexxml/binding/elementinfochoiceprimopt.h"

#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoChoicePrimOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                             CXmlWriter* pWriter) const {
    return ElementToXmlPrim(ctx, pClass, pWriter);
}

bool CElementInfoChoicePrimOpt::ElementFromXml(const CSerializationContext&, CXmlGeneratedClass*, CXmlElement*,
                                               CXmlElement**, const char*, XmlElementType) {
    // The document tree and the reading drivers are not part of this build yet.
    throw COxInvalidStateException("Reading XML is not available in this build");
}

}  // namespace OrvexXmlData
