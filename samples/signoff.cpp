// Generated class for the model group Signoff of an order.
#include "signoff.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CSignoff::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_SignedBy = 0, Prop_SignedOn };

void CSignoff::BuildMetaData(CMetaDataBuilder& builder) {
    // A group reads the attributes of the element it stands in, none of which are its own.
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, "Signoff", NS,
                                             false, false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("SignedBy", NS, Prop_SignedBy, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("SignedOn", NS, Prop_SignedOn, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_collapse, CPrimitiveRestrictions(),
                                                  nullptr));
}

CSignoff::CSignoff() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Signoff");
    ResetToDefaults();
}

CSignoff::CSignoff(const CSignoff& rhs)
    : CXmlGeneratedClass(rhs),
      m_SignedBy(rhs.m_SignedBy),
      m_SignedOn(rhs.m_SignedOn),
      m_bValidSignedOn(rhs.m_bValidSignedOn) {}

CSignoff& CSignoff::operator=(const CSignoff& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_SignedBy = rhs.m_SignedBy;
    m_SignedOn = rhs.m_SignedOn;
    m_bValidSignedOn = rhs.m_bValidSignedOn;
    return *this;
}

CSignoff::~CSignoff() {}

void CSignoff::ResetToDefaults() {
    m_SignedBy.clear();
    m_SignedOn.clear();
    m_bValidSignedOn = false;
}

void CSignoff::SetSignedOn(const std::string& value) {
    m_SignedOn = value;
    m_bValidSignedOn = true;
}

CParentElementInfo* CSignoff::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CSignoff::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CSignoff::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CSignoff::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_SignedBy:
            if (bRead)
                value.SetString(m_SignedBy);
            else
                m_SignedBy = value.GetString();
            break;
        case Prop_SignedOn:
            if (bRead) {
                if (m_bValidSignedOn) value.SetString(m_SignedOn);
            } else {
                SetSignedOn(value.GetString());
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
