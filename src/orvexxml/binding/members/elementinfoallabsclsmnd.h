#pragma once

#include "orvexxml/binding/elementinfo.h"

namespace OrvexXmlData {

// A mandatory child object of an All group whose class the document's xsi:type decides.
class ORVEXXML_API CElementInfoAllAbsClsMnd : public CElementInfo {
public:
    CElementInfoAllAbsClsMnd(const char* pszName, const char* pszNamespace, int nPropertyIndex, XmlElementType eOwnType,
                             AbsClsFactoryFn pfnFactory, int nReserved);

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
    AbsClsFactoryFn m_pfnFactory;
    // Kept as the table gives it; nothing reads it.
    [[maybe_unused]] int m_nReserved;
};

}  // namespace OrvexXmlData
