#include "instancegenerator.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <xercesc/framework/psvi/XSAttributeDeclaration.hpp>
#include <xercesc/framework/psvi/XSAttributeUse.hpp>
#include <xercesc/framework/psvi/XSModelGroup.hpp>
#include <xercesc/framework/psvi/XSNamedMap.hpp>
#include <xercesc/util/XMLString.hpp>

#include "patternsampler.h"
#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

const char* const CInstanceGenerator::s_pszForeignNamespace = "urn:example:foreign";

namespace {

const char kSchemaNamespace[] = "http://www.w3.org/2001/XMLSchema";
const char kInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";
const char kXmlNamespace[] = "http://www.w3.org/XML/1998/namespace";
const long long kUnmakeable = 1LL << 40;

std::string Text(const XMLCh* pszText) { return CXercesText::ToUtf8(pszText); }

bool IsBuiltIn(XSTypeDefinition* pType) {
    return Text(pType->getNamespace()) == kSchemaNamespace && !pType->getAnonymous();
}

// The built-in type a simple type derives from, by name.
std::string BuiltInOf(XSSimpleTypeDefinition* pType) {
    XSTypeDefinition* pStep = pType;
    while (pStep && !IsBuiltIn(pStep)) pStep = pStep->getBaseType();
    return pStep ? Text(pStep->getName()) : std::string("string");
}

std::string Facet(XSSimpleTypeDefinition* pType, XSSimpleTypeDefinition::FACET eFacet) {
    if (!(pType->getDefinedFacets() & eFacet)) return std::string();
    return Text(pType->getLexicalFacetValue(eFacet));
}

long long FacetNumber(XSSimpleTypeDefinition* pType, XSSimpleTypeDefinition::FACET eFacet) {
    const std::string strValue = Facet(pType, eFacet);
    return strValue.empty() ? -1 : std::atoll(strValue.c_str());
}

std::vector<std::string> Strings(StringList* pList) {
    std::vector<std::string> vecResult;
    for (XMLSize_t i = 0; pList && i < pList->size(); ++i) vecResult.push_back(Text(pList->elementAt(i)));
    return vecResult;
}

struct CIntegerRange {
    long long m_nLow;
    long long m_nHigh;
};

// The value range of the built-in integer types, and a small one for the unbounded types.
bool IntegerRange(const std::string& strBuiltIn, CIntegerRange& range) {
    static const std::map<std::string, CIntegerRange> s_mapRanges = {
        {"integer", {-1000000, 1000000}},
        {"nonPositiveInteger", {-1000000, 0}},
        {"negativeInteger", {-1000000, -1}},
        {"nonNegativeInteger", {0, 1000000}},
        {"positiveInteger", {1, 1000000}},
        {"long", {LLONG_MIN, LLONG_MAX}},
        {"int", {INT_MIN, INT_MAX}},
        {"short", {-32768, 32767}},
        {"byte", {-128, 127}},
        {"unsignedLong", {0, LLONG_MAX}},
        {"unsignedInt", {0, 4294967295LL}},
        {"unsignedShort", {0, 65535}},
        {"unsignedByte", {0, 255}},
    };
    const auto it = s_mapRanges.find(strBuiltIn);
    if (it == s_mapRanges.end()) return false;
    range = it->second;
    return true;
}

std::string Escape(const std::string& strText, bool bAttribute) {
    std::string strResult;
    for (char c : strText) {
        switch (c) {
            case '&':
                strResult += "&amp;";
                break;
            case '<':
                strResult += "&lt;";
                break;
            case '>':
                strResult += "&gt;";
                break;
            case '"':
                strResult += bAttribute ? "&quot;" : "\"";
                break;
            case '\t':
                strResult += bAttribute ? "&#9;" : "\t";
                break;
            case '\n':
                strResult += bAttribute ? "&#10;" : "\n";
                break;
            case '\r':
                strResult += "&#13;";
                break;
            default:
                strResult += c;
        }
    }
    return strResult;
}

// Whether a wildcard lets a namespace ("" for none) pass.
bool Allows(XSWildcard* pWildcard, const std::string& strNamespace) {
    const std::vector<std::string> vecList = Strings(pWildcard->getNsConstraintList());
    switch (pWildcard->getConstraintType()) {
        case XSWildcard::NSCONSTRAINT_ANY:
            return true;
        case XSWildcard::NSCONSTRAINT_NOT:
            return !strNamespace.empty() && std::find(vecList.begin(), vecList.end(), strNamespace) == vecList.end();
        default:
            return std::find(vecList.begin(), vecList.end(), strNamespace) != vecList.end();
    }
}

}  // namespace

