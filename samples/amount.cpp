// Generated class for the element Amount: a decimal-like value as simple content.
#include "amount.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CAmount::ms_metaData;

enum { Prop_Value = 0 };

void CAmount::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Amount", "", true,
                                             false, Prop_Value, ItemType_r8, "%.2f", false));
}

CAmount::CAmount() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Amount");
    ResetToDefaults();
}

CAmount::CAmount(const CAmount& rhs) : CXmlGeneratedClass(rhs), m_Value(rhs.m_Value) {}

CAmount& CAmount::operator=(const CAmount& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Value = rhs.m_Value;
    return *this;
}

CAmount::~CAmount() {}

void CAmount::ResetToDefaults() { m_Value = 0; }

CParentElementInfo* CAmount::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CAmount::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CAmount::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CAmount::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Value:
            if (bRead)
                value.SetR8(m_Value);
            else
                m_Value = value.GetR8();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
