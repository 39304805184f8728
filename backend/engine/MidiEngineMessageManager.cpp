#include "backend/engine/MidiEngineMessageManager.h"

#include <array>

#include "backend/engine/MidiEngine.h"
#include "backend/messages/Command.h"

namespace Backend::MidiEngine
{
namespace
{
enum Number : unsigned int {
    STOP = 32869,
    PLAY_MIDI_VIA_PARAM = 32870,
    PLAY_MIDI_VIA_ALLOC = 32871,
    SET_MIDI_INPUT_PORTS = 32872,
    SET_MIDI_OUTPUT_PORTS = 32873,
    ENABLE_MIDI_INPUT = 32874,
    ENABLE_MIDI_OUTPUT = 32875,
    SET_DEFAULT_MIDI_OUTPUT = 32876,
    SET_LAYER_LIST = 32877,
    SET_OSC_LIST = 32878,
    SET_ZONE_MAP = 32879,
    SET_ZONE = 32880,
    SET_TEMPO = 32881,
    SET_TEMPO_SOURCE = 32882,
    SET_MIDI_THRU = 32883,
    SET_OSC_PLAYING = 32884,
    SET_OSC_SPEED = 32885
};

constexpr auto COMMANDS = std::to_array<Command<MidiEngine>>({
    eventCommand<&MidiEngine::appendTimedEvent>(PLAY_MIDI_VIA_PARAM, "PlayMidiViaParam"),
    command<&MidiEngine::appendTimedEvent>(PLAY_MIDI_VIA_ALLOC, "PlayMidiViaAlloc"),
    command<&MidiEngine::setMidiInputPorts>(SET_MIDI_INPUT_PORTS, "SetMidiInputPorts"),
    command<&MidiEngine::setMidiOutputPorts>(SET_MIDI_OUTPUT_PORTS, "SetMidiOutputPorts"),
    command<&MidiEngine::enableMidiInput>(ENABLE_MIDI_INPUT, "EnableMidiInput"),
    command<&MidiEngine::enableMidiOutput>(ENABLE_MIDI_OUTPUT, "EnableMidiOutput"),
    command<&MidiEngine::setDefaultMidiOutput>(SET_DEFAULT_MIDI_OUTPUT, "SetDefaultMidiOutput"),
    command<&MidiEngine::setLayerList>(SET_LAYER_LIST, "SetLayerList"),
    command<&MidiEngine::setOscList>(SET_OSC_LIST, "SetOscList"),
    command<&MidiEngine::setZoneMap>(SET_ZONE_MAP, "SetZoneMap"),
    command<&MidiEngine::setZone>(SET_ZONE, "SetZone"),
    command<&MidiEngine::setTempo>(SET_TEMPO, "SetTempo"),
    command<&MidiEngine::setTempoSource>(SET_TEMPO_SOURCE, "SetTempoSource"),
    command<&MidiEngine::setMidiThru>(SET_MIDI_THRU, "SetMidiThru"),
    command<&MidiEngine::setOscPlaying>(SET_OSC_PLAYING, "SetOscPlaying"),
    command<&MidiEngine::setOscSpeed>(SET_OSC_SPEED, "SetOscSpeed"),
});
}  // namespace

MidiEngineMessageManager::MidiEngineMessageManager(MidiEngine& midiEngine)
    : engine(midiEngine), worker("orv-engine", STOP, [this](Message& message) { handleMessage(message); })
{
}

void MidiEngineMessageManager::handleMessage(Message& message) { carryOut<MidiEngine>(COMMANDS, engine, message); }

void MidiEngineMessageManager::postPlayMidi(const OrvMidiMessage& event)
{
    worker.post(packEvent(PLAY_MIDI_VIA_PARAM, PLAY_MIDI_VIA_ALLOC, event));
}

void MidiEngineMessageManager::postSetMidiInputPorts(const MidiInputPorts& ports)
{
    worker.post(pack(SET_MIDI_INPUT_PORTS, ports));
}

void MidiEngineMessageManager::postSetMidiOutputPorts(const MidiOutputPorts& ports)
{
    worker.post(pack(SET_MIDI_OUTPUT_PORTS, ports));
}

void MidiEngineMessageManager::postEnableMidiInput(int port, bool enabled)
{
    worker.post(pack(ENABLE_MIDI_INPUT, port, enabled));
}

void MidiEngineMessageManager::postEnableMidiOutput(int port, bool enabled)
{
    worker.post(pack(ENABLE_MIDI_OUTPUT, port, enabled));
}

void MidiEngineMessageManager::postSetDefaultMidiOutput(int port) { worker.post(pack(SET_DEFAULT_MIDI_OUTPUT, port)); }

void MidiEngineMessageManager::postSetLayerList(std::vector<Layers::Layer> layers)
{
    worker.post(pack(SET_LAYER_LIST, std::move(layers)));
}

void MidiEngineMessageManager::postSetOscList(std::vector<Oscillators::Oscillator> oscillators)
{
    worker.post(pack(SET_OSC_LIST, std::move(oscillators)));
}

void MidiEngineMessageManager::postSetZoneMap(std::vector<Zones::Zone> zones)
{
    worker.post(pack(SET_ZONE_MAP, std::move(zones)));
}

void MidiEngineMessageManager::postSetZone(const Zones::Zone& zone) { worker.post(pack(SET_ZONE, zone)); }

void MidiEngineMessageManager::postSetTempo(int bpm) { worker.post(pack(SET_TEMPO, bpm)); }

void MidiEngineMessageManager::postSetTempoSource(int source) { worker.post(pack(SET_TEMPO_SOURCE, source)); }

void MidiEngineMessageManager::postSetMidiThru(bool on) { worker.post(pack(SET_MIDI_THRU, on)); }

void MidiEngineMessageManager::postSetOscPlaying(Oscillators::OscId id, bool playing)
{
    worker.post(pack(SET_OSC_PLAYING, id, playing));
}

void MidiEngineMessageManager::postSetOscSpeed(Oscillators::OscId id, int speed)
{
    worker.post(pack(SET_OSC_SPEED, id, speed));
}

void MidiEngineMessageManager::sendReset() { engine.sendReset(); }

void MidiEngineMessageManager::sendHardReset() { engine.sendHardReset(); }
}  // namespace Backend::MidiEngine
