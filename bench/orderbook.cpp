// Throughput of reading and writing the order document (bench/order: an order book of
// generated classes five levels deep, with dates, decimals, doubles, an enumeration, a
// pattern facet and optional parts) in MB/s, next to expat alone on the same bytes in the
// same run, in one call and in 64 KiB pieces, and a plain write of the bytes to a file.
// The document comes from the project's generator script; before any timing it is read
// once and the census counted from the tree must equal the generator's own, or the program
// stops. Ratios to expat are printed at the end.
//
//     orvexxml_orderbook_bench [--orders=N] [benchmark options]     (default 30000 orders)
#include "order/orderbook.h"

#include <benchmark/benchmark.h>
#include <expat.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "baselines.h"
#include "fastinfosetform.h"
#include "orderdocument.h"
#include "support/ordercensus.h"

// The same schema's classes as orvex-xsd generates them, when the tools are built.
#ifdef ORVEXXML_BENCH_GENERATED
#include "schema.h"
#endif

using namespace OrvexXml;
using OrderBook::COrderBook;

namespace {

struct OrderFixture {
    std::string strFile;
    std::string strXml;
    std::string strFi;  // the same document as Fast Infoset, empty without java
    CSmartPtr<COrderBook> book;
#ifdef ORVEXXML_BENCH_GENERATED
    CSmartPtr<XsdOrderBook::COrderBook> generated;  // the document read into the generated classes
#endif
};

OrderFixture& Doc() {
    static OrderFixture s_fixture;
    return s_fixture;
}

const CSerializationContext& Ctx() { return CSerializationContext::GetDefaultContext(); }

void SetBytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(Doc().strXml.size()));
}

// --- baselines ---------------------------------------------------------------------------

void Baseline_ExpatOneCall(benchmark::State& state) {
    for (auto _ : state) {
        if (!Baselines::ExpatParse(Doc().strXml)) state.SkipWithError("parse");
    }
    SetBytes(state);
}

