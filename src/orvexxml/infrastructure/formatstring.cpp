#include "orvexxml/infrastructure/formatstring.h"

#include <cstdio>

namespace OrvexXml {

std::string FormatStringV(const char* format, va_list args) {
    char stackBuf[256];
    va_list copy;
    va_copy(copy, args);
    int n = std::vsnprintf(stackBuf, sizeof(stackBuf), format, copy);
    va_end(copy);
    if (n < 0) return std::string();
    if (static_cast<size_t>(n) < sizeof(stackBuf)) return std::string(stackBuf, static_cast<size_t>(n));
    std::string result(static_cast<size_t>(n), '\0');
    va_copy(copy, args);
    std::vsnprintf(&result[0], result.size() + 1, format, copy);
    va_end(copy);
    return result;
}

std::string FormatString(const char* format, ...) {
    va_list args;
    va_start(args, format);
    std::string result = FormatStringV(format, args);
    va_end(args);
    return result;
}

}  // namespace OrvexXml
