// Conversions between Xerces' UTF-16 strings and the UTF-8 text the compiler works in.
#pragma once

#include <string>
#include <xercesc/util/XercesDefs.hpp>

namespace OrvexXsd {

class CXercesText {
public:
    // The UTF-8 form of a Xerces string; a null string gives an empty text.
    static std::string ToUtf8(const XMLCh* pszText);
    // The Xerces form of UTF-8 text, owned by the object.
    explicit CXercesText(const std::string& strText);
    ~CXercesText();
    CXercesText(const CXercesText&) = delete;
    CXercesText& operator=(const CXercesText&) = delete;

    const XMLCh* Get() const { return m_pszText; }

private:
    XMLCh* m_pszText;
};

}  // namespace OrvexXsd
