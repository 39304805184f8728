#include "backend/engine/DefaultOutputMemory.h"

#include <algorithm>

namespace Backend::MidiEngine
{
bool DefaultOutputMemory::press(PressMemory& presses, std::size_t note, DefaultRoute route)
{
    if (pressUsual(note, route)) return true;
    Word& cell = cells[note];
    const bool isMine = isOf(cell, route);
    if (cell == 0 || (isMine && (cell & MOST) == 0)) {
        isEmpty = false;
        cell = route.word + 1;
        return true;
    }
    const PressMemory::Key key = keyOf(note, route);
    if (isMine) {
        const auto count = static_cast<std::uint32_t>(cell & MOST);
        const auto output = static_cast<std::uint8_t>(outputOf(cell));
        if (!presses.press(key, {.outcome = {.value = output}, .count = count})) return false;
        cell = IN_PRESSES;
    }
    return presses.press(key, {.outcome = {.value = static_cast<std::uint8_t>(route.getDefaultOutput())}});
}

void DefaultOutputMemory::clear()
{
    if (isEmpty) return;
    std::ranges::fill(cells, 0);
    isEmpty = true;
}
}  // namespace Backend::MidiEngine
