#include "orvexxml/binding/xmlobjectbase.h"

#include <atomic>
#include <cstdio>
#include <cstring>

#include "orvexxml/binding/element.h"
#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/fastinfoset/fastinfosetwriter.h"
#include "orvexxml/infrastructure/binarystream.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/filebinarystream.h"
#include "orvexxml/infrastructure/filetextstream.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/oxzip.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/writers/jsontextwriter.h"
#include "orvexxml/writers/xmltextwriter.h"
#include "orvexxml/xml/xmldocument.h"
#include "orvexxml/xml/xmlelement.h"

namespace OrvexXml {

namespace {
// The generator version announced by generated code; 0.0 until Register is called.
int g_nGeneratorMajor = 0;
int g_nGeneratorMinor = 0;
// The first object built checks the version once. The first objects may be made on several
// threads at once, so the flag is atomic: exactly one of them checks.
std::atomic<bool> g_bFirstObjectChecked(false);

bool VersionMatches() {
    return g_nGeneratorMajor == ORVEXXML_VERSION_MAJOR && g_nGeneratorMinor == ORVEXXML_VERSION_MINOR;
}

// The user-visible channel of a version mismatch.
void ShowVersionMismatch() {
    std::string text = FormatString(
        "Please ensure your generated code is the same version as this library (Orvex Runtime: v%d.%d, Generator: "
        "v%d.%d).",
        ORVEXXML_VERSION_MAJOR, ORVEXXML_VERSION_MINOR, g_nGeneratorMajor, g_nGeneratorMinor);
    std::fprintf(stderr, "Version Mismatch Error: %s\n", text.c_str());
}
}  // namespace

void Register(int nMajor, int nMinor) {
    g_nGeneratorMajor = nMajor;
    g_nGeneratorMinor = nMinor;
}

void CXmlObjectBase::CheckVersion() {
    if (VersionMatches()) return;
    ShowVersionMismatch();
    throw COxException(FormatString("Wrong Version (Orvex Runtime: v%d.%d, Generator: v%d.%d)", ORVEXXML_VERSION_MAJOR,
                                    ORVEXXML_VERSION_MINOR, g_nGeneratorMajor, g_nGeneratorMinor));
}

namespace {

// Objects whose deletion waits for the one running on this thread (see Free), chained through
// their m_pNextToFree; and whether such a deletion runs. Both are trivially destructible, so
// objects freed while the thread or the process ends still find them.
thread_local CXmlObjectBase* t_pToFree = nullptr;
thread_local bool t_bFreeing = false;

}  // namespace

void CXmlObjectBase::Free(CXmlObjectBase* pObject) {
    if (t_bFreeing) {
        pObject->m_pNextToFree = t_pToFree;
        t_pToFree = pObject;
        return;
    }
    t_bFreeing = true;
    delete pObject;
    while (CXmlObjectBase* pNext = t_pToFree) {
        t_pToFree = pNext->m_pNextToFree;
        delete pNext;  // may queue more
    }
    t_bFreeing = false;
}

CXmlObjectBase::CXmlObjectBase() : m_lRefCount(0), m_pNextToFree(nullptr) {
    if (!g_bFirstObjectChecked.load(std::memory_order_relaxed) &&
        !g_bFirstObjectChecked.exchange(true, std::memory_order_relaxed) && !VersionMatches())
        ShowVersionMismatch();
}

CXmlObjectBase::CXmlObjectBase(const CXmlObjectBase& other)
    : IEventSink(other), m_strElementName(other.m_strElementName), m_lRefCount(0), m_pNextToFree(nullptr) {}

CXmlObjectBase& CXmlObjectBase::operator=(const CXmlObjectBase& other) {
    m_strElementName = other.m_strElementName;
    return *this;
}

CXmlObjectBase::~CXmlObjectBase() {}

void CXmlObjectBase::OnEvent(CXmlObjectBase*, IEventSink::MsgType, void*) {}

void CXmlObjectBase::WriteDocument(CXmlTextWriter& writer, bool bHeader, bool bFormatted, EOLType eEOL,
                                   const CSerializationContext& ctx) const {
    writer.StartDocument();
    writer.SetFormatted(bFormatted);
    writer.SetIndentChars(ctx.GetIndentChars().c_str());
    writer.SetEOLType(eEOL);
    writer.SetWriteDefaultValues(ctx.GetWriteDefaultElementValues());
    writer.SetCheckCharacters(ctx.GetCheckCharacters());
    writer.SetMaxDepth(ctx.GetMaxDepth());
    if (bHeader) writer.WriteHeader();
    std::string strNamespace = GetTargetNamespace();
    ToXml_Int(&writer, true, strNamespace.c_str(), ctx, false);
    writer.EndDocument();
}

// The length of the last text ToXml returned, the guess for the room of the next one: a
// program tends to write documents of one kind. A wrong guess costs a growth step, or, when
// far too large, one copy of the text into a string of its size.
static std::atomic<size_t> g_nLastToXmlLength(0);
// The same for ToJson.
static std::atomic<size_t> g_nLastToJsonLength(0);

// The room reserved for the next text: the last length and an eighth more, so that a
// document that grows a little from call to call doesn't pay a growth step (a copy of all
// its text) every time. Room that is never written costs address space, not memory.
static size_t GuessRoom(const std::atomic<size_t>& nLastLength) {
    const size_t nLast = nLastLength.load(std::memory_order_relaxed);
    return nLast + nLast / 8;
}

std::string CXmlObjectBase::ToXml(bool bHeader, bool bFormatted, EOLType eEOL, const CSerializationContext& ctx) const {
    CheckVersion();
    CTextStream stream(XmlEncoding_None);
    // The text is built in the string that is returned, so it is never copied as a whole.
    stream.KeepContiguous(GuessRoom(g_nLastToXmlLength));
    CXmlTextWriter writer(&stream);
    WriteDocument(writer, bHeader, bFormatted, eEOL, ctx);
    std::string strText = stream.TakeText();
    g_nLastToXmlLength.store(strText.size(), std::memory_order_relaxed);
    return strText;
}

// Stream output is compressed as a whole once it is complete, in place.
static void Compress(CBinaryData& data, CompressionType eCompression) {
    if (eCompression == CompressionType_None) return;
    COxZip zip;
    zip.Compress(data, eCompression);
}

CBinaryData CXmlObjectBase::ToXmlStream(bool bHeader, bool bFormatted, XmlEncoding eEncoding, EOLType eEOL,
                                        const CSerializationContext& ctx, CompressionType eCompression) const {
    CheckVersion();
    CTextStream stream(eEncoding);
    CXmlTextWriter writer(&stream);
    WriteDocument(writer, bHeader, bFormatted, eEOL, ctx);
    CBinaryData data = stream.GetEncodedData();
    Compress(data, eCompression);
    return data;
}

void CXmlObjectBase::ToXmlFile(const char* pszFileName, bool bHeader, bool bFormatted, XmlEncoding eEncoding,
                               EOLType eEOL, const CSerializationContext& ctx, CompressionType eCompression) const {
    if (eCompression == CompressionType_ZLib) {
        throw COxException("ZLIB Compression only available for To Stream methods.");
    }
    if (GetAsyncToXmlFile() && eCompression == CompressionType_None) {
        CheckVersion();
        CFileTextStream stream(pszFileName, eEncoding);
        CXmlTextWriter writer(&stream);
        WriteDocument(writer, bHeader, bFormatted, eEOL, ctx);
        return;
    }
    CFileBinaryStream file(pszFileName, eEncoding,
                           ToXmlStream(bHeader, bFormatted, eEncoding, eEOL, ctx, eCompression));
    file.WriteToFile();
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl eDecl, const CSerializationContext& ctx,
                                                CompressionType eCompression) const {
    CheckVersion();
    CBinaryStream stream;
    CFastInfosetWriter writer(&ctx.GetFIContext(), &stream);
    writer.StartDocument();
    writer.WriteHeader(eDecl);
    std::string strNamespace = GetTargetNamespace();
    ToXml_Int(&writer, true, strNamespace.c_str(), ctx, false);
    writer.WriteFooter();
    writer.EndDocument();
    CBinaryData data = stream.GetData();
    Compress(data, eCompression);
    return data;
}

void CXmlObjectBase::ToFastInfosetFile(const char* pszFileName, FInfoDecl eDecl, const CSerializationContext& ctx,
                                       CompressionType eCompression) const {
    if (eCompression == CompressionType_ZLib) {
        throw COxException("ZLIB Compression only available for To Stream methods.");
    }
    // Binary output: the file gets the octets as they are, whatever the text settings say.
    CFileBinaryStream file(pszFileName, XmlEncoding_None, ToFastInfosetStream(eDecl, ctx, eCompression));
    file.WriteToFile();
}

void CXmlObjectBase::WriteJsonDocument(CJsonTextWriter& writer, bool bFormatted, EOLType eEOL,
                                       const CSerializationContext& ctx) const {
    writer.StartDocument();
    writer.SetFormatted(bFormatted);
    writer.SetIndentChars(ctx.GetIndentChars().c_str());
    writer.SetEOLType(eEOL);
    writer.SetSupportRoundtrip(ctx.GetJsonContext().GetSupportRoundtrip());
    writer.WriteHeader();
    std::string strNamespace = GetTargetNamespace();
    ToXml_Int(&writer, true, strNamespace.c_str(), ctx, false);
    writer.WriteFooter();
    writer.EndDocument();
}

std::string CXmlObjectBase::ToJson(bool bFormatted, EOLType eEOL, const CSerializationContext& ctx) const {
    CheckVersion();
    CTextStream stream(XmlEncoding_None);
    stream.KeepContiguous(GuessRoom(g_nLastToJsonLength));
    CJsonTextWriter writer(&stream);
    WriteJsonDocument(writer, bFormatted, eEOL, ctx);
    std::string strText = stream.TakeText();
    g_nLastToJsonLength.store(strText.size(), std::memory_order_relaxed);
    return strText;
}

CBinaryData CXmlObjectBase::ToJsonStream(bool bFormatted, XmlEncoding eEncoding, EOLType eEOL,
                                         const CSerializationContext& ctx, CompressionType eCompression) const {
    CheckVersion();
    CTextStream stream(eEncoding);
    CJsonTextWriter writer(&stream);
    WriteJsonDocument(writer, bFormatted, eEOL, ctx);
    CBinaryData data = stream.GetEncodedData();
    Compress(data, eCompression);
    return data;
}

void CXmlObjectBase::ToJsonFile(const char* pszFileName, bool bFormatted, XmlEncoding eEncoding, EOLType eEOL,
                                const CSerializationContext& ctx, CompressionType eCompression) const {
    if (eCompression == CompressionType_ZLib) {
        throw COxException("ZLIB Compression only available for To Stream methods.");
    }
    if (GetAsyncToXmlFile() && eCompression == CompressionType_None) {
        CheckVersion();
        CFileTextStream stream(pszFileName, eEncoding);
        CJsonTextWriter writer(&stream);
        WriteJsonDocument(writer, bFormatted, eEOL, ctx);
        return;
    }
    // The file gets the encoded text alone: UTF-8 for the stream means no byte order mark.
    CFileBinaryStream file(pszFileName, XmlEncoding_UTF8, ToJsonStream(bFormatted, eEncoding, eEOL, ctx, eCompression));
    file.WriteToFile();
}

void CXmlObjectBase::ReadDocument(CXmlDocument& doc, const CSerializationContext& ctx) {
    CXmlElement* pRoot = doc.GetDocumentElement();
    if (!pRoot) throw COxException("Invalid or empty XML document");
    FromXml_Int(pRoot, pRoot->GetFirstElement(), ctx, false);
}

void CXmlObjectBase::FromXml(const wchar_t* pszXml, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.LoadXml(pszXml);
    ReadDocument(doc, ctx);
}

void CXmlObjectBase::FromXml(const char* pszXml, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.LoadXml(pszXml);
    ReadDocument(doc, ctx);
}

void CXmlObjectBase::FromXmlFile(const char* pszFileName, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.Load(pszFileName);
    ReadDocument(doc, ctx);
}

void CXmlObjectBase::FromXmlStream(const CBinaryData& data, const CSerializationContext& ctx) {
    // The bytes are only read; the loader's signature is shared with callers that hand over
    // a writable buffer.
    FromXmlStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
}

void CXmlObjectBase::FromXmlStream(unsigned char* const pData, OxULong nLength, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    doc.LoadXmlStream(pData, nLength);
    ReadDocument(doc, ctx);
}

void CXmlObjectBase::FromJson_Int(const CBinaryData& data, const CSerializationContext& ctx) {
    // JSON outside JsonRoundTrip_Full carries no namespaces, so the names are matched without
    // them for the length of this call. The context comes as const: this is the one place
    // that changes it, and the stored flag (not GetIgnoreNamespaces(), which a DTD schema
    // type also makes true) comes back however the call ends.
    struct CScope {
        CScope(const CSerializationContext& context, bool bIgnore)
            : m_ctx(const_cast<CSerializationContext&>(context)),
              m_bSaved(context.m_bIgnoreNamespaces),
              m_bChanged(bIgnore) {
            if (m_bChanged) m_ctx.SetIgnoreNamespaces(true);
        }
        ~CScope() {
            if (m_bChanged) m_ctx.SetIgnoreNamespaces(m_bSaved);
        }
        CSerializationContext& m_ctx;
        bool m_bSaved;
        bool m_bChanged;
    } scope(ctx, ctx.GetJsonContext().GetSupportRoundtrip() != JsonRoundTrip_Full);
    try {
        FromXmlStream(data, ctx);
    } catch (const COxException& e) {
        std::string strXml(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
        throw COxException(FormatString("Error converting JSON to XML:\n%s", strXml.c_str()), e);
    }
}

void CXmlObjectBase::FromJson(const wchar_t* pszJson, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    CBinaryData data = doc.LoadJson(pszJson);
    FromJson_Int(data, ctx);
}

void CXmlObjectBase::FromJson(const char* pszJson, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    CBinaryData data = doc.LoadJson(pszJson);
    FromJson_Int(data, ctx);
}

void CXmlObjectBase::FromJsonFile(const char* pszFileName, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    CBinaryData data = doc.LoadJsonFile(pszFileName);
    FromJson_Int(data, ctx);
}

void CXmlObjectBase::FromJsonStream(const CBinaryData& data, const CSerializationContext& ctx) {
    FromJsonStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
}

void CXmlObjectBase::FromJsonStream(unsigned char* const pData, OxULong nLength, const CSerializationContext& ctx) {
    CheckVersion();
    CXmlDocument doc(ctx);
    CBinaryData xml = doc.LoadJsonStream(pData, nLength);
    FromJson_Int(xml, ctx);
}

void CXmlObjectBase::FromXmlElement(const CElement* pElement, const CSerializationContext& ctx) {
    CheckVersion();
    if (!pElement) throw COxInvalidParamException("The element to read from must not be null");
    std::string strXml = pElement->ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
    FromXml(strXml.c_str(), ctx);
}

void CXmlObjectBase::FromXmlElement(const CXmlElement* pElement, const CSerializationContext& ctx) {
    CheckVersion();
    // The walk does not change the tree; its signature is shared with the builders.
    CXmlElement* p = const_cast<CXmlElement*>(pElement);
    FromXml_Int(p, p->GetFirstElement(), ctx, false);
}

bool CXmlObjectBase::DoesElementNameMatch(const CSerializationContext& ctx, const CXmlElement* pElement,
                                          const char* pszName, const char* pszNamespace) const {
    // Called for every element read against every candidate member: one pass of strcmp each,
    // where comparing a std::string with a char pointer would measure the pointer first.
    if (std::strcmp(pElement->GetLocalName().c_str(), pszName ? pszName : "") != 0) return false;
    if (ctx.GetSchemaType() == SchemaType_DTD || ctx.GetIgnoreNamespaces()) return true;
    return std::strcmp(pElement->GetNamespaceURI().c_str(), pszNamespace ? pszNamespace : "") == 0;
}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, const CSerializationContext&) const {}

bool IsNamespaceValid(const std::string& strNamespace, const std::string& strRestriction,
                      const std::string& strTargetNamespace) {
    size_t nStart = 0;
    for (;;) {
        size_t nEnd = strRestriction.find(' ', nStart);
        size_t nLen = (nEnd == std::string::npos ? strRestriction.size() : nEnd) - nStart;
        const char* pToken = strRestriction.data() + nStart;
        auto is = [&](const char* pszWord) { return strRestriction.compare(nStart, nLen, pszWord) == 0; };
        bool bPass;
        if (is("##any"))
            bPass = true;
        else if (is("##other"))
            bPass = strNamespace != strTargetNamespace;
        else if (is("##local"))
            bPass = strNamespace.empty();
        else if (is("##targetNamespace"))
            bPass = strNamespace == strTargetNamespace;
        else  // a literal URI; an unqualified name passes it too
            bPass = strNamespace.empty() || strNamespace.compare(0, std::string::npos, pToken, nLen) == 0;
        if (bPass) return true;
        if (nEnd == std::string::npos) return false;
        nStart = nEnd + 1;
    }
}

void TestNamespace(const std::string& strNamespace, const std::string& strRestriction,
                   const std::string& strTargetNamespace) {
    if (!IsNamespaceValid(strNamespace, strRestriction, strTargetNamespace)) {
        throw COxInvalidNamespaceException(
            FormatString(
                "Invalid namespace [%s]. The namespace must be one of [%s] where the target namespace is [%s].",
                strNamespace.c_str(), strRestriction.c_str(), strTargetNamespace.c_str()),
            std::string());
    }
}

static inline std::string Str(const char* psz) { return psz ? std::string(psz) : std::string(); }

void CXmlObjectBase::TestNamespace(const char* pszNamespace, const char* pszRestriction,
                                   const char* pszTargetNamespace) const {
    OrvexXml::TestNamespace(Str(pszNamespace), Str(pszRestriction), Str(pszTargetNamespace));
}

bool CXmlObjectBase::IsNamespaceValid(const char* pszNamespace, const char* pszRestriction,
                                      const char* pszTargetNamespace) const {
    return OrvexXml::IsNamespaceValid(Str(pszNamespace), Str(pszRestriction), Str(pszTargetNamespace));
}

void CXmlObjectBase::Choice_SelectElement(const char* pszName, CXmlObjectBase* pValue, std::string& selected) {
    if (selected == pszName) {
        if (!pValue) selected.clear();
        return;
    }
    if (selected.empty()) {
        selected = pszName;  // also for a null value: clearing a member of an empty choice selects it
        return;
    }
    if (pValue) {
        throw COxInvalidStateException(
            FormatString("The Property [%s] is already set. Only one element within this class bay be set at a time",
                         selected.c_str()));
    }
}

void CXmlObjectBase::Choice_SetElementValid(bool bValid, const char* pszName, std::string& selected) {
    if (!bValid) {
        selected.clear();
        return;
    }
    if (!selected.empty() && selected != pszName) {
        throw COxInvalidStateException(
            FormatString("The Property %s is already set. Only one element within this class bay be set at a time",
                         selected.c_str()));
    }
    selected = pszName;
}

void CXmlObjectBase::Choice_CollectionChanged(const char* pszName, OxLong nCount, std::string& selected) {
    if (selected == pszName) {
        if (nCount == 0) selected.clear();
        return;
    }
    if (selected.empty()) {
        if (nCount > 0) selected = pszName;
        return;
    }
    if (nCount != 0) {
        throw COxInvalidStateException(
            FormatString("The Property [%s] is already set. Only one element within this class bay be set at a time",
                         selected.c_str()));
    }
}

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* pListener, CXmlCollectionBase* pCollection) {
    pListener->OnEvent(pCollection->GetBase(), MsgType_CollectionChange, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* pListener, CXmlCollectionBase* pCollection, void* pItem) {
    pListener->OnEvent(pCollection->GetBase(), MsgType_CollectionAdd, pItem);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* pListener, CXmlCollectionBase* pCollection,
                                                      void* pItem) {
    pListener->OnEvent(pCollection->GetBase(), MsgType_CollectionAddComplete, pItem);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* pListener, CXmlCollectionBase* pCollection, int nIndex) {
    // The listener gets the address of this copy; -1 stands for "no index" and gives null.
    int32_t nLocal = nIndex;
    pListener->OnEvent(pCollection->GetBase(), MsgType_CollectionRemove, nIndex == -1 ? nullptr : &nLocal);
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* pListener, CXmlCollectionBase* pCollection,
                                                         int nIndex) {
    int32_t nLocal = nIndex;
    pListener->OnEvent(pCollection->GetBase(), MsgType_CollectionRemoveComplete, nIndex == -1 ? nullptr : &nLocal);
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* pCollection, CXmlElement* pParent,
                                            CXmlElement*& pCurrent, OxLong& nCount, const CSerializationContext& ctx) {
    if (nCount > 0) return;  // this member has had its turn
    CXmlElement* pNext = FromXml_Int(pCollection->GetBase(), pParent, pCurrent, ctx);
    if (pNext == pCurrent) return;  // nothing consumed
    pCurrent = pNext;
    pCollection->ValidateCount(ctx);
    ++nCount;
}

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* pValue, const char* pszName) {
    if (!pValue) {
        throw COxInvalidParamException(
            FormatString("The Property [%s] is mandatory, it may node be NULL", pszName ? pszName : ""));
    }
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* pValue, const char* pszName) {
    if (!pValue) return;
    const std::string& strActual = pValue->GetBase()->GetElementName();
    if (strActual != Str(pszName)) {
        throw COxInvalidParamException(FormatString(
            "This property requires an element with the name %s the element being set has the element name %s",
            pszName ? pszName : "", strActual.c_str()));
    }
}

}  // namespace OrvexXml
