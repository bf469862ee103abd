// The order book that orvex-xsd generates from bench/order/order.xsd while the tests build,
// through the checks that every binding of the order book schema passes, and the factory of
// its document elements.
#include "order/orderbook.h"
#include "schema.h"

namespace OrderBinding = XsdOrderBook;

#include "support/orderbooktests.h"

namespace {

TEST(GeneratedOrderBook, CreateRootElementMakesOnlyTheDeclaredDocumentElement) {
    const struct {
        const char* pszName;
        const char* pszNamespace;
        bool bKnown;
    } cases[] = {
        {"orderBook", "urn:example:orders", true},  {"orderBook", "", false}, {"orderBook", nullptr, false},
        {"OrderBook", "urn:example:orders", false},  // names are case-sensitive
        {"order", "urn:example:orders", false},      // a local element starts no document
        {"Order", "urn:example:orders", false},      // nor does a type
        {nullptr, "urn:example:orders", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.pszName ? c.pszName : "(null)") + " " +
                     (c.pszNamespace ? c.pszNamespace : "(null)"));
        CSmartPtr<CXmlGeneratedClass> root = XsdOrderBook::CreateRootElement(c.pszName, c.pszNamespace);
        ASSERT_EQ(static_cast<bool>(root), c.bKnown);
        if (!root) continue;
        // The object reads a document of its element and writes what the hand binding writes.
        root->FromXml(kTwoOrders, DefaultCtx());
        ASSERT_NE(dynamic_cast<XsdOrderBook::COrderBook*>(root.Get()), nullptr);
        EXPECT_EQ(static_cast<XsdOrderBook::COrderBook*>(root.Get())->GetOrder().GetCount(), 2);
        CSmartPtr<OrderBook::COrderBook> hand = OrderBook::COrderBook::CreateInstance();
        hand->FromXml(kTwoOrders, DefaultCtx());
        EXPECT_EQ(root->ToXml(true, true, EOLType_LF, DefaultCtx()), hand->ToXml(true, true, EOLType_LF, DefaultCtx()));
    }
}

}  // namespace
