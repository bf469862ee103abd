// Generated class for the complex type Party of the order book.
#include "party.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace OrderBook {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CParty::ms_metaData;

static const char NS[] = "urn:example:orders";

enum { Prop_Vip = 0, Prop_Name, Prop_Email };

void CParty::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Party", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("vip", "", Prop_Vip, true, ItemType_boolean, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("name", NS, Prop_Name, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("email", NS, Prop_Email, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
}

CParty::CParty() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Party");
    ResetToDefaults();
}

CParty::~CParty() {}

void CParty::ResetToDefaults() {
    m_Vip = false;
    m_bValidVip = false;
    m_Name.clear();
    m_Email.clear();
    m_bValidEmail = false;
}

void CParty::SetVip(bool value) {
    m_Vip = value;
    m_bValidVip = true;
}

void CParty::SetEmail(const std::string& value) {
    m_Email = value;
    m_bValidEmail = true;
}

CParentElementInfo* CParty::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CParty::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CParty::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CParty::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Vip:
            if (bRead) {
                if (m_bValidVip) value.SetBoolean(m_Vip);
            } else {
                SetVip(value.GetBoolean());
            }
            break;
        case Prop_Name:
            if (bRead)
                value.SetString(m_Name);
            else
                m_Name = value.GetString();
            break;
        case Prop_Email:
            if (bRead) {
                if (m_bValidEmail) value.SetString(m_Email);
            } else {
                SetEmail(value.GetString());
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace OrderBook
