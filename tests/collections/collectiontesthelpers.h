// Shared pieces of the collection tests: an event recorder, accessors for the protected
// services, a bindable test item that counts its instances, and a writer on a memory stream.
#pragma once

#include <gtest/gtest.h>
#include <orvexxml/orvexxml.h>

#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

namespace OrvexColTest {

using namespace OrvexXml;

inline const CSerializationContext& DefaultCtx() { return CSerializationContext::GetDefaultContext(); }

inline CSerializationContext IgnoringCounts() {
    CSerializationContext ctx;
    ctx.SetIgnoreInvalidCollectionCounts(true);
    return ctx;
}

// The public entry points refuse to work until generated code has announced its version.
inline const bool g_bRegistered = (Register(ORVEXXML_VERSION_MAJOR, ORVEXXML_VERSION_MINOR), true);

// The exact class and message of the exception fn throws.
template <class TException>
void ExpectThrowExact(const std::function<void()>& fn, const std::string& strExpected) {
    try {
        fn();
        ADD_FAILURE() << "nothing was thrown; expected: " << strExpected;
    } catch (const COxException& e) {
        EXPECT_EQ(typeid(TException), typeid(e)) << "message: " << e.GetMessage();
        EXPECT_EQ(strExpected, e.GetMessage());
    }
}

#define EXPECT_COL_THROW(statement, ExceptionClass, message) \
    OrvexColTest::ExpectThrowExact<ExceptionClass>([&]() { statement; }, message)

// Records the events it hears as a log of "type[:value][#count]" entries: the event's number,
// the value behind its data (as a 32-bit index for remove events, through pfnRead for add
// events), and the count of pCounted at the time.
class CEventRecorder : public IEventSink {
public:
    typedef std::string (*ReadItem)(void* pData);

    explicit CEventRecorder(ReadItem pfnRead = nullptr, const CXmlCollectionBase* pCounted = nullptr)
        : m_pfnRead(pfnRead), m_pCounted(pCounted) {}

    void OnEvent(CXmlObjectBase* pSource, MsgType type, void* pData) override {
        std::string strEntry = std::to_string(static_cast<int>(type));
        if (pData && (type == MsgType_CollectionRemove || type == MsgType_CollectionRemoveComplete))
            strEntry += ":" + std::to_string(*static_cast<int32_t*>(pData));
        else if (pData && m_pfnRead)
            strEntry += ":" + m_pfnRead(pData);
        if (m_pCounted) strEntry += "#" + std::to_string(m_pCounted->GetCount());
        m_strLog += (m_strLog.empty() ? "" : " ") + strEntry;
        m_sources.push_back(pSource);
        m_data.push_back(pData);
        if (m_onEvent) m_onEvent(type);
    }

    std::string m_strLog;
    std::vector<CXmlObjectBase*> m_sources;
    std::vector<void*> m_data;
    std::function<void(MsgType)> m_onEvent;  // optional hook, called after recording

private:
    ReadItem m_pfnRead;
    const CXmlCollectionBase* m_pCounted;
};

template <class T>
std::string ReadAs(void* pData) {
    if constexpr (std::is_same<T, std::string>::value)
        return *static_cast<std::string*>(pData);
    else if constexpr (std::is_same<T, bool>::value)
        return *static_cast<bool*>(pData) ? "true" : "false";
    else
        return std::to_string(*static_cast<T*>(pData));
}

// A typed collection with its protected parts opened for the tests.
template <class TCol>
class CTestable : public TCol {
public:
    using TCol::AddFromString;
    using TCol::FromXml_Int;
    using TCol::GetTargetNamespace;
    using TCol::TCol;
    using TCol::ToXml_Int;
};

// Builds a typed collection with no facets.
template <class TCol>
CSmartPtr<CTestable<TCol>> MakeCol(const char* pszName = "v", const char* pszNamespace = "", int nMin = 0,
                                   int nMax = -1,
                                   CWhitespaceUtils::WhitespaceRule eRule = CWhitespaceUtils::WhitespaceRule_collapse,
                                   const char* pszFormat = nullptr) {
    return new CTestable<TCol>(pszName, pszNamespace, nMin, nMax, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr,
                               -1, -1, -1, eRule, pszFormat);
}

// The items of a typed collection, in order.
template <class TCol>
std::vector<typename TCol::ValueType> Items(const CSmartPtr<CTestable<TCol>>& col) {
    return std::vector<typename TCol::ValueType>(col->begin(), col->end());
}

// A bindable object as a collection item: counts living instances and destructions, and
// writes one attribute "id" when asked for its attributes.
class CTestItem : public CXmlObjectBase {
public:
    explicit CTestItem(const char* pszId) : m_strId(pszId) {
        SetElementName("item");
        ++ms_nLiving;
    }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    const std::string& GetId() const { return m_strId; }

