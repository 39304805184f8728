#pragma once

#include <cstdint>

/// How often this thread has asked the heap for memory since it started.
std::uint64_t allocationsOfThisThread();
/// How often it has given memory back.
std::uint64_t releasesOfThisThread();
