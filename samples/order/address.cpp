// Generated class for the complex type Address of the order book.
#include "address.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace OrderBook {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CAddress::ms_metaData;

static const char NS[] = "urn:example:orders";

enum { Prop_Street = 0, Prop_City, Prop_Zip, Prop_Country };

void CAddress::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Address", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("street", NS, Prop_Street, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("city", NS, Prop_City, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("zip", NS, Prop_Zip, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("country", NS, Prop_Country, false, ItemType_string, nullptr,
                                                  preserve, CPrimitiveRestrictions(), nullptr));
}

CAddress::CAddress() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Address");
    ResetToDefaults();
}

CAddress::~CAddress() {}

void CAddress::ResetToDefaults() {
    m_Street.clear();
    m_City.clear();
    m_Zip.clear();
    m_Country.clear();
}

CParentElementInfo* CAddress::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CAddress::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CAddress::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CAddress::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Street:
            if (bRead)
                value.SetString(m_Street);
            else
                m_Street = value.GetString();
            break;
        case Prop_City:
            if (bRead)
                value.SetString(m_City);
            else
                m_City = value.GetString();
            break;
        case Prop_Zip:
            if (bRead)
                value.SetString(m_Zip);
            else
                m_Zip = value.GetString();
            break;
        case Prop_Country:
            if (bRead)
                value.SetString(m_Country);
            else
                m_Country = value.GetString();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace OrderBook
