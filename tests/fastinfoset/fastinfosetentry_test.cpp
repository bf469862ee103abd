// The public entry points of Fast Infoset output on a sample object.
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "orvexxml/orvexxml.h"
#include "person.h"
#include "support/testfiles.h"
#include "tally.h"

using namespace OrvexXml;
using namespace OrvexTest;

namespace {

std::string Thrown(const std::function<void()>& call) {
    try {
        call();
    } catch (const COxException& e) {
        return e.GetMessage();
    }
    return "nothing thrown";
}

}  // namespace

// The stream holds the document behind its declaration, and the file the same octets; the
// suggested encodings of the caller's context are used, the shared default context works.
TEST(FastInfosetEntry, StreamAndFileHoldOneDocument) {
    CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
    person->SetName("caf\xC3\xA9");
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    // Two names, then the chunk: literal, added, UTF-8, five octets.
    static const char s_abyBody[] =
        "\xE0\x00\x00\x01\x00\x38\xF0\x3C\x05Person\x3C\x03Name\x92\x02"
        "caf\xC3\xA9\xFF\xF0";
    const std::string strBody(s_abyBody, sizeof(s_abyBody) - 1);
    EXPECT_EQ(strBody, Bytes(person->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None)));
    const std::string strDecl = "<?xml version='1.1' encoding='finf' standalone='no'?>";
    EXPECT_EQ(strDecl + strBody,
              Bytes(person->ToFastInfosetStream(FInfoDecl_Version11StandaloneNo, ctx, CompressionType_None)));

    const std::string strFile = ::testing::TempDir() + "fientry_" + std::to_string(::getpid()) + ".fi";
    person->ToFastInfosetFile(strFile.c_str(), FInfoDecl_Version11StandaloneNo, ctx, CompressionType_None);
    EXPECT_EQ(strDecl + strBody, ReadFile(strFile));
    ::unlink(strFile.c_str());
}

// Compressed output is the plain document inside gzip or zlib data, and a document too
// small to shrink is refused with zlib's code; ZLib is refused by the file before the version
// is looked at, and no file is left behind. A wrong generator version is refused.
TEST(FastInfosetEntry, RefusalsAtTheEntryPoints) {
    CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    const std::string strFile = ::testing::TempDir() + "fientry_refused_" + std::to_string(::getpid()) + ".fi";
    CSmartPtr<Samples::CTally> tally = Samples::CTally::CreateInstance();
    for (int i = 0; i < 300; ++i) tally->GetCount().Add(i * 7919 % 1000);
    const std::string strPlain = Bytes(tally->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None));
    for (CompressionType eType : {CompressionType_GZip, CompressionType_ZLib}) {
        const CBinaryData compressed = tally->ToFastInfosetStream(FInfoDecl_None, ctx, eType);
        CBinaryData inflated;
        ASSERT_TRUE(COxZip().Decompress(compressed.GetData(), compressed.GetLength(), inflated));
        EXPECT_EQ(strPlain, Bytes(inflated));
        EXPECT_LT(compressed.GetLength(), strPlain.size());
    }
    EXPECT_EQ("Failed to compress data. [Error Code: 0]",
              Thrown([&] { person->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_GZip); }));
    Register(1, 0);
    std::string strZLib =
        Thrown([&] { person->ToFastInfosetFile(strFile.c_str(), FInfoDecl_None, ctx, CompressionType_ZLib); });
    std::string strVersion = Thrown([&] { person->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None); });
    Register(16, 1);
    EXPECT_EQ("ZLIB Compression only available for To Stream methods.", strZLib);
    EXPECT_EQ("Wrong Version (Orvex Runtime: v16.1, Generator: v1.0)", strVersion);
    EXPECT_FALSE(std::ifstream(strFile).good());
}
