#include "codeemitter.h"

#include <algorithm>
#include <cstdio>
#include <set>
#include <vector>

#include "documentation.h"

namespace OrvexXsd {

namespace {

// How a value kind lives in a class: its C++ type, whether accessors pass it by reference,
// the OxVariant accessor suffix and the value ResetToDefaults gives it.
struct CValueKind {
    const char* m_pszItemType;
    const char* m_pszType;  // in the header; the source drops "OrvexXml::"
    bool m_bByReference;
    bool m_bFixedWidth;  // needs <cstdint>
    const char* m_pszVariant;
    const char* m_pszReset;  // null: clear()
};

const CValueKind kValueKinds[] = {
    {"string", "std::string", true, false, "String", nullptr},
    {"boolean", "bool", false, false, "Boolean", "false"},
    {"decimal", "OrvexXml::CDecimal", true, false, "Decimal", "CDecimal()"},
    {"integer", "OrvexXml::CBigInteger", true, false, "Integer", "CBigInteger()"},
    {"i1", "char", false, false, "I1", "0"},
    {"i2", "int16_t", false, true, "I2", "0"},
    {"i4", "int", false, false, "I4", "0"},
    {"i8", "int64_t", false, true, "I8", "0"},
    {"ui1", "uint8_t", false, true, "UI1", "0"},
    {"ui2", "uint16_t", false, true, "UI2", "0"},
    {"ui4", "uint32_t", false, true, "UI4", "0"},
    {"ui8", "uint64_t", false, true, "UI8", "0"},
    {"r4", "float", false, false, "R4", "0.0f"},
    {"r8", "double", false, false, "R8", "0.0"},
    {"duration", "OrvexXml::CDateTimeSpan", true, false, "Duration", "CDateTimeSpan()"},
    {"yearMonth", "OrvexXml::CDateTime", true, false, "YearMonth", "CDateTime()"},
    {"monthDay", "OrvexXml::CDateTime", true, false, "MonthDay", "CDateTime()"},
    {"year", "uint16_t", false, true, "Year", "0"},
    {"month", "uint8_t", false, true, "Month", "0"},
    {"day", "uint8_t", false, true, "Day", "0"},
    {"date", "OrvexXml::CDateTime", true, false, "Date", "CDateTime()"},
    {"datetime", "OrvexXml::CDateTime", true, false, "DateTime", "CDateTime()"},
    {"time", "OrvexXml::CDateTime", true, false, "Time", "CDateTime()"},
    {"char", "char", false, false, "Char", "0"},
    {"hexBinary", "OrvexXml::CBinaryData", true, false, "HexBinary", "CBinaryData()"},
    {"base64Binary", "OrvexXml::CBinaryData", true, false, "Base64Binary", "CBinaryData()"},
};

const CValueKind& KindOf(const std::string& strItemType) {
    for (const CValueKind& kind : kValueKinds) {
        if (strItemType == kind.m_pszItemType) return kind;
    }
    return kValueKinds[0];
}

std::string SourceType(const std::string& strHeaderType) {
    const std::string strPrefix = "OrvexXml::";
    return strHeaderType.compare(0, strPrefix.size(), strPrefix) == 0 ? strHeaderType.substr(strPrefix.size())
                                                                      : strHeaderType;
}

// A C++ string literal of UTF-8 text.
std::string Quote(const std::string& strText) {
    std::string strResult = "\"";
    for (unsigned char c : strText) {
        if (c == '"' || c == '\\') {
            strResult += '\\';
            strResult += static_cast<char>(c);
        } else if (c == '\n') {
            strResult += "\\n";
        } else if (c == '\r') {
            strResult += "\\r";
        } else if (c == '\t') {
            strResult += "\\t";
        } else if (c < 0x20 || c == '?') {
            // '?' escaped keeps trigraph-like sequences out of the literal.
            char szEscape[8];
            std::snprintf(szEscape, sizeof szEscape, "\\%03o", c);
            strResult += szEscape;
        } else {
            strResult += static_cast<char>(c);
        }
    }
    return strResult + "\"";
}

std::string QuoteOrNull(const std::string& strText) { return strText.empty() ? "nullptr" : Quote(strText); }

std::string Restrictions(const CFacetSet& facets) {
    if (facets.IsEmpty()) return "CPrimitiveRestrictions()";
    return "CPrimitiveRestrictions(" + QuoteOrNull(facets.m_strPattern) + ", " + std::to_string(facets.m_nMinLength) +
           ", " + std::to_string(facets.m_nMaxLength) + ", " + QuoteOrNull(facets.m_strMinInclusive) + ", " +
           QuoteOrNull(facets.m_strMaxInclusive) + ", " + QuoteOrNull(facets.m_strMinExclusive) + ", " +
           QuoteOrNull(facets.m_strMaxExclusive) + ", " + std::to_string(facets.m_nLength) + ", " +
           std::to_string(facets.m_nTotalDigits) + ", " + std::to_string(facets.m_nFractionDigits) + ")";
}

// The facets of a set in words: "a pattern", "a pattern and bounds" ...
std::string FacetWords(const CFacetSet& facets) {
    std::vector<std::string> vecWords;
    if (!facets.m_strPattern.empty()) vecWords.push_back("a pattern");
    if (facets.m_nLength >= 0 || facets.m_nMinLength >= 0 || facets.m_nMaxLength >= 0) vecWords.push_back("lengths");
    if (!facets.m_strMinInclusive.empty() || !facets.m_strMaxInclusive.empty() || !facets.m_strMinExclusive.empty() ||
        !facets.m_strMaxExclusive.empty())
        vecWords.push_back("bounds");
    if (facets.m_nTotalDigits >= 0 || facets.m_nFractionDigits >= 0) vecWords.push_back("digit counts");
    std::string strWords;
    for (size_t i = 0; i < vecWords.size(); ++i)
        strWords += (i == 0 ? "" : i + 1 == vecWords.size() ? " and " : ", ") + vecWords[i];
    return strWords;
}

std::string Rule(const std::string& strWhitespace) { return "CWhitespaceUtils::WhitespaceRule_" + strWhitespace; }

// The namespace a collection of open content gives the items made by its Add(name): one that
// its own restriction lets pass, as the runtime derives it for a single untyped element.
std::string DefaultNamespaceFor(const std::string& strRestriction, const std::string& strTarget) {
    const std::string strFirst = strRestriction.substr(0, strRestriction.find(' '));
    if (strFirst == "##other") return strTarget.empty() ? "DefaultNamespace" : "";
    if (strFirst == "##targetNamespace") return strTarget;
    if (strFirst == "##any" || strFirst == "##local") return "";
    return strFirst;
}

std::string Replace(std::string strText, const std::string& strFrom, const std::string& strTo) {
    const size_t nAt = strText.find(strFrom);
    return nAt == std::string::npos ? strText : strText.replace(nAt, strFrom.size(), strTo);
}

// The class keeps a choice's selection itself, unless it inherits the choice with the members
// of its base.
bool OwnChoice(const CClassModel& cls) { return cls.m_bChoice && cls.m_bOwnsGroup; }

// A choice with a repeating member follows the collection's count to keep its selection.
bool HasCollectionInChoice(const CClassModel& cls) {
    if (!OwnChoice(cls)) return false;
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (member.m_eOccurrence == Occurrence_Collection) return true;
    }
    return false;
}

bool IsValueMember(const CMemberModel& member) {
    return (member.m_eKind == MemberKind_Primitive || member.m_eKind == MemberKind_Enum) &&
           member.m_eOccurrence != Occurrence_Collection;
}

std::string Occurs(const CMemberModel& member) {
    if (member.m_bAttribute) return member.m_eOccurrence == Occurrence_Mandatory ? "required" : "optional";
    if (member.m_eOccurrence == Occurrence_Mandatory) return "mandatory";
    if (member.m_eOccurrence == Occurrence_Optional) return "optional";
    return std::to_string(member.m_nMinOccurs) + " to " +
           (member.m_nMaxOccurs < 0 ? std::string("unbounded") : std::to_string(member.m_nMaxOccurs));
}

std::string EnumIdentifier(const CSchemaSetModel& model, const std::string& strEnum, const std::string& strValue) {
    for (const CEnumModel& e : model.m_vecEnums) {
        if (e.m_strName != strEnum) continue;
        for (size_t i = 0; i < e.m_vecValues.size(); ++i) {
            if (e.m_vecValues[i] == strValue) return e.m_vecIdentifiers[i];
        }
        return e.m_vecIdentifiers.front();
    }
    return std::string();
}

}  // namespace

CCodeEmitter::CCodeEmitter(const CSchemaSetModel& model) : m_model(model) {
    FindComponents();
    // Classes made from the element: an abstract one, one with derived classes that xsi:type
    // can name, and any that a member declares so.
    const std::vector<CClassModel>& vecClasses = m_model.m_vecClasses;
    m_vecByDocument.assign(vecClasses.size(), false);
    for (size_t i = 0; i < vecClasses.size(); ++i) {
        if (vecClasses[i].m_bAbstract) m_vecByDocument[i] = true;
        for (const CMemberModel& member : vecClasses[i].m_vecMembers) {
            if (member.m_bByDocument) m_vecByDocument[member.m_nClass] = true;
        }
        if (!vecClasses[i].m_bNamedType) continue;
        for (int n = vecClasses[i].m_nBase; n >= 0; n = vecClasses[n].m_nBase) m_vecByDocument[n] = true;
    }
}

