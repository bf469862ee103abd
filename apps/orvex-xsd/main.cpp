// orvex-xsd: compiles XML schemas into classes for the Orvex XML runtime.
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

#include "catalog.h"
#include "codeemitter.h"
#include "commandline.h"
#include "filepaths.h"
#include "modelbuilder.h"
#include "namerules.h"
#include "outputdirectory.h"
#include "schemaloader.h"
#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

using namespace OrvexXsd;

namespace {

enum { Exit_Done = 0, Exit_SchemaError = 1, Exit_Usage = 2 };

void PrintWarnings(const std::vector<CSchemaError>& vecWarnings) {
    for (const CSchemaError& warning : vecWarnings) std::cerr << warning.Format("warning: ") << "\n";
}

// The formatter to run, or empty when none is to be run or none can be found.
std::string Formatter(const CCommandLine& options) {
    if (!options.m_bFormat) return std::string();
    if (!options.m_strFormatter.empty()) return options.m_strFormatter;
#ifdef ORVEX_XSD_CLANG_FORMAT
    if (CFilePaths::IsFile(ORVEX_XSD_CLANG_FORMAT)) return ORVEX_XSD_CLANG_FORMAT;
#endif
    return "clang-format";
}

int Compile(const CCommandLine& options) {
    CCatalog catalog;
    for (const std::string& strCatalog : options.m_vecCatalogs) catalog.Load(strCatalog);
    CSchemaLoader loader(catalog, options.m_vecIncludeDirs);
    loader.Load(options.m_vecSchemas);
    if (options.m_bStrict && !loader.GetWarnings().empty()) throw loader.GetWarnings().front();
    PrintWarnings(loader.GetWarnings());

    std::string strNamespace = options.m_strNamespace;
    if (strNamespace.empty()) {
        const std::vector<CSourceIndex::CDocument>& vecDocuments = loader.GetSourceIndex().GetDocuments();
        strNamespace =
            CNameRules::NamespaceFor(vecDocuments.empty() ? std::string() : vecDocuments.front().m_strTargetNamespace);
    }
    CModelBuilder builder(loader.GetModel(), loader.GetSourceIndex(), options.m_bStrict);
    CSchemaSetModel model = builder.Build(strNamespace);
    PrintWarnings(builder.GetWarnings());
    for (size_t i = 0; i < options.m_vecSchemas.size(); ++i)
        model.m_strSchemaFiles += (i ? ", " : "") + CFilePaths::BaseName(options.m_vecSchemas[i]);

    const std::map<std::string, std::string> mapFiles = CCodeEmitter(model).Emit();
    if (options.m_bListOutputs) {
        for (const auto& file : mapFiles) std::cout << "output " << file.first << "\n";
        for (const CSourceIndex::CDocument& document : loader.GetSourceIndex().GetDocuments())
            std::cout << "input " << document.m_strPath << "\n";
        return Exit_Done;
    }
    COutputDirectory output(options.m_strOutput, Formatter(options));
    output.Commit(mapFiles);
    return Exit_Done;
}

}  // namespace

int main(int argc, char** argv) {
    CCommandLine options;
    try {
        options.Parse(argc, argv);
    } catch (const CUsageError& e) {
        std::cerr << "orvex-xsd: " << e.GetMessage() << "\nTry 'orvex-xsd --help'.\n";
        return Exit_Usage;
    }
    if (options.m_bHelp) {
        std::cout << CCommandLine::Usage();
        return Exit_Done;
    }
    if (options.m_bVersion) {
        std::cout << "orvex-xsd " ORVEX_XSD_VERSION "\n";
        return Exit_Done;
    }
    try {
        XMLPlatformUtils::Initialize();
    } catch (const XMLException& e) {
        std::cerr << "orvex-xsd: Xerces-C can't start: " << CXercesText::ToUtf8(e.getMessage()) << "\n";
        return Exit_SchemaError;
    }
    int nExit = Exit_Done;
    try {
        nExit = Compile(options);
    } catch (const CSchemaError& e) {
        std::cerr << e.Format() << "\n";
        nExit = Exit_SchemaError;
    } catch (const XMLException& e) {
        std::cerr << "orvex-xsd: " << CXercesText::ToUtf8(e.getMessage()) << "\n";
        nExit = Exit_SchemaError;
    }
    XMLPlatformUtils::Terminate();
    return nExit;
}
