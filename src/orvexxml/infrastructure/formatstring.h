#pragma once

#include <cstdarg>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// printf-style formatting into a std::string, with no length limit.
ORVEXXML_API std::string FormatString(const char* format, ...) ORVEXXML_PRINTF(1, 2);
ORVEXXML_API std::string FormatStringV(const char* format, va_list args);

}  // namespace OrvexXml
