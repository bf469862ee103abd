// The documents the benchmarks work on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "invoiceline.h"
#include "primitiveset.h"
#include "readinglog.h"
#include "shop.h"

// A reading log whose XML text (indented, LF) is at least nMinBytes long.
OrvexXml::CSmartPtr<Samples::CReadingLog> MakeReadingLog(size_t nMinBytes);

// A primitive set with every member set, the values drawn from nSeed; about one text in three
// is too long for a short-string buffer.
OrvexXml::CSmartPtr<Samples::CPrimitiveSet> MakePrimitiveSet(uint64_t nSeed);

// A fully set invoice line, the values drawn from nSeed: every attribute carries a value,
// some texts need escapes, and the languages vary.
OrvexXml::CSmartPtr<Samples::CInvoiceLine> MakeInvoiceLine(uint64_t nSeed);

// A shop whose XML text (indented, LF) is at least nMinBytes long: orders of two to six lines,
// books and gadgets, card and transfer payments, audits and sign-offs, some shipping addresses
// and foreign extension elements; every object level of the order shape occurs.
OrvexXml::CSmartPtr<Samples::CShop> MakeShop(size_t nMinBytes);

// The element descriptions of a batch of one item class, shared by all its batches.
struct SBenchBatchMetaData;

// Benchmark scaffolding, not library API: the library has no element description for a
// member that holds child objects yet, so this class carries a hand-written one. A batch is
// a sequence of children of one generated class, in that class's namespace and under its
// element name (both taken from the class's metadata); each child is written and read
// through its own walk, as a generated class member would be.
class CBenchBatch : public OrvexXml::CXmlGeneratedClass {
public:
    typedef OrvexXml::CSmartPtr<OrvexXml::CXmlGeneratedClass> (*ItemFactory)();

    // An empty batch whose children are TItem objects.
    template <class TItem>
    static OrvexXml::CSmartPtr<CBenchBatch> CreateInstance() {
        return new CBenchBatch(&NewItem<TItem>);
    }
    // An empty batch of the same item class, to read into.
    OrvexXml::CSmartPtr<CBenchBatch> CreateEmpty() const { return new CBenchBatch(m_pfnNewItem); }
    OrvexXml::CSmartPtr<OrvexXml::CXmlGeneratedClass> NewItem() const { return m_pfnNewItem(); }

    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override;
    // The children are reached by the element description directly; there is no property.
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override { m_vecItems.clear(); }

    std::vector<OrvexXml::CSmartPtr<OrvexXml::CXmlGeneratedClass>> m_vecItems;

protected:
    std::string GetTargetNamespace() const override { return GetNamespace(); }

private:
    explicit CBenchBatch(ItemFactory pfnNewItem);

    template <class TItem>
    static OrvexXml::CSmartPtr<OrvexXml::CXmlGeneratedClass> NewItem() {
        return TItem::CreateInstance();
    }

    ItemFactory m_pfnNewItem;
    SBenchBatchMetaData* m_pMetaData;
};

// A batch of nItems children made by pfnMakeItem from the seeds 0 to nItems - 1.
template <class TItem>
OrvexXml::CSmartPtr<CBenchBatch> MakeBatch(size_t nItems, OrvexXml::CSmartPtr<TItem> (*pfnMakeItem)(uint64_t)) {
    OrvexXml::CSmartPtr<CBenchBatch> batch = CBenchBatch::CreateInstance<TItem>();
    for (size_t i = 0; i < nItems; ++i) batch->m_vecItems.push_back(pfnMakeItem(i));
    return batch;
}
