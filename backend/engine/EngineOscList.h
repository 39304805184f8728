#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "backend/engine/EngineOscillator.h"

namespace Backend::Oscillators
{
/// All oscillators of the engine, in order. Built outside the engine lock and swapped in as a whole. Stopped
/// oscillators cost nothing: the last pulse is kept once for the whole list.
class EngineOscList
{
public:
    EngineOscList() = default;
    explicit EngineOscList(std::span<const Oscillator> oscillators);

    EngineOscList(const EngineOscList&) = delete;
    EngineOscList& operator=(const EngineOscList&) = delete;

    void swap(EngineOscList& other) noexcept;

    /// Takes over the state of each oscillator that has equal settings, whether it plays or not, and the same place in
    /// `before`. Of the others of `before`, those that play end as if they were stopped.
    void continueFrom(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const EngineOscList& before);

    /// Null if there is no such id.
    EngineOscillator* find(OscId id);
    void setPlaying(EngineOscillator& oscillator, bool on);
    /// Plays the oscillator's stop value in the next pulse, before any wave.
    void playStopValueFirst(EngineOscillator& oscillator) { starting.push_back(&oscillator); }

    /// Advances every oscillator that plays to pulse `ppq`. A new list starts from pulse 0.
    void step(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t ppq)
    {
        if (!starting.empty()) playStopValues(slice, engine);
        const std::int32_t pulses = ppq - lastPpq;
        lastPpq = ppq;
        for (EngineOscillator* oscillator : playing) oscillator->step(slice, engine, pulses);
    }

    /// No oscillator plays, and no stop value is to be played.
    bool isIdle() const { return playing.empty() && starting.empty(); }

private:
    void gatherPlaying();
    void playStopValues(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine);

    std::vector<EngineOscillator> list;
    std::vector<EngineOscillator*> playing;   // in order of the list
    std::vector<EngineOscillator*> starting;  // whose stop values are to be played, in order of their start
    std::int32_t lastPpq = 0;
};
}  // namespace Backend::Oscillators
