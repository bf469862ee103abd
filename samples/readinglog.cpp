// Generated class for the element ReadingLog: a station's log with long runs of repeating
// elements (the large document of the benchmarks).
#include "readinglog.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);
static const char* const NS = "urn:orvex:samples:readings";

CMetaDataHolder CReadingLog::ms_metaData;

enum { Prop_Station = 0, Prop_Sensor, Prop_Sequence, Prop_Value, Prop_Level, Prop_Valid, Prop_Note };

void CReadingLog::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "ReadingLog", NS,
                                             true, false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("Station", NS, Prop_Station, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqPrimCol("Sensor", NS, Prop_Sensor));
    builder.AddElement(new CElementInfoSeqPrimCol("Sequence", NS, Prop_Sequence));
    builder.AddElement(new CElementInfoSeqPrimCol("Value", NS, Prop_Value));
    builder.AddElement(new CElementInfoSeqPrimCol("Level", NS, Prop_Level));
    builder.AddElement(new CElementInfoSeqPrimCol("Valid", NS, Prop_Valid));
    builder.AddElement(new CElementInfoSeqPrimCol("Note", NS, Prop_Note));
}

CReadingLog::CReadingLog() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("ReadingLog");
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    m_Sensor = new CstringCol("Sensor", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                              collapse, nullptr);
    m_Sequence = new Ci8Col("Sequence", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                            collapse, nullptr);
    m_Value = new Cr8Col("Value", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1, collapse,
                         "%.3f");
    m_Level = new Ci4Col("Level", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1, collapse,
                         nullptr);
    m_Valid = new CbooleanCol("Valid", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                              collapse, nullptr);
    m_Note = new CstringCol("Note", NS, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1,
                            CWhitespaceUtils::WhitespaceRule_preserve, nullptr);
    ResetToDefaults();
}

CReadingLog::~CReadingLog() {}

void CReadingLog::ResetToDefaults() {
    m_Station.clear();
    m_Sensor->Clear();
    m_Sequence->Clear();
    m_Value->Clear();
    m_Level->Clear();
    m_Valid->Clear();
    m_Note->Clear();
}

CParentElementInfo* CReadingLog::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CReadingLog::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CReadingLog::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CReadingLog::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Station:
            if (bRead)
                value.SetString(m_Station);
            else
                m_Station = value.GetString();
            break;
        case Prop_Sensor:
            if (bRead) value.SetXmlCollection(m_Sensor);
            break;
        case Prop_Sequence:
            if (bRead) value.SetXmlCollection(m_Sequence);
            break;
        case Prop_Value:
            if (bRead) value.SetXmlCollection(m_Value);
            break;
        case Prop_Level:
            if (bRead) value.SetXmlCollection(m_Level);
            break;
        case Prop_Valid:
            if (bRead) value.SetXmlCollection(m_Valid);
            break;
        case Prop_Note:
            if (bRead) value.SetXmlCollection(m_Note);
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
