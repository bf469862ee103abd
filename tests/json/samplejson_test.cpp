// Every sample class, read from the documents of the reading fuzzer's corpus, written as JSON
// in each mode and through each entry point; Python's json module judges the texts.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "alltypes.h"
#include "amount.h"
#include "envelope.h"
#include "invoiceline.h"
#include "note.h"
#include "order.h"
#include "order/orderbook.h"
#include "person.h"
#include "primitiveset.h"
#include "readinglog.h"
#include "remittance.h"
#include "selection.h"
#include "settings.h"
#include "shape.h"
#include "shop.h"
#include "support/jsonsyntax.h"
#include "support/samplecorpus.h"
#include "tally.h"
#include "transfer.h"

using namespace OrvexXml;
using namespace OrvexTest;

namespace {

const std::string kChecker = std::string(ORVEXXML_SOURCE_DIR) + "/tests/json/check_json.py";

// Runs the checker on a manifest; its output, empty when all files pass.
std::string RunChecker(const std::string& strManifest) {
    std::string strOutput;
    FILE* pPipe = popen(("python3 '" + kChecker + "' '" + strManifest + "' 2>&1").c_str(), "r");
    if (!pPipe) return "python3 could not be started";
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof(buf), pPipe)) > 0) strOutput.append(buf, n);
    const int nStatus = pclose(pPipe);
    if (nStatus != 0 && strOutput.empty()) strOutput = "checker status " + std::to_string(nStatus);
    return strOutput;
}

// A reading log with every collection filled, the doubles with infinities and NaN among them.
CSmartPtr<CXmlObjectBase> ReadingLog() {
    CSmartPtr<Samples::CReadingLog> log = Samples::CReadingLog::CreateInstance();
    log->SetStation("North \"Ridge\"\t\\ 7");
    const double adValues[] = {1.5, -std::numeric_limits<double>::infinity(), std::nan(""), 1e300, -0.0};
    for (int i = 0; i < 5; ++i) {
        log->GetSensor().Add("s" + std::to_string(i));
        log->GetSequence().Add(int64_t(i) * -1000000007LL);
        log->GetValue().Add(adValues[i]);
        log->GetLevel().Add(i - 2);
        log->GetValid().Add(i % 2 == 0);
        log->GetNote().Add(i == 3 ? "line\nbreak\x01" : "ok");
    }
    return CSmartPtr<CXmlObjectBase>(log->GetBase());
}

const char* const kXsi = "http://www.w3.org/2001/XMLSchema-instance";

struct Sample {
    const char* pszName;
    std::function<CSmartPtr<CXmlObjectBase>()> make;
    // Below the root every namespace needs a prefix before the full mode can write it: the
    // aliases the sample needs, the first one being the first namespace the walk meets.
    std::vector<std::pair<const char*, const char*>> vecAliases;
    // A new, empty object of the sample's class.
    std::function<CSmartPtr<CXmlObjectBase>()> fresh;
};

template <class T>
CSmartPtr<CXmlObjectBase> FromText(const char* pszXml) {
    CSmartPtr<T> object = T::CreateInstance();
    object->FromXml(pszXml, CSerializationContext::GetDefaultContext());
    return CSmartPtr<CXmlObjectBase>(object->GetBase());
}

template <class T>
CSmartPtr<CXmlObjectBase> Fresh() {
    CSmartPtr<T> object = T::CreateInstance();
    return CSmartPtr<CXmlObjectBase>(object->GetBase());
}

