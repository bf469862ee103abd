// Feeds arbitrary bytes to the schema compiler as a schema document: loading through Xerces,
// the model of the classes and the emitted code. The program reports a bad schema as a
// CSchemaError (or Xerces' XMLException) with exit status 1; any other outcome is a finding.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

#include "catalog.h"
#include "codeemitter.h"
#include "modelbuilder.h"
#include "schemaerror.h"
#include "schemaloader.h"

using namespace OrvexXsd;
XERCES_CPP_NAMESPACE_USE

namespace {

// The schema goes through a file, as the compiler reads its schemas by path: one per process.
std::string SchemaFile() {
    static const std::string s_strFile = [] {
        char szDir[] = "/tmp/compile_xsd_fuzzer_XXXXXX";
        if (!mkdtemp(szDir)) std::abort();
        return std::string(szDir) + "/schema.xsd";
    }();
    return s_strFile;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    XMLPlatformUtils::Initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    const std::string strFile = SchemaFile();
    std::ofstream(strFile, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(pData), static_cast<std::streamsize>(nSize));
    try {
        CCatalog catalog;
        CSchemaLoader loader(catalog, {});
        loader.Load({strFile});
        CModelBuilder builder(loader.GetModel(), loader.GetSourceIndex(), false);
        CCodeEmitter(builder.Build("Fuzz")).Emit();
    } catch (const CSchemaError&) {
    } catch (const XMLException&) {
    }
    return 0;
}
