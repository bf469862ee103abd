// Loads a schema set through Xerces' schema processing and hands out its component model.
// Imports, includes and redefinitions are resolved by Xerces; this class decides only where
// their documents come from, and only ever from local files: the catalog, the directory
// of the referring document, then the -I directories. Nothing is fetched from a network.
#pragma once

#include <memory>
#include <string>
#include <vector>
#include <xercesc/framework/XMLGrammarPool.hpp>
#include <xercesc/framework/psvi/XSModel.hpp>

#include "catalog.h"
#include "schemaerror.h"
#include "sourceindex.h"

namespace OrvexXsd {

class CSchemaLoader {
public:
    CSchemaLoader(const CCatalog& catalog, const std::vector<std::string>& vecIncludeDirs);
    ~CSchemaLoader();
    CSchemaLoader(const CSchemaLoader&) = delete;
    CSchemaLoader& operator=(const CSchemaLoader&) = delete;

    // Loads the schema files into one set; throws CSchemaError at the first error of any of
    // them. Warnings are kept.
    void Load(const std::vector<std::string>& vecFiles);

    // The model of the loaded set, owned by the loader.
    xercesc::XSModel* GetModel() const { return m_pModel; }
    const CSourceIndex& GetSourceIndex() const { return m_index; }
    const std::vector<CSchemaError>& GetWarnings() const { return m_vecWarnings; }

    // A reference that could not be made local; the loader reports it at the import.
    struct CUnresolved {
        std::string m_strBase;  // absolute path of the referring document
        std::string m_strLocation;
        std::string m_strNamespace;
        std::string m_strMessage;
    };

private:
    const CCatalog& m_catalog;
    std::vector<std::string> m_vecIncludeDirs;
    std::unique_ptr<xercesc::XMLGrammarPool> m_pPool;
    xercesc::XSModel* m_pModel = nullptr;
    CSourceIndex m_index;
    std::vector<CSchemaError> m_vecWarnings;
};

}  // namespace OrvexXsd
