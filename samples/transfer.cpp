// Generated class for the element Transfer of a payment.
#include "transfer.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CTransfer::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Iban = 0, Prop_Reference };

void CTransfer::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Transfer", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("Iban", NS, Prop_Iban, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("Reference", NS, Prop_Reference, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
}

CTransfer::CTransfer() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Transfer");
    ResetToDefaults();
}

CTransfer::CTransfer(const CTransfer& rhs)
    : CXmlGeneratedClass(rhs),
      m_Iban(rhs.m_Iban),
      m_Reference(rhs.m_Reference),
      m_bValidReference(rhs.m_bValidReference) {}

CTransfer& CTransfer::operator=(const CTransfer& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Iban = rhs.m_Iban;
    m_Reference = rhs.m_Reference;
    m_bValidReference = rhs.m_bValidReference;
    return *this;
}

CTransfer::~CTransfer() {}

void CTransfer::ResetToDefaults() {
    m_Iban.clear();
    m_Reference.clear();
    m_bValidReference = false;
}

void CTransfer::SetReference(const std::string& value) {
    m_Reference = value;
    m_bValidReference = true;
}

CParentElementInfo* CTransfer::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CTransfer::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CTransfer::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CTransfer::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Iban:
            if (bRead)
                value.SetString(m_Iban);
            else
                m_Iban = value.GetString();
            break;
        case Prop_Reference:
            if (bRead) {
                if (m_bValidReference) value.SetString(m_Reference);
            } else {
                SetReference(value.GetString());
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
