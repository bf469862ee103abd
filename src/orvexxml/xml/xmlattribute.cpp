#include "orvexxml/xml/xmlattribute.h"

#include <cstring>

#include "orvexxml/xml/xmldocument.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

namespace {

const char kXsiNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";
const char kXmlnsNamespace[] = "http://www.w3.org/2000/xmlns/";

bool IsInstanceOrXmlnsNamespace(const std::string& strNamespace) {
    return strNamespace == kXsiNamespace || strNamespace == kXmlnsNamespace;
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
    return *m_pLocalName == "xmlns" || *m_pLocalName == "type" || *m_pLocalName == "schemaLocation" ||
           *m_pLocalName == "noNamespaceSchemaLocation";
}

bool CXmlAttribute::IsNilAttribute() const {
    return *m_pLocalName == "nil" && IsInstanceOrXmlnsNamespace(*m_pNamespace);
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
