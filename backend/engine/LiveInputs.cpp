#include "backend/engine/LiveInputs.h"

#include <utility>

namespace Backend::MidiEngine
{
LiveInputs::Way LiveInputs::findWay(const OrvMidiMessage& received) const
{
    const bool isForBackend = !takesEvents(received.getInput()) || programChanges.takes(received);
    return isForBackend ? Way{} : findWay(received, translations.now());
}

void LiveInputs::follow(const OrvMidiMessage& event)
{
    if (event.getInput() < 0) return;
    if (auto* const notes = held[static_cast<std::size_t>(event.getInput())].get()) notes->follow(event);
}

void LiveInputs::setPorts(const MidiInputPorts& ports, Held& room)
{
    for (std::size_t input = 0; input < INPUTS; ++input) {
        enabled[input] = isEnabled(ports, static_cast<int>(input));
        if (enabled[input] && !held[input]) held[input] = std::move(room[input]);
    }
}
}  // namespace Backend::MidiEngine
