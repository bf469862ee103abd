#pragma once

#include <memory>
#include <vector>

#include "orvexxml/export.h"

namespace OrvexXmlData {

class CAttributeInfo;
class CElementInfo;
class CMetaDataHolder;
class CParentElementInfo;

// Collects the tables of one generated class while its build function runs. Every entry
// handed over is owned from that moment, so an exception part way through the build frees
// what was made so far. The holder that runs the build turns a complete collection into
// the null-terminated tables the walks read.
class ORVEXXML_API CMetaDataBuilder {
    friend class CMetaDataHolder;

public:
    CMetaDataBuilder();
    ~CMetaDataBuilder();
    CMetaDataBuilder(const CMetaDataBuilder&) = delete;
    CMetaDataBuilder& operator=(const CMetaDataBuilder&) = delete;

    // The class record. A second call replaces (and frees) the first.
    void SetParent(CParentElementInfo* pParent);
    // Entries in table order.
    void AddElement(CElementInfo* pElement);
    void AddAttribute(CAttributeInfo* pAttribute);

private:
    std::unique_ptr<CParentElementInfo> m_pParent;
    std::vector<std::unique_ptr<CElementInfo>> m_vecElements;
    std::vector<std::unique_ptr<CAttributeInfo>> m_vecAttributes;
};

}  // namespace OrvexXmlData
