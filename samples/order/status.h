// Generated enumeration Status of the order book: the state of an order.
#pragma once

#include <orvexxml/orvexxml.h>

namespace OrderBook {

enum Status { Status_open = 0, Status_shipped = 1, Status_cancelled = 2 };
const char* Status_EnumToText(int nValue);
int Status_TextToEnum(const char* pszText);

}  // namespace OrderBook
