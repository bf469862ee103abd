#pragma once

#include "orvexxml/binding/attributeinfo.h"
#include "orvexxml/binding/elementinfo.h"
#include "orvexxml/binding/metadataholder.h"
#include "orvexxml/binding/parentelementinfo.h"
#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/infrastructure/criticalsection.h"
#include "orvexxml/values/oxvariant.h"

namespace OrvexXml {

// Base of every class a schema compiler emits. It owns the walks over a class's metadata
// tables; generated code supplies the tables and the one property accessor.
class ORVEXXML_API CXmlGeneratedClass : public CXmlObjectBase {
    friend class OrvexXmlData::CElementInfo;
    friend class OrvexXmlData::CAttributeInfo;
    friend class OrvexXmlData::CMetaDataHolder;

public:
    // Moves a property in or out of the object: with bRead true the value of property
    // nPropertyIndex goes into value (left invalid when an optional property is unset),
    // with bRead false value is stored into the property.
    virtual void ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) = 0;
    virtual OrvexXmlData::CParentElementInfo* GetParentElementInfo() const = 0;
    virtual OrvexXmlData::CElementInfo** GetClassElementInfo() const = 0;
    virtual OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const = 0;
    // Puts all members back to their initial state.
    virtual void ResetToDefaults() = 0;

protected:
    CXmlGeneratedClass() {}
    CXmlGeneratedClass(const CXmlGeneratedClass& other) : CXmlObjectBase(other) {}
    CXmlGeneratedClass& operator=(const CXmlGeneratedClass& other) {
        CXmlObjectBase::operator=(other);
        return *this;
    }

    void AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext& ctx) const override;
    void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                   bool bOptionalChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;

    // ExchangeProperty with bRead true on an object that is only read.
    void ReadProperty(int nPropertyIndex, OxVariant& value) const {
        const_cast<CXmlGeneratedClass*>(this)->ExchangeProperty(nPropertyIndex, true, value);
    }

    void ProcessAttributesToXml(const CSerializationContext& ctx, OrvexXmlData::CElementInfo** ppElements,
                                OrvexXmlData::CAttributeInfo** ppAttributes, CXmlWriter* pWriter) const;
    void ProcessElementSeqToXml(const CSerializationContext& ctx, OrvexXmlData::CElementInfo** ppElements,
                                CXmlWriter* pWriter) const;
    void ProcessElementAllToXml(const CSerializationContext& ctx, OrvexXmlData::CElementInfo** ppElements,
                                CXmlWriter* pWriter) const;
    void ProcessElementChoiceToXml(const CSerializationContext& ctx, OrvexXmlData::CElementInfo** ppElements,
                                   CXmlWriter* pWriter, bool bOptionalChoice) const;

    // True if a member of the choice may be absent, so that an empty choice is no error.
    bool DoesElementContainOptionalElements() const;

    // Reads the attributes of pElement into the object.
    void ProcessAttributesFromXml(const CSerializationContext& ctx, CXmlElement* pElement, bool bFailIfUnknown);
    // True if some entry of the element table accepts the element.
    bool IsElementInList(const CSerializationContext& ctx, CXmlElement* pElement) const;

    // Frees a class's three metadata tables and nulls the references.
    static void CleanMetaData(OrvexXmlData::CParentElementInfo*& pParent, OrvexXmlData::CElementInfo**& ppElements,
                              OrvexXmlData::CAttributeInfo**& ppAttributes);

    // Held while a class's tables are built; CMetaDataHolder takes it for generated code.
    static COXCriticalSection m_csInit;

private:
    int GetClassElementInfoCount() const;

    CXmlElement* ProcessElementSeqFromXml(const CSerializationContext& ctx, CXmlElement* pElement,
                                          CXmlElement* pCurrent, OrvexXmlData::XmlElementType eType);
    CXmlElement* ProcessElementAllFromXml(const CSerializationContext& ctx, CXmlElement* pElement,
                                          CXmlElement* pCurrent, OrvexXmlData::XmlElementType eType);
    CXmlElement* ProcessElementChoiceFromXml(const CSerializationContext& ctx, CXmlElement* pElement,
                                             CXmlElement* pCurrent, OrvexXmlData::XmlElementType eType,
                                             bool bOptionalChoice);
    // The error of elements left over after a group has read what it could.
    [[noreturn]] static void ThrowUnprocessedElement(CXmlElement* pElement, CXmlElement* pCurrent);
};

}  // namespace OrvexXml
