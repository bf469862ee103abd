// Generated class for the element Settings: an All group with enumerations and repeating elements.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "orderstatus.h"

namespace Samples {

class CSettings : public OrvexXml::CXmlGeneratedClass {
public:
    CSettings();
    virtual ~CSettings();

    static OrvexXml::CSmartPtr<CSettings> CreateInstance() { return new CSettings(); }

    // Name: xs:string, mandatory
    const std::string& GetName() const { return m_Name; }
    void SetName(const std::string& value) { m_Name = value; }
    // Mode: Priority, mandatory
    Priority GetMode() const { return m_Mode; }
    void SetMode(Priority value) { m_Mode = value; }
    // Fallback: OrderStatus, optional
    OrderStatus GetFallback() const { return m_Fallback; }
    void SetFallback(OrderStatus value) {
        m_Fallback = value;
        m_bValidFallback = true;
    }
    bool IsValidFallback() const { return m_bValidFallback; }
    void SetValidFallback(bool bValid) { m_bValidFallback = bValid; }
    // Port: xs:unsignedShort, 1 to 3
    OrvexXml::Cui2Col& GetPort() { return *m_Port; }
    // State: OrderStatus, 0 to unbounded
    COrderStatusCol& GetState() { return *m_State; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:settings"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:settings"; }

private:
    CSettings(const CSettings&) = delete;
    CSettings& operator=(const CSettings&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Name;
    Priority m_Mode;
    OrderStatus m_Fallback;
    bool m_bValidFallback;
    OrvexXml::CSmartPtr<OrvexXml::Cui2Col> m_Port;
    OrvexXml::CSmartPtr<COrderStatusCol> m_State;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
