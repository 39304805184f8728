#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "backend/engine/EngineLayer.h"

namespace Backend::Layers
{
/// All layers of the engine, in order of processing. Built outside the engine lock and swapped in as a whole. It knows
/// beforehand which layers a note can reach, so that the others cost nothing.
class EngineLayerList
{
public:
    EngineLayerList() = default;
    explicit EngineLayerList(std::span<const Layer> layers);

    EngineLayerList(const EngineLayerList&) = delete;
    EngineLayerList& operator=(const EngineLayerList&) = delete;

    void swap(EngineLayerList& other) noexcept;

    bool isEmpty() const { return list.empty(); }
    /// Any layer takes less than every velocity.
    bool hasVelocityRange() const { return anyVelocityRange; }
    /// Two velocities (data bytes) are of one class if no layer's range tells them apart.
    std::uint8_t getVelocityClass(std::uint8_t velocity) const { return velocityClasses[velocity]; }

    /// Every layer, playing or not.
    std::span<EngineLayer> all() { return list; }
    /// The layers that play: the soloed ones if there are any, otherwise those that are not muted.
    std::span<EngineLayer* const> playing() const { return acting; }
    /// Those, among all, that have an arpeggio.
    std::span<EngineLayer* const> arpeggiating() const { return withArpeggio; }
    /// Those that play and whose range has that note (a data byte).
    std::span<EngineLayer* const> taking(std::uint8_t note) const
    {
        return {byNote.data() + firstOfNote[note], byNote.data() + firstOfNote[note + 1u]};
    }

private:
    std::vector<EngineLayer> list;
    std::vector<EngineLayer*> acting;
    std::vector<EngineLayer*> withArpeggio;
    std::vector<EngineLayer*> byNote;  // of note 0, of note 1, and so on
    std::array<std::uint32_t, 257> firstOfNote{};
    bool anyVelocityRange = false;
    std::array<std::uint8_t, 256> velocityClasses{};
};
}  // namespace Backend::Layers
