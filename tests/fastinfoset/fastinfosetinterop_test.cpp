// Every sample class written as Fast Infoset is read by the reference Java implementation and
// compared, event by event, with the JDK's reading of the XML text of the same object.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "alltypes.h"
#include "envelope.h"
#include "invoiceline.h"
#include "note.h"
#include "order.h"
#include "order/orderbook.h"
#include "orvexxml/fastinfoset/fastinfosetwriter.h"
#include "person.h"
#include "primitiveset.h"
#include "readinglog.h"
#include "remittance.h"
#include "selection.h"
#include "settings.h"
#include "shape.h"
#include "shop.h"
#include "support/samplecorpus.h"
#include "tally.h"
#include "xml/xmltesthelpers.h"

using namespace OrvexXml;
using namespace OrvexTest;

namespace {

// Doubles at their extremes, booleans, long integers and repeated short texts.
CSmartPtr<CXmlObjectBase> ReadingLog() {
    CSmartPtr<Samples::CReadingLog> log = Samples::CReadingLog::CreateInstance();
    log->SetStation("North \"Ridge\"\t<7>");
    const double adValues[] = {1.5, -std::numeric_limits<double>::infinity(), std::nan(""), 1e300, -0.0};
    for (int i = 0; i < 5; ++i) {
        log->GetSensor().Add("s" + std::to_string(i % 2));
        log->GetSequence().Add(int64_t(i) * -1000000007LL);
        log->GetValue().Add(adValues[i]);
        log->GetLevel().Add(i - 2);
        log->GetValid().Add(i % 2 == 0);
        log->GetNote().Add(i == 3 ? "caf\xC3\xA9 \xE2\x82\xAC" : "ok");
    }
    return CSmartPtr<CXmlObjectBase>(log->GetBase());
}

struct Sample {
    const char* pszName;
    std::function<CSmartPtr<CXmlObjectBase>()> make;
};

// The corpus documents read with CDATA sections as plain text (false): a kept section would
// reach the Fast Infoset text with its markers as characters.
const std::vector<Sample>& AllSamples() {
    static const std::vector<Sample> s_samples = {
        {"person", [] { return FromCorpus<Samples::CPerson>("person.xml", false); }},
        {"primitives", [] { return FromCorpus<Samples::CPrimitiveSet>("primitives.xml", false); }},
        {"shape", [] { return FromCorpus<Samples::CShape>("shape.xml", false); }},
        {"note", [] { return FromCorpus<Samples::CNote>("note.xml", false); }},
        {"tally", [] { return FromCorpus<Samples::CTally>("tally.xml", false); }},
        {"settings", [] { return FromCorpus<Samples::CSettings>("settings.xml", false); }},
        {"selection", [] { return FromCorpus<Samples::CSelection>("selection.xml", false); }},
        {"envelope", [] { return FromCorpus<Samples::CEnvelope>("envelope.xml", false); }},
        {"invoiceline", [] { return FromCorpus<Samples::CInvoiceLine>("invoiceline.xml", false); }},
        {"remittance", [] { return FromCorpus<Samples::CRemittance>("remittance.xml", false); }},
        {"order", [] { return FromCorpus<Samples::COrder>("order.xml", false); }},
        {"shop", [] { return FromCorpus<Samples::CShop>("shop.xml", false); }},
        {"alltypes", [] { return FromCorpus<Samples::CAllTypes>("alltypes.xml", false); }},
        {"orderbook", [] { return FromCorpus<OrderBook::COrderBook>("orderbook.xml", false); }},
        {"readinglog", ReadingLog},
    };
    return s_samples;
}

// The output of a command, standard error included.
std::string RunCommand(const std::string& strCommand) {
    std::string strOutput;
    FILE* pPipe = popen((strCommand + " 2>&1").c_str(), "r");
    if (!pPipe) return "could not start: " + strCommand;
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof(buf), pPipe)) > 0) strOutput.append(buf, n);
    const int nStatus = pclose(pPipe);
    if (nStatus != 0) strOutput += "exit status " + std::to_string(nStatus);
    return strOutput;
}

