// The one-time construction of a class's tables: a build that fails part way, threads that
// build other classes meanwhile, and objects that write themselves while the process ends.
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <new>
#include <thread>
#include <vector>

#include "amount.h"
#include "bindinghelpers.h"
#include "person.h"
#include "support/testclasses.h"

namespace {

using namespace OrvexXml;
using namespace OrvexXmlData;
using OrvexBindTest::DefaultCtx;
using OrvexBindTest::Flat;

// An element entry that counts the living entries, to see what a failed build leaves behind.
class CCountedElement : public OrvexTest::CTestChoiceMember {
public:
    CCountedElement() : CTestChoiceMember("E", 0) { ++s_nLiving; }
    ~CCountedElement() override { --s_nLiving; }
    static std::atomic<int> s_nLiving;
};
std::atomic<int> CCountedElement::s_nLiving{0};

CParentElementInfo* NewParent() {
    return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "X", "", true, false, -1,
                                  ItemType_invalid, nullptr, false);
}

void BuildOneEntry(CMetaDataBuilder& builder) {
    builder.SetParent(NewParent());
    builder.AddElement(new CCountedElement);
}

// True if the holder publishes exactly nEntries elements, or nothing at all for -1.
bool Holds(const CMetaDataHolder& holder, int nEntries) {
    CElementInfo** ppElements = holder.GetClassElementInfo();
    CAttributeInfo** ppAttributes = holder.GetClassAttributeInfo();
    if (nEntries < 0) return !holder.IsBuilt() && !holder.GetParentElementInfo() && !ppElements && !ppAttributes;
    if (!holder.IsBuilt() || !holder.GetParentElementInfo() || !ppElements || !ppAttributes || ppAttributes[0])
        return false;
    for (int i = 0; i < nEntries; ++i)
        if (!dynamic_cast<CCountedElement*>(ppElements[i])) return false;
    return ppElements[nEntries] == nullptr;
}

// Inside a child process, where a failed expectation can only end the process.
void Require(bool bHolds, const char* pszWhat) {
    if (bHolds) return;
    std::fprintf(stderr, "failed: %s\n", pszWhat);
    std::_Exit(1);
}

// A first build runs out of memory part way while another thread waits for the lock to
// build another class. The lock must be free again, the partial tables freed, nothing
// published, and a later call must build. A hang ends the child through the alarm.
void FailedBuildWithWaitingThread() {
    ::alarm(30);
    static CMetaDataHolder s_first;
    static CMetaDataHolder s_second;
    std::promise<void> building, waiting;
    std::shared_future<void> isBuilding = building.get_future().share();
    std::future<void> isWaiting = waiting.get_future();
    std::thread other([&] {
        isBuilding.wait();
        waiting.set_value();
        s_second.Init(&BuildOneEntry);
    });
    bool bThrown = false;
    try {
        s_first.Init([&](CMetaDataBuilder& builder) {
            BuildOneEntry(builder);
            building.set_value();
            isWaiting.wait();
            std::this_thread::sleep_for(std::chrono::milliseconds(50));  // the other thread reaches the lock
            throw std::bad_alloc();
        });
    } catch (const std::bad_alloc&) {
        bThrown = true;
    }
    other.join();
    Require(bThrown, "the builder's exception reaches the caller");
    Require(Holds(s_first, -1), "a failed build publishes nothing");
    Require(Holds(s_second, 1), "the waiting thread builds its class");
    Require(CCountedElement::s_nLiving == 1, "the failed build frees its entries");

    int nCalls = 0;
    auto retry = [&](CMetaDataBuilder& builder) {
        ++nCalls;
        // This thread holds the lock now; a published holder must answer without it.
        std::thread([] { s_second.Init(&BuildOneEntry); }).join();
        BuildOneEntry(builder);
        builder.AddElement(new CCountedElement);
    };
    s_first.Init(retry);
    s_first.Init(retry);
    Require(nCalls == 1 && Holds(s_first, 2), "a later call builds once");
    Require(CCountedElement::s_nLiving == 3, "no entry is built twice");
    s_first.Clean();
    s_second.Clean();
    Require(Holds(s_first, -1) && Holds(s_second, -1) && CCountedElement::s_nLiving == 0, "Clean frees all tables");
}

