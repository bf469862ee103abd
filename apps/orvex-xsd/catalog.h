// An OASIS XML catalog: maps the locations and namespaces of imported schemas to local files.
#pragma once

#include <string>
#include <vector>

namespace OrvexXsd {

class CCatalog {
public:
    // Reads a catalog file and the catalogs its nextCatalog entries name; throws
    // CSchemaError for a file that is missing or not a catalog.
    void Load(const std::string& strFile);

    // The local file for a schema location (system, uri, rewriteSystem and rewriteURI
    // entries), or empty.
    std::string MapLocation(const std::string& strLocation) const;
    // The local file for a namespace (a uri entry whose name is the namespace), or empty.
    std::string MapNamespace(const std::string& strNamespace) const;

    enum EntryKind { Entry_System, Entry_Uri, Entry_RewriteSystem, Entry_RewriteUri };
    struct CEntry {
        EntryKind m_eKind;
        std::string m_strKey;
        std::string m_strTarget;  // an absolute path, or a prefix for the rewrite entries
    };

private:
    std::vector<CEntry> m_vecEntries;
    std::vector<std::string> m_vecLoaded;
};

}  // namespace OrvexXsd
