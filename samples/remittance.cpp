// Generated class for the element Remittance of urn:orvex:samples:remittance, whose schema
// qualifies its attributes.
#include "remittance.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

static const char* const NS = "urn:orvex:samples:remittance";

CMetaDataHolder CRemittance::ms_metaData;

enum { Prop_Reference = 0, Prop_Urgency, Prop_Payer };

void CRemittance::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Remittance", NS,
                                             true, false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("reference", NS, Prop_Reference, false, ItemType_string, nullptr,
                                                     preserve, CPrimitiveRestrictions(), nullptr));
    builder.AddAttribute(new CAttributeInfoEnum("urgency", NS, Prop_Urgency, true, &Priority_EnumToText,
                                                &Priority_TextToEnum, "normal"));
    builder.AddElement(new CElementInfoSeqPrimMnd("Payer", NS, Prop_Payer, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
}

CRemittance::CRemittance() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Remittance");
    ResetToDefaults();
}

CRemittance::CRemittance(const CRemittance& rhs)
    : CXmlGeneratedClass(rhs),
      m_Reference(rhs.m_Reference),
      m_Urgency(rhs.m_Urgency),
      m_bValidUrgency(rhs.m_bValidUrgency),
      m_Payer(rhs.m_Payer) {}

CRemittance& CRemittance::operator=(const CRemittance& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Reference = rhs.m_Reference;
    m_Urgency = rhs.m_Urgency;
    m_bValidUrgency = rhs.m_bValidUrgency;
    m_Payer = rhs.m_Payer;
    return *this;
}

CRemittance::~CRemittance() {}

void CRemittance::ResetToDefaults() {
    m_Reference.clear();
    m_Urgency = Priority_normal;
    m_bValidUrgency = false;
    m_Payer.clear();
}

CParentElementInfo* CRemittance::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CRemittance::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CRemittance::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CRemittance::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Reference:
            if (bRead)
                value.SetString(m_Reference);
            else
                m_Reference = value.GetString();
            break;
        case Prop_Urgency:
            if (bRead) {
                if (m_bValidUrgency) value.SetI4(m_Urgency);
            } else {
                SetUrgency(static_cast<Priority>(value.GetI4()));
            }
            break;
        case Prop_Payer:
            if (bRead)
                value.SetString(m_Payer);
            else
                m_Payer = value.GetString();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
