#pragma once

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/instancemonitor.h"
#include "orvexxml/values/binarydata.h"

namespace OrvexXml {

// A growing byte buffer: the sink of the binary writers. Its content is a CBinaryData, so
// handing it out shares the bytes instead of copying them; a later Append then gives the stream
// its own copy and leaves the handed-out value as it was.
class ORVEXXML_API CBinaryStream : public CInstanceMonitor {
public:
    CBinaryStream();
    // Starts with the bytes of data, shared until the first Append.
    explicit CBinaryStream(const CBinaryData& data);
    ~CBinaryStream() override;

    CBinaryStream(const CBinaryStream&) = delete;
    CBinaryStream& operator=(const CBinaryStream&) = delete;

    // The content, sharing the bytes.
    CBinaryData GetData() const { return m_data; }

    void Append(unsigned char byte) { m_data.Append(byte); }
    // Appends the bytes of data; data may be this stream's own content.
    void Append(const CBinaryData& data) { m_data.Append(data); }
    // Appends nLength bytes; a null pointer or a length of 0 does nothing.
    void Append(const unsigned char* pData, OxULong nLength) { m_data.Append(pData, nLength); }

protected:
    // For derived streams: registers the instance under their own class name.
    CBinaryStream(const char* pszClassName, const CBinaryData& data);

    CBinaryData m_data;
};

}  // namespace OrvexXml
