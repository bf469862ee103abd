// Generated class for the element Tally: a sequence with enumerations and repeating elements.
#include "tally.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CTally::ms_metaData;

enum { Prop_Label = 0, Prop_Status, Prop_Urgency, Prop_Count, Prop_Weight, Prop_Tag, Prop_History };

void CTally::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Tally", "", true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("Label", "", Prop_Label, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqEnumMnd("Status", "", Prop_Status, false, &OrderStatus_EnumToText,
                                                  &OrderStatus_TextToEnum, nullptr));
    builder.AddElement(new CElementInfoSeqEnumOpt("Urgency", "", Prop_Urgency, false, &Priority_EnumToText,
                                                  &Priority_TextToEnum, "normal"));
    builder.AddElement(new CElementInfoSeqPrimCol("Count", "", Prop_Count));
    builder.AddElement(new CElementInfoSeqPrimCol("Weight", "", Prop_Weight));
    builder.AddElement(new CElementInfoSeqPrimCol("Tag", "", Prop_Tag));
    builder.AddElement(new CElementInfoSeqEnumCol("History", "", Prop_History));
}

CTally::CTally() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Tally");
    m_Count = new Ci4Col("Count", "", 1, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                         CWhitespaceUtils::WhitespaceRule_collapse, nullptr);
    m_Weight = new Cr8Col("Weight", "", 0, 5, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                          CWhitespaceUtils::WhitespaceRule_collapse, "%.2f");
    m_Tag = new CstringCol("Tag", "", 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                           CWhitespaceUtils::WhitespaceRule_preserve, nullptr);
    m_History = new COrderStatusCol("History", "", 0, -1);
    ResetToDefaults();
}

CTally::~CTally() {}

void CTally::ResetToDefaults() {
    m_Label.clear();
    m_Status = OrderStatus_pending;
    m_Urgency = Priority_normal;
    m_bValidUrgency = false;
    m_Count->Clear();
    m_Weight->Clear();
    m_Tag->Clear();
    m_History->Clear();
}

CParentElementInfo* CTally::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CTally::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CTally::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CTally::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Label:
            if (bRead)
                value.SetString(m_Label);
            else
                m_Label = value.GetString();
            break;
        case Prop_Status:
            if (bRead)
                value.SetI4(m_Status);
            else
                m_Status = static_cast<OrderStatus>(value.GetI4());
            break;
        case Prop_Urgency:
            if (bRead) {
                if (m_bValidUrgency) value.SetI4(m_Urgency);
            } else {
                SetUrgency(static_cast<Priority>(value.GetI4()));
            }
            break;
        case Prop_Count:
            if (bRead) value.SetXmlCollection(m_Count);
            break;
        case Prop_Weight:
            if (bRead) value.SetXmlCollection(m_Weight);
            break;
        case Prop_Tag:
            if (bRead) value.SetXmlCollection(m_Tag);
            break;
        case Prop_History:
            if (bRead) value.SetXmlCollection(m_History);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
