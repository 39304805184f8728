#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

/// What a fuzzer does with an input; defined in its one source file.
void tryInput(std::string_view text);

inline void require(bool truth)
{
    if (!truth) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tryInput({reinterpret_cast<const char*>(data), size});
    return 0;
}
