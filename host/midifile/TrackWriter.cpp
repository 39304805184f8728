#include "host/midifile/TrackWriter.h"

#include <algorithm>

namespace Host
{
namespace
{
constexpr std::uint8_t TEXT = 0x01;
constexpr std::uint8_t END_OF_TRACK = 0x2F;
constexpr std::int32_t LONGEST_DELTA = 0x0FFFFFFF;
}  // namespace

void TrackWriter::message(std::int32_t pulse, std::span<const std::uint8_t> bytes)
{
    advanceTo(pulse);
    events.insert(events.end(), bytes.begin(), bytes.end());
}

void TrackWriter::escape(std::int32_t pulse, std::span<const std::uint8_t> bytes)
{
    advanceTo(pulse);
    events.push_back(0xF7);
    variableLength(static_cast<std::uint32_t>(bytes.size()));
    events.insert(events.end(), bytes.begin(), bytes.end());
}

void TrackWriter::meta(std::int32_t pulse, std::uint8_t type, std::string_view content)
{
    advanceTo(pulse);
    events.insert(events.end(), {0xFF, type});
    variableLength(static_cast<std::uint32_t>(content.size()));
    events.insert(events.end(), content.begin(), content.end());
}

void TrackWriter::appendTo(std::vector<std::uint8_t>& file, std::int32_t endPulse) const
{
    TrackWriter whole = *this;
    whole.meta(endPulse, END_OF_TRACK, "");
    file.insert(file.end(), {'M', 'T', 'r', 'k'});
    appendBigEndian(file, static_cast<std::uint32_t>(whole.events.size()), 4);
    file.insert(file.end(), whole.events.begin(), whole.events.end());
}

void TrackWriter::advanceTo(std::int32_t pulse)
{
    std::int32_t delta = std::max(pulse, lastPulse) - lastPulse;
    lastPulse += delta;
    // A delta time has four bytes at most; a longer one is divided by empty text events.
    for (; delta > LONGEST_DELTA; delta -= LONGEST_DELTA) {
        variableLength(LONGEST_DELTA);
        events.insert(events.end(), {0xFF, TEXT, 0});
    }
    variableLength(static_cast<std::uint32_t>(delta));
}

void TrackWriter::variableLength(std::uint32_t value)
{
    for (int shift = value < 0x80 ? 0 : 21; shift > 0; shift -= 7)
        if (value >> shift != 0) events.push_back(static_cast<std::uint8_t>((value >> shift & 0x7F) | 0x80));
    events.push_back(static_cast<std::uint8_t>(value & 0x7F));
}

void appendBigEndian(std::vector<std::uint8_t>& file, std::uint32_t value, int size)
{
    while (size-- > 0) file.push_back(static_cast<std::uint8_t>(value >> 8 * size));
}
}  // namespace Host
