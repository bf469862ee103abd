#include "orvexxml/binding/elementinfo.h"

#include "orvexxml/binding/element.h"
#include "orvexxml/binding/elementcol.h"
#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/binding/xmlgeneratedclass.h"
#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/values/validatevalue.h"
#include "orvexxml/writers/xmlwriter.h"
#include "orvexxml/xml/xmlattribute.h"
#include "orvexxml/xml/xmlelement.h"

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
    ValidatePrimitive(m_strElementName.c_str(), value, m_eItemType, m_restrictions);
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

    std::string strScratch;
    const std::string& strText = value.ToText(strScratch, m_strFormatOverride.c_str());
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

bool CElementInfo::IsThisElement(const CSerializationContext& ctx, const CXmlElement* pElement) const {
    if (!pElement) return false;
    if (pElement->GetLocalName() != m_strElementName) return false;
    if (ctx.GetIgnoreNamespaces()) return true;
    return pElement->GetNamespaceURI() == m_strElementNamespace;
}

void CElementInfo::InvokePropertySet(CXmlGeneratedClass* pClass, OxVariant& value, const CXmlElement& element) const {
    try {
        pClass->ExchangeProperty(m_nPropertyIndex, false, value);
    } catch (const COxException& e) {
        throw COxValidationException("Failed to set the property value.", element.GetXPath(), e);
    }
}

static bool EqualsNoCase(const std::string& strText, const char* pszWord) {
    size_t i = 0;
    for (; pszWord[i]; ++i) {
        if (i >= strText.size()) return false;
        char c = strText[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != pszWord[i]) return false;
    }
    return i == strText.size();
}

bool CElementInfo::ReadSimpleElementAttributes(const CSerializationContext& ctx, const CXmlElement* pElement) const {
    bool bNil = false;
    for (CXmlAttribute* pAttribute : pElement->GetAttributes()) {
        if (!pAttribute->IsNilAttribute()) {
            // Unlike at class level, xsi:type and friends are unexpected on a simple element.
            if (ctx.GetIgnoreUnknownAttributes()) continue;
            throw COxValidationException("Unexpected Attribute found.", pAttribute->GetXPath());
        }
        const std::string& strValue = pAttribute->GetValue();
        if (EqualsNoCase(strValue, "false") || EqualsNoCase(strValue, "0")) {
            bNil = false;
            continue;
        }
        bNil = true;
        if (!m_bNillable) {
            throw COxValidationException("Invalid use of 'nil' attribute in non-nillable element.",
                                         pElement->GetXPath());
        }
        if (!EqualsNoCase(strValue, "true") && !EqualsNoCase(strValue, "1")) {
            throw COxValidationException(
                FormatString("Unexpected Value [%s] for 'nil' Attribute found.", strValue.c_str()),
                pAttribute->GetXPath());
        }
    }
    return bNil;
}

void CElementInfo::ElementFromXmlPrim(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                      CXmlElement** ppCurrent) {
    CXmlElement* pElement = *ppCurrent;
    // A nil element leaves the property as ResetToDefaults left it.
    if (!ReadSimpleElementAttributes(ctx, pElement)) {
        // An empty element stands for the default value, as the writer produces it.
        std::string strText(pElement->GetTextView());
        if (strText.empty()) strText = m_strDefaultValue;
        OxVariant value;
        value.FromString(std::move(strText), m_eItemType, m_eWhitespaceRule);
        InvokePropertySet(pClass, value, *pElement);
    }
    *ppCurrent = pElement->GetNextSiblingElement();
}

void CElementInfo::ElementFromXmlEnum(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                      CXmlElement** ppCurrent) {
    CXmlElement* pElement = *ppCurrent;
    if (!ReadSimpleElementAttributes(ctx, pElement)) {
        // The generated function refuses unknown text; no whitespace rule is applied.
        std::string strText(pElement->GetTextView());
        if (strText.empty()) strText = m_strDefaultValue;
        OxVariant value;
        value.SetI4(m_pfnTextToEnum(strText.c_str()));
        InvokePropertySet(pClass, value, *pElement);
    }
    *ppCurrent = pElement->GetNextSiblingElement();
}

