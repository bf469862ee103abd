#include "modelbuilder.h"

#include <algorithm>
#include <cstdio>
#include <xercesc/framework/psvi/XSAttributeDeclaration.hpp>
#include <xercesc/framework/psvi/XSAttributeUse.hpp>
#include <xercesc/framework/psvi/XSModelGroup.hpp>
#include <xercesc/framework/psvi/XSModelGroupDefinition.hpp>
#include <xercesc/framework/psvi/XSNamedMap.hpp>
#include <xercesc/framework/psvi/XSWildcard.hpp>

#include "documentation.h"
#include "filepaths.h"
#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

namespace {

const char kSchemaNamespace[] = "http://www.w3.org/2001/XMLSchema";

std::string Text(const XMLCh* pszText) { return CXercesText::ToUtf8(pszText); }

bool IsBuiltIn(XSTypeDefinition* pType) {
    return Text(pType->getNamespace()) == kSchemaNamespace && !pType->getAnonymous();
}

// The ItemType of each built-in simple type that has one; the derived string types and the
// URI and name types are strings.
std::string ItemTypeOf(const std::string& strBuiltIn) {
    static const std::map<std::string, std::string> s_mapItemTypes = {
        {"string", "string"},
        {"normalizedString", "string"},
        {"token", "string"},
        {"language", "string"},
        {"Name", "string"},
        {"NCName", "string"},
        {"NMTOKEN", "string"},
        {"ID", "string"},
        {"IDREF", "string"},
        {"ENTITY", "string"},
        {"anyURI", "string"},
        {"QName", "string"},
        {"NOTATION", "string"},
        {"anySimpleType", "string"},
        {"boolean", "boolean"},
        {"decimal", "decimal"},
        {"integer", "integer"},
        {"nonPositiveInteger", "integer"},
        {"negativeInteger", "integer"},
        {"nonNegativeInteger", "integer"},
        {"positiveInteger", "integer"},
        {"long", "i8"},
        {"int", "i4"},
        {"short", "i2"},
        {"byte", "i1"},
        {"unsignedLong", "ui8"},
        {"unsignedInt", "ui4"},
        {"unsignedShort", "ui2"},
        {"unsignedByte", "ui1"},
        {"float", "r4"},
        {"double", "r8"},
        {"duration", "duration"},
        {"dateTime", "datetime"},
        {"date", "date"},
        {"time", "time"},
        {"gYearMonth", "yearMonth"},
        {"gYear", "year"},
        {"gMonthDay", "monthDay"},
        {"gDay", "day"},
        {"gMonth", "month"},
        {"hexBinary", "hexBinary"},
        {"base64Binary", "base64Binary"},
    };
    const auto it = s_mapItemTypes.find(strBuiltIn);
    return it == s_mapItemTypes.end() ? std::string() : it->second;
}

// A type by its name, since the model may hold more than one object for a named type; an
// anonymous one by its object.
std::string TypeKey(XSTypeDefinition* pType) {
    if (!pType->getAnonymous()) return Text(pType->getNamespace()) + " " + Text(pType->getName());
    char szKey[32];
    std::snprintf(szKey, sizeof szKey, "#%p", static_cast<void*>(pType));
    return szKey;
}

long long Number(const std::string& strText) { return strText.empty() ? -1 : std::stoll(strText); }

// The local part of a QName as written (a ref attribute): what follows the colon, or all of it.
std::string LocalPart(const std::string& strQName) { return strQName.substr(strQName.find(':') + 1); }

}  // namespace

CModelBuilder::CModelBuilder(XSModel* pModel, const CSourceIndex& index, bool bStrict)
    : m_pModel(pModel), m_index(index), m_bStrict(bStrict) {}

CSchemaError CModelBuilder::At(const CPlace& place, const std::string& strLocalKind, const std::string& strLocalName,
                               const std::string& strMessage) const {
    size_t nDocument = 0, nNode = 0;
    if (!m_index.FindTopLevel(place.m_strKind, place.m_strNamespace, place.m_strName, nDocument, nNode))
        return CSchemaError("", 0, 0, strMessage);
    const CSourceIndex::CDocument& document = m_index.GetDocuments()[nDocument];
    const CSourceIndex::CNode* pNode = &document.m_vecNodes[nNode];
    if (!strLocalKind.empty()) {
        // The first construct of that kind (and name, when given) inside the component.
        for (size_t n = nNode + 1; n < document.m_vecNodes.size(); ++n) {
            const CSourceIndex::CNode& node = document.m_vecNodes[n];
            if (node.m_nTopLevel != static_cast<int>(nNode)) break;
            const std::string strRefName = LocalPart(node.m_strRef);
            if (node.m_strKind == strLocalKind &&
                (strLocalName.empty() || node.m_strName == strLocalName || strRefName == strLocalName)) {
                pNode = &node;
                break;
            }
        }
    }
    return CSchemaError(CFilePaths::Display(document.m_strPath), pNode->m_nLine, pNode->m_nColumn, strMessage);
}

void CModelBuilder::Warn(const CPlace& place, const std::string& strLocalKind, const std::string& strLocalName,
                         const std::string& strMessage) {
    const CSchemaError warning = At(place, strLocalKind, strLocalName, strMessage);
    if (m_bStrict) throw warning;
    m_vecWarnings.push_back(warning);
}

void CModelBuilder::WarnIdentityConstraints() {
    for (const CSourceIndex::CDocument& document : m_index.GetDocuments()) {
        for (const CSourceIndex::CNode& node : document.m_vecNodes) {
            if (node.m_strKind != "key" && node.m_strKind != "keyref" && node.m_strKind != "unique") continue;
            const CSchemaError warning(CFilePaths::Display(document.m_strPath), node.m_nLine, node.m_nColumn,
                                       "identity constraint xs:" + node.m_strKind + " " + node.m_strName +
                                           " is not checked: the bound classes don't enforce it");
            if (m_bStrict) throw warning;
            m_vecWarnings.push_back(warning);
        }
    }
}

void CModelBuilder::CountParticle(XSParticle* pParticle) {
    if (!pParticle) return;
    if (pParticle->getTermType() == XSParticle::TERM_ELEMENT) {
        XSElementDeclaration* pElement = pParticle->getElementTerm();
        if (pElement->getScope() == XSConstants::SCOPE_GLOBAL) return;  // a reference: counted once, globally
        XSTypeDefinition* pType = pElement->getTypeDefinition();
        ++m_mapTypeUses[TypeKey(pType)];
        if (pType->getAnonymous() && pType->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE)
            CountComplexType(static_cast<XSComplexTypeDefinition*>(pType));
    } else if (pParticle->getTermType() == XSParticle::TERM_MODELGROUP) {
        XSParticleList* pParticles = pParticle->getModelGroupTerm()->getParticles();
        for (XMLSize_t i = 0; pParticles && i < pParticles->size(); ++i) CountParticle(pParticles->elementAt(i));
    }
}

void CModelBuilder::CountComplexType(XSComplexTypeDefinition* pType) {
    XSTypeDefinition* pBase = pType->getBaseType();
    if (pBase && !IsBuiltIn(pBase)) ++m_mapTypeUses[TypeKey(pBase)];
    if (pBase && !IsBuiltIn(pBase) && !pType->getAnonymous() &&
        pBase->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE)
        m_setHasNamedDerived.insert(TypeKey(pBase));
    CountParticle(pType->getParticle());
}

