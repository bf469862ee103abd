#pragma once

#include <string>

#include "orvexxml/binding/attributecol.h"
#include "orvexxml/binding/elementcol.h"
#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/smartptr.h"

namespace OrvexXml {

// A free element of open content (the element wildcard): local name, namespace URI, text,
// attributes and child elements, each child a CElement again. The namespace must pass the
// restriction (a constraint in the form of an XSD wildcard's namespace attribute, read against
// the target namespace) when the element is made; setters don't test it again, which
// SetNamespaceRestrictions does for a whole subtree.
//
// An element may carry a default namespace, which it declares for itself and its content when
// written as XML text: CopyXmlElement takes it from an "xmlns" attribute, and the constructor
// from an object from its argument. Such an element is rendered by a writer of its own and
// spliced into the output, with its attributes except a namespace declaration ("xmlns" in no
// namespace or in the xmlns namespace), which the default namespace already declares; so no
// attribute is lost and "xmlns" is never written twice. Under a writer other than the XML text
// writer it is written in the plain way.
//
// The entry points that read a document (FromXml, FromXmlStream, FromXmlFile, FromXmlElement)
// read the document element itself into this element. Reading adds to the attributes and
// children already held; what was read before a failure stays.
class ORVEXXML_API CElement : public CXmlObjectBase, public CInstanceMonitor {
    friend class CElementCol;

public:
    // An element in no namespace that any later namespace suits.
    explicit CElement(const char* pszName);
    // An element whose namespace is its own restriction. One of the words "##any", "##other",
    // "##local" or "##targetNamespace" as the namespace throws COxInvalidNamespaceException.
    CElement(const char* pszName, const char* pszNamespace);
    CElement(const char* pszName, const char* pszNamespace, const char* pszRestriction, const char* pszTargetNamespace);
    // Renders pObject into an element: written as UTF-8 without header, with
    // pszDefaultNamespace (if not null) as the default namespace, and read back.
    CElement(CXmlObjectBase* pObject, const char* pszDefaultNamespace);

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return m_strNamespace; }

    // A new element with the same name, namespace, constraint and text, and clones of the
    // attributes and children; without the default namespace.
    CSmartPtr<CElement> Clone() const;

    // Reads text with the default context.
    void FromXml(const char* pszXml);
    using CXmlObjectBase::FromXml;
    using CXmlObjectBase::FromXmlElement;
    void FromXml(const wchar_t* pszXml, const CSerializationContext& ctx) override;
    void FromXml(const char* pszXml, const CSerializationContext& ctx) override;
    void FromXmlFile(const char* pszFileName, const CSerializationContext& ctx) override;
    void FromXmlStream(unsigned char* const pData, OxULong nLength, const CSerializationContext& ctx) override;
    using CXmlObjectBase::FromXmlStream;
    void FromXmlElement(const CXmlElement* pElement, const CSerializationContext& ctx) override;

    std::string GetName() const { return m_strName; }
    std::string GetText() const { return m_strText; }
    const std::string& GetNamespaceRestriction() const { return m_strNamespaceRestriction; }
    const std::string& GetRestrictionTargetNamespace() const { return m_strTargetNamespace; }
    const std::string& GetDefaultNamespace() const { return m_strDefaultNamespace; }
    CSmartPtr<CAttributeCol> GetAttributes() const { return m_pAttributes; }
    CSmartPtr<CElementCol> GetChildElements() const { return m_pChildren; }

    // Tell the matching FireOnChange... first, then assign. No namespace test.
    void SetName(const char* pszName);
    void SetNamespace(const char* pszNamespace);
    void SetText(const char* pszText);

    // Tests the namespace of this element, of its attributes and, recursively, of its children
    // against another constraint, changing nothing. A refusal of this element's namespace is
    // wrapped in a COxInvalidNamespaceException that names it; the others go on as they are.
    void SetNamespaceRestrictions(const char* pszRestriction, const char* pszTargetNamespace);

protected:
    ~CElement() override;

    // A null argument throws COxInvalidNamespaceException naming it; then the namespace test;
    // then fresh, empty attribute and child collections.
    void Init(const char* pszName, const char* pszNamespace, const char* pszRestriction,
              const char* pszTargetNamespace);
    // Takes over the name, namespace, text, attributes and children of pElement, replacing
    // the attributes and children held. An "xmlns" attribute also becomes the default namespace.
    void CopyXmlElement(CXmlElement* pElement);

    std::string GetTargetNamespace() const override { return m_strNamespace; }
    // Writes the element with its attributes, children and text. bRoot is not used.
    void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                   bool bOptionalChoice) const override;
    // Reads pElement itself (the second argument) if its namespace passes the constraint, and
    // returns its next sibling; otherwise returns pElement, having read nothing.
    CXmlElement* FromXml_Int(CXmlElement* pParent, CXmlElement* pElement, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;

    // --- virtual slots after those of CXmlObjectBase -----------------------------------
    // Told of a change before it is made, with the new value; nothing happens here.
    virtual void FireOnChangeName(const char* pszName);
    virtual void FireOnChangeNamespace(const char* pszNamespace);
    virtual void FireOnChangeText(const char* pszText);
    // --- end of virtual slots ----------------------------------------------------------

private:
    // Reads the document element of a loaded document into this element.
    void ReadDocumentElement(CXmlDocument& doc, const CSerializationContext& ctx);
    // The two forms of ToXml_Int: straight into pWriter, or rendered apart under the default
    // namespace and spliced into pText.
    void WritePlain(CXmlWriter* pWriter, const char* pszNamespace, const CSerializationContext& ctx,
                    bool bOptionalChoice) const;
    void WriteSpliced(CXmlTextWriter* pText, const CSerializationContext& ctx, bool bOptionalChoice) const;

    std::string m_strName;
    std::string m_strText;
    std::string m_strNamespace;
    std::string m_strNamespaceRestriction;
    std::string m_strTargetNamespace;
    CSmartPtr<CAttributeCol> m_pAttributes;
    CSmartPtr<CElementCol> m_pChildren;
    std::string m_strDefaultNamespace;
};

}  // namespace OrvexXml
