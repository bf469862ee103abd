// Supplies the documents that Xerces asks for while it loads a schema set (imports,
// includes, redefinitions, DTDs), from local files only. A reference that has no local
// file gets an empty document, so that Xerces never opens a connection, and is recorded
// for the loader to report at the place of the reference.
#pragma once

#include <string>
#include <vector>
#include <xercesc/util/XMLEntityResolver.hpp>

#include "catalog.h"
#include "schemaloader.h"

namespace OrvexXsd {

class CLocalResolver : public xercesc::XMLEntityResolver {
public:
    CLocalResolver(const CCatalog& catalog, const std::vector<std::string>& vecIncludeDirs);

    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* pIdentifier) override;

    // The local file for a reference made from a document, or empty.
    std::string Locate(const std::string& strBase, const std::string& strLocation,
                       const std::string& strNamespace) const;

    // Absolute paths of the documents handed out, in the order they were asked for.
    const std::vector<std::string>& GetDocuments() const { return m_vecDocuments; }
    const std::vector<CSchemaLoader::CUnresolved>& GetUnresolved() const { return m_vecUnresolved; }

private:
    const CCatalog& m_catalog;
    std::vector<std::string> m_vecIncludeDirs;
    std::vector<std::string> m_vecDocuments;
    std::vector<CSchemaLoader::CUnresolved> m_vecUnresolved;
};

}  // namespace OrvexXsd
