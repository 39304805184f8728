#include "backend/core/HeldNotes.h"

#include <limits>

namespace Backend
{
void HeldNotes::follow(const MidiEngine::OrvMidiMessage& event)
{
    const auto channel = static_cast<unsigned>(event.getChannel());
    if (!event.isNote() || channel >= CHANNELS || event.getD1() >= NOTES) return;
    const bool isRelease = event.isNoteOff() || event.getD2() == 0;
    auto keyboard = held.find(event.getInput());
    if (keyboard == held.end()) {
        if (isRelease) return;
        keyboard = held.try_emplace(event.getInput()).first;
    }
    auto& count = keyboard->second[channel * NOTES + event.getD1()];
    if (isRelease)
        count = count > 0 ? static_cast<std::uint16_t>(count - 1) : count;
    else if (count < std::numeric_limits<std::uint16_t>::max())
        ++count;
}
}  // namespace Backend
