#pragma once

#include "orvexxml/binding/members/elementinfochoicecol.h"

namespace OrvexXmlData {

// A repeating untyped element of a choice, held in a CElementCol: read as in a sequence, selected
// when it took anything.
class ORVEXXML_API CElementInfoChoiceUntpdCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceUntpdCol(const char* pszName, const char* pszNamespace, int nPropertyIndex);

protected:
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
};

}  // namespace OrvexXmlData
