// The typed collections of primitive values: insertion, removal and access with their
// events, the text each of them writes, reading runs of elements back, and refused texts.
#include <cmath>
#include <limits>

#include "collectiontesthelpers.h"

using namespace OrvexXml;
using namespace OrvexColTest;

namespace {

const CWhitespaceUtils::WhitespaceRule kNone = CWhitespaceUtils::WhitespaceRule_none;
const CWhitespaceUtils::WhitespaceRule kPreserve = CWhitespaceUtils::WhitespaceRule_preserve;
const CWhitespaceUtils::WhitespaceRule kReplace = CWhitespaceUtils::WhitespaceRule_replace;
const CWhitespaceUtils::WhitespaceRule kCollapse = CWhitespaceUtils::WhitespaceRule_collapse;

// What a collection writes into the element "p".
template <class TCol>
std::string Written(const CSmartPtr<CTestable<TCol>>& col, const CSerializationContext& ctx = DefaultCtx()) {
    CWriterFixture w;
    col->ToXml_Int(&w.m_writer, false, "urn:not-used", ctx, false);
    return w.Finish();
}

// Reads the children of the document element of strXml into col; returns the local name of
// the element where reading stopped, or "(end)".
template <class TCol>
std::string ReadInto(const CSmartPtr<CTestable<TCol>>& col, const std::string& strXml,
                     const CSerializationContext& ctx = DefaultCtx()) {
    CXmlDocument doc(ctx);
    doc.LoadXml(strXml.c_str());
    CXmlElement* pRoot = doc.GetDocumentElement();
    CXmlElement* pNext = col->FromXml_Int(pRoot, pRoot->GetFirstElement(), ctx, false);
    return pNext ? pNext->GetLocalName() : "(end)";
}

template <class T>
bool SameValue(T a, T b) {
    if constexpr (std::is_floating_point<T>::value) {
        if (std::isnan(a)) return std::isnan(b);
    }
    return a == b;
}

// Writes the values, compares the text with <p> + strItems + </p>, reads that text into a
// fresh collection of the same kind and expects the same values.
template <class TCol>
void ExpectWrittenAndReadBack(const std::vector<typename TCol::ValueType>& values, const std::string& strItems,
                              const char* pszFormat = nullptr) {
    CSmartPtr<CTestable<TCol>> col = MakeCol<TCol>("v", "", 0, -1, kCollapse, pszFormat);
    for (size_t i = 0; i < values.size(); ++i) col->Add(values[i]);
    std::string strText = Written(col);
    EXPECT_EQ("<p>" + strItems + "</p>", strText);

    CSmartPtr<CTestable<TCol>> back = MakeCol<TCol>("v", "", 0, -1, kCollapse, pszFormat);
    EXPECT_EQ("(end)", ReadInto(back, strText));
    ASSERT_EQ(static_cast<int>(values.size()), back->GetCount());
    for (size_t i = 0; i < values.size(); ++i) {
        EXPECT_TRUE(SameValue<typename TCol::ValueType>(values[i], back->Item(static_cast<int>(i)))) << "item " << i;
    }
}

// The refusal of a text by AddFromString: its class and message, and nothing added or told.
template <class TCol>
void ExpectRefused(const std::string& strText, const std::string& strMessage) {
    CSmartPtr<CTestable<TCol>> col = MakeCol<TCol>("v", "", 0, -1, kNone);
    CEventRecorder rec;
    col->AddEventListener(&rec);
    EXPECT_COL_THROW(col->AddFromString(strText), COxInvalidValueException, strMessage);
    EXPECT_EQ(0, col->GetCount());
    EXPECT_TRUE(rec.m_events.empty());
}

}  // namespace

// --- insertion and access ----------------------------------------------------------------------

TEST(PrimitiveCollection, AddAppendsAndAddAtInsertsBeforeTheIndex) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    col->Add(2);  // on an empty collection: index 0
    EXPECT_EQ(2, col->Item(0));
    col->Add(4);
    col->AddAt(1, 3);
    col->AddAt(0, 1);
    col->AddAt(col->GetCount(), 5);
    ASSERT_EQ(5, col->GetCount());
    EXPECT_EQ((std::vector<OxLong>{1, 2, 3, 4, 5}), std::vector<OxLong>(col->begin(), col->end()));
}

