// The node list of bindable objects: insertion, lookup, removal, events, iteration and the
// ownership of the items.
#include "collectiontesthelpers.h"

using namespace OrvexXml;
using namespace OrvexColTest;

namespace {

std::string ReadItemId(void* pData) {
    // The data of add events is the item as passed to the collection (a CXmlObjectBase*).
    return static_cast<CTestItem*>(static_cast<CXmlObjectBase*>(pData))->GetId();
}

class NodeList : public ::testing::Test {
protected:
    NodeList() : m_col(new CTestItemCol()), m_rec(&ReadItemId) {
        m_nLivingAtStart = CTestItem::ms_nLiving;
        m_nDestroyedAtStart = CTestItem::ms_nDestroyed;
    }
    ~NodeList() override {
        m_rec.m_onEvent = nullptr;  // the hooks of a test refer to its locals
        m_col = nullptr;
        m_items.clear();
        // Every item made by the test died exactly once with the last reference.
        EXPECT_EQ(m_nLivingAtStart, CTestItem::ms_nLiving);
    }

    // A new item, kept alive by the fixture as well.
    CTestItem* Item(const char* pszId) {
        m_items.push_back(new CTestItem(pszId));
        return m_items.back();
    }
    // Appends items with the given one-letter ids.
    void Fill(const char* pszIds) {
        for (const char* p = pszIds; *p; ++p) {
            char sz[2] = {*p, 0};
            m_col->AppendItem(Item(sz));
        }
    }
    // Both directions agree, and the ends are proper ends.
    void ExpectList(const std::string& strForward) {
        EXPECT_EQ(strForward, m_col->Forward());
        std::string strBackward(strForward.rbegin(), strForward.rend());
        EXPECT_EQ(strBackward, m_col->Backward());
        int n = strForward.empty() ? 0 : static_cast<int>((strForward.size() + 1) / 2);
        EXPECT_EQ(n, m_col->GetCount());
        if (n == 0) {
            EXPECT_EQ(nullptr, m_col->m_pHead);
            EXPECT_EQ(nullptr, m_col->m_pTail);
        } else {
            EXPECT_EQ(nullptr, m_col->m_pHead->m_pPrev);
            EXPECT_EQ(nullptr, m_col->m_pTail->m_pNext);
        }
    }
    void Listen() { m_col->AddEventListener(&m_rec); }

    CSmartPtr<CTestItemCol> m_col;
    std::vector<CSmartPtr<CTestItem>> m_items;
    CEventRecorder m_rec;
    int m_nLivingAtStart;
    int m_nDestroyedAtStart;
};

}  // namespace

// --- insertion ----------------------------------------------------------------------------

TEST_F(NodeList, EmptyListHasNoEnds) {
    ExpectList("");
    Listen();
    m_col->Clear();
    EXPECT_TRUE(m_rec.m_events.empty());
}

TEST_F(NodeList, SingleItemIsBothHeadAndTail) {
    m_col->AppendItem(Item("a"));
    ExpectList("a");
    EXPECT_EQ(m_col->m_pHead, m_col->m_pTail);
}

TEST_F(NodeList, AppendAddsAtTheTailAndPrependAtTheHead) {
    m_col->AppendItem(Item("b"));
    m_col->PrependItem(Item("a"));
    m_col->AppendItem(Item("c"));
    m_col->PrependItem(Item("z"));
    ExpectList("z,a,b,c");
}

TEST_F(NodeList, PrependIntoEmptyListSetsTheTailToo) {
    m_col->PrependItem(Item("a"));
    ExpectList("a");
    m_col->AppendItem(Item("b"));
    ExpectList("a,b");
}

TEST_F(NodeList, AddItemAtInsertsBeforeTheIndexedNode) {
    Fill("ac");
    m_col->AddItemAt(1, Item("b"));
    ExpectList("a,b,c");
    m_col->AddItemAt(0, Item("0"));
    ExpectList("0,a,b,c");
}

TEST_F(NodeList, AddItemAtCountAppends) {
    Fill("ab");
    m_col->AddItemAt(2, Item("c"));
    ExpectList("a,b,c");
    m_col->AddItemAt(m_col->GetCount(), Item("d"));
    ExpectList("a,b,c,d");
}

TEST_F(NodeList, AddItemAtEmptyListWithZero) {
    m_col->AddItemAt(0, Item("a"));
    ExpectList("a");
}

TEST_F(NodeList, AddItemAtOutsideTheRangeIsRefusedBeforeAnyEvent) {
    Fill("ab");
    Listen();
    EXPECT_COL_THROW(m_col->AddItemAt(3, Item("x")), COxInvalidParamException, "Index out of range");
    EXPECT_COL_THROW(m_col->AddItemAt(-1, Item("x")), COxInvalidParamException, "Index out of range");
    EXPECT_TRUE(m_rec.m_events.empty());
    ExpectList("a,b");
}

