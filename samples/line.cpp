// Generated class for the element Line of an order, and the collection of lines.
#include "line.h"

#include "productfactory.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CLine::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Number = 0, Prop_Product, Prop_Quantity };

void CLine::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Line", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("number", "", Prop_Number, false, ItemType_i4, nullptr, collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqAbsClsMnd("Product", NS, Prop_Product, XmlElementType_Element,
                                                    &CProductFactory::CreateProduct));
    builder.AddElement(new CElementInfoSeqPrimMnd("Quantity", NS, Prop_Quantity, false, ItemType_i4, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
}

CLine::CLine() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Line");
    ResetToDefaults();
}

CLine::~CLine() {}

void CLine::ResetToDefaults() {
    m_Number = 0;
    m_Product = nullptr;
    m_Quantity = 0;
}

void CLine::SetProduct(CProduct* value) {
    Throw_IfPropertyIsNull(value, "Product");
    CXmlObjectBase::SetElementName(value, "Product");
    m_Product = value;
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
        case Prop_Product:
            if (bRead) {
                value.SetXmlObject(m_Product);
            } else {
                CSmartPtr<CXmlObjectBase> pObject = value.GetXmlObject();
                CProduct* pProduct = dynamic_cast<CProduct*>(pObject.Get());
                if (!pProduct) throw COxInvalidParamException("Product must hold a CProduct");
                SetProduct(pProduct);
            }
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

}  // namespace Samples