bool CElementInfo::ElementFromXmlSeqMandatory(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                              CXmlElement* pParent, CXmlElement** ppCurrent,
                                              XmlElementType eParentType) {
    if (eParentType != XmlElementType_Element) {
        // Inside a model group the driver decides what a missing element means.
        if (!IsThisElement(ctx, *ppCurrent)) return false;
        ReadElement(ctx, pClass, ppCurrent);
        return true;
    }
    if (SeekMandatory(ctx, pParent, ppCurrent)) ReadElement(ctx, pClass, ppCurrent);
    return true;
}

bool CElementInfo::SeekMandatory(const CSerializationContext& ctx, const CXmlElement* pParent,
                                 CXmlElement** ppCurrent) const {
    for (;;) {
        if (IsThisElement(ctx, *ppCurrent)) return true;
        if (ctx.GetIgnoreMissingMandatoryElements()) return false;
        if (!ctx.GetIgnoreUnknownElements() || !*ppCurrent) ThrowRequiredChild(pParent);
        *ppCurrent = (*ppCurrent)->GetNextSiblingElement();  // skipped elements are lost
    }
}

bool CElementInfo::ElementFromXmlOptional(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                          CXmlElement** ppCurrent) {
    if (!IsThisElement(ctx, *ppCurrent)) return false;
    ReadElement(ctx, pClass, ppCurrent);
    return true;
}

bool CElementInfo::ElementFromXmlSeqOptional(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                             CXmlElement** ppCurrent) {
    if (IsThisElement(ctx, *ppCurrent)) ReadElement(ctx, pClass, ppCurrent);
    return true;  // an absent optional element leaves the cursor where it is
}

void CElementInfo::ReadElement(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement** ppCurrent) {
    if (m_bPrimitive)
        ElementFromXmlPrim(ctx, pClass, ppCurrent);
    else
        ElementFromXmlEnum(ctx, pClass, ppCurrent);
}

bool CElementInfo::ValidateMandatory(bool bFound, bool bCheck) const {
    if (!bFound && bCheck) {
        throw COxValidationException(
            FormatString("Failed to find the mandatory element [%s].", m_strElementName.c_str()), std::string());
    }
    return bFound;
}

CXmlCollectionBase* CElementInfo::ReadCollection(const CXmlGeneratedClass* pClass, OxVariant& holder) const {
    ReadProperty(pClass, holder);
    // The variant keeps the collection referenced while the caller works with it.
    return CollectionOf(holder);
}

bool CElementInfo::ElementToXmlCol(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                   CXmlWriter* pWriter) const {
    OxVariant holder;
    CXmlCollectionBase* pCollection = ReadCollection(pClass, holder);
    if (pCollection->GetCount() < 1) return false;
    pWriter->SetCollectionState(1);
    // The collection writes its items under its own element name.
    ToXml_Int(pCollection->GetBase(), pWriter, false, m_strElementNamespace.c_str(), ctx, false);
    pWriter->SetCollectionState(3);
    return true;
}

bool CElementInfo::ElementToXmlCountedCol(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                          CXmlWriter* pWriter) const {
    if (!ctx.GetIgnoreInvalidCollectionCounts()) {
        OxVariant holder;
        ReadCollection(pClass, holder)->ValidateCount(ctx);
    }
    return ElementToXmlCol(ctx, pClass, pWriter);
}

bool CElementInfo::ElementFromXmlSeqCol(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                        CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eParentType) {
    // A collection member is read into the collection the object already holds.
    OxVariant holder;
    InvokePropertyGet(pClass, holder);
    CXmlCollectionBase* pCollection = CollectionOf(holder);
    return EndSeqCol(ctx, pCollection, ppCurrent, FromXml_Int(pCollection->GetBase(), pParent, *ppCurrent, ctx, false),
                     eParentType);
}