// Tells an object of a derivation family the type that its element declares, so that it writes
// xsi:type when it is of another.
std::string CCodeEmitter::DeclareType(int nClass, const std::string& strObject) const {
    const CClassModel& child = m_model.m_vecClasses[nClass];
    if (!IsFamily(child)) return std::string();
    return strObject + "->SetDeclaredType(" + Quote(child.m_strXmlName) + ", " + Quote(child.m_strNamespace) + ");\n";
}

void CCodeEmitter::FindComponents() {
    // Tarjan's strongly connected components of the graph of class members.
    const size_t nClasses = m_model.m_vecClasses.size();
    m_vecComponent.assign(nClasses, -1);
    std::vector<int> vecStack, vecIndex(nClasses, -1), vecLow(nClasses, 0);
    std::vector<bool> vecOnStack(nClasses, false);
    int nCounter = 0;
    for (size_t i = 0; i < nClasses; ++i) {
        if (vecIndex[i] < 0) Visit(static_cast<int>(i), vecStack, vecIndex, vecLow, vecOnStack, nCounter);
    }
}

void CCodeEmitter::Visit(int nClass, std::vector<int>& vecStack, std::vector<int>& vecIndex, std::vector<int>& vecLow,
                         std::vector<bool>& vecOnStack, int& nCounter) {
    vecIndex[nClass] = vecLow[nClass] = nCounter++;
    vecStack.push_back(nClass);
    vecOnStack[nClass] = true;
    // A derived class's header includes its base's: the base is an edge like a member.
    std::vector<int> vecEdges;
    if (m_model.m_vecClasses[nClass].m_nBase >= 0) vecEdges.push_back(m_model.m_vecClasses[nClass].m_nBase);
    for (const CMemberModel& member : m_model.m_vecClasses[nClass].m_vecMembers) {
        if (member.m_eKind == MemberKind_Class) vecEdges.push_back(member.m_nClass);
    }
    for (const int nChild : vecEdges) {
        if (vecIndex[nChild] < 0) {
            Visit(nChild, vecStack, vecIndex, vecLow, vecOnStack, nCounter);
            vecLow[nClass] = std::min(vecLow[nClass], vecLow[nChild]);
        } else if (vecOnStack[nChild]) {
            vecLow[nClass] = std::min(vecLow[nClass], vecIndex[nChild]);
        }
    }
    if (vecLow[nClass] != vecIndex[nClass]) return;
    while (true) {
        const int nMember = vecStack.back();
        vecStack.pop_back();
        vecOnStack[nMember] = false;
        m_vecComponent[nMember] = nClass;
        if (nMember == nClass) break;
    }
}

std::string CCodeEmitter::ObjectType(const CMemberModel& member) const {
    return member.m_eKind == MemberKind_Untyped ? std::string("OrvexXml::CElement")
                                                : m_model.m_vecClasses[member.m_nClass].m_strName;
}

std::string CCodeEmitter::CollectionType(const CMemberModel& member) const {
    switch (member.m_eKind) {
        case MemberKind_Class:
            return m_model.m_vecClasses[member.m_nClass].m_strName + "Col";
        case MemberKind_Untyped:
            return member.m_bAttribute ? "OrvexXml::CAttributeCol" : "OrvexXml::CElementCol";
        case MemberKind_Enum:
            return "C" + member.m_strEnum + "Col";
        default:
            return "OrvexXml::C" + member.m_strItemType + "Col";
    }
}

std::string CCodeEmitter::NamespaceText(const CClassModel& cls, const CMemberModel& member) const {
    if (member.m_strXmlNamespace.empty()) return "\"\"";
    if (member.m_strXmlNamespace == cls.m_strNamespace) return "NS";
    return Quote(member.m_strXmlNamespace);
}

std::string CCodeEmitter::Accessors(const CClassModel& cls, const CMemberModel& member) const {
    // The schema's own words follow the line that names the member.
    std::string strText = AccessorsOf(cls, member);
    if (!member.m_strDocumentation.empty())
        strText.insert(strText.find('\n') + 1, CDocumentation::AsComment(member.m_strDocumentation, "    "));
    return strText;
}

std::string CCodeEmitter::AccessorsOf(const CClassModel& cls, const CMemberModel& member) const {
    const std::string& p = member.m_strProperty;
    std::string strText = "    // " + std::string(member.m_bAttribute ? "@" : "") + member.m_strXmlName + ": " +
                          member.m_strDescription + ", " + Occurs(member);
    if (member.m_bSimpleContent) strText = "    // the text of " + member.m_strXmlName + ": " + member.m_strDescription;
    if (member.m_eKind == MemberKind_Untyped && member.m_eOccurrence != Occurrence_Collection) {
        strText += "\n    OrvexXml::CSmartPtr<OrvexXml::CElement> Get" + p + "() const { return m_" + p + "; }\n";
        strText += "    void Set" + p + "(OrvexXml::CElement* value);\n";
        return strText;
    }
    if (member.m_eKind == MemberKind_Class && member.m_eOccurrence != Occurrence_Collection) {
        const CClassModel& child = m_model.m_vecClasses[member.m_nClass];
        strText += member.m_eOccurrence == Occurrence_Mandatory && !member.m_bByDocument
                       ? "; present after construction."
                       : ".";
        strText += " The object takes the element name " + member.m_strXmlName;
        strText += member.m_bByDocument ? "; reading makes the class that xsi:type names, writing names it.\n" : ".\n";
        // Copying the pointer needs the complete class, which a class of the same reference
        // cycle only declares here: its getter is defined in the source.
        if (HasOutOfLineGetter(cls, member))
            strText += "    OrvexXml::CSmartPtr<" + child.m_strName + "> Get" + p + "() const;\n";
        else
            strText +=
                "    OrvexXml::CSmartPtr<" + child.m_strName + "> Get" + p + "() const { return m_" + p + "; }\n";
        strText += "    void Set" + p + "(" + child.m_strName + "* value);\n";
        return strText;
    }
    if (member.m_eOccurrence == Occurrence_Collection) {
        const std::string strCol = CollectionType(member);
        strText += "\n";
        strText += "    " + strCol + "& Get" + p + "() { return *m_" + p + "; }\n";
        strText += "    const " + strCol + "& Get" + p + "() const { return *m_" + p + "; }\n";
        return strText;
    }
    if (!member.m_facets.IsEmpty()) strText += "; checked on writing";
    strText += "\n";
    std::string strType, strParameter;
    if (member.m_eKind == MemberKind_Enum) {
        strType = strParameter = member.m_strEnum;
    } else {
        const CValueKind& kind = KindOf(member.m_strItemType);
        strType = kind.m_pszType;
        strParameter = kind.m_bByReference ? "const " + strType + "&" : strType;
        if (kind.m_bByReference) strType = "const " + strType + "&";
    }
    strText += "    " + strType + " Get" + p + "() const { return m_" + p + "; }\n";
    if (member.m_eOccurrence == Occurrence_Mandatory) {
        strText += "    void Set" + p + "(" + strParameter + " value) { m_" + p + " = value; }\n";
    } else {
        strText += "    void Set" + p + "(" + strParameter + " value);\n";
        strText += "    bool IsValid" + p + "() const { return m_bValid" + p + "; }\n";
        // Attributes stand beside a choice: only its elements select.
        if (OwnChoice(cls) && !member.m_bAttribute)
            strText += "    void SetValid" + p + "(bool bValid);\n";
        else
            strText += "    void SetValid" + p + "(bool bValid) { m_bValid" + p + " = bValid; }\n";
    }
    return strText;
}

std::string CCodeEmitter::PropertyEnum(const CClassModel& cls) const {
    std::string s = "enum { ";
    const std::string strFirst = cls.m_nBase >= 0 ? BaseName(cls) + "::Prop_FirstDerived" : "0";
    for (size_t i = 0; i < cls.m_vecMembers.size(); ++i)
        s += (i ? ", Prop_" : "Prop_") + cls.m_vecMembers[i].m_strProperty + (i ? "" : " = " + strFirst);
    if (cls.m_bHasDerived) s += cls.m_vecMembers.empty() ? "Prop_FirstDerived = " + strFirst : ", Prop_FirstDerived";
    return s + " };";
}

