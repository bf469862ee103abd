#include "orvexxml/binding/parentelementinfo.h"

#include "orvexxml/binding/nillable.h"
#include "orvexxml/binding/xmlgeneratedclass.h"

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
      m_bOutputPrimitiveClassAsTextProperty(bOutputPrimitiveClassAsTextProperty),
      m_pNillableSide(nullptr) {}

CParentElementInfo::~CParentElementInfo() { delete m_pNillableSide.load(std::memory_order_relaxed); }

const OrvexXml::INillable* CParentElementInfo::FindNillable(const OrvexXml::CXmlGeneratedClass* pObject) const {
    // A cross cast to an interface searches the whole class hierarchy each time; every class
    // element of a document asks, while the answer depends on the dynamic type alone.
    const std::type_info& type = typeid(*pObject);
    const NillableSide* pSide = m_pNillableSide.load(std::memory_order_acquire);
    if (pSide && *pSide->pType == type) {
        if (!pSide->bNillable) return nullptr;
        return reinterpret_cast<const OrvexXml::INillable*>(reinterpret_cast<const char*>(pObject) + pSide->nOffset);
    }
    const OrvexXml::INillable* pNillable = dynamic_cast<const OrvexXml::INillable*>(pObject);
    if (!pSide) {
        // The first dynamic type seen is kept; another one (a class derived by the application
        // that shares this record) keeps taking the cast.
        const NillableSide* pNew = new NillableSide{
            &type, pNillable ? reinterpret_cast<const char*>(pNillable) - reinterpret_cast<const char*>(pObject) : 0,
            pNillable != nullptr};
        const NillableSide* pExpected = nullptr;
        if (!m_pNillableSide.compare_exchange_strong(pExpected, pNew, std::memory_order_acq_rel)) delete pNew;
    }
    return pNillable;
}

}  // namespace OrvexXmlData