bool CElementInfo::EndSeqCol(const CSerializationContext& ctx, CXmlCollectionBase* pCollection, CXmlElement** ppCurrent,
                             CXmlElement* pNext, XmlElementType eParentType) const {
    *ppCurrent = pNext;
    // Inside a model group a wrong count means the group doesn't start here.
    if (eParentType != XmlElementType_Element) return pCollection->IsValidCount(ctx);
    pCollection->ValidateCount(ctx);
    return true;
}

bool CElementInfo::ElementFromXmlAllCol(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                        CXmlElement* pParent, CXmlElement** ppCurrent) {
    OxVariant holder;
    InvokePropertyGet(pClass, holder);
    CXmlCollectionBase* pCollection = CollectionOf(holder);
    *ppCurrent = FromXml_Int(pCollection->GetBase(), pParent, *ppCurrent, ctx, false);
    return false;  // the driver offers the member again in its next pass
}

bool CElementInfo::ElementFromXmlChoiceCol(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eParentType) {
    OxVariant holder;
    InvokePropertyGet(pClass, holder);
    CXmlCollectionBase* pCollection = CollectionOf(holder);
    return EndChoiceCol(ctx, pCollection, ppCurrent,
                        FromXml_Int(pCollection->GetBase(), pParent, *ppCurrent, ctx, false), eParentType);
}

bool CElementInfo::EndChoiceCol(const CSerializationContext& ctx, CXmlCollectionBase* pCollection,
                                CXmlElement** ppCurrent, CXmlElement* pNext, XmlElementType eParentType) const {
    if (pNext == *ppCurrent) return false;  // nothing consumed: try the next member
    if (eParentType == XmlElementType_Element) {
        *ppCurrent = pNext;
        pCollection->ValidateCount(ctx);
        return true;
    }
    if (!pCollection->IsValidCount(ctx)) return false;  // items already added stay in the collection
    *ppCurrent = pNext;
    return true;
}

void CElementInfo::ToXml_Int(const CXmlObjectBase* pObject, CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                             const CSerializationContext& ctx, bool bOptionalChoice) {
    pObject->ToXml_Int(pWriter, bRoot, pszNamespace, ctx, bOptionalChoice);
}

bool CElementInfo::ElementToXmlEnum(const CSerializationContext&, const CXmlGeneratedClass* pClass, CXmlWriter* pWriter,
                                    EnumToTextFn pfnEnumToText) const {
    OxVariant value;
    ReadProperty(pClass, value);
    if (value.IsNil()) {
        pWriter->WriteStartElement(m_strElementName, m_strElementNamespace);
        pWriter->WriteXsiNil();
        pWriter->WriteEndElement();
        return true;
    }
    if (!value.IsValid()) return false;
    const char* pszText = pfnEnumToText(value.GetI4());
    std::string strText = pszText ? pszText : "";
    // Enumerations are not checked against facets: their values are fixed by the schema.
    bool bIsDefault = !m_strDefaultValue.empty() && strText == m_strDefaultValue;
    pWriter->WriteStartElement(m_strElementName, m_strElementNamespace);
    pWriter->WriteElementText(strText, ItemType_string, bIsDefault);
    pWriter->WriteEndElement();
    return true;
}

bool CElementInfo::ElementToXmlValue(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                     CXmlWriter* pWriter) const {
    return m_bPrimitive ? ElementToXmlPrim(ctx, pClass, pWriter)
                        : ElementToXmlEnum(ctx, pClass, pWriter, m_pfnEnumToText);
}

bool CElementInfo::ElementToXmlMandatory(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                         CXmlWriter* pWriter) const {
    if (!ElementToXmlValue(ctx, pClass, pWriter)) ThrowMandatoryNull(m_strElementName);
    return true;
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* pObject, CXmlWriter* pWriter,
                                       const CSerializationContext& ctx) {
    pObject->AttributesToXml_Int(pWriter, ctx);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* pObject, CXmlElement* pElement, CXmlElement* pFirstChild,
                                       const CSerializationContext& ctx, bool bOptionalChoice) {
    return pObject->FromXml_Int(pElement, pFirstChild, ctx, bOptionalChoice);
}

