#pragma once

#include <orvexxml/orvexxml.h>

#include <string>
#include <utility>
#include <vector>

namespace OrvexTool {

// A document of open content as an object the library writes: its root CElement, and the
// namespace prefixes and default namespace of the document it was read from, which are
// declared on the root before it is written so that the output keeps the document's own.
class CDocumentRoot : public OrvexXml::CXmlObjectBase {
public:
    CDocumentRoot(OrvexXml::CElement* pRoot, const std::vector<std::pair<std::string, std::string>>& vecPrefixes,
                  const std::string& strDefaultNamespace);

    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return m_pRoot->GetNamespace(); }

protected:
    ~CDocumentRoot() override;

    std::string GetTargetNamespace() const override { return m_pRoot->GetNamespace(); }
    void ToXml_Int(OrvexXml::CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                   const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) const override;
    // Only written: reading goes to the CElement itself.
    OrvexXml::CXmlElement* FromXml_Int(OrvexXml::CXmlElement* pElement, OrvexXml::CXmlElement* pFirstChild,
                                       const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) override;

private:
    OrvexXml::CSmartPtr<OrvexXml::CElement> m_pRoot;
    std::vector<std::pair<std::string, std::string>> m_vecPrefixes;
    std::string m_strDefaultNamespace;
};

}  // namespace OrvexTool
