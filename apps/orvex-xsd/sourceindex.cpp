#include "sourceindex.h"

#include <memory>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

namespace {

const char kSchemaNamespace[] = "http://www.w3.org/2001/XMLSchema";

class CIndexHandler : public DefaultHandler {
public:
    explicit CIndexHandler(CSourceIndex::CDocument& document) : m_document(document) {}

    void setDocumentLocator(const Locator* const pLocator) override { m_pLocator = pLocator; }

    void startElement(const XMLCh* const uri, const XMLCh* const localname, const XMLCh* const,
                      const Attributes& attrs) override {
        ++m_nDepth;
        if (CXercesText::ToUtf8(uri) != kSchemaNamespace) return;
        auto Attr = [&](const char* pszName) {
            CXercesText name(pszName);
            return CXercesText::ToUtf8(attrs.getValue(name.Get()));
        };
        CSourceIndex::CNode node;
        node.m_strKind = CXercesText::ToUtf8(localname);
        node.m_strName = Attr("name");
        node.m_strRef = Attr("ref");
        node.m_strSchemaLocation = Attr("schemaLocation");
        node.m_strNamespace = Attr("namespace");
        node.m_nLine = m_pLocator ? static_cast<int>(m_pLocator->getLineNumber()) : 0;
        node.m_nColumn = m_pLocator ? static_cast<int>(m_pLocator->getColumnNumber()) : 0;
        node.m_nDepth = m_nDepth;
        if (m_nDepth == 1 && node.m_strKind == "schema") m_document.m_strTargetNamespace = Attr("targetNamespace");
        // The components of a redefine stand one level lower than the others.
        const bool bTopLevel =
            (m_nDepth == 2 && node.m_strKind != "redefine") || (m_nDepth == 3 && m_strParentKind == "redefine");
        if (bTopLevel) m_nTopLevel = static_cast<int>(m_document.m_vecNodes.size());
        if (m_nDepth == 2) {
            m_strParentKind = node.m_strKind;
            if (!bTopLevel) m_nTopLevel = -1;
        }
        node.m_nTopLevel = m_nDepth >= 2 ? m_nTopLevel : -1;
        m_document.m_vecNodes.push_back(node);
    }

    void endElement(const XMLCh* const, const XMLCh* const, const XMLCh* const) override { --m_nDepth; }

    void fatalError(const SAXParseException&) override { m_bFailed = true; }

    bool Failed() const { return m_bFailed; }

private:
    CSourceIndex::CDocument& m_document;
    const Locator* m_pLocator = nullptr;
    int m_nDepth = 0;
    int m_nTopLevel = -1;
    std::string m_strParentKind;
    bool m_bFailed = false;
};

}  // namespace

void CSourceIndex::Add(const std::string& strPath) {
    if (Find(strPath)) return;
    CDocument document;
    document.m_strPath = strPath;
    bool bFailed = false;
    try {
        std::unique_ptr<SAX2XMLReader> pReader(XMLReaderFactory::createXMLReader());
        pReader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
        pReader->setFeature(XMLUni::fgXercesLoadExternalDTD, false);
        pReader->setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
        CIndexHandler handler(document);
        pReader->setContentHandler(&handler);
        pReader->setErrorHandler(&handler);
        CXercesText path(strPath);
        pReader->parse(path.Get());
        bFailed = handler.Failed();
    } catch (const XMLException&) {
        bFailed = true;
    }
    if (!bFailed) m_vecDocuments.push_back(document);
}

const CSourceIndex::CDocument* CSourceIndex::Find(const std::string& strPath) const {
    for (const CDocument& document : m_vecDocuments) {
        if (document.m_strPath == strPath) return &document;
    }
    return nullptr;
}

bool CSourceIndex::FindTopLevel(const std::string& strKind, const std::string& strNamespace, const std::string& strName,
                                size_t& nDocument, size_t& nNode) const {
    // A document without a target namespace may be included into any (a chameleon
    // include), so its components match any namespace after the exact matches.
    for (int nPass = 0; nPass < 2; ++nPass) {
        for (size_t d = 0; d < m_vecDocuments.size(); ++d) {
            const CDocument& document = m_vecDocuments[d];
            const bool bMatch =
                nPass == 0 ? document.m_strTargetNamespace == strNamespace : document.m_strTargetNamespace.empty();
            if (!bMatch) continue;
            for (size_t n = 0; n < document.m_vecNodes.size(); ++n) {
                const CNode& node = document.m_vecNodes[n];
                if (node.m_nTopLevel == static_cast<int>(n) && node.m_strKind == strKind && node.m_strName == strName) {
                    nDocument = d;
                    nNode = n;
                    return true;
                }
            }
        }
    }
    return false;
}

long long CSourceIndex::OrderOf(const std::string& strKind, const std::string& strNamespace,
                                const std::string& strName) const {
    size_t nDocument = 0, nNode = 0;
    if (!FindTopLevel(strKind, strNamespace, strName, nDocument, nNode)) return 1LL << 62;
    return static_cast<long long>(nDocument) * 1000000000LL + static_cast<long long>(nNode);
}

}  // namespace OrvexXsd
