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

// Writes the values, compares the text with <p> + strItems + </p>, reads that text into a
// fresh collection of the same kind and expects the same values.
template <class TCol>
void ExpectWrittenAndReadBack(const std::vector<typename TCol::ValueType>& values, const std::string& strItems,
                              const char* pszFormat = nullptr) {
    SCOPED_TRACE(strItems);
    CSmartPtr<CTestable<TCol>> col = MakeCol<TCol>("v", "", 0, -1, kCollapse, pszFormat);
    for (const auto& value : values) col->Add(value);
    std::string strText = Written(col);
    EXPECT_EQ("<p>" + strItems + "</p>", strText);

    CSmartPtr<CTestable<TCol>> back = MakeCol<TCol>("v", "", 0, -1, kCollapse, pszFormat);
    EXPECT_EQ("(end)", ReadInto(back, strText));
    ASSERT_EQ(static_cast<int>(values.size()), back->GetCount());
    for (size_t i = 0; i < values.size(); ++i) {
        typename TCol::ValueType read = back->Item(static_cast<int>(i));
        if constexpr (std::is_floating_point<typename TCol::ValueType>::value) {
            if (std::isnan(values[i])) {
                EXPECT_TRUE(std::isnan(read)) << "item " << i;
                continue;
            }
        }
        EXPECT_EQ(values[i], read) << "item " << i;
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
    EXPECT_EQ("", rec.m_strLog);
}

}  // namespace

// --- insertion, removal and access ----------------------------------------------------------

TEST(PrimitiveCollection, AddAtInsertsBeforeTheIndexAndRemoveErasesIt) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    col->Add(2);  // on an empty collection: index 0
    col->Add(4);
    col->AddAt(1, 3);
    col->AddAt(0, 1);
    col->AddAt(col->GetCount(), 5);
    col->Add(5);  // duplicates are kept
    EXPECT_EQ((std::vector<OxLong>{1, 2, 3, 4, 5, 5}), Items(col));
    col->Remove(1);
    col->Remove(2);
    EXPECT_EQ((std::vector<OxLong>{1, 3, 5, 5}), Items(col));
    EXPECT_COL_THROW(col->Item(-1), COxInvalidParamException, "Index -1 is out of range, use 0 - 3");
    EXPECT_COL_THROW(col->Item(4), COxInvalidParamException, "Index 4 is out of range, use 0 - 3");
    CSmartPtr<CTestable<Ci4Col>> empty = MakeCol<Ci4Col>();
    EXPECT_COL_THROW(empty->Item(0), COxInvalidParamException, "Index 0 is out of range, use 0 - -1");
}

// --- events: "type:value#count" with 0 change, 1 add, 2 add complete, 3 remove, 4 remove complete

TEST(PrimitiveCollectionEvents, AddAndRemoveAreToldBeforeAndAfterTheChange) {
    CSmartPtr<CTestable<Ci8Col>> col = MakeCol<Ci8Col>();
    col->Add(10);
    CEventRecorder rec(&ReadAs<int64_t>, col);
    col->AddEventListener(&rec);
    col->AddAt(0, -7);
    EXPECT_EQ("1:-7#1 2:-7#2 0#2", rec.m_strLog);
    EXPECT_EQ(static_cast<void*>(&*col->begin()), rec.m_data[1]);  // add complete points at the stored item
    for (CXmlObjectBase* pSource : rec.m_sources) EXPECT_EQ(col->GetBase(), pSource);
    col->Add(3);
    rec.m_strLog.clear();
    col->Remove(1);
    col->Remove(0);
    EXPECT_EQ("3:1#3 4:1#2 0#2 3:0#2 4:0#1 0#1", rec.m_strLog);
}

