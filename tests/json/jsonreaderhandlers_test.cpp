#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/infrastructure/debugtrace.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/json/jsonreaderdefaulthandler.h"
#include "orvexxml/json/jsontextreader.h"

using namespace OrvexXml;

namespace {

const char kHeader[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

struct CConverted {
    std::string strXml;      // the document behind its declaration, when converted
    std::string strType;     // the exception's class, when refused
    std::string strMessage;  // its full message
    std::string strPath;
};

CConverted Convert(const std::string& strJson, JsonRoundTrip eMode = JsonRoundTrip_Full,
                   const char* pszRoot = nullptr) {
    CSerializationContext ctx;
    ctx.GetJsonContext().SetSupportRoundtrip(eMode);
    ctx.GetJsonContext().SetRootElementName(pszRoot);
    CConverted result;
    try {
        CBinaryData data = CJsonTextReader::ConvertToXml(strJson, ctx);
        std::string strXml(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
        EXPECT_EQ(strXml.compare(0, sizeof(kHeader) - 1, kHeader), 0) << strXml;
        result.strXml = strXml.substr(std::min(strXml.size(), sizeof(kHeader) - 1));
    } catch (const COxException& e) {
        result.strType = typeid(e).name();
        result.strMessage = e.GetFullMessage();
        result.strPath = e.GetPath();
    }
    return result;
}

// The forms the JSON writer gives each XML shape, and the other forms the grammar allows
// where the way back is defined, each to its XML text.
TEST(JsonReaderToXmlHandler, ConvertsEachFormToItsXml) {
    struct {
        const char* pszJson;
        JsonRoundTrip eMode;
        const char* pszRoot;
        const char* pszXml;
    } rows[] = {
        {"{\"a\":\"x\"}", JsonRoundTrip_Full, nullptr, "<a>x</a>"},
        {"{\"a\":5}", JsonRoundTrip_Full, nullptr, "<a>5</a>"},
        {"{\"a\":-1.50E+3}", JsonRoundTrip_Full, nullptr, "<a>-1.50E+3</a>"},
        {"{\"a\":true}", JsonRoundTrip_Full, nullptr, "<a>true</a>"},
        {"{\"a\":false}", JsonRoundTrip_Simple, nullptr, "<a>false</a>"},
        {"{\"a\":null}", JsonRoundTrip_Full, nullptr, "<a/>"},
        {"{\"a\":\"\"}", JsonRoundTrip_Full, nullptr, "<a/>"},
        {"{\"a\":{}}", JsonRoundTrip_Full, nullptr, "<a/>"},
        {"{\"a\":{\"@b\":1}}", JsonRoundTrip_Full, nullptr, "<a b=\"1\"/>"},
        {"{\"a\":{\"@b\":1,\"#text\":\"x\"}}", JsonRoundTrip_Full, nullptr, "<a b=\"1\">x</a>"},
        {"{\"a\":{\"@b\":null,\"c\":1}}", JsonRoundTrip_Simple, nullptr, "<a><c>1</c></a>"},
        {"{\"a\":{\"#text\":null}}", JsonRoundTrip_Full, nullptr, "<a/>"},
        {"{\"r\":{\"x\":[{\"y\":1},{\"y\":2}],\"z\":3}}", JsonRoundTrip_Full, nullptr,
         "<r><x><y>1</y></x><x><y>2</y></x><z>3</z></r>"},
        {"{\"r\":{\"x\":[1,\"b\",true]}}", JsonRoundTrip_Full, nullptr, "<r><x>1</x><x>b</x><x>true</x></r>"},
        {"{\"r\":{\"x\":[null]}}", JsonRoundTrip_Full, nullptr, "<r><x/></r>"},
        {"{\"r\":{\"x\":[null,{\"@k\":1},2]}}", JsonRoundTrip_Full, nullptr, "<r><x/><x k=\"1\"/><x>2</x></r>"},
        {"{\"r\":{\"x\":[[1,2]]}}", JsonRoundTrip_Full, nullptr, "<r><x>1</x><x>2</x></r>"},
        {"{\"r\":{\"x\":[{\"#text\":1},{\"@k\":2,\"#text\":3}]}}", JsonRoundTrip_Full, nullptr,
         "<r><x>1</x><x k=\"2\">3</x></r>"},
        {"{\"x\":1}", JsonRoundTrip_Full, "r", "<r><x>1</x></r>"},
        {"5", JsonRoundTrip_Full, "r", "<r>5</r>"},
        {"{\"@id\":5,\"#text\":\"t\"}", JsonRoundTrip_Full, "r", "<r id=\"5\">t</r>"},
        {"{\"a\":\"<![CDATA[x<y]]>\"}", JsonRoundTrip_Full, nullptr, "<a><![CDATA[x<y]]></a>"},
        {"{\"a\":{\"@b\":\"\\\"<&\\t\",\"#text\":\"<&>\\n\"}}", JsonRoundTrip_Full, nullptr,
         "<a b=\"&quot;&lt;&amp;\t\">&lt;&amp;&gt;\n</a>"},
        {"{\"a\":\"caf\xC3\xA9 \\u20AC\"}", JsonRoundTrip_Full, nullptr, "<a>caf\xC3\xA9 \xE2\x82\xAC</a>"},
        // The worked example of the writer, formatted, with a comment.
        {"{\n\t\"Order\": {\n\t\t\"@xmlns\": \"urn:a\",\n\t\t\"@id\": 7,\n\t\t\"Item\": [\n\t\t\t{\n\t\t\t\t\"@sku\": "
         "\"x\",\n\t\t\t\t\"#text\": 5\n\t\t\t},\n\t\t\t{\n\t\t\t\t\"@sku\": \"y\",\n\t\t\t\t\"#text\": "
         "6\n\t\t\t}\n\t\t]"
         ",\n\t\t/* note */ \"Note\": \"hi\"\n\t}\n}",
         JsonRoundTrip_Full, nullptr,
         "<Order xmlns=\"urn:a\" id=\"7\"><Item sku=\"x\">5</Item><Item sku=\"y\">6</Item><Note>hi</Note></Order>"},
        // Prefixes and declarations pass as the literal names they are.
        {"{\"p:r\":{\"@xmlns:p\":\"urn:p\",\"@p:type\":\"p:T\",\"p:a\":1}}", JsonRoundTrip_Full, nullptr,
         "<p:r xmlns:p=\"urn:p\" p:type=\"p:T\"><p:a>1</p:a></p:r>"},
        // Without round-trip marks "@" and "#" are ordinary names; the XML parser judges them.
        {"{\"a\":{\"@b\":1,\"#text\":2}}", JsonRoundTrip_None, nullptr, "<a><@b>1</@b><#text>2</#text></a>"},
        // Two members at the top make two roots, which the XML parser refuses.
        {"{\"a\":1,\"b\":2}", JsonRoundTrip_Full, nullptr, "<a>1</a><b>2</b>"},
        {"{\"a\":1}", JsonRoundTrip_Full, "", "<a>1</a>"},
        {"", JsonRoundTrip_Full, nullptr, ""},
        {"null", JsonRoundTrip_Full, nullptr, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszJson);
        CConverted converted = Convert(row.pszJson, row.eMode, row.pszRoot);
        EXPECT_EQ(converted.strMessage, "");
        EXPECT_EQ(converted.strXml, row.pszXml);
    }
}

// What can't become XML is refused with the class, message and JSON path below; the path
// reads from the innermost name out.
TEST(JsonReaderToXmlHandler, RefusesWhatHasNoXmlForm) {
    const std::string kValidation = typeid(COxValidationException).name();
    const std::string kState = typeid(COxInvalidStateException).name();
    const std::string kNoElement = "JSON value has no element to hold it.";
    const std::string kNoName = "JSON Array has no Name.";
    struct {
        const char* pszJson;
        JsonRoundTrip eMode;
        std::string strType;
        std::string strMessage;  // the full message, without the line of the path
        std::string strPath;
    } rows[] = {
        {"{\"\":1}", JsonRoundTrip_Full, kValidation, "JSON item has an empty Name.", "$."},
        {"{\"a\":{\"b\":{\"\":1}}}", JsonRoundTrip_Simple, kValidation, "JSON item has an empty Name.", "$..b.a"},
        // Text beside children has the empty name under JsonRoundTrip_None.
        {"{\"a\":{\"b\":1,\"\":2}}", JsonRoundTrip_None, kValidation, "JSON item has an empty Name.", "$..a"},
        {"[1]", JsonRoundTrip_Full, kValidation, kNoName, "$"},
        {"{\"r\":{\"x\":[[1],[2]]}}", JsonRoundTrip_Full, kValidation, kNoName, "$.r"},
        {"{\"r\":[{\"a\":1},{\"x\":[{\"b\":[1]},[2]]}]}", JsonRoundTrip_Full, kValidation, kNoName, "$.r[1]"},
        {"{\"r\":{\"#text\":[1]}}", JsonRoundTrip_Full, kValidation, "JSON item '#text' holds an Array.", "$.r"},
        {"5", JsonRoundTrip_Full, kValidation, kNoElement, "$"},
        {"{\"@b\":1}", JsonRoundTrip_Full, kValidation, kNoElement, "$.@b"},
        {"{\"#text\":\"x\"}", JsonRoundTrip_Simple, kValidation, kNoElement, "$.#text"},
        {"{\"a\":{\"#text\":1,\"b\":2}}", JsonRoundTrip_Full, kValidation,
         "JSON item 'b' follows \"#text\", which must be the last member of its object.", "$.b.a"},
        {"{\"a\":{\"#text\":{}}}", JsonRoundTrip_Full, kValidation, "JSON item '#text' holds an Object.", "$.#text.a"},
        {"{\"r\":{\"x\":[]}}", JsonRoundTrip_Full, kValidation, "JSON Array 'x' is empty.", "$.r"},
        {"{\"r\":{\"x\":[[]]}}", JsonRoundTrip_Full, kValidation, "JSON Array 'x' is empty.", "$.r"},
        {"{\"a\":{\"@b\":[1]}}", JsonRoundTrip_Full, kValidation, "JSON attribute 'b' holds an Array.", "$.a"},
        {"{\"a\":{\"c\":1,\"@b\":2}}", JsonRoundTrip_Full, kState,
         "Failed to convert value '2' to Attribute string value in XML.\nAttributes must be added before elements", ""},
        {"{\"a b\":1}", JsonRoundTrip_Full, kState,
         "Failed to convert name 'a b' to Element name in XML.\nThe name holds the byte 0x20, which can't stand in "
         "an XML name.",
         ""},
        {"{\"r\":{\"a><b\":1}}", JsonRoundTrip_Full, kState,
         "Failed to convert name 'a><b' to Element name in XML.\nThe name holds the byte 0x3E, which can't stand in "
         "an XML name.",
         ""},
        {"{\"a\":{\"@b=\\\"1\\\" c\":1}}", JsonRoundTrip_Full, kState,
         "Failed to convert value '1' to Attribute string value in XML.\nThe name holds the byte 0x3D, which can't "
         "stand in an XML name.",
         ""},
        // A null byte is kept by the parser and refused here, not cut off with what follows.
        {"{\"a\":{\"b\":\"x\\u0000y\"}}", JsonRoundTrip_Full, kState,
         "Failed to convert value 'x' to Element string value in XML.\nThe value holds the byte 0x00 at offset 1, "
         "which XML 1.0 can't carry; remove it, or store the data as binary (base64) instead of text.\nPath: /a/b",
         ""},
        {"{\"a\":{\"@b\":\"\\u0001\"}}", JsonRoundTrip_Full, kState,
         "Failed to convert value '\x01' to Attribute string value in XML.\nThe value holds the byte 0x01 at offset "
         "0, which XML 1.0 can't carry; remove it, or store the data as binary (base64) instead of text.\nPath: /a/@b",
         ""},
        // Syntax errors of the parser carry the same path.
        {"{\"a\":[{\"b\":1},{\"b\":x}]}", JsonRoundTrip_Full, kValidation,
         "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 1, position 20.",
         "$.b.a[1]"},
        {"{\"a\":[1,\"s\",{\"c\":{\"d\":[true,{\"e\":nul}]}}]}", JsonRoundTrip_Full, kValidation,
         "Expected 'NULL' at line 1, position 37.", "$.e.d[0].c.a[0]"},
        {"{\"a\":{\"b\":1},\"c\":[{}],\"d\" 1}", JsonRoundTrip_Full, kValidation,
         "Expected Object Name/Value separator character ':', found '1' at line 1, position 27.", "$.d"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszJson);
        CConverted converted = Convert(row.pszJson, row.eMode);
        EXPECT_EQ(converted.strType, row.strType);
        const std::string strPathLine = row.strPath.empty() ? "" : "\nPath: " + row.strPath;
        // The path line stands behind the outermost message.
        std::string strExpected = row.strMessage;
        strExpected.insert(std::min(strExpected.find('\n'), strExpected.size()), strPathLine);
        EXPECT_EQ(converted.strMessage, strExpected);
        EXPECT_EQ(converted.strPath, row.strPath);
    }
}

struct CTraceSink {
    static void Put(const char* pszText, void* pUser) { static_cast<std::string*>(pUser)->append(pszText); }
};

// Each event leaves one line on the debug channel, in document order; a value longer than
// the trace buffer cuts only its line (a debug build checks that every line fits).
TEST(JsonReaderDefaultHandler, TracesEachEvent) {
    std::string strTrace;
    SetDebugOutputSink(&CTraceSink::Put, &strTrace);
    const std::string strLong(40000, 'v');
    CConverted converted =
        Convert("{\"a\":[1,true,null,{\"b\":false}],\"c\":\"" + strLong + "\"}", JsonRoundTrip_Full, "r");
    SetDebugOutputSink(nullptr, nullptr);
    EXPECT_EQ(converted.strXml, "<r><a>1</a><a>true</a><a/><a><b>false</b></a><c>" + strLong + "</c></r>");
    const std::string strCut = "String: " + std::string(32000, 'v') + "\n";
    EXPECT_EQ(strTrace,
              "StartDocument\nStartObject\nName: r\nStartObject\nName: a\nStartArray\nNumber: 1\nBool: true\nNull\n"
              "StartObject\nName: b\nBool: false\nEndObject\nEndArray\nName: c\n" +
                  strCut + "EndObject\nEndObject\nEndDocument\n");
}

// A handler behind the default one sees the events unchanged, and the chain is freed with the
// reader; replacing the handler frees the old one.
TEST(JsonReaderDefaultHandler, ForwardsToTheHandlerBehindIt) {
    struct CCounter : IJsonReaderHandler {
        explicit CCounter(int& nEvents) : m_nEvents(nEvents) {}
        void StartDocument() override { ++m_nEvents; }
        void EndDocument() override { ++m_nEvents; }
        void Name(const std::string&) override { ++m_nEvents; }
        void String(const std::string&) override { ++m_nEvents; }
        void Number(const std::string&) override { ++m_nEvents; }
        void StartObject() override { ++m_nEvents; }
        void EndObject() override { ++m_nEvents; }
        void StartArray() override { ++m_nEvents; }
        void EndArray() override { ++m_nEvents; }
        void Bool(bool) override { ++m_nEvents; }
        void Null() override { ++m_nEvents; }
        int& m_nEvents;
    };
    int nFirst = 0;
    int nSecond = 0;
    const std::string strText = "{\"a\":[1,\"x\",null,false],\"b\":{}}";
    CJsonTextReader reader(strText);
    reader.SetHandler(new CCounter(nFirst));
    reader.SetHandler(new CCounter(nSecond));
    reader.Parse();
    EXPECT_EQ(nFirst, 0);
    EXPECT_EQ(nSecond, 14);
    EXPECT_EQ(reader.GetErrorPathProvider()->GetErrorPath(), "$");
}

}  // namespace
