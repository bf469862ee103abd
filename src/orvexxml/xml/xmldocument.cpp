#include "orvexxml/xml/xmldocument.h"

#include <aio.h>
#include <errno.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <utility>

#include "orvexxml/fastinfoset/fastinfosetreader.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/oxzip.h"
#include "orvexxml/json/jsontextreader.h"
#include "orvexxml/xml/expatreader.h"
#include "orvexxml/xml/xmlnodestore.h"

namespace OrvexXml {

namespace {

// Size of each of the two buffers of an overlapped load, and of each read.
const OxULong kChunkSize = 0x20000;
// Input buffers from this size on are mapped on their own (see NewInputBuffer).
const size_t kMappedInputSize = 0x100000;

std::atomic<bool> g_bAsyncFromXmlFile(false);

const std::string& EmptyString() {
    static const std::string s_strEmpty;
    return s_strEmpty;
}

inline const char* NotNull(const char* psz) { return psz ? psz : ""; }

}  // namespace

void AsyncFromXmlFile(bool bAsync) { g_bAsyncFromXmlFile.store(bAsync, std::memory_order_relaxed); }

bool GetAsyncFromXmlFile() { return g_bAsyncFromXmlFile.load(std::memory_order_relaxed); }

// The caller's bytes serve as the document's buffer for the length of one load. The
// input is only read, and only during the call, so parsing it in place gives the same
// result as parsing a copy, without copying a large input into fresh memory first. A step
// that replaces the buffer (decompression) gives the document a buffer of its own.
class CXmlDocument::CBorrowedBuffer {
public:
    CBorrowedBuffer(CXmlDocument& doc, const unsigned char* pData, OxULong nLength) : m_doc(doc) {
        m_doc.m_pBuffer = const_cast<unsigned char*>(pData);
        m_doc.m_bOwnsBuffer = false;
        m_doc.m_nBufferLength = nLength;
    }
    ~CBorrowedBuffer() {
        if (!m_doc.m_bOwnsBuffer) {
            m_doc.m_pBuffer = nullptr;
            m_doc.m_bOwnsBuffer = true;
            m_doc.m_nBufferLength = 0;
        }
    }

private:
    CXmlDocument& m_doc;
};

// The one read of an overlapped load that may be in flight.
struct CXmlDocument::COverlappedRead {
    COverlappedRead() : bInFlight(false) { std::memset(&request, 0, sizeof(request)); }
    struct aiocb request;
    bool bInFlight;
};

// --- construction ------------------------------------------------------------------

CXmlDocument::CXmlDocument()
    : CInstanceMonitor("CXmlDocument"),
      m_pNodeStore(nullptr),
      m_pfnElementCallback(nullptr),
      m_pContext(&CSerializationContext::GetDefaultContext()) {
    Init();
}

CXmlDocument::CXmlDocument(const CSerializationContext& context)
    : CInstanceMonitor("CXmlDocument"), m_pNodeStore(nullptr), m_pfnElementCallback(nullptr), m_pContext(&context) {
    Init();
}

CXmlDocument::CXmlDocument(XmlElementCallback pfnElementCallback)
    : CInstanceMonitor("CXmlDocument"),
      m_pNodeStore(nullptr),
      m_pfnElementCallback(pfnElementCallback),
      m_pContext(&CSerializationContext::GetDefaultContext()) {
    Init();
}

CXmlDocument::CXmlDocument(XmlElementCallback pfnElementCallback, const CSerializationContext& context)
    : CInstanceMonitor("CXmlDocument"),
      m_pNodeStore(nullptr),
      m_pfnElementCallback(pfnElementCallback),
      m_pContext(&context) {
    Init();
}

void CXmlDocument::Init() {
    if (!m_pNodeStore) m_pNodeStore = new CXmlNodeStore;
    m_pOverlapped = nullptr;
    m_nFilePosition = 0;
    m_hFile = -1;
    m_pDocumentElement = nullptr;
    m_pBuffer = nullptr;
    m_bOwnsBuffer = true;
    m_nMappedBuffer = 0;
    m_nBufferLength = 0;
    m_eSchemaType = m_pContext->GetSchemaType();
}

CXmlDocument::~CXmlDocument() {
    CXmlDocument::Cleanup();
    CloseFile();
    delete m_pNodeStore;
}

void CXmlDocument::Cleanup() {
    // A read in flight targets one of our buffers: it must finish before any buffer goes.
    CancelChunk();
    CXmlElement::Destroy(m_pNodeStore, m_pDocumentElement);  // iterative over the whole tree
    m_pDocumentElement = nullptr;
    m_pNodeStore->Release();  // no node lives any more
    FreeBuffer();
    m_pElementStack.clear();
    m_mapAliases.clear();
}

unsigned char* CXmlDocument::NewInputBuffer(size_t nSize) {
    FreeBuffer();
    if (nSize >= kMappedInputSize) {
        void* p = ::mmap(nullptr, nSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (p == MAP_FAILED) throw std::bad_alloc();
        m_pBuffer = static_cast<unsigned char*>(p);
        m_nMappedBuffer = nSize;
    } else {
        m_pBuffer = new unsigned char[nSize ? nSize : 1];
    }
    return m_pBuffer;
}

void CXmlDocument::FreeBuffer() {
    if (m_bOwnsBuffer) {
        if (m_nMappedBuffer)
            ::munmap(m_pBuffer, m_nMappedBuffer);
        else
            delete[] m_pBuffer;
    }
    m_nMappedBuffer = 0;
    m_pBuffer = nullptr;
    m_bOwnsBuffer = true;
    m_nBufferLength = 0;
}

void CXmlDocument::CloseFile() {
    if (m_hFile >= 0) {
        ::close(m_hFile);
        m_hFile = -1;
    }
}

// --- lookups -----------------------------------------------------------------------

const std::string& CXmlDocument::LookupNamespaceFromAlias(const char* pszAlias) const {
    auto it = m_mapAliases.find(NotNull(pszAlias));
    return it == m_mapAliases.end() ? EmptyString() : it->second;
}

const std::string& CXmlDocument::LookupAliasFromNamespace(const char* pszNamespace) const {
    pszNamespace = NotNull(pszNamespace);
    for (const auto& entry : m_mapAliases) {
        if (entry.second == pszNamespace) return entry.first;
    }
    return EmptyString();
}

// --- loading -----------------------------------------------------------------------

void CXmlDocument::LoadXml(const char* pszXml) {
    Cleanup();
    size_t nLength = pszXml ? std::strlen(pszXml) : 0;
    if (nLength == 0) throw COxException("XML String is empty!");
    if (nLength > UINT32_MAX) throw COxException("XML String is too large!");
    // No decompression and no Fast Infoset detection for text.
    CBorrowedBuffer borrowed(*this, reinterpret_cast<const unsigned char*>(pszXml), static_cast<OxULong>(nLength));
    ParseText();
}

void CXmlDocument::LoadXml(const wchar_t* pszXml) {
    Cleanup();
    if (!pszXml || *pszXml == L'\0') throw COxException("XML String is empty!");
    // A byte order mark and UTF-16 little-endian code units, so that expat recognises the
    // encoding by itself. wchar_t may be wider than UTF-16 here: convert, then lay out the
    // bytes explicitly, independent of the host's byte order.
    std::u16string strUtf16 = WideToUtf16(pszXml);
    if (strUtf16.size() > (UINT32_MAX - 2) / 2) throw COxException("XML String is too large!");
    OxULong nLength = static_cast<OxULong>(2 + 2 * strUtf16.size());
    NewInputBuffer(nLength);
    m_pBuffer[0] = 0xFF;
    m_pBuffer[1] = 0xFE;
    unsigned char* pOut = m_pBuffer + 2;
    for (char16_t c : strUtf16) {
        *pOut++ = static_cast<unsigned char>(c & 0xFF);
        *pOut++ = static_cast<unsigned char>(c >> 8);
    }
    m_nBufferLength = nLength;
    ParseText();
}

void CXmlDocument::LoadXmlStream(unsigned char* const pData, OxULong nLength) {
    Cleanup();
    if (!pData || nLength == 0) throw COxException("XML Stream is empty!");
    CBorrowedBuffer borrowed(*this, pData, nLength);
    Parse();
}

void CXmlDocument::Load(const char* pszFileName) {
    Cleanup();
    if (GetAsyncFromXmlFile())
        LoadOverlapped(NotNull(pszFileName));
    else
        LoadWhole(NotNull(pszFileName));
}

// The default form: the whole file is in memory before the first byte is parsed.
void CXmlDocument::LoadWhole(const char* pszFileName) {
    ReadWholeFile(pszFileName);
    Parse();
    // The tree holds copies of everything it needs: the raw bytes can go before the caller
    // builds its objects from the tree.
    FreeBuffer();
}

void CXmlDocument::ReadWholeFile(const char* pszFileName) {
    int hFile = ::open(pszFileName, O_RDONLY | O_CLOEXEC);
    if (hFile < 0) {
        int nError = errno;
        throw COxException(FormatString("Failed to open the file [%s] Error [0x%08x]", pszFileName, nError));
    }
    ::posix_fadvise(hFile, 0, 0, POSIX_FADV_SEQUENTIAL);

    struct stat info;
    int nError = 0;
    if (::fstat(hFile, &info) != 0)
        nError = errno;
    else if (info.st_size < 0 || static_cast<uint64_t>(info.st_size) > UINT32_MAX)
        nError = EFBIG;  // the whole-file form holds less than 4 GiB
    if (nError != 0) {
        ::close(hFile);
        throw COxException(FormatString("Failed to get the size of the file [%s] Error [0x%08x]", pszFileName, nError));
    }
    size_t nSize = static_cast<size_t>(info.st_size);

    try {
        NewInputBuffer(nSize);
    } catch (...) {
        ::close(hFile);
        throw;
    }
    // read() may deliver less than asked for; a short count before the expected end (the
    // file shrank) is reported with error 0.
    size_t nTotal = 0;
    while (nTotal < nSize) {
        ssize_t nRead = ::read(hFile, m_pBuffer + nTotal, nSize - nTotal);
        if (nRead < 0) {
            if (errno == EINTR) continue;
            nError = errno;
            break;
        }
        if (nRead == 0) break;
        nTotal += static_cast<size_t>(nRead);
    }
    ::close(hFile);
    if (nTotal < nSize) {
        FreeBuffer();
        throw COxException(
            FormatString("Failed to read the contents of the file [%s] Error [0x%08x]", pszFileName, nError));
    }
    m_nBufferLength = static_cast<OxULong>(nSize);
}

// The overlapped form: two buffers of kChunkSize, the next read in flight while expat
// parses the previous chunk. POSIX asynchronous I/O takes the place of an overlapped read:
// one aiocb at an explicit 64-bit offset, aio_suspend to wait for it, aio_error and
// aio_return for the outcome, and a count of 0 for the end of the file. No event object is
// needed, as the wait is on the request itself.
void CXmlDocument::LoadOverlapped(const char* pszFileName) {
    m_nFilePosition = 0;
    m_hFile = ::open(pszFileName, O_RDONLY | O_CLOEXEC);
    if (m_hFile < 0) {
        int nError = errno;
        throw COxException(FormatString("Failed to open the file [%s] Error [0x%08x]", pszFileName, nError));
    }
    ::posix_fadvise(m_hFile, 0, 0, POSIX_FADV_SEQUENTIAL);

    COverlappedRead overlapped;
    m_pOverlapped = &overlapped;
    try {
        m_pBuffer = new unsigned char[kChunkSize];
        ReadChunkFromFile(m_pBuffer);
        OxULong nRead = 0;
        int nError = 0;
        if (!WaitForChunk(nRead, nError))
            throw COxException(
                FormatString("Failed to read the contents of the file [%s] Error [0x%08x]", pszFileName, nError));
        m_nFilePosition += nRead;
        m_nBufferLength = nRead;
        AsyncParse(nRead < kChunkSize);
    } catch (...) {
        CancelChunk();
        m_pOverlapped = nullptr;
        CloseFile();
        FreeBuffer();
        throw;
    }
    m_pOverlapped = nullptr;
}

void CXmlDocument::AsyncParse(bool bFinal) {
    unsigned char* pSecond = nullptr;
    try {
        CExpatReader reader(*this);
        reader.Init();
        pSecond = new unsigned char[kChunkSize];
        while (!bFinal) {
            ReadChunkFromFile(pSecond);
            reader.ParseChunk(false);
            OxULong nRead = 0;
            int nError = 0;
            if (!WaitForChunk(nRead, nError))
                throw COxException(FormatString("Failed to read the contents of the file. Error [0x%08x]", nError));
            std::swap(m_pBuffer, pSecond);
            m_nFilePosition += nRead;
            m_nBufferLength = nRead;
            bFinal = nRead < kChunkSize;
        }
        reader.ParseChunk(true);
        if (!m_pDocumentElement) throw COxException("Invalid or empty XML document");
    } catch (...) {
        // Whatever went wrong (a parse error, a read error, an exception from the element
        // callback), the read in flight must end before its buffer is freed; then nothing
        // of the failed load survives.
        CancelChunk();
        Cleanup();
        delete[] pSecond;
        CloseFile();
        throw;
    }
    delete[] pSecond;
    FreeBuffer();
    CloseFile();
}

void CXmlDocument::ReadChunkFromFile(unsigned char* pBuffer) {
    struct aiocb& request = m_pOverlapped->request;
    std::memset(&request, 0, sizeof(request));
    request.aio_fildes = m_hFile;
    request.aio_offset = static_cast<off_t>(m_nFilePosition);
    request.aio_buf = pBuffer;
    request.aio_nbytes = kChunkSize;
    request.aio_sigevent.sigev_notify = SIGEV_NONE;
    if (::aio_read(&request) != 0) {
        int nError = errno;
        throw COxException(FormatString("Failed to read the contents of the file. Error [0x%08x]", nError));
    }
    m_pOverlapped->bInFlight = true;
}

bool CXmlDocument::WaitForChunk(OxULong& nRead, int& nError) {
    struct aiocb& request = m_pOverlapped->request;
    const struct aiocb* aRequests[1] = {&request};
    int nStatus;
    while ((nStatus = ::aio_error(&request)) == EINPROGRESS) ::aio_suspend(aRequests, 1, nullptr);
    if (nStatus < 0) nStatus = errno;
    ssize_t nResult = ::aio_return(&request);
    m_pOverlapped->bInFlight = false;
    if (nStatus != 0 || nResult < 0) {
        nError = nStatus != 0 ? nStatus : EIO;
        return false;
    }
    nRead = static_cast<OxULong>(nResult);
    return true;
}

void CXmlDocument::CancelChunk() {
    if (!m_pOverlapped || !m_pOverlapped->bInFlight) return;
    struct aiocb& request = m_pOverlapped->request;
    ::aio_cancel(m_hFile, &request);
    const struct aiocb* aRequests[1] = {&request};
    while (::aio_error(&request) == EINPROGRESS) ::aio_suspend(aRequests, 1, nullptr);
    ::aio_return(&request);
    m_pOverlapped->bInFlight = false;
}

void CXmlDocument::InflateBuffer() {
    // Compressed input (gzip or zlib) is inflated into a buffer of the document's own, which
    // replaces the input; anything else passes unchanged at the cost of one header check.
    COxZip zip;
    CBinaryData inflated;
    if (zip.Decompress(m_pBuffer, m_nBufferLength, inflated)) {
        const OxULong nLength = inflated.GetLength();
        unsigned char* pInflated = inflated.ReleaseData();
        if (!pInflated) pInflated = new unsigned char[1];  // nothing inside: the parser says so
        FreeBuffer();
        m_pBuffer = pInflated;
        m_nBufferLength = nLength;
    }
}

void CXmlDocument::Parse() {
    InflateBuffer();

    // The Fast Infoset reader looks at every input first; what it doesn't recognise goes on
    // to the XML text parser unchanged.
    CFastInfosetReader reader(&m_pContext->GetFIContext(), this);
    if (reader.Parse()) return;
    ParseText();
}

void CXmlDocument::ParseText() {
    CExpatReader reader(*this);
    reader.Init();
    reader.ParseChunk(true);
}

// --- JSON ----------------------------------------------------------------------------

CBinaryData CXmlDocument::LoadJson(const char* pszJson) {
    Cleanup();
    if (!pszJson || *pszJson == '\0') throw COxException("JSON String is empty!");
    // The reader works on the caller's text in place, for the length of this call.
    return ParseJsonText(std::string_view(pszJson));
}

CBinaryData CXmlDocument::LoadJson(const wchar_t* pszJson) {
    Cleanup();
    if (!pszJson || *pszJson == L'\0') throw COxException("JSON String is empty!");
    std::u16string strUtf16 = WideToUtf16(pszJson);
    return ParseJsonText(Utf16ToLocal(strUtf16.data(), strUtf16.size()));
}

CBinaryData CXmlDocument::LoadJsonStream(unsigned char* const pData, OxULong nLength) {
    Cleanup();
    if (!pData || nLength == 0) throw COxException("JSON Stream is empty!");
    CBorrowedBuffer borrowed(*this, pData, nLength);
    return ParseJson();
}

CBinaryData CXmlDocument::LoadJsonFile(const char* pszFileName) {
    Cleanup();
    // An empty file is no error here: it reaches the parser as an empty text.
    ReadWholeFile(NotNull(pszFileName));
    CBinaryData data = ParseJson();
    FreeBuffer();
    return data;
}

CBinaryData CXmlDocument::ParseJson() {
    InflateBuffer();
    const char* pBytes = reinterpret_cast<const char*>(m_pBuffer);
    size_t nLength = m_nBufferLength;
    if (nLength > 2 && static_cast<unsigned char>(pBytes[0]) == 0xEF && static_cast<unsigned char>(pBytes[1]) == 0xBB &&
        static_cast<unsigned char>(pBytes[2]) == 0xBF) {
        pBytes += 3;
        nLength -= 3;
    }
    // Local text that is UTF-8 is the bytes themselves: the reader works on them in place.
    if (IsLocalEncodingUtf8()) return ParseJsonText(std::string_view(pBytes, nLength));
    // The conversion ends at a null byte; converting the runs between null bytes keeps them,
    // so that the parser sees (and refuses, or keeps) every byte of the input.
    std::string strLocal;
    for (;;) {
        const char* pNull = static_cast<const char*>(std::memchr(pBytes, '\0', nLength));
        size_t nRun = pNull ? static_cast<size_t>(pNull - pBytes) : nLength;
        if (nRun > 0) strLocal += Utf8ToLocal(pBytes, nRun);
        if (!pNull) break;
        strLocal.push_back('\0');
        pBytes += nRun + 1;
        nLength -= nRun + 1;
    }
    return ParseJsonText(strLocal);
}

CBinaryData CXmlDocument::ParseJsonText(std::string_view json) {
    return CJsonTextReader::ConvertToXml(json, *m_pContext);
}

// --- tree building ------------------------------------------------------------------

CXmlElement* CXmlDocument::AddDocElement(const char* pszNamespace, const char* pszName) {
    pszNamespace = NotNull(pszNamespace);
    pszName = NotNull(pszName);
    return AddDocElement(pszNamespace, std::strlen(pszNamespace), pszName, std::strlen(pszName));
}

CXmlElement* CXmlDocument::AddDocElement(const char* pNamespace, size_t nNamespaceLength, const char* pName,
                                         size_t nNameLength) {
    // A new root replaces any tree there is. Room on the stack first: once the root is
    // stored, nothing may fail before the push.
    m_pElementStack.clear();
    m_pElementStack.reserve(64);
    CXmlElement* pElement = CXmlElement::Create(m_pNodeStore, this, nullptr);
    CXmlElement::Destroy(m_pNodeStore, m_pDocumentElement);
    m_pDocumentElement = pElement;
    pElement->SetNamespace(m_pNodeStore, pNamespace, nNamespaceLength);
    pElement->SetElementName(m_pNodeStore, pName, nNameLength);
    m_pElementStack.push_back(OpenElement{pElement, nullptr});
    return pElement;
}

CXmlElement* CXmlDocument::AddChildElement(const char* pszNamespace, const char* pszName) {
    pszNamespace = NotNull(pszNamespace);
    pszName = NotNull(pszName);
    return AddChildElement(pszNamespace, std::strlen(pszNamespace), pszName, std::strlen(pszName));
}

CXmlElement* CXmlDocument::AddChildElement(const char* pNamespace, size_t nNamespaceLength, const char* pName,
                                           size_t nNameLength) {
    // The new element is linked into its parent at once, so it is owned even if a later
    // step throws.
    if (m_pElementStack.empty()) throw COxInvalidStateException("No open element to add a child element to");
    if (m_pElementStack.size() == m_pElementStack.capacity()) m_pElementStack.reserve(2 * m_pElementStack.size());
    OpenElement& parent = m_pElementStack.back();
    CXmlElement* pElement = parent.pElement->CreateNewChildElement(m_pNodeStore, parent.pLastChild);
    parent.pLastChild = pElement;
    pElement->SetNamespace(m_pNodeStore, pNamespace, nNamespaceLength);
    pElement->SetElementName(m_pNodeStore, pName, nNameLength);
    // The tree itself is built without recursion, but the walks that read it recurse once per
    // level: a document deeper than the context allows is refused here, at its first element
    // too deep, so that no walk ever sees it.
    const int32_t nMaxDepth = m_pContext->GetMaxDepth();
    if (m_pElementStack.size() >= static_cast<size_t>(nMaxDepth))
        CSerializationContext::ThrowTooDeep(nMaxDepth, pElement->GetXPath());
    m_pElementStack.push_back(OpenElement{pElement, nullptr});
    return pElement;
}

void CXmlDocument::EndElement() {
    if (m_pElementStack.empty()) return;
    CXmlElement* pElement = m_pElementStack.back().pElement;
    m_pElementStack.pop_back();
    if (!m_pfnElementCallback || !m_pfnElementCallback(pElement)) return;
    // The callback has dealt with the element. The root has no parent to leave: it stays.
    if (m_pElementStack.empty()) return;
    // The element just ended is always its parent's last child.
    OpenElement& parent = m_pElementStack.back();
    parent.pLastChild = parent.pElement->RemoveLastChildElement(pElement);
    CXmlElement::Destroy(m_pNodeStore, pElement);
}

CXmlAttribute* CXmlDocument::AddElementAttribute(CXmlElement* pElement, const char* pszLocalName, const char* pszValue,
                                                 const char* pszNamespace) {
    return pElement->AddAttribute(pElement->GetStore(), pszLocalName, pszValue, pszNamespace);
}

CXmlAttribute* CXmlDocument::AddElementAttribute(CXmlElement* pElement, const char* pLocalName, size_t nLocalNameLength,
                                                 const char* pValue, size_t nValueLength, const char* pNamespace,
                                                 size_t nNamespaceLength) {
    return pElement->AddAttribute(pElement->GetStore(), pLocalName, nLocalNameLength, pValue, nValueLength, pNamespace,
                                  nNamespaceLength);
}

void CXmlDocument::ReserveElementAttributes(CXmlElement* pElement, size_t nCount) {
    pElement->ReserveAttributes(pElement->GetStore(), pElement->GetAttributes().size() + nCount);
}

CXmlAttribute* CXmlDocument::AddAttribute(CXmlElement* pElement, const char* pLocalName, size_t nLocalNameLength,
                                          const char* pValue, size_t nValueLength, const char* pNamespace,
                                          size_t nNamespaceLength) {
    return pElement->AddAttribute(m_pNodeStore, pLocalName, nLocalNameLength, pValue, nValueLength, pNamespace,
                                  nNamespaceLength);
}

void CXmlDocument::ReserveAttributes(CXmlElement* pElement, size_t nCount) {
    pElement->ReserveAttributes(m_pNodeStore, pElement->GetAttributes().size() + nCount);
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* pElement, const char* pszText) {
    AppendTextExcludingCR(pElement, pszText, UINT32_MAX);
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* pElement, const char* pText, OxULong nMaxLength) {
    if (!pText) return;
    AppendRunExcludingCR(pElement, pText, ::strnlen(pText, nMaxLength));
}

void CXmlDocument::AppendRunExcludingCR(CXmlElement* pElement, const char* pText, size_t nLength) {
    AppendRun(pElement->GetStore(), pElement, pText, nLength);
}

void CXmlDocument::AppendRun(CXmlNodeStore* pStore, CXmlElement* pElement, const char* pText, size_t nLength) {
    if (pElement->AppendShortPiece(pText, nLength)) return;
    const char* pEnd = pText + nLength;
    while (pText < pEnd) {
        const char* pCR = static_cast<const char*>(std::memchr(pText, '\r', static_cast<size_t>(pEnd - pText)));
        const char* pRunEnd = pCR ? pCR : pEnd;
        if (pRunEnd > pText) pElement->AppendText(pStore, pText, static_cast<OxULong>(pRunEnd - pText));
        pText = pCR ? pCR + 1 : pEnd;
    }
}

}  // namespace OrvexXml