TEST(PrimitiveCollectionEvents, AddEventsSeeStringsAndBooleans) {
    const std::string kLong = "a fairly long string that doesn't fit the small buffer";
    CSmartPtr<CTestable<CstringCol>> strings = MakeCol<CstringCol>();
    CEventRecorder stringRec(&ReadAs<std::string>);
    strings->AddEventListener(&stringRec);
    strings->Add(kLong);
    EXPECT_EQ("1:" + kLong + " 2:" + kLong + " 0", stringRec.m_strLog);

    CSmartPtr<CTestable<CbooleanCol>> booleans = MakeCol<CbooleanCol>();
    CEventRecorder boolRec(&ReadAs<bool>);
    booleans->AddEventListener(&boolRec);
    booleans->Add(true);
    booleans->Add(false);
    EXPECT_EQ("1:true 2:true 0 1:false 2:false 0", boolRec.m_strLog);
}

TEST(PrimitiveCollectionEvents, RefusedIndexesAreHeardBeforeTheyAreRefused) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>();
    for (int i = 0; i < 3; ++i) col->Add(i);
    CEventRecorder rec(&ReadAs<OxLong>);
    col->AddEventListener(&rec);
    EXPECT_COL_THROW(col->AddAt(4, 9), COxInvalidParamException, "Index out of range");
    EXPECT_COL_THROW(col->AddAt(-1, 8), COxInvalidParamException, "Index out of range");
    EXPECT_COL_THROW(col->Remove(-1), COxInvalidParamException, "Index -1 is out of range, use 0 - 2");
    EXPECT_COL_THROW(col->Remove(3), COxInvalidParamException, "Index 3 is out of range, use 0 - 2");
    EXPECT_EQ("1:9 1:8 3 3:3", rec.m_strLog);  // -1 travels as null data
    EXPECT_EQ((std::vector<OxLong>{0, 1, 2}), Items(col));
}

TEST(PrimitiveCollectionEvents, ClearRemovesFromTheFrontOneByOne) {
    CSmartPtr<CTestable<Cr8Col>> col = MakeCol<Cr8Col>();
    CEventRecorder rec(nullptr, col);
    col->AddEventListener(&rec);
    col->Clear();  // empty: nothing to tell
    EXPECT_EQ("", rec.m_strLog);
    for (int i = 0; i < 3; ++i) col->Add(i);
    rec.m_strLog.clear();
    std::string front;
    rec.m_onEvent = [&](IEventSink::MsgType type) {
        if (type == IEventSink::MsgType_CollectionRemove) front += std::to_string(static_cast<int>(*col->begin()));
    };
    col->Clear();
    EXPECT_EQ("3:0#3 4:0#2 0#2 3:0#2 4:0#1 0#1 3:0#1 4:0#0 0#0", rec.m_strLog);
    EXPECT_EQ("012", front);
}

TEST(InstanceCounting, EachTypedCollectionCountsUnderItsOwnName) {
    CInstanceMonitor::Cleanup();
    {
        CSmartPtr<CTestable<Ci4Col>> a = MakeCol<Ci4Col>();
        CSmartPtr<CTestable<Ci4Col>> b = MakeCol<Ci4Col>();
        CSmartPtr<CTestable<CbooleanCol>> c = MakeCol<CbooleanCol>();
        EXPECT_EQ(
            "Instances of classes still in existence/Total Number of instances created\n"
            "--> Ci4Col = 2/2\n"
            "--> CbooleanCol = 1/1",
            CInstanceMonitor::DumpState());
    }
    EXPECT_EQ(
        "Instances of classes still in existence/Total Number of instances created\n"
        "    Ci4Col = 0/2\n"
        "    CbooleanCol = 0/1",
        CInstanceMonitor::DumpState());
    CInstanceMonitor::Cleanup();
}

// --- writing --------------------------------------------------------------------------------

TEST(PrimitiveWriting, EachItemIsAnElementOfTheCollectionsNameAndNamespace) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("amount");
    EXPECT_EQ("<p/>", Written(col));
    col->Add(1);
    col->Add(22);
    EXPECT_EQ("<p><amount>1</amount><amount>22</amount></p>", Written(col));

    CSmartPtr<CTestable<CstringCol>> strings = MakeCol<CstringCol>();
    strings->Add("a<b & c>d");
    strings->Add("");
    strings->Add(" keep ");
    EXPECT_EQ("<p><v>a&lt;b &amp; c&gt;d</v><v/><v> keep </v></p>", Written(strings));

    // The items go in the collection's namespace, not in the one passed in.
    CSmartPtr<CTestable<Ci4Col>> qualified = MakeCol<Ci4Col>("v", "urn:items");
    qualified->Add(1);
    CWriterFixture w("urn:items");
    qualified->ToXml_Int(&w.m_writer, false, "urn:other", DefaultCtx(), false);
    EXPECT_EQ("<p xmlns=\"urn:items\"><v>1</v></p>", w.Finish());
}

