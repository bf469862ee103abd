// The order book bound by hand (samples/order), through the checks that every binding of
// the order book schema passes.
#include "order/orderbook.h"

namespace OrderBinding = OrderBook;

#include "support/orderbooktests.h"
