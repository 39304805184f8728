#pragma once

#include <vector>

#include "backend/model/Layer.h"
#include "backend/model/MidiPort.h"
#include "backend/model/Oscillator.h"
#include "backend/model/Zone.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/Worker.h"

namespace Backend::MidiEngine
{
class MidiEngine;

/// The engine's command set, applied on a thread of its own, each command as one short stay under the engine lock.
/// `post` commands may be called on any thread but inside a time slice.
class ORV_API MidiEngineMessageManager
{
public:
    explicit MidiEngineMessageManager(MidiEngine& midiEngine);

    /// See `Worker`.
    void setRealTimeStep(RealTimeStep step) { worker.setRealTimeStep(step); }

    void start() { worker.start(); }
    void stop() { worker.stop(); }

    void handleMessage(Message& message);

    void postPlayMidi(const OrvMidiMessage& event);
    void postSetMidiInputPorts(const MidiInputPorts& ports);
    void postSetMidiOutputPorts(const MidiOutputPorts& ports);
    void postEnableMidiInput(int port, bool enabled);
    void postEnableMidiOutput(int port, bool enabled);
    void postSetDefaultMidiOutput(int port);
    /// A reset comes first, and the layers with it. The worker waits for the slice that does both.
    void postSetLayerList(std::vector<Layers::Layer> layers);
    /// The same for the oscillators.
    void postSetOscList(std::vector<Oscillators::Oscillator> oscillators);
    void postSetZoneMap(std::vector<Zones::Zone> zones);
    /// Only the transposition, and only if that zone is there.
    void postSetZone(const Zones::Zone& zone);
    void postSetTempo(int bpm);
    void postSetTempoSource(int source);
    void postSetMidiThru(bool on);
    /// Starts or stops an oscillator; its stop value is sent in front. An id outside the list is ignored.
    void postSetOscPlaying(Oscillators::OscId id, bool playing);
    void postSetOscSpeed(Oscillators::OscId id, int speed);

    /// Ends every note and waits until a time slice has done so; done at once before the first slice, and when called
    /// on the time-slice thread itself (outside a slice). The clock runs internally meanwhile.
    void sendReset();
    /// The same, followed by all sound off, all controllers off and a system reset on the default output.
    void sendHardReset();

    bool currentThreadIsManagerThread() const { return worker.currentThreadIsWorker(); }
    const Worker& getWorker() const { return worker; }

private:
    MidiEngine& engine;
    Worker worker;
};
}  // namespace Backend::MidiEngine
