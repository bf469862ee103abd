#include "inputdocument.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <set>

#include "progress.h"
#include "toolerror.h"

namespace OrvexTool {

using namespace OrvexXml;

namespace {

const size_t kReadChunk = 1u << 20;
const char* const kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

bool IsWhitespace(unsigned char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// The message of a library exception on one line: the chain of causes joined by "; ".
std::string OneLine(const COxException& e) {
    std::string strMessage = e.GetFullMessage();
    for (size_t n = 0; (n = strMessage.find('\n', n)) != std::string::npos;) strMessage.replace(n, 1, "; ");
    return strMessage;
}

}  // namespace

CInputDocument::CInputDocument(const std::string& strName)
    : m_strName(strName),
      m_strDisplayName(strName == "-" ? "(standard input)" : strName),
      m_pContent(nullptr),
      m_nContentLength(0),
      m_eCompression(CompressionType_None),
      m_eForm(InputForm_Xml),
      m_bUtf16(false) {}

CInputDocument::~CInputDocument() {}

void CInputDocument::Read(CProgress& progress) {
    if (m_strName == "-") {
        ReadBytes(STDIN_FILENO, 0, progress);
    } else {
        const int hFile = ::open(m_strName.c_str(), O_RDONLY | O_CLOEXEC);
        if (hFile < 0) throw CToolError(ExitStatus_BadUsage, m_strDisplayName + ": " + std::strerror(errno));
        struct stat info;
        if (::fstat(hFile, &info) != 0 || S_ISDIR(info.st_mode)) {
            const int nError = S_ISDIR(info.st_mode) ? EISDIR : errno;
            ::close(hFile);
            throw CToolError(ExitStatus_BadUsage, m_strDisplayName + ": " + std::strerror(nError));
        }
        try {
            ReadBytes(hFile, S_ISREG(info.st_mode) ? static_cast<uint64_t>(info.st_size) : 0, progress);
        } catch (...) {
            ::close(hFile);
            throw;
        }
        ::close(hFile);
    }
    Detect();
}

void CInputDocument::ReadBytes(int hFile, uint64_t nExpected, CProgress& progress) {
    if (nExpected > CBinaryData::MAX_LENGTH)
        throw CToolError(ExitStatus_BadDocument, m_strDisplayName + ": too large; a document holds at most 4 GiB");
    // Room for the whole file and the one read past its end that finds the end.
    m_vecRaw.reserve(static_cast<size_t>(nExpected) + kReadChunk);
    size_t nTotal = 0;
    for (;;) {
        if (m_vecRaw.size() < nTotal + kReadChunk) m_vecRaw.resize(nTotal + kReadChunk);
        const ssize_t nRead = ::read(hFile, m_vecRaw.data() + nTotal, kReadChunk);
        if (nRead < 0) {
            if (errno == EINTR) continue;
            throw CToolError(ExitStatus_BadUsage, m_strDisplayName + ": " + std::strerror(errno));
        }
        if (nRead == 0) break;
        nTotal += static_cast<size_t>(nRead);
        if (nTotal > CBinaryData::MAX_LENGTH)
            throw CToolError(ExitStatus_BadDocument, m_strDisplayName + ": too large; a document holds at most 4 GiB");
        progress.Reading(m_strDisplayName, nTotal, nExpected);
    }
    m_vecRaw.resize(nTotal);
}

void CInputDocument::Detect() {
    m_pContent = m_vecRaw.data();
    m_nContentLength = m_vecRaw.size();
    try {
        COxZip zip;
        if (zip.Decompress(m_vecRaw.data(), static_cast<OxULong>(m_vecRaw.size()), m_inflated)) {
            m_eCompression = m_vecRaw[0] == 0x1F ? CompressionType_GZip : CompressionType_ZLib;
            m_pContent = m_inflated.GetData();
            m_nContentLength = m_inflated.GetLength();
        }
    } catch (const COxException& e) {
        throw CToolError(ExitStatus_BadDocument, m_strDisplayName + ": " + OneLine(e));
    }
    const unsigned char* p = m_pContent;
    const uint64_t n = m_nContentLength;
    // UTF-16 by its byte order mark or by its first character.
    m_bUtf16 = n >= 2 && ((p[0] == 0xFF && p[1] == 0xFE) || (p[0] == 0xFE && p[1] == 0xFF) ||
                          (p[0] == '<' && p[1] == 0) || (p[0] == 0 && p[1] == '<'));
    // Fast Infoset: its four-byte header, or an XML declaration that names it in front.
    if (n >= 4 && p[0] == 0xE0 && p[1] == 0 && p[2] == 0 && p[3] == 1) {
        m_eForm = InputForm_FastInfoset;
        return;
    }
    if (n >= 5 && std::memcmp(p, "<?xml", 5) == 0) {
        const std::string strStart(reinterpret_cast<const char*>(p), static_cast<size_t>(n < 100 ? n : 100));
        const size_t nEnd = strStart.find("?>");
        if (nEnd != std::string::npos && strStart.substr(0, nEnd).find("finf") != std::string::npos) {
            m_eForm = InputForm_FastInfoset;
            return;
        }
    }
    // JSON: the first character that is not blank, behind a byte order mark, opens an object
    // or an array; in UTF-16 every other byte is 0, also without a byte order mark (the JSON
    // the tool writes in UTF-16 has none).
    uint64_t i = 0;
    if (n >= 3 && p[0] == 0xEF && p[1] == 0xBB && p[2] == 0xBF) i = 3;
    if (n >= 2 && ((p[0] == 0xFF && p[1] == 0xFE) || (p[0] == 0xFE && p[1] == 0xFF))) i = 2;
    while (i < n && (IsWhitespace(p[i]) || p[i] == 0)) ++i;
    if (i < n && (p[i] == '{' || p[i] == '[')) {
        m_eForm = InputForm_Json;
        if (n >= 2 && ((p[0] == 0 && p[1] != 0) || (p[0] != 0 && p[1] == 0))) m_bUtf16 = true;
    }
}

void CInputDocument::ConvertJson(const CSerializationContext& ctx) {
    const unsigned char* p = m_pContent;
    size_t n = static_cast<size_t>(m_nContentLength);
    // The library reads JSON in UTF-8: UTF-16 text is converted first, by its byte order mark
    // or, without one, by the side of the zero byte of the first character.
    std::string strUtf8;
    if (m_bUtf16) {
        bool bBigEndian = p[0] == 0;
        if ((p[0] == 0xFF && p[1] == 0xFE) || (p[0] == 0xFE && p[1] == 0xFF)) {
            bBigEndian = p[0] == 0xFE;
            p += 2;
            n -= 2;
        }
        if (n % 2 != 0)
            throw CToolError(ExitStatus_BadDocument, m_strDisplayName + ": UTF-16 text of an odd number of bytes");
        strUtf8.reserve(n / 2);
        for (size_t i = 0; i < n; i += 2) {
            uint32_t nCode = bBigEndian ? (p[i] << 8 | p[i + 1]) : (p[i + 1] << 8 | p[i]);
            if (nCode >= 0xD800 && nCode < 0xDC00 && i + 3 < n) {
                const uint32_t nLow = bBigEndian ? (p[i + 2] << 8 | p[i + 3]) : (p[i + 3] << 8 | p[i + 2]);
                if (nLow >= 0xDC00 && nLow < 0xE000) {
                    nCode = 0x10000 + ((nCode - 0xD800) << 10) + (nLow - 0xDC00);
                    i += 2;
                }
            }
            if (nCode >= 0xD800 && nCode < 0xE000) nCode = 0xFFFD;  // a lone surrogate
            if (nCode < 0x80) {
                strUtf8 += static_cast<char>(nCode);
            } else if (nCode < 0x800) {
                strUtf8 += static_cast<char>(0xC0 | nCode >> 6);
                strUtf8 += static_cast<char>(0x80 | (nCode & 0x3F));
            } else if (nCode < 0x10000) {
                strUtf8 += static_cast<char>(0xE0 | nCode >> 12);
                strUtf8 += static_cast<char>(0x80 | (nCode >> 6 & 0x3F));
                strUtf8 += static_cast<char>(0x80 | (nCode & 0x3F));
            } else {
                strUtf8 += static_cast<char>(0xF0 | nCode >> 18);
                strUtf8 += static_cast<char>(0x80 | (nCode >> 12 & 0x3F));
                strUtf8 += static_cast<char>(0x80 | (nCode >> 6 & 0x3F));
                strUtf8 += static_cast<char>(0x80 | (nCode & 0x3F));
            }
        }
        if (strUtf8.empty()) strUtf8 = " ";  // a byte order mark alone: the reader says what is missing
        p = reinterpret_cast<const unsigned char*>(strUtf8.data());
        n = strUtf8.size();
    }
    try {
        CXmlDocument document(ctx);
        m_converted = document.LoadJsonStream(const_cast<unsigned char*>(p), static_cast<OxULong>(n));
    } catch (const COxException& e) {
        throw CToolError(ExitStatus_BadDocument, m_strDisplayName + ": " + OneLine(e));
    }
    // From here on the document is the XML text the JSON stands for, in UTF-8.
    std::vector<unsigned char>().swap(m_vecRaw);
    m_inflated.Clear();
    m_pContent = m_converted.GetData();
    m_nContentLength = m_converted.GetLength();
    m_bUtf16 = false;
}

void CInputDocument::Parse(const CSerializationContext& ctx) {
    const bool bUtf16 = m_bUtf16;
    if (m_eForm == InputForm_Json) ConvertJson(ctx);
    m_spDocument.reset(new CXmlDocument(ctx));
    try {
        // Already inflated: the document's own check for compression finds nothing to do.
        // Fast Infoset goes the same way: the document recognises it by its first octets.
        m_spDocument->LoadXmlStream(const_cast<unsigned char*>(m_pContent), static_cast<OxULong>(m_nContentLength));
    } catch (const COxException& e) {
        throw CToolError(ExitStatus_BadDocument, m_strDisplayName + ": " + OneLine(e));
    }
    // The parser's table of prefixes can only be asked prefix by prefix: the candidates are
    // the names behind "xmlns:" in the text (in UTF-16 the zero bytes of ASCII are skipped).
    // A candidate that isn't a declaration (in a comment, in text) finds no namespace.
    std::string strProjected;
    const char* pText = reinterpret_cast<const char*>(m_pContent);
    size_t nText = static_cast<size_t>(m_nContentLength);
    if (m_bUtf16) {
        strProjected.reserve(nText / 2);
        for (size_t i = 0; i < nText; ++i) {
            if (pText[i] != 0) strProjected += pText[i];
        }
        pText = strProjected.data();
        nText = strProjected.size();
    }
    const char* const pEnd = pText + nText;
    for (const char* pFound = pText;
         (pFound = static_cast<const char*>(::memmem(pFound, static_cast<size_t>(pEnd - pFound), "xmlns:", 6)));) {
        pFound += 6;
        const char* pName = pFound;
        while (pFound < pEnd && !IsWhitespace(static_cast<unsigned char>(*pFound)) && *pFound != '=') ++pFound;
        if (pFound > pName) m_setPrefixCandidates.insert(std::string(pName, pFound));
    }
    // Fast Infoset carries its declarations as namespace attributes, not as text: the
    // document's own table lists them.
    for (const auto& alias : m_spDocument->GetAliases()) {
        if (!alias.first.empty()) m_setPrefixCandidates.insert(alias.first);
    }
    // The tree holds copies of everything; the bytes can go.
    std::vector<unsigned char>().swap(m_vecRaw);
    m_inflated.Clear();
    m_converted.Clear();
    m_pContent = nullptr;
    m_bUtf16 = bUtf16;  // the encoding of the input, which format keeps
}

CInputDocument::Counts CInputDocument::Count() const {
    Counts counts;
    // Depth first without recursion: each element with its level.
    std::vector<std::pair<const CXmlElement*, uint64_t>> vecStack;
    if (m_spDocument && m_spDocument->GetDocumentElement())
        vecStack.emplace_back(m_spDocument->GetDocumentElement(), 1);
    while (!vecStack.empty()) {
        const CXmlElement* pElement = vecStack.back().first;
        const uint64_t nLevel = vecStack.back().second;
        vecStack.pop_back();
        ++counts.nElements;
        counts.nAttributes += pElement->GetAttributes().size();
        if (nLevel > counts.nDepth) counts.nDepth = nLevel;
        for (const CXmlElement* pChild = pElement->GetFirstElement(); pChild; pChild = pChild->GetNextSiblingElement())
            vecStack.emplace_back(pChild, nLevel + 1);
    }
    return counts;
}

std::string CInputDocument::FindMixedContent() const {
    std::vector<const CXmlElement*> vecStack;
    if (m_spDocument && m_spDocument->GetDocumentElement()) vecStack.push_back(m_spDocument->GetDocumentElement());
    while (!vecStack.empty()) {
        const CXmlElement* pElement = vecStack.back();
        vecStack.pop_back();
        if (pElement->GetFirstElement()) {
            const std::string& strText = pElement->GetText();
            for (char c : strText) {
                if (!IsWhitespace(static_cast<unsigned char>(c))) return pElement->GetXPath();
            }
        }
        for (const CXmlElement* pChild = pElement->GetFirstElement(); pChild; pChild = pChild->GetNextSiblingElement())
            vecStack.push_back(pChild);
    }
    return std::string();
}

void CInputDocument::GetNamespaces(std::vector<std::pair<std::string, std::string>>& vecPrefixes,
                                   std::string& strDefault) const {
    vecPrefixes.clear();
    strDefault.clear();
    std::set<std::string> setUsed;
    bool bUnqualifiedElement = false;
    std::vector<const CXmlElement*> vecStack;
    if (m_spDocument && m_spDocument->GetDocumentElement()) vecStack.push_back(m_spDocument->GetDocumentElement());
    while (!vecStack.empty()) {
        const CXmlElement* pElement = vecStack.back();
        vecStack.pop_back();
        if (!pElement->GetNamespaceURI().empty())
            setUsed.insert(pElement->GetNamespaceURI());
        else
            bUnqualifiedElement = true;
        for (const CXmlAttribute* pAttribute : pElement->GetAttributes()) {
            if (!pAttribute->GetNamespaceURI().empty()) setUsed.insert(pAttribute->GetNamespaceURI());
        }
        for (const CXmlElement* pChild = pElement->GetFirstElement(); pChild; pChild = pChild->GetNextSiblingElement())
            vecStack.push_back(pChild);
    }
    setUsed.erase(kXmlNamespace);  // written as xml: without a declaration
    std::set<std::string> setBound;
    for (const std::string& strNamespace : setUsed) {
        const std::string& strPrefix = m_spDocument->LookupAliasFromNamespace(strNamespace.c_str());
        // A namespace declared under several prefixes takes the first; one whose prefix was
        // declared again for another namespace elsewhere gets a prefix of the writer's.
        if (m_spDocument->LookupNamespaceFromAlias(strPrefix.c_str()) != strNamespace) continue;
        if (strPrefix.empty())
            strDefault = strNamespace;
        else
            vecPrefixes.emplace_back(strPrefix, strNamespace);
        setBound.insert(strNamespace);
    }
    // Prefixes declared for namespaces that no name uses stay declared: values such as the
    // QNames of a schema ("xs:string") refer to them.
    for (const std::string& strPrefix : m_setPrefixCandidates) {
        const std::string& strNamespace = m_spDocument->LookupNamespaceFromAlias(strPrefix.c_str());
        if (strNamespace.empty() || strNamespace == kXmlNamespace || !setBound.insert(strNamespace).second) continue;
        vecPrefixes.emplace_back(strPrefix, strNamespace);
    }
    // The writer has no way to take an element out of a default namespace again (xmlns=""):
    // with an element in no namespace anywhere, the default namespace gets a prefix instead.
    if (bUnqualifiedElement) strDefault.clear();
    if (strDefault.empty()) {
        const std::string& strDeclared = m_spDocument->LookupNamespaceFromAlias("");
        if (!bUnqualifiedElement && !strDeclared.empty() && strDeclared != kXmlNamespace) strDefault = strDeclared;
    }
    // A namespace in use that is left without a prefix gets "ns1", "ns2", ...: JSON needs a
    // prefix for every namespace, and XML reads better with these than with the writer's own.
    std::set<std::string> setPrefixes;
    std::set<std::string> setPrefixed;
    for (const auto& prefix : vecPrefixes) {
        setPrefixes.insert(prefix.first);
        setPrefixed.insert(prefix.second);
    }
    int nNext = 1;
    for (const std::string& strNamespace : setUsed) {
        if (strNamespace == strDefault || setPrefixed.count(strNamespace)) continue;
        std::string strPrefix;
        do {
            strPrefix = "ns" + std::to_string(nNext++);
        } while (setPrefixes.count(strPrefix) || !m_spDocument->LookupNamespaceFromAlias(strPrefix.c_str()).empty());
        setPrefixes.insert(strPrefix);
        vecPrefixes.emplace_back(strPrefix, strNamespace);
    }
}

}  // namespace OrvexTool
