// Writes the binding model as C++ sources in the shape the runtime expects of generated
// code: one header and one source per class and per enum, the class factory, and schema.h
// with CreateRootElement. The text is complete but not laid out; the formatter does that.
#pragma once

#include <map>
#include <string>

#include "bindingmodel.h"

namespace OrvexXsd {

class CCodeEmitter {
public:
    explicit CCodeEmitter(const CSchemaSetModel& model) : m_model(model) {}

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

    const CSchemaSetModel& m_model;
};

}  // namespace OrvexXsd