const std::vector<Sample>& AllSamples() {
    static const std::vector<Sample> s_samples = {
        {"person", [] { return FromCorpus<Samples::CPerson>("person.xml"); }, {}, Fresh<Samples::CPerson>},
        {"primitives",
         [] { return FromCorpus<Samples::CPrimitiveSet>("primitives.xml"); },
         {},
         Fresh<Samples::CPrimitiveSet>},
        {"shape", [] { return FromCorpus<Samples::CShape>("shape.xml"); }, {}, Fresh<Samples::CShape>},
        {"note", [] { return FromCorpus<Samples::CNote>("note.xml"); }, {}, Fresh<Samples::CNote>},
        {"tally", [] { return FromCorpus<Samples::CTally>("tally.xml"); }, {}, Fresh<Samples::CTally>},
        {"settings", [] { return FromCorpus<Samples::CSettings>("settings.xml"); }, {}, Fresh<Samples::CSettings>},
        {"selection", [] { return FromCorpus<Samples::CSelection>("selection.xml"); }, {}, Fresh<Samples::CSelection>},
        {"envelope",
         [] { return FromCorpus<Samples::CEnvelope>("envelope.xml"); },
         {{"tr", "urn:trace"}, {"sig", "urn:orvex:sig2"}, {"m", "urn:m"}},
         Fresh<Samples::CEnvelope>},
        {"invoiceline",
         [] { return FromCorpus<Samples::CInvoiceLine>("invoiceline.xml"); },
         {},
         Fresh<Samples::CInvoiceLine>},
        {"remittance",
         [] { return FromCorpus<Samples::CRemittance>("remittance.xml"); },
         {},
         Fresh<Samples::CRemittance>},
        {"order",
         [] { return FromCorpus<Samples::COrder>("order.xml"); },
         {{"xsi", kXsi}, {"n", "urn:notes"}},
         Fresh<Samples::COrder>},
        {"shop", [] { return FromCorpus<Samples::CShop>("shop.xml"); }, {{"xsi", kXsi}}, Fresh<Samples::CShop>},
        {"alltypes", [] { return FromCorpus<Samples::CAllTypes>("alltypes.xml"); }, {}, Fresh<Samples::CAllTypes>},
        {"orderbook",
         [] { return FromCorpus<OrderBook::COrderBook>("orderbook.xml"); },
         {},
         Fresh<OrderBook::COrderBook>},
        {"readinglog", ReadingLog, {}, Fresh<Samples::CReadingLog>},
        // Two classes no corpus document holds: simple content alone, and a payment choice.
        {"amount", [] { return FromText<Samples::CAmount>("<Amount>-12.5</Amount>"); }, {}, Fresh<Samples::CAmount>},
        {"transfer",
         [] {
             return FromText<Samples::CTransfer>(
                 "<Transfer xmlns=\"urn:orvex:samples:shop\"><Iban>CH93 0076</Iban><Reference>r&amp;1</Reference>"
                 "</Transfer>");
         },
         {},
         Fresh<Samples::CTransfer>},
    };
    return s_samples;
}

// Runs fn, turning an exception of the library into a failure that shows its message.
template <class Fn>
void Guarded(Fn fn) {
    try {
        fn();
    } catch (const COxException& e) {
        ADD_FAILURE() << e.GetFullMessage();
    }
}

const std::pair<JsonRoundTrip, const char*> kModes[] = {
    {JsonRoundTrip_None, "none"}, {JsonRoundTrip_Simple, "simple"}, {JsonRoundTrip_Full, "full"}};

class SampleJson : public ::testing::Test {
protected:
    void SetUp() override {
        m_strDir = ::testing::TempDir() + "samplejson_" + std::to_string(::getpid()) + "/";
        ASSERT_EQ(0, std::system(("mkdir -p '" + m_strDir + "'").c_str()));
    }
    void TearDown() override {
        AsyncToXmlFile(false);
        std::system(("rm -rf '" + m_strDir + "'").c_str());
    }
    // Adds a file to the manifest.
    void Check(const std::string& strFile, const char* pszForm, const std::string& strReference = "") {
        m_manifest << m_strDir << strFile << ' ' << pszForm;
        if (!strReference.empty()) m_manifest << ' ' << m_strDir << strReference;
        m_manifest << '\n';
    }
    std::string RunChecks() {
        WriteFile(m_strDir + "manifest", m_manifest.str());
        return RunChecker(m_strDir + "manifest");
    }

