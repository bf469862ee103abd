#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <typeinfo>

#include "orvexxml/export.h"
#include "orvexxml/values/itemtype.h"

namespace OrvexXml {
class CXmlGeneratedClass;
class INillable;
}  // namespace OrvexXml

namespace OrvexXmlData {

// The content model of a class.
enum XmlElementGroupType : int32_t {
    XmlElementGroupType_Sequence = 0,
    XmlElementGroupType_Choice = 1,
    XmlElementGroupType_All = 2
};

// What a class stands for in the document: an element with tags of its own, or a model
// group whose content lands directly in its parent's element.
enum XmlElementType : int32_t { XmlElementType_Element = 0, XmlElementType_PseudoElement = 1 };

// The class-level metadata record of a generated class. Built once per class by
// generated code and shared by all its instances.
class ORVEXXML_API CParentElementInfo {
public:
    CParentElementInfo(XmlElementGroupType eGroupType, XmlElementType eElementType, const char* pszElementName,
                       const char* pszElementNamespace, bool bFromXmlFailIfAttributeUnknown, bool bHasBaseClasses,
                       int nPrimitiveValuePropertyIndex, OrvexXml::ItemType ePrimitiveDataType,
                       const char* pszPrimitiveFormatOverride, bool bOutputPrimitiveClassAsTextProperty);
    virtual ~CParentElementInfo();

    XmlElementGroupType GetElementGroupType() const { return m_eElementGroupType; }
    XmlElementType GetElementType() const { return m_eElementType; }
    const std::string& GetElementName() const { return m_strElementName; }
    const std::string& GetElementNamespace() const { return m_strElementNamespace; }
    bool GetFromXmlFailIfAttributeUnknown() const { return m_bFromXmlFailIfAttributeUnknown; }
    bool GetHasBaseClasses() const { return m_bHasBaseClasses; }
    int GetPrimitiveValuePropertyIndex() const { return m_nPrimitiveValuePropertyIndex; }
    OrvexXml::ItemType GetPrimitiveDataType() const { return m_ePrimitiveDataType; }
    const std::string& GetPrimitiveFormatOverride() const { return m_strPrimitiveFormatOverride; }
    bool GetOutputPrimitiveClassAsTextProperty() const { return m_bOutputPrimitiveClassAsTextProperty; }

    // The INillable side of an object of the class, null if it has none: what a dynamic_cast
    // gives, found by that cast once and then by the offset it gave for as long as objects of
    // the same dynamic type come (internal; any thread).
    const OrvexXml::INillable* FindNillable(const OrvexXml::CXmlGeneratedClass* pObject) const;
    // The record is shared, not copied: the cache in it belongs to it.
    CParentElementInfo(const CParentElementInfo&) = delete;
    CParentElementInfo& operator=(const CParentElementInfo&) = delete;

private:
    XmlElementGroupType m_eElementGroupType;
    XmlElementType m_eElementType;
    std::string m_strElementName;
    std::string m_strElementNamespace;
    bool m_bFromXmlFailIfAttributeUnknown;
    bool m_bHasBaseClasses;
    int m_nPrimitiveValuePropertyIndex;
    OrvexXml::ItemType m_ePrimitiveDataType;
    std::string m_strPrimitiveFormatOverride;
    bool m_bOutputPrimitiveClassAsTextProperty;

    // Where the INillable side lies in objects of one dynamic type; published once.
    struct NillableSide {
        const std::type_info* pType;
        std::ptrdiff_t nOffset;
        bool bNillable;
    };
    mutable std::atomic<const NillableSide*> m_pNillableSide;
};

}  // namespace OrvexXmlData