// The namespaces that an XML text declares, in order of appearance, each once.
std::vector<std::string> DeclaredNamespaces(const std::string& strXml) {
    std::vector<std::string> vecNamespaces;
    for (size_t nPos = strXml.find("xmlns"); nPos != std::string::npos; nPos = strXml.find("xmlns", nPos + 1)) {
        size_t nQuote = strXml.find_first_of("\"'", nPos);
        size_t nEnd = strXml.find(strXml[nQuote], nQuote + 1);
        std::string strUri = strXml.substr(nQuote + 1, nEnd - nQuote - 1);
        bool bKnown = false;
        for (const std::string& strSeen : vecNamespaces) bKnown = bKnown || strSeen == strUri;
        if (!bKnown) vecNamespaces.push_back(strUri);
    }
    return vecNamespaces;
}

#if defined(ORVEXXML_JAVA)
std::string Compare(const std::string& strManifest) {
    return RunCommand(std::string("'") + ORVEXXML_JAVA + "' -cp '" + ORVEXXML_FI_CLASSPATH + "' FiToXml compare '" +
                      strManifest + "'");
}
#endif

class FastInfosetInterop : public ::testing::Test {
protected:
    void SetUp() override {
#if !defined(ORVEXXML_JAVA)
        GTEST_SKIP() << "java or the reference Fast Infoset library is missing";
#endif
        m_strDir = ::testing::TempDir() + "fiinterop_" + std::to_string(::getpid()) + "/";
        ASSERT_EQ(0, std::system(("mkdir -p '" + m_strDir + "'").c_str()));
    }
    void TearDown() override {
        if (!m_strDir.empty()) std::system(("rm -rf '" + m_strDir + "'").c_str());
    }
    // Writes the pair and adds it to the manifest.
    void Add(const std::string& strName, const CBinaryData& fi, const CBinaryData& xml) {
        WriteFile(m_strDir + strName + ".fi", fi);
        WriteFile(m_strDir + strName + ".xml", xml);
        m_manifest << strName << ' ' << m_strDir << strName << ".fi " << m_strDir << strName << ".xml\n";
    }
    std::string Compare() {
        std::ofstream(m_strDir + "manifest") << m_manifest.str();
#if defined(ORVEXXML_JAVA)
        return ::Compare(m_strDir + "manifest");
#else
        return std::string();
#endif
    }

    std::string m_strDir;
    std::ostringstream m_manifest;
};

}  // namespace

// Each sample, with the default encodings and with the suggested binary and alphabet
// encodings, holds for the reference parser what its XML text holds for the JDK's. Every
// namespace is declared on the root by an alias, and default values are written in the XML
// as the Fast Infoset writer always writes them.
//
// An xsi:type whose type lies in a namespace other than the default one is written with the
// prefix of the type's namespace in the attribute's qualified name, bound there to the
// instance namespace; the reference refuses that binding, so the samples with such types are
// also compared without type attributes. The suggested encodings can't write every value.
TEST_F(FastInfosetInterop, EverySampleReadsAsItsXml) {
    std::string strExpected, strUnwritable;
    for (const Sample& sample : AllSamples()) {
        try {
            CSmartPtr<CXmlObjectBase> object = sample.make();
            CSerializationContext ctx;
            ctx.SetWriteDefaultElementValues(true);
            std::string strPlain =
                Bytes(object->ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF,
                                          CSerializationContext::GetDefaultContext(), CompressionType_None));
            std::vector<std::string> vecNamespaces = DeclaredNamespaces(strPlain);
            vecNamespaces.push_back(CXmlWriter::XsiNamespaceURI);
            for (size_t n = 0; n < vecNamespaces.size(); ++n)
                ctx.GetNamespaceAliases().Add(("ns" + std::to_string(n)).c_str(), vecNamespaces[n].c_str());
            const bool bForeignTypes = strPlain.find(":type=\"AA:") != std::string::npos;
            for (bool bTypes : {true, false}) {
                if (!bTypes && !bForeignTypes) continue;
                ctx.SetWriteTypeAttribute(bTypes);
                CBinaryData xml =
                    object->ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
                for (bool bSuggested : {false, true}) {
                    CSerializationContext fiCtx(ctx);
                    if (bSuggested) fiCtx.GetFIContext().SetSuggestedValues();
                    std::string strName = std::string(sample.pszName) + (bSuggested ? "_suggested" : "_default") +
                                          (bTypes ? "" : "_untyped");
                    CBinaryData fi;
                    try {
                        fi = object->ToFastInfosetStream(bSuggested ? FInfoDecl_Version10StandaloneYes : FInfoDecl_None,
                                                         fiCtx, CompressionType_None);
                    } catch (const COxException& e) {
                        std::string strMessage = e.GetFullMessage();
                        strUnwritable += strName + ": " + strMessage.substr(strMessage.rfind('\n') + 1) + "\n";
                        continue;
                    }
                    Add(strName, fi, xml);
                    if (bTypes && bForeignTypes)
                        strExpected += strName + ": refused: Qualified name of AII not in scope\n";
                }
            }
        } catch (const COxException& e) {
            ADD_FAILURE() << sample.pszName << ": " << e.GetFullMessage();
        }
    }
    EXPECT_EQ(strExpected, Compare());
    // The largest ui8 is beyond the signed long of the suggested algorithm.
    EXPECT_EQ("alltypes_suggested: The value [18446744073709551615] is to large to fit in a i8\n", strUnwritable);
}

