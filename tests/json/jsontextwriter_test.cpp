#include "orvexxml/writers/jsontextwriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/textstream.h"

using namespace OrvexXml;

namespace {

const std::string kXsi = "http://www.w3.org/2001/XMLSchema-instance";

// Short forms of the calls the binding engine makes.
struct CEvents {
    CJsonTextWriter& w;
    void Open(const std::string& strName, const std::string& strNamespace = "") {
        w.WriteStartElement(strName, strNamespace);
    }
    void Close() { w.WriteEndElement(); }
    void Attr(const std::string& strName, const std::string& strValue, ItemType eType = ItemType_string,
              const std::string& strNamespace = "") {
        w.WriteAttribute(strName, strNamespace, strValue, eType);
    }
    void Text(const std::string& strValue, ItemType eType = ItemType_string) {
        w.WriteElementText(strValue, eType, false);
    }
    void Leaf(const std::string& strName, const std::string& strValue, ItemType eType = ItemType_string,
              const std::string& strNamespace = "") {
        Open(strName, strNamespace);
        Text(strValue, eType);
        Close();
    }
    // A collection as ElementToXmlCol writes it: the state around the items.
    void Collection(const std::function<void()>& items) {
        w.SetCollectionState(1);
        items();
        w.SetCollectionState(3);
    }
};

// Runs the events through a writer in the given mode, as ToJson drives it, and returns the text.
std::string Write(JsonRoundTrip eMode, bool bFormatted, const std::function<void(CEvents&)>& events) {
    CTextStream stream;
    CJsonTextWriter writer(&stream);
    writer.StartDocument();
    writer.SetFormatted(bFormatted);
    writer.SetSupportRoundtrip(eMode);
    writer.WriteHeader();
    CEvents e{writer};
    events(e);
    writer.WriteFooter();
    writer.EndDocument();
    return stream.TakeText();
}

template <class Fn>
std::string MessageOf(Fn fn) {
    try {
        fn();
    } catch (const COxException& e) {
        return e.GetMessage();
    }
    ADD_FAILURE() << "no COxException thrown";
    return std::string();
}

}  // namespace

// The order with two items and a note, formatted with tabs and LF, under the full mode.
TEST(JsonTextWriter, WorkedExampleFormattedAndCompact) {
    auto order = [](CEvents& e) {
        e.w.SetDefaultNamespace("urn:a");
        e.Open("Order", "urn:a");
        e.Attr("id", "7", ItemType_i4);
        e.Collection([&] {
            for (const char* psz : {"x", "y"}) {
                e.Open("Item", "urn:a");
                e.Attr("sku", psz);
                e.Text(psz[0] == 'x' ? "5" : "6", ItemType_integer);
                e.Close();
            }
        });
        e.Leaf("Note", "hi", ItemType_string, "urn:a");
        e.Close();
    };
    EXPECT_EQ(
        "{\n"
        "\t\"Order\": {\n"
        "\t\t\"@xmlns\": \"urn:a\",\n"
        "\t\t\"@id\": 7,\n"
        "\t\t\"Item\": [\n"
        "\t\t\t{\n"
        "\t\t\t\t\"@sku\": \"x\",\n"
        "\t\t\t\t\"#text\": 5\n"
        "\t\t\t},\n"
        "\t\t\t{\n"
        "\t\t\t\t\"@sku\": \"y\",\n"
        "\t\t\t\t\"#text\": 6\n"
        "\t\t\t}\n"
        "\t\t],\n"
        "\t\t\"Note\": \"hi\"\n"
        "\t}\n"
        "}",
        Write(JsonRoundTrip_Full, true, order));
    EXPECT_EQ(
        "{\"Order\": {\"@xmlns\": \"urn:a\",\"@id\": 7,\"Item\": [{\"@sku\": \"x\",\"#text\": 5},{\"@sku\": "
        "\"y\",\"#text\": 6}],\"Note\": \"hi\"}}",
        Write(JsonRoundTrip_Full, false, order));
}

