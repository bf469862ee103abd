#pragma once

#include <string>

namespace OrvexTool {

// Where a result goes: standard output, or a file that appears whole or not at all. A file
// is written to a temporary file in the target's directory and renamed over the target by
// Commit; an output destroyed before Commit removes its temporary file.
class COutputFile {
public:
    // "-" is standard output.
    explicit COutputFile(const std::string& strTarget);
    ~COutputFile();
    COutputFile(const COutputFile&) = delete;
    COutputFile& operator=(const COutputFile&) = delete;

    // Whether the output is a terminal.
    bool IsTerminal() const;
    // Writes the whole result and puts it in place. Throws CToolError with
    // ExitStatus_BadUsage when the output can't be written.
    void WriteAndCommit(const unsigned char* pData, size_t nLength);

private:
    void Fail(int nError);

    std::string m_strTarget;
    std::string m_strTemporary;
    int m_hFile;
};

}  // namespace OrvexTool
