#include "orvexxml/binding/attributeinfo.h"

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/binding/xmlgeneratedclass.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/xml/xmlattribute.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CAttributeInfo::CAttributeInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bOptional,
                               const char* pszDefault)
    : m_strAttributeName(pszName ? pszName : ""),
      m_strAttributeNamespace(pszNamespace ? pszNamespace : ""),
      m_nPropertyIndex(nPropertyIndex),
      m_bOptional(bOptional),
      m_strDefaultValue(pszDefault ? pszDefault : "") {}

CAttributeInfo::~CAttributeInfo() {}

bool CAttributeInfo::IsThisAttribute(const CSerializationContext& ctx, const CXmlAttribute* pAttribute) const {
    if (!pAttribute) return false;
    if (pAttribute->GetLocalName() != m_strAttributeName) return false;
    if (ctx.GetIgnoreNamespaces()) return true;
    return pAttribute->GetNamespaceURI() == m_strAttributeNamespace;
}

void CAttributeInfo::ReadProperty(const CXmlGeneratedClass* pClass, OxVariant& value) const {
    InvokePropertyGet(const_cast<CXmlGeneratedClass*>(pClass), value);
}

void CAttributeInfo::InvokePropertyGet(CXmlGeneratedClass* pClass, OxVariant& value) const {
    try {
        pClass->ExchangeProperty(m_nPropertyIndex, true, value);
    } catch (const COxException& e) {
        throw COxValidationException(
            FormatString("Failed to get the property value for [%s].", m_strAttributeName.c_str()), std::string(), e);
    }
}

void CAttributeInfo::InvokePropertySet(CXmlGeneratedClass* pClass, OxVariant& value,
                                       const CXmlAttribute& attribute) const {
    try {
        pClass->ExchangeProperty(m_nPropertyIndex, false, value);
    } catch (const COxException& e) {
        throw COxValidationException(
            FormatString("Failed to set the property value [%s].", attribute.GetValue().c_str()), attribute.GetXPath(),
            e);
    }
}

void CAttributeInfo::ValidateRequired(bool bFound) const {
    if (!m_bOptional && !bFound) {
        throw COxValidationException(
            FormatString("Failed to find the required Attribute [%s].", m_strAttributeName.c_str()), std::string());
    }
}

void CAttributeInfo::TestNamespace(const std::string& strNamespace, const std::string& strRestriction,
                                   const std::string& strTargetNamespace) {
    OrvexXml::TestNamespace(strNamespace, strRestriction, strTargetNamespace);
}

bool CAttributeInfo::IsNamespaceValid(const std::string& strNamespace, const std::string& strRestriction,
                                      const std::string& strTargetNamespace) {
    return OrvexXml::IsNamespaceValid(strNamespace, strRestriction, strTargetNamespace);
}

std::string CAttributeInfo::GetTargetNamespace(const CXmlObjectBase* pObject) { return pObject->GetTargetNamespace(); }

void CAttributeInfo::ToXml_Int(const CXmlObjectBase* pObject, CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                               const CSerializationContext& ctx) {
    pObject->ToXml_Int(pWriter, bRoot, pszNamespace, ctx, false);
}

}  // namespace OrvexXmlData
