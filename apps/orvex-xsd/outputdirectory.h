// The output directory, written whole or not at all: the files go into a new directory
// beside it, are formatted there, and the new directory then takes the old one's place.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace OrvexXsd {

class COutputDirectory {
public:
    // strFormatter: the clang-format program, or empty to leave the text as it is.
    COutputDirectory(const std::string& strDirectory, const std::string& strFormatter);
    // Removes the temporary directory if Commit was not reached.
    ~COutputDirectory();
    COutputDirectory(const COutputDirectory&) = delete;
    COutputDirectory& operator=(const COutputDirectory&) = delete;

    // Writes, formats and puts the files in place; throws CSchemaError (without a place)
    // when the file system or the formatter fails, leaving the old directory as it was.
    void Commit(const std::map<std::string, std::string>& mapFiles);

private:
    // Runs the formatter on the files in place.
    void Format(const std::vector<std::string>& vecFiles) const;

    std::string m_strDirectory;
    std::string m_strFormatter;
    std::string m_strTemporary;
};

}  // namespace OrvexXsd
