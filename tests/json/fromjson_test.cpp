// The JSON reading entry points of the objects: every form of input reads the same object,
// empty and missing input is refused with its message, the context's namespace switch is
// what it was after every call, and hostile input ends in an error or a result.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <typeinfo>
#include <utility>
#include <vector>

#include "envelope.h"
#include "invoiceline.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "person.h"
#include "remittance.h"
#include "support/testclasses.h"
#include "support/testfiles.h"

using namespace OrvexXml;
using namespace OrvexTest;

namespace {

// The full message of what fn throws, "" if nothing; its class in pstrType.
template <class Fn>
std::string Thrown(Fn fn, std::string* pstrType = nullptr) {
    try {
        fn();
    } catch (const COxException& e) {
        if (pstrType) *pstrType = typeid(e).name();
        return e.GetFullMessage();
    }
    return "";
}

class FromJson : public ::testing::Test {
protected:
    void SetUp() override { m_strDir = ::testing::TempDir() + "fromjson_" + std::to_string(::getpid()) + "_"; }
    void TearDown() override {
        for (const char* psz : {"plain.json", "bom.json", "empty.json"}) std::remove(Path(psz).c_str());
    }
    std::string Path(const char* pszName) const { return m_strDir + pszName; }
    std::string m_strDir;
};

// Text, wide text, bytes with and without a byte order mark and files of both read the object
// that was written, in each mode that keeps its shape.
TEST_F(FromJson, EveryFormOfInputReadsTheSameObject) {
    CSmartPtr<Samples::CInvoiceLine> original = Samples::CInvoiceLine::CreateInstance();
    const std::string strSetup = Thrown([&] {
        original->FromXml(
            "<InvoiceLine id=\"7\" currency=\"EUR\" status=\"shipped\" xml:lang=\"fr\"><Description>Caf\xC3\xA9 "
            "\"&lt;\xE2\x82\xAC&gt;\" "
            "\xF0\x9F\x98\x80</Description><Quantity>-12</Quantity></InvoiceLine>",
            CSerializationContext::GetDefaultContext());
    });
    ASSERT_EQ(strSetup, "");
    CSerializationContext ctx;
    const std::string strXml = original->ToXml(true, true, EOLType_LF, ctx);
    const std::string strJson = original->ToJson(false, EOLType_LF, ctx);
    const CBinaryData bytes = original->ToJsonStream(true, XmlEncoding_UTF8, EOLType_CRLF, ctx, CompressionType_None);
    std::string strWithBom =
        "\xEF\xBB\xBF" + std::string(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetLength());
    original->ToJsonFile(Path("plain.json").c_str(), true, XmlEncoding_UTF8, EOLType_LF, ctx, CompressionType_None);
    WriteFile(Path("bom.json"), strWithBom);
    const std::u16string strUtf16 = LocalToUtf16String(strJson.data(), strJson.size());
    const std::wstring strWide = Utf16ToWide(strUtf16.data(), strUtf16.size());

    struct {
        const char* pszForm;
        std::function<void(CXmlObjectBase*)> read;
    } forms[] = {
        {"text", [&](CXmlObjectBase* p) { p->FromJson(strJson.c_str(), ctx); }},
        {"wide text", [&](CXmlObjectBase* p) { p->FromJson(strWide.c_str(), ctx); }},
        {"binary data", [&](CXmlObjectBase* p) { p->FromJsonStream(bytes, ctx); }},
        {"bytes with a byte order mark",
         [&](CXmlObjectBase* p) {
             p->FromJsonStream(reinterpret_cast<unsigned char*>(&strWithBom[0]),
                               static_cast<OxULong>(strWithBom.size()), ctx);
         }},
        {"file", [&](CXmlObjectBase* p) { p->FromJsonFile(Path("plain.json").c_str(), ctx); }},
        {"file with a byte order mark", [&](CXmlObjectBase* p) { p->FromJsonFile(Path("bom.json").c_str(), ctx); }},
    };
    for (const auto& form : forms) {
        SCOPED_TRACE(form.pszForm);
        CSmartPtr<Samples::CInvoiceLine> copy = Samples::CInvoiceLine::CreateInstance();
        EXPECT_EQ(Thrown([&] { form.read(copy->GetBase()); }), "");
        EXPECT_EQ(copy->ToXml(true, true, EOLType_LF, ctx), strXml);
    }
}

TEST_F(FromJson, EmptyMissingAndUnreadableInputIsRefused) {
    WriteFile(Path("empty.json"), "");
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
    const std::string strMissing = Path("missing.json");
    const std::string kHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    struct {
        std::function<void()> call;
        std::string strMessage;
    } rows[] = {
        {[&] { person->FromJson("", ctx); }, "JSON String is empty!"},
        {[&] { person->FromJson(static_cast<const char*>(nullptr), ctx); }, "JSON String is empty!"},
        {[&] { person->FromJson(L"", ctx); }, "JSON String is empty!"},
        {[&] { person->FromJsonStream(nullptr, 0, ctx); }, "JSON Stream is empty!"},
        {[&] { person->FromJsonStream(CBinaryData(), ctx); }, "JSON Stream is empty!"},
        {[&] { person->FromJsonFile(strMissing.c_str(), ctx); },
         "Failed to open the file [" + strMissing + "] Error [0x00000002]"},
        // An empty file is no error of its own: there is no element for the XML parser.
        {[&] { person->FromJsonFile(Path("empty.json").c_str(), ctx); },
         "Error converting JSON to XML:\n" + kHeader + "\nno element found at line 2"},
        {[&] { person->FromJson(" /* nothing */ ", ctx); },
         "Error converting JSON to XML:\n" + kHeader + "\nno element found at line 2"},
        // Two members at the top make two root elements.
        {[&] { person->FromJson("{\"Person\":{\"Name\":\"a\"},\"Person\":{}}", ctx); },
         "Error converting JSON to XML:\n" + kHeader +
             "<Person><Name>a</Name></Person><Person/>\njunk after document "
             "element at line 2"},
        {[&] { person->FromJson("{\"Person\":{\"@b\":1}}", ctx); },
         "Error converting JSON to XML:\n" + kHeader +
             "<Person b=\"1\"/>\nUnexpected Attribute found.\nPath: "
             "/Person/@b"},
        {[&] { person->FromJson("{\"Person\":{\"Name\":[]}}", ctx); }, "JSON Array 'Name' is empty.\nPath: $.Person"},
        {[&] { person->FromJson("{\"Person\":{\"Name\":\"x\"}", ctx); },
         "Unexpected End of File. Expected Object terminator character '}' at line 1, position 22.\nPath: $"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Thrown(row.call), row.strMessage);
    }
    Register(16, 0);
    EXPECT_EQ(Thrown([&] { person->FromJson("{\"Person\":{\"Name\":\"x\"}}", ctx); }),
              "Wrong Version (Orvex Runtime: v16.1, Generator: v16.0)");
    Register(16, 1);
}

// Outside the full mode the names are matched without namespaces for the length of the call:
// a qualified element is found by its local name. Afterwards the context holds its own
// setting again, whether the call succeeded, failed in the library or was left by a foreign
// exception of a property setter.
TEST_F(FromJson, ContextGetsItsNamespaceSettingBack) {
    struct CThrowingRecord : OrvexTest::CTestRecord {
        void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
            if (!bRead && m_bForeign) throw std::runtime_error("foreign");
            CTestRecord::ExchangeProperty(nIndex, bRead, value);
        }
        bool m_bForeign = false;
    };
    const char* const kJson = "{\"Record\":{\"Value\":\"v\"}}";
    for (JsonRoundTrip eMode : {JsonRoundTrip_None, JsonRoundTrip_Simple, JsonRoundTrip_Full}) {
        for (bool bIgnore : {false, true}) {
            for (SchemaType eSchema : {SchemaType_XSD, SchemaType_DTD}) {
                SCOPED_TRACE(std::to_string(eMode) + (bIgnore ? " ignoring" : "") + (eSchema ? " DTD" : ""));
                CSerializationContext ctx;
                ctx.GetJsonContext().SetSupportRoundtrip(eMode);
                ctx.SetIgnoreNamespaces(bIgnore);
                ctx.SetSchemaType(eSchema);
                const bool bBefore = ctx.GetIgnoreNamespaces();
                CSmartPtr<CThrowingRecord> record = new CThrowingRecord;
                EXPECT_EQ(Thrown([&] { record->FromJson(kJson, ctx); }), "");
                EXPECT_EQ(record->m_value.GetString(), "v");
                ctx.SetSchemaType(SchemaType_XSD);
                EXPECT_EQ(ctx.GetIgnoreNamespaces(), bIgnore);
                ctx.SetSchemaType(eSchema);
                record->m_bFailSetter = true;
                EXPECT_NE(Thrown([&] { record->FromJson(kJson, ctx); }), "");
                EXPECT_EQ(ctx.GetIgnoreNamespaces(), bBefore);
                record->m_bForeign = true;
                EXPECT_THROW(record->FromJson(kJson, ctx), std::runtime_error);
                EXPECT_EQ(ctx.GetIgnoreNamespaces(), bBefore);
            }
        }
    }
    // A qualified element and attribute: its namespace is gone in the simple mode, and the
    // element (not the primitive attribute, which always wants its namespace) is found.
    CSerializationContext ctx;
    ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_Simple);
    CSmartPtr<Samples::CRemittance> remittance = Samples::CRemittance::CreateInstance();
    EXPECT_EQ(Thrown([&] { remittance->FromJson("{\"Remittance\":{\"Payer\":\"p\"}}", ctx); }),
              "Error converting JSON to XML:\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<Remittance><Payer>p</Payer></Remittance>\nFailed to process the element.\nPath: /Remittance\nFailed to "
              "find the required Attribute [reference].");
    EXPECT_FALSE(ctx.GetIgnoreNamespaces());
}

