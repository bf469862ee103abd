// The order document of the benchmarks, written by the project's generator script
// (bench/order/gen_order.py) with python3, together with the generator's census line.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

// Writes a document of nOrders orders to strFile and returns the generator's census line
// (without its line end); an empty string when the script could not be run.
inline std::string GenerateOrderDocument(const std::string& strFile, int nOrders) {
    const std::string strCensus = strFile + ".census";
    const std::string strCommand = "python3 '" ORVEXXML_SOURCE_DIR "/bench/order/gen_order.py' " +
                                   std::to_string(nOrders) + " --census '" + strCensus + "' > '" + strFile +
                                   "' 2>/dev/null";
    if (std::system(strCommand.c_str()) != 0) return std::string();
    std::string strLine;
    std::getline(std::ifstream(strCensus), strLine);
    std::remove(strCensus.c_str());
    return strLine;
}