CInstanceGenerator::CInstanceGenerator(XSModel* pModel, const COptions& options)
    : m_pModel(pModel), m_options(options) {}

void CInstanceGenerator::Fail(const std::string& strReason) {
    if (m_strFailure.empty()) m_strFailure = strReason;
}

long long CInstanceGenerator::Between(long long nLow, long long nHigh) {
    if (nHigh <= nLow) return nLow;
    const unsigned long long nSpan = static_cast<unsigned long long>(nHigh) - static_cast<unsigned long long>(nLow);
    if (nSpan == ULLONG_MAX) return static_cast<long long>(m_rng());
    return static_cast<long long>(static_cast<unsigned long long>(nLow) + m_rng() % (nSpan + 1));
}

std::string CInstanceGenerator::Generate(const std::string& strName, const std::string& strNamespace, uint64_t nSeed) {
    CXercesText name(strName), ns(strNamespace);
    XSElementDeclaration* pRoot =
        m_pModel->getElementDeclaration(name.Get(), strNamespace.empty() ? nullptr : ns.Get());
    if (!pRoot)
        throw std::runtime_error("the schema set declares no global element " + strName +
                                 (strNamespace.empty() ? std::string() : " in " + strNamespace));
    // A reference needs an ID somewhere in the document: a document without one is made again
    // from a seed derived from the first.
    for (int nAttempt = 0;; ++nAttempt) {
        m_rng.seed(nSeed + static_cast<uint64_t>(nAttempt) * 0x9E3779B97F4A7C15ULL);
        m_nElements = 0;
        m_nIds = 0;
        m_strFailure.clear();
        CNode root;
        if (!Element(pRoot, 0, root))
            throw std::runtime_error("no valid instance of " + strName + ": " +
                                     (m_strFailure.empty() ? std::string("no way found") : m_strFailure));
        std::vector<std::string> vecIds;
        ResolveReferences(root, vecIds, true, vecIds);
        std::vector<std::string> vecUnused;
        if (ResolveReferences(root, vecIds, false, vecUnused)) return Serialize(root);
        if (nAttempt == 15) throw std::runtime_error("no valid instance of " + strName + ": an IDREF needs an ID");
    }
}

bool CInstanceGenerator::ResolveReferences(CNode& node, const std::vector<std::string>& vecIds, bool bCollect,
                                           std::vector<std::string>& vecFound) {
    if (bCollect) {
        for (const CAttribute& attribute : node.m_vecAttributes) {
            if (attribute.m_strValue.compare(0, 6, "ident-") == 0 && !attribute.m_bIdReference)
                vecFound.push_back(attribute.m_strValue);
        }
        if (node.m_strText.compare(0, 6, "ident-") == 0 && !node.m_bIdReference) vecFound.push_back(node.m_strText);
    } else {
        for (auto it = node.m_vecAttributes.begin(); it != node.m_vecAttributes.end();) {
            if (it->m_bIdReference && vecIds.empty()) {
                if (!it->m_bOptional) return false;
                it = node.m_vecAttributes.erase(it);
                continue;
            }
            if (it->m_bIdReference) it->m_strValue = vecIds[m_rng() % vecIds.size()];
            ++it;
        }
        if (node.m_bIdReference) {
            if (vecIds.empty()) return false;
            node.m_strText = vecIds[m_rng() % vecIds.size()];
        }
    }
    for (CNode& child : node.m_vecChildren) {
        if (!ResolveReferences(child, vecIds, bCollect, vecFound)) return false;
    }
    return true;
}

std::vector<XSTypeDefinition*> CInstanceGenerator::DerivedTypes(XSTypeDefinition* pBase) const {
    std::vector<XSTypeDefinition*> vecTypes;
    XSNamedMap<XSObject>* pTypes = m_pModel->getComponents(XSConstants::TYPE_DEFINITION);
    for (XMLSize_t i = 0; pTypes && i < pTypes->getLength(); ++i) {
        XSTypeDefinition* pType = static_cast<XSTypeDefinition*>(pTypes->item(i));
        if (pType == pBase || pType->getTypeCategory() != XSTypeDefinition::COMPLEX_TYPE) continue;
        if (static_cast<XSComplexTypeDefinition*>(pType)->getAbstract()) continue;
        if (pType->derivedFromType(pBase)) vecTypes.push_back(pType);
    }
    return vecTypes;
}

