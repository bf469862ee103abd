#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A mandatory untyped element of an All group: read in place in any pass, demanded by Validate.
class ORVEXXML_API CElementInfoAllUntpdMnd : public CElementInfo {
public:
    CElementInfoAllUntpdMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                            const char* pszRestriction, const char* pszTargetNamespace);

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
    bool Validate(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass, bool bFound,
                  bool bCheck) const override;

private:
    std::string m_strNamespaceRestriction;
    std::string m_strTargetNamespace;
};

}  // namespace OrvexXmlData
