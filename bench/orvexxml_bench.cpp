// Throughput of writing and reading, in MB/s of XML text, next to baselines measured in the
// same run on the same bytes: expat alone with empty handlers (the ceiling of reading) and a
// plain write of the bytes to a file (the ceiling of writing). Four documents: a large
// reading log (collections of primitives), many small primitive sets (the object path, one
// document per call), one batch of many primitive-set children and one batch of many
// invoice-line children, whose content is mostly attributes, and a shop of nested orders (five
// levels of generated objects, a derived class chosen by xsi:type, model groups). Each library benchmark
// also reports the allocations it makes per XML element, counted by the replaced global
// operator new below. The ratios are printed at the end, so that they mean something on a
// noisy machine. The JSON writer runs on the same objects, measured in MB/s of its own output
// (JSON in the full mode, formatted like the XML), and its rate is set against the XML writer's.
// The JSON reader reads that JSON text back into the same classes; its rate is counted in bytes
// of the XML form, so that it compares with FromXml on the same document as time against time.
#include <benchmark/benchmark.h>
#include <expat.h>
#include <fcntl.h>
#include <unistd.h>
#include <zlib.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "baselines.h"
#include "benchdocument.h"
#include "fastinfosetform.h"

// --- counting allocator --------------------------------------------------------------------

// Every allocation of the program (the library included) goes through these. The count is a
// relaxed load and store rather than an increment: the benchmarks run on one thread, and a
// locked increment would tax the library's figures against expat's.
static std::atomic<uint64_t> g_nAllocations(0);