bool CInstanceGenerator::Element(XSElementDeclaration* pDeclaration, int nDepth, CNode& node) {
    // A member of the element's substitution group may stand in its place.
    if (Derivations() && (pDeclaration->getAbstract() || Chance(30))) {
        // Members name the head directly or through another member.
        std::vector<XSElementDeclaration*> vecMembers;
        XSNamedMap<XSObject>* pElements = m_pModel->getComponents(XSConstants::ELEMENT_DECLARATION);
        for (XMLSize_t i = 0; pElements && i < pElements->getLength(); ++i) {
            XSElementDeclaration* pElement = static_cast<XSElementDeclaration*>(pElements->item(i));
            for (XSElementDeclaration* pHead = pElement->getSubstitutionGroupAffiliation(); pHead;
                 pHead = pHead->getSubstitutionGroupAffiliation()) {
                if (pHead == pDeclaration && !pElement->getAbstract()) vecMembers.push_back(pElement);
                if (pHead == pDeclaration) break;
            }
        }
        if (!vecMembers.empty()) pDeclaration = vecMembers[m_rng() % vecMembers.size()];
    }
    const std::string strName = Text(pDeclaration->getName());
    if (pDeclaration->getAbstract()) {
        Fail("the element " + strName + " is abstract");
        return false;
    }
    ++m_nElements;
    node.m_strName = strName;
    node.m_strNamespace = Text(pDeclaration->getNamespace());
    XSTypeDefinition* pType = pDeclaration->getTypeDefinition();
    if (pType->getTypeCategory() == XSTypeDefinition::SIMPLE_TYPE) {
        if (pDeclaration->getConstraintType() == XSConstants::VALUE_CONSTRAINT_FIXED) {
            node.m_strText = Text(pDeclaration->getConstraintValue());
            return true;
        }
        if (!Value(static_cast<XSSimpleTypeDefinition*>(pType), node.m_strText, node.m_bIdReference)) {
            Fail("no value for the element " + strName);
            return false;
        }
        return true;
    }
    XSComplexTypeDefinition* pComplex = static_cast<XSComplexTypeDefinition*>(pType);
    // An element of xs:anyType is an untyped element in the bindings: see Derivations().
    const bool bAnyType = Text(pComplex->getName()) == "anyType" && Text(pComplex->getNamespace()) == kSchemaNamespace;
    if (Derivations() && !bAnyType && (pComplex->getAbstract() || Chance(30))) {
        const std::vector<XSTypeDefinition*> vecDerived = DerivedTypes(pComplex);
        if (!vecDerived.empty()) {
            pComplex = static_cast<XSComplexTypeDefinition*>(vecDerived[m_rng() % vecDerived.size()]);
            CAttribute type;
            type.m_strNamespace = kInstanceNamespace;
            type.m_strName = "type";
            type.m_strValue = Text(pComplex->getName());
            type.m_strTypeNamespace = Text(pComplex->getNamespace());
            node.m_vecAttributes.push_back(type);
        }
    }
    if (pComplex->getAbstract()) {
        Fail("the type of the element " + strName + " is abstract");
        return false;
    }
    return ComplexContent(pComplex, nDepth, node);
}

bool CInstanceGenerator::ComplexContent(XSComplexTypeDefinition* pType, int nDepth, CNode& node) {
    XSAttributeUseList* pUses = pType->getAttributeUses();
    for (XMLSize_t i = 0; pUses && i < pUses->size(); ++i) {
        XSAttributeUse* pUse = pUses->elementAt(i);
        XSAttributeDeclaration* pAttribute = pUse->getAttrDeclaration();
        if (!pUse->getRequired() && (Minimal(nDepth) || !Chance(50))) continue;
        CAttribute attribute;
        attribute.m_strName = Text(pAttribute->getName());
        attribute.m_strNamespace = Text(pAttribute->getNamespace());
        attribute.m_bOptional = !pUse->getRequired();
        if (pUse->getConstraintType() == XSConstants::VALUE_CONSTRAINT_FIXED) {
            attribute.m_strValue = Text(pUse->getConstraintValue());
        } else if (pAttribute->getConstraintType() == XSConstants::VALUE_CONSTRAINT_FIXED) {
            attribute.m_strValue = Text(pAttribute->getConstraintValue());
        } else if (!Value(pAttribute->getTypeDefinition(), attribute.m_strValue, attribute.m_bIdReference)) {
            if (!pUse->getRequired()) continue;
            Fail("no value for the attribute " + attribute.m_strName);
            return false;
        }
        node.m_vecAttributes.push_back(attribute);
    }
    XSWildcard* pAnyAttribute = pType->getAttributeWildcard();
    if (pAnyAttribute && pAnyAttribute->getProcessContents() != XSWildcard::PC_STRICT &&
        Allows(pAnyAttribute, s_pszForeignNamespace) && !Minimal(nDepth) && Chance(30)) {
        CAttribute attribute;
        attribute.m_strNamespace = s_pszForeignNamespace;
        attribute.m_strName = "remark";
        attribute.m_strValue = "foreign value";
        node.m_vecAttributes.push_back(attribute);
    }
    switch (pType->getContentType()) {
        case XSComplexTypeDefinition::CONTENTTYPE_EMPTY:
            return true;
        case XSComplexTypeDefinition::CONTENTTYPE_SIMPLE:
            if (!Value(pType->getSimpleType(), node.m_strText, node.m_bIdReference)) {
                Fail("no value for the text of " + node.m_strName);
                return false;
            }
            return true;
        default:
            // Mixed content gets no text: the bindings don't keep it.
            return !pType->getParticle() || Particle(pType->getParticle(), nDepth + 1, node);
    }
}

