#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A mandatory enumeration element of an All group: Validate demands that it was seen.
class ORVEXXML_API CElementInfoAllEnumMnd : public CElementInfo {
public:
    CElementInfoAllEnumMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
                           EnumToTextFn pfnEnumToText, TextToEnumFn pfnTextToEnum, const char* pszDefault)
        : CElementInfo(pszName, pszNamespace, nPropertyIndex, bNillable, pfnEnumToText, pfnTextToEnum, pszDefault) {}

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
    bool Validate(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass, bool bFound,
                  bool bCheck) const override;
};

}  // namespace OrvexXmlData
