#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/infrastructure/textstream.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXml {

// Process-wide switch, off at load: with it on, ToXmlFile and ToJsonFile without compression
// stream the document to the file while it is being written, through a CFileTextStream.
// Otherwise the document is built in memory and written with one call. Set it before use.
ORVEXXML_API void AsyncToXmlFile(bool bAsync);
ORVEXXML_API bool GetAsyncToXmlFile();

// A text stream that drains into a file: a Flush encodes the text buffered since the last write
// and starts writing it at an explicit offset, then empties the buffer, so the writer goes on
// formatting while the system writes. One write is in flight at a time; the next one waits for
// it first. A Flush that finds less than 64 KB of text leaves it for a later call, so that
// writes are few and large. The buffer keeps its block, so memory stays flat however long the
// document grows.
//
// Start creates or truncates the file and, for the UTF-16 encodings, writes the byte order
// mark FF FE. End writes what is left, waits for it and closes the file. All failures are
// COxException with the system error code; the file is closed before the exception leaves,
// and the destructor closes it in any case. A file that failed halfway stays on disk as far
// as it was written.
//
// The encoding must be UTF-8 or UTF-16; XmlEncoding_None fails at the first Flush.
class ORVEXXML_API CFileTextStream : public CTextStream {
public:
    CFileTextStream(const char* pszFileName, XmlEncoding eEncoding);
    ~CFileTextStream() override;

    CFileTextStream(const CFileTextStream&) = delete;
    CFileTextStream& operator=(const CFileTextStream&) = delete;

    void Start() override;
    void End() override;
    void Flush() override;

    const std::string& GetFileName() const { return m_strFileName; }

private:
    // The control block of the write in flight; kept out of this header with the system's
    // asynchronous I/O declarations.
    struct SOverlapped;

    // Encodes the buffered text, less an incomplete character at its end unless bFinal, and
    // starts writing it; the buffer then holds only that incomplete character.
    void WriteBuffered(bool bFinal);
    // Starts writing m_pendingData from m_nPendingDone on. 0, or the system error code.
    int StartWrite();
    // Waits until all of m_pendingData is written, resuming after short writes, then moves
    // m_nFilePosition past it. 0, or the system error code.
    int CompletePendingWrite();
    // Closes the file, after cancelling or waiting for a write in flight. Never throws.
    void CloseHandles();
    // Closes the file and throws the failure of a write.
    [[noreturn]] void FailWrite(int nError);

    std::string m_strFileName;
    CBinaryData m_pendingData;   // the bytes of the write in flight, unchanged until it ends
    SOverlapped* m_pOverlapped;  // owned; the control block of that write
    bool m_bWriteInFlight;       // a request is queued; aio_suspend on it takes the event's place
    uint64_t m_nFilePosition;    // offset of m_pendingData in the file
    uint32_t m_nPendingDone;     // bytes of m_pendingData already written
    int m_hFile;                 // -1 while closed
};

}  // namespace OrvexXml
