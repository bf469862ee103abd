// Feeds arbitrary bytes to the XML reading path: the document loader and the walks that
// read a tree into generated objects. Any outcome but a COxException is a finding, and so
// is an object whose written text doesn't read back into the same text, unless that text
// holds one of the forms the library writes one way on purpose. Every object that reads is
// also written as JSON in each mode, and the text must be one strict JSON text; the full mode
// may refuse a namespace that has no prefix, and nothing else.
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
#include "support/jsonsyntax.h"
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

// Writes the object as JSON with each of the contexts, one per mode; aborts on a text that
// isn't JSON or a refusal other than the full mode's unknown namespace.
static void CheckJson(const CXmlObjectBase& object, const CSerializationContext* pJsonContexts) {
    for (int nMode = 0; nMode < 3; ++nMode) {
        const CSerializationContext& ctx = pJsonContexts[nMode];
        for (bool bFormatted : {true, false}) {
            std::string strJson;
            try {
                strJson = object.ToJson(bFormatted, EOLType_LF, ctx);
            } catch (const COxException& e) {
                if (ctx.GetJsonContext().GetSupportRoundtrip() == JsonRoundTrip_Full &&
                    e.GetFullMessage().find("\nUnknown Namespace: ") != std::string::npos)
                    return;
                std::abort();
            }
            if (!OrvexTest::CJsonSyntax::IsValid(strJson)) std::abort();
        }
    }
}

// bBytes reads the input as bytes (FromXmlStream: gzip and zlib data are inflated, the
// encoding comes from the bytes) instead of as text (FromXml).
template <class T>
static void ReadInto(const std::string& text, const CSerializationContext& ctx,
                     const CSerializationContext* pJsonContexts, bool bBytes) {
    CSmartPtr<T> object = T::CreateInstance();
    std::string strWritten;
    try {
        if (bBytes)
            object->FromXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(text.data())),
                                  static_cast<OxULong>(text.size()), ctx);
        else
            object->FromXml(text.c_str(), ctx);
        // Whatever was read must write out again.
        strWritten = object->ToXml(true, true, EOLType_LF, ctx);
    } catch (const COxException&) {
        return;
    }
    CheckJson(*object, pJsonContexts);
    // And what was written must read back into an object that writes the same text. A float
    // cut at the end of its buffer is another number, or no number, when read back; a CDATA
    // section written from a value loses its markers when read with CDATA stripped; without
    // namespaces, a document that writes any namespace isn't read back; formatted mixed content
    // takes the indentation into its text; a float rounded past the largest finite value reads
    // back as infinity; an all-zero duration and a year outside four digits aren't read at all.
    if (OrvexTest::HasCutFloatText(strWritten) || OrvexTest::HasOverflowingFloatText(strWritten) ||
        OrvexTest::HasEmptyDurationText(strWritten) || HoldsOneWayValue(*object) ||
        OrvexTest::HasStrippedCDataSection(strWritten, ctx) ||
        OrvexTest::HasNamespacesUnreadWithoutNamespaces(strWritten, ctx) ||
        OrvexTest::HasFormattedMixedContent(strWritten, ctx))
        return;
    CSmartPtr<T> again = T::CreateInstance();
    try {
        again->FromXml(strWritten.c_str(), ctx);
    } catch (const COxException&) {
        std::abort();
    }
    if (again->ToXml(true, true, EOLType_LF, ctx) != strWritten) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize == 0) return 0;
    // The first byte picks the settings, the rest is the document.
    static CSerializationContext s_contexts[4];
    // The same settings with each JSON mode.
    static CSerializationContext s_jsonContexts[4][3];
    static bool s_bInit = false;
    if (!s_bInit) {
        s_bInit = true;
        s_contexts[1].SetIgnoreUnknownElements(true);
        s_contexts[1].SetIgnoreUnknownAttributes(true);
        s_contexts[2].SetIgnoreMissingMandatoryElements(true);
        s_contexts[2].SetStripCDATA(false);
        s_contexts[3].SetSchemaType(SchemaType_DTD);
        s_contexts[3].SetIgnoreMissingChoice(true);
        for (int i = 0; i < 4; ++i) {
            for (int nMode = 0; nMode < 3; ++nMode) {
                s_jsonContexts[i][nMode] = s_contexts[i];
                s_jsonContexts[i][nMode].GetJsonContext().SetSupportRoundtrip(static_cast<JsonRoundTrip>(nMode));
            }
        }
    }
    const CSerializationContext& ctx = s_contexts[pData[0] % 4];
    const CSerializationContext* pJsonContexts = s_jsonContexts[pData[0] % 4];
    // A first byte from 0xE0 up reads the document as bytes, which may be compressed: the
    // second byte then picks the class. Below it, the first byte picks it and the rest is text.
    const bool bBytes = pData[0] >= 0xE0;
    if (bBytes && nSize < 2) return 0;
    const size_t nSkip = bBytes ? 2 : 1;
    const int nClass = bBytes ? pData[1] % 14 : (pData[0] >> 2) % 14;
    std::string text(reinterpret_cast<const char*>(pData + nSkip), nSize - nSkip);
    switch (nClass) {
        case 0:
            ReadInto<Samples::CPerson>(text, ctx, pJsonContexts, bBytes);
            break;
        case 1:
            ReadInto<Samples::CPrimitiveSet>(text, ctx, pJsonContexts, bBytes);
            break;
        case 2:
            ReadInto<Samples::CShape>(text, ctx, pJsonContexts, bBytes);
            break;
        case 3:
            ReadInto<Samples::CNote>(text, ctx, pJsonContexts, bBytes);
            break;
        case 4:
            ReadInto<Samples::CTally>(text, ctx, pJsonContexts, bBytes);
            break;
        case 5:
            ReadInto<Samples::CSettings>(text, ctx, pJsonContexts, bBytes);
            break;
        case 6:
            ReadInto<Samples::CSelection>(text, ctx, pJsonContexts, bBytes);
            break;
        case 7:
            ReadInto<Samples::CEnvelope>(text, ctx, pJsonContexts, bBytes);
            break;
        case 8:
            ReadInto<Samples::CInvoiceLine>(text, ctx, pJsonContexts, bBytes);
            break;
        case 9:
            ReadInto<Samples::CRemittance>(text, ctx, pJsonContexts, bBytes);
            break;
        case 10:
            ReadInto<Samples::COrder>(text, ctx, pJsonContexts, bBytes);
            break;
        case 11:
            ReadInto<Samples::CShop>(text, ctx, pJsonContexts, bBytes);
            break;
        case 12:
            ReadInto<Samples::CAllTypes>(text, ctx, pJsonContexts, bBytes);
            break;
        default:
            ReadInto<OrderBook::COrderBook>(text, ctx, pJsonContexts, bBytes);
            break;
    }
    return 0;
}