// Primitive items are scalars of the array, one level below the name; nested arrays, a nil
// first item and CRLF with another indent keep their levels.
TEST(JsonTextWriter, FormattedArraysOfScalarsAndNestedArrays) {
    auto doc = [](CEvents& e) {
        e.Open("a");
        e.Collection([&] {
            e.Leaf("Tag", "a");
            e.Leaf("Tag", "b");
        });
        e.Collection([&] {
            e.Open("Row");
            e.Collection([&] {
                e.Open("Cell");
                e.Close();
                e.Leaf("Cell", "1", ItemType_i4);
            });
            e.Close();
        });
        e.Close();
    };
    EXPECT_EQ(
        "{\n"
        "\t\"a\": {\n"
        "\t\t\"Tag\": [\n"
        "\t\t\t\"a\",\n"
        "\t\t\t\"b\"\n"
        "\t\t],\n"
        "\t\t\"Row\": [\n"
        "\t\t\t{\n"
        "\t\t\t\t\"Cell\": [\n"
        "\t\t\t\t\tnull,\n"
        "\t\t\t\t\t1\n"
        "\t\t\t\t]\n"
        "\t\t\t}\n"
        "\t\t]\n"
        "\t}\n"
        "}",
        Write(JsonRoundTrip_Full, true, doc));

    CTextStream stream;
    CJsonTextWriter writer(&stream);
    writer.StartDocument();
    writer.SetEOLType(EOLType_CRLF);
    writer.SetIndentChars("  ");
    writer.WriteHeader();
    CEvents e{writer};
    e.Open("a");
    e.Collection([&] { e.Leaf("t", "1", ItemType_ui1); });
    e.Close();
    writer.WriteFooter();
    writer.EndDocument();
    EXPECT_EQ("{\r\n  \"a\": {\r\n    \"t\": [\r\n      1\r\n    ]\r\n  }\r\n}", stream.TakeText());
}

