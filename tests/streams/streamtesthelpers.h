// Helpers of the stream tests: a fixture with a scratch folder, file contents, open descriptors,
// memory, bytes.
#pragma once

#include <dirent.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <typeinfo>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexStreamTest {

// Restores the default local encoding after each test, which the other tests rely on; gives a
// scratch folder of its own under /tmp, removed with everything in it at the end.
class StreamTest : public ::testing::Test {
protected:
    void SetUp() override {
        char szTemplate[] = "/tmp/orvexstreamsXXXXXX";
        ASSERT_NE(nullptr, ::mkdtemp(szTemplate));
        m_strFolder = szTemplate;
    }
    void TearDown() override {
        OrvexXml::SetLocalCharEncoding(OrvexXml::ORVEXXML_CP_UTF8);
        OrvexXml::ASCIIOnly(false);
        if (!m_strFolder.empty()) {
            EXPECT_EQ(0, std::system(("rm -rf '" + m_strFolder + "'").c_str()));
        }
    }
    std::string Path(const std::string& strName) const { return m_strFolder + "/" + strName; }
    std::string m_strFolder;
};

inline std::string ReadFile(const std::string& strPath) {
    std::ifstream in(strPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void WriteFile(const std::string& strPath, const std::string& strContent) {
    std::ofstream(strPath, std::ios::binary | std::ios::trunc) << strContent;
}

// -1 when the file does not exist.
inline long long FileSize(const std::string& strPath) {
    struct stat st;
    return ::stat(strPath.c_str(), &st) != 0 ? -1 : static_cast<long long>(st.st_size);
}

// The descriptors this process holds open (the one that reads the list not counted).
inline int OpenDescriptors() {
    DIR* pDir = ::opendir("/proc/self/fd");
    if (pDir == nullptr) return -1;
    int nCount = 0;
    while (const struct dirent* pEntry = ::readdir(pDir)) nCount += pEntry->d_name[0] != '.';
    ::closedir(pDir);
    return nCount - 1;
}

// Resident memory of the process in kB, -1 when unknown.
inline long ResidentKilobytes() {
    std::ifstream in("/proc/self/status");
    for (std::string strLine; std::getline(in, strLine);) {
        if (strLine.compare(0, 6, "VmRSS:") == 0) return std::atol(strLine.c_str() + 6);
    }
    return -1;
}

inline std::string Bytes(const OrvexXml::CBinaryData& data) {
    if (data.GetLength() == 0) return std::string();
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

// UTF-16 units as little-endian bytes, the order every UTF-16 output of the library uses.
inline std::string Utf16Le(const std::u16string& strUnits) {
    std::string strBytes;
    for (char16_t u : strUnits) {
        strBytes += static_cast<char>(u & 0xFF);
        strBytes += static_cast<char>(u >> 8);
    }
    return strBytes;
}

// fn must throw a plain COxException with exactly this message.
template <class TFunc>
void ExpectOxException(TFunc fn, const std::string& strMessage,
                       const std::type_info& expectedType = typeid(OrvexXml::COxException)) {
    try {
        fn();
        ADD_FAILURE() << "no exception; expected: " << strMessage;
    } catch (const OrvexXml::COxException& e) {
        EXPECT_EQ(expectedType, typeid(e));
        EXPECT_EQ(strMessage, e.GetMessage());
    }
}

}  // namespace OrvexStreamTest
