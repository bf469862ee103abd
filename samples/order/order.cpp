// Generated class for the complex type Order of the order book, and the collection of orders.
#include "order.h"

#include "orderbookfactory.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace OrderBook {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder COrder::ms_metaData;

static const char NS[] = "urn:example:orders";

enum { Prop_Id = 0, Prop_Placed, Prop_Customer, Prop_ShipTo, Prop_Status, Prop_Note, Prop_Line, Prop_Total, Prop_Paid };

void COrder::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Order", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("id", "", Prop_Id, false, ItemType_ui4, nullptr, collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddAttribute(new CAttributeInfoPrimitive("placed", "", Prop_Placed, false, ItemType_date, nullptr, collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqClsMnd("customer", NS, Prop_Customer, XmlElementType_Element,
                                                 &COrderBookFactory::CreateClass, COrderBookFactory::ClassId_Party,
                                                 false));
    builder.AddElement(new CElementInfoSeqClsOpt("shipTo", NS, Prop_ShipTo, XmlElementType_Element,
                                                 &COrderBookFactory::CreateClass, COrderBookFactory::ClassId_Address));
    builder.AddElement(
        new CElementInfoSeqEnumMnd("status", NS, Prop_Status, false, &Status_EnumToText, &Status_TextToEnum, nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("note", NS, Prop_Note, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqClsCol("line", NS, Prop_Line, XmlElementType_Element));
    builder.AddElement(new CElementInfoSeqPrimMnd("total", NS, Prop_Total, false, ItemType_decimal, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("paid", NS, Prop_Paid, false, ItemType_boolean, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
}

COrder::COrder() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Order");
    m_Line = new CLineCol("line", NS, 1, -1);
    ResetToDefaults();
}

COrder::~COrder() {}

void COrder::ResetToDefaults() {
    m_Id = 0;
    m_Placed = CDateTime();
    m_Customer = new CParty();
    CXmlObjectBase::SetElementName(m_Customer, "customer");
    m_ShipTo = nullptr;
    m_Status = Status_open;
    m_Note.clear();
    m_bValidNote = false;
    m_Line->Clear();
    m_Total = CDecimal();
    m_Paid = false;
}

void COrder::SetCustomer(CParty* value) {
    Throw_IfPropertyIsNull(value, "customer");
    CXmlObjectBase::SetElementName(value, "customer");
    m_Customer = value;
}

void COrder::SetShipTo(CAddress* value) {
    if (value) CXmlObjectBase::SetElementName(value, "shipTo");
    m_ShipTo = value;
}

void COrder::SetNote(const std::string& value) {
    m_Note = value;
    m_bValidNote = true;
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
                value.SetUI4(m_Id);
            else
                m_Id = value.GetUI4();
            break;
        case Prop_Placed:
            if (bRead)
                value.SetDate(m_Placed);
            else
                m_Placed = value.GetDate();
            break;
        case Prop_Customer:
            if (bRead)
                value.SetXmlObject(m_Customer);
            else
                SetCustomer(ObjectOf<CParty>(value, "customer"));
            break;
        case Prop_ShipTo:
            if (bRead)
                value.SetXmlObject(m_ShipTo);
            else
                SetShipTo(ObjectOf<CAddress>(value, "shipTo"));
            break;
        case Prop_Status:
            if (bRead)
                value.SetI4(m_Status);
            else
                m_Status = static_cast<Status>(value.GetI4());
            break;
        case Prop_Note:
            if (bRead) {
                if (m_bValidNote) value.SetString(m_Note);
            } else {
                SetNote(value.GetString());
            }
            break;
        case Prop_Line:
            if (bRead) value.SetXmlCollection(m_Line);
            break;
        case Prop_Total:
            if (bRead)
                value.SetDecimal(m_Total);
            else
                m_Total = value.GetDecimal();
            break;
        case Prop_Paid:
            if (bRead)
                value.SetBoolean(m_Paid);
            else
                m_Paid = value.GetBoolean();
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

}  // namespace OrderBook
