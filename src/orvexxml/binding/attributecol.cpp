#include "orvexxml/binding/attributecol.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/xml/xmlattribute.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

static inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

// The namespace of a new collection: pszNamespace, or, when that is empty, the first token of
// the restriction if it is a literal URI rather than one of the "##" words.
static std::string CollectionNamespace(const char* pszNamespace, const char* pszRestriction) {
    std::string strRestriction = NotNull(pszRestriction);
    std::string strToken = strRestriction.substr(0, strRestriction.find(' '));
    if (*NotNull(pszNamespace) == '\0' && strToken.size() >= 2 && strToken[0] != '#' && strToken[1] != '#')
        return strToken;
    return NotNull(pszNamespace);
}

CAttributeCol::CAttributeCol(const char* pszNamespace, const char* pszRestriction, const char* pszTargetNamespace)
    : CXmlCollection(nullptr, CollectionNamespace(pszNamespace, pszRestriction).c_str(), 0, -1),
      CInstanceMonitor("CAttributeCol"),
      m_strNamespaceRestriction(NotNull(pszRestriction)),
      m_strTargetNamespace(NotNull(pszTargetNamespace)) {}

CAttributeCol::~CAttributeCol() {}

CSmartPtr<CAttributeCol> CAttributeCol::Clone() const {
    CSmartPtr<CAttributeCol> pCopy =
        new CAttributeCol(m_strNamespace.c_str(), m_strNamespaceRestriction.c_str(), m_strTargetNamespace.c_str());
    for (CAttribute* pItem : *this) pCopy->Add(pItem->Clone());
    return pCopy;
}

void CAttributeCol::CheckItem(const CAttribute* pAttribute) {
    if (!pAttribute) throw COxInvalidParamException("The attribute to add must not be null");
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char* pszName, const char* pszValue, const char* pszNamespace) {
    OrvexXml::TestNamespace(NotNull(pszNamespace), m_strNamespaceRestriction, m_strTargetNamespace);
    CSmartPtr<CAttribute> pItem = new CAttribute(pszName, pszValue, pszNamespace);
    AppendItem(pItem);
    return pItem;
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char* pszName, const char* pszValue) {
    return Add(pszName, pszValue, m_strNamespace.c_str());
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char* pszName) { return Add(pszName, "", m_strNamespace.c_str()); }

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* pAttribute) {
    CheckItem(pAttribute);
    CSmartPtr<CAttribute> pItem = pAttribute;
    AppendItem(pItem);
    return pItem;
}

void CAttributeCol::AddAfter(const CAttribute* pAfter, CAttribute* pAttribute) {
    CheckItem(pAttribute);
    AddAfterItem(pAfter, pAttribute);
}

void CAttributeCol::AddBefore(const CAttribute* pBefore, CAttribute* pAttribute) {
    CheckItem(pAttribute);
    AddBeforeItem(pBefore, pAttribute);
}

CSmartPtr<CAttribute> CAttributeCol::Item(int nIndex) const {
    return static_cast<CAttribute*>(GetNodeAtIndex(nIndex)->m_pItem.Get());
}

void CAttributeCol::ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                              bool) const {
    for (CAttribute* pItem : *this) CXmlObjectBase::ToXml_Int(pItem, pWriter, false, pszNamespace, ctx, false);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* pElement, CXmlElement* pSecond, const CSerializationContext&,
                                        bool) {
    for (const CXmlAttribute* pAttribute : pElement->GetAttributes()) {
        if (!OrvexXml::IsNamespaceValid(pAttribute->GetNamespaceURI(), m_strNamespaceRestriction,
                                        m_strTargetNamespace)) {
            throw COxInvalidNamespaceException(
                FormatString("Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                             pAttribute->GetLocalName().c_str()),
                pElement->GetXPath());
        }
        Add(pAttribute->GetLocalName().c_str(), pAttribute->GetValue().c_str(), pAttribute->GetNamespaceURI().c_str());
    }
    return pSecond;
}

}  // namespace OrvexXml