void CModelBuilder::CountTypeUses() {
    XSNamedMap<XSObject>* pTypes = m_pModel->getComponents(XSConstants::TYPE_DEFINITION);
    for (XMLSize_t i = 0; pTypes && i < pTypes->getLength(); ++i) {
        XSTypeDefinition* pType = static_cast<XSTypeDefinition*>(pTypes->item(i));
        if (IsBuiltIn(pType)) continue;
        if (pType->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE)
            CountComplexType(static_cast<XSComplexTypeDefinition*>(pType));
    }
    XSNamedMap<XSObject>* pElements = m_pModel->getComponents(XSConstants::ELEMENT_DECLARATION);
    for (XMLSize_t i = 0; pElements && i < pElements->getLength(); ++i) {
        XSElementDeclaration* pElement = static_cast<XSElementDeclaration*>(pElements->item(i));
        XSTypeDefinition* pType = pElement->getTypeDefinition();
        ++m_mapTypeUses[TypeKey(pType)];
        if (pType->getAnonymous() && pType->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE)
            CountComplexType(static_cast<XSComplexTypeDefinition*>(pType));
    }
}

int CModelBuilder::NewClass(const std::string& strStem, const std::string& strXmlName, const std::string& strNamespace,
                            const std::string& strOrigin, long long nOrder) {
    CClassModel model;
    const std::string strWord = m_names.Take(strStem);
    model.m_strName = "C" + strWord;
    model.m_strFile = CNameRules::Lower(strWord);
    model.m_strXmlName = strXmlName;
    model.m_strNamespace = strNamespace;
    model.m_strOrigin = strOrigin;
    model.m_nOrder = nOrder;
    m_model.m_vecClasses.push_back(model);
    // Names the runtime's base classes use for their own operations stay free.
    CNameTable members;
    for (const char* pszTaken :
         {"Base", "Namespace", "TargetNamespace", "ElementName", "ParentElementInfo", "ClassElementInfo",
          "ClassAttributeInfo", "Instance", "FirstDerived", "DeclaredType", "Nil"})
        members.Take(pszTaken);
    m_vecMemberNames.push_back(members);
    return static_cast<int>(m_model.m_vecClasses.size()) - 1;
}

void CModelBuilder::CreateTopLevelClasses() {
    // Global elements and named complex types in document order; a named type that only one
    // global element uses, and nothing else, is bound by that element's class.
    struct CTopLevel {
        long long m_nOrder;
        XSElementDeclaration* m_pElement;
        XSComplexTypeDefinition* m_pType;
    };
    std::vector<CTopLevel> vecTopLevel;
    XSNamedMap<XSObject>* pElements = m_pModel->getComponents(XSConstants::ELEMENT_DECLARATION);
    for (XMLSize_t i = 0; pElements && i < pElements->getLength(); ++i) {
        XSElementDeclaration* pElement = static_cast<XSElementDeclaration*>(pElements->item(i));
        if (Text(pElement->getNamespace()) == kSchemaNamespace) continue;
        vecTopLevel.push_back(
            {m_index.OrderOf("element", Text(pElement->getNamespace()), Text(pElement->getName())), pElement, nullptr});
    }
    XSNamedMap<XSObject>* pTypes = m_pModel->getComponents(XSConstants::TYPE_DEFINITION);
    for (XMLSize_t i = 0; pTypes && i < pTypes->getLength(); ++i) {
        XSTypeDefinition* pType = static_cast<XSTypeDefinition*>(pTypes->item(i));
        if (IsBuiltIn(pType) || pType->getTypeCategory() != XSTypeDefinition::COMPLEX_TYPE) continue;
        vecTopLevel.push_back({m_index.OrderOf("complexType", Text(pType->getNamespace()), Text(pType->getName())),
                               nullptr, static_cast<XSComplexTypeDefinition*>(pType)});
    }
    // Ties (components the index doesn't know) fall back on namespace and name.
    std::stable_sort(vecTopLevel.begin(), vecTopLevel.end(), [](const CTopLevel& a, const CTopLevel& b) {
        if (a.m_nOrder != b.m_nOrder) return a.m_nOrder < b.m_nOrder;
        XSObject* pA = a.m_pElement ? static_cast<XSObject*>(a.m_pElement) : a.m_pType;
        XSObject* pB = b.m_pElement ? static_cast<XSObject*>(b.m_pElement) : b.m_pType;
        const std::string strA = Text(pA->getNamespace()) + " " + Text(pA->getName());
        const std::string strB = Text(pB->getNamespace()) + " " + Text(pB->getName());
        if (strA != strB) return strA < strB;
        return a.m_pElement != nullptr && b.m_pElement == nullptr;
    });
    for (const CTopLevel& top : vecTopLevel) {
        if (top.m_pElement) {
            XSElementDeclaration* pElement = top.m_pElement;
            const std::string strName = Text(pElement->getName()), strNamespace = Text(pElement->getNamespace());
            const CPlace place = {"element", strNamespace, strName};
            XSTypeDefinition* pType = pElement->getTypeDefinition();
            if (pType->getTypeCategory() != XSTypeDefinition::COMPLEX_TYPE) {
                // A document element of a simple type: a class whose value is the element's text.
                const int nClass =
                    NewClass(CNameRules::Word(strName), strName, strNamespace, "the element " + strName, top.m_nOrder);
                m_model.m_vecClasses[nClass].m_strDocumentation = CDocumentation::Of(pElement->getAnnotation());
                m_mapElementClass[pElement] = nClass;
                m_vecSimplePending.push_back({nClass, {static_cast<XSSimpleTypeDefinition*>(pType), place}});
                continue;
            }
            XSComplexTypeDefinition* pComplex = static_cast<XSComplexTypeDefinition*>(pType);
            if (IsBuiltIn(pType)) {
                Warn(place, "", "",
                     "global element " + strName +
                         " of type xs:anyType has no class: CreateRootElement doesn't make it");
                continue;
            }
            if (pType->getAnonymous() || (m_mapTypeUses[TypeKey(pType)] == 1 && !IsInFamily(pType))) {
                const int nClass =
                    NewClass(CNameRules::Word(strName), strName, strNamespace, "the element " + strName, top.m_nOrder);
                m_model.m_vecClasses[nClass].m_strDocumentation = CDocumentation::Join(
                    CDocumentation::Of(pElement->getAnnotation()), CDocumentation::Of(pComplex->getAnnotations()));
                m_mapElementClass[pElement] = nClass;
                if (!pType->getAnonymous()) {
                    m_mapTypeClass[pComplex] = nClass;
                    m_mapNamedTypeClass[Text(pType->getNamespace()) + " " + Text(pType->getName())] = nClass;
                }
                m_vecPending.push_back({nClass, {pComplex, place}});
            }
        } else {
            XSComplexTypeDefinition* pType = top.m_pType;
            if (m_mapTypeClass.count(pType)) continue;
            const std::string strName = Text(pType->getName()), strNamespace = Text(pType->getNamespace());
            const int nClass =
                NewClass(CNameRules::Word(strName), strName, strNamespace, "the complex type " + strName, top.m_nOrder);
            m_model.m_vecClasses[nClass].m_bNamedType = true;
            m_model.m_vecClasses[nClass].m_bAbstract = pType->getAbstract();
            m_model.m_vecClasses[nClass].m_strDocumentation = CDocumentation::Of(pType->getAnnotations());
            m_mapTypeClass[pType] = nClass;
            m_mapNamedTypeClass[strNamespace + " " + strName] = nClass;
            m_vecPending.push_back({nClass, {pType, CPlace{"complexType", strNamespace, strName}}});
        }
    }
    // Global elements of a shared named type start a document with an object of that type.
    for (const CTopLevel& top : vecTopLevel) {
        if (!top.m_pElement) continue;
        XSElementDeclaration* pElement = top.m_pElement;
        int nClass = -1;
        const auto it = m_mapElementClass.find(pElement);
        if (it == m_mapElementClass.end() &&
            (pElement->getTypeDefinition()->getTypeCategory() != XSTypeDefinition::COMPLEX_TYPE ||
             IsBuiltIn(pElement->getTypeDefinition())))
            continue;
        if (it != m_mapElementClass.end())
            nClass = it->second;
        else
            nClass = m_mapTypeClass[static_cast<XSComplexTypeDefinition*>(pElement->getTypeDefinition())];
        m_mapElementClass[pElement] = nClass;
        // An element of an abstract type needs xsi:type to name its class: no root object.
        if (m_model.m_vecClasses[nClass].m_bAbstract) continue;
        m_model.m_vecRoots.push_back({Text(pElement->getName()), Text(pElement->getNamespace()), nClass});
    }
}

