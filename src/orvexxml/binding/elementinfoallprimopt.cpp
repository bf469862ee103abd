#include "orvexxml/binding/elementinfoallprimopt.h"

#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoAllPrimOpt::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlPrim(ctx, pClass, pWriter);
}

bool CElementInfoAllPrimOpt::ElementFromXml(const CSerializationContext&, CXmlGeneratedClass*, CXmlElement*,
                                            CXmlElement**, const char*, XmlElementType) {
    // The document tree and the reading drivers are not part of this build yet.
    throw COxInvalidStateException("Reading XML is not available in this build");
}

bool CElementInfoAllPrimOpt::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    return true;
}

}  // namespace OrvexXmlData
