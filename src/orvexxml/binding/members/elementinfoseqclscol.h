#pragma once

#include "orvexxml/binding/members/elementinfoseqcol.h"

namespace OrvexXmlData {

// A repeating child object of a sequence, held in a typed collection of objects.
// The collection reads and writes its items; a model-group item writes its attributes on
// the parent's start tag.
class ORVEXXML_API CElementInfoSeqClsCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqClsCol(const char* pszName, const char* pszNamespace, int nPropertyIndex, XmlElementType eOwnType);

protected:
    void PseudoChildAttributeToXml(const OrvexXml::CSerializationContext& ctx,
                                   const OrvexXml::CXmlGeneratedClass* pClass,
                                   OrvexXml::CXmlWriter* pWriter) const override;

private:
    XmlElementType m_eOwnType;
};

}  // namespace OrvexXmlData