std::string CCodeEmitter::ClassHeader(const CClassModel& cls) const {
    const std::string& c = cls.m_strName;
    bool bFixedWidth = false, bString = false;
    std::set<std::string> setIncludes, setDeclarations;
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (member.m_eKind == MemberKind_Class) {
            const CClassModel& child = m_model.m_vecClasses[member.m_nClass];
            if (!IsDeclaredOnly(IndexOf(cls), member.m_nClass)) {
                setIncludes.insert(child.m_strFile);
            } else {
                if (&child != &cls) setDeclarations.insert(child.m_strName);
                if (member.m_eOccurrence == Occurrence_Collection) setDeclarations.insert(child.m_strName + "Col");
            }
        } else if (member.m_eKind == MemberKind_Enum) {
            for (const CEnumModel& e : m_model.m_vecEnums) {
                if (e.m_strName == member.m_strEnum) setIncludes.insert(e.m_strFile);
            }
        } else if (member.m_eOccurrence != Occurrence_Collection) {
            bFixedWidth = bFixedWidth || KindOf(member.m_strItemType).m_bFixedWidth;
            bString = bString || member.m_strItemType == "string";
        }
    }
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles + ": the class of " + cls.m_strOrigin +
                    ".\n#pragma once\n\n#include <orvexxml/orvexxml.h>\n\n";
    if (bFixedWidth) s += "#include <cstdint>\n";
    if (bString) s += "#include <string>\n";
    if (!bString && OwnChoice(cls)) s += "#include <string>\n";
    if (bFixedWidth || bString || OwnChoice(cls)) s += "\n";
    for (const std::string& strFile : setIncludes) s += "#include \"" + strFile + ".h\"\n";
    if (cls.m_nBase >= 0) setIncludes.insert(m_model.m_vecClasses[cls.m_nBase].m_strFile);
    for (const std::string& strFile : setIncludes) s += "#include \"" + strFile + ".h\"\n";
    if (!setIncludes.empty()) s += "\n";
    s += "namespace " + m_model.m_strNamespace + " {\n\n";
    // Classes that refer to this one in turn: their headers come with this class's source.
    for (const std::string& strName : setDeclarations) {
        if (cls.m_nBase < 0 || strName != BaseName(cls)) s += "class " + strName + ";\n";
    }
    if (!setDeclarations.empty()) s += "\n";
    const bool bRoot = IsFamily(cls) && cls.m_nBase < 0;
    s += CDocumentation::AsComment(cls.m_strDocumentation, "");
    s += "class " + c + " : public " +
         (cls.m_nBase >= 0 ? BaseName(cls) : std::string("OrvexXml::CXmlGeneratedClass")) +
         (cls.m_bNillable ? ", public OrvexXml::INillable" : "") + " {\npublic:\n";
    if (cls.m_bAbstract) {
        s += "    virtual ~" + c + "();\n\n";
    } else {
        s += "    " + c + "();\n    virtual ~" + c + "();\n\n";
        s += "    static OrvexXml::CSmartPtr<" + c + "> CreateInstance() { return new " + c + "(); }\n\n";
    }
    if (cls.m_bHasDerived)
        s += "    // The derived classes number their properties on from Prop_FirstDerived.\n    " + PropertyEnum(cls) +
             "\n\n";
    if (bRoot)
        s += "    // The type that the element holding the object declares (its class's type name and\n"
             "    // namespace, literals); the object writes xsi:type when it is of another type.\n"
             "    void SetDeclaredType(const char* pszType, const char* pszNamespace) {\n"
             "        m_pszDeclaredType = pszType;\n        m_pszDeclaredNamespace = pszNamespace;\n    }\n\n";
    if (cls.m_bNillable)
        s += "    // INillable\n    bool IsNil() const override { return m_bNil; }\n"
             "    void SetNil(bool bNil) override { m_bNil = bNil; }\n\n";
    if (OwnChoice(cls))
        s += "    // The element name of the member that is set, empty if none is.\n"
             "    const std::string& GetChoiceSelectedElement() const { return m_strSelectedElement; }\n\n";
    for (const CMemberModel& member : cls.m_vecMembers) s += Accessors(cls, member);
    if (!cls.m_vecMembers.empty()) s += "\n";
    s += "    // CXmlGeneratedClass\n"
         "    OrvexXml::CXmlObjectBase* GetBase() override { return this; }\n"
         "    std::string GetNamespace() const override { return " +
         Quote(cls.m_strNamespace) +
         "; }\n"
         "    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;\n"
         "    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;\n"
         "    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;\n"
         "    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;\n"
         "    void ResetToDefaults() override;\n\n"
         "protected:\n" +
         std::string(cls.m_bAbstract ? "    " + c + "();\n" : "") +
         "    std::string GetTargetNamespace() const override { return " + Quote(cls.m_strNamespace) + "; }\n";
    if (bRoot)
        s += "    // Writes xsi:type where the object's type is not the one its element declares.\n"
             "    void AttributesToXml_Int(OrvexXml::CXmlWriter* pWriter, const OrvexXml::CSerializationContext& ctx) "
             "const override;\n"
             "    // Refuses an element whose xsi:type names another type than the object's: a document element\n"
             "    // is made of its declared type.\n"
             "    OrvexXml::CXmlElement* FromXml_Int(OrvexXml::CXmlElement* pElement, OrvexXml::CXmlElement* "
             "pFirstChild,\n                                       const OrvexXml::CSerializationContext& ctx, bool "
             "bOptionalChoice) override;\n";
    if (cls.m_bHasDerived)
        s += "    // The attributes and elements of the class, for its own tables and those of the derived classes.\n"
             "    static void AddBaseElements(OrvexXmlData::CMetaDataBuilder& builder);\n";
    if (HasCollectionInChoice(cls))
        s += "    // Keeps the selection in step with the counts of the collections.\n"
             "    void OnEvent(OrvexXml::CXmlObjectBase* pSource, OrvexXml::IEventSink::MsgType type, void* pData) "
             "override;\n";
    s += "\nprivate:\n";
    s += "    " + c + "(const " + c + "&) = delete;\n    " + c + "& operator=(const " + c + "&) = delete;\n";
    s += "    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);\n\n";
    if (bRoot) s += "    const char* m_pszDeclaredType = nullptr;\n    const char* m_pszDeclaredNamespace = nullptr;\n";
    if (cls.m_bNillable) s += "    bool m_bNil;\n";
    if (OwnChoice(cls)) s += "    std::string m_strSelectedElement;\n";
    for (const CMemberModel& member : cls.m_vecMembers) {
        const std::string& p = member.m_strProperty;
        if (member.m_eOccurrence == Occurrence_Collection) {
            s += "    OrvexXml::CSmartPtr<" + CollectionType(member) + "> m_" + p + ";\n";
        } else if (member.m_eKind == MemberKind_Class || member.m_eKind == MemberKind_Untyped) {
            s += "    OrvexXml::CSmartPtr<" + ObjectType(member) + "> m_" + p + ";\n";
        } else {
            s += "    " +
                 (member.m_eKind == MemberKind_Enum ? member.m_strEnum
                                                    : std::string(KindOf(member.m_strItemType).m_pszType)) +
                 " m_" + p + ";\n";
            if (member.m_eOccurrence == Occurrence_Optional) s += "    bool m_bValid" + p + ";\n";
        }
    }
    if (!cls.m_vecMembers.empty() || OwnChoice(cls) || bRoot || cls.m_bNillable) s += "\n";
    s += "    static OrvexXmlData::CMetaDataHolder ms_metaData;\n};\n";
    if (cls.m_bCollectionItem) {
        const std::string strItem = "p" + Stem(cls);
        s += "\n// A repeating element of type " + cls.m_strXmlName + ".\n";
        s += "class " + c + "Col : public OrvexXml::CXmlCollection, public OrvexXml::CInstanceMonitor {\npublic:\n";
        s += "    " + c +
             "Col(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);\n\n";
        s += "    // The item takes the element name of the collection.\n";
        s += "    void Add(" + c + "* " + strItem + ") { AddAt(GetCount(), " + strItem + "); }\n";
        s += "    void AddAt(int nIndex, " + c + "* " + strItem + ");\n";
        s += "    OrvexXml::CSmartPtr<" + c + "> Item(int nIndex) const;\n\n";
        s += "    OrvexXml::COxIterator<" + c + "> begin() const { return OrvexXml::COxIterator<" + c +
             ">(m_pHead); }\n";
        s += "    OrvexXml::COxIterator<" + c + "> end() const { return OrvexXml::COxIterator<" + c +
             ">(nullptr); }\n\n";
        s += "protected:\n    ~" + c + "Col() override;\n";
        s += "    void ToXml_Int(OrvexXml::CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,\n"
             "                   const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) const override;\n"
             "    OrvexXml::CXmlElement* FromXml_Int(OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement* "
             "pCurrent,\n"
             "                                       const OrvexXml::CSerializationContext& ctx, bool "
             "bOptionalChoice) override;\n};\n";
    }
    s += "\n}  // namespace " + m_model.m_strNamespace + "\n";
    return s;
}

