#include "schemaloader.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/Grammar.hpp>

#include "filepaths.h"
#include "localresolver.h"
#include "xercestext.h"

XERCES_CPP_NAMESPACE_USE

namespace OrvexXsd {

namespace {

// Keeps the first error with its place and every warning.
class CCollectingHandler : public ErrorHandler {
public:
    explicit CCollectingHandler(std::vector<CSchemaError>& vecWarnings) : m_vecWarnings(vecWarnings) {}

    void warning(const SAXParseException& e) override { m_vecWarnings.push_back(ToError(e)); }
    void error(const SAXParseException& e) override {
        if (m_vecErrors.empty()) m_vecErrors.push_back(ToError(e));
    }
    void fatalError(const SAXParseException& e) override { error(e); }
    void resetErrors() override {}

    const std::vector<CSchemaError>& GetErrors() const { return m_vecErrors; }

private:
    static CSchemaError ToError(const SAXParseException& e) {
        const std::string strFile = CFilePaths::ToPath(CXercesText::ToUtf8(e.getSystemId()));
        return CSchemaError(CFilePaths::Display(strFile), static_cast<int>(e.getLineNumber()),
                            static_cast<int>(e.getColumnNumber()), CXercesText::ToUtf8(e.getMessage()));
    }

    std::vector<CSchemaError>& m_vecWarnings;
    std::vector<CSchemaError> m_vecErrors;
};

// The place of the import, include or redefine in a document that names a location (or,
// failing that, a namespace).
CSchemaError AtReference(const CSourceIndex& index, const CSchemaLoader::CUnresolved& unresolved) {
    const CSourceIndex::CDocument* pDocument = index.Find(unresolved.m_strBase);
    if (pDocument) {
        for (const CSourceIndex::CNode& node : pDocument->m_vecNodes) {
            const bool bReference = node.m_strKind == "import" || node.m_strKind == "include" ||
                                    node.m_strKind == "redefine" || node.m_strKind == "override";
            if (bReference && node.m_strSchemaLocation == unresolved.m_strLocation)
                return CSchemaError(CFilePaths::Display(unresolved.m_strBase), node.m_nLine, node.m_nColumn,
                                    unresolved.m_strMessage);
        }
    }
    return CSchemaError(CFilePaths::Display(unresolved.m_strBase), 0, 0, unresolved.m_strMessage);
}

}  // namespace

CSchemaLoader::CSchemaLoader(const CCatalog& catalog, const std::vector<std::string>& vecIncludeDirs)
    : m_catalog(catalog), m_vecIncludeDirs(vecIncludeDirs) {}

CSchemaLoader::~CSchemaLoader() {}

void CSchemaLoader::Load(const std::vector<std::string>& vecFiles) {
    m_pPool.reset(new XMLGrammarPoolImpl(XMLPlatformUtils::fgMemoryManager));
    CLocalResolver resolver(m_catalog, m_vecIncludeDirs);
    CCollectingHandler handler(m_vecWarnings);
    std::vector<std::string> vecRoots;
    {
        std::unique_ptr<SAX2XMLReaderImpl> pReader(
            new SAX2XMLReaderImpl(XMLPlatformUtils::fgMemoryManager, m_pPool.get()));
        pReader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
        pReader->setFeature(XMLUni::fgXercesSchema, true);
        pReader->setFeature(XMLUni::fgXercesSchemaFullChecking, true);
        pReader->setFeature(XMLUni::fgXercesHandleMultipleImports, true);
        pReader->setFeature(XMLUni::fgXercesLoadExternalDTD, false);
        pReader->setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
        pReader->setFeature(XMLUni::fgXercesCacheGrammarFromParse, true);
        pReader->setXMLEntityResolver(&resolver);
        pReader->setErrorHandler(&handler);
        for (const std::string& strFile : vecFiles) {
            const std::string strPath = CFilePaths::Resolve("", strFile);
            if (!CFilePaths::IsFile(strPath)) throw CSchemaError(strFile, 0, 0, "schema file not found");
            vecRoots.push_back(strPath);
            CXercesText path(strPath);
            try {
                pReader->loadGrammar(path.Get(), Grammar::SchemaGrammarType, true);
            } catch (const XMLException& e) {
                throw CSchemaError(strFile, 0, 0, CXercesText::ToUtf8(e.getMessage()));
            } catch (const SAXParseException& e) {
                handler.error(e);
            } catch (const DOMException& e) {
                // Xerces reads a schema through its DOM parser, which refuses some prologs
                // (an XML declaration of a version it doesn't know) with an exception of its own.
                throw CSchemaError(strFile, 0, 0, "the document can't be read: " + CXercesText::ToUtf8(e.getMessage()));
            }
            if (!handler.GetErrors().empty() || !resolver.GetUnresolved().empty()) break;
        }
    }
    // Documents in the order they entered the set: each root, then what it drew in.
    for (const std::string& strRoot : vecRoots) m_index.Add(strRoot);
    for (const std::string& strDocument : resolver.GetDocuments()) m_index.Add(strDocument);
    // A reference that has no local file comes first: the errors Xerces reports after it
    // (unknown types of the missing namespace) are its consequences.
    if (!resolver.GetUnresolved().empty()) throw AtReference(m_index, resolver.GetUnresolved().front());
    if (!handler.GetErrors().empty()) throw handler.GetErrors().front();
    bool bChanged = false;
    m_pModel = m_pPool->getXSModel(bChanged);
    if (!m_pModel) throw CSchemaError("", 0, 0, "no schema model could be built");
}

}  // namespace OrvexXsd
