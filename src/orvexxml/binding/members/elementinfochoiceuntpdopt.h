#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// An untyped member of a choice: a new CElement, stored and selected when it found its element;
// otherwise the selection is taken back.
class ORVEXXML_API CElementInfoChoiceUntpdOpt : public CElementInfo {
public:
    CElementInfoChoiceUntpdOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                               const char* pszRestriction, const char* pszTargetNamespace);

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;

private:
    std::string m_strNamespaceRestriction;
    std::string m_strTargetNamespace;
};

}  // namespace OrvexXmlData
