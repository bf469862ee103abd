#include "orvexxml/infrastructure/binarystream.h"

namespace OrvexXml {

CBinaryStream::CBinaryStream() : CInstanceMonitor("CBinaryStream") {}

CBinaryStream::CBinaryStream(const CBinaryData& data) : CInstanceMonitor("CBinaryStream"), m_data(data) {}

CBinaryStream::CBinaryStream(const char* pszClassName, const CBinaryData& data)
    : CInstanceMonitor(pszClassName), m_data(data) {}

CBinaryStream::~CBinaryStream() {}

}  // namespace OrvexXml