static void* CountedAlloc(size_t nSize) {
    g_nAllocations.store(g_nAllocations.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    return std::malloc(nSize ? nSize : 1);
}

// The replaced delete operators free through this function, kept out of line: inlined, the
// compiler would pair free with the operator new at the call site and warn of a mismatch.
__attribute__((noinline)) static void CountedFree(void* p) noexcept { std::free(p); }

void* operator new(size_t nSize) {
    if (void* p = CountedAlloc(nSize)) return p;
    throw std::bad_alloc();
}
void* operator new[](size_t nSize) {
    if (void* p = CountedAlloc(nSize)) return p;
    throw std::bad_alloc();
}
void* operator new(size_t nSize, const std::nothrow_t&) noexcept { return CountedAlloc(nSize); }
void* operator new[](size_t nSize, const std::nothrow_t&) noexcept { return CountedAlloc(nSize); }
void operator delete(void* p) noexcept { CountedFree(p); }
void operator delete[](void* p) noexcept { CountedFree(p); }
void operator delete(void* p, size_t) noexcept { CountedFree(p); }
void operator delete[](void* p, size_t) noexcept { CountedFree(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { CountedFree(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { CountedFree(p); }

using namespace OrvexXml;

namespace {

const size_t kDocumentBytes = 25 * 1000 * 1000;

// Elements in an XML text, counted from the text itself: every "<" that opens a start tag.
size_t CountElements(const std::string& strXml) {
    size_t nCount = 0;
    for (size_t nPos = strXml.find('<'); nPos != std::string::npos; nPos = strXml.find('<', nPos + 1)) {
        char c = nPos + 1 < strXml.size() ? strXml[nPos + 1] : '/';
        if (c != '/' && c != '?' && c != '!') ++nCount;
    }
    return nCount;
}

struct Fixture {
    CSmartPtr<Samples::CReadingLog> log;
    std::string strXml;
    std::string strFile;
    size_t nElements;
    Fixture() {
        log = MakeReadingLog(kDocumentBytes);
        strXml = log->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext());
        nElements = CountElements(strXml);
        strFile = "/tmp/orvexxml-bench-" + std::to_string(getpid()) + ".xml";
        FILE* pFile = std::fopen(strFile.c_str(), "wb");
        std::fwrite(strXml.data(), 1, strXml.size(), pFile);
        std::fclose(pFile);
    }
    ~Fixture() { std::remove(strFile.c_str()); }
};

Fixture& Doc() {
    static Fixture s_fixture;
    return s_fixture;
}

// Many small documents: primitive sets with different values, each its own document.
const size_t kSmallDocuments = 256;
// One document of many children: a batch of primitive sets.
const size_t kBatchItems = 20000;
// One document of many children with attributes: a batch of invoice lines, of about the
// same size as the batch of primitive sets.
const size_t kInvoiceItems = 50000;

struct SmallFixture {
    std::vector<CSmartPtr<Samples::CPrimitiveSet>> vecSets;
    std::vector<std::string> vecXml;
    size_t nBytes = 0;
    size_t nElements = 0;
    SmallFixture() {
        for (size_t i = 0; i < kSmallDocuments; ++i) {
            vecSets.push_back(MakePrimitiveSet(i));
            vecXml.push_back(vecSets.back()->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext()));
            nBytes += vecXml.back().size();
            nElements += CountElements(vecXml.back());
        }
    }
};

SmallFixture& Small() {
    static SmallFixture s_fixture;
    return s_fixture;
}

struct BatchFixture {
    CSmartPtr<CBenchBatch> batch;
    std::string strXml;
    size_t nElements;
    explicit BatchFixture(const CSmartPtr<CBenchBatch>& source) : batch(source) {
        strXml = batch->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext());
        nElements = CountElements(strXml);
    }
};

BatchFixture& Batch() {
    static BatchFixture s_fixture(MakeBatch(kBatchItems, &MakePrimitiveSet));
    return s_fixture;
}

BatchFixture& Invoices() {
    static BatchFixture s_fixture(MakeBatch(kInvoiceItems, &MakeInvoiceLine));
    return s_fixture;
}

// One document of nested objects: a shop of orders.
struct NestedFixture {
    CSmartPtr<Samples::CShop> shop;
    std::string strXml;
    size_t nElements;
    NestedFixture() {
        shop = MakeShop(kDocumentBytes);
        strXml = shop->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext());
        nElements = CountElements(strXml);
    }
};

NestedFixture& Nested() {
    static NestedFixture s_fixture;
    return s_fixture;
}

// Measures the allocations of a benchmark's timed loop: construct before the loop, call
// Report after it with the elements that one iteration handles.
class CAllocationCount {
public:
    CAllocationCount() : m_nStart(g_nAllocations.load(std::memory_order_relaxed)) {}
    void Report(benchmark::State& state, size_t nElementsPerIteration) const {
        double dAllocations = static_cast<double>(g_nAllocations.load(std::memory_order_relaxed) - m_nStart);
        double dElements = static_cast<double>(state.iterations()) * static_cast<double>(nElementsPerIteration);
        state.counters["allocs/elem"] = dElements > 0 ? dAllocations / dElements : 0.0;
    }

private:
    uint64_t m_nStart;
};

const CSerializationContext& Ctx() { return CSerializationContext::GetDefaultContext(); }

void SetBytes(benchmark::State& state, size_t nBytes) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(nBytes));
}
void SetBytes(benchmark::State& state) { SetBytes(state, Doc().strXml.size()); }

// A context for JSON in the full mode that can write every namespace the XML text declares:
// below the root a namespace needs a prefix registered before the document starts.
CSerializationContext JsonContextFor(const std::string& strXml) {
    CSerializationContext ctx;
    int nAlias = 0;
    for (size_t nPos = strXml.find(" xmlns:"); nPos != std::string::npos; nPos = strXml.find(" xmlns:", nPos + 1)) {
        const size_t nStart = strXml.find('"', nPos) + 1;
        const std::string strNamespace = strXml.substr(nStart, strXml.find('"', nStart) - nStart);
        if (!ctx.GetNamespaceAliases().DoesNamespaceExist(strNamespace.c_str()))
            ctx.GetNamespaceAliases().Add(("j" + std::to_string(nAlias++)).c_str(), strNamespace.c_str());
    }
    return ctx;
}

