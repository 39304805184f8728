#include "backend/core/Orv.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "backend/core/GuiMessages.h"
#include "backend/input/values/Text.h"
#include "backend/persistence/OrvUtils.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"

namespace Backend
{
using MidiEngine::isEnabled;
using MidiEngine::MessageType;
using MidiEngine::MidiInputPort;
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPort;
using MidiEngine::MidiOutputPorts;
using MidiEngine::OrvMidiMessage;

namespace
{
// The operating system's own software synthesizer, which sounds on a first run.
constexpr std::array<std::string_view, 2> SYSTEM_SYNTHESIZERS{"Microsoft GS Wavetable Synth",
                                                              "Microsoft GS Wavetable SW Synth"};

constexpr int RELEASE_VELOCITY = 100;

constexpr const char* BANKS = "Banks";
constexpr const char* DEFAULT_BANK = "Default Bank.bnk";

bool isSystemSynthesizer(const MidiOutputPort& port)
{
    return std::ranges::find(SYSTEM_SYNTHESIZERS, port.name) != SYSTEM_SYNTHESIZERS.end();
}

// Whether the device behind an input's number is still the one that was there before.
bool isStillThere(const MidiInputPort& before, const MidiInputPorts& ports, std::size_t index)
{
    return index < ports.size() && ports[index].enabled && ports[index].found && ports[index].name == before.name;
}
}  // namespace

Orv::Orv(const std::string& application, MidiEngine::MidiPlayer& player)
    : applicationName(application),
      orvMessageManager(messageManagerMaster, *this),
      midiEngine(player),
      layerManager(*this, messageManagerMaster),
      zoneManager(*this, messageManagerMaster)
{
    messageManagerMaster.addMessageManager(&orvMessageManager);
    messageManagerMaster.addMessageManager(&layerManager.getMessageManager());
    messageManagerMaster.addMessageManager(&zoneManager.getMessageManager());
}

Orv::~Orv()
{
    midiEngine.end();
    stop();
}

void Orv::initialize()
{
    registrySettings.loadFromRegistry(OrvUtils::getRegistryKey(applicationName));
    presetStores.refresh();
    layerManager.getPresets().refresh();
    midiEngine.initialize(registrySettings.getDefaultMidiOutput(), registrySettings.getMidiThru());
    prepareBanks();
    loadBank(registrySettings.getDefaultBank());
}

void Orv::endInitialize() {}

void Orv::end()
{
    midiEngine.end();
    registrySettings.saveToRegistry(OrvUtils::getRegistryKey(applicationName));
}

/// A new user gets the installed banks, and a default bank among them.
void Orv::prepareBanks()
{
    const std::string folder = OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), BANKS);
    if (folder.empty()) return;
    std::error_code failed;
    if (!std::filesystem::is_directory(pathOf(folder), failed)) {
        OrvUtils::copyFiles(BANKS, BANKS);
        std::filesystem::create_directories(pathOf(folder), failed);
    }
    if (Text::trim(registrySettings.getDefaultBank()).empty())
        registrySettings.setDefaultBank(OrvUtils::pathIn(folder, DEFAULT_BANK));
}

// --- the window

WindowHandle Orv::getGuiWindowHandle() const
{
    const std::lock_guard lock(guiWindowLock);
    return guiWindowHandle;
}

void Orv::setGuiWindowHandle(const WindowHandle& window)
{
    {
        const std::lock_guard lock(guiWindowLock);
        guiWindowHandle = window;
    }
    midiEngine.setGuiWindowHandle(window);
}

// --- ports

void Orv::setMidiInputPorts(const MidiInputPorts& ports)
{
    for (std::size_t input = 0; input < midiInputPorts.size(); ++input)
        if (!isStillThere(midiInputPorts[input], ports, input)) releaseHeldNotes(static_cast<int>(input));
    midiInputPorts = ports;
    midiEngine.getMessageManager().postSetMidiInputPorts(ports);
    tellGui(GuiMessage::MIDI_INPUT_PORTS, ports);
}

void Orv::setMidiOutputPorts(const MidiOutputPorts& ports)
{
    midiOutputPorts = ports;
    fixDefaultMidiOutput();
    midiEngine.getMessageManager().postSetMidiOutputPorts(ports);
    tellGui(GuiMessage::MIDI_OUTPUT_PORTS, ports);
}

/// Keeps a default that may still come back or is enabled; otherwise the system's synthesizer, or the first output
/// that is enabled.
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
    tellGui(GuiMessage::DEFAULT_MIDI_OUTPUT, output);
}

