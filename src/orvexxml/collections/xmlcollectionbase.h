#pragma once

#include <string>
#include <vector>

#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// Base of every collection: the element name (held by CXmlObjectBase), the namespace of
// the items' elements, the occurrence limits and the listeners.
class ORVEXXML_API CXmlCollectionBase : public CXmlObjectBase {
public:
    CXmlCollectionBase();
    CXmlCollectionBase(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return m_strNamespace; }

    int GetMinOccurs() const { return m_nMinOccurs; }
    int GetMaxOccurs() const { return m_nMaxOccurs; }
    using CXmlObjectBase::GetElementName;

    // --- virtual slots after those of CXmlObjectBase ---------------------------------
    virtual int GetCount() const = 0;
    virtual void Clear() = 0;
    virtual void Remove(int nIndex) = 0;
    // Throws when the count is outside the occurrence limits, unless the context ignores counts.
    virtual void ValidateCount(const CSerializationContext& ctx) const;
    virtual bool IsValidCount(const CSerializationContext& ctx) const;
    // --- end of virtual slots ----------------------------------------------------------

    void AddEventListener(IEventSink* pListener);
    void RemoveEventListener(IEventSink* pListener);

protected:
    std::string GetTargetNamespace() const override;

    void FireOnCollectionChange();
    void FireOnCollectionAdd(void* pItem);
    void FireOnCollectionAddComplete(void* pItem);
    void FireOnCollectionRemove(int nIndex);
    void FireOnCollectionRemoveComplete(int nIndex);

    std::string m_strNamespace;
    std::vector<IEventSink*> m_listeners;
    OxLong m_nMinOccurs;
    OxLong m_nMaxOccurs;
};

}  // namespace OrvexXml