bool CInstanceGenerator::Particle(XSParticle* pParticle, int nDepth, CNode& parent) {
    const long long nMin = pParticle->getMinOccurs();
    long long nMax = pParticle->getMaxOccursUnbounded() ? LLONG_MAX : static_cast<long long>(pParticle->getMaxOccurs());
    nMax = std::max(nMin, std::min<long long>(nMax, m_options.m_nMaxOccurs));
    const long long nCount = Minimal(nDepth) ? nMin : Between(nMin, nMax);
    for (long long i = 0; i < nCount; ++i) {
        const size_t nChildren = parent.m_vecChildren.size();
        const int nElements = m_nElements;
        if (!Term(pParticle, nDepth, parent)) {
            if (i < nMin) return false;
            // An optional repetition that couldn't be made is left out whole.
            parent.m_vecChildren.resize(nChildren);
            m_nElements = nElements;
            break;
        }
    }
    return true;
}

bool CInstanceGenerator::Term(XSParticle* pParticle, int nDepth, CNode& parent) {
    switch (pParticle->getTermType()) {
        case XSParticle::TERM_ELEMENT: {
            parent.m_vecChildren.emplace_back();
            return Element(pParticle->getElementTerm(), nDepth, parent.m_vecChildren.back());
        }
        case XSParticle::TERM_WILDCARD:
            return Wildcard(pParticle->getWildcardTerm(), nDepth, parent);
        case XSParticle::TERM_MODELGROUP: {
            XSModelGroup* pGroup = pParticle->getModelGroupTerm();
            XSParticleList* pParticles = pGroup->getParticles();
            const size_t nParticles = pParticles ? pParticles->size() : 0;
            if (pGroup->getCompositor() != XSModelGroup::COMPOSITOR_CHOICE) {
                // A sequence, or an all group in the schema's order, which the bindings write.
                for (size_t i = 0; i < nParticles; ++i) {
                    if (!Particle(pParticles->elementAt(i), nDepth, parent)) return false;
                }
                return true;
            }
            if (nParticles == 0) return true;
            // A choice tries its options from a random one on; at the limits, the smallest first.
            std::vector<size_t> vecOrder(nParticles);
            for (size_t i = 0; i < nParticles; ++i) vecOrder[i] = i;
            if (Minimal(nDepth)) {
                std::stable_sort(vecOrder.begin(), vecOrder.end(), [&](size_t a, size_t b) {
                    return MinimalSize(pParticles->elementAt(a)) < MinimalSize(pParticles->elementAt(b));
                });
            } else {
                std::rotate(vecOrder.begin(), vecOrder.begin() + m_rng() % nParticles, vecOrder.end());
            }
            for (size_t nOption : vecOrder) {
                const size_t nChildren = parent.m_vecChildren.size();
                const int nElements = m_nElements;
                if (Particle(pParticles->elementAt(nOption), nDepth, parent)) return true;
                parent.m_vecChildren.resize(nChildren);
                m_nElements = nElements;
            }
            return false;
        }
        default:
            return false;
    }
}

bool CInstanceGenerator::Wildcard(XSWildcard* pWildcard, int nDepth, CNode& parent) {
    if (pWildcard->getProcessContents() == XSWildcard::PC_STRICT) {
        // Strict content must be a declared global element of an allowed namespace.
        std::vector<XSElementDeclaration*> vecCandidates;
        XSNamedMap<XSObject>* pElements = m_pModel->getComponents(XSConstants::ELEMENT_DECLARATION);
        for (XMLSize_t i = 0; pElements && i < pElements->getLength(); ++i) {
            XSElementDeclaration* pElement = static_cast<XSElementDeclaration*>(pElements->item(i));
            if (!pElement->getAbstract() && Allows(pWildcard, Text(pElement->getNamespace())))
                vecCandidates.push_back(pElement);
        }
        if (vecCandidates.empty()) {
            Fail("no element for a strict wildcard");
            return false;
        }
        parent.m_vecChildren.emplace_back();
        ++m_nInWildcard;
        const bool bMade = Element(vecCandidates[m_rng() % vecCandidates.size()], nDepth, parent.m_vecChildren.back());
        --m_nInWildcard;
        return bMade;
    }
    std::string strNamespace;
    if (Allows(pWildcard, s_pszForeignNamespace)) {
        strNamespace = s_pszForeignNamespace;
    } else if (!Allows(pWildcard, "")) {
        const std::vector<std::string> vecList = Strings(pWildcard->getNsConstraintList());
        if (vecList.empty()) return false;
        strNamespace = vecList.front();
    }
    ++m_nElements;
    parent.m_vecChildren.emplace_back();
    CNode& node = parent.m_vecChildren.back();
    node.m_strNamespace = strNamespace;
    node.m_strName = "extension";
    node.m_strText = "foreign text " + std::to_string(m_rng() % 1000);
    return true;
}

