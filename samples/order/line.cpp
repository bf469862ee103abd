// Generated class for the complex type Line of the order book, and the collection of lines.
#include "line.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace OrderBook {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CLine::ms_metaData;

static const char NS[] = "urn:example:orders";

enum { Prop_Number = 0, Prop_Sku, Prop_Description, Prop_Quantity, Prop_UnitPrice };

void CLine::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    // The simple type Sku: xs:string restricted by a pattern.
    const CPrimitiveRestrictions sku("[A-Z]{3}-\\d{5}", -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1);
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Line", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("number", "", Prop_Number, false, ItemType_i4, nullptr, collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(
        new CElementInfoSeqPrimMnd("sku", NS, Prop_Sku, false, ItemType_string, nullptr, preserve, sku, nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("description", NS, Prop_Description, false, ItemType_string, nullptr,
                                                  preserve, CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("quantity", NS, Prop_Quantity, false, ItemType_i4, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("unitPrice", NS, Prop_UnitPrice, false, ItemType_r8, nullptr,
                                                  collapse, CPrimitiveRestrictions(), nullptr));
}

CLine::CLine() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Line");
    ResetToDefaults();
}

CLine::~CLine() {}

void CLine::ResetToDefaults() {
    m_Number = 0;
    m_Sku.clear();
    m_Description.clear();
    m_Quantity = 0;
    m_UnitPrice = 0.0;
}

CParentElementInfo* CLine::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CLine::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CLine::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CLine::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Number:
            if (bRead)
                value.SetI4(m_Number);
            else
                m_Number = value.GetI4();
            break;
        case Prop_Sku:
            if (bRead)
                value.SetString(m_Sku);
            else
                m_Sku = value.GetString();
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
        case Prop_UnitPrice:
            if (bRead)
                value.SetR8(m_UnitPrice);
            else
                m_UnitPrice = value.GetR8();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

// A new item for an element of the collection.
static CSmartPtr<CXmlObjectBase> NewLine(CXmlElement*) { return new CLine(); }

CLineCol::CLineCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs)
    : CXmlCollection(pszElementName, pszNamespace, nMinOccurs, nMaxOccurs), CInstanceMonitor("CLineCol") {}

CLineCol::~CLineCol() {}

void CLineCol::AddAt(int nIndex, CLine* pLine) {
    Throw_IfPropertyIsNull(pLine, GetElementName().c_str());
    CXmlObjectBase::SetElementName(pLine, GetElementName().c_str());
    AddItemAt(nIndex, pLine);
}

CSmartPtr<CLine> CLineCol::Item(int nIndex) const { return static_cast<CLine*>(GetNodeAtIndex(nIndex)->m_pItem.Get()); }

void CLineCol::ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,
                         bool) const {
    ItemsToXml_Int(pWriter, pszNamespace, ctx);
}

CXmlElement* CLineCol::FromXml_Int(CXmlElement* pParent, CXmlElement* pCurrent, const CSerializationContext& ctx,
                                   bool) {
    return ItemsFromXml_Int(pParent, pCurrent, ctx, &NewLine);
}

}  // namespace OrderBook
