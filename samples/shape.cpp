// Generated class for the element Shape: a choice of Circle, Square and Label.
#include "shape.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CShape::ms_metaData;

enum { Prop_Circle = 0, Prop_Square, Prop_Label };

void CShape::BuildMetaData(CMetaDataBuilder& builder) {
    const CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRule_collapse;
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "Shape", "", true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoChoicePrimOpt("Circle", "", Prop_Circle, false, ItemType_r8, nullptr, collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoChoicePrimOpt("Square", "", Prop_Square, false, ItemType_r8, nullptr, collapse,
                                                     CPrimitiveRestrictions(), nullptr));
    builder.AddElement(new CElementInfoChoicePrimOpt("Label", "", Prop_Label, false, ItemType_string, nullptr,
                                                     CWhitespaceUtils::WhitespaceRule_preserve,
                                                     CPrimitiveRestrictions(), nullptr));
}

CShape::CShape() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Shape");
    ResetToDefaults();
}

CShape::CShape(const CShape& rhs)
    : CXmlGeneratedClass(rhs),
      m_strSelectedElement(rhs.m_strSelectedElement),
      m_Circle(rhs.m_Circle),
      m_bValidCircle(rhs.m_bValidCircle),
      m_Square(rhs.m_Square),
      m_bValidSquare(rhs.m_bValidSquare),
      m_Label(rhs.m_Label),
      m_bValidLabel(rhs.m_bValidLabel) {}

CShape& CShape::operator=(const CShape& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_strSelectedElement = rhs.m_strSelectedElement;
    m_Circle = rhs.m_Circle;
    m_bValidCircle = rhs.m_bValidCircle;
    m_Square = rhs.m_Square;
    m_bValidSquare = rhs.m_bValidSquare;
    m_Label = rhs.m_Label;
    m_bValidLabel = rhs.m_bValidLabel;
    return *this;
}

CShape::~CShape() {}

void CShape::ResetToDefaults() {
    m_strSelectedElement.clear();
    m_Circle = 0;
    m_bValidCircle = false;
    m_Square = 0;
    m_bValidSquare = false;
    m_Label.clear();
    m_bValidLabel = false;
}

void CShape::SetCircle(double value) {
    Choice_SetElementValid(true, "Circle", m_strSelectedElement);
    m_Circle = value;
    m_bValidCircle = true;
}

void CShape::SetValidCircle(bool bValid) {
    Choice_SetElementValid(bValid, "Circle", m_strSelectedElement);
    m_bValidCircle = bValid;
}

void CShape::SetSquare(double value) {
    Choice_SetElementValid(true, "Square", m_strSelectedElement);
    m_Square = value;
    m_bValidSquare = true;
}

void CShape::SetValidSquare(bool bValid) {
    Choice_SetElementValid(bValid, "Square", m_strSelectedElement);
    m_bValidSquare = bValid;
}

void CShape::SetLabel(const std::string& value) {
    Choice_SetElementValid(true, "Label", m_strSelectedElement);
    m_Label = value;
    m_bValidLabel = true;
}

void CShape::SetValidLabel(bool bValid) {
    Choice_SetElementValid(bValid, "Label", m_strSelectedElement);
    m_bValidLabel = bValid;
}

CParentElementInfo* CShape::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CShape::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CShape::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CShape::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Circle:
            if (bRead) {
                if (m_bValidCircle) value.SetR8(m_Circle);
            } else {
                SetCircle(value.GetR8());
            }
            break;
        case Prop_Square:
            if (bRead) {
                if (m_bValidSquare) value.SetR8(m_Square);
            } else {
                SetSquare(value.GetR8());
            }
            break;
        case Prop_Label:
            if (bRead) {
                if (m_bValidLabel) value.SetString(m_Label);
            } else {
                SetLabel(value.GetString());
            }
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