std::string CCodeEmitter::MetaDataEntry(const CClassModel& cls, const CMemberModel& member,
                                        const std::map<std::string, int>& mapRuleUses) const {
    const std::string strName = Quote(member.m_strXmlName);
    const std::string strNs = NamespaceText(cls, member);
    const std::string strIndex = "Prop_" + member.m_strProperty;
    const std::string strDefault = member.m_bHasDefault ? Quote(member.m_strDefault) : "nullptr";
    const auto rule = [&](const std::string& strWhitespace) {
        const auto it = mapRuleUses.find(strWhitespace);
        return it != mapRuleUses.end() && it->second >= 2 ? strWhitespace : Rule(strWhitespace);
    };
    const std::string strRestrictions =
        member.m_strFacetsName.empty() ? Restrictions(member.m_facets) : member.m_strFacetsName;
    if (member.m_bAttribute && member.m_eKind == MemberKind_Untyped)
        return "    builder.AddAttribute(new CAttributeInfoAny(" + strName + ", \"\", " + strIndex + ", true, " +
               Quote(member.m_strRestriction) + ", NS, nullptr));\n";
    if (member.m_bAttribute) {
        const std::string strOptional = member.m_eOccurrence == Occurrence_Mandatory ? "false" : "true";
        if (member.m_eKind == MemberKind_Enum)
            return "    builder.AddAttribute(new CAttributeInfoEnum(" + strName + ", " + strNs + ", " + strIndex +
                   ", " + strOptional + ", &" + member.m_strEnum + "_EnumToText, &" + member.m_strEnum +
                   "_TextToEnum, " + strDefault + "));\n";
        return "    builder.AddAttribute(new CAttributeInfoPrimitive(" + strName + ", " + strNs + ", " + strIndex +
               ", " + strOptional + ", ItemType_" + member.m_strItemType + ", nullptr, " +
               rule(member.m_strWhitespace) + ", " + strRestrictions + ", " + strDefault + "));\n";
    }
    const std::string strNillable = member.m_bNillable ? "true" : "false";
    const std::string strGroup = cls.m_bChoice ? "Choice" : cls.m_bAll ? "All" : "Seq";
    if (member.m_eKind == MemberKind_Untyped) {
        if (member.m_eOccurrence == Occurrence_Collection)
            return "    builder.AddElement(new CElementInfo" + strGroup + "UntpdCol(" + strName + ", " + strNs + ", " +
                   strIndex + "));\n";
        return "    builder.AddElement(new CElementInfo" + strGroup + "UntpdOpt(" + strName + ", " + strNs + ", " +
               strIndex + ", " + Quote(member.m_strRestriction) + ", NS));\n";
    }
    if (member.m_eKind == MemberKind_Class) {
        const CClassModel& child = m_model.m_vecClasses[member.m_nClass];
        const std::string strFactory = m_model.m_strFactory;
        const std::string strOwnType = child.m_bPseudo ? "XmlElementType_PseudoElement" : "XmlElementType_Element";
        if (member.m_bByDocument) {
            // The factory makes the class that the element's xsi:type names.
            const std::string strCreate = "&" + strFactory + "::Create" + Stem(child) + "FromElement";
            switch (member.m_eOccurrence) {
                case Occurrence_Mandatory:
                    return "    builder.AddElement(new CElementInfo" + strGroup + "AbsClsMnd(" + strName + ", " +
                           strNs + ", " + strIndex + ", " + strOwnType + ", " + strCreate + (cls.m_bAll ? ", 0" : "") +
                           "));\n";
                case Occurrence_Optional:
                    return "    builder.AddElement(new CElementInfo" + strGroup + "AbsClsOpt(" + strName + ", " +
                           strNs + ", " + strIndex + ", " + strOwnType + ", " + strCreate + "));\n";
                default:
                    return "    builder.AddElement(new CElementInfo" + strGroup + "AbsClsCol(" + strName + ", " +
                           strNs + ", " + strIndex + ", " + strOwnType + "));\n";
            }
        }
        switch (member.m_eOccurrence) {
            case Occurrence_Mandatory:
                return "    builder.AddElement(new CElementInfo" + strGroup + "ClsMnd(" + strName + ", " + strNs +
                       ", " + strIndex + ", " + strOwnType + ", &" + strFactory + "::CreateClass, " + strFactory +
                       "::ClassId_" + Stem(child) + ", " + (member.m_bMustConsume ? "true" : "false") + "));\n";
            case Occurrence_Optional:
                return "    builder.AddElement(new CElementInfo" + strGroup + "ClsOpt(" + strName + ", " + strNs +
                       ", " + strIndex + ", " + strOwnType + ", &" + strFactory + "::CreateClass, " + strFactory +
                       "::ClassId_" + Stem(child) + "));\n";
            default:
                return "    builder.AddElement(new CElementInfo" + strGroup + "ClsCol(" + strName + ", " + strNs +
                       ", " + strIndex + ", " + strOwnType + "));\n";
        }
    }
    if (member.m_eOccurrence == Occurrence_Collection)
        return "    builder.AddElement(new CElementInfo" + strGroup +
               (member.m_eKind == MemberKind_Enum ? "EnumCol(" : "PrimCol(") + strName + ", " + strNs + ", " +
               strIndex + "));\n";
    const std::string strSuffix = member.m_eOccurrence == Occurrence_Mandatory ? "Mnd" : "Opt";
    if (member.m_eKind == MemberKind_Enum)
        return "    builder.AddElement(new CElementInfo" + strGroup + "Enum" + strSuffix + "(" + strName + ", " +
               strNs + ", " + strIndex + ", " + strNillable + ", &" + member.m_strEnum + "_EnumToText, &" +
               member.m_strEnum + "_TextToEnum, " + strDefault + "));\n";
    return "    builder.AddElement(new CElementInfo" + strGroup + "Prim" + strSuffix + "(" + strName + ", " + strNs +
           ", " + strIndex + ", " + strNillable + ", ItemType_" + member.m_strItemType + ", nullptr, " +
           rule(member.m_strWhitespace) + ", " + strRestrictions + ", " + strDefault + "));\n";
}

std::string CCodeEmitter::ExchangeCase(const CMemberModel& member) const {
    const std::string& p = member.m_strProperty;
    std::string s = "        case Prop_" + p + ":\n";
    if (member.m_eOccurrence == Occurrence_Collection) {
        return s + "            if (bRead) value.SetXmlCollection(m_" + p + ");\n            break;\n";
    }
    std::string strSet, strGet;
    if (member.m_eKind == MemberKind_Class || member.m_eKind == MemberKind_Untyped) {
        strSet = "value.SetXmlObject(m_" + p + ")";
        strGet = "ObjectOf<" + SourceType(ObjectType(member)) + ">(value, " + Quote(member.m_strXmlName) + ")";
        return s + "            if (bRead)\n                " + strSet + ";\n            else\n                Set" +
               p + "(" + strGet + ");\n            break;\n";
    }
    if (member.m_eKind == MemberKind_Enum) {
        strSet = "value.SetI4(m_" + p + ")";
        strGet = "static_cast<" + member.m_strEnum + ">(value.GetI4())";
    } else {
        const CValueKind& kind = KindOf(member.m_strItemType);
        strSet = "value.Set" + std::string(kind.m_pszVariant) + "(m_" + p + ")";
        strGet = "value.Get" + std::string(kind.m_pszVariant) + "()";
    }
    if (member.m_eOccurrence == Occurrence_Mandatory)
        return s + "            if (bRead)\n                " + strSet + ";\n            else\n                m_" + p +
               " = " + strGet + ";\n            break;\n";
    return s + "            if (bRead) {\n                if (m_bValid" + p + ") " + strSet +
           ";\n            } else {\n                Set" + p + "(" + strGet +
           ");\n            }\n            break;\n";
}

