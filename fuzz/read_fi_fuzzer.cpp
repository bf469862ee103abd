// Feeds arbitrary bytes to the reading path as Fast Infoset: the format detection, the Fast
// Infoset reader and the walks that read the tree into generated objects. Any outcome but a
// COxException is a finding, and so is an object that reads but doesn't write XML that reads
// back into the same text, unless that text holds one of the forms the library writes one
// way on purpose. The header is put in front of the input, so that nearly every input
// reaches the reader and not the XML parser.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <type_traits>

#include "fuzzsamples.h"

using namespace OrvexXml;
using namespace OrvexFuzz;

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
        if (WritesOneWay(strWritten, *object, ctx)) return;
    } catch (const COxException&) {
        return;
    }
    if (strAgain != strWritten) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize == 0) return 0;
    // The first byte picks the settings and the class, the rest is the document.
    const CSerializationContext& ctx = ReadingContexts()[pData[0] % 4];
    std::string octets("\xE0\x00\x00\x01", 4);
    octets.append(reinterpret_cast<const char*>(pData + 1), nSize - 1);
    WithSampleClass((pData[0] >> 2) % kSampleClasses,
                    [&](auto* pClass) { ReadInto<std::remove_pointer_t<decltype(pClass)>>(octets, ctx); });
    return 0;
}
