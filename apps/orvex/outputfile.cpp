#include "outputfile.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <vector>

#include "toolerror.h"

namespace OrvexTool {

COutputFile::COutputFile(const std::string& strTarget) : m_strTarget(strTarget), m_hFile(-1) {}

COutputFile::~COutputFile() {
    if (m_hFile >= 0 && m_hFile != STDOUT_FILENO) ::close(m_hFile);
    if (!m_strTemporary.empty()) ::unlink(m_strTemporary.c_str());
}

bool COutputFile::IsTerminal() const { return m_strTarget == "-" && ::isatty(STDOUT_FILENO) == 1; }

void COutputFile::Fail(int nError) {
    const std::string strName = m_strTarget == "-" ? "(standard output)" : m_strTarget;
    throw CToolError(ExitStatus_BadUsage, strName + ": " + std::strerror(nError));
}

void COutputFile::WriteAndCommit(const unsigned char* pData, size_t nLength) {
    if (m_strTarget == "-") {
        m_hFile = STDOUT_FILENO;
    } else {
        // The temporary file lies beside the target, so the rename stays on one file system.
        const size_t nSlash = m_strTarget.rfind('/');
        const std::string strDir = nSlash == std::string::npos ? "." : m_strTarget.substr(0, nSlash + 1);
        std::string strTemplate = strDir + (nSlash == std::string::npos ? "/" : "") + ".orvex-XXXXXX";
        std::vector<char> vecName(strTemplate.begin(), strTemplate.end());
        vecName.push_back('\0');
        m_hFile = ::mkstemp(vecName.data());
        if (m_hFile < 0) Fail(errno);
        m_strTemporary = vecName.data();
        // mkstemp makes the file private; the result gets the usual mode of a new file.
        const mode_t nMask = ::umask(0);
        ::umask(nMask);
        ::fchmod(m_hFile, 0666 & ~nMask);
    }
    size_t nDone = 0;
    while (nDone < nLength) {
        const ssize_t nWritten = ::write(m_hFile, pData + nDone, nLength - nDone);
        if (nWritten < 0) {
            if (errno == EINTR) continue;
            Fail(errno);
        }
        nDone += static_cast<size_t>(nWritten);
    }
    if (m_hFile == STDOUT_FILENO) return;
    const int hFile = m_hFile;
    m_hFile = -1;
    if (::close(hFile) != 0) Fail(errno);
    struct stat info;
    if (::stat(m_strTarget.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) Fail(EISDIR);
    if (::rename(m_strTemporary.c_str(), m_strTarget.c_str()) != 0) Fail(errno);
    m_strTemporary.clear();
}

}  // namespace OrvexTool
