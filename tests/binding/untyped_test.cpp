// Untyped members: elements that the schema leaves open, held as CElement and CElementCol.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "bindinghelpers.h"
#include "envelope.h"
#include "support/testclasses.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using namespace OrvexBindTest;
using OrvexTest::CTestBag;

namespace {

// A bag whose reset puts fresh holders into the slots that generated code pre-creates (held
// elements and collections), and that counts the stores of the reading walk.
class CUntypedBag : public CTestBag {
public:
    CUntypedBag(CParentElementInfo* pParent, CElementInfo** ppElements, std::function<void(CUntypedBag&)> reset)
        : CTestBag(pParent, ppElements), m_reset(std::move(reset)), m_nStores(0) {
        ResetToDefaults();
    }
    void ResetToDefaults() override {
        CTestBag::ResetToDefaults();
        if (m_reset) m_reset(*this);
    }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (!bRead) ++m_nStores;
        CTestBag::ExchangeProperty(nIndex, bRead, value);
    }
    CElement* Element(int nIndex) const { return dynamic_cast<CElement*>(m_values.at(nIndex).GetXmlObject().Get()); }
    CElementCol* Elements(int nIndex) const {
        return dynamic_cast<CElementCol*>(m_values.at(nIndex).GetXmlCollection().Get());
    }

    std::function<void(CUntypedBag&)> m_reset;
    int m_nStores;
};

CParentElementInfo g_seq(XmlElementGroupType_Sequence, XmlElementType_Element, "Bag", "", true, false, -1,
                         ItemType_invalid, nullptr, false);
CParentElementInfo g_all(XmlElementGroupType_All, XmlElementType_Element, "Bag", "", true, false, -1, ItemType_invalid,
                         nullptr, false);
CParentElementInfo g_choice(XmlElementGroupType_Choice, XmlElementType_Element, "Bag", "", true, false, -1,
                            ItemType_invalid, nullptr, false);

// A mandatory element from urn:x only.
CElementInfoSeqUntpdMnd g_held("Held", "urn:x", 0, "urn:x", "");
CElementInfo* g_heldTable[] = {&g_held, nullptr};
void HeldReset(CUntypedBag& bag) { bag.m_values[0].SetXmlObject(new CElement("Held", "urn:x")); }

// Runs of named elements, then anything.
CElementInfoSeqUntpdCol g_stamps("Stamp", "", 0);
CElementInfoSeqUntpdCol g_rest("AnyElement", "", 1);
CElementInfo* g_runTable[] = {&g_stamps, &g_rest, nullptr};
void RunReset(CUntypedBag& bag) {
    bag.m_values[0].SetXmlCollection(new CElementCol("", "##any", "", 0, -1));
    bag.m_values[1].SetXmlCollection(new CElementCol("", "##any", "", 0, -1));
}

CElementInfoAllUntpdMnd g_allHeld("Held", "", 0, "##any", "");
CElementInfoAllUntpdOpt g_allOpt("Extra", "", 1, "##any", "");
CElementInfo* g_allTable[] = {&g_allHeld, &g_allOpt, nullptr};
void AllReset(CUntypedBag& bag) { bag.m_values[0].SetXmlObject(new CElement("Held")); }

CElementInfoChoiceUntpdOpt g_pickA("A", "", 0, "##any", "");
CElementInfoChoiceUntpdOpt g_pickB("B", "", 1, "##any", "");
CElementInfo* g_pickTable[] = {&g_pickA, &g_pickB, nullptr};

}  // namespace

