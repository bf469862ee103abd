#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// An optional untyped element of an All group: a new CElement, stored when it found its element.
class ORVEXXML_API CElementInfoAllUntpdOpt : public CElementInfo {
public:
    CElementInfoAllUntpdOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
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
