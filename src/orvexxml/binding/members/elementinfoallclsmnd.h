#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A mandatory child object of an All group, pre-created by generated code and read in place.
class ORVEXXML_API CElementInfoAllClsMnd : public CElementInfo {
public:
    CElementInfoAllClsMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex, XmlElementType eOwnType,
                          ClsFactoryFn pfnFactory, int nClassId, bool bMustConsume);

protected:
    bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                      OrvexXml::CXmlWriter* pWriter) const override;
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
    bool Validate(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass, bool bFound,
                  bool bCheck) const override;
    void PseudoChildAttributeToXml(const OrvexXml::CSerializationContext& ctx,
                                   const OrvexXml::CXmlGeneratedClass* pClass,
                                   OrvexXml::CXmlWriter* pWriter) const override;

private:
    XmlElementType m_eOwnType;
    // Kept as the table gives them: the held object is created by generated code, so
    // reading in place needs neither.
    [[maybe_unused]] ClsFactoryFn m_pfnFactory;
    [[maybe_unused]] int m_nClassId;
    bool m_bMustConsume;
};

}  // namespace OrvexXmlData
