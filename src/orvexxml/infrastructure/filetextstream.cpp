#include "orvexxml/infrastructure/filetextstream.h"

#include <aio.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textencoder.h"

namespace OrvexXml {

namespace {

// The process-wide switch of AsyncToXmlFile: a plain variable, set before use.
bool g_bAsyncToXmlFile = false;

const unsigned char s_byteOrderMark[2] = {0xFF, 0xFE};

// A Flush with less text than this leaves it buffered for the next Flush or for End. Every
// asynchronous request is handed to the system's I/O thread and back, which costs about as much
// as formatting a few kilobytes; a text writer flushes every 4096 characters, and writes of that
// size would add half again to the time of the walk. Larger writes make that cost vanish, and
// the buffer, reused after each write, still keeps memory flat.
const size_t kMinimumWrite = 65536;

bool IsUtf16(XmlEncoding eEncoding) {
    return eEncoding == XmlEncoding_UTF16 || eEncoding == XmlEncoding_UTF16NoDeclaration;
}

// The number of bytes at the end of UTF-8 text that begin a character without completing it.
// Such a character must not be split between two writes when each write is converted to
// UTF-16 on its own.
size_t IncompleteUtf8Tail(const char* p, size_t nLength) {
    for (size_t k = 1; k <= 3 && k <= nLength; ++k) {
        const unsigned char c = static_cast<unsigned char>(p[nLength - k]);
        if ((c & 0xC0) == 0x80) continue;  // a continuation byte: look further back
        if (c < 0xC0) return 0;            // 7-bit: the text ends with a whole character
        const size_t nNeeded = c >= 0xF0 ? 4 : (c >= 0xE0 ? 3 : 2);
        return k < nNeeded ? k : 0;
    }
    return 0;
}

}  // namespace

void AsyncToXmlFile(bool bAsync) { g_bAsyncToXmlFile = bAsync; }

bool GetAsyncToXmlFile() { return g_bAsyncToXmlFile; }

// POSIX asynchronous I/O takes the place of an overlapped write: one aiocb at an explicit
// 64-bit offset, aio_suspend to wait for it, aio_error and aio_return for its outcome. The wait
// is on the request itself, so no event object is needed.
struct CFileTextStream::SOverlapped {
    struct aiocb request;
};

CFileTextStream::CFileTextStream(const char* pszFileName, XmlEncoding eEncoding)
    : CTextStream("CFileTextStream", eEncoding),
      m_strFileName(pszFileName != nullptr ? pszFileName : ""),
      m_pOverlapped(new SOverlapped()),
      m_bWriteInFlight(false),
      m_nFilePosition(0),
      m_nPendingDone(0),
      m_hFile(-1) {}

CFileTextStream::~CFileTextStream() {
    CloseHandles();
    delete m_pOverlapped;
}

void CFileTextStream::Start() {
    CTextStream::Start();
    // A stream started again lets go of the file of its former run.
    CloseHandles();
    m_nFilePosition = 0;

    m_hFile = ::open(m_strFileName.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (m_hFile < 0) {
        const int nError = errno;
        m_hFile = -1;
        throw COxException(FormatString("Failed to write data to the file [%s] error [0x%08X]", m_strFileName.c_str(),
                                        static_cast<unsigned int>(nError)));
    }
    ::posix_fadvise(m_hFile, 0, 0, POSIX_FADV_SEQUENTIAL);

    if (IsUtf16(m_eEncoding)) {
        // The mark lives in m_pendingData, which stays untouched until the write has ended.
        m_pendingData.SetBuffer(s_byteOrderMark, sizeof(s_byteOrderMark));
        const int nError = StartWrite();
        if (nError != 0) {
            CloseHandles();
            throw COxException(FormatString("Failed to write data to the file [%s] error [0x%08X]",
                                            m_strFileName.c_str(), static_cast<unsigned int>(nError)));
        }
    }
}

void CFileTextStream::Flush() {
    if (GetLength() < kMinimumWrite) return;
    WriteBuffered(false);
}

void CFileTextStream::End() {
    Flush();
    // What Flush leaves in the buffer, text short of a full write or an incomplete character
    // at the very end, goes out now.
    if (GetLength() != 0) WriteBuffered(true);
    const int nError = CompletePendingWrite();
    if (nError != 0) FailWrite(nError);
    if (m_hFile >= 0) {
        // Some file systems report a failed write only when the file is closed.
        const int nResult = ::close(m_hFile);
        const int nCloseError = errno;
        m_hFile = -1;
        if (nResult != 0 && nCloseError != EINTR) FailWrite(nCloseError);
    }
    CTextStream::End();
}

void CFileTextStream::WriteBuffered(bool bFinal) {
    // Not started, or closed by an earlier failure.
    if (m_hFile < 0) FailWrite(EBADF);
    const int nWaitError = CompletePendingWrite();
    if (nWaitError != 0) FailWrite(nWaitError);

    const char* pszText = GetText();
    const size_t nLength = GetLength();
    // Every write is converted on its own, so a UTF-16 file must not receive half of a UTF-8
    // character at the end of one write and the rest at the beginning of the next. A text
    // writer flushes between whole values, where this never happens; a caller of its own
    // may flush anywhere.
    size_t nKeep = 0;
    if (!bFinal && IsUtf16(m_eEncoding) && GetLocalCharEncoding() == ORVEXXML_CP_UTF8) {
        nKeep = IncompleteUtf8Tail(pszText, nLength);
    }
    const size_t nTake = nLength - nKeep;

    try {
        if (nKeep == 0) {
            m_pendingData = GetEncodedData();
        } else {
            // The text as GetEncodedData would read it, which is up to its first null byte.
            const void* pNull = std::memchr(pszText, 0, nTake);
            const size_t nText = pNull != nullptr ? static_cast<const char*>(pNull) - pszText : nTake;
            m_pendingData = LocalToUtf16(pszText, nText);
        }
    } catch (...) {
        CloseHandles();
        throw;
    }

    if (m_pendingData.GetLength() != 0) {
        const int nError = StartWrite();
        if (nError != 0) FailWrite(nError);
    }

    // The buffer keeps its block for the text to come; the write in flight has its own copy.
    if (nKeep == 0) {
        m_buffer.Clear();
    } else {
        char tail[4];
        std::memcpy(tail, pszText + nTake, nKeep);
        m_buffer.Clear();
        m_buffer.Append(tail, nKeep);
    }
}

int CFileTextStream::StartWrite() {
    struct aiocb& request = m_pOverlapped->request;
    std::memset(&request, 0, sizeof(request));
    request.aio_fildes = m_hFile;
    request.aio_offset = static_cast<off_t>(m_nFilePosition + m_nPendingDone);
    request.aio_buf = const_cast<unsigned char*>(m_pendingData.GetData() + m_nPendingDone);
    request.aio_nbytes = m_pendingData.GetLength() - m_nPendingDone;
    request.aio_sigevent.sigev_notify = SIGEV_NONE;
    if (::aio_write(&request) == 0) {
        m_bWriteInFlight = true;
        return 0;
    }
    const int nError = errno;
    if (nError != EAGAIN) return nError;

    // The system has no room for another request just now: write synchronously instead,
    // which gives the same bytes at the same offset.
    while (m_nPendingDone < m_pendingData.GetLength()) {
        const ssize_t nWritten =
            ::pwrite(m_hFile, m_pendingData.GetData() + m_nPendingDone, m_pendingData.GetLength() - m_nPendingDone,
                     static_cast<off_t>(m_nFilePosition + m_nPendingDone));
        if (nWritten < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        if (nWritten == 0) return EIO;
        m_nPendingDone += static_cast<uint32_t>(nWritten);
    }
    return 0;
}

int CFileTextStream::CompletePendingWrite() {
    while (m_bWriteInFlight) {
        struct aiocb& request = m_pOverlapped->request;
        const struct aiocb* aRequests[1] = {&request};
        int nStatus;
        while ((nStatus = ::aio_error(&request)) == EINPROGRESS) ::aio_suspend(aRequests, 1, nullptr);
        if (nStatus < 0) nStatus = errno;
        const ssize_t nWritten = ::aio_return(&request);
        m_bWriteInFlight = false;
        if (nStatus != 0) return nStatus;
        if (nWritten <= 0) return EIO;
        m_nPendingDone += static_cast<uint32_t>(nWritten);
        // A short write, as on a nearly full disk: the rest goes out at once, and a second
        // attempt tells the cause if there is one.
        if (m_nPendingDone < m_pendingData.GetLength()) {
            const int nError = StartWrite();
            if (nError != 0) return nError;
        }
    }
    m_nFilePosition += m_pendingData.GetLength();
    m_pendingData.Clear();
    m_nPendingDone = 0;
    return 0;
}

void CFileTextStream::CloseHandles() {
    if (m_bWriteInFlight) {
        struct aiocb& request = m_pOverlapped->request;
        ::aio_cancel(m_hFile, &request);
        const struct aiocb* aRequests[1] = {&request};
        while (::aio_error(&request) == EINPROGRESS) ::aio_suspend(aRequests, 1, nullptr);
        ::aio_return(&request);
        m_bWriteInFlight = false;
    }
    if (m_hFile >= 0) {
        ::close(m_hFile);
        m_hFile = -1;
    }
    m_pendingData.Clear();
    m_nPendingDone = 0;
}

void CFileTextStream::FailWrite(int nError) {
    CloseHandles();
    throw COxException(
        FormatString("Failed to write data to the file. Error [0x%08X]", static_cast<unsigned int>(nError)));
}

}  // namespace OrvexXml
