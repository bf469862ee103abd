// Generated class for the nillable element Note.
#include "note.h"

#include <atomic>
#include <cstdlib>

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

bool CNote::ms_bMetaDataBuilt = false;
CParentElementInfo* CNote::ms_pParentElementInfo = nullptr;
CElementInfo** CNote::ms_ppElementInfo = nullptr;
CAttributeInfo** CNote::ms_ppAttributeInfo = nullptr;

enum { Prop_Author = 0, Prop_Body };

void CNote::InitMetaData() {
    static std::atomic<bool> s_bReady(false);
    if (s_bReady.load(std::memory_order_acquire)) return;
    m_csInit.Enter();
    if (!ms_bMetaDataBuilt) {
        const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
        ms_pParentElementInfo = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Note", "",
                                                       true, false, -1, ItemType_invalid, nullptr, false);
        ms_ppElementInfo = new CElementInfo*[3];
        ms_ppElementInfo[0] = new CElementInfoSeqPrimOpt("Author", "", Prop_Author, false, ItemType_string, nullptr,
                                                         preserve, CPrimitiveRestrictions(), nullptr);
        ms_ppElementInfo[1] = new CElementInfoSeqPrimMnd("Body", "", Prop_Body, false, ItemType_string, nullptr,
                                                         preserve, CPrimitiveRestrictions(), nullptr);
        ms_ppElementInfo[2] = nullptr;
        ms_ppAttributeInfo = new CAttributeInfo*[1];
        ms_ppAttributeInfo[0] = nullptr;
        ms_bMetaDataBuilt = true;
        std::atexit(&CNote::CleanupMetaData);
    }
    m_csInit.Leave();
    s_bReady.store(true, std::memory_order_release);
}

void CNote::CleanupMetaData() { CleanMetaData(ms_pParentElementInfo, ms_ppElementInfo, ms_ppAttributeInfo); }

CNote::CNote() {
    InitMetaData();
    SetElementName("Note");
    ResetToDefaults();
}

CNote::CNote(const CNote& rhs)
    : CXmlGeneratedClass(rhs),
      INillable(rhs),
      m_bNil(rhs.m_bNil),
      m_Author(rhs.m_Author),
      m_bValidAuthor(rhs.m_bValidAuthor),
      m_Body(rhs.m_Body) {}

CNote& CNote::operator=(const CNote& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_bNil = rhs.m_bNil;
    m_Author = rhs.m_Author;
    m_bValidAuthor = rhs.m_bValidAuthor;
    m_Body = rhs.m_Body;
    return *this;
}

CNote::~CNote() {}

void CNote::ResetToDefaults() {
    m_bNil = false;
    m_Author.clear();
    m_bValidAuthor = false;
    m_Body.clear();
}

CParentElementInfo* CNote::GetParentElementInfo() const { return ms_pParentElementInfo; }
CElementInfo** CNote::GetClassElementInfo() const { return ms_ppElementInfo; }
CAttributeInfo** CNote::GetClassAttributeInfo() const { return ms_ppAttributeInfo; }

void CNote::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Author:
            if (bRead) {
                if (m_bValidAuthor) value.SetString(m_Author);
            } else {
                SetAuthor(value.GetString());
            }
            break;
        case Prop_Body:
            if (bRead)
                value.SetString(m_Body);
            else
                m_Body = value.GetString();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
