#include "orvexxml/infrastructure/textstream.h"

namespace OrvexXml {

CTextStream::CTextStream() : CTextStream("CTextStream", XmlEncoding_None) {}

CTextStream::CTextStream(XmlEncoding eEncoding) : CTextStream("CTextStream", eEncoding) {}

CTextStream::CTextStream(const char* pszClassName, XmlEncoding eEncoding)
    : CInstanceMonitor(pszClassName), m_eEncoding(eEncoding) {}

CTextStream::~CTextStream() {}

void CTextStream::Start() { m_buffer.Clear(); }

void CTextStream::End() {}

void CTextStream::Flush() {}

}  // namespace OrvexXml
