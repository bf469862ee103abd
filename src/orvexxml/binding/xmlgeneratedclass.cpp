#include "orvexxml/binding/xmlgeneratedclass.h"

#include <optional>

#include "orvexxml/binding/members/elementinfochoiceabsclscol.h"
#include "orvexxml/binding/members/elementinfochoiceabsclsopt.h"
#include "orvexxml/binding/members/elementinfochoiceclscol.h"
#include "orvexxml/binding/members/elementinfochoiceclsopt.h"
#include "orvexxml/binding/members/elementinfochoiceenumcol.h"
#include "orvexxml/binding/members/elementinfochoiceenumopt.h"
#include "orvexxml/binding/members/elementinfochoiceprimcol.h"
#include "orvexxml/binding/members/elementinfochoiceprimopt.h"
#include "orvexxml/binding/members/elementinfochoiceuntpdcol.h"
#include "orvexxml/binding/members/elementinfochoiceuntpdopt.h"
#include "orvexxml/binding/nillable.h"
#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/binding/walklevel.h"
#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/perthread.h"
#include "orvexxml/writers/xmlwriter.h"
#include "orvexxml/xml/xmlattribute.h"
#include "orvexxml/xml/xmlelement.h"

using namespace OrvexXmlData;

namespace OrvexXml {

COXCriticalSection CXmlGeneratedClass::m_csInit;

namespace {

// Levels of object walks running on this thread. The walks recurse once per object, and a
// pseudo-element class opens no element, so the element limits of the document and the writer
// alone don't bound them (nor an object tree that holds itself). A walk started from inside
// another adds to it.
thread_local int32_t t_nWalkDepth = 0;

// The namespace of a class element on its way to the writer, kept per thread for its capacity.
struct CNamespaceBuffer {
    std::string str;
};

}  // namespace

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                                   const CSerializationContext& ctx, bool bOptionalChoice) const {
    try {
        CWalkLevel level(t_nWalkDepth);
        if (level.IsTooDeep(ctx))
            CSerializationContext::ThrowTooDeep(ctx.GetMaxDepth(), pWriter->GetElementPath() + "/" + GetElementName());
        CParentElementInfo* pInfo = GetParentElementInfo();
        const bool bElement = pInfo->GetElementType() == XmlElementType_Element;
        if (bElement) {
            if (bRoot) {
                for (const std::string& strPI : ctx.GetProcessingInstructions()) {
                    pWriter->WriteProcessingInstruction(strPI);
                }
                // The alias map is only read; its lookups by namespace never add entries.
                CNamespaceAliasMap& aliases = const_cast<CNamespaceAliasMap&>(ctx.GetNamespaceAliases());
                for (int i = 0; i < aliases.GetNamespaceCount(); ++i) {
                    std::string strNamespace = aliases.GetNamespaceAt(i);
                    pWriter->AddNamespaceAlias(aliases.GetAliasFromNamespace(strNamespace.c_str()), strNamespace);
                }
                if (!ctx.GetDefaultNamespaceURI().empty()) pWriter->SetDefaultNamespace(ctx.GetDefaultNamespaceURI());
            }
            // The writer copies the namespace into its own context; this buffer only carries it
            // there, and keeps its capacity from one element to the next on this thread.
            std::optional<CNamespaceBuffer> lateBuffer;
            std::string& strNamespace = CPerThread<CNamespaceBuffer>::Get(lateBuffer).str;
            strNamespace.assign(pszNamespace ? pszNamespace : "");
            pWriter->WriteStartElement(GetElementName(), strNamespace);
            if (bRoot && ctx.m_rootAttributes.m_pAttributes) {
                CXmlObjectBase::ToXml_Int(ctx.m_rootAttributes.m_pAttributes, pWriter, false, pszNamespace, ctx,
                                          bOptionalChoice);
            }
            AttributesToXml_Int(pWriter, ctx);
            if (bRoot && !ctx.GetInLineSchema().empty()) pWriter->WriteInLineSchema(ctx.GetInLineSchema());
        }

        const INillable* pNillable = pInfo->FindNillable(this);
        if (!pNillable || !pNillable->IsNil()) {
            CElementInfo** ppElements = GetClassElementInfo();
            switch (pInfo->GetElementGroupType()) {
                case XmlElementGroupType_Sequence:
                    ProcessElementSeqToXml(ctx, ppElements, pWriter);
                    break;
                case XmlElementGroupType_Choice:
                    ProcessElementChoiceToXml(ctx, ppElements, pWriter, bOptionalChoice);
                    break;
                case XmlElementGroupType_All:
                    ProcessElementAllToXml(ctx, ppElements, pWriter);
                    break;
                default:
                    throw COxException("Unknown XML Group Type");
            }

            int nIndex = pInfo->GetPrimitiveValuePropertyIndex();
            if (nIndex != -1 && pInfo->GetPrimitiveDataType() != ItemType_invalid) {
                // Simple content: the text follows any element children written above.
                OxVariant value;
                ReadProperty(nIndex, value);
                if (value.IsNil()) {
                    pWriter->WriteXsiNil();
                } else {
                    std::string strScratch;
                    pWriter->WriteElementText(value.ToText(strScratch, pInfo->GetPrimitiveFormatOverride().c_str()),
                                              value.GetTypeAsEnum(), false);
                }
            }
        } else {
            pWriter->WriteXsiNil();
        }

        if (bElement) pWriter->WriteEndElement();
    } catch (const COxException& e) {
        throw COxValidationException(
            FormatString("Failed to convert the element [%s] to XML", GetElementName().c_str()), std::string(), e);
    }
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext& ctx) const {
    try {
        if (ctx.GetWriteTypeAttribute()) {
            CParentElementInfo* pInfo = GetParentElementInfo();
            if (pInfo->GetHasBaseClasses() && GetElementName() != pInfo->GetElementName()) {
                pWriter->WriteXsiType(pInfo->GetElementNamespace(), pInfo->GetElementName(), ItemType_string);
            }
        }
        ProcessAttributesToXml(ctx, GetClassElementInfo(), GetClassAttributeInfo(), pWriter);
    } catch (const COxException& e) {
        throw COxException("Failed to convert attributes to XML", e);
    }
}

