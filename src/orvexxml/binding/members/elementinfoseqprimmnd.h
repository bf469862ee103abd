#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A mandatory primitive element of a sequence: a missing value is an error on writing.
class ORVEXXML_API CElementInfoSeqPrimMnd : public CElementInfo {
public:
    CElementInfoSeqPrimMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
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
