// Class-valued members: child objects that generated code pre-creates, that a factory makes,
// or whose class the document's xsi:type decides; real elements and model groups.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

#include "bindinghelpers.h"
#include "support/testclasses.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using namespace OrvexBindTest;
using OrvexTest::CStrictChoice;
using OrvexTest::CTestBag;
using OrvexTest::NoAttributes;
using OrvexTest::NoFacets;

namespace {

// A bag that counts its living instances and its stores per property, and whose reset
// pre-creates the children that generated code keeps in Mnd properties.
class CClsBag : public CTestBag {
public:
    CClsBag(CParentElementInfo* pParent, CElementInfo** ppElements, CAttributeInfo** ppAttributes,
            std::function<void(CClsBag&)> reset = nullptr, const char* pszName = nullptr)
        : CTestBag(pParent, ppElements, pszName), m_ppAttributes(ppAttributes), m_reset(std::move(reset)) {
        ++s_nAlive;
        ResetToDefaults();
    }
    ~CClsBag() override { --s_nAlive; }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_ppAttributes; }
    void ResetToDefaults() override {
        CTestBag::ResetToDefaults();
        m_stores.clear();
        if (m_reset) m_reset(*this);
    }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (!bRead) ++m_stores[nIndex];
        CTestBag::ExchangeProperty(nIndex, bRead, value);
    }
    CClsBag* Child(int nIndex) const {
        auto it = m_values.find(nIndex);
        return it == m_values.end() ? nullptr : dynamic_cast<CClsBag*>(it->second.GetXmlObject().Get());
    }
    std::string Text(int nIndex) const { return Has(nIndex) ? CTestBag::Text(nIndex) : "(unset)"; }

    CAttributeInfo** m_ppAttributes;
    std::function<void(CClsBag&)> m_reset;
    std::map<int, int> m_stores;
    static inline int s_nAlive = 0;
};

const auto kCollapse = CWhitespaceUtils::WhitespaceRule_collapse;
const char* const kXsi = "http://www.w3.org/2001/XMLSchema-instance";

// "Item": an element with an optional i4 V and an optional i4 attribute id.
CParentElementInfo g_itemInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Item", "", true, false, -1,
                              ItemType_invalid, nullptr, false);
CElementInfoSeqPrimOpt g_v("V", "", 0, false, ItemType_i4, nullptr, kCollapse, NoFacets(), nullptr);
CElementInfo* g_itemTable[] = {&g_v, nullptr};
CAttributeInfoPrimitive g_id("id", "", 5, true, ItemType_i4, nullptr, kCollapse, NoFacets(), nullptr);
CAttributeInfo* g_itemAttrs[] = {&g_id, nullptr};

// "Grp": a model group with an optional G and an attribute that lands on the enclosing element.
CParentElementInfo g_grpInfo(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, "Grp", "", false, false, -1,
                             ItemType_invalid, nullptr, false);
CElementInfoSeqPrimOpt g_g("G", "", 0, false, ItemType_string, nullptr, kCollapse, NoFacets(), nullptr);
CElementInfo* g_grpTable[] = {&g_g, nullptr};
CAttributeInfoPrimitive g_ga("ga", "", 5, true, ItemType_string, nullptr, kCollapse, NoFacets(), nullptr);
CAttributeInfo* g_grpAttrs[] = {&g_ga, nullptr};

// "Req": a model group that exists only with its mandatory R.
CParentElementInfo g_reqInfo(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, "Req", "", false, false, -1,
                             ItemType_invalid, nullptr, false);
CElementInfoSeqPrimMnd g_r("R", "", 0, false, ItemType_string, nullptr, kCollapse, NoFacets(), nullptr);
CElementInfo* g_reqTable[] = {&g_r, nullptr};

enum { kItem, kGrp, kReq, kOuter, kStrict, kTree };
int g_nFactoryCalls = 0;
CSmartPtr<CXmlObjectBase> MakeChild(int nId, const char* pszName);

