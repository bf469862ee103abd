// Generated class for the element Envelope.
#include "envelope.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CEnvelope::ms_metaData;

static const char NS[] = "urn:orvex:samples:envelope";

enum { Prop_AnyAttribute = 0, Prop_Header = 1, Prop_Signature = 2, Prop_Stamp = 3, Prop_Body = 4 };

void CEnvelope::BuildMetaData(CMetaDataBuilder& builder) {
    // Attributes of the envelope's own namespace are no wildcard's: they fail as unknown.
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Envelope", NS, true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoAny("AnyAttribute", "", Prop_AnyAttribute, true, "##other", NS, nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Header", NS, Prop_Header, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(
        new CElementInfoSeqUntpdOpt("Signature", NS, Prop_Signature, "urn:orvex:sig urn:orvex:sig2", NS));
    builder.AddElement(new CElementInfoSeqUntpdCol("Stamp", NS, Prop_Stamp));
    builder.AddElement(new CElementInfoSeqUntpdCol("AnyElement", NS, Prop_Body));
}

CEnvelope::CEnvelope() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Envelope");
    m_AnyAttribute = new CAttributeCol("", "##other", NS);
    m_Stamp = new CElementCol("", "##any", NS, 0, -1);
    m_Body = new CElementCol("", "##other", NS, 0, -1);
    ResetToDefaults();
}

CEnvelope::~CEnvelope() {}

void CEnvelope::ResetToDefaults() {
    m_AnyAttribute->Clear();
    m_Header.clear();
    m_Signature = nullptr;
    m_Stamp->Clear();
    m_Body->Clear();
}

CParentElementInfo* CEnvelope::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CEnvelope::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CEnvelope::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CEnvelope::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_AnyAttribute:
            if (bRead) value.SetXmlCollection(m_AnyAttribute);
            break;
        case Prop_Header:
            if (bRead)
                value.SetString(m_Header);
            else
                m_Header = value.GetString();
            break;
        case Prop_Signature:
            if (bRead) {
                value.SetXmlObject(m_Signature);
            } else {
                CSmartPtr<CXmlObjectBase> pObject = value.GetXmlObject();
                CElement* pElement = dynamic_cast<CElement*>(pObject.Get());
                if (pObject && !pElement) throw COxInvalidParamException("Signature must hold a CElement");
                m_Signature = pElement;
            }
            break;
        case Prop_Stamp:
            if (bRead) value.SetXmlCollection(m_Stamp);
            break;
        case Prop_Body:
            if (bRead) value.SetXmlCollection(m_Body);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
