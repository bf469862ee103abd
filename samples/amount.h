// Generated class for the element Amount: a decimal-like value as simple content.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CAmount : public OrvexXml::CXmlGeneratedClass {
public:
    CAmount();
    CAmount(const CAmount& rhs);
    CAmount& operator=(const CAmount& rhs);
    virtual ~CAmount();

    static OrvexXml::CSmartPtr<CAmount> CreateInstance() { return new CAmount(); }

    // The simple content: xs:double, written with the format "%.2f"
    double GetValue() const { return m_Value; }
    void SetValue(double value) { m_Value = value; }

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
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    double m_Value;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
