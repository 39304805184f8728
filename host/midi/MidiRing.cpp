#include "host/midi/MidiRing.h"

namespace Host
{
bool MidiRing::push(const ShortMessage& message, std::uint32_t stamp)
{
    const std::uint32_t next = written.load(std::memory_order_relaxed);
    const std::uint32_t waiting = next - taken.load(std::memory_order_acquire);
    // No message may overtake a note-off that found the ring full.
    const bool keepsNoteOffs = overflowed.load(std::memory_order_relaxed);
    if (!keepsNoteOffs && waiting < (message.endsNote() ? ROOM : ROOM_FOR_ALL)) {
        (*ring)[next % ROOM] = {message, stamp};
        written.store(next + 1, std::memory_order_release);
        return true;
    }
    if (message.endsNote()) {
        overflowStamp.store(stamp, std::memory_order_relaxed);
        return keepNoteOff(message);
    }
    losses.fetch_add(1, std::memory_order_relaxed);
    return false;
}

/// False if the note had one already.
bool MidiRing::keepNoteOff(const ShortMessage& message)
{
    const std::size_t index = noteIndex(message);
    const std::uint64_t bit = std::uint64_t{1} << index % BITS;
    const std::uint64_t before = overflowedNoteOffs[index / BITS].fetch_or(bit, std::memory_order_release);
    overflowed.store(true, std::memory_order_release);
    return (before & bit) == 0;
}

void MidiRing::collectOverflow()
{
    if (overflow.any() || !overflowed.load(std::memory_order_relaxed)) return;
    // Cleared before the notes are read: a note that is added meanwhile sets it again.
    overflowed.exchange(false, std::memory_order_acq_rel);
    for (std::size_t word = 0; word < overflowedNoteOffs.size(); ++word) {
        const std::uint64_t bits = overflowedNoteOffs[word].exchange(0, std::memory_order_acq_rel);
        for (std::size_t bit = 0; bit < BITS; ++bit)
            if ((bits >> bit & 1) != 0) overflow.set(word * BITS + bit);
    }
    // Every message written before a note-off was kept is taken before that note-off.
    overflowAt = written.load(std::memory_order_acquire);
}
}  // namespace Host
