// Generated class for the complex type Line of the order book, and the collection of lines:
// a numbered line with an article number (Sku), a description, a quantity and a unit price.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace OrderBook {

class CLine : public OrvexXml::CXmlGeneratedClass {
public:
    CLine();
    virtual ~CLine();

    static OrvexXml::CSmartPtr<CLine> CreateInstance() { return new CLine(); }

    // @number: xs:int, required
    int GetNumber() const { return m_Number; }
    void SetNumber(int value) { m_Number = value; }
    // sku: Sku (xs:string, pattern [A-Z]{3}-\d{5}), mandatory; checked on writing
    const std::string& GetSku() const { return m_Sku; }
    void SetSku(const std::string& value) { m_Sku = value; }
    // description: xs:string, mandatory
    const std::string& GetDescription() const { return m_Description; }
    void SetDescription(const std::string& value) { m_Description = value; }
    // quantity: xs:int, mandatory
    int GetQuantity() const { return m_Quantity; }
    void SetQuantity(int value) { m_Quantity = value; }
    // unitPrice: xs:double, mandatory
    double GetUnitPrice() const { return m_UnitPrice; }
    void SetUnitPrice(double value) { m_UnitPrice = value; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:example:orders"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:example:orders"; }

private:
    CLine(const CLine&) = delete;
    CLine& operator=(const CLine&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    int m_Number;
    std::string m_Sku;
    std::string m_Description;
    int m_Quantity;
    double m_UnitPrice;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

// A repeating element of type Line.
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

}  // namespace OrderBook
