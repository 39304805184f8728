#pragma once

#include <cstdint>

/// Status bytes of system messages (MIDI 1.0 Detailed Specification, tables V to VII).
namespace Host::StatusByte
{
constexpr std::uint8_t SYSTEM_EXCLUSIVE = 0xF0;
constexpr std::uint8_t TIME_CODE = 0xF1;
constexpr std::uint8_t SONG_POSITION = 0xF2;
constexpr std::uint8_t END_OF_EXCLUSIVE = 0xF7;
constexpr std::uint8_t TICK = 0xF8;
constexpr std::uint8_t START = 0xFA;
constexpr std::uint8_t CONTINUE = 0xFB;
constexpr std::uint8_t STOP = 0xFC;
constexpr std::uint8_t ACTIVE_SENSING = 0xFE;
}  // namespace Host::StatusByte