TEST(PrimitiveCollection, DuplicatesAreKept) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>();
    col->Add("x");
    col->Add("x");
    EXPECT_EQ(2, col->GetCount());
}

TEST(PrimitiveCollection, AddAtOutsideTheRangeIsRefusedAfterTheAddEvent) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    col->Add(1);
    CEventRecorder rec(&ReadAs<OxLong>);
    col->AddEventListener(&rec);
    EXPECT_COL_THROW(col->AddAt(2, 9), COxInvalidParamException, "Index out of range");
    EXPECT_COL_THROW(col->AddAt(-1, 8), COxInvalidParamException, "Index out of range");
    EXPECT_EQ(1, col->GetCount());
    EXPECT_EQ(1, col->Item(0));
    // Each failing add was heard, and nothing after it.
    ASSERT_EQ(2u, rec.m_events.size());
    EXPECT_EQ(IEventSink::MsgType_CollectionAdd, rec.m_events[0].eType);
    EXPECT_EQ("9", rec.m_events[0].strValue);
    EXPECT_EQ(IEventSink::MsgType_CollectionAdd, rec.m_events[1].eType);
    EXPECT_EQ("8", rec.m_events[1].strValue);
}

TEST(PrimitiveCollection, ItemOutsideTheRangeNamesTheHighestIndex) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    for (int i = 0; i < 3; ++i) col->Add(i);
    CEventRecorder rec;
    col->AddEventListener(&rec);
    EXPECT_COL_THROW(col->Item(-1), COxInvalidParamException, "Index -1 is out of range, use 0 - 2");
    EXPECT_COL_THROW(col->Item(3), COxInvalidParamException, "Index 3 is out of range, use 0 - 2");
    EXPECT_TRUE(rec.m_events.empty());
    CSmartPtr<CTestable<Ci4Col>> empty = MakeCol<Ci4Col>();
    EXPECT_COL_THROW(empty->Item(0), COxInvalidParamException, "Index 0 is out of range, use 0 - -1");
}

TEST(PrimitiveCollection, ItemIsACopy) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>();
    col->Add("abc");
    std::string copy = col->Item(0);
    copy[0] = 'x';
    EXPECT_EQ("abc", col->Item(0));
}

TEST(PrimitiveCollection, RemoveErasesTheIndexedItem) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    for (int i = 0; i < 4; ++i) col->Add(i);
    col->Remove(1);
    col->Remove(2);
    EXPECT_EQ((std::vector<OxLong>{0, 2}), std::vector<OxLong>(col->begin(), col->end()));
}

TEST(PrimitiveCollection, IteratorsWriteWithoutChecksOrEvents) {
    CSmartPtr<CTestable<Cui2Col>> col = MakeCol<Cui2Col>();
    col->Add(1);
    col->Add(2);
    CEventRecorder rec;
    col->AddEventListener(&rec);
    for (Cui2Col::iterator it = col->begin(); it != col->end(); ++it) *it = static_cast<uint16_t>(*it * 10);
    EXPECT_EQ(10, col->Item(0));
    EXPECT_EQ(20, col->Item(1));
    EXPECT_TRUE(rec.m_events.empty());
    const Cui2Col& constCol = *col;
    EXPECT_EQ(2, constCol.end() - constCol.begin());
}

// --- events ------------------------------------------------------------------------------------

TEST(PrimitiveCollectionEvents, AddFiresAddAddCompleteChange) {
    CSmartPtr<CTestable<Ci8Col>> col = MakeCol<Ci8Col>();
    col->Add(10);
    CEventRecorder rec(&ReadAs<int64_t>);
    col->AddEventListener(&rec);
    std::vector<int> counts;
    rec.m_onEvent = [&](const SEvent&) { counts.push_back(col->GetCount()); };
    col->AddAt(0, -7);
    ASSERT_EQ(3u, rec.m_events.size());
    EXPECT_EQ((std::vector<int>{1, 2, 0}), rec.Types());
    EXPECT_EQ("-7", rec.m_events[0].strValue);
    EXPECT_EQ("-7", rec.m_events[1].strValue);
    EXPECT_EQ(nullptr, rec.m_events[2].pData);
    for (const SEvent& e : rec.m_events) EXPECT_EQ(col->GetBase(), e.pSource);
    // Add comes before the item is in, the other two after.
    EXPECT_EQ((std::vector<int>{1, 2, 2}), counts);
    // Add complete points at the stored item.
    EXPECT_EQ(static_cast<void*>(&*col->begin()), rec.m_events[1].pData);
}