// Each case in the three modes, compact. The binding engine's sequences of calls for the
// shapes that decide where "{", "[", "]" and "," go.
TEST(JsonTextWriter, ShapesInEachMode) {
    struct Case {
        const char* pszName;
        std::function<void(CEvents&)> events;
        std::string strNone;
        std::string strSimple;
        std::string strFull;  // empty: as Simple
    };
    const std::vector<Case> cases = {
        {"text only", [](CEvents& e) { e.Leaf("a", "x"); }, "{\"a\": \"x\"}", "{\"a\": \"x\"}", ""},
        {"empty text", [](CEvents& e) { e.Leaf("a", ""); }, "{\"a\": \"\"}", "{\"a\": \"\"}", ""},
        {"attribute with text",
         [](CEvents& e) {
             e.Open("a");
             e.Attr("b", "1", ItemType_i4);
             e.Text("x");
             e.Close();
         },
         "{\"a\": {\"b\": 1,\"\": \"x\"}}", "{\"a\": {\"@b\": 1,\"#text\": \"x\"}}", ""},
        {"text behind children",
         [](CEvents& e) {
             e.Open("a");
             e.Leaf("c", "1");
             e.Text("t");
             e.Close();
         },
         "{\"a\": {\"c\": \"1\",\"\": \"t\"}}", "{\"a\": {\"c\": \"1\",\"#text\": \"t\"}}", ""},
        {"nil element and empty object, no trace of PI or schema",
         [](CEvents& e) {
             e.w.WriteProcessingInstruction("<?pi?>");
             e.Open("a");
             e.w.WriteInLineSchema("<schema/>");
             e.Open("n");
             e.w.WriteXsiNil();
             e.Close();
             e.Open("o");
             e.Close();
             e.Close();
         },
         "{\"a\": {\"n\": null,\"o\": null}}", "{\"a\": {\"n\": null,\"o\": null}}", ""},
        {"empty collection leaves nothing",
         [](CEvents& e) {
             e.Open("a");
             e.Collection([] {});
             e.Leaf("c", "1");
             e.Collection([] {});
             e.Close();
         },
         "{\"a\": {\"c\": \"1\"}}", "{\"a\": {\"c\": \"1\"}}", ""},
        {"two collections in a row, the second one last",
         [](CEvents& e) {
             e.Open("a");
             e.Collection([&] {
                 e.Leaf("p", "1");
                 e.Leaf("p", "2");
             });
             e.Collection([&] { e.Leaf("q", "3"); });
             e.Close();
         },
         "{\"a\": {\"p\": [\"1\",\"2\"],\"q\": [\"3\"]}}", "{\"a\": {\"p\": [\"1\",\"2\"],\"q\": [\"3\"]}}", ""},
        {"objects inside an array, first item with a child, a nil item",
         [](CEvents& e) {
             e.Open("a");
             e.Collection([&] {
                 e.Open("i");
                 e.Leaf("c", "1");
                 e.Close();
                 e.Open("i");
                 e.Attr("k", "v");
                 e.Close();
                 e.Open("i");
                 e.w.WriteXsiNil();
                 e.Close();
             });
             e.Leaf("z", "9");
             e.Close();
         },
         "{\"a\": {\"i\": [{\"c\": \"1\"},{\"k\": \"v\"},null],\"z\": \"9\"}}",
         "{\"a\": {\"i\": [{\"c\": \"1\"},{\"@k\": \"v\"},null],\"z\": \"9\"}}", ""},
        {"attribute after a child is one more member",
         [](CEvents& e) {
             e.Open("a");
             e.Leaf("c", "1");
             e.Attr("b", "true", ItemType_boolean);
             e.Close();
         },
         "{\"a\": {\"c\": \"1\",\"b\": true}}", "{\"a\": {\"c\": \"1\",\"@b\": true}}", ""},
        {"namespaces with aliases",
         [](CEvents& e) {
             e.w.AddNamespaceAlias("r", "urn:r");
             e.w.AddNamespaceAlias("s", "urn:s");
             e.Open("a", "urn:r");
             e.Attr("b", "1", ItemType_string, "urn:s");
             e.Attr("lang", "en", ItemType_string, "http://www.w3.org/XML/1998/namespace");
             e.Leaf("c", "x", ItemType_string, "urn:r");
             e.Leaf("d", "y");
             e.Close();
         },
         "{\"a\": {\"b\": \"1\",\"lang\": \"en\",\"c\": \"x\",\"d\": \"y\"}}",
         "{\"a\": {\"@b\": \"1\",\"@lang\": \"en\",\"c\": \"x\",\"d\": \"y\"}}",
         "{\"r:a\": {\"@xmlns:r\": \"urn:r\",\"@xmlns:s\": \"urn:s\",\"@s:b\": \"1\",\"@xml:lang\": \"en\",\"r:c\": "
         "\"x\",\"d\": \"y\"}}"},
        {"root in a namespace no alias names, default namespace beside it",
         [](CEvents& e) {
             e.w.SetDefaultNamespace("urn:d");
             e.w.AddNamespaceAlias("AA", "urn:z");
             e.Open("a", "urn:x");
             e.Leaf("c", "1", ItemType_i8, "urn:x");
             e.Leaf("d", "2", ItemType_i8, "urn:d");
             e.Close();
         },
         "{\"a\": {\"c\": 1,\"d\": 2}}", "{\"a\": {\"c\": 1,\"d\": 2}}",
         "{\"AB:a\": {\"@xmlns:AB\": \"urn:x\",\"@xmlns\": \"urn:d\",\"@xmlns:AA\": \"urn:z\",\"AB:c\": 1,\"d\": 2}}"},
        {"xsi:type with and without a namespace",
         [](CEvents& e) {
             e.w.AddNamespaceAlias("xsi", kXsi);
             e.w.AddNamespaceAlias("t", "urn:t");
             e.Open("a");
             e.w.WriteXsiType("urn:t", "Derived", ItemType_string);
             e.Open("b");
             e.w.WriteXsiType("", "Local", ItemType_string);
             e.Close();
             e.Close();
         },
         "{\"a\": {\"b\": null}}", "{\"a\": {\"b\": null}}",
         "{\"a\": {\"@xmlns:xsi\": \"" + kXsi +
             "\",\"@xmlns:t\": \"urn:t\",\"@xsi:type\": \"t:Derived\",\"b\": {\"@xsi:type\": \"Local\"}}}"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.pszName);
        EXPECT_EQ(c.strNone, Write(JsonRoundTrip_None, false, c.events));
        EXPECT_EQ(c.strSimple, Write(JsonRoundTrip_Simple, false, c.events));
        EXPECT_EQ(c.strFull.empty() ? c.strSimple : c.strFull, Write(JsonRoundTrip_Full, false, c.events));
    }
}

