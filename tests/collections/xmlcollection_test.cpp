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
    NodeList() : m_col(new CTestItemCol()), m_rec(&ReadItemId, m_col) { m_nLivingAtStart = CTestItem::ms_nLiving; }
    ~NodeList() override {
        m_rec.m_onEvent = nullptr;
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
        for (const char* p = pszIds; *p; ++p) m_col->AppendItem(Item(std::string(1, *p).c_str()));
    }
    // Both directions agree, and the ends are proper ends.
    void ExpectList(const std::string& strForward) {
        EXPECT_EQ(strForward, m_col->Forward());
        EXPECT_EQ(std::string(strForward.rbegin(), strForward.rend()), m_col->Backward());
        EXPECT_EQ(strForward.empty() ? 0 : static_cast<int>((strForward.size() + 1) / 2), m_col->GetCount());
        if (strForward.empty()) {
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
    CEventRecorder m_rec;  // logs "type:id#count" (0 change, 1 add, 2 add complete, 3 remove, 4 remove complete)
    int m_nLivingAtStart;
};

}  // namespace

TEST_F(NodeList, EveryInsertionKeepsBothDirectionsLinkedAndIsToldAroundTheChange) {
    ExpectList("");
    Listen();
    m_col->PrependItem(Item("c"));  // into an empty list: head and tail
    ExpectList("c");
    EXPECT_EQ(m_col->m_pHead, m_col->m_pTail);
    m_col->AppendItem(Item("e"));
    m_col->AddItemAt(0, Item("a"));
    m_col->AddItemAt(3, Item("g"));  // at the count: appends
    ExpectList("a,c,e,g");
    m_col->AddAfterItem(m_items[0], Item("d"));   // behind c
    m_col->AddBeforeItem(m_items[0], Item("b"));  // in front of c
    m_col->AddAfterItem(m_items[3], Item("h"));   // behind the tail
    m_col->AddBeforeItem(m_items[2], Item("0"));  // in front of the head
    m_col->AddAfterItem(nullptr, Item("-"));      // no anchor: prepends
    m_col->AddBeforeItem(nullptr, Item("i"));     // no anchor: appends
    m_col->AddItemAt(7, Item("f"));
    ExpectList("-,0,a,b,c,d,e,f,g,h,i");
    EXPECT_EQ(
        "1:c#0 2:c#1 0#1 1:e#1 2:e#2 0#2 1:a#2 2:a#3 0#3 1:g#3 2:g#4 0#4 1:d#4 2:d#5 0#5 1:b#5 2:b#6 0#6 "
        "1:h#6 2:h#7 0#7 1:0#7 2:0#8 0#8 1:-#8 2:-#9 0#9 1:i#9 2:i#10 0#10 1:f#10 2:f#11 0#11",
        m_rec.m_strLog);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(m_col->GetBase(), m_rec.m_sources[i]);
        EXPECT_EQ(i < 2 ? static_cast<CXmlObjectBase*>(m_items[0]) : nullptr, m_rec.m_data[i]);
    }
    // The same object may be held twice; lookup finds the first node holding it.
    m_col->AppendItem(m_items[2]);
    EXPECT_EQ(m_col->m_pHead->m_pNext->m_pNext, m_col->GetNodeForItem(m_items[2]));
}

TEST_F(NodeList, RefusedInsertions) {
    Fill("ab");
    CSmartPtr<CTestItem> stranger = new CTestItem("s");
    Listen();
    // A bad index is refused before any event, a missing anchor after the add event.
    EXPECT_COL_THROW(m_col->AddItemAt(3, Item("x")), COxInvalidParamException, "Index out of range");
    EXPECT_COL_THROW(m_col->AddItemAt(-1, Item("x")), COxInvalidParamException, "Index out of range");
    EXPECT_COL_THROW(m_col->AddAfterItem(stranger, Item("y")), COxInvalidParamException,
                     "The object was not found in the collection");
    EXPECT_COL_THROW(m_col->AddBeforeItem(stranger, Item("z")), COxInvalidParamException,
                     "The object was not found in the collection");
    ExpectList("a,b");
    EXPECT_EQ("1:y#2 1:z#2", m_rec.m_strLog);
}

TEST_F(NodeList, LookupByIndexAndByItem) {
    EXPECT_COL_THROW(m_col->GetNodeAtIndex(0), COxInvalidParamException, "Index 0 is out of range, use 0 - -1");
    Fill("abc");
    EXPECT_EQ(m_col->m_pHead, m_col->GetNodeAtIndex(0));
    EXPECT_EQ(m_col->m_pHead->m_pNext, m_col->GetNodeAtIndex(1));
    EXPECT_EQ(m_col->m_pTail, m_col->GetNodeAtIndex(2));
    EXPECT_COL_THROW(m_col->GetNodeAtIndex(3), COxInvalidParamException, "Index 3 is out of range, use 0 - 2");
    EXPECT_COL_THROW(m_col->GetNodeAtIndex(-1), COxInvalidParamException, "Index -1 is out of range, use 0 - 2");
    EXPECT_EQ(m_col->m_pHead->m_pNext, m_col->GetNodeForItem(m_items[1]));
    CSmartPtr<CTestItem> stranger = new CTestItem("b");  // same id, other object
    EXPECT_COL_THROW(m_col->GetNodeForItem(stranger), COxInvalidParamException,
                     "The object was not found in the collection");
}

