// Collections of generated classes as a generator writes them on the services of CXmlCollection,
// the class factory base that resolves xsi:type, and chains of objects far deeper than a stack
// could free by recursion.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <typeinfo>
#include <vector>

#include "binding/bindinghelpers.h"
#include "support/testclasses.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using OrvexBindTest::Flat;
using OrvexBindTest::Innermost;
using OrvexBindTest::OnSmallStacks;
using OrvexBindTest::Raised;
using OrvexBindTest::RaisedBy;
using OrvexTest::NoAttributes;
using OrvexTest::NoFacets;

namespace {

const char kNs[] = "urn:t";
class CTree;
// Trees destroyed on this thread.
thread_local int t_nTreesFreed = 0;

// The factory of the Tree family: a fixed class, and the class an element's xsi:type names.
class CTreeFactory : public CClassfactoryBase {
public:
    static CSmartPtr<CXmlObjectBase> CreateTree(CXmlElement* pElement);
    // Tree, by default or as t:Tree; null for any other type.
    static CSmartPtr<CXmlObjectBase> CreateByType(CXmlElement* pElement) {
        std::string strType = GetElementType(pElement);
        if (!strType.empty() && (strType != "Tree" || GetElementTypeNamespaceUri(pElement) != kNs)) return nullptr;
        return CreateTree(pElement);
    }
    using CClassfactoryBase::GetElementType;
    using CClassfactoryBase::GetElementTypeNamespaceUri;
};

// CTreeCol, in the shape a generator emits for a repeated element of class CTree.
class CTreeCol : public CXmlCollection, public CInstanceMonitor {
public:
    CTreeCol(int nMinOccurs, int nMaxOccurs, ItemCreator pfnCreate)
        : CXmlCollection("Tree", kNs, nMinOccurs, nMaxOccurs), CInstanceMonitor("CTreeCol"), m_pfnCreate(pfnCreate) {}
    void Add(CTree* pItem);
    CSmartPtr<CTree> Item(int nIndex) const;
    COxIterator<CTree> begin() const { return COxIterator<CTree>(m_pHead); }
    COxIterator<CTree> end() const { return COxIterator<CTree>(nullptr); }
    // What the member of a parent does with the collection while reading.
    CXmlElement* ReadRun(CXmlElement* pFirst, const CSerializationContext& ctx) {
        return FromXml_Int(pFirst ? const_cast<CXmlElement*>(pFirst->GetParentElm()) : nullptr, pFirst, ctx, false);
    }

protected:
    void ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                   bool) const override {
        ItemsToXml_Int(pWriter, pszNamespace, ctx);
    }
    CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pFirst, const CSerializationContext& ctx,
                             bool) override {
        return ItemsFromXml_Int(pElement, pFirst, ctx, m_pfnCreate);
    }

private:
    ItemCreator m_pfnCreate;
};

// A sequence of an optional Name and a collection of Trees.
class CTree : public CXmlGeneratedClass, public CInstanceMonitor {
public:
    explicit CTree(int nMinKids = 0, int nMaxKids = -1, CXmlCollection::ItemCreator pfnKids = &CTreeFactory::CreateTree)
        : CInstanceMonitor("CTree"), m_pKids(new CTreeCol(nMinKids, nMaxKids, pfnKids)) {
        SetElementName("Tree");
    }
    explicit CTree(const char* pszName) : CTree() { m_name.SetString(pszName); }

    ~CTree() override { ++t_nTreesFreed; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return kNs; }
    std::string GetTargetNamespace() const override { return kNs; }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (nIndex == 1) {
            if (bRead) value.SetXmlCollection(m_pKids);
        } else if (bRead) {
            value = m_name;
        } else {
            m_name = value;
        }
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override {
        m_name.SetInvalid();
        m_pKids->Clear();
    }

    // The name, then the kids in brackets: "r[a,b[c]]".
    std::string Shape() const {
        std::string strShape = m_name.IsValid() ? m_name.GetString() : "";
        if (m_pKids->GetCount() == 0) return strShape;
        const char* pszSep = "[";
        for (CTree* pKid : *m_pKids) strShape += pszSep + pKid->Shape(), pszSep = ",";
        return strShape + "]";
    }
    // A chain of nLevels trees, each the only kid of the one before.
    static CSmartPtr<CTree> Chain(int nLevels) {
        CSmartPtr<CTree> root = new CTree();
        for (CTree* p = root; --nLevels > 0; p = p->m_pKids->Item(0)) p->m_pKids->Add(new CTree());
        return root;
    }

