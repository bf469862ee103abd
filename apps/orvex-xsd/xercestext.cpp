#include "xercestext.h"

#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLString.hpp>

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

std::string CXercesText::ToUtf8(const XMLCh* pszText) {
    if (!pszText || !*pszText) return std::string();
    TranscodeToStr utf8(pszText, "UTF-8");
    return std::string(reinterpret_cast<const char*>(utf8.str()), utf8.length());
}

CXercesText::CXercesText(const std::string& strText) {
    TranscodeFromStr utf16(reinterpret_cast<const XMLByte*>(strText.data()), strText.size(), "UTF-8");
    m_pszText = XMLString::replicate(utf16.str());
}

CXercesText::~CXercesText() { XMLString::release(&m_pszText); }

}  // namespace OrvexXsd
