#include "orvexxml/binding/classfactorybase.h"

#include "orvexxml/writers/xmlwriter.h"
#include "orvexxml/xml/xmldocument.h"
#include "orvexxml/xml/xmlelement.h"

using namespace OrvexXml;

namespace OrvexXmlData {

CClassfactoryBase::~CClassfactoryBase() {}

std::string CClassfactoryBase::GetElementType(CXmlElement* pElement) {
    if (!pElement) return std::string();
    const std::string& strType = pElement->GetAttribute("type", CXmlWriter::XsiNamespaceURI);
    std::string::size_type nColon = strType.find(':');
    return nColon == std::string::npos ? strType : strType.substr(nColon + 1);
}

std::string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* pElement) {
    if (!pElement) return std::string();
    const std::string& strType = pElement->GetAttribute("type", CXmlWriter::XsiNamespaceURI);
    std::string::size_type nColon = strType.find(':');
    if (nColon == std::string::npos) return pElement->GetNamespaceURI();
    const CXmlDocument* pDocument = pElement->GetDocument();
    if (pDocument) {
        const std::string& strUri = pDocument->LookupNamespaceFromAlias(strType.substr(0, nColon).c_str());
        if (!strUri.empty()) return strUri;
    }
    return pElement->GetNamespaceURI();
}

}  // namespace OrvexXmlData
