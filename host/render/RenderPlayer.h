#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "api/MidiPlayer.h"

namespace Host
{
/// An event that the player got, and when.
struct PlayedEvent {
    std::int32_t ppq;  ///< start of the slice it was played in, in pulses from the start
    Backend::MidiEngine::OrvMidiMessage event;
};

struct TempoChange {
    std::int32_t ppq;
    int bpm;
};

/// The player of the offline host, which records all events. `OfflineLoop` sets the pulse, and reads the events only
/// while the library is at rest; the engine calls with its lock held.
class RenderPlayer final : public Backend::MidiEngine::MidiPlayer
{
public:
    void setPulse(std::int32_t ppq)
    {
        now = ppq;
        milliseconds = static_cast<std::uint32_t>(static_cast<std::uint64_t>(millisecondsNow()));
    }

    const std::vector<PlayedEvent>& getPlayed() const { return played; }
    const std::vector<TempoChange>& getTempoChanges() const { return tempoChanges; }

    /// Outputs that the user enabled or disabled since the last call, with the new state.
    std::map<int, bool> takeEnabledOutputs() { return std::exchange(enabledOutputs, {}); }

    void playMidi(const Backend::MidiEngine::OrvMidiMessage& event) override { played.push_back({now, event}); }
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int port, bool enabled) override { enabledOutputs[port] = enabled; }
    ThreadId getThreadId() override { return loopThread; }
    void pulseSequencer() override {}
    void setTempo(int bpm) override
    {
        lastTempoTime = millisecondsNow();
        tempoChanges.push_back({now, bpm});
    }
    void setTempoSource(char source) override { tempoSource = source; }
    char getTempoSource() override { return tempoSource; }
    /// Time of the performance: 125 / tempo for each pulse.
    std::uint32_t getMilliseconds() override { return milliseconds; }

private:
    static constexpr int FIRST_TEMPO = 120;

    double millisecondsNow() const
    {
        const TempoChange tempo = tempoChanges.empty() ? TempoChange{0, FIRST_TEMPO} : tempoChanges.back();
        return lastTempoTime + (now - tempo.ppq) * 125.0 / tempo.bpm;
    }

    const ThreadId loopThread = currentThreadId();
    std::int32_t now = 0;
    double lastTempoTime = 0;  // milliseconds at the last change of tempo
    std::atomic<std::uint32_t> milliseconds{0};
    char tempoSource = -1;
    std::vector<PlayedEvent> played;
    std::vector<TempoChange> tempoChanges;
    std::map<int, bool> enabledOutputs;
};
}  // namespace Host
