#include "orvexxml/binding/element.h"

#include <cstring>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/binding/walklevel.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/writers/xmltextwriter.h"
#include "orvexxml/xml/xmlattribute.h"
#include "orvexxml/xml/xmldocument.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

namespace {

const char* const g_szXmlnsNamespace = "http://www.w3.org/2000/xmlns/";

inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

// Levels of element walks running on this thread. Writing recurses once per element, and an
// element spliced in under a default namespace starts a writer of its own whose depth begins
// again at 1, so the writer's limit alone doesn't bound the walk (nor a tree that holds itself).
thread_local int32_t t_nElementDepth = 0;

// A namespace declaration that arrived as an attribute (a document read without namespaces
// keeps them so): "xmlns" in no namespace or in the xmlns namespace.
bool IsDefaultNamespaceDeclaration(const CAttribute& attribute) {
    if (attribute.GetName() != "xmlns") return false;
    std::string strNamespace = attribute.GetNamespace();
    return strNamespace.empty() || strNamespace == g_szXmlnsNamespace;
}

}  // namespace

CElement::CElement(const char* pszName) : CInstanceMonitor("CElement") { Init(pszName, "", "##any", ""); }

CElement::CElement(const char* pszName, const char* pszNamespace) : CInstanceMonitor("CElement") {
    if (pszNamespace &&
        (std::strcmp(pszNamespace, "##any") == 0 || std::strcmp(pszNamespace, "##other") == 0 ||
         std::strcmp(pszNamespace, "##local") == 0 || std::strcmp(pszNamespace, "##targetNamespace") == 0)) {
        throw COxInvalidNamespaceException(FormatString("Invalid Namespace [%s].", pszNamespace), std::string());
    }
    Init(pszName, pszNamespace, pszNamespace, "");
}

CElement::CElement(const char* pszName, const char* pszNamespace, const char* pszRestriction,
                   const char* pszTargetNamespace)
    : CInstanceMonitor("CElement") {
    Init(pszName, pszNamespace, pszRestriction, pszTargetNamespace);
}

CElement::CElement(CXmlObjectBase* pObject, const char* pszDefaultNamespace) : CInstanceMonitor("CElement") {
    Init("", "", "##any", "");
    if (!pObject) throw COxInvalidParamException("The object to render into an element must not be null");
    m_strDefaultNamespace = NotNull(pszDefaultNamespace);
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(m_strDefaultNamespace.c_str());
    CBinaryData data = pObject->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
    CXmlDocument doc(ctx);
    // The loader only reads the bytes; its signature is shared with callers that hand over a
    // writable buffer.
    doc.LoadXmlStream(const_cast<unsigned char*>(data.GetData()), data.GetLength());
    CopyXmlElement(doc.GetDocumentElement());
}

CElement::~CElement() {}

void CElement::Init(const char* pszName, const char* pszNamespace, const char* pszRestriction,
                    const char* pszTargetNamespace) {
    if (!pszName) throw COxInvalidNamespaceException("Element Name must have a value", std::string());
    if (!pszNamespace) throw COxInvalidNamespaceException("Element Namespace must have a value", std::string());
    if (!pszRestriction) throw COxInvalidNamespaceException("Namespace Restriction must have a value", std::string());
    if (!pszTargetNamespace) throw COxInvalidNamespaceException("Target Namespace must have a value", std::string());
    OrvexXml::TestNamespace(pszNamespace, pszRestriction, pszTargetNamespace);
    m_strName = pszName;
    m_strNamespace = pszNamespace;
    m_strNamespaceRestriction = pszRestriction;
    m_strTargetNamespace = pszTargetNamespace;
    m_pAttributes = new CAttributeCol(pszNamespace, "##any", pszTargetNamespace);
    m_pChildren = new CElementCol(pszNamespace, "##any", pszTargetNamespace, 0, -1);
}

CSmartPtr<CElement> CElement::Clone() const {
    CSmartPtr<CElement> pCopy = new CElement(m_strName.c_str(), m_strNamespace.c_str(),
                                             m_strNamespaceRestriction.c_str(), m_strTargetNamespace.c_str());
    pCopy->m_pAttributes = m_pAttributes->Clone();
    pCopy->m_pChildren = m_pChildren->Clone();
    pCopy->m_strText = m_strText;
    return pCopy;
}

