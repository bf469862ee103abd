#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/infrastructure/stringbuffer.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXml {

// The sink of the text writers: text accumulates in memory, in the library's local encoding.
// The encoding is only recorded here; the writer asks for it to declare it in the header.
//
// The write operations are inline appends to the block buffer, so that a writer pays for a
// function call only when a block fills up.
class ORVEXXML_API CTextStream : public CInstanceMonitor {
public:
    // A stream for XmlEncoding_None.
    CTextStream();
    explicit CTextStream(XmlEncoding eEncoding);
    ~CTextStream() override;

    CTextStream(const CTextStream&) = delete;
    CTextStream& operator=(const CTextStream&) = delete;

    // In memory, Start empties the buffer; End and Flush do nothing.
    virtual void Start();
    virtual void End();
    virtual void Flush();

    void WriteChar(char c) { m_buffer.Append(c); }
    // Appends the bytes up to the terminator.
    void WriteString(const char* psz) { m_buffer.Append(psz); }
    // Appends the bytes up to the first null byte, like the const char* form.
    void WriteString(const std::string& str) { m_buffer.Append(str); }
    // Appends exactly nLen bytes.
    void WriteString(const char* pData, size_t nLen) { m_buffer.Append(pData, nLen); }

    // Characters now buffered.
    size_t GetLength() const { return m_buffer.GetLength(); }
    XmlEncoding GetEncoding() const { return m_eEncoding; }
    // The buffered text as one null-terminated string, valid until the next write.
    const char* GetText() { return m_buffer.GetBuffer(); }
    // Builds the text in one contiguous string from now on, with room for nExpected bytes
    // reserved, so that TakeText hands it out without a copy. Empties the stream.
    void KeepContiguous(size_t nExpected) { m_buffer.KeepContiguous(nExpected); }
    // The whole text as a string, GetLength() bytes; the stream is empty afterwards.
    std::string TakeText() { return m_buffer.TakeString(); }
    // The buffered text as bytes of the stream's encoding: UTF-8, or UTF-16 little-endian
    // without a byte order mark. The text ends at its first null byte, as GetText reads.
    // XmlEncoding_None has no byte form: throws COxException. Bytes beyond what a CBinaryData
    // holds (CBinaryData::MAX_LENGTH) throw COxOverFlowException; a text longer than that
    // is refused even if a null byte would end it earlier.
    CBinaryData GetEncodedData();

protected:
    // For derived streams: registers the instance under their own class name.
    CTextStream(const char* pszClassName, XmlEncoding eEncoding);

    CStringBuffer m_buffer;
    XmlEncoding m_eEncoding;
};

}  // namespace OrvexXml
