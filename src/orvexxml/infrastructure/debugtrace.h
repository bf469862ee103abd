#pragma once

#include "orvexxml/export.h"

namespace OrvexXml {

// The library's debug channel. It is silent until an application installs a sink;
// the library itself never writes to stdout or stderr through it.
typedef void (*DebugOutputSink)(const char* pszText, void* pUser);

// Installs (or, with nullptr, removes) the sink that receives debug output.
ORVEXXML_API void SetDebugOutputSink(DebugOutputSink pfnSink, void* pUser);

// Passes text unchanged to the installed sink.
ORVEXXML_API void OutputDebugText(const char* pszText);

// Formats like printf into a buffer of 32768 bytes and hands the text to the sink
// in pieces of at most 128 bytes.
ORVEXXML_API void DebugTrace(const char* pszFormat, ...) ORVEXXML_PRINTF(1, 2);

}  // namespace OrvexXml
