// orvex-instancegen: writes random documents that are valid against a schema set, loaded the
// way orvex-xsd loads it. A test tool: it isn't installed.
//
//   orvex-instancegen [--catalog FILE]... [-I DIR]... [--namespace URI] --element NAME
//                     [--count N] [--seed S] [--max-occurs N] [--max-depth N]
//                     [--max-elements N] [--derivations] -o DIR SCHEMA...
//
// Document i (from 0) is DIR/NAME-i.xml, made with the seed S * 1000003 + i. Exit status 0
// done, 1 schema error or no valid document possible, 2 bad usage.
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

#include "catalog.h"
#include "instancegenerator.h"
#include "schemaloader.h"
#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

using namespace OrvexXsd;

namespace {

struct CArguments {
    std::vector<std::string> m_vecCatalogs;
    std::vector<std::string> m_vecIncludeDirs;
    std::vector<std::string> m_vecSchemas;
    std::string m_strElement;
    std::string m_strNamespace;
    std::string m_strOutput;
    long long m_nCount = 1;
    unsigned long long m_nSeed = 1;
    CInstanceGenerator::COptions m_options;
};

// A whole non-negative number, or a usage error.
long long Number(const std::string& strOption, const std::string& strText) {
    char* pEnd = nullptr;
    const long long nValue = std::strtoll(strText.c_str(), &pEnd, 10);
    if (strText.empty() || *pEnd || nValue < 0) throw CUsageError(strOption + " needs a whole number, not " + strText);
    return nValue;
}

CArguments Parse(int argc, char** argv) {
    CArguments arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string strArgument = argv[i];
        const auto value = [&]() -> std::string {
            if (i + 1 >= argc) throw CUsageError(strArgument + " needs a value");
            return argv[++i];
        };
        if (strArgument == "--catalog") {
            arguments.m_vecCatalogs.push_back(value());
        } else if (strArgument == "-I") {
            arguments.m_vecIncludeDirs.push_back(value());
        } else if (strArgument == "--element") {
            arguments.m_strElement = value();
        } else if (strArgument == "--namespace") {
            arguments.m_strNamespace = value();
        } else if (strArgument == "-o") {
            arguments.m_strOutput = value();
        } else if (strArgument == "--count") {
            arguments.m_nCount = Number(strArgument, value());
        } else if (strArgument == "--seed") {
            arguments.m_nSeed = static_cast<unsigned long long>(Number(strArgument, value()));
        } else if (strArgument == "--max-occurs") {
            arguments.m_options.m_nMaxOccurs = static_cast<int>(Number(strArgument, value()));
        } else if (strArgument == "--max-depth") {
            arguments.m_options.m_nMaxDepth = static_cast<int>(Number(strArgument, value()));
        } else if (strArgument == "--max-elements") {
            arguments.m_options.m_nMaxElements = static_cast<int>(Number(strArgument, value()));
        } else if (strArgument == "--derivations") {
            arguments.m_options.m_bDerivations = true;
        } else if (!strArgument.empty() && strArgument[0] == '-') {
            throw CUsageError("unknown option " + strArgument);
        } else {
            arguments.m_vecSchemas.push_back(strArgument);
        }
    }
    if (arguments.m_strElement.empty()) throw CUsageError("--element is missing");
    if (arguments.m_strOutput.empty()) throw CUsageError("-o is missing");
    if (arguments.m_vecSchemas.empty()) throw CUsageError("no schema given");
    return arguments;
}

int Run(const CArguments& arguments) {
    CCatalog catalog;
    for (const std::string& strCatalog : arguments.m_vecCatalogs) catalog.Load(strCatalog);
    CSchemaLoader loader(catalog, arguments.m_vecIncludeDirs);
    loader.Load(arguments.m_vecSchemas);
    CInstanceGenerator generator(loader.GetModel(), arguments.m_options);
    for (long long i = 0; i < arguments.m_nCount; ++i) {
        const std::string strDocument =
            generator.Generate(arguments.m_strElement, arguments.m_strNamespace,
                               arguments.m_nSeed * 1000003ULL + static_cast<unsigned long long>(i));
        const std::string strFile =
            arguments.m_strOutput + "/" + arguments.m_strElement + "-" + std::to_string(i) + ".xml";
        std::ofstream file(strFile, std::ios::binary);
        file << strDocument;
        if (!file.flush()) throw std::runtime_error("can't write " + strFile);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    CArguments arguments;
    try {
        arguments = Parse(argc, argv);
    } catch (const CUsageError& e) {
        std::cerr << "orvex-instancegen: " << e.GetMessage() << "\n";
        return 2;
    }
    XMLPlatformUtils::Initialize();
    int nExit = 1;
    try {
        nExit = Run(arguments);
    } catch (const CSchemaError& e) {
        std::cerr << e.Format() << "\n";
    } catch (const XMLException& e) {
        std::cerr << "orvex-instancegen: " << CXercesText::ToUtf8(e.getMessage()) << "\n";
    } catch (const std::exception& e) {
        std::cerr << "orvex-instancegen: " << e.what() << "\n";
    }
    XMLPlatformUtils::Terminate();
    return nExit;
}