// Runs ToJson of object in the loop and counts the bytes of its text.
template <class T>
void WriteJson(benchmark::State& state, const T& object, const std::string& strXml, size_t nElements) {
    static std::map<const void*, CSerializationContext> s_mapContexts;
    auto it = s_mapContexts.find(&strXml);
    if (it == s_mapContexts.end()) it = s_mapContexts.emplace(&strXml, JsonContextFor(strXml)).first;
    const CSerializationContext& ctx = it->second;
    const size_t nBytes = object->ToJson(true, EOLType_LF, ctx).size();
    CAllocationCount allocations;
    for (auto _ : state) benchmark::DoNotOptimize(object->ToJson(true, EOLType_LF, ctx));
    allocations.Report(state, nElements);
    SetBytes(state, nBytes);
}

// The JSON form of a document (full mode, formatted), made once from its object, and the
// context that wrote it, which also reads it.
struct JsonForm {
    CSerializationContext ctx;
    std::string strJson;
};

template <class T>
const JsonForm& JsonFormOf(const T& object, const std::string& strXml) {
    static std::map<const void*, JsonForm> s_mapForms;
    auto it = s_mapForms.find(&strXml);
    if (it == s_mapForms.end()) {
        it = s_mapForms.emplace(&strXml, JsonForm{JsonContextFor(strXml), std::string()}).first;
        it->second.strJson = object->ToJson(true, EOLType_LF, it->second.ctx);
    }
    return it->second;
}

// Runs FromJson of the JSON form of a document into target in the loop; the bytes are those
// of the XML form. What was read must write the XML again, or the figures measure a lossy read.
template <class T, class TTarget>
void ReadJson(benchmark::State& state, const T& object, const std::string& strXml, size_t nElements,
              const TTarget& target) {
    const JsonForm& form = JsonFormOf(object, strXml);
    CAllocationCount allocations;
    for (auto _ : state) target->FromJson(form.strJson.c_str(), form.ctx);
    allocations.Report(state, nElements);
    SetBytes(state, strXml.size());
    if (target->ToXml(true, true, EOLType_LF, Ctx()) != strXml) state.SkipWithError("round trip");
}

// Runs ToFastInfosetStream of object in the loop, with the default encodings or the suggested
// ones. The rate counts the bytes of the XML text of the same object, so that it compares with
// ToXml; "fi/xml" is the size of the Fast Infoset document as a fraction of that text.
template <class T>
void WriteFastInfoset(benchmark::State& state, const T& object, size_t nXmlBytes, size_t nElements, bool bSuggested) {
    CSerializationContext ctx;
    if (bSuggested) ctx.GetFIContext().SetSuggestedValues();
    size_t nFiBytes = 0;
    try {
        nFiBytes = object->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None).GetLength();
    } catch (const COxException& e) {
        state.SkipWithError(e.GetFullMessage().c_str());
        return;
    }
    CAllocationCount allocations;
    for (auto _ : state)
        benchmark::DoNotOptimize(object->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None));
    allocations.Report(state, nElements);
    state.counters["fi/xml"] = static_cast<double>(nFiBytes) / static_cast<double>(nXmlBytes);
    SetBytes(state, nXmlBytes);
}

// --- baselines ---------------------------------------------------------------------------

using Baselines::ExpatParse;

void Baseline_ExpatOneCall(benchmark::State& state) {
    for (auto _ : state) {
        if (!ExpatParse(Doc().strXml)) state.SkipWithError("parse");
    }
    SetBytes(state);
}

void Baseline_Expat64KiB(benchmark::State& state) {
    for (auto _ : state) {
        if (!ExpatParse(Doc().strXml, 65536)) state.SkipWithError("parse");
    }
    SetBytes(state);
}

void Baseline_WriteFile(benchmark::State& state) {
    const std::string strOut = Doc().strFile + ".out";
    for (auto _ : state) {
        if (!Baselines::WriteFile(strOut, Doc().strXml)) state.SkipWithError("write");
    }
    std::remove(strOut.c_str());
    SetBytes(state);
}

// --- writing -----------------------------------------------------------------------------

void Write_ToXml(benchmark::State& state) {
    CAllocationCount allocations;
    for (auto _ : state) benchmark::DoNotOptimize(Doc().log->ToXml(true, true, EOLType_LF, Ctx()));
    allocations.Report(state, Doc().nElements);
    SetBytes(state);
}