// The text an element of open content keeps. Between child elements, text of nothing but
// whitespace is the indentation of a formatted document, not data: kept, it would grow by a
// level of indentation with every formatted round trip.
static std::string OwnText(const CXmlElement* pElement) {
    const std::string_view text = pElement->GetTextView();
    if (pElement->GetFirstElement() && text.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return std::string();
    return std::string(text);
}

void CElement::CopyXmlElement(CXmlElement* pElement) {
    if (!pElement) throw COxException("Invalid or empty XML document");
    m_strName = pElement->GetLocalName();
    m_strNamespace = pElement->GetNamespaceURI();
    m_strText = OwnText(pElement);
    m_pAttributes->Clear();
    m_pChildren->Clear();
    for (const CXmlAttribute* pAttribute : pElement->GetAttributes()) {
        m_pAttributes->Add(pAttribute->GetLocalName().c_str(), pAttribute->GetValue().c_str(),
                           pAttribute->GetNamespaceURI().c_str());
        if (pAttribute->GetLocalName() == "xmlns") m_strDefaultNamespace = pAttribute->GetValue();
    }
    for (CXmlElement* pChild = pElement->GetFirstElement(); pChild; pChild = pChild->GetNextSiblingElement()) {
        CSmartPtr<CElement> pCopy = new CElement(pChild->GetLocalName().c_str());
        pCopy->CopyXmlElement(pChild);
        m_pChildren->Add(pCopy);
    }
}

void CElement::ReadDocumentElement(CXmlDocument& doc, const CSerializationContext& ctx) {
    CXmlElement* pRoot = doc.GetDocumentElement();
    if (!pRoot) throw COxException("Invalid or empty XML document");
    FromXml_Int(pRoot, pRoot, ctx, false);
}

void CElement::FromXml(const char* pszXml) {
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    CXmlDocument doc(ctx);
    doc.LoadXml(pszXml);
    ReadDocumentElement(doc, ctx);
}

void CElement::FromXml(const char* pszXml, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.LoadXml(pszXml);
    ReadDocumentElement(doc, ctx);
}

void CElement::FromXml(const wchar_t* pszXml, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.LoadXml(pszXml);
    ReadDocumentElement(doc, ctx);
}

void CElement::FromXmlFile(const char* pszFileName, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.Load(pszFileName);
    ReadDocumentElement(doc, ctx);
}

void CElement::FromXmlStream(unsigned char* const pData, OxULong nLength, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.LoadXmlStream(pData, nLength);
    ReadDocumentElement(doc, ctx);
}

void CElement::FromXmlElement(const CXmlElement* pElement, const CSerializationContext& ctx) {
    CheckVersion();
    if (!pElement) throw COxInvalidParamException("The element to read from must not be null");
    // The walk does not change the tree; its signature is shared with the builders.
    CXmlElement* p = const_cast<CXmlElement*>(pElement);
    FromXml_Int(p, p, ctx, false);
}

void CElement::SetName(const char* pszName) {
    FireOnChangeName(NotNull(pszName));
    m_strName = NotNull(pszName);
}

void CElement::SetNamespace(const char* pszNamespace) {
    FireOnChangeNamespace(NotNull(pszNamespace));
    m_strNamespace = NotNull(pszNamespace);
}

void CElement::SetText(const char* pszText) {
    FireOnChangeText(NotNull(pszText));
    m_strText = NotNull(pszText);
}

void CElement::FireOnChangeName(const char*) {}

void CElement::FireOnChangeNamespace(const char*) {}

void CElement::FireOnChangeText(const char*) {}

void CElement::SetNamespaceRestrictions(const char* pszRestriction, const char* pszTargetNamespace) {
    std::string strRestriction = NotNull(pszRestriction);
    std::string strTarget = NotNull(pszTargetNamespace);
    try {
        OrvexXml::TestNamespace(m_strNamespace, strRestriction, strTarget);
    } catch (const COxException& e) {
        throw COxInvalidNamespaceException(
            FormatString("The namespace %s in the class %s is invalid against restriction %s", m_strNamespace.c_str(),
                         m_strName.c_str(), strRestriction.c_str()),
            std::string(), e);
    }
    for (CAttribute* pAttribute : *m_pAttributes) {
        OrvexXml::TestNamespace(pAttribute->GetNamespace(), strRestriction, strTarget);
    }
    for (CElement* pChild : *m_pChildren) pChild->SetNamespaceRestrictions(pszRestriction, pszTargetNamespace);
}

void CElement::ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                         bool bOptionalChoice) const {
    CWalkLevel level(t_nElementDepth);
    if (level.IsTooDeep(ctx))
        CSerializationContext::ThrowTooDeep(ctx.GetMaxDepth(), pWriter->GetElementPath() + "/" + m_strName);
    CXmlTextWriter* pText = m_strDefaultNamespace.empty() ? nullptr : dynamic_cast<CXmlTextWriter*>(pWriter);
    if (pText)
        WriteSpliced(pText, ctx, bOptionalChoice);
    else
        WritePlain(pWriter, pszNamespace, ctx, bOptionalChoice);
}

