#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>

#include "host/midi/PendingNoteOffs.h"
#include "host/midi/ShortMessage.h"

namespace Host
{
/// A message and when it is due, in the frames of the audio clock (wraps round); what has no such clock ignores it.
struct StampedMessage {
    ShortMessage message;
    std::uint32_t stamp = 0;
};

/// MIDI on its way from one thread to one other, in order. `push` waits for nothing, allocates nothing and makes no
/// system call. A full ring loses messages and counts them, but never the end of a note: the last half of the room is
/// kept for note offs, and those that find not even that are remembered by note and given last. So a note may be cut
/// short under an overload that lasts, but none is left sounding.
class MidiRing
{
public:
    static constexpr std::uint32_t ROOM = 4096;
    static constexpr std::uint32_t ROOM_FOR_ALL = ROOM / 2;

    MidiRing() : ring(std::make_unique<std::array<StampedMessage, ROOM>>()) {}

    /// The producer's thread.
    void push(const ShortMessage& message, std::uint32_t stamp);

    /// Gives what waits to `take(const StampedMessage&)` until that returns false, which leaves the message at the
    /// front. True if nothing waits any more. The consumer's thread.
    template <class Take>
    bool drain(Take&& take)
    {
        collectOwed();
        const std::uint32_t end = written.load(std::memory_order_acquire);
        std::uint32_t next = taken.load(std::memory_order_relaxed);
        for (;;) {
            if (next == owedAt && !giveOwed(take)) return false;
            if (next == end) return true;
            if (!take((*ring)[next % ROOM])) return false;
            taken.store(++next, std::memory_order_release);
        }
    }

    /// More than a quarter of the room is taken. The producer's thread.
    bool isCrowded() const
    {
        return written.load(std::memory_order_relaxed) - taken.load(std::memory_order_acquire) > ROOM / 4;
    }

    /// Messages lost so far. Any thread.
    std::uint64_t lossCount() const { return losses.load(std::memory_order_relaxed); }

private:
    static constexpr std::size_t BITS = 64;

    void rememberEnd(const ShortMessage& message);
    void collectOwed();

    template <class Take>
    bool giveOwed(Take& take)
    {
        for (std::size_t index = 0; owed.any() && index < owed.size(); ++index) {
            if (!owed[index]) continue;
            if (!take(StampedMessage{noteOff(index), owedStamp.load(std::memory_order_relaxed)})) return false;
            owed.reset(index);
        }
        return true;
    }

    std::unique_ptr<std::array<StampedMessage, ROOM>> ring;

    // The producer writes
    alignas(64) std::atomic<std::uint32_t> written{0};
    std::atomic<std::uint64_t> losses{0};
    std::atomic<std::uint32_t> owedStamp{0};

    // Both: note offs that found no room
    alignas(64) std::atomic<bool> overflowed{false};
    std::array<std::atomic<std::uint64_t>, CHANNELS * NOTES / BITS> lostEnds{};

    // The consumer's
    alignas(64) std::atomic<std::uint32_t> taken{0};
    NoteSet owed;  // to be given once the messages before `owedAt` have been
    std::uint32_t owedAt = 0;
};
}  // namespace Host
