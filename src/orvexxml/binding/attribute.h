#pragma once

#include <string>

#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/smartptr.h"

namespace OrvexXml {

class CAttributeCol;

// A free attribute of open content (the attribute wildcard): local name, value and namespace
// URI, held by a CAttributeCol. New attributes come from CAttributeCol::Add or Clone. The
// element name of CXmlObjectBase stays empty. A null text given to any operation counts as
// the empty string.
class ORVEXXML_API CAttribute : public CXmlObjectBase, public CInstanceMonitor {
    friend class CAttributeCol;

public:
    CXmlObjectBase* GetBase() override { return this; }
    // The namespace of the attribute.
    std::string GetNamespace() const override { return m_strNamespace; }

    // A new attribute with the same name, value and namespace.
    CSmartPtr<CAttribute> Clone() const;

    std::string GetName() const { return m_strName; }
    std::string GetValue() const { return m_strValue; }

    // Tell FireOnChangeName / FireOnChangeNamespace first, then assign. No namespace test:
    // the namespace is tested when a collection adds the attribute.
    void SetName(const char* pszName);
    void SetValue(const char* pszValue);
    void SetNamespace(const char* pszNamespace);

protected:
    CAttribute(const char* pszName, const char* pszValue, const char* pszNamespace);
    ~CAttribute() override;

    std::string GetTargetNamespace() const override { return m_strNamespace; }
    // Writes the attribute on the open start tag, in its own namespace.
    void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                   bool bOptionalChoice) const override;
    // Attributes are read by their collection: always throws COxException.
    CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;

    // --- virtual slots after those of CXmlObjectBase -----------------------------------
    // Told of a change before it is made, with the new value; nothing happens here.
    virtual void FireOnChangeName(const char* pszName);
    virtual void FireOnChangeNamespace(const char* pszNamespace);
    // --- end of virtual slots ----------------------------------------------------------

private:
    std::string m_strName;
    std::string m_strValue;
    std::string m_strNamespace;
};

}  // namespace OrvexXml
