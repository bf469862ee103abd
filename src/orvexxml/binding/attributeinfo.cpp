#include "orvexxml/binding/attributeinfo.h"

namespace OrvexXmlData {

CAttributeInfo::CAttributeInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bOptional,
                               const char* pszDefault)
    : m_strAttributeName(pszName ? pszName : ""),
      m_strAttributeNamespace(pszNamespace ? pszNamespace : ""),
      m_nPropertyIndex(nPropertyIndex),
      m_bOptional(bOptional),
      m_strDefaultValue(pszDefault ? pszDefault : "") {}

CAttributeInfo::~CAttributeInfo() {}

}  // namespace OrvexXmlData