std::string CCodeEmitter::ClassSource(const CClassModel& cls) const {
    const std::string& c = cls.m_strName;
    bool bObjects = false;
    for (const CMemberModel& member : cls.m_vecMembers)
        bObjects = bObjects || ((member.m_eKind == MemberKind_Class || member.m_eKind == MemberKind_Untyped) &&
                                member.m_eOccurrence != Occurrence_Collection);
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles + ": the class of " + cls.m_strOrigin +
                    ".\n#include \"" + cls.m_strFile + ".h\"\n\n";
    std::set<std::string> setIncludes;
    if (bObjects || (cls.m_bCollectionItem && IsByDocument(IndexOf(cls))) || (IsFamily(cls) && cls.m_nBase < 0))
        setIncludes.insert(m_model.m_strFactoryFile);
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (member.m_eKind == MemberKind_Class && member.m_nClass != IndexOf(cls) &&
            IsDeclaredOnly(IndexOf(cls), member.m_nClass))
            setIncludes.insert(m_model.m_vecClasses[member.m_nClass].m_strFile);
    }
    for (const std::string& strFile : setIncludes) s += "#include \"" + strFile + ".h\"\n";
    if (!setIncludes.empty()) s += "\n";
    s += "using namespace OrvexXml;\nusing namespace OrvexXmlData;\n\nnamespace " + m_model.m_strNamespace + " {\n\n";
    s += "static const int s_nRegistered = (OrvexXml::Register(16, 1), 0);\n\n";
    s += "CMetaDataHolder " + c + "::ms_metaData;\n\n";
    s += "static const char NS[] = " + Quote(cls.m_strNamespace) + ";\n\n";
    if (!cls.m_vecMembers.empty() && !cls.m_bHasDerived) s += PropertyEnum(cls) + "\n\n";
    // BuildMetaData: a whitespace rule that two entries use, and the facets of a named
    // simple type, are local constants.
    std::map<std::string, int> mapRuleUses;
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (IsValueMember(member) && member.m_eKind == MemberKind_Primitive && !member.m_bSimpleContent)
            ++mapRuleUses[member.m_strWhitespace];
    }
    // Simple content is the class's own value, named by the parent entry; a derived class has
    // its base's.
    std::string strValue = "-1, ItemType_invalid";
    for (int n = IndexOf(cls); n >= 0; n = m_model.m_vecClasses[n].m_nBase) {
        for (const CMemberModel& member : m_model.m_vecClasses[n].m_vecMembers) {
            if (member.m_bSimpleContent && strValue[0] == '-')
                strValue = "Prop_" + member.m_strProperty + ", ItemType_" + member.m_strItemType;
        }
    }
    s += "void " + c + "::BuildMetaData(CMetaDataBuilder& builder) {\n";
    // A class of a derivation family writes xsi:type where its element declares another type.
    const std::string strParent =
        "    builder.SetParent(new CParentElementInfo(XmlElementGroupType_" +
        std::string(cls.m_bChoice ? "Choice"
                    : cls.m_bAll  ? "All"
                                  : "Sequence") +
        // A group reads the attributes of the element it stands in, none of which are its own.
        (cls.m_bPseudo ? ", XmlElementType_PseudoElement, " : ", XmlElementType_Element, ") + Quote(cls.m_strXmlName) +
        (cls.m_bPseudo   ? ", NS, false, false, "
         : IsFamily(cls) ? ", NS, true, true, "
                         : ", NS, true, false, ") +
        strValue + ", nullptr, false));\n";
    // An attribute wildcard takes what the attributes before it leave: in a derivation family
    // it comes after the attributes of every class, from the nearest class that has one.
    const auto IsWildcard = [](const CMemberModel& member) {
        return member.m_bAttribute && member.m_eKind == MemberKind_Untyped;
    };
    std::string strWildcard;
    for (int n = IndexOf(cls); IsFamily(cls) && n >= 0 && strWildcard.empty(); n = m_model.m_vecClasses[n].m_nBase) {
        const CClassModel& owner = m_model.m_vecClasses[n];
        for (const CMemberModel& member : owner.m_vecMembers) {
            if (IsWildcard(member))
                strWildcard = Replace(
                    MetaDataEntry(owner, member, mapRuleUses), "NS, nullptr",
                    (owner.m_strNamespace == cls.m_strNamespace ? std::string("NS") : Quote(owner.m_strNamespace)) +
                        ", nullptr");
        }
    }
    if (cls.m_bHasDerived) {
        s += strParent + "    AddBaseElements(builder);\n" + strWildcard + "}\n\nvoid " + c +
             "::AddBaseElements(CMetaDataBuilder& builder) {\n";
    }
    if (cls.m_nBase >= 0) {
        // The base's attributes and elements come first.
        if (!cls.m_bHasDerived) s += strParent;
        s += "    " + BaseName(cls) + "::AddBaseElements(builder);\n";
    }
    for (const auto& rule : mapRuleUses) {
        if (rule.second >= 2)
            s += "    const CWhitespaceUtils::WhitespaceRule " + rule.first + " = " + Rule(rule.first) + ";\n";
    }
    std::set<std::string> setFacets;
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (!IsValueMember(member) || member.m_strFacetsName.empty() ||
            !setFacets.insert(member.m_strFacetsName).second)
            continue;
        s += "    // The simple type " + member.m_strFacetsSource + ": xs:" + member.m_strBuiltIn + " restricted by " +
             FacetWords(member.m_facets) + ".\n";
        s += "    const CPrimitiveRestrictions " + member.m_strFacetsName +
             Restrictions(member.m_facets).substr(std::string("CPrimitiveRestrictions").size()) + ";\n";
    }
    if (!IsFamily(cls)) s += strParent;
    bool bEntries = cls.m_nBase >= 0;
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (member.m_bSimpleContent || (IsFamily(cls) && IsWildcard(member))) continue;
        s += MetaDataEntry(cls, member, mapRuleUses);
        bEntries = true;
    }
    if (!cls.m_bHasDerived) s += strWildcard;
    // A base of no entries of its own, as an abstract type often is, adds nothing.
    if (cls.m_bHasDerived && !bEntries) s += "    (void)builder;\n";
    s += "}\n\n";

    s += c + "::" + c + "() {\n    ms_metaData.Init(&BuildMetaData);\n    SetElementName(" + Quote(cls.m_strXmlName) +
         ");\n";
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (member.m_eOccurrence != Occurrence_Collection) continue;
        const std::string strMax = std::to_string(member.m_nMaxOccurs);
        const std::string strNs = NamespaceText(cls, member);
        if (member.m_eKind == MemberKind_Untyped) {
            s += "    m_" + member.m_strProperty + " = new " + SourceType(CollectionType(member)) + "(" +
                 Quote(DefaultNamespaceFor(member.m_strRestriction, cls.m_strNamespace)) + ", " +
                 Quote(member.m_strRestriction) + ", NS" +
                 (member.m_bAttribute ? std::string() : ", " + std::to_string(member.m_nMinOccurs) + ", " + strMax) +
                 ");\n";
        } else if (member.m_eKind == MemberKind_Class || member.m_eKind == MemberKind_Enum) {
            s += "    m_" + member.m_strProperty + " = new " + CollectionType(member) + "(" +
                 Quote(member.m_strXmlName) + ", " + strNs + ", " + std::to_string(member.m_nMinOccurs) + ", " +
                 strMax + ");\n";
        } else {
            const CFacetSet& f = member.m_facets;
            s += "    m_" + member.m_strProperty + " = new C" + member.m_strItemType + "Col(" +
                 Quote(member.m_strXmlName) + ", " + strNs + ", " + std::to_string(member.m_nMinOccurs) + ", " +
                 strMax + ", " + QuoteOrNull(f.m_strPattern) + ", " + std::to_string(f.m_nMinLength) + ", " +
                 std::to_string(f.m_nMaxLength) + ", " + QuoteOrNull(f.m_strMinInclusive) + ", " +
                 QuoteOrNull(f.m_strMaxInclusive) + ", " + QuoteOrNull(f.m_strMinExclusive) + ", " +
                 QuoteOrNull(f.m_strMaxExclusive) + ", " + std::to_string(f.m_nLength) + ", " +
                 std::to_string(f.m_nTotalDigits) + ", " + std::to_string(f.m_nFractionDigits) + ", " +
                 Rule(member.m_strWhitespace) + ", nullptr);\n";
        }
    }
    const bool bListens = HasCollectionInChoice(cls);
    for (const CMemberModel& member : cls.m_vecMembers) {
        if (bListens && member.m_eOccurrence == Occurrence_Collection)
            s += "    m_" + member.m_strProperty + "->AddEventListener(this);\n";
    }
    s += "    ResetToDefaults();\n}\n\n";
    if (bListens) {
        s += c + "::~" + c + "() {\n    // Clearing a collection tells its listeners: stop listening first.\n";
        for (const CMemberModel& member : cls.m_vecMembers) {
            if (member.m_eOccurrence == Occurrence_Collection)
                s += "    m_" + member.m_strProperty + "->RemoveEventListener(this);\n";
        }
        s += "}\n\nvoid " + c + "::OnEvent(CXmlObjectBase* pSource, IEventSink::MsgType type, void*) {\n" +
             "    if (type != IEventSink::MsgType_CollectionChange) return;\n";
        for (const CMemberModel& member : cls.m_vecMembers) {
            if (member.m_eOccurrence != Occurrence_Collection) continue;
            const std::string strField = "m_" + member.m_strProperty;
            s += "    if (pSource == " + strField + "->GetBase()) Choice_CollectionChanged(" +
                 Quote(member.m_strXmlName) + ", " + strField + "->GetCount(), m_strSelectedElement);\n";
        }
        s += "}\n\n";
    } else {
        s += c + "::~" + c + "() {}\n\n";
    }

    s += "void " + c + "::ResetToDefaults() {\n";
    if (cls.m_nBase >= 0) s += "    " + BaseName(cls) + "::ResetToDefaults();\n";
    if (cls.m_bNillable) s += "    m_bNil = false;\n";
    for (const CMemberModel& member : cls.m_vecMembers) {
        const std::string strField = "m_" + member.m_strProperty;
        if (member.m_eOccurrence == Occurrence_Collection) {
            s += "    " + strField + "->Clear();\n";
            continue;
        }
        if (member.m_eKind == MemberKind_Untyped) {
            s += "    " + strField + " = nullptr;\n";
            continue;
        }
        if (member.m_eKind == MemberKind_Class) {
            // A member whose class the document decides starts null, like an optional one.
            if (member.m_eOccurrence == Occurrence_Mandatory && !member.m_bByDocument)
                s += "    " + strField + " = new " + m_model.m_vecClasses[member.m_nClass].m_strName +
                     "();\n    CXmlObjectBase::SetElementName(" + strField + ", " + Quote(member.m_strXmlName) +
                     ");\n" + DeclareType(member.m_nClass, "    " + strField);
            else
                s += "    " + strField + " = nullptr;\n";
            continue;
        }
        if (member.m_eKind == MemberKind_Enum) {
            s += "    " + strField + " = " +
                 EnumIdentifier(m_model, member.m_strEnum, member.m_bHasDefault ? member.m_strDefault : std::string()) +
                 ";\n";
        } else if (member.m_bHasDefault) {
            if (member.m_strItemType == "string")
                s += "    " + strField + " = " + Quote(member.m_strDefault) + ";\n";
            else
                s += "    " + strField + " = CConversions::" + member.m_strItemType + "FromString(" +
                     Quote(member.m_strDefault) + ", " + Rule(member.m_strWhitespace) + ");\n";
        } else {
            const CValueKind& kind = KindOf(member.m_strItemType);
            s += kind.m_pszReset ? "    " + strField + " = " + kind.m_pszReset + ";\n"
                                 : "    " + strField + ".clear();\n";
        }
        if (member.m_eOccurrence == Occurrence_Optional) s += "    m_bValid" + member.m_strProperty + " = false;\n";
    }
    if (OwnChoice(cls)) s += "    m_strSelectedElement.clear();\n";
    s += "}\n\n";

    for (const CMemberModel& member : cls.m_vecMembers) {
        const std::string& p = member.m_strProperty;
        if (member.m_eOccurrence == Occurrence_Collection) continue;
        if (member.m_eKind == MemberKind_Untyped) {
            // The reader stores null in an untyped member of a choice that finds nothing:
            // that clears the member if it is selected but mustn't select it, or the member
            // that matches next would be refused.
            const std::string strName = Quote(member.m_strXmlName);
            s +=
                "void " + c + "::Set" + p + "(CElement* value) {\n" +
                (OwnChoice(cls) ? "    if (value || m_strSelectedElement == " + strName +
                                      ")\n        Choice_SelectElement(" + strName + ", value, m_strSelectedElement);\n"
                                : std::string()) +
                "    m_" + p + " = value;\n}\n\n";
            continue;
        }
        if (member.m_eKind == MemberKind_Class) {
            const std::string& strChild = m_model.m_vecClasses[member.m_nClass].m_strName;
            const std::string strDeclare = DeclareType(member.m_nClass, "value");
            if (HasOutOfLineGetter(cls, member))
                s += "CSmartPtr<" + strChild + "> " + c + "::Get" + p + "() const { return m_" + p + "; }\n\n";
            if (member.m_eOccurrence == Occurrence_Mandatory)
                s += "void " + c + "::Set" + p + "(" + strChild + "* value) {\n    Throw_IfPropertyIsNull(value, " +
                     Quote(member.m_strXmlName) + ");\n    CXmlObjectBase::SetElementName(value, " +
                     Quote(member.m_strXmlName) + ");\n" + (strDeclare.empty() ? "" : "    " + strDeclare) + "    m_" +
                     p + " = value;\n}\n\n";
            else
                s += "void " + c + "::Set" + p + "(" + strChild + "* value) {\n" +
                     (OwnChoice(cls) ? "    Choice_SelectElement(" + Quote(member.m_strXmlName) +
                                           ", value, m_strSelectedElement);\n"
                                     : std::string()) +
                     (strDeclare.empty() ? "    if (value) CXmlObjectBase::SetElementName(value, " +
                                               Quote(member.m_strXmlName) + ");\n"
                                         : "    if (value) {\n        CXmlObjectBase::SetElementName(value, " +
                                               Quote(member.m_strXmlName) + ");\n        " + strDeclare + "    }\n") +
                     "    m_" + p + " = value;\n}\n\n";
            continue;
        }
        if (member.m_eOccurrence != Occurrence_Optional) continue;
        std::string strParameter;
        if (member.m_eKind == MemberKind_Enum) {
            strParameter = member.m_strEnum;
        } else {
            const CValueKind& kind = KindOf(member.m_strItemType);
            strParameter = SourceType(kind.m_pszType);
            if (kind.m_bByReference) strParameter = "const " + strParameter + "&";
        }
        const std::string strSelect =
            "    Choice_SetElementValid(%s, " + Quote(member.m_strXmlName) + ", m_strSelectedElement);\n";
        const bool bSelects = OwnChoice(cls) && !member.m_bAttribute;
        s += "void " + c + "::Set" + p + "(" + strParameter + " value) {\n" +
             (bSelects ? Replace(strSelect, "%s", "true") : std::string()) + "    m_" + p + " = value;\n    m_bValid" +
             p + " = true;\n}\n\n";
        if (bSelects)
            s += "void " + c + "::SetValid" + p + "(bool bValid) {\n" + Replace(strSelect, "%s", "bValid") +
                 "    m_bValid" + p + " = bValid;\n}\n\n";
    }

    s += "CParentElementInfo* " + c + "::GetParentElementInfo() const { return ms_metaData.GetParentElementInfo(); }\n";
    s += "CElementInfo** " + c + "::GetClassElementInfo() const { return ms_metaData.GetClassElementInfo(); }\n";
    s +=
        "CAttributeInfo** " + c + "::GetClassAttributeInfo() const { return ms_metaData.GetClassAttributeInfo(); }\n\n";
    if (bObjects)
        s += "// The object of a class-valued property, checked against the property's class.\n"
             "template <class T>\n"
             "static T* ObjectOf(const OxVariant& value, const char* pszProperty) {\n"
             "    CSmartPtr<CXmlObjectBase> pObject = value.GetXmlObject();\n"
             "    T* pTyped = dynamic_cast<T*>(pObject.Get());\n"
             "    if (pObject && !pTyped) {\n"
             "        throw COxInvalidParamException(FormatString(\"The Property [%s] can't hold this class\", "
             "pszProperty));\n"
             "    }\n"
             "    return pTyped;\n"
             "}\n\n";
    s += "void " + c + "::ExchangeProperty(int nPropertyIndex, bool bRead, OxVariant& value) {\n";
    s += cls.m_vecMembers.empty() ? "    (void)bRead;\n    (void)value;\n" : "";
    s += "    switch (nPropertyIndex) {\n";
    for (const CMemberModel& member : cls.m_vecMembers) s += ExchangeCase(member);
    if (cls.m_nBase >= 0)
        s += "        default:\n            " + BaseName(cls) +
             "::ExchangeProperty(nPropertyIndex, bRead, value);\n    }\n}\n";
    else
        s += "        default:\n            throw COxInvalidParamException(FormatString(\"Unknown property index %d\", "
             "nPropertyIndex));\n    }\n}\n";
    // The root class of a derivation family checks the xsi:type it reads and writes one only
    // where the object's type isn't the one its element declares.
    if (IsFamily(cls) && cls.m_nBase < 0) {
        s += "\nCXmlElement* " + c +
             "::FromXml_Int(CXmlElement* pElement, CXmlElement* pFirstChild, const CSerializationContext& ctx,\n"
             "                                bool bOptionalChoice) {\n"
             "    const CParentElementInfo* pInfo = GetParentElementInfo();\n"
             "    if (" +
             m_model.m_strFactory +
             "::NamesOtherType(pElement, pInfo->GetElementName(), pInfo->GetElementNamespace())) {\n"
             "        throw COxValidationException(\n"
             "            FormatString(\"The xsi:type of the element names a type other than [%s].\", "
             "pInfo->GetElementName().c_str()),\n"
             "            pElement->GetXPath());\n    }\n"
             "    return CXmlGeneratedClass::FromXml_Int(pElement, pFirstChild, ctx, bOptionalChoice);\n}\n";
        s += "\nvoid " + c +
             "::AttributesToXml_Int(CXmlWriter* pWriter, const CSerializationContext& ctx) const {\n"
             "    try {\n"
             "        const CParentElementInfo* pInfo = GetParentElementInfo();\n"
             "        if (ctx.GetWriteTypeAttribute() && m_pszDeclaredType &&\n"
             "            (pInfo->GetElementName() != m_pszDeclaredType || pInfo->GetElementNamespace() != "
             "m_pszDeclaredNamespace))\n"
             "            pWriter->WriteXsiType(pInfo->GetElementNamespace(), pInfo->GetElementName(), "
             "ItemType_string);\n"
             "        ProcessAttributesToXml(ctx, GetClassElementInfo(), GetClassAttributeInfo(), pWriter);\n"
             "    } catch (const COxException& e) {\n"
             "        throw COxException(\"Failed to convert attributes to XML\", e);\n"
             "    }\n}\n";
    }

    if (cls.m_bCollectionItem) {
        const std::string strItem = "p" + Stem(cls), strNew = "New" + Stem(cls);
        const std::string strDeclare = DeclareType(IndexOf(cls), "static_cast<" + c + "*>(pItem.Get())");
        if (IsByDocument(IndexOf(cls))) {
            s += "\n// A new item for an element of the collection, of the class that its xsi:type names; null for\n"
                 "// none, which ends the run.\n";
            s += "static CSmartPtr<CXmlObjectBase> " + strNew + "(CXmlElement* pElement) {\n" +
                 "    CSmartPtr<CXmlObjectBase> pItem = " + m_model.m_strFactory + "::Create" + Stem(cls) +
                 "FromElement(pElement);\n    if (pItem) " + strDeclare + "    return pItem;\n}\n\n";
        } else if (!strDeclare.empty()) {
            s += "\n// A new item for an element of the collection.\n";
            s += "static CSmartPtr<CXmlObjectBase> " + strNew +
                 "(CXmlElement*) {\n    CSmartPtr<CXmlObjectBase> pItem = new " + c + "();\n    " + strDeclare +
                 "    return pItem;\n}\n\n";
        } else {
            s += "\n// A new item for an element of the collection.\n";
            s += "static CSmartPtr<CXmlObjectBase> " + strNew + "(CXmlElement*) { return new " + c + "(); }\n\n";
        }
        s += c + "Col::" + c +
             "Col(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs)\n"
             "    : CXmlCollection(pszElementName, pszNamespace, nMinOccurs, nMaxOccurs), CInstanceMonitor(\"" +
             c + "Col\") {}\n\n";
        s += c + "Col::~" + c + "Col() {}\n\n";
        s += "void " + c + "Col::AddAt(int nIndex, " + c + "* " + strItem + ") {\n    Throw_IfPropertyIsNull(" +
             strItem + ", GetElementName().c_str());\n    CXmlObjectBase::SetElementName(" + strItem +
             ", GetElementName().c_str());\n" +
             (strDeclare.empty() ? "" : "    " + DeclareType(IndexOf(cls), strItem)) + "    AddItemAt(nIndex, " +
             strItem + ");\n}\n\n";
        s += "CSmartPtr<" + c + "> " + c + "Col::Item(int nIndex) const {\n    return static_cast<" + c +
             "*>(GetNodeAtIndex(nIndex)->m_pItem.Get());\n}\n\n";
        s += "void " + c +
             "Col::ToXml_Int(CXmlWriter* pWriter, bool, const char* pszNamespace, const CSerializationContext& ctx,\n"
             "    bool) const {\n    ItemsToXml_Int(pWriter, pszNamespace, ctx);\n}\n\n";
        s += "CXmlElement* " + c +
             "Col::FromXml_Int(CXmlElement* pParent, CXmlElement* pCurrent, const CSerializationContext& ctx,\n"
             "    bool) {\n    return " +
             // Items of a model group have no tags: each reads on from the cursor among the
             // parent's children, where a run of named elements would find none of its name.
             (cls.m_bPseudo ? "GroupItemsFromXml_Int" : "ItemsFromXml_Int") + "(pParent, pCurrent, ctx, &" + strNew +
             ");\n}\n";
    }
    s += "\n}  // namespace " + m_model.m_strNamespace + "\n";
    return s;
}