    std::string m_strDir;
    std::ostringstream m_manifest;
};

}  // namespace

// Each sample in each mode, formatted and compact, is one strict JSON text, and writing the
// same object twice gives the same bytes.
TEST_F(SampleJson, EverySampleInEveryModeIsStrictJson) {
    for (const Sample& sample : AllSamples()) {
        Guarded([&] {
            CSmartPtr<CXmlObjectBase> object = sample.make();
            for (const auto& mode : kModes) {
                for (bool bFormatted : {true, false}) {
                    SCOPED_TRACE(std::string(sample.pszName) + " " + mode.second + (bFormatted ? " formatted" : ""));
                    CSerializationContext ctx;
                    ctx.GetJsonContext().SetSupportRoundtrip(mode.first);
                    for (const auto& alias : sample.vecAliases)
                        ctx.GetNamespaceAliases().Add(alias.first, alias.second);
                    const std::string strText = object->ToJson(bFormatted, EOLType_LF, ctx);
                    EXPECT_EQ(strText, object->ToJson(bFormatted, EOLType_LF, ctx));
                    EXPECT_TRUE(OrvexTest::CJsonSyntax::IsValid(strText));
                    const std::string strFile =
                        std::string(sample.pszName) + "_" + mode.second + (bFormatted ? "_f" : "_c") + ".json";
                    WriteFile(m_strDir + strFile, strText);
                    Check(strFile, "utf-8");
                }
            }
        });
    }
    EXPECT_EQ("", RunChecks());
}

// Without the aliases the full mode refuses the object with the namespace it can't write,
// and writes nothing.
TEST_F(SampleJson, FullModeRefusesNamespacesWithoutPrefix) {
    for (const Sample& sample : AllSamples()) {
        if (sample.vecAliases.empty()) continue;
        SCOPED_TRACE(sample.pszName);
        CSmartPtr<CXmlObjectBase> object = sample.make();
        const std::string strExpected = std::string("\nUnknown Namespace: ") + sample.vecAliases[0].second + ".";
        try {
            object->ToJson(true, EOLType_LF, CSerializationContext());
            ADD_FAILURE() << "written without a prefix";
        } catch (const COxException& e) {
            const std::string strMessage = e.GetFullMessage();
            ASSERT_GE(strMessage.size(), strExpected.size());
            EXPECT_EQ(strExpected, strMessage.substr(strMessage.size() - strExpected.size()));
        }
    }
}

// A file entry point refuses ZLib, and a stream without an encoding has no bytes; no file is
// left behind. (Compressed JSON output is checked with the XML forms in the binding tests.)
TEST_F(SampleJson, RefusalsAtTheEntryPoints) {
    CSmartPtr<CXmlObjectBase> object = AllSamples()[0].make();
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    const std::string strFile = m_strDir + "compressed.json";
    struct Case {
        std::function<void()> call;
        const char* pszMessage;
    };
    const Case cases[] = {
        {[&] { object->ToJsonFile(strFile.c_str(), true, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_ZLib); },
         "ZLIB Compression only available for To Stream methods."},
        {[&] { object->ToJsonStream(true, XmlEncoding_None, EOLType_LF, ctx, CompressionType_None); },
         "Unknown Encoding, select UTF-8 (contact our support team)"},
    };
    for (const Case& c : cases) {
        try {
            c.call();
            ADD_FAILURE() << "no refusal";
        } catch (const COxException& e) {
            EXPECT_EQ(c.pszMessage, e.GetMessage());
        }
    }
    EXPECT_FALSE(std::ifstream(strFile).good());
}

