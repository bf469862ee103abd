#include "orvexxml/binding/elementcol.h"

#include "orvexxml/binding/element.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

static inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

CElementCol::CElementCol(const char* pszNamespace, const char* pszRestriction, const char* pszTargetNamespace,
                         int nMinOccurs, int nMaxOccurs)
    : CXmlCollection(nullptr, nullptr, nMinOccurs, nMaxOccurs),
      CInstanceMonitor("CElementCol"),
      m_strDefaultNamespace(NotNull(pszNamespace)),
      m_strNamespaceRestriction("##any"),
      m_strTargetNamespace(NotNull(pszTargetNamespace)) {
    // The given restriction serves this test only; the collection then takes any namespace.
    OrvexXml::TestNamespace(m_strDefaultNamespace, NotNull(pszRestriction), m_strTargetNamespace);
}

CElementCol::~CElementCol() {}

CSmartPtr<CElementCol> CElementCol::Clone() const {
    CSmartPtr<CElementCol> pCopy = new CElementCol(m_strDefaultNamespace.c_str(), m_strNamespaceRestriction.c_str(),
                                                   m_strTargetNamespace.c_str(), m_nMinOccurs, m_nMaxOccurs);
    for (CElement* pItem : *this) pCopy->Add(pItem->Clone());
    return pCopy;
}

void CElementCol::CheckItem(const CElement* pElement) {
    if (!pElement) throw COxInvalidParamException("The element to add must not be null");
}

CSmartPtr<CElement> CElementCol::Add(const char* pszName, const char* pszNamespace) {
    OrvexXml::TestNamespace(NotNull(pszNamespace), m_strNamespaceRestriction, m_strTargetNamespace);
    CSmartPtr<CElement> pItem = new CElement(NotNull(pszName), NotNull(pszNamespace), m_strNamespaceRestriction.c_str(),
                                             m_strTargetNamespace.c_str());
    AppendItem(pItem);
    return pItem;
}

CSmartPtr<CElement> CElementCol::Add(const char* pszName) {
    if (m_strDefaultNamespace.empty())
        throw COxInvalidStateException("A Namespace has not been set for this Collection");
    CSmartPtr<CElement> pItem = new CElement(NotNull(pszName), m_strDefaultNamespace.c_str(),
                                             m_strNamespaceRestriction.c_str(), m_strTargetNamespace.c_str());
    AppendItem(pItem);
    return pItem;
}

CSmartPtr<CElement> CElementCol::Add(CElement* pElement) {
    CheckItem(pElement);
    // Held from here on, so that a refused element handed in fresh is freed.
    CSmartPtr<CElement> pItem = pElement;
    OrvexXml::TestNamespace(pElement->GetNamespace(), m_strNamespaceRestriction, m_strTargetNamespace);
    AppendItem(pItem);
    return pItem;
}

void CElementCol::AddAfter(const CElement* pAfter, CElement* pElement) {
    CheckItem(pElement);
    AddAfterItem(pAfter, pElement);
}

void CElementCol::AddBefore(const CElement* pBefore, CElement* pElement) {
    CheckItem(pElement);
    AddBeforeItem(pBefore, pElement);
}

CSmartPtr<CElement> CElementCol::Item(int nIndex) const {
    return static_cast<CElement*>(GetNodeAtIndex(nIndex)->m_pItem.Get());
}

void CElementCol::ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                            bool) const {
    ItemsToXml_Int(pWriter, pszNamespace, ctx);
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* pParent, CXmlElement* pCurrent, const CSerializationContext& ctx,
                                      bool) {
    while (pCurrent) {
        if (!OrvexXml::IsNamespaceValid(pCurrent->GetNamespaceURI(), m_strNamespaceRestriction, m_strTargetNamespace))
            break;
        CSmartPtr<CElement> pItem = new CElement(pCurrent->GetLocalName().c_str(), pCurrent->GetNamespaceURI().c_str(),
                                                 m_strNamespaceRestriction.c_str(), m_strTargetNamespace.c_str());
        CXmlElement* pNext = CXmlObjectBase::FromXml_Int(pItem, pParent, pCurrent, ctx);
        if (pNext == pCurrent) break;
        Add(pItem);
        pCurrent = pNext;
    }
    return pCurrent;
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(std::string strName, std::string strNs, CXmlElement* pParent,
                                                     CXmlElement* pCurrent, const CSerializationContext& ctx) {
    while (pCurrent) {
        if (pCurrent->GetLocalName() != strName || pCurrent->GetNamespaceURI() != strNs) break;
        CSmartPtr<CElement> pItem = new CElement(pCurrent->GetLocalName().c_str(), pCurrent->GetNamespaceURI().c_str(),
                                                 "##any", m_strTargetNamespace.c_str());
        CXmlElement* pNext = CXmlObjectBase::FromXml_Int(pItem, pParent, pCurrent, ctx);
        if (pNext == pCurrent) return pCurrent;
        Add(pItem);
        pCurrent = pNext;
    }
    return pCurrent;
}

}  // namespace OrvexXml
