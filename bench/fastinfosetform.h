// The Fast Infoset form of a benchmark document, made in the setup by the FastInfoset library
// for Java through tests/fastinfoset/interop/XmlToFi.java, run as a black box. Empty, with a
// message, when java or the library was not found at configuration.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace BenchFastInfoset {

inline std::string MakeFastInfoset(const std::string& strXmlFile) {
#ifdef ORVEXXML_XMLTOFI
    const std::string strFiFile = strXmlFile + ".fi";
    const std::string strCommand = std::string(ORVEXXML_XMLTOFI) + " '" + strXmlFile + "' '" + strFiFile + "'";
    if (std::system(strCommand.c_str()) != 0) {
        std::fprintf(stderr, "the Fast Infoset form could not be made: %s\n", strCommand.c_str());
        return std::string();
    }
    std::ostringstream octets;
    octets << std::ifstream(strFiFile, std::ios::binary).rdbuf();
    std::remove(strFiFile.c_str());
    return octets.str();
#else
    (void)strXmlFile;
    std::fprintf(stderr, "java or FastInfoset.jar was not found: the Fast Infoset benchmarks are skipped\n");
    return std::string();
#endif
}

}  // namespace BenchFastInfoset
