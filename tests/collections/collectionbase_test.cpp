// The frame shared by all collections: occurrence limits, listeners, the event statics of
// the object base and the hand-driven reading of a choice's collection.
#include "collectiontesthelpers.h"

using namespace OrvexXml;
using namespace OrvexColTest;

namespace {

// A string collection "v" with the given limits, filled with n items.
CSmartPtr<CTestable<CstringCol>> Filled(int nMin, int nMax, int n) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>("v", "", nMin, nMax);
    for (int i = 0; i < n; ++i) col->Add("x");
    return col;
}

CSerializationContext IgnoringCounts() {
    CSerializationContext ctx;
    ctx.SetIgnoreInvalidCollectionCounts(true);
    return ctx;
}

}  // namespace

// --- construction -----------------------------------------------------------------------

TEST(CollectionFrame, DefaultConstructionIsUnboundedWithEmptyNames) {
    CSmartPtr<CTestItemCol> col = new CTestItemCol(nullptr, 0, -1);
    EXPECT_EQ("", col->GetElementName());
    EXPECT_EQ("", col->GetNamespace());
    EXPECT_EQ(0, col->GetMinOccurs());
    EXPECT_EQ(-1, col->GetMaxOccurs());
    EXPECT_EQ(0, col->GetCount());
    EXPECT_EQ(col.Get(), col->GetBase());
}

TEST(CollectionFrame, ConstructorFixesNameNamespaceAndLimits) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("amount", "urn:a", 2, 5);
    EXPECT_EQ("amount", col->GetElementName());
    EXPECT_EQ("urn:a", col->GetNamespace());
    EXPECT_EQ(2, col->GetMinOccurs());
    EXPECT_EQ(5, col->GetMaxOccurs());
    EXPECT_EQ(ItemType_i4, col->GetItemType());
    EXPECT_EQ(CWhitespaceUtils::WhitespaceRule_collapse, col->GetWhitespaceRule());
    EXPECT_EQ("", col->GetFormatOverride());  // null is stored as empty
}

TEST(CollectionFrame, TypeCollectionKeepsItsFacetsAndFormat) {
    CSmartPtr<Cr8Col> col = new Cr8Col("d", "", 0, -1, "[0-9]+", 1, 9, "0", "100", "-1", "101", 3, 5, 2,
                                       CWhitespaceUtils::WhitespaceRule_preserve, "%.2f");
    const CPrimitiveRestrictions& r = col->GetRestrictions();
    EXPECT_EQ("[0-9]+", r.GetPattern());
    EXPECT_EQ(1, r.GetMinLength());
    EXPECT_EQ(9, r.GetMaxLength());
    EXPECT_EQ("0", r.GetMinInclusive());
    EXPECT_EQ("100", r.GetMaxInclusive());
    EXPECT_EQ("-1", r.GetMinExclusive());
    EXPECT_EQ("101", r.GetMaxExclusive());
    EXPECT_EQ(3, r.GetLength());
    EXPECT_EQ(5, r.GetTotalDigits());
    EXPECT_EQ(2, r.GetFractionDigits());
    EXPECT_EQ("%.2f", col->GetFormatOverride());
    EXPECT_EQ(CWhitespaceUtils::WhitespaceRule_preserve, col->GetWhitespaceRule());
}

TEST(CollectionFrame, TargetNamespaceIsAProgramLogicError) {
    const char* const kText =
        "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program logic error)";
    CSmartPtr<CTestable<Ci4Col>> typed = MakeCol<Ci4Col>();
    EXPECT_COL_THROW(typed->GetTargetNamespace(), COxException, kText);
    CSmartPtr<CTestItemCol> list = new CTestItemCol();
    EXPECT_COL_THROW(list->GetTargetNamespace(), COxException, kText);
    // Writing a collection as a document of its own asks for it.
    EXPECT_COL_THROW(typed->ToXml(false, false, EOLType_LF, DefaultCtx()), COxException, kText);
}

// --- occurrence limits --------------------------------------------------------------------

TEST(OccurrenceLimits, TooManyItemsAreRefusedWithTheMaximumMessage) {
    CSmartPtr<CTestable<CstringCol>> col = Filled(0, 2, 3);
    EXPECT_COL_THROW(col->ValidateCount(DefaultCtx()), COxValidationException,
                     "The Maximum number of [v] elements allowed in this collection is 2");
    EXPECT_FALSE(col->IsValidCount(DefaultCtx()));
}

TEST(OccurrenceLimits, TooFewItemsAreRefusedWithTheMinimumMessage) {
    CSmartPtr<CTestable<CstringCol>> col = Filled(3, 5, 2);
    EXPECT_COL_THROW(col->ValidateCount(DefaultCtx()), COxValidationException,
                     "The Minimum number of [v] elements allowed in this collection is 3");
    EXPECT_FALSE(col->IsValidCount(DefaultCtx()));
}

