// Feeds arbitrary bytes to the reading path as Fast Infoset: the format detection, the Fast
// Infoset reader and the walks that read the tree into generated objects. Any outcome but a
// COxException is a finding, and so is an object that reads but doesn't write XML that reads
// back into the same text, unless that text holds one of the forms the library writes one
// way on purpose. The header is put in front of the input, so that nearly every input
// reaches the reader and not the XML parser.
#include <orvexxml/orvexxml.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
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

using namespace OrvexXml;

// What a class holds that the library writes one way and its text doesn't show: by default
// nothing.
template <class T>
static bool HoldsOneWayValue(T&) {
    return false;
}

// A year outside 1000 to 9999 writes a text that isn't read as a year.
template <>
bool HoldsOneWayValue(Samples::CAllTypes& object) {
    if (object.IsValidGYear() && OrvexTest::IsUnreadableYear(object.GetGYear())) return true;
    for (uint16_t nYear : object.GetGYearList()) {
        if (OrvexTest::IsUnreadableYear(nYear)) return true;
    }
    return false;
}

template <class T>
static void ReadInto(std::string& octets, const CSerializationContext& ctx) {
    CSmartPtr<T> object = T::CreateInstance();
    std::string strWritten;
    try {
        object->FromXmlStream(reinterpret_cast<unsigned char*>(&octets[0]), static_cast<OxULong>(octets.size()), ctx);
        strWritten = object->ToXml(true, true, EOLType_LF, ctx);
    } catch (const COxException&) {
        return;
    }
    // Fast Infoset carries any name and any character; XML text refuses some of them, so a
    // text that doesn't read back is no finding here. What does read must read the same.
    CSmartPtr<T> again = T::CreateInstance();
    std::string strAgain;
    try {
        again->FromXml(strWritten.c_str(), ctx);
        strAgain = again->ToXml(true, true, EOLType_LF, ctx);
        if (OrvexTest::HasCutFloatText(strWritten) || OrvexTest::HasOverflowingFloatText(strWritten) ||
            OrvexTest::HasEmptyDurationText(strWritten) || HoldsOneWayValue(*object) ||
            OrvexTest::HasStrippedCDataSection(strWritten, ctx) ||
            OrvexTest::HasNamespacesUnreadWithoutNamespaces(strWritten, ctx) ||
            OrvexTest::HasFormattedMixedContent(strWritten, ctx))
            return;
    } catch (const COxException&) {
        return;
    }
    if (strAgain != strWritten) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize == 0) return 0;
    // The first byte picks the settings and the class, the rest is the document.
    static CSerializationContext s_contexts[4];
    static bool s_bInit = false;
    if (!s_bInit) {
        s_bInit = true;
        s_contexts[1].SetIgnoreUnknownElements(true);
        s_contexts[1].SetIgnoreUnknownAttributes(true);
        s_contexts[2].SetIgnoreMissingMandatoryElements(true);
        s_contexts[2].SetStripCDATA(false);
        s_contexts[3].SetSchemaType(SchemaType_DTD);
        s_contexts[3].SetIgnoreMissingChoice(true);
    }
    const CSerializationContext& ctx = s_contexts[pData[0] % 4];
    std::string octets("\xE0\x00\x00\x01", 4);
    octets.append(reinterpret_cast<const char*>(pData + 1), nSize - 1);
    switch ((pData[0] >> 2) % 14) {
        case 0:
            ReadInto<Samples::CPerson>(octets, ctx);
            break;
        case 1:
            ReadInto<Samples::CPrimitiveSet>(octets, ctx);
            break;
        case 2:
            ReadInto<Samples::CShape>(octets, ctx);
            break;
        case 3:
            ReadInto<Samples::CNote>(octets, ctx);
            break;
        case 4:
            ReadInto<Samples::CTally>(octets, ctx);
            break;
        case 5:
            ReadInto<Samples::CSettings>(octets, ctx);
            break;
        case 6:
            ReadInto<Samples::CSelection>(octets, ctx);
            break;
        case 7:
            ReadInto<Samples::CEnvelope>(octets, ctx);
            break;
        case 8:
            ReadInto<Samples::CInvoiceLine>(octets, ctx);
            break;
        case 9:
            ReadInto<Samples::CRemittance>(octets, ctx);
            break;
        case 10:
            ReadInto<Samples::COrder>(octets, ctx);
            break;
        case 11:
            ReadInto<Samples::CShop>(octets, ctx);
            break;
        case 12:
            ReadInto<Samples::CAllTypes>(octets, ctx);
            break;
        default:
            ReadInto<OrderBook::COrderBook>(octets, ctx);
            break;
    }
    return 0;
}