std::string CCodeEmitter::EnumHeader(const CEnumModel& e) const {
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles + ": the enumeration of " +
                    e.m_strOrigin + ".\n#pragma once\n\n#include <orvexxml/orvexxml.h>\n\nnamespace " +
                    m_model.m_strNamespace + " {\n\n" + CDocumentation::AsComment(e.m_strDocumentation, "") + "enum " +
                    e.m_strName + " { ";
    for (size_t i = 0; i < e.m_vecIdentifiers.size(); ++i)
        s += (i ? ", " : "") + e.m_vecIdentifiers[i] + " = " + std::to_string(i);
    s += " };\n";
    s += "const char* " + e.m_strName + "_EnumToText(int nValue);\n";
    s += "int " + e.m_strName + "_TextToEnum(const char* pszText);\n";
    if (e.m_bCollectionItem) {
        const std::string c = "C" + e.m_strName + "Col", n = e.m_strName;
        s += "\n// A repeating element of type " + n + ".\n";
        s += "class " + c + " : public OrvexXml::CXmlTypeCollection, public OrvexXml::CInstanceMonitor {\npublic:\n";
        s += "    " + c + "(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);\n\n";
        s += "    void Add(" + n + " value) { AddAt(GetCount(), value); }\n";
        s += "    void AddAt(int nIndex, " + n + " value);\n";
        s += "    " + n + " Item(int nIndex) const;\n";
        s += "    int GetCount() const override { return static_cast<int>(m_items.size()); }\n";
        s += "    void Clear() override;\n    void Remove(int nIndex) override;\n\n";
        s += "    std::deque<" + n + ">::const_iterator begin() const { return m_items.begin(); }\n";
        s += "    std::deque<" + n + ">::const_iterator end() const { return m_items.end(); }\n\n";
        s += "protected:\n    ~" + c + "() override;\n";
        s += "    void ToXml_Int(OrvexXml::CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,\n"
             "                   const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) const override;\n"
             "    void AddFromString(const std::string& strText) override;\n\nprivate:\n"
             "    void RemoveOne(int nIndex);\n\n";
        s += "    std::deque<" + n + "> m_items;\n};\n";
        s = Replace(s, "#include <orvexxml/orvexxml.h>\n",
                    "#include <orvexxml/orvexxml.h>\n\n#include <deque>\n#include <string>\n");
    }
    s += "\n}  // namespace " + m_model.m_strNamespace + "\n";
    return s;
}

