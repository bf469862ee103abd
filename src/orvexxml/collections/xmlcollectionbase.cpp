#include "orvexxml/collections/xmlcollectionbase.h"

#include <algorithm>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

CXmlCollectionBase::CXmlCollectionBase() : m_nMinOccurs(0), m_nMaxOccurs(-1), m_bChanging(false) {}

CXmlCollectionBase::CXmlCollectionBase(const char* pszElementName, const char* pszNamespace, int nMinOccurs,
                                       int nMaxOccurs)
    : m_strNamespace(pszNamespace ? pszNamespace : ""),
      m_nMinOccurs(nMinOccurs),
      m_nMaxOccurs(nMaxOccurs),
      m_bChanging(false) {
    SetElementName(pszElementName);
}

CXmlCollectionBase::CXmlCollectionBase(const CXmlCollectionBase& other)
    : CXmlObjectBase(other),
      m_strNamespace(other.m_strNamespace),
      m_nMinOccurs(other.m_nMinOccurs),
      m_nMaxOccurs(other.m_nMaxOccurs),
      m_bChanging(false) {}

CXmlCollectionBase& CXmlCollectionBase::operator=(const CXmlCollectionBase& other) {
    CXmlObjectBase::operator=(other);
    m_strNamespace = other.m_strNamespace;
    m_nMinOccurs = other.m_nMinOccurs;
    m_nMaxOccurs = other.m_nMaxOccurs;
    return *this;
}

CXmlCollectionBase::~CXmlCollectionBase() {}

CXmlObjectBase* CXmlCollectionBase::GetBase() { return this; }

std::string CXmlCollectionBase::GetNamespace() const { return m_strNamespace; }

std::string CXmlCollectionBase::GetTargetNamespace() const {
    throw COxException(
        "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program logic error)");
}

void CXmlCollectionBase::ThrowChangeUnderWay() const {
    throw COxInvalidStateException(FormatString(
        "The collection [%s] can't be changed while its listeners are told of a change", GetElementName().c_str()));
}

CXmlCollectionBase::CountState CXmlCollectionBase::GetCountState(const CSerializationContext& ctx) const {
    if (ctx.GetIgnoreInvalidCollectionCounts()) return CountState_Valid;
    int n = GetCount();
    if (m_nMaxOccurs != -1 && n > m_nMaxOccurs) return CountState_TooMany;
    if (n < m_nMinOccurs) return CountState_TooFew;
    return CountState_Valid;
}

void CXmlCollectionBase::ValidateCount(const CSerializationContext& ctx) const {
    switch (GetCountState(ctx)) {
        case CountState_TooMany:
            throw COxValidationException(
                FormatString("The Maximum number of [%s] elements allowed in this collection is %d",
                             GetElementName().c_str(), static_cast<int>(m_nMaxOccurs)),
                std::string());
        case CountState_TooFew:
            throw COxValidationException(
                FormatString("The Minimum number of [%s] elements allowed in this collection is %d",
                             GetElementName().c_str(), static_cast<int>(m_nMinOccurs)),
                std::string());
        case CountState_Valid:
            break;
    }
}

bool CXmlCollectionBase::IsValidCount(const CSerializationContext& ctx) const {
    return GetCountState(ctx) == CountState_Valid;
}

void CXmlCollectionBase::AddEventListener(IEventSink* pListener) { m_listeners.push_back(pListener); }

void CXmlCollectionBase::RemoveEventListener(IEventSink* pListener) {
    m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), pListener), m_listeners.end());
}

}  // namespace OrvexXml
