#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
namespace
{
// MIDI 1.0, channel mode messages
constexpr int ALL_SOUND_OFF = 120;
constexpr int RESET_ALL_CONTROLLERS = 121;

OrvMidiMessage createController(int controller, int output, int channel)
{
    return OrvMidiMessage(
        {.type = MessageType::controllerChange, .d1 = controller, .channel = channel, .output = output});
}
}  // namespace

OrvMidiMessage OrvMidiMessage::createAllSoundOffCC(int output, int channel)
{
    return createController(ALL_SOUND_OFF, output, channel);
}

OrvMidiMessage OrvMidiMessage::createAllControllersOffCC(int output, int channel)
{
    return createController(RESET_ALL_CONTROLLERS, output, channel);
}

OrvMidiMessage OrvMidiMessage::createSystemReset(int output)
{
    return OrvMidiMessage({.type = MessageType::systemReset, .channel = 0, .output = output});
}

OrvMidiMessage OrvMidiMessage::createOrvReset() { return OrvMidiMessage(MidiEngineMessageType::reset); }

OrvMidiMessage OrvMidiMessage::createOrvHardReset() { return OrvMidiMessage(MidiEngineMessageType::hardReset); }

OrvMidiMessage OrvMidiMessage::createReplacement() { return OrvMidiMessage(MidiEngineMessageType::replacement); }

OrvMidiMessage OrvMidiMessage::createInputMarker(int input)
{
    OrvMidiMessage marker(MidiEngineMessageType::inputMarker);
    marker.input = static_cast<std::int8_t>(input);
    marker.output = DEFAULT_OUTPUT - 1;
    return marker;
}
}  // namespace Backend::MidiEngine
