#include "orvexxml/binding/metadataholder.h"

#include <type_traits>

#include "orvexxml/binding/attributeinfo.h"
#include "orvexxml/binding/elementinfo.h"
#include "orvexxml/binding/parentelementinfo.h"
#include "orvexxml/binding/xmlgeneratedclass.h"
#include "orvexxml/infrastructure/criticalsection.h"
#include "orvexxml/infrastructure/exceptions.h"

using namespace OrvexXml;

namespace OrvexXmlData {

// Generated code keeps holders as statics: they must be usable before any constructor of
// the program ran and must never be torn down at exit.
static_assert(std::is_trivially_destructible<CMetaDataHolder>::value, "a holder must survive exit");

void CMetaDataHolder::Build_Int(BuildThunk pfnThunk, void* pBuild) {
    COXLock lock(CXmlGeneratedClass::m_csInit);
    // Another thread may have published while this one waited for the lock.
    if (m_bPublished.load(std::memory_order_relaxed)) return;
    // The lock is recursive, so a build that asks for its own tables gets here again.
    if (m_bBuilding) throw COxInvalidStateException("The metadata of a class was asked for while it was being built");

    CMetaDataBuilder builder;
    m_bBuilding = true;
    try {
        pfnThunk(builder, pBuild);
    } catch (...) {
        m_bBuilding = false;
        throw;
    }
    m_bBuilding = false;
    if (!builder.m_pParent) throw COxInvalidStateException("The metadata of a class was built without a parent record");

    // Both arrays exist before any entry leaves the builder's ownership, so nothing below
    // can fail half way.
    std::unique_ptr<CElementInfo*[]> ppElements(new CElementInfo*[builder.m_vecElements.size() + 1]);
    std::unique_ptr<CAttributeInfo*[]> ppAttributes(new CAttributeInfo*[builder.m_vecAttributes.size() + 1]);
    size_t n = 0;
    for (std::unique_ptr<CElementInfo>& pElement : builder.m_vecElements) ppElements[n++] = pElement.release();
    ppElements[n] = nullptr;
    n = 0;
    for (std::unique_ptr<CAttributeInfo>& pAttribute : builder.m_vecAttributes)
        ppAttributes[n++] = pAttribute.release();
    ppAttributes[n] = nullptr;

    m_pParent = builder.m_pParent.release();
    m_ppElements = ppElements.release();
    m_ppAttributes = ppAttributes.release();
    m_bPublished.store(true, std::memory_order_release);
}

void CMetaDataHolder::Clean() {
    COXLock lock(CXmlGeneratedClass::m_csInit);
    m_bPublished.store(false, std::memory_order_relaxed);
    CXmlGeneratedClass::CleanMetaData(m_pParent, m_ppElements, m_ppAttributes);
}

}  // namespace OrvexXmlData
