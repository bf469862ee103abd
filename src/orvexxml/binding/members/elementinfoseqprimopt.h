#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// An optional primitive element of a sequence: a missing value writes nothing.
class ORVEXXML_API CElementInfoSeqPrimOpt : public CElementInfo {
public:
    CElementInfoSeqPrimOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
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
