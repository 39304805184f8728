#include "backend/engine/PressMemory.h"

#include <algorithm>

namespace Backend::MidiEngine
{
PressMemory::PressMemory(std::size_t capacity) : runs(capacity), heads(SLOTS, NONE) {}

bool PressMemory::press(Key key, Outcome outcome, std::uint8_t velocity, std::uint32_t count)
{
    const Index latest = find(heads[slotOf(key)], key);
    if (latest == NONE) return startRun(key, outcome, velocity, count);
    if (runs[latest].count == 0) {
        --usedUp;
        runs[latest].outcome = outcome;
    }
    Index run = latest;
    while (run != NONE && runs[run].outcome != outcome) run = find(runs[run].next, key);
    if (run == NONE) return startRun(key, outcome, velocity, count);
    if (runs[run].count > std::numeric_limits<std::uint32_t>::max() - count) return false;
    runs[run].count += count;
    runs[run].velocity = velocity;
    if (run != latest) {
        unlink(run);
        putFirst(run);
    }
    return true;
}

bool PressMemory::startRun(Key key, Outcome outcome, std::uint8_t velocity, std::uint32_t count)
{
    const Index run = take();
    if (run == NONE) return false;
    runs[run] = {.key = key, .count = count, .next = NONE, .outcome = outcome, .velocity = velocity};
    putFirst(run);
    return true;
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
    used = usedUp = hand = 0;
    free = NONE;
}
}  // namespace Backend::MidiEngine
