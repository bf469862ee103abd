// Generated class for the element Selection: a choice between repeating elements, each of
// which needs at least one item when chosen.
#include "selection.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CSelection::ms_metaData;

enum { Prop_Number = 0, Prop_Word, Prop_Status };

void CSelection::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "Selection", "", true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoChoicePrimCol("Number", "", Prop_Number));
    builder.AddElement(new CElementInfoChoicePrimCol("Word", "", Prop_Word));
    builder.AddElement(new CElementInfoChoiceEnumCol("Status", "", Prop_Status));
}

CSelection::CSelection() {
    ms_metaData.Init(&BuildMetaData);
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

CParentElementInfo* CSelection::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CSelection::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CSelection::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

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
