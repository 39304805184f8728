#include "backend/engine/InputTranslations.h"

#include <algorithm>
#include <utility>

namespace Backend::MidiEngine
{
InputTranslations::InputTranslations() { places[current].map = std::make_shared<const Map>(); }

void InputTranslations::set(Shared map, Room& gone)
{
    auto room = gone.begin();
    current = placeOf(map, *room++);
    for (Place& place : places)
        if (&place != &places[current] && place.presses == 0 && place.map) *room++ = std::move(place.map);
}

void InputTranslations::press(const OrvMidiMessage& received, const Shared& map, Room& gone)
{
    if (received.isPress()) press(received, placeOf(map, gone.front()));
}

/// Maps that both leave the event and its release as they are count as one. A pedal that is moved further down was
/// pressed already.
void InputTranslations::press(const OrvMidiMessage& received, std::size_t place)
{
    if (!received.isPress()) return;
    OrvMidiMessage released = received;
    if (received.isPedal())
        released.setD2(0);
    else
        released.setToNoteOff();
    const auto leavesIt = [&](std::size_t by) {
        const Map& map = *places[by].map;
        return map.findTranslations(received) == nullptr && map.findTranslations(released) == nullptr;
    };
    const auto isSame = [&](const PressMemory::Run& run, PressMemory::Index) {
        if (run.count == 0) return false;  // its map may be gone
        return run.outcome.value == place || (leavesIt(place) && leavesIt(run.outcome.value));
    };
    const auto differs = [&](const auto& run, auto index) { return !isSame(run, index); };

    const PressMemory::Key key = keyOf(received);
    if (received.isPedal() && presses.hasOpen(key) && !presses.allOpen(key, differs)) return;
    const auto added = presses.press(key, {.outcome = {.value = static_cast<std::uint8_t>(place)}}, isSame);
    if (added.run != PressMemory::NONE) ++places[presses.at(added.run).outcome.value].presses;
}

std::size_t InputTranslations::placeOf(const Shared& map, Shared& gone)
{
    const auto known = std::ranges::find(places, map, &Place::map);
    if (known != places.end()) return static_cast<std::size_t>(known - places.begin());
    const auto isFree = [&](const Place& place) { return &place != &places[current] && place.presses == 0; };
    auto place = std::ranges::find_if(places, isFree);
    if (place == places.end()) {
        places[current].age = ++lastAge;  // not this one
        place = std::ranges::min_element(places, {}, &Place::age);
    }
    gone = std::exchange(place->map, map);
    place->age = ++lastAge;
    return static_cast<std::size_t>(place - places.begin());
}

void InputTranslations::forgetPresses()
{
    presses.clear();
    for (Place& place : places) place.presses = 0;
}

PressMemory::Key InputTranslations::keyOf(const OrvMidiMessage& event)
{
    const auto byteAt = [](int value, int bits) { return PressMemory::Key{PressMemory::byte(value)} << bits; };
    return byteAt(event.getD1(), 0) | byteAt(event.getChannel(), 8) | byteAt(event.getInput(), 16) |
           byteAt(event.isPedal(), 24);
}
}  // namespace Backend::MidiEngine