std::string CModelBuilder::TakeMemberName(int nClass, const std::string& strXmlName) {
    return m_vecMemberNames[nClass].Take(CNameRules::Word(strXmlName));
}

std::string CModelBuilder::EnumFor(XSSimpleTypeDefinition* pType, const std::string& strOwner) {
    const auto it = m_mapEnums.find(pType);
    if (it != m_mapEnums.end()) return it->second;
    CEnumModel model;
    const bool bNamed = !pType->getAnonymous();
    model.m_strName = m_names.Take(CNameRules::Word(bNamed ? Text(pType->getName()) : strOwner));
    model.m_strFile = CNameRules::Lower(model.m_strName);
    model.m_strOrigin = bNamed ? "the simple type " + Text(pType->getName()) : "the values of " + strOwner;
    model.m_strDocumentation = CDocumentation::Of(pType->getAnnotations());
    StringList* pValues = pType->getLexicalEnumeration();
    CNameTable identifiers;
    for (XMLSize_t i = 0; pValues && i < pValues->size(); ++i) {
        const std::string strValue = Text(pValues->elementAt(i));
        // The same value twice is one value.
        if (std::find(model.m_vecValues.begin(), model.m_vecValues.end(), strValue) != model.m_vecValues.end())
            continue;
        model.m_vecValues.push_back(strValue);
        model.m_vecIdentifiers.push_back(model.m_strName + "_" + identifiers.Take(CNameRules::EnumTail(strValue)));
    }
    m_model.m_vecEnums.push_back(model);
    m_mapEnums[pType] = model.m_strName;
    return model.m_strName;
}

void CModelBuilder::TakeValue(CMemberModel& member, const CValueType& value) {
    member.m_eKind = value.m_eKind;
    member.m_strItemType = value.m_strItemType;
    member.m_strBuiltIn = value.m_strBuiltIn;
    member.m_strWhitespace = value.m_strWhitespace;
    member.m_facets = value.m_facets;
    member.m_strFacetsName = value.m_strFacetsName;
    member.m_strFacetsSource = value.m_strFacetsSource;
    member.m_strEnum = value.m_strEnum;
    member.m_strDescription = value.m_strDescription;
}

CModelBuilder::CValueType CModelBuilder::ValueOf(XSSimpleTypeDefinition* pType, const std::string& strOwner,
                                                 const CPlace& place, const std::string& strLocalKind,
                                                 const std::string& strLocalName) {
    CValueType value;
    if (pType->getVariety() != XSSimpleTypeDefinition::VARIETY_ATOMIC) {
        const std::string strVariety = pType->getVariety() == XSSimpleTypeDefinition::VARIETY_LIST ? "list" : "union";
        Warn(place, strLocalKind, strLocalName,
             "the " + strVariety + " type of " + strOwner + " is bound as xs:string: its items are not checked");
        value.m_strItemType = "string";
        value.m_strBuiltIn = "string";
        value.m_strWhitespace = strVariety == "list" ? "collapse" : "preserve";
        value.m_strDescription = "xs:string (a " + strVariety + ")";
        return value;
    }
    XSSimpleTypeDefinition* pBuiltIn = pType;
    while (!IsBuiltIn(pBuiltIn)) pBuiltIn = static_cast<XSSimpleTypeDefinition*>(pBuiltIn->getBaseType());
    const std::string strBuiltIn = Text(pBuiltIn->getName());
    value.m_strItemType = ItemTypeOf(strBuiltIn);
    value.m_strBuiltIn = strBuiltIn;
    if (value.m_strItemType.empty())
        throw At(place, strLocalKind, strLocalName, "the built-in type xs:" + strBuiltIn + " has no binding");
    value.m_strWhitespace = Text(pType->getLexicalFacetValue(XSSimpleTypeDefinition::FACET_WHITESPACE));
    if (value.m_strWhitespace.empty())
        value.m_strWhitespace = value.m_strItemType == "string" ? "preserve" : "collapse";
    value.m_strDescription = "xs:" + strBuiltIn;
    if (pType == pBuiltIn) return value;

    // Facets that the schema's own derivations add to the built-in type.
    auto Own = [&](XSSimpleTypeDefinition::FACET eFacet) {
        if (!pType->isDefinedFacet(eFacet)) return std::string();
        const std::string strValue = Text(pType->getLexicalFacetValue(eFacet));
        if (pBuiltIn->isDefinedFacet(eFacet) && Text(pBuiltIn->getLexicalFacetValue(eFacet)) == strValue)
            return std::string();
        return strValue;
    };
    CFacetSet& facets = value.m_facets;
    facets.m_nLength = Number(Own(XSSimpleTypeDefinition::FACET_LENGTH));
    facets.m_nMinLength = Number(Own(XSSimpleTypeDefinition::FACET_MINLENGTH));
    facets.m_nMaxLength = Number(Own(XSSimpleTypeDefinition::FACET_MAXLENGTH));
    facets.m_strMinInclusive = Own(XSSimpleTypeDefinition::FACET_MININCLUSIVE);
    facets.m_strMaxInclusive = Own(XSSimpleTypeDefinition::FACET_MAXINCLUSIVE);
    facets.m_strMinExclusive = Own(XSSimpleTypeDefinition::FACET_MINEXCLUSIVE);
    facets.m_strMaxExclusive = Own(XSSimpleTypeDefinition::FACET_MAXEXCLUSIVE);
    facets.m_nTotalDigits = Number(Own(XSSimpleTypeDefinition::FACET_TOTALDIGITS));
    facets.m_nFractionDigits = Number(Own(XSSimpleTypeDefinition::FACET_FRACTIONDIGITS));
    std::vector<std::string> vecPatterns;
    StringList* pPatterns = pType->getLexicalPattern();
    StringList* pBuiltInPatterns = pBuiltIn->getLexicalPattern();
    for (XMLSize_t i = 0; pPatterns && i < pPatterns->size(); ++i) {
        const std::string strPattern = Text(pPatterns->elementAt(i));
        bool bInherited = false;
        for (XMLSize_t j = 0; pBuiltInPatterns && j < pBuiltInPatterns->size(); ++j)
            bInherited = bInherited || Text(pBuiltInPatterns->elementAt(j)) == strPattern;
        if (!bInherited) vecPatterns.push_back(strPattern);
    }
    if (!vecPatterns.empty()) facets.m_strPattern = vecPatterns.front();
    if (vecPatterns.size() > 1)
        Warn(place, strLocalKind, strLocalName,
             "the type of " + strOwner + " has patterns in several derivation steps: only " + vecPatterns.front() +
                 " is checked");

    const bool bNamed = !pType->getAnonymous();
    if (pType->isDefinedFacet(XSSimpleTypeDefinition::FACET_ENUMERATION)) {
        if (value.m_strItemType == "string") {
            value.m_eKind = MemberKind_Enum;
            value.m_strEnum = EnumFor(pType, strOwner);
            value.m_strDescription = value.m_strEnum;
            return value;
        }
        Warn(place, strLocalKind, strLocalName,
             "the enumeration of " + strOwner + " (xs:" + strBuiltIn +
                 ") is bound as its primitive type: the values are not checked");
    }
    std::string strFacetText;
    if (!facets.m_strPattern.empty()) strFacetText = "pattern " + facets.m_strPattern;
    if (!facets.IsEmpty() && strFacetText.empty()) strFacetText = "restricted";
    if (bNamed) {
        value.m_strDescription =
            Text(pType->getName()) + " (xs:" + strBuiltIn + (strFacetText.empty() ? "" : ", " + strFacetText) + ")";
        if (!facets.IsEmpty()) {
            value.m_strFacetsName = CNameRules::LowerFirst(CNameRules::Word(Text(pType->getName())));
            value.m_strFacetsSource = Text(pType->getName());
        }
    } else if (!strFacetText.empty()) {
        value.m_strDescription += ", " + strFacetText;
    }
    return value;
}