TEST(Untyped, EnvelopeSortsOpenContentIntoItsMembersAndWritesItBackUnchanged) {
    const char* pszXml =
        "<e:Envelope xmlns:e=\"urn:orvex:samples:envelope\" xmlns:t=\"urn:trace\" t:id=\"7\" lang=\"de\">"
        "<e:Header>h</e:Header>"
        "<s:Signature xmlns:s=\"urn:orvex:sig2\" s:alg=\"x\"><s:Value>abc</s:Value></s:Signature>"
        "<e:Stamp>1</e:Stamp><e:Stamp>2</e:Stamp><Stamp>3</Stamp>"
        "<m:Order xmlns:m=\"urn:m\" m:id=\"5\">text<m:Line n=\"1\"><m:Sku>A-1</m:Sku></m:Line>tail</m:Order>"
        "</e:Envelope>";
    CSmartPtr<Samples::CEnvelope> env = Samples::CEnvelope::CreateInstance();
    env->FromXml(pszXml, DefaultCtx());

    ASSERT_EQ(env->GetAnyAttribute().GetCount(), 2);
    EXPECT_EQ(env->GetAnyAttribute().Item(0)->GetNamespace(), "urn:trace");
    EXPECT_EQ(env->GetAnyAttribute().Item(1)->GetValue(), "de");
    ASSERT_TRUE(env->GetSignature());
    EXPECT_EQ(env->GetSignature()->GetNamespace(), "urn:orvex:sig2");
    EXPECT_EQ(env->GetSignature()->GetChildElements()->Item(0)->GetText(), "abc");
    // The named run stops where the namespace changes; the wildcard takes the rest.
    EXPECT_EQ(env->GetStamp().GetCount(), 2);
    ASSERT_EQ(env->GetBody().GetCount(), 2);
    EXPECT_EQ(env->GetBody().Item(0)->GetName(), "Stamp");
    CSmartPtr<CElement> order = env->GetBody().Item(1);
    EXPECT_EQ(order->GetText(), "texttail");
    EXPECT_EQ(order->GetChildElements()->Item(0)->GetChildElements()->Item(0)->GetText(), "A-1");

    const std::string strFirst = Flat(env);
    CSmartPtr<Samples::CEnvelope> again = Samples::CEnvelope::CreateInstance();
    again->FromXml(strFirst.c_str(), DefaultCtx());
    EXPECT_EQ(Flat(again), strFirst);

    // Formatted, the indentation between children is no text of the open content: element
    // content reads back as it was, while mixed content takes the indentation in.
    const std::string strFormatted = again->ToXml(false, true, EOLType_LF, DefaultCtx());
    again->FromXml(strFormatted.c_str(), DefaultCtx());
    EXPECT_EQ(again->GetSignature()->GetText(), "");
    EXPECT_EQ(again->GetBody().Item(1)->GetChildElements()->Item(0)->GetText(), "");
    EXPECT_NE(again->GetBody().Item(1)->GetText(), "texttail");
}

TEST(Untyped, EnvelopeRefusesAnAttributeOfItsOwnNamespace) {
    CSmartPtr<Samples::CEnvelope> env = Samples::CEnvelope::CreateInstance();
    Raised r = RaisedBy([&] {
        env->FromXml("<e:Envelope xmlns:e=\"urn:orvex:samples:envelope\" e:id=\"1\"><e:Header/></e:Envelope>",
                     DefaultCtx());
    });
    EXPECT_EQ(r.strMessage, "Unexpected Attribute found.\nPath: /e:Envelope/e:@id");
    EXPECT_EQ(r.strPath, "/e:Envelope/e:@id");
}