TEST(PrimitiveCollectionEvents, StringAddEventsSeeTheValue) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>();
    CEventRecorder rec(&ReadAs<std::string>);
    col->AddEventListener(&rec);
    col->Add("a fairly long string that doesn't fit the small buffer");
    ASSERT_EQ(3u, rec.m_events.size());
    EXPECT_EQ("a fairly long string that doesn't fit the small buffer", rec.m_events[0].strValue);
    EXPECT_EQ("a fairly long string that doesn't fit the small buffer", rec.m_events[1].strValue);
}

TEST(PrimitiveCollectionEvents, BooleanAddEventsPointAtTheValue) {
    CSmartPtr<CTestable<CbooleanCol>> col = MakeCol<CbooleanCol>();
    CEventRecorder rec([](void* p) -> std::string { return *static_cast<bool*>(p) ? "true" : "false"; });
    col->AddEventListener(&rec);
    col->Add(true);
    col->Add(false);
    EXPECT_EQ((std::vector<int>{1, 2, 0, 1, 2, 0}), rec.Types());
    EXPECT_EQ("true", rec.m_events[0].strValue);
    EXPECT_EQ("true", rec.m_events[1].strValue);
    EXPECT_EQ("false", rec.m_events[3].strValue);
    EXPECT_EQ("false", rec.m_events[4].strValue);
}

TEST(PrimitiveCollectionEvents, RemoveFiresRemoveRemoveCompleteChangeWithTheIndex) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    for (int i = 0; i < 3; ++i) col->Add(i);
    CEventRecorder rec;
    col->AddEventListener(&rec);
    std::vector<int> counts;
    rec.m_onEvent = [&](const SEvent&) { counts.push_back(col->GetCount()); };
    col->Remove(1);
    EXPECT_EQ((std::vector<int>{3, 4, 0}), rec.Types());
    EXPECT_EQ("1", rec.m_events[0].strValue);
    EXPECT_EQ("1", rec.m_events[1].strValue);
    EXPECT_EQ(nullptr, rec.m_events[2].pData);
    EXPECT_EQ((std::vector<int>{3, 2, 2}), counts);
}

TEST(PrimitiveCollectionEvents, RemoveOutsideTheRangeIsHeardThenRefused) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    for (int i = 0; i < 3; ++i) col->Add(i);
    CEventRecorder rec;
    col->AddEventListener(&rec);
    EXPECT_COL_THROW(col->Remove(-1), COxInvalidParamException, "Index -1 is out of range, use 0 - 2");
    EXPECT_COL_THROW(col->Remove(3), COxInvalidParamException, "Index 3 is out of range, use 0 - 2");
    EXPECT_EQ(3, col->GetCount());
    ASSERT_EQ(2u, rec.m_events.size());
    // -1 travels as null data, any other index as a pointer to it.
    EXPECT_EQ(IEventSink::MsgType_CollectionRemove, rec.m_events[0].eType);
    EXPECT_EQ(nullptr, rec.m_events[0].pData);
    EXPECT_EQ(IEventSink::MsgType_CollectionRemove, rec.m_events[1].eType);
    EXPECT_EQ("3", rec.m_events[1].strValue);
}

TEST(PrimitiveCollectionEvents, RemoveOfIndexZeroPassesAPointerToZero) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    col->Add(5);
    CEventRecorder rec;
    col->AddEventListener(&rec);
    col->Remove(0);
    ASSERT_EQ(3u, rec.m_events.size());
    ASSERT_NE(nullptr, rec.m_events[0].pData);
    EXPECT_EQ("0", rec.m_events[0].strValue);
    ASSERT_NE(nullptr, rec.m_events[1].pData);
    EXPECT_EQ("0", rec.m_events[1].strValue);
}

TEST(PrimitiveCollectionEvents, ClearRemovesFromTheFrontOneByOne) {
    CSmartPtr<CTestable<Cr8Col>> col = MakeCol<Cr8Col>();
    for (int i = 0; i < 3; ++i) col->Add(i);
    CEventRecorder rec;
    col->AddEventListener(&rec);
    std::vector<std::string> firstItems;
    rec.m_onEvent = [&](const SEvent& e) {
        if (e.eType == IEventSink::MsgType_CollectionRemove) firstItems.push_back(std::to_string(*col->begin()));
    };
    col->Clear();
    EXPECT_EQ(0, col->GetCount());
    EXPECT_EQ((std::vector<int>{3, 4, 0, 3, 4, 0, 3, 4, 0}), rec.Types());
    for (const SEvent& e : rec.m_events) {
        if (e.eType != IEventSink::MsgType_CollectionChange) {
            EXPECT_EQ("0", e.strValue);
        }
    }
    EXPECT_EQ((std::vector<std::string>{"0.000000", "1.000000", "2.000000"}), firstItems);
}