int CModelBuilder::ClassOfElement(XSElementDeclaration* pElement, const CPlace& place) {
    const auto itElement = m_mapElementClass.find(pElement);
    if (itElement != m_mapElementClass.end()) return itElement->second;
    XSComplexTypeDefinition* pType = static_cast<XSComplexTypeDefinition*>(pElement->getTypeDefinition());
    const auto itType = m_mapTypeClass.find(pType);
    if (itType != m_mapTypeClass.end()) return itType->second;
    // The model may hold more than one object for a named type (a type that refers to
    // itself): the name decides.
    if (!pType->getAnonymous()) {
        const auto itNamed = m_mapNamedTypeClass.find(Text(pType->getNamespace()) + " " + Text(pType->getName()));
        if (itNamed != m_mapNamedTypeClass.end()) return itNamed->second;
    }
    const std::string strName = Text(pElement->getName());
    if (IsBuiltIn(pType))
        throw At(place, "element", strName, "element " + strName + " of type xs:anyType is not supported yet");
    // An anonymous type of a local element: a class named after the element.
    const int nClass = NewClass(CNameRules::Word(strName), strName, Text(pElement->getNamespace()),
                                "the type of the local element " + strName, 0);
    m_model.m_vecClasses[nClass].m_strDocumentation = CDocumentation::Join(
        CDocumentation::Of(pElement->getAnnotation()), CDocumentation::Of(pType->getAnnotations()));
    m_mapTypeClass[pType] = nClass;
    FillClass(nClass, pType, place);
    return nClass;
}

// The attribute names an attribute group brings, in document order, nested groups in
// place. A reference names the group by QName; its local name is looked up in the
// component's namespace first (a group may not refer to itself: the depth bounds a cycle).
void CModelBuilder::AttributeGroupNames(const std::string& strRef, const std::string& strNamespace, int nDepth,
                                        std::vector<std::string>& vecNames) const {
    if (nDepth > 32) return;
    const std::string strLocal = LocalPart(strRef);
    size_t nDocument = 0, nNode = 0;
    if (!m_index.FindTopLevel("attributeGroup", strNamespace, strLocal, nDocument, nNode)) {
        bool bFound = false;
        for (const CSourceIndex::CDocument& document : m_index.GetDocuments()) {
            if (m_index.FindTopLevel("attributeGroup", document.m_strTargetNamespace, strLocal, nDocument, nNode)) {
                bFound = true;
                break;
            }
        }
        if (!bFound) return;
    }
    const CSourceIndex::CDocument& document = m_index.GetDocuments()[nDocument];
    const std::vector<CSourceIndex::CNode>& vecNodes = document.m_vecNodes;
    for (size_t n = nNode + 1; n < vecNodes.size() && vecNodes[n].m_nTopLevel == static_cast<int>(nNode); ++n) {
        if (vecNodes[n].m_nDepth != vecNodes[nNode].m_nDepth + 1) continue;
        if (vecNodes[n].m_strKind == "attribute")
            vecNames.push_back(vecNodes[n].m_strName.empty() ? LocalPart(vecNodes[n].m_strRef) : vecNodes[n].m_strName);
        else if (vecNodes[n].m_strKind == "attributeGroup" && !vecNodes[n].m_strRef.empty())
            AttributeGroupNames(vecNodes[n].m_strRef, document.m_strTargetNamespace, nDepth + 1, vecNames);
    }
}

long long CModelBuilder::AttributeOrder(const CPlace& place, const std::string& strName) const {
    // Document order: the position of the declaration (or reference) in the component, or of
    // the reference to the attribute group that brings it, then its place in that group.
    size_t nDocument = 0, nNode = 0;
    if (!m_index.FindTopLevel(place.m_strKind, place.m_strNamespace, place.m_strName, nDocument, nNode))
        return 1LL << 40;
    const std::vector<CSourceIndex::CNode>& vecNodes = m_index.GetDocuments()[nDocument].m_vecNodes;
    for (size_t n = nNode + 1; n < vecNodes.size() && vecNodes[n].m_nTopLevel == static_cast<int>(nNode); ++n) {
        const CSourceIndex::CNode& node = vecNodes[n];
        const std::string strRef = LocalPart(node.m_strRef);
        if (node.m_strKind == "attribute" && (node.m_strName == strName || strRef == strName))
            return static_cast<long long>(n) << 16;
        if (node.m_strKind == "attributeGroup" && !node.m_strRef.empty()) {
            std::vector<std::string> vecNames;
            AttributeGroupNames(node.m_strRef, m_index.GetDocuments()[nDocument].m_strTargetNamespace, 0, vecNames);
            for (size_t k = 0; k < vecNames.size(); ++k) {
                if (vecNames[k] == strName) return (static_cast<long long>(n) << 16) + static_cast<long long>(k) + 1;
            }
        }
    }
    return 1LL << 40;
}

void CModelBuilder::AddAttributes(int nClass, XSComplexTypeDefinition* pType, const CPlace& place,
                                  const std::set<std::string>& setInherited) {
    XSAttributeUseList* pUses = pType->getAttributeUses();
    std::vector<std::pair<long long, XSAttributeUse*>> vecUses;
    for (XMLSize_t i = 0; pUses && i < pUses->size(); ++i) {
        XSAttributeUse* pUse = pUses->elementAt(i);
        if (setInherited.count(Text(pUse->getAttrDeclaration()->getNamespace()) + " " +
                               Text(pUse->getAttrDeclaration()->getName())))
            continue;
        vecUses.push_back({AttributeOrder(place, Text(pUse->getAttrDeclaration()->getName())), pUse});
    }
    std::stable_sort(vecUses.begin(), vecUses.end(), [](const auto& a, const auto& b) {
        if (a.first != b.first) return a.first < b.first;
        return Text(a.second->getAttrDeclaration()->getName()) < Text(b.second->getAttrDeclaration()->getName());
    });
    for (const auto& use : vecUses) {
        XSAttributeUse* pUse = use.second;
        XSAttributeDeclaration* pDeclaration = pUse->getAttrDeclaration();
        CMemberModel member;
        member.m_bAttribute = true;
        member.m_strXmlName = Text(pDeclaration->getName());
        member.m_strDocumentation = CDocumentation::Of(pDeclaration->getAnnotation());
        member.m_strXmlNamespace = Text(pDeclaration->getNamespace());
        member.m_strProperty = TakeMemberName(nClass, member.m_strXmlName);
        member.m_eOccurrence = pUse->getRequired() ? Occurrence_Mandatory : Occurrence_Optional;
        const CValueType value = ValueOf(pDeclaration->getTypeDefinition(), "@" + member.m_strXmlName, place,
                                         "attribute", member.m_strXmlName);
        TakeValue(member, value);
        XSConstants::VALUE_CONSTRAINT eConstraint = pUse->getConstraintType();
        const XMLCh* pszConstraint = pUse->getConstraintValue();
        if (eConstraint == XSConstants::VALUE_CONSTRAINT_NONE) {
            eConstraint = pDeclaration->getConstraintType();
            pszConstraint = pDeclaration->getConstraintValue();
        }
        if (eConstraint != XSConstants::VALUE_CONSTRAINT_NONE) {
            member.m_bHasDefault = true;
            member.m_strDefault = Text(pszConstraint);
        }
        m_model.m_vecClasses[nClass].m_vecMembers.push_back(member);
    }
}