void Write_ToXmlStreamUtf8(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            Doc().log->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, Ctx(), CompressionType_None));
    }
    SetBytes(state);
}

void Write_ToJson(benchmark::State& state) { WriteJson(state, Doc().log, Doc().strXml, Doc().nElements); }

void Write_ToJsonStreamUtf8(benchmark::State& state) {
    const CSerializationContext ctx = JsonContextFor(Doc().strXml);
    const size_t nBytes =
        Doc().log->ToJsonStream(true, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None).GetLength();
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            Doc().log->ToJsonStream(true, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None));
    }
    SetBytes(state, nBytes);
}

void Write_ToFastInfoset(benchmark::State& state) {
    WriteFastInfoset(state, Doc().log, Doc().strXml.size(), Doc().nElements, false);
}
void Write_ToFastInfosetSuggested(benchmark::State& state) {
    WriteFastInfoset(state, Doc().log, Doc().strXml.size(), Doc().nElements, true);
}

void WriteFile(benchmark::State& state, bool bAsync) {
    std::string strOut = Doc().strFile + ".out";
    AsyncToXmlFile(bAsync);
    for (auto _ : state) {
        Doc().log->ToXmlFile(strOut.c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, Ctx(), CompressionType_None);
    }
    AsyncToXmlFile(false);
    std::remove(strOut.c_str());
    SetBytes(state);
}
void Write_ToXmlFileInMemory(benchmark::State& state) { WriteFile(state, false); }
void Write_ToXmlFileDirect(benchmark::State& state) { WriteFile(state, true); }

// --- compression ---------------------------------------------------------------------------
// The stream entry points with gzip beside their uncompressed form and beside zlib alone on
// the same bytes at the same level; all count the bytes of the uncompressed document.

// The reading log as the library writes it with gzip.
const std::string& GZipDoc() {
    static const std::string s_strGZip = [] {
        CBinaryData data =
            Doc().log->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, Ctx(), CompressionType_GZip);
        return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
    }();
    return s_strGZip;
}

void Baseline_DeflateLevel1(benchmark::State& state) {
    const std::string& xml = Doc().strXml;
    std::vector<unsigned char> out(compressBound(xml.size()));
    for (auto _ : state) {
        z_stream stream = {};
        deflateInit2(&stream, 1, Z_DEFLATED, 31, 8, Z_DEFAULT_STRATEGY);
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(xml.data()));
        stream.avail_in = static_cast<uInt>(xml.size());
        stream.next_out = out.data();
        stream.avail_out = static_cast<uInt>(out.size());
        if (deflate(&stream, Z_FINISH) != Z_STREAM_END) state.SkipWithError("deflate");
        deflateEnd(&stream);
    }
    SetBytes(state);
}

void Baseline_Inflate(benchmark::State& state) {
    const std::string& gz = GZipDoc();
    // Room for the document as written, which differs from the file's text in its declaration.
    std::vector<unsigned char> out(Doc().strXml.size() * 2);
    uLong nInflated = 0;
    for (auto _ : state) {
        z_stream stream = {};
        inflateInit2(&stream, 31);
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(gz.data()));
        stream.avail_in = static_cast<uInt>(gz.size());
        stream.next_out = out.data();
        stream.avail_out = static_cast<uInt>(out.size());
        if (inflate(&stream, Z_FINISH) != Z_STREAM_END) state.SkipWithError("inflate");
        nInflated = stream.total_out;
        inflateEnd(&stream);
    }
    SetBytes(state, nInflated);
}

void Write_ToXmlStreamGZip(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            Doc().log->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, Ctx(), CompressionType_GZip));
    }
    SetBytes(state);
}

void Read_FromXmlStreamGZip(benchmark::State& state) {
    CSmartPtr<Samples::CReadingLog> target = Samples::CReadingLog::CreateInstance();
    std::string gz = GZipDoc();
    for (auto _ : state) {
        target->FromXmlStream(reinterpret_cast<unsigned char*>(&gz[0]), static_cast<OxULong>(gz.size()), Ctx());
    }
    SetBytes(state);
}

// --- reading -----------------------------------------------------------------------------

