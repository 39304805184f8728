#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "backend/engine/EngineOscillator.h"

namespace Backend::Oscillators
{
/// All oscillators of the engine, in order. Built outside the engine lock and swapped in as a whole. Those that do
/// not play cost nothing: the last pulse is kept once, for all of them.
class EngineOscList
{
public:
    EngineOscList() = default;
    explicit EngineOscList(std::span<const Oscillator> oscillators);

    EngineOscList(const EngineOscList&) = delete;
    EngineOscList& operator=(const EngineOscList&) = delete;

    void swap(EngineOscList& other) noexcept;

    /// Null for an id outside the list.
    EngineOscillator* find(OscId id);
    void setPlaying(EngineOscillator& oscillator, bool on);
    /// Its stop value is played in the next pulse, before any wave.
    void playStopValueFirst(EngineOscillator& oscillator) { starting.push_back(&oscillator); }

    /// Steps every oscillator that plays. A new list counts its first step from pulse 0.
    void step(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t ppq)
    {
        if (!starting.empty()) playStopValues(slice, engine);
        const std::int32_t pulses = ppq - lastPpq;
        lastPpq = ppq;
        for (EngineOscillator* oscillator : playing) oscillator->step(slice, engine, pulses);
    }

private:
    void gatherPlaying();
    void playStopValues(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine);

    std::vector<EngineOscillator> list;
    std::vector<EngineOscillator*> playing;   // in order of the list
    std::vector<EngineOscillator*> starting;  // whose stop values are to be played, in the order they were started
    std::int32_t lastPpq = 0;
};
}  // namespace Backend::Oscillators
