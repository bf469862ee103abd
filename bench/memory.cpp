// Peak memory of reading a large file with FromXmlFile (a reading log, a batch of
// attribute-heavy children, and the order document of the generator script), and of writing a large document with the
// direct file route, each measured in a child process of its own so that the peaks don't mix. Prints the peak growth in
// MB and as a ratio to the file's size.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "benchdocument.h"
#include "order/orderbook.h"
#include "orderdocument.h"

using namespace OrvexXml;

namespace {

long PeakKiB() {
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

long FileSize(const std::string& strPath) {
    std::ifstream in(strPath, std::ios::binary | std::ios::ate);
    return static_cast<long>(in.tellg());
}

// Runs fn in a child; the child prints its own line.
template <class F>
void InChild(F fn) {
    std::fflush(stdout);
    pid_t pid = fork();
    if (pid == 0) {
        fn();
        std::fflush(stdout);
        _exit(0);
    }
    int nStatus = 0;
    waitpid(pid, &nStatus, 0);
}

// Reads strPath, in a child, into an object made by newTarget, and prints the peak growth.
template <class F>
void ReadInChild(const char* pszWhat, const std::string& strPath, bool bAsync, F newTarget) {
    const long nFileBytes = FileSize(strPath);
    InChild([&] {
        AsyncFromXmlFile(bAsync);
        CSmartPtr<CXmlGeneratedClass> target = newTarget();
        long nBefore = PeakKiB();
        target->FromXmlFile(strPath.c_str(), CSerializationContext::GetDefaultContext());
        long nGrowth = (PeakKiB() - nBefore) * 1024;
        std::printf("%s (%s): peak growth %.1f MB = %.2f x file size\n", pszWhat, bAsync ? "chunked" : "whole file",
                    nGrowth / 1e6, static_cast<double>(nGrowth) / nFileBytes);
    });
}

}  // namespace

int main(int argc, char** argv) {
    size_t nMegabytes = argc > 1 ? static_cast<size_t>(std::atoi(argv[1])) : 25;
    std::string strFile = "/tmp/orvexxml-memory-" + std::to_string(getpid()) + ".xml";
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    {
        CSmartPtr<Samples::CReadingLog> log = MakeReadingLog(nMegabytes * 1000 * 1000);
        log->ToXmlFile(strFile.c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
    }
    const long nFileBytes = FileSize(strFile);
    std::printf("file: %.1f MB\n", nFileBytes / 1e6);

    for (bool bAsync : {false, true})
        ReadInChild("FromXmlFile", strFile, bAsync, [] { return Samples::CReadingLog::CreateInstance(); });
    for (bool bAsync : {false, true}) {
        InChild([&] {
            CSmartPtr<Samples::CReadingLog> log = MakeReadingLog(nMegabytes * 1000 * 1000);
            AsyncToXmlFile(bAsync);
            long nBefore = PeakKiB();
            log->ToXmlFile((strFile + ".out").c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, ctx,
                           CompressionType_None);
            long nGrowth = (PeakKiB() - nBefore) * 1024;
            std::printf("ToXmlFile (%s): peak growth while writing %.1f MB = %.2f x file size\n",
                        bAsync ? "direct" : "in memory", nGrowth / 1e6, static_cast<double>(nGrowth) / nFileBytes);
        });
    }

    // A batch of invoice lines, whose content is mostly attributes, of about the same size.
    // It is made and written in a child, so that its memory is not part of the readers' start.
    const std::string strBatchFile = strFile + ".batch";
    InChild([&] {
        MakeBatch(nMegabytes * 5000, &MakeInvoiceLine)
            ->ToXmlFile(strBatchFile.c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
    });
    std::printf("attribute batch file: %.1f MB\n", FileSize(strBatchFile) / 1e6);
    CSmartPtr<CBenchBatch> emptyBatch = CBenchBatch::CreateInstance<Samples::CInvoiceLine>();
    for (bool bAsync : {false, true})
        ReadInChild("FromXmlFile, attribute batch", strBatchFile, bAsync, [&] { return emptyBatch->CreateEmpty(); });

    // The order document of the generator script, about 24.7 MB for 30000 orders, read into
    // its generated classes (five levels of objects, dates, decimals, an enumeration).
    const std::string strOrderFile = strFile + ".orders";
    if (GenerateOrderDocument(strOrderFile, static_cast<int>(nMegabytes * 1200)).empty()) {
        std::printf("order document: the generator could not be run\n");
    } else {
        std::printf("order document file: %.1f MB\n", FileSize(strOrderFile) / 1e6);
        for (bool bAsync : {false, true})
            ReadInChild("FromXmlFile, order document", strOrderFile, bAsync,
                        [] { return OrderBook::COrderBook::CreateInstance(); });
    }

    std::remove(strFile.c_str());
    std::remove(strOrderFile.c_str());
    std::remove((strFile + ".out").c_str());
    std::remove(strBatchFile.c_str());
    return 0;
}