void Read_FromXml(benchmark::State& state) {
    CSmartPtr<Samples::CReadingLog> target = Samples::CReadingLog::CreateInstance();
    CAllocationCount allocations;
    for (auto _ : state) target->FromXml(Doc().strXml.c_str(), Ctx());
    allocations.Report(state, Doc().nElements);
    SetBytes(state);
}

void Read_FromJson(benchmark::State& state) {
    ReadJson(state, Doc().log, Doc().strXml, Doc().nElements, Samples::CReadingLog::CreateInstance());
}

void Read_FromXmlStream(benchmark::State& state) {
    CSmartPtr<Samples::CReadingLog> target = Samples::CReadingLog::CreateInstance();
    std::string& xml = Doc().strXml;
    for (auto _ : state) {
        target->FromXmlStream(reinterpret_cast<unsigned char*>(&xml[0]), static_cast<OxULong>(xml.size()), Ctx());
    }
    SetBytes(state);
}

// The Fast Infoset form of the reading log into the same objects; the rate counts the bytes of
// the XML form, so that the rates of the two forms compare as times.
void Read_FromFastInfoset(benchmark::State& state) {
    static std::string s_strFi = BenchFastInfoset::MakeFastInfoset(Doc().strFile);
    if (s_strFi.empty()) {
        state.SkipWithError("no Fast Infoset form");
        return;
    }
    CSmartPtr<Samples::CReadingLog> target = Samples::CReadingLog::CreateInstance();
    for (auto _ : state) {
        target->FromXmlStream(reinterpret_cast<unsigned char*>(&s_strFi[0]), static_cast<OxULong>(s_strFi.size()),
                              Ctx());
    }
    SetBytes(state);
}

void ReadFile(benchmark::State& state, bool bAsync) {
    CSmartPtr<Samples::CReadingLog> target = Samples::CReadingLog::CreateInstance();
    AsyncFromXmlFile(bAsync);
    for (auto _ : state) target->FromXmlFile(Doc().strFile.c_str(), Ctx());
    AsyncFromXmlFile(false);
    SetBytes(state);
}
void Read_FromXmlFileWhole(benchmark::State& state) { ReadFile(state, false); }
void Read_FromXmlFileChunked(benchmark::State& state) { ReadFile(state, true); }

// --- many small documents of a class with primitive members ------------------------------

void Small_Baseline_Expat(benchmark::State& state) {
    for (auto _ : state) {
        for (const std::string& strXml : Small().vecXml) {
            if (!ExpatParse(strXml)) state.SkipWithError("parse");
        }
    }
    SetBytes(state, Small().nBytes);
}

void Small_Write_ToXml(benchmark::State& state) {
    CAllocationCount allocations;
    for (auto _ : state) {
        for (const CSmartPtr<Samples::CPrimitiveSet>& set : Small().vecSets)
            benchmark::DoNotOptimize(set->ToXml(true, true, EOLType_LF, Ctx()));
    }
    allocations.Report(state, Small().nElements);
    SetBytes(state, Small().nBytes);
}

void Small_Read_FromXml(benchmark::State& state) {
    CSmartPtr<Samples::CPrimitiveSet> target = Samples::CPrimitiveSet::CreateInstance();
    CAllocationCount allocations;
    for (auto _ : state) {
        for (const std::string& strXml : Small().vecXml) target->FromXml(strXml.c_str(), Ctx());
    }
    allocations.Report(state, Small().nElements);
    SetBytes(state, Small().nBytes);
}

void Small_Read_FromJson(benchmark::State& state) {
    static std::vector<JsonForm> s_vecForms;
    if (s_vecForms.empty()) {
        for (const CSmartPtr<Samples::CPrimitiveSet>& set : Small().vecSets)
            s_vecForms.push_back(JsonFormOf(set, Small().vecXml[s_vecForms.size()]));
    }
    CSmartPtr<Samples::CPrimitiveSet> target = Samples::CPrimitiveSet::CreateInstance();
    CAllocationCount allocations;
    for (auto _ : state) {
        for (const JsonForm& form : s_vecForms) target->FromJson(form.strJson.c_str(), form.ctx);
    }
    allocations.Report(state, Small().nElements);
    SetBytes(state, Small().nBytes);
}