// "Outer": a model group holding Req, which must consume, as its pre-created child.
CParentElementInfo g_outerInfo(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, "Outer", "", false, false,
                               -1, ItemType_invalid, nullptr, false);
CElementInfoSeqClsMnd g_outerReq("Req", "", 0, XmlElementType_PseudoElement, MakeChild, kReq, true);
CElementInfo* g_outerTable[] = {&g_outerReq, nullptr};

void Hold(CClsBag& bag, int nIndex, int nId) { bag.m_values[nIndex].SetXmlObject(MakeChild(nId, "").Get()); }

// The tree: Bag { Item (held), Grp (optional model group), Next (optional, another Bag) }.
CParentElementInfo g_bagInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Bag", "", false, false, -1,
                             ItemType_invalid, nullptr, false);
CElementInfoSeqClsMnd g_treeItem("Item", "", 0, XmlElementType_Element, MakeChild, kItem, false);
CElementInfoSeqClsOpt g_treeGrp("Grp", "", 1, XmlElementType_PseudoElement, MakeChild, kGrp);
CElementInfoSeqClsOpt g_treeNext("Next", "", 2, XmlElementType_Element, MakeChild, kTree);
CElementInfo* g_treeTable[] = {&g_treeItem, &g_treeGrp, &g_treeNext, nullptr};
void TreeReset(CClsBag& bag) { Hold(bag, 0, kItem); }

CSmartPtr<CXmlObjectBase> MakeChild(int nId, const char* pszName) {
    ++g_nFactoryCalls;
    switch (nId) {
        case kItem:
            return new CClsBag(&g_itemInfo, g_itemTable, g_itemAttrs);
        case kGrp:
            return new CClsBag(&g_grpInfo, g_grpTable, g_grpAttrs);
        case kReq:
            return new CClsBag(&g_reqInfo, g_reqTable, NoAttributes());
        case kOuter:
            return new CClsBag(&g_outerInfo, g_outerTable, NoAttributes(), [](CClsBag& b) { Hold(b, 0, kReq); });
        case kStrict:
            return new CStrictChoice();
        default:
            return new CClsBag(&g_bagInfo, g_treeTable, NoAttributes(), TreeReset, pszName);
    }
}

// The class an element's xsi:type names: only "Circle" is known, as an Item.
CSmartPtr<CXmlObjectBase> MakeByType(CXmlElement* pElement) {
    const std::string& strType = pElement->GetAttribute("type", kXsi);
    if (strType.substr(strType.find(':') + 1) != "Circle") return nullptr;
    return new CClsBag(&g_itemInfo, g_itemTable, g_itemAttrs);
}

CParentElementInfo g_seqBag(XmlElementGroupType_Sequence, XmlElementType_Element, "Bag", "", false, false, -1,
                            ItemType_invalid, nullptr, false);
CParentElementInfo g_allBag(XmlElementGroupType_All, XmlElementType_Element, "Bag", "", false, false, -1,
                            ItemType_invalid, nullptr, false);
CParentElementInfo g_choiceBag(XmlElementGroupType_Choice, XmlElementType_Element, "Bag", "", false, false, -1,
                               ItemType_invalid, nullptr, false);

std::string Doc(const std::string& strInner) {
    return "<Bag xmlns:xsi=\"" + std::string(kXsi) + "\"" + strInner + "</Bag>";
}

}  // namespace

