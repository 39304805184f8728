#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace Host
{
/// One track chunk of a Standard MIDI File, written event by event. Times are pulses, 0 or more, in rising order; an
/// earlier one counts as the time of the event before it. Every event has its status byte: running status is not used.
class TrackWriter
{
public:
    /// A channel message, status and data bytes as they stand in the file.
    void message(std::int32_t pulse, std::span<const std::uint8_t> bytes);

    /// A system message, as an F7 escape.
    void escape(std::int32_t pulse, std::span<const std::uint8_t> bytes);

    /// A meta event; `type` 0 to 127.
    void meta(std::int32_t pulse, std::uint8_t type, std::string_view content);

    /// Appends the chunk to a file: header, events, and the end-of-track event at `endPulse` or at the last event.
    void appendTo(std::vector<std::uint8_t>& file, std::int32_t endPulse) const;

private:
    void advanceTo(std::int32_t pulse);
    void variableLength(std::uint32_t value);

    std::vector<std::uint8_t> events;
    std::int32_t lastPulse = 0;
};

/// Appends the `size` low bytes of a number, most significant first.
void appendBigEndian(std::vector<std::uint8_t>& file, std::uint32_t value, int size);
}  // namespace Host