TEST(PrimitiveCollectionEvents, ClearOfAnEmptyCollectionFiresNothing) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    CEventRecorder rec;
    col->AddEventListener(&rec);
    col->Clear();
    EXPECT_TRUE(rec.m_events.empty());
}

TEST(PrimitiveCollectionEvents, ReadingFiresTheEventsOfEachItem) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    CEventRecorder rec(&ReadAs<OxLong>);
    col->AddEventListener(&rec);
    ReadInto(col, "<p><v>4</v><v>5</v></p>");
    EXPECT_EQ((std::vector<int>{1, 2, 0, 1, 2, 0}), rec.Types());
    EXPECT_EQ("4", rec.m_events[0].strValue);
    EXPECT_EQ("5", rec.m_events[3].strValue);
}

// --- writing ------------------------------------------------------------------------------------

TEST(PrimitiveWriting, EachItemIsAnElementOfTheCollectionsName) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("amount");
    col->Add(1);
    col->Add(22);
    EXPECT_EQ("<p><amount>1</amount><amount>22</amount></p>", Written(col));
}

TEST(PrimitiveWriting, EmptyCollectionWritesNothing) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    EXPECT_EQ("<p/>", Written(col));
}

TEST(PrimitiveWriting, ItemsGoInTheCollectionsNamespaceNotTheArgument) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("v", "urn:items");
    col->Add(1);
    CTextStream stream;
    CXmlTextWriter writer(&stream);
    writer.StartDocument();
    writer.SetFormatted(false);
    writer.SetDefaultNamespace("urn:items");
    writer.WriteStartElement("p", "urn:items");
    col->ToXml_Int(&writer, false, "urn:other", DefaultCtx(), false);
    writer.WriteEndElement();
    writer.EndDocument();
    EXPECT_EQ("<p xmlns=\"urn:items\"><v>1</v></p>", std::string(stream.GetText()));
}

TEST(PrimitiveWriting, TooFewItemsAreRefusedBeforeAnyElementIsWritten) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("v", "", 3, -1);
    col->Add(1);
    col->Add(2);
    CWriterFixture w;
    std::string strBefore = w.Current();
    EXPECT_COL_THROW(col->ToXml_Int(&w.m_writer, false, "", DefaultCtx(), false), COxValidationException,
                     "The Minimum number of [v] elements allowed in this collection is 3");
    EXPECT_EQ(strBefore, w.Current());
}

TEST(PrimitiveWriting, TooManyItemsAreRefused) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>("s", "", 0, 1);
    col->Add("a");
    col->Add("b");
    CWriterFixture w;
    EXPECT_COL_THROW(col->ToXml_Int(&w.m_writer, false, "", DefaultCtx(), false), COxValidationException,
                     "The Maximum number of [s] elements allowed in this collection is 1");
}

TEST(PrimitiveWriting, ContextThatIgnoresCountsWritesAnyway) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("v", "", 3, -1);
    col->Add(1);
    CSerializationContext ctx;
    ctx.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ("<p><v>1</v></p>", Written(col, ctx));
}

TEST(PrimitiveWriting, StringsAreEscapedAndEmptyOnesSelfClose) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>();
    col->Add("a<b & c>d");
    col->Add("");
    col->Add(" keep ");
    EXPECT_EQ("<p><v>a&lt;b &amp; c&gt;d</v><v/><v> keep </v></p>", Written(col));
}

TEST(PrimitiveWriting, FloatsUseTheFormatOverride) {
    CSmartPtr<CTestable<Cr4Col>> r4 = MakeCol<Cr4Col>("v", "", 0, -1, kCollapse, "%.2f");
    r4->Add(1.5f);
    r4->Add(-0.125f);
    EXPECT_EQ("<p><v>1.50</v><v>-0.12</v></p>", Written(r4));
    CSmartPtr<CTestable<Cr8Col>> r8 = MakeCol<Cr8Col>("v", "", 0, -1, kCollapse, "%.3e");
    r8->Add(1234.5);
    EXPECT_EQ("<p><v>1.234e+03</v></p>", Written(r8));
}

