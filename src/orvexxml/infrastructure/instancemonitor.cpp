#include "orvexxml/infrastructure/instancemonitor.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "orvexxml/infrastructure/criticalsection.h"
#include "orvexxml/infrastructure/debugtrace.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

namespace {

// The shared state lives in function-local statics so that monitored objects with static
// storage in other translation units can be built before this file's statics.
struct MonitorState {
    COXCriticalSection cs;
    std::vector<CInstanceMonitor::ClassType*> list;     // in order of first appearance
    std::vector<CInstanceMonitor::ClassType*> retired;  // records forgotten by Cleanup
    std::atomic<uint32_t> generation{1};
};

MonitorState& State() {
    // Never destroyed: objects with static storage may deregister after exit handlers ran.
    static MonitorState* s_pState = new MonitorState;
    return *s_pState;
}

struct CacheSlot {
    const char* pszKey;
    CInstanceMonitor::ClassType* pRecord;
    uint32_t nGeneration;
};
const size_t kCacheSlots = 64;
thread_local CacheSlot t_cache[kCacheSlots];

void DumpAtExit() {
    OutputDebugText("Dumping Class instances\n");
    std::string dump = CInstanceMonitor::DumpState();
    DebugTrace("%s", dump.c_str());
    OutputDebugText("\n");
    CInstanceMonitor::Cleanup();
}

struct StartTracking {
    StartTracking() {
        State();
        OutputDebugText("Starting to track Class instances\n");
        std::atexit(DumpAtExit);
    }
} g_startTracking;

}  // namespace

CInstanceMonitor::ClassType* CInstanceMonitor::FindRecord(const char* pszClassName) {
    MonitorState& state = State();
    uint32_t nGeneration = state.generation.load(std::memory_order_acquire);
    CacheSlot& slot = t_cache[(reinterpret_cast<uintptr_t>(pszClassName) >> 3) % kCacheSlots];
    if (slot.pszKey == pszClassName && slot.nGeneration == nGeneration &&
        std::strcmp(slot.pRecord->strName.c_str(), pszClassName) == 0)
        return slot.pRecord;

    ClassType* pRecord = nullptr;
    {
        COXLock lock(state.cs);
        for (ClassType* p : state.list) {
            if (p->strName == pszClassName) {
                pRecord = p;
                break;
            }
        }
        if (!pRecord) {
            pRecord = new ClassType(pszClassName);
            state.list.push_back(pRecord);
        }
        nGeneration = state.generation.load(std::memory_order_acquire);
    }
    slot.pszKey = pszClassName;
    slot.pRecord = pRecord;
    slot.nGeneration = nGeneration;
    return pRecord;
}

CInstanceMonitor::ClassType* CInstanceMonitor::FindRecord(ClassHandle& handle) {
    MonitorState& state = State();
    // The handle is read like a sequence lock: a record is trusted only when the
    // generation around it is unchanged and current.
    uint32_t nBefore = handle.nGeneration.load(std::memory_order_acquire);
    ClassType* pRecord = handle.pRecord.load(std::memory_order_acquire);
    uint32_t nAfter = handle.nGeneration.load(std::memory_order_acquire);
    if (pRecord && nBefore == nAfter && nBefore == state.generation.load(std::memory_order_acquire)) return pRecord;

    COXLock lock(state.cs);
    pRecord = FindRecord(handle.pszClassName);
    handle.nGeneration.store(0, std::memory_order_release);
    handle.pRecord.store(pRecord, std::memory_order_release);
    handle.nGeneration.store(state.generation.load(std::memory_order_acquire), std::memory_order_release);
    return pRecord;
}

CInstanceMonitor::CInstanceMonitor(const char* pszClassName) : m_pct(FindRecord(pszClassName)) { Register(m_pct); }

CInstanceMonitor::CInstanceMonitor(ClassHandle& handle) : m_pct(FindRecord(handle)) { Register(m_pct); }

CInstanceMonitor::CInstanceMonitor(const CInstanceMonitor& other) : m_pct(other.m_pct) {
    // The source's record may have been retired by Cleanup; count the copy where the
    // class is listed now.
    m_pct = FindRecord(other.m_pct->strName.c_str());
    Register(m_pct);
}

CInstanceMonitor::~CInstanceMonitor() { m_pct->lDestroyedCount.fetch_add(1, std::memory_order_relaxed); }

std::string CInstanceMonitor::DumpState() {
    MonitorState& state = State();
    COXLock lock(state.cs);
    std::string result = "Instances of classes still in existence/Total Number of instances created\n";
    bool bFirst = true;
    for (ClassType* p : state.list) {
        if (!bFirst) result += '\n';
        bFirst = false;
        int32_t nLiving = p->GetInstanceCount();
        int32_t nTotal = p->lTotalCount.load(std::memory_order_relaxed);
        result += FormatString(nLiving < 1 ? "    %s = %d/%d" : "--> %s = %d/%d", p->strName.c_str(), nLiving, nTotal);
    }
    return result;
}

void CInstanceMonitor::Cleanup() {
    MonitorState& state = State();
    COXLock lock(state.cs);
    // Records are kept aside rather than freed: an instance that outlives this call still
    // points at its record and decrements it when it dies.
    state.retired.insert(state.retired.end(), state.list.begin(), state.list.end());
    state.list.clear();
    state.generation.fetch_add(1, std::memory_order_acq_rel);
}

}  // namespace OrvexXml
