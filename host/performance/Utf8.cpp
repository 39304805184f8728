#include "host/performance/Utf8.h"

#include <algorithm>
#include <cstddef>

namespace Host
{
namespace
{
struct Sequence {
    unsigned char firstLow, firstHigh;
    unsigned char secondLow, secondHigh;
    std::size_t size;
};

constexpr Sequence SEQUENCES[] = {
    {0x00, 0x7F, 0x00, 0x00, 1}, {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

bool isWithin(char character, unsigned char low, unsigned char high)
{
    const auto byte = static_cast<unsigned char>(character);
    return low <= byte && byte <= high;
}

/// The bytes of the character at the front of the text, 0 if there is none.
std::size_t characterSize(std::string_view text)
{
    const auto* sequence = std::ranges::find_if(
        SEQUENCES, [&](const Sequence& row) { return isWithin(text[0], row.firstLow, row.firstHigh); });
    if (sequence == std::end(SEQUENCES) || text.size() < sequence->size) return 0;
    if (sequence->size > 1 && !isWithin(text[1], sequence->secondLow, sequence->secondHigh)) return 0;
    for (std::size_t at = 2; at < sequence->size; ++at)
        if (!isWithin(text[at], 0x80, 0xBF)) return 0;
    return sequence->size;
}
}  // namespace

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        if (size == 0) return false;
        text.remove_prefix(size);
    }
    return true;
}
}  // namespace Host
