// Writes a document of more than 4 GiB through ToXml, ToXmlStream and both routes of ToXmlFile,
// and reports what each one gives. Not part of the test suite: it needs about 9 GB of memory
// for ToXml and as much disk as the document, so it is run by hand.
//
//   orvexxml_bigdocument [chunks of 1 MiB, 4200 by default] [file, /tmp/orvexxml-big.xml]
//
// The document is <Chunks> with one <Chunk> per table entry, every entry reading the same
// 1 MiB string, so the object itself stays small. Every result is compared byte for byte with
// the text built here from that description; the file is removed at the end.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "orvexxml/orvexxml.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace {

const size_t kChunkBytes = 1 << 20;

std::string g_strChunk;                 // the value of every <Chunk>
std::vector<CElementInfo*> g_vecTable;  // n times the same description, then the null

class CChunks : public CXmlGeneratedClass {
public:
    CChunks() { SetElementName("Chunks"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    void ExchangeProperty(int, bool bRead, OxVariant& value) override {
        if (bRead) value.SetString(g_strChunk);
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return g_vecTable.data(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return ms_attributes; }
    void ResetToDefaults() override {}

protected:
    std::string GetTargetNamespace() const override { return ""; }

private:
    static CParentElementInfo ms_parent;
    static CAttributeInfo* ms_attributes[1];
};

CParentElementInfo CChunks::ms_parent(XmlElementGroupType_Sequence, XmlElementType_Element, "Chunks", "", true, false,
                                      -1, ItemType_invalid, nullptr, false);
CAttributeInfo* CChunks::ms_attributes[1] = {nullptr};

// Checks text against <Chunks>, nChunks times <Chunk>value</Chunk>, </Chunks>, piece by piece.
class CExpected {
public:
    explicit CExpected(size_t nChunks) : m_nChunks(nChunks), m_strPiece("<Chunk>" + g_strChunk + "</Chunk>") {}
    size_t Length() const { return 8 + m_nChunks * m_strPiece.size() + 9; }
    // Compares the next nLength bytes; false at the first difference.
    bool Next(const char* p, size_t nLength) {
        for (size_t i = 0; i < nLength; ++i, ++m_nOffset) {
            if (p[i] != At(m_nOffset)) return false;
        }
        return true;
    }
    bool Done() const { return m_nOffset == Length(); }

private:
    char At(size_t nOffset) const {
        static const char kHead[] = "<Chunks>";
        static const char kTail[] = "</Chunks>";
        if (nOffset < 8) return kHead[nOffset];
        nOffset -= 8;
        if (nOffset < m_nChunks * m_strPiece.size()) return m_strPiece[nOffset % m_strPiece.size()];
        nOffset -= m_nChunks * m_strPiece.size();
        return nOffset < 9 ? kTail[nOffset] : '\0';
    }
    size_t m_nChunks;
    std::string m_strPiece;
    size_t m_nOffset = 0;
};

double Seconds(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double PeakGB() {
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1e6;
}

bool FileMatches(const std::string& strFile, size_t nChunks) {
    std::ifstream in(strFile, std::ios::binary);
    CExpected expected(nChunks);
    std::vector<char> buffer(16 << 20);
    while (in) {
        in.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        if (!expected.Next(buffer.data(), static_cast<size_t>(in.gcount()))) return false;
    }
    return expected.Done();
}

}  // namespace

int main(int argc, char** argv) {
    const size_t nChunks = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 4200;
    const std::string strFile = argc > 2 ? argv[2] : "/tmp/orvexxml-big.xml";
    Register(16, 1);
    for (size_t i = 0; i < kChunkBytes; ++i) g_strChunk += static_cast<char>('a' + i % 26);
    CElementInfo* pInfo =
        new CElementInfoSeqPrimMnd("Chunk", "", 0, false, ItemType_string, nullptr,
                                   CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(), nullptr);
    g_vecTable.assign(nChunks, pInfo);
    g_vecTable.push_back(nullptr);
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    CSmartPtr<CChunks> doc = new CChunks();
    std::printf("document: %zu chunks, %zu bytes\n", nChunks, CExpected(nChunks).Length());

    try {
        auto start = std::chrono::steady_clock::now();
        std::string strXml = doc->ToXml(false, false, EOLType_LF, ctx);
        CExpected expected(nChunks);
        const bool bSame = expected.Next(strXml.data(), strXml.size()) && expected.Done();
        std::printf("ToXml: %zu bytes, %s, %.1f s, peak %.1f GB\n", strXml.size(), bSame ? "identical" : "DIFFERENT",
                    Seconds(start), PeakGB());
    } catch (const COxException& e) {
        std::printf("ToXml: exception: %s\n", e.GetFullMessage().c_str());
    }

    for (XmlEncoding eEncoding : {XmlEncoding_UTF8, XmlEncoding_UTF16}) {
        try {
            CBinaryData data = doc->ToXmlStream(false, false, eEncoding, EOLType_LF, ctx, CompressionType_None);
            std::printf("ToXmlStream %s: %u bytes\n", eEncoding == XmlEncoding_UTF8 ? "UTF-8" : "UTF-16",
                        data.GetLength());
        } catch (const COxOverFlowException& e) {
            std::printf("ToXmlStream %s: COxOverFlowException: %s\n",
                        eEncoding == XmlEncoding_UTF8 ? "UTF-8" : "UTF-16", e.GetMessage().c_str());
        }
    }

    for (bool bDirect : {false, true}) {
        std::remove(strFile.c_str());
        AsyncToXmlFile(bDirect);
        const char* pszRoute = bDirect ? "direct" : "in memory";
        try {
            auto start = std::chrono::steady_clock::now();
            doc->ToXmlFile(strFile.c_str(), false, false, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
            const double dSeconds = Seconds(start);
            std::printf("ToXmlFile %s: written in %.1f s, %s\n", pszRoute, dSeconds,
                        FileMatches(strFile, nChunks) ? "identical" : "DIFFERENT");
        } catch (const COxException& e) {
            std::ifstream probe(strFile);
            std::printf("ToXmlFile %s: %s: %s (file %s)\n", pszRoute,
                        dynamic_cast<const COxOverFlowException*>(&e) ? "COxOverFlowException" : "COxException",
                        e.GetMessage().c_str(), probe ? "exists" : "not created");
        }
    }
    std::remove(strFile.c_str());
    std::printf("peak %.1f GB\n", PeakGB());
    delete pInfo;
    return 0;
}
