#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "backend/messages/TypedMessage.h"
#include "backend/model/Layer.h"
#include "backend/model/MidiPort.h"
#include "backend/model/Oscillator.h"
#include "backend/model/Zone.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/Worker.h"

namespace Backend::MidiInput
{
class MidiEventConfigurationMap;
}

namespace Backend::MidiEngine
{
/// The commands of the engine, which execute its operations of the same names.
namespace MidiEngineMessage
{
inline constexpr unsigned int STOP = 32869;

inline constexpr EventMessage PLAY_MIDI{{32870, "PlayMidiViaParam"}, {32871, "PlayMidiViaAlloc"}};
inline constexpr TypedMessage<MidiInputPorts> SET_MIDI_INPUT_PORTS{32872, "SetMidiInputPorts"};
inline constexpr TypedMessage<MidiOutputPorts> SET_MIDI_OUTPUT_PORTS{32873, "SetMidiOutputPorts"};
inline constexpr TypedMessage<int, bool> ENABLE_MIDI_INPUT{32874, "EnableMidiInput"};
inline constexpr TypedMessage<int, bool> ENABLE_MIDI_OUTPUT{32875, "EnableMidiOutput"};
inline constexpr TypedMessage<int> SET_DEFAULT_MIDI_OUTPUT{32876, "SetDefaultMidiOutput"};
inline constexpr TypedMessage<std::vector<Layers::Layer>> SET_LAYER_LIST{32877, "SetLayerList"};
inline constexpr TypedMessage<std::vector<Oscillators::Oscillator>> SET_OSC_LIST{32878, "SetOscList"};
inline constexpr TypedMessage<std::vector<Zones::Zone>> SET_ZONE_MAP{32879, "SetZoneMap"};
inline constexpr TypedMessage<Zones::Zone> SET_ZONE{32880, "SetZone"};
inline constexpr TypedMessage<int> SET_TEMPO{32881, "SetTempo"};
inline constexpr TypedMessage<int> SET_TEMPO_SOURCE{32882, "SetTempoSource"};
inline constexpr TypedMessage<bool> SET_MIDI_THRU{32883, "SetMidiThru"};
inline constexpr TypedMessage<Oscillators::OscId, bool> SET_OSC_PLAYING{32884, "SetOscPlaying"};
inline constexpr TypedMessage<Oscillators::OscId, int> SET_OSC_SPEED{32885, "SetOscSpeed"};
inline constexpr TypedMessage<std::shared_ptr<const MidiInput::MidiEventConfigurationMap>> SET_MIDI_TRANSLATIONS{
    32886, "SetMidiTranslations"};
inline constexpr TypedMessage<int> SETTLE_MIDI_INPUT{32887, "SettleMidiInput"};
inline constexpr TypedMessage<bool> SET_KEEP_NOTES{32888, "SetKeepNotes"};
inline constexpr TypedMessage<> FREE_SILENT_LAYERS{32889, "FreeSilentLayers"};
inline constexpr TypedMessage<> SEND_SEQUENCE_STEPS{32890, "SendSequenceSteps"};
}  // namespace MidiEngineMessage

/// The interface that executes the engine's commands.
class MidiEngineCommands
{
public:
    virtual ~MidiEngineCommands() = default;
    /// The engine's command thread.
    virtual void handleMessage(Message& message) = 0;
    /// See `MidiEngineMessageManager`; they wait.
    virtual void sendReset() = 0;
    virtual void sendHardReset() = 0;
};

/// The commands of the engine, executed on a thread of its own. Each holds the engine lock for a short time only.
/// `post` commands may be called on any thread but inside a time slice.
class ORV_API MidiEngineMessageManager
{
public:
    explicit MidiEngineMessageManager(MidiEngineCommands& engineCommands)
        : commands(engineCommands),
          worker(
              "orv-engine", MidiEngineMessage::STOP, [this](Message& message) { commands.handleMessage(message); },
              SLICE_POOL)
    {
    }

    /// See `Worker`.
    void setRealTimeStep(RealTimeStep step) { worker.setRealTimeStep(step); }

    void start() { worker.start(); }
    void stop() { worker.stop(); }

