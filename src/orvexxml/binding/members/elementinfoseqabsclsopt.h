#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// An optional child object of a sequence whose class the document's xsi:type decides.
class ORVEXXML_API CElementInfoSeqAbsClsOpt : public CElementInfo {
public:
    CElementInfoSeqAbsClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex, XmlElementType eOwnType,
                             AbsClsFactoryFn pfnFactory);

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
    void PseudoChildAttributeToXml(const OrvexXml::CSerializationContext& ctx,
                                   const OrvexXml::CXmlGeneratedClass* pClass,
                                   OrvexXml::CXmlWriter* pWriter) const override;

private:
    XmlElementType m_eOwnType;
    AbsClsFactoryFn m_pfnFactory;
};

}  // namespace OrvexXmlData
