#include "outputdirectory.h"

#include <dirent.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <vector>

#include "filepaths.h"
#include "schemaerror.h"

extern char** environ;

namespace OrvexXsd {

namespace {

// The layout of the generated code: the runtime's own.
const char kStyle[] =
    "{BasedOnStyle: Google, IndentWidth: 4, ColumnLimit: 120, AccessModifierOffset: -4, "
    "AllowShortFunctionsOnASingleLine: All, AllowShortIfStatementsOnASingleLine: WithoutElse, "
    "DerivePointerAlignment: false, PointerAlignment: Left, SortIncludes: true}";

CSchemaError SystemError(const std::string& strWhat, const std::string& strPath) {
    return CSchemaError(strPath, 0, 0, strWhat + ": " + std::strerror(errno));
}

void RemoveTree(const std::string& strPath) {
    DIR* pDir = opendir(strPath.c_str());
    if (pDir) {
        while (dirent* pEntry = readdir(pDir)) {
            const std::string strName = pEntry->d_name;
            if (strName == "." || strName == "..") continue;
            const std::string strChild = strPath + "/" + strName;
            struct stat info;
            if (lstat(strChild.c_str(), &info) == 0 && S_ISDIR(info.st_mode))
                RemoveTree(strChild);
            else
                unlink(strChild.c_str());
        }
        closedir(pDir);
    }
    rmdir(strPath.c_str());
}

}  // namespace

COutputDirectory::COutputDirectory(const std::string& strDirectory, const std::string& strFormatter)
    : m_strDirectory(CFilePaths::Resolve("", strDirectory)), m_strFormatter(strFormatter) {}

COutputDirectory::~COutputDirectory() {
    if (!m_strTemporary.empty()) RemoveTree(m_strTemporary);
}

void COutputDirectory::Format(const std::vector<std::string>& vecFiles) const {
    const std::string strStyle = std::string("--style=") + kStyle;
    std::vector<char*> vecArgs = {const_cast<char*>(m_strFormatter.c_str()), const_cast<char*>("-i"),
                                  const_cast<char*>(strStyle.c_str())};
    for (const std::string& strFile : vecFiles) vecArgs.push_back(const_cast<char*>(strFile.c_str()));
    vecArgs.push_back(nullptr);
    pid_t pid = 0;
    if (posix_spawnp(&pid, m_strFormatter.c_str(), nullptr, nullptr, vecArgs.data(), environ) != 0)
        throw CSchemaError(m_strFormatter, 0, 0, "the formatter could not be started");
    int nStatus = 0;
    while (waitpid(pid, &nStatus, 0) < 0) {
        if (errno != EINTR) throw SystemError("waiting for the formatter failed", m_strFormatter);
    }
    if (!WIFEXITED(nStatus) || WEXITSTATUS(nStatus) != 0)
        throw CSchemaError(m_strFormatter, 0, 0, "the formatter failed");
}

void COutputDirectory::Commit(const std::map<std::string, std::string>& mapFiles) {
    std::string strTemplate = m_strDirectory + ".tmp-XXXXXX";
    std::vector<char> vecTemplate(strTemplate.begin(), strTemplate.end());
    vecTemplate.push_back('\0');
    if (!mkdtemp(vecTemplate.data())) throw SystemError("can't create a directory beside the output", m_strDirectory);
    m_strTemporary = vecTemplate.data();
    chmod(m_strTemporary.c_str(), 0755);
    // One formatter run takes a batch of files: starting it costs more than formatting a file.
    std::vector<std::string> vecBatch;
    for (const auto& file : mapFiles) {
        const std::string strPath = m_strTemporary + "/" + file.first;
        std::ofstream out(strPath, std::ios::binary);
        out << file.second;
        out.close();
        if (!out) throw SystemError("can't write", strPath);
        vecBatch.push_back(strPath);
        if (!m_strFormatter.empty() && vecBatch.size() == 256) {
            Format(vecBatch);
            vecBatch.clear();
        }
    }
    if (!m_strFormatter.empty() && !vecBatch.empty()) Format(vecBatch);
    // The old directory moves aside before the new one takes its name, and goes last.
    struct stat info;
    std::string strOld;
    if (stat(m_strDirectory.c_str(), &info) == 0) {
        if (!S_ISDIR(info.st_mode)) throw CSchemaError(m_strDirectory, 0, 0, "the output exists and is no directory");
        const std::string strOldTemplate = m_strDirectory + ".old-XXXXXX";
        std::vector<char> vecOld(strOldTemplate.begin(), strOldTemplate.end());
        vecOld.push_back('\0');
        if (!mkdtemp(vecOld.data())) throw SystemError("can't move the old output aside", m_strDirectory);
        strOld = vecOld.data();
        rmdir(strOld.c_str());
        if (rename(m_strDirectory.c_str(), strOld.c_str()) != 0)
            throw SystemError("can't move the old output aside", m_strDirectory);
    }
    if (rename(m_strTemporary.c_str(), m_strDirectory.c_str()) != 0) {
        const CSchemaError error = SystemError("can't put the output in place", m_strDirectory);
        if (!strOld.empty()) rename(strOld.c_str(), m_strDirectory.c_str());
        throw error;
    }
    m_strTemporary.clear();
    if (!strOld.empty()) RemoveTree(strOld);
}

}  // namespace OrvexXsd