std::string CCodeEmitter::EnumSource(const CEnumModel& e) const {
    const std::string& n = e.m_strName;
    const std::string strCount = std::to_string(e.m_vecValues.size());
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles + ": the enumeration of " +
                    e.m_strOrigin + ".\n#include \"" + e.m_strFile + ".h\"\n\n#include <cstring>\n\n" +
                    "using namespace OrvexXml;\n\nnamespace " + m_model.m_strNamespace + " {\n\n";
    s += "static const char* const s_" + n + "Text[] = {";
    for (size_t i = 0; i < e.m_vecValues.size(); ++i) s += (i ? ", " : "") + Quote(e.m_vecValues[i]);
    s += "};\n\n";
    s += "const char* " + n + "_EnumToText(int nValue) {\n    if (nValue < 0 || nValue > " +
         std::to_string(e.m_vecValues.size() - 1) +
         ") {\n        throw COxInvalidValueException(FormatString(\"The value %d is not a valid " + n +
         "\", nValue));\n    }\n    return s_" + n + "Text[nValue];\n}\n\n";
    s += "int " + n + "_TextToEnum(const char* pszText) {\n    for (int i = 0; i < " + strCount +
         "; ++i) {\n        if (std::strcmp(pszText, s_" + n + "Text[i]) == 0) return i;\n    }\n" +
         "    throw COxInvalidValueException(FormatString(\"The value [%s] is not a valid " + n + "\", pszText));\n}\n";
    if (e.m_bCollectionItem) {
        const std::string c = "C" + n + "Col";
        s = Replace(s, "#include <cstring>\n", "#include <cstring>\n#include <vector>\n");
        s += "\n" + c + "::" + c +
             "(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs)\n"
             "    : CXmlTypeCollection(ItemType_i4, pszElementName, pszNamespace, nMinOccurs, nMaxOccurs, nullptr, -1, "
             "-1, "
             "nullptr,\n                         nullptr, nullptr, nullptr, -1, -1, -1, "
             "CWhitespaceUtils::WhitespaceRule_collapse, nullptr),\n      CInstanceMonitor(\"" +
             c + "\") {}\n\n";
        s += c + "::~" + c + "() {}\n\n";
        s += "void " + c + "::AddAt(int nIndex, " + n +
             " value) {\n    CChangeScope scope(this);\n"
             "    FireOnCollectionAdd(&value);\n"
             "    if (nIndex < 0 || nIndex > GetCount()) throw COxInvalidParamException(\"Index out of range\");\n"
             "    m_items.insert(m_items.begin() + nIndex, value);\n    try {\n"
             "        FireOnCollectionAddComplete(&value);\n        FireOnCollectionChange();\n    } catch (...) {\n"
             "        m_items.erase(m_items.begin() + nIndex);  // a refused addition leaves no trace\n"
             "        throw;\n    }\n}\n\n";
        const std::string strRange =
            "        throw COxInvalidParamException(FormatString(\"Index %d is out of range, use 0 - %d\", nIndex, "
            "GetCount() - 1));\n";
        s += n + " " + c + "::Item(int nIndex) const {\n    if (nIndex < 0 || nIndex >= GetCount()) {\n" + strRange +
             "    }\n    return m_items[static_cast<size_t>(nIndex)];\n}\n\n";
        s += "// Removes from the front, one item at a time with the events of Remove(0). A refusal puts every\n"
             "// item back.\nvoid " +
             c + "::Clear() {\n    CChangeScope scope(this);\n    std::vector<" + n +
             "> removed;\n    removed.reserve(m_items.size());\n    try {\n        while (!m_items.empty()) {\n"
             "            " +
             n +
             " value = m_items.front();\n            RemoveOne(0);\n"
             "            removed.push_back(value);\n        }\n    } catch (...) {\n"
             "        m_items.insert(m_items.begin(), removed.begin(), removed.end());\n        throw;\n    }\n}\n\n";
        s += "void " + c + "::Remove(int nIndex) {\n    CChangeScope scope(this);\n    RemoveOne(nIndex);\n}\n\n";
        s += "void " + c +
             "::RemoveOne(int nIndex) {\n    FireOnCollectionRemove(nIndex);\n"
             "    if (nIndex < 0 || nIndex >= GetCount()) {\n" +
             strRange + "    }\n    " + n +
             " value = m_items[static_cast<size_t>(nIndex)];\n    m_items.erase(m_items.begin() + nIndex);\n"
             "    try {\n        FireOnCollectionRemoveComplete(nIndex);\n        FireOnCollectionChange();\n"
             "    } catch (...) {\n        m_items.insert(m_items.begin() + nIndex, value);  // a refused removal "
             "leaves no trace\n        throw;\n    }\n}\n\n";
        s += "void " + c +
             "::ToXml_Int(CXmlWriter* pWriter, bool, const char*, const CSerializationContext& ctx, bool) "
             "const {\n    ValidateCount(ctx);\n    for (" +
             n +
             " value : m_items) {\n"
             "        pWriter->WriteStartElement(GetElementName(), m_strNamespace);\n"
             "        pWriter->WriteElementText(" +
             n +
             "_EnumToText(value), ItemType_string, false);\n"
             "        pWriter->WriteEndElement();\n    }\n}\n\n";
        s += "void " + c + "::AddFromString(const std::string& strText) {\n    Add(static_cast<" + n + ">(" + n +
             "_TextToEnum(strText.c_str())));\n}\n";
    }
    s += "\n}  // namespace " + m_model.m_strNamespace + "\n";
    return s;
}

