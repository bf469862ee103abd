#include "orvexxml/binding/members/attributeinfoprimitive.h"

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/values/validatevalue.h"
#include "orvexxml/writers/xmlwriter.h"
#include "orvexxml/xml/xmlattribute.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CAttributeInfoPrimitive::CAttributeInfoPrimitive(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                                 bool bOptional, ItemType eItemType, const char* pszFormat,
                                                 CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
                                                 const CPrimitiveRestrictions& restrictions, const char* pszDefault)
    : CAttributeInfo(pszName, pszNamespace, nPropertyIndex, bOptional, pszDefault),
      m_restrictions(restrictions),
      m_eItemType(eItemType),
      m_strFormatOverride(pszFormat ? pszFormat : ""),
      m_eWhitespaceRule(eWhitespaceRule) {}

CAttributeInfoPrimitive::~CAttributeInfoPrimitive() {}

void CAttributeInfoPrimitive::CheckRestriction(OxVariant value) const {
    ValidatePrimitive(m_strAttributeName.c_str(), value, m_eItemType, m_restrictions);
}

void CAttributeInfoPrimitive::AttributeToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                             CXmlWriter* pWriter) const {
    OxVariant value;
    ReadProperty(pClass, value);
    if (m_bOptional && !value.IsValid()) return;
    // A required attribute without a value fails here with the variant's own error.
    std::string strScratch;
    const std::string& strText = value.ToText(strScratch, m_strFormatOverride.c_str());
    // A suppressed default is not checked against the facets: it comes from the schema.
    if (m_bOptional && !m_strDefaultValue.empty() && ctx.GetNoOptionalAttributeDefaultOutput() &&
        strText == m_strDefaultValue)
        return;
    // What CheckRestriction checks, without the copy of the value that its signature takes.
    ValidatePrimitive(m_strAttributeName.c_str(), value, m_eItemType, m_restrictions);
    pWriter->WriteAttribute(m_strAttributeName, m_strAttributeNamespace, strText, value.GetTypeAsEnum());
}

bool CAttributeInfoPrimitive::AttributeFromXml(const CSerializationContext&, CXmlGeneratedClass* pClass,
                                               CXmlAttribute* pAttribute) {
    if (!pAttribute || pAttribute->GetLocalName() != m_strAttributeName) return false;
    if (pAttribute->GetNamespaceURI() != m_strAttributeNamespace) return false;
    OxVariant value;
    value.FromString(pAttribute->GetValue(), m_eItemType, m_eWhitespaceRule);
    InvokePropertySet(pClass, value, *pAttribute);
    return true;
}

void CAttributeInfoPrimitive::Validate(const CSerializationContext&, bool bFound) const { ValidateRequired(bFound); }

}  // namespace OrvexXmlData