// An element behind a collection of open content keeps its name: the array closes before it.
// Inside one collection of open content the items carry no name of their own, only the first
// item names the array; an item named otherwise reads back under the first item's name. The
// XML text of the object read back, against the XML text of the original, shows what is lost.
TEST_F(FromJson, OpenContentItemsReadBackUnderTheNameOfTheFirst) {
    const char* const kEnvelope = "urn:orvex:samples:envelope";
    struct {
        const char* pszCase;
        std::function<void(Samples::CEnvelope&)> fill;
        std::string strJson;
        std::pair<std::string, std::string> lost;  // text of the original and what reads back
    } cases[] = {
        {"element behind the Stamp collection",
         [&](Samples::CEnvelope& e) {
             e.GetStamp().Add("Stamp", kEnvelope)->SetText("1");
             e.GetBody().Add("b", "")->SetText("2");
         },
         "{\"AA:Envelope\": {\"@xmlns:AA\": \"urn:orvex:samples:envelope\",\"AA:Header\": \"h\",\"AA:Stamp\": "
         "[\"1\"],\"b\": [\"2\"]}}",
         {"", ""}},
        {"two names in the Body collection",
         [](Samples::CEnvelope& e) {
             e.GetBody().Add("a", "")->SetText("1");
             e.GetBody().Add("b", "")->SetText("2");
         },
         "{\"AA:Envelope\": {\"@xmlns:AA\": \"urn:orvex:samples:envelope\",\"AA:Header\": \"h\",\"a\": "
         "[\"1\",\"2\"]}}",
         {"<b>2</b>", "<a>2</a>"}},
    };
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszCase);
        CSmartPtr<Samples::CEnvelope> original = Samples::CEnvelope::CreateInstance();
        original->SetHeader("h");
        c.fill(*original);
        const std::string strJson = original->ToJson(false, EOLType_LF, ctx);
        EXPECT_EQ(strJson, c.strJson);
        CSmartPtr<Samples::CEnvelope> back = Samples::CEnvelope::CreateInstance();
        ASSERT_EQ(Thrown([&] { back->FromJson(strJson.c_str(), ctx); }), "");
        std::string strExpected = original->ToXml(false, false, EOLType_LF, ctx);
        if (!c.lost.first.empty()) {
            const size_t nAt = strExpected.find(c.lost.first);
            ASSERT_NE(nAt, std::string::npos);
            strExpected.replace(nAt, c.lost.first.size(), c.lost.second);
        }
        EXPECT_EQ(back->ToXml(false, false, EOLType_LF, ctx), strExpected);
    }
}

