#pragma once

#include <string>

#include "orvexxml/binding/attributeinfo.h"
#include "orvexxml/values/itemtype.h"
#include "orvexxml/values/primitiverestrictions.h"
#include "orvexxml/values/whitespaceutils.h"

namespace OrvexXmlData {

// An attribute holding a primitive value: written through the value's text form, read by
// converting the text to the declared type.
class ORVEXXML_API CAttributeInfoPrimitive : public CAttributeInfo {
public:
    CAttributeInfoPrimitive(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bOptional,
                            OrvexXml::ItemType eItemType, const char* pszFormat,
                            OrvexXml::CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
                            const OrvexXml::CPrimitiveRestrictions& restrictions, const char* pszDefault);
    ~CAttributeInfoPrimitive() override;

    // Checks a value against the attribute's facets; generated setters may call it.
    void CheckRestriction(OrvexXml::OxVariant value) const;

    OrvexXml::ItemType GetItemType() const { return m_eItemType; }

protected:
    // Writes the attribute unless it is optional and either unset or, when the context asks
    // for it, equal to its default.
    void AttributeToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlWriter* pWriter) const override;
    // Takes the attribute when name and namespace match exactly. The namespace is compared
    // even when the context ignores namespaces.
    bool AttributeFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                          OrvexXml::CXmlAttribute* pAttribute) override;
    // Refuses a required attribute that was not found.
    void Validate(const OrvexXml::CSerializationContext& ctx, bool bFound) const override;

    OrvexXml::CPrimitiveRestrictions m_restrictions;
    OrvexXml::ItemType m_eItemType;
    std::string m_strFormatOverride;
    OrvexXml::CWhitespaceUtils::WhitespaceRule m_eWhitespaceRule;
};

}  // namespace OrvexXmlData
