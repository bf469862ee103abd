#include <set>
#include <tuple>

#include "bindinghelpers.h"
#include "person.h"
#include "support/testclasses.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using namespace OrvexTest;
using namespace OrvexBindTest;
using namespace Samples;

namespace {

const char* const kXsi = "http://www.w3.org/2001/XMLSchema-instance";

// The exception a call raised, with its exact class.
struct Caught {
    std::string strClass = "(none)";
    std::string strMessage;
    std::string strPath;
};

Caught CatchFrom(const std::function<void()>& fn) {
    Caught c;
    try {
        fn();
    } catch (const COxException& e) {
        c.strClass = typeid(e).name();
        c.strMessage = e.GetFullMessage();
        c.strPath = e.GetPath();
    }
    return c;
}

// An element that takes over a parse tree, as the library does for an object it renders.
class CCopiedElement : public CElement {
public:
    CCopiedElement() : CElement("") {}
    using CElement::CopyXmlElement;
};

TEST(OpenContent, FailuresCarryTheirClassMessageAndPath) {
    const std::string kInvalidNs = typeid(COxInvalidNamespaceException).name();
    CSmartPtr<CAttributeCol> local = new CAttributeCol("", "##local", "");
    CSmartPtr<CElementCol> noDefault = new CElementCol("", "##any", "", 0, -1);
    CSmartPtr<CElementCol> atLeastOne = new CElementCol("urn:c", "##any", "", 1, 2);
    CSmartPtr<CElement> inA = new CElement("e", "urn:a");
    CSmartPtr<CAttribute> attribute = local->Add("a");
    struct Row {
        const char* pszCase;
        std::function<void()> fn;
        std::string strClass;
        std::string strMessage;
        std::string strPath;
    } rows[] = {
        {"null name", [] { CSmartPtr<CElement> e = new CElement(nullptr, "", "##any", ""); }, kInvalidNs,
         "Element Name must have a value", ""},
        {"null namespace", [] { CSmartPtr<CElement> e = new CElement("a", nullptr, "##any", ""); }, kInvalidNs,
         "Element Namespace must have a value", ""},
        {"null restriction", [] { CSmartPtr<CElement> e = new CElement("a", "", nullptr, ""); }, kInvalidNs,
         "Namespace Restriction must have a value", ""},
        {"null target", [] { CSmartPtr<CElement> e = new CElement("a", "", "##any", nullptr); }, kInvalidNs,
         "Target Namespace must have a value", ""},
        {"token as namespace", [] { CSmartPtr<CElement> e = new CElement("a", "##other"); }, kInvalidNs,
         "Invalid Namespace [##other].", ""},
        {"refused by constraint", [] { CSmartPtr<CElement> e = new CElement("a", "urn:x", "##local", ""); }, kInvalidNs,
         "Invalid namespace [urn:x]. The namespace must be one of [##local] where the target namespace is [].", ""},
        {"attribute outside constraint",
         [&] { local->FromXml("<r a=\"1\" xmlns:q=\"urn:q\" q:b=\"2\" c=\"3\"/>", DefaultCtx()); }, kInvalidNs,
         "Invalid Attribute [b]. The attributes namespace is Inappropriate.\nPath: /r", "/r"},
        {"add by name without namespace", [&] { noDefault->Add("x"); }, typeid(COxInvalidStateException).name(),
         "A Namespace has not been set for this Collection", ""},
        {"subtree against a new restriction", [&] { inA->SetNamespaceRestrictions("##local", ""); }, kInvalidNs,
         "The namespace urn:a in the class e is invalid against restriction ##local\nInvalid namespace [urn:a]. The "
         "namespace must be one of [##local] where the target namespace is [].",
         ""},
        {"attribute read on its own", [&] { attribute->FromXml("<r/>", DefaultCtx()); }, typeid(COxException).name(),
         "This should be done by the collection", ""},
        {"count below the minimum", [&] { atLeastOne->ToXml(false, false, EOLType_LF, DefaultCtx()); },
         typeid(COxValidationException).name(), "The Minimum number of [] elements allowed in this collection is 1",
         ""},
    };
    for (const Row& row : rows) {
        Caught c = CatchFrom(row.fn);
        EXPECT_EQ(c.strClass, row.strClass) << row.pszCase;
        EXPECT_EQ(c.strMessage, row.strMessage) << row.pszCase;
        EXPECT_EQ(c.strPath, row.strPath) << row.pszCase;
    }
    // The failed adds added nothing; the read kept the attribute before the bad one.
    EXPECT_EQ(noDefault->GetCount(), 0);
    ASSERT_EQ(local->GetCount(), 2);
    EXPECT_EQ(local->Item(1)->GetName(), "a");
}

// The infoset of a parse tree: names, namespace URIs, attribute sets and texts, element by element.
void ExpectSameTree(const CXmlElement* pExpected, const CXmlElement* pActual, const std::string& strWhere) {
    ASSERT_NE(pActual, nullptr) << strWhere;
    std::string strHere = strWhere + "/" + pExpected->GetLocalName();
    EXPECT_EQ(pActual->GetLocalName(), pExpected->GetLocalName()) << strHere;
    EXPECT_EQ(pActual->GetNamespaceURI(), pExpected->GetNamespaceURI()) << strHere;
    EXPECT_EQ(pActual->GetText(), pExpected->GetText()) << strHere;
    auto attributes = [](const CXmlElement* p) {
        std::set<std::tuple<std::string, std::string, std::string>> set;
        for (const CXmlAttribute* a : p->GetAttributes())
            set.insert(std::make_tuple(a->GetNamespaceURI(), a->GetLocalName(), a->GetValue()));
        return set;
    };
    EXPECT_EQ(attributes(pActual), attributes(pExpected)) << strHere;
    const CXmlElement* pA = pActual->GetFirstElement();
    for (const CXmlElement* pE = pExpected->GetFirstElement(); pE; pE = pE->GetNextSiblingElement()) {
        ExpectSameTree(pE, pA, strHere);
        if (!pA) return;
        pA = pA->GetNextSiblingElement();
    }
    EXPECT_EQ(pA, nullptr) << strHere << ": more children written than read";
}

TEST(OpenContent, ReadAndWrittenElementKeepsTheInfosetOfTheDocument) {
    const char* docs[] = {
        "<a><b><c>t</c><c/></b><b/><d><e><f>deep</f></e></d></a>",
        "<p:a xmlns:p=\"urn:p\" xmlns=\"urn:d\"><b/><p:c x=\"1\" p:y=\"2\"><b/></p:c><c xmlns=\"\">u</c></p:a>",
        "<a>before<b>inner</b>after<c/>end</a>",
        "<a xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:q=\"urn:q\" xmlns:r=\"urn:r\" "
        "xsi:type=\"T\" xsi:nil=\"false\" xml:lang=\"en\" q:k=\"v\" r:k=\"w\" k=\"x\"><q:b xml:lang=\"de\" "
        "q:k=\"1\"/></a>",
        "<a x=\"&lt;&amp;&quot;&gt;\" y=\"line&#10;end\">&lt;b&gt; &amp; text</a>",
    };
    for (const char* pszDoc : docs) {
        CSmartPtr<CElement> element = new CElement("");
        element->FromXml(pszDoc);
        std::string strOut = Flat(element);
        CXmlDocument in, out;
        in.LoadXml(pszDoc);
        out.LoadXml(strOut.c_str());
        ExpectSameTree(in.GetDocumentElement(), out.GetDocumentElement(), std::string(pszDoc) + " -> " + strOut);
    }
}

TEST(OpenContent, TreeWithElementFromObjectIsWrittenExactlyAndReadsBack) {
    CSmartPtr<CPerson> person = CPerson::CreateInstance();
    person->SetName("Ann & Bo");
    CSmartPtr<CElement> root = new CElement("r", "urn:r");
    root->SetText("tail");
    root->GetAttributes()->Add("id", "7");
    root->GetAttributes()->Add("k", "v", "");
    CSmartPtr<CElement> spliced = root->GetChildElements()->Add(new CElement(person, "urn:d"));
    spliced->GetAttributes()->Add("note", "kept", "");
    root->GetChildElements()->Add("empty");
    EXPECT_EQ(Flat(root),
              "<AA:r xmlns:AA=\"urn:r\" AA:id=\"7\" k=\"v\"><Person xmlns=\"urn:d\" note=\"kept\"><Name>Ann &amp; "
              "Bo</Name></Person><AA:empty/>tail</AA:r>");
    // A clone has no default namespace and is written in the plain way.
    EXPECT_EQ(Flat(spliced->Clone()),
              "<AA:Person xmlns:AA=\"urn:d\" note=\"kept\"><AA:Name>Ann &amp; Bo</AA:Name></AA:Person>");
    // Object -> element -> object.
    CSmartPtr<CPerson> back = CPerson::CreateInstance();
    CSmartPtr<CElement> plain = new CElement(person, nullptr);
    back->FromXmlElement(plain.Get(), DefaultCtx());
    EXPECT_EQ(back->GetName(), "Ann & Bo");
}

TEST(OpenContent, DeclarationReadWithoutNamespacesIsWrittenOnce) {
    CSerializationContext dtd;
    dtd.SetSchemaType(SchemaType_DTD);
    CXmlDocument doc(dtd);
    doc.LoadXml("<a xmlns=\"urn:d\" k=\"v\"><b>t</b></a>");
    CSmartPtr<CCopiedElement> element = new CCopiedElement;
    element->CopyXmlElement(doc.GetDocumentElement());
    EXPECT_EQ(element->GetDefaultNamespace(), "urn:d");
    ASSERT_EQ(element->GetAttributes()->GetCount(), 2);
    EXPECT_EQ(element->GetAttributes()->Item(0)->GetName(), "xmlns");
    EXPECT_EQ(Flat(element), "<a xmlns=\"urn:d\" k=\"v\"><b>t</b></a>");
}

// Refuses the add of a second item into the collection it listens to.
class CRefuseSecond : public IEventSink {
public:
    void OnEvent(CXmlObjectBase* pSource, MsgType type, void*) override {
        if (type == MsgType_CollectionAdd && static_cast<CElementCol*>(pSource)->GetCount() == 1)
            throw COxInvalidStateException("second child refused");
    }
};

TEST(OpenContent, RefusedAddWhileReadingReachesCallerAndKeepsWhatWasRead) {
    CSmartPtr<CElement> element = new CElement("");
    CRefuseSecond listener;
    element->GetChildElements()->AddEventListener(&listener);
    Caught c = CatchFrom([&] { element->FromXml("<r a=\"1\"><b1><x/></b1><b2/><b3/></r>"); });
    EXPECT_EQ(c.strClass, typeid(COxInvalidStateException).name());
    EXPECT_EQ(c.strMessage, "second child refused");
    ASSERT_EQ(element->GetChildElements()->GetCount(), 1);
    EXPECT_EQ(element->GetChildElements()->Item(0)->GetName(), "b1");
    EXPECT_EQ(element->GetChildElements()->Item(0)->GetChildElements()->GetCount(), 1);
    EXPECT_EQ(element->GetAttributes()->GetCount(), 1);
    element->GetChildElements()->RemoveEventListener(&listener);
    // A second read adds to what is held.
    element->FromXml("<s c=\"2\"><b4/></s>");
    EXPECT_EQ(element->GetName(), "s");
    EXPECT_EQ(element->GetChildElements()->GetCount(), 2);
    EXPECT_EQ(element->GetAttributes()->GetCount(), 2);
}

TEST(OpenContent, ElementHoldingItselfStopsAtTheDepthLimit) {
    CSerializationContext ctx;
    ctx.SetMaxDepth(3);
    const std::string kTooDeep =
        "The element is nested deeper than the limit of 3 levels; raise MaxDepth of the context if such a document "
        "is intended.\nPath: ";
    // Plain, and under a default namespace, where each level is rendered by a writer of its own.
    CSmartPtr<CElement> plain = new CElement("e");
    CSerializationContext dtd;
    dtd.SetSchemaType(SchemaType_DTD);
    CXmlDocument doc(dtd);
    doc.LoadXml("<e xmlns=\"urn:d\"/>");
    CSmartPtr<CCopiedElement> spliced = new CCopiedElement;
    spliced->CopyXmlElement(doc.GetDocumentElement());
    for (CElement* pElement : {plain.Get(), static_cast<CElement*>(spliced.Get())}) {
        pElement->GetChildElements()->Add(pElement);
        Caught c = CatchFrom([&] { pElement->ToXml(false, false, EOLType_LF, ctx); });
        EXPECT_EQ(c.strClass, typeid(COxValidationException).name());
        EXPECT_EQ(c.strMessage.substr(0, kTooDeep.size()), kTooDeep);
        pElement->GetChildElements()->Clear();  // breaks the cycle, so the element can go
    }
}

TEST(OpenContent, AdditionalRootAttributesGoOnTheRootAndAreCopiedWithTheContext) {
    CSmartPtr<CPerson> person = CPerson::CreateInstance();
    person->SetName("x");
    CSerializationContext ctx;
    ctx.GetNamespaceAliases().Add("xsi", kXsi);
    ctx.GetAdditionalRootAttributes()->Add("schemaLocation", "urn:p p.xsd", kXsi);
    EXPECT_EQ(Flat(person, ctx),
              "<Person xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:schemaLocation=\"urn:p "
              "p.xsd\"><Name>x</Name></Person>");
    CSerializationContext copy(ctx);
    copy.GetAdditionalRootAttributes()->Add("extra", "1");
    CSerializationContext assigned;
    assigned = copy;
    assigned.GetAdditionalRootAttributes()->Clear();
    EXPECT_EQ(ctx.GetAdditionalRootAttributes()->GetCount(), 1);
    EXPECT_EQ(copy.GetAdditionalRootAttributes()->GetCount(), 2);
    EXPECT_EQ(Flat(person, copy),
              "<Person xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:schemaLocation=\"urn:p "
              "p.xsd\" extra=\"1\"><Name>x</Name></Person>");
    // Asked for through a const context, the list is made once and kept.
    const CSerializationContext fresh;
    EXPECT_EQ(fresh.GetAdditionalRootAttributes().Get(), fresh.GetAdditionalRootAttributes().Get());
}

// A class whose only member is an attribute wildcard for namespaces other than its own.
class COpen : public CXmlGeneratedClass {
public:
    COpen() : m_pAny(new CAttributeCol("", "##other", "urn:t")) { SetElementName("Open"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:t"; }
    std::string GetTargetNamespace() const override { return "urn:t"; }
    void ExchangeProperty(int, bool bRead, OxVariant& value) override {
        if (!bRead) return;
        if (m_bNoCollection)
            value.SetString("not a collection");
        else
            value.SetXmlCollection(m_pAny);
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return ms_attributes; }
    void ResetToDefaults() override {}

    CSmartPtr<CAttributeCol> m_pAny;
    bool m_bNoCollection = false;

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Open", "urn:t", true, false, -1,
                           ItemType_invalid, nullptr, false);
    static inline CElementInfo* ms_elements[1] = {nullptr};
    static inline CAttributeInfoAny ms_any{"", "", 0, true, "##other", "urn:t", nullptr};
    static inline CAttributeInfo* ms_attributes[2] = {&ms_any, nullptr};
};

TEST(OpenContent, AttributeWildcardTakesForeignAttributesAndWritesThem) {
    CSmartPtr<COpen> open = new COpen;
    open->FromXml("<t:Open xmlns:t=\"urn:t\" xmlns:q=\"urn:q\" q:a=\"1\" xml:lang=\"en\"/>", DefaultCtx());
    ASSERT_EQ(open->m_pAny->GetCount(), 2);
    EXPECT_EQ(Flat(open), "<AA:Open xmlns:AA=\"urn:t\" xmlns:AB=\"urn:q\" AB:a=\"1\" xml:lang=\"en\"/>");
    // An attribute of the class's own namespace is no wildcard's: the class refuses it as unknown.
    Caught c = CatchFrom([&] { open->FromXml("<t:Open xmlns:t=\"urn:t\" t:a=\"1\"/>", DefaultCtx()); });
    EXPECT_EQ(c.strMessage, "Unexpected Attribute found.\nPath: /t:Open/t:@a");
    open->m_bNoCollection = true;
    c = CatchFrom([&] { open->FromXml("<t:Open xmlns:t=\"urn:t\" xmlns:q=\"urn:q\" q:a=\"1\"/>", DefaultCtx()); });
    EXPECT_NE(c.strMessage.find("Serialization Data Error : The collection should be a CAttributeCol, it was not!"),
              std::string::npos)
        << c.strMessage;
}

}  // namespace