TEST(OccurrenceLimits, ValidationErrorCarriesNoPath) {
    CSmartPtr<CTestable<CstringCol>> col = Filled(1, -1, 0);
    try {
        col->ValidateCount(DefaultCtx());
        FAIL() << "nothing thrown";
    } catch (const COxValidationException& e) {
        EXPECT_EQ("", e.GetPath());
        EXPECT_EQ(nullptr, e.GetInnerException());
    }
}

TEST(OccurrenceLimits, CountsAtTheLimitsPass) {
    for (int n = 2; n <= 4; ++n) {
        CSmartPtr<CTestable<CstringCol>> col = Filled(2, 4, n);
        EXPECT_NO_THROW(col->ValidateCount(DefaultCtx())) << n;
        EXPECT_TRUE(col->IsValidCount(DefaultCtx())) << n;
    }
}

TEST(OccurrenceLimits, UnboundedMaximumNeverReportsTooMany) {
    CSmartPtr<CTestable<CstringCol>> col = Filled(0, -1, 50);
    EXPECT_NO_THROW(col->ValidateCount(DefaultCtx()));
    EXPECT_TRUE(col->IsValidCount(DefaultCtx()));
}

TEST(OccurrenceLimits, MaximumIsTestedBeforeMinimum) {
    // Contradictory limits: both are broken by 3 items, the maximum is reported.
    CSmartPtr<CTestable<CstringCol>> col = Filled(5, 2, 3);
    EXPECT_COL_THROW(col->ValidateCount(DefaultCtx()), COxValidationException,
                     "The Maximum number of [v] elements allowed in this collection is 2");
}

TEST(OccurrenceLimits, ContextThatIgnoresCountsPassesEverything) {
    CSerializationContext ctx = IgnoringCounts();
    CSmartPtr<CTestable<CstringCol>> tooFew = Filled(2, 3, 0);
    CSmartPtr<CTestable<CstringCol>> tooMany = Filled(0, 1, 4);
    EXPECT_NO_THROW(tooFew->ValidateCount(ctx));
    EXPECT_NO_THROW(tooMany->ValidateCount(ctx));
    EXPECT_TRUE(tooFew->IsValidCount(ctx));
    EXPECT_TRUE(tooMany->IsValidCount(ctx));
}

TEST(OccurrenceLimits, NodeListUsesTheSameLimits) {
    CSmartPtr<CTestItemCol> col = new CTestItemCol("entry", 1, 1);
    EXPECT_COL_THROW(col->ValidateCount(DefaultCtx()), COxValidationException,
                     "The Minimum number of [entry] elements allowed in this collection is 1");
    col->AppendItem(new CTestItem("a"));
    EXPECT_TRUE(col->IsValidCount(DefaultCtx()));
    col->AppendItem(new CTestItem("b"));
    EXPECT_COL_THROW(col->ValidateCount(DefaultCtx()), COxValidationException,
                     "The Maximum number of [entry] elements allowed in this collection is 1");
    EXPECT_TRUE(col->IsValidCount(IgnoringCounts()));
}

// --- listeners ----------------------------------------------------------------------------

TEST(Listeners, AreToldInOrderOfRegistration) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    std::vector<std::string> heard;
    CEventRecorder first, second;
    first.m_onEvent = [&](const SEvent&) { heard.push_back("first"); };
    second.m_onEvent = [&](const SEvent&) { heard.push_back("second"); };
    col->AddEventListener(&first);
    col->AddEventListener(&second);
    col->Add(1);
    EXPECT_EQ((std::vector<std::string>{"first", "second", "first", "second", "first", "second"}), heard);
}

TEST(Listeners, AddedTwiceHearsTwiceAndOneRemovalTakesBoth) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    CEventRecorder twice, other;
    col->AddEventListener(&twice);
    col->AddEventListener(&other);
    col->AddEventListener(&twice);
    col->Add(1);
    EXPECT_EQ(6u, twice.m_events.size());
    EXPECT_EQ(3u, other.m_events.size());

    col->RemoveEventListener(&twice);
    col->Add(2);
    EXPECT_EQ(6u, twice.m_events.size());
    EXPECT_EQ(6u, other.m_events.size());
}

TEST(Listeners, RemovingAnUnknownListenerIsNoError) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    CEventRecorder registered, stranger;
    col->AddEventListener(&registered);
    EXPECT_NO_THROW(col->RemoveEventListener(&stranger));
    col->Add(1);
    EXPECT_EQ(3u, registered.m_events.size());
}

TEST(Listeners, SourceIsTheCollectionsBase) {
    CEventRecorder rec;  // outlives the collection, which tells it about the items it drops when it dies
    CSmartPtr<CTestItemCol> col = new CTestItemCol();
    col->AddEventListener(&rec);
    col->AppendItem(new CTestItem("a"));
    ASSERT_EQ(3u, rec.m_events.size());
    for (const SEvent& e : rec.m_events) EXPECT_EQ(col->GetBase(), e.pSource);
}

// --- the event statics of the object base ---------------------------------------------------

