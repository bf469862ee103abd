#include "localresolver.h"

#include <algorithm>
#include <xercesc/framework/LocalFileInputSource.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>

#include "filepaths.h"
#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

CLocalResolver::CLocalResolver(const CCatalog& catalog, const std::vector<std::string>& vecIncludeDirs)
    : m_catalog(catalog), m_vecIncludeDirs(vecIncludeDirs) {}

std::string CLocalResolver::Locate(const std::string& strBase, const std::string& strLocation,
                                   const std::string& strNamespace) const {
    if (!strLocation.empty()) {
        const std::string strMapped = m_catalog.MapLocation(strLocation);
        if (!strMapped.empty() && CFilePaths::IsFile(strMapped)) return strMapped;
    }
    if (!strNamespace.empty()) {
        const std::string strMapped = m_catalog.MapNamespace(strNamespace);
        if (!strMapped.empty() && CFilePaths::IsFile(strMapped)) return strMapped;
    }
    if (strLocation.empty()) return std::string();
    if (!CFilePaths::IsRemote(strLocation)) {
        const std::string strPath = CFilePaths::ToPath(strLocation);
        const std::string strNear = CFilePaths::Resolve(CFilePaths::DirectoryOf(strBase), strPath);
        if (CFilePaths::IsFile(strNear)) return strNear;
        if (!strPath.empty() && strPath[0] != '/') {
            for (const std::string& strDir : m_vecIncludeDirs) {
                const std::string strFound = CFilePaths::Resolve(strDir, strPath);
                if (CFilePaths::IsFile(strFound)) return strFound;
            }
        }
    }
    // A remote location, or a local one that is nowhere: its file name in the -I directories.
    const std::string strName = CFilePaths::BaseName(CFilePaths::ToPath(strLocation));
    if (!strName.empty()) {
        for (const std::string& strDir : m_vecIncludeDirs) {
            const std::string strFound = CFilePaths::Resolve(strDir, strName);
            if (CFilePaths::IsFile(strFound)) return strFound;
        }
    }
    return std::string();
}

InputSource* CLocalResolver::resolveEntity(XMLResourceIdentifier* pIdentifier) {
    const std::string strLocation = CXercesText::ToUtf8(pIdentifier->getSystemId());
    const std::string strNamespace = CXercesText::ToUtf8(pIdentifier->getNameSpace());
    const std::string strBase = CFilePaths::ToPath(CXercesText::ToUtf8(pIdentifier->getBaseURI()));
    static const XMLByte kEmpty[] = "";
    static const XMLCh kUnresolved[] = {'u', 'n', 'r', 'e', 's', 'o', 'l', 'v', 'e', 'd', 0};
    const XMLResourceIdentifier::ResourceIdentifierType eType = pIdentifier->getResourceIdentifierType();
    const bool bSchema =
        eType == XMLResourceIdentifier::SchemaGrammar || eType == XMLResourceIdentifier::SchemaImport ||
        eType == XMLResourceIdentifier::SchemaInclude || eType == XMLResourceIdentifier::SchemaRedefine;
    const std::string strFound = Locate(strBase, strLocation, strNamespace);
    // What is neither a schema document nor local (an external entity) is not read at all.
    if (!bSchema && strFound.empty()) return new MemBufInputSource(kEmpty, 0, kUnresolved);
    if (!strFound.empty()) {
        if (std::find(m_vecDocuments.begin(), m_vecDocuments.end(), strFound) == m_vecDocuments.end())
            m_vecDocuments.push_back(strFound);
        CXercesText path(strFound);
        return new LocalFileInputSource(path.Get());
    }
    // An import without a location names only a namespace, which other documents of the set
    // may supply: nothing to report here, and nothing to read.
    if (strLocation.empty()) return new MemBufInputSource(kEmpty, 0, kUnresolved);
    {
        std::string strMessage;
        if (CFilePaths::IsRemote(strLocation))
            strMessage = "refusing to fetch " + strLocation +
                         ": no local copy found (map it with --catalog or name its directory with -I)";
        else
            strMessage = "schema document " + strLocation + " not found";
        m_vecUnresolved.push_back({strBase, strLocation, strNamespace, strMessage});
    }
    return new MemBufInputSource(kEmpty, 0, kUnresolved);
}

}  // namespace OrvexXsd
