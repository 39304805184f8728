#include "host/performance/CommandPost.h"

#include "host/SetupFile.h"

namespace Host
{
using Backend::OrvMessageManager;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr std::int32_t UNTIMED = -1;

void postKind(OrvMessageManager& backend, const MidiCommand& command)
{
    backend.postProcessMidiInputEvent({static_cast<MessageType>(command.status), command.d1, command.d2,
                                       command.channel, OrvMidiMessage::DEFAULT_OUTPUT, OrvMidiMessage::DEFAULT_ZONE,
                                       command.input, UNTIMED});
}

void postKind(OrvMessageManager& backend, const PlayCommand& command)
{
    backend.postPlayMidi({static_cast<MessageType>(command.status), command.d1, command.d2, command.channel,
                          command.output, command.zone, OrvMidiMessage::DEFAULT_INPUT, UNTIMED});
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
    if (command.action == KeyAction::up)
        backend.postKeyUp(command.key);
    else
        backend.postKeyDown(command.key, command.action == KeyAction::repeat);
}

void postKind(OrvMessageManager& backend, const FunctionCommand& command) { backend.postExecuteFunction(command.xml); }
}  // namespace

void post(OrvMessageManager& backend, const Command& command)
{
    std::visit([&](const auto& kind) { postKind(backend, kind); }, command);
}
}  // namespace Host
