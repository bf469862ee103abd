// Generated class for the element Amount: a decimal-like value as simple content.
#include "amount.h"

#include <atomic>
#include <cstdlib>

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

bool CAmount::ms_bMetaDataBuilt = false;
CParentElementInfo* CAmount::ms_pParentElementInfo = nullptr;
CElementInfo** CAmount::ms_ppElementInfo = nullptr;
CAttributeInfo** CAmount::ms_ppAttributeInfo = nullptr;

enum { Prop_Value = 0 };

void CAmount::InitMetaData() {
    static std::atomic<bool> s_bReady(false);
    if (s_bReady.load(std::memory_order_acquire)) return;
    m_csInit.Enter();
    if (!ms_bMetaDataBuilt) {
        ms_pParentElementInfo = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Amount",
                                                       "", true, false, Prop_Value, ItemType_r8, "%.2f", false);
        ms_ppElementInfo = new CElementInfo*[1];
        ms_ppElementInfo[0] = nullptr;
        ms_ppAttributeInfo = new CAttributeInfo*[1];
        ms_ppAttributeInfo[0] = nullptr;
        ms_bMetaDataBuilt = true;
        std::atexit(&CAmount::CleanupMetaData);
    }
    m_csInit.Leave();
    s_bReady.store(true, std::memory_order_release);
}

void CAmount::CleanupMetaData() { CleanMetaData(ms_pParentElementInfo, ms_ppElementInfo, ms_ppAttributeInfo); }

CAmount::CAmount() {
    InitMetaData();
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

CParentElementInfo* CAmount::GetParentElementInfo() const { return ms_pParentElementInfo; }
CElementInfo** CAmount::GetClassElementInfo() const { return ms_ppElementInfo; }
CAttributeInfo** CAmount::GetClassAttributeInfo() const { return ms_ppAttributeInfo; }

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
