#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "backend/engine/EngineLayerList.h"
#include "backend/engine/PressMemory.h"

namespace Backend::Layers
{
/// The layers of the moment, which take all new notes, and older ones, which were replaced while they held notes and
/// play on until these have ended. Guarded by the engine lock. See docs/decisions/0025.
class LayersInPlay
{
public:
    /// The most older layers. If one more has to stay, the oldest is ended.
    static constexpr std::size_t MOST_OLDER = 64;
    using Older = std::array<std::unique_ptr<EngineLayer>, MOST_OLDER>;

    const EngineLayerList& now() const { return list; }
    bool hasOlder() const { return olderCount > 0; }
    /// Grows each time the layers of the moment are replaced.
    std::uint32_t getGeneration() const { return generation; }

    /// Calls `visit(EngineLayer&)` for all layers, older ones first.
    template <class Visit>
    void forEach(Visit&& visit) const
    {
        for (const auto& layer : older()) visit(*layer);
        for (const auto& layer : list.all()) visit(*layer);
    }
    /// The same for those with an arpeggio.
    template <class Visit>
    void forEachArpeggio(Visit&& visit) const
    {
        for (const auto& layer : older())
            if (layer->hasArpeggio()) visit(*layer);
        for (EngineLayer* layer : list.arpeggiating()) visit(*layer);
    }

    bool hasArpeggio() const
    {
        bool has = false;
        forEachArpeggio([&has](const EngineLayer&) { has = true; });
        return has;
    }

    /// Forgets all notes. What was older is ready for `takeSilent` then.
    void reset(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine);

    /// Replaces the layers of the moment directly after a reset. `layers` has the old ones afterwards.
    void replace(EngineLayerList& layers);
    /// Replaces them while notes are held. Layers with equal settings and the same place continue; of the others, those
    /// that hold notes become older layers, after their toggled notes have ended.
    void replaceRinging(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                        const MidiEngine::PressMemory& presses, EngineLayerList& layers);

    // Which layers took a press: the layers of the moment that take its note

    /// For a run that starts anew: no layer has taken it.
    void clearTakers(MidiEngine::PressMemory::Index run);
    void addTakers(MidiEngine::PressMemory::Index run, const MidiEngine::OrvMidiMessage& noteOn);
    /// Whether exactly the layers that would take that press have taken those of the run.
    bool areTakers(MidiEngine::PressMemory::Index run, const MidiEngine::OrvMidiMessage& noteOn) const;
    /// Whether an older layer that took it does not take every velocity.
    bool hasVelocityRange(MidiEngine::PressMemory::Index run) const;
    template <class Visit>
    void forEachTaker(MidiEngine::PressMemory::Index run, Visit&& visit) const
    {
        forEach([&](EngineLayer& layer) {
            if (layer.getTaken().contains(run)) visit(layer);
        });
    }

    /// Whether an older layer has nothing left to play.
    bool hasSilent(const MidiEngine::PressMemory& presses) const;
    /// Moves those into `room`, whose places are empty.
    void takeSilent(const MidiEngine::PressMemory& presses, Older& room);

private:
    std::span<const std::unique_ptr<EngineLayer>> older() const { return {olderLayers.data(), olderCount}; }
    /// The place of the first older layer that has nothing left to play; `olderCount` if there is none.
    std::size_t findSilent(const MidiEngine::PressMemory& presses) const;
    std::unique_ptr<EngineLayer> takeOlder(std::size_t place);
    void number();
    std::uint32_t nextOwner();

    EngineLayerList list;
    Older olderLayers;  // oldest first
    std::size_t olderCount = 0;
    std::uint32_t generation = 0;
    std::uint32_t lastOwner = 0;
    bool ownersAreUsedAgain = false;
};
}  // namespace Backend::Layers
