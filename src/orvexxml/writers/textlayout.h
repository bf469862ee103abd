// The layout services that the text writers share: the text of a line end, and runs of
// indentation written from a kept buffer. Internal to the library.
#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/infrastructure/encodingtypes.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/textstream.h"

namespace OrvexXml {

// "\r\n" or "\n"; any other type throws COxException "Invalid EOL type.".
inline const char* EOLText(EOLType eEOLType) {
    switch (eEOLType) {
        case EOLType_CRLF:
            return "\r\n";
        case EOLType_LF:
            return "\n";
        default:
            throw COxException("Invalid EOL type.");
    }
}

// Writes nDepth times the indent characters. strRun keeps them repeated, twice as often as
// the deepest level so far, so that a level costs one write; it is emptied when the
// characters change.
inline void WriteIndentRun(CTextStream* pStream, const std::string& strIndentChars, std::string& strRun,
                           uint32_t nDepth) {
    if (nDepth == 0 || strIndentChars.empty()) return;
    const size_t nLen = static_cast<size_t>(nDepth) * strIndentChars.size();
    if (strRun.size() < nLen) {
        strRun.reserve(nLen * 2);
        while (strRun.size() < nLen * 2) strRun += strIndentChars;
    }
    pStream->WriteString(strRun.data(), nLen);
}

}  // namespace OrvexXml
