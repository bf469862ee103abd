// Whole files read and written as bytes, and the bytes of a value as a string, for the tests
// that write documents to disk or compare binary output with readable failure messages.
#pragma once

#include <fstream>
#include <sstream>
#include <string>

#include "orvexxml/values/binarydata.h"

namespace OrvexTest {

// The whole file; empty when it can't be opened.
inline std::string ReadFile(const std::string& strPath) {
    std::ifstream in(strPath, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline void WriteFile(const std::string& strPath, const std::string& strData) {
    std::ofstream out(strPath, std::ios::binary);
    out.write(strData.data(), static_cast<std::streamsize>(strData.size()));
}

// A literal is text, not binary data.
inline void WriteFile(const std::string& strPath, const char* pszData) { WriteFile(strPath, std::string(pszData)); }

inline void WriteFile(const std::string& strPath, const OrvexXml::CBinaryData& data) {
    std::ofstream out(strPath, std::ios::binary);
    out.write(reinterpret_cast<const char*>(data.GetData()), static_cast<std::streamsize>(data.GetLength()));
}

inline std::string Bytes(const OrvexXml::CBinaryData& data) {
    if (data.GetData() == nullptr) return std::string();
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

}  // namespace OrvexTest
