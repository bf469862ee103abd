#pragma once

#include <mutex>

#include "orvexxml/export.h"

namespace OrvexXml {

// The library's lock. Recursive: the thread that holds it may enter again.
class ORVEXXML_API COXCriticalSection {
public:
    COXCriticalSection() {}
    virtual ~COXCriticalSection() {}
    COXCriticalSection(const COXCriticalSection&) = delete;
    COXCriticalSection& operator=(const COXCriticalSection&) = delete;

    void Enter() { m_mutex.lock(); }
    void Leave() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};

// Holds a COXCriticalSection for the lifetime of a scope.
class COXLock {
public:
    explicit COXLock(COXCriticalSection& cs) : m_cs(cs) { m_cs.Enter(); }
    ~COXLock() { m_cs.Leave(); }
    COXLock(const COXLock&) = delete;
    COXLock& operator=(const COXLock&) = delete;

private:
    COXCriticalSection& m_cs;
};

}  // namespace OrvexXml
