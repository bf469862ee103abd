#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

class COXCriticalSection;

// Leak detector built into the object model: every instance registers under its class
// name, and DumpState() tells how many of each class live and how many were made.
//
// A record is looked up by name once per thread and call site (a small per-thread cache
// keyed by the name pointer), after which construction and destruction cost two atomic
// operations and no lock.
class ORVEXXML_API CInstanceMonitor {
public:
    struct ClassType {
        explicit ClassType(const char* pszName) : strName(pszName), lInstanceCount(0), lTotalCount(0) {}
        std::string strName;
        std::atomic<int32_t> lInstanceCount;  // living instances
        std::atomic<int32_t> lTotalCount;     // instances ever made
    };

    explicit CInstanceMonitor(const char* pszClassName);
    // A copy is a new instance of the same class.
    CInstanceMonitor(const CInstanceMonitor& other);
    // Assignment keeps the target's own registration.
    CInstanceMonitor& operator=(const CInstanceMonitor&) { return *this; }
    virtual ~CInstanceMonitor();

    // The table of classes with their living and total counts.
    static std::string DumpState();
    // Forgets all records. Instances alive at that moment deregister harmlessly.
    static void Cleanup();

private:
    static ClassType* FindRecord(const char* pszClassName);
    static void Register(ClassType* pct) {
        pct->lInstanceCount.fetch_add(1, std::memory_order_relaxed);
        pct->lTotalCount.fetch_add(1, std::memory_order_relaxed);
    }

    ClassType* m_pct;
};

}  // namespace OrvexXml
