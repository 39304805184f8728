#pragma once

#include <cstdint>

#include "backend/model/ArpeggioSetting.h"
#include "bench/EngineBench.h"

/// The engine with sixteen layers whose arpeggios step every 120 pulses, 60 pulses long; slices of one pulse.
class ArpeggioBench
{
public:
    static constexpr int ARPEGGIOS = 16;
    static constexpr int STEP = 120;

    explicit ArpeggioBench(Backend::ArpeggioManagement::ArpeggioSetting::Type type);

    /// Presses 60 64 67 72 for all of them; without it they are idle.
    void hold();
    void playPulses(int count);

    /// The number of note-ons and note-offs of that many steps.
    static int eventsOf(Backend::ArpeggioManagement::ArpeggioSetting::Type type, int steps);

    SummingPlayer player;

private:
    Backend::MidiEngine::MidiEngine engine{player};
    std::int32_t pulse = Backend::MidiEngine::MidiEngine::FIRST_PULSE;
};
