#pragma once

/// Marks what the shared library shows to a host; everything else stays hidden.
#if defined(_WIN32)
#define ORV_API __declspec(dllexport)
#else
#define ORV_API __attribute__((visibility("default")))
#endif