// Without aliases, a namespace that has no prefix in scope gets a generated one that only the
// qualified names carry, since namespace attributes stand on the root alone; the reference
// refuses a prefix that no namespace attribute declares. Samples without such namespaces agree.
TEST_F(FastInfosetInterop, UndeclaredGeneratedPrefixesAreRefused) {
    std::string strExpected;
    CSerializationContext ctx;
    ctx.SetWriteDefaultElementValues(true);
    for (const Sample& sample : AllSamples()) {
        try {
            CSmartPtr<CXmlObjectBase> object = sample.make();
            CBinaryData xml = object->ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
            Add(sample.pszName, object->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None), xml);
            if (Bytes(xml).find("xmlns:AA=") != std::string::npos)
                strExpected += std::string(sample.pszName) +
                               ": refused: Illegal state when decoding identifying string for prefix on first bit\n";
        } catch (const COxException& e) {
            ADD_FAILURE() << sample.pszName << ": " << e.GetFullMessage();
        }
    }
    EXPECT_EQ(strExpected, Compare());
}

// Past the first form of every index and length: 2200 element names, 70 attribute names,
// 8400 attribute values and 1100 character chunks, each used twice, and names, values and
// texts long enough for the longer length forms; written by the writer and as XML text.
TEST_F(FastInfosetInterop, LongFormsOfIndexesAndLengths) {
    CFastInfosetContext fi;
    CBinaryStream stream;
    std::string strXml = "<?xml version=\"1.0\"?>";
    {
        CFastInfosetWriter writer(&fi, &stream);
        auto element = [&](const std::string& strName, const std::string& strAttribute, const std::string& strValue,
                           const std::string& strText) {
            writer.WriteStartElement(strName, "");
            writer.WriteAttribute(strAttribute, "", strValue, ItemType_string);
            writer.WriteElementText(strText, ItemType_string, false);
            writer.WriteEndElement();
            strXml += "<" + strName + " " + strAttribute + "=\"" + strValue + "\">" + strText + "</" + strName + ">";
        };
        writer.StartDocument();
        writer.WriteHeader(FInfoDecl_None);
        writer.WriteStartElement("r", "");
        strXml += "<r>";
        for (int i = 0; i < 2 * 8400; ++i)
            element("e" + std::to_string(i % 2200), "a" + std::to_string(i % 70), "v" + std::to_string(i % 8400),
                    "t" + std::to_string(i % 1100));
        for (size_t nLength : {65, 320, 321, 1000})
            element(std::string(nLength, 'n'), std::string(nLength, 'a'), std::string(nLength - 56, 'v'),
                    std::string(nLength - 62, 't'));
        writer.WriteEndElement();
        strXml += "</r>";
        writer.WriteFooter();
        writer.EndDocument();
    }
    Add("long_forms", stream.GetData(), CBinaryData(strXml.c_str()));
    EXPECT_EQ("", Compare());
}