TEST(PrimitiveWriting, FloatsWithoutOverrideUseTheDefaultPrecision) {
    CSmartPtr<CTestable<Cr4Col>> r4 = MakeCol<Cr4Col>("v", "", 0, -1, kCollapse, "");
    r4->Add(1.0f / 3.0f);
    EXPECT_EQ("<p><v>0.3333333</v></p>", Written(r4));
    CSmartPtr<CTestable<Cr8Col>> r8 = MakeCol<Cr8Col>();
    r8->Add(1.0 / 3.0);
    EXPECT_EQ("<p><v>0.3333333333333333</v></p>", Written(r8));
}

TEST(PrimitiveWriting, SpecialFloatsAreNamedEvenWithAFormat) {
    CSmartPtr<CTestable<Cr8Col>> col = MakeCol<Cr8Col>("v", "", 0, -1, kCollapse, "%.1f");
    col->Add(std::numeric_limits<double>::infinity());
    col->Add(-std::numeric_limits<double>::infinity());
    col->Add(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ("<p><v>INF</v><v>-INF</v><v>NaN</v></p>", Written(col));
}

// --- each kind written and read back -------------------------------------------------------------

TEST(PrimitiveKinds, Ci1Col) { ExpectWrittenAndReadBack<Ci1Col>({-128, 0, 127}, "<v>-128</v><v>0</v><v>127</v>"); }

TEST(PrimitiveKinds, Ci2Col) {
    ExpectWrittenAndReadBack<Ci2Col>({-32768, 7, 32767}, "<v>-32768</v><v>7</v><v>32767</v>");
}

TEST(PrimitiveKinds, Ci4Col) {
    ExpectWrittenAndReadBack<Ci4Col>({std::numeric_limits<OxLong>::min(), -1, std::numeric_limits<OxLong>::max()},
                                     "<v>-2147483648</v><v>-1</v><v>2147483647</v>");
}

TEST(PrimitiveKinds, Ci4ColHoldsThirtyTwoBits) {
    EXPECT_EQ(4u, sizeof(Ci4Col::ValueType));
    EXPECT_EQ(4u, sizeof(Cui4Col::ValueType));
    EXPECT_TRUE(std::is_signed<Ci4Col::ValueType>::value);
    EXPECT_FALSE(std::is_signed<Cui4Col::ValueType>::value);
}

TEST(PrimitiveKinds, Ci8Col) {
    ExpectWrittenAndReadBack<Ci8Col>({std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max()},
                                     "<v>-9223372036854775808</v><v>9223372036854775807</v>");
}

TEST(PrimitiveKinds, Cui1Col) { ExpectWrittenAndReadBack<Cui1Col>({0, 9, 255}, "<v>0</v><v>9</v><v>255</v>"); }

TEST(PrimitiveKinds, Cui2Col) { ExpectWrittenAndReadBack<Cui2Col>({0, 65535}, "<v>0</v><v>65535</v>"); }

TEST(PrimitiveKinds, Cui4Col) { ExpectWrittenAndReadBack<Cui4Col>({0, 4294967295u}, "<v>0</v><v>4294967295</v>"); }

TEST(PrimitiveKinds, Cui8Col) {
    ExpectWrittenAndReadBack<Cui8Col>({0, 18446744073709551615ull}, "<v>0</v><v>18446744073709551615</v>");
}

TEST(PrimitiveKinds, Cr4Col) {
    ExpectWrittenAndReadBack<Cr4Col>(
        {0.1f, -2.5f, 1e10f, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()},
        "<v>0.1</v><v>-2.5</v><v>1e+10</v><v>INF</v><v>NaN</v>");
}

TEST(PrimitiveKinds, Cr4ColWithFormat) {
    ExpectWrittenAndReadBack<Cr4Col>({1.5f, 100.0f}, "<v>1.500</v><v>100.000</v>", "%.3f");
}

TEST(PrimitiveKinds, Cr8Col) {
    ExpectWrittenAndReadBack<Cr8Col>({0.1, -2.5, 1e300, -std::numeric_limits<double>::infinity()},
                                     "<v>0.1</v><v>-2.5</v><v>1e+300</v><v>-INF</v>");
}

TEST(PrimitiveKinds, Cr8ColWithFormat) {
    ExpectWrittenAndReadBack<Cr8Col>({0.25, 1e6}, "<v>0.2500</v><v>1000000.0000</v>", "%.4f");
}

TEST(PrimitiveKinds, CstringCol) {
    ExpectWrittenAndReadBack<CstringCol>({"plain", "a & b", "<tag>"}, "<v>plain</v><v>a &amp; b</v><v>&lt;tag&gt;</v>");
}

TEST(PrimitiveKinds, CbooleanCol) {
    ExpectWrittenAndReadBack<CbooleanCol>({true, false, true}, "<v>true</v><v>false</v><v>true</v>");
}

TEST(PrimitiveKinds, BooleanTextFormsOnInput) {
    CSmartPtr<CTestable<CbooleanCol>> col = MakeCol<CbooleanCol>();
    ReadInto(col, "<p><v>1</v><v>0</v><v>TRUE</v><v>False</v><v> true </v></p>");
    EXPECT_EQ((std::vector<bool>{true, false, true, false, true}), std::vector<bool>(col->begin(), col->end()));
}

// --- reading runs ---------------------------------------------------------------------------------

TEST(PrimitiveReading, StopsAtTheFirstElementOfAnotherName) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    EXPECT_EQ("w", ReadInto(col, "<p><v>1</v><v>2</v><w>3</w><v>4</v></p>"));
    EXPECT_EQ((std::vector<OxLong>{1, 2}), std::vector<OxLong>(col->begin(), col->end()));
}

