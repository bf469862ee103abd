// A fault of the schema set or of the command line, with the place it was found.
#pragma once

#include <string>

namespace OrvexXsd {

class CSchemaError {
public:
    // A fault at a place in a schema file; a line of 0 leaves line and column out.
    CSchemaError(const std::string& strFile, int nLine, int nColumn, const std::string& strMessage);

    // "file:line:column: message", or "file: message" without a line, or the message alone;
    // a label ("warning: ") stands before the message.
    std::string Format(const std::string& strLabel = std::string()) const;
    const std::string& GetMessage() const { return m_strMessage; }

private:
    std::string m_strFile;
    int m_nLine;
    int m_nColumn;
    std::string m_strMessage;
};

// A command line that can't be followed; the program exits with 2.
class CUsageError {
public:
    explicit CUsageError(const std::string& strMessage) : m_strMessage(strMessage) {}
    const std::string& GetMessage() const { return m_strMessage; }

private:
    std::string m_strMessage;
};

}  // namespace OrvexXsd
