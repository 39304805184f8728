#include "backend/engine/EngineOscList.h"

#include <algorithm>
#include <utility>

#include "backend/engine/MidiEngine.h"

namespace Backend::Oscillators
{
EngineOscList::EngineOscList(std::span<const Oscillator> oscillators) : list(oscillators.begin(), oscillators.end())
{
    playing.reserve(list.size());
    starting.reserve(list.size());
    gatherPlaying();
}

void EngineOscList::swap(EngineOscList& other) noexcept
{
    list.swap(other.list);
    playing.swap(other.playing);
    starting.swap(other.starting);
    std::swap(lastPpq, other.lastPpq);
}

void EngineOscList::continueFrom(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const EngineOscList& before)
{
    for (std::size_t place = 0; place < list.size(); ++place) {
        EngineOscillator& oscillator = list[place];
        const EngineOscillator* const old = place < before.list.size() ? &before.list[place] : nullptr;
        if (old != nullptr && oscillator.isLike(*old)) {
            oscillator.continueFrom(*old);
            if (std::ranges::find(before.starting, old) != before.starting.end()) starting.push_back(&oscillator);
        } else {
            oscillator.skip(before.lastPpq);
        }
    }
    for (std::size_t place = 0; place < before.list.size(); ++place) {
        const EngineOscillator& old = before.list[place];
        const bool continues = place < list.size() && list[place].isLike(old) && list[place].isPlaying();
        if (!old.isPlaying() || continues || old.getStopValue() < 0) continue;
        if (old.hasEvent()) {
            MidiEngine::OrvMidiMessage event = old.makeEvent(old.getStopValue());
            engine.playMidi(slice, event);
        }
        engine.showOscValue(slice, old.getId(), old.getStopValue());
    }
    lastPpq = before.lastPpq;
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
