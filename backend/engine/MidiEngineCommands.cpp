#include <array>

#include "backend/engine/MidiEngine.h"

namespace Backend::MidiEngine
{
namespace
{
using namespace MidiEngineMessage;

constexpr auto COMMANDS = std::to_array<Command<MidiEngine>>({
    onParam<PLAY_MIDI, &MidiEngine::appendTimedEvent>(),
    onAlloc<PLAY_MIDI, &MidiEngine::appendTimedEvent>(),
    on<SET_MIDI_INPUT_PORTS, &MidiEngine::setMidiInputPorts>(),
    on<SET_MIDI_OUTPUT_PORTS, &MidiEngine::setMidiOutputPorts>(),
    on<ENABLE_MIDI_INPUT, &MidiEngine::enableMidiInput>(),
    on<ENABLE_MIDI_OUTPUT, &MidiEngine::enableMidiOutput>(),
    on<SET_DEFAULT_MIDI_OUTPUT, &MidiEngine::setDefaultMidiOutput>(),
    on<SET_LAYER_LIST, &MidiEngine::setLayerList>(),
    on<SET_OSC_LIST, &MidiEngine::setOscList>(),
    on<SET_ZONE_MAP, &MidiEngine::setZoneMap>(),
    on<SET_ZONE, &MidiEngine::setZone>(),
    on<SET_TEMPO, &MidiEngine::setTempo>(),
    on<SET_TEMPO_SOURCE, &MidiEngine::setTempoSource>(),
    on<SET_MIDI_THRU, &MidiEngine::setMidiThru>(),
    on<SET_OSC_PLAYING, &MidiEngine::setOscPlaying>(),
    on<SET_MIDI_TRANSLATIONS, &MidiEngine::setMidiTranslations>(),
    on<SETTLE_MIDI_INPUT, &MidiEngine::settleMidiInput>(),
    on<SET_OSC_SPEED, &MidiEngine::setOscSpeed>(),
    on<SET_KEEP_NOTES, &MidiEngine::setKeepNotes>(),
    on<FREE_SILENT_LAYERS, &MidiEngine::freeSilentLayers>(),
    on<SEND_SEQUENCE_STEPS, &MidiEngine::sendSequenceSteps>(),
});
}  // namespace

void MidiEngine::handleMessage(Message& message) { execute<MidiEngine>(COMMANDS, *this, message); }
}  // namespace Backend::MidiEngine
