#pragma once

#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {
class CSerializationContext;
class CXmlGeneratedClass;
class CXmlWriter;
class CXmlAttribute;
}  // namespace OrvexXml

namespace OrvexXmlData {

// Describes one attribute of a generated class. This is the frame that the class walks
// call into; the concrete members (primitive, enum, wildcard) derive from it.
class ORVEXXML_API CAttributeInfo {
    friend class OrvexXml::CXmlGeneratedClass;

public:
    virtual ~CAttributeInfo();

    const std::string& GetAttributeName() const { return m_strAttributeName; }
    const std::string& GetAttributeNamespace() const { return m_strAttributeNamespace; }
    int GetPropertyIndex() const { return m_nPropertyIndex; }
    bool IsOptional() const { return m_bOptional; }
    const std::string& GetDefaultValue() const { return m_strDefaultValue; }

protected:
    CAttributeInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bOptional,
                   const char* pszDefault);

    // --- virtual slots, in interface order ---------------------------------------------
    virtual void AttributeToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                                OrvexXml::CXmlWriter* pWriter) const = 0;
    virtual bool AttributeFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                  OrvexXml::CXmlAttribute* pAttribute) = 0;
    virtual void Validate(const OrvexXml::CSerializationContext& ctx, bool bFound) const = 0;
    // --- end of virtual slots ----------------------------------------------------------

    std::string m_strAttributeName;
    std::string m_strAttributeNamespace;
    int m_nPropertyIndex;
    bool m_bOptional;
    std::string m_strDefaultValue;
};

}  // namespace OrvexXmlData
