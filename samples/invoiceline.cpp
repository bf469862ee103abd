// Generated class for the element InvoiceLine: a sequence with attributes.
#include "invoiceline.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

static const char* const XML_NS = "http://www.w3.org/XML/1998/namespace";

CMetaDataHolder CInvoiceLine::ms_metaData;

enum { Prop_Id = 0, Prop_Currency, Prop_Priority, Prop_Status, Prop_Lang, Prop_Description, Prop_Quantity };

void CInvoiceLine::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "InvoiceLine", "",
                                             true, false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("id", "", Prop_Id, false, ItemType_i4, nullptr, collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddAttribute(new CAttributeInfoPrimitive("currency", "", Prop_Currency, true, ItemType_string, nullptr,
                                                     preserve, CPrimitiveRestrictions(), "EUR"));
    builder.AddAttribute(new CAttributeInfoEnum("priority", "", Prop_Priority, true, &Priority_EnumToText,
                                                &Priority_TextToEnum, nullptr));
    builder.AddAttribute(new CAttributeInfoEnum("status", "", Prop_Status, false, &OrderStatus_EnumToText,
                                                &OrderStatus_TextToEnum, nullptr));
    builder.AddAttribute(new CAttributeInfoPrimitive("lang", XML_NS, Prop_Lang, true, ItemType_string, nullptr,
                                                     collapse, CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Description", "", Prop_Description, false, ItemType_string, nullptr,
                                                  preserve, CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Quantity", "", Prop_Quantity, false, ItemType_i4, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
}

CInvoiceLine::CInvoiceLine() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("InvoiceLine");
    ResetToDefaults();
}

CInvoiceLine::CInvoiceLine(const CInvoiceLine& rhs)
    : CXmlGeneratedClass(rhs),
      m_Id(rhs.m_Id),
      m_Currency(rhs.m_Currency),
      m_bValidCurrency(rhs.m_bValidCurrency),
      m_Priority(rhs.m_Priority),
      m_bValidPriority(rhs.m_bValidPriority),
      m_Status(rhs.m_Status),
      m_Lang(rhs.m_Lang),
      m_bValidLang(rhs.m_bValidLang),
      m_Description(rhs.m_Description),
      m_Quantity(rhs.m_Quantity) {}

CInvoiceLine& CInvoiceLine::operator=(const CInvoiceLine& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Id = rhs.m_Id;
    m_Currency = rhs.m_Currency;
    m_bValidCurrency = rhs.m_bValidCurrency;
    m_Priority = rhs.m_Priority;
    m_bValidPriority = rhs.m_bValidPriority;
    m_Status = rhs.m_Status;
    m_Lang = rhs.m_Lang;
    m_bValidLang = rhs.m_bValidLang;
    m_Description = rhs.m_Description;
    m_Quantity = rhs.m_Quantity;
    return *this;
}

CInvoiceLine::~CInvoiceLine() {}

void CInvoiceLine::ResetToDefaults() {
    m_Id = 0;
    m_Currency = "EUR";
    m_bValidCurrency = false;
    m_Priority = Priority_low;
    m_bValidPriority = false;
    m_Status = OrderStatus_pending;
    m_Lang.clear();
    m_bValidLang = false;
    m_Description.clear();
    m_Quantity = 0;
}

CParentElementInfo* CInvoiceLine::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CInvoiceLine::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CInvoiceLine::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CInvoiceLine::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Id:
            if (bRead)
                value.SetI4(m_Id);
            else
                m_Id = value.GetI4();
            break;
        case Prop_Currency:
            if (bRead) {
                if (m_bValidCurrency) value.SetString(m_Currency);
            } else {
                SetCurrency(value.GetString());
            }
            break;
        case Prop_Priority:
            if (bRead) {
                if (m_bValidPriority) value.SetI4(m_Priority);
            } else {
                SetPriority(static_cast<Priority>(value.GetI4()));
            }
            break;
        case Prop_Status:
            if (bRead)
                value.SetI4(m_Status);
            else
                m_Status = static_cast<OrderStatus>(value.GetI4());
            break;
        case Prop_Lang:
            if (bRead) {
                if (m_bValidLang) value.SetString(m_Lang);
            } else {
                SetLang(value.GetString());
            }
            break;
        case Prop_Description:
            if (bRead)
                value.SetString(m_Description);
            else
                m_Description = value.GetString();
            break;
        case Prop_Quantity:
            if (bRead)
                value.SetI4(m_Quantity);
            else
                m_Quantity = value.GetI4();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
