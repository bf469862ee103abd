// The documents the benchmarks work on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "primitiveset.h"
#include "readinglog.h"

// A reading log whose XML text (indented, LF) is at least nMinBytes long.
OrvexXml::CSmartPtr<Samples::CReadingLog> MakeReadingLog(size_t nMinBytes);

// A primitive set with every member set, the values drawn from nSeed; about one text in three
// is too long for a short-string buffer.
OrvexXml::CSmartPtr<Samples::CPrimitiveSet> MakePrimitiveSet(uint64_t nSeed);

// Benchmark scaffolding, not library API: the library has no element description for a
// member that holds child objects yet, so this class carries a hand-written one. A batch is
// a sequence of PrimitiveSet children in the primitive set's namespace; each child is written
// and read through its own walk, as a generated class member would be.
class CBenchBatch : public OrvexXml::CXmlGeneratedClass {
public:
    CBenchBatch() { SetElementName("Batch"); }
    static OrvexXml::CSmartPtr<CBenchBatch> CreateInstance() { return new CBenchBatch(); }

    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override;
    // The children are reached by the element description directly; there is no property.
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override { m_vecItems.clear(); }

    std::vector<OrvexXml::CSmartPtr<Samples::CPrimitiveSet>> m_vecItems;

protected:
    std::string GetTargetNamespace() const override { return GetNamespace(); }
};

// A batch of nItems children made by MakePrimitiveSet.
OrvexXml::CSmartPtr<CBenchBatch> MakeBatch(size_t nItems);
