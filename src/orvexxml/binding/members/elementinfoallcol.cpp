#include "orvexxml/binding/members/elementinfoallcol.h"

#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/values/oxvariant.h"

using namespace OrvexXml;

namespace OrvexXmlData {

bool CElementInfoAllCol::ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                      CXmlWriter* pWriter) const {
    return ElementToXmlCountedCol(ctx, pClass, pWriter);
}

bool CElementInfoAllCol::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                        CXmlElement* pParent, CXmlElement** ppCurrent, const char*, XmlElementType) {
    return ElementFromXmlAllCol(ctx, pClass, pParent, ppCurrent);
}

bool CElementInfoAllCol::Validate(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass, bool,
                                  bool bCheck) const {
    // The member never reports itself found (the driver offers it in every pass, so that
    // items may be spread among the other members); its count decides instead. In a real
    // element a wrong count is reported with its message, in a model group it is a no.
    OxVariant holder;
    CXmlCollectionBase* pCollection = ReadCollection(pClass, holder);
    if (bCheck) {
        pCollection->ValidateCount(ctx);
        return true;
    }
    return pCollection->IsValidCount(ctx);
}

}  // namespace OrvexXmlData
