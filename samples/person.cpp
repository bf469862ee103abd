// Generated class for the element Person.
#include "person.h"

#include <atomic>
#include <cstdlib>

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

bool CPerson::ms_bMetaDataBuilt = false;
CParentElementInfo* CPerson::ms_pParentElementInfo = nullptr;
CElementInfo** CPerson::ms_ppElementInfo = nullptr;
CAttributeInfo** CPerson::ms_ppAttributeInfo = nullptr;

enum { Prop_Name = 0 };

void CPerson::InitMetaData() {
    static std::atomic<bool> s_bReady(false);
    if (s_bReady.load(std::memory_order_acquire)) return;
    m_csInit.Enter();
    if (!ms_bMetaDataBuilt) {
        ms_pParentElementInfo = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Person",
                                                       "", true, false, -1, ItemType_invalid, nullptr, false);
        ms_ppElementInfo = new CElementInfo*[2];
        ms_ppElementInfo[0] =
            new CElementInfoSeqPrimMnd("Name", "", Prop_Name, false, ItemType_string, nullptr,
                                       CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(), nullptr);
        ms_ppElementInfo[1] = nullptr;
        ms_ppAttributeInfo = new CAttributeInfo*[1];
        ms_ppAttributeInfo[0] = nullptr;
        ms_bMetaDataBuilt = true;
        std::atexit(&CPerson::CleanupMetaData);
    }
    m_csInit.Leave();
    s_bReady.store(true, std::memory_order_release);
}

void CPerson::CleanupMetaData() { CleanMetaData(ms_pParentElementInfo, ms_ppElementInfo, ms_ppAttributeInfo); }

CPerson::CPerson() {
    InitMetaData();
    SetElementName("Person");
    ResetToDefaults();
}

CPerson::CPerson(const CPerson& rhs) : CXmlGeneratedClass(rhs), m_Name(rhs.m_Name) {}

CPerson& CPerson::operator=(const CPerson& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Name = rhs.m_Name;
    return *this;
}

CPerson::~CPerson() {}

void CPerson::ResetToDefaults() { m_Name.clear(); }

CParentElementInfo* CPerson::GetParentElementInfo() const { return ms_pParentElementInfo; }
CElementInfo** CPerson::GetClassElementInfo() const { return ms_ppElementInfo; }
CAttributeInfo** CPerson::GetClassAttributeInfo() const { return ms_ppAttributeInfo; }

void CPerson::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Name:
            if (bRead)
                value.SetString(m_Name);
            else
                m_Name = value.GetString();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
