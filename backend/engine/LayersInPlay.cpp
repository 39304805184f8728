#include "backend/engine/LayersInPlay.h"

#include <algorithm>
#include <utility>

#include "backend/engine/MidiEngine.h"

namespace Backend::Layers
{
using MidiEngine::OrvMidiMessage;
using MidiEngine::PressMemory;
using MidiEngine::Slice;

namespace
{
/// Ends all that a layer plays, with a note-off for each press that it took.
void end(EngineLayer& layer, Slice& slice, MidiEngine::MidiEngine& engine, const PressMemory& presses)
{
    presses.forEachOpenIn(layer.getTaken(), [&](const PressMemory::Run& run, PressMemory::Index) {
        const OrvMidiMessage noteOff = PressMemory::noteOffOf(run);
        const MidiEngine::DefaultRoute route(noteOff, engine.getDefaultMidiOutput(slice));
        for (std::uint32_t press = 0; press < run.count; ++press) layer.playTaken(slice, engine, noteOff, route);
    });
    layer.reset(slice, engine);
}
}  // namespace

void LayersInPlay::reset(Slice& slice, MidiEngine::MidiEngine& engine)
{
    forEach([&](EngineLayer& layer) { layer.reset(slice, engine); });
}

void LayersInPlay::replace(EngineLayerList& layers)
{
    list.swap(layers);
    ++generation;
    number();
}

void LayersInPlay::replaceRinging(Slice& slice, MidiEngine::MidiEngine& engine, const PressMemory& presses,
                                  EngineLayerList& layers)
{
    layers.continueFrom(list, [&](std::unique_ptr<EngineLayer>& layer) {
        layer->endToggledNotes(slice, engine);
        if (!layer->holdsAny(presses)) return;
        std::unique_ptr<EngineLayer> gone;
        if (olderCount == MOST_OLDER) {
            const std::size_t silent = findSilent(presses);
            gone = takeOlder(silent < olderCount ? silent : 0);
            end(*gone, slice, engine, presses);
        }
        olderLayers[olderCount++] = std::exchange(layer, std::move(gone));  // the list frees it
    });
    replace(layers);
}

/// Gives each new layer a number of its own. No older layer has a number that is used for the first time.
void LayersInPlay::number()
{
    for (const auto& layer : list.all())
        if (layer->getOwner() == 0) layer->setOwner(nextOwner());  // 0 is the direct path
}

std::uint32_t LayersInPlay::nextOwner()
{
    const auto isOwner = [&](std::uint32_t owner) {
        const auto has = [&](const auto& layer) { return layer->getOwner() == owner; };
        return std::ranges::any_of(older(), has) || std::ranges::any_of(list.all(), has);
    };
    do {
        if (++lastOwner == MidiEngine::DefaultOutputMemory::OWNERS) {
            lastOwner = 1;
            ownersAreUsedAgain = true;
        }
    } while (ownersAreUsedAgain && isOwner(lastOwner));
    return lastOwner;
}

void LayersInPlay::clearTakers(PressMemory::Index run)
{
    forEach([&](EngineLayer& layer) { layer.getTaken().remove(run); });
}

void LayersInPlay::addTakers(PressMemory::Index run, const OrvMidiMessage& noteOn)
{
    for (EngineLayer* layer : list.taking(noteOn.getD1()))
        if (layer->takes(noteOn)) layer->getTaken().add(run);
}

bool LayersInPlay::areTakers(PressMemory::Index run, const OrvMidiMessage& noteOn) const
{
    int missing = 0;
    for (const EngineLayer* layer : list.taking(noteOn.getD1())) {
        if (!layer->takes(noteOn)) continue;
        if (!layer->getTaken().contains(run)) return false;
        ++missing;
    }
    forEachTaker(run, [&](const EngineLayer&) { --missing; });
    return missing == 0;
}

bool LayersInPlay::hasVelocityRange(PressMemory::Index run) const
{
    return std::ranges::any_of(
        older(), [&](const auto& layer) { return layer->hasVelocityRange() && layer->getTaken().contains(run); });
}

std::size_t LayersInPlay::findSilent(const PressMemory& presses) const
{
    return static_cast<std::size_t>(
        std::ranges::find_if(older(), [&](const auto& layer) { return !layer->holdsAny(presses); }) - older().begin());
}

bool LayersInPlay::hasSilent(const PressMemory& presses) const { return findSilent(presses) < olderCount; }

void LayersInPlay::takeSilent(const PressMemory& presses, Older& room)
{
    for (auto& place : room) {
        const std::size_t silent = findSilent(presses);
        if (silent == olderCount) return;
        place = takeOlder(silent);
    }
}

/// The younger ones move up.
std::unique_ptr<EngineLayer> LayersInPlay::takeOlder(std::size_t place)
{
    std::unique_ptr<EngineLayer> taken = std::move(olderLayers[place]);
    for (--olderCount; place < olderCount; ++place) olderLayers[place] = std::move(olderLayers[place + 1]);
    return taken;
}
}  // namespace Backend::Layers
