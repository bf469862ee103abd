// Changes that a listener refuses by throwing from one of its events: every changing
// operation leaves the collection as it was, the exception reaches the caller, and the
// listeners hear exactly the events they would have heard up to the refusal, nothing after.
#include <sstream>

#include "collectiontesthelpers.h"

using namespace OrvexXml;
using namespace OrvexColTest;

namespace {

// The first n entries of an event log; all of them when n is past its end.
std::string FirstEvents(const std::string& strLog, size_t n, size_t* pnCount = nullptr) {
    std::istringstream in(strLog);
    std::string strEntry, strResult;
    size_t i = 0;
    for (; (pnCount || i < n) && in >> strEntry; ++i)
        if (i < n) strResult += (strResult.empty() ? "" : " ") + strEntry;
    if (pnCount) *pnCount = i;
    return strResult;
}

// Runs op once with a listener that lets everything pass, to learn its events, then once for
// each of them on a fresh collection whose listener refuses exactly that one.
template <class TCol>
void ExpectEveryRefusalUndone(const std::function<CSmartPtr<TCol>()>& make,
                              const std::function<std::string(TCol&)>& state, const std::function<void(TCol&)>& op) {
    CSmartPtr<TCol> passing = make();
    const std::string strBefore = state(*passing);
    CEventRecorder all(nullptr, passing);
    passing->AddEventListener(&all);
    op(*passing);
    passing->RemoveEventListener(&all);
    ASSERT_NE(strBefore, state(*passing)) << "the operation changes nothing";
    size_t nEvents = 0;
    FirstEvents(all.m_strLog, 0, &nEvents);
    ASSERT_GT(nEvents, 0u);

    for (size_t nRefused = 1; nRefused <= nEvents; ++nRefused) {
        SCOPED_TRACE("refused at event " + std::to_string(nRefused) + " of " + all.m_strLog);
        CSmartPtr<TCol> col = make();
        CEventRecorder rec(nullptr, col);
        size_t nHeard = 0;
        rec.m_onEvent = [&](IEventSink::MsgType) {
            if (++nHeard == nRefused) throw COxInvalidStateException("refused");
        };
        col->AddEventListener(&rec);
        EXPECT_COL_THROW(op(*col), COxInvalidStateException, "refused");
        EXPECT_EQ(strBefore, state(*col));
        EXPECT_EQ(FirstEvents(all.m_strLog, nRefused), rec.m_strLog);
        // The refusal ended the change: the same operation now goes through.
        rec.m_onEvent = nullptr;
        op(*col);
        EXPECT_EQ(state(*passing), state(*col));
        col->RemoveEventListener(&rec);
    }
}

// --- typed collections ---------------------------------------------------------------

template <class TCol>
std::string ItemsText(TCol& col) {
    std::string s = std::to_string(col.GetCount()) + ":";
    for (int i = 0; i < col.GetCount(); ++i) {
        typename TCol::ValueType value = col.Item(i);
        s += " " + ReadAs<typename TCol::ValueType>(&value);
    }
    return s;
}

TEST(RefusedChanges, TypedCollectionsUndoEveryChange) {
    typedef CTestable<CstringCol> Col;
    std::function<CSmartPtr<Col>()> make = [] {
        CSmartPtr<Col> col = MakeCol<CstringCol>();
        for (const char* p : {"a", "b", "c"}) col->Add(p);
        return col;
    };
    struct {
        const char* pszName;
        std::function<void(Col&)> op;
    } cases[] = {
        {"Add", [](Col& c) { c.Add("d"); }},
        {"AddAt front", [](Col& c) { c.AddAt(0, "d"); }},
        {"AddAt middle", [](Col& c) { c.AddAt(2, "d"); }},
        {"Remove middle", [](Col& c) { c.Remove(1); }},
        {"Remove last", [](Col& c) { c.Remove(2); }},
        {"Clear", [](Col& c) { c.Clear(); }},
        {"AddFromString", [](Col& c) { c.AddFromString(" d "); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszName);
        ExpectEveryRefusalUndone<Col>(make, &ItemsText<Col>, c.op);
    }
    // Packed booleans are taken back where they stood.
    typedef CTestable<CbooleanCol> BoolCol;
    std::function<CSmartPtr<BoolCol>()> makeBools = [] {
        CSmartPtr<BoolCol> col = MakeCol<CbooleanCol>();
        for (bool b : {true, false, true}) col->Add(b);
        return col;
    };
    ExpectEveryRefusalUndone<BoolCol>(makeBools, &ItemsText<BoolCol>, [](BoolCol& c) { c.Remove(1); });
    ExpectEveryRefusalUndone<BoolCol>(makeBools, &ItemsText<BoolCol>, [](BoolCol& c) { c.Clear(); });
}

// --- node list -----------------------------------------------------------------------

std::string ListText(CTestItemCol& col) {
    return std::to_string(col.GetCount()) + ":" + col.Forward() + "/" + col.Backward();
}

TEST(RefusedChanges, TheNodeListUndoesEveryChangeAndFreesRefusedItems) {
    // The items of the list, alive as long as the test; fresh ones die with a refusal.
    static CSmartPtr<CTestItem> s_items[] = {new CTestItem("a"), new CTestItem("b"), new CTestItem("c")};
    std::function<CSmartPtr<CTestItemCol>()> make = [] {
        CSmartPtr<CTestItemCol> col = new CTestItemCol();
        for (const CSmartPtr<CTestItem>& item : s_items) col->AppendItem(item);
        return col;
    };
    struct {
        const char* pszName;
        std::function<void(CTestItemCol&)> op;
    } cases[] = {
        {"AppendItem", [](CTestItemCol& c) { c.AppendItem(new CTestItem("d")); }},
        {"PrependItem", [](CTestItemCol& c) { c.PrependItem(new CTestItem("d")); }},
        {"AddItemAt", [](CTestItemCol& c) { c.AddItemAt(1, new CTestItem("d")); }},
        {"AddAfterItem last", [](CTestItemCol& c) { c.AddAfterItem(s_items[2], new CTestItem("d")); }},
        {"AddBeforeItem first", [](CTestItemCol& c) { c.AddBeforeItem(s_items[0], new CTestItem("d")); }},
        {"Remove first", [](CTestItemCol& c) { c.Remove(0); }},
        {"Remove middle", [](CTestItemCol& c) { c.Remove(1); }},
        {"RemoveNode last", [](CTestItemCol& c) { c.RemoveNode(c.m_pTail); }},
        {"Clear", [](CTestItemCol& c) { c.Clear(); }},
    };
    const int nLiving = CTestItem::ms_nLiving;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszName);
        ExpectEveryRefusalUndone<CTestItemCol>(make, &ListText, c.op);
        EXPECT_EQ(nLiving, CTestItem::ms_nLiving);
    }
    // A fresh item whose insertion fails before it is linked dies as well.
    CSmartPtr<CTestItemCol> col = make();
    EXPECT_COL_THROW(col->AddItemAt(4, new CTestItem("x")), COxInvalidParamException, "Index out of range");
    CSmartPtr<CTestItem> stranger = new CTestItem("y");
    EXPECT_COL_THROW(col->AddAfterItem(stranger, new CTestItem("z")), COxInvalidParamException,
                     "The object was not found in the collection");
    EXPECT_EQ(nLiving + 1, CTestItem::ms_nLiving);
    for (CSmartPtr<CTestItem>& item : s_items) item = nullptr;
}

