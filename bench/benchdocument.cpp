#include "benchdocument.h"

#include <cstdint>
#include <string>

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace {

const char* const kPrimitivesNamespace = "urn:orvex:samples:primitives";

uint64_t NextState(uint64_t& nState) {
    nState ^= nState << 13;
    nState ^= nState >> 7;
    nState ^= nState << 17;
    return nState;
}

// Writes each child of the batch under its own element name, and reads every following
// element of its name into a new child.
class CBenchChildrenInfo : public CElementInfo {
public:
    CBenchChildrenInfo() : CElementInfo("PrimitiveSet", kPrimitivesNamespace, 0) {}

protected:
    bool ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                      CXmlWriter* pWriter) const override {
        const CBenchBatch* pBatch = static_cast<const CBenchBatch*>(pClass);
        for (const CSmartPtr<Samples::CPrimitiveSet>& item : pBatch->m_vecItems)
            ToXml_Int(item.Get(), pWriter, false, GetElementNamespace().c_str(), ctx, false);
        return !pBatch->m_vecItems.empty();
    }
    bool ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                        CXmlElement** ppCurrent, const char*, XmlElementType) override {
        CBenchBatch* pBatch = static_cast<CBenchBatch*>(pClass);
        while (IsThisElement(ctx, *ppCurrent)) {
            CSmartPtr<Samples::CPrimitiveSet> item = Samples::CPrimitiveSet::CreateInstance();
            FromXml_Int(item.Get(), *ppCurrent, (*ppCurrent)->GetFirstElement(), ctx, false);
            pBatch->m_vecItems.push_back(item);
            *ppCurrent = (*ppCurrent)->GetNextSiblingElement();
        }
        return true;
    }
};

CParentElementInfo g_batchParent(XmlElementGroupType_Sequence, XmlElementType_Element, "Batch", kPrimitivesNamespace,
                                 true, false, -1, ItemType_invalid, nullptr, false);
CBenchChildrenInfo g_batchChildren;
CElementInfo* g_apBatchElements[2] = {&g_batchChildren, nullptr};
CAttributeInfo* g_apBatchAttributes[1] = {nullptr};

}  // namespace

std::string CBenchBatch::GetNamespace() const { return kPrimitivesNamespace; }

void CBenchBatch::ExchangeProperty(int nPropertyIndex, bool, OxVariant&) {
    throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
}

CParentElementInfo* CBenchBatch::GetParentElementInfo() const { return &g_batchParent; }
CElementInfo** CBenchBatch::GetClassElementInfo() const { return g_apBatchElements; }
CAttributeInfo** CBenchBatch::GetClassAttributeInfo() const { return g_apBatchAttributes; }

CSmartPtr<Samples::CReadingLog> MakeReadingLog(size_t nMinBytes) {
    CSmartPtr<Samples::CReadingLog> log = Samples::CReadingLog::CreateInstance();
    log->SetStation("North Ridge & Upper Valley <station 7>");
    // Each round adds one item to every collection, about 200 bytes of indented XML.
    const size_t nRounds = nMinBytes / 200 + 1;
    uint64_t nState = 88172645463325252ULL;
    for (size_t i = 0; i < nRounds; ++i) {
        NextState(nState);
        log->GetSensor().Add("sensor-" + std::to_string(nState % 997));
        log->GetSequence().Add(static_cast<int64_t>(i) * 1000003);
        log->GetValue().Add(static_cast<double>(nState % 1000000) / 1000.0 - 250.0);
        log->GetLevel().Add(static_cast<int32_t>(nState % 200000) - 100000);
        log->GetValid().Add((nState & 3) != 0);
        log->GetNote().Add((nState % 5 == 0) ? "check & recalibrate" : "ok");
    }
    return log;
}

CSmartPtr<Samples::CPrimitiveSet> MakePrimitiveSet(uint64_t nSeed) {
    uint64_t nState = nSeed * 2654435761ULL + 88172645463325252ULL;
    CSmartPtr<Samples::CPrimitiveSet> set = Samples::CPrimitiveSet::CreateInstance();
    set->SetByteVal(static_cast<char>(NextState(nState) % 200 - 100));
    set->SetShortVal(static_cast<int16_t>(NextState(nState) % 60000 - 30000));
    set->SetIntVal(static_cast<int32_t>(NextState(nState) % 2000000000) - 1000000000);
    set->SetLongVal(static_cast<int64_t>(NextState(nState) >> 1) - (int64_t(1) << 61));
    set->SetUByteVal(static_cast<uint8_t>(NextState(nState)));
    set->SetUShortVal(static_cast<uint16_t>(NextState(nState)));
    set->SetUIntVal(static_cast<uint32_t>(NextState(nState)));
    set->SetULongVal(NextState(nState));
    set->SetFloatVal(static_cast<float>(NextState(nState) % 100000) / 7.0f);
    set->SetDoubleVal(static_cast<double>(NextState(nState) % 10000000) / 1000.0 - 5000.0);
    set->SetInitial(static_cast<char>('A' + NextState(nState) % 26));
    set->SetText(NextState(nState) % 3 == 0 ? "calibrated reading " + std::to_string(nState % 100000)
                                            : "ok " + std::to_string(nState % 1000));
    set->SetFlag((NextState(nState) & 1) != 0);
    return set;
}

CSmartPtr<CBenchBatch> MakeBatch(size_t nItems) {
    CSmartPtr<CBenchBatch> batch = CBenchBatch::CreateInstance();
    for (size_t i = 0; i < nItems; ++i) batch->m_vecItems.push_back(MakePrimitiveSet(i));
    return batch;
}
