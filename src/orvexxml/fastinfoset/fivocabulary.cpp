#include "orvexxml/fastinfoset/fivocabulary.h"

#include <cstdio>

#include "orvexxml/writers/xmlwriter.h"

namespace OrvexXml {

CFIStringTable::~CFIStringTable() {}

CFIQNameTable::~CFIQNameTable() {}

CFIVocabulary::CFIVocabulary() {
    AddPrefixName("xml");
    AddNamespaceName(CXmlWriter::XmlNamespaceURI);
    // Digits with the signs, point and exponent of numbers; digits with the separators of
    // dates and times. Both end in a blank, which separates list items.
    m_restrictedAlphabets.push_back("0123456789-+.e ");
    m_restrictedAlphabets.push_back("0123456789-:TZ ");
}

CFIVocabulary::~CFIVocabulary() {}

void CFIVocabulary::AddElement(std::string strPrefix, std::string strNamespace, std::string strLocalName) {
    AddQName(strPrefix, strNamespace, strLocalName, m_elementNamesMap, m_elementNames);
}

void CFIVocabulary::AddAttribute(std::string strPrefix, std::string strNamespace, std::string strLocalName) {
    AddQName(strPrefix, strNamespace, strLocalName, m_attributeNamesMap, m_attributeNames);
}

void CFIVocabulary::AddElementValue(std::string strValue) {
    AddValue(strValue, m_characterChunksMap, m_characterChunks);
}

void CFIVocabulary::AddAttributeValue(std::string strValue) {
    AddValue(strValue, m_attributeValuesMap, m_attributeValues);
}

void CFIVocabulary::AddPrefixName(std::string strValue) { AddValue(strValue, m_prefixNamesMap, m_prefixNames); }

void CFIVocabulary::AddNamespaceName(std::string strValue) {
    AddValue(strValue, m_namespaceNamesMap, m_namespaceNames);
}

void CFIVocabulary::AddLocalName(std::string strValue) { AddValue(strValue, m_localNamesMap, m_localNames); }

std::string CFIVocabulary::MakeQNameKey(const std::string& strPrefix, const std::string& strNamespace,
                                        const std::string& strLocalName) {
    std::string strKey;
    MakeQNameKey(strPrefix, strNamespace, strLocalName, strKey);
    return strKey;
}

void CFIVocabulary::MakeQNameKey(const std::string& strPrefix, const std::string& strNamespace,
                                 const std::string& strLocalName, std::string& strKey) {
    strKey.assign(strLocalName);
    strKey += '\x01';
    strKey += strNamespace;
    strKey += '\x01';
    strKey += strPrefix;
}

bool CFIVocabulary::FindPrefixNameIndex(const std::string& strValue, uint32_t& dwIndex) const {
    return FindIndex(m_prefixNamesMap, strValue, dwIndex);
}

bool CFIVocabulary::FindNamespaceNameIndex(const std::string& strValue, uint32_t& dwIndex) const {
    return FindIndex(m_namespaceNamesMap, strValue, dwIndex);
}

bool CFIVocabulary::FindLocalNameIndex(const std::string& strValue, uint32_t& dwIndex) const {
    return FindIndex(m_localNamesMap, strValue, dwIndex);
}

bool CFIVocabulary::FindIndex(const IndexMap& map, const std::string& strKey, uint32_t& dwIndex) {
    IndexMap::const_iterator it = map.find(strKey);
    if (it == map.end()) return false;
    dwIndex = it->second;
    return true;
}

void CFIVocabulary::AddQName(const std::string& strPrefix, const std::string& strNamespace,
                             const std::string& strLocalName, IndexMap& map, CFIQNameTable& table) {
    std::string strKey = MakeQNameKey(strPrefix, strNamespace, strLocalName);
    uint32_t dwFound = 0;
    if (FindIndex(map, strKey, dwFound)) return;

    // A part that is new enters its own table first; the index taken is the table's size, so
    // a full table gives the index of its last entry rather than one that does not exist.
    uint32_t dwPrefixIndex = 0, dwNamespaceIndex = 0, dwLocalIndex = 0;
    if (!strPrefix.empty() && !FindPrefixNameIndex(strPrefix, dwPrefixIndex)) {
        AddPrefixName(strPrefix);
        dwPrefixIndex = static_cast<uint32_t>(m_prefixNames.m_table.size());
    }
    if (!strNamespace.empty() && !FindNamespaceNameIndex(strNamespace, dwNamespaceIndex)) {
        AddNamespaceName(strNamespace);
        dwNamespaceIndex = static_cast<uint32_t>(m_namespaceNames.m_table.size());
    }
    if (!FindLocalNameIndex(strLocalName, dwLocalIndex)) {
        AddLocalName(strLocalName);
        dwLocalIndex = static_cast<uint32_t>(m_localNames.m_table.size());
    }
    AddValueToMap(strKey, map);
    AddQNameToVector(dwPrefixIndex, dwNamespaceIndex, dwLocalIndex, table);
}

void CFIVocabulary::AddQNameToVector(uint32_t dwPrefixIndex, uint32_t dwNamespaceIndex, uint32_t dwLocalIndex,
                                     CFIQNameTable& table) {
    if (table.m_table.size() < MaxTableEntries)
        table.m_table.emplace_back(dwPrefixIndex, dwNamespaceIndex, dwLocalIndex);
}

void CFIVocabulary::AddValueToMap(const std::string& strValue, IndexMap& map) {
    if (map.size() < MaxTableEntries) map.emplace(strValue, static_cast<uint32_t>(map.size() + 1));
}

void CFIVocabulary::AddValueToVector(const std::string& strValue, CFIStringTable& table) {
    if (table.m_table.size() < MaxTableEntries) table.m_table.push_back(strValue);
}

void CFIVocabulary::AddValue(const std::string& strValue, IndexMap& map, CFIStringTable& table) {
    AddValueToMap(strValue, map);
    AddValueToVector(strValue, table);
}

namespace {

void DumpMap(const char* pszHeading, const CFIVocabulary::IndexMap& map) {
    std::fputs(pszHeading, stdout);
    for (const auto& entry : map) std::printf("%s, %d\n", entry.first.c_str(), static_cast<int>(entry.second));
}

}  // namespace

void CFIVocabulary::Dump() const {
    DumpMap("\n** Dumping FI Tables **\n\nAttr Names\n", m_attributeNamesMap);
    DumpMap("\nAttr Values\n", m_attributeValuesMap);
    DumpMap("\nCharacter Chunks\n", m_characterChunksMap);
    DumpMap("\nElement Names\n", m_elementNamesMap);
    DumpMap("\nLocal Names\n", m_localNamesMap);
    DumpMap("\nNamespace Names\n", m_namespaceNamesMap);
    DumpMap("\nPrefix Names\n", m_prefixNamesMap);
}

}  // namespace OrvexXml