// The stream in UTF-8 and UTF-16 and the file by both routes hold ToJson's text; only the
// direct route's UTF-16 file begins with a byte order mark.
TEST_F(SampleJson, StreamsAndFilesHoldTheTextOfToJson) {
    for (const Sample& sample : AllSamples()) {
        SCOPED_TRACE(sample.pszName);
        CSerializationContext ctx;
        for (const auto& alias : sample.vecAliases) ctx.GetNamespaceAliases().Add(alias.first, alias.second);
        Guarded([&] {
            CSmartPtr<CXmlObjectBase> object = sample.make();
            const std::string strName = sample.pszName;
            for (EOLType eEOL : {EOLType_LF, EOLType_CRLF}) {
                const std::string strBase = strName + (eEOL == EOLType_LF ? "_lf" : "_crlf");
                WriteFile(m_strDir + strBase + ".json", object->ToJson(true, eEOL, ctx));
                WriteFile(m_strDir + strBase + "_s8",
                          Bytes(object->ToJsonStream(true, XmlEncoding_UTF8, eEOL, ctx, CompressionType_None)));
                WriteFile(m_strDir + strBase + "_s16",
                          Bytes(object->ToJsonStream(true, XmlEncoding_UTF16, eEOL, ctx, CompressionType_None)));
                Check(strBase + "_s8", "utf-8", strBase + ".json");
                Check(strBase + "_s16", "utf-16", strBase + ".json");
                for (bool bAsync : {false, true}) {
                    AsyncToXmlFile(bAsync);
                    const std::string strFile = strBase + (bAsync ? "_direct" : "_memory");
                    object->ToJsonFile((m_strDir + strFile + "8").c_str(), true, XmlEncoding_UTF8, eEOL, ctx,
                                       CompressionType_None);
                    object->ToJsonFile((m_strDir + strFile + "16").c_str(), true, XmlEncoding_UTF16, eEOL, ctx,
                                       CompressionType_None);
                    Check(strFile + "8", "utf-8", strBase + ".json");
                    Check(strFile + "16", bAsync ? "utf-16-bom" : "utf-16", strBase + ".json");
                }
            }
        });
    }
    EXPECT_EQ("", RunChecks());
}

// The fuzzers' JSON checker gives Python's verdict on texts at the edges of the grammar.
TEST_F(SampleJson, SyntaxCheckerAgreesWithPython) {
    const std::vector<std::string> texts = {"{}",
                                            " [1, -0, 0.5e+3, 1E-2, true, false, null, \"\\u00e9\\/\\b\"] ",
                                            "{\"a\": {\"b\": []}}",
                                            "\"\xC3\xA9\xF0\x9F\x98\x80\"",
                                            "",
                                            "{",
                                            "{\"a\" 1}",
                                            "{\"a\": 1,}",
                                            "[1,]",
                                            "[01]",
                                            "[1.]",
                                            "[.5]",
                                            "[+1]",
                                            "[1e]",
                                            "[NaN]",
                                            "[Infinity]",
                                            "[-]",
                                            "{} {}",
                                            "{'a': 1}",
                                            "[\"\t\"]",
                                            "[\"\\x\"]",
                                            "[\"\\u12G4\"]",
                                            "[\"abc]",
                                            "/* c */ {}",
                                            "[\"\xC0\xAF\"]",
                                            "[\"\xED\xA0\x80\"]",
                                            "[\"\xF4\x90\x80\x80\"]",
                                            "[\"\xE2\x82\"]",
                                            "[\"\xFF\"]",
                                            "{1: 2}",
                                            "[tru]",
                                            "nul",
                                            "\"x\"\x00"};
    for (size_t i = 0; i < texts.size(); ++i) {
        WriteFile(m_strDir + "t" + std::to_string(i), texts[i]);
        Check("t" + std::to_string(i), "utf-8");
    }
    const std::string strRefused = RunChecks();
    for (size_t i = 0; i < texts.size(); ++i) {
        SCOPED_TRACE(texts[i]);
        const bool bPython = strRefused.find(m_strDir + "t" + std::to_string(i) + ":") == std::string::npos;
        EXPECT_EQ(bPython, OrvexTest::CJsonSyntax::IsValid(texts[i]));
    }
}

