#pragma once

#include <string>

#include "orvexxml/binding/attributeinfo.h"
#include "orvexxml/export.h"

namespace OrvexXmlData {

// The attribute wildcard of a class (xs:anyAttribute): its property holds a CAttributeCol.
// Writing hands the collection to the writer, each attribute in its own namespace; reading
// takes every attribute whose namespace passes the restriction (read against the target
// namespace) into the collection. It is never missing: Validate has nothing to check.
class ORVEXXML_API CAttributeInfoAny : public CAttributeInfo {
public:
    // A null restriction, target namespace or default counts as the empty string.
    CAttributeInfoAny(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bOptional,
                      const char* pszRestriction, const char* pszTargetNamespace, const char* pszDefault);
    ~CAttributeInfoAny() override;

    const std::string& GetNamespaceRestriction() const { return m_strNamespaceRestriction; }
    const std::string& GetTargetNamespace() const { return m_strTargetNamespace; }

protected:
    void AttributeToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlWriter* pWriter) const override;
    // False for an attribute outside the restriction. A property that holds no CAttributeCol
    // throws COxException.
    bool AttributeFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                          OrvexXml::CXmlAttribute* pAttribute) override;
    void Validate(const OrvexXml::CSerializationContext& ctx, bool bFound) const override;

    std::string m_strNamespaceRestriction;
    std::string m_strTargetNamespace;
};

}  // namespace OrvexXmlData
