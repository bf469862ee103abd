#include "orvexxml/binding/parentelementinfo.h"

namespace OrvexXmlData {

static inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

CParentElementInfo::CParentElementInfo(XmlElementGroupType eGroupType, XmlElementType eElementType,
                                       const char* pszElementName, const char* pszElementNamespace,
                                       bool bFromXmlFailIfAttributeUnknown, bool bHasBaseClasses,
                                       int nPrimitiveValuePropertyIndex, OrvexXml::ItemType ePrimitiveDataType,
                                       const char* pszPrimitiveFormatOverride, bool bOutputPrimitiveClassAsTextProperty)
    : m_eElementGroupType(eGroupType),
      m_eElementType(eElementType),
      m_strElementName(NotNull(pszElementName)),
      m_strElementNamespace(NotNull(pszElementNamespace)),
      m_bFromXmlFailIfAttributeUnknown(bFromXmlFailIfAttributeUnknown),
      m_bHasBaseClasses(bHasBaseClasses),
      m_nPrimitiveValuePropertyIndex(nPrimitiveValuePropertyIndex),
      m_ePrimitiveDataType(ePrimitiveDataType),
      m_strPrimitiveFormatOverride(NotNull(pszPrimitiveFormatOverride)),
      m_bOutputPrimitiveClassAsTextProperty(bOutputPrimitiveClassAsTextProperty) {}

CParentElementInfo::~CParentElementInfo() {}

}  // namespace OrvexXmlData