TEST(Untyped, FailuresCarryTheirMessagesAndPaths) {
    struct Row {
        const char* pszCase;
        CParentElementInfo* pParent;
        CElementInfo** ppTable;
        void (*pfnReset)(CUntypedBag&);
        const char* pszXml;
        const char* pszMessage;
        const char* pszPath;
    } rows[] = {
        {"held, no element", &g_seq, g_heldTable, HeldReset, "<Bag/>",
         "Failed to find the required child element [Held].\nPath: /Bag", "/Bag"},
        {"held, namespace out of bounds", &g_seq, g_heldTable, HeldReset, "<Bag><Held xmlns=\"urn:y\"/></Bag>",
         "Failed to find the required element from namespace [urn:x].\nPath: /Bag", "/Bag"},
        {"held property null", &g_seq, g_heldTable, nullptr, "<Bag><Held xmlns=\"urn:x\"/></Bag>",
         "Failed to process the element.\nPath: /Bag\nThe Property [Held] is mandatory, it may not be NULL", "/Bag"},
        {"All member missing", &g_all, g_allTable, AllReset, "<Bag><Extra/></Bag>",
         "Failed to process the element.\nPath: /Bag\nFailed to find the mandatory element [Held].", "/Bag"},
        {"collection of another class", &g_seq, g_runTable,
         [](CUntypedBag& bag) {
             RunReset(bag);
             bag.m_values[0].SetXmlCollection(new CstringCol("Stamp", "", 0, -1, nullptr, -1, -1, nullptr, nullptr,
                                                             nullptr, nullptr, -1, -1, -1,
                                                             CWhitespaceUtils::WhitespaceRule_preserve, nullptr));
         },
         "<Bag><Stamp/></Bag>",
         "Failed to process the element.\nPath: /Bag\n"
         "Serialization Data Error : The collection should be a CElementCol, it was not!",
         "/Bag"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pszCase);
        CSmartPtr<CUntypedBag> bag = new CUntypedBag(row.pParent, row.ppTable, row.pfnReset);
        Raised r = RaisedBy([&] { bag->FromXml(row.pszXml, DefaultCtx()); });
        EXPECT_EQ(r.strMessage, row.pszMessage);
        EXPECT_EQ(r.strPath, row.pszPath);
    }
    // On writing, a held element that went missing is refused like any mandatory member.
    CSmartPtr<CUntypedBag> bag = new CUntypedBag(&g_seq, g_heldTable, nullptr);
    EXPECT_EQ(Thrown<COxValidationException>([&] { Flat(bag); }),
              "Failed to convert the element [Bag] to XML\nThe Property [Held] is mandatory, it may not be NULL");
}

TEST(Untyped, HeldAndCollectedElementsRoundTrip) {
    CSmartPtr<CUntypedBag> held = new CUntypedBag(&g_seq, g_heldTable, HeldReset);
    held->FromXml("<Bag><x:Held xmlns:x=\"urn:x\" a=\"1\">t<x:In/></x:Held></Bag>", DefaultCtx());
    EXPECT_EQ(Flat(held), "<Bag><AA:Held xmlns:AA=\"urn:x\" a=\"1\"><AA:In/>t</AA:Held></Bag>");
    EXPECT_EQ(held->m_nStores, 0);  // read in place, never stored

    CSmartPtr<CUntypedBag> runs = new CUntypedBag(&g_seq, g_runTable, RunReset);
    runs->FromXml("<Bag><Stamp>1</Stamp><Stamp>2</Stamp><q:Stamp xmlns:q=\"urn:q\"/><Stamp>4</Stamp></Bag>",
                  DefaultCtx());
    EXPECT_EQ(runs->Elements(0)->GetCount(), 2);
    EXPECT_EQ(runs->Elements(1)->GetCount(), 2);
    const std::string strText = Flat(runs);
    runs->FromXml(strText.c_str(), DefaultCtx());
    EXPECT_EQ(Flat(runs), strText);
}

TEST(Untyped, AllGroupTakesItsMembersInAnyOrder) {
    CSmartPtr<CUntypedBag> bag = new CUntypedBag(&g_all, g_allTable, AllReset);
    bag->FromXml("<Bag><Extra>e</Extra><Held>h</Held></Bag>", DefaultCtx());
    EXPECT_EQ(bag->Element(0)->GetText(), "h");
    EXPECT_EQ(bag->Element(1)->GetText(), "e");
    EXPECT_EQ(Flat(bag), "<Bag><Held>h</Held><Extra>e</Extra></Bag>");
}

TEST(Untyped, ChoiceMemberThatFindsNothingTakesItsSelectionBack) {
    CSmartPtr<CUntypedBag> bag = new CUntypedBag(&g_choice, g_pickTable, nullptr);
    bag->FromXml("<Bag><B>b</B></Bag>", DefaultCtx());
    // A finds nothing and clears its selection, then B stores: two calls, and A holds nothing.
    EXPECT_EQ(bag->m_nStores, 2);
    EXPECT_FALSE(bag->m_values.at(0).GetXmlObject());
    EXPECT_EQ(bag->Element(1)->GetText(), "b");
    EXPECT_EQ(Flat(bag), "<Bag><B>b</B></Bag>");
}
