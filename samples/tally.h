// Generated class for the element Tally: a sequence with enumerations and repeating elements.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "orderstatus.h"

namespace Samples {

class CTally : public OrvexXml::CXmlGeneratedClass {
public:
    CTally();
    virtual ~CTally();

    static OrvexXml::CSmartPtr<CTally> CreateInstance() { return new CTally(); }

    // Label: xs:string, mandatory
    const std::string& GetLabel() const { return m_Label; }
    void SetLabel(const std::string& value) { m_Label = value; }
    // Status: OrderStatus, mandatory
    OrderStatus GetStatus() const { return m_Status; }
    void SetStatus(OrderStatus value) { m_Status = value; }
    // Urgency: Priority, optional, default normal
    Priority GetUrgency() const { return m_Urgency; }
    void SetUrgency(Priority value) {
        m_Urgency = value;
        m_bValidUrgency = true;
    }
    bool IsValidUrgency() const { return m_bValidUrgency; }
    void SetValidUrgency(bool bValid) { m_bValidUrgency = bValid; }
    // Count: xs:int, 1 to unbounded
    OrvexXml::Ci4Col& GetCount() { return *m_Count; }
    // Weight: xs:double, 0 to 5, written with the format "%.2f"
    OrvexXml::Cr8Col& GetWeight() { return *m_Weight; }
    // Tag: xs:string, 0 to unbounded
    OrvexXml::CstringCol& GetTag() { return *m_Tag; }
    // History: OrderStatus, 0 to unbounded
    COrderStatusCol& GetHistory() { return *m_History; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return ""; }

private:
    CTally(const CTally&) = delete;
    CTally& operator=(const CTally&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Label;
    OrderStatus m_Status;
    Priority m_Urgency;
    bool m_bValidUrgency;
    OrvexXml::CSmartPtr<OrvexXml::Ci4Col> m_Count;
    OrvexXml::CSmartPtr<OrvexXml::Cr8Col> m_Weight;
    OrvexXml::CSmartPtr<OrvexXml::CstringCol> m_Tag;
    OrvexXml::CSmartPtr<COrderStatusCol> m_History;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
