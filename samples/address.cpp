// Generated class for the complex type Address of the shop.
#include "address.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CAddress::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Street = 0, Prop_City, Prop_Country };

void CAddress::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Address", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("Street", NS, Prop_Street, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("City", NS, Prop_City, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("Country", NS, Prop_Country, false, ItemType_string, nullptr,
                                                  preserve, CPrimitiveRestrictions(), nullptr));
}

CAddress::CAddress() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Address");
    ResetToDefaults();
}

CAddress::CAddress(const CAddress& rhs)
    : CXmlGeneratedClass(rhs),
      m_Street(rhs.m_Street),
      m_City(rhs.m_City),
      m_Country(rhs.m_Country),
      m_bValidCountry(rhs.m_bValidCountry) {}

CAddress& CAddress::operator=(const CAddress& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Street = rhs.m_Street;
    m_City = rhs.m_City;
    m_Country = rhs.m_Country;
    m_bValidCountry = rhs.m_bValidCountry;
    return *this;
}

CAddress::~CAddress() {}

void CAddress::ResetToDefaults() {
    m_Street.clear();
    m_City.clear();
    m_Country.clear();
    m_bValidCountry = false;
}

void CAddress::SetCountry(const std::string& value) {
    m_Country = value;
    m_bValidCountry = true;
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
        case Prop_Country:
            if (bRead) {
                if (m_bValidCountry) value.SetString(m_Country);
            } else {
                SetCountry(value.GetString());
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
