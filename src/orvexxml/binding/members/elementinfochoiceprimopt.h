#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A primitive member of a choice. Never required by itself: the choice driver demands that one member is there.
class ORVEXXML_API CElementInfoChoicePrimOpt : public CElementInfo {
public:
    CElementInfoChoicePrimOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
                              OrvexXml::ItemType eItemType, const char* pszFormat,
                              OrvexXml::CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
                              const OrvexXml::CPrimitiveRestrictions& restrictions, const char* pszDefault)
        : CElementInfo(pszName, pszNamespace, nPropertyIndex, bNillable, eItemType, pszFormat, eWhitespaceRule,
                       restrictions, pszDefault) {}

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
};

}  // namespace OrvexXmlData
