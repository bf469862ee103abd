#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// Shared implementation of a collection member of a choice: its count is only checked when it is the one chosen.
class ORVEXXML_API CElementInfoChoiceCol : public CElementInfo {
public:
    CElementInfoChoiceCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
        : CElementInfo(pszName, pszNamespace, nPropertyIndex) {}

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
};

}  // namespace OrvexXmlData
