#include "orvexxml/binding/elementinfo.h"

#include "orvexxml/binding/xmlgeneratedclass.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/writers/xmlwriter.h"

using namespace OrvexXml;

namespace OrvexXmlData {

static inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

CElementInfo::CElementInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex)
    : m_strElementName(NotNull(pszName)),
      m_strElementNamespace(NotNull(pszNamespace)),
      m_nPropertyIndex(nPropertyIndex),
      m_eItemType(ItemType_invalid),
      m_eWhitespaceRule(CWhitespaceUtils::WhitespaceRule_none),
      m_bNillable(false),
      m_pfnEnumToText(nullptr),
      m_pfnTextToEnum(nullptr),
      m_bPrimitive(false) {}

CElementInfo::CElementInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
                           EnumToTextFn pfnEnumToText, TextToEnumFn pfnTextToEnum, const char* pszDefault)
    : m_strElementName(NotNull(pszName)),
      m_strElementNamespace(NotNull(pszNamespace)),
      m_nPropertyIndex(nPropertyIndex),
      m_eItemType(ItemType_invalid),
      m_eWhitespaceRule(CWhitespaceUtils::WhitespaceRule_none),
      m_strDefaultValue(NotNull(pszDefault)),
      m_bNillable(bNillable),
      m_pfnEnumToText(pfnEnumToText),
      m_pfnTextToEnum(pfnTextToEnum),
      m_bPrimitive(false) {}

CElementInfo::CElementInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
                           ItemType eItemType, const char* pszFormat, CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
                           const CPrimitiveRestrictions& restrictions, const char* pszDefault)
    : m_strElementName(NotNull(pszName)),
      m_strElementNamespace(NotNull(pszNamespace)),
      m_nPropertyIndex(nPropertyIndex),
      m_restrictions(restrictions),
      m_eItemType(eItemType),
      m_strFormatOverride(NotNull(pszFormat)),
      m_eWhitespaceRule(eWhitespaceRule),
      m_strDefaultValue(NotNull(pszDefault)),
      m_bNillable(bNillable),
      m_pfnEnumToText(nullptr),
      m_pfnTextToEnum(nullptr),
      m_bPrimitive(true) {}

CElementInfo::~CElementInfo() {}

bool CElementInfo::Validate(const CSerializationContext&, const CXmlGeneratedClass*, bool, bool) const {
    throw COxException("Not implemented, should never be called");
}

void CElementInfo::PseudoChildAttributeToXml(const CSerializationContext&, const CXmlGeneratedClass*,
                                             CXmlWriter*) const {}

void CElementInfo::CheckRestriction(const OxVariant& value) const {
    if (!m_bPrimitive) throw COxException("Cannot CheckRestriction for type: " + value.GetType());
    // Facet validation of primitive values joins here once the facet checker exists;
    // until then a primitive value is written unchecked.
}

void CElementInfo::ReadProperty(const CXmlGeneratedClass* pClass, OxVariant& value) const {
    InvokePropertyGet(pClass, value);
}

void CElementInfo::InvokePropertyGet(const CXmlGeneratedClass* pClass, OxVariant& value) const {
    try {
        pClass->ReadProperty(m_nPropertyIndex, value);
    } catch (const COxException& e) {
        throw COxValidationException(
            FormatString("Failed to get the property value for [%s].", m_strElementName.c_str()), std::string(), e);
    }
}

bool CElementInfo::ElementToXmlPrim(const CSerializationContext&, const CXmlGeneratedClass* pClass,
                                    CXmlWriter* pWriter) const {
    OxVariant value;
    ReadProperty(pClass, value);
    if (value.IsNil()) {
        pWriter->WriteStartElement(m_strElementName, m_strElementNamespace);
        pWriter->WriteXsiNil();
        pWriter->WriteEndElement();
        return true;
    }
    if (!value.IsValid()) return false;

    std::string strText = value.ToString(m_strFormatOverride.c_str());
    if (!m_strDefaultValue.empty() && strText == m_strDefaultValue) {
        // A value equal to the schema default is written as an empty element unless the
        // writer is told to write defaults; no facet check is made for it.
        pWriter->WriteStartElement(m_strElementName, m_strElementNamespace);
        pWriter->WriteElementText(strText, value.GetTypeAsEnum(), true);
        pWriter->WriteEndElement();
        return true;
    }
    CheckRestriction(value);
    pWriter->WriteStartElement(m_strElementName, m_strElementNamespace);
    pWriter->WriteElementText(strText, value.GetTypeAsEnum(), false);
    pWriter->WriteEndElement();
    return true;
}

void CElementInfo::ToXml_Int(const CXmlObjectBase* pObject, CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                             const CSerializationContext& ctx, bool bOptionalChoice) {
    pObject->ToXml_Int(pWriter, bRoot, pszNamespace, ctx, bOptionalChoice);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* pObject, CXmlWriter* pWriter,
                                       const CSerializationContext& ctx) {
    pObject->AttributesToXml_Int(pWriter, ctx);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* pObject, CXmlElement* pElement, CXmlElement* pFirstChild,
                                       const CSerializationContext& ctx, bool bOptionalChoice) {
    return pObject->FromXml_Int(pElement, pFirstChild, ctx, bOptionalChoice);
}

}  // namespace OrvexXmlData
