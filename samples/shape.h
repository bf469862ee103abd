// Generated class for the element Shape: a choice of Circle, Square and Label.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CShape : public OrvexXml::CXmlGeneratedClass {
public:
    CShape();
    CShape(const CShape& rhs);
    CShape& operator=(const CShape& rhs);
    virtual ~CShape();

    static OrvexXml::CSmartPtr<CShape> CreateInstance() { return new CShape(); }

    // The element name of the member that is set, empty if none is.
    const std::string& GetChoiceSelectedElement() const { return m_strSelectedElement; }

    // Circle: xs:double (radius)
    double GetCircle() const { return m_Circle; }
    void SetCircle(double value);
    bool IsValidCircle() const { return m_bValidCircle; }
    void SetValidCircle(bool bValid);
    // Square: xs:double (side)
    double GetSquare() const { return m_Square; }
    void SetSquare(double value);
    bool IsValidSquare() const { return m_bValidSquare; }
    void SetValidSquare(bool bValid);
    // Label: xs:string
    const std::string& GetLabel() const { return m_Label; }
    void SetLabel(const std::string& value);
    bool IsValidLabel() const { return m_bValidLabel; }
    void SetValidLabel(bool bValid);

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

    std::string m_strSelectedElement;
    double m_Circle;
    bool m_bValidCircle;
    double m_Square;
    bool m_bValidSquare;
    std::string m_Label;
    bool m_bValidLabel;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
