// Writes the binding model as C++ sources in the shape the runtime expects of generated
// code: one header and one source per class and per enum, the class factory, and schema.h
// with CreateRootElement. The text is complete but not laid out; the formatter does that.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "bindingmodel.h"

namespace OrvexXsd {

class CCodeEmitter {
public:
    explicit CCodeEmitter(const CSchemaSetModel& model);

    // File name -> content, for every file of the output directory.
    std::map<std::string, std::string> Emit() const;

private:
    std::string ClassHeader(const CClassModel& cls) const;
    std::string ClassSource(const CClassModel& cls) const;
    std::string EnumHeader(const CEnumModel& model) const;
    std::string EnumSource(const CEnumModel& model) const;
    std::string FactoryHeader() const;
    std::string FactorySource() const;
    std::string SchemaHeader() const;
    std::string SchemaSource() const;
    std::string Accessors(const CClassModel& cls, const CMemberModel& member) const;
    std::string MetaDataEntry(const CClassModel& cls, const CMemberModel& member,
                              const std::map<std::string, int>& mapRuleUses) const;
    std::string ExchangeCase(const CMemberModel& member) const;
    // The C++ type of an object member, and of a collection member, as the header names them.
    std::string ObjectType(const CMemberModel& member) const;
    std::string CollectionType(const CMemberModel& member) const;
    std::string NamespaceText(const CClassModel& cls, const CMemberModel& member) const;
    std::string Stem(const CClassModel& cls) const { return cls.m_strName.substr(1); }

    // Classes whose headers can't include each other (their members refer to each other, by
    // any number of steps) share a component; within one, headers declare and sources include.
    void FindComponents();
    void Visit(int nClass, std::vector<int>& vecStack, std::vector<int>& vecIndex, std::vector<int>& vecLow,
               std::vector<bool>& vecOnStack, int& nCounter);
    bool IsDeclaredOnly(int nFrom, int nTo) const {
        return nFrom == nTo || m_vecComponent[nFrom] == m_vecComponent[nTo];
    }
    // A class member whose class the header only declares: its getter copies a pointer to
    // an incomplete class, so the source defines it.
    bool HasOutOfLineGetter(const CClassModel& cls, const CMemberModel& member) const {
        return member.m_eKind == MemberKind_Class && member.m_eOccurrence != Occurrence_Collection &&
               member.m_nClass != IndexOf(cls) && IsDeclaredOnly(IndexOf(cls), member.m_nClass);
    }
    int IndexOf(const CClassModel& cls) const { return static_cast<int>(&cls - &m_model.m_vecClasses[0]); }

    const CSchemaSetModel& m_model;
    std::vector<int> m_vecComponent;
};

}  // namespace OrvexXsd