TEST(EventStatics, EachFiresItsTypeWithTheCollectionAsSource) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    CEventRecorder rec;
    int nItem = 7;
    CTestItem::FireOnCollectionChangeEvent(&rec, col);
    CTestItem::FireOnCollectionAddEvent(&rec, col, &nItem);
    CTestItem::FireOnCollectionAddCompleteEvent(&rec, col, &nItem);
    CTestItem::FireOnCollectionRemoveEvent(&rec, col, 4);
    CTestItem::FireOnCollectionRemoveCompleteEvent(&rec, col, 5);
    ASSERT_EQ(5u, rec.m_events.size());
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3, 4}), rec.Types());
    for (const SEvent& e : rec.m_events) EXPECT_EQ(col->GetBase(), e.pSource);
    EXPECT_EQ(nullptr, rec.m_events[0].pData);
    EXPECT_EQ(&nItem, rec.m_events[1].pData);
    EXPECT_EQ(&nItem, rec.m_events[2].pData);
    EXPECT_EQ("4", rec.m_events[3].strValue);
    EXPECT_EQ("5", rec.m_events[4].strValue);
}

TEST(EventStatics, RemoveWithMinusOneGivesNullAndWithZeroAPointerToZero) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    CEventRecorder rec;
    CTestItem::FireOnCollectionRemoveEvent(&rec, col, -1);
    CTestItem::FireOnCollectionRemoveCompleteEvent(&rec, col, -1);
    CTestItem::FireOnCollectionRemoveEvent(&rec, col, 0);
    CTestItem::FireOnCollectionRemoveCompleteEvent(&rec, col, 0);
    ASSERT_EQ(4u, rec.m_events.size());
    EXPECT_EQ(nullptr, rec.m_events[0].pData);
    EXPECT_EQ(nullptr, rec.m_events[1].pData);
    ASSERT_NE(nullptr, rec.m_events[2].pData);
    EXPECT_EQ("0", rec.m_events[2].strValue);
    ASSERT_NE(nullptr, rec.m_events[3].pData);
    EXPECT_EQ("0", rec.m_events[3].strValue);
}

// --- Choice_Read_Collection -------------------------------------------------------------------

class ChoiceReadCollection : public ::testing::Test {
protected:
    void Load(const char* pszXml) {
        m_doc.LoadXml(pszXml);
        m_pRoot = m_doc.GetDocumentElement();
        m_pCurrent = m_pRoot->GetFirstElement();
    }
    CXmlDocument m_doc;
    CXmlElement* m_pRoot = nullptr;
    CXmlElement* m_pCurrent = nullptr;
};

TEST_F(ChoiceReadCollection, ReadsTheRunAndMovesTheCursor) {
    Load("<p><v>1</v><v>2</v><w/></p>");
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    OxLong nCount = 0;
    CTestItem::Choice_Read_Collection(col, m_pRoot, m_pCurrent, nCount, DefaultCtx());
    EXPECT_EQ(1, nCount);
    EXPECT_EQ(2, col->GetCount());
    ASSERT_NE(nullptr, m_pCurrent);
    EXPECT_EQ("w", m_pCurrent->GetLocalName());
}

TEST_F(ChoiceReadCollection, CountAboveZeroLeavesCursorAndCollectionAlone) {
    Load("<p><v>1</v></p>");
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    CXmlElement* pBefore = m_pCurrent;
    OxLong nCount = 1;
    CTestItem::Choice_Read_Collection(col, m_pRoot, m_pCurrent, nCount, DefaultCtx());
    EXPECT_EQ(pBefore, m_pCurrent);
    EXPECT_EQ(1, nCount);
    EXPECT_EQ(0, col->GetCount());
}

TEST_F(ChoiceReadCollection, NothingConsumedIsNoTurnAndNoCountCheck) {
    Load("<p><w/></p>");
    // A minimum of 1 would fail the check; with nothing consumed there is none.
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("v", "", 1, -1);
    CXmlElement* pBefore = m_pCurrent;
    OxLong nCount = 0;
    EXPECT_NO_THROW(CTestItem::Choice_Read_Collection(col, m_pRoot, m_pCurrent, nCount, DefaultCtx()));
    EXPECT_EQ(pBefore, m_pCurrent);
    EXPECT_EQ(0, nCount);
}

TEST_F(ChoiceReadCollection, CountOutsideTheLimitsIsRefusedAfterTheCursorMoved) {
    Load("<p><v>1</v><v>2</v><v>3</v></p>");
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("v", "", 0, 2);
    OxLong nCount = 0;
    EXPECT_COL_THROW(CTestItem::Choice_Read_Collection(col, m_pRoot, m_pCurrent, nCount, DefaultCtx()),
                     COxValidationException, "The Maximum number of [v] elements allowed in this collection is 2");
    EXPECT_EQ(nullptr, m_pCurrent);
    EXPECT_EQ(0, nCount);
    EXPECT_EQ(3, col->GetCount());
}
