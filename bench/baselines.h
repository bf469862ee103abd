// The in-run baselines that the throughput benchmarks set their figures beside: expat alone
// with empty handlers on the same bytes (the ceiling of reading), in one call or in pieces, and
// a plain write of the same bytes to a file (the ceiling of writing).
#pragma once

#include <expat.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace Baselines {

inline void XMLCALL EmptyStart(void*, const XML_Char*, const XML_Char**) {}
inline void XMLCALL EmptyEnd(void*, const XML_Char*) {}
inline void XMLCALL EmptyText(void*, const XML_Char*, int) {}

// A namespace-aware parser, as the library uses one, with handlers that do nothing.
inline XML_Parser NewParser() {
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(parser, EmptyStart, EmptyEnd);
    XML_SetCharacterDataHandler(parser, EmptyText);
    return parser;
}

// Parses the document in pieces of nPiece bytes (the whole document in one call when nPiece
// is 0); false on a parse error.
inline bool ExpatParse(const std::string& xml, size_t nPiece = 0) {
    XML_Parser parser = NewParser();
    bool bOk = true;
    const size_t nStep = nPiece == 0 ? std::max<size_t>(xml.size(), 1) : nPiece;
    size_t nPos = 0;
    do {
        const size_t nLen = std::min(nStep, xml.size() - nPos);
        const bool bLast = nPos + nLen == xml.size();
        bOk = XML_Parse(parser, xml.data() + nPos, static_cast<int>(nLen), bLast) == XML_STATUS_OK;
        nPos += nLen;
    } while (bOk && nPos < xml.size());
    XML_ParserFree(parser);
    return bOk;
}

// Writes the bytes to the file, truncating it; false when a write fails.
inline bool WriteFile(const std::string& strPath, const std::string& bytes) {
    const int fd = open(strPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0) return false;
    size_t nDone = 0;
    while (nDone < bytes.size()) {
        const ssize_t n = write(fd, bytes.data() + nDone, bytes.size() - nDone);
        if (n <= 0) break;
        nDone += static_cast<size_t>(n);
    }
    close(fd);
    return nDone == bytes.size();
}

}  // namespace Baselines