long long CInstanceGenerator::MinimalSize(XSElementDeclaration* pDeclaration) {
    const auto it = m_mapMinimal.find(pDeclaration);
    if (it != m_mapMinimal.end()) return it->second;
    if (pDeclaration->getAbstract() && !m_options.m_bDerivations) return kUnmakeable;
    if (!m_setInProgress.insert(pDeclaration).second) return kUnmakeable;
    long long nSize = 1;
    XSTypeDefinition* pType = pDeclaration->getTypeDefinition();
    if (pType->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE) {
        XSParticle* pParticle = static_cast<XSComplexTypeDefinition*>(pType)->getParticle();
        if (pParticle) nSize = std::min(kUnmakeable, nSize + MinimalSize(pParticle));
    }
    m_setInProgress.erase(pDeclaration);
    // A size found while an enclosing element was in progress may be too large; it is kept
    // anyway, as a measure to rank options, not a promise.
    m_mapMinimal[pDeclaration] = nSize;
    return nSize;
}

long long CInstanceGenerator::MinimalSize(XSParticle* pParticle) {
    const long long nMin = pParticle->getMinOccurs();
    if (nMin == 0) return 0;
    long long nTerm = 0;
    switch (pParticle->getTermType()) {
        case XSParticle::TERM_ELEMENT:
            nTerm = MinimalSize(pParticle->getElementTerm());
            break;
        case XSParticle::TERM_WILDCARD:
            nTerm = 1;
            break;
        case XSParticle::TERM_MODELGROUP: {
            XSModelGroup* pGroup = pParticle->getModelGroupTerm();
            XSParticleList* pParticles = pGroup->getParticles();
            const bool bChoice = pGroup->getCompositor() == XSModelGroup::COMPOSITOR_CHOICE;
            nTerm = bChoice && pParticles && pParticles->size() ? kUnmakeable : 0;
            for (XMLSize_t i = 0; pParticles && i < pParticles->size(); ++i) {
                const long long nPart = MinimalSize(pParticles->elementAt(i));
                nTerm = bChoice ? std::min(nTerm, nPart) : std::min(kUnmakeable, nTerm + nPart);
            }
            break;
        }
        default:
            break;
    }
    return std::min(kUnmakeable, nMin * nTerm);
}

bool CInstanceGenerator::Value(XSSimpleTypeDefinition* pType, std::string& strValue, bool& bIdReference) {
    const std::vector<std::string> vecEnumeration = Strings(pType->getLexicalEnumeration());
    if (!vecEnumeration.empty()) {
        strValue = vecEnumeration[m_rng() % vecEnumeration.size()];
        return true;
    }
    if (pType->getVariety() == XSSimpleTypeDefinition::VARIETY_UNION) {
        XSSimpleTypeDefinitionList* pMembers = pType->getMemberTypes();
        if (!pMembers || pMembers->size() == 0) return false;
        return Value(pMembers->elementAt(m_rng() % pMembers->size()), strValue, bIdReference);
    }
    if (pType->getVariety() == XSSimpleTypeDefinition::VARIETY_LIST) {
        // Items joined by single spaces; a length facet of a list counts items.
        if (!Strings(pType->getLexicalPattern()).empty()) return false;
        const long long nLength = FacetNumber(pType, XSSimpleTypeDefinition::FACET_LENGTH);
        long long nMin = std::max(1LL, FacetNumber(pType, XSSimpleTypeDefinition::FACET_MINLENGTH));
        long long nMax = FacetNumber(pType, XSSimpleTypeDefinition::FACET_MAXLENGTH);
        if (nMax < 0) nMax = nMin + 2;
        if (nLength >= 0) nMin = nMax = nLength;
        const long long nCount = Between(nMin, nMax);
        strValue.clear();
        for (long long i = 0; i < nCount; ++i) {
            std::string strItem;
            bool bReference = false;
            if (!AtomicValue(pType->getItemType(), strItem, bReference) || bReference) return false;
            strValue += (i ? " " : "") + strItem;
        }
        return true;
    }
    return AtomicValue(pType, strValue, bIdReference);
}

