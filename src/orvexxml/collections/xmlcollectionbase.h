#pragma once

#include <string>
#include <vector>

#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/export.h"

namespace OrvexXml {

// Base of every collection: the element name (held by CXmlObjectBase), the namespace of
// the items' elements, the occurrence limits and the listeners.
//
// Collections are reference counted like every CXmlObjectBase: they live on the heap and
// are held through CSmartPtr (an OxVariant that carries one takes a reference too).
//
// Listeners hear five events, in this order for a successful change: add, add complete,
// change; or remove, remove complete, change. The add and remove events come before the
// change is made, and before it is checked where the concrete class says so.
//
// A listener may refuse a change by throwing from any of its events. The change is then
// undone before the exception goes on to the caller, and the listeners hear nothing more of
// it: no event tells of the undoing, so a listener that keeps state from the events takes
// the exception as the end of the change it heard announced. While a collection tells its
// listeners of a change it refuses any other change of its items with
// COxInvalidStateException, since a change in between would leave nothing to undo to.
class ORVEXXML_API CXmlCollectionBase : public CXmlObjectBase {
public:
    // Element name and namespace empty, minOccurs 0, maxOccurs -1 (unbounded).
    CXmlCollectionBase();
    // A null name or namespace counts as empty; maxOccurs -1 means unbounded.
    CXmlCollectionBase(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);
    // A copy takes name, namespace and limits; the listeners stay with the original, since
    // they are registrations of the original's owner.
    CXmlCollectionBase(const CXmlCollectionBase& other);
    // Takes name, namespace and limits; the target keeps its own listeners and reference count.
    CXmlCollectionBase& operator=(const CXmlCollectionBase& other);

    CXmlObjectBase* GetBase() override;
    std::string GetNamespace() const override;

    int GetMinOccurs() const { return m_nMinOccurs; }
    int GetMaxOccurs() const { return m_nMaxOccurs; }
    using CXmlObjectBase::GetElementName;

    // --- virtual slots after those of CXmlObjectBase ---------------------------------
    virtual int GetCount() const = 0;
    virtual void Clear() = 0;
    virtual void Remove(int nIndex) = 0;
    // Throws COxValidationException when the count is outside the occurrence limits,
    // unless the context ignores collection counts.
    virtual void ValidateCount(const CSerializationContext& ctx) const;
    // The same test as ValidateCount, answered instead of thrown.
    virtual bool IsValidCount(const CSerializationContext& ctx) const;
    // --- end of virtual slots ----------------------------------------------------------

    // Appends pListener (not owned); a listener added twice hears every event twice.
    void AddEventListener(IEventSink* pListener);
    // Removes every entry holding pListener; one that isn't registered is no error.
    void RemoveEventListener(IEventSink* pListener);

protected:
    ~CXmlCollectionBase() override;

    // A collection is never written as a document of its own: throws COxException.
    std::string GetTargetNamespace() const override;

    // Each tells every listener, in order of registration. Listeners must not change the
    // list of listeners while they are being told.
    void FireOnCollectionChange() {
        for (size_t i = 0; i < m_listeners.size(); ++i) FireOnCollectionChangeEvent(m_listeners[i], this);
    }
    void FireOnCollectionAdd(void* pItem) {
        for (size_t i = 0; i < m_listeners.size(); ++i) FireOnCollectionAddEvent(m_listeners[i], this, pItem);
    }
    void FireOnCollectionAddComplete(void* pItem) {
        for (size_t i = 0; i < m_listeners.size(); ++i) FireOnCollectionAddCompleteEvent(m_listeners[i], this, pItem);
    }
    void FireOnCollectionRemove(int nIndex) {
        for (size_t i = 0; i < m_listeners.size(); ++i) FireOnCollectionRemoveEvent(m_listeners[i], this, nIndex);
    }
    void FireOnCollectionRemoveComplete(int nIndex) {
        for (size_t i = 0; i < m_listeners.size(); ++i) {
            FireOnCollectionRemoveCompleteEvent(m_listeners[i], this, nIndex);
        }
    }

    // Held by every operation that changes the items, for its whole length, events included.
    // Throws COxInvalidStateException, before anything happens, if another change of the
    // same collection is under way.
    class CChangeScope {
    public:
        explicit CChangeScope(CXmlCollectionBase* pCollection) : m_pCollection(pCollection) {
            if (pCollection->m_bChanging) pCollection->ThrowChangeUnderWay();
            pCollection->m_bChanging = true;
        }
        ~CChangeScope() { m_pCollection->m_bChanging = false; }
        CChangeScope(const CChangeScope&) = delete;
        CChangeScope& operator=(const CChangeScope&) = delete;

    private:
        CXmlCollectionBase* m_pCollection;
    };

    std::string m_strNamespace;
    std::vector<IEventSink*> m_listeners;
    OxLong m_nMinOccurs;
    OxLong m_nMaxOccurs;

private:
    [[noreturn]] void ThrowChangeUnderWay() const;

    // True while an operation that changes the items runs (see CChangeScope).
    bool m_bChanging;

    enum CountState { CountState_Valid, CountState_TooMany, CountState_TooFew };
    // Which limit the current count breaks first, the maximum being tested before the minimum.
    CountState GetCountState(const CSerializationContext& ctx) const;
};

}  // namespace OrvexXml
