#include "documentroot.h"

namespace OrvexTool {

using namespace OrvexXml;

CDocumentRoot::CDocumentRoot(CElement* pRoot, const std::vector<std::pair<std::string, std::string>>& vecPrefixes,
                             const std::string& strDefaultNamespace)
    : m_pRoot(pRoot), m_vecPrefixes(vecPrefixes), m_strDefaultNamespace(strDefaultNamespace) {}

CDocumentRoot::~CDocumentRoot() {}

void CDocumentRoot::ToXml_Int(CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                              const CSerializationContext& ctx, bool bOptionalChoice) const {
    if (bRoot) {
        for (const auto& prefix : m_vecPrefixes) pWriter->AddNamespaceAlias(prefix.first, prefix.second);
        if (!m_strDefaultNamespace.empty()) pWriter->SetDefaultNamespace(m_strDefaultNamespace);
    }
    CXmlObjectBase::ToXml_Int(m_pRoot, pWriter, bRoot, pszNamespace, ctx, bOptionalChoice);
}

CXmlElement* CDocumentRoot::FromXml_Int(CXmlElement*, CXmlElement*, const CSerializationContext&, bool) {
    throw COxException("A document root is only written");
}

}  // namespace OrvexTool
