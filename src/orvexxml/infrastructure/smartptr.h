#pragma once

#include <cstddef>

namespace OrvexXml {

// Intrusive reference-counting pointer for classes with AddRef/Release (the
// CXmlObjectBase family). A null pointer is allowed.
template <class T>
class CSmartPtr {
public:
    CSmartPtr() : m_p(nullptr) {}
    CSmartPtr(std::nullptr_t) : m_p(nullptr) {}
    CSmartPtr(T* p) : m_p(p) {
        if (m_p) m_p->AddRef();
    }
    CSmartPtr(const CSmartPtr& other) : m_p(other.m_p) {
        if (m_p) m_p->AddRef();
    }
    template <class U>
    CSmartPtr(const CSmartPtr<U>& other) : m_p(other.Get()) {
        if (m_p) m_p->AddRef();
    }
    CSmartPtr(CSmartPtr&& other) noexcept : m_p(other.m_p) { other.m_p = nullptr; }
    ~CSmartPtr() {
        if (m_p) m_p->Release();
    }

    CSmartPtr& operator=(T* p) {
        // AddRef the new object before releasing the old, so self-assignment is safe.
        if (p) p->AddRef();
        T* pOld = m_p;
        m_p = p;
        if (pOld) pOld->Release();
        return *this;
    }
    CSmartPtr& operator=(const CSmartPtr& other) { return *this = other.m_p; }
    template <class U>
    CSmartPtr& operator=(const CSmartPtr<U>& other) {
        return *this = other.Get();
    }
    CSmartPtr& operator=(CSmartPtr&& other) noexcept {
        if (this != &other) {
            T* pOld = m_p;
            m_p = other.m_p;
            other.m_p = nullptr;
            if (pOld) pOld->Release();
        }
        return *this;
    }

    T* Get() const { return m_p; }
    T* operator->() const { return m_p; }
    T& operator*() const { return *m_p; }
    operator T*() const { return m_p; }
    bool IsNull() const { return m_p == nullptr; }

private:
    T* m_p;
};

}  // namespace OrvexXml
