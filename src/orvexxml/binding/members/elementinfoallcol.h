#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// Shared implementation of a counted collection in an All group: read in any pass of the driver.
class ORVEXXML_API CElementInfoAllCol : public CElementInfo {
public:
    CElementInfoAllCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
        : CElementInfo(pszName, pszNamespace, nPropertyIndex) {}

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
    // A collection in an All group is satisfied when its count is within its limits.
    bool Validate(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass, bool bFound,
                  bool bCheck) const override;
};

}  // namespace OrvexXmlData