std::string CCodeEmitter::FactoryHeader() const {
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles +
                    ": the class factory, which makes the objects of class-valued members by their id while a "
                    "document is read.\n#pragma once\n\n#include <orvexxml/orvexxml.h>\n\nnamespace " +
                    m_model.m_strNamespace + " {\n\nclass " + m_model.m_strFactory +
                    " : public OrvexXmlData::CClassfactoryBase {\npublic:\n    enum ClassId { ";
    for (size_t i = 0; i < m_model.m_vecClasses.size(); ++i)
        s += (i ? ", ClassId_" : "ClassId_") + Stem(m_model.m_vecClasses[i]) + (i ? "" : " = 1");
    s += " };\n\n    // A new object of the class with the id; the element name is the one the object takes in\n"
         "    // its parent, which reading sets from the document. Never null.\n"
         "    static OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> CreateClass(int nClassId, const char* "
         "pszElementName);\n";
    if (HasFamily())
        s += "    // Whether the element's xsi:type names a type other than the one given.\n"
             "    static bool NamesOtherType(OrvexXml::CXmlElement* pElement, const std::string& strType,\n"
             "                               const std::string& strNamespace);\n";
    for (size_t i = 0; i < m_model.m_vecClasses.size(); ++i) {
        if (!IsByDocument(static_cast<int>(i))) continue;
        const CClassModel& cls = m_model.m_vecClasses[i];
        s += "    // A new object for an element of type " + cls.m_strXmlName +
             ": of the type that its xsi:type names, with the type's namespace from its prefix (unprefixed: the "
             "element's own); " +
             (cls.m_bAbstract ? "null without xsi:type (" + cls.m_strXmlName + " is abstract)"
                              : "a " + cls.m_strName + " without xsi:type") +
             ", null for a type that is not " + cls.m_strXmlName + " or derived from it.\n";
        s += "    static OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> Create" + Stem(cls) +
             "FromElement(OrvexXml::CXmlElement* pElement);\n";
    }
    s += "};\n\n}  // namespace " + m_model.m_strNamespace + "\n";
    return s;
}

std::string CCodeEmitter::FactorySource() const {
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles + ": the class factory.\n#include \"" +
                    m_model.m_strFactoryFile + ".h\"\n\n";
    std::set<std::string> setIncludes;
    for (const CClassModel& cls : m_model.m_vecClasses) setIncludes.insert(cls.m_strFile);
    for (const std::string& strFile : setIncludes) s += "#include \"" + strFile + ".h\"\n";
    if (!setIncludes.empty()) s += "\n";
    s += "using namespace OrvexXml;\n\nnamespace " + m_model.m_strNamespace + " {\n\n";
    s += "CSmartPtr<CXmlObjectBase> " + m_model.m_strFactory +
         "::CreateClass(int nClassId, const char* pszElementName) {\n    switch (nClassId) {\n";
    for (const CClassModel& cls : m_model.m_vecClasses) {
        if (!cls.m_bAbstract)
            s += "        case ClassId_" + Stem(cls) + ":\n            return new " + cls.m_strName + "();\n";
    }
    s += "        default:\n            throw COxInvalidParamException(FormatString(\"Unknown class id %d for the "
         "element [%s]\", nClassId,\n                pszElementName ? pszElementName : \"\"));\n    }\n}\n";
    if (HasFamily())
        s += "\nbool " + m_model.m_strFactory +
             "::NamesOtherType(CXmlElement* pElement, const std::string& strType, const std::string& strNamespace) {\n"
             "    const std::string strNamed = GetElementType(pElement);\n"
             "    return !strNamed.empty() && (strNamed != strType || GetElementTypeNamespaceUri(pElement) != "
             "strNamespace);\n}\n";
    for (size_t i = 0; i < m_model.m_vecClasses.size(); ++i) {
        if (!IsByDocument(static_cast<int>(i))) continue;
        const CClassModel& cls = m_model.m_vecClasses[i];
        s += "\nCSmartPtr<CXmlObjectBase> " + m_model.m_strFactory + "::Create" + Stem(cls) +
             "FromElement(CXmlElement* pElement) {\n    const std::string strType = GetElementType(pElement);\n"
             "    if (strType.empty()) return " +
             (cls.m_bAbstract ? std::string("nullptr") : "new " + cls.m_strName + "()") +
             ";\n    const std::string strNamespace = GetElementTypeNamespaceUri(pElement);\n";
        // The class itself and every class derived from it that binds a named type.
        for (size_t j = 0; j < m_model.m_vecClasses.size(); ++j) {
            const CClassModel& derived = m_model.m_vecClasses[j];
            if (derived.m_bAbstract || !derived.m_bNamedType) continue;
            int n = static_cast<int>(j);
            while (n >= 0 && n != static_cast<int>(i)) n = m_model.m_vecClasses[n].m_nBase;
            if (n < 0) continue;
            s += "    if (strType == " + Quote(derived.m_strXmlName) +
                 " && strNamespace == " + Quote(derived.m_strNamespace) + ") return new " + derived.m_strName + "();\n";
        }
        s += "    return nullptr;\n}\n";
    }
    s += "\n}  // namespace " + m_model.m_strNamespace + "\n";
    return s;
}

std::string CCodeEmitter::SchemaHeader() const {
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles +
                    ": every class and enumeration of the schema set.\n#pragma once\n\n"
                    "#include <orvexxml/orvexxml.h>\n\n";
    std::set<std::string> setIncludes = {m_model.m_strFactoryFile};
    for (const CClassModel& cls : m_model.m_vecClasses) setIncludes.insert(cls.m_strFile);
    for (const CEnumModel& e : m_model.m_vecEnums) setIncludes.insert(e.m_strFile);
    for (const std::string& strFile : setIncludes) s += "#include \"" + strFile + ".h\"\n";
    s += "\nnamespace " + m_model.m_strNamespace +
         " {\n\n// A new object for a global element of the schema set, by its name and namespace (null or\n"
         "// empty for none), with the element's name set; null for an element the set doesn't declare.\n"
         "OrvexXml::CSmartPtr<OrvexXml::CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns);\n\n"
         "}  // namespace " +
         m_model.m_strNamespace + "\n";
    return s;
}

std::string CCodeEmitter::SchemaSource() const {
    std::string s = "// Generated by orvex-xsd from " + m_model.m_strSchemaFiles +
                    ": the objects that documents of the schema set begin with.\n#include \"schema.h\"\n\n"
                    "#include <cstring>\n\nusing namespace OrvexXml;\n\nnamespace " +
                    m_model.m_strNamespace + " {\n\n";
    bool bRenamed = false;
    for (const CRootElementModel& root : m_model.m_vecRoots)
        bRenamed = bRenamed || m_model.m_vecClasses[root.m_nClass].m_strXmlName != root.m_strXmlName;
    if (bRenamed)
        s += "namespace {\n\n// Names an object after the element it stands for.\nstruct CRootNamer : public "
             "CXmlObjectBase {\n    static void Name(CXmlObjectBase* pObject, const char* pszName) { "
             "SetElementName(pObject, pszName); }\n};\n\n}  // namespace\n\n";
    s += "CSmartPtr<CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns) {\n"
         "    if (!name) return nullptr;\n    const char* pszNamespace = ns ? ns : \"\";\n";
    for (const CRootElementModel& root : m_model.m_vecRoots) {
        const CClassModel& cls = m_model.m_vecClasses[root.m_nClass];
        s += "    if (std::strcmp(name, " + Quote(root.m_strXmlName) + ") == 0 && std::strcmp(pszNamespace, " +
             Quote(root.m_strNamespace) + ") == 0) {\n        CSmartPtr<CXmlGeneratedClass> pObject = new " +
             cls.m_strName + "();\n";
        if (cls.m_strXmlName != root.m_strXmlName)
            s += "        CRootNamer::Name(pObject.Get(), " + Quote(root.m_strXmlName) + ");\n";
        s += "        return pObject;\n    }\n";
    }
    s += "    return nullptr;\n}\n\n}  // namespace " + m_model.m_strNamespace + "\n";
    return s;
}

std::map<std::string, std::string> CCodeEmitter::Emit() const {
    std::map<std::string, std::string> mapFiles;
    for (const CClassModel& cls : m_model.m_vecClasses) {
        mapFiles[cls.m_strFile + ".h"] = ClassHeader(cls);
        mapFiles[cls.m_strFile + ".cpp"] = ClassSource(cls);
    }
    for (const CEnumModel& e : m_model.m_vecEnums) {
        mapFiles[e.m_strFile + ".h"] = EnumHeader(e);
        mapFiles[e.m_strFile + ".cpp"] = EnumSource(e);
    }
    mapFiles[m_model.m_strFactoryFile + ".h"] = FactoryHeader();
    mapFiles[m_model.m_strFactoryFile + ".cpp"] = FactorySource();
    mapFiles["schema.h"] = SchemaHeader();
    mapFiles["schema.cpp"] = SchemaSource();
    return mapFiles;
}

}  // namespace OrvexXsd
