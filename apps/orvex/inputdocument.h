#pragma once

#include <orvexxml/orvexxml.h>

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace OrvexTool {

class CProgress;

// The forms a document can arrive in, told apart by content.
enum InputForm { InputForm_Xml, InputForm_Json, InputForm_FastInfoset };

// One input document: its bytes (a file or standard input), what they are, and their tree.
// Failures throw CToolError: a file that can't be read with ExitStatus_BadUsage, a document
// the library refuses with ExitStatus_BadDocument.
class CInputDocument {
public:
    // What the tree holds, for info.
    struct Counts {
        uint64_t nElements = 0;
        uint64_t nAttributes = 0;
        uint64_t nDepth = 0;
    };

    // strName is a file name or "-" for standard input.
    explicit CInputDocument(const std::string& strName);
    ~CInputDocument();
    CInputDocument(const CInputDocument&) = delete;
    CInputDocument& operator=(const CInputDocument&) = delete;

    // Reads the bytes, inflates them if they are compressed and tells the form.
    void Read(CProgress& progress);
    // Builds the tree of the document with ctx (which must outlive this object): XML and Fast
    // Infoset through the library's loading of bytes, JSON through its conversion to XML text.
    void Parse(const OrvexXml::CSerializationContext& ctx);

    // The name for messages: the file name, or "(standard input)".
    const std::string& GetDisplayName() const { return m_strDisplayName; }
    OrvexXml::CompressionType GetCompression() const { return m_eCompression; }
    InputForm GetForm() const { return m_eForm; }
    // Whether the content is UTF-16 text (by its byte order mark or its first character).
    bool IsUtf16() const { return m_bUtf16; }
    uint64_t GetInputSize() const { return m_vecRaw.size(); }
    uint64_t GetContentSize() const { return m_nContentLength; }

    // After Parse: the tree.
    OrvexXml::CXmlDocument& GetDocument() { return *m_spDocument; }
    // Frees the tree once what it holds has been taken over.
    void ReleaseTree() { m_spDocument.reset(); }
    Counts Count() const;
    // The path of the first element with both text and child elements, empty if none.
    std::string FindMixedContent() const;
    // The prefixes the document declares for the namespaces its elements and attributes use,
    // as (prefix, namespace) pairs, and the default namespace if one of them is declared so.
    void GetNamespaces(std::vector<std::pair<std::string, std::string>>& vecPrefixes, std::string& strDefault) const;

private:
    void ReadBytes(int hFile, uint64_t nExpected, CProgress& progress);
    void Detect();
    // Replaces JSON content by the XML text the library makes of it.
    void ConvertJson(const OrvexXml::CSerializationContext& ctx);

    std::string m_strName;
    std::string m_strDisplayName;
    std::vector<unsigned char> m_vecRaw;
    OrvexXml::CBinaryData m_inflated;
    OrvexXml::CBinaryData m_converted;  // the XML text of JSON input
    const unsigned char* m_pContent;
    uint64_t m_nContentLength;
    OrvexXml::CompressionType m_eCompression;
    InputForm m_eForm;
    bool m_bUtf16;
    std::unique_ptr<OrvexXml::CXmlDocument> m_spDocument;
    std::set<std::string> m_setPrefixCandidates;
};

}  // namespace OrvexTool
