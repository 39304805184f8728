#include "backend/engine/PressMemory.h"

#include <algorithm>
#include <initializer_list>

namespace Backend::MidiEngine
{
std::size_t PressMemory::placeOf(const OrvMidiMessage& note)
{
    std::uint64_t key = note.isDefaultChannel() ? 1 : 0;
    for (const int part :
         {int{note.getInput()}, int{note.getChannel()}, int{note.getOutput()}, int{note.getZone()}, int{note.getD1()}})
        key = key << 8 | static_cast<std::uint8_t>(part);

    const auto [known, isNew] = places.try_emplace(key, places.size());
    if (isNew) {
        notes.addPlace();
        velocities.addPlace();
        lastVelocity.push_back(0);
    }
    return known->second;
}

void PressMemory::forget()
{
    notes.clear();
    velocities.clear();
    std::ranges::fill(lastVelocity, std::uint8_t{0});
}
}  // namespace Backend::MidiEngine
