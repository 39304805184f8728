#include "backend/engine/NoteMemory.h"

#include <algorithm>

namespace Backend::MidiEngine
{
void NoteMemory::rememberLater(std::size_t place, int value)
{
    const auto newest =
        std::find_if(later.rbegin(), later.rend(), [&](const Later& run) { return run.place == place; });
    if (newest != later.rend() && newest->value == value)
        ++newest->count;
    else
        later.push_back({.place = place, .count = 1, .value = static_cast<std::int16_t>(value)});
    first[place].more = true;
}

void NoteMemory::promote(std::size_t place)
{
    const auto oldest = std::ranges::find(later, place, &Later::place);
    if (oldest == later.end()) {
        first[place] = {};
        return;
    }
    first[place] = {.count = oldest->count, .value = oldest->value};
    const auto next = later.erase(oldest);
    first[place].more = std::ranges::find(next, later.end(), place, &Later::place) != later.end();
}

void NoteMemory::clear()
{
    if (isEmpty) return;
    std::ranges::fill(first, Run{});
    later.clear();
    isEmpty = true;
}
}  // namespace Backend::MidiEngine
