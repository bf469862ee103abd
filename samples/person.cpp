// Generated class for the element Person.
#include "person.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CPerson::ms_metaData;

enum { Prop_Name = 0 };

void CPerson::BuildMetaData(CMetaDataBuilder& builder) {
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Person", "", true,
                                             false, -1, ItemType_invalid, nullptr, false));
    builder.AddElement(new CElementInfoSeqPrimMnd("Name", "", Prop_Name, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
}

CPerson::CPerson() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Person");
    ResetToDefaults();
}

CPerson::CPerson(const CPerson& rhs) : CXmlGeneratedClass(rhs), m_Name(rhs.m_Name) {}

CPerson& CPerson::operator=(const CPerson& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Name = rhs.m_Name;
    return *this;
}

CPerson::~CPerson() {}

void CPerson::ResetToDefaults() { m_Name.clear(); }

CParentElementInfo* CPerson::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CPerson::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CPerson::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CPerson::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Name:
            if (bRead)
                value.SetString(m_Name);
            else
                m_Name = value.GetString();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
