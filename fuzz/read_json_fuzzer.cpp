// Feeds arbitrary bytes to the JSON reading path: the conversion of JSON text to XML text
// (CXmlDocument::LoadJson) and FromJson into generated objects. Any outcome but a COxException
// is a finding. An object that reads in the full mode is written as JSON again, and that text
// must read back into an object that writes the same XML, unless the XML holds one of the
// forms the library writes one way on purpose. The bytes of a successful plain conversion
// must be read by the XML loader into a tree or refused with a COxException.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <type_traits>

#include "fuzzsamples.h"

using namespace OrvexXml;
using namespace OrvexFuzz;

// ctx reads the input; the JSON written from what was read goes back through ctxAgain, the
// full mode without a root element name, since the text names its root.
template <class T>
static void ReadInto(const char* pszJson, const CSerializationContext& ctx, const CSerializationContext& ctxAgain,
                     bool bRoundTrip) {
    CSmartPtr<T> object = T::CreateInstance();
    std::string strXml;
    std::string strJson;
    try {
        object->FromJson(pszJson, ctx);
        strXml = object->ToXml(true, false, EOLType_LF, ctx);
        strJson = object->ToJson(false, EOLType_LF, ctx);
    } catch (const COxException&) {
        return;
    }
    if (!bRoundTrip || ctx.GetJsonContext().GetSupportRoundtrip() != JsonRoundTrip_Full ||
        WritesOneWay(strXml, *object, ctx))
        return;
    CSmartPtr<T> again = T::CreateInstance();
    try {
        again->FromJson(strJson.c_str(), ctxAgain);
    } catch (const COxException&) {
        std::abort();
    }
    if (again->ToXml(true, false, EOLType_LF, ctx) != strXml) std::abort();
}

static void Convert(const char* pszJson, const CSerializationContext& ctx) {
    CBinaryData data;
    try {
        CXmlDocument doc(ctx);
        data = doc.LoadJson(pszJson);
    } catch (const COxException&) {
        return;
    }
    try {
        CXmlDocument xml(ctx);
        xml.LoadXmlStream(const_cast<unsigned char*>(data.GetData()), data.GetLength());
    } catch (const COxException&) {
    }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize == 0) return 0;
    // The first byte picks the settings: the mode, a root element name, comments; the second
    // the target. The rest is the document, up to its first null byte.
    static CSerializationContext s_contexts[12];
    static bool s_bInit = false;
    if (!s_bInit) {
        s_bInit = true;
        for (int i = 0; i < 12; ++i) {
            CJsonContext& json = s_contexts[i].GetJsonContext();
            json.SetSupportRoundtrip(static_cast<JsonRoundTrip>(i % 3));
            json.SetRootElementName((i / 3) % 2 ? "Person" : "");
            json.GetAllowComments(i / 6 == 0);
        }
    }
    const CSerializationContext& ctx = s_contexts[pData[0] % 12];
    const unsigned nTarget = nSize > 1 ? pData[1] % 16 : 0;
    std::string text(reinterpret_cast<const char*>(pData) + (nSize > 1 ? 2 : 1), nSize > 1 ? nSize - 2 : 0);
    const char* pszJson = text.c_str();
    if (nTarget == 0 || nTarget > kSampleClasses) {
        Convert(pszJson, ctx);
        return 0;
    }
    WithSampleClass(static_cast<int>(nTarget) - 1, [&](auto* pClass) {
        using T = std::remove_pointer_t<decltype(pClass)>;
        // The JSON writer gives an untyped item whose name differs from the one before it no
        // name of its own inside that one's array: no round trip for open content.
        ReadInto<T>(pszJson, ctx, s_contexts[2], !std::is_same<T, Samples::CEnvelope>::value);
    });
    return 0;
}