// --- one document of many child objects --------------------------------------------------

void Batch_Baseline_Expat(benchmark::State& state, BatchFixture& fixture) {
    for (auto _ : state) {
        if (!ExpatParse(fixture.strXml)) state.SkipWithError("parse");
    }
    SetBytes(state, fixture.strXml.size());
}

void Batch_Write_ToXml(benchmark::State& state, BatchFixture& fixture) {
    CAllocationCount allocations;
    for (auto _ : state) benchmark::DoNotOptimize(fixture.batch->ToXml(true, true, EOLType_LF, Ctx()));
    allocations.Report(state, fixture.nElements);
    SetBytes(state, fixture.strXml.size());
}

void Batch_Write_ToJson(benchmark::State& state, BatchFixture& fixture) {
    WriteJson(state, fixture.batch, fixture.strXml, fixture.nElements);
}

void Batch_Read_FromXml(benchmark::State& state, BatchFixture& fixture) {
    CSmartPtr<CBenchBatch> target = fixture.batch->CreateEmpty();
    CAllocationCount allocations;
    for (auto _ : state) target->FromXml(fixture.strXml.c_str(), Ctx());
    allocations.Report(state, fixture.nElements);
    SetBytes(state, fixture.strXml.size());
    // What was read must write the same bytes again, or the figures measure a lossy read.
    if (target->ToXml(true, true, EOLType_LF, Ctx()) != fixture.strXml) state.SkipWithError("round trip");
}

void Batch_Read_FromJson(benchmark::State& state, BatchFixture& fixture) {
    ReadJson(state, fixture.batch, fixture.strXml, fixture.nElements, fixture.batch->CreateEmpty());
}

// --- one document of nested objects ------------------------------------------------------

void Nested_Baseline_Expat(benchmark::State& state) {
    for (auto _ : state) {
        if (!ExpatParse(Nested().strXml)) state.SkipWithError("parse");
    }
    SetBytes(state, Nested().strXml.size());
}

void Nested_Write_ToXml(benchmark::State& state) {
    CAllocationCount allocations;
    for (auto _ : state) benchmark::DoNotOptimize(Nested().shop->ToXml(true, true, EOLType_LF, Ctx()));
    allocations.Report(state, Nested().nElements);
    SetBytes(state, Nested().strXml.size());
}

void Nested_Write_ToJson(benchmark::State& state) {
    WriteJson(state, Nested().shop, Nested().strXml, Nested().nElements);
}

void Nested_Write_ToFastInfoset(benchmark::State& state) {
    WriteFastInfoset(state, Nested().shop, Nested().strXml.size(), Nested().nElements, false);
}
void Nested_Write_ToFastInfosetSuggested(benchmark::State& state) {
    WriteFastInfoset(state, Nested().shop, Nested().strXml.size(), Nested().nElements, true);
}

void Nested_Read_FromXml(benchmark::State& state) {
    CSmartPtr<Samples::CShop> target = Samples::CShop::CreateInstance();
    CAllocationCount allocations;
    for (auto _ : state) target->FromXml(Nested().strXml.c_str(), Ctx());
    allocations.Report(state, Nested().nElements);
    SetBytes(state, Nested().strXml.size());
    // What was read must write the same bytes again, or the figures measure a lossy read.
    if (target->ToXml(true, true, EOLType_LF, Ctx()) != Nested().strXml) state.SkipWithError("round trip");
}

void Nested_Read_FromJson(benchmark::State& state) {
    ReadJson(state, Nested().shop, Nested().strXml, Nested().nElements, Samples::CShop::CreateInstance());
}

