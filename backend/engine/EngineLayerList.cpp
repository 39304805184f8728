#include "backend/engine/EngineLayerList.h"

#include <algorithm>
#include <utility>

namespace Backend::Layers
{
EngineLayerList::EngineLayerList(std::span<const Layer> layers)
    : list(layers.begin(), layers.end()), anyVelocityRange(std::ranges::any_of(layers, &Layer::hasVelocityRange))
{
    const bool anySolo = std::ranges::any_of(layers, &Layer::solo);
    for (std::size_t i = 0; i < layers.size(); ++i)
        if (anySolo ? layers[i].solo : !layers[i].mute) acting.push_back(&list[i]);
    for (EngineLayer& layer : list)
        if (layer.hasArpeggio()) withArpeggio.push_back(&layer);

    for (std::size_t note = 0; note + 1 < firstOfNote.size(); ++note) {
        firstOfNote[note] = static_cast<std::uint32_t>(byNote.size());
        for (EngineLayer* layer : acting)
            if (layer->hasInRange(static_cast<std::uint8_t>(note))) byNote.push_back(layer);
    }
    firstOfNote.back() = static_cast<std::uint32_t>(byNote.size());
}

void EngineLayerList::swap(EngineLayerList& other) noexcept
{
    list.swap(other.list);
    acting.swap(other.acting);
    withArpeggio.swap(other.withArpeggio);
    byNote.swap(other.byNote);
    firstOfNote.swap(other.firstOfNote);
    std::swap(anyVelocityRange, other.anyVelocityRange);
}
}  // namespace Backend::Layers
