#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// An optional child object of a sequence: the factory makes it, and it is stored when it read something.
class ORVEXXML_API CElementInfoSeqClsOpt : public CElementInfo {
public:
    CElementInfoSeqClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex, XmlElementType eOwnType,
                          ClsFactoryFn pfnFactory, int nClassId);

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
    ClsFactoryFn m_pfnFactory;
    int m_nClassId;
};

}  // namespace OrvexXmlData
