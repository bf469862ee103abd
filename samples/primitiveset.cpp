// Generated class for the element PrimitiveSet (namespace urn:orvex:samples:primitives).
#include "primitiveset.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);
static const char* const NS = "urn:orvex:samples:primitives";

CMetaDataHolder CPrimitiveSet::ms_metaData;

enum {
    Prop_ByteVal = 0,
    Prop_ShortVal,
    Prop_IntVal,
    Prop_LongVal,
    Prop_UByteVal,
    Prop_UShortVal,
    Prop_UIntVal,
    Prop_ULongVal,
    Prop_FloatVal,
    Prop_DoubleVal,
    Prop_Text,
    Prop_Flag
};

void CPrimitiveSet::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "PrimitiveSet", NS,
                                             true, false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("ByteVal", NS, Prop_ByteVal, false, ItemType_i1, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("ShortVal", NS, Prop_ShortVal, false, ItemType_i2, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("IntVal", NS, Prop_IntVal, false, ItemType_i4, nullptr, collapse,
                                                  CPrimitiveRestrictions(), "42"));
    builder.AddElement(new CElementInfoSeqPrimOpt("LongVal", NS, Prop_LongVal, false, ItemType_i8, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("UByteVal", NS, Prop_UByteVal, false, ItemType_ui1, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("UShortVal", NS, Prop_UShortVal, false, ItemType_ui2, nullptr,
                                                  collapse, CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("UIntVal", NS, Prop_UIntVal, false, ItemType_ui4, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("ULongVal", NS, Prop_ULongVal, false, ItemType_ui8, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("FloatVal", NS, Prop_FloatVal, false, ItemType_r4, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("DoubleVal", NS, Prop_DoubleVal, false, ItemType_r8, "%.3f", collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Text", NS, Prop_Text, false, ItemType_string, nullptr, collapse,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("Flag", NS, Prop_Flag, false, ItemType_boolean, nullptr, collapse,
                                                  CPrimitiveRestrictions(), "true"));
}

CPrimitiveSet::CPrimitiveSet() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("PrimitiveSet");
    ResetToDefaults();
}

CPrimitiveSet::CPrimitiveSet(const CPrimitiveSet& rhs) : CXmlGeneratedClass(rhs) { CopyMembers(rhs); }

CPrimitiveSet& CPrimitiveSet::operator=(const CPrimitiveSet& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    CopyMembers(rhs);
    return *this;
}

CPrimitiveSet::~CPrimitiveSet() {}

void CPrimitiveSet::CopyMembers(const CPrimitiveSet& rhs) {
    m_ByteVal = rhs.m_ByteVal;
    m_ShortVal = rhs.m_ShortVal;
    m_bValidShortVal = rhs.m_bValidShortVal;
    m_IntVal = rhs.m_IntVal;
    m_LongVal = rhs.m_LongVal;
    m_bValidLongVal = rhs.m_bValidLongVal;
    m_UByteVal = rhs.m_UByteVal;
    m_UShortVal = rhs.m_UShortVal;
    m_UIntVal = rhs.m_UIntVal;
    m_bValidUIntVal = rhs.m_bValidUIntVal;
    m_ULongVal = rhs.m_ULongVal;
    m_FloatVal = rhs.m_FloatVal;
    m_DoubleVal = rhs.m_DoubleVal;
    m_Text = rhs.m_Text;
    m_Flag = rhs.m_Flag;
    m_bValidFlag = rhs.m_bValidFlag;
}

void CPrimitiveSet::ResetToDefaults() {
    m_ByteVal = 0;
    m_ShortVal = 0;
    m_bValidShortVal = false;
    m_IntVal = 42;
    m_LongVal = 0;
    m_bValidLongVal = false;
    m_UByteVal = 0;
    m_UShortVal = 0;
    m_UIntVal = 0;
    m_bValidUIntVal = false;
    m_ULongVal = 0;
    m_FloatVal = 0;
    m_DoubleVal = 0;
    m_Text.clear();
    m_Flag = true;
    m_bValidFlag = false;
}

CParentElementInfo* CPrimitiveSet::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CPrimitiveSet::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CPrimitiveSet::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CPrimitiveSet::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_ByteVal:
            if (bRead)
                value.SetI1(m_ByteVal);
            else
                m_ByteVal = value.GetI1();
            break;
        case Prop_ShortVal:
            if (bRead) {
                if (m_bValidShortVal) value.SetI2(m_ShortVal);
            } else {
                SetShortVal(value.GetI2());
            }
            break;
        case Prop_IntVal:
            if (bRead)
                value.SetI4(m_IntVal);
            else
                m_IntVal = value.GetI4();
            break;
        case Prop_LongVal:
            if (bRead) {
                if (m_bValidLongVal) value.SetI8(m_LongVal);
            } else {
                SetLongVal(value.GetI8());
            }
            break;
        case Prop_UByteVal:
            if (bRead)
                value.SetUI1(m_UByteVal);
            else
                m_UByteVal = value.GetUI1();
            break;
        case Prop_UShortVal:
            if (bRead)
                value.SetUI2(m_UShortVal);
            else
                m_UShortVal = value.GetUI2();
            break;
        case Prop_UIntVal:
            if (bRead) {
                if (m_bValidUIntVal) value.SetUI4(m_UIntVal);
            } else {
                SetUIntVal(value.GetUI4());
            }
            break;
        case Prop_ULongVal:
            if (bRead)
                value.SetUI8(m_ULongVal);
            else
                m_ULongVal = value.GetUI8();
            break;
        case Prop_FloatVal:
            if (bRead)
                value.SetR4(m_FloatVal);
            else
                m_FloatVal = value.GetR4();
            break;
        case Prop_DoubleVal:
            if (bRead)
                value.SetR8(m_DoubleVal);
            else
                m_DoubleVal = value.GetR8();
            break;
        case Prop_Text:
            if (bRead)
                value.SetString(m_Text);
            else
                m_Text = value.GetString();
            break;
        case Prop_Flag:
            if (bRead) {
                if (m_bValidFlag) value.SetBoolean(m_Flag);
            } else {
                SetFlag(value.GetBoolean());
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
