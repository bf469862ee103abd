// The property check of generated classes: random documents that are valid against a schema
// (made by orvex-instancegen, which loads the schema as orvex-xsd does) are read into the
// classes generated from that schema and written back. The generator's documents must be
// valid (an invalid one is a generator fault), and what comes back must be valid and carry the
// same content: the same elements, attributes and values. Only text beside child elements is
// left out of the comparison: the bindings don't keep mixed content.
#pragma once

#include <gtest/gtest.h>
#include <orvexxml/orvexxml.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace InstanceRoundTrip {

using namespace OrvexXml;

constexpr char kXmlnsNamespace[] = "http://www.w3.org/2000/xmlns/";

struct CRoot {
    const char* pszName;
    const char* pszNamespace;
};

struct CSchemaSet {
    const char* pszLabel;
    std::string strSchema;
    std::function<CSmartPtr<CXmlGeneratedClass>(const char*, const char*)> create;
    std::vector<CRoot> vecRoots;
    int nDocumentsPerRoot;
    // Further options of orvex-instancegen (-I DIR, --derivations), as shell words.
    std::string strGeneratorOptions;
    // The XML catalog through which xmllint finds the schema's imports; none when empty.
    std::string strCatalog;
};

// What a command prints on stdout and stderr, and whether it exited with 0.
inline bool Run(const std::string& strCommand, std::string& strOutput) {
    strOutput.clear();
    FILE* pPipe = popen((strCommand + " 2>&1").c_str(), "r");
    if (!pPipe) return false;
    char szBuffer[4096];
    size_t nRead;
    while ((nRead = fread(szBuffer, 1, sizeof szBuffer, pPipe)) > 0) strOutput.append(szBuffer, nRead);
    return pclose(pPipe) == 0;
}

// xmllint's verdict on many files in one call: empty when all are valid, else its complaints.
inline std::string SchemaComplaints(const CSchemaSet& set, const std::vector<std::string>& vecFiles) {
    std::string strCommand;
    if (!set.strCatalog.empty()) strCommand = "XML_CATALOG_FILES='" + set.strCatalog + "' ";
    strCommand += "xmllint --nonet --noout --schema '" + set.strSchema + "'";
    for (const std::string& strFile : vecFiles) strCommand += " '" + strFile + "'";
    std::string strOutput;
    if (Run(strCommand, strOutput)) return std::string();
    std::string strComplaints;
    size_t nAt = 0;
    while (nAt < strOutput.size()) {
        const size_t nEnd = std::min(strOutput.find('\n', nAt), strOutput.size());
        const std::string strLine = strOutput.substr(nAt, nEnd - nAt);
        const std::string strValid = " validates";
        if (strLine.size() < strValid.size() ||
            strLine.compare(strLine.size() - strValid.size(), strValid.size(), strValid))
            strComplaints += strLine + "\n";
        nAt = nEnd + 1;
    }
    return strComplaints.empty() ? strOutput : strComplaints;
}

constexpr char kInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";

// The attributes but namespace declarations; xsi:type by the type's local name: its prefix
// is the writer's choice, and xmllint's verdict on the output checks that it names the type.
inline std::map<std::string, std::string> Attributes(const CXmlElement* pElement) {
    std::map<std::string, std::string> mapAttributes;
    for (const CXmlAttribute* pAttribute : pElement->GetAttributes()) {
        if (pAttribute->GetNamespaceURI() == kXmlnsNamespace || pAttribute->GetLocalName() == "xmlns") continue;
        const bool bType = pAttribute->GetNamespaceURI() == kInstanceNamespace && pAttribute->GetLocalName() == "type";
        mapAttributes["{" + pAttribute->GetNamespaceURI() + "}" + pAttribute->GetLocalName()] =
            bType ? pAttribute->GetValue().substr(pAttribute->GetValue().find(':') + 1) : pAttribute->GetValue();
    }
    return mapAttributes;
}

