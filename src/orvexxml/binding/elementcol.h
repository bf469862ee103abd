#pragma once

#include <string>

#include "orvexxml/collections/xmlcollection.h"
#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/smartptr.h"

namespace OrvexXmlData {
class CElementInfo;
}  // namespace OrvexXmlData

namespace OrvexXml {

class CElement;

// The elements of an element wildcard or the children of a CElement, in document order.
//
// The constraint given to the constructor is tested against its namespace once; the
// collection itself then takes elements in any namespace (its restriction is "##any"), so
// that reading takes every remaining sibling. Elements added by name alone get the default
// namespace. A collection made with an empty namespace has no default namespace, and Add(name)
// on it throws COxInvalidStateException "A Namespace has not been set for this Collection"
// without adding anything.
//
// minOccurs and maxOccurs are the collection's occurrence limits, tested by ValidateCount when
// the collection is written (unless the context ignores collection counts). A null text counts
// as the empty string.
class ORVEXXML_API CElementCol : public CXmlCollection, public CInstanceMonitor {
    // Untyped members read runs of one element name through FromXmlLockElementName_Int.
    friend class OrvexXmlData::CElementInfo;

public:
    // Tests pszNamespace against the restriction (COxInvalidNamespaceException); maxOccurs -1
    // means unbounded.
    CElementCol(const char* pszNamespace, const char* pszRestriction, const char* pszTargetNamespace, int nMinOccurs,
                int nMaxOccurs);

    // A new collection with the same default namespace, target namespace and limits, holding a
    // clone of each item.
    CSmartPtr<CElementCol> Clone() const;

    // Appends a new element in pszNamespace, which must pass the collection's constraint.
    CSmartPtr<CElement> Add(const char* pszName, const char* pszNamespace);
    // Appends a new element in the default namespace (see above for an empty one).
    CSmartPtr<CElement> Add(const char* pszName);
    // Tests the element's namespace against the constraint, then appends it. Null is refused
    // with COxInvalidParamException.
    CSmartPtr<CElement> Add(CElement* pElement);
    // Insert next to an item of the collection, without a namespace test; a null anchor puts the
    // item at the head (AddAfter) or the tail (AddBefore).
    void AddAfter(const CElement* pAfter, CElement* pElement);
    void AddBefore(const CElement* pBefore, CElement* pElement);

    // COxInvalidParamException for an index outside 0 to count - 1.
    CSmartPtr<CElement> Item(int nIndex) const;
    COxIterator<CElement> begin() const { return COxIterator<CElement>(m_pHead); }
    COxIterator<CElement> end() const { return COxIterator<CElement>(nullptr); }

    // The target namespace given to the constructor.
    std::string GetNamespace() const override { return m_strTargetNamespace; }
    const std::string& GetDefaultNamespace() const { return m_strDefaultNamespace; }
    const std::string& GetNamespaceRestriction() const { return m_strNamespaceRestriction; }

protected:
    ~CElementCol() override;

    std::string GetTargetNamespace() const override { return m_strTargetNamespace; }
    // ValidateCount, then each element in list order.
    void ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace, const CSerializationContext& ctx,
                   bool bOptionalChoice) const override;
    // Reads an element from pCurrent on and from each following sibling, while the element
    // takes it. Returns the first element not taken, or null. Elements read before a failure
    // stay in the collection.
    CXmlElement* FromXml_Int(CXmlElement* pParent, CXmlElement* pCurrent, const CSerializationContext& ctx,
                             bool bOptionalChoice) override;

    // --- virtual slot after those of CXmlCollection ------------------------------------
    // The same for a run of siblings with the local name strName and the namespace URI strNs:
    // stops at the first other one and returns it (or null).
    virtual CXmlElement* FromXmlLockElementName_Int(std::string strName, std::string strNs, CXmlElement* pParent,
                                                    CXmlElement* pCurrent, const CSerializationContext& ctx);
    // --- end of virtual slots ----------------------------------------------------------

private:
    static void CheckItem(const CElement* pElement);

    std::string m_strDefaultNamespace;
    std::string m_strNamespaceRestriction;
    std::string m_strTargetNamespace;
};

}  // namespace OrvexXml