bool CElementInfo::ElementToXmlCls(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                   CXmlWriter* pWriter, bool bOptionalChoice) const {
    OxVariant value;
    ReadProperty(pClass, value);
    CSmartPtr<CXmlObjectBase> pObject = ObjectOf(value);
    if (!pObject) return false;
    ToXml_Int(pObject.Get(), pWriter, false, m_strElementNamespace.c_str(), ctx, bOptionalChoice);
    return true;
}

bool CElementInfo::ElementToXmlMandatoryCls(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                            CXmlWriter* pWriter) const {
    if (!ElementToXmlCls(ctx, pClass, pWriter, false)) ThrowMandatoryNull(m_strElementName);
    return true;
}

std::string CElementInfo::GetAnyDefaultNamespace(const char* pszRestriction, const char* pszDefaultNamespace,
                                                 const char* pszTargetNamespace) {
    const std::string strRestriction = NotNull(pszRestriction);
    const char* pszDefault = NotNull(pszDefaultNamespace);
    if (strRestriction == "##any") return pszDefault;
    // Any namespace but the target's: the empty one unless that is where the class stands.
    if (strRestriction == "##other") return *pszDefault ? "" : "DefaultNamespace";
    if (strRestriction == "##local") return std::string();
    if (strRestriction == "##targetNamespace") return NotNull(pszTargetNamespace);
    const size_t nBlank = strRestriction.find(' ');
    if (strRestriction.size() >= 3 && strRestriction.compare(0, 2, "##") == 0 && nBlank != std::string::npos) {
        return GetAnyDefaultNamespace(strRestriction.substr(0, nBlank).c_str(), pszDefaultNamespace,
                                      pszTargetNamespace);
    }
    // A literal URI or a list of them: the empty namespace, which the element's own test then
    // accepts or refuses.
    return std::string();
}

bool CElementInfo::IsThisUntypedElement(const CXmlElement* pElement) const {
    return m_strElementName == "AnyElement" || pElement->GetLocalName() == m_strElementName;
}

bool CElementInfo::ElementFromXmlUntypedNew(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                            CXmlElement* pParent, CXmlElement** ppCurrent, const char* pszNamespace,
                                            XmlElementGroupType eGroup, const std::string& strRestriction,
                                            const std::string& strTargetNamespace) {
    if (!*ppCurrent) return eGroup == XmlElementGroupType_Sequence;
    // The constructor tests the derived namespace against the restriction and refuses it there.
    CSmartPtr<CElement> pObject =
        new CElement(m_strElementName.c_str(),
                     GetAnyDefaultNamespace(strRestriction.c_str(), pszNamespace, strTargetNamespace.c_str()).c_str(),
                     strRestriction.c_str(), strTargetNamespace.c_str());
    CXmlElement* pNext = *ppCurrent;
    if (IsThisUntypedElement(*ppCurrent)) pNext = FromXml_Int(pObject.Get(), pParent, *ppCurrent, ctx, false);
    OxVariant value;
    if (pNext != *ppCurrent) {
        value.SetXmlObject(pObject.Get());
        InvokePropertySet(pClass, value, *pParent);
        *ppCurrent = pNext;
        return true;
    }
    if (eGroup == XmlElementGroupType_Choice) {
        // Take back a selection that the choice's setter may have made.
        value.SetXmlObject(nullptr);
        InvokePropertySet(pClass, value, *pParent);
        return false;
    }
    return eGroup == XmlElementGroupType_Sequence;
}

