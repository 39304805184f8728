#pragma once

/// Marks what the shared library shows to a host; everything else stays hidden. A library with a copy of its own of some
/// sources, which it does not show, defines ORVANE_PRIVATE_COPY.
#if defined(ORVANE_PRIVATE_COPY)
#define ORV_API
#elif defined(_WIN32)
#define ORV_API __declspec(dllexport)
#else
#define ORV_API __attribute__((visibility("default")))
#endif
