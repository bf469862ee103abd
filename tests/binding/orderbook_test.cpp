// The order book bound by hand (samples/order), through the checks that every binding of
// the order book schema passes.
#include "order/orderbook.h"

namespace OrderBinding = OrderBook;

#include <cstdlib>
#include <optional>

#include "orvexxml/infrastructure/codepage.h"
#include "support/orderbooktests.h"

namespace {

// An application may read and write documents from the destructor of an object with static
// storage, which runs after the thread's own objects are gone. The per-thread state that
// writing, pattern facets and code pages keep then gives way to fresh state for each late
// call: the texts are those of before the exit. (Calls into the destroyed state wrote into
// freed memory, which the sanitizer build reports as an abort.)
TEST(OrderBookAtExit, ReadsWritesAndConvertsFromAStaticDestructorAsBefore) {
    EXPECT_EXIT(
        {
            struct CLateWriter {
                std::optional<std::string> strBefore;
                static std::string Work() {
                    CSmartPtr<COrderBook> book = COrderBook::CreateInstance();
                    book->FromXml(kTwoOrders, DefaultCtx());
                    char16_t euro[2] = {};
                    CCodePage::MultiByteToWideChar(1252, "\x80", 1, euro, 2);
                    return book->ToXml(true, true, EOLType_LF, DefaultCtx()) + std::to_string(euro[0]);
                }
                ~CLateWriter() { std::_Exit(strBefore && Work() == *strBefore ? 0 : 1); }
            };
            static CLateWriter s_late;
            s_late.strBefore = CLateWriter::Work();
            std::exit(2);
        },
        ::testing::ExitedWithCode(0), "");
}

}  // namespace
