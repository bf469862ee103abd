#pragma once

#include <string>

#include "orvexxml/binding/parentelementinfo.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/smartptr.h"
#include "orvexxml/values/itemtype.h"
#include "orvexxml/values/primitiverestrictions.h"
#include "orvexxml/values/whitespaceutils.h"

namespace OrvexXml {
class CSerializationContext;
class CXmlGeneratedClass;
class CXmlObjectBase;
class CXmlWriter;
class CXmlElement;
class OxVariant;
class CXmlCollectionBase;
}  // namespace OrvexXml

namespace OrvexXmlData {

// Describes one element of a generated class. The concrete members of the family
// (CElementInfo + group + kind + occurrence) add only a dispatch; the behaviour lives in
// the protected services here.
class ORVEXXML_API CElementInfo {
    friend class OrvexXml::CXmlGeneratedClass;

public:
    virtual ~CElementInfo();

    int GetPropertyIndex() const { return m_nPropertyIndex; }

    // The factories of generated code: a new object of a known class (class id, element name),
    // and a new object of the class that an element's xsi:type names, or null.
    typedef OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> (*ClsFactoryFn)(int, const char*);
    typedef OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> (*AbsClsFactoryFn)(OrvexXml::CXmlElement*);

    // Checks a value against the element's facets before it is written.
    void CheckRestriction(const OrvexXml::OxVariant& value) const;

protected:
    typedef const char* (*EnumToTextFn)(int);
    typedef int (*TextToEnumFn)(const char*);

