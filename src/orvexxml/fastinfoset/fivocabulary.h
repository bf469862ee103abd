#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "orvexxml/export.h"

namespace OrvexXml {

// A qualified name as three indexes into the prefix, namespace and local name tables of a
// vocabulary; 0 for the prefix or the namespace means none. Also reachable as
// CFIVocabulary::CQNameParts.
class ORVEXXML_API CQNameParts {
public:
    CQNameParts(uint32_t dwPrefixIndex, uint32_t dwNamespaceIndex, uint32_t dwLocalNameIndex)
        : m_dwPrefixIndex(dwPrefixIndex), m_dwNamespaceIndex(dwNamespaceIndex), m_dwLocalNameIndex(dwLocalNameIndex) {}

    uint32_t m_dwPrefixIndex;
    uint32_t m_dwNamespaceIndex;
    uint32_t m_dwLocalNameIndex;
};

// One table of strings of a Fast Infoset vocabulary, in the reader's view: the entry at
// position p has the index p + 1.
class ORVEXXML_API CFIStringTable {
    friend class CFIVocabulary;
    friend class CFastInfosetWriter;
    friend class CFastInfosetReader;

public:
    typedef std::vector<std::string>::const_iterator const_iterator;

    CFIStringTable() {}
    virtual ~CFIStringTable();

    const_iterator begin() const { return m_table.begin(); }
    const_iterator end() const { return m_table.end(); }
    size_t size() const { return m_table.size(); }
    // The entry at position nPos, that is the index nPos + 1.
    const std::string& operator[](size_t nPos) const { return m_table[nPos]; }

private:
    std::vector<std::string> m_table;
};

// The table of qualified names of a vocabulary, in the reader's view, numbered as
// CFIStringTable.
class ORVEXXML_API CFIQNameTable {
    friend class CFIVocabulary;
    friend class CFastInfosetWriter;
    friend class CFastInfosetReader;

public:
    typedef std::vector<CQNameParts>::const_iterator const_iterator;

    CFIQNameTable() {}
    virtual ~CFIQNameTable();

    const_iterator begin() const { return m_table.begin(); }
    const_iterator end() const { return m_table.end(); }
    size_t size() const { return m_table.size(); }
    const CQNameParts& operator[](size_t nPos) const { return m_table[nPos]; }

private:
    std::vector<CQNameParts> m_table;
};

// The set of tables that the two sides of a Fast Infoset document build up in the same order,
// so that a repeated name or value can be written as an index. The writer looks strings up in
// the maps (string to index), the reader indexes in the tables (index to string); the Add...
// operations fill both views at once. Indexes are 1-based, 0 is never an entry.
class ORVEXXML_API CFIVocabulary {
    friend class CFastInfosetWriter;
    friend class CFastInfosetReader;
    friend class CFastInfosetContext;

public:
    typedef OrvexXml::CQNameParts CQNameParts;

    // The largest index of a table: an addition past it is dropped silently.
    static constexpr uint32_t MaxTableEntries = 1048576;

    typedef std::map<std::string, uint32_t> IndexMap;

    // The prefix "xml" and the XML namespace at index 1 each, and the two built-in alphabets.
    CFIVocabulary();
    virtual ~CFIVocabulary();
    CFIVocabulary& operator=(const CFIVocabulary& other) = default;
    CFIVocabulary& operator=(CFIVocabulary&& other) = default;

    void AddElement(std::string strPrefix, std::string strNamespace, std::string strLocalName);
    void AddAttribute(std::string strPrefix, std::string strNamespace, std::string strLocalName);
    // The value adders do not look for the value first: each value is to be added once.
    void AddElementValue(std::string strValue);
    void AddAttributeValue(std::string strValue);
    void AddPrefixName(std::string strValue);
    void AddNamespaceName(std::string strValue);
    void AddLocalName(std::string strValue);

    const CFIQNameTable& GetAttributeNamesTable() const { return m_attributeNames; }
    const CFIStringTable& GetAttributeValuesTable() const { return m_attributeValues; }
    const CFIQNameTable& GetElementNamesTable() const { return m_elementNames; }
    const CFIStringTable& GetCharacterChunksTable() const { return m_characterChunks; }
    const CFIStringTable& GetLocalNamesTable() const { return m_localNames; }
    const CFIStringTable& GetNamespaceNamesTable() const { return m_namespaceNames; }
    const CFIStringTable& GetPrefixNamesTable() const { return m_prefixNames; }

    // Prints the maps to the standard output, for debugging.
    void Dump() const;

private:
    // Deep copies are made by the writer and the reader of a document only.
    CFIVocabulary(const CFIVocabulary& other) = default;

    // The key of a name map: local name, 0x01, namespace, 0x01, prefix.
    static std::string MakeQNameKey(const std::string& strPrefix, const std::string& strNamespace,
                                    const std::string& strLocalName);
    // The same into strKey, whose buffer is reused.
    static void MakeQNameKey(const std::string& strPrefix, const std::string& strNamespace,
                             const std::string& strLocalName, std::string& strKey);

    bool FindPrefixNameIndex(const std::string& strValue, uint32_t& dwIndex) const;
    bool FindNamespaceNameIndex(const std::string& strValue, uint32_t& dwIndex) const;
    bool FindLocalNameIndex(const std::string& strValue, uint32_t& dwIndex) const;
    static bool FindIndex(const IndexMap& map, const std::string& strKey, uint32_t& dwIndex);

    void AddQName(const std::string& strPrefix, const std::string& strNamespace, const std::string& strLocalName,
                  IndexMap& map, CFIQNameTable& table);
    static void AddQNameToVector(uint32_t dwPrefixIndex, uint32_t dwNamespaceIndex, uint32_t dwLocalIndex,
                                 CFIQNameTable& table);
    static void AddValueToMap(const std::string& strValue, IndexMap& map);
    static void AddValueToVector(const std::string& strValue, CFIStringTable& table);
    // Both: the value enters the writer's map and the reader's table.
    static void AddValue(const std::string& strValue, IndexMap& map, CFIStringTable& table);

    std::vector<std::string> m_restrictedAlphabets;
    IndexMap m_attributeNamesMap;
    IndexMap m_attributeValuesMap;
    IndexMap m_elementNamesMap;
    IndexMap m_characterChunksMap;
    IndexMap m_localNamesMap;
    IndexMap m_namespaceNamesMap;
    IndexMap m_prefixNamesMap;
    CFIQNameTable m_attributeNames;
    CFIStringTable m_attributeValues;
    CFIQNameTable m_elementNames;
    CFIStringTable m_characterChunks;
    CFIStringTable m_localNames;
    CFIStringTable m_namespaceNames;
    CFIStringTable m_prefixNames;
};

}  // namespace OrvexXml
