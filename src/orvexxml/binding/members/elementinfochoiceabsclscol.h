#pragma once

#include "orvexxml/binding/members/elementinfochoicecol.h"

namespace OrvexXmlData {

// A repeating child object of a choice whose items' classes the document decides.
// The collection reads and writes its items; a model-group item writes its attributes on
// the parent's start tag.
class ORVEXXML_API CElementInfoChoiceAbsClsCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceAbsClsCol(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                                XmlElementType eOwnType);

protected:
    void PseudoChildAttributeToXml(const OrvexXml::CSerializationContext& ctx,
                                   const OrvexXml::CXmlGeneratedClass* pClass,
                                   OrvexXml::CXmlWriter* pWriter) const override;

private:
    XmlElementType m_eOwnType;
};

}  // namespace OrvexXmlData
