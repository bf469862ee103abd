// Feeds arbitrary bytes to the XML reading path: the document loader and the walks that
// read a tree into generated objects. Any outcome but a COxException is a finding, and so
// is an object whose written text doesn't read back into the same text, unless that text
// holds one of the forms the library writes one way on purpose. Every object that reads is
// also written as JSON in each mode, and the text must be one strict JSON text; the full mode
// may refuse a namespace that has no prefix, and nothing else.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <type_traits>

#include "fuzzsamples.h"
#include "support/jsonsyntax.h"

using namespace OrvexXml;
using namespace OrvexFuzz;

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
    if (WritesOneWay(strWritten, *object, ctx)) return;
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
    const CSerializationContext* pContexts = ReadingContexts();
    // The same settings with each JSON mode.
    static CSerializationContext s_jsonContexts[4][3];
    static bool s_bInit = false;
    if (!s_bInit) {
        s_bInit = true;
        for (int i = 0; i < 4; ++i) {
            for (int nMode = 0; nMode < 3; ++nMode) {
                s_jsonContexts[i][nMode] = pContexts[i];
                s_jsonContexts[i][nMode].GetJsonContext().SetSupportRoundtrip(static_cast<JsonRoundTrip>(nMode));
            }
        }
    }
    const CSerializationContext& ctx = pContexts[pData[0] % 4];
    const CSerializationContext* pJsonContexts = s_jsonContexts[pData[0] % 4];
    // A first byte from 0xE0 up reads the document as bytes, which may be compressed: the
    // second byte then picks the class. Below it, the first byte picks it and the rest is text.
    const bool bBytes = pData[0] >= 0xE0;
    if (bBytes && nSize < 2) return 0;
    const size_t nSkip = bBytes ? 2 : 1;
    const int nClass = bBytes ? pData[1] % kSampleClasses : (pData[0] >> 2) % kSampleClasses;
    std::string text(reinterpret_cast<const char*>(pData + nSkip), nSize - nSkip);
    WithSampleClass(nClass, [&](auto* pClass) {
        ReadInto<std::remove_pointer_t<decltype(pClass)>>(text, ctx, pJsonContexts, bBytes);
    });
    return 0;
}
