// Small hand-written classes in the shape of generated code, for cases the samples don't
// cover (failing getters, odd group types, pseudo elements, nested objects).
#pragma once

#include <orvexxml/orvexxml.h>

#include <map>
#include <string>
#include <utility>

namespace OrvexTest {

using namespace OrvexXml;
using namespace OrvexXmlData;

// Shared boilerplate of the test classes: an empty attribute table.
inline CAttributeInfo** NoAttributes() {
    static CAttributeInfo* s_table[1] = {nullptr};
    return s_table;
}

inline CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions(); }

// An element holding a generated object: writes the child through its own walk.
class CTestClassElementInfo : public CElementInfo {
public:
    CTestClassElementInfo(const char* pszName, const char* pszNamespace, int nIndex)
        : CElementInfo(pszName, pszNamespace, nIndex) {}
    bool CallValidate() const { return Validate(CSerializationContext::GetDefaultContext(), nullptr, false, false); }

protected:
    bool ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                      CXmlWriter* pWriter) const override {
        OxVariant value;
        ReadProperty(pClass, value);
        if (!value.IsValid()) return false;
        CSmartPtr<CXmlObjectBase> child = value.GetXmlObject();
        ToXml_Int(child, pWriter, false, GetElementNamespace().c_str(), ctx, false);
        return true;
    }
    bool ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                        CXmlElement** ppCurrent, const char*, XmlElementType) override;
};

// Sequence of one mandatory string "Value", plus string simple content.
class CTestRecord : public CXmlGeneratedClass {
public:
    CTestRecord() : m_bFailGetter(false), m_bFailSetter(false), m_pParentInfo(&ms_parent) { SetElementName("Record"); }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    std::string GetTargetNamespace() const override { return ""; }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (!bRead) {
            if (m_bFailSetter) throw COxException("setter refused");
            (nIndex == 0 ? m_value : m_text) = value;
            return;
        }
        if (nIndex == 0) {
            if (m_bFailGetter) throw COxException("getter refused");
            value = m_value;
        } else if (m_text.IsValid()) {
            value = m_text;
        } else {
            value.SetString("");
        }
    }
    CParentElementInfo* GetParentElementInfo() const override { return m_pParentInfo; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override {
        m_value.SetInvalid();
        m_text.SetInvalid();
    }
    using CXmlObjectBase::SetElementName;
    static void CallCleanMetaData(CParentElementInfo*& p, CElementInfo**& e, CAttributeInfo**& a) {
        CleanMetaData(p, e, a);
    }

    OxVariant m_value;
    OxVariant m_text;
    bool m_bFailGetter;
    bool m_bFailSetter;
    CParentElementInfo* m_pParentInfo;

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Record", "", true, false, 1,
                           ItemType_string, nullptr, false);
    static inline CParentElementInfo ms_badGroup =
        CParentElementInfo(static_cast<XmlElementGroupType>(7), XmlElementType_Element, "Record", "", true, false, -1,
                           ItemType_invalid, nullptr, false);
    static inline CElementInfoSeqPrimMnd ms_value{
        "Value", "", 0, true, ItemType_string, nullptr, CWhitespaceUtils::WhitespaceRule_preserve, NoFacets(), nullptr};
    static inline CElementInfo* ms_elements[2] = {&ms_value, nullptr};
};

// A class with one child object as its only member; the subclass names its tables.
class CTestOneChild : public CXmlGeneratedClass {
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    std::string GetTargetNamespace() const override { return ""; }
    void ExchangeProperty(int, bool bRead, OxVariant& value) override {
        if (!bRead)
            m_child = value.GetXmlObject();
        else if (m_child)
            value.SetXmlObject(m_child);
    }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override { m_child = nullptr; }

    CSmartPtr<CXmlObjectBase> m_child;
};

// Holds one child object under the element "Child".
class CTestHolder : public CTestOneChild {
public:
    CTestHolder() { SetElementName("Holder"); }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Holder", "", true, false, -1,
                           ItemType_invalid, nullptr, false);
    static inline CTestClassElementInfo ms_child{"Child", "", 0};
    static inline CElementInfo* ms_elements[2] = {&ms_child, nullptr};
};

