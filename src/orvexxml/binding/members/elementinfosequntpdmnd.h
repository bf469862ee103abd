#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A mandatory untyped element of a sequence: the CElement that the object holds reads the element in place.
class ORVEXXML_API CElementInfoSeqUntpdMnd : public CElementInfo {
public:
    CElementInfoSeqUntpdMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex,
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
