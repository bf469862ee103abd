// The frame shared by all collections: construction, occurrence limits, listeners and the
// hand-driven reading of a choice's collection.
#include "collectiontesthelpers.h"

using namespace OrvexXml;
using namespace OrvexColTest;

TEST(CollectionFrame, ConstructorsFixNameNamespaceLimitsAndFacets) {
    CSmartPtr<CTestItemCol> unnamed = new CTestItemCol(nullptr, 0, -1);
    EXPECT_EQ("", unnamed->GetElementName());  // null is stored as empty
    EXPECT_EQ("", unnamed->GetNamespace());
    EXPECT_EQ(unnamed.Get(), unnamed->GetBase());

    CSmartPtr<CTestable<Ci4Col>> typed = MakeCol<Ci4Col>("amount", "urn:a", 2, 5);
    EXPECT_EQ(ItemType_i4, typed->GetItemType());
    EXPECT_EQ(2, typed->GetMinOccurs());
    EXPECT_EQ(5, typed->GetMaxOccurs());
    EXPECT_EQ("", typed->GetFormatOverride());  // null is stored as empty

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

TEST(OccurrenceLimits, CountsOutsideTheLimitsAreRefusedUnlessIgnored) {
    const std::string kMax = "The Maximum number of [v] elements allowed in this collection is ";
    const std::string kMin = "The Minimum number of [v] elements allowed in this collection is ";
    struct {
        int nMin, nMax, nCount;
        std::string strRefusal;  // empty: the count is valid
    } rows[] = {
        {0, 2, 3, kMax + "2"}, {3, 5, 2, kMin + "3"}, {1, -1, 0, kMin + "1"},
        {2, 4, 2, ""},         {2, 4, 4, ""},         {0, -1, 50, ""},  // at the limits, unbounded
        {5, 2, 3, kMax + "2"},  // contradictory limits: the maximum is tested first
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.nMin << ".." << row.nMax << " with " << row.nCount);
        CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>("v", "", row.nMin, row.nMax);
        for (int i = 0; i < row.nCount; ++i) col->Add("x");
        if (row.strRefusal.empty()) {
            EXPECT_NO_THROW(col->ValidateCount(DefaultCtx()));
        } else {
            EXPECT_COL_THROW(col->ValidateCount(DefaultCtx()), COxValidationException, row.strRefusal);
        }
        EXPECT_EQ(row.strRefusal.empty(), col->IsValidCount(DefaultCtx()));
        EXPECT_NO_THROW(col->ValidateCount(IgnoringCounts()));
        EXPECT_TRUE(col->IsValidCount(IgnoringCounts()));
    }
    CSmartPtr<CTestable<CstringCol>> empty = MakeCol<CstringCol>("v", "", 1, -1);
    try {
        empty->ValidateCount(DefaultCtx());
        ADD_FAILURE() << "nothing thrown";
    } catch (const COxValidationException& e) {
        EXPECT_EQ("", e.GetPath());  // the caller adds the path
        EXPECT_EQ(nullptr, e.GetInnerException());
    }
    // The node list uses the same limits.
    CSmartPtr<CTestItemCol> list = new CTestItemCol("entry", 1, 1);
    EXPECT_COL_THROW(list->ValidateCount(DefaultCtx()), COxValidationException,
                     "The Minimum number of [entry] elements allowed in this collection is 1");
    list->AppendItem(new CTestItem("a"));
    EXPECT_TRUE(list->IsValidCount(DefaultCtx()));
    list->AppendItem(new CTestItem("b"));
    EXPECT_COL_THROW(list->ValidateCount(DefaultCtx()), COxValidationException,
                     "The Maximum number of [entry] elements allowed in this collection is 1");
    EXPECT_TRUE(list->IsValidCount(IgnoringCounts()));
}

TEST(Listeners, AreToldInOrderOfRegistrationAsOftenAsRegistered) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    std::string heard;
    CEventRecorder first, second, stranger;
    first.m_onEvent = [&](IEventSink::MsgType) { heard += "1"; };
    second.m_onEvent = [&](IEventSink::MsgType) { heard += "2"; };
    col->AddEventListener(&first);
    col->AddEventListener(&second);
    col->AddEventListener(&first);
    col->Add(1);
    EXPECT_EQ("121121121", heard);
    for (CXmlObjectBase* pSource : second.m_sources) EXPECT_EQ(col->GetBase(), pSource);

    col->RemoveEventListener(&first);  // takes both entries
    EXPECT_NO_THROW(col->RemoveEventListener(&stranger));
    col->Add(2);
    EXPECT_EQ("121121121222", heard);
}

TEST(ChoiceReadCollection, ReadsARunMovesTheCursorAndChecksTheCount) {
    std::string strCursor;  // where reading left the cursor, thrown or not
    auto read = [&](const char* pszXml, CXmlCollectionBase* pCol, OxLong& nCount) {
        CXmlDocument doc;
        doc.LoadXml(pszXml);
        CXmlElement* pCurrent = doc.GetDocumentElement()->GetFirstElement();
        auto where = [&] { strCursor = pCurrent ? pCurrent->GetLocalName() : "(end)"; };
        try {
            CTestItem::Choice_Read_Collection(pCol, doc.GetDocumentElement(), pCurrent, nCount, DefaultCtx());
        } catch (...) {
            where();
            throw;
        }
        where();
    };
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    OxLong nCount = 0;
    read("<p><v>1</v><v>2</v><w/></p>", col, nCount);
    EXPECT_EQ("w", strCursor);
    EXPECT_EQ(1, nCount);
    EXPECT_EQ(2, col->GetCount());
    // A member already chosen leaves cursor and collection alone.
    read("<p><v>1</v></p>", col, nCount);
    EXPECT_EQ("v", strCursor);
    EXPECT_EQ(1, nCount);
    EXPECT_EQ(2, col->GetCount());
    // Nothing consumed is no turn and no count check (a minimum of 1 would fail it).
    CSmartPtr<CTestable<Ci4Col>> needsOne = MakeCol<Ci4Col>("v", "", 1, -1);
    nCount = 0;
    read("<p><w/></p>", needsOne, nCount);
    EXPECT_EQ("w", strCursor);
    EXPECT_EQ(0, nCount);
    // A count outside the limits is refused after the items were read and the cursor moved.
    CSmartPtr<CTestable<Ci4Col>> atMostTwo = MakeCol<Ci4Col>("v", "", 0, 2);
    EXPECT_COL_THROW(read("<p><v>1</v><v>2</v><v>3</v></p>", atMostTwo, nCount), COxValidationException,
                     "The Maximum number of [v] elements allowed in this collection is 2");
    EXPECT_EQ("(end)", strCursor);
    EXPECT_EQ(0, nCount);
    EXPECT_EQ(3, atMostTwo->GetCount());
}
