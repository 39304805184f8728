#pragma once

#include <cstdint>

namespace Host
{
/// How many data bytes a channel message has: one for program change and channel pressure, else two. `status` 80 to EF.
constexpr int channelDataBytes(std::uint8_t status) { return (status & 0xE0) == 0xC0 ? 1 : 2; }

/// How many data bytes a system message carries in an event of the player: two for F0 and F2, one for F3 and F5.
constexpr int systemDataBytes(std::uint8_t status)
{
    constexpr std::uint8_t COUNTS[16] = {2, 0, 2, 1, 0, 1};
    return COUNTS[status & 0x0F];
}

/// `status` 80 to FF.
constexpr int dataBytes(std::uint8_t status)
{
    return status < 0xF0 ? channelDataBytes(status) : systemDataBytes(status);
}
}  // namespace Host
