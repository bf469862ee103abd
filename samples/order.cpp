// Generated class for the element Order of the shop, and the collection of orders.
#include "order.h"

#include "shopfactory.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder COrder::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Id = 0, Prop_Customer, Prop_ShipTo, Prop_Audit, Prop_Line, Prop_Payment, Prop_Signoff, Prop_Extension };

void COrder::BuildMetaData(CMetaDataBuilder& builder) {
    // Unknown attributes pass: the attributes of the model groups stand on this element too,
    // and the groups take them.
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Order", NS, false,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("id", "", Prop_Id, false, ItemType_string, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqClsMnd("Customer", NS, Prop_Customer, XmlElementType_Element,
                                                 &CShopFactory::CreateClass, CShopFactory::ClassId_Customer, false));
    builder.AddElement(new CElementInfoSeqClsOpt("ShipTo", NS, Prop_ShipTo, XmlElementType_Element,
                                                 &CShopFactory::CreateClass, CShopFactory::ClassId_Address));
    builder.AddElement(new CElementInfoSeqClsMnd("Audit", NS, Prop_Audit, XmlElementType_PseudoElement,
                                                 &CShopFactory::CreateClass, CShopFactory::ClassId_Audit, false));
    builder.AddElement(new CElementInfoSeqClsCol("Line", NS, Prop_Line, XmlElementType_Element));
    builder.AddElement(new CElementInfoSeqClsOpt("Payment", NS, Prop_Payment, XmlElementType_Element,
                                                 &CShopFactory::CreateClass, CShopFactory::ClassId_Payment));
    builder.AddElement(new CElementInfoSeqClsMnd("Signoff", NS, Prop_Signoff, XmlElementType_PseudoElement,
                                                 &CShopFactory::CreateClass, CShopFactory::ClassId_Signoff, true));
    builder.AddElement(new CElementInfoSeqUntpdCol("AnyElement", NS, Prop_Extension));
}

COrder::COrder() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Order");
    m_Line = new CLineCol("Line", NS, 1, -1);
    m_Extension = new CElementCol("", "##other", NS, 0, -1);
    ResetToDefaults();
}

COrder::~COrder() {}

void COrder::ResetToDefaults() {
    m_Id.clear();
    m_Customer = new CCustomer();
    m_ShipTo = nullptr;
    m_Audit = new CAudit();
    m_Line->Clear();
    m_Payment = nullptr;
    m_Signoff = new CSignoff();
    m_Extension->Clear();
}

void COrder::SetCustomer(CCustomer* value) {
    Throw_IfPropertyIsNull(value, "Customer");
    Throw_IfElementNameDiffers(value, "Customer");
    m_Customer = value;
}

void COrder::SetShipTo(CAddress* value) {
    if (value) CXmlObjectBase::SetElementName(value, "ShipTo");
    m_ShipTo = value;
}

void COrder::SetAudit(CAudit* value) {
    Throw_IfPropertyIsNull(value, "Audit");
    m_Audit = value;
}

void COrder::SetPayment(CPayment* value) {
    Throw_IfElementNameDiffers(value, "Payment");
    m_Payment = value;
}

void COrder::SetSignoff(CSignoff* value) {
    Throw_IfPropertyIsNull(value, "Signoff");
    m_Signoff = value;
}

CParentElementInfo* COrder::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** COrder::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** COrder::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

// The object of a class-valued property, checked against the property's class.
template <class T>
static T* ObjectOf(const OxVariant& value, const char* pszProperty) {
    CSmartPtr<CXmlObjectBase> pObject = value.GetXmlObject();
    T* pTyped = dynamic_cast<T*>(pObject.Get());
    if (pObject && !pTyped) {
        throw COxInvalidParamException(FormatString("The Property [%s] can't hold this class", pszProperty));
    }
    return pTyped;
}

void COrder::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Id:
            if (bRead)
                value.SetString(m_Id);
            else
                m_Id = value.GetString();
            break;
        case Prop_Customer:
            if (bRead)
                value.SetXmlObject(m_Customer);
            else
                SetCustomer(ObjectOf<CCustomer>(value, "Customer"));
            break;
        case Prop_ShipTo:
            if (bRead)
                value.SetXmlObject(m_ShipTo);
            else
                SetShipTo(ObjectOf<CAddress>(value, "ShipTo"));
            break;
        case Prop_Audit:
            if (bRead)
                value.SetXmlObject(m_Audit);
            else
                SetAudit(ObjectOf<CAudit>(value, "Audit"));
            break;
        case Prop_Line:
            if (bRead) value.SetXmlCollection(m_Line);
            break;
        case Prop_Payment:
            if (bRead)
                value.SetXmlObject(m_Payment);
            else
                SetPayment(ObjectOf<CPayment>(value, "Payment"));
            break;
        case Prop_Signoff:
            if (bRead)
                value.SetXmlObject(m_Signoff);
            else
                SetSignoff(ObjectOf<CSignoff>(value, "Signoff"));
            break;
        case Prop_Extension:
            if (bRead) value.SetXmlCollection(m_Extension);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

// A new item for an element of the collection.
static CSmartPtr<CXmlObjectBase> NewOrder(CXmlElement*) { return new COrder(); }

COrderCol::COrderCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs)
    : CXmlCollection(pszElementName, pszNamespace, nMinOccurs, nMaxOccurs), CInstanceMonitor("COrderCol") {}

COrderCol::~COrderCol() {}

void COrderCol::AddAt(int nIndex, COrder* pOrder) {
    Throw_IfPropertyIsNull(pOrder, GetElementName().c_str());
    CXmlObjectBase::SetElementName(pOrder, GetElementName().c_str());
    AddItemAt(nIndex, pOrder);
}

CSmartPtr<COrder> COrderCol::Item(int nIndex) const {
    return static_cast<COrder*>(GetNodeAtIndex(nIndex)->m_pItem.Get());
}

void COrderCol::ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                          bool) const {
    ItemsToXml_Int(pWriter, pszNamespace, ctx);
}

CXmlElement* COrderCol::FromXml_Int(CXmlElement* pParent, CXmlElement* pCurrent, const CSerializationContext& ctx,
                                    bool) {
    return ItemsFromXml_Int(pParent, pCurrent, ctx, &NewOrder);
}

}  // namespace Samples
