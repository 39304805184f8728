#include "bench/EngineBench.h"

#include "backend/model/ControlMap.h"

using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiEngine;
using Backend::MidiEngine::MidiMessage;
using Backend::MidiEngine::MidiOutputPorts;
using Backend::MidiEngine::OrvMidiMessage;

EngineBench::EngineBench(const std::vector<Workload::Event>& workload, Path path, int layers)
{
    const int output = path == Path::namedOutput ? 0 : -1;
    const int channel = path == Path::layers ? -1 : 0;
    for (const auto& [status, d1, d2] : workload)
        events.push_back(OrvMidiMessage(
            {.type = static_cast<MessageType>(status), .d1 = d1, .d2 = d2, .channel = channel, .output = output}));
    engine.setMidiOutputPorts(MidiOutputPorts(1));
    engine.setDefaultMidiOutput(0);
    if (path == Path::layers) engine.setLayerList(Workload::layers(layers));
}

void EngineBench::followWithControls()
{
    Backend::Controls::ControlMap controls;
    const auto addControlOf = [&](const MidiMessage& event) {
        const auto column = static_cast<std::int32_t>(controls.size());
        controls.put({.cell = {0, column}, .functions = {{.midiEvent = event}}});
    };
    addControlOf(MidiMessage(MessageType::pitchBend));
    addControlOf(MidiMessage(MessageType::controllerChange, 1));
    addControlOf(MidiMessage(MessageType::controllerChange, 7));
    updates.setFollowed(controls);
    engine.setControlUpdates(&updates);
    hasControls = true;
}

void EngineBench::keepNotes(int layers, bool older)
{
    constexpr int IN_EVERY_LAYER = 60;
    engine.setKeepNotes(true);
    if (!older) return;
    auto others = Workload::layers(layers);
    for (auto& layer : others) layer.velocity.value = 1;
    engine.setLayerList(others);
    engine.appendTimedEvent(OrvMidiMessage({.type = MessageType::noteOn, .d1 = IN_EVERY_LAYER, .d2 = 100, .input = 1}));
    slice();
    slice();
    engine.setLayerList(Workload::layers(layers));
}

void EngineBench::playRound()
{
    for (std::size_t next = 0; next < events.size();) {
        for (int i = 0; i < BATCH; ++i) engine.appendTimedEvent(events[next++]);
        slice();
    }
    slice();
}

void EngineBench::slice()
{
    // The counter starts again long before its 32 bits run out.
    if (pulse > 2'000'000'000) pulse = MidiEngine::FIRST_PULSE;
    engine.playTimeSlice(pulse, pulse + 1);
    ++pulse;
    while (hasControls && queue.handleNext([](Message&) {})) {}
}
