// What the reading fuzzers share: the sample classes an input picks by number, the settings
// its first byte picks, and the values of a class the library writes one way on purpose.
#pragma once

#include <orvexxml/orvexxml.h>

#include <cstdint>
#include <string>

#include "alltypes.h"
#include "envelope.h"
#include "invoiceline.h"
#include "note.h"
#include "order.h"
#include "order/orderbook.h"
#include "person.h"
#include "primitiveset.h"
#include "remittance.h"
#include "selection.h"
#include "settings.h"
#include "shape.h"
#include "shop.h"
#include "support/onewayforms.h"
#include "tally.h"

namespace OrvexFuzz {

// How many classes WithSampleClass tells apart.
constexpr int kSampleClasses = 14;

// Calls read with a null pointer to the class numbered nClass, the order book for 13 and
// anything beyond, so that a generic lambda can name the class as a template argument.
template <class F>
void WithSampleClass(int nClass, F&& read) {
    switch (nClass) {
        case 0:
            read(static_cast<Samples::CPerson*>(nullptr));
            break;
        case 1:
            read(static_cast<Samples::CPrimitiveSet*>(nullptr));
            break;
        case 2:
            read(static_cast<Samples::CShape*>(nullptr));
            break;
        case 3:
            read(static_cast<Samples::CNote*>(nullptr));
            break;
        case 4:
            read(static_cast<Samples::CTally*>(nullptr));
            break;
        case 5:
            read(static_cast<Samples::CSettings*>(nullptr));
            break;
        case 6:
            read(static_cast<Samples::CSelection*>(nullptr));
            break;
        case 7:
            read(static_cast<Samples::CEnvelope*>(nullptr));
            break;
        case 8:
            read(static_cast<Samples::CInvoiceLine*>(nullptr));
            break;
        case 9:
            read(static_cast<Samples::CRemittance*>(nullptr));
            break;
        case 10:
            read(static_cast<Samples::COrder*>(nullptr));
            break;
        case 11:
            read(static_cast<Samples::CShop*>(nullptr));
            break;
        case 12:
            read(static_cast<Samples::CAllTypes*>(nullptr));
            break;
        default:
            read(static_cast<OrderBook::COrderBook*>(nullptr));
            break;
    }
}

// The four reading settings, picked by the first byte modulo 4: the defaults; unknown
// elements and attributes ignored; missing mandatory elements ignored and CDATA kept; DTD
// rules with a missing choice ignored.
inline const OrvexXml::CSerializationContext* ReadingContexts() {
    static const OrvexXml::CSerializationContext* s_pContexts = [] {
        static OrvexXml::CSerializationContext s_contexts[4];
        s_contexts[1].SetIgnoreUnknownElements(true);
        s_contexts[1].SetIgnoreUnknownAttributes(true);
        s_contexts[2].SetIgnoreMissingMandatoryElements(true);
        s_contexts[2].SetStripCDATA(false);
        s_contexts[3].SetSchemaType(OrvexXml::SchemaType_DTD);
        s_contexts[3].SetIgnoreMissingChoice(true);
        return s_contexts;
    }();
    return s_pContexts;
}

// What a class holds that the library writes one way and its text doesn't show: by default
// nothing.
template <class T>
inline bool HoldsOneWayValue(T&) {
    return false;
}

// A year outside 1000 to 9999 writes a text that isn't read as a year.
template <>
inline bool HoldsOneWayValue(Samples::CAllTypes& object) {
    if (object.IsValidGYear() && OrvexTest::IsUnreadableYear(object.GetGYear())) return true;
    for (uint16_t nYear : object.GetGYearList()) {
        if (OrvexTest::IsUnreadableYear(nYear)) return true;
    }
    return false;
}

// Whether strWritten, the XML text object wrote under ctx, holds a form that doesn't read
// back into the same text.
template <class T>
bool WritesOneWay(const std::string& strWritten, T& object, const OrvexXml::CSerializationContext& ctx) {
    return OrvexTest::HasCutFloatText(strWritten) || OrvexTest::HasOverflowingFloatText(strWritten) ||
           OrvexTest::HasEmptyDurationText(strWritten) || HoldsOneWayValue(object) ||
           OrvexTest::HasStrippedCDataSection(strWritten, ctx) ||
           OrvexTest::HasNamespacesUnreadWithoutNamespaces(strWritten, ctx) ||
           OrvexTest::HasFormattedMixedContent(strWritten, ctx);
}

}  // namespace OrvexFuzz
