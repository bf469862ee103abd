// Generated class for the element Settings: an All group with enumerations and repeating elements.
#include "settings.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);
static const char* const NS = "urn:orvex:samples:settings";

CMetaDataHolder CSettings::ms_metaData;

enum { Prop_Name = 0, Prop_Mode, Prop_Fallback, Prop_Port, Prop_State };

void CSettings::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_All, XmlElementType_Element, "Settings", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoAllPrimMnd("Name", NS, Prop_Name, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(
        new CElementInfoAllEnumMnd("Mode", NS, Prop_Mode, false, &Priority_EnumToText, &Priority_TextToEnum, nullptr));
    builder.AddElement(new CElementInfoAllEnumOpt("Fallback", NS, Prop_Fallback, true, &OrderStatus_EnumToText,
                                                  &OrderStatus_TextToEnum, nullptr));
    builder.AddElement(new CElementInfoAllPrimCol("Port", NS, Prop_Port));
    builder.AddElement(new CElementInfoAllEnumCol("State", NS, Prop_State));
}

CSettings::CSettings() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Settings");
    m_Port = new Cui2Col("Port", NS, 1, 3, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                         CWhitespaceUtils::WhitespaceRule_collapse, nullptr);
    m_State = new COrderStatusCol("State", NS, 0, -1);
    ResetToDefaults();
}

CSettings::~CSettings() {}

void CSettings::ResetToDefaults() {
    m_Name.clear();
    m_Mode = Priority_low;
    m_Fallback = OrderStatus_pending;
    m_bValidFallback = false;
    m_Port->Clear();
    m_State->Clear();
}

CParentElementInfo* CSettings::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CSettings::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CSettings::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CSettings::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Name:
            if (bRead)
                value.SetString(m_Name);
            else
                m_Name = value.GetString();
            break;
        case Prop_Mode:
            if (bRead)
                value.SetI4(m_Mode);
            else
                m_Mode = static_cast<Priority>(value.GetI4());
            break;
        case Prop_Fallback:
            if (bRead) {
                if (m_bValidFallback) value.SetI4(m_Fallback);
            } else {
                SetFallback(static_cast<OrderStatus>(value.GetI4()));
            }
            break;
        case Prop_Port:
            if (bRead) value.SetXmlCollection(m_Port);
            break;
        case Prop_State:
            if (bRead) value.SetXmlCollection(m_State);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