// Threads write the same objects at once, two of them with one shared context (its JSON
// settings made by an earlier call), two with contexts of their own in another mode; every
// text is the one a single thread writes.
TEST(SampleJsonThreads, ConcurrentWritersGiveTheSingleThreadedText) {
    CSerializationContext shared;
    CSerializationContext plain;
    plain.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_None);
    std::vector<CSmartPtr<CXmlObjectBase>> vecObjects;
    std::vector<std::string> vecExpected[2];
    for (const Sample& sample : AllSamples()) {
        if (!sample.vecAliases.empty()) continue;
        vecObjects.push_back(sample.make());
        vecExpected[0].push_back(vecObjects.back()->ToJson(true, EOLType_LF, shared));
        vecExpected[1].push_back(vecObjects.back()->ToJson(true, EOLType_LF, plain));
    }
    std::vector<int> vecMismatches(4, 0);
    std::vector<std::thread> vecThreads;
    for (int t = 0; t < 4; ++t) {
        vecThreads.emplace_back([&, t] {
            CSerializationContext own(plain);
            const CSerializationContext& ctx = t % 2 ? own : shared;
            for (int nRound = 0; nRound < 20; ++nRound) {
                for (size_t i = 0; i < vecObjects.size(); ++i) {
                    if (vecObjects[i]->ToJson(true, EOLType_LF, ctx) != vecExpected[t % 2][i]) ++vecMismatches[t];
                }
            }
        });
    }
    for (std::thread& thread : vecThreads) thread.join();
    EXPECT_EQ(std::vector<int>(4, 0), vecMismatches);
}

namespace {

// The message of the first cause of an exception.
std::string Innermost(const COxException& e) {
    const COxException* p = &e;
    while (p->GetInnerException()) p = p->GetInnerException();
    return p->GetMessage();
}

// XML text with the prefixes of element and attribute names taken off, declarations kept.
std::string WithoutPrefixes(const std::string& strXml) {
    std::string strOut;
    for (size_t i = 0; i < strXml.size(); ++i) {
        const char c = strXml[i];
        strOut += c;
        if (c != '<' && c != '/' && c != ' ') continue;
        size_t nEnd = i + 1;
        while (nEnd < strXml.size() && std::isalnum(static_cast<unsigned char>(strXml[nEnd]))) ++nEnd;
        if (nEnd < strXml.size() && strXml[nEnd] == ':' && strXml.compare(i + 1, 6, "xmlns:") != 0) i = nEnd;
    }
    return strOut;
}

}  // namespace

