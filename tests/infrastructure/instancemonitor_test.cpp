#include <gtest/gtest.h>

#include <new>
#include <string>
#include <thread>
#include <vector>

#include "orvexxml/infrastructure/debugtrace.h"
#include "orvexxml/infrastructure/instancemonitor.h"

using namespace OrvexXml;

namespace {

class CMonitoredA : public CInstanceMonitor {
public:
    CMonitoredA() : CInstanceMonitor("CMonitoredA") {}
};

class CMonitoredB : public CInstanceMonitor {
public:
    CMonitoredB() : CInstanceMonitor("CMonitoredB") {}
};

const char* const kHeader = "Instances of classes still in existence/Total Number of instances created\n";

// Each test starts from an empty table, so that the dump is exact.
class InstanceMonitor : public ::testing::Test {
protected:
    void SetUp() override { CInstanceMonitor::Cleanup(); }
};

TEST_F(InstanceMonitor, EmptyListDumpsTheHeaderAlone) { EXPECT_EQ(CInstanceMonitor::DumpState(), kHeader); }

TEST_F(InstanceMonitor, LivingInstancesAreMarkedWithAnArrow) {
    CMonitoredA* pFirst = new CMonitoredA;
    {
        CMonitoredA second;
        CMonitoredB b;
    }
    EXPECT_EQ(CInstanceMonitor::DumpState(),
              std::string(kHeader) + "--> CMonitoredA = 1/2\n    CMonitoredB = 0/1");
    delete pFirst;
    EXPECT_EQ(CInstanceMonitor::DumpState(),
              std::string(kHeader) + "    CMonitoredA = 0/2\n    CMonitoredB = 0/1");
}

TEST_F(InstanceMonitor, CopiesCountAsNewInstancesAndAssignmentDoesNot) {
    CMonitoredA a;
    CMonitoredA b(a);
    b = a;
    EXPECT_EQ(CInstanceMonitor::DumpState(), std::string(kHeader) + "--> CMonitoredA = 2/2");
}

TEST_F(InstanceMonitor, NamesAreComparedAsStringsNotPointers) {
    std::string name1 = "CDynamicName";
    std::string name2 = "CDynamicName";
    {
        CInstanceMonitor one(name1.c_str());
        CInstanceMonitor two(name2.c_str());
    }
    EXPECT_EQ(CInstanceMonitor::DumpState(), std::string(kHeader) + "    CDynamicName = 0/2");
}

TEST_F(InstanceMonitor, InstancesThatOutliveCleanupDieHarmlessly) {
    CMonitoredA* pOld = new CMonitoredA;
    CInstanceMonitor::Cleanup();
    CMonitoredA fresh;
    delete pOld;  // its record is gone from the table; the new record is untouched
    EXPECT_EQ(CInstanceMonitor::DumpState(), std::string(kHeader) + "--> CMonitoredA = 1/1");
}

TEST_F(InstanceMonitor, CountsStayExactUnderConcurrentConstruction) {
    const int kThreads = 8;
    const int kPerThread = 20000;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t] {
            std::vector<CInstanceMonitor*> kept;
            for (int i = 0; i < kPerThread; ++i) {
                CInstanceMonitor* p = (i % 2) ? static_cast<CInstanceMonitor*>(new CMonitoredA)
                                              : static_cast<CInstanceMonitor*>(new CMonitoredB);
                if (i % 4 == t % 4) kept.push_back(p);  // a quarter of them survive for a while
                else delete p;
            }
            for (CInstanceMonitor* p : kept) delete p;
        });
    }
    for (std::thread& th : threads) th.join();
    std::string dump = CInstanceMonitor::DumpState();
    EXPECT_NE(dump.find("    CMonitoredA = 0/80000"), std::string::npos) << dump;
    EXPECT_NE(dump.find("    CMonitoredB = 0/80000"), std::string::npos) << dump;
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

    g_strCollected.clear();
    g_nPieces = 0;
    SetDebugOutputSink(&Collect, nullptr);
    std::string text(300, 'y');
    DebugTrace("%s|%d", text.c_str(), 7);
    SetDebugOutputSink(nullptr, nullptr);
    EXPECT_EQ(g_strCollected, text + "|7");
    EXPECT_EQ(g_nPieces, 3);  // 302 bytes in pieces of at most 128
}

}  // namespace
