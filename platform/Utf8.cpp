#include "platform/Utf8.h"

#include <bit>
#include <cstdint>

namespace
{
/// The number of bytes of the first character, 0 if it is not valid.
std::size_t characterSize(std::string_view text)
{
    const auto byteAt = [&](std::size_t index) { return static_cast<std::uint8_t>(text[index]); };
    if (byteAt(0) < 0x80) return 1;

    const auto size = static_cast<std::size_t>(std::countl_one(byteAt(0)));
    if (size < 2 || size > 4 || text.size() < size) return 0;
    std::uint32_t character = byteAt(0) & (0x7Fu >> size);
    for (std::size_t index = 1; index < size; ++index) {
        if ((byteAt(index) & 0xC0) != 0x80) return 0;
        character = character << 6 | (byteAt(index) & 0x3Fu);
    }

    constexpr std::uint32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};  // that needs that many bytes
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return character >= SMALLEST[size] && character <= 0x10FFFF && !isSurrogate ? size : 0;
}
}  // namespace

std::size_t countUtf8Bytes(std::string_view text)
{
    std::size_t count = 0;
    while (count < text.size()) {
        const std::size_t size = characterSize(text.substr(count));
        if (size == 0) break;
        count += size;
    }
    return count;
}
