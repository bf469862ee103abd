// Generated class for the element Shop.
#include "shop.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CShop::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Name = 0, Prop_Order };

void CShop::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Shop", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("name", "", Prop_Name, true, ItemType_string, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_preserve,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqClsCol("Order", NS, Prop_Order, XmlElementType_Element));
}

CShop::CShop() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Shop");
    m_Order = new COrderCol("Order", NS, 0, -1);
    ResetToDefaults();
}

CShop::~CShop() {}

void CShop::ResetToDefaults() {
    m_Name.clear();
    m_bValidName = false;
    m_Order->Clear();
}

void CShop::SetName(const std::string& value) {
    m_Name = value;
    m_bValidName = true;
}

CParentElementInfo* CShop::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CShop::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CShop::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CShop::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Name:
            if (bRead) {
                if (m_bValidName) value.SetString(m_Name);
            } else {
                SetName(value.GetString());
            }
            break;
        case Prop_Order:
            if (bRead) value.SetXmlCollection(m_Order);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