// The benchmarks of a batch document, named after its group: "Children_" for the
// primitive sets, "Attributes_" for the invoice lines.
void RegisterBatch(const std::string& strGroup, BatchFixture& fixture) {
    const std::pair<const char*, void (*)(benchmark::State&, BatchFixture&)> aBenchmarks[] = {
        {"Baseline_Expat", Batch_Baseline_Expat},
        {"Write_ToXml", Batch_Write_ToXml},
        {"Write_ToJson", Batch_Write_ToJson},
        {"Read_FromXml", Batch_Read_FromXml},
        {"Read_FromJson", Batch_Read_FromJson}};
    for (const auto& entry : aBenchmarks) {
        auto pfnRun = entry.second;
        benchmark::RegisterBenchmark((strGroup + entry.first).c_str(), [pfnRun, &fixture](benchmark::State& state) {
            pfnRun(state, fixture);
        })->Unit(benchmark::kMillisecond);
    }
}

// Prints each result as usual and remembers its throughput and allocation count for the
// table at the end. With repetitions, the median of each benchmark is the figure that counts
// (it comes after the single runs, so it replaces them); the other aggregates are left out.
// Each benchmark is compared with the expat baseline of its own document: "Small_...",
// "Children_...", "Attributes_..." and "Nested_..." with theirs, the rest with expat on the reading log.
class CRatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
            const std::string& strName = run.run_name.function_name;
            auto it = run.counters.find("bytes_per_second");
            if (it != run.counters.end()) m_mapRates[strName] = it->second.value / 1e6;
            it = run.counters.find("allocs/elem");
            if (it != run.counters.end()) m_mapAllocations[strName] = it->second.value;
            it = run.counters.find("fi/xml");
            if (it != run.counters.end()) m_mapSizes[strName] = it->second.value;
        }
    }
    void PrintRatios() const {
        auto rate = [this](const std::string& name) {
            auto it = m_mapRates.find(name);
            return it == m_mapRates.end() ? 0.0 : it->second;
        };
        auto expatFor = [&rate](const std::string& name) {
            for (const char* pszGroup : {"Small_", "Children_", "Attributes_", "Nested_"}) {
                if (name.compare(0, std::string(pszGroup).size(), pszGroup) == 0)
                    return rate(std::string(pszGroup) + "Baseline_Expat");
            }
            return rate("Baseline_ExpatOneCall");
        };
        double dWrite = rate("Baseline_WriteFile");
        std::printf(
            "\nReading log: %zu bytes, %zu elements. Small documents: %zu, %zu bytes, %zu elements. "
            "Batch: %zu bytes, %zu elements. Attribute batch: %zu bytes, %zu elements. Nested: %zu bytes, %zu "
            "elements.\n",
            Doc().strXml.size(), Doc().nElements, Small().vecXml.size(), Small().nBytes, Small().nElements,
            Batch().strXml.size(), Batch().nElements, Invoices().strXml.size(), Invoices().nElements,
            Nested().strXml.size(), Nested().nElements);
        std::printf("%-28s %10s %14s %14s %12s\n", "benchmark", "MB/s", "/ expat alone", "/ plain write",
                    "allocs/elem");
        for (const auto& entry : m_mapRates) {
            double dExpat = expatFor(entry.first);
            std::printf("%-28s %10.1f %14.2f %14.2f", entry.first.c_str(), entry.second,
                        dExpat > 0 ? entry.second / dExpat : 0.0, dWrite > 0 ? entry.second / dWrite : 0.0);
            auto it = m_mapAllocations.find(entry.first);
            if (it != m_mapAllocations.end())
                std::printf(" %12.3f\n", it->second);
            else
                std::printf(" %12s\n", "");
        }
        // Each gzip entry point beside its uncompressed form, in bytes of the document.
        std::printf("\n%-28s %10s\n", "gzip", "/ plain");
        for (const char* pszName : {"Write_ToXmlStreamGZip", "Read_FromXmlStreamGZip"}) {
            std::string strPlain = pszName;
            strPlain.replace(strPlain.find("GZip"), 4, std::string(pszName).find("Write") == 0 ? "Utf8" : "");
            const double dPlain = rate(strPlain);
            if (rate(pszName) > 0) std::printf("%-28s %10.2f\n", pszName, dPlain > 0 ? rate(pszName) / dPlain : 0.0);
        }
        // Each JSON writer beside the XML writer on the same object, output bytes each.
        std::printf("\n%-28s %10s\n", "JSON writing", "/ XML");
        for (const auto& entry : m_mapRates) {
            const size_t nPos = entry.first.find("ToJson");
            if (nPos == std::string::npos) continue;
            std::string strXmlName = entry.first;
            strXmlName.replace(nPos, 6, "ToXml");
            const double dXml = rate(strXmlName);
            std::printf("%-28s %10.2f\n", entry.first.c_str(), dXml > 0 ? entry.second / dXml : 0.0);
        }
        // Each JSON reader beside the XML reader on the same document: time against time.
        std::printf("\n%-28s %10s\n", "JSON reading", "time / XML");
        for (const auto& entry : m_mapRates) {
            const size_t nPos = entry.first.find("FromJson");
            if (nPos == std::string::npos) continue;
            std::string strXmlName = entry.first;
            strXmlName.replace(nPos, 8, "FromXml");
            const double dXml = rate(strXmlName);
            std::printf("%-28s %10.2f\n", entry.first.c_str(), entry.second > 0 ? dXml / entry.second : 0.0);
        }
        // Each Fast Infoset writer beside the XML writer on the same object, both rates counted
        // on the XML text, and the size of its document beside that text.
        std::printf("\n%-36s %10s %10s\n", "Fast Infoset writing", "/ XML", "size/XML");
        for (const auto& entry : m_mapSizes) {
            const std::string strXmlName = entry.first.substr(0, entry.first.find("ToFastInfoset")) + "ToXml";
            const double dXml = rate(strXmlName);
            std::printf("%-36s %10.2f %10.3f\n", entry.first.c_str(), dXml > 0 ? rate(entry.first) / dXml : 0.0,
                        entry.second);
        }
    }

