#pragma once

#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {
class CSerializationContext;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlWriter;
class CXmlAttribute;
class OxVariant;
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

    // Whether a is this attribute: same local name and, unless the context ignores
    // namespaces, the same namespace URI. False for null.
    bool IsThisAttribute(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlAttribute* pAttribute) const;
    // The property's value, read for writing.
    void ReadProperty(const OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::OxVariant& value) const;
    // Property access through ExchangeProperty. A failure of the class is wrapped in a
    // COxValidationException that names the attribute (get) or the value and its path (set).
    void InvokePropertyGet(OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::OxVariant& value) const;
    void InvokePropertySet(OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::OxVariant& value,
                           const OrvexXml::CXmlAttribute& attribute) const;

    // The Validate of the named attributes: a required one must have been found.
    void ValidateRequired(bool bFound) const;

    // The namespace test of the wildcards, answered or thrown.
    static void TestNamespace(const std::string& strNamespace, const std::string& strRestriction,
                              const std::string& strTargetNamespace);
    static bool IsNamespaceValid(const std::string& strNamespace, const std::string& strRestriction,
                                 const std::string& strTargetNamespace);
    // Forwarders to protected operations of the objects that the wildcard holds.
    static std::string GetTargetNamespace(const OrvexXml::CXmlObjectBase* pObject);
    static void ToXml_Int(const OrvexXml::CXmlObjectBase* pObject, OrvexXml::CXmlWriter* pWriter, bool bRoot,
                          const char* pszNamespace, const OrvexXml::CSerializationContext& ctx);

    std::string m_strAttributeName;
    std::string m_strAttributeNamespace;
    int m_nPropertyIndex;
    bool m_bOptional;
    std::string m_strDefaultValue;
};

}  // namespace OrvexXmlData
