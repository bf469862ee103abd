#include <atomic>
#include <thread>
#include <vector>

#include "bindinghelpers.h"
#include "person.h"

using namespace OrvexXml;
using namespace OrvexBindTest;

namespace {

std::atomic<int> g_nDestroyed{0};

class CCounted : public Samples::CPerson {
public:
    ~CCounted() override { ++g_nDestroyed; }
};

// Reaches the protected helpers the way a generated class does.
class CHelpers : public Samples::CPerson {
public:
    using CXmlObjectBase::Choice_CollectionChanged;
    using CXmlObjectBase::Choice_SelectElement;
    using CXmlObjectBase::Choice_SetElementValid;
    using CXmlObjectBase::IsNamespaceValid;
    using CXmlObjectBase::TestNamespace;
    using CXmlObjectBase::Throw_IfElementNameDiffers;
    using CXmlObjectBase::Throw_IfPropertyIsNull;
};

const std::string kAlreadySet = "] is already set. Only one element within this class bay be set at a time";

TEST(ReferenceCount, EachHolderCountsOnceAndTheLastReleaseDeletesOnce) {
    g_nDestroyed = 0;
    CCounted* p = new CCounted;
    EXPECT_EQ(p->AddRef(), 1);
    EXPECT_EQ(p->AddRef(), 2);
    EXPECT_EQ(p->Release(), 1);
    EXPECT_EQ(g_nDestroyed, 0);
    EXPECT_EQ(p->Release(), 0);
    EXPECT_EQ(g_nDestroyed, 1);

    g_nDestroyed = 0;
    {
        CSmartPtr<CXmlObjectBase> a = new CCounted;
        CSmartPtr<CXmlObjectBase> b = a;
        OxVariant v;
        v.SetXmlObject(a);
        OxVariant copy(v);
        a = nullptr;
        b = b;  // self-assignment keeps the object
        EXPECT_EQ(g_nDestroyed, 0);
        EXPECT_EQ(b->AddRef(), 4);  // b, v, copy, and this one
        b->Release();
    }
    EXPECT_EQ(g_nDestroyed, 1);

    // A copy starts with its own count: the source's holders don't carry over.
    CSmartPtr<Samples::CPerson> original = Samples::CPerson::CreateInstance();
    original->SetName("n");
    CSmartPtr<CXmlObjectBase> extra = original;
    CSmartPtr<Samples::CPerson> duplicate = new Samples::CPerson(*original);
    EXPECT_EQ(duplicate->GetName(), "n");
    EXPECT_EQ(duplicate->AddRef(), 2);
    EXPECT_EQ(duplicate->Release(), 1);
}

// The maker drops its reference while the workers still copy theirs, so the object is freed
// by whichever thread drops the last one, after every other thread's counts on it.
TEST(ReferenceCountThreads, ConcurrentAddRefAndReleaseDeleteOnceOnTheLastThread) {
    g_nDestroyed = 0;
    CSmartPtr<CXmlObjectBase> shared = new CCounted;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([shared] {
            for (int i = 0; i < 50000; ++i) CSmartPtr<CXmlObjectBase> local = shared;
        });
    }
    shared = nullptr;
    for (auto& th : threads) th.join();
    EXPECT_EQ(g_nDestroyed, 1);
}

TEST(ChoiceHelpers, SelectElementFollowsTheOneOfRule) {
    std::string selected;
    CSmartPtr<Samples::CPerson> value = Samples::CPerson::CreateInstance();
    CHelpers::Choice_SelectElement("a", value, selected);
    CHelpers::Choice_SelectElement("a", value, selected);  // same member, new object
    EXPECT_EQ(selected, "a");
    CHelpers::Choice_SelectElement("b", nullptr, selected);  // other member cleared: nothing happens
    EXPECT_EQ(selected, "a");
    EXPECT_EQ(Thrown([&] { CHelpers::Choice_SelectElement("b", value, selected); }), "The Property [a" + kAlreadySet);
    EXPECT_EQ(selected, "a");
    CHelpers::Choice_SelectElement("a", nullptr, selected);
    EXPECT_EQ(selected, "");
    CHelpers::Choice_SelectElement("c", nullptr, selected);  // clearing a member of an empty choice selects it
    EXPECT_EQ(selected, "c");
}

