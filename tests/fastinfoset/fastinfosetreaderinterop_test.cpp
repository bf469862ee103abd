// Documents that the FastInfoset library for Java writes from our XML read into the same
// objects: every sample class is written as XML, converted by tests/fastinfoset/interop/
// XmlToFi.java (UTF-8 and UTF-16 strings), read back through both entry points, and must
// write the same XML again.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
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

using namespace OrvexXml;
using namespace OrvexTest;

namespace {

struct Sample {
    const char* pszName;
    // An empty object of the class.
    std::function<CSmartPtr<CXmlObjectBase>()> create;
    // The sample's corpus document, or null when fill builds the object.
    const char* pszCorpusFile;
    std::function<void(CXmlObjectBase&)> fill;
};

template <class T>
Sample MakeSample(const char* pszName, const char* pszCorpusFile) {
    return Sample{pszName, [] { return CSmartPtr<CXmlObjectBase>(T::CreateInstance()->GetBase()); }, pszCorpusFile,
                  nullptr};
}

// A reading log with every collection filled, infinities, NaN and a negative zero among the
// doubles, markup characters and a line break in the strings.
void FillReadingLog(CXmlObjectBase& object) {
    Samples::CReadingLog& log = static_cast<Samples::CReadingLog&>(object);
    log.SetStation("North \"Ridge\" <7> & co");
    const double adValues[] = {1.5, -std::numeric_limits<double>::infinity(), std::nan(""), 1e300, -0.0};
    for (int i = 0; i < 5; ++i) {
        log.GetSensor().Add("s" + std::to_string(i));
        log.GetSequence().Add(int64_t(i) * -1000000007LL);
        log.GetValue().Add(adValues[i]);
        log.GetLevel().Add(i - 2);
        log.GetValid().Add(i % 2 == 0);
        log.GetNote().Add(i == 3 ? "line\nbreak" : "ok");
    }
}

const std::vector<Sample>& AllSamples() {
    static const std::vector<Sample> s_samples = {
        MakeSample<Samples::CPerson>("person", "person.xml"),
        MakeSample<Samples::CPrimitiveSet>("primitives", "primitives.xml"),
        MakeSample<Samples::CShape>("shape", "shape.xml"),
        MakeSample<Samples::CNote>("note", "note.xml"),
        MakeSample<Samples::CTally>("tally", "tally.xml"),
        MakeSample<Samples::CSettings>("settings", "settings.xml"),
        MakeSample<Samples::CSelection>("selection", "selection.xml"),
        MakeSample<Samples::CEnvelope>("envelope", "envelope.xml"),
        MakeSample<Samples::CInvoiceLine>("invoiceline", "invoiceline.xml"),
        MakeSample<Samples::CRemittance>("remittance", "remittance.xml"),
        MakeSample<Samples::COrder>("order", "order.xml"),
        MakeSample<Samples::CShop>("shop", "shop.xml"),
        MakeSample<Samples::CAllTypes>("alltypes", "alltypes.xml"),
        MakeSample<OrderBook::COrderBook>("orderbook", "orderbook.xml"),
        Sample{"readinglog",
               [] { return CSmartPtr<CXmlObjectBase>(Samples::CReadingLog::CreateInstance()->GetBase()); }, nullptr,
               FillReadingLog},
    };
    return s_samples;
}

}  // namespace

TEST(FastInfosetReaderInterop, EverySampleReadsBackFromTheReferenceEncoding) {
#ifndef ORVEXXML_XMLTOFI
    GTEST_SKIP() << "java or FastInfoset.jar was not found at configuration";
#else
    const std::string strDir = ::testing::TempDir() + "fiinterop_" + std::to_string(::getpid()) + "/";
    ASSERT_EQ(0, std::system(("mkdir -p '" + strDir + "'").c_str()));

    // Each sample as XML, formatted, so that the whitespace between elements travels too.
    std::string strPairs8, strPairs16;
    for (const Sample& sample : AllSamples()) {
        CSerializationContext ctx;
        CSmartPtr<CXmlObjectBase> object = sample.create();
        if (sample.pszCorpusFile) {
            const std::string strCorpus = ReadFile(kCorpus + sample.pszCorpusFile);
            ASSERT_FALSE(strCorpus.empty()) << sample.pszCorpusFile;
            ApplySettings(strCorpus[0], ctx);
            object->FromXml(strCorpus.substr(1).c_str(), ctx);
        } else {
            sample.fill(*object);
        }
        const std::string strBase = strDir + sample.pszName;
        WriteFile(strBase + ".xml", object->ToXml(true, true, EOLType_LF, ctx));
        strPairs8 += " '" + strBase + ".xml' '" + strBase + ".fi'";
        strPairs16 += " '" + strBase + ".xml' '" + strBase + ".16.fi'";
    }
    ASSERT_EQ(0, std::system((std::string(ORVEXXML_XMLTOFI) + strPairs8).c_str()));
    ASSERT_EQ(0, std::system((std::string(ORVEXXML_XMLTOFI) + " -utf16" + strPairs16).c_str()));

    for (size_t i = 0; i < AllSamples().size(); ++i) {
        const Sample& sample = AllSamples()[i];
        CSerializationContext ctx;
        if (sample.pszCorpusFile) ApplySettings(ReadFile(kCorpus + sample.pszCorpusFile)[0], ctx);
        // What the same XML text reads into: formatted mixed content takes the indentation
        // into its text, in both forms alike. A CDATA section reaches Fast Infoset as plain
        // text, as if the XML had been read with CDATA stripped.
        CSerializationContext xmlCtx = ctx;
        xmlCtx.SetStripCDATA(true);
        CSmartPtr<CXmlObjectBase> fromXml = sample.create();
        fromXml->FromXmlFile((strDir + sample.pszName + ".xml").c_str(), xmlCtx);
        const std::string strExpected = fromXml->ToXml(true, true, EOLType_LF, ctx);
        for (const char* pszSuffix : {".fi", ".16.fi"}) {
            SCOPED_TRACE(std::string(sample.pszName) + pszSuffix);
            const std::string strPath = strDir + sample.pszName + pszSuffix;
            std::string strOctets = ReadFile(strPath);
            ASSERT_EQ(std::string("\xE0\x00\x00\x01", 4), strOctets.substr(0, 4));
            try {
                CSmartPtr<CXmlObjectBase> fromStream = sample.create();
                fromStream->FromXmlStream(reinterpret_cast<unsigned char*>(&strOctets[0]),
                                          static_cast<OxULong>(strOctets.size()), ctx);
                EXPECT_EQ(strExpected, fromStream->ToXml(true, true, EOLType_LF, ctx));
                CSmartPtr<CXmlObjectBase> fromFile = sample.create();
                fromFile->FromXmlFile(strPath.c_str(), ctx);
                EXPECT_EQ(strExpected, fromFile->ToXml(true, true, EOLType_LF, ctx));
            } catch (const COxException& e) {
                ADD_FAILURE() << e.GetFullMessage();
            }
        }
    }
    std::system(("rm -rf '" + strDir + "'").c_str());
#endif
}