std::string Repeat(const std::string& strPart, size_t nCount) {
    std::string str;
    str.reserve(strPart.size() * nCount);
    for (size_t i = 0; i < nCount; ++i) str += strPart;
    return str;
}

// Input built to hurt ends in the parser's error or in a result, in bounded time and stack.
TEST_F(FromJson, HostileInputEndsInAnErrorOrAResult) {
    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
    EXPECT_EQ(Thrown([&] { person->FromJson(("{\"Person\":" + Repeat("[", 1000000)).c_str(), ctx); }),
              "JSON exceeded depth limit at line 1, position 110.\nPath: $");
    EXPECT_EQ(Thrown([&] { person->FromJson(("{\"Person\":{\"Name\":" + Repeat("{\"a\":", 1000000)).c_str(), ctx); }),
              "JSON exceeded depth limit at line 1, position 509.\nPath: $" + Repeat(".a", 98) + ".Name.Person");
    EXPECT_EQ(Thrown([&] {
                  person->FromJson(("{\"Person\":" + Repeat("/**/ // c\n", 1000000) + "{\"Name\":\"c\"}}").c_str(),
                                   ctx);
              }),
              "");
    EXPECT_EQ(person->GetName(), "c");
    const std::string strLong = Repeat("0123456789", 10000000);
    EXPECT_EQ(Thrown([&] { person->FromJson(("{\"Person\":{\"Name\":\"" + strLong + "\"}}").c_str(), ctx); }), "");
    EXPECT_TRUE(person->GetName() == strLong);
    // Bytes that are no UTF-8 reach the XML parser, which refuses them.
    std::string strType;
    EXPECT_EQ(Thrown([&] { person->FromJson("{\"Person\":{\"Name\":\"a\xFF\xC3(\"}}", ctx); }, &strType),
              "Error converting JSON to XML:\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Person><Name>a\xFF\xC3("
              "</Name></Person>\nnot well-formed (invalid token) at line 2");
    EXPECT_EQ(strType, typeid(COxException).name());
    // A lone surrogate becomes the replacement character.
    EXPECT_EQ(Thrown([&] { person->FromJson("{\"Person\":{\"Name\":\"\\ud800\\u0041\"}}", ctx); }), "");
    EXPECT_EQ(person->GetName(),
              "\xEF\xBF\xBD"
              "A");
}

}  // namespace