bool CInstanceGenerator::AtomicValue(XSSimpleTypeDefinition* pType, std::string& strValue, bool& bIdReference) {
    typedef XSSimpleTypeDefinition T;
    const std::vector<std::string> vecEnumeration = Strings(pType->getLexicalEnumeration());
    if (!vecEnumeration.empty()) {
        strValue = vecEnumeration[m_rng() % vecEnumeration.size()];
        return true;
    }
    const std::string strBuiltIn = BuiltInOf(pType);
    const std::vector<std::string> vecPatterns = Strings(pType->getLexicalPattern());
    const long long nLength = FacetNumber(pType, T::FACET_LENGTH);
    long long nMinLength = FacetNumber(pType, T::FACET_MINLENGTH);
    long long nMaxLength = FacetNumber(pType, T::FACET_MAXLENGTH);
    if (nLength >= 0) nMinLength = nMaxLength = nLength;
    const std::string strMinInclusive = Facet(pType, T::FACET_MININCLUSIVE);
    const std::string strMaxInclusive = Facet(pType, T::FACET_MAXINCLUSIVE);
    const std::string strMinExclusive = Facet(pType, T::FACET_MINEXCLUSIVE);
    const std::string strMaxExclusive = Facet(pType, T::FACET_MAXEXCLUSIVE);
    const bool bBounded =
        !strMinInclusive.empty() || !strMaxInclusive.empty() || !strMinExclusive.empty() || !strMaxExclusive.empty();
    const long long nTotalDigits = FacetNumber(pType, T::FACET_TOTALDIGITS);
    const long long nFractionDigits = FacetNumber(pType, T::FACET_FRACTIONDIGITS);

    if (!vecPatterns.empty()) {
        // Only a value drawn from the pattern and confirmed by PCRE2; the other facets of a
        // patterned type are lengths, which the sampler keeps.
        if (bBounded || nTotalDigits >= 0) return false;
        CPatternSampler sampler(vecPatterns, nMinLength, nMaxLength);
        return sampler.Draw(m_rng, strValue);
    }
    if (strBuiltIn == "boolean") {
        strValue = Chance(50) ? "true" : "false";
        return true;
    }
    CIntegerRange range = {0, 0};
    if (IntegerRange(strBuiltIn, range) || strBuiltIn == "decimal") {
        if (strBuiltIn == "decimal") range = {-1000000, 1000000};
        // Bounds that aren't whole numbers are met by the whole numbers inside them.
        const auto bound = [](const std::string& strBound, bool bLow, bool bExclusive, long long& nValue) {
            if (strBound.empty()) return;
            const long double d = std::strtold(strBound.c_str(), nullptr);
            long double dWhole = bLow ? std::ceil(d) : std::floor(d);
            if (bExclusive && dWhole == d) dWhole += bLow ? 1 : -1;
            if (dWhole > static_cast<long double>(LLONG_MIN) && dWhole < static_cast<long double>(LLONG_MAX)) {
                const long long nWhole = static_cast<long long>(dWhole);
                nValue = bLow ? std::max(nValue, nWhole) : std::min(nValue, nWhole);
            }
        };
        bound(strMinInclusive, true, false, range.m_nLow);
        bound(strMinExclusive, true, true, range.m_nLow);
        bound(strMaxInclusive, false, false, range.m_nHigh);
        bound(strMaxExclusive, false, true, range.m_nHigh);
        int nIntegerDigits = 18;
        if (nTotalDigits > 0) nIntegerDigits = static_cast<int>(std::min(18LL, nTotalDigits));
        if (strBuiltIn == "decimal" && nTotalDigits > 0 && nFractionDigits != 0 && !bBounded)
            nIntegerDigits = std::max(1, nIntegerDigits - 1);  // room for one fraction digit
        long long nLimit = 1;
        for (int i = 0; i < nIntegerDigits; ++i) nLimit *= 10;
        range.m_nLow = std::max(range.m_nLow, -(nLimit - 1));
        range.m_nHigh = std::min(range.m_nHigh, nLimit - 1);
        if (range.m_nLow > range.m_nHigh) return false;
        strValue = std::to_string(Between(range.m_nLow, range.m_nHigh));
        // An unbounded decimal gets a fraction: up to two digits, the last one not zero.
        if (strBuiltIn == "decimal" && !bBounded && nFractionDigits != 0 && Chance(60)) {
            const bool bTwo =
                nFractionDigits != 1 && (nTotalDigits < 0 || nTotalDigits > nIntegerDigits + 1) && Chance(50);
            std::string strFraction = bTwo ? std::to_string(m_rng() % 10) : std::string();
            strFraction += static_cast<char>('1' + m_rng() % 9);
            if (strValue == "0" && Chance(50)) strValue = "-0";
            strValue += "." + strFraction;
        }
        return true;
    }
    if (strBuiltIn == "float" || strBuiltIn == "double") {
        if (bBounded) {
            if (!strMinInclusive.empty() && strMaxExclusive.empty() && strMinExclusive.empty()) {
                strValue = strMinInclusive;
                return true;
            }
            return false;
        }
        // Quarters are exact in both widths and print the same way in both.
        char szValue[32];
        std::snprintf(szValue, sizeof szValue, "%.16g", static_cast<double>(Between(-400000, 400000)) / 4.0);
        strValue = szValue;
        return true;
    }
    if (bBounded) {
        // Dates and times inside bounds: an inclusive bound is itself a valid value.
        strValue = !strMinInclusive.empty() ? strMinInclusive : strMaxInclusive;
        return !strValue.empty();
    }
    char szValue[64];
    const int nYear = static_cast<int>(Between(1900, 2100)), nMonth = static_cast<int>(Between(1, 12)),
              nDay = static_cast<int>(Between(1, 28)), nHour = static_cast<int>(Between(0, 23)),
              nMinute = static_cast<int>(Between(0, 59)), nSecond = static_cast<int>(Between(0, 59));
    if (strBuiltIn == "date") {
        std::snprintf(szValue, sizeof szValue, "%04d-%02d-%02d", nYear, nMonth, nDay);
    } else if (strBuiltIn == "dateTime") {
        std::snprintf(szValue, sizeof szValue, "%04d-%02d-%02dT%02d:%02d:%02d", nYear, nMonth, nDay, nHour, nMinute,
                      nSecond);
    } else if (strBuiltIn == "time") {
        std::snprintf(szValue, sizeof szValue, "%02d:%02d:%02d", nHour, nMinute, nSecond);
    } else if (strBuiltIn == "gYear") {
        std::snprintf(szValue, sizeof szValue, "%04d", nYear);
    } else if (strBuiltIn == "gYearMonth") {
        std::snprintf(szValue, sizeof szValue, "%04d-%02d", nYear, nMonth);
    } else if (strBuiltIn == "gMonth") {
        std::snprintf(szValue, sizeof szValue, "--%02d", nMonth);
    } else if (strBuiltIn == "gMonthDay") {
        std::snprintf(szValue, sizeof szValue, "--%02d-%02d", nMonth, nDay);
    } else if (strBuiltIn == "gDay") {
        std::snprintf(szValue, sizeof szValue, "---%02d", nDay);
    } else if (strBuiltIn == "duration") {
        // The form the bindings write: no part that is zero (the day never is).
        strValue = "P" + std::to_string(nDay) + "D";
        if (nHour || nMinute || nSecond) strValue += "T";
        if (nHour) strValue += std::to_string(nHour) + "H";
        if (nMinute) strValue += std::to_string(nMinute) + "M";
        if (nSecond) strValue += std::to_string(nSecond) + "S";
        return true;
    } else if (strBuiltIn == "hexBinary" || strBuiltIn == "base64Binary") {
        // Lengths of binary types count octets.
        long long nOctets =
            Between(std::max(0LL, nMinLength), nMaxLength >= 0 ? nMaxLength : std::max(0LL, nMinLength) + 8);
        std::string strOctets;
        for (long long i = 0; i < nOctets; ++i) strOctets += static_cast<char>(m_rng() % 256);
        strValue.clear();
        if (strBuiltIn == "hexBinary") {
            for (unsigned char c : strOctets) {
                std::snprintf(szValue, sizeof szValue, "%02X", c);
                strValue += szValue;
            }
            return true;
        }
        static const char s_szAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (size_t i = 0; i < strOctets.size(); i += 3) {
            unsigned nBits = static_cast<unsigned char>(strOctets[i]) << 16;
            if (i + 1 < strOctets.size()) nBits |= static_cast<unsigned char>(strOctets[i + 1]) << 8;
            if (i + 2 < strOctets.size()) nBits |= static_cast<unsigned char>(strOctets[i + 2]);
            strValue += s_szAlphabet[(nBits >> 18) & 63];
            strValue += s_szAlphabet[(nBits >> 12) & 63];
            strValue += i + 1 < strOctets.size() ? s_szAlphabet[(nBits >> 6) & 63] : '=';
            strValue += i + 2 < strOctets.size() ? s_szAlphabet[nBits & 63] : '=';
        }
        return true;
    } else if (strBuiltIn == "ID") {
        strValue = "ident-" + std::to_string(++m_nIds);
        return nMaxLength < 0 && nMinLength < 0;
    } else if (strBuiltIn == "IDREF") {
        bIdReference = true;
        strValue = "ident-";
        return nMaxLength < 0 && nMinLength < 0;
    } else if (strBuiltIn == "ENTITY" || strBuiltIn == "NOTATION" || strBuiltIn == "QName") {
        return false;  // would need declarations the document doesn't have
    } else {
        // The string family. Without length facets, words that test escaping and characters
        // beyond ASCII; otherwise letters of a length inside the bounds.
        static const char* const s_apszWords[] = {"alpha",       "Beta",   "x&y", "a<b>c", "quote\"d",
                                                  "caf\xC3\xA9", "apos'd", "z",   "42",    "mixed Case words"};
        const bool bName = strBuiltIn == "Name" || strBuiltIn == "NCName" || strBuiltIn == "NMTOKEN";
        if (strBuiltIn == "language") {
            strValue = Chance(50) ? "en" : "de-CH";
        } else if (strBuiltIn == "anyURI") {
            strValue = "http://example.org/doc" + std::to_string(m_rng() % 100);
        } else if (nMinLength < 0 && nMaxLength < 0 && !bName) {
            strValue = s_apszWords[m_rng() % (sizeof s_apszWords / sizeof *s_apszWords)];
        } else {
            const long long nFrom = std::max(bName ? 1LL : 0LL, nMinLength);
            const long long nTo = nMaxLength >= 0 ? nMaxLength : nFrom + 10;
            if (nTo < nFrom) return false;
            strValue.clear();
            const long long nCount = Between(nFrom, std::min(nTo, nFrom + 12));
            for (long long i = 0; i < nCount; ++i) strValue += static_cast<char>('a' + m_rng() % 26);
        }
        if ((nMinLength >= 0 || nMaxLength >= 0) &&
            ((nMinLength >= 0 && static_cast<long long>(strValue.size()) < nMinLength) ||
             (nMaxLength >= 0 && static_cast<long long>(strValue.size()) > nMaxLength)))
            return false;
        return true;
    }
    strValue = szValue;
    return true;
}

