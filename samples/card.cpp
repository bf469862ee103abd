// Generated class for the element Card of a payment.
#include "card.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CCard::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Holder = 0, Prop_Number };

void CCard::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Card", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("Holder", NS, Prop_Holder, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Number", NS, Prop_Number, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
}

CCard::CCard() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Card");
    ResetToDefaults();
}

CCard::CCard(const CCard& rhs) : CXmlGeneratedClass(rhs), m_Holder(rhs.m_Holder), m_Number(rhs.m_Number) {}

CCard& CCard::operator=(const CCard& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Holder = rhs.m_Holder;
    m_Number = rhs.m_Number;
    return *this;
}

CCard::~CCard() {}

void CCard::ResetToDefaults() {
    m_Holder.clear();
    m_Number.clear();
}

CParentElementInfo* CCard::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CCard::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CCard::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CCard::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Holder:
            if (bRead)
                value.SetString(m_Holder);
            else
                m_Holder = value.GetString();
            break;
        case Prop_Number:
            if (bRead)
                value.SetString(m_Number);
            else
                m_Number = value.GetString();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
