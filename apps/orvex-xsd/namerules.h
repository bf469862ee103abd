// C++ identifiers for schema names, by the rules of docs/xsd-mapping.md: the same schema
// names give the same identifiers on every run, whatever else the schema set holds, apart
// from the clashes that the set itself makes.
#pragma once

#include <set>
#include <string>

namespace OrvexXsd {

class CNameRules {
public:
    // An XML name as one word of an identifier: each run of letters and digits begins with a
    // capital, everything else separates runs and is dropped ("unit-price" -> "UnitPrice").
    // A character beyond ASCII is written as U and its code point in hex; a word that would
    // begin with a digit begins with N. Never empty.
    static std::string Word(const std::string& strXmlName);
    // An enumeration value as the tail of its identifier: letters, digits and underscores
    // stay, every other character becomes an underscore; an empty value is "empty".
    static std::string EnumTail(const std::string& strValue);
    // The word as the first letter in lower case (the name of a local constant).
    static std::string LowerFirst(const std::string& strWord);
    static std::string Lower(const std::string& strText);
    static bool IsKeyword(const std::string& strWord);
    // A target namespace as a C++ namespace: the last step of the URI that has letters.
    static std::string NamespaceFor(const std::string& strTargetNamespace);
};

// A set of identifiers in which names that differ only in case count as the same, since
// they become file names. Take() returns the name, or the name with 2, 3, ... appended.
class CNameTable {
public:
    std::string Take(const std::string& strName);
    bool Has(const std::string& strName) const;

private:
    std::set<std::string> m_setTaken;  // lower case
};

}  // namespace OrvexXsd
