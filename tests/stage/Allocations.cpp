#include "tests/stage/Allocations.h"

#include <cstdlib>
#include <new>

namespace
{
thread_local std::uint64_t allocations = 0;
thread_local std::uint64_t releases = 0;

void release(void* memory)
{
    if (memory != nullptr) ++releases;
    std::free(memory);
}
}  // namespace

std::uint64_t allocationsOfThisThread() { return allocations; }
std::uint64_t releasesOfThisThread() { return releases; }

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

// The sorting algorithms of the standard library ask this way.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    ++allocations;
    return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }
