// Generated class for the element Person.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CPerson : public OrvexXml::CXmlGeneratedClass {
public:
    CPerson();
    CPerson(const CPerson& rhs);
    CPerson& operator=(const CPerson& rhs);
    virtual ~CPerson();

    static OrvexXml::CSmartPtr<CPerson> CreateInstance() { return new CPerson(); }

    const std::string& GetName() const { return m_Name; }
    void SetName(const std::string& value) { m_Name = value; }

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

    std::string m_Name;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