TEST_F(NodeList, RemovalRepairsTheLinksAndIsToldWithoutIndex) {
    Fill("abcde");
    Listen();
    EXPECT_COL_THROW(m_col->Remove(5), COxInvalidParamException, "Index 5 is out of range, use 0 - 4");
    EXPECT_EQ("", m_rec.m_strLog);  // refused before any event
    m_col->Remove(1);
    EXPECT_EQ("3#5 4#4 0#4", m_rec.m_strLog);
    ExpectList("a,c,d,e");
    m_col->RemoveNode(m_col->GetNodeForItem(m_items[4]));
    ExpectList("a,c,d");
    m_col->Remove(0);
    ExpectList("c,d");
    m_col->Remove(1);
    ExpectList("c");
    m_col->Remove(0);
    ExpectList("");
    Fill("fgh");
    m_rec.m_strLog.clear();
    m_col->Clear();
    ExpectList("");
    EXPECT_EQ("3#3 4#2 0#2 3#2 4#1 0#1 3#1 4#0 0#0", m_rec.m_strLog);
    m_col->Clear();  // empty: nothing to tell
    EXPECT_EQ("3#3 4#2 0#2 3#2 4#1 0#1 3#1 4#0 0#0", m_rec.m_strLog);
    m_col->AppendItem(Item("i"));
    ExpectList("i");
}

TEST_F(NodeList, IteratorsWalkFromHeadToTailAndNoFurther) {
    EXPECT_TRUE(m_col->begin() == m_col->end());
    Fill("abc");
    std::string ids;
    for (CTestItem* pItem : *m_col) ids += pItem->GetId();
    EXPECT_EQ("abc", ids);
    COxIterator<CTestItem> it = m_col->begin();
    EXPECT_EQ("a", it->GetId());
    COxIterator<CTestItem> old = it++;
    EXPECT_EQ("a", (*old)->GetId());
    EXPECT_EQ("b", (*it)->GetId());
    const CXmlCollection& base = *m_col;
    std::vector<CXmlObjectBase*> objects(base.begin(), base.end());
    EXPECT_EQ((std::vector<CXmlObjectBase*>{m_items[0], m_items[1], m_items[2]}), objects);

    ++it;
    ++it;
    EXPECT_TRUE(it == m_col->end());
    EXPECT_EQ(nullptr, *it);
    EXPECT_COL_THROW(++it, COxException, "No More Elements in the Collection");
    EXPECT_COL_THROW(it++, COxException, "No More Elements in the Collection");
    EXPECT_TRUE(it == m_col->end());
    COxIterator<CTestItem> unset;
    EXPECT_COL_THROW(++unset, COxException, "No More Elements in the Collection");
}

TEST_F(NodeList, NodesHoldTheirItemsAndDestructionFreesEachOnce) {
    int nDestroyed = CTestItem::ms_nDestroyed;
    m_col->AppendItem(new CTestItem("a"));  // the node holds the only reference
    EXPECT_EQ(nDestroyed, CTestItem::ms_nDestroyed);
    EXPECT_EQ("a", (*m_col->begin())->GetId());
    m_col->Remove(0);
    EXPECT_EQ(nDestroyed + 1, CTestItem::ms_nDestroyed);

    CSmartPtr<CTestItem> kept = new CTestItem("k");
    m_col->AppendItem(kept);
    m_col->AppendItem(kept);
    for (int i = 0; i < 2; ++i) m_col->AppendItem(new CTestItem("x"));
    CEventRecorder rec;  // outlives the collection, which clears itself and tells it when it dies
    m_col->AddEventListener(&rec);
    m_col = nullptr;
    EXPECT_EQ("3 4 0 3 4 0 3 4 0 3 4 0", rec.m_strLog);
    EXPECT_EQ(nDestroyed + 3, CTestItem::ms_nDestroyed);  // the two x
    EXPECT_EQ(2, kept->AddRef());                         // only the test's own reference is left
    EXPECT_EQ(1, kept->Release());
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
    copy->Remove(0);  // the listeners stay with the original
    EXPECT_EQ("", m_rec.m_strLog);
    ExpectList("a,b");
}

TEST_F(NodeList, AssignmentReplacesTheItemsQuietly) {
    Fill("ab");
    CSmartPtr<CTestItemCol> other = new CTestItemCol("other", 1, 3);
    other->AppendItem(Item("x"));
    m_col->AppendItem(new CTestItem("o"));  // no other owner
    Listen();
    int nDestroyed = CTestItem::ms_nDestroyed;

    *m_col = *other;
    ExpectList("x");
    EXPECT_EQ("other", m_col->GetElementName());
    EXPECT_EQ(3, m_col->GetMaxOccurs());
    EXPECT_EQ("", m_rec.m_strLog);
    EXPECT_EQ(nDestroyed + 1, CTestItem::ms_nDestroyed);  // "o"
    m_col->Remove(0);                                     // the target kept its listener
    EXPECT_EQ("3#1 4#0 0#0", m_rec.m_strLog);
    EXPECT_EQ("x", other->Forward());

    *m_col = *m_col;  // self-assignment changes nothing
    ExpectList("");
}

TEST_F(NodeList, AttributesOfEachItemAreWrittenInOrder) {
    Fill("ab");
    CWriterFixture w;
    m_col->AttributesToXml_Int(&w.m_writer, DefaultCtx());
    EXPECT_EQ("<p id=\"a\" id=\"b\"/>", w.Finish());
}
