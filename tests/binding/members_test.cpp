#include "bindinghelpers.h"
#include "orderstatus.h"
#include "selection.h"
#include "settings.h"
#include "support/testclasses.h"
#include "tally.h"

using namespace OrvexXml;
using namespace OrvexBindTest;
using namespace Samples;

namespace {

const std::string kTallyPath = "Failed to process the element.\nPath: /Tally\n";

CSmartPtr<CTally> MakeTally() {
    CSmartPtr<CTally> tally = CTally::CreateInstance();
    tally->SetLabel("L");
    tally->SetStatus(OrderStatus_shipped);
    tally->GetCount().Add(1);
    tally->GetCount().Add(-2);
    tally->GetWeight().Add(0.5);
    tally->GetTag().Add(" a ");
    tally->GetHistory().Add(OrderStatus_pending);
    tally->GetHistory().Add(OrderStatus_delivered);
    return tally;
}

TEST(SequenceMembers, EveryKindIsWrittenInTableOrderAndReadBack) {
    CSmartPtr<CTally> tally = MakeTally();
    tally->SetUrgency(Priority_high);
    EXPECT_EQ(tally->ToXml(false, true, EOLType_LF, DefaultCtx()),
              "<Tally>\n"
              "\t<Label>L</Label>\n"
              "\t<Status>shipped</Status>\n"
              "\t<Urgency>high</Urgency>\n"
              "\t<Count>1</Count>\n"
              "\t<Count>-2</Count>\n"
              "\t<Weight>0.50</Weight>\n"
              "\t<Tag> a </Tag>\n"
              "\t<History>pending</History>\n"
              "\t<History>delivered</History>\n"
              "</Tally>\n");
    // The default of an optional enumeration comes out as an empty element, or as its text on request.
    tally->SetUrgency(Priority_normal);
    std::string xml = Flat(tally);
    EXPECT_NE(xml.find("<Status>shipped</Status><Urgency/><Count>"), std::string::npos) << xml;
    CSerializationContext ctx;
    ctx.SetWriteDefaultElementValues(true);
    xml = Flat(tally, ctx);
    EXPECT_NE(xml.find("<Urgency>normal</Urgency>"), std::string::npos) << xml;

    std::string first = tally->ToXml(true, true, EOLType_LF, DefaultCtx());
    CSmartPtr<CTally> copy = CTally::CreateInstance();
    copy->FromXml(first.c_str(), DefaultCtx());
    EXPECT_EQ(copy->ToXml(true, true, EOLType_LF, DefaultCtx()), first);
    EXPECT_EQ(copy->GetStatus(), OrderStatus_shipped);
    EXPECT_TRUE(copy->IsValidUrgency());
    EXPECT_EQ(copy->GetUrgency(), Priority_normal);  // read back from the empty element
    EXPECT_EQ(copy->GetCount().Item(1), -2);
    EXPECT_EQ(copy->GetTag().Item(0), " a ");
    EXPECT_EQ(copy->GetHistory().Item(1), OrderStatus_delivered);
    // Reading again replaces the collections' content instead of adding to it.
    copy->FromXml(first.c_str(), DefaultCtx());
    EXPECT_EQ(copy->GetCount().GetCount(), 2);
}

TEST(SequenceMembers, OccurrenceLimitsOnWritingAndReading) {
    CSmartPtr<CTally> tally = CTally::CreateInstance();
    tally->SetLabel("L");
    const std::string kMinCount = "The Minimum number of [Count] elements allowed in this collection is 1";
    EXPECT_EQ(Thrown([&] { Flat(tally); }), "Failed to convert the element [Tally] to XML\n" + kMinCount);
    const char* kNoCount = "<Tally><Label>L</Label><Status>pending</Status></Tally>";
    EXPECT_EQ(Flat(tally, Ignoring(kCounts)), kNoCount);
    EXPECT_EQ(Thrown([&] { tally->FromXml(kNoCount, DefaultCtx()); }), kTallyPath + kMinCount);
    tally->FromXml(kNoCount, Ignoring(kCounts));
    EXPECT_EQ(tally->GetCount().GetCount(), 0);

    for (int i = 0; i < 6; ++i) tally->GetWeight().Add(i);
    tally->GetCount().Add(1);
    const std::string kMaxWeight = "The Maximum number of [Weight] elements allowed in this collection is 5";
    EXPECT_EQ(Thrown([&] { Flat(tally); }), "Failed to convert the element [Tally] to XML\n" + kMaxWeight);
    std::string tooMany = Flat(tally, Ignoring(kCounts));
    EXPECT_EQ(Thrown([&] { tally->FromXml(tooMany.c_str(), DefaultCtx()); }), kTallyPath + kMaxWeight);
    EXPECT_EQ(tally->GetWeight().GetCount(), 6);  // what was read is not rolled back
    tally->FromXml(tooMany.c_str(), Ignoring(kCounts));
    EXPECT_EQ(tally->GetWeight().GetCount(), 6);
}

TEST(SequenceMembers, EnumerationTextIsCheckedByTheGeneratedFunction) {
    CSmartPtr<CTally> tally = CTally::CreateInstance();
    // No default and no whitespace rule: the text goes to the generated function as it is.
    for (const char* pszText : {"lost", "", " shipped"}) {
        std::string xml = std::string("<Tally><Label/><Status>") + pszText + "</Status><Count>1</Count></Tally>";
        EXPECT_EQ(Thrown([&] { tally->FromXml(xml.c_str(), DefaultCtx()); }),
                  kTallyPath + "The value [" + pszText + "] is not a valid OrderStatus");
    }
    EXPECT_EQ(Thrown([&] { tally->FromXml("<Tally><Label/><Count>1</Count></Tally>", DefaultCtx()); }),
              "Failed to find the required child element [Status].\nPath: /Tally");
}

TEST(AllMembers, AnyOrderAndCollectionItemsSpreadAmongTheOthers) {
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    settings->FromXml(
        "<Settings xmlns='urn:orvex:samples:settings'><Port>80</Port><State>shipped</State><Mode>high</Mode>"
        "<Port>443</Port><Name>web</Name></Settings>",
        DefaultCtx());
    EXPECT_EQ(settings->GetName(), "web");
    EXPECT_EQ(settings->GetMode(), Priority_high);
    EXPECT_FALSE(settings->IsValidFallback());
    ASSERT_EQ(settings->GetPort().GetCount(), 2);
    EXPECT_EQ(settings->GetPort().Item(1), 443);
    EXPECT_EQ(settings->GetState().GetCount(), 1);
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI("urn:orvex:samples:settings");
    EXPECT_EQ(Flat(settings, ctx),
              "<Settings xmlns=\"urn:orvex:samples:settings\"><Name>web</Name><Mode>high</Mode><Port>80</Port>"
              "<Port>443</Port><State>shipped</State></Settings>");
}

TEST(AllMembers, MandatoryMembersAndCountsAreChecked) {
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    const std::string kSettings = "<Settings xmlns='urn:orvex:samples:settings'><Name>x</Name>";
    const std::string kPath = "Failed to process the element.\nPath: /Settings\n";
    const std::string kMinPort = "The Minimum number of [Port] elements allowed in this collection is 1";
    EXPECT_EQ(Thrown([&] { settings->FromXml((kSettings + "<Port>1</Port></Settings>").c_str(), DefaultCtx()); }),
              kPath + "Failed to find the mandatory element [Mode].");
    const std::string kNoPort = kSettings + "<Mode>low</Mode></Settings>";
    EXPECT_EQ(Thrown([&] { settings->FromXml(kNoPort.c_str(), DefaultCtx()); }), kPath + kMinPort);
    settings->FromXml(kNoPort.c_str(), Ignoring(kCounts));
    EXPECT_EQ(settings->GetPort().GetCount(), 0);

    settings->SetValidFallback(true);
    EXPECT_EQ(Thrown([&] { Flat(settings); }), "Failed to convert the element [Settings] to XML\n" + kMinPort);
    settings->GetPort().Add(8080);
    std::string xml = Flat(settings);
    EXPECT_NE(xml.find("<AA:Fallback>pending</AA:Fallback><AA:Port>8080</AA:Port>"), std::string::npos) << xml;
}

TEST(ChoiceMembers, TheCollectionThatConsumesElementsIsTheChoice) {
    CSmartPtr<CSelection> selection = CSelection::CreateInstance();
    selection->FromXml("<Selection><Word>a</Word><Word>b</Word></Selection>", DefaultCtx());
    EXPECT_EQ(selection->GetChoiceSelectedElement(), "Word");
    EXPECT_EQ(selection->GetWord().GetCount(), 2);
    EXPECT_EQ(selection->GetNumber().GetCount(), 0);
    EXPECT_EQ(Flat(selection), "<Selection><Word>a</Word><Word>b</Word></Selection>");
    // The chosen member's count is checked; the others are not.
    EXPECT_EQ(Thrown([&] { selection->FromXml("<Selection><Status>shipped</Status></Selection>", DefaultCtx()); }),
              "Failed to process the element.\nPath: /Selection\n"
              "The Minimum number of [Status] elements allowed in this collection is 2");
    // One member per choice: a second one is left over.
    EXPECT_EQ(
        Thrown([&] { selection->FromXml("<Selection><Number>1</Number><Word>a</Word></Selection>", DefaultCtx()); }),
        Unexpected("Selection", "Word", "/Selection"));
}

TEST(ChoiceMembers, AChoiceOfNonEmptyCollectionsMustHaveOne) {
    CSmartPtr<CSelection> selection = CSelection::CreateInstance();
    EXPECT_EQ(Thrown([&] { selection->FromXml("<Selection/>", DefaultCtx()); }),
              "No child elements within the element [Selection] were populated. The element represents a choice, "
              "so one and only one element should be populated. The element contained no sutable child "
              "elements\nPath: /Selection");
    EXPECT_EQ(Thrown([&] { Flat(selection); }),
              "Failed to convert the element [Selection] to XML\n"
              "This element is a choice, and as such must have at one (and only one) valid item, currently there "
              "are none set");
    selection->FromXml("<Selection/>", Ignoring(kChoice));
    EXPECT_EQ(Flat(selection, Ignoring(kChoice)), "<Selection/>");
}

TEST(ChoiceMembers, GeneratedSelectionFollowsTheCollections) {
    CSmartPtr<CSelection> selection = CSelection::CreateInstance();
    selection->GetNumber().Add(7);
    EXPECT_EQ(selection->GetChoiceSelectedElement(), "Number");
    EXPECT_EQ(Thrown([&] { selection->GetWord().Add("w"); }),
              "The Property [Number] is already set. Only one element within this class bay be set at a time");
    // The refused item is gone again, not kept for writing to drop; so in the generated
    // enumeration collection.
    EXPECT_EQ(selection->GetWord().GetCount(), 0);
    EXPECT_THROW(selection->GetStatus().Add(OrderStatus_shipped), COxException);
    EXPECT_EQ(selection->GetStatus().GetCount(), 0);
    EXPECT_EQ(Flat(selection), "<Selection><Number>7</Number></Selection>");
    selection->GetWord().Clear();
    selection->GetNumber().Clear();
    EXPECT_EQ(selection->GetChoiceSelectedElement(), "");
}

OrvexXmlData::CParentElementInfo g_pickParent(OrvexXmlData::XmlElementGroupType_Choice,
                                              OrvexXmlData::XmlElementType_Element, "Pick", "", true, false, -1,
                                              ItemType_invalid, nullptr, false);
OrvexXmlData::CElementInfoChoiceEnumOpt g_pickLevel("Level", "", 0, false, &Priority_EnumToText, &Priority_TextToEnum,
                                                    nullptr);
OrvexXmlData::CElementInfoChoicePrimOpt g_pickNote("Note", "", 1, false, ItemType_string, nullptr,
                                                   CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                   nullptr);
OrvexXmlData::CElementInfo* g_pickTable[] = {&g_pickLevel, &g_pickNote, nullptr};

TEST(ChoiceMembers, EnumerationMemberIsWrittenAndReadAndMakesTheChoiceOptional) {
    CSmartPtr<OrvexTest::CTestBag> pick = new OrvexTest::CTestBag(&g_pickParent, g_pickTable);
    pick->m_values[0].SetI4(Priority_high);
    EXPECT_EQ(Flat(pick), "<Pick><Level>high</Level></Pick>");
    pick->FromXml("<Pick><Note>n</Note></Pick>", DefaultCtx());
    EXPECT_FALSE(pick->Has(0));
    EXPECT_EQ(pick->Text(1), "n");
    pick->FromXml("<Pick><Level>low</Level></Pick>", DefaultCtx());
    EXPECT_EQ(pick->m_values[0].GetI4(), Priority_low);
    // An optional member makes an empty choice legal in both directions.
    pick->FromXml("<Pick/>", DefaultCtx());
    EXPECT_EQ(Flat(pick), "<Pick/>");
}

}  // namespace
