// Generated class for the nillable element Note.
#include "note.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CNote::ms_metaData;

enum { Prop_Author = 0, Prop_Body };

void CNote::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule preserve = CWhitespaceUtils::WhitespaceRule_preserve;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Note", "", true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimOpt("Author", "", Prop_Author, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Body", "", Prop_Body, false, ItemType_string, nullptr, preserve,
                                                  CPrimitiveRestrictions(), nullptr));
}

CNote::CNote() {
    ms_metaData.Init(&BuildMetaData);
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

CParentElementInfo* CNote::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CNote::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CNote::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

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
