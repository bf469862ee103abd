#pragma once

#include <map>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// The prefixes a caller wants to see in the output, keyed by namespace URI (ordered by
// byte comparison of the URI). Declared on the root element when an object is written.
class ORVEXXML_API CNamespaceAliasMap {
public:
    CNamespaceAliasMap() {}
    virtual ~CNamespaceAliasMap() {}

    // Sets the alias of ns, replacing an existing one. The alias comes first.
    void Add(const char* pszAlias, const char* pszNamespace);
    // Erases the entry of ns; an unknown ns is no error.
    void RemoveNamespace(const char* pszNamespace);
    // The URI of the first entry (in URI order) that carries the alias; throws if none does.
    std::string GetNamespaceFromAlias(const char* pszAlias);
    // The alias of ns, empty if it has none. Unknown namespaces are not added to the map.
    std::string GetAliasFromNamespace(const char* pszNamespace);
    bool DoesNamespaceExist(const char* pszNamespace) const;
    bool DoesAliasExist(const char* pszAlias) const;
    int GetNamespaceCount() const { return static_cast<int>(m_mapAliases.size()); }
    // The URI at position nIndex in URI order, 0 <= nIndex < GetNamespaceCount(); empty for
    // an index outside that range.
    std::string GetNamespaceAt(int nIndex);

private:
    std::map<std::string, std::string> m_mapAliases;
};

}  // namespace OrvexXml
