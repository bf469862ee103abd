#pragma once

#include <atomic>

#include "orvexxml/binding/metadatabuilder.h"
#include "orvexxml/export.h"

namespace OrvexXmlData {

// The three metadata tables of one generated class, kept as one static of that class:
//
//     static OrvexXmlData::CMetaDataHolder ms_metaData;               // in the class
//     ms_metaData.Init(&BuildMetaData);                               // in each constructor
//     return ms_metaData.GetClassElementInfo();                       // in the getters
//
// Init runs the build function once per process, under CXmlGeneratedClass::m_csInit, and
// publishes the tables only when the build has finished; a build that throws publishes
// nothing, releases the lock, frees what it made and lets a later Init try again. Once
// published, Init is a single acquire load and takes no lock.
//
// The holder is constant-initialised and has no destructor, and the tables it publishes
// are never freed by it: objects with static storage may still write themselves after
// every exit handler ran, and the tables must outlive them. Clean exists for code that
// unloads the class and knows that no object of it is left.
class ORVEXXML_API CMetaDataHolder {
public:
    constexpr CMetaDataHolder() noexcept
        : m_bPublished(false), m_bBuilding(false), m_pParent(nullptr), m_ppElements(nullptr), m_ppAttributes(nullptr) {}
    CMetaDataHolder(const CMetaDataHolder&) = delete;
    CMetaDataHolder& operator=(const CMetaDataHolder&) = delete;

    // Builds the tables on the first call: build is called with a CMetaDataBuilder and
    // hands it every entry of the class. Anything build throws reaches the caller. A build
    // that needs its own tables (it asks this holder again) is refused.
    template <class TBuild>
    void Init(TBuild build) {
        if (!m_bPublished.load(std::memory_order_acquire)) Build_Int(&CallBuild<TBuild>, &build);
    }

    bool IsBuilt() const { return m_bPublished.load(std::memory_order_acquire); }

    // Null until the tables are built.
    CParentElementInfo* GetParentElementInfo() const { return m_pParent; }
    CElementInfo** GetClassElementInfo() const { return m_ppElements; }
    CAttributeInfo** GetClassAttributeInfo() const { return m_ppAttributes; }

    // Frees the tables through CXmlGeneratedClass::CleanMetaData and forgets them, so that
    // the next Init builds again. No object of the class may use them any more.
    void Clean();

private:
    typedef void (*BuildThunk)(CMetaDataBuilder& builder, void* pBuild);

    template <class TBuild>
    static void CallBuild(CMetaDataBuilder& builder, void* pBuild) {
        (*static_cast<TBuild*>(pBuild))(builder);
    }

    void Build_Int(BuildThunk pfnThunk, void* pBuild);

    std::atomic<bool> m_bPublished;
    bool m_bBuilding;  // under the lock: a build of this holder is running
    CParentElementInfo* m_pParent;
    CElementInfo** m_ppElements;
    CAttributeInfo** m_ppAttributes;
};

}  // namespace OrvexXmlData