namespace {

// Threads read JSON at once: two through one shared context in the full mode, which the call
// leaves untouched, two through contexts of their own in the simple mode, which the call
// changes for its length; every object writes the single-threaded XML.
TEST(FromJsonThreads, OwnContextsAndASharedFullModeContextReadAtOnce) {
    CSerializationContext shared;
    CSerializationContext simple;
    simple.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_Simple);
    CSmartPtr<Samples::CInvoiceLine> line = Samples::CInvoiceLine::CreateInstance();
    line->FromXml(
        "<InvoiceLine id=\"3\" status=\"shipped\"><Description>d</Description><Quantity>2</Quantity>"
        "</InvoiceLine>",
        shared);
    const std::string strXml = line->ToXml(true, false, EOLType_LF, shared);
    const std::string astrJson[2] = {line->ToJson(false, EOLType_LF, shared), line->ToJson(false, EOLType_LF, simple)};
    int anMismatches[4] = {0, 0, 0, 0};
    std::vector<std::thread> vecThreads;
    for (int t = 0; t < 4; ++t) {
        vecThreads.emplace_back([&, t] {
            CSerializationContext own(simple);
            const CSerializationContext& ctx = t % 2 ? own : shared;
            for (int nRound = 0; nRound < 200; ++nRound) {
                CSmartPtr<Samples::CInvoiceLine> copy = Samples::CInvoiceLine::CreateInstance();
                try {
                    copy->FromJson(astrJson[t % 2].c_str(), ctx);
                    if (copy->ToXml(true, false, EOLType_LF, ctx) != strXml) ++anMismatches[t];
                } catch (const COxException&) {
                    ++anMismatches[t];
                }
            }
        });
    }
    for (std::thread& thread : vecThreads) thread.join();
    EXPECT_EQ(std::vector<int>(anMismatches, anMismatches + 4), std::vector<int>(4, 0));
    EXPECT_FALSE(shared.GetIgnoreNamespaces());
}

}  // namespace
