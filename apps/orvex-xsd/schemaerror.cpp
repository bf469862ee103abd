#include "schemaerror.h"

namespace OrvexXsd {

CSchemaError::CSchemaError(const std::string& strFile, int nLine, int nColumn, const std::string& strMessage)
    : m_strFile(strFile), m_nLine(nLine), m_nColumn(nColumn), m_strMessage(strMessage) {}

std::string CSchemaError::Format(const std::string& strLabel) const {
    if (m_strFile.empty()) return strLabel + m_strMessage;
    if (m_nLine <= 0) return m_strFile + ": " + strLabel + m_strMessage;
    return m_strFile + ":" + std::to_string(m_nLine) + ":" + std::to_string(m_nColumn) + ": " + strLabel + m_strMessage;
}

}  // namespace OrvexXsd