void CXmlGeneratedClass::ProcessAttributesToXml(const CSerializationContext& ctx, CElementInfo** ppElements,
                                                CAttributeInfo** ppAttributes, CXmlWriter* pWriter) const {
    if (ppAttributes) {
        for (CAttributeInfo** pp = ppAttributes; *pp; ++pp) (*pp)->AttributeToXml(ctx, this, pWriter);
    }
    if (ppElements) {
        for (CElementInfo** pp = ppElements; *pp; ++pp) (*pp)->PseudoChildAttributeToXml(ctx, this, pWriter);
    }
}

void CXmlGeneratedClass::ProcessElementSeqToXml(const CSerializationContext& ctx, CElementInfo** ppElements,
                                                CXmlWriter* pWriter) const {
    if (!ppElements) return;
    for (CElementInfo** pp = ppElements; *pp; ++pp) (*pp)->ElementToXml(ctx, this, pWriter);
}

void CXmlGeneratedClass::ProcessElementAllToXml(const CSerializationContext& ctx, CElementInfo** ppElements,
                                                CXmlWriter* pWriter) const {
    // An All group is written in table order, like a sequence.
    ProcessElementSeqToXml(ctx, ppElements, pWriter);
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(const CSerializationContext& ctx, CElementInfo** ppElements,
                                                   CXmlWriter* pWriter, bool bOptionalChoice) const {
    if (ppElements) {
        for (CElementInfo** pp = ppElements; *pp; ++pp) {
            if ((*pp)->ElementToXml(ctx, this, pWriter)) return;  // at most one member is written
        }
    }
    if (DoesElementContainOptionalElements() || bOptionalChoice || ctx.GetIgnoreMissingChoice()) return;
    throw COxValidationException(
        "This element is a choice, and as such must have at one (and only one) valid item, currently there are none "
        "set",
        std::string());
}

bool CXmlGeneratedClass::DoesElementContainOptionalElements() const {
    // Optional members of a choice make an empty choice legal, and so do collection
    // members that may be empty.
    CElementInfo** ppElements = GetClassElementInfo();
    if (!ppElements) return false;
    for (CElementInfo** pp = ppElements; *pp; ++pp) {
        const CElementInfo* pInfo = *pp;
        if (dynamic_cast<const CElementInfoChoicePrimCol*>(pInfo) ||
            dynamic_cast<const CElementInfoChoiceClsCol*>(pInfo) ||
            dynamic_cast<const CElementInfoChoiceAbsClsCol*>(pInfo) ||
            dynamic_cast<const CElementInfoChoiceEnumCol*>(pInfo) ||
            dynamic_cast<const CElementInfoChoiceUntpdCol*>(pInfo)) {
            OxVariant holder;
            ReadProperty(pInfo->GetPropertyIndex(), holder);
            // A property that holds no collection is refused rather than misread.
            if (pInfo->CollectionOf(holder)->GetMinOccurs() == 0) return true;
        } else if (dynamic_cast<const CElementInfoChoicePrimOpt*>(pInfo) ||
                   dynamic_cast<const CElementInfoChoiceClsOpt*>(pInfo) ||
                   dynamic_cast<const CElementInfoChoiceAbsClsOpt*>(pInfo) ||
                   dynamic_cast<const CElementInfoChoiceEnumOpt*>(pInfo) ||
                   dynamic_cast<const CElementInfoChoiceUntpdOpt*>(pInfo)) {
            return true;
        }
    }
    return false;
}

int CXmlGeneratedClass::GetClassElementInfoCount() const {
    int nCount = 0;
    CElementInfo** ppElements = GetClassElementInfo();
    if (ppElements) {
        while (ppElements[nCount]) ++nCount;
    }
    return nCount;
}

namespace {

// A small array of flags that lives on the stack for ordinary tables.
class CFlags {
public:
    explicit CFlags(int nCount) : m_p(nCount <= kInline ? m_inline : new bool[nCount]) {
        for (int i = 0; i < nCount; ++i) m_p[i] = false;
    }
    ~CFlags() {
        if (m_p != m_inline) delete[] m_p;
    }
    CFlags(const CFlags&) = delete;
    CFlags& operator=(const CFlags&) = delete;
    bool& operator[](int i) { return m_p[i]; }

private:
    static const int kInline = 64;
    bool m_inline[kInline];
    bool* m_p;
};

bool EqualsNoCase(const std::string& strText, const char* pszWord) {
    size_t i = 0;
    for (; pszWord[i]; ++i) {
        if (i >= strText.size()) return false;
        char c = strText[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != pszWord[i]) return false;
    }
    return i == strText.size();
}

}  // namespace

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild,
                                             const CSerializationContext& ctx, bool bOptionalChoice) {
    try {
        CWalkLevel level(t_nWalkDepth);
        if (level.IsTooDeep(ctx)) CSerializationContext::ThrowTooDeep(ctx.GetMaxDepth(), pElement->GetXPath());
        ResetToDefaults();
        CParentElementInfo* pInfo = GetParentElementInfo();
        if (pInfo->GetElementType() == XmlElementType_Element) SetElementName(pElement->GetLocalName().c_str());
        ProcessAttributesFromXml(ctx, pElement, pInfo->GetFromXmlFailIfAttributeUnknown());

        const INillable* pNillable = pInfo->FindNillable(this);
        if (pNillable && pNillable->IsNil()) return pFirstChild;

        CXmlElement* pCursor = nullptr;
        XmlElementType eType = pInfo->GetElementType();
        switch (pInfo->GetElementGroupType()) {
            case XmlElementGroupType_Sequence:
                pCursor = ProcessElementSeqFromXml(ctx, pElement, pFirstChild, eType);
                break;
            case XmlElementGroupType_Choice:
                pCursor = ProcessElementChoiceFromXml(ctx, pElement, pFirstChild, eType, bOptionalChoice);
                break;
            case XmlElementGroupType_All:
                pCursor = ProcessElementAllFromXml(ctx, pElement, pFirstChild, eType);
                break;
            default:
                throw COxException("Unknown Group Type");
        }

        int nIndex = pInfo->GetPrimitiveValuePropertyIndex();
        if (nIndex != -1 && pInfo->GetPrimitiveDataType() != ItemType_invalid) {
            OxVariant value;
            std::string strText(pElement->GetTextView());
            if (pInfo->GetOutputPrimitiveClassAsTextProperty()) {
                value.SetString(std::move(strText));
            } else {
                value.FromString(std::move(strText), pInfo->GetPrimitiveDataType(),
                                 CWhitespaceUtils::WhitespaceRule_none);
            }
            ExchangeProperty(nIndex, false, value);
        }
        return pCursor;
    } catch (const COxException& e) {
        // The innermost level stamps its path; outer levels pass the error on as it is.
        if (e.GetPath().empty()) {
            throw COxValidationException("Failed to process the element.", pElement->GetXPath(), e);
        }
        throw COxException(e);
    }
}

