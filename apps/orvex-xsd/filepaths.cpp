#include "filepaths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <vector>

namespace OrvexXsd {

static std::string CurrentDirectory() {
    std::vector<char> buffer(4096);
    while (!getcwd(buffer.data(), buffer.size())) {
        if (buffer.size() > (1u << 20)) return "/";
        buffer.resize(buffer.size() * 2);
    }
    return buffer.data();
}

// The length of a URI scheme with its colon, 0 when the text has none. One letter before
// the colon is no scheme (a drive letter), so such a name stays a path.
static size_t SchemeLength(const std::string& strReference) {
    size_t n = 0;
    while (n < strReference.size() && (std::isalnum(static_cast<unsigned char>(strReference[n])) ||
                                       strReference[n] == '+' || strReference[n] == '-' || strReference[n] == '.'))
        ++n;
    if (n < 2 || n >= strReference.size() || strReference[n] != ':' ||
        !std::isalpha(static_cast<unsigned char>(strReference[0])))
        return 0;
    return n + 1;
}

bool CFilePaths::IsRemote(const std::string& strReference) {
    const size_t n = SchemeLength(strReference);
    return n > 0 && strReference.compare(0, n, "file:") != 0;
}

static int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string CFilePaths::ToPath(const std::string& strReference) {
    if (strReference.compare(0, 5, "file:") != 0) return strReference;
    std::string strRest = strReference.substr(5);
    if (strRest.compare(0, 2, "//") == 0) {
        // file://host/path: only an empty host or localhost names this machine.
        const size_t nSlash = strRest.find('/', 2);
        strRest = nSlash == std::string::npos ? "/" : strRest.substr(nSlash);
    }
    std::string strPath;
    for (size_t i = 0; i < strRest.size(); ++i) {
        if (strRest[i] == '%' && i + 2 < strRest.size() && HexDigit(strRest[i + 1]) >= 0 &&
            HexDigit(strRest[i + 2]) >= 0) {
            strPath += static_cast<char>(HexDigit(strRest[i + 1]) * 16 + HexDigit(strRest[i + 2]));
            i += 2;
        } else {
            strPath += strRest[i];
        }
    }
    return strPath;
}

std::string CFilePaths::Resolve(const std::string& strDirectory, const std::string& strPath) {
    std::string strFull;
    if (!strPath.empty() && strPath[0] == '/')
        strFull = strPath;
    else if (strDirectory.empty())
        strFull = CurrentDirectory() + "/" + strPath;
    else if (strDirectory[0] != '/')
        strFull = CurrentDirectory() + "/" + strDirectory + "/" + strPath;
    else
        strFull = strDirectory + "/" + strPath;
    // Drop "." and empty steps, and take ".." back one step.
    std::vector<std::string> vecSteps;
    size_t nStart = 0;
    while (nStart <= strFull.size()) {
        size_t nEnd = strFull.find('/', nStart);
        if (nEnd == std::string::npos) nEnd = strFull.size();
        const std::string strStep = strFull.substr(nStart, nEnd - nStart);
        if (strStep == "..") {
            if (!vecSteps.empty()) vecSteps.pop_back();
        } else if (!strStep.empty() && strStep != ".") {
            vecSteps.push_back(strStep);
        }
        nStart = nEnd + 1;
    }
    std::string strResult;
    for (const std::string& strStep : vecSteps) strResult += "/" + strStep;
    return strResult.empty() ? "/" : strResult;
}

std::string CFilePaths::DirectoryOf(const std::string& strPath) {
    const size_t nSlash = strPath.rfind('/');
    if (nSlash == std::string::npos) return ".";
    return nSlash == 0 ? "/" : strPath.substr(0, nSlash);
}

std::string CFilePaths::BaseName(const std::string& strPath) {
    const size_t nSlash = strPath.rfind('/');
    return nSlash == std::string::npos ? strPath : strPath.substr(nSlash + 1);
}

bool CFilePaths::IsFile(const std::string& strPath) {
    struct stat info;
    return stat(strPath.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

std::string CFilePaths::Display(const std::string& strPath) {
    const std::string strCurrent = CurrentDirectory();
    if (strPath.size() > strCurrent.size() + 1 && strPath.compare(0, strCurrent.size(), strCurrent) == 0 &&
        strPath[strCurrent.size()] == '/')
        return strPath.substr(strCurrent.size() + 1);
    return strPath;
}

}  // namespace OrvexXsd