TEST(PrimitiveReading, NothingMatchingReturnsTheCursorUnmoved) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    EXPECT_EQ("w", ReadInto(col, "<p><w/><v>1</v></p>"));
    EXPECT_EQ(0, col->GetCount());
    EXPECT_EQ("(end)", ReadInto(col, "<p/>"));
    EXPECT_EQ(0, col->GetCount());
}

TEST(PrimitiveReading, CountLimitsAreNotTestedWhileReading) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("v", "", 3, 1);
    EXPECT_EQ("(end)", ReadInto(col, "<p><v>1</v><v>2</v></p>"));
    EXPECT_EQ(2, col->GetCount());
}

TEST(PrimitiveReading, ItemsAreAddedBehindThoseAlreadyHeld) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    col->Add(9);
    ReadInto(col, "<p><v>1</v></p>");
    EXPECT_EQ((std::vector<OxLong>{9, 1}), std::vector<OxLong>(col->begin(), col->end()));
}

TEST(PrimitiveReading, NamespaceMustMatchUnlessIgnored) {
    const char* const kXml = "<p xmlns:a=\"urn:a\"><a:v>1</a:v><v>2</v></p>";
    CSmartPtr<CTestable<Ci4Col>> inA = MakeCol<Ci4Col>("v", "urn:a");
    EXPECT_EQ("v", ReadInto(inA, kXml));
    EXPECT_EQ(1, inA->GetCount());

    CSmartPtr<CTestable<Ci4Col>> unqualified = MakeCol<Ci4Col>("v", "");
    EXPECT_EQ("v", ReadInto(unqualified, kXml));
    EXPECT_EQ(0, unqualified->GetCount());

    CSerializationContext ctx;
    ctx.SetIgnoreNamespaces(true);
    CSmartPtr<CTestable<Ci4Col>> any = MakeCol<Ci4Col>("v", "urn:b");
    EXPECT_EQ("(end)", ReadInto(any, kXml, ctx));
    EXPECT_EQ(2, any->GetCount());
}

TEST(PrimitiveReading, ARefusedTextStopsReadingAndKeepsWhatWasRead) {
    CSmartPtr<CTestable<Cui1Col>> col = MakeCol<Cui1Col>();
    EXPECT_COL_THROW(ReadInto(col, "<p><v>1</v><v>300</v><v>2</v></p>"), COxInvalidValueException,
                     "The value [300] is to large to fit in a ui1");
    ASSERT_EQ(1, col->GetCount());
    EXPECT_EQ(1, col->Item(0));
}