bool CElementInfo::ElementFromXmlUntypedHeld(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                             CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eParentType,
                                             bool bAllGroup) {
    if (!*ppCurrent) {
        if (bAllGroup) return false;
        ThrowRequiredChild(pParent);
    }
    OxVariant holder;
    InvokePropertyGet(pClass, holder);
    CSmartPtr<CXmlObjectBase> pObject = ObjectOf(holder);
    // The generated object keeps its element in the property; a class that let it go can't be read into.
    if (!pObject) ThrowMandatoryNull(m_strElementName);
    CXmlElement* pNext = *ppCurrent;
    if (IsThisUntypedElement(*ppCurrent)) pNext = FromXml_Int(pObject.Get(), pParent, *ppCurrent, ctx, false);
    if (pNext == *ppCurrent) {
        if (bAllGroup || eParentType != XmlElementType_Element) return false;
        throw COxValidationException(
            FormatString("Failed to find the required element from namespace [%s].", m_strElementNamespace.c_str()),
            pParent->GetXPath());
    }
    *ppCurrent = pNext;
    return true;
}

bool CElementInfo::ElementFromXmlUntypedCol(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                            CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eParentType,
                                            bool bChoice) {
    OxVariant holder;
    InvokePropertyGet(pClass, holder);
    CXmlCollectionBase* pCollection = CollectionOf(holder);
    CXmlElement* pNext;
    if (m_strElementName == "AnyElement") {
        pNext = FromXml_Int(pCollection->GetBase(), pParent, *ppCurrent, ctx, false);
    } else {
        CElementCol* pElements = dynamic_cast<CElementCol*>(pCollection);
        if (!pElements)
            throw COxException("Serialization Data Error : The collection should be a CElementCol, it was not!");
        pNext = pElements->FromXmlLockElementName_Int(
            m_strElementName, *ppCurrent ? (*ppCurrent)->GetNamespaceURI() : std::string(), pParent, *ppCurrent, ctx);
    }
    return bChoice ? EndChoiceCol(ctx, pCollection, ppCurrent, pNext, eParentType)
                   : EndSeqCol(ctx, pCollection, ppCurrent, pNext, eParentType);
}

CSmartPtr<CXmlObjectBase> CElementInfo::ObjectOf(const OxVariant& value) const {
    const ItemType eType = value.GetTypeAsEnum();
    if (eType == ItemType_invalid) return CSmartPtr<CXmlObjectBase>();
    if (eType != ItemType_XmlObjectBase && eType != ItemType_XmlCollection) {
        throw COxException(
            FormatString("Serialization Data Error : The property of [%s] should hold an object, it did not!",
                         m_strElementName.c_str()));
    }
    return value.GetXmlObject();
}

CXmlCollectionBase* CElementInfo::CollectionOf(const OxVariant& value) const {
    // The variant keeps its kinds in one union: anything but a collection would be misread.
    if (value.GetTypeAsEnum() != ItemType_XmlCollection || !value.GetXmlCollection()) {
        throw COxException(
            FormatString("Serialization Data Error : The property of [%s] should hold a collection, it did not!",
                         m_strElementName.c_str()));
    }
    return value.GetXmlCollection().Get();
}

void CElementInfo::ThrowRequiredChild(const CXmlElement* pParent) const {
    throw COxValidationException(
        FormatString("Failed to find the required child element [%s].", m_strElementName.c_str()), pParent->GetXPath());
}

void CElementInfo::ReadInside(const CSerializationContext& ctx, CXmlObjectBase* pObject, CXmlElement** ppCurrent,
                              bool bOptionalChoice) {
    CXmlElement* pElement = *ppCurrent;
    FromXml_Int(pObject, pElement, pElement->GetFirstElement(), ctx, bOptionalChoice);
    *ppCurrent = pElement->GetNextSiblingElement();
}

