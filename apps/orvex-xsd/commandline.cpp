#include "commandline.h"

#include <cctype>

#include "namerules.h"
#include "schemaerror.h"

namespace OrvexXsd {

namespace {

// A C++ namespace name: identifiers joined by "::".
bool IsNamespaceName(const std::string& strName) {
    size_t nStart = 0;
    while (true) {
        const size_t nEnd = strName.find("::", nStart);
        const std::string strPart =
            strName.substr(nStart, nEnd == std::string::npos ? std::string::npos : nEnd - nStart);
        if (strPart.empty() || std::isdigit(static_cast<unsigned char>(strPart[0])) || CNameRules::IsKeyword(strPart))
            return false;
        for (char c : strPart) {
            if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
        }
        if (nEnd == std::string::npos) return true;
        nStart = nEnd + 2;
    }
}

}  // namespace

std::string CCommandLine::Usage() {
    return "Usage: orvex-xsd [options] -o DIR SCHEMA...\n"
           "Compiles XML schemas into C++ classes for the Orvex XML runtime.\n"
           "\n"
           "  -o, --output DIR      write the classes into DIR (replaced as a whole)\n"
           "  --namespace NAME      C++ namespace of the classes (default: from the target namespace)\n"
           "  --catalog FILE        XML catalog that maps schema locations and namespaces to local files\n"
           "  -I DIR                directory searched for imported and included schemas\n"
           "  --strict              treat every warning as an error\n"
           "  --clang-format PATH   formatter of the output (default: the one found at build time)\n"
           "  --no-format           leave the output unformatted\n"
           "  --list-outputs        write nothing; print \"output FILE\" for each file a run writes and\n"
           "                        \"input PATH\" for each schema document it reads\n"
           "  --help                show this text\n"
           "  --version             show the version\n"
           "\n"
           "Schemas are read from local files only. Exit status: 0 done, 1 schema error, 2 bad usage.\n";
}

void CCommandLine::Parse(int argc, char** argv) {
    bool bOptions = true;
    for (int i = 1; i < argc; ++i) {
        const std::string strArg = argv[i];
        auto Value = [&](const std::string& strOption) {
            if (i + 1 >= argc) throw CUsageError("option " + strOption + " needs a value");
            return std::string(argv[++i]);
        };
        if (!bOptions || strArg.empty() || strArg[0] != '-' || strArg == "-") {
            m_vecSchemas.push_back(strArg);
        } else if (strArg == "--") {
            bOptions = false;
        } else if (strArg == "--help" || strArg == "-h") {
            m_bHelp = true;
        } else if (strArg == "--version") {
            m_bVersion = true;
        } else if (strArg == "--strict") {
            m_bStrict = true;
        } else if (strArg == "--list-outputs") {
            m_bListOutputs = true;
        } else if (strArg == "--no-format") {
            m_bFormat = false;
        } else if (strArg == "-o" || strArg == "--output") {
            if (!m_strOutput.empty()) throw CUsageError("the output directory is given twice");
            m_strOutput = Value(strArg);
        } else if (strArg.compare(0, 9, "--output=") == 0) {
            if (!m_strOutput.empty()) throw CUsageError("the output directory is given twice");
            m_strOutput = strArg.substr(9);
        } else if (strArg == "--namespace") {
            m_strNamespace = Value(strArg);
        } else if (strArg.compare(0, 12, "--namespace=") == 0) {
            m_strNamespace = strArg.substr(12);
        } else if (strArg == "--catalog") {
            m_vecCatalogs.push_back(Value(strArg));
        } else if (strArg.compare(0, 10, "--catalog=") == 0) {
            m_vecCatalogs.push_back(strArg.substr(10));
        } else if (strArg == "-I") {
            m_vecIncludeDirs.push_back(Value(strArg));
        } else if (strArg.compare(0, 2, "-I") == 0) {
            m_vecIncludeDirs.push_back(strArg.substr(2));
        } else if (strArg == "--clang-format") {
            m_strFormatter = Value(strArg);
        } else {
            throw CUsageError("unknown option " + strArg);
        }
    }
    if (m_bHelp || m_bVersion) return;
    if (m_vecSchemas.empty()) throw CUsageError("no schema file given");
    if (m_strOutput.empty()) throw CUsageError("no output directory given (-o DIR)");
    if (!m_strNamespace.empty() && !IsNamespaceName(m_strNamespace))
        throw CUsageError("--namespace " + m_strNamespace + " is not a C++ namespace name");
}

}  // namespace OrvexXsd
