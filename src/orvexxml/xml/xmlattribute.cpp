#include "orvexxml/xml/xmlattribute.h"

#include <cstring>
#include <string_view>

#include "orvexxml/xml/xmldocument.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

namespace {

// Compared as views: the length decides at once for the attributes of other namespaces,
// most of which have none at all.
constexpr std::string_view kXsiNamespace = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view kXmlnsNamespace = "http://www.w3.org/2000/xmlns/";

bool IsInstanceOrXmlnsNamespace(const std::string& strNamespace) {
    const std::string_view ns(strNamespace);
    return ns == kXsiNamespace || ns == kXmlnsNamespace;
}

}  // namespace

// A node is made per element or attribute parsed: its instance record is found once.
static CInstanceMonitor::ClassHandle s_monitor("CXmlAttribute");

CXmlAttribute::CXmlAttribute(const CXmlElement* pElement, const std::string* pLocalName, const char* pValue,
                             size_t nValueLength, const std::string* pNamespace)
    : CInstanceMonitor(s_monitor),
      m_pElement(pElement),
      m_pLocalName(pLocalName),
      m_strValue(pValue, nValueLength),
      m_pNamespace(pNamespace) {}

CXmlAttribute::~CXmlAttribute() {}

bool CXmlAttribute::IsNamespaceAttribute() const {
    if (!IsInstanceOrXmlnsNamespace(*m_pNamespace)) return false;
    const std::string_view name(*m_pLocalName);
    return name == "xmlns" || name == "type" || name == "schemaLocation" || name == "noNamespaceSchemaLocation";
}

bool CXmlAttribute::IsNilAttribute() const {
    return std::string_view(*m_pLocalName) == "nil" && IsInstanceOrXmlnsNamespace(*m_pNamespace);
}

std::string CXmlAttribute::GetXPath() const {
    std::string strPath;
    if (m_pElement) strPath = m_pElement->GetXPath();
    strPath += '/';
    if (!m_pNamespace->empty() && m_pElement && m_pElement->GetDocument()) {
        const std::string& strPrefix = m_pElement->GetDocument()->LookupAliasFromNamespace(m_pNamespace->c_str());
        if (!strPrefix.empty()) {
            strPath += strPrefix;
            strPath += ':';
        }
    }
    strPath += '@';
    strPath += *m_pLocalName;
    return strPath;
}

}  // namespace OrvexXml
