// Turns the schema model that Xerces built into the binding model: which classes, enums
// and members the schema set gets, by the mapping of docs/xsd-mapping.md. A construct that
// the mapping doesn't cover yet is an error at its place; one that the runtime can't
// represent exactly is a warning (an error with --strict) and gets what the mapping says.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>
#include <xercesc/framework/psvi/XSComplexTypeDefinition.hpp>
#include <xercesc/framework/psvi/XSElementDeclaration.hpp>
#include <xercesc/framework/psvi/XSModel.hpp>
#include <xercesc/framework/psvi/XSModelGroup.hpp>
#include <xercesc/framework/psvi/XSModelGroupDefinition.hpp>
#include <xercesc/framework/psvi/XSParticle.hpp>
#include <xercesc/framework/psvi/XSSimpleTypeDefinition.hpp>
#include <xercesc/framework/psvi/XSWildcard.hpp>

#include "bindingmodel.h"
#include "namerules.h"
#include "schemaerror.h"
#include "sourceindex.h"

namespace OrvexXsd {

class CModelBuilder {
public:
    CModelBuilder(xercesc::XSModel* pModel, const CSourceIndex& index, bool bStrict);

    // The model for a C++ namespace; throws CSchemaError at the first construct it can't bind.
    CSchemaSetModel Build(const std::string& strNamespace);
    const std::vector<CSchemaError>& GetWarnings() const { return m_vecWarnings; }

private:
    // The top-level component being bound, for the places of errors and warnings.
    struct CPlace {
        std::string m_strKind;  // element, complexType, simpleType ...
        std::string m_strNamespace;
        std::string m_strName;
    };
    struct CValueType {
        MemberKind m_eKind = MemberKind_Primitive;
        std::string m_strItemType;
        std::string m_strBuiltIn;
        std::string m_strWhitespace;
        CFacetSet m_facets;
        std::string m_strFacetsName;
        std::string m_strFacetsSource;
        std::string m_strEnum;
        std::string m_strDescription;
    };
    // Copies what a member takes of its value type: kind, item type, facets, enum, description.
    static void TakeValue(CMemberModel& member, const CValueType& value);

