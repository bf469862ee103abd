#include <gtest/gtest.h>

#include <functional>

#include <orvexxml/orvexxml.h>

#include "orderstatus.h"
#include "selection.h"
#include "settings.h"
#include "support/testclasses.h"
#include "tally.h"

using namespace OrvexXml;
using namespace Samples;

namespace {

const CSerializationContext& DefaultCtx() { return CSerializationContext::GetDefaultContext(); }

std::string FullMessageOf(const std::function<void()>& fn) {
    try {
        fn();
    } catch (const COxException& e) {
        return e.GetFullMessage();
    }
    return "(no exception)";
}

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

TEST(SequenceMembers, EnumerationsAndCollectionsWriteInTableOrder) {
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
    // The default of an optional enumeration comes out as an empty element.
    tally->SetUrgency(Priority_normal);
    std::string xml = tally->ToXml(false, false, EOLType_LF, DefaultCtx());
    EXPECT_NE(xml.find("<Status>shipped</Status><Urgency/><Count>"), std::string::npos) << xml;
    CSerializationContext ctx;
    ctx.SetWriteDefaultElementValues(true);
    xml = tally->ToXml(false, false, EOLType_LF, ctx);
    EXPECT_NE(xml.find("<Urgency>normal</Urgency>"), std::string::npos) << xml;
}

TEST(SequenceMembers, RoundTripKeepsEveryItem) {
    CSmartPtr<CTally> tally = MakeTally();
    tally->SetUrgency(Priority_normal);
    std::string first = tally->ToXml(true, true, EOLType_LF, DefaultCtx());
    CSmartPtr<CTally> copy = CTally::CreateInstance();
    copy->FromXml(first.c_str(), DefaultCtx());
    EXPECT_EQ(copy->ToXml(true, true, EOLType_LF, DefaultCtx()), first);
    EXPECT_EQ(copy->GetStatus(), OrderStatus_shipped);
    EXPECT_TRUE(copy->IsValidUrgency());
    EXPECT_EQ(copy->GetUrgency(), Priority_normal);  // read back from the empty element
    ASSERT_EQ(copy->GetCount().GetCount(), 2);
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
    EXPECT_EQ(FullMessageOf([&] { tally->ToXml(false, false, EOLType_LF, DefaultCtx()); }),
              "Failed to convert the element [Tally] to XML\n"
              "The Minimum number of [Count] elements allowed in this collection is 1");
    CSerializationContext ignore;
    ignore.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ(tally->ToXml(false, false, EOLType_LF, ignore), "<Tally><Label>L</Label><Status>pending</Status></Tally>");

    const char* kNoCount = "<Tally><Label>L</Label><Status>pending</Status></Tally>";
    EXPECT_EQ(FullMessageOf([&] { tally->FromXml(kNoCount, DefaultCtx()); }),
              "Failed to process the element.\nPath: /Tally\n"
              "The Minimum number of [Count] elements allowed in this collection is 1");
    tally->FromXml(kNoCount, ignore);
    EXPECT_EQ(tally->GetCount().GetCount(), 0);

    for (int i = 0; i < 6; ++i) tally->GetWeight().Add(i);
    tally->GetCount().Add(1);
    EXPECT_EQ(FullMessageOf([&] { tally->ToXml(false, false, EOLType_LF, DefaultCtx()); }),
              "Failed to convert the element [Tally] to XML\n"
              "The Maximum number of [Weight] elements allowed in this collection is 5");
    std::string tooMany = tally->ToXml(false, false, EOLType_LF, ignore);
    EXPECT_EQ(FullMessageOf([&] { tally->FromXml(tooMany.c_str(), DefaultCtx()); }),
              "Failed to process the element.\nPath: /Tally\n"
              "The Maximum number of [Weight] elements allowed in this collection is 5");
}

TEST(SequenceMembers, EnumerationTextIsCheckedByTheGeneratedFunction) {
    CSmartPtr<CTally> tally = CTally::CreateInstance();
    EXPECT_EQ(FullMessageOf([&] {
                  tally->FromXml("<Tally><Label/><Status>lost</Status><Count>1</Count></Tally>", DefaultCtx());
              }),
              "Failed to process the element.\nPath: /Tally\nThe value [lost] is not a valid OrderStatus");
    // No default: the empty text goes to the generated function as it is.
    EXPECT_EQ(FullMessageOf([&] {
                  tally->FromXml("<Tally><Label/><Status/><Count>1</Count></Tally>", DefaultCtx());
              }),
              "Failed to process the element.\nPath: /Tally\nThe value [] is not a valid OrderStatus");
    // No whitespace rule for enumerations either.
    EXPECT_EQ(FullMessageOf([&] {
                  tally->FromXml("<Tally><Label/><Status> shipped</Status><Count>1</Count></Tally>", DefaultCtx());
              }),
              "Failed to process the element.\nPath: /Tally\nThe value [ shipped] is not a valid OrderStatus");
    // A missing mandatory enumeration is reported like any mandatory element.
    EXPECT_EQ(FullMessageOf([&] { tally->FromXml("<Tally><Label/><Count>1</Count></Tally>", DefaultCtx()); }),
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
    EXPECT_EQ(settings->ToXml(false, false, EOLType_LF, ctx),
              "<Settings xmlns=\"urn:orvex:samples:settings\"><Name>web</Name><Mode>high</Mode><Port>80</Port>"
              "<Port>443</Port><State>shipped</State></Settings>");
}

TEST(AllMembers, MandatoryMembersAndCountsAreChecked) {
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    EXPECT_EQ(FullMessageOf([&] {
                  settings->FromXml("<Settings xmlns='urn:orvex:samples:settings'><Name>x</Name><Port>1</Port>"
                                    "</Settings>",
                                    DefaultCtx());
              }),
              "Failed to process the element.\nPath: /Settings\nFailed to find the mandatory element [Mode].");
    EXPECT_EQ(FullMessageOf([&] {
                  settings->FromXml("<Settings xmlns='urn:orvex:samples:settings'><Name>x</Name><Mode>low</Mode>"
                                    "</Settings>",
                                    DefaultCtx());
              }),
              "Failed to process the element.\nPath: /Settings\n"
              "The Minimum number of [Port] elements allowed in this collection is 1");
    CSerializationContext ignore;
    ignore.SetIgnoreInvalidCollectionCounts(true);
    settings->FromXml("<Settings xmlns='urn:orvex:samples:settings'><Name>x</Name><Mode>low</Mode></Settings>", ignore);
    EXPECT_EQ(settings->GetPort().GetCount(), 0);

    settings->SetValidFallback(true);
    EXPECT_EQ(FullMessageOf([&] { settings->ToXml(false, false, EOLType_LF, DefaultCtx()); }),
              "Failed to convert the element [Settings] to XML\n"
              "The Minimum number of [Port] elements allowed in this collection is 1");
    settings->GetPort().Add(8080);
    std::string xml = settings->ToXml(false, false, EOLType_LF, DefaultCtx());
    EXPECT_NE(xml.find("<AA:Fallback>pending</AA:Fallback><AA:Port>8080</AA:Port>"), std::string::npos) << xml;
}

TEST(ChoiceMembers, TheCollectionThatConsumesElementsIsTheChoice) {
    CSmartPtr<CSelection> selection = CSelection::CreateInstance();
    selection->FromXml("<Selection><Word>a</Word><Word>b</Word></Selection>", DefaultCtx());
    EXPECT_EQ(selection->GetChoiceSelectedElement(), "Word");
    EXPECT_EQ(selection->GetWord().GetCount(), 2);
    EXPECT_EQ(selection->GetNumber().GetCount(), 0);
    EXPECT_EQ(selection->ToXml(false, false, EOLType_LF, DefaultCtx()),
              "<Selection><Word>a</Word><Word>b</Word></Selection>");

    // The chosen member's count is checked; the others are not.
    EXPECT_EQ(FullMessageOf([&] { selection->FromXml("<Selection><Status>shipped</Status></Selection>", DefaultCtx()); }),
              "Failed to process the element.\nPath: /Selection\n"
              "The Minimum number of [Status] elements allowed in this collection is 2");
    // One member per choice: a second one is left over.
    EXPECT_EQ(FullMessageOf([&] {
                  selection->FromXml("<Selection><Number>1</Number><Word>a</Word></Selection>", DefaultCtx());
              }),
              "Failed read all the elements held within the element [Selection]. The unexpected element [Word] "
              "remains un processed\nPath: /Selection");
}

TEST(ChoiceMembers, AChoiceOfNonEmptyCollectionsMustHaveOne) {
    CSmartPtr<CSelection> selection = CSelection::CreateInstance();
    EXPECT_EQ(FullMessageOf([&] { selection->FromXml("<Selection/>", DefaultCtx()); }),
              "No child elements within the element [Selection] were populated. The element represents a choice, "
              "so one and only one element should be populated. The element contained no sutable child "
              "elements\nPath: /Selection");
    EXPECT_EQ(FullMessageOf([&] { selection->ToXml(false, false, EOLType_LF, DefaultCtx()); }),
              "Failed to convert the element [Selection] to XML\n"
              "This element is a choice, and as such must have at one (and only one) valid item, currently there "
              "are none set");
    CSerializationContext ctx;
    ctx.SetIgnoreMissingChoice(true);
    selection->FromXml("<Selection/>", ctx);
    EXPECT_EQ(selection->ToXml(false, false, EOLType_LF, ctx), "<Selection/>");
}

TEST(ChoiceMembers, GeneratedSelectionFollowsTheCollections) {
    CSmartPtr<CSelection> selection = CSelection::CreateInstance();
    selection->GetNumber().Add(7);
    EXPECT_EQ(selection->GetChoiceSelectedElement(), "Number");
    EXPECT_EQ(FullMessageOf([&] { selection->GetWord().Add("w"); }),
              "The Property [Number] is already set. Only one element within this class bay be set at a time");
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
    EXPECT_EQ(pick->ToXml(false, false, EOLType_LF, DefaultCtx()), "<Pick><Level>high</Level></Pick>");
    pick->FromXml("<Pick><Note>n</Note></Pick>", DefaultCtx());
    EXPECT_FALSE(pick->Has(0));
    EXPECT_EQ(pick->Text(1), "n");
    pick->FromXml("<Pick><Level>low</Level></Pick>", DefaultCtx());
    EXPECT_EQ(pick->m_values[0].GetI4(), Priority_low);
    // An optional member makes an empty choice legal in both directions.
    pick->FromXml("<Pick/>", DefaultCtx());
    EXPECT_EQ(pick->ToXml(false, false, EOLType_LF, DefaultCtx()), "<Pick/>");
}

}  // namespace