TEST(ClassMembers, MandatoryModelGroupIsPresentWithoutContentAndTakesTheEnclosingAttributes) {
    CElementInfoSeqClsMnd grp("Grp", "", 1, XmlElementType_PseudoElement, MakeChild, kGrp, false);
    CElementInfoSeqPrimOpt z("Z", "", 2, false, ItemType_string, nullptr, kCollapse, NoFacets(), nullptr);
    CElementInfo* table[] = {&grp, &z, nullptr};
    const struct {
        const char* pszXml;
        const char* pszG;
        const char* pszGa;
        const char* pszZ;
    } rows[] = {
        {"<Bag ga=\"x\"/>", "(unset)", "x", "(unset)"},
        {"<Bag ga=\"x\"><Z>z</Z></Bag>", "(unset)", "x", "z"},
        {"<Bag><G>g</G><Z>z</Z></Bag>", "g", "(unset)", "z"},
        {"<Bag/>", "(unset)", "(unset)", "(unset)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszXml);
        CSmartPtr<CClsBag> bag = new CClsBag(&g_seqBag, table, NoAttributes(), [](CClsBag& b) { Hold(b, 1, kGrp); });
        bag->FromXml(row.pszXml, DefaultCtx());
        ASSERT_NE(bag->Child(1), nullptr);
        EXPECT_EQ(bag->Child(1)->Text(0), row.pszG);
        EXPECT_EQ(bag->Child(1)->Text(5), row.pszGa);
        EXPECT_EQ(bag->Text(2), row.pszZ);
        EXPECT_EQ(bag->m_stores.count(1), 0u);  // held in place, never stored back
        // The group's attribute goes back on the enclosing start tag, its element inside.
        EXPECT_EQ(Flat(bag), row.pszXml);
    }
}

TEST(ClassMembers, ModelGroupThatMustConsumeFailsOnlyInARealElement) {
    CElementInfoSeqClsMnd req("Req", "", 1, XmlElementType_PseudoElement, MakeChild, kReq, true);
    CElementInfo* table[] = {&req, nullptr};
    const char* const pszMissing = "Failed to find the required child element [Req].\nPath: /Bag";
    const struct {
        const char* pszXml;
        int nIgnore;
        const char* pszExpected;
    } rows[] = {
        {"<Bag/>", 0, pszMissing},
        {"<Bag><X/></Bag>", 0, pszMissing},
        {"<Bag><X/></Bag>", kUnknown, pszMissing},
        {"<Bag/>", kMissing, pszMissing},
        {"<Bag><R>r</R></Bag>", 0, "(no exception)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszXml);
        CSmartPtr<CClsBag> bag = new CClsBag(&g_seqBag, table, NoAttributes(), [](CClsBag& b) { Hold(b, 1, kReq); });
        const CSerializationContext ctx = Ignoring(row.nIgnore);
        Raised r = RaisedBy([&] { bag->FromXml(row.pszXml, ctx); });
        EXPECT_EQ(r.strMessage, row.pszExpected);
        EXPECT_EQ(r.strPath, r.strMessage == "(no exception)" ? "" : "/Bag");
    }
    CSmartPtr<CClsBag> bag = new CClsBag(&g_seqBag, table, NoAttributes(), [](CClsBag& b) { Hold(b, 1, kReq); });
    bag->FromXml("<Bag><R>r</R></Bag>", DefaultCtx());
    EXPECT_EQ(bag->Child(1)->Text(0), "r");
}

TEST(ClassMembers, OptionalModelGroupThatConsumesNothingIsDroppedAndFreed) {
    // Outer holds Req, which must consume: inside Outer it only answers no, so Outer reads
    // nothing, its property stays null and both objects the factory made are gone.
    CElementInfoSeqClsOpt outer("Outer", "", 1, XmlElementType_PseudoElement, MakeChild, kOuter);
    CElementInfoSeqPrimOpt other("Other", "", 2, false, ItemType_string, nullptr, kCollapse, NoFacets(), nullptr);
    CElementInfo* table[] = {&outer, &other, nullptr};
    CSmartPtr<CClsBag> bag = new CClsBag(&g_seqBag, table, NoAttributes());
    const int nAlive = CClsBag::s_nAlive;
    g_nFactoryCalls = 0;
    bag->FromXml("<Bag><Other>o</Other></Bag>", DefaultCtx());
    EXPECT_EQ(g_nFactoryCalls, 3);  // Outer, and the Req it pre-creates when made and when reset
    EXPECT_EQ(CClsBag::s_nAlive, nAlive);
    EXPECT_FALSE(bag->Has(1));
    EXPECT_EQ(bag->Text(2), "o");

    bag->FromXml("<Bag><R>r</R><Other>o</Other></Bag>", DefaultCtx());
    ASSERT_NE(bag->Child(1), nullptr);
    EXPECT_EQ(bag->Child(1)->Child(0)->Text(0), "r");
    EXPECT_EQ(CClsBag::s_nAlive, nAlive + 2);
    EXPECT_EQ(Flat(bag), "<Bag><R>r</R><Other>o</Other></Bag>");
}

TEST(ClassMembers, ChoiceModelGroupThatConsumesNothingStoresThenTakesItsSelectionBack) {
    CElementInfoChoiceClsOpt grp("Grp", "", 0, XmlElementType_PseudoElement, MakeChild, kGrp);
    CElementInfoChoicePrimOpt y("Y", "", 1, false, ItemType_i4, nullptr, kCollapse, NoFacets(), nullptr);
    CElementInfo* table[] = {&grp, &y, nullptr};
    CSmartPtr<CClsBag> bag = new CClsBag(&g_choiceBag, table, NoAttributes());
    const int nAlive = CClsBag::s_nAlive;

    bag->FromXml("<Bag><Y>1</Y></Bag>", DefaultCtx());
    EXPECT_EQ(bag->m_stores[0], 2);
    EXPECT_EQ(bag->Child(0), nullptr);
    EXPECT_EQ(bag->m_stores[1], 1);
    EXPECT_EQ(CClsBag::s_nAlive, nAlive);

    bag->FromXml("<Bag><G>g</G></Bag>", DefaultCtx());
    EXPECT_EQ(bag->m_stores[0], 1);
    EXPECT_EQ(bag->m_stores.count(1), 0u);
    ASSERT_NE(bag->Child(0), nullptr);
    EXPECT_EQ(bag->Child(0)->Text(0), "g");
}

TEST(ClassMembers, ChosenClassMemberMayItselfBeAnEmptyChoice) {
    // Read or written on its own, an empty CStrictChoice is an error; chosen in a choice, it isn't.
    CSmartPtr<CStrictChoice> alone = new CStrictChoice();
    EXPECT_EQ(Thrown([&] { alone->FromXml("<StrictChoice/>", DefaultCtx()); }),
              "No child elements within the element [StrictChoice] were populated. The element represents a choice, "
              "so one and only one element should be populated. The element contained no sutable child "
              "elements\nPath: /StrictChoice");
    EXPECT_NE(Thrown([&] { Flat(alone); }), "(no exception)");

    CElementInfoChoiceClsOpt strict("StrictChoice", "", 0, XmlElementType_Element, MakeChild, kStrict);
    CElementInfoChoicePrimOpt y("Y", "", 1, false, ItemType_i4, nullptr, kCollapse, NoFacets(), nullptr);
    CElementInfo* table[] = {&strict, &y, nullptr};
    CSmartPtr<CClsBag> bag = new CClsBag(&g_choiceBag, table, NoAttributes());
    bag->FromXml("<Bag><StrictChoice/></Bag>", DefaultCtx());
    EXPECT_NE(dynamic_cast<CStrictChoice*>(bag->m_values.at(0).GetXmlObject().Get()), nullptr);
    EXPECT_EQ(bag->m_stores[0], 1);
    EXPECT_EQ(Flat(bag), "<Bag><StrictChoice/></Bag>");
}

TEST(ClassMembers, DocumentTypedMembersRefuseATypeTheFactoryDoesNotKnow) {
    CElementInfoSeqAbsClsMnd seqMnd("Shape", "", 0, XmlElementType_Element, MakeByType);
    CElementInfoSeqAbsClsOpt seqOpt("Shape", "", 0, XmlElementType_Element, MakeByType);
    CElementInfoAllAbsClsMnd allMnd("Shape", "", 0, XmlElementType_Element, MakeByType, 0);
    CElementInfoChoiceAbsClsOpt choice("Shape", "", 0, XmlElementType_Element, MakeByType);
    CElementInfo* seqMndTable[] = {&seqMnd, nullptr};
    CElementInfo* seqOptTable[] = {&seqOpt, nullptr};
    CElementInfo* allTable[] = {&allMnd, nullptr};
    CElementInfo* choiceTable[] = {&choice, nullptr};
    const std::string strSquare = Doc("><Shape xsi:type=\"Square\"/>");
    const std::string strCircle = Doc("><Shape xsi:type=\"t:Circle\" xmlns:t=\"urn:t\"><V>2</V></Shape>");
    const char* const pszNoSubstitute = "Failed to find a suitable substitution element for [Shape].\nPath: /Bag";
    const struct {
        CParentElementInfo* pInfo;
        CElementInfo** ppTable;
        std::string strXml;
        int nIgnore;
        std::string strExpected;
        int nStores;
    } rows[] = {
        {&g_seqBag, seqMndTable, strSquare, 0, pszNoSubstitute, 0},
        // The tolerance settings are not consulted for a missing substitute.
        {&g_seqBag, seqMndTable, strSquare, kUnknown, pszNoSubstitute, 0},
        {&g_seqBag, seqMndTable, "<Bag/>", kMissing, pszNoSubstitute, 0},
        {&g_seqBag, seqMndTable, strCircle, 0, "(no exception)", 1},
        {&g_seqBag, seqOptTable, strSquare, 0, Unexpected("Bag", "Shape", "/Bag"), 0},
        {&g_seqBag, seqOptTable, strSquare, kUnknown, "(no exception)", 0},
        {&g_allBag, allTable, strSquare, 0,
         "Failed to process the element.\nPath: /Bag\nFailed to find the mandatory element [Shape].", 0},
        {&g_allBag, allTable, strCircle, 0, "(no exception)", 1},
        // A choice stores what the factory gave, null included, before it answers.
        {&g_choiceBag, choiceTable, strSquare, 0, Unexpected("Bag", "Shape", "/Bag"), 1},
        {&g_choiceBag, choiceTable, strCircle, 0, "(no exception)", 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.strXml + " ignoring " + std::to_string(row.nIgnore));
        CSmartPtr<CClsBag> bag = new CClsBag(row.pInfo, row.ppTable, NoAttributes());
        const CSerializationContext ctx = Ignoring(row.nIgnore);
        EXPECT_EQ(RaisedBy([&] { bag->FromXml(row.strXml.c_str(), ctx); }).strMessage, row.strExpected);
        EXPECT_EQ(bag->m_stores[0], row.nStores);
        if (row.strExpected == "(no exception)" && row.nStores) {
            EXPECT_EQ(bag->Child(0)->Text(0), "2");
            EXPECT_EQ(Flat(bag), "<Bag><Shape><V>2</V></Shape></Bag>");
        }
    }
}

TEST(ClassMembers, MissingMandatoryChildElement) {
    CElementInfoSeqClsMnd seqItem("Item", "", 0, XmlElementType_Element, MakeChild, kItem, false);
    CElementInfoAllClsMnd allItem("Item", "", 0, XmlElementType_Element, MakeChild, kItem, false);
    CElementInfoAllClsMnd allGrp("Grp", "", 0, XmlElementType_PseudoElement, MakeChild, kGrp, false);
    CElementInfo* seqTable[] = {&seqItem, nullptr};
    CElementInfo* allItemTable[] = {&allItem, nullptr};
    CElementInfo* allGrpTable[] = {&allGrp, nullptr};
    const char* const pszMissing = "Failed to find the required child element [Item].\nPath: /Bag";
    const struct {
        CParentElementInfo* pInfo;
        CElementInfo** ppTable;
        int nHeld;
        const char* pszXml;
        int nIgnore;
        const char* pszExpected;
        const char* pszId;
    } rows[] = {
        {&g_seqBag, seqTable, kItem, "<Bag/>", 0, pszMissing, "(unset)"},
        {&g_seqBag, seqTable, kItem, "<Bag><X/></Bag>", kUnknown, pszMissing, "(unset)"},
        {&g_seqBag, seqTable, kItem, "<Bag/>", kMissing, "(no exception)", "(unset)"},
        {&g_seqBag, seqTable, kItem, "<Bag><X/><Item id=\"1\"/></Bag>", kUnknown, "(no exception)", "1"},
        // In an All group only a model group (or a member that must consume) is missed.
        {&g_allBag, allItemTable, kItem, "<Bag/>", 0, "(no exception)", "(unset)"},
        {&g_allBag, allItemTable, kItem, "<Bag><Item id=\"2\"/></Bag>", 0, "(no exception)", "2"},
        {&g_allBag, allGrpTable, kGrp, "<Bag/>", 0,
         "Failed to process the element.\nPath: /Bag\nFailed to find the mandatory element [Grp].", "(unset)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszXml);
        const int nHeld = row.nHeld;
        CSmartPtr<CClsBag> bag =
            new CClsBag(row.pInfo, row.ppTable, NoAttributes(), [nHeld](CClsBag& b) { Hold(b, 0, nHeld); });
        const CSerializationContext ctx = Ignoring(row.nIgnore);
        EXPECT_EQ(RaisedBy([&] { bag->FromXml(row.pszXml, ctx); }).strMessage, row.pszExpected);
        EXPECT_EQ(bag->Child(0)->Text(5), row.pszId);
    }
}

TEST(ClassMembers, WritingRefusesANullMandatoryChildAndAPropertyOfTheWrongKind) {
    CElementInfoSeqClsMnd seqMnd("Item", "", 0, XmlElementType_Element, MakeChild, kItem, false);
    CElementInfoSeqAbsClsMnd seqAbs("Item", "", 0, XmlElementType_Element, MakeByType);
    CElementInfoAllClsMnd allMnd("Item", "", 0, XmlElementType_Element, MakeChild, kItem, true);
    CElementInfoAllAbsClsMnd allAbs("Item", "", 0, XmlElementType_Element, MakeByType, 0);
    CElementInfoSeqClsOpt seqOpt("Item", "", 0, XmlElementType_Element, MakeChild, kItem);
    CElementInfoChoiceClsCol choiceCol("Item", "", 0, XmlElementType_PseudoElement);
    const std::string strNull = "The Property [Item] is mandatory, it may not be NULL";
    const std::string strNoObject =
        "Serialization Data Error : The property of [Item] should hold an object, it did not!";
    const std::string strNoCollection =
        "Serialization Data Error : The property of [Item] should hold a collection, it did not!";
    const struct {
        CParentElementInfo* pInfo;
        CElementInfo* pMember;
        std::function<void(OxVariant&)> fill;
        std::string strInner;
        bool bParam;
    } rows[] = {
        {&g_seqBag, &seqMnd, [](OxVariant&) {}, strNull, true},
        {&g_seqBag, &seqAbs, [](OxVariant& v) { v.SetXmlObject(nullptr); }, strNull, true},
        {&g_allBag, &allMnd, [](OxVariant&) {}, strNull, true},
        {&g_allBag, &allAbs, [](OxVariant&) {}, strNull, true},
        {&g_seqBag, &seqOpt, [](OxVariant& v) { v.SetString("text"); }, strNoObject, false},
        // The pseudo collection's attributes are asked for before anything else is written.
        {&g_choiceBag, &choiceCol, [](OxVariant& v) { v.SetXmlObject(MakeChild(kItem, "").Get()); }, strNoCollection,
         false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.strInner);
        CElementInfo* table[] = {row.pMember, nullptr};
        CSmartPtr<CClsBag> bag = new CClsBag(row.pInfo, table, NoAttributes());
        row.fill(bag->m_values[0]);
        try {
            Flat(bag);
            ADD_FAILURE() << "no exception";
        } catch (const COxException& e) {
            const COxException* pCause = &e;
            while (pCause->GetInnerException()) pCause = pCause->GetInnerException();
            EXPECT_EQ(pCause->GetMessage(), row.strInner);
            EXPECT_EQ(dynamic_cast<const COxInvalidParamException*>(pCause) != nullptr, row.bParam);
        }
    }
}

TEST(ClassMembers, EmptyChoiceOfCollectionsIsJudgedByTheirMinimum) {
    // Only the minimum of the collection is asked for here, so a string collection serves.
    CElementInfoChoiceClsCol cls("Item", "", 0, XmlElementType_Element);
    CElementInfoChoiceAbsClsCol abs("Item", "", 0, XmlElementType_Element);
    const std::string strEmpty =
        "No child elements within the element [Bag] were populated. The element represents a choice, so one and only "
        "one element should be populated. The element contained no sutable child elements\nPath: /Bag";
    const struct {
        CElementInfo* pMember;
        int nMin;
        std::function<void(OxVariant&, int)> fill;
        std::string strExpected;
    } rows[] = {
        {&cls, 0, nullptr, "(no exception)"},
        {&abs, 0, nullptr, "(no exception)"},
        {&cls, 1, nullptr, strEmpty},
        {&abs, 1, nullptr, strEmpty},
        {&cls, 0, [](OxVariant& v, int) { v.SetString("no collection"); },
         "Failed to process the element.\nPath: /Bag\nSerialization Data Error : The property of [Item] should hold "
         "a collection, it did not!"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.strExpected);
        CElementInfo* table[] = {row.pMember, nullptr};
        const int nMin = row.nMin;
        auto fill = row.fill;
        CSmartPtr<CClsBag> bag = new CClsBag(&g_choiceBag, table, NoAttributes(), [nMin, fill](CClsBag& b) {
            if (fill) return fill(b.m_values[0], nMin);
            b.m_values[0].SetXmlCollection(new CstringCol("Item", "", nMin, -1, nullptr, -1, -1, nullptr, nullptr,
                                                          nullptr, nullptr, -1, -1, -1, kCollapse, nullptr));
        });
        EXPECT_EQ(RaisedBy([&] { bag->FromXml("<Bag/>", DefaultCtx()); }).strMessage, row.strExpected);
    }
}

TEST(ClassMembers, TreeWithAModelGroupChildRoundTrips) {
    CSmartPtr<CClsBag> root = dynamic_cast<CClsBag*>(MakeChild(kTree, "Bag").Get());
    root->Child(0)->m_values[5].SetI4(3);
    root->Child(0)->m_values[0].SetI4(7);
    CSmartPtr<CXmlObjectBase> grp = MakeChild(kGrp, "");
    dynamic_cast<CClsBag*>(grp.Get())->m_values[5].SetString("x");
    dynamic_cast<CClsBag*>(grp.Get())->m_values[0].SetString("g");
    root->m_values[1].SetXmlObject(grp.Get());
    CSmartPtr<CXmlObjectBase> next = MakeChild(kTree, "Next");
    dynamic_cast<CClsBag*>(next.Get())->Child(0)->m_values[5].SetI4(4);
    root->m_values[2].SetXmlObject(next.Get());

    const std::string strXml = Flat(root);
    EXPECT_EQ(strXml, "<Bag ga=\"x\"><Item id=\"3\"><V>7</V></Item><G>g</G><Next><Item id=\"4\"/></Next></Bag>");
    CSmartPtr<CXmlObjectBase> again = MakeChild(kTree, "Other");
    again->FromXml(strXml.c_str(), DefaultCtx());
    EXPECT_EQ(Flat(again), strXml);
    CClsBag* pAgain = dynamic_cast<CClsBag*>(again.Get());
    EXPECT_EQ(pAgain->Child(1)->Text(5), "x");
    EXPECT_EQ(pAgain->Child(2)->Child(0)->Text(5), "4");
    EXPECT_FALSE(pAgain->Child(2)->Has(2));
}
