// The port lists, the default output and the user's choices.

#include <algorithm>
#include <array>
#include <string_view>

#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"

namespace Backend
{
using MidiEngine::isEnabled;
using MidiEngine::MidiInputPort;
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPort;
using MidiEngine::MidiOutputPorts;

namespace
{
// The software synthesizer of the operating system, so that something sounds on the first run.
constexpr std::array<std::string_view, 2> SYSTEM_SYNTHESIZERS{"Microsoft GS Wavetable Synth",
                                                              "Microsoft GS Wavetable SW Synth"};

bool isSystemSynthesizer(const MidiOutputPort& port)
{
    return std::ranges::find(SYSTEM_SYNTHESIZERS, port.name) != SYSTEM_SYNTHESIZERS.end();
}

// Whether the number of an input still belongs to the same device.
bool isStillThere(const MidiInputPort& before, const MidiInputPorts& ports, std::size_t index)
{
    return index < ports.size() && ports[index].enabled && ports[index].found && ports[index].name == before.name;
}
}  // namespace

void Orv::setMidiInputPorts(const MidiInputPorts& ports)
{
    assertBackendThread();
    for (std::size_t input = 0; input < midiInputPorts.size(); ++input)
        if (!isStillThere(midiInputPorts[input], ports, input)) releaseHeldNotes(static_cast<int>(input));
    midiInputPorts = ports;
    publishInputs();
    display.getMessageManager().postSetMidiInputPorts(ports);
    notifyGui(GuiMessage::MIDI_INPUT_PORTS, ports);
}

/// At once, not by a message: no event of an input that is disabled may be played any more.
void Orv::publishInputs() { midiEngine.setMidiInputPorts(midiInputPorts); }

void Orv::setMidiOutputPorts(const MidiOutputPorts& ports)
{
    assertBackendThread();
    midiOutputPorts = ports;
    fixDefaultMidiOutput();
    retroRecord.setOutputs(ports);  // before the engine can play to a new one
    midiEngine.getMessageManager().postSetMidiOutputPorts(ports);
    display.getMessageManager().postSetMidiOutputPorts(ports);
    notifyGui(GuiMessage::MIDI_OUTPUT_PORTS, ports);
}

/// Keeps the default output if it is enabled or may come back. Otherwise the synthesizer of the system, or the first
/// enabled output, becomes the default.
void Orv::fixDefaultMidiOutput()
{
    int output = registrySettings.getDefaultMidiOutput();
    const bool isSet = output >= 0;
    if (isSet && (static_cast<std::size_t>(output) >= midiOutputPorts.size() || isEnabled(midiOutputPorts, output)))
        return;

    const auto indexOf = [&](auto port) {
        return port == midiOutputPorts.end() ? -1 : static_cast<int>(port - midiOutputPorts.begin());
    };
    output = isSet ? -1 : indexOf(std::ranges::find_if(midiOutputPorts, isSystemSynthesizer));
    if (!isEnabled(midiOutputPorts, output))
        output = indexOf(std::ranges::find_if(midiOutputPorts, &MidiOutputPort::enabled));
    setDefaultMidiOutput(output);
}

void Orv::setDefaultMidiOutput(int output)
{
    if (output == registrySettings.getDefaultMidiOutput()) return;
    registrySettings.setDefaultMidiOutput(output);
    midiEngine.getMessageManager().postSetDefaultMidiOutput(output);
    notifyGui(GuiMessage::DEFAULT_MIDI_OUTPUT, output);
}

void Orv::changeDefaultMidiOutput(const SelectType& select)
{
    assertBackendThread();
    const std::int64_t current = registrySettings.getDefaultMidiOutput();
    int output = -1;
    switch (select.kind) {
        case SelectType::Kind::up:
            output = findOpenOutput(current + 1, 1);
            break;
        case SelectType::Kind::down:
            output = findOpenOutput(current - 1, -1);
            break;
        default:
            output = findOpenOutput(select.value, 0);
    }
    if (output >= 0) setDefaultMidiOutput(output);
}

/// The first enabled and open output from `from` in steps of `step` (0: only that one), or -1.
int Orv::findOpenOutput(std::int64_t from, int step) const
{
    for (std::int64_t output = from; output >= 0 && output < std::ssize(midiOutputPorts); output += step) {
        const MidiOutputPort& port = midiOutputPorts[static_cast<std::size_t>(output)];
        if (port.enabled && port.found && !port.couldNotOpen) return static_cast<int>(output);
        if (step == 0) break;
    }
    return -1;
}

void Orv::releaseMidiInput(int port)
{
    assertBackendThread();
    releaseHeldNotes(port);
}

void Orv::enableMidiInput(int port, bool enabled)
{
    assertBackendThread();
    if (port < 0 || static_cast<std::size_t>(port) >= midiInputPorts.size()) return;
    if (!enabled) releaseHeldNotes(port);
    midiInputPorts[static_cast<std::size_t>(port)].enabled = enabled;
    publishInputs();
    registrySettings.setMidiInputEnabled(port, enabled);
    midiEngine.getMessageManager().postEnableMidiInput(port, enabled);
    notifyGui(GuiMessage::MIDI_INPUT_PORTS, midiInputPorts);
}

void Orv::enableMidiOutput(int port, bool enabled)
{
    assertBackendThread();
    if (port < 0 || port >= std::ssize(midiOutputPorts)) return;
    registrySettings.setMidiOutputEnabled(port, enabled);
    midiEngine.getMessageManager().postEnableMidiOutput(port, enabled);
}
}  // namespace Backend