    OxVariant m_name;
    CSmartPtr<CTreeCol> m_pKids;

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Tree", kNs, true, false, -1,
                           ItemType_invalid, nullptr, false);
    static inline CElementInfoSeqPrimOpt ms_name{
        "Name",     kNs,    0, false, ItemType_string, nullptr, CWhitespaceUtils::WhitespaceRule_preserve,
        NoFacets(), nullptr};
    static inline CElementInfoSeqCol ms_kids{"Tree", kNs, 1};
    static inline CElementInfo* ms_elements[3] = {&ms_name, &ms_kids, nullptr};
};

CSmartPtr<CXmlObjectBase> CTreeFactory::CreateTree(CXmlElement*) { return new CTree(); }
void CTreeCol::Add(CTree* pItem) { AppendItem(pItem); }
CSmartPtr<CTree> CTreeCol::Item(int nIndex) const { return static_cast<CTree*>(GetNodeAtIndex(nIndex)->m_pItem.Get()); }

TEST(ClassFactory, ElementTypeAndItsNamespaceComeFromXsiTypeAndTheDocumentsPrefixes) {
    CXmlDocument doc;
    doc.LoadXml(
        "<r xmlns='urn:own' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'>"
        "<a xmlns:t='urn:types' xsi:type='t:Line'/><b xsi:type='Line'/><c xsi:type='u:Line'/><d/>"
        "<e xsi:type='t:x:y'/><f type='t:Line'/><g xmlns='' xsi:type='u:Line'/><h xsi:type=''/></r>");
    struct Row {
        const char* pszType;
        const char* pszUri;
    } const rows[] = {{"Line", "urn:types"}, {"Line", "urn:own"}, {"Line", "urn:own"}, {"", "urn:own"},
                      {"x:y", "urn:types"},  {"", "urn:own"},     {"Line", ""},        {"", "urn:own"}};
    CXmlElement* pElement = doc.GetDocumentElement()->GetFirstElement();
    for (const Row& row : rows) {
        ASSERT_NE(nullptr, pElement);
        SCOPED_TRACE(pElement->GetLocalName());
        EXPECT_EQ(row.pszType, CTreeFactory::GetElementType(pElement));
        EXPECT_EQ(row.pszUri, CTreeFactory::GetElementTypeNamespaceUri(pElement));
        pElement = pElement->GetNextSiblingElement();
    }
    EXPECT_EQ(nullptr, pElement);
    EXPECT_EQ("", CTreeFactory::GetElementType(nullptr));
    EXPECT_EQ("", CTreeFactory::GetElementTypeNamespaceUri(nullptr));
}

// Trees inside trees are read into the typed collections in document order, and written back
// to the same text (in the writer's own choice of prefix).
TEST(ClassCollection, NestedRunsRoundTrip) {
    const std::string strXml =
        "<AA:Tree xmlns:AA=\"urn:t\"><AA:Name>r</AA:Name><AA:Tree><AA:Name>a</AA:Name></AA:Tree><AA:Tree><AA:Name>b"
        "</AA:Name><AA:Tree><AA:Name>c</AA:Name></AA:Tree></AA:Tree><AA:Tree/></AA:Tree>";
    CSmartPtr<CTree> tree = new CTree("stale");
    tree->m_pKids->Add(new CTree("stale"));
    tree->FromXml(strXml.c_str(), OrvexBindTest::DefaultCtx());
    EXPECT_EQ("r[a,b[c],]", tree->Shape());
    EXPECT_EQ("c", tree->m_pKids->Item(1)->m_pKids->Item(0)->m_name.GetString());
    EXPECT_EQ(strXml, Flat(tree));
}

