// Random documents that are valid against a schema set, for the property test of the schema
// compiler: each starts with a global element and follows the schema model that Xerces built
// (the one the compiler reads). Occurrences are capped, recursion ends where the depth or the
// element budget is reached by taking the fewest elements the model allows, values are drawn
// inside their facets, and a value that can't be made sure to be valid is left out when it is
// optional (the document fails to generate when it isn't).
#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>
#include <xercesc/framework/psvi/XSComplexTypeDefinition.hpp>
#include <xercesc/framework/psvi/XSElementDeclaration.hpp>
#include <xercesc/framework/psvi/XSModel.hpp>
#include <xercesc/framework/psvi/XSParticle.hpp>
#include <xercesc/framework/psvi/XSSimpleTypeDefinition.hpp>
#include <xercesc/framework/psvi/XSWildcard.hpp>

namespace OrvexXsd {

class CInstanceGenerator {
public:
    struct COptions {
        int m_nMaxOccurs = 3;      // a repeat above this many stops at it (or at its minimum)
        int m_nMaxDepth = 8;       // from this depth on, only what the model demands
        int m_nMaxElements = 200;  // after this many elements, only what the model demands
        // xsi:type for derived types and members of substitution groups (--derivations).
        bool m_bDerivations = false;
    };

    CInstanceGenerator(xercesc::XSModel* pModel, const COptions& options);

    // One document (UTF-8 XML text) starting with the global element; the same seed gives the
    // same document. Throws std::runtime_error when the element isn't declared or the schema
    // demands a value or element the generator can't make sure of.
    std::string Generate(const std::string& strName, const std::string& strNamespace, uint64_t nSeed);

    // Namespace of the elements and attributes put where a wildcard lets foreign content in.
    static const char* const s_pszForeignNamespace;

private:
    struct CAttribute {
        std::string m_strNamespace;
        std::string m_strName;
        std::string m_strValue;
        std::string m_strTypeNamespace;  // xsi:type: the value is a QName in this namespace
        bool m_bIdReference = false;     // IDREF/IDREFS: filled in once all IDs are known
        bool m_bOptional = false;
    };
    struct CNode {
        std::string m_strNamespace;
        std::string m_strName;
        std::vector<CAttribute> m_vecAttributes;
        std::string m_strText;
        bool m_bIdReference = false;
        std::vector<CNode> m_vecChildren;
    };

    // Whether xsi:type and substitution-group members may be made here. Not in what the
    // bindings hold as untyped elements (content of a wildcard, an element of xs:anyType):
    // those keep the xsi:type text but not the namespace declaration its prefix needs, so
    // what they write back is invalid (open bug).
    bool Derivations() const { return m_options.m_bDerivations && m_nInWildcard == 0; }
    bool Minimal(int nDepth) const {
        return nDepth >= m_options.m_nMaxDepth || m_nElements >= m_options.m_nMaxElements;
    }
    bool Element(xercesc::XSElementDeclaration* pDeclaration, int nDepth, CNode& node);
    bool ComplexContent(xercesc::XSComplexTypeDefinition* pType, int nDepth, CNode& node);
    bool Particle(xercesc::XSParticle* pParticle, int nDepth, CNode& parent);
    bool Term(xercesc::XSParticle* pParticle, int nDepth, CNode& parent);
    bool Wildcard(xercesc::XSWildcard* pWildcard, int nDepth, CNode& parent);
    // A value of the simple type; false when none can be made sure to be valid. bIdReference
    // is set for IDREF values, which stay empty until the end.
    bool Value(xercesc::XSSimpleTypeDefinition* pType, std::string& strValue, bool& bIdReference);
    bool AtomicValue(xercesc::XSSimpleTypeDefinition* pType, std::string& strValue, bool& bIdReference);
    // The fewest elements a particle or an element needs (a large number for one that can't be
    // made, or that only leads back to itself).
    long long MinimalSize(xercesc::XSParticle* pParticle);
    long long MinimalSize(xercesc::XSElementDeclaration* pDeclaration);
    std::vector<xercesc::XSTypeDefinition*> DerivedTypes(xercesc::XSTypeDefinition* pBase) const;
    bool Chance(int nPercent) { return static_cast<int>(m_rng() % 100) < nPercent; }
    long long Between(long long nLow, long long nHigh);
    void Fail(const std::string& strReason);
    // Collects the IDs (bCollect), or gives every reference one of them; an optional reference
    // attribute goes when the document has no ID. False when a mandatory one finds none.
    bool ResolveReferences(CNode& node, const std::vector<std::string>& vecIds, bool bCollect,
                           std::vector<std::string>& vecFound);
    std::string Serialize(const CNode& root) const;

    xercesc::XSModel* m_pModel;
    COptions m_options;
    std::mt19937_64 m_rng;
    int m_nElements = 0;
    int m_nIds = 0;
    int m_nInWildcard = 0;  // depth of strict wildcards the element being made stands in
    std::string m_strFailure;
    std::map<const void*, long long> m_mapMinimal;
    std::set<const void*> m_setInProgress;
};

}  // namespace OrvexXsd
