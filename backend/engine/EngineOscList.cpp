#include "backend/engine/EngineOscList.h"

#include <utility>

#include "backend/engine/MidiEngine.h"

namespace Backend::Oscillators
{
EngineOscList::EngineOscList(std::span<const Oscillator> oscillators) : list(oscillators.begin(), oscillators.end())
{
    playing.reserve(list.size());
    gatherPlaying();
}

void EngineOscList::swap(EngineOscList& other) noexcept
{
    list.swap(other.list);
    playing.swap(other.playing);
    starting.swap(other.starting);
    std::swap(lastPpq, other.lastPpq);
}

EngineOscillator* EngineOscList::find(OscId id)
{
    const auto index = static_cast<std::size_t>(std::int64_t{id});
    return index < list.size() ? &list[index] : nullptr;
}

void EngineOscList::setPlaying(EngineOscillator& oscillator, bool on)
{
    oscillator.setPlaying(on);
    gatherPlaying();
}

void EngineOscList::playStopValues(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine)
{
    for (const EngineOscillator* oscillator : starting) {
        MidiEngine::OrvMidiMessage event = oscillator->makeEvent(oscillator->getStopValue());
        engine.playMidi(slice, event);
    }
    starting.clear();
}

void EngineOscList::gatherPlaying()
{
    playing.clear();
    for (EngineOscillator& oscillator : list)
        if (oscillator.isPlaying()) playing.push_back(&oscillator);
}
}  // namespace Backend::Oscillators
