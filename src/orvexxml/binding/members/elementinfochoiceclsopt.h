#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A child object as a member of a choice: its selection is stored before its content is read.
class ORVEXXML_API CElementInfoChoiceClsOpt : public CElementInfo {
public:
    CElementInfoChoiceClsOpt(const char* pszName, const char* pszNamespace, int nPropertyIndex, XmlElementType eOwnType,
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
