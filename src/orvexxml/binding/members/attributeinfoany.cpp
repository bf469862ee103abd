#include "orvexxml/binding/members/attributeinfoany.h"

#include "orvexxml/binding/attributecol.h"
#include "orvexxml/binding/xmlgeneratedclass.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/xml/xmlattribute.h"

using namespace OrvexXml;

namespace OrvexXmlData {

namespace {

[[noreturn]] void ThrowNotAnAttributeCol() {
    throw COxException("Serialization Data Error : The collection should be a CAttributeCol, it was not!");
}

// The collection that the property gave; null for an unset property. A value of another kind
// is refused like a collection of the wrong class, rather than read as a collection.
CSmartPtr<CXmlCollectionBase> CollectionOf(const OxVariant& value) {
    if (value.GetTypeAsEnum() == ItemType_XmlCollection) return value.GetXmlCollection();
    if (value.GetTypeAsEnum() != ItemType_invalid) ThrowNotAnAttributeCol();
    return nullptr;
}

}  // namespace

CAttributeInfoAny::CAttributeInfoAny(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bOptional,
                                     const char* pszRestriction, const char* pszTargetNamespace, const char* pszDefault)
    : CAttributeInfo(pszName, pszNamespace, nPropertyIndex, bOptional, pszDefault),
      m_strNamespaceRestriction(pszRestriction ? pszRestriction : ""),
      m_strTargetNamespace(pszTargetNamespace ? pszTargetNamespace : "") {}

CAttributeInfoAny::~CAttributeInfoAny() {}

void CAttributeInfoAny::AttributeToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                                       CXmlWriter* pWriter) const {
    OxVariant value;
    ReadProperty(pClass, value);
    CSmartPtr<CXmlCollectionBase> pCollection = CollectionOf(value);
    if (!pCollection) return;  // no collection, nothing to write
    std::string strTarget = CAttributeInfo::GetTargetNamespace(pClass);
    CAttributeInfo::ToXml_Int(pCollection, pWriter, false, strTarget.c_str(), ctx);
}

bool CAttributeInfoAny::AttributeFromXml(const CSerializationContext&, CXmlGeneratedClass* pClass,
                                         CXmlAttribute* pAttribute) {
    if (!IsNamespaceValid(pAttribute->GetNamespaceURI(), m_strNamespaceRestriction, m_strTargetNamespace)) return false;
    OxVariant value;
    InvokePropertyGet(pClass, value);
    CSmartPtr<CXmlCollectionBase> pCollection = CollectionOf(value);
    CAttributeCol* pAttributes = dynamic_cast<CAttributeCol*>(pCollection.Get());
    if (!pAttributes) ThrowNotAnAttributeCol();
    pAttributes->Add(pAttribute->GetLocalName().c_str(), pAttribute->GetValue().c_str(),
                     pAttribute->GetNamespaceURI().c_str());
    return true;
}

void CAttributeInfoAny::Validate(const CSerializationContext&, bool) const {}

}  // namespace OrvexXmlData