TEST(ChoiceHelpers, SetElementValidAndCollectionChanged) {
    std::string selected = "a";
    EXPECT_EQ(Thrown([&] { CHelpers::Choice_SetElementValid(true, "b", selected); }),
              "The Property a is already set. Only one element within this class bay be set at a time");
    CHelpers::Choice_SetElementValid(false, "b", selected);  // clears whatever was selected
    EXPECT_EQ(selected, "");
    CHelpers::Choice_SetElementValid(true, "b", selected);
    EXPECT_EQ(selected, "b");

    CHelpers::Choice_CollectionChanged("c", 0, selected);  // not selected, count 0: nothing
    EXPECT_EQ(selected, "b");
    EXPECT_EQ(Thrown([&] { CHelpers::Choice_CollectionChanged("c", -1, selected); }), "The Property [b" + kAlreadySet);
    selected.clear();
    CHelpers::Choice_CollectionChanged("c", -1, selected);  // a negative count selects nothing
    EXPECT_EQ(selected, "");
    CHelpers::Choice_CollectionChanged("c", 2, selected);
    EXPECT_EQ(selected, "c");
    CHelpers::Choice_CollectionChanged("c", 0, selected);
    EXPECT_EQ(selected, "");
}

TEST(SetterGuards, NullAndElementNameChecks) {
    EXPECT_EQ(Thrown([] { CHelpers::Throw_IfPropertyIsNull(nullptr, "Item"); }),
              "The Property [Item] is mandatory, it may node be NULL");
    EXPECT_NO_THROW(CHelpers::Throw_IfElementNameDiffers(nullptr, "Item"));
    CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
    EXPECT_NO_THROW(CHelpers::Throw_IfElementNameDiffers(person, "Person"));
    EXPECT_EQ(Thrown<COxInvalidParamException>([&] { CHelpers::Throw_IfElementNameDiffers(person, "Item"); }),
              "This property requires an element with the name Item the element being set has the element name "
              "Person");
}

TEST(NamespaceConstraints, TokensOfAWildcardNamespaceAttribute) {
    struct {
        const char* pszNamespace;
        const char* pszAllowed;
        const char* pszTarget;
        bool bValid;
    } rows[] = {
        {"urn:any", "##any", "urn:t", true},
        {"", "##local", "urn:t", true},
        {"urn:x", "##local", "urn:t", false},
        {"urn:t", "##local", "urn:t", false},
        {"urn:t", "##targetNamespace ##local", "urn:t", true},
        {"", "##targetNamespace ##local", "urn:t", true},
        {"urn:x", "##targetNamespace ##local", "urn:t", false},
        {"urn:lit", "urn:other urn:lit", "urn:t", true},
        {"", "urn:lit", "urn:t", true},
        {"urn:li", "urn:lit", "urn:t", false},
        {"urn:t", "##other", "urn:t", false},
        {"", "##other", "", false},
        {"", "##other", "urn:t", true},
        {"", "", "urn:t", true},
        {"urn:x", "", "urn:t", false},
        {nullptr, "##local", "urn:t", true},
    };
    CHelpers helpers;  // the member wraps the free function and takes null as empty
    for (const auto& row : rows) {
        EXPECT_EQ(helpers.IsNamespaceValid(row.pszNamespace, row.pszAllowed, row.pszTarget), row.bValid)
            << (row.pszNamespace ? row.pszNamespace : "(null)") << " in " << row.pszAllowed;
    }
    EXPECT_EQ(Thrown<COxInvalidNamespaceException>([&] { helpers.TestNamespace("urn:x", "##local", "urn:t"); }),
              "Invalid namespace [urn:x]. The namespace must be one of [##local] where the target namespace is "
              "[urn:t].");
}

}  // namespace
