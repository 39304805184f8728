#pragma once

#include "backend/engine/MidiEngine.h"
#include "tests/stage/Stage.h"

/// The engine alone: its player, and slices that the test plays. No layers, and an output 0 that is the default.
struct EngineStage {
    RecordingPlayer player;
    Backend::MidiEngine::MidiEngine engine{player};
    TestWindow window;

    EngineStage()
    {
        engine.setMidiOutputPorts(Backend::MidiEngine::MidiOutputPorts(3));
        engine.setDefaultMidiOutput(0);
    }

    void add(const TestEvent& event) { engine.appendTimedEvent(event); }

    /// What one slice plays, the first data byte of each event.
    std::string slice(std::int32_t start, std::int32_t end)
    {
        player.events.clear();
        engine.playTimeSlice(start, end);
        return joined(player.events, [](const auto& event) { return std::to_string(event.getD1()); });
    }
};
