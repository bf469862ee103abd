// Generated class for the element Customer of an order.
#include "customer.h"

#include "shopfactory.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CCustomer::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Vip = 0, Prop_Name, Prop_Address };

void CCustomer::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Customer", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("vip", "", Prop_Vip, true, ItemType_boolean, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Name", NS, Prop_Name, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqClsOpt("Address", NS, Prop_Address, XmlElementType_Element,
                                                 &CShopFactory::CreateClass, CShopFactory::ClassId_Address));
}

CCustomer::CCustomer() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Customer");
    ResetToDefaults();
}

CCustomer::~CCustomer() {}

void CCustomer::ResetToDefaults() {
    m_Vip = false;
    m_bValidVip = false;
    m_Name.clear();
    m_Address = nullptr;
}

void CCustomer::SetVip(bool value) {
    m_Vip = value;
    m_bValidVip = true;
}

void CCustomer::SetAddress(CAddress* value) {
    if (value) CXmlObjectBase::SetElementName(value, "Address");
    m_Address = value;
}

CParentElementInfo* CCustomer::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CCustomer::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CCustomer::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CCustomer::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
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
        case Prop_Address:
            if (bRead) {
                value.SetXmlObject(m_Address);
            } else {
                CSmartPtr<CXmlObjectBase> pObject = value.GetXmlObject();
                CAddress* pAddress = dynamic_cast<CAddress*>(pObject.Get());
                if (pObject && !pAddress) throw COxInvalidParamException("Address must hold a CAddress");
                m_Address = pAddress;
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
