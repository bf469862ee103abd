// The census of an order book, counted from a tree read into the bound classes and printed
// in the one-line form of the document generator (bench/order/gen_order.py), so that a
// reader's result can be compared with the generator's own count as text. Any binding of the
// order book schema will do: the hand-written one in samples/order or a generated one.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace OrvexOrderCensus {

template <class TBook>
std::string OrderBookCensus(const TBook& book) {
    long long nOrders = 0, nLines = 0, nShipTo = 0, nNotes = 0, nEmails = 0, nQty = 0, nDescLen = 0;
    for (const auto* pOrder : book.GetOrder()) {
        ++nOrders;
        nShipTo += pOrder->GetShipTo() ? 1 : 0;
        nNotes += pOrder->IsValidNote() ? 1 : 0;
        nEmails += pOrder->GetCustomer()->IsValidEmail() ? 1 : 0;
        for (const auto* pLine : pOrder->GetLine()) {
            ++nLines;
            nQty += pLine->GetQuantity();
            nDescLen += static_cast<long long>(pLine->GetDescription().size());
        }
    }
    return OrvexXml::FormatString(
        "census orders=%lld lines=%lld shipTo=%lld notes=%lld emails=%lld qty=%lld desclen=%lld", nOrders, nLines,
        nShipTo, nNotes, nEmails, nQty, nDescLen);
}

}  // namespace OrvexOrderCensus