void CXmlGeneratedClass::ProcessAttributesFromXml(const CSerializationContext& ctx, CXmlElement* pElement,
                                                  bool bFailIfUnknown) {
    CAttributeInfo** ppAttributes = GetClassAttributeInfo();
    int nCount = 0;
    if (ppAttributes) {
        while (ppAttributes[nCount]) ++nCount;
    }
    CFlags seen(nCount);
    for (CXmlAttribute* pAttribute : pElement->GetAttributes()) {
        if (pAttribute->IsNamespaceAttribute()) continue;
        if (pAttribute->IsNilAttribute()) {
            INillable* pNillable = dynamic_cast<INillable*>(this);
            if (!pNillable) {
                throw COxValidationException("Invalid use of 'nil' attribute in non-nillable element.",
                                             pElement->GetXPath());
            }
            const std::string& strValue = pAttribute->GetValue();
            bool bNil;
            if (EqualsNoCase(strValue, "true") || EqualsNoCase(strValue, "1")) {
                bNil = true;
            } else if (EqualsNoCase(strValue, "false") || EqualsNoCase(strValue, "0")) {
                bNil = false;
            } else {
                throw COxValidationException(
                    FormatString("Unexpected Value [%s] for 'nil' Attribute found.", strValue.c_str()),
                    pAttribute->GetXPath());
            }
            pNillable->SetNil(bNil);
            continue;
        }
        bool bTaken = false;
        for (int i = 0; i < nCount; ++i) {
            if (ppAttributes[i]->AttributeFromXml(ctx, this, pAttribute)) {
                seen[i] = true;
                bTaken = true;
                break;
            }
        }
        if (!bTaken && bFailIfUnknown && !ctx.GetIgnoreUnknownAttributes()) {
            throw COxValidationException("Unexpected Attribute found.", pAttribute->GetXPath());
        }
    }
    for (int i = 0; i < nCount; ++i) ppAttributes[i]->Validate(ctx, seen[i]);
}

