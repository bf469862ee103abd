// Generated class for the element orderBook of the order book.
#include "orderbook.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace OrderBook {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder COrderBook::ms_metaData;

static const char NS[] = "urn:example:orders";

enum { Prop_Generated = 0, Prop_Order };

void COrderBook::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "orderBook", NS,
                                             true, false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("generated", "", Prop_Generated, true, ItemType_datetime, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqClsCol("order", NS, Prop_Order, XmlElementType_Element));
}

COrderBook::COrderBook() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("orderBook");
    m_Order = new COrderCol("order", NS, 0, -1);
    ResetToDefaults();
}

COrderBook::~COrderBook() {}

void COrderBook::ResetToDefaults() {
    m_Generated = CDateTime();
    m_bValidGenerated = false;
    m_Order->Clear();
}

void COrderBook::SetGenerated(const CDateTime& value) {
    m_Generated = value;
    m_bValidGenerated = true;
}

CParentElementInfo* COrderBook::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** COrderBook::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** COrderBook::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void COrderBook::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Generated:
            if (bRead) {
                if (m_bValidGenerated) value.SetDateTime(m_Generated);
            } else {
                SetGenerated(value.GetDateTime());
            }
            break;
        case Prop_Order:
            if (bRead) value.SetXmlCollection(m_Order);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace OrderBook
