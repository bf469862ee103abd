#pragma once

#include "orvexxml/binding/members/elementinfoseqcol.h"

namespace OrvexXmlData {

// A repeating untyped element of a sequence, held in a CElementCol: with the name "AnyElement"
// it takes every element its namespaces allow, otherwise the run of elements of its name.
class ORVEXXML_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqUntpdCol(const char* pszName, const char* pszNamespace, int nPropertyIndex);

protected:
    bool ElementFromXml(const OrvexXml::CSerializationContext& ctx, OrvexXml::CXmlGeneratedClass* pClass,
                        OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement** ppCurrent, const char* pszNamespace,
                        XmlElementType eParentType) override;
};

}  // namespace OrvexXmlData
