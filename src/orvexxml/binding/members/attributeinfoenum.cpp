#include "orvexxml/binding/members/attributeinfoenum.h"

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/writers/xmlwriter.h"
#include "orvexxml/xml/xmlattribute.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CAttributeInfoEnum::CAttributeInfoEnum(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                       bool bOptional, EnumToTextFn pfnEnumToText, TextToEnumFn pfnTextToEnum,
                                       const char* pszDefault)
    : CAttributeInfo(pszName, pszNamespace, nPropertyIndex, bOptional, pszDefault),
      m_pfnTextToEnum(pfnTextToEnum),
      m_pfnEnumToText(pfnEnumToText) {}

CAttributeInfoEnum::~CAttributeInfoEnum() {}

void CAttributeInfoEnum::AttributeToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                        CXmlWriter* pWriter) const {
    OxVariant value;
    ReadProperty(pClass, value);
    if (m_bOptional && !value.IsValid()) return;
    // The generated function refuses a number that names no member.
    std::string strText = m_pfnEnumToText(value.GetI4());
    if (m_bOptional && !m_strDefaultValue.empty() && ctx.GetNoOptionalAttributeDefaultOutput() &&
        strText == m_strDefaultValue)
        return;
    pWriter->WriteAttribute(m_strAttributeName, m_strAttributeNamespace, strText, ItemType_string);
}

bool CAttributeInfoEnum::AttributeFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                          CXmlAttribute* pAttribute) {
    if (!IsThisAttribute(ctx, pAttribute)) return false;
    OxVariant value;
    value.SetI4(m_pfnTextToEnum(pAttribute->GetValue().c_str()));
    InvokePropertySet(pClass, value, *pAttribute);
    return true;
}

void CAttributeInfoEnum::Validate(const CSerializationContext&, bool bFound) const { ValidateRequired(bFound); }

}  // namespace OrvexXmlData