// A member of a choice that is written when set and read when present, but that doesn't
// make an empty choice legal (as a collection with a minimum does).
class CTestChoiceMember : public CElementInfo {
public:
    CTestChoiceMember(const char* pszName, int nIndex)
        : CElementInfo(pszName, "", nIndex, false, ItemType_i4, nullptr, CWhitespaceUtils::WhitespaceRule_collapse,
                       CPrimitiveRestrictions(), nullptr) {}

protected:
    bool ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                      CXmlWriter* pWriter) const override {
        return ElementToXmlPrim(ctx, pClass, pWriter);
    }
    bool ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                        CXmlElement** ppCurrent, const char*, XmlElementType) override {
        return ElementFromXmlOptional(ctx, pClass, ppCurrent);
    }
};

// A choice whose members don't make it optional: an empty choice is an error.
class CStrictChoice : public CXmlGeneratedClass {
public:
    CStrictChoice() : m_bFirst(false), m_bSecond(false) { SetElementName("StrictChoice"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    std::string GetTargetNamespace() const override { return ""; }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (!bRead) {
            (nIndex == 0 ? m_bFirst : m_bSecond) = true;
            return;
        }
        if (nIndex == 0 && m_bFirst) value.SetI4(1);
        if (nIndex == 1 && m_bSecond) value.SetI4(2);
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override { m_bFirst = m_bSecond = false; }

    bool m_bFirst;
    bool m_bSecond;

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "StrictChoice", "", true, false, -1,
                           ItemType_invalid, nullptr, false);
    static inline CTestChoiceMember ms_first{"First", 0};
    static inline CTestChoiceMember ms_second{"Second", 1};
    static inline CElementInfo* ms_elements[3] = {&ms_first, &ms_second, nullptr};
};

// A class of a derivation family, with no content.
class CTestDerived : public CXmlGeneratedClass {
public:
    CTestDerived() { SetElementName("Derived"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:types"; }
    std::string GetTargetNamespace() const override { return "urn:types"; }
    void ExchangeProperty(int, bool, OxVariant&) override {}
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override {}
    using CXmlObjectBase::SetElementName;

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Derived", "urn:types", true, true, -1,
                           ItemType_invalid, nullptr, false);
    static inline CElementInfo* ms_elements[1] = {nullptr};
};

// A model group: no tags of its own.
class CTestGroup : public CXmlGeneratedClass {
public:
    CTestGroup() { SetElementName("Group"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    std::string GetTargetNamespace() const override { return ""; }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (bRead) value.SetI4(nIndex + 1);
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override {}

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, "Group", "", true, false, -1,
                           ItemType_invalid, nullptr, false);
    static inline CElementInfoSeqPrimMnd ms_a{
        "A", "", 0, false, ItemType_i4, nullptr, CWhitespaceUtils::WhitespaceRule_collapse, NoFacets(), nullptr};
    static inline CElementInfoSeqPrimMnd ms_b{
        "B", "", 1, false, ItemType_i4, nullptr, CWhitespaceUtils::WhitespaceRule_collapse, NoFacets(), nullptr};
    static inline CElementInfo* ms_elements[3] = {&ms_a, &ms_b, nullptr};
};

// An All group with a mandatory and an optional member.
class CTestAll : public CXmlGeneratedClass {
public:
    CTestAll() { SetElementName("All"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    std::string GetTargetNamespace() const override { return ""; }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (bRead) value = nIndex == 0 ? m_first : m_second;
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override {
        m_first.SetInvalid();
        m_second.SetInvalid();
    }

    OxVariant m_first;
    OxVariant m_second;

    static inline CParentElementInfo ms_parent = CParentElementInfo(
        XmlElementGroupType_All, XmlElementType_Element, "All", "", true, false, -1, ItemType_invalid, nullptr, false);
    static inline CElementInfoAllPrimMnd ms_first{
        "First", "", 0, false, ItemType_i4, nullptr, CWhitespaceUtils::WhitespaceRule_collapse, NoFacets(), nullptr};
    static inline CElementInfoAllPrimOpt ms_second{
        "Second", "", 1, false, ItemType_i4, nullptr, CWhitespaceUtils::WhitespaceRule_collapse, NoFacets(), nullptr};
    static inline CElementInfo* ms_elements[3] = {&ms_first, &ms_second, nullptr};
};

}  // namespace OrvexTest

namespace OrvexTest {

inline bool CTestClassElementInfo::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                                  CXmlElement*, CXmlElement** ppCurrent, const char*, XmlElementType) {
    if (!IsThisElement(ctx, *ppCurrent)) return false;
    CSmartPtr<CTestRecord> child = new CTestRecord();
    FromXml_Int(child, *ppCurrent, (*ppCurrent)->GetFirstElement(), ctx, false);
    OxVariant value;
    value.SetXmlObject(child);
    InvokePropertySet(pClass, value, **ppCurrent);
    *ppCurrent = (*ppCurrent)->GetNextSiblingElement();
    return true;
}

// A class whose tables are chosen per instance and whose properties live in a map of
// variants: enough to drive the walks through any combination of members.
class CTestBag : public CXmlGeneratedClass {
public:
    CTestBag(CParentElementInfo* pParent, CElementInfo** ppElements, const char* pszName = nullptr)
        : m_pParent(pParent), m_ppElements(ppElements), m_nResets(0) {
        SetElementName(pszName ? pszName : pParent->GetElementName().c_str());
    }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return m_pParent->GetElementNamespace(); }
    std::string GetTargetNamespace() const override { return m_pParent->GetElementNamespace(); }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (bRead) {
            auto it = m_values.find(nIndex);
            if (it != m_values.end()) value = it->second;
        } else {
            m_values[nIndex] = value;
        }
    }
    CParentElementInfo* GetParentElementInfo() const override { return m_pParent; }
    CElementInfo** GetClassElementInfo() const override { return m_ppElements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return NoAttributes(); }
    void ResetToDefaults() override {
        m_values.clear();
        ++m_nResets;
    }
    bool Has(int nIndex) const { return m_values.count(nIndex) != 0; }
    std::string Text(int nIndex) const { return m_values.at(nIndex).ToString(nullptr); }
    using CXmlObjectBase::GetElementName;

