// Generated class for the model group Audit of an order: it has no tags of its own. Its
// elements stand directly in the order, and its attribute auditor on the order's start tag.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CAudit : public OrvexXml::CXmlGeneratedClass {
public:
    CAudit();
    CAudit(const CAudit& rhs);
    CAudit& operator=(const CAudit& rhs);
    virtual ~CAudit();

    static OrvexXml::CSmartPtr<CAudit> CreateInstance() { return new CAudit(); }

    // @auditor: xs:string, optional
    const std::string& GetAuditor() const { return m_Auditor; }
    void SetAuditor(const std::string& value);
    bool IsValidAuditor() const { return m_bValidAuditor; }
    void SetValidAuditor(bool bValid) { m_bValidAuditor = bValid; }
    // AuditedBy: xs:string, optional
    const std::string& GetAuditedBy() const { return m_AuditedBy; }
    void SetAuditedBy(const std::string& value);
    bool IsValidAuditedBy() const { return m_bValidAuditedBy; }
    void SetValidAuditedBy(bool bValid) { m_bValidAuditedBy = bValid; }
    // Revision: xs:int, optional
    int GetRevision() const { return m_Revision; }
    void SetRevision(int value);
    bool IsValidRevision() const { return m_bValidRevision; }
    void SetValidRevision(bool bValid) { m_bValidRevision = bValid; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:shop"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:shop"; }

private:
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Auditor;
    bool m_bValidAuditor;
    std::string m_AuditedBy;
    bool m_bValidAuditedBy;
    int m_Revision;
    bool m_bValidRevision;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
