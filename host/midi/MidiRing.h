#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>

#include "host/midi/PendingNoteOffs.h"
#include "host/midi/ShortMessage.h"

namespace Host
{
/// A message and its time in frames of the audio clock, which wraps round. Ports without an audio clock ignore the
/// time.
struct StampedMessage {
    ShortMessage message;
    std::uint32_t stamp = 0;
};

/// A queue of MIDI messages from one thread to one other, in order, without a lock. `push` never waits, allocates or
/// makes a system call. A full ring drops messages and counts them, but never a note-off: the last half of the ring is
/// reserved for note-offs, and a note-off that finds the ring full is kept by note number and taken after all messages
/// that were pushed before it. So a long overload may cut a note short but leaves none sounding.
class MidiRing
{
public:
    static constexpr std::uint32_t ROOM = 4096;
    static constexpr std::uint32_t ROOM_FOR_ALL = ROOM / 2;

    MidiRing() : ring(std::make_unique<std::array<StampedMessage, ROOM>>()) {}

    /// False if the message was dropped, or is a note-off that is kept together with an earlier one. The producer's
    /// thread; producers that take turns under a lock count as one.
    bool push(const ShortMessage& message, std::uint32_t stamp);

    /// Passes the messages to `take(const StampedMessage&)` until that returns false, which leaves the message at the
    /// front. True if the ring is empty then. The consumer's thread.
    template <class Take>
    bool drain(Take&& take)
    {
        collectOverflow();
        const std::uint32_t end = written.load(std::memory_order_acquire);
        std::uint32_t next = taken.load(std::memory_order_relaxed);
        for (;;) {
            if (next == overflowAt && !takeOverflow(take)) return false;
            if (next == end) return true;
            if (!take((*ring)[next % ROOM])) return false;
            taken.store(++next, std::memory_order_release);
        }
    }

    /// More than a quarter of the ring is filled. The producer's thread.
    bool isCrowded() const
    {
        return written.load(std::memory_order_relaxed) - taken.load(std::memory_order_acquire) > ROOM / 4;
    }

    /// How many messages were dropped so far. Any thread.
    std::uint64_t lossCount() const { return losses.load(std::memory_order_relaxed); }

private:
    static constexpr std::size_t BITS = 64;

    bool keepNoteOff(const ShortMessage& message);
    void collectOverflow();

    template <class Take>
    bool takeOverflow(Take& take)
    {
        for (std::size_t index = 0; overflow.any() && index < overflow.size(); ++index) {
            if (!overflow[index]) continue;
            if (!take(StampedMessage{noteOff(index), overflowStamp.load(std::memory_order_relaxed)})) return false;
            overflow.reset(index);
        }
        return true;
    }

    std::unique_ptr<std::array<StampedMessage, ROOM>> ring;

    // Written by the producer
    alignas(64) std::atomic<std::uint32_t> written{0};
    std::atomic<std::uint64_t> losses{0};
    std::atomic<std::uint32_t> overflowStamp{0};

    // Written by both: note-offs that found the ring full
    alignas(64) std::atomic<bool> overflowed{false};
    std::array<std::atomic<std::uint64_t>, CHANNELS * NOTES / BITS> overflowedNoteOffs{};

    // Used by the consumer alone
    alignas(64) std::atomic<std::uint32_t> taken{0};
    NoteSet overflow;  // note-offs to take after the messages before `overflowAt`
    std::uint32_t overflowAt = 0;
};
}  // namespace Host
