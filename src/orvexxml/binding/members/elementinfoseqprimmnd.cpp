#include "orvexxml/binding/members/elementinfoseqprimmnd.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoSeqPrimMnd::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    return ElementToXmlMandatory(ctx, pClass, pWriter);
}

bool CElementInfoSeqPrimMnd::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                            CXmlElement* pParent, CXmlElement** ppCurrent, const char*,
                                            XmlElementType eParentType) {
    return ElementFromXmlSeqMandatory(ctx, pClass, pParent, ppCurrent, eParentType);
}

}  // namespace OrvexXmlData
