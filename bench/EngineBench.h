#pragma once

#include <cstdint>
#include <vector>

#include "backend/engine/ControlUpdates.h"
#include "backend/engine/MidiEngine.h"
#include "bench/Workload.h"

/// A player that computes a checksum of the events.
class SummingPlayer final : public Backend::MidiEngine::MidiPlayer
{
public:
    std::uint64_t sum = 0;
    std::uint64_t count = 0;

    void playMidi(const Backend::MidiEngine::OrvMidiMessage& event) override
    {
        sum += Workload::weigh(event.getStatusWithChannel(), event.getD1(), event.getD2());
        ++count;
    }
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int, bool) override {}
    ThreadId getThreadId() override { return currentThreadId(); }
    void pulseSequencer() override {}
    void setTempo(int) override {}
    void setTempoSource(char) override {}
    char getTempoSource() override { return -1; }
};

/// Plays a workload with the engine: queues 64 events, plays a slice of one pulse, and repeats that.
class EngineBench
{
public:
    static constexpr int BATCH = 64;

    /// How the events reach an output.
    enum class Path { namedOutput, defaultOutput, layers };

    /// Plays `events` on channel 0 to output 0, through `layers` of the workload's layers, if any.
    EngineBench(const std::vector<Workload::Event>& events, Path path, int layers = 0);

    /// Controls follow the pitch bend and two controllers from now on; their updates are read and discarded after each
    /// slice.
    void followWithControls();

    /// Held notes ring on over changes from now on. With `older`, one is held in as many layers that were replaced.
    void keepNotes(int layers, bool older);

    /// Plays all events once.
    void playRound();

    SummingPlayer player;

private:
    void slice();

    std::vector<Backend::MidiEngine::OrvMidiMessage> events;
    MessageQueue queue{1024};
    Backend::Controls::ControlUpdates updates{queue};
    bool hasControls = false;
    Backend::MidiEngine::MidiEngine engine{player};
    std::int32_t pulse = Backend::MidiEngine::MidiEngine::FIRST_PULSE;
};