TEST(PrimitiveWriting, CountsOutsideTheLimitsAreRefusedBeforeAnyElementIsWritten) {
    CSmartPtr<CTestable<Ci4Col>> tooFew = MakeCol<Ci4Col>("v", "", 3, -1);
    tooFew->Add(1);
    CWriterFixture w;
    std::string strBefore = w.m_stream.GetText();
    EXPECT_COL_THROW(tooFew->ToXml_Int(&w.m_writer, false, "", DefaultCtx(), false), COxValidationException,
                     "The Minimum number of [v] elements allowed in this collection is 3");
    EXPECT_EQ(strBefore, w.m_stream.GetText());
    EXPECT_EQ("<p><v>1</v></p>", Written(tooFew, IgnoringCounts()));

    CSmartPtr<CTestable<CstringCol>> tooMany = MakeCol<CstringCol>("s", "", 0, 1);
    tooMany->Add("a");
    tooMany->Add("b");
    EXPECT_COL_THROW(Written(tooMany), COxValidationException,
                     "The Maximum number of [s] elements allowed in this collection is 1");
    EXPECT_EQ("<p><s>a</s><s>b</s></p>", Written(tooMany, IgnoringCounts()));
}

TEST(PrimitiveWriting, FloatsUseTheFormatOverrideOrTheDefaultPrecision) {
    CSmartPtr<CTestable<Cr4Col>> r4 = MakeCol<Cr4Col>("v", "", 0, -1, kCollapse, "%.2f");
    r4->Add(1.5f);
    r4->Add(-0.125f);
    EXPECT_EQ("<p><v>1.50</v><v>-0.12</v></p>", Written(r4));
    CSmartPtr<CTestable<Cr8Col>> r8 = MakeCol<Cr8Col>("v", "", 0, -1, kCollapse, "%.3e");
    r8->Add(1234.5);
    EXPECT_EQ("<p><v>1.234e+03</v></p>", Written(r8));
    CSmartPtr<CTestable<Cr4Col>> r4Plain = MakeCol<Cr4Col>("v", "", 0, -1, kCollapse, "");
    r4Plain->Add(1.0f / 3.0f);
    EXPECT_EQ("<p><v>0.3333333</v></p>", Written(r4Plain));
    CSmartPtr<CTestable<Cr8Col>> r8Plain = MakeCol<Cr8Col>();
    r8Plain->Add(1.0 / 3.0);
    EXPECT_EQ("<p><v>0.3333333333333333</v></p>", Written(r8Plain));
    // Special values are named even with a format.
    CSmartPtr<CTestable<Cr8Col>> special = MakeCol<Cr8Col>("v", "", 0, -1, kCollapse, "%.1f");
    special->Add(std::numeric_limits<double>::infinity());
    special->Add(-std::numeric_limits<double>::infinity());
    special->Add(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ("<p><v>INF</v><v>-INF</v><v>NaN</v></p>", Written(special));
}

TEST(PrimitiveKinds, EachKindWritesItsTextAndReadsItBack) {
    ExpectWrittenAndReadBack<Ci1Col>({-128, 0, 127}, "<v>-128</v><v>0</v><v>127</v>");
    ExpectWrittenAndReadBack<Ci2Col>({-32768, 7, 32767}, "<v>-32768</v><v>7</v><v>32767</v>");
    ExpectWrittenAndReadBack<Ci4Col>({std::numeric_limits<OxLong>::min(), -1, std::numeric_limits<OxLong>::max()},
                                     "<v>-2147483648</v><v>-1</v><v>2147483647</v>");
    ExpectWrittenAndReadBack<Ci8Col>({std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max()},
                                     "<v>-9223372036854775808</v><v>9223372036854775807</v>");
    ExpectWrittenAndReadBack<Cui1Col>({0, 9, 255}, "<v>0</v><v>9</v><v>255</v>");
    ExpectWrittenAndReadBack<Cui2Col>({0, 65535}, "<v>0</v><v>65535</v>");
    ExpectWrittenAndReadBack<Cui4Col>({0, 4294967295u}, "<v>0</v><v>4294967295</v>");
    ExpectWrittenAndReadBack<Cui8Col>({0, 18446744073709551615ull}, "<v>0</v><v>18446744073709551615</v>");
    ExpectWrittenAndReadBack<Cr4Col>(
        {0.1f, -2.5f, 1e10f, std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()},
        "<v>0.1</v><v>-2.5</v><v>1e+10</v><v>INF</v><v>NaN</v>");
    ExpectWrittenAndReadBack<Cr4Col>({1.5f, 100.0f}, "<v>1.500</v><v>100.000</v>", "%.3f");
    ExpectWrittenAndReadBack<Cr8Col>({0.1, -2.5, 1e300, -std::numeric_limits<double>::infinity()},
                                     "<v>0.1</v><v>-2.5</v><v>1e+300</v><v>-INF</v>");
    ExpectWrittenAndReadBack<Cr8Col>({0.25, 1e6}, "<v>0.2500</v><v>1000000.0000</v>", "%.4f");
    ExpectWrittenAndReadBack<CstringCol>({"plain", "a & b", "<tag>"}, "<v>plain</v><v>a &amp; b</v><v>&lt;tag&gt;</v>");
    ExpectWrittenAndReadBack<CbooleanCol>({true, false, true}, "<v>true</v><v>false</v><v>true</v>");
    // The 32-bit kinds hold 32 bits on every platform.
    EXPECT_EQ(4u, sizeof(Ci4Col::ValueType));
    EXPECT_EQ(4u, sizeof(Cui4Col::ValueType));
    EXPECT_TRUE(std::is_signed<Ci4Col::ValueType>::value);
    EXPECT_FALSE(std::is_signed<Cui4Col::ValueType>::value);
}

// --- reading runs ---------------------------------------------------------------------------

TEST(PrimitiveReading, ARunEndsAtTheFirstElementOfAnotherName) {
    CSmartPtr<CTestable<Ci4Col>> col = MakeCol<Ci4Col>("v", "", 3, 1);  // limits are not tested while reading
    col->Add(9);                                                        // items go behind those already held
    CEventRecorder rec(&ReadAs<OxLong>);
    col->AddEventListener(&rec);
    EXPECT_EQ("w", ReadInto(col, "<p><v>1</v><v>2</v><w>3</w><v>4</v></p>"));
    EXPECT_EQ((std::vector<OxLong>{9, 1, 2}), Items(col));
    EXPECT_EQ("1:1 2:1 0 1:2 2:2 0", rec.m_strLog);  // each item is told like an add
    EXPECT_EQ("w", ReadInto(col, "<p><w/><v>1</v></p>"));
    EXPECT_EQ("(end)", ReadInto(col, "<p/>"));
    EXPECT_EQ(3, col->GetCount());

    CSmartPtr<CTestable<CbooleanCol>> booleans = MakeCol<CbooleanCol>();
    ReadInto(booleans, "<p><v>1</v><v>0</v><v>TRUE</v><v>False</v><v> true </v></p>");
    EXPECT_EQ((std::vector<bool>{true, false, true, false, true}), Items(booleans));
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

TEST(PrimitiveReading, TheWhitespaceRuleAppliesAndARefusedTextStopsReading) {
    const char* const kXml = "<p><v>  two\tblank  words </v></p>";
    const std::pair<CWhitespaceUtils::WhitespaceRule, const char*> rows[] = {
        {kPreserve, "  two\tblank  words "}, {kReplace, "  two blank  words "}, {kCollapse, "two blank words"}};
    for (const auto& row : rows) {
        CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>("v", "", 0, -1, row.first);
        ReadInto(col, kXml);
        EXPECT_EQ(row.second, col->Item(0));
    }
    CSmartPtr<CTestable<Ci4Col>> collapsed = MakeCol<Ci4Col>("v", "", 0, -1, kCollapse);
    ReadInto(collapsed, "<p><v> 42 </v></p>");
    EXPECT_EQ(42, collapsed->Item(0));
    CSmartPtr<CTestable<Ci4Col>> raw = MakeCol<Ci4Col>("v", "", 0, -1, kNone);
    EXPECT_COL_THROW(ReadInto(raw, "<p><v> 42 </v></p>"), COxInvalidValueException,
                     "The value [ 42 ] can not be converted to a i4");

    CSmartPtr<CTestable<Cui1Col>> bytes = MakeCol<Cui1Col>();
    EXPECT_COL_THROW(ReadInto(bytes, "<p><v>1</v><v>300</v><v>2</v></p>"), COxInvalidValueException,
                     "The value [300] is to large to fit in a ui1");
    EXPECT_EQ((std::vector<uint8_t>{1}), Items(bytes));  // what was read before stays
}

// --- AddFromString ----------------------------------------------------------------------------

TEST(AddFromString, ConvertsWithTheRuleAndAppendsLikeAnAdd) {
    CSmartPtr<CTestable<CstringCol>> col = MakeCol<CstringCol>("v", "", 0, -1, kPreserve);
    col->AddFromString(" a  b ");
    col->AddFromString("x\r\ny");
    EXPECT_EQ((std::vector<std::string>{" a  b ", "x\ny"}), Items(col));
    CSmartPtr<CTestable<Cr8Col>> r8 = MakeCol<Cr8Col>();
    r8->AddFromString("-1.25e2");
    EXPECT_EQ(-125.0, r8->Item(0));
    CSmartPtr<CTestable<Ci2Col>> i2 = MakeCol<Ci2Col>();
    CEventRecorder rec(&ReadAs<int16_t>);
    i2->AddEventListener(&rec);
    i2->AddFromString("-3");
    EXPECT_EQ("1:-3 2:-3 0", rec.m_strLog);
}

TEST(AddFromString, RefusedTextsNameTheKind) {
    ExpectRefused<Ci1Col>("128", "The value [128] is to large to fit in a i1");
    ExpectRefused<Ci1Col>("x", "The value [x] can not be converted to a i4");
    ExpectRefused<Ci2Col>("-32769", "The value [-32769] is to large to fit in a i2");
    ExpectRefused<Ci4Col>("abc", "The value [abc] can not be converted to a i4");
    ExpectRefused<Ci4Col>("2147483648", "The value [2147483648] is to large to fit in a i4");
    ExpectRefused<Ci8Col>("1.5", "The value [1.5] can not be converted to a i8");
    ExpectRefused<Ci8Col>("9223372036854775808", "The value [9223372036854775808] is to large to fit in a i8");
    ExpectRefused<Cui1Col>("256", "The value [256] is to large to fit in a ui1");
    ExpectRefused<Cui2Col>("65536", "The value [65536] is to large to fit in a ui2");
    ExpectRefused<Cui4Col>("", "The value [] can not be converted to a ui4");
    ExpectRefused<Cui4Col>("4294967296", "The value [4294967296] is to large to fit in a ui4");
    ExpectRefused<Cui8Col>("1e3", "The value [1e3] can not be converted to a ui8");
    ExpectRefused<Cui8Col>("18446744073709551616", "The value [18446744073709551616] is to large to fit in a ui8");
    ExpectRefused<Cr4Col>("1.0x", "The value [1.0x] can not be converted to a r4");
    ExpectRefused<Cr8Col>("", "The value [] can not be converted to a r8");
    ExpectRefused<CbooleanCol>(
        "yes",
        "A Boolean Value read from an XML document was invalid [yes]. Valid values are 'true', 'false', '1', or '0'");
}
