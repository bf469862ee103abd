#pragma once

#include <string>

#include "orvexxml/binding/attribute.h"
#include "orvexxml/collections/xmlcollection.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/smartptr.h"

namespace OrvexXml {

// The attributes of an attribute wildcard or of a CElement, in document order. Every Add that
// names a namespace tests it against the collection's constraint (a restriction in the form of
// an XSD wildcard's namespace attribute, read against the target namespace); an attribute
// object handed in whole is taken as it is. The collection's namespace (GetNamespace) is the
// namespace of attributes added without one. A null text counts as the empty string.
class ORVEXXML_API CAttributeCol : public CXmlCollection, public CInstanceMonitor {
public:
    // The collection's namespace is pszNamespace, unless that is empty and the first token of
    // the restriction is a literal URI (two characters or more, neither of the first two a
    // '#'): then it is that URI.
    CAttributeCol(const char* pszNamespace, const char* pszRestriction, const char* pszTargetNamespace);

    // A new collection with the same namespace and constraint, holding a clone of each item.
    CSmartPtr<CAttributeCol> Clone() const;

    // Tests pszNamespace against the constraint (COxInvalidNamespaceException, nothing added),
    // then appends a new attribute.
    CSmartPtr<CAttribute> Add(const char* pszName, const char* pszValue, const char* pszNamespace);
    // The same in the collection's namespace.
    CSmartPtr<CAttribute> Add(const char* pszName, const char* pszValue);
    CSmartPtr<CAttribute> Add(const char* pszName);
    // Appends pAttribute without a namespace test. Null is refused with COxInvalidParamException.
    CSmartPtr<CAttribute> Add(CAttribute* pAttribute);
    // Insert next to an item of the collection, without a namespace test; a null anchor puts the
    // item at the head (AddAfter) or the tail (AddBefore).
    void AddAfter(const CAttribute* pAfter, CAttribute* pAttribute);
    void AddBefore(const CAttribute* pBefore, CAttribute* pAttribute);

    // COxInvalidParamException for an index outside 0 to count - 1.
    CSmartPtr<CAttribute> Item(int nIndex) const;
    COxIterator<CAttribute> begin() const { return COxIterator<CAttribute>(m_pHead); }
    COxIterator<CAttribute> end() const { return COxIterator<CAttribute>(nullptr); }

    const std::string& GetNamespaceRestriction() const { return m_strNamespaceRestriction; }

protected:
    ~CAttributeCol() override;

    // The collection's namespace.
    std::string GetTargetNamespace() const override { return m_strNamespace; }
    // Each attribute in list order, each in its own namespace. No count test.
    void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                   bool bOptionalChoice) const override;
    // Adds every attribute of pElement, the XML Schema instance ones too. An attribute outside
    // the constraint throws COxInvalidNamespaceException with the element's path; what was
    // added before stays. Returns pSecond.
    CXmlElement* FromXml_Int(CXmlElement* pElement, CXmlElement* pSecond, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;

private:
    // Refuses a null item before the list sees it.
    static void CheckItem(const CAttribute* pAttribute);

    std::string m_strNamespaceRestriction;
    std::string m_strTargetNamespace;
};

}  // namespace OrvexXml
