#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/xmltextwriter.h"

using namespace OrvexXml;

namespace {

const char* const kXsi = "http://www.w3.org/2001/XMLSchema-instance";
const int kOrders = 11000;

int LivingContexts() {
    std::string dump = CInstanceMonitor::DumpState();
    std::string key = " CXmlWriterContext = ";
    size_t pos = dump.find(key);
    if (pos == std::string::npos) return 0;
    int nLiving = 0, nTotal = 0;
    std::sscanf(dump.c_str() + pos + key.size(), "%d/%d", &nLiving, &nTotal);
    return nLiving;
}

void Leaf(CXmlWriter& writer, const std::string& strName, const std::string& strNamespace, const std::string& strText) {
    writer.WriteStartElement(strName, strNamespace);
    writer.WriteElementText(strText, ItemType_string, false);
    writer.WriteEndElement();
}

// The walk the binding engine makes for a list of orders.
void WriteOrders(CXmlTextWriter& writer) {
    writer.StartDocument();
    writer.WriteHeader();
    writer.AddNamespaceAlias("xsi", kXsi);
    writer.SetDefaultNamespace("urn:orders");
    writer.WriteStartElement("orders", "urn:orders");
    for (int i = 0; i < kOrders; ++i) {
        writer.WriteStartElement("order", "urn:orders");
        writer.WriteAttribute("id", "", std::to_string(i), ItemType_string);
        Leaf(writer, "customer", "urn:orders", "Smith & Sons <" + std::to_string(i % 7) + ">");
        Leaf(writer, "qty", "urn:orders", std::to_string(i % 100));
        if (i % 10 == 0) Leaf(writer, "note", "urn:ext", "a\nb");
        if (i % 25 == 0) {
            writer.WriteStartElement("discount", "urn:orders");
            writer.WriteXsiNil();
            writer.WriteEndElement();
        }
        writer.WriteEndElement();
    }
    writer.WriteEndElement();
    writer.EndDocument();
}

}  // namespace

TEST(LargeDocument, MegabyteOfOrdersComesOutExactly) {
    int nContextsBefore = LivingContexts();
    CTextStream stream;
    CXmlTextWriter writer(&stream);
    WriteOrders(writer);
    std::string text = stream.GetText();

    const std::string kPrefix =
        "<?xml version=\"1.0\"?>\n"
        "<orders xmlns=\"urn:orders\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n"
        "\t<order id=\"0\">\n"
        "\t\t<customer>Smith &amp; Sons &lt;0&gt;</customer>\n"
        "\t\t<qty>0</qty>\n"
        "\t\t<AA:note xmlns:AA=\"urn:ext\">a\nb</AA:note>\n"
        "\t\t<discount xsi:nil=\"true\"/>\n"
        "\t</order>\n"
        "\t<order id=\"1\">\n"
        "\t\t<customer>Smith &amp; Sons &lt;1&gt;</customer>\n"
        "\t\t<qty>1</qty>\n"
        "\t</order>\n";
    ASSERT_GE(text.size(), kPrefix.size());
    EXPECT_EQ(kPrefix, text.substr(0, kPrefix.size()));
    EXPECT_EQ(
        "\t<order id=\"10999\">\n"
        "\t\t<customer>Smith &amp; Sons &lt;2&gt;</customer>\n"
        "\t\t<qty>99</qty>\n"
        "\t</order>\n"
        "</orders>\n",
        text.substr(text.size() - 106));
    EXPECT_EQ(1105064u, text.size());
    EXPECT_EQ(text.size(), stream.GetLength());
    EXPECT_EQ(nContextsBefore, LivingContexts());
}

TEST(LargeDocument, UnformattedCrLfDocumentHasNoLayoutBytes) {
    CTextStream stream;
    CXmlTextWriter writer(&stream);
    writer.SetFormatted(false);
    writer.SetEOLType(EOLType_CRLF);
    WriteOrders(writer);
    std::string text = stream.GetText();
    const std::string kPrefix =
        "<?xml version=\"1.0\"?>\r\n"
        "<orders xmlns=\"urn:orders\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">"
        "<order id=\"0\"><customer>Smith &amp; Sons &lt;0&gt;</customer><qty>0</qty>"
        "<AA:note xmlns:AA=\"urn:ext\">a\r\nb</AA:note><discount xsi:nil=\"true\"/></order>"
        "<order id=\"1\"><customer>";
    EXPECT_EQ(kPrefix, text.substr(0, kPrefix.size()));
    // Only the header's line end and the line feeds inside the notes remain.
    size_t nLineEnds = 0;
    for (size_t pos = text.find("\r\n"); pos != std::string::npos; pos = text.find("\r\n", pos + 2)) ++nLineEnds;
    EXPECT_EQ(1u + kOrders / 10, nLineEnds);
    EXPECT_EQ(text.substr(text.size() - 9), "</orders>");
}