    void CountTypeUses();
    void CountParticle(xercesc::XSParticle* pParticle);
    void CountComplexType(xercesc::XSComplexTypeDefinition* pType);
    void CreateTopLevelClasses();
    int NewClass(const std::string& strStem, const std::string& strXmlName, const std::string& strNamespace,
                 const std::string& strOrigin, long long nOrder);
    void FillClass(int nClass, xercesc::XSComplexTypeDefinition* pType, const CPlace& place);
    void FillDerived(int nClass, xercesc::XSComplexTypeDefinition* pType, xercesc::XSComplexTypeDefinition* pBase,
                     const CPlace& place);
    bool HasElements(int nClass) const;
    // Whether an element of the type may hold an object of another class, named by xsi:type.
    bool IsByDocument(xercesc::XSTypeDefinition* pType) const;
    // A named type that takes part in derivation: it has a complex base or named derived types.
    bool IsInFamily(xercesc::XSTypeDefinition* pType) const;
    // The class at the root of a class's derivation family (the class itself without a base).
    int FamilyRoot(int nClass) const;
    long long AttributeOrder(const CPlace& place, const std::string& strName) const;
    void AttributeGroupNames(const std::string& strRef, const std::string& strNamespace, int nDepth,
                             std::vector<std::string>& vecNames) const;
    void AddAttributes(int nClass, xercesc::XSComplexTypeDefinition* pType, const CPlace& place,
                       const std::set<std::string>& setInherited = std::set<std::string>());
    void AddSimpleContent(int nClass, xercesc::XSSimpleTypeDefinition* pType, const CPlace& place);
    void AddWildcard(int nClass, xercesc::XSWildcard* pWildcard, int nMinOccurs, int nMaxOccurs);
    void AddAttributeWildcard(int nClass, xercesc::XSComplexTypeDefinition* pType);
    static std::string Restriction(xercesc::XSWildcard* pWildcard);
    // The named group a model group stands for, or null for one written in place.
    xercesc::XSModelGroupDefinition* GroupDefinition(xercesc::XSModelGroup* pGroup) const;
    std::string GroupName(xercesc::XSModelGroup* pGroup, int nParent);
    void AddGroup(int nClass, xercesc::XSParticle* pParticle, const CPlace& place);
    void FillGroup(int nClass, xercesc::XSModelGroup* pGroup, const CPlace& place);
    void AddParticles(int nClass, xercesc::XSParticle* pParticle, const CPlace& place);
    void AddElement(int nClass, xercesc::XSParticle* pParticle, const CPlace& place);
    void AddElementMember(int nClass, xercesc::XSElementDeclaration* pElement, int nMinOccurs, int nMaxOccurs,
                          const CPlace& place);
    std::vector<xercesc::XSElementDeclaration*> Substitutes(xercesc::XSElementDeclaration* pHead) const;
    void AddSubstitutionGroup(int nClass, xercesc::XSParticle* pParticle,
                              const std::vector<xercesc::XSElementDeclaration*>& vecSubstitutes, const CPlace& place);
    int ClassOfElement(xercesc::XSElementDeclaration* pElement, const CPlace& place);
    CValueType ValueOf(xercesc::XSSimpleTypeDefinition* pType, const std::string& strOwner, const CPlace& place,
                       const std::string& strLocalKind, const std::string& strLocalName);
    std::string EnumFor(xercesc::XSSimpleTypeDefinition* pType, const std::string& strOwner);
    std::string TakeMemberName(int nClass, const std::string& strXmlName);
    // The occurrences of a member of class nClass, and from them its kind: mandatory, optional
    // (always in a choice) or a collection.
    void SetOccurrences(CMemberModel& member, int nClass, int nMinOccurs, int nMaxOccurs) const;
    // The member of class nClass that holds the group class nGroup, with the particle's occurrences.
    void AddGroupMember(int nClass, int nGroup, xercesc::XSParticle* pParticle, const std::string& strName,
                        const std::string& strDescription, bool bMustConsume);

    // A fault or a warning at a construct inside a top-level component (strLocalKind empty:
    // the component itself).
    CSchemaError At(const CPlace& place, const std::string& strLocalKind, const std::string& strLocalName,
                    const std::string& strMessage) const;
    void Warn(const CPlace& place, const std::string& strLocalKind, const std::string& strLocalName,
              const std::string& strMessage);
    void WarnIdentityConstraints();

    xercesc::XSModel* m_pModel;
    const CSourceIndex& m_index;
    bool m_bStrict;
    std::vector<CSchemaError> m_vecWarnings;
    CSchemaSetModel m_model;
    CNameTable m_names;
    std::vector<CNameTable> m_vecMemberNames;
    std::map<std::string, int> m_mapTypeUses;    // by TypeKey
    std::set<std::string> m_setHasNamedDerived;  // TypeKey of the types that named types derive from
    std::set<int> m_setFilled;                   // classes whose members are made or being made
    std::vector<int> m_vecNillable;              // classes of nillable elements
    // Elements of a class that aren't nillable, where that class may still become an INillable
    // through another element: the class, the element and its place.
    struct CPlainUse {
        int m_nClass;
        std::string m_strElement;
        CPlace m_place;
    };
    std::vector<CPlainUse> m_vecPlainUses;
    std::map<xercesc::XSComplexTypeDefinition*, int> m_mapTypeClass;
    std::map<std::string, int> m_mapNamedTypeClass;  // "namespace name" of a named type
    std::map<xercesc::XSElementDeclaration*, int> m_mapElementClass;
    std::map<xercesc::XSModelGroupDefinition*, int> m_mapGroupClass;
    std::map<xercesc::XSSimpleTypeDefinition*, std::string> m_mapEnums;
    std::vector<std::pair<int, std::pair<xercesc::XSComplexTypeDefinition*, CPlace>>> m_vecPending;
    std::vector<std::pair<int, std::pair<xercesc::XSSimpleTypeDefinition*, CPlace>>> m_vecSimplePending;
};

}  // namespace OrvexXsd
