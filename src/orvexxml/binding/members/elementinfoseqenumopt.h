#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// An optional enumeration element of a sequence.
class ORVEXXML_API CElementInfoSeqEnumOpt : public CElementInfo {
public:
    CElementInfoSeqEnumOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
                           EnumToTextFn pfnEnumToText, TextToEnumFn pfnTextToEnum, const char* pszDefault)
        : CElementInfo(pszName, pszNamespace, nPropertyIndex, bNillable, pfnEnumToText, pfnTextToEnum, pszDefault) {}

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
};

}  // namespace OrvexXmlData