void Baseline_Expat64KiB(benchmark::State& state) {
    for (auto _ : state) {
        if (!Baselines::ExpatParse(Doc().strXml, 65536)) state.SkipWithError("parse");
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

// --- reading -----------------------------------------------------------------------------

void Read_FromXml(benchmark::State& state) {
    CSmartPtr<COrderBook> target = COrderBook::CreateInstance();
    for (auto _ : state) target->FromXml(Doc().strXml.c_str(), Ctx());
    SetBytes(state);
}

// The JSON form of the order book (full mode, formatted with tabs), made in the run from the
// book read; the rate is counted in bytes of the XML form, as for FromXml.
void Read_FromJson(benchmark::State& state) {
    static const std::string s_strJson = Doc().book->ToJson(true, EOLType_LF, Ctx());
    CSmartPtr<COrderBook> target = COrderBook::CreateInstance();
    for (auto _ : state) target->FromJson(s_strJson.c_str(), Ctx());
    SetBytes(state);
    if (OrvexOrderCensus::OrderBookCensus(*target) != OrvexOrderCensus::OrderBookCensus(*Doc().book))
        state.SkipWithError("census");
}

// The Fast Infoset form into the same objects; the rate counts the bytes of the XML form, so
// that the rates of the two forms compare as times.
void Read_FromFastInfoset(benchmark::State& state) {
    if (Doc().strFi.empty()) {
        state.SkipWithError("no Fast Infoset form");
        return;
    }
    CSmartPtr<COrderBook> target = COrderBook::CreateInstance();
    std::string& fi = Doc().strFi;
    for (auto _ : state)
        target->FromXmlStream(reinterpret_cast<unsigned char*>(&fi[0]), static_cast<OxULong>(fi.size()), Ctx());
    SetBytes(state);
}

// The tree alone, without the objects: the part of reading that the two forms don't share.
void Tree_FromXml(benchmark::State& state) {
    for (auto _ : state) {
        CXmlDocument doc(Ctx());
        doc.LoadXml(Doc().strXml.c_str());
    }
    SetBytes(state);
}

void Tree_FromFastInfoset(benchmark::State& state) {
    if (Doc().strFi.empty()) {
        state.SkipWithError("no Fast Infoset form");
        return;
    }
    std::string& fi = Doc().strFi;
    for (auto _ : state) {
        CXmlDocument doc(Ctx());
        doc.LoadXmlStream(reinterpret_cast<unsigned char*>(&fi[0]), static_cast<OxULong>(fi.size()));
    }
    SetBytes(state);
}

void ReadFile(benchmark::State& state, bool bAsync) {
    CSmartPtr<COrderBook> target = COrderBook::CreateInstance();
    AsyncFromXmlFile(bAsync);
    for (auto _ : state) target->FromXmlFile(Doc().strFile.c_str(), Ctx());
    AsyncFromXmlFile(false);
    SetBytes(state);
}
#ifdef ORVEXXML_BENCH_GENERATED
// The classes that orvex-xsd generates from the same schema, read beside the hand binding.
void Read_FromXmlGenerated(benchmark::State& state) {
    CSmartPtr<XsdOrderBook::COrderBook> target = XsdOrderBook::COrderBook::CreateInstance();
    for (auto _ : state) target->FromXml(Doc().strXml.c_str(), Ctx());
    SetBytes(state);
}
#endif

void Read_FromXmlFileWhole(benchmark::State& state) { ReadFile(state, false); }
void Read_FromXmlFileChunked(benchmark::State& state) { ReadFile(state, true); }

// --- writing -----------------------------------------------------------------------------
// Written with tabs, as the generator indents, so that the text written has about the size of
// the document read and the rates compare.

const CSerializationContext& TabCtx() {
    static CSerializationContext s_ctx;
    static const bool s_bTabs = (s_ctx.SetIndentChars("\t"), true);
    (void)s_bTabs;
    return s_ctx;
}

void Write_ToXml(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(Doc().book->ToXml(true, true, EOLType_LF, TabCtx()));
    SetBytes(state);
}

#ifdef ORVEXXML_BENCH_GENERATED
void Write_ToXmlGenerated(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(Doc().generated->ToXml(true, true, EOLType_LF, TabCtx()));
    SetBytes(state);
}
#endif

// Rates counted on the XML text, beside ToXml; "fi/xml" is the document's size as a fraction
// of the XML text read.
void WriteFastInfoset(benchmark::State& state, bool bSuggested) {
    CSerializationContext ctx;
    if (bSuggested) ctx.GetFIContext().SetSuggestedValues();
    size_t nFiBytes = 0;
    try {
        nFiBytes = Doc().book->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None).GetLength();
    } catch (const COxException& e) {
        state.SkipWithError(e.GetFullMessage().c_str());
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(Doc().book->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None));
    state.counters["fi/xml"] = static_cast<double>(nFiBytes) / static_cast<double>(Doc().strXml.size());
    SetBytes(state);
}
void Write_ToFastInfoset(benchmark::State& state) { WriteFastInfoset(state, false); }
void Write_ToFastInfosetSuggested(benchmark::State& state) { WriteFastInfoset(state, true); }

void WriteFile(benchmark::State& state, bool bAsync) {
    const std::string strOut = Doc().strFile + ".out";
    AsyncToXmlFile(bAsync);
    for (auto _ : state) {
        Doc().book->ToXmlFile(strOut.c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, TabCtx(), CompressionType_None);
    }
    AsyncToXmlFile(false);
    std::remove(strOut.c_str());
    SetBytes(state);
}
void Write_ToXmlFileInMemory(benchmark::State& state) { WriteFile(state, false); }
void Write_ToXmlFileDirect(benchmark::State& state) { WriteFile(state, true); }

// Prints each result as usual and keeps the median throughput (or the single run) of each
// benchmark for the table of ratios to expat at the end.
class CRatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
            auto it = run.counters.find("bytes_per_second");
            if (it != run.counters.end()) m_mapRates[run.run_name.function_name] = it->second.value / 1e6;
            it = run.counters.find("fi/xml");
            if (it != run.counters.end()) m_mapSizes[run.run_name.function_name] = it->second.value;
        }
    }
    void PrintRatios() const {
        auto it = m_mapRates.find("Order_Baseline_ExpatOneCall");
        const double dExpat = it == m_mapRates.end() ? 0.0 : it->second;
        std::printf("\nOrder document: %zu bytes, %d orders.\n%-32s %10s %14s\n", Doc().strXml.size(),
                    Doc().book->GetOrder().GetCount(), "benchmark", "MB/s", "/ expat alone");
        for (const auto& entry : m_mapRates) {
            std::printf("%-32s %10.1f %14.2f\n", entry.first.c_str(), entry.second,
                        dExpat > 0 ? entry.second / dExpat : 0.0);
        }
        it = m_mapRates.find("Order_Read_FromJson");
        auto itXml = m_mapRates.find("Order_Read_FromXml");
        if (it != m_mapRates.end() && itXml != m_mapRates.end() && it->second > 0)
            std::printf("\nFromJson time / FromXml time: %.2f\n", itXml->second / it->second);
        auto xml = m_mapRates.find("Order_Write_ToXml");
        std::printf("\n%-36s %10s %10s\n", "Fast Infoset writing", "/ ToXml", "size/XML");
        for (const auto& entry : m_mapSizes) {
            std::printf("%-36s %10.2f %10.3f\n", entry.first.c_str(),
                        xml != m_mapRates.end() && xml->second > 0 ? m_mapRates.at(entry.first) / xml->second : 0.0,
                        entry.second);
        }
        // Reading time of the Fast Infoset form against the XML form, same objects.
        auto fi = m_mapRates.find("Order_Read_FromFastInfoset");
        auto xmlRead = m_mapRates.find("Order_Read_FromXml");
        if (fi != m_mapRates.end() && xmlRead != m_mapRates.end() && fi->second > 0)
            std::printf("\nReading Fast Infoset takes %.2f of the time of reading XML.\n",
                        xmlRead->second / fi->second);
        auto fiTree = m_mapRates.find("Order_Tree_FromFastInfoset");
        auto xmlTree = m_mapRates.find("Order_Tree_FromXml");
        if (fiTree != m_mapRates.end() && xmlTree != m_mapRates.end() && fiTree->second > 0)
            std::printf("Building the tree from Fast Infoset takes %.2f of the time from XML.\n",
                        xmlTree->second / fiTree->second);
    }

