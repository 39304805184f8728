#include "host/midi/MidiRing.h"

namespace Host
{
void MidiRing::push(const ShortMessage& message, std::uint32_t stamp)
{
    const std::uint32_t next = written.load(std::memory_order_relaxed);
    const std::uint32_t waiting = next - taken.load(std::memory_order_acquire);
    // As long as ends of notes are owed nothing may pass them by.
    const bool owing = overflowed.load(std::memory_order_relaxed);
    if (!owing && waiting < (message.endsNote() ? ROOM : ROOM_FOR_ALL)) {
        (*ring)[next % ROOM] = {message, stamp};
        written.store(next + 1, std::memory_order_release);
    } else if (message.endsNote()) {
        owedStamp.store(stamp, std::memory_order_relaxed);
        rememberEnd(message);
    } else {
        losses.fetch_add(1, std::memory_order_relaxed);
    }
}

void MidiRing::rememberEnd(const ShortMessage& message)
{
    const std::size_t index = noteIndex(message);
    lostEnds[index / BITS].fetch_or(std::uint64_t{1} << index % BITS, std::memory_order_release);
    overflowed.store(true, std::memory_order_release);
}

void MidiRing::collectOwed()
{
    if (owed.any() || !overflowed.load(std::memory_order_relaxed)) return;
    // Lowered before the notes are read: one that is added meanwhile raises it again.
    overflowed.exchange(false, std::memory_order_acq_rel);
    for (std::size_t word = 0; word < lostEnds.size(); ++word) {
        const std::uint64_t bits = lostEnds[word].exchange(0, std::memory_order_acq_rel);
        for (std::size_t bit = 0; bit < BITS; ++bit)
            if ((bits >> bit & 1) != 0) owed.set(word * BITS + bit);
    }
    // Whatever was written before a note was remembered comes before its end.
    owedAt = written.load(std::memory_order_acquire);
}
}  // namespace Host
