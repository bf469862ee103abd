#include "orvexxml/binding/metadatabuilder.h"

#include "orvexxml/binding/attributeinfo.h"
#include "orvexxml/binding/elementinfo.h"
#include "orvexxml/binding/parentelementinfo.h"

namespace OrvexXmlData {

CMetaDataBuilder::CMetaDataBuilder() {}

CMetaDataBuilder::~CMetaDataBuilder() {}

void CMetaDataBuilder::SetParent(CParentElementInfo* pParent) { m_pParent.reset(pParent); }

void CMetaDataBuilder::AddElement(CElementInfo* pElement) {
    // Owned before the vector grows, so a failed growth frees the entry.
    std::unique_ptr<CElementInfo> owned(pElement);
    m_vecElements.push_back(std::move(owned));
}

void CMetaDataBuilder::AddAttribute(CAttributeInfo* pAttribute) {
    std::unique_ptr<CAttributeInfo> owned(pAttribute);
    m_vecAttributes.push_back(std::move(owned));
}

}  // namespace OrvexXmlData
