// Generated class for the model group Audit of an order.
#include "audit.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CAudit::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Auditor = 0, Prop_AuditedBy, Prop_Revision };

void CAudit::BuildMetaData(CMetaDataBuilder& builder) {
    // A group reads the attributes of the element it stands in, which holds others as well.
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_PseudoElement, "Audit", NS,
                                             false, false, -1, ItemType_invalid, nullptr, false));
    builder.AddAttribute(new CAttributeInfoPrimitive("auditor", "", Prop_Auditor, true, ItemType_string, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_preserve,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("AuditedBy", NS, Prop_AuditedBy, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqPrimOpt("Revision", NS, Prop_Revision, false, ItemType_i4, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_collapse, CPrimitiveRestrictions(),
                                                  nullptr));
}

CAudit::CAudit() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Audit");
    ResetToDefaults();
}

CAudit::CAudit(const CAudit& rhs)
    : CXmlGeneratedClass(rhs),
      m_Auditor(rhs.m_Auditor),
      m_bValidAuditor(rhs.m_bValidAuditor),
      m_AuditedBy(rhs.m_AuditedBy),
      m_bValidAuditedBy(rhs.m_bValidAuditedBy),
      m_Revision(rhs.m_Revision),
      m_bValidRevision(rhs.m_bValidRevision) {}

CAudit& CAudit::operator=(const CAudit& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Auditor = rhs.m_Auditor;
    m_bValidAuditor = rhs.m_bValidAuditor;
    m_AuditedBy = rhs.m_AuditedBy;
    m_bValidAuditedBy = rhs.m_bValidAuditedBy;
    m_Revision = rhs.m_Revision;
    m_bValidRevision = rhs.m_bValidRevision;
    return *this;
}

CAudit::~CAudit() {}

void CAudit::ResetToDefaults() {
    m_Auditor.clear();
    m_bValidAuditor = false;
    m_AuditedBy.clear();
    m_bValidAuditedBy = false;
    m_Revision = 0;
    m_bValidRevision = false;
}

void CAudit::SetAuditor(const std::string& value) {
    m_Auditor = value;
    m_bValidAuditor = true;
}

void CAudit::SetAuditedBy(const std::string& value) {
    m_AuditedBy = value;
    m_bValidAuditedBy = true;
}

void CAudit::SetRevision(int value) {
    m_Revision = value;
    m_bValidRevision = true;
}

CParentElementInfo* CAudit::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CAudit::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CAudit::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CAudit::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Auditor:
            if (bRead) {
                if (m_bValidAuditor) value.SetString(m_Auditor);
            } else {
                SetAuditor(value.GetString());
            }
            break;
        case Prop_AuditedBy:
            if (bRead) {
                if (m_bValidAuditedBy) value.SetString(m_AuditedBy);
            } else {
                SetAuditedBy(value.GetString());
            }
            break;
        case Prop_Revision:
            if (bRead) {
                if (m_bValidRevision) value.SetI4(m_Revision);
            } else {
                SetRevision(value.GetI4());
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
