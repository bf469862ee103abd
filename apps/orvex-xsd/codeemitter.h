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
    // enum { Prop_... }, numbered on from the base's Prop_FirstDerived in a derived class.
    std::string PropertyEnum(const CClassModel& cls) const;
    std::string EnumHeader(const CEnumModel& model) const;
    std::string EnumSource(const CEnumModel& model) const;
    std::string FactoryHeader() const;
    std::string FactorySource() const;
    std::string SchemaHeader() const;
    std::string SchemaSource() const;
    std::string Accessors(const CClassModel& cls, const CMemberModel& member) const;
    std::string AccessorsOf(const CClassModel& cls, const CMemberModel& member) const;
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
    // Derivation: a class of a derivation family writes xsi:type where its element declares
    // another type; a class whose elements may hold derived objects is made by the factory
    // from the element (Create<Class>FromElement).
    static bool IsFamily(const CClassModel& cls) { return cls.m_nBase >= 0 || cls.m_bHasDerived; }
    bool IsByDocument(int nClass) const { return m_vecByDocument[nClass]; }
    bool HasFamily() const {
        for (const CClassModel& cls : m_model.m_vecClasses) {
            if (IsFamily(cls)) return true;
        }
        return false;
    }
    std::string DeclareType(int nClass, const std::string& strObject) const;
    std::string BaseName(const CClassModel& cls) const {
        return cls.m_nBase >= 0 ? m_model.m_vecClasses[cls.m_nBase].m_strName : std::string();
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
    std::vector<bool> m_vecByDocument;
};

}  // namespace OrvexXsd