// The first difference of content between two trees, empty when there is none.
inline std::string Difference(const CXmlElement* pExpected, const CXmlElement* pActual) {
    const std::string strPath = pExpected->GetXPath();
    if (pExpected->GetNamespaceURI() != pActual->GetNamespaceURI() ||
        pExpected->GetLocalName() != pActual->GetLocalName())
        return strPath + ": element {" + pActual->GetNamespaceURI() + "}" + pActual->GetLocalName() + " instead of {" +
               pExpected->GetNamespaceURI() + "}" + pExpected->GetLocalName();
    const std::map<std::string, std::string> mapExpected = Attributes(pExpected), mapActual = Attributes(pActual);
    for (const auto& attribute : mapExpected) {
        const auto it = mapActual.find(attribute.first);
        if (it == mapActual.end()) return strPath + ": attribute " + attribute.first + " lost";
        if (it->second != attribute.second)
            return strPath + ": attribute " + attribute.first + " is [" + it->second + "], was [" + attribute.second +
                   "]";
    }
    for (const auto& attribute : mapActual) {
        if (!mapExpected.count(attribute.first)) return strPath + ": attribute " + attribute.first + " added";
    }
    const CXmlElement* pExpectedChild = pExpected->GetFirstElement();
    const CXmlElement* pActualChild = pActual->GetFirstElement();
    if (!pExpectedChild && !pActualChild && pExpected->GetText() != pActual->GetText())
        return strPath + ": text [" + pActual->GetText() + "], was [" + pExpected->GetText() + "]";
    for (; pExpectedChild && pActualChild; pExpectedChild = pExpectedChild->GetNextSiblingElement(),
                                           pActualChild = pActualChild->GetNextSiblingElement()) {
        const std::string strDifference = Difference(pExpectedChild, pActualChild);
        if (!strDifference.empty()) return strDifference;
    }
    if (pExpectedChild) return pExpectedChild->GetXPath() + ": element lost";
    if (pActualChild) return pActualChild->GetXPath() + ": element added";
    return std::string();
}

// Generates, reads, writes and compares the documents of one schema set with a seed; each
// finding is a line of the failure, none when every document came back valid and equal.
inline void CheckSet(const CSchemaSet& set, unsigned nSeed) {
    const std::string strDir = testing::TempDir() + "instanceroundtrip_" + set.pszLabel;
    std::string strOutput;
    ASSERT_TRUE(Run("rm -rf '" + strDir + "' && mkdir -p '" + strDir + "'", strOutput)) << strOutput;
    std::vector<std::string> vecInputs, vecOutputs;
    std::vector<const CRoot*> vecRootOf;
    for (const CRoot& root : set.vecRoots) {
        std::string strCommand = std::string(ORVEX_INSTANCEGEN_PATH) + " --element " + root.pszName + " --count " +
                                 std::to_string(set.nDocumentsPerRoot) + " --seed " + std::to_string(nSeed) + " -o '" +
                                 strDir + "' " + set.strGeneratorOptions + " '" + set.strSchema + "'";
        if (*root.pszNamespace) strCommand += std::string(" --namespace ") + root.pszNamespace;
        ASSERT_TRUE(Run(strCommand, strOutput)) << strCommand << "\n" << strOutput;
        for (int i = 0; i < set.nDocumentsPerRoot; ++i) {
            vecInputs.push_back(strDir + "/" + root.pszName + "-" + std::to_string(i) + ".xml");
            vecOutputs.push_back(strDir + "/" + root.pszName + "-" + std::to_string(i) + ".out.xml");
            vecRootOf.push_back(&root);
        }
    }
    ASSERT_EQ(SchemaComplaints(set, vecInputs), "") << "the generator made invalid documents";

    const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();
    std::string strFindings;
    std::vector<std::string> vecWritten;
    std::vector<size_t> vecWrittenIndex;
    for (size_t i = 0; i < vecInputs.size(); ++i) {
        CSmartPtr<CXmlGeneratedClass> object = set.create(vecRootOf[i]->pszName, vecRootOf[i]->pszNamespace);
        ASSERT_TRUE(object) << vecRootOf[i]->pszName;
        try {
            object->FromXmlFile(vecInputs[i].c_str(), ctx);
            object->ToXmlFile(vecOutputs[i].c_str(), true, true, XmlEncoding_UTF8, EOLType_LF, ctx,
                              CompressionType_None);
            vecWritten.push_back(vecOutputs[i]);
            vecWrittenIndex.push_back(i);
        } catch (const COxException& e) {
            strFindings += vecInputs[i] + ": refused: " + e.GetFullMessage() + "\n";
        }
    }
    if (!vecWritten.empty()) strFindings += SchemaComplaints(set, vecWritten);
    for (size_t n : vecWrittenIndex) {
        CXmlDocument expected, actual;
        try {
            expected.Load(vecInputs[n].c_str());
            actual.Load(vecOutputs[n].c_str());
        } catch (const COxException& e) {
            strFindings += vecOutputs[n] + ": unreadable: " + e.GetFullMessage() + "\n";
            continue;
        }
        const std::string strDifference = Difference(expected.GetDocumentElement(), actual.GetDocumentElement());
        if (!strDifference.empty()) strFindings += vecInputs[n] + ": " + strDifference + "\n";
    }
    EXPECT_EQ(strFindings, "");
}

}  // namespace InstanceRoundTrip