// Each sample written in each mode and read back into a new object of its class: the object
// writes the XML of the original (read back through XML, so that the forms XML itself writes
// one way are left out), or the mode's loss shows exactly as listed. Full loses nothing;
// Simple loses namespaces, so names in another namespace read back without prefix, and
// xsi:type (order, shop) and primitive attributes in a namespace (xml:lang, a qualified
// reference), which match by namespace even when namespaces are ignored, can't be found;
// None turns attributes into child elements, which the classes refuse, and gives text beside
// children the empty name.
TEST(SampleJsonReading, EverySampleReadsBackInEachMode) {
    const char* const kSame = "";
    const char* const kPrefixes = "differs in prefixes only";
    const std::string kNoSubstitution = "Failed to find a suitable substitution element for [Product].\nPath: ";
    const std::string kControlByte =
        "The value holds the byte 0x01 at offset 10, which XML 1.0 can't carry; remove it, or store the data as binary "
        "(base64) instead of text.\nPath: ";
    const std::map<std::string, std::array<std::string, 3>> expected = {
        {"person", {kSame, kSame, kSame}},
        {"primitives", {kSame, kSame, kSame}},
        {"shape", {kSame, kSame, kSame}},
        {"note", {kSame, kSame, kSame}},
        {"tally", {kSame, kSame, kSame}},
        {"settings", {kSame, kSame, kSame}},
        {"selection", {kSame, kSame, kSame}},
        {"envelope", {"JSON item has an empty Name.\nPath: $..Signature.Envelope", kPrefixes, kSame}},
        {"invoiceline",
         {"Failed to find the required Attribute [id].", "Unexpected Attribute found.\nPath: /InvoiceLine/@lang",
          kSame}},
        {"remittance",
         {"Failed to find the required Attribute [reference].",
          "Unexpected Attribute found.\nPath: /Remittance/@reference", kSame}},
        {"order", {"Failed to find the required Attribute [id].", kNoSubstitution + "/Order/Line[1]", kSame}},
        {"shop",
         {"Failed read all the elements held within the element [Shop]. The unexpected element [name] remains un "
          "processed\nPath: /Shop",
          kNoSubstitution + "/Shop/Order[1]/Line", kSame}},
        {"alltypes", {kSame, kSame, kSame}},
        {"orderbook",
         {"Failed read all the elements held within the element [orderBook]. The unexpected element [generated] "
          "remains un processed\nPath: /orderBook",
          kSame, kSame}},
        // A control byte that XML can't carry: refused on the way to XML, with its place.
        {"amount", {kSame, kSame, kSame}},
        {"transfer", {kSame, kSame, kSame}},
        {"readinglog",
         {kControlByte + "/ReadingLog/Note", kControlByte + "/ReadingLog/Note",
          kControlByte + "/AA:ReadingLog/AA:Note"}},
    };
    for (const Sample& sample : AllSamples()) {
        CSmartPtr<CXmlObjectBase> object = sample.make();
        CSerializationContext ctx;
        for (const auto& alias : sample.vecAliases) ctx.GetNamespaceAliases().Add(alias.first, alias.second);
        // Kept CDATA sections stay kept when read back.
        ctx.SetStripCDATA(false);
        std::string strOriginal;
        try {
            CSmartPtr<CXmlObjectBase> viaXml = sample.fresh();
            // Compact: formatting would add white space to mixed content.
            viaXml->FromXml(object->ToXml(true, false, EOLType_LF, ctx).c_str(), ctx);
            strOriginal = viaXml->ToXml(true, true, EOLType_LF, ctx);
        } catch (const COxException&) {
            strOriginal = "refused";
        }
        // XML can't carry the control byte either.
        EXPECT_EQ(strOriginal == "refused", std::string(sample.pszName) == "readinglog") << sample.pszName;
        for (size_t nMode = 0; nMode < 3; ++nMode) {
            SCOPED_TRACE(std::string(sample.pszName) + " " + kModes[nMode].second);
            ctx.GetJsonContext().SetSupportRoundtrip(kModes[nMode].first);
            const std::string strJson = object->ToJson(true, EOLType_LF, ctx);
            const std::string strExpected = expected.at(sample.pszName)[nMode];
            CSmartPtr<CXmlObjectBase> back = sample.fresh();
            try {
                back->FromJson(strJson.c_str(), ctx);
            } catch (const COxException& e) {
                EXPECT_EQ(strExpected, Innermost(e));
                continue;
            }
            std::string strBack = back->ToXml(true, true, EOLType_LF, ctx);
            std::string strFrom = strOriginal;
            if (std::string(sample.pszName) == "envelope") {
                // The writer puts the element of Body behind the untyped Stamp items into their
                // array, without its own name; it comes back as one more Stamp.
                for (const char* psz : {"<m:Order ", "</m:Order>"}) {
                    size_t nAt = strFrom.find(psz);
                    ASSERT_NE(nAt, std::string::npos);
                    strFrom.replace(nAt + (psz[1] == '/' ? 2 : 1), 7, "Stamp");
                }
            }
            if (strExpected == kPrefixes) {
                EXPECT_NE(strFrom, strBack);
                EXPECT_EQ(WithoutPrefixes(strFrom), WithoutPrefixes(strBack));
            } else {
                EXPECT_EQ(strExpected, kSame);
                EXPECT_EQ(strFrom, strBack);
            }
        }
    }
}