TEST(MetaDataHolderThreads, FailedBuildFreesTheLockAndPublishesNothing) {
    EXPECT_EXIT(
        {
            FailedBuildWithWaitingThread();
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "");
}

// Four threads use a class for the first time at once: one build runs, and each thread sees
// the whole tables as soon as its Init returns. Then the same for a generated class, whose
// first objects in the process (CTest runs each test in a process of its own) are made,
// written and read back on four threads at once.
TEST(MetaDataHolderThreads, FirstUseOnManyThreadsBuildsOnceAndPublishesWholeTables) {
    static CMetaDataHolder s_holder;
    std::atomic<int> nBuilds{0}, nReady{0};
    std::vector<int> vecHolds(4, 0);
    std::vector<std::string> vecWritten(4), vecReadBack(4);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            ++nReady;
            while (nReady < 4) std::this_thread::yield();
            s_holder.Init([&](CMetaDataBuilder& builder) {
                ++nBuilds;
                BuildOneEntry(builder);
            });
            vecHolds[t] = Holds(s_holder, 1);
            CSmartPtr<Samples::CAmount> pAmount = Samples::CAmount::CreateInstance();
            pAmount->SetValue(2.5 + t);
            vecWritten[t] = Flat(pAmount);
            pAmount = Samples::CAmount::CreateInstance();
            pAmount->FromXml(vecWritten[t].c_str(), DefaultCtx());
            vecReadBack[t] = Flat(pAmount);
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(1, nBuilds);
    EXPECT_EQ(std::vector<int>(4, 1), vecHolds);
    EXPECT_EQ(vecWritten, vecReadBack);
    for (int t = 0; t < 4; ++t) {
        CSmartPtr<Samples::CAmount> pAmount = Samples::CAmount::CreateInstance();
        pAmount->SetValue(2.5 + t);
        EXPECT_EQ(Flat(pAmount), vecWritten[t]);
    }
    s_holder.Clean();
    EXPECT_EQ(0, CCountedElement::s_nLiving);
}

// A build without the class record, and one that asks for its own tables: each is refused,
// frees its entries and leaves the holder empty and usable.
CMetaDataHolder g_refused;

void BuildWithoutParent(CMetaDataBuilder& builder) { builder.AddElement(new CCountedElement); }

void BuildThatNeedsItself(CMetaDataBuilder& builder) {
    BuildOneEntry(builder);
    g_refused.Init(&BuildOneEntry);
}

TEST(MetaDataHolder, IncompleteBuildsAreRefused) {
    const struct {
        void (*pfnBuild)(CMetaDataBuilder&);
        const char* pszMessage;
    } cases[] = {
        {&BuildWithoutParent, "The metadata of a class was built without a parent record"},
        {&BuildThatNeedsItself, "The metadata of a class was asked for while it was being built"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszMessage);
        try {
            g_refused.Init(c.pfnBuild);
            ADD_FAILURE() << "no exception";
        } catch (const COxInvalidStateException& e) {
            EXPECT_EQ(e.GetFullMessage(), c.pszMessage);
        }
        EXPECT_TRUE(Holds(g_refused, -1));
        EXPECT_EQ(CCountedElement::s_nLiving, 0);
    }
    g_refused.Init(&BuildOneEntry);
    EXPECT_TRUE(Holds(g_refused, 1));
    g_refused.Clean();
}

// Written by the destructor of an application's static, after the samples' exit handlers ran.
struct CWriterAtExit {
    CSmartPtr<Samples::CPerson> m_pPerson;
    std::string m_strBefore;
    ~CWriterAtExit() {
        std::string strAfter = Flat(m_pPerson);
        // A class whose tables are first built while the process ends.
        CSmartPtr<Samples::CAmount> pAmount = Samples::CAmount::CreateInstance();
        pAmount->SetValue(2.5);
        std::string strAmount = Flat(pAmount);
        std::fprintf(stderr, "at exit: %s %s\n", strAfter.c_str(), strAmount.c_str());
        if (strAfter != m_strBefore) std::_Exit(3);
    }
};

TEST(MetaDataHolder, StaticObjectWritesAfterTheExitHandlers) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            static CWriterAtExit s_writer;  // made before any sample's tables, so destroyed after them
            s_writer.m_pPerson = Samples::CPerson::CreateInstance();
            s_writer.m_pPerson->SetName("x");
            s_writer.m_strBefore = Flat(s_writer.m_pPerson);
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "at exit: <Person><Name>x</Name></Person> <Amount>2.50</Amount>\n$");
}

}  // namespace