private:
    std::map<std::string, double> m_mapRates;
    std::map<std::string, double> m_mapAllocations;
    std::map<std::string, double> m_mapSizes;
};

}  // namespace

int main(int argc, char** argv) {
    // Build the documents before any timing.
    Doc();
    Small();
    Batch();
    Invoices();
    Nested();
    benchmark::RegisterBenchmark("Baseline_ExpatOneCall", Baseline_ExpatOneCall)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Baseline_Expat64KiB", Baseline_Expat64KiB)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Baseline_WriteFile", Baseline_WriteFile)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXml", Write_ToXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXmlStreamUtf8", Write_ToXmlStreamUtf8)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToJson", Write_ToJson)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToJsonStreamUtf8", Write_ToJsonStreamUtf8)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToFastInfoset", Write_ToFastInfoset)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToFastInfosetSuggested", Write_ToFastInfosetSuggested)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXmlFileInMemory", Write_ToXmlFileInMemory)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXmlFileDirect", Write_ToXmlFileDirect)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Baseline_DeflateLevel1", Baseline_DeflateLevel1)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Baseline_Inflate", Baseline_Inflate)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXmlStreamGZip", Write_ToXmlStreamGZip)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXml", Read_FromXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXmlStreamGZip", Read_FromXmlStreamGZip)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromJson", Read_FromJson)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXmlStream", Read_FromXmlStream)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromFastInfoset", Read_FromFastInfoset)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXmlFileWhole", Read_FromXmlFileWhole)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXmlFileChunked", Read_FromXmlFileChunked)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Small_Baseline_Expat", Small_Baseline_Expat)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Small_Write_ToXml", Small_Write_ToXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Small_Read_FromXml", Small_Read_FromXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Small_Read_FromJson", Small_Read_FromJson)->Unit(benchmark::kMillisecond);
    RegisterBatch("Children_", Batch());
    RegisterBatch("Attributes_", Invoices());
    benchmark::RegisterBenchmark("Nested_Baseline_Expat", Nested_Baseline_Expat)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Nested_Write_ToXml", Nested_Write_ToXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Nested_Write_ToJson", Nested_Write_ToJson)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Nested_Write_ToFastInfoset", Nested_Write_ToFastInfoset)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Nested_Write_ToFastInfosetSuggested", Nested_Write_ToFastInfosetSuggested)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Nested_Read_FromXml", Nested_Read_FromXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Nested_Read_FromJson", Nested_Read_FromJson)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    CRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::Shutdown();
    return 0;
}