std::string CInstanceGenerator::Serialize(const CNode& root) const {
    // Prefixes p1, p2 ... in the order namespaces first appear, all declared on the root.
    std::map<std::string, std::string> mapPrefixes = {{kXmlNamespace, "xml"}};
    std::vector<std::pair<std::string, std::string>> vecDeclarations;
    std::function<void(const std::string&)> use = [&](const std::string& strNamespace) {
        if (strNamespace.empty() || mapPrefixes.count(strNamespace)) return;
        const std::string strPrefix =
            strNamespace == kInstanceNamespace ? std::string("xsi") : "p" + std::to_string(vecDeclarations.size() + 1);
        mapPrefixes[strNamespace] = strPrefix;
        vecDeclarations.emplace_back(strPrefix, strNamespace);
    };
    std::function<void(const CNode&)> collect = [&](const CNode& node) {
        use(node.m_strNamespace);
        for (const CAttribute& attribute : node.m_vecAttributes) {
            use(attribute.m_strNamespace);
            if (!attribute.m_strTypeNamespace.empty()) use(attribute.m_strTypeNamespace);
        }
        for (const CNode& child : node.m_vecChildren) collect(child);
    };
    collect(root);
    const auto qname = [&](const std::string& strNamespace, const std::string& strName) {
        return strNamespace.empty() ? strName : mapPrefixes.at(strNamespace) + ":" + strName;
    };
    std::string strText = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    std::function<void(const CNode&, bool)> write = [&](const CNode& node, bool bRoot) {
        strText += "<" + qname(node.m_strNamespace, node.m_strName);
        if (bRoot) {
            for (const auto& declaration : vecDeclarations)
                strText += " xmlns:" + declaration.first + "=\"" + Escape(declaration.second, true) + "\"";
        }
        for (const CAttribute& attribute : node.m_vecAttributes) {
            const std::string strValue = attribute.m_strTypeNamespace.empty()
                                             ? attribute.m_strValue
                                             : qname(attribute.m_strTypeNamespace, attribute.m_strValue);
            strText +=
                " " + qname(attribute.m_strNamespace, attribute.m_strName) + "=\"" + Escape(strValue, true) + "\"";
        }
        if (node.m_vecChildren.empty() && node.m_strText.empty()) {
            strText += "/>";
            return;
        }
        strText += ">" + Escape(node.m_strText, false);
        for (const CNode& child : node.m_vecChildren) write(child, false);
        strText += "</" + qname(node.m_strNamespace, node.m_strName) + ">";
    };
    write(root, true);
    return strText + "\n";
}

}  // namespace OrvexXsd
