#include "orvexxml/xml/namespacealiasmap.h"

#include <iterator>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

static inline std::string Str(const char* psz) { return psz ? std::string(psz) : std::string(); }

void CNamespaceAliasMap::Add(const char* pszAlias, const char* pszNamespace) {
    m_mapAliases[Str(pszNamespace)] = Str(pszAlias);
}

void CNamespaceAliasMap::RemoveNamespace(const char* pszNamespace) { m_mapAliases.erase(Str(pszNamespace)); }

std::string CNamespaceAliasMap::GetNamespaceFromAlias(const char* pszAlias) {
    std::string strAlias = Str(pszAlias);
    for (const auto& entry : m_mapAliases) {
        if (entry.second == strAlias) return entry.first;
    }
    throw COxException(FormatString("Namespace alias [%s] not found", strAlias.c_str()));
}

std::string CNamespaceAliasMap::GetAliasFromNamespace(const char* pszNamespace) {
    auto it = m_mapAliases.find(Str(pszNamespace));
    return it == m_mapAliases.end() ? std::string() : it->second;
}

bool CNamespaceAliasMap::DoesNamespaceExist(const char* pszNamespace) const {
    return m_mapAliases.find(Str(pszNamespace)) != m_mapAliases.end();
}

bool CNamespaceAliasMap::DoesAliasExist(const char* pszAlias) const {
    std::string strAlias = Str(pszAlias);
    for (const auto& entry : m_mapAliases) {
        if (entry.second == strAlias) return true;
    }
    return false;
}

std::string CNamespaceAliasMap::GetNamespaceAt(int nIndex) {
    // Outside the entries there is no URI to give; answer empty rather than walk off the map.
    if (nIndex < 0 || nIndex >= GetNamespaceCount()) return std::string();
    auto it = m_mapAliases.begin();
    std::advance(it, nIndex);
    return it->first;
}

}  // namespace OrvexXml
