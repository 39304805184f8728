#include "backend/engine/HeldNotes.h"

#include <limits>

namespace Backend::MidiEngine
{
void HeldNotes::follow(const OrvMidiMessage& event)
{
    const auto channel = static_cast<unsigned>(event.getChannel());
    if (event.isPedal() && channel < CHANNELS)
        pedals[channel * PEDALS + event.getD1() - FIRST_PEDAL] = event.getD2() > 0;
    if (!event.isNote() || channel >= CHANNELS || event.getD1() >= NOTES) return;
    auto& count = held[channel * NOTES + event.getD1()];
    if (event.isNoteOff() || event.getD2() == 0)
        count = count > 0 ? static_cast<std::uint16_t>(count - 1) : count;
    else if (count < std::numeric_limits<std::uint16_t>::max())
        ++count;
}
}  // namespace Backend::MidiEngine
