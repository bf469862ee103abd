// Generated class for the abstract complex type Product of the shop: what every product has.
// A document names the concrete type with xsi:type; CBook and CGadget derive from it, and
// CProductFactory makes them.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CProduct : public OrvexXml::CXmlGeneratedClass {
public:
    virtual ~CProduct();

    // Title: xs:string, mandatory
    const std::string& GetTitle() const { return m_Title; }
    void SetTitle(const std::string& value) { m_Title = value; }
    // Price: xs:double, mandatory
    double GetPrice() const { return m_Price; }
    void SetPrice(double value) { m_Price = value; }

    // CXmlGeneratedClass, for the members above; the derived classes supply the tables.
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    void ResetToDefaults() override;

    // Property indices of the base; the derived classes number on from Prop_FirstDerived.
    enum { Prop_Title = 0, Prop_Price, Prop_FirstDerived };

protected:
    CProduct();
    CProduct(const CProduct& rhs);
    CProduct& operator=(const CProduct& rhs);

    // The elements of the base, in table order, for the tables of the derived classes.
    static void AddBaseElements(OrvexXmlData::CMetaDataBuilder& builder);

private:
    std::string m_Title;
    double m_Price;
};

}  // namespace Samples
