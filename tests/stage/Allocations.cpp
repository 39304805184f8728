#include "tests/stage/Allocations.h"

#include <cstdlib>
#include <new>

namespace
{
thread_local std::uint64_t allocations = 0;
}

std::uint64_t allocationsOfThisThread() { return allocations; }

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

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