TEST_F(NodeList, AddAfterLinksBehindTheAnchor) {
    Fill("ac");
    m_col->AddAfterItem(m_items[0], Item("b"));
    ExpectList("a,b,c");
    // Behind the last node: the new node becomes the tail.
    m_col->AddAfterItem(m_items[1], Item("d"));
    ExpectList("a,b,c,d");
}

TEST_F(NodeList, AddBeforeLinksInFrontOfTheAnchor) {
    Fill("bd");
    m_col->AddBeforeItem(m_items[1], Item("c"));
    ExpectList("b,c,d");
    // In front of the first node: the new node becomes the head.
    m_col->AddBeforeItem(m_items[0], Item("a"));
    ExpectList("a,b,c,d");
}

TEST_F(NodeList, NullAnchorPrependsAfterAndAppendsBefore) {
    Fill("b");
    m_col->AddAfterItem(nullptr, Item("a"));
    m_col->AddBeforeItem(nullptr, Item("c"));
    ExpectList("a,b,c");
}

TEST_F(NodeList, MissingAnchorFiresAddThenFailsAndChangesNothing) {
    Fill("ab");
    CSmartPtr<CTestItem> stranger = new CTestItem("s");
    Listen();
    EXPECT_COL_THROW(m_col->AddAfterItem(stranger, Item("x")), COxInvalidParamException,
                     "The object was not found in the collection");
    EXPECT_COL_THROW(m_col->AddBeforeItem(stranger, Item("y")), COxInvalidParamException,
                     "The object was not found in the collection");
    ExpectList("a,b");
    ASSERT_EQ(2u, m_rec.m_events.size());
    EXPECT_EQ(IEventSink::MsgType_CollectionAdd, m_rec.m_events[0].eType);
    EXPECT_EQ("x", m_rec.m_events[0].strValue);
    EXPECT_EQ(IEventSink::MsgType_CollectionAdd, m_rec.m_events[1].eType);
    EXPECT_EQ("y", m_rec.m_events[1].strValue);
}

TEST_F(NodeList, SameObjectMayBeHeldTwice) {
    CTestItem* pItem = Item("a");
    m_col->AppendItem(pItem);
    m_col->AppendItem(pItem);
    ExpectList("a,a");
    // Lookup finds the first node holding it.
    EXPECT_EQ(m_col->m_pHead, m_col->GetNodeForItem(pItem));
}

// --- lookup ----------------------------------------------------------------------------------

TEST_F(NodeList, GetNodeAtIndexWalksFromTheHead) {
    Fill("abc");
    EXPECT_EQ(m_col->m_pHead, m_col->GetNodeAtIndex(0));
    EXPECT_EQ(m_col->m_pHead->m_pNext, m_col->GetNodeAtIndex(1));
    EXPECT_EQ(m_col->m_pTail, m_col->GetNodeAtIndex(2));
}

TEST_F(NodeList, GetNodeAtIndexOutsideTheRangeNamesTheHighestIndex) {
    Fill("abc");
    EXPECT_COL_THROW(m_col->GetNodeAtIndex(3), COxInvalidParamException, "Index 3 is out of range, use 0 - 2");
    EXPECT_COL_THROW(m_col->GetNodeAtIndex(-1), COxInvalidParamException, "Index -1 is out of range, use 0 - 2");
}

TEST_F(NodeList, GetNodeAtIndexOnEmptyList) {
    EXPECT_COL_THROW(m_col->GetNodeAtIndex(0), COxInvalidParamException, "Index 0 is out of range, use 0 - -1");
}

TEST_F(NodeList, GetNodeForItemComparesThroughGetBase) {
    Fill("abc");
    EXPECT_EQ(m_col->m_pHead->m_pNext, m_col->GetNodeForItem(m_items[1]));
    CSmartPtr<CTestItem> stranger = new CTestItem("b");  // same id, other object
    EXPECT_COL_THROW(m_col->GetNodeForItem(stranger), COxInvalidParamException,
                     "The object was not found in the collection");
}

// --- removal ---------------------------------------------------------------------------------

TEST_F(NodeList, RemoveByIndexRepairsTheLinks) {
    Fill("abcd");
    m_col->Remove(1);
    ExpectList("a,c,d");
    m_col->Remove(0);
    ExpectList("c,d");
    m_col->Remove(1);
    ExpectList("c");
    m_col->Remove(0);
    ExpectList("");
}