    // Collections and class elements.
    CElementInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex);
    // Enum elements.
    CElementInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
                 EnumToTextFn pfnEnumToText, TextToEnumFn pfnTextToEnum, const char* pszDefault);
    // Primitive elements.
    CElementInfo(const char* pszName, const char* pszNamespace, int nPropertyIndex, bool bNillable,
                 OrvexXml::ItemType eItemType, const char* pszFormat,
                 OrvexXml::CWhitespaceUtils::WhitespaceRule eWhitespaceRule,
                 const OrvexXml::CPrimitiveRestrictions& restrictions, const char* pszDefault);

    // --- virtual slots, in interface order ---------------------------------------------
    // Writes the element; true if anything was written.
    virtual bool ElementToXml(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                              OrvexXml::CXmlWriter* pWriter) const = 0;
    // Reads the element at the cursor and moves the cursor past what it consumed.
    virtual bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                const char* pszNamespace, XmlElementType eParentType) = 0;
    // Used by the All driver only; members that take part override it.
    virtual bool Validate(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                          bool bFound, bool bCheck) const;
    // Writes the attributes of a model-group child on its parent's start tag.
    virtual void PseudoChildAttributeToXml(const OrvexXml::CSerializationContext& ctx,
                                           const OrvexXml::CXmlGeneratedClass* pClass,
                                           OrvexXml::CXmlWriter* pWriter) const;
    // --- end of virtual slots ----------------------------------------------------------

    const std::string& GetElementName() const { return m_strElementName; }
    const std::string& GetElementNamespace() const { return m_strElementNamespace; }

    // Writes a primitive element from its property; false if the property holds no value.
    bool ElementToXmlPrim(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                          OrvexXml::CXmlWriter* pWriter) const;
    // The same for an enumeration, whose value travels as an i4 and is written through enumToText.
    bool ElementToXmlEnum(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                          OrvexXml::CXmlWriter* pWriter, EnumToTextFn pfnEnumToText) const;
    // Writes the simple value (primitive or enumeration); throws when a mandatory one is missing.
    bool ElementToXmlMandatory(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                               OrvexXml::CXmlWriter* pWriter) const;
    bool ElementToXmlValue(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                           OrvexXml::CXmlWriter* pWriter) const;
    // Writes the collection held in the property; false for an empty one.
    bool ElementToXmlCol(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                         OrvexXml::CXmlWriter* pWriter) const;
    // Checks the count of the collection (unless the context ignores counts), then writes it.
    bool ElementToXmlCountedCol(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                                OrvexXml::CXmlWriter* pWriter) const;

    // Reads the primitive element at the cursor into the property and moves the cursor on.
    void ElementFromXmlPrim(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                            OrvexXml::CXmlElement** ppCurrent);
    // Whether the element at the cursor belongs to this description.
    bool IsThisElement(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlElement* pElement) const;
    // The search of a mandatory sequence member: moves the cursor forward over unknown elements
    // as far as the context allows. True when it stands on this element, false when a missing
    // element is to be ignored; otherwise the required-child refusal.
    bool SeekMandatory(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlElement* pParent,
                       OrvexXml::CXmlElement** ppCurrent) const;
    // Sequence members: read the element if it is at the cursor; a mandatory one searches
    // forward as far as the context allows and fails when it can't find its element.
    bool ElementFromXmlSeqMandatory(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                    OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                    XmlElementType eParentType);
    // All and choice members: read the element if it is at the cursor; true if it was.
    bool ElementFromXmlOptional(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                OrvexXml::CXmlElement** ppCurrent);
    // Optional sequence members: read the element if it is there; always true.
    bool ElementFromXmlSeqOptional(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                   OrvexXml::CXmlElement** ppCurrent);
    // Reads an enumeration element at the cursor and moves the cursor on.
    void ElementFromXmlEnum(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                            OrvexXml::CXmlElement** ppCurrent);
    // The collection members: the collection consumes its run of elements at the cursor.
    bool ElementFromXmlSeqCol(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                              OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                              XmlElementType eParentType);
    bool ElementFromXmlAllCol(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                              OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent);
    bool ElementFromXmlChoiceCol(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                 OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                 XmlElementType eParentType);
    // The endings of the sequence and choice collection members once the collection has read
    // up to pNext: the cursor moves and the count is judged as the group requires.
    bool EndSeqCol(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlCollectionBase* pCollection,
                   OrvexXml::CXmlElement** ppCurrent, OrvexXml::CXmlElement* pNext, XmlElementType eParentType) const;
    bool EndChoiceCol(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlCollectionBase* pCollection,
                      OrvexXml::CXmlElement** ppCurrent, OrvexXml::CXmlElement* pNext,
                      XmlElementType eParentType) const;

    // Writes the object held in the property under its own element name and the description's
    // namespace; false if the property is null.
    bool ElementToXmlCls(const OrvexXml::CSerializationContext& ctx, const OrvexXml::CXmlGeneratedClass* pClass,
                         OrvexXml::CXmlWriter* pWriter, bool bOptionalChoice) const;
    // The same for a mandatory member: a null property throws.
    bool ElementToXmlMandatoryCls(const OrvexXml::CSerializationContext& ctx,
                                  const OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::CXmlWriter* pWriter) const;

    // The namespace to give a new untyped element so that it passes the restriction, given the
    // namespace of the class being read and the target namespace.
    static std::string GetAnyDefaultNamespace(const char* pszRestriction, const char* pszDefaultNamespace,
                                              const char* pszTargetNamespace);
    // Whether an untyped member takes the element at the cursor: any element when the schema
    // names none (the name "AnyElement"), otherwise one of its own local name, in any namespace
    // that its restriction lets pass.
    bool IsThisUntypedElement(const OrvexXml::CXmlElement* pElement) const;
    // The optional untyped members: a new CElement, stored when it consumed the element at the
    // cursor. eGroup decides what "nothing here" answers.
    bool ElementFromXmlUntypedNew(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                  OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                  const char* pszNamespace, XmlElementGroupType eGroup,
                                  const std::string& strRestriction, const std::string& strTargetNamespace);
    // The mandatory untyped members: the CElement the object holds reads in place.
    bool ElementFromXmlUntypedHeld(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                   OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                   XmlElementType eParentType, bool bAllGroup);
    // The untyped collections of sequences and choices: the CElementCol reads every element
    // its namespaces allow ("AnyElement"), or the run of elements of the member's name.
    bool ElementFromXmlUntypedCol(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                  OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                  XmlElementType eParentType, bool bChoice);

    // The class members. eOwnType is the XmlElementType of the child: a real element is read
    // inside its own tags, a model group reads on with the parent's cursor.
    // The held object of a mandatory member, read in place (sequence or All group).
    bool ElementFromXmlClsHeld(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                               OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                               XmlElementType eParentType, XmlElementType eOwnType, bool bMustConsume,
                               XmlElementGroupType eGroup);
    // A new object from the factory, stored when it read something; eGroup decides what "nothing
    // here" answers, and a choice stores its selection before the content is read.
    bool ElementFromXmlClsNew(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                              OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                              XmlElementType eOwnType, ClsFactoryFn pfnFactory, int nClassId,
                              XmlElementGroupType eGroup);
    // An object whose class the element's xsi:type decides. bMandatory (sequences only) turns
    // "not here" into an error outside a model group.
    bool ElementFromXmlAbsClsSeq(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                 OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                 XmlElementType eParentType, AbsClsFactoryFn pfnFactory, bool bMandatory);
    bool ElementFromXmlAbsClsAll(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                 OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                 XmlElementType eOwnType, AbsClsFactoryFn pfnFactory);
    bool ElementFromXmlAbsClsChoice(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                                    OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent,
                                    AbsClsFactoryFn pfnFactory);
    // The Validate of a mandatory class member of an All group.
    bool ValidateClsHeld(bool bFound, bool bCheck, XmlElementType eOwnType, bool bMustConsume) const;
    // Writes the attributes of a model-group child (an object, or each item of a collection)
    // on the parent's start tag; a real element writes its own.
    void PseudoChildAttributeToXmlCls(const OrvexXml::CSerializationContext& ctx,
                                      const OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::CXmlWriter* pWriter,
                                      XmlElementType eOwnType, bool bCollection) const;
    // Reads the element at the cursor into pObject and moves the cursor to its next sibling.
    static void ReadInside(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlObjectBase* pObject,
                           OrvexXml::CXmlElement** ppCurrent, bool bOptionalChoice);
    // The object a property holds (null if none); a value of another kind throws.
    OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> ObjectOf(const OrvexXml::OxVariant& value) const;
    // The collection a property holds; anything else throws.
    OrvexXml::CXmlCollectionBase* CollectionOf(const OrvexXml::OxVariant& value) const;
    // "Failed to find the required child element [...]." with the parent's path.
    [[noreturn]] void ThrowRequiredChild(const OrvexXml::CXmlElement* pParent) const;

    // "The Property [...] is mandatory, it may not be NULL".
    [[noreturn]] static void ThrowMandatoryNull(const std::string& strName);

    // The Validate of mandatory All members.
    bool ValidateMandatory(bool bFound, bool bCheck) const;
    // The collection held in the property of a collection member.
    OrvexXml::CXmlCollectionBase* ReadCollection(const OrvexXml::CXmlGeneratedClass* pClass,
                                                 OrvexXml::OxVariant& holder) const;

    // Reads the nil attribute of a simple element; refuses any other attribute unless the
    // context ignores unknown attributes. True if the element is nil.
    bool ReadSimpleElementAttributes(const OrvexXml::CSerializationContext& ctx,
                                     const OrvexXml::CXmlElement* pElement) const;
    // Reads the simple value at the cursor the way this description's kind reads it.
    void ReadElement(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                     OrvexXml::CXmlElement** ppCurrent);

    void ReadProperty(const OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::OxVariant& value) const;
    void InvokePropertySet(OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::OxVariant& value,
                           const OrvexXml::CXmlElement& element) const;
    void InvokePropertyGet(const OrvexXml::CXmlGeneratedClass* pClass, OrvexXml::OxVariant& value) const;

    // Reach the protected virtuals of objects for the members of the family.
    static void ToXml_Int(const OrvexXml::CXmlObjectBase* pObject, OrvexXml::CXmlWriter* pWriter, bool bRoot,
                          const char* pszNamespace, const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice);
    static void AttributesToXml_Int(const OrvexXml::CXmlObjectBase* pObject, OrvexXml::CXmlWriter* pWriter,
                                    const OrvexXml::CSerializationContext& ctx);
    static OrvexXml::CXmlElement* FromXml_Int(OrvexXml::CXmlObjectBase* pObject, OrvexXml::CXmlElement* pElement,
                                              OrvexXml::CXmlElement* pFirstChild,
                                              const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice);

    std::string m_strElementName;
    std::string m_strElementNamespace;
    int m_nPropertyIndex;
    OrvexXml::CPrimitiveRestrictions m_restrictions;
    OrvexXml::ItemType m_eItemType;
    std::string m_strFormatOverride;
    OrvexXml::CWhitespaceUtils::WhitespaceRule m_eWhitespaceRule;
    std::string m_strDefaultValue;
    bool m_bNillable;
    EnumToTextFn m_pfnEnumToText;
    TextToEnumFn m_pfnTextToEnum;
    bool m_bPrimitive;
};

}  // namespace OrvexXmlData
