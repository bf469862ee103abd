// Generated class for the complex type Book, derived from Product.
#include "book.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace Samples {

static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);

CMetaDataHolder CBook::ms_metaData;

static const char NS[] = "urn:orvex:samples:shop";

enum { Prop_Isbn = CProduct::Prop_FirstDerived };

void CBook::BuildMetaData(CMetaDataBuilder& builder) {
    // The type takes part in derivation: an object under another element name writes xsi:type.
    builder.SetParent(new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Book", NS, true,
                                             true, -1, ItemType_invalid, nullptr, false));
    AddBaseElements(builder);
    builder.AddElement(new CElementInfoSeqPrimMnd("Isbn", NS, Prop_Isbn, false, ItemType_string, nullptr,
                                                  CWhitespaceUtils::WhitespaceRule_collapse, CPrimitiveRestrictions(),
                                                  nullptr));
}

CBook::CBook() {
    ms_metaData.Init(&BuildMetaData);
    SetElementName("Book");
    ResetToDefaults();
}

CBook::CBook(const CBook& rhs) : CProduct(rhs), m_Isbn(rhs.m_Isbn) {}

CBook& CBook::operator=(const CBook& rhs) {
    CProduct::operator=(rhs);
    m_Isbn = rhs.m_Isbn;
    return *this;
}

CBook::~CBook() {}

void CBook::ResetToDefaults() {
    CProduct::ResetToDefaults();
    m_Isbn.clear();
}

CParentElementInfo* CBook::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }
CElementInfo** CBook::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }
CAttributeInfo** CBook::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }

void CBook::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {
    switch (nPropertyIndex) {
        case Prop_Isbn:
            if (bRead)
                value.SetString(m_Isbn);
            else
                m_Isbn = value.GetString();
            break;
        default:
            CProduct::ExchangeProperty(nPropertyIndex, bRead, value);
    }
}

}  // namespace Samples