TEST_F(NodeList, RemoveOutsideTheRangeRaisesBeforeAnyEvent) {
    Fill("abc");
    Listen();
    EXPECT_COL_THROW(m_col->Remove(3), COxInvalidParamException, "Index 3 is out of range, use 0 - 2");
    EXPECT_TRUE(m_rec.m_events.empty());
    ExpectList("a,b,c");
}

TEST_F(NodeList, RemoveNodeTakesTheGivenNode) {
    Fill("abc");
    m_col->RemoveNode(m_col->GetNodeForItem(m_items[2]));
    ExpectList("a,b");
}

TEST_F(NodeList, ClearEmptiesTheList) {
    Fill("abc");
    m_col->Clear();
    ExpectList("");
    m_col->AppendItem(Item("d"));
    ExpectList("d");
}

// --- events ----------------------------------------------------------------------------------

TEST_F(NodeList, InsertionFiresAddAddCompleteChangeWithTheItem) {
    Listen();
    CTestItem* pItem = Item("a");
    m_col->AppendItem(pItem);
    CXmlObjectBase* pSource = m_col->GetBase();
    void* pData = static_cast<CXmlObjectBase*>(pItem);
    std::vector<SEvent> expected = {{pSource, IEventSink::MsgType_CollectionAdd, pData, "a"},
                                    {pSource, IEventSink::MsgType_CollectionAddComplete, pData, "a"},
                                    {pSource, IEventSink::MsgType_CollectionChange, nullptr, ""}};
    EXPECT_EQ(expected, m_rec.m_events);
}

TEST_F(NodeList, AddEventComesBeforeTheItemIsIn) {
    Listen();
    std::vector<int> counts;
    m_rec.m_onEvent = [&](const SEvent&) { counts.push_back(m_col->GetCount()); };
    m_col->PrependItem(Item("a"));
    m_col->AddItemAt(0, Item("b"));
    m_col->AddAfterItem(m_items[0], Item("c"));
    m_col->AddBeforeItem(m_items[0], Item("d"));
    EXPECT_EQ((std::vector<int>{0, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4}), counts);
    EXPECT_EQ((std::vector<int>{1, 2, 0, 1, 2, 0, 1, 2, 0, 1, 2, 0}), m_rec.Types());
}

TEST_F(NodeList, RemovalFiresRemoveRemoveCompleteChangeWithoutIndex) {
    Fill("ab");
    Listen();
    std::vector<int> counts;
    m_rec.m_onEvent = [&](const SEvent&) { counts.push_back(m_col->GetCount()); };
    m_col->Remove(1);
    EXPECT_EQ((std::vector<int>{3, 4, 0}), m_rec.Types());
    for (const SEvent& e : m_rec.m_events) EXPECT_EQ(nullptr, e.pData);
    EXPECT_EQ((std::vector<int>{2, 1, 1}), counts);
}

TEST_F(NodeList, ClearOfThreeFiresThreeRoundsOfRemoveEvents) {
    Fill("abc");
    Listen();
    m_col->Clear();
    EXPECT_EQ((std::vector<int>{3, 4, 0, 3, 4, 0, 3, 4, 0}), m_rec.Types());
}

TEST_F(NodeList, DestructionClearsAndTellsTheListeners) {
    Fill("ab");
    Listen();
    m_col = nullptr;
    EXPECT_EQ((std::vector<int>{3, 4, 0, 3, 4, 0}), m_rec.Types());
}

// --- iteration ---------------------------------------------------------------------------------

TEST_F(NodeList, IteratorWalksFromHeadToTail) {
    Fill("abc");
    std::string ids;
    for (CTestItem* pItem : *m_col) ids += pItem->GetId();
    EXPECT_EQ("abc", ids);
    COxIterator<CTestItem> it = m_col->begin();
    EXPECT_EQ("a", it->GetId());
    COxIterator<CTestItem> old = it++;
    EXPECT_EQ("a", (*old)->GetId());
    EXPECT_EQ("b", (*it)->GetId());
}

TEST_F(NodeList, BaseIteratorGivesTheObjects) {
    Fill("ab");
    const CXmlCollection& base = *m_col;
    std::vector<CXmlObjectBase*> objects(base.begin(), base.end());
    ASSERT_EQ(2u, objects.size());
    EXPECT_EQ(static_cast<CXmlObjectBase*>(m_items[0]), objects[0]);
    EXPECT_EQ(static_cast<CXmlObjectBase*>(m_items[1]), objects[1]);
}

TEST_F(NodeList, EmptyListBeginsAtItsEnd) { EXPECT_TRUE(m_col->begin() == m_col->end()); }

