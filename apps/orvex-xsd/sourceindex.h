// Where things stand in the schema documents: the schema model keeps no source positions,
// so each loaded document is read once more for the place of every schema element in it.
// The places order the output (document order) and locate warnings and errors.
#pragma once

#include <string>
#include <vector>

namespace OrvexXsd {

class CSourceIndex {
public:
    // One element of the schema vocabulary in a document.
    struct CNode {
        std::string m_strKind;  // local name: element, complexType, import, list ...
        std::string m_strName;  // its name attribute, or empty
        std::string m_strRef;   // its ref attribute, or empty
        std::string m_strSchemaLocation;
        std::string m_strNamespace;  // the namespace attribute (import) or empty
        int m_nLine;
        int m_nColumn;
        int m_nDepth;     // 1 for the schema element
        int m_nTopLevel;  // index of the enclosing child of schema (or of redefine), -1 for none
    };
    struct CDocument {
        std::string m_strPath;  // absolute
        std::string m_strTargetNamespace;
        std::vector<CNode> m_vecNodes;
    };

    // Reads a document (once; later calls for the same path do nothing). A document that
    // can't be read is left out: the schema loader reports it.
    void Add(const std::string& strPath);

    const std::vector<CDocument>& GetDocuments() const { return m_vecDocuments; }
    const CDocument* Find(const std::string& strPath) const;

    // The document and node of a top-level component by kind, namespace and name, or false.
    bool FindTopLevel(const std::string& strKind, const std::string& strNamespace, const std::string& strName,
                      size_t& nDocument, size_t& nNode) const;
    // Document order of a top-level component: documents in load order, then position.
    // Components the index doesn't know sort last.
    long long OrderOf(const std::string& strKind, const std::string& strNamespace, const std::string& strName) const;

private:
    std::vector<CDocument> m_vecDocuments;
};

}  // namespace OrvexXsd