private:
    std::map<std::string, double> m_mapRates;
    std::map<std::string, double> m_mapSizes;
};

}  // namespace

int main(int argc, char** argv) {
    int nOrders = 30000;
    std::vector<char*> args;
    for (int i = 0; i < argc; ++i) {
        if (std::strncmp(argv[i], "--orders=", 9) == 0)
            nOrders = std::atoi(argv[i] + 9);
        else
            args.push_back(argv[i]);
    }
    int nArgs = static_cast<int>(args.size());

    // The document, and its census checked once against the generator's before any timing.
    OrderFixture& doc = Doc();
    doc.strFile = "/tmp/orvexxml-orders-" + std::to_string(getpid()) + ".xml";
    const std::string strCensus = GenerateOrderDocument(doc.strFile, nOrders);
    if (strCensus.empty()) {
        std::fprintf(stderr, "the generator could not be run (python3 %s/bench/order/gen_order.py)\n",
                     ORVEXXML_SOURCE_DIR);
        return 1;
    }
    std::ostringstream text;
    text << std::ifstream(doc.strFile, std::ios::binary).rdbuf();
    doc.strXml = text.str();
    doc.book = COrderBook::CreateInstance();
    doc.book->FromXmlFile(doc.strFile.c_str(), Ctx());
    const std::string strRead = OrvexOrderCensus::OrderBookCensus(*doc.book);
    std::printf("generator: %s\nread:      %s\n", strCensus.c_str(), strRead.c_str());
    if (strRead != strCensus) {
        std::fprintf(stderr, "the census read differs from the generator's\n");
        std::remove(doc.strFile.c_str());
        return 1;
    }
#ifdef ORVEXXML_BENCH_GENERATED
    // The generated classes must read the same census and write what the hand binding writes.
    doc.generated = XsdOrderBook::COrderBook::CreateInstance();
    doc.generated->FromXmlFile(doc.strFile.c_str(), Ctx());
    if (OrvexOrderCensus::OrderBookCensus(*doc.generated) != strRead ||
        doc.generated->ToXml(true, true, EOLType_LF, Ctx()) != doc.book->ToXml(true, true, EOLType_LF, Ctx())) {
        std::fprintf(stderr, "the generated classes read or write the document differently\n");
        std::remove(doc.strFile.c_str());
        return 1;
    }
#endif
    // The Fast Infoset form must read into the same census.
    doc.strFi = BenchFastInfoset::MakeFastInfoset(doc.strFile);
    if (!doc.strFi.empty()) {
        CSmartPtr<COrderBook> fromFi = COrderBook::CreateInstance();
        fromFi->FromXmlStream(reinterpret_cast<unsigned char*>(&doc.strFi[0]), static_cast<OxULong>(doc.strFi.size()),
                              Ctx());
        if (OrvexOrderCensus::OrderBookCensus(*fromFi) != strRead) {
            std::fprintf(stderr, "the census read from Fast Infoset differs\n");
            std::remove(doc.strFile.c_str());
            return 1;
        }
        std::printf("Fast Infoset form: %zu bytes\n", doc.strFi.size());
    }

    const std::pair<const char*, void (*)(benchmark::State&)> aBenchmarks[] = {
        {"Order_Baseline_ExpatOneCall", Baseline_ExpatOneCall},
        {"Order_Baseline_Expat64KiB", Baseline_Expat64KiB},
        {"Order_Baseline_WriteFile", Baseline_WriteFile},
        {"Order_Read_FromXml", Read_FromXml},
        {"Order_Read_FromJson", Read_FromJson},
        {"Order_Read_FromFastInfoset", Read_FromFastInfoset},
        {"Order_Tree_FromXml", Tree_FromXml},
        {"Order_Tree_FromFastInfoset", Tree_FromFastInfoset},
        {"Order_Read_FromXmlFileWhole", Read_FromXmlFileWhole},
        {"Order_Read_FromXmlFileChunked", Read_FromXmlFileChunked},
        {"Order_Write_ToXml", Write_ToXml},
        {"Order_Write_ToFastInfoset", Write_ToFastInfoset},
        {"Order_Write_ToFastInfosetSuggested", Write_ToFastInfosetSuggested},
        {"Order_Write_ToXmlFileInMemory", Write_ToXmlFileInMemory},
        {"Order_Write_ToXmlFileDirect", Write_ToXmlFileDirect}};
    for (const auto& entry : aBenchmarks)
        benchmark::RegisterBenchmark(entry.first, entry.second)->Unit(benchmark::kMillisecond);
#ifdef ORVEXXML_BENCH_GENERATED
    benchmark::RegisterBenchmark("Order_Read_FromXmlGenerated", Read_FromXmlGenerated)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Order_Write_ToXmlGenerated", Write_ToXmlGenerated)->Unit(benchmark::kMillisecond);
#endif
    benchmark::Initialize(&nArgs, args.data());
    CRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::Shutdown();
    std::remove(doc.strFile.c_str());
    return 0;
}