TEST_F(NodeList, SteppingPastTheEndThrows) {
    Fill("a");
    COxIterator<CTestItem> it = m_col->begin();
    ++it;
    EXPECT_TRUE(it == m_col->end());
    EXPECT_EQ(nullptr, *it);
    EXPECT_COL_THROW(++it, COxException, "No More Elements in the Collection");
    EXPECT_COL_THROW(it++, COxException, "No More Elements in the Collection");
    EXPECT_TRUE(it == m_col->end());
    COxIterator<CTestItem> unset;
    EXPECT_COL_THROW(++unset, COxException, "No More Elements in the Collection");
}

// --- ownership -----------------------------------------------------------------------------------

TEST_F(NodeList, NodeKeepsItsItemAliveUntilRemoved) {
    int nDestroyed = CTestItem::ms_nDestroyed;
    CTestItem* pItem = new CTestItem("a");
    m_col->AppendItem(pItem);  // the node holds the only reference
    EXPECT_EQ(nDestroyed, CTestItem::ms_nDestroyed);
    EXPECT_EQ("a", (*m_col->begin())->GetId());
    m_col->Remove(0);
    EXPECT_EQ(nDestroyed + 1, CTestItem::ms_nDestroyed);
}

TEST_F(NodeList, ItemsHeldElsewhereSurviveTheCollection) {
    CSmartPtr<CTestItem> kept = new CTestItem("k");
    int nDestroyed = CTestItem::ms_nDestroyed;
    m_col->AppendItem(kept);
    m_col->AppendItem(kept);
    m_col->AppendItem(new CTestItem("x"));
    m_col = nullptr;
    EXPECT_EQ(nDestroyed + 1, CTestItem::ms_nDestroyed);  // only x
    EXPECT_EQ("k", kept->GetId());
    // Only the test's own reference is left.
    EXPECT_EQ(2, kept->AddRef());
    EXPECT_EQ(1, kept->Release());
}

TEST_F(NodeList, ReleasingTheCollectionFreesEachItemOnce) {
    int nDestroyed = CTestItem::ms_nDestroyed;
    for (int i = 0; i < 5; ++i) m_col->AppendItem(new CTestItem("i"));
    m_col = nullptr;
    EXPECT_EQ(nDestroyed + 5, CTestItem::ms_nDestroyed);
}

TEST_F(NodeList, CopyHasItsOwnNodesSharingTheItems) {
    Fill("ab");
    Listen();
    CSmartPtr<CTestItemCol> copy = new CTestItemCol(*m_col);
    EXPECT_EQ("a,b", copy->Forward());
    EXPECT_EQ("b,a", copy->Backward());
    EXPECT_NE(m_col->m_pHead, copy->m_pHead);
    EXPECT_EQ(m_col->m_pHead->m_pItem.Get(), copy->m_pHead->m_pItem.Get());
    EXPECT_EQ("item", copy->GetElementName());
    // The listeners stay with the original.
    copy->Remove(0);
    EXPECT_TRUE(m_rec.m_events.empty());
    ExpectList("a,b");
}

TEST_F(NodeList, AssignmentReplacesTheItemsQuietly) {
    Fill("ab");
    CSmartPtr<CTestItemCol> other = new CTestItemCol("other", 1, 3);
    other->AppendItem(Item("x"));
    Listen();
    int nDestroyed = CTestItem::ms_nDestroyed;
    CTestItem* pOwnedOnly = new CTestItem("o");
    m_col->AppendItem(pOwnedOnly);
    m_rec.m_events.clear();

    *m_col = *other;
    EXPECT_EQ("x", m_col->Forward());
    EXPECT_EQ("x", m_col->Backward());
    EXPECT_EQ(1, m_col->GetCount());
    EXPECT_EQ("other", m_col->GetElementName());
    EXPECT_EQ(3, m_col->GetMaxOccurs());
    EXPECT_TRUE(m_rec.m_events.empty());
    EXPECT_EQ(nDestroyed + 1, CTestItem::ms_nDestroyed);  // "o" had no other owner
    // The target kept its listener.
    m_col->Remove(0);
    EXPECT_EQ(3u, m_rec.m_events.size());
    EXPECT_EQ("x", other->Forward());

    *m_col = *m_col;  // self-assignment changes nothing
    EXPECT_EQ(0, m_col->GetCount());
}

// --- attributes --------------------------------------------------------------------------------------

TEST_F(NodeList, AttributesOfEachItemAreWrittenInOrder) {
    Fill("ab");
    CWriterFixture w;
    m_col->AttributesToXml_Int(&w.m_writer, DefaultCtx());
    EXPECT_EQ("<p id=\"a\" id=\"b\"/>", w.Finish());
}
