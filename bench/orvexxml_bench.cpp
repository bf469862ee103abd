// Throughput of writing and reading a large document, in MB/s of XML text, next to two
// baselines measured in the same run on the same bytes: expat alone with empty handlers (the
// ceiling of reading) and a plain write of the bytes to a file (the ceiling of writing).
// The ratios are printed at the end, so that they mean something on a noisy machine.
#include <benchmark/benchmark.h>
#include <expat.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <map>
#include <string>

#include "benchdocument.h"

using namespace OrvexXml;

namespace {

const size_t kDocumentBytes = 25 * 1000 * 1000;

struct Fixture {
    CSmartPtr<Samples::CReadingLog> log;
    std::string strXml;
    std::string strFile;
    Fixture() {
        log = MakeReadingLog(kDocumentBytes);
        strXml = log->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext());
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

const CSerializationContext& Ctx() { return CSerializationContext::GetDefaultContext(); }

void SetBytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(Doc().strXml.size()));
}

// --- baselines ---------------------------------------------------------------------------

void XMLCALL EmptyStart(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL EmptyEnd(void*, const XML_Char*) {}
void XMLCALL EmptyText(void*, const XML_Char*, int) {}

XML_Parser NewBaselineParser() {
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(parser, EmptyStart, EmptyEnd);
    XML_SetCharacterDataHandler(parser, EmptyText);
    return parser;
}

void Baseline_ExpatOneCall(benchmark::State& state) {
    const std::string& xml = Doc().strXml;
    for (auto _ : state) {
        XML_Parser parser = NewBaselineParser();
        if (XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_OK)
            state.SkipWithError("parse");
        XML_ParserFree(parser);
    }
    SetBytes(state);
}

void Baseline_Expat64KiB(benchmark::State& state) {
    const std::string& xml = Doc().strXml;
    for (auto _ : state) {
        XML_Parser parser = NewBaselineParser();
        for (size_t nPos = 0; nPos < xml.size(); nPos += 65536) {
            size_t nLen = std::min<size_t>(65536, xml.size() - nPos);
            XML_Parse(parser, xml.data() + nPos, static_cast<int>(nLen), nPos + nLen == xml.size());
        }
        XML_ParserFree(parser);
    }
    SetBytes(state);
}

void Baseline_WriteFile(benchmark::State& state) {
    const std::string& xml = Doc().strXml;
    std::string strOut = Doc().strFile + ".out";
    for (auto _ : state) {
        int fd = open(strOut.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        size_t nDone = 0;
        while (nDone < xml.size()) {
            ssize_t n = write(fd, xml.data() + nDone, xml.size() - nDone);
            if (n <= 0) break;
            nDone += static_cast<size_t>(n);
        }
        close(fd);
    }
    std::remove(strOut.c_str());
    SetBytes(state);
}

// --- writing -----------------------------------------------------------------------------

void Write_ToXml(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(Doc().log->ToXml(true, true, EOLType_LF, Ctx()));
    SetBytes(state);
}

void Write_ToXmlStreamUtf8(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            Doc().log->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_LF, Ctx(), CompressionType_None));
    }
    SetBytes(state);
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

// --- reading -----------------------------------------------------------------------------

void Read_FromXml(benchmark::State& state) {
    CSmartPtr<Samples::CReadingLog> target = Samples::CReadingLog::CreateInstance();
    for (auto _ : state) target->FromXml(Doc().strXml.c_str(), Ctx());
    SetBytes(state);
}

void Read_FromXmlStream(benchmark::State& state) {
    CSmartPtr<Samples::CReadingLog> target = Samples::CReadingLog::CreateInstance();
    std::string& xml = Doc().strXml;
    for (auto _ : state) {
        target->FromXmlStream(reinterpret_cast<unsigned char*>(&xml[0]), static_cast<OxULong>(xml.size()), Ctx());
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

// Prints each result as usual and remembers its throughput for the ratios at the end. With
// repetitions, the median of each benchmark is the figure that counts (it comes after the
// single runs, so it replaces them); the other aggregates are left out.
class CRatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
            auto it = run.counters.find("bytes_per_second");
            if (it != run.counters.end()) m_mapRates[run.run_name.function_name] = it->second.value / 1e6;
        }
    }
    void PrintRatios() const {
        auto rate = [this](const std::string& name) {
            auto it = m_mapRates.find(name);
            return it == m_mapRates.end() ? 0.0 : it->second;
        };
        double dExpat = rate("Baseline_ExpatOneCall"), dWrite = rate("Baseline_WriteFile");
        std::printf("\nDocument: %zu bytes of XML\n", Doc().strXml.size());
        std::printf("%-28s %10s %14s %14s\n", "benchmark", "MB/s", "/ expat alone", "/ plain write");
        for (const auto& entry : m_mapRates) {
            std::printf("%-28s %10.1f %14.2f %14.2f\n", entry.first.c_str(), entry.second,
                        dExpat > 0 ? entry.second / dExpat : 0.0, dWrite > 0 ? entry.second / dWrite : 0.0);
        }
    }

private:
    std::map<std::string, double> m_mapRates;
};

}  // namespace

int main(int argc, char** argv) {
    Doc();  // build the document before any timing
    benchmark::RegisterBenchmark("Baseline_ExpatOneCall", Baseline_ExpatOneCall)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Baseline_Expat64KiB", Baseline_Expat64KiB)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Baseline_WriteFile", Baseline_WriteFile)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXml", Write_ToXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXmlStreamUtf8", Write_ToXmlStreamUtf8)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXmlFileInMemory", Write_ToXmlFileInMemory)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Write_ToXmlFileDirect", Write_ToXmlFileDirect)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXml", Read_FromXml)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXmlStream", Read_FromXmlStream)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXmlFileWhole", Read_FromXmlFileWhole)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Read_FromXmlFileChunked", Read_FromXmlFileChunked)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    CRatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::Shutdown();
    return 0;
}
