#pragma once

#include "orvexxml/binding/members/elementinfochoicecol.h"

namespace OrvexXmlData {

// A repeating child object as a member of a choice, held in a typed collection of objects.
// The collection reads and writes its items; a model-group item writes its attributes on
// the parent's start tag.
class ORVEXXML_API CElementInfoChoiceClsCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceClsCol(const char* pszName, const char* pszNamespace, int nPropertyIndex,
                             XmlElementType eOwnType);

protected:
    void PseudoChildAttributeToXml(const OrvexXml::CSerializationContext& ctx,
                                   const OrvexXml::CXmlGeneratedClass* pClass,
                                   OrvexXml::CXmlWriter* pWriter) const override;

private:
    XmlElementType m_eOwnType;
};

}  // namespace OrvexXmlData