bool CElementInfo::ElementFromXmlClsHeld(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                         CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eParentType,
                                         XmlElementType eOwnType, bool bMustConsume, XmlElementGroupType eGroup) {
    // The generated object pre-creates the child; it stays in the property and is read in place.
    OxVariant holder;
    InvokePropertyGet(pClass, holder);
    CSmartPtr<CXmlObjectBase> pObject = ObjectOf(holder);
    if (!pObject) ThrowMandatoryNull(m_strElementName);

    if (eOwnType == XmlElementType_Element) {
        if (eGroup == XmlElementGroupType_All || eParentType != XmlElementType_Element) {
            if (!IsThisElement(ctx, *ppCurrent)) return false;
            ReadInside(ctx, pObject.Get(), ppCurrent, false);
            return true;
        }
        if (SeekMandatory(ctx, pParent, ppCurrent)) ReadInside(ctx, pObject.Get(), ppCurrent, false);
        return true;
    }

    if (eGroup == XmlElementGroupType_All) {
        CXmlElement* pNext = FromXml_Int(pObject.Get(), pParent, *ppCurrent, ctx, false);
        const bool bProgress = pNext != *ppCurrent;
        *ppCurrent = pNext;
        return bProgress;
    }
    if (!bMustConsume) {
        // A group that may be empty: reading it with nothing of its own still gives it the
        // parent's attributes, and it counts as present.
        CXmlElement* pNext = FromXml_Int(pObject.Get(), pParent, *ppCurrent, ctx, false);
        if (!*ppCurrent || pNext != *ppCurrent || !ctx.GetIgnoreUnknownElements() ||
            eParentType != XmlElementType_Element) {
            *ppCurrent = pNext;
            return true;
        }
        return false;  // the driver skips the unknown element at the cursor and offers it again
    }
    if (!*ppCurrent) {
        if (eParentType != XmlElementType_Element) return false;
        ThrowRequiredChild(pParent);
    }
    CXmlElement* pNext = FromXml_Int(pObject.Get(), pParent, *ppCurrent, ctx, false);
    if (pNext != *ppCurrent) {
        *ppCurrent = pNext;
        return true;
    }
    if (eParentType != XmlElementType_Element) return false;
    ThrowRequiredChild(pParent);
}

bool CElementInfo::ElementFromXmlClsNew(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                        CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eOwnType,
                                        ClsFactoryFn pfnFactory, int nClassId, XmlElementGroupType eGroup) {
    // What an absent element answers: a sequence goes on, All and choice members are not found.
    const bool bAbsent = eGroup == XmlElementGroupType_Sequence;
    const bool bChoice = eGroup == XmlElementGroupType_Choice;
    OxVariant value;
    if (eOwnType == XmlElementType_Element) {
        if (!IsThisElement(ctx, *ppCurrent)) return bAbsent;
        CSmartPtr<CXmlObjectBase> pObject = pfnFactory(nClassId, m_strElementName.c_str());
        if (!pObject) return bAbsent;  // a factory without the class: the element stays unread
        value.SetXmlObject(pObject.Get());
        if (bChoice) {
            // The selection is made before the content is read, and an empty choice inside
            // the child is acceptable since the child itself was chosen.
            InvokePropertySet(pClass, value, *pParent);
            ReadInside(ctx, pObject.Get(), ppCurrent, true);
        } else {
            ReadInside(ctx, pObject.Get(), ppCurrent, false);
            InvokePropertySet(pClass, value, *pParent);
        }
        return true;
    }

    if (!*ppCurrent) return bAbsent;
    CSmartPtr<CXmlObjectBase> pObject = pfnFactory(nClassId, m_strElementName.c_str());
    if (!pObject) return bAbsent;
    value.SetXmlObject(pObject.Get());
    if (bChoice) InvokePropertySet(pClass, value, *pParent);
    CXmlElement* pNext = FromXml_Int(pObject.Get(), pParent, *ppCurrent, ctx, false);
    const bool bProgress = pNext != *ppCurrent;
    if (bChoice) {
        if (!bProgress) {
            // Take the selection back; the object goes with the last reference to it.
            value.SetXmlObject(nullptr);
            InvokePropertySet(pClass, value, *pParent);
            return false;
        }
    } else if (bProgress) {
        InvokePropertySet(pClass, value, *pParent);
    }
    // A group that consumed nothing is dropped and its property stays null.
    *ppCurrent = pNext;
    return bAbsent || bProgress;
}

