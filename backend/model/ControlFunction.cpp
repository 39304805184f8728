#include "backend/model/ControlFunction.h"

namespace Backend::Controls
{
using MidiEngine::OrvMidiMessage;

OrvMidiMessage ControlFunction::eventOf(std::int32_t value, const Cell& cell) const
{
    OrvMidiMessage event(midiEvent, output, channel, zone, cell);
    if (event.isPitchBend()) {
        event.setD1(value & 0x7F);
        event.setD2(value >> 7 & 0x7F);
    } else if (event.isControllerChange()) {
        event.setD2(value);
    } else {
        event.setD1(value);
    }
    return event;
}

std::int32_t ControlFunction::valueOf(const OrvMidiMessage& event)
{
    if (event.isControllerChange()) return event.getD2();
    if (event.isPitchBend()) return event.getD1() + (event.getD2() << 7);
    return event.getD1();
}

bool ControlFunction::agreesWith(const OrvMidiMessage& event) const
{
    const std::int8_t itsChannel = event.isDefaultChannel() ? OrvMidiMessage::DEFAULT_CHANNEL : event.getChannel();
    return isSameEvent(midiEvent, event.getMidiMessage()) && output == event.getOutput() && channel == itsChannel &&
           zone == event.getZone();
}
}  // namespace Backend::Controls
