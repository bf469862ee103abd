#pragma once

#include <string>

namespace OrvexTool {

// Exit statuses of the program.
enum ExitStatus { ExitStatus_Success = 0, ExitStatus_BadDocument = 1, ExitStatus_BadUsage = 2 };

// Ends the program with a status and one line on standard error. Thrown by value.
class CToolError {
public:
    CToolError(ExitStatus eStatus, const std::string& strMessage) : m_eStatus(eStatus), m_strMessage(strMessage) {}
    ExitStatus GetStatus() const { return m_eStatus; }
    const std::string& GetMessage() const { return m_strMessage; }

private:
    ExitStatus m_eStatus;
    std::string m_strMessage;
};

}  // namespace OrvexTool
