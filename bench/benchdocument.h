// The large document the benchmarks work on.
#pragma once

#include <cstddef>

#include "readinglog.h"

// A reading log whose XML text (indented, LF) is at least nMinBytes long.
OrvexXml::CSmartPtr<Samples::CReadingLog> MakeReadingLog(size_t nMinBytes);
