#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// An optional untyped element of a sequence: a new CElement, stored when it found its element.
class ORVEXXML_API CElementInfoSeqUntpdOpt : public CElementInfo {
public:
    CElementInfoSeqUntpdOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex,
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