void CElement::WritePlain(CXmlWriter* pWriter, const char* pszNamespace, const CSerializationContext& ctx,
                          bool bOptionalChoice) const {
    pWriter->WriteStartElement(m_strName, m_strNamespace);
    CXmlObjectBase::ToXml_Int(m_pAttributes, pWriter, false, pszNamespace, ctx, false);
    CXmlObjectBase::ToXml_Int(m_pChildren, pWriter, false, pszNamespace, ctx, bOptionalChoice);
    pWriter->WriteElementText(m_strText, ItemType_string, false);
    pWriter->WriteEndElement();
}

void CElement::WriteSpliced(CXmlTextWriter* pText, const CSerializationContext& ctx, bool bOptionalChoice) const {
    // The content is declared and prefixed from a scope of its own, with no knowledge of the
    // namespaces of the outer document; the outer writer's settings carry over.
    CTextStream stream(XmlEncoding_None);
    CXmlTextWriter inner(&stream);
    inner.StartDocument();
    inner.SetEOLType(pText->GetEOLType());
    inner.SetFormatted(pText->GetFormatted());
    inner.SetIndentChars(pText->GetIndentChars().c_str());
    inner.SetCheckCharacters(pText->GetCheckCharacters());
    inner.SetMaxDepth(pText->GetMaxDepth());
    inner.SetDefaultNamespace(m_strDefaultNamespace);
    inner.WriteStartElement(m_strName, m_strNamespace);
    for (const CAttribute* pAttribute : *m_pAttributes) {
        if (!IsDefaultNamespaceDeclaration(*pAttribute))
            CXmlObjectBase::ToXml_Int(pAttribute, &inner, false, m_strNamespace.c_str(), ctx, false);
    }
    // What the content walk reads of the context; the default namespace is this element's.
    CSerializationContext local;
    local.SetDefaultNamespaceURI(m_strDefaultNamespace.c_str());
    local.SetIgnoreInvalidCollectionCounts(ctx.GetIgnoreInvalidCollectionCounts());
    local.SetCheckCharacters(ctx.GetCheckCharacters());
    local.SetMaxDepth(ctx.GetMaxDepth());
    CXmlObjectBase::ToXml_Int(m_pChildren, &inner, false, m_strNamespace.c_str(), local, bOptionalChoice);
    inner.WriteElementText(m_strText, ItemType_string, false);
    inner.WriteEndElement();
    inner.EndDocument();
    std::string strText = stream.TakeText();
    // WriteRaw ends the line itself when formatted; the inner writer's line end would double it.
    const std::string strEOL = pText->GetEOLType() == EOLType_CRLF ? "\r\n" : "\n";
    if (pText->GetFormatted() && strText.size() >= strEOL.size() &&
        strText.compare(strText.size() - strEOL.size(), strEOL.size(), strEOL) == 0) {
        strText.resize(strText.size() - strEOL.size());
    }
    pText->CloseStartTag();
    pText->WriteRaw(strText);
}

CXmlElement* CElement::FromXml_Int(CXmlElement*, CXmlElement* pElement, const CSerializationContext& ctx, bool) {
    if (!OrvexXml::IsNamespaceValid(pElement->GetNamespaceURI(), m_strNamespaceRestriction, m_strTargetNamespace))
        return pElement;
    CXmlObjectBase::FromXml_Int(m_pAttributes, pElement, nullptr, ctx);
    CXmlElement* pLeft = CXmlObjectBase::FromXml_Int(m_pChildren, pElement, pElement->GetFirstElement(), ctx);
    if (pLeft) {
        throw COxValidationException(FormatString("Invalid Element [%s] found.", pElement->GetLocalName().c_str()),
                                     pElement->GetXPath());
    }
    m_strText = OwnText(pElement);
    m_strName = pElement->GetLocalName();
    m_strNamespace = pElement->GetNamespaceURI();
    return pElement->GetNextSiblingElement();
}

}  // namespace OrvexXml