// The run taken from a cursor: it ends at another name, another namespace, or an element the
// creator disowns, and the element returned is the first one not taken.
TEST(ClassCollection, TheRunEndsAtTheFirstElementNotTaken) {
    struct Row {
        const char* pszChildren;
        CXmlCollection::ItemCreator pfnCreate;
        const char* pszShape;
        const char* pszStop;
    } const rows[] = {
        {"<Tree><Name>1</Name></Tree><Tree><Name>2</Name></Tree>", &CTreeFactory::CreateTree, "[1,2]", "(end)"},
        {"<Tree><Name>1</Name></Tree><Other/><Tree/>", &CTreeFactory::CreateTree, "[1]", "Other"},
        {"<Tree><Name>1</Name></Tree><o:Tree/>", &CTreeFactory::CreateTree, "[1]", "{urn:o}Tree"},
        {"<o:Tree/><Tree/>", &CTreeFactory::CreateTree, "", "{urn:o}Tree"},
        {"<Tree xsi:type='t:Tree'><Name>1</Name></Tree><Tree xsi:type='t:Bush'/><Tree/>", &CTreeFactory::CreateByType,
         "[1]", "Tree"},
        {"<Tree xsi:type='Bush'/>", &CTreeFactory::CreateByType, "", "Tree"},
        {"<Tree><Name>1</Name></Tree><Tree xsi:type='t:Tree'><Name>2</Name></Tree>", &CTreeFactory::CreateByType,
         "[1,2]", "(end)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pszChildren);
        CXmlDocument doc;
        doc.LoadXml((std::string("<r xmlns='urn:t' xmlns:t='urn:t' xmlns:o='urn:o' "
                                 "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'>") +
                     row.pszChildren + "</r>")
                        .c_str());
        CSmartPtr<CTree> tree = new CTree(0, -1, row.pfnCreate);
        CXmlElement* pStop =
            tree->m_pKids->ReadRun(doc.GetDocumentElement()->GetFirstElement(), OrvexBindTest::DefaultCtx());
        EXPECT_EQ(row.pszShape, tree->Shape());
        std::string strStop = "(end)";
        if (pStop) {
            strStop = pStop->GetLocalName();
            if (pStop->GetNamespaceURI() != kNs) strStop = "{" + pStop->GetNamespaceURI() + "}" + strStop;
        }
        EXPECT_EQ(row.pszStop, strStop);
    }
}

// A collection of model groups: each item reads on from the cursor among the parent's children
// (A then B), and the run ends where an item would consume nothing; the texts come back in
// order on writing.
class CGroupCol : public CXmlCollection {
public:
    CGroupCol() : CXmlCollection("Group", "", 0, -1) {}
    static CSmartPtr<CXmlObjectBase> Create(CXmlElement*) { return new OrvexTest::CTestGroup(); }
    CXmlElement* ReadRun(CXmlElement* pParent, const CSerializationContext& ctx) {
        return FromXml_Int(pParent, pParent->GetFirstElement(), ctx, false);
    }

protected:
    void ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                   bool) const override {
        ItemsToXml_Int(pWriter, pszNamespace, ctx);
    }
    CXmlElement* FromXml_Int(CXmlElement* pParent, CXmlElement* pFirst, const CSerializationContext& ctx,
                             bool) override {
        return GroupItemsFromXml_Int(pParent, pFirst, ctx, &Create);
    }
};

