#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

namespace Backend::Display
{
/// The last event of each kind that MIDI inputs have received, a kind being an input, a channel and an event as
/// `MidiInput::MidiEvent` compares them.
class ORV_API ReceivedEvents
{
public:
    /// One more kind takes the place of the one that was received longest ago.
    static constexpr std::size_t MOST = 200;

    void add(const MidiEngine::OrvMidiMessage& event);
    /// Each kind stays in its place.
    const std::vector<MidiEngine::OrvMidiMessage>& getEvents() const { return events; }
    /// Whether any was added since the last call.
    bool takeChanged() { return std::exchange(isChanged, false); }

private:
    std::vector<MidiEngine::OrvMidiMessage> events;
    std::vector<std::uint64_t> ages;  // of each: the older, the lower
    std::uint64_t lastAge = 0;
    bool isChanged = false;
};
}  // namespace Backend::Display
