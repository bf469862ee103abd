// The order book checks, run against any binding of bench/order/order.xsd: documents made by
// the project's generator script read into the classes and reproduce the generator's own
// census, write back, read again into an equal tree and pass xmllint against the schema; bad
// input and a bad article number are refused with the exact message and the path of the
// element. The including file names the binding's namespace OrderBinding first.
#pragma once

#include <stdlib.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <typeinfo>
#include <vector>

#include "binding/bindinghelpers.h"
#include "support/ordercensus.h"

using namespace OrvexXml;
using namespace OrvexBindTest;
using namespace OrderBinding;

namespace {

const std::string kOrderDir = std::string(ORVEXXML_SOURCE_DIR) + "/bench/order";

std::string ReadText(const std::string& strFile) {
    std::ifstream in(strFile, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// Every field of two books alike, the optional parts present in both or absent in both.
void ExpectEqualBooks(const COrderBook& a, const COrderBook& b) {
    EXPECT_EQ(a.IsValidGenerated(), b.IsValidGenerated());
    EXPECT_TRUE(a.GetGenerated() == b.GetGenerated());
    ASSERT_EQ(a.GetOrder().GetCount(), b.GetOrder().GetCount());
    for (int i = 0; i < a.GetOrder().GetCount(); ++i) {
        CSmartPtr<COrder> x = a.GetOrder().Item(i), y = b.GetOrder().Item(i);
        SCOPED_TRACE("order " + std::to_string(i + 1));
        EXPECT_EQ(x->GetId(), y->GetId());
        EXPECT_TRUE(x->GetPlaced() == y->GetPlaced());
        EXPECT_EQ(x->GetCustomer()->IsValidVip(), y->GetCustomer()->IsValidVip());
        EXPECT_EQ(x->GetCustomer()->GetVip(), y->GetCustomer()->GetVip());
        EXPECT_EQ(x->GetCustomer()->GetName(), y->GetCustomer()->GetName());
        EXPECT_EQ(x->GetCustomer()->IsValidEmail(), y->GetCustomer()->IsValidEmail());
        EXPECT_EQ(x->GetCustomer()->GetEmail(), y->GetCustomer()->GetEmail());
        ASSERT_EQ(!x->GetShipTo(), !y->GetShipTo());
        if (x->GetShipTo()) {
            EXPECT_EQ(x->GetShipTo()->GetStreet(), y->GetShipTo()->GetStreet());
            EXPECT_EQ(x->GetShipTo()->GetCity(), y->GetShipTo()->GetCity());
            EXPECT_EQ(x->GetShipTo()->GetZip(), y->GetShipTo()->GetZip());
            EXPECT_EQ(x->GetShipTo()->GetCountry(), y->GetShipTo()->GetCountry());
        }
        EXPECT_EQ(x->GetStatus(), y->GetStatus());
        EXPECT_EQ(x->IsValidNote(), y->IsValidNote());
        EXPECT_EQ(x->GetNote(), y->GetNote());
        EXPECT_TRUE(x->GetTotal() == y->GetTotal()) << x->GetTotal().ToString() << " " << y->GetTotal().ToString();
        EXPECT_EQ(x->GetPaid(), y->GetPaid());
        ASSERT_EQ(x->GetLine().GetCount(), y->GetLine().GetCount());
        for (int j = 0; j < x->GetLine().GetCount(); ++j) {
            CSmartPtr<CLine> l = x->GetLine().Item(j), m = y->GetLine().Item(j);
            EXPECT_EQ(l->GetNumber(), m->GetNumber());
            EXPECT_EQ(l->GetSku(), m->GetSku());
            EXPECT_EQ(l->GetDescription(), m->GetDescription());
            EXPECT_EQ(l->GetQuantity(), m->GetQuantity());
            EXPECT_EQ(l->GetUnitPrice(), m->GetUnitPrice());
        }
    }
}

class OrderBookDocument : public ::testing::Test {
protected:
    void SetUp() override {
        char szTemplate[] = "/tmp/orvex_orderbook_XXXXXX";
        ASSERT_NE(mkdtemp(szTemplate), nullptr);
        m_strDir = szTemplate;
    }
    void TearDown() override { EXPECT_EQ(std::system(("rm -rf '" + m_strDir + "'").c_str()), 0); }

    // Runs the generator; the document's file name, with the census line in m_strCensus.
    std::string Generate(int nOrders, int nSeed) {
        const std::string strDoc = m_strDir + "/orders.xml", strCensus = m_strDir + "/census.txt";
        const std::string strCommand = "python3 '" + kOrderDir + "/gen_order.py' " + std::to_string(nOrders) +
                                       " --seed " + std::to_string(nSeed) + " --census '" + strCensus + "' > '" +
                                       strDoc + "' 2>/dev/null";
        EXPECT_EQ(std::system(strCommand.c_str()), 0) << strCommand;
        m_strCensus = ReadText(strCensus);
        if (!m_strCensus.empty() && m_strCensus.back() == '\n') m_strCensus.pop_back();
        return strDoc;
    }

    // xmllint's verdict on a text against the schema: 0 valid, otherwise its exit code.
    int SchemaCheck(const std::string& strXml) {
        const std::string strFile = m_strDir + "/check.xml";
        std::ofstream(strFile, std::ios::binary) << strXml;
        return std::system(
            ("xmllint --noout --schema '" + kOrderDir + "/order.xsd' '" + strFile + "' 2>/dev/null").c_str());
    }

    std::string m_strDir;
    std::string m_strCensus;
};

TEST_F(OrderBookDocument, ReadsTheGeneratorsCensusWritesBackAndReadsAnEqualTree) {
    // No order; one; a couple of hundred, with every optional part present and absent.
    const struct {
        int nOrders;
        int nSeed;
    } cases[] = {{0, 1}, {1, 7}, {240, 20261122}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.nOrders) + " orders");
        const std::string strDoc = Generate(c.nOrders, c.nSeed);
        CSmartPtr<COrderBook> book = COrderBook::CreateInstance();
        book->FromXmlFile(strDoc.c_str(), DefaultCtx());
        EXPECT_EQ(OrvexOrderCensus::OrderBookCensus(*book), m_strCensus);
        EXPECT_EQ(book->GetGenerated().ToString(), "2026-11-22T10:00:00Z");

        const std::string strXml = book->ToXml(true, true, EOLType_LF, DefaultCtx());
        CSmartPtr<COrderBook> again = COrderBook::CreateInstance();
        again->FromXml(strXml.c_str(), DefaultCtx());
        ExpectEqualBooks(*book, *again);
        EXPECT_EQ(OrvexOrderCensus::OrderBookCensus(*again), m_strCensus);
    }
}

TEST_F(OrderBookDocument, WrittenDocumentIsValidAgainstTheSchema) {
    CSmartPtr<COrderBook> book = COrderBook::CreateInstance();
    book->FromXmlFile(Generate(40, 3).c_str(), DefaultCtx());
    EXPECT_EQ(SchemaCheck(book->ToXml(true, true, EOLType_LF, DefaultCtx())), 0);
    // The check itself refuses what the schema forbids: an order without lines.
    book->GetOrder().Item(0)->GetLine().Clear();
    CSerializationContext lenient;
    lenient.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_NE(SchemaCheck(book->ToXml(true, true, EOLType_LF, lenient)), 0);
}

TEST_F(OrderBookDocument, ThreadsReadAndWriteTheirOwnBooksAtOnce) {
    // Each thread reads the same text into its own book and writes it back: the tables, the
    // compiled article-number pattern and the default context are shared among them.
    const std::string strSource = ReadText(Generate(60, 11));
    std::vector<std::string> vecWritten(4), vecCensus(4);
    std::atomic<int> nNext(0);
    OnSmallStacks(4, [&] {
        const int n = nNext++;
        CSmartPtr<COrderBook> book = COrderBook::CreateInstance();
        book->FromXml(strSource.c_str(), DefaultCtx());
        vecCensus[n] = OrvexOrderCensus::OrderBookCensus(*book);
        vecWritten[n] = book->ToXml(true, true, EOLType_LF, DefaultCtx());
    });
    for (int n = 0; n < 4; ++n) {
        EXPECT_EQ(vecCensus[n], m_strCensus);
        EXPECT_EQ(vecWritten[n], vecWritten[0]);
    }
}

// Two orders, the second of which the cases below break.
const char* const kTwoOrders =
    "<orderBook xmlns=\"urn:example:orders\">"
    "<order id=\"1\" placed=\"2026-01-02\"><customer><name>A</name></customer><status>open</status>"
    "<line number=\"1\"><sku>ABC-00001</sku><description>d</description><quantity>1</quantity>"
    "<unitPrice>1.5</unitPrice></line><total>1.50</total><paid>true</paid></order>"
    "<order id=\"2\" placed=\"2026-01-03\"><customer><name>B</name></customer><status>shipped</status>"
    "<line number=\"1\"><sku>XYZ-12345</sku><description>e</description><quantity>2</quantity>"
    "<unitPrice>2</unitPrice></line><total>4</total><paid>false</paid></order>"
    "</orderBook>";

std::string Broken(const std::string& strFrom, const std::string& strTo) {
    std::string strXml = kTwoOrders;
    const size_t nAt = strXml.rfind(strFrom);
    EXPECT_NE(nAt, std::string::npos) << strFrom;
    return strXml.replace(nAt, strFrom.size(), strTo);
}

TEST(OrderBookInput, BadInputIsRefusedWithTheMessageAndPath) {
    CSmartPtr<COrderBook> book = COrderBook::CreateInstance();
    book->FromXml(kTwoOrders, DefaultCtx());
    ASSERT_EQ(book->GetOrder().GetCount(), 2);

    // The level that meets the fault stamps the path of its element; the levels above pass
    // the error on as a plain COxException; the first cause keeps its class.
    const struct {
        const char* pszCase;
        std::string strXml;
        const char* pszMessage;
        const std::type_info& firstCause;
    } cases[] = {
        {"missing customer", Broken("<customer><name>B</name></customer>", ""),
         "Failed to find the required child element [customer].\nPath: /orderBook/order[2]", typeid(COxException)},
        {"bad placed date", Broken("2026-01-03", "2026-02-30"),
         "Failed to process the element.\nPath: /orderBook/order[2]\nInvalid Day [30] (1 <= day <= days in month",
         typeid(COxInvalidValueException)},
        {"id beyond unsignedInt", Broken("id=\"2\"", "id=\"4294967296\""),
         "Failed to process the element.\nPath: /orderBook/order[2]\nThe value [4294967296] is to large to fit in a "
         "ui4",
         typeid(COxInvalidValueException)},
        {"unknown status", Broken("<status>shipped</status>", "<status>lost</status>"),
         "Failed to process the element.\nPath: /orderBook/order[2]\nThe value [lost] is not a valid Status",
         typeid(COxInvalidValueException)},
    };
    for (const auto& c : cases) {
        try {
            book->FromXml(c.strXml.c_str(), DefaultCtx());
            ADD_FAILURE() << c.pszCase << ": no exception";
        } catch (const COxException& e) {
            EXPECT_EQ(e.GetFullMessage(), c.pszMessage) << c.pszCase;
            EXPECT_EQ(typeid(Innermost(e)), c.firstCause) << c.pszCase << ": " << typeid(Innermost(e)).name();
        }
    }

    // A negative id is no error: unsignedInt text is read with the sign taken modulo 2^32.
    book->FromXml(Broken("id=\"2\"", "id=\"-2\"").c_str(), DefaultCtx());
    EXPECT_EQ(book->GetOrder().Item(1)->GetId(), 4294967294u);
}

TEST(OrderBookOutput, AnArticleNumberOutsideItsPatternIsRefusedOnWriting) {
    CSmartPtr<COrderBook> book = COrderBook::CreateInstance();
    book->FromXml(kTwoOrders, DefaultCtx());
    book->GetOrder().Item(1)->GetLine().Item(0)->SetSku("XY-12345");
    EXPECT_EQ(Thrown<COxValidationException>([&] { book->ToXml(true, true, EOLType_LF, DefaultCtx()); }),
              "Failed to convert the element [orderBook] to XML\nFailed to convert the element [order] to XML\n"
              "Failed to convert the element [line] to XML\nInvalid Value for sku [XY-12345].");
}

}  // namespace