std::vector<XSElementDeclaration*> CModelBuilder::Substitutes(XSElementDeclaration* pHead) const {
    // Every global element whose substitution group leads, in any number of steps, to the head,
    // in document order.
    std::vector<std::pair<long long, XSElementDeclaration*>> vecFound;
    XSNamedMap<XSObject>* pElements = m_pModel->getComponents(XSConstants::ELEMENT_DECLARATION);
    for (XMLSize_t i = 0; pElements && i < pElements->getLength(); ++i) {
        XSElementDeclaration* pElement = static_cast<XSElementDeclaration*>(pElements->item(i));
        for (XSElementDeclaration* p = pElement->getSubstitutionGroupAffiliation(); p;
             p = p->getSubstitutionGroupAffiliation()) {
            if (p != pHead) continue;
            vecFound.push_back(
                {m_index.OrderOf("element", Text(pElement->getNamespace()), Text(pElement->getName())), pElement});
            break;
        }
    }
    std::stable_sort(vecFound.begin(), vecFound.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<XSElementDeclaration*> vecSubstitutes;
    for (const auto& found : vecFound) vecSubstitutes.push_back(found.second);
    return vecSubstitutes;
}

void CModelBuilder::AddSubstitutionGroup(int nClass, XSParticle* pParticle,
                                         const std::vector<XSElementDeclaration*>& vecSubstitutes,
                                         const CPlace& place) {
    // The head and the elements that may stand for it are a choice of their own, a model group
    // of the class: each takes its element by name, and a run of them keeps the document's order.
    XSElementDeclaration* pHead = pParticle->getElementTerm();
    const std::string strHead = Text(pHead->getName());
    const int nGroup = NewClass(CNameRules::Word(strHead) + "Group", strHead + "Group",
                                m_model.m_vecClasses[nClass].m_strNamespace, "the substitution group of " + strHead, 0);
    m_model.m_vecClasses[nGroup].m_bPseudo = true;
    m_model.m_vecClasses[nGroup].m_bChoice = true;
    if (!pHead->getAbstract()) AddElementMember(nGroup, pHead, 1, 1, place);
    for (XSElementDeclaration* pSubstitute : vecSubstitutes) {
        if (!pSubstitute->getAbstract()) AddElementMember(nGroup, pSubstitute, 1, 1, place);
    }
    AddGroupMember(nClass, nGroup, pParticle, strHead, "the substitution group of " + strHead,
                   pParticle->getMinOccurs() > 0);
}

// The occurrences of a particle, the maximum -1 when unbounded.
static int MinOccurs(XSParticle* pParticle) { return static_cast<int>(pParticle->getMinOccurs()); }
static int MaxOccurs(XSParticle* pParticle) {
    return pParticle->getMaxOccursUnbounded() ? -1 : static_cast<int>(pParticle->getMaxOccurs());
}

void CModelBuilder::AddGroupMember(int nClass, int nGroup, XSParticle* pParticle, const std::string& strName,
                                   const std::string& strDescription, bool bMustConsume) {
    CMemberModel member;
    member.m_eKind = MemberKind_Class;
    member.m_nClass = nGroup;
    member.m_strXmlName = m_model.m_vecClasses[nGroup].m_strXmlName;
    member.m_strXmlNamespace = m_model.m_vecClasses[nClass].m_strNamespace;
    member.m_strProperty = TakeMemberName(nClass, strName);
    member.m_strDescription = strDescription;
    SetOccurrences(member, nClass, MinOccurs(pParticle), MaxOccurs(pParticle));
    member.m_bMustConsume = bMustConsume;
    if (member.m_eOccurrence == Occurrence_Collection) m_model.m_vecClasses[nGroup].m_bCollectionItem = true;
    m_model.m_vecClasses[nClass].m_vecMembers.push_back(member);
}

void CModelBuilder::SetOccurrences(CMemberModel& member, int nClass, int nMinOccurs, int nMaxOccurs) const {
    member.m_nMinOccurs = nMinOccurs;
    member.m_nMaxOccurs = nMaxOccurs;
    // A member of a choice is there only when the choice selects it.
    if (nMaxOccurs != 1)
        member.m_eOccurrence = Occurrence_Collection;
    else if (nMinOccurs == 1 && !m_model.m_vecClasses[nClass].m_bChoice)
        member.m_eOccurrence = Occurrence_Mandatory;
    else
        member.m_eOccurrence = Occurrence_Optional;
}

void CModelBuilder::AddElement(int nClass, XSParticle* pParticle, const CPlace& place) {
    XSElementDeclaration* pElement = pParticle->getElementTerm();
    if (pElement->getScope() == XSConstants::SCOPE_GLOBAL) {
        const std::vector<XSElementDeclaration*> vecSubstitutes = Substitutes(pElement);
        if (pElement->getAbstract() || !vecSubstitutes.empty()) {
            AddSubstitutionGroup(nClass, pParticle, vecSubstitutes, place);
            return;
        }
    }
    AddElementMember(nClass, pElement, MinOccurs(pParticle), MaxOccurs(pParticle), place);
}

void CModelBuilder::AddElementMember(int nClass, XSElementDeclaration* pElement, int nMinOccurs, int nMaxOccurs,
                                     const CPlace& place) {
    CMemberModel member;
    member.m_strXmlName = Text(pElement->getName());
    member.m_strXmlNamespace = Text(pElement->getNamespace());
    member.m_strDocumentation = CDocumentation::Of(pElement->getAnnotation());
    const std::string& strName = member.m_strXmlName;
    member.m_strProperty = TakeMemberName(nClass, strName);
    SetOccurrences(member, nClass, nMinOccurs, nMaxOccurs);
    XSTypeDefinition* pType = pElement->getTypeDefinition();
    if (pType->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE && IsBuiltIn(pType)) {
        // An element of no schema type: held as a CElement of its own name and namespace.
        member.m_eKind = MemberKind_Untyped;
        // The member takes elements by its name; the namespace is the element's own.
        member.m_strRestriction = "##any";
        member.m_strDescription = "xs:anyType";
        if (member.m_eOccurrence == Occurrence_Mandatory) member.m_eOccurrence = Occurrence_Collection;
    } else if (pType->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE) {
        member.m_eKind = MemberKind_Class;
        member.m_nClass = ClassOfElement(pElement, place);
        member.m_strDescription = pType->getAnonymous() ? "anonymous type" : Text(pType->getName());
        member.m_bByDocument = IsByDocument(pType);
        if (pElement->getNillable())
            m_vecNillable.push_back(member.m_nClass);
        else
            m_vecPlainUses.push_back({member.m_nClass, strName, place});
        if (member.m_eOccurrence == Occurrence_Collection)
            m_model.m_vecClasses[member.m_nClass].m_bCollectionItem = true;
    } else {
        const CValueType value =
            ValueOf(static_cast<XSSimpleTypeDefinition*>(pType), strName, place, "element", strName);
        if (value.m_eKind == MemberKind_Enum && member.m_eOccurrence == Occurrence_Collection) {
            for (CEnumModel& e : m_model.m_vecEnums) {
                if (e.m_strName == value.m_strEnum) e.m_bCollectionItem = true;
            }
        }
        if (value.m_strItemType == "char" && member.m_eOccurrence == Occurrence_Collection)
            throw At(place, "element", strName, "repeating element " + strName + " of kind char has no collection");
        TakeValue(member, value);
        if (pElement->getNillable()) {
            member.m_bNillable = true;
            Warn(place, "element", strName,
                 "nillable element " + strName +
                     " is bound as its value: xsi:nil is accepted on reading but leaves no value to write back");
        }
        if (pElement->getConstraintType() != XSConstants::VALUE_CONSTRAINT_NONE) {
            member.m_bHasDefault = true;
            member.m_strDefault = Text(pElement->getConstraintValue());
        }
    }
    m_model.m_vecClasses[nClass].m_vecMembers.push_back(member);
}

std::string CModelBuilder::Restriction(XSWildcard* pWildcard) {
    switch (pWildcard->getConstraintType()) {
        case XSWildcard::NSCONSTRAINT_ANY:
            return "##any";
        case XSWildcard::NSCONSTRAINT_NOT:
            return "##other";
        default:
            break;
    }
    std::string strList;
    StringList* pList = pWildcard->getNsConstraintList();
    for (XMLSize_t i = 0; pList && i < pList->size(); ++i) {
        const std::string strNamespace = Text(pList->elementAt(i));
        strList += (i ? " " : "") + (strNamespace.empty() ? std::string("##local") : strNamespace);
    }
    return strList.empty() ? "##local" : strList;
}

void CModelBuilder::AddWildcard(int nClass, XSWildcard* pWildcard, int nMinOccurs, int nMaxOccurs) {
    CMemberModel member;
    member.m_eKind = MemberKind_Untyped;
    member.m_strXmlName = "AnyElement";
    member.m_strXmlNamespace = m_model.m_vecClasses[nClass].m_strNamespace;
    member.m_strProperty = TakeMemberName(nClass, "AnyElement");
    member.m_strRestriction = Restriction(pWildcard);
    member.m_strDescription = "any element of " + member.m_strRestriction;
    member.m_nMinOccurs = nMinOccurs;
    member.m_nMaxOccurs = nMaxOccurs;
    // Once and optional: one CElement; else a CElementCol whose limits keep the counts.
    const bool bOptionalOnce =
        member.m_nMaxOccurs == 1 && (member.m_nMinOccurs == 0 || m_model.m_vecClasses[nClass].m_bChoice);
    member.m_eOccurrence = bOptionalOnce ? Occurrence_Optional : Occurrence_Collection;
    m_model.m_vecClasses[nClass].m_vecMembers.push_back(member);
}

void CModelBuilder::AddAttributeWildcard(int nClass, XSComplexTypeDefinition* pType) {
    XSWildcard* pWildcard = pType->getAttributeWildcard();
    if (!pWildcard) return;
    CMemberModel member;
    member.m_bAttribute = true;
    member.m_eKind = MemberKind_Untyped;
    member.m_eOccurrence = Occurrence_Collection;
    member.m_strXmlName = "AnyAttribute";
    member.m_strProperty = TakeMemberName(nClass, "AnyAttribute");
    member.m_strRestriction = Restriction(pWildcard);
    member.m_strDescription = "any attribute of " + member.m_strRestriction;
    // Attributes come before the elements in the property order.
    std::vector<CMemberModel>& vecMembers = m_model.m_vecClasses[nClass].m_vecMembers;
    size_t nAt = 0;
    while (nAt < vecMembers.size() && vecMembers[nAt].m_bAttribute) ++nAt;
    vecMembers.insert(vecMembers.begin() + static_cast<long>(nAt), member);
}

// Whether a particle can match nothing: a group that can be empty needn't consume an element.
static bool CanBeEmpty(XSParticle* pParticle) {
    if (pParticle->getMinOccurs() == 0) return true;
    if (pParticle->getTermType() != XSParticle::TERM_MODELGROUP) return false;
    XSModelGroup* pGroup = pParticle->getModelGroupTerm();
    XSParticleList* pParticles = pGroup->getParticles();
    const bool bChoice = pGroup->getCompositor() == XSModelGroup::COMPOSITOR_CHOICE;
    if (!pParticles || pParticles->size() == 0) return true;
    for (XMLSize_t i = 0; i < pParticles->size(); ++i) {
        const bool bEmpty = CanBeEmpty(pParticles->elementAt(i));
        if (bChoice && bEmpty) return true;
        if (!bChoice && !bEmpty) return false;
    }
    return !bChoice;
}

// Whether a group is the expansion of a group definition: Xerces copies the particles of a
// referenced group, so the two are compared by compositor and by the declarations in them.
static bool SameGroup(XSModelGroup* pDefined, XSModelGroup* pGroup) {
    if (pDefined == pGroup) return true;
    if (!pDefined || pDefined->getCompositor() != pGroup->getCompositor()) return false;
    XSParticleList* pA = pDefined->getParticles();
    XSParticleList* pB = pGroup->getParticles();
    if (!pA || !pB || pA->size() != pB->size() || pA->size() == 0) return false;
    for (XMLSize_t i = 0; i < pA->size(); ++i) {
        XSParticle* a = pA->elementAt(i);
        XSParticle* b = pB->elementAt(i);
        if (a->getTermType() != b->getTermType()) return false;
        switch (a->getTermType()) {
            case XSParticle::TERM_ELEMENT:
                if (a->getElementTerm() != b->getElementTerm()) return false;
                break;
            case XSParticle::TERM_MODELGROUP:
                if (!SameGroup(a->getModelGroupTerm(), b->getModelGroupTerm())) return false;
                break;
            default:
                if (a->getWildcardTerm() != b->getWildcardTerm()) return false;
        }
    }
    return true;
}

XSModelGroupDefinition* CModelBuilder::GroupDefinition(XSModelGroup* pGroup) const {
    XSNamedMap<XSObject>* pGroups = m_pModel->getComponents(XSConstants::MODEL_GROUP_DEFINITION);
    for (XMLSize_t i = 0; pGroups && i < pGroups->getLength(); ++i) {
        XSModelGroupDefinition* pDefinition = static_cast<XSModelGroupDefinition*>(pGroups->item(i));
        if (SameGroup(pDefinition->getModelGroup(), pGroup)) return pDefinition;
    }
    return nullptr;
}

std::string CModelBuilder::GroupName(XSModelGroup* pGroup, int nParent) {
    // A named group (xs:group) keeps its name; a group written in place is named after the
    // class it stands in and its compositor.
    if (XSModelGroupDefinition* pDefinition = GroupDefinition(pGroup)) return Text(pDefinition->getName());
    const char* pszCompositor = pGroup->getCompositor() == XSModelGroup::COMPOSITOR_CHOICE ? "Choice"
                                : pGroup->getCompositor() == XSModelGroup::COMPOSITOR_ALL  ? "All"
                                                                                           : "Sequence";
    return m_model.m_vecClasses[nParent].m_strName.substr(1) + pszCompositor;
}

void CModelBuilder::AddGroup(int nClass, XSParticle* pParticle, const CPlace& place) {
    XSModelGroup* pGroup = pParticle->getModelGroupTerm();
    XSParticleList* pParticles = pGroup->getParticles();
    if (pParticles && pParticles->size() == 1 && pParticles->elementAt(0)->getTermType() == XSParticle::TERM_WILDCARD) {
        // A group of one wildcard is that wildcard with the occurrences multiplied: a class
        // per item would hold one element each, and a wildcard reading a run of elements
        // can't leave the rest of the run to the group's next item.
        XSParticle* pOnly = pParticles->elementAt(0);
        const int nMax = MaxOccurs(pParticle) == -1 || MaxOccurs(pOnly) == -1
                             ? (MaxOccurs(pParticle) == 0 || MaxOccurs(pOnly) == 0 ? 0 : -1)
                             : MaxOccurs(pParticle) * MaxOccurs(pOnly);
        AddWildcard(nClass, pOnly->getWildcardTerm(), MinOccurs(pParticle) * MinOccurs(pOnly), nMax);
        return;
    }
    const std::string strName = GroupName(pGroup, nClass);
    // Every reference to a named group shares the one class made at the first; the entry is
    // made before the group is filled, so that a group reached again through its own
    // elements' types finds it.
    XSModelGroupDefinition* pDefinition = GroupDefinition(pGroup);
    const auto itKnown = pDefinition ? m_mapGroupClass.find(pDefinition) : m_mapGroupClass.end();
    int nGroup = itKnown != m_mapGroupClass.end() ? itKnown->second : -1;
    if (nGroup < 0) {
        nGroup = NewClass(CNameRules::Word(strName), strName, m_model.m_vecClasses[nClass].m_strNamespace,
                          "the model group " + strName, 0);
        m_model.m_vecClasses[nGroup].m_bPseudo = true;
        if (pDefinition) m_mapGroupClass[pDefinition] = nGroup;
        FillGroup(nGroup, pGroup, place);
    }

    AddGroupMember(nClass, nGroup, pParticle, strName, "the group " + strName, !CanBeEmpty(pParticle));
}

void CModelBuilder::FillGroup(int nClass, XSModelGroup* pGroup, const CPlace& place) {
    m_model.m_vecClasses[nClass].m_bChoice = pGroup->getCompositor() == XSModelGroup::COMPOSITOR_CHOICE;
    m_model.m_vecClasses[nClass].m_bAll = pGroup->getCompositor() == XSModelGroup::COMPOSITOR_ALL;
    XSParticleList* pParticles = pGroup->getParticles();
    for (XMLSize_t i = 0; pParticles && i < pParticles->size(); ++i) {
        XSParticle* pChild = pParticles->elementAt(i);
        switch (pChild->getTermType()) {
            case XSParticle::TERM_ELEMENT:
                AddElement(nClass, pChild, place);
                break;
            case XSParticle::TERM_WILDCARD:
                AddWildcard(nClass, pChild->getWildcardTerm(), MinOccurs(pChild), MaxOccurs(pChild));
                break;
            case XSParticle::TERM_MODELGROUP:
                AddGroup(nClass, pChild, place);
                break;
            default:
                break;
        }
    }
}

void CModelBuilder::AddParticles(int nClass, XSParticle* pParticle, const CPlace& place) {
    if (!pParticle) return;
    if (pParticle->getTermType() != XSParticle::TERM_MODELGROUP)
        throw At(place, "", "", "content model of " + place.m_strName + " is not supported yet");
    // A group that stands once is the class's own content; an optional or repeated one is a
    // group member of a sequence.
    if (pParticle->getMinOccurs() == 1 && pParticle->getMaxOccurs() == 1 && !pParticle->getMaxOccursUnbounded())
        FillGroup(nClass, pParticle->getModelGroupTerm(), place);
    else
        AddGroup(nClass, pParticle, place);
}

void CModelBuilder::AddSimpleContent(int nClass, XSSimpleTypeDefinition* pType, const CPlace& place) {
    CClassModel& cls = m_model.m_vecClasses[nClass];
    CMemberModel member;
    member.m_bSimpleContent = true;
    member.m_strXmlName = cls.m_strXmlName;
    member.m_strProperty = TakeMemberName(nClass, "Value");
    CValueType value = ValueOf(pType, cls.m_strXmlName, place, "", "");
    if (value.m_eKind == MemberKind_Enum) {
        // The value of a class is a primitive: an enumeration there is its string.
        Warn(place, "", "",
             "the enumeration of the text of " + cls.m_strXmlName +
                 " is bound as xs:string: the values are not checked");
        value.m_eKind = MemberKind_Primitive;
        value.m_strDescription = "xs:string";
    }
    if (!value.m_facets.IsEmpty())
        Warn(place, "", "",
             "the facets of the text of " + cls.m_strXmlName + " are not checked: a class's value has no facets");
    member.m_eKind = value.m_eKind;
    member.m_strItemType = value.m_strItemType;
    member.m_strBuiltIn = value.m_strBuiltIn;
    member.m_strWhitespace = value.m_strWhitespace;
    member.m_strDescription = value.m_strDescription;
    m_model.m_vecClasses[nClass].m_vecMembers.push_back(member);
}

bool CModelBuilder::IsInFamily(XSTypeDefinition* pType) const {
    if (pType->getTypeCategory() != XSTypeDefinition::COMPLEX_TYPE || IsBuiltIn(pType)) return false;
    XSTypeDefinition* pBase = pType->getBaseType();
    if (pBase && !IsBuiltIn(pBase) && pBase->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE) return true;
    return m_setHasNamedDerived.count(TypeKey(pType)) > 0;
}

int CModelBuilder::FamilyRoot(int nClass) const {
    while (m_model.m_vecClasses[nClass].m_nBase >= 0) nClass = m_model.m_vecClasses[nClass].m_nBase;
    return nClass;
}

bool CModelBuilder::IsByDocument(XSTypeDefinition* pType) const {
    if (pType->getTypeCategory() != XSTypeDefinition::COMPLEX_TYPE || IsBuiltIn(pType)) return false;
    return static_cast<XSComplexTypeDefinition*>(pType)->getAbstract() || m_setHasNamedDerived.count(TypeKey(pType));
}

bool CModelBuilder::HasElements(int nClass) const {
    for (int n = nClass; n >= 0; n = m_model.m_vecClasses[n].m_nBase) {
        for (const CMemberModel& member : m_model.m_vecClasses[n].m_vecMembers) {
            if (!member.m_bAttribute && !member.m_bSimpleContent) return true;
        }
    }
    return false;
}

// The part of an extension's content that the extension itself adds: Xerces gives the whole
// content, a sequence of the base's particle and the added one (or either alone).
static XSParticle* AddedParticle(XSComplexTypeDefinition* pType, XSComplexTypeDefinition* pBase) {
    XSParticle* pParticle = pType->getParticle();
    XSParticle* pBaseParticle = pBase->getParticle();
    if (!pParticle || pParticle == pBaseParticle) return nullptr;
    if (!pBaseParticle) return pParticle;
    if (pParticle->getTermType() == XSParticle::TERM_MODELGROUP &&
        pBaseParticle->getTermType() == XSParticle::TERM_MODELGROUP) {
        XSModelGroup* pGroup = pParticle->getModelGroupTerm();
        if (SameGroup(pBaseParticle->getModelGroupTerm(), pGroup) &&
            pParticle->getMinOccurs() == pBaseParticle->getMinOccurs())
            return nullptr;
        XSParticleList* pParticles = pGroup->getParticles();
        if (pGroup->getCompositor() == XSModelGroup::COMPOSITOR_SEQUENCE && pParticles && pParticles->size() == 2) {
            XSParticle* pFirst = pParticles->elementAt(0);
            if (pFirst == pBaseParticle || (pFirst->getTermType() == XSParticle::TERM_MODELGROUP &&
                                            SameGroup(pBaseParticle->getModelGroupTerm(), pFirst->getModelGroupTerm())))
                return pParticles->elementAt(1);
        }
    }
    return pParticle;
}

void CModelBuilder::FillDerived(int nClass, XSComplexTypeDefinition* pType, XSComplexTypeDefinition* pBase,
                                const CPlace& place) {
    const std::string strBase = Text(pBase->getName()), strBaseNamespace = Text(pBase->getNamespace());
    const auto itBase = m_mapNamedTypeClass.find(strBaseNamespace + " " + strBase);
    if (itBase == m_mapNamedTypeClass.end()) throw At(place, "", "", "the base type " + strBase + " has no class");
    const int nBase = itBase->second;
    FillClass(nBase, pBase, CPlace{"complexType", strBaseNamespace, strBase});
    const bool bExtension = pType->getDerivationMethod() == XSConstants::DERIVATION_EXTENSION;
    {
        CClassModel& cls = m_model.m_vecClasses[nClass];
        const CClassModel& base = m_model.m_vecClasses[nBase];
        cls.m_nBase = nBase;
        cls.m_bChoice = base.m_bChoice;
        cls.m_bAll = base.m_bAll;
        cls.m_bOwnsGroup = false;
        cls.m_bRestriction = !bExtension;
    }
    m_model.m_vecClasses[nBase].m_bHasDerived = true;
    // The inherited accessors keep their names: the class's own members name themselves around them.
    m_vecMemberNames[nClass] = m_vecMemberNames[nBase];
    if (!bExtension) {
        // The restricted content is a part of the base's: the base's members read it whole.
        Warn(place, "restriction", "",
             "the restriction " + place.m_strName + " of " + strBase + " is bound with the members of " + strBase +
                 ": what it narrows is not checked");
        return;
    }
    std::set<std::string> setInherited;
    XSAttributeUseList* pUses = pBase->getAttributeUses();
    for (XMLSize_t i = 0; pUses && i < pUses->size(); ++i)
        setInherited.insert(Text(pUses->elementAt(i)->getAttrDeclaration()->getNamespace()) + " " +
                            Text(pUses->elementAt(i)->getAttrDeclaration()->getName()));
    AddAttributes(nClass, pType, place, setInherited);
    if (!pBase->getAttributeWildcard()) AddAttributeWildcard(nClass, pType);
    if (pType->getContentType() == XSComplexTypeDefinition::CONTENTTYPE_SIMPLE) return;
    if (pType->getContentType() == XSComplexTypeDefinition::CONTENTTYPE_MIXED &&
        pBase->getContentType() != XSComplexTypeDefinition::CONTENTTYPE_MIXED)
        Warn(place, "", "",
             "mixed content of " + place.m_strName +
                 " is bound as element content: text between the child elements is dropped");
    XSParticle* pAdded = AddedParticle(pType, pBase);
    if (!pAdded) return;
    if (!HasElements(nBase)) {
        // The base has no elements: the class's content is the added one alone.
        CClassModel& cls = m_model.m_vecClasses[nClass];
        cls.m_bChoice = cls.m_bAll = false;
        cls.m_bOwnsGroup = true;
        AddParticles(nClass, pAdded, place);
        return;
    }
    const CClassModel& base = m_model.m_vecClasses[nBase];
    if (base.m_bChoice || base.m_bAll)
        throw At(place, "extension", "",
                 "extension of the " + std::string(base.m_bChoice ? "choice" : "all group") + " of " + strBase +
                     " by elements is not supported yet");
    // After a sequence: a sequence's elements follow the base's, any other group is a member.
    if (pAdded->getTermType() == XSParticle::TERM_MODELGROUP &&
        pAdded->getModelGroupTerm()->getCompositor() == XSModelGroup::COMPOSITOR_SEQUENCE &&
        pAdded->getMinOccurs() == 1 && pAdded->getMaxOccurs() == 1 && !pAdded->getMaxOccursUnbounded())
        FillGroup(nClass, pAdded->getModelGroupTerm(), place);
    else if (pAdded->getTermType() == XSParticle::TERM_MODELGROUP)
        AddGroup(nClass, pAdded, place);
    else
        throw At(place, "", "", "content model of " + place.m_strName + " is not supported yet");
}

void CModelBuilder::FillClass(int nClass, XSComplexTypeDefinition* pType, const CPlace& place) {
    if (!m_setFilled.insert(nClass).second) return;
    XSTypeDefinition* pBase = pType->getBaseType();
    if (pBase && !IsBuiltIn(pBase) && pBase->getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE) {
        FillDerived(nClass, pType, static_cast<XSComplexTypeDefinition*>(pBase), place);
        return;
    }
    switch (pType->getContentType()) {
        case XSComplexTypeDefinition::CONTENTTYPE_SIMPLE:
            AddAttributes(nClass, pType, place);
            AddAttributeWildcard(nClass, pType);
            AddSimpleContent(nClass, pType->getSimpleType(), place);
            return;
        case XSComplexTypeDefinition::CONTENTTYPE_MIXED:
            Warn(place, "", "",
                 "mixed content of " + place.m_strName +
                     " is bound as element content: text between the child elements is dropped");
            break;
        default:
            break;
    }
    AddAttributes(nClass, pType, place);
    AddAttributeWildcard(nClass, pType);
    AddParticles(nClass, pType->getParticle(), place);
}

CSchemaSetModel CModelBuilder::Build(const std::string& strNamespace) {
    m_model.m_strNamespace = strNamespace;
    m_names.Take("Schema");
    // Names of the collection base's own nested classes, which would hide a class of that name
    // inside its collection.
    m_names.Take("Node");
    m_names.Take("ChangeScope");
    const std::string strFactory = m_names.Take(CNameRules::Word(strNamespace) + "Factory");
    m_model.m_strFactory = "C" + strFactory;
    m_model.m_strFactoryFile = CNameRules::Lower(strFactory);
    // Named enumerations take their names after the top-level classes, in document order,
    // and before any anonymous one, so that an anonymous one can't take a named one's name.
    std::vector<std::pair<long long, XSSimpleTypeDefinition*>> vecSimple;
    XSNamedMap<XSObject>* pTypes = m_pModel->getComponents(XSConstants::TYPE_DEFINITION);
    for (XMLSize_t i = 0; pTypes && i < pTypes->getLength(); ++i) {
        XSTypeDefinition* pType = static_cast<XSTypeDefinition*>(pTypes->item(i));
        if (IsBuiltIn(pType) || pType->getTypeCategory() != XSTypeDefinition::SIMPLE_TYPE) continue;
        XSSimpleTypeDefinition* pSimple = static_cast<XSSimpleTypeDefinition*>(pType);
        if (!pSimple->isDefinedFacet(XSSimpleTypeDefinition::FACET_ENUMERATION)) continue;
        vecSimple.push_back(
            {m_index.OrderOf("simpleType", Text(pType->getNamespace()), Text(pType->getName())), pSimple});
    }
    std::stable_sort(vecSimple.begin(), vecSimple.end(), [](const auto& a, const auto& b) {
        if (a.first != b.first) return a.first < b.first;
        return Text(a.second->getName()) < Text(b.second->getName());
    });
    CountTypeUses();
    CreateTopLevelClasses();
    for (const auto& simple : vecSimple) {
        // Only those of string kind become enums; their order is the schema's.
        XSSimpleTypeDefinition* pBuiltIn = simple.second;
        while (!IsBuiltIn(pBuiltIn)) pBuiltIn = static_cast<XSSimpleTypeDefinition*>(pBuiltIn->getBaseType());
        if (simple.second->getVariety() == XSSimpleTypeDefinition::VARIETY_ATOMIC &&
            ItemTypeOf(Text(pBuiltIn->getName())) == "string")
            EnumFor(simple.second, "");
    }
    for (size_t i = 0; i < m_vecPending.size(); ++i)
        FillClass(m_vecPending[i].first, m_vecPending[i].second.first, m_vecPending[i].second.second);
    for (const auto& pending : m_vecSimplePending)
        AddSimpleContent(pending.first, pending.second.first, pending.second.second);
    // A nillable element's class, and the classes derived from it, are INillable: the interface
    // goes to the root of the derivation family.
    for (int nClass : m_vecNillable) m_model.m_vecClasses[FamilyRoot(nClass)].m_bNillable = true;
    // The class can't tell its elements apart, so every element of it takes xsi:nil.
    for (const CPlainUse& use : m_vecPlainUses) {
        if (!m_model.m_vecClasses[FamilyRoot(use.m_nClass)].m_bNillable) continue;
        Warn(use.m_place, "element", use.m_strElement,
             "element " + use.m_strElement + " is not nillable, but its class " +
                 m_model.m_vecClasses[use.m_nClass].m_strName +
                 " is an INillable because a nillable element shares it: xsi:nil is accepted on " + use.m_strElement +
                 " too");
    }
    WarnIdentityConstraints();
    return m_model;
}

}  // namespace OrvexXsd
