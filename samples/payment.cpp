// Generated class for the element Payment of an order.
#include "payment.h"

#include "shopfactory.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CPayment::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Card = 0, Prop_Transfer };

void CPayment::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "Payment", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoChoiceClsOpt("Card", NS, Prop_Card, XmlElementType_Element,
                                                    &CShopFactory::CreateClass, CShopFactory::ClassId_Card));
    builder.AddElement(new CElementInfoChoiceClsOpt("Transfer", NS, Prop_Transfer, XmlElementType_Element,
                                                    &CShopFactory::CreateClass, CShopFactory::ClassId_Transfer));
}

CPayment::CPayment() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Payment");
    ResetToDefaults();
}

CPayment::~CPayment() {}

void CPayment::ResetToDefaults() {
    m_strSelectedElement.clear();
    m_Card = nullptr;
    m_Transfer = nullptr;
}

void CPayment::SetCard(CCard* value) {
    Choice_SelectElement("Card", value, m_strSelectedElement);
    if (value) CXmlObjectBase::SetElementName(value, "Card");
    m_Card = value;
}

void CPayment::SetTransfer(CTransfer* value) {
    Choice_SelectElement("Transfer", value, m_strSelectedElement);
    if (value) CXmlObjectBase::SetElementName(value, "Transfer");
    m_Transfer = value;
}

CParentElementInfo* CPayment::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CPayment::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CPayment::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CPayment::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Card:
            if (bRead) {
                value.SetXmlObject(m_Card);
            } else {
                CSmartPtr<CXmlObjectBase> pObject = value.GetXmlObject();
                CCard* pCard = dynamic_cast<CCard*>(pObject.Get());
                if (pObject && !pCard) throw COxInvalidParamException("Card must hold a CCard");
                SetCard(pCard);
            }
            break;
        case Prop_Transfer:
            if (bRead) {
                value.SetXmlObject(m_Transfer);
            } else {
                CSmartPtr<CXmlObjectBase> pObject = value.GetXmlObject();
                CTransfer* pTransfer = dynamic_cast<CTransfer*>(pObject.Get());
                if (pObject && !pTransfer) throw COxInvalidParamException("Transfer must hold a CTransfer");
                SetTransfer(pTransfer);
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
