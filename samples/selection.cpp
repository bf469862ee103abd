// Generated class for the element Selection: a choice between repeating elements, each of
// which needs at least one item when chosen.
#include "selection.h"

#include <atomic>
#include <cstdlib>

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

bool CSelection::ms_bMetaDataBuilt = false;
CParentElementInfo* CSelection::ms_pParentElementInfo = nullptr;
CElementInfo** CSelection::ms_ppElementInfo = nullptr;
CAttributeInfo** CSelection::ms_ppAttributeInfo = nullptr;

enum { Prop_Number = 0, Prop_Word, Prop_Status };

void CSelection::InitMetaData() {
    static std::atomic<bool> s_bReady(false);
    if (s_bReady.load(std::memory_order_acquire)) return;
    m_csInit.Enter();
    if (!ms_bMetaDataBuilt) {
        ms_pParentElementInfo = new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "Selection",
                                                       "", true, false, -1, ItemType_invalid, nullptr, false);
        ms_ppElementInfo = new CElementInfo*[4];
        ms_ppElementInfo[0] = new CElementInfoChoicePrimCol("Number", "", Prop_Number);
        ms_ppElementInfo[1] = new CElementInfoChoicePrimCol("Word", "", Prop_Word);
        ms_ppElementInfo[2] = new CElementInfoChoiceEnumCol("Status", "", Prop_Status);
        ms_ppElementInfo[3] = nullptr;
        ms_ppAttributeInfo = new CAttributeInfo*[1];
        ms_ppAttributeInfo[0] = nullptr;
        ms_bMetaDataBuilt = true;
        std::atexit(&CSelection::CleanupMetaData);
    }
    m_csInit.Leave();
    s_bReady.store(true, std::memory_order_release);
}

void CSelection::CleanupMetaData() { CleanMetaData(ms_pParentElementInfo, ms_ppElementInfo, ms_ppAttributeInfo); }

CSelection::CSelection() {
    InitMetaData();
    SetElementName("Selection");
    m_Number = new Ci8Col("Number", "", 1, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                          CWhitespaceUtils::WhitespaceRule_collapse, nullptr);
    m_Word = new CstringCol("Word", "", 1, 4, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                            CWhitespaceUtils::WhitespaceRule_collapse, nullptr);
    m_Status = new COrderStatusCol("Status", "", 2, -1);
    m_Number->AddEventListener(this);
    m_Word->AddEventListener(this);
    m_Status->AddEventListener(this);
    ResetToDefaults();
}

CSelection::~CSelection() {
    // The collections outlive nothing of ours, but their destruction fires events: stop listening first.
    m_Number->RemoveEventListener(this);
    m_Word->RemoveEventListener(this);
    m_Status->RemoveEventListener(this);
}

void CSelection::OnEvent(CXmlObjectBase* pSource, IEventSink::MsgType type, void*) {
    if (type != IEventSink::MsgType_CollectionChange) return;
    if (pSource == m_Number->GetBase()) Choice_CollectionChanged("Number", m_Number->GetCount(), m_strSelectedElement);
    if (pSource == m_Word->GetBase()) Choice_CollectionChanged("Word", m_Word->GetCount(), m_strSelectedElement);
    if (pSource == m_Status->GetBase()) Choice_CollectionChanged("Status", m_Status->GetCount(), m_strSelectedElement);
}

void CSelection::ResetToDefaults() {
    m_Number->Clear();
    m_Word->Clear();
    m_Status->Clear();
    m_strSelectedElement.clear();
}

CParentElementInfo* CSelection::GetParentElementInfo() const { return ms_pParentElementInfo; }
CElementInfo** CSelection::GetClassElementInfo() const { return ms_ppElementInfo; }
CAttributeInfo** CSelection::GetClassAttributeInfo() const { return ms_ppAttributeInfo; }

void CSelection::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Number:
            if (bRead) value.SetXmlCollection(m_Number);
            break;
        case Prop_Word:
            if (bRead) value.SetXmlCollection(m_Word);
            break;
        case Prop_Status:
            if (bRead) value.SetXmlCollection(m_Status);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
