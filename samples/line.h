// Generated class for the element Line of an order, and the collection of lines: a numbered
// line with a product of a derived type and a quantity.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "product.h"

namespace Samples {

class CLine : public OrvexXml::CXmlGeneratedClass {
public:
    CLine();
    virtual ~CLine();

    static OrvexXml::CSmartPtr<CLine> CreateInstance() { return new CLine(); }

    // @number: xs:int, required
    int GetNumber() const { return m_Number; }
    void SetNumber(int value) { m_Number = value; }
    // Product: abstract Product, mandatory; the object takes the element name Product and is
    // written with the xsi:type of its class.
    OrvexXml::CSmartPtr<CProduct> GetProduct() const { return m_Product; }
    void SetProduct(CProduct* value);
    // Quantity: xs:int, mandatory
    int GetQuantity() const { return m_Quantity; }
    void SetQuantity(int value) { m_Quantity = value; }

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
    CLine(const CLine&) = delete;
    CLine& operator=(const CLine&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    int m_Number;
    OrvexXml::CSmartPtr<CProduct> m_Product;
    int m_Quantity;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

// A repeating element Line.
class CLineCol : public OrvexXml::CXmlCollection, public OrvexXml::CInstanceMonitor {
public:
    CLineCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);

    // The line takes the element name of the collection.
    void Add(CLine* pLine) { AddAt(GetCount(), pLine); }
    void AddAt(int nIndex, CLine* pLine);
    OrvexXml::CSmartPtr<CLine> Item(int nIndex) const;

    OrvexXml::COxIterator<CLine> begin() const { return OrvexXml::COxIterator<CLine>(m_pHead); }
    OrvexXml::COxIterator<CLine> end() const { return OrvexXml::COxIterator<CLine>(nullptr); }

protected:
    ~CLineCol() override;
    void ToXml_Int(OrvexXml::CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                   const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) const override;
    OrvexXml::CXmlElement* FromXml_Int(OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement* pCurrent,
                                       const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) override;
};

}  // namespace Samples