// Every sample written by the library as Fast Infoset reads back through both entry points
// into the object its XML text reads into (the XML route has its own one-way forms, such as a
// double cut by its formatting buffer), with the default encodings, with the encoding
// algorithms of SetSuggestedValues, and from a ready-made vocabulary both sides filled alike.
// Where every value is written as a string, the tree is the tree of the XML text as well; the
// algorithms give values in their own text forms ("2.5" for "2.500").
TEST(FastInfosetRoundTrip, EverySampleReadsBackInEachSetting) {
    auto plain = [](CSerializationContext&) {};
    auto suggested = [](CSerializationContext& ctx) { ctx.GetFIContext().SetSuggestedValues(); };
    auto vocabulary = [](CSerializationContext& ctx) {
        CFastInfosetContext& fi = ctx.GetFIContext();
        fi.SetUseGeneratedVocabulary(true);
        fi.SetExternalVocabularyURI("urn:orvexxml:test:vocabulary");
        fi.GetVocabulary()->AddElement("", "", "Name");
        fi.GetVocabulary()->AddAttribute("p", "urn:orvexxml:test", "id");
        fi.GetVocabulary()->AddElementValue("1");
        fi.GetVocabulary()->AddAttributeValue("true");
    };
    const struct {
        const char* pszName;
        std::function<void(CSerializationContext&)> configure;
        bool bStringsOnly;
    } settings[] = {{"default", plain, true}, {"suggested", suggested, false}, {"vocabulary", vocabulary, true}};
    const std::string strFile = ::testing::TempDir() + "firoundtrip_" + std::to_string(::getpid()) + ".fi";
    for (const auto& setting : settings) {
        CSerializationContext ctx;
        ctx.SetWriteDefaultElementValues(true);
        setting.configure(ctx);
        for (const Sample& sample : AllSamples()) {
            SCOPED_TRACE(std::string(setting.pszName) + "/" + sample.pszName);
            CSmartPtr<CXmlObjectBase> object = sample.make();
            CBinaryData fi;
            try {
                fi = object->ToFastInfosetStream(FInfoDecl_Version10, ctx, CompressionType_None);
            } catch (const COxException& e) {
                // The one value an algorithm can't take: the largest ui8 as a long.
                EXPECT_EQ("suggested/alltypes", std::string(setting.pszName) + "/" + sample.pszName)
                    << e.GetFullMessage();
                continue;
            }
            const std::string strXml = object->ToXml(true, false, EOLType_LF, ctx);
            CSmartPtr<CXmlObjectBase> fromXml = sample.make();
            fromXml->FromXml(strXml.c_str(), ctx);
            const std::string strExpected = fromXml->ToXml(true, false, EOLType_LF, ctx);
            if (setting.bStringsOnly) {
                CXmlDocument treeFi(ctx), treeXml(ctx);
                treeFi.LoadXmlStream(const_cast<unsigned char*>(fi.GetData()), fi.GetLength());
                treeXml.LoadXml(strXml.c_str());
                EXPECT_EQ(OrvexXmlTest::Dump(treeXml.GetDocumentElement()),
                          OrvexXmlTest::Dump(treeFi.GetDocumentElement()));
            }
            CSmartPtr<CXmlObjectBase> fromStream = sample.make();
            fromStream->FromXmlStream(fi, ctx);
            EXPECT_EQ(strExpected, fromStream->ToXml(true, false, EOLType_LF, ctx));
            WriteFile(strFile, fi);
            CSmartPtr<CXmlObjectBase> fromFile = sample.make();
            fromFile->FromXmlFile(strFile.c_str(), ctx);
            EXPECT_EQ(strExpected, fromFile->ToXml(true, false, EOLType_LF, ctx));
        }
    }
    std::remove(strFile.c_str());
}