    void postPlayMidi(const OrvMidiMessage& event) { worker.post(MidiEngineMessage::PLAY_MIDI(event)); }
    void postSetMidiInputPorts(const MidiInputPorts& ports)
    {
        worker.post(MidiEngineMessage::SET_MIDI_INPUT_PORTS(ports));
    }
    void postSetMidiOutputPorts(const MidiOutputPorts& ports)
    {
        worker.post(MidiEngineMessage::SET_MIDI_OUTPUT_PORTS(ports));
    }
    void postEnableMidiInput(int port, bool enabled)
    {
        worker.post(MidiEngineMessage::ENABLE_MIDI_INPUT(port, enabled));
    }
    void postEnableMidiOutput(int port, bool enabled)
    {
        worker.post(MidiEngineMessage::ENABLE_MIDI_OUTPUT(port, enabled));
    }
    void postSetDefaultMidiOutput(int port) { worker.post(MidiEngineMessage::SET_DEFAULT_MIDI_OUTPUT(port)); }
    /// The layers replace the present ones directly after a reset, or without one while notes are kept; the command
    /// thread waits for the slice of both.
    void postSetLayerList(std::vector<Layers::Layer> layers)
    {
        worker.post(MidiEngineMessage::SET_LAYER_LIST(std::move(layers)));
    }
    /// The same for the oscillators.
    void postSetOscList(std::vector<Oscillators::Oscillator> oscillators)
    {
        worker.post(MidiEngineMessage::SET_OSC_LIST(std::move(oscillators)));
    }
    void postSetZoneMap(std::vector<Zones::Zone> zones)
    {
        worker.post(MidiEngineMessage::SET_ZONE_MAP(std::move(zones)));
    }
    /// Only the transposition, and only if there is such a zone.
    void postSetZone(const Zones::Zone& zone) { worker.post(MidiEngineMessage::SET_ZONE(zone)); }
    void postSetTempo(int bpm) { worker.post(MidiEngineMessage::SET_TEMPO(bpm)); }
    void postSetTempoSource(int source) { worker.post(MidiEngineMessage::SET_TEMPO_SOURCE(source)); }
    void postSetMidiThru(bool on) { worker.post(MidiEngineMessage::SET_MIDI_THRU(on)); }
    /// Starts or stops an oscillator; its stop value is sent too. An id outside the list is ignored.
    void postSetOscPlaying(Oscillators::OscId id, bool playing)
    {
        worker.post(MidiEngineMessage::SET_OSC_PLAYING(id, playing));
    }
    /// What events of inputs are translated by; not null.
    void postSetMidiTranslations(std::shared_ptr<const MidiInput::MidiEventConfigurationMap> translations)
    {
        worker.post(MidiEngineMessage::SET_MIDI_TRANSLATIONS(std::move(translations)));
    }
    /// Everything that a deferred event of that input made has been posted.
    void postSettleMidiInput(int input) { worker.post(MidiEngineMessage::SETTLE_MIDI_INPUT(input)); }
    /// Whether held notes ring on when layers or oscillators are replaced. A change resets.
    void postSetKeepNotes(bool on) { worker.post(MidiEngineMessage::SET_KEEP_NOTES(on)); }
    void postSetOscSpeed(Oscillators::OscId id, int speed) { worker.post(MidiEngineMessage::SET_OSC_SPEED(id, speed)); }

    /// See `OrvIF::sendSequenceSteps`.
    void postSendSequenceSteps() { worker.post(MidiEngineMessage::SEND_SEQUENCE_STEPS()); }

    /// Frees the older layers that have nothing left to play. Inside a time slice only; `wake` follows once the engine
    /// lock is left.
    void postFreeSilentLayersFromSlice() { worker.queue().postFromSlice(MidiEngineMessage::FREE_SILENT_LAYERS()); }
    void wake() { worker.queue().wake(); }

    /// Ends every note and waits until a time slice has done so; executed at once before the first slice, and on the
    /// thread of the time slices (outside a slice). The clock is internal meanwhile.
    void sendReset() { commands.sendReset(); }
    /// The same, followed by all sound off, all controllers off and a system reset on the default output.
    void sendHardReset() { commands.sendHardReset(); }

    bool currentThreadIsManagerThread() const { return worker.currentThreadIsWorker(); }
    const Worker& getWorker() const { return worker; }

private:
    static constexpr std::size_t SLICE_POOL = 4;

    MidiEngineCommands& commands;
    Worker worker;
};
}  // namespace Backend::MidiEngine
