// Generated class for the complex type Book, derived from Product: a product with an ISBN.
#pragma once

#include "product.h"

namespace Samples {

class CBook : public CProduct {
public:
    CBook();
    CBook(const CBook& rhs);
    CBook& operator=(const CBook& rhs);
    virtual ~CBook();

    static OrvexXml::CSmartPtr<CBook> CreateInstance() { return new CBook(); }

    // Isbn: xs:string, mandatory
    const std::string& GetIsbn() const { return m_Isbn; }
    void SetIsbn(const std::string& value) { m_Isbn = value; }

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

    std::string m_Isbn;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