bool CElementInfo::ElementFromXmlAbsClsSeq(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eParentType,
                                           AbsClsFactoryFn pfnFactory, bool bMandatory) {
    // The name of the description decides; the factory resolves the class from the element.
    CSmartPtr<CXmlObjectBase> pObject;
    if (IsThisElement(ctx, *ppCurrent)) pObject = pfnFactory(*ppCurrent);
    if (!pObject) {
        if (!bMandatory) return true;
        if (eParentType != XmlElementType_Element) return false;
        throw COxValidationException(
            FormatString("Failed to find a suitable substitution element for [%s].", m_strElementName.c_str()),
            pParent->GetXPath());
    }
    OxVariant value;
    value.SetXmlObject(pObject.Get());
    ReadInside(ctx, pObject.Get(), ppCurrent, false);
    InvokePropertySet(pClass, value, *pParent);
    return true;
}

bool CElementInfo::ElementFromXmlAbsClsAll(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                           CXmlElement* pParent, CXmlElement** ppCurrent, XmlElementType eOwnType,
                                           AbsClsFactoryFn pfnFactory) {
    OxVariant value;
    if (eOwnType == XmlElementType_Element) {
        if (!IsThisElement(ctx, *ppCurrent)) return false;
        CSmartPtr<CXmlObjectBase> pObject = pfnFactory(*ppCurrent);
        if (!pObject) return false;  // no class for the element's type: not found
        ReadInside(ctx, pObject.Get(), ppCurrent, false);
        value.SetXmlObject(pObject.Get());
        InvokePropertySet(pClass, value, *pParent);
        return true;
    }
    if (!*ppCurrent) return false;
    CSmartPtr<CXmlObjectBase> pObject = pfnFactory(*ppCurrent);
    if (!pObject) return false;
    CXmlElement* pNext = FromXml_Int(pObject.Get(), pParent, *ppCurrent, ctx, false);
    const bool bProgress = pNext != *ppCurrent;
    if (bProgress) {
        value.SetXmlObject(pObject.Get());
        InvokePropertySet(pClass, value, *pParent);
    }
    *ppCurrent = pNext;
    return bProgress;
}

bool CElementInfo::ElementFromXmlAbsClsChoice(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                              CXmlElement* pParent, CXmlElement** ppCurrent,
                                              AbsClsFactoryFn pfnFactory) {
    if (!IsThisElement(ctx, *ppCurrent)) return false;
    CSmartPtr<CXmlObjectBase> pObject = pfnFactory(*ppCurrent);
    // Stored even when null, so that a selection made by the setter follows the document.
    OxVariant value;
    value.SetXmlObject(pObject.Get());
    InvokePropertySet(pClass, value, *pParent);
    if (!pObject) return false;
    ReadInside(ctx, pObject.Get(), ppCurrent, false);
    return true;
}

bool CElementInfo::ValidateClsHeld(bool bFound, bool bCheck, XmlElementType eOwnType, bool bMustConsume) const {
    // Only a model group or a member that must consume something is missed; anything else
    // may be absent.
    if (!bFound && bCheck && eOwnType != XmlElementType_PseudoElement && !bMustConsume) return true;
    return ValidateMandatory(bFound, bCheck);
}

void CElementInfo::PseudoChildAttributeToXmlCls(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                                CXmlWriter* pWriter, XmlElementType eOwnType, bool bCollection) const {
    if (eOwnType != XmlElementType_PseudoElement) return;
    OxVariant value;
    ReadProperty(pClass, value);
    if (bCollection) {
        // The collection hands the call on to each of its items.
        AttributesToXml_Int(CollectionOf(value)->GetBase(), pWriter, ctx);
        return;
    }
    CSmartPtr<CXmlObjectBase> pObject = ObjectOf(value);
    if (pObject) AttributesToXml_Int(pObject.Get(), pWriter, ctx);
}

void CElementInfo::ThrowMandatoryNull(const std::string& strName) {
    throw COxInvalidParamException(FormatString("The Property [%s] is mandatory, it may not be NULL", strName.c_str()));
}

}  // namespace OrvexXmlData