TEST(RefusedChanges, ANodeListDiesFreeingItsItemsThoughAListenerRefuses) {
    const int nLiving = CTestItem::ms_nLiving;
    CEventRecorder rec;
    rec.m_onEvent = [](IEventSink::MsgType type) {
        if (type == IEventSink::MsgType_CollectionRemoveComplete) throw COxInvalidStateException("refused");
    };
    {
        CSmartPtr<CTestItemCol> col = new CTestItemCol();
        col->AppendItem(new CTestItem("a"));
        col->AppendItem(new CTestItem("b"));
        col->AddEventListener(&rec);
    }  // the destructor clears, the listener refuses, the nodes go all the same
    EXPECT_EQ("3 4", rec.m_strLog);
    EXPECT_EQ(nLiving, CTestItem::ms_nLiving);
}

// --- listeners that change the collection they hear -----------------------------------

TEST(RefusedChanges, AListenerCannotChangeTheCollectionItHearsOf) {
    typedef CTestable<Ci4Col> Col;
    const std::string strBusy = "The collection [v] can't be changed while its listeners are told of a change";
    struct {
        const char* pszName;
        std::function<void(Col&)> nested;
    } nestedChanges[] = {
        {"Add", [](Col& c) { c.Add(9); }},
        {"Remove", [](Col& c) { c.Remove(0); }},
        {"Clear", [](Col& c) { c.Clear(); }},
    };
    for (const auto& n : nestedChanges) {
        SCOPED_TRACE(n.pszName);
        CSmartPtr<Col> col = MakeCol<Ci4Col>();
        col->Add(1);
        col->Add(2);
        CEventRecorder rec(nullptr, col);
        std::string strCaught;
        // One listener swallows the refusal of its nested change: the outer change stands.
        rec.m_onEvent = [&](IEventSink::MsgType) {
            try {
                n.nested(*col);
            } catch (const COxInvalidStateException& e) {
                strCaught = e.GetMessage();
            }
        };
        col->AddEventListener(&rec);
        col->Add(3);
        EXPECT_EQ(strBusy, strCaught);
        EXPECT_EQ((std::vector<OxLong>{1, 2, 3}), Items(col));
        // Another lets it through: the outer change is undone like any refusal.
        rec.m_onEvent = [&](IEventSink::MsgType type) {
            if (type == IEventSink::MsgType_CollectionChange) n.nested(*col);
        };
        EXPECT_COL_THROW(col->Clear(), COxInvalidStateException, strBusy);
        EXPECT_COL_THROW(col->Remove(2), COxInvalidStateException, strBusy);
        EXPECT_EQ((std::vector<OxLong>{1, 2, 3}), Items(col));
        col->RemoveEventListener(&rec);
    }
}

}  // namespace
