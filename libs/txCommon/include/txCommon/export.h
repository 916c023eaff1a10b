// Export control for the shared library.
//
// Everything in the shared library is hidden unless it carries TXC_API. The
// static library exports nothing and hides nothing, so TXC_API is empty there.
#pragma once

#if defined(TXCOMMON_STATIC)
#define TXC_API
#elif defined(_WIN32)
#if defined(TXCOMMON_BUILDING_SHARED)
#define TXC_API __declspec(dllexport)
#else
#define TXC_API __declspec(dllimport)
#endif
#else
#define TXC_API __attribute__((visibility("default")))
#endif

#include <cstdint>

// The library's interface is written for a platform where `long` is 32 bits
// wide. On LP64 systems it is not, so every such place uses this name.
using txlong = std::int32_t;
using txulong = std::uint32_t;