// Numbers, decimals, integers and booleans stand bare with every digit of their text; every
// other kind is quoted even when its text looks like a number; a text that isn't a JSON
// number is quoted whatever its kind.
TEST(JsonTextWriter, ValuesBareOrQuotedByKind) {
    struct Case {
        ItemType eType;
        const char* pszText;
        const char* pszWritten;
    };
    const Case cases[] = {
        {ItemType_i1, "-128", "-128"},
        {ItemType_ui8, "18446744073709551615", "18446744073709551615"},
        {ItemType_r8, "1.234567890123457e+300", "1.234567890123457e+300"},
        {ItemType_r4, "-1.5E-07", "-1.5E-07"},
        {ItemType_decimal, "-12345678901234567890.12345678901234567890", "-12345678901234567890.12345678901234567890"},
        {ItemType_integer, "123456789012345678901234567890", "123456789012345678901234567890"},
        {ItemType_boolean, "true", "true"},
        {ItemType_boolean, "false", "false"},
        {ItemType_string, "true", "\"true\""},
        {ItemType_string, "12", "\"12\""},
        {ItemType_year, "2024", "\"2024\""},
        {ItemType_month, "--05", "\"--05\""},
        {ItemType_char, "65", "\"65\""},
        {ItemType_date, "2024-01-31", "\"2024-01-31\""},
        {ItemType_duration, "P1D", "\"P1D\""},
        {ItemType_base64Binary, "AAEC", "\"AAEC\""},
        {ItemType_r8, "INF", "\"INF\""},
        {ItemType_r4, "-INF", "\"-INF\""},
        {ItemType_r8, "NaN", "\"NaN\""},
        {ItemType_i4, "+5", "\"+5\""},
        {ItemType_decimal, ".5", "\".5\""},
        {ItemType_decimal, "1.", "\"1.\""},
        {ItemType_i4, "05", "\"05\""},
        {ItemType_i4, "", "\"\""},
        {ItemType_boolean, "1", "1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.pszText);
        auto leaf = [&](CEvents& e) { e.Leaf("v", c.pszText, c.eType); };
        EXPECT_EQ(std::string("{\"v\": ") + c.pszWritten + "}", Write(JsonRoundTrip_None, false, leaf));
        auto attr = [&](CEvents& e) {
            e.Open("v");
            e.Attr("a", c.pszText, c.eType);
            e.Close();
        };
        EXPECT_EQ(std::string("{\"v\": {\"@a\": ") + c.pszWritten + "}}", Write(JsonRoundTrip_Simple, false, attr));
    }
}

// Control bytes, quotes and backslashes are escaped; CR is dropped; bytes from 0x7F up pass
// unchanged. A namespace URI holding a quote is escaped too, so the text stays JSON.
TEST(JsonTextWriter, Escaping) {
    struct Case {
        std::string strValue;
        const char* pszWritten;
    };
    const Case cases[] = {
        {"say \"hi\"", "say \\\"hi\\\""},
        {"C:\\dir\\", "C:\\\\dir\\\\"},
        {"a\tb", "a\\tb"},
        {"line\nnext", "line\\nnext"},
        {"cr\r\nlf", "cr\\nlf"},
        {"\b\f", "\\b\\f"},
        {"\x01\x1F\x0B", "\\u0001\\u001F\\u000B"},
        {"\x7F\xC3\xA9\xFF", "\x7F\xC3\xA9\xFF"},
        {"/<>&'", "/<>&'"},
        {std::string("cut\0off", 7), "cut"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.pszWritten);
        EXPECT_EQ(std::string("{\"v\": {\"@a\": \"") + c.pszWritten + "\",\"#text\": \"" + c.pszWritten + "\"}}",
                  Write(JsonRoundTrip_Full, false, [&](CEvents& e) {
                      e.Open("v");
                      e.Attr("a", c.strValue);
                      e.Text(c.strValue);
                      e.Close();
                  }));
    }
    EXPECT_EQ("{\"AA:v\": {\"@xmlns:AA\": \"urn:\\\"q\\\"\"}}", Write(JsonRoundTrip_Full, false, [](CEvents& e) {
                  e.Open("v", "urn:\"q\"");
                  e.Close();
              }));
    EXPECT_EQ("{\n/* a \\\"c\\\" */\n\n}",
              Write(JsonRoundTrip_Full, true, [](CEvents& e) { e.w.WriteComment("a \"c\""); }));
}

// What JSON can't say is refused with the exact message, never written.
TEST(JsonTextWriter, Refusals) {
    struct Case {
        const char* pszName;
        JsonRoundTrip eMode;
        std::function<void(CEvents&)> events;
        const char* pszMessage;
    };
    const std::vector<Case> cases = {
        {"child in an undeclared namespace", JsonRoundTrip_Full,
         [](CEvents& e) {
             e.Open("a");
             e.Open("c", "urn:late");
         },
         "Unknown Namespace: urn:late."},
        {"attribute in an undeclared namespace", JsonRoundTrip_Full,
         [](CEvents& e) {
             e.Open("a");
             e.Attr("b", "1", ItemType_string, "urn:att");
         },
         "Unknown Namespace: urn:att."},
        {"xsi:type of an undeclared namespace", JsonRoundTrip_Full,
         [](CEvents& e) {
             e.w.AddNamespaceAlias("xsi", kXsi);
             e.Open("a");
             e.w.WriteXsiType("urn:t", "T", ItemType_string);
         },
         "Unknown Namespace: urn:t."},
        {"xsi:type without a prefix for the instance namespace", JsonRoundTrip_Full,
         [](CEvents& e) {
             e.Open("a");
             e.w.WriteXsiType("", "T", ItemType_string);
         },
         "Unknown Namespace: http://www.w3.org/2001/XMLSchema-instance."},
        {"unclosed element", JsonRoundTrip_None, [](CEvents& e) { e.Open("a"); }, "An Element has not been closed."},
        {"member behind a value", JsonRoundTrip_Simple,
         [](CEvents& e) {
             e.Open("a");
             e.Open("b");
             e.Text("x");
             e.Attr("c", "1");
         },
         "The element b holds a value already; JSON has no place for a further value or member of it.\nPath: /a/b"},
        {"second value", JsonRoundTrip_None,
         [](CEvents& e) {
             e.Open("a");
             e.Text("x");
             e.Text("y");
         },
         "The element a holds a value already; JSON has no place for a further value or member of it.\nPath: /a"},
        {"end without an element", JsonRoundTrip_None, [](CEvents& e) { e.Close(); },
         "There is no open element to end."},
        {"EOL type", JsonRoundTrip_None, [](CEvents& e) { e.w.SetEOLType(static_cast<EOLType>(2)); },
         "Invalid EOL type."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.pszName);
        EXPECT_EQ(c.pszMessage, MessageOf([&] { Write(c.eMode, false, c.events); }));
    }
    // In the other modes namespaces are dropped, so nothing is unknown.
    auto late = [](CEvents& e) {
        e.Open("a");
        e.Leaf("c", "1", ItemType_string, "urn:late");
        e.Attr("b", "2", ItemType_string, "urn:att");
        e.w.WriteXsiType("urn:t", "T", ItemType_string);
        e.Close();
    };
    EXPECT_EQ("{\"a\": {\"c\": \"1\",\"@b\": \"2\"}}", Write(JsonRoundTrip_Simple, false, late));
    // An array item has no name to prefix: its namespace is not asked for, even in the full mode.
    EXPECT_EQ("{\"a\": {\"i\": [\"1\",\"2\"]}}", Write(JsonRoundTrip_Full, false, [](CEvents& e) {
                  e.Open("a");
                  e.Collection([&] {
                      e.Leaf("i", "1");
                      e.Leaf("i", "2", ItemType_string, "urn:late");
                  });
                  e.Close();
              }));
    EXPECT_EQ("{\"a\": {\"c\": \"1\",\"b\": \"2\"}}", Write(JsonRoundTrip_None, false, late));
}
