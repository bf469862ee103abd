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
    // One record per class name. The living count is the difference of the two counters,
    // so that a construction and a destruction cost one atomic increment each.
    struct ClassType {
        explicit ClassType(const char* pszName) : strName(pszName), lTotalCount(0), lDestroyedCount(0) {}
        int32_t GetInstanceCount() const {
            return lTotalCount.load(std::memory_order_relaxed) - lDestroyedCount.load(std::memory_order_relaxed);
        }
        std::string strName;
        std::atomic<int32_t> lTotalCount;      // instances ever made
        std::atomic<int32_t> lDestroyedCount;  // instances destroyed
    };

    // A class built in large numbers keeps one of these as a static and passes it to the
    // constructor: the record is then found without any search.
    struct ClassHandle {
        constexpr explicit ClassHandle(const char* pszName) : pszClassName(pszName), pRecord(nullptr), nGeneration(0) {}
        const char* pszClassName;
        std::atomic<ClassType*> pRecord;
        std::atomic<uint32_t> nGeneration;
    };

    explicit CInstanceMonitor(const char* pszClassName);
    explicit CInstanceMonitor(ClassHandle& handle);
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
    static ClassType* FindRecord(ClassHandle& handle);
    static void Register(ClassType* pct) { pct->lTotalCount.fetch_add(1, std::memory_order_relaxed); }

    ClassType* m_pct;
};

}  // namespace OrvexXml
