// The options of orvex-xsd.
#pragma once

#include <string>
#include <vector>

namespace OrvexXsd {

class CCommandLine {
public:
    // Reads the arguments; throws CUsageError for a command line that can't be followed.
    void Parse(int argc, char** argv);

    static std::string Usage();

    bool m_bHelp = false;
    bool m_bVersion = false;
    bool m_bStrict = false;
    bool m_bFormat = true;
    bool m_bListOutputs = false;  // print the files a run would write and the schemas it reads
    std::string m_strOutput;
    std::string m_strNamespace;  // empty: derived from the target namespace
    std::string m_strFormatter;  // empty: the clang-format found when the compiler was built
    std::vector<std::string> m_vecCatalogs;
    std::vector<std::string> m_vecIncludeDirs;
    std::vector<std::string> m_vecSchemas;
};

}  // namespace OrvexXsd
