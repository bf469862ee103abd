#include "orvexxml/binding/xmlgeneratedclass.h"

#include "orvexxml/binding/elementinfochoiceprimopt.h"
#include "orvexxml/binding/nillable.h"
#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/writers/xmlwriter.h"

using namespace OrvexXmlData;

namespace OrvexXml {

COXCriticalSection CXmlGeneratedClass::m_csInit;

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                                   const CSerializationContext& ctx, bool bOptionalChoice) const {
    try {
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
            pWriter->WriteStartElement(GetElementName(), pszNamespace ? std::string(pszNamespace) : std::string());
            // Additional root attributes are written here once open content is available.
            AttributesToXml_Int(pWriter, ctx);
            if (bRoot && !ctx.GetInLineSchema().empty()) pWriter->WriteInLineSchema(ctx.GetInLineSchema());
        }

        const INillable* pNillable = dynamic_cast<const INillable*>(this);
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
                    pWriter->WriteElementText(value.ToString(pInfo->GetPrimitiveFormatOverride().c_str()),
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
    // Only the optional and collection members of a choice make an empty choice legal.
    // The collection members join this test with the collections.
    CElementInfo** ppElements = GetClassElementInfo();
    if (!ppElements) return false;
    for (CElementInfo** pp = ppElements; *pp; ++pp) {
        if (dynamic_cast<const CElementInfoChoicePrimOpt*>(*pp)) return true;
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

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    // The document tree and the reading drivers are not part of this build yet.
    throw COxInvalidStateException("Reading XML is not available in this build");
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