TEST(ClassCollection, ModelGroupItemsReadOnFromTheCursor) {
    const struct {
        const char* pszChildren;
        int nItems;
        const char* pszStop;
    } rows[] = {
        {"<A>1</A><B>2</B><A>3</A><B>4</B>", 2, "(end)"},
        {"<A>1</A><B>2</B><C/><A>3</A><B>4</B>", 1, "C"},
        {"<C/>", 0, "C"},
        {"", 0, "(end)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszChildren);
        CXmlDocument doc;
        doc.LoadXml((std::string("<r>") + row.pszChildren + "</r>").c_str());
        CSmartPtr<CGroupCol> groups = new CGroupCol();
        CXmlElement* pStop = groups->ReadRun(doc.GetDocumentElement(), OrvexBindTest::DefaultCtx());
        EXPECT_EQ(row.nItems, groups->GetCount());
        EXPECT_EQ(row.pszStop, pStop ? pStop->GetLocalName() : std::string("(end)"));
    }
}

// The limits of a collection of classes are those of any collection, tested by the member on
// both walks, and waived by the context.
TEST(ClassCollection, CountLimitsHoldOnBothWalks) {
    const std::string strMax = "The Maximum number of [Tree] elements allowed in this collection is 2";
    const std::string strMin = "The Minimum number of [Tree] elements allowed in this collection is 1";
    const CSerializationContext lenient = OrvexBindTest::Ignoring(OrvexBindTest::kCounts);
    for (int nKids : {0, 1, 2, 3}) {
        SCOPED_TRACE(nKids);
        const std::string* pExpected = nKids == 0 ? &strMin : nKids == 3 ? &strMax : nullptr;
        CSmartPtr<CTree> tree = new CTree(1, 2);
        for (int i = 0; i < nKids; ++i) tree->m_pKids->Add(new CTree(std::to_string(i).c_str()));
        const std::string strXml = Flat(tree, lenient);

        Raised written = RaisedBy([&] { Flat(tree); });
        Raised read =
            RaisedBy([&] { CSmartPtr<CTree>(new CTree(1, 2))->FromXml(strXml.c_str(), OrvexBindTest::DefaultCtx()); });
        if (!pExpected) {
            EXPECT_EQ("(no exception)", written.strMessage);
            EXPECT_EQ("(no exception)", read.strMessage);
            continue;
        }
        EXPECT_EQ("Failed to convert the element [Tree] to XML\n" + *pExpected, written.strMessage);
        EXPECT_EQ("Failed to process the element.\nPath: /AA:Tree\n" + *pExpected, read.strMessage);
        CSmartPtr<CTree> readLeniently = new CTree(1, 2);
        readLeniently->FromXml(strXml.c_str(), lenient);
        EXPECT_EQ(nKids, readLeniently->m_pKids->GetCount());
    }
}

// A listener that refuses the second add while the document is read: the refusal reaches the
// caller, the refused tree is neither in the collection nor alive, the first one stays.
class CRefuseSecondAdd : public IEventSink {
public:
    void OnEvent(CXmlObjectBase*, MsgType type, void*) override {
        if (type == MsgType_CollectionAdd && ++m_nAdds == 2) throw COxInvalidStateException("no second tree");
    }
    int m_nAdds = 0;
};

TEST(ClassCollection, AnAddRefusedWhileReadingReachesTheCallerAndLeavesNoItem) {
    CSmartPtr<CTree> tree = new CTree();
    CRefuseSecondAdd listener;
    tree->m_pKids->AddEventListener(&listener);
    Raised raised = RaisedBy([&] {
        tree->FromXml("<Tree xmlns='urn:t'><Tree><Name>a</Name></Tree><Tree><Name>b</Name></Tree><Tree/></Tree>",
                      OrvexBindTest::DefaultCtx());
    });
    EXPECT_EQ("Failed to process the element.\nPath: /Tree\nno second tree", raised.strMessage);
    EXPECT_EQ("[a]", tree->Shape());
    EXPECT_EQ(2, listener.m_nAdds);
    tree->m_pKids->RemoveEventListener(&listener);
}

std::string DepthRefusal(int nLevels) {
    std::string strPath;
    for (int i = 0; i < nLevels; ++i) strPath += "/Tree";
    return "The element is nested deeper than the limit of 256 levels; raise MaxDepth of the context if such a "
           "document is intended.\nPath: " +
           strPath;
}

// A chain of 10 000 trees, each held by the collection of the one before: both walks stop at
// the limit of the context, and the chain is freed on a stack of 1 MiB.
TEST(ClassCollection, ADeepChainIsRefusedAtTheLimitAndFreedOnASmallStack) {
    const int nLevels = 10000;
    std::string strXml = "<Tree xmlns='urn:t'>";
    for (int i = 1; i < nLevels; ++i) strXml += "<Tree>";
    for (int i = 0; i < nLevels; ++i) strXml += "</Tree>";
    CSerializationContext roomy;
    roomy.SetMaxDepth(nLevels);
    OnSmallStacks(1, [&] {
        CSmartPtr<CTree> chain = CTree::Chain(nLevels);
        try {
            Flat(chain);
            ADD_FAILURE() << "a chain past the limit was written";
        } catch (const COxException& e) {
            EXPECT_EQ(DepthRefusal(257), Innermost(e).GetMessage());
        }
        chain = nullptr;

        // Loaded under a roomy limit, the document reaches the walk through the collections.
        CXmlDocument doc(roomy);
        doc.LoadXml(strXml.c_str());
        CSmartPtr<CTree> read = new CTree();
        try {
            read->FromXmlElement(doc.GetDocumentElement(), OrvexBindTest::DefaultCtx());
            ADD_FAILURE() << "a chain past the limit was read";
        } catch (const COxException& e) {
            EXPECT_EQ(DepthRefusal(257), Innermost(e).GetMessage());
        }
        read = nullptr;
    });
}

// Two threads free deep chains at the same time: each frees all of its own chain, on its own
// thread, before the release returns.
TEST(ClassCollectionThreads, DeepChainsAreFreedOnTwoThreadsAtOnce) {
    const int nLevels = 10000;
    std::atomic<int> nReady{0};
    OnSmallStacks(2, [&] {
        for (int nRound = 1; nRound <= 8; ++nRound) {
            CSmartPtr<CTree> chain = CTree::Chain(nLevels);
            ++nReady;
            while (nReady < 2 * nRound) std::this_thread::yield();
            const int nBefore = t_nTreesFreed;
            chain = nullptr;
            EXPECT_EQ(nLevels, t_nTreesFreed - nBefore);
        }
    });
}

}  // namespace
