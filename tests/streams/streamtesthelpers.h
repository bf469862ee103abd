// Helpers of the stream tests: a scratch folder, file contents, open descriptors, memory.
#pragma once

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexStreamTest {

// A folder of its own under /tmp, removed with everything in it at the end of the test.
class CScratchFolder {
public:
    CScratchFolder() {
        char szTemplate[] = "/tmp/orvexstreamsXXXXXX";
        const char* pszPath = ::mkdtemp(szTemplate);
        m_strPath = pszPath != nullptr ? pszPath : "";
    }
    ~CScratchFolder() {
        if (!m_strPath.empty()) {
            const std::string strCommand = "rm -rf '" + m_strPath + "'";
            if (std::system(strCommand.c_str()) != 0) std::perror("removing the scratch folder");
        }
    }
    CScratchFolder(const CScratchFolder&) = delete;
    CScratchFolder& operator=(const CScratchFolder&) = delete;

    bool IsValid() const { return !m_strPath.empty(); }
    std::string Path(const std::string& strName) const { return m_strPath + "/" + strName; }

private:
    std::string m_strPath;
};

inline std::string ReadFile(const std::string& strPath) {
    std::ifstream in(strPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void WriteFile(const std::string& strPath, const std::string& strContent) {
    std::ofstream out(strPath, std::ios::binary | std::ios::trunc);
    out.write(strContent.data(), static_cast<std::streamsize>(strContent.size()));
}

// -1 when the file does not exist.
inline long long FileSize(const std::string& strPath) {
    struct stat st;
    if (::stat(strPath.c_str(), &st) != 0) return -1;
    return static_cast<long long>(st.st_size);
}

// The descriptors this process holds open (the one that reads the list not counted).
inline int OpenDescriptors() {
    DIR* pDir = ::opendir("/proc/self/fd");
    if (pDir == nullptr) return -1;
    int nCount = 0;
    while (const struct dirent* pEntry = ::readdir(pDir)) {
        if (pEntry->d_name[0] != '.') ++nCount;
    }
    ::closedir(pDir);
    return nCount - 1;
}

// Resident memory of the process in kB, -1 when unknown.
inline long ResidentKilobytes() {
    std::ifstream in("/proc/self/status");
    std::string strLine;
    while (std::getline(in, strLine)) {
        if (strLine.compare(0, 6, "VmRSS:") == 0) return std::atol(strLine.c_str() + 6);
    }
    return -1;
}

inline std::string Bytes(const OrvexXml::CBinaryData& data) {
    if (data.GetLength() == 0) return std::string();
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

// Restores the default local encoding after each test, also when the test fails.
class CLocalEncodingGuard {
public:
    CLocalEncodingGuard() {}
    ~CLocalEncodingGuard() {
        OrvexXml::SetLocalCharEncoding(OrvexXml::ORVEXXML_CP_UTF8);
        OrvexXml::ASCIIOnly(false);
    }
    CLocalEncodingGuard(const CLocalEncodingGuard&) = delete;
    CLocalEncodingGuard& operator=(const CLocalEncodingGuard&) = delete;
};

}  // namespace OrvexStreamTest