    CParentElementInfo* m_pParent;
    CElementInfo** m_ppElements;
    std::map<int, OxVariant> m_values;
    int m_nResets;
};

// A class that holds one object of its own kind under the element "Nest": any depth of
// nesting, in both walks.
class CTestNest;

class CTestNestElementInfo : public CTestClassElementInfo {
public:
    CTestNestElementInfo() : CTestClassElementInfo("Nest", "", 0) {}

protected:
    bool ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                        CXmlElement** ppCurrent, const char*, XmlElementType) override;
};

class CTestNest : public CTestOneChild {
public:
    CTestNest() { SetElementName("Nest"); }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    // The object the reading walk makes for a child element.
    virtual CTestNest* CreateChild() const { return new CTestNest(); }

    CTestNest* Child() const { return static_cast<CTestNest*>(static_cast<CXmlObjectBase*>(m_child)); }

    // A chain of nLevels objects, built and counted without recursion.
    static CSmartPtr<CTestNest> Chain(int32_t nLevels) {
        CSmartPtr<CTestNest> root = new CTestNest();
        for (CTestNest* p = root; --nLevels > 0; p = p->Child()) p->m_child = new CTestNest();
        return root;
    }
    static int32_t Levels(const CTestNest* p) {
        int32_t n = 0;
        for (; p; p = p->Child()) ++n;
        return n;
    }

    static inline CParentElementInfo ms_parent =
        CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Nest", "", true, false, -1,
                           ItemType_invalid, nullptr, false);
    static inline CTestNestElementInfo ms_child;
    static inline CElementInfo* ms_elements[2] = {&ms_child, nullptr};
};

inline bool CTestNestElementInfo::ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass,
                                                 CXmlElement*, CXmlElement** ppCurrent, const char*, XmlElementType) {
    if (!IsThisElement(ctx, *ppCurrent)) return false;
    CSmartPtr<CTestNest> child = static_cast<CTestNest*>(pClass)->CreateChild();
    FromXml_Int(child, *ppCurrent, (*ppCurrent)->GetFirstElement(), ctx, false);
    OxVariant value;
    value.SetXmlObject(child);
    InvokePropertySet(pClass, value, **ppCurrent);
    *ppCurrent = (*ppCurrent)->GetNextSiblingElement();
    return true;
}

}  // namespace OrvexTest