void Orv::changeDefaultMidiOutput(const SelectType& select)
{
    const int current = registrySettings.getDefaultMidiOutput();
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

/// The first output from `from` in steps of `step` (0: that one only) that is enabled and open, or -1.
int Orv::findOpenOutput(int from, int step) const
{
    for (int output = from; output >= 0 && static_cast<std::size_t>(output) < midiOutputPorts.size(); output += step) {
        const MidiOutputPort& port = midiOutputPorts[static_cast<std::size_t>(output)];
        if (port.enabled && port.found && !port.couldNotOpen) return output;
        if (step == 0) break;
    }
    return -1;
}

void Orv::enableMidiInput(int port, bool enabled)
{
    if (port < 0 || static_cast<std::size_t>(port) >= midiInputPorts.size()) return;
    if (!enabled) releaseHeldNotes(port);
    midiInputPorts[static_cast<std::size_t>(port)].enabled = enabled;
    registrySettings.setMidiInputEnabled(port, enabled);
    midiEngine.getMessageManager().postEnableMidiInput(port, enabled);
    tellGui(GuiMessage::MIDI_INPUT_PORTS, midiInputPorts);
}

void Orv::enableMidiOutput(int port, bool enabled)
{
    registrySettings.setMidiOutputEnabled(port, enabled);
    midiEngine.getMessageManager().postEnableMidiOutput(port, enabled);
}

// --- events

void Orv::processMidiInputEvent(const OrvMidiMessage& event)
{
    if (isEnabled(midiInputPorts, event.getInput()))
        takeInputEvent(event);
    else
        WindowsLib::DbgStream() << "dropped " << event.getMidiMessage().toXmlString() << ", input "
                                << int{event.getInput()} << ": no such input, or not enabled";
}

/// Many keyboards release a key with a note on of velocity 0. From here on it is a note off.
void Orv::takeInputEvent(OrvMidiMessage event)
{
    if (event.isNoteOn() && event.getD2() == 0) {
        event.setToNoteOff();
        event.setD2(RELEASE_VELOCITY);
    }
    heldNotes.follow(event);
    event.setDefaultChannel(true);  // the layers give it theirs
    orvMessageManager.postPlayMidi(event);
}

/// Before an input goes silent it gives the note offs that will not come any more, on the road its events take.
void Orv::releaseHeldNotes(int input)
{
    if (!isEnabled(midiInputPorts, input)) return;
    heldNotes.release(input, [&](int channel, int note) {
        takeInputEvent({MessageType::noteOff, note, RELEASE_VELOCITY, channel, OrvMidiMessage::DEFAULT_OUTPUT,
                        OrvMidiMessage::DEFAULT_ZONE, input, -1});
    });
}

void Orv::playMidi(const OrvMidiMessage& event) { midiEngine.getMessageManager().postPlayMidi(event); }

// --- tempo, thru, reset

void Orv::changeTempo(const RelativeFixedValue& value, bool notify)
{
    const auto tempo = value.appliedTo(program.tempo);
    if (tempo < Program::LOWEST_TEMPO || tempo > Program::HIGHEST_TEMPO) return;
    program.tempo = static_cast<int>(tempo);
    midiEngine.getMessageManager().postSetTempo(program.tempo);
    if (notify) tellGui(GuiMessage::PROGRAM, program);
}

void Orv::setTempoSource(int source, bool notify)
{
    const bool isInput = source >= 0 && static_cast<std::size_t>(source) < midiInputPorts.size();
    if (!isInput && source != Program::INTERNAL_TEMPO_SOURCE) return;
    program.tempoSource = source;
    midiEngine.getMessageManager().postSetTempoSource(source);
    if (notify) tellGui(GuiMessage::PROGRAM, program);
}

void Orv::changeMidiThru(const OnOffToggle& value, bool notify)
{
    const bool on = value.appliedTo(registrySettings.getMidiThru());
    registrySettings.setMidiThru(on);
    midiEngine.getMessageManager().postSetMidiThru(on);
    if (notify) tellGui(GuiMessage::MIDI_THRU, on);
}

void Orv::resetOrv()
{
    midiEngine.sendHardReset();
    tellGui(GuiMessage::ORV_RESET, 0);
}

// --- rest

/// Two looks: if nothing changed between them and every worker rested at both, all rested at once.
bool Orv::isAtRest() const
{
    const auto look = [this] {
        return std::array{messageManagerMaster.getWorker().rest(), midiEngine.getMessageManager().getWorker().rest()};
    };
    const auto first = look();
    return first == look() && std::ranges::all_of(first, &Worker::Rest::resting);
}
}  // namespace Backend
