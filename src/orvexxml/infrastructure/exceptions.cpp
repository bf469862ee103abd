#include "orvexxml/infrastructure/exceptions.h"

namespace OrvexXml {

// Grants the constructors access to the protected Clone of another instance.
class COxExceptionCloner {
public:
    static COxException* Clone(const COxException* p) { return p ? p->Clone() : nullptr; }
};

COxException::COxException() : m_pInnerException(nullptr) {}

COxException::COxException(const std::string& strMessage) : m_pInnerException(nullptr) {
    Init(strMessage, std::string(), nullptr);
}

COxException::COxException(const std::string& strMessage, const COxException& inner) : m_pInnerException(nullptr) {
    Init(strMessage, std::string(), &inner);
}

COxException::COxException(const std::string& strMessage, const std::string& strPath) : m_pInnerException(nullptr) {
    Init(strMessage, strPath, nullptr);
}

COxException::COxException(const std::string& strMessage, const std::string& strPath, const COxException& inner)
    : m_pInnerException(nullptr) {
    Init(strMessage, strPath, &inner);
}

void COxException::Init(const std::string& strMessage, const std::string& strPath, const COxException* pInner) {
    m_strMessage = strMessage;
    if (!strPath.empty()) {
        m_strPath = strPath;
        m_strMessage += "\nPath: ";
        m_strMessage += strPath;
    }
    m_pInnerException = COxExceptionCloner::Clone(pInner);
}

COxException::COxException(const COxException& other)
    : m_strMessage(other.m_strMessage),
      m_strPath(other.m_strPath),
      m_pInnerException(COxExceptionCloner::Clone(other.m_pInnerException)) {}

COxException& COxException::operator=(const COxException& other) {
    if (this != &other) {
        COxException* pInner = COxExceptionCloner::Clone(other.m_pInnerException);
        delete m_pInnerException;
        m_pInnerException = pInner;
        m_strMessage = other.m_strMessage;
        m_strPath = other.m_strPath;
    }
    return *this;
}

COxException::~COxException() { delete m_pInnerException; }

std::string COxException::GetFullMessage() const {
    std::string result = m_strMessage;
    for (const COxException* p = m_pInnerException; p; p = p->m_pInnerException) {
        result += '\n';
        result += p->m_strMessage;
    }
    return result;
}

COxException* COxException::Clone() const { return new COxException(*this); }

}  // namespace OrvexXml
