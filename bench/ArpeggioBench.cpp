#include "bench/ArpeggioBench.h"

using Backend::ArpeggioManagement::ArpeggioSetting;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiEngine;
using Backend::MidiEngine::MidiOutputPorts;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr int KEYS[] = {60, 64, 67, 72};
}

ArpeggioBench::ArpeggioBench(ArpeggioSetting::Type type)
{
    std::vector<Backend::Layers::Layer> layers(ARPEGGIOS);
    for (std::size_t i = 0; i < layers.size(); ++i) {
        layers[i].channel = static_cast<std::int8_t>(i);
        layers[i].arpeggio = {.type = type, .beat = STEP, .length = STEP / 2};
    }
    engine.setMidiOutputPorts(MidiOutputPorts(1));
    engine.setDefaultMidiOutput(0);
    engine.setLayerList(layers);
}

void ArpeggioBench::hold()
{
    for (const int key : KEYS)
        engine.appendTimedEvent(OrvMidiMessage({.type = MessageType::noteOn, .d1 = key, .d2 = 100, .pulse = pulse}));
}

void ArpeggioBench::playPulses(int count)
{
    for (; count > 0; --count) {
        // The counter starts again, on the beat, long before its 32 bits run out.
        if (pulse > 2'000'000'000 && (pulse - MidiEngine::FIRST_PULSE) % STEP == 0) pulse = MidiEngine::FIRST_PULSE;
        engine.playTimeSlice(pulse, pulse + 1);
        ++pulse;
    }
}

int ArpeggioBench::eventsOf(ArpeggioSetting::Type type, int steps)
{
    const int notes = type == ArpeggioSetting::Type::chord ? static_cast<int>(std::size(KEYS)) : 1;
    return ARPEGGIOS * notes * 2 * steps;
}
