#pragma once

#include "orvexxml/binding/attributeinfo.h"

namespace OrvexXmlData {

// An attribute holding a generated enumeration. The value travels as an i4 and is turned
// into text and back by the functions that the generated enumeration provides.
class ORVEXXML_API CAttributeInfoEnum : public CAttributeInfo {
public:
    typedef int (*TextToEnumFn)(const char*);
    typedef const char* (*EnumToTextFn)(int);

    CAttributeInfoEnum(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bOptional,
                       EnumToTextFn pfnEnumToText, TextToEnumFn pfnTextToEnum, const char* pszDefault);
    ~CAttributeInfoEnum() override;

protected:
    // Writes the enumeration's text unless the attribute is optional and either unset or, when
    // the context asks for it, equal to its default. No facet check.
    void AttributeToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlWriter* pWriter) const override;
    // Takes the attribute by the common name test, which honours IgnoreNamespaces.
    bool AttributeFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                          OrvexXml::CXmlAttribute* pAttribute) override;
    // Refuses a required attribute that was not found.
    void Validate(const OrvexXml::CSerializationContext& ctx, bool bFound) const override;

    TextToEnumFn m_pfnTextToEnum;
    EnumToTextFn m_pfnEnumToText;
};

}  // namespace OrvexXmlData