TEST(PrimitiveReading, TheWhitespaceRuleOfTheCollectionApplies) {
    const char* const kXml = "<p><v>  two\tblank  words </v></p>";
    CSmartPtr<CTestable<CstringCol>> preserved = MakeCol<CstringCol>("v", "", 0, -1, kPreserve);
    ReadInto(preserved, kXml);
    EXPECT_EQ("  two\tblank  words ", preserved->Item(0));
    CSmartPtr<CTestable<CstringCol>> replaced = MakeCol<CstringCol>("v", "", 0, -1, kReplace);
    ReadInto(replaced, kXml);
    EXPECT_EQ("  two blank  words ", replaced->Item(0));
    CSmartPtr<CTestable<CstringCol>> collapsed = MakeCol<CstringCol>("v", "", 0, -1, kCollapse);
    ReadInto(collapsed, kXml);
    EXPECT_EQ("two blank words", collapsed->Item(0));
}

TEST(PrimitiveReading, NumbersDependOnTheRuleToLoseTrailingBlanks) {
    CSmartPtr<CTestable<Ci4Col>> collapsed = MakeCol<Ci4Col>("v", "", 0, -1, kCollapse);
    ReadInto(collapsed, "<p><v> 42 </v></p>");
    EXPECT_EQ(42, collapsed->Item(0));
    CSmartPtr<CTestable<Ci4Col>> raw = MakeCol<Ci4Col>("v", "", 0, -1, kNone);
    EXPECT_COL_THROW(ReadInto(raw, "<p><v> 42 </v></p>"), COxInvalidValueException,
                     "The value [ 42 ] can not be converted to a i4");
}

// --- AddFromString --------------------------------------------------------------------------------

TEST(AddFromString, ConvertsWithTheRuleAndAppends) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>("v", "", 0, -1, kPreserve);
    col->AddFromString(" a  b ");
    col->AddFromString("x\r\ny");
    EXPECT_EQ(" a  b ", col->Item(0));
    EXPECT_EQ("x\ny", col->Item(1));
    CSmartPtr<CTestable<Cr8Col>> r8 = MakeCol<Cr8Col>();
    r8->AddFromString("-1.25e2");
    EXPECT_EQ(-125.0, r8->Item(0));
}

TEST(AddFromString, FiresTheEventsOfAnAdd) {
    CSmartPtr<CTestable<Ci2Col>> col = MakeCol<Ci2Col>();
    CEventRecorder rec(&ReadAs<int16_t>);
    col->AddEventListener(&rec);
    col->AddFromString("-3");
    EXPECT_EQ((std::vector<int>{1, 2, 0}), rec.Types());
    EXPECT_EQ("-3", rec.m_events[0].strValue);
}

TEST(AddFromString, RefusedSignedIntegers) {
    ExpectRefused<Ci1Col>("128", "The value [128] is to large to fit in a i1");
    ExpectRefused<Ci1Col>("x", "The value [x] can not be converted to a i4");
    ExpectRefused<Ci2Col>("-32769", "The value [-32769] is to large to fit in a i2");
    ExpectRefused<Ci4Col>("abc", "The value [abc] can not be converted to a i4");
    ExpectRefused<Ci4Col>("2147483648", "The value [2147483648] is to large to fit in a i4");
    ExpectRefused<Ci8Col>("1.5", "The value [1.5] can not be converted to a i8");
    ExpectRefused<Ci8Col>("9223372036854775808", "The value [9223372036854775808] is to large to fit in a i8");
}

TEST(AddFromString, RefusedUnsignedIntegers) {
    ExpectRefused<Cui1Col>("256", "The value [256] is to large to fit in a ui1");
    ExpectRefused<Cui2Col>("65536", "The value [65536] is to large to fit in a ui2");
    ExpectRefused<Cui4Col>("", "The value [] can not be converted to a ui4");
    ExpectRefused<Cui4Col>("4294967296", "The value [4294967296] is to large to fit in a ui4");
    ExpectRefused<Cui8Col>("1e3", "The value [1e3] can not be converted to a ui8");
    ExpectRefused<Cui8Col>("18446744073709551616", "The value [18446744073709551616] is to large to fit in a ui8");
}

TEST(AddFromString, RefusedFloatsAndBooleans) {
    ExpectRefused<Cr4Col>("1.0x", "The value [1.0x] can not be converted to a r4");
    ExpectRefused<Cr8Col>("", "The value [] can not be converted to a r8");
    ExpectRefused<CbooleanCol>(
        "yes",
        "A Boolean Value read from an XML document was invalid [yes]. Valid values are 'true', 'false', '1', or '0'");
}
