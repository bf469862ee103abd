#include "catalog.h"

#include <algorithm>
#include <memory>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "filepaths.h"
#include "schemaerror.h"
#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

namespace {

const char kCatalogNamespace[] = "urn:oasis:names:tc:entity:xmlns:xml:catalog";

class CCatalogHandler : public DefaultHandler {
public:
    CCatalogHandler(const std::string& strFile, std::vector<CCatalog::CEntry>& vecEntries,
                    std::vector<std::string>& vecNext)
        : m_strFile(strFile), m_vecEntries(vecEntries), m_vecNext(vecNext) {}

    void startElement(const XMLCh* const uri, const XMLCh* const localname, const XMLCh* const,
                      const Attributes& attrs) override {
        const std::string strName = CXercesText::ToUtf8(localname);
        if (m_bFirst) {
            m_bFirst = false;
            if (CXercesText::ToUtf8(uri) != kCatalogNamespace || strName != "catalog")
                throw CSchemaError(CFilePaths::Display(m_strFile), 0, 0,
                                   "not an XML catalog (the document element must be catalog in the namespace " +
                                       std::string(kCatalogNamespace) + ")");
            return;
        }
        if (CXercesText::ToUtf8(uri) != kCatalogNamespace) return;
        const std::string strDirectory = CFilePaths::DirectoryOf(m_strFile);
        auto Attr = [&](const char* pszName) {
            CXercesText name(pszName);
            return CXercesText::ToUtf8(attrs.getValue(name.Get()));
        };
        auto Target = [&](const std::string& strUri) {
            return CFilePaths::Resolve(strDirectory, CFilePaths::ToPath(strUri));
        };
        if (strName == "system")
            m_vecEntries.push_back({CCatalog::Entry_System, Attr("systemId"), Target(Attr("uri"))});
        else if (strName == "uri")
            m_vecEntries.push_back({CCatalog::Entry_Uri, Attr("name"), Target(Attr("uri"))});
        else if (strName == "rewriteSystem")
            m_vecEntries.push_back(
                {CCatalog::Entry_RewriteSystem, Attr("systemIdStartString"), Target(Attr("rewritePrefix"))});
        else if (strName == "rewriteURI")
            m_vecEntries.push_back({CCatalog::Entry_RewriteUri, Attr("uriStartString"), Target(Attr("rewritePrefix"))});
        else if (strName == "nextCatalog")
            m_vecNext.push_back(Target(Attr("catalog")));
    }

    void fatalError(const SAXParseException& e) override {
        throw CSchemaError(CFilePaths::Display(m_strFile), static_cast<int>(e.getLineNumber()),
                           static_cast<int>(e.getColumnNumber()), CXercesText::ToUtf8(e.getMessage()));
    }
    void error(const SAXParseException& e) override { fatalError(e); }

private:
    std::string m_strFile;
    std::vector<CCatalog::CEntry>& m_vecEntries;
    std::vector<std::string>& m_vecNext;
    bool m_bFirst = true;
};

}  // namespace

void CCatalog::Load(const std::string& strFile) {
    const std::string strPath = CFilePaths::Resolve("", strFile);
    if (std::find(m_vecLoaded.begin(), m_vecLoaded.end(), strPath) != m_vecLoaded.end()) return;
    m_vecLoaded.push_back(strPath);
    if (!CFilePaths::IsFile(strPath)) throw CSchemaError(strFile, 0, 0, "catalog file not found");
    std::vector<std::string> vecNext;
    {
        std::unique_ptr<SAX2XMLReader> pReader(XMLReaderFactory::createXMLReader());
        pReader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
        pReader->setFeature(XMLUni::fgXercesLoadExternalDTD, false);
        pReader->setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
        CCatalogHandler handler(strPath, m_vecEntries, vecNext);
        pReader->setContentHandler(&handler);
        pReader->setErrorHandler(&handler);
        CXercesText path(strPath);
        pReader->parse(path.Get());
    }
    for (const std::string& strNext : vecNext) Load(strNext);
}

std::string CCatalog::MapLocation(const std::string& strLocation) const {
    // Exact entries first, then the longest matching rewrite prefix, as catalogs resolve.
    for (const CEntry& entry : m_vecEntries) {
        if ((entry.m_eKind == Entry_System || entry.m_eKind == Entry_Uri) && entry.m_strKey == strLocation)
            return entry.m_strTarget;
    }
    const CEntry* pBest = nullptr;
    for (const CEntry& entry : m_vecEntries) {
        if ((entry.m_eKind == Entry_RewriteSystem || entry.m_eKind == Entry_RewriteUri) && !entry.m_strKey.empty() &&
            strLocation.compare(0, entry.m_strKey.size(), entry.m_strKey) == 0 &&
            (!pBest || entry.m_strKey.size() > pBest->m_strKey.size()))
            pBest = &entry;
    }
    if (!pBest) return std::string();
    return CFilePaths::Resolve("", pBest->m_strTarget + "/" + strLocation.substr(pBest->m_strKey.size()));
}

std::string CCatalog::MapNamespace(const std::string& strNamespace) const {
    for (const CEntry& entry : m_vecEntries) {
        if (entry.m_eKind == Entry_Uri && entry.m_strKey == strNamespace) return entry.m_strTarget;
    }
    return std::string();
}

}  // namespace OrvexXsd
