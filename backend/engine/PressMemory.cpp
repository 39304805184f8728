#include "backend/engine/PressMemory.h"

#include <algorithm>

namespace Backend::MidiEngine
{
PressMemory::PressMemory(std::size_t capacity) : runs(capacity), heads(SLOTS, NONE) {}

OrvMidiMessage PressMemory::noteOffOf(const Run& run)
{
    const auto byteAt = [&](int bits) { return static_cast<std::int8_t>(run.key >> bits); };
    OrvMidiMessage noteOff({.type = MessageType::noteOff,
                            .d1 = run.outcome.value,
                            .d2 = run.velocity,
                            .channel = byteAt(32),
                            .output = byteAt(8),
                            .zone = byteAt(0),
                            .input = byteAt(16)});
    noteOff.setDefaultChannel(byteAt(24) != 0);
    return noteOff;
}

PressMemory::Index PressMemory::startRun(Key key, const Press& press)
{
    const Index run = take();
    if (run == NONE) return NONE;
    runs[run] = {.key = key,
                 .count = press.count,
                 .generation = press.generation,
                 .next = NONE,
                 .outcome = press.outcome,
                 .velocity = press.velocity};
    putFirst(run);
    markOpen(run);
    return run;
}

void PressMemory::unlink(Index run)
{
    Index* link = &heads[slotOf(runs[run].key)];
    while (*link != run) link = &runs[*link].next;
    *link = runs[run].next;
}

void PressMemory::putFirst(Index run)
{
    Index& head = heads[slotOf(runs[run].key)];
    runs[run].next = head;
    head = run;
}

PressMemory::Index PressMemory::detachOlder(Index latest)
{
    Index detached = NONE;
    for (Index* link = &runs[latest].next; *link != NONE;) {
        const Index run = *link;
        if (runs[run].key != runs[latest].key) {
            link = &runs[run].next;
            continue;
        }
        *link = runs[run].next;
        runs[run].next = detached;
        detached = run;
    }
    return detached;
}

PressMemory::Index PressMemory::take()
{
    if (free != NONE) {
        const Index run = free;
        free = runs[run].next;
        return run;
    }
    if (used < runs.size()) return static_cast<Index>(used++);
    if (usedUp == 0) return NONE;
    while (runs[hand].count > 0) hand = (hand + 1) % runs.size();
    --usedUp;
    unlink(static_cast<Index>(hand));
    return static_cast<Index>(hand);
}

void PressMemory::recycle(Index run)
{
    runs[run].next = free;
    free = run;
}

void PressMemory::clear()
{
    if (used == 0) return;
    std::ranges::fill(heads, NONE);
    open.clear();
    used = usedUp = hand = 0;
    free = NONE;
}
}  // namespace Backend::MidiEngine
