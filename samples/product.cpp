// Generated class for the abstract complex type Product of the shop.
#include "product.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const char NS[] = "urn:orvex:samples:shop";

void CProduct::AddBaseElements(CMetaDataBuilder& builder) {
    builder.AddElement(new CElementInfoSeqPrimMnd("Title", NS, Prop_Title, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(),
                                                  nullptr));
    builder.AddElement(new CElementInfoSeqPrimMnd("Price", NS, Prop_Price, false, ItemType_r8, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_collapse, CPrimitiveRestrictions(),
                                                  nullptr));
}

CProduct::CProduct() : m_Price(0) {}

CProduct::CProduct(const CProduct& rhs) : CXmlGeneratedClass(rhs), m_Title(rhs.m_Title), m_Price(rhs.m_Price) {}

CProduct& CProduct::operator=(const CProduct& rhs) {
    CXmlGeneratedClass::operator=(rhs);
    m_Title = rhs.m_Title;
    m_Price = rhs.m_Price;
    return *this;
}

CProduct::~CProduct() {}

void CProduct::ResetToDefaults() {
    m_Title.clear();
    m_Price = 0;
}

void CProduct::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Title:
            if (bRead)
                value.SetString(m_Title);
            else
                m_Title = value.GetString();
            break;
        case Prop_Price:
            if (bRead)
                value.SetR8(m_Price);
            else
                m_Price = value.GetR8();
            break;
        default:
            throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
    }
}

}  // namespace Samples
