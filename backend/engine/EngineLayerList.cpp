#include "backend/engine/EngineLayerList.h"

#include <algorithm>
#include <utility>

namespace Backend::Layers
{
namespace
{
/// The class of a velocity is the lowest velocity (as a byte) that the same layers take.
std::array<std::uint8_t, 256> classesOf(std::span<const Layer> layers)
{
    const auto takes = [](const Layer& layer, std::size_t byte) {
        const auto velocity = static_cast<std::int8_t>(byte);
        return velocity >= layer.minVelocity && velocity <= layer.maxVelocity;
    };
    const auto areOne = [&](std::size_t one, std::size_t other) {
        return std::ranges::all_of(layers,
                                   [&](const Layer& layer) { return takes(layer, one) == takes(layer, other); });
    };
    std::array<std::uint8_t, 256> classes{};
    for (std::size_t velocity = 1; velocity < classes.size(); ++velocity) {
        std::size_t same = areOne(velocity, velocity - 1) ? classes[velocity - 1] : 0;
        while (!areOne(velocity, same)) ++same;
        classes[velocity] = static_cast<std::uint8_t>(same);
    }
    return classes;
}
}  // namespace

EngineLayerList::EngineLayerList(std::span<const Layer> layers)
    : anyVelocityRange(std::ranges::any_of(layers, &Layer::hasVelocityRange))
{
    list.reserve(layers.size());
    for (const Layer& layer : layers) list.push_back(std::make_unique<EngineLayer>(layer));
    if (anyVelocityRange) velocityClasses = classesOf(layers);
    const bool anySolo = std::ranges::any_of(layers, &Layer::solo);
    for (std::size_t i = 0; i < layers.size(); ++i)
        if (anySolo ? layers[i].solo : !layers[i].mute) playingLayers.push_back(list[i].get());
    for (const auto& layer : list)
        if (layer->hasArpeggio()) withArpeggio.push_back(layer.get());

    for (std::size_t note = 0; note + 1 < firstOfNote.size(); ++note) {
        firstOfNote[note] = static_cast<std::uint32_t>(byNote.size());
        for (EngineLayer* layer : playingLayers)
            if (layer->hasInRange(static_cast<std::uint8_t>(note))) byNote.push_back(layer);
    }
    firstOfNote.back() = static_cast<std::uint32_t>(byNote.size());
}

void EngineLayerList::swap(EngineLayerList& other) noexcept
{
    list.swap(other.list);
    playingLayers.swap(other.playingLayers);
    withArpeggio.swap(other.withArpeggio);
    byNote.swap(other.byNote);
    firstOfNote.swap(other.firstOfNote);
    std::swap(anyVelocityRange, other.anyVelocityRange);
    velocityClasses.swap(other.velocityClasses);
}
}  // namespace Backend::Layers
