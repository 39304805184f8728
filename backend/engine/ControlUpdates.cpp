#include "backend/engine/ControlUpdates.h"

namespace Backend::Controls
{
using MidiEngine::MidiMessage;
using MidiEngine::OrvMidiMessage;

namespace
{
// The layout of the second parameter, from the low byte up: output, these flags, row and column in four bits each,
// zone.
constexpr std::uint32_t DEFAULT_CHANNEL = 0x100;
constexpr std::uint32_t HAS_CELL = 0x200;

bool isInGrid(const Cell& cell)
{
    return cell.row >= 0 && cell.row < ControlMap::ROWS && cell.col >= 0 && cell.col < ControlMap::COLUMNS;
}
}  // namespace

void ControlUpdates::setFollowed(const ControlMap& map)
{
    std::array<bool, 512> wanted{};
    map.forEach([&](const Control& control) {
        if (!control.functions.empty()) wanted[placeOf(control.functions.front().midiEvent)] = true;
    });
    for (std::size_t i = 0; i < wanted.size(); ++i) followed[i].store(wanted[i], std::memory_order_relaxed);
}

Message ControlUpdates::pack(const OrvMidiMessage& event)
{
    std::uint32_t word =
        static_cast<std::uint8_t>(event.getOutput()) | std::uint32_t{static_cast<std::uint8_t>(event.getZone())} << 24;
    if (event.isDefaultChannel()) word |= DEFAULT_CHANNEL;
    if (const Cell& cell = event.getFromControl(); isInGrid(cell))
        word |= HAS_CELL | static_cast<std::uint32_t>(cell.row) << 20 | static_cast<std::uint32_t>(cell.col) << 16;
    return {.number = MESSAGE, .wparam = event.getWparam(), .lparam = static_cast<std::int32_t>(word)};
}

OrvMidiMessage ControlUpdates::read(const Message& message)
{
    const auto word = static_cast<std::uint32_t>(message.lparam);
    const MidiMessage midi(message.wparam);
    const int channel = (word & DEFAULT_CHANNEL) != 0 ? OrvMidiMessage::DEFAULT_CHANNEL : midi.getChannel();
    const Cell cell = (word & HAS_CELL) != 0
                          ? Cell{static_cast<std::int32_t>(word >> 20 & 15), static_cast<std::int32_t>(word >> 16 & 15)}
                          : Cell{};
    return {midi, static_cast<std::int8_t>(word), channel, static_cast<std::int8_t>(word >> 24), cell};
}
}  // namespace Backend::Controls
