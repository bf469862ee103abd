#include "orvexxml/infrastructure/instancemonitor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "orvexxml/infrastructure/debugtrace.h"

using namespace OrvexXml;

namespace {

class CMonitoredA : public CInstanceMonitor {
public:
    CMonitoredA() : CInstanceMonitor("CMonitoredA") {}
};

// Found through a handle, the way classes made in large numbers find their record.
CInstanceMonitor::ClassHandle g_handleB("CMonitoredB");
class CMonitoredB : public CInstanceMonitor {
public:
    CMonitoredB() : CInstanceMonitor(g_handleB) {}
};

const std::string kHeader = "Instances of classes still in existence/Total Number of instances created\n";

// Each test starts from an empty table, so that the dump is exact.
class InstanceMonitor : public ::testing::Test {
protected:
    void SetUp() override { CInstanceMonitor::Cleanup(); }
};

TEST_F(InstanceMonitor, DumpListsClassesInOrderAndMarksThoseWithLivingInstances) {
    EXPECT_EQ(CInstanceMonitor::DumpState(), kHeader);
    CMonitoredA* pFirst = new CMonitoredA;
    {
        CMonitoredA second;
        CMonitoredB b;
    }
    EXPECT_EQ(CInstanceMonitor::DumpState(), kHeader + "--> CMonitoredA = 1/2\n    CMonitoredB = 0/1");
    delete pFirst;
    EXPECT_EQ(CInstanceMonitor::DumpState(), kHeader + "    CMonitoredA = 0/2\n    CMonitoredB = 0/1");
}

TEST_F(InstanceMonitor, CopiesCountAndAssignmentDoesNotAndNamesAreComparedAsStrings) {
    CMonitoredA a;
    CMonitoredA b(a);
    b = a;
    std::string name1 = "CDynamicName", name2 = "CDynamicName";
    {
        CInstanceMonitor one(name1.c_str());
        CInstanceMonitor two(name2.c_str());
    }
    EXPECT_EQ(CInstanceMonitor::DumpState(), kHeader + "--> CMonitoredA = 2/2\n    CDynamicName = 0/2");
}

TEST_F(InstanceMonitor, InstancesThatOutliveCleanupDieHarmlessly) {
    CMonitoredA* pOld = new CMonitoredA;
    CInstanceMonitor::Cleanup();
    EXPECT_EQ(CInstanceMonitor::DumpState(), kHeader);
    CMonitoredA fresh;
    delete pOld;  // its record is gone from the table; the new record is untouched
    EXPECT_EQ(CInstanceMonitor::DumpState(), kHeader + "--> CMonitoredA = 1/1");
}

using InstanceMonitorThreads = InstanceMonitor;

// Eight threads make and destroy instances of a class found by name and of one found through
// a handle, both looked up afresh after the reset, while this thread dumps the table.
TEST_F(InstanceMonitorThreads, CountsStayExactUnderConcurrentConstructionAndDumps) {
    std::vector<std::thread> threads;
    std::atomic<int> nDone{0};
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([t, &nDone] {
            std::vector<CInstanceMonitor*> kept;
            for (int i = 0; i < 20000; ++i) {
                CInstanceMonitor* p = (i % 2) ? static_cast<CInstanceMonitor*>(new CMonitoredA)
                                              : static_cast<CInstanceMonitor*>(new CMonitoredB);
                if (i % 4 == t % 4) {
                    kept.push_back(p);  // a quarter of them survive for a while
                } else {
                    delete p;
                }
            }
            for (CInstanceMonitor* p : kept) delete p;
            ++nDone;
        });
    }
    while (nDone < 8) EXPECT_EQ(0u, CInstanceMonitor::DumpState().rfind(kHeader, 0));
    for (std::thread& th : threads) th.join();
    const std::string dump = CInstanceMonitor::DumpState();
    EXPECT_TRUE(dump == kHeader + "    CMonitoredB = 0/80000\n    CMonitoredA = 0/80000" ||
                dump == kHeader + "    CMonitoredA = 0/80000\n    CMonitoredB = 0/80000")
        << dump;
}

void WriteToStderr(const char* pszText, void*) { fputs(pszText, stderr); }

TEST(InstanceMonitorExit, DumpsThroughTheDebugChannelAtExit) {
    EXPECT_EXIT(
        {
            CInstanceMonitor::Cleanup();
            SetDebugOutputSink(&WriteToStderr, nullptr);
            // An object that is never destroyed and holds no heap memory.
            alignas(CMonitoredA) static unsigned char storage[sizeof(CMonitoredA)];
            new (storage) CMonitoredA;
            { CMonitoredB gone; }
            std::exit(0);
        },
        ::testing::ExitedWithCode(0),
        "Dumping Class instances\n"
        "Instances of classes still in existence/Total Number of instances created\n"
        "--> CMonitoredA = 1/1\n"
        "    CMonitoredB = 0/1\n$");
}

std::string g_strCollected;
int g_nPieces = 0;
void Collect(const char* pszText, void*) {
    g_strCollected += pszText;
    ++g_nPieces;
}

TEST(DebugTrace, IsSilentWithoutSinkAndSplitsTextIntoPieces) {
    SetDebugOutputSink(nullptr, nullptr);
    DebugTrace("nobody hears %d", 1);
    SetDebugOutputSink(&Collect, nullptr);
    const std::string text(300, 'y');
    DebugTrace("%s|%d", text.c_str(), 7);
    SetDebugOutputSink(nullptr, nullptr);
    EXPECT_EQ(g_strCollected, text + "|7");
    EXPECT_EQ(g_nPieces, 3);  // 302 bytes in pieces of at most 128
}

}  // namespace
