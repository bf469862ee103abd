// Shared pieces of the collection tests: an event recorder, accessors for the protected
// services, a bindable test item that counts its instances, and a writer on a memory stream.
#pragma once

#include <gtest/gtest.h>
#include <orvexxml/orvexxml.h>

#include <cstring>
#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

namespace OrvexColTest {

using namespace OrvexXml;

inline const CSerializationContext& DefaultCtx() { return CSerializationContext::GetDefaultContext(); }

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

// One event as a listener heard it. The data is kept as the raw pointer, and the value
// behind it is read at the time of the event (as text for strings, as a number otherwise).
struct SEvent {
    CXmlObjectBase* pSource;
    IEventSink::MsgType eType;
    void* pData;
    std::string strValue;  // the value behind pData, as read by the recorder's reader
    bool operator==(const SEvent& other) const {
        return pSource == other.pSource && eType == other.eType && pData == other.pData && strValue == other.strValue;
    }
};

inline std::ostream& operator<<(std::ostream& os, const SEvent& e) {
    return os << "{type " << static_cast<int>(e.eType) << ", data " << e.pData << ", value '" << e.strValue << "'}";
}

// Records every event it hears. pfnRead turns the data pointer of add events into text; the
// data of remove events is read as a 32-bit index.
class CEventRecorder : public IEventSink {
public:
    typedef std::string (*ReadItem)(void* pData);

    explicit CEventRecorder(ReadItem pfnRead = nullptr) : m_pfnRead(pfnRead) {}

    void OnEvent(CXmlObjectBase* pSource, MsgType type, void* pData) override {
        SEvent e{pSource, type, pData, std::string()};
        if (pData) {
            if (type == MsgType_CollectionRemove || type == MsgType_CollectionRemoveComplete)
                e.strValue = std::to_string(*static_cast<int32_t*>(pData));
            else if (m_pfnRead)
                e.strValue = m_pfnRead(pData);
        }
        m_events.push_back(e);
        if (m_onEvent) m_onEvent(e);
    }

    // The types heard, in order.
    std::vector<int> Types() const {
        std::vector<int> types;
        for (const SEvent& e : m_events) types.push_back(static_cast<int>(e.eType));
        return types;
    }

    std::vector<SEvent> m_events;
    std::function<void(const SEvent&)> m_onEvent;  // optional hook, called after recording

private:
    ReadItem m_pfnRead;
};

template <class T>
std::string ReadAs(void* pData) {
    if constexpr (std::is_same<T, std::string>::value)
        return *static_cast<std::string*>(pData);
    else if constexpr (std::is_same<T, char>::value || std::is_same<T, uint8_t>::value)
        return std::to_string(static_cast<int>(*static_cast<T*>(pData)));
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

    // The event statics of the object base, opened for the tests.
    using CXmlObjectBase::Choice_Read_Collection;
    using CXmlObjectBase::FireOnCollectionAddCompleteEvent;
    using CXmlObjectBase::FireOnCollectionAddEvent;
    using CXmlObjectBase::FireOnCollectionChangeEvent;
    using CXmlObjectBase::FireOnCollectionRemoveCompleteEvent;
    using CXmlObjectBase::FireOnCollectionRemoveEvent;

    static int ms_nLiving;
    static int ms_nDestroyed;

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

inline int CTestItem::ms_nLiving = 0;
inline int CTestItem::ms_nDestroyed = 0;

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
    using CXmlCollection::m_nCount;
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
    void ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                   bool) const override {
        for (CNode* p = m_pHead; p; p = p->m_pNext)
            CXmlObjectBase::ToXml_Int(p->m_pItem, pWriter, false, pszNamespace, ctx, false);
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* pFirstChild, const CSerializationContext&, bool) override {
        return pFirstChild;
    }

private:
    static std::string Id(CNode* p) { return static_cast<CTestItem*>(p->m_pItem.Get())->GetId(); }
};

// A text writer on a memory stream, unformatted, with an open element "p" to write into.
class CWriterFixture {
public:
    CWriterFixture() : m_writer(&m_stream) {
        m_writer.StartDocument();
        m_writer.SetFormatted(false);
        m_writer.WriteStartElement("p", "");
    }
    // Closes "p" and gives the whole text.
    std::string Finish() {
        m_writer.WriteEndElement();
        m_writer.EndDocument();
        return m_stream.GetText();
    }
    // The text written so far.
    std::string Current() { return m_stream.GetText(); }

    CTextStream m_stream;
    CXmlTextWriter m_writer;
};

}  // namespace OrvexColTest
