// Generated class for the complex type Gadget, derived from Product.
#include "gadget.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CGadget::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Voltage = CProduct::Prop_FirstDerived, Prop_Brand };

void CGadget::BuildMetaData(CMetaDataBuilder& builder) {
    // The type takes part in derivation: an object under another element name writes xsi:type.
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Gadget", NS, true,
                                             true, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("voltage", "", Prop_Voltage, true, ItemType_i4, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    AddBaseElements(builder);
    builder.AddElement(new CElementInfoSeqPrimMnd("Brand", NS, Prop_Brand, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
}

CGadget::CGadget() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Gadget");
    ResetToDefaults();
}

CGadget::CGadget(const CGadget& rhs)
    : CProduct(rhs), m_Voltage(rhs.m_Voltage), m_bValidVoltage(rhs.m_bValidVoltage), m_Brand(rhs.m_Brand) {}

CGadget& CGadget::operator=(const CGadget& rhs) {
    CProduct::operator=(rhs);
    m_Voltage = rhs.m_Voltage;
    m_bValidVoltage = rhs.m_bValidVoltage;
    m_Brand = rhs.m_Brand;
    return *this;
}

CGadget::~CGadget() {}

void CGadget::ResetToDefaults() {
    CProduct::ResetToDefaults();
    m_Voltage = 0;
    m_bValidVoltage = false;
    m_Brand.clear();
}

void CGadget::SetVoltage(int value) {
    m_Voltage = value;
    m_bValidVoltage = true;
}

CParentElementInfo* CGadget::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CGadget::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CGadget::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CGadget::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Voltage:
            if (bRead) {
                if (m_bValidVoltage) value.SetI4(m_Voltage);
            } else {
                SetVoltage(value.GetI4());
            }
            break;
        case Prop_Brand:
            if (bRead)
                value.SetString(m_Brand);
            else
                m_Brand = value.GetString();
            break;
        default:
            CProduct::ExchangeProperty(nPropertyIndex, bRead, value);
    }
}

}  // namespace Samples
