#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// Shared implementation of a counted collection in a sequence: its count is checked on writing and reading.
class ORVEXXML_API CElementInfoSeqCol : public CElementInfo {
public:
    CElementInfoSeqCol(const char* pszName, const char* pszNamespace, int nPropertyIndex)
        : CElementInfo(pszName, pszNamespace, nPropertyIndex) {}

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
};

}  // namespace OrvexXmlData
