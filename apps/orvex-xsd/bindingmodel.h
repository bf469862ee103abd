// What the compiler emits, before it is written as C++: classes with their members, enums,
// and the global elements a document may start with. Built from the schema model by
// CModelBuilder, written by CCodeEmitter.
#pragma once

#include <string>
#include <vector>

namespace OrvexXsd {

// The ten facets of a value, as the runtime's CPrimitiveRestrictions takes them.
struct CFacetSet {
    std::string m_strPattern;
    long long m_nMinLength = -1;
    long long m_nMaxLength = -1;
    std::string m_strMinInclusive;
    std::string m_strMaxInclusive;
    std::string m_strMinExclusive;
    std::string m_strMaxExclusive;
    long long m_nLength = -1;
    long long m_nTotalDigits = -1;
    long long m_nFractionDigits = -1;

    bool IsEmpty() const {
        return m_strPattern.empty() && m_nMinLength < 0 && m_nMaxLength < 0 && m_strMinInclusive.empty() &&
               m_strMaxInclusive.empty() && m_strMinExclusive.empty() && m_strMaxExclusive.empty() && m_nLength < 0 &&
               m_nTotalDigits < 0 && m_nFractionDigits < 0;
    }
};

// Untyped: an element of no schema type or an element wildcard (CElement, CElementCol), or an
// attribute wildcard (CAttributeCol).
enum MemberKind { MemberKind_Primitive, MemberKind_Enum, MemberKind_Class, MemberKind_Untyped };
enum Occurrence { Occurrence_Mandatory, Occurrence_Optional, Occurrence_Collection };

struct CMemberModel {
    bool m_bAttribute = false;
    bool m_bSimpleContent = false;  // the element's own text: the class's primitive value, no table entry
    std::string m_strXmlName;
    std::string m_strXmlNamespace;  // empty for an unqualified name
    std::string m_strProperty;      // the identifier in Get..., Set..., m_... and Prop_...
    MemberKind m_eKind = MemberKind_Primitive;
    Occurrence m_eOccurrence = Occurrence_Mandatory;
    int m_nMinOccurs = 1;
    int m_nMaxOccurs = 1;         // -1 unbounded
    std::string m_strItemType;    // the ItemType suffix: string, i4, datetime ...
    std::string m_strBuiltIn;     // the built-in type it derives from: string, int ...
    std::string m_strWhitespace;  // preserve, replace or collapse
    CFacetSet m_facets;
    std::string m_strFacetsName;    // a named simple type's facets: the local constant's name
    std::string m_strFacetsSource;  // the named simple type, for the comment of the constant
    std::string m_strEnum;          // the enum type of an enum member
    int m_nClass = -1;              // the class of a class member
    bool m_bByDocument = false;     // a class member whose class the document decides (xsi:type): AbsCls
    std::string m_strRestriction;   // an untyped member's namespace constraint: ##any, ##other, a list
    bool m_bHasDefault = false;
    std::string m_strDefault;
    bool m_bNillable = false;
    bool m_bMustConsume = false;     // a mandatory group that can't be empty: it must take an element
    std::string m_strDescription;    // the schema type as the header comment names it
    std::string m_strDocumentation;  // the schema's xs:documentation of the declaration, lines ending in '\n'
};

struct CClassModel {
    std::string m_strName;  // CParty
    std::string m_strFile;  // party
    std::string m_strXmlName;
    std::string m_strNamespace;
    std::string m_strOrigin;         // "the complex type Party", "the element orderBook"
    std::string m_strDocumentation;  // the schema's xs:documentation of the element or type
    std::vector<CMemberModel> m_vecMembers;
    bool m_bChoice = false;          // the content is a choice (XmlElementGroupType_Choice)
    bool m_bAll = false;             // the content is an all group (XmlElementGroupType_All); neither: a sequence
    bool m_bPseudo = false;          // a model group: no tags of its own (XmlElementType_PseudoElement)
    bool m_bCollectionItem = false;  // some member holds a run of this class: emit its collection
    long long m_nOrder = 0;
    // Derivation: the class of the base type (-1: none) and how this one derives from it. A
    // restriction keeps the base's members and tables; an extension adds its own members after
    // them. m_vecMembers holds the class's own members only.
    int m_nBase = -1;
    bool m_bRestriction = false;
    bool m_bHasDerived = false;  // some class derives from this one
    bool m_bAbstract = false;    // no object of the class itself is made
    bool m_bNamedType = false;   // the class binds a named complex type, which xsi:type can name
    bool m_bOwnsGroup = true;    // the group type is the class's own, not inherited with the base's members
    bool m_bNillable = false;    // an element of this class may be nil: the class is an INillable
};

struct CEnumModel {
    std::string m_strName;
    std::vector<std::string> m_vecValues;
    std::vector<std::string> m_vecIdentifiers;  // Status_open ...
    std::string m_strFile;
    std::string m_strOrigin;
    std::string m_strDocumentation;  // the schema's xs:documentation of the simple type
    long long m_nOrder = 0;
    bool m_bCollectionItem = false;  // some member repeats it: emit C<Enum>Col
};

struct CRootElementModel {
    std::string m_strXmlName;
    std::string m_strNamespace;
    int m_nClass = -1;
};

struct CSchemaSetModel {
    std::string m_strNamespace;  // the C++ namespace
    std::string m_strFactory;    // CNameFactory
    std::string m_strFactoryFile;
    std::string m_strSchemaFiles;  // the file names, for the comments
    std::vector<CClassModel> m_vecClasses;
    std::vector<CEnumModel> m_vecEnums;
    std::vector<CRootElementModel> m_vecRoots;
};

}  // namespace OrvexXsd
