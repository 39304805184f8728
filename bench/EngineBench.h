#pragma once

#include <cstdint>
#include <vector>

#include "backend/engine/ControlUpdates.h"
#include "backend/engine/MidiEngine.h"
#include "bench/Workload.h"

/// A player that only sums.
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

/// The engine with a workload: 64 events into the queue, one slice of one pulse, and on.
class EngineBench
{
public:
    static constexpr int BATCH = 64;

    /// Where the events go in.
    enum class Path { namedOutput, defaultOutput, layers };

    /// Events on channel 0, to output 0 in the end; through so many of the workload's layers, if any.
    EngineBench(const std::vector<Workload::Event>& events, Path path, int layers = 0);

    /// From now on the default controls follow; what they are told is read and thrown away after each slice.
    void followWithControls();

    /// The whole ring once, to the last event.
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
