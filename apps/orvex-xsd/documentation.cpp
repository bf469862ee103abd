#include "documentation.h"

#include <vector>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/XMLString.hpp>

#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

namespace {

const char kSchemaNamespace[] = "http://www.w3.org/2001/XMLSchema";

// The lines of a text, each trimmed, without empty lines at either end and with one empty
// line for each run of them.
std::vector<std::string> Lines(const std::string& strText) {
    std::vector<std::string> vecLines;
    size_t nStart = 0;
    while (nStart <= strText.size()) {
        size_t nEnd = strText.find('\n', nStart);
        if (nEnd == std::string::npos) nEnd = strText.size();
        std::string strLine = strText.substr(nStart, nEnd - nStart);
        const size_t nFirst = strLine.find_first_not_of(" \t\r");
        strLine = nFirst == std::string::npos ? std::string()
                                              : strLine.substr(nFirst, strLine.find_last_not_of(" \t\r") - nFirst + 1);
        if (!strLine.empty() || (!vecLines.empty() && !vecLines.back().empty())) vecLines.push_back(strLine);
        nStart = nEnd + 1;
    }
    while (!vecLines.empty() && vecLines.back().empty()) vecLines.pop_back();
    return vecLines;
}

// The documentation texts of one xs:annotation, read from the serialised form the schema
// model keeps.
std::string TextOf(XSAnnotation* pAnnotation) {
    const XMLCh* pszAnnotation = pAnnotation->getAnnotationString();
    if (!pszAnnotation || !*pszAnnotation) return std::string();
    const std::string strXml = CXercesText::ToUtf8(pszAnnotation);
    XercesDOMParser parser;
    parser.setDoNamespaces(true);
    parser.setLoadExternalDTD(false);
    MemBufInputSource source(reinterpret_cast<const XMLByte*>(strXml.data()), strXml.size(), "annotation");
    try {
        parser.parse(source);
    } catch (...) {
        return std::string();
    }
    DOMDocument* pDocument = parser.getDocument();
    if (!pDocument || !pDocument->getDocumentElement() || parser.getErrorCount() > 0) return std::string();
    const CXercesText ns(kSchemaNamespace), name("documentation");
    std::string strText;
    for (DOMNode* pChild = pDocument->getDocumentElement()->getFirstChild(); pChild;
         pChild = pChild->getNextSibling()) {
        if (pChild->getNodeType() != DOMNode::ELEMENT_NODE || !XMLString::equals(pChild->getNamespaceURI(), ns.Get()) ||
            !XMLString::equals(pChild->getLocalName(), name.Get()))
            continue;
        std::string strPart;
        for (const std::string& strLine : Lines(CXercesText::ToUtf8(pChild->getTextContent())))
            strPart += strLine + "\n";
        strText = CDocumentation::Join(strText, strPart);
    }
    return strText;
}

}  // namespace

std::string CDocumentation::Of(XSAnnotation* pAnnotation) {
    std::string strText;
    for (XSAnnotation* p = pAnnotation; p; p = p->getNext()) strText = Join(strText, TextOf(p));
    return strText;
}

std::string CDocumentation::Of(XSAnnotationList* pAnnotations) {
    std::string strText;
    for (XMLSize_t i = 0; pAnnotations && i < pAnnotations->size(); ++i)
        strText = Join(strText, Of(pAnnotations->elementAt(i)));
    return strText;
}

std::string CDocumentation::Join(const std::string& strFirst, const std::string& strSecond) {
    if (strFirst.empty()) return strSecond;
    if (strSecond.empty()) return strFirst;
    return strFirst + "\n" + strSecond;
}

std::string CDocumentation::AsComment(const std::string& strText, const std::string& strIndent) {
    std::string strComment;
    for (const std::string& strLine : Lines(strText)) {
        if (strLine.empty()) {
            strComment += strIndent + "//\n";
            continue;
        }
        // A backslash at the end of a line comment would continue it onto the next line.
        strComment += strIndent + "// " + strLine + (strLine.back() == '\\' ? "." : "") + "\n";
    }
    return strComment;
}

}  // namespace OrvexXsd