void CXmlGeneratedClass::ThrowUnprocessedElement(CXmlElement* pElement, CXmlElement* pCurrent) {
    throw COxValidationException(
        FormatString("Failed read all the elements held within the element [%s]. The unexpected element [%s] "
                     "remains un processed",
                     pElement->GetLocalName().c_str(), pCurrent->GetLocalName().c_str()),
        pElement->GetXPath());
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(const CSerializationContext& ctx, CXmlElement* pElement,
                                                          CXmlElement* pCurrent, XmlElementType eType) {
    CElementInfo** ppElements = GetClassElementInfo();
    CXmlElement* pSaved = pCurrent;
    const int nCount = GetClassElementInfoCount();
    const std::string strNamespace = GetNamespace();
    int nStart = 0;
    for (;;) {
        for (int i = nStart; i < nCount; ++i) {
            while (!ppElements[i]->ElementFromXml(ctx, this, pElement, &pCurrent, strNamespace.c_str(), eType)) {
                // The sequence can't be satisfied here: it counts as not present.
                if (!ctx.GetIgnoreUnknownElements() || !pCurrent) return pSaved;
                pCurrent = pCurrent->GetNextSiblingElement();
            }
            nStart = i;
        }
        if (eType != XmlElementType_Element || !pCurrent) return pCurrent;
        if (!ctx.GetIgnoreUnknownElements()) ThrowUnprocessedElement(pElement, pCurrent);
        // Skip the unknown element; only the last entry gets another chance after it.
        pCurrent = pCurrent->GetNextSiblingElement();
        if (!pCurrent) return nullptr;
    }
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(const CSerializationContext& ctx, CXmlElement* pElement,
                                                          CXmlElement* pCurrent, XmlElementType eType) {
    CElementInfo** ppElements = GetClassElementInfo();
    CXmlElement* pSaved = pCurrent;
    CXmlElement* pPrevious = nullptr;
    const int nCount = GetClassElementInfoCount();
    const std::string strNamespace = GetNamespace();
    CFlags found(nCount);
    while (pCurrent && pCurrent != pPrevious) {
        pPrevious = pCurrent;
        for (int i = 0; i < nCount; ++i) {
            if (!found[i]) {
                found[i] = ppElements[i]->ElementFromXml(ctx, this, pElement, &pCurrent, strNamespace.c_str(), eType);
            }
        }
    }
    for (int i = 0; i < nCount; ++i) {
        if (!ppElements[i]->Validate(ctx, this, found[i], eType == XmlElementType_Element)) return pSaved;
    }
    if (eType != XmlElementType_Element || !pCurrent) return pCurrent;
    if (ctx.GetIgnoreUnknownElements()) return pCurrent;
    ThrowUnprocessedElement(pElement, pCurrent);
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(const CSerializationContext& ctx, CXmlElement* pElement,
                                                             CXmlElement* pCurrent, XmlElementType eType,
                                                             bool bOptionalChoice) {
    CElementInfo** ppElements = GetClassElementInfo();
    const int nCount = GetClassElementInfoCount();
    const std::string strNamespace = GetNamespace();
    CXmlElement* pSaved = pCurrent;
    bool bFound = false;
    for (;;) {
        for (int i = 0; i < nCount; ++i) {
            bFound = ppElements[i]->ElementFromXml(ctx, this, pElement, &pCurrent, strNamespace.c_str(), eType);
            if (bFound) break;
        }
        if (pCurrent && ctx.GetIgnoreUnknownElements() && !bFound && eType == XmlElementType_Element) {
            pCurrent = pCurrent->GetNextSiblingElement();
        }
        if (!ctx.GetIgnoreUnknownElements()) break;
        if (bFound || !pCurrent || eType != XmlElementType_Element) break;
    }
    bFound = bFound || bOptionalChoice;
    if (!bFound) {
        if (eType == XmlElementType_PseudoElement && ctx.GetIgnoreUnknownElements()) pCurrent = pSaved;
        if (eType == XmlElementType_Element && !DoesElementContainOptionalElements() && !ctx.GetIgnoreMissingChoice()) {
            throw COxValidationException(
                FormatString("No child elements within the element [%s] were populated. The element represents a "
                             "choice, so one and only one element should be populated. The element contained no "
                             "sutable child elements",
                             pElement->GetLocalName().c_str()),
                pElement->GetXPath());
        }
    }
    if (eType == XmlElementType_Element && pCurrent && !ctx.GetIgnoreUnknownElements()) {
        ThrowUnprocessedElement(pElement, pCurrent);
    }
    return pCurrent;
}

bool CXmlGeneratedClass::IsElementInList(const CSerializationContext& ctx, CXmlElement* pElement) const {
    if (!pElement) return false;
    CElementInfo** ppElements = GetClassElementInfo();
    if (!ppElements) return false;
    for (CElementInfo** pp = ppElements; *pp; ++pp) {
        if ((*pp)->IsThisElement(ctx, pElement)) return true;
    }
    return false;
}

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& pParent, CElementInfo**& ppElements,
                                       CAttributeInfo**& ppAttributes) {
    delete pParent;
    pParent = nullptr;
    if (ppElements) {
        for (CElementInfo** pp = ppElements; *pp; ++pp) {
            delete *pp;
            *pp = nullptr;
        }
        delete[] ppElements;
        ppElements = nullptr;
    }
    if (ppAttributes) {
        for (CAttributeInfo** pp = ppAttributes; *pp; ++pp) {
            delete *pp;
            *pp = nullptr;
        }
        delete[] ppAttributes;
        ppAttributes = nullptr;
    }
}

}  // namespace OrvexXml
