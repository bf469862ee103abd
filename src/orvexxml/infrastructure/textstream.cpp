#include "orvexxml/infrastructure/textstream.h"

#include <cstring>
#include <memory>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textencoder.h"

namespace OrvexXml {

CTextStream::CTextStream() : CTextStream("CTextStream", XmlEncoding_None) {}

CTextStream::CTextStream(XmlEncoding eEncoding) : CTextStream("CTextStream", eEncoding) {}

CTextStream::CTextStream(const char* pszClassName, XmlEncoding eEncoding)
    : CInstanceMonitor(pszClassName), m_eEncoding(eEncoding) {}

CTextStream::~CTextStream() {}

void CTextStream::Start() { m_buffer.Clear(); }

void CTextStream::End() {}

void CTextStream::Flush() {}

CBinaryData CTextStream::GetEncodedData() {
    if (m_eEncoding != XmlEncoding_UTF8 && m_eEncoding != XmlEncoding_UTF16 &&
        m_eEncoding != XmlEncoding_UTF16NoDeclaration) {
        throw COxException("Unknown Encoding, select UTF-8 (contact our support team)");
    }
    if (m_eEncoding == XmlEncoding_UTF8 && IsLocalEncodingUtf8()) {
        // The bytes go out as they are: copy the blocks straight into the result instead of
        // joining them first. The text ends at its first null byte, as GetText reads.
        const size_t nTotal = GetLength();
        if (nTotal == 0) return CBinaryData();
        std::unique_ptr<unsigned char[]> spData = AllocateResult(nTotal);
        m_buffer.CopyTo(reinterpret_cast<char*>(spData.get()));
        const void* pNull = std::memchr(spData.get(), 0, nTotal);
        return TakeOver(spData, pNull != nullptr ? static_cast<const unsigned char*>(pNull) - spData.get() : nTotal);
    }
    // The length is known; the search for a null byte only bounds the text the way a
    // null-terminated string would, without a second pass when there is none.
    const char* pszText = GetText();
    const void* pNull = std::memchr(pszText, 0, GetLength());
    const size_t nLength = pNull != nullptr ? static_cast<const char*>(pNull) - pszText : GetLength();
    if (m_eEncoding == XmlEncoding_UTF8) return LocalToUtf8(pszText, nLength);
    return LocalToUtf16(pszText, nLength);
}

}  // namespace OrvexXml
