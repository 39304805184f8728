#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "backend/engine/EngineLayer.h"

namespace Backend::Layers
{
/// All layers of the engine, in order of processing. Built outside the engine lock and swapped in as a whole. A table
/// has the layers that take each note, so that the other layers cost nothing.
class EngineLayerList
{
public:
    EngineLayerList() = default;
    explicit EngineLayerList(std::span<const Layer> layers);

    EngineLayerList(const EngineLayerList&) = delete;
    EngineLayerList& operator=(const EngineLayerList&) = delete;

    void swap(EngineLayerList& other) noexcept;

    bool isEmpty() const { return list.empty(); }
    /// Whether any layer does not take every velocity.
    bool hasVelocityRange() const { return anyVelocityRange; }
    /// The class of a velocity (a data byte): equal for two velocities if every layer takes both or neither.
    std::uint8_t getVelocityClass(std::uint8_t velocity) const { return velocityClasses[velocity]; }

    /// All layers, muted ones included.
    std::span<const std::unique_ptr<EngineLayer>> all() const { return list; }

    /// Takes over the state of each layer that has equal settings and the same place in `before`. Calls
    /// `replaced(std::unique_ptr<EngineLayer>&)` for each of the other layers of `before`.
    template <class Replaced>
    void continueFrom(EngineLayerList& before, Replaced&& replaced)
    {
        for (std::size_t place = 0; place < before.list.size(); ++place) {
            if (place < list.size() && list[place]->isLike(*before.list[place]))
                list[place]->continueFrom(*before.list[place]);
            else
                replaced(before.list[place]);
        }
    }
    /// The layers that play: those with solo if there are any, otherwise those that are not muted.
    std::span<EngineLayer* const> playing() const { return playingLayers; }
    /// All layers that have an arpeggio.
    std::span<EngineLayer* const> arpeggiating() const { return withArpeggio; }
    /// The layers that play and have that note (a data byte) in their range.
    std::span<EngineLayer* const> taking(std::uint8_t note) const
    {
        return {byNote.data() + firstOfNote[note], byNote.data() + firstOfNote[note + 1u]};
    }

private:
    std::vector<std::unique_ptr<EngineLayer>> list;
    std::vector<EngineLayer*> playingLayers;
    std::vector<EngineLayer*> withArpeggio;
    std::vector<EngineLayer*> byNote;  // those of note 0, then those of note 1, and so on
    std::array<std::uint32_t, 257> firstOfNote{};
    bool anyVelocityRange = false;
    std::array<std::uint8_t, 256> velocityClasses{};
};
}  // namespace Backend::Layers
