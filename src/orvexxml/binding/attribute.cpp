#include "orvexxml/binding/attribute.h"

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/values/itemtype.h"
#include "orvexxml/writers/xmlwriter.h"

namespace OrvexXml {

static inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

CAttribute::CAttribute(const char* pszName, const char* pszValue, const char* pszNamespace)
    : CInstanceMonitor("CAttribute"),
      m_strName(NotNull(pszName)),
      m_strValue(NotNull(pszValue)),
      m_strNamespace(NotNull(pszNamespace)) {}

CAttribute::~CAttribute() {}

CSmartPtr<CAttribute> CAttribute::Clone() const {
    return new CAttribute(m_strName.c_str(), m_strValue.c_str(), m_strNamespace.c_str());
}

void CAttribute::SetName(const char* pszName) {
    FireOnChangeName(NotNull(pszName));
    m_strName = NotNull(pszName);
}

void CAttribute::SetValue(const char* pszValue) { m_strValue = NotNull(pszValue); }

void CAttribute::SetNamespace(const char* pszNamespace) {
    FireOnChangeNamespace(NotNull(pszNamespace));
    m_strNamespace = NotNull(pszNamespace);
}

void CAttribute::FireOnChangeName(const char*) {}

void CAttribute::FireOnChangeNamespace(const char*) {}

void CAttribute::ToXml_Int(CXmlWriter* pWriter, bool, const char*, const CSerializationContext&, bool) const {
    pWriter->WriteAttribute(m_strName, m_strNamespace, m_strValue, ItemType_string);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    throw COxException("This should be done by the collection");
}

}  // namespace OrvexXml
