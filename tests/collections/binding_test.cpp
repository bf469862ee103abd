// Typed collections as members of a class in the shape of generated code: written and read
// through the element descriptions of a sequence, with their counts checked on both sides.
#include "collectiontesthelpers.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using namespace OrvexColTest;

namespace {

inline CAttributeInfo** NoAttributes() {
    static CAttributeInfo* s_table[1] = {nullptr};
    return s_table;
}

// <order> with one to three <qty> (xs:int) and any number of <note> (string, preserved).
class COrder : public CXmlGeneratedClass {
public:
    COrder()
        : m_qty(new Ci4Col("qty", "", 1, 3, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                           CWhitespaceUtils::WhitespaceRule_collapse, nullptr)),
          m_notes(new CstringCol("note", "", 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                                 CWhitespaceUtils::WhitespaceRule_preserve, nullptr)) {
        SetElementName("order");
    }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    std::string GetTargetNamespace() const override { return ""; }
    // A collection property hands out the collection; reading fills it in place.
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (bRead) value.SetXmlCollection(nIndex == 0 ? static_cast<CXmlCollectionBase*>(m_qty) : m_notes);
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override {
        m_qty->Clear();
        m_notes->Clear();
    }

    CSmartPtr<Ci4Col> m_qty;
    CSmartPtr<CstringCol> m_notes;

    static inline CParentElementInfo ms_parent{XmlElementGroupType_Sequence,
                                               XmlElementType_Element,
                                               "order",
                                               "",
                                               true,
                                               false,
                                               -1,
                                               ItemType_invalid,
                                               nullptr,
                                               false};
    static inline CElementInfoSeqPrimCol ms_qty{"qty", "", 0};
    static inline CElementInfoSeqPrimCol ms_note{"note", "", 1};
    static inline CElementInfo* ms_elements[3] = {&ms_qty, &ms_note, nullptr};
};

}  // namespace

TEST(CollectionMembers, AreWrittenItemByItemInTableOrder) {
    CSmartPtr<COrder> order = new COrder();
    order->m_qty->Add(1);
    order->m_qty->Add(-2);
    order->m_notes->Add(" a & b ");
    EXPECT_EQ("<order>\n\t<qty>1</qty>\n\t<qty>-2</qty>\n\t<note> a &amp; b </note>\n</order>\n",
              order->ToXml(false, true, EOLType_LF, DefaultCtx()));
}

TEST(CollectionMembers, ReadBackIntoTheCollectionsTheObjectHolds) {
    CSmartPtr<COrder> order = new COrder();
    Ci4Col* pQty = order->m_qty;
    order->m_qty->Add(99);  // replaced: reading resets the object first
    order->FromXml("<order><qty> 5 </qty><qty>6</qty><note> x </note><note/></order>", DefaultCtx());
    EXPECT_EQ(pQty, order->m_qty.Get());
    EXPECT_EQ((std::vector<OxLong>{5, 6}), std::vector<OxLong>(order->m_qty->begin(), order->m_qty->end()));
    ASSERT_EQ(2, order->m_notes->GetCount());
    EXPECT_EQ(" x ", order->m_notes->Item(0));
    EXPECT_EQ("", order->m_notes->Item(1));
}

TEST(CollectionMembers, BelowTheMinimumFailsOnWritingUnlessCountsAreIgnored) {
    CSmartPtr<COrder> order = new COrder();
    try {
        order->ToXml(false, false, EOLType_LF, DefaultCtx());
        FAIL() << "nothing thrown";
    } catch (const COxException& e) {
        EXPECT_EQ(
            "Failed to convert the element [order] to XML\n"
            "The Minimum number of [qty] elements allowed in this collection is 1",
            e.GetFullMessage());
    }
    CSerializationContext ctx;
    ctx.SetIgnoreInvalidCollectionCounts(true);
    order->m_notes->Add("n");
    EXPECT_EQ("<order><note>n</note></order>", order->ToXml(false, false, EOLType_LF, ctx));
}

TEST(CollectionMembers, AboveTheMaximumFailsOnReading) {
    CSmartPtr<COrder> order = new COrder();
    try {
        order->FromXml("<order><qty>1</qty><qty>2</qty><qty>3</qty><qty>4</qty></order>", DefaultCtx());
        FAIL() << "nothing thrown";
    } catch (const COxException& e) {
        EXPECT_EQ(
            "Failed to process the element.\nPath: /order\n"
            "The Maximum number of [qty] elements allowed in this collection is 3",
            e.GetFullMessage());
    }
    EXPECT_EQ(4, order->m_qty->GetCount());  // nothing is rolled back
}

TEST(CollectionMembers, AnElementOutOfOrderIsLeftOver) {
    CSmartPtr<COrder> order = new COrder();
    try {
        order->FromXml("<order><qty>1</qty><note>n</note><qty>2</qty></order>", DefaultCtx());
        FAIL() << "nothing thrown";
    } catch (const COxException& e) {
        // The error already carries a path, so it passes the element's own level unwrapped.
        EXPECT_EQ(
            "Failed read all the elements held within the element [order]. The unexpected element [qty] remains un "
            "processed\nPath: /order",
            e.GetFullMessage());
    }
}

TEST(CollectionMembers, TheOwnerFreesItsCollectionsWithItself) {
    CSmartPtr<Ci4Col> kept;
    {
        CSmartPtr<COrder> order = new COrder();
        order->m_qty->Add(1);
        kept = order->m_qty;
    }
    // The collection outlives its owner as long as someone holds it.
    ASSERT_EQ(1, kept->GetCount());
    EXPECT_EQ(1, kept->Item(0));
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
