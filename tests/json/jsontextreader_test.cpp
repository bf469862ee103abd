#include "orvexxml/json/jsontextreader.h"

#include <gtest/gtest.h>

#include <string>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textencoder.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/jsontextwriter.h"

using namespace OrvexXml;

namespace {

// Writes each event as a short token into a string that outlives the reader, which owns the
// handler: "<" and ">" for the document, braces and brackets, "name:", "s:", "#" for numbers.
class CRecorder : public IJsonReaderHandler, public IErrorPathProvider {
public:
    explicit CRecorder(std::string& strTrace) : m_strTrace(strTrace) {}
    void StartDocument() override { Put("<"); }
    void EndDocument() override { Put(">"); }
    void Name(const std::string& strName) override { Put("name:" + strName); }
    void String(const std::string& strValue) override { Put("s:" + strValue); }
    void Number(const std::string& strValue) override { Put("#" + strValue); }
    void StartObject() override { Put("{"); }
    void EndObject() override { Put("}"); }
    void StartArray() override { Put("["); }
    void EndArray() override { Put("]"); }
    void Bool(bool bValue) override { Put(bValue ? "true" : "false"); }
    void Null() override { Put("null"); }
    std::string GetErrorPath() override { return m_strPath; }
    std::string m_strPath;

private:
    void Put(const std::string& strToken) { m_strTrace += m_strTrace.empty() ? strToken : " " + strToken; }
    std::string& m_strTrace;
};

struct CParsed {
    std::string strTrace;
    std::string strError;  // the message of a COxValidationException, empty when none
};

CParsed ParseText(const std::string& strText, bool bComments = true, const char* pszRoot = nullptr) {
    CParsed result;
    CJsonTextReader reader(strText);
    reader.SetHandler(new CRecorder(result.strTrace));
    CJsonContext context;
    context.GetAllowComments(bComments);
    context.SetRootElementName(pszRoot);
    reader.ApplyContext(context);
    try {
        reader.Parse();
    } catch (const COxValidationException& e) {
        // The path is the default handler's business, tested with it.
        result.strError = e.GetMessage().substr(0, e.GetMessage().find("\nPath: "));
    }
    return result;
}

std::string Repeat(const std::string& strPart, size_t nCount) {
    std::string str;
    str.reserve(strPart.size() * nCount);
    for (size_t i = 0; i < nCount; ++i) str += strPart;
    return str;
}

TEST(JsonTextReader, ReportsTheEventsOfValidText) {
    struct {
        const char* pszText;
        bool bComments;
        const char* pszTrace;
    } rows[] = {
        {"", true, "< >"},
        {" \t\r\n ", true, "< >"},
        {"{\"a\":[1,-0.5e+3,1.50E-3,true,false,null,\"x\"],\"b\":{}, \"a\" : []}", true,
         "< { name:a [ #1 #-0.5e+3 #1.50E-3 true false null s:x ] name:b { } name:a [ ] } >"},
        {"{\"a\":1} trailing", true, "< { name:a #1 } >"},
        {"[0 ,\"\" ]", true, "< [ #0 s: ] >"},
        {"\"a\nb\"", true, "< s:ab >"},
        {"\"a\tb\rc\"", true, "< s:a\tb\rc >"},
        {"[12\n34]", true, "< [ #1234 ] >"},
        {"\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0001\\u001F\\u0041\"", true,
         "< s:\"\\/\b\f\n\r\t\x01\x1F"
         "A >"},
        {"// c\n/* a */[/**/1 /*b*///c\n,2 /* \n */]// end", true, "< [ #1 #2 ] >"},
        {"/*/ */ 1", true, "< #1 >"},
        {"{\"a\"/**/:/**/1/**/}", false, "< { name:a"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszText);
        CParsed parsed = ParseText(row.pszText, row.bComments);
        EXPECT_EQ(parsed.strTrace, row.pszTrace);
        EXPECT_EQ(parsed.strError.empty(), row.bComments);
    }
}

TEST(JsonTextReader, RootElementNameWrapsTheDocumentValue) {
    EXPECT_EQ(ParseText("[1]", true, "r").strTrace, "< { name:r [ #1 ] } >");
    EXPECT_EQ(ParseText("  ", true, "r").strTrace, "< { name:r } >");
}

TEST(JsonTextReader, SyntaxErrorsNameTheByteLineAndPosition) {
    const std::string kValue = "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found ";
    struct {
        const char* pszText;
        bool bComments;
        std::string strMessage;
    } rows[] = {
        {"\n  x", true, kValue + "'x' at line 2, position 3."},
        {"[1,]", true, kValue + "']' at line 1, position 4."},
        {"+1", true, kValue + "'+' at line 1, position 1."},
        {".5", true, kValue + "'.' at line 1, position 1."},
        {"NULL", true, kValue + "'N' at line 1, position 1."},
        {"/", true, kValue + "'/' at line 1, position 1."},
        {"[1, / 2]", true, kValue + "'/' at line 1, position 5."},
        {"/* c */ 1", false, kValue + "'/' at line 1, position 1."},
        {"[1,\n/* a\nb */ x]", true, kValue + "'x' at line 3, position 6."},
        {"[1, // c\n x]", true, kValue + "'x' at line 2, position 2."},
        {"[", true, "Unexpected End of File. Expected Array terminator character ']' at line 1, position 1."},
        {"[1", true, "Unexpected End of File. Expected Array terminator character ']' at line 1, position 2."},
        {"[1, /* x", true, "Unexpected End of File. Expected Array terminator character ']' at line 1, position 7."},
        {"[1, // x", true, "Unexpected End of File. Expected Array terminator character ']' at line 1, position 5."},
        {"[1 x", true, "Expected Array separator character ',', found 'x' at line 1, position 4."},
        {"[1/*c*/]", true, "Expected Array separator character ',', found '/' at line 1, position 3."},
        {"{", true, "Unexpected End of File. Expected Object terminator character '}}' at line 1, position 1."},
        {"{1", true, "Expected quotation mark character '\"' before Name, found '1' at line 1, position 2."},
        {"{\"a\":1,}", true, "Expected quotation mark character '\"' before Name, found '}' at line 1, position 8."},
        {"{\"a\"", true,
         "Unexpected End of File. Expected Object Name/Value separator character ':' at line 1, position 4."},
        {"{\"a\" 1", true, "Expected Object Name/Value separator character ':', found '1' at line 1, position 6."},
        {"{\"a\":", true, "Unexpected End of File. Expected Object Value at line 1, position 5."},
        {"{\"a\":1", true, "Unexpected End of File. Expected Object terminator character '}' at line 1, position 6."},
        {"{\"a\":1,", true, "Unexpected End of File. Expected Object terminator character '}' at line 1, position 7."},
        {"{\"a\":1 2", true, "Expected Object separator character ',', found '2' at line 1, position 8."},
        {"{\"a\":01}", true, "Expected Object separator character ',', found '1' at line 1, position 7."},
        {"\"abc", true, "Unexpected End of File. Expected string value at line 1, position 4."},
        {"\"\\", true, "Unexpected End of File. Expected string value at line 1, position 2."},
        {"\"\\u12", true, "Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx' at line 1, position 5."},
        {"\"\\x\"", true, "Invalid Escape Character 'x' at line 1, position 3."},
        {"\"\\u12g4\"", true, "Invalid Escape Character 'g' at line 1, position 6."},
        {"-", true, "Unexpected End of File. Expected a number at line 1, position 1."},
        {"1e+", true, "Unexpected End of File. Expected a number at line 1, position 3."},
        {"-x", true, "Expected a digit '0' to '9', found 'x' at line 1, position 2."},
        {"1.x", true, "Expected a digit '0' to '9', found 'x' at line 1, position 3."},
        {"1e+x", true, "Expected a digit '0' to '9', found 'x' at line 1, position 4."},
        {"1.", true, "Unexpected End of File. Expected a digit '0' to '9' at line 1, position 2."},
        {"1e", true, "Unexpected End of File. Expected '+', '-' or a number at line 1, position 2."},
        {"nul", true, "Unexpected End of File. Expected value 'NULL' at line 1, position 3."},
        {"nulx", true, "Expected 'NULL' at line 1, position 4."},
        {"tru", true, "Unexpected End of File. Expected value 'true' at line 1, position 3."},
        {"True", true, kValue + "'T' at line 1, position 1."},
        {"trux", true, "Expected 'true' at line 1, position 4."},
        {"fals", true, "Unexpected End of File. Expected value 'false' at line 1, position 4."},
        {"falsx", true, "Expected 'false' at line 1, position 5."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszText);
        EXPECT_EQ(ParseText(row.pszText, row.bComments).strError, row.strMessage);
    }
}

TEST(JsonTextReader, FailureCarriesThePathOfTheDefaultHandlerAfterTheEventsSoFar) {
    std::string strTrace;
    std::string strText = "{\"a\" 1}";
    CJsonTextReader reader(strText);
    CRecorder* pRecorder = new CRecorder(strTrace);
    pRecorder->m_strPath = "/not-asked";
    reader.SetHandler(pRecorder);
    try {
        reader.Parse();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const COxException& e) {
        EXPECT_EQ(typeid(e), typeid(COxValidationException));
        EXPECT_EQ(e.GetMessage(),
                  "Expected Object Name/Value separator character ':', found '1' at line 1, position 6.\nPath: $.a");
        EXPECT_EQ(e.GetPath(), "$.a");
    }
    // The name went out before its separator was looked at.
    EXPECT_EQ(strTrace, "< { name:a");
}

// A handler that refuses a value stops the parse with its own exception, and nothing leaks.
TEST(JsonTextReader, ExceptionOfAHandlerLeavesParse) {
    struct CRefuser : CRecorder {
        using CRecorder::CRecorder;
        void Number(const std::string& strValue) override { throw COxInvalidValueException("refused " + strValue); }
    };
    std::string strTrace;
    std::string strText = "[\"a\",{\"n\":[7]}]";
    CJsonTextReader reader(strText);
    reader.SetHandler(new CRefuser(strTrace));
    try {
        reader.Parse();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const COxInvalidValueException& e) {
        EXPECT_EQ(e.GetMessage(), "refused 7");
    }
    EXPECT_EQ(strTrace, "< [ s:a { name:n [");
}

TEST(JsonTextReader, NestingStopsAtTheHundredthLevel) {
    const std::string kDepth = "JSON exceeded depth limit at line 1, position 101.";
    EXPECT_EQ(ParseText(Repeat("[", 100) + Repeat("]", 100)).strError, "");
    EXPECT_EQ(ParseText(Repeat("[", 101) + Repeat("]", 101)).strError, kDepth);
    EXPECT_EQ(ParseText(Repeat("[", 100) + "1" + Repeat("]", 100)).strError, kDepth);
    EXPECT_EQ(ParseText(Repeat("{\"a\":", 100) + "{}" + Repeat("}", 100)).strError,
              "JSON exceeded depth limit at line 1, position 501.");
    // Far deeper input is refused at the same level, before the stack could suffer.
    EXPECT_EQ(ParseText(Repeat("[", 1000000)).strError, kDepth);
}

TEST(JsonTextReader, LongRunsOfCommentsAndLongStrings) {
    EXPECT_EQ(ParseText(Repeat("/**/", 1000000) + "1").strTrace, "< #1 >");
    EXPECT_EQ(ParseText("[1," + Repeat("// c\n", 1000000) + "x]").strError,
              "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 1000001, "
              "position 1.");
    std::string strLong = Repeat("abc\xE9", 3000000);
    EXPECT_EQ(ParseText("\"" + strLong + "\"").strTrace, "< s:" + strLong + " >");
}

class JsonTextReaderEncoding : public ::testing::Test {
protected:
    void TearDown() override { SetLocalCharEncoding(ORVEXXML_CP_UTF8); }
};

// Raw bytes, valid UTF-8 or not, pass unchanged; escapes of characters from 0x80 up become
// the local text of the character, a surrogate pair one character, a lone surrogate the
// replacement that the code page gives it.
TEST_F(JsonTextReaderEncoding, BytesPassAndUnicodeEscapesBecomeLocalText) {
    struct {
        unsigned int nCodePage;
        const char* pszText;
        const char* pszValue;
    } rows[] = {
        {ORVEXXML_CP_UTF8, "\"\xFF\xC3(\x80\"", "\xFF\xC3(\x80"},
        {1252, "\"\xFF\xC3(\x80\"", "\xFF\xC3(\x80"},
        {ORVEXXML_CP_UTF8, "\"caf\\u00e9 \\u20AC\"", "caf\xC3\xA9 \xE2\x82\xAC"},
        {1252, "\"caf\\u00e9 \\u20AC\"", "caf\xE9 \x80"},
        {ORVEXXML_CP_UTF8, "\"\\ud83d\\ude00!\"", "\xF0\x9F\x98\x80!"},
        {1252, "\"\\ud83d\\ude00!\"", "?!"},
        {ORVEXXML_CP_UTF8, "\"\\ud800x\"", "\xEF\xBF\xBDx"},
        {ORVEXXML_CP_UTF8, "\"\\udc00\\ud800\\u0041\"",
         "\xEF\xBF\xBD\xEF\xBF\xBD"
         "A"},
        {ORVEXXML_CP_UTF8, "\"\\ud800\\u00e9\"", "\xEF\xBF\xBD\xC3\xA9"},
        {1252, "\"\\ud800\\\"\"", "?\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszText);
        SetLocalCharEncoding(row.nCodePage);
        EXPECT_EQ(ParseText(row.pszText).strTrace, std::string("< s:") + row.pszValue + " >");
    }
}

// Whatever the JSON writer puts into a string value comes back byte for byte (it drops a
// stray CR, so that byte is not offered).
TEST(JsonTextReader, ReadsBackEveryByteTheWriterEscapes) {
    std::string strValue;
    for (int c = 1; c < 256; ++c) {
        if (c != '\r') strValue += static_cast<char>(c);
    }
    CTextStream stream;
    CJsonTextWriter writer(&stream);
    writer.StartDocument();
    writer.WriteHeader();
    writer.WriteStartElement("v", "");
    writer.WriteElementText(strValue, ItemType_string, false);
    writer.WriteEndElement();
    writer.WriteFooter();
    writer.EndDocument();
    EXPECT_EQ(ParseText(stream.TakeText()).strTrace, "< { name:v s:" + strValue + " } >");
}

}  // namespace
