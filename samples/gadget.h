// Generated class for the complex type Gadget, derived from Product: a product with a brand and
// an optional voltage.
#pragma once

#include "product.h"

namespace Samples {

class CGadget : public CProduct {
public:
    CGadget();
    CGadget(const CGadget& rhs);
    CGadget& operator=(const CGadget& rhs);
    virtual ~CGadget();

    static OrvexXml::CSmartPtr<CGadget> CreateInstance() { return new CGadget(); }

    // @voltage: xs:int, optional
    int GetVoltage() const { return m_Voltage; }
    void SetVoltage(int value);
    bool IsValidVoltage() const { return m_bValidVoltage; }
    void SetValidVoltage(bool bValid) { m_bValidVoltage = bValid; }
    // Brand: xs:string, mandatory
    const std::string& GetBrand() const { return m_Brand; }
    void SetBrand(const std::string& value) { m_Brand = value; }

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

    int m_Voltage;
    bool m_bValidVoltage;
    std::string m_Brand;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
