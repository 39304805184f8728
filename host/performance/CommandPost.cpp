#include "host/performance/CommandPost.h"

#include "api/OrvMessageManager.h"
#include "host/common/SetupFile.h"

namespace Host
{
using Backend::OrvMessageManager;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
/// The receivers of commands. Most commands go to the message manager of the backend.
struct Destination {
    Backend::OrvIF& orv;
    const Backend::RetroRecord::SaveListener& whenSaved;

    operator OrvMessageManager&() const { return orv.getOrvMessageManager(); }
};

void postKind(const Destination& destination, const MidiCommand& command)
{
    const OrvMidiMessage event = toEvent(command);
    destination.orv.deferMidiInputEvent(event.getInput());
    destination.orv.getOrvMessageManager().postProcessMidiInputEvent(event);
}

void postKind(OrvMessageManager& backend, const PlayCommand& command)
{
    backend.postPlayMidi(OrvMidiMessage({.type = static_cast<MessageType>(command.status),
                                         .d1 = command.d1,
                                         .d2 = command.d2,
                                         .channel = command.channel,
                                         .output = command.output,
                                         .zone = command.zone}));
}

void postKind(OrvMessageManager& backend, const EnableCommand& command)
{
    if (command.direction == PortDirection::input)
        backend.postEnableMidiInput(command.port, command.on);
    else
        backend.postEnableMidiOutput(command.port, command.on);
}

void postKind(OrvMessageManager& backend, const LoadCommand& command) { postLoad(backend, command.file); }

void postKind(OrvMessageManager& backend, const KeyCommand& command)
{
    if (command.action == PressAction::up)
        backend.postKeyUp(command.key);
    else
        backend.postKeyDown(command.key, command.action == PressAction::repeat);
}

void postKind(OrvMessageManager& backend, const FunctionCommand& command) { backend.postExecuteFunction(command.xml); }

void postKind(const Destination& destination, const RecordCommand& command)
{
    destination.orv.saveRetroRecordFor(command.stem, destination.whenSaved);
}

void postKind(OrvMessageManager& backend, const ControlCommand& command)
{
    backend.postChangeControl({command.row, command.column}, command.value);
}

void postKind(OrvMessageManager& backend, const AxisCommand& command)
{
    backend.postJoystickAxis(command.joystick, command.axis, command.value);
}

void postKind(OrvMessageManager& backend, const ButtonCommand& command)
{
    if (command.action == PressAction::up)
        backend.postJoystickButtonUp(command.joystick, command.button);
    else
        backend.postJoystickButtonDown(command.joystick, command.button, command.action == PressAction::repeat);
}
}  // namespace

OrvMidiMessage toEvent(const MidiCommand& command)
{
    return OrvMidiMessage({.type = static_cast<MessageType>(command.status),
                           .d1 = command.d1,
                           .d2 = command.d2,
                           .channel = command.channel,
                           .input = command.input});
}

void post(Backend::OrvIF& orv, const Command& command, const Backend::RetroRecord::SaveListener& whenSaved)
{
    std::visit([&](const auto& kind) { postKind(Destination{orv, whenSaved}, kind); }, command);
}
}  // namespace Host