    using CXmlObjectBase::Choice_Read_Collection;  // opened for the tests

    static inline int ms_nLiving = 0;
    static inline int ms_nDestroyed = 0;

protected:
    ~CTestItem() override {
        --ms_nLiving;
        ++ms_nDestroyed;
    }
    std::string GetTargetNamespace() const override { return ""; }
    void AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext&) const override {
        pWriter->WriteAttribute("id", "", m_strId, ItemType_string);
    }
    void ToXml_Int(CXmlWriter* pWriter, bool, const char*, const CSerializationContext&, bool) const override {
        pWriter->WriteStartElement(GetElementName(), "");
        pWriter->WriteEndElement();
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* pFirstChild, const CSerializationContext&, bool) override {
        return pFirstChild;
    }

private:
    std::string m_strId;
};

// A collection of CTestItem in the shape of a generated one, with the protected list
// services opened for the tests.
class CTestItemCol : public CXmlCollection {
public:
    CTestItemCol() : CXmlCollection("item", "", 0, -1) {}
    CTestItemCol(const char* pszName, int nMin, int nMax) : CXmlCollection(pszName, "", nMin, nMax) {}
    CTestItemCol(const CTestItemCol& other) = default;
    CTestItemCol& operator=(const CTestItemCol& other) = default;

    using CXmlCollection::AddAfterItem;
    using CXmlCollection::AddBeforeItem;
    using CXmlCollection::AddItemAt;
    using CXmlCollection::AppendItem;
    using CXmlCollection::AttributesToXml_Int;
    using CXmlCollection::CNode;
    using CXmlCollection::GetNodeAtIndex;
    using CXmlCollection::GetNodeForItem;
    using CXmlCollection::GetTargetNamespace;
    using CXmlCollection::m_pHead;
    using CXmlCollection::m_pTail;
    using CXmlCollection::PrependItem;
    using CXmlCollection::RemoveNode;

    COxIterator<CTestItem> begin() const { return COxIterator<CTestItem>(m_pHead); }
    COxIterator<CTestItem> end() const { return COxIterator<CTestItem>(nullptr); }

    // The ids of the items from head to tail, walking m_pNext, joined by commas.
    std::string Forward() const {
        std::string s;
        for (CNode* p = m_pHead; p; p = p->m_pNext) s += (s.empty() ? "" : ",") + Id(p);
        return s;
    }
    // The same from tail to head, walking m_pPrev.
    std::string Backward() const {
        std::string s;
        for (CNode* p = m_pTail; p; p = p->m_pPrev) s += (s.empty() ? "" : ",") + Id(p);
        return s;
    }

protected:
    ~CTestItemCol() override {}
    void ToXml_Int(CXmlWriter*, bool, const char*, const CSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* pFirstChild, const CSerializationContext&, bool) override {
        return pFirstChild;
    }

private:
    static std::string Id(CNode* p) { return static_cast<CTestItem*>(p->m_pItem.Get())->GetId(); }
};

// A text writer on a memory stream, unformatted, with an open element "p" (in the default
// namespace pszNamespace, if any) to write into.
class CWriterFixture {
public:
    explicit CWriterFixture(const char* pszNamespace = "") : m_writer(&m_stream) {
        m_writer.StartDocument();
        m_writer.SetFormatted(false);
        if (*pszNamespace) m_writer.SetDefaultNamespace(pszNamespace);
        m_writer.WriteStartElement("p", pszNamespace);
    }
    // Closes "p" and gives the whole text.
    std::string Finish() {
        m_writer.WriteEndElement();
        m_writer.EndDocument();
        return m_stream.GetText();
    }

    CTextStream m_stream;
    CXmlTextWriter m_writer;
};

}  // namespace OrvexColTest
