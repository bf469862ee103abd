// Symbol visibility and the fixed-width aliases used across the public interface.
#pragma once

#include <cstdint>

#if defined(ORVEXXML_STATIC)
// A static library has nothing to export or import.
#define ORVEXXML_API
#elif defined(_WIN32)
#if defined(ORVEXXML_BUILDING)
#define ORVEXXML_API __declspec(dllexport)
#else
#define ORVEXXML_API __declspec(dllimport)
#endif
#else
#define ORVEXXML_API __attribute__((visibility("default")))
#endif

// Explicit instantiation definitions of exported templates: clang needs the visibility
// repeated there, gcc takes it from the class and warns if it is repeated.
#if defined(__clang__)
#define ORVEXXML_INSTANTIATION_API ORVEXXML_API
#else
#define ORVEXXML_INSTANTIATION_API
#endif

#if defined(__GNUC__)
#define ORVEXXML_PRINTF(fmt, args) __attribute__((format(printf, fmt, args)))
#else
#define ORVEXXML_PRINTF(fmt, args)
#endif

namespace OrvexXml {
// The interface speaks of "long" as a 32-bit quantity on every platform.
typedef int32_t OxLong;
typedef uint32_t OxULong;
}  // namespace OrvexXml
