#pragma once

#include <array>
#include <bitset>

#include "host/midi/ShortMessage.h"

namespace Host
{
inline constexpr int CHANNELS = 16;
inline constexpr int NOTES = 128;

/// A set of notes, one per channel and note number.
using NoteSet = std::bitset<CHANNELS * NOTES>;

inline std::size_t noteIndex(const ShortMessage& message)
{
    return static_cast<std::size_t>(message.channel() * NOTES + message.bytes[1]);
}

/// A note off for an index of a `NoteSet`, with the velocity that stands for none (64, MIDI 1.0 Detailed
/// Specification, "Note-Off Velocity").
ShortMessage noteOff(std::size_t index);

/// What sounds at the far end of a port: the notes whose last message was a note on, and the pedals that are down and
/// would hold them. Whoever closes the port asks it to release them all. When the way there breaks, what was ended last
/// may not have been heard, and is to be ended once more; if it is but one of several ways, once that one is there
/// again. One thread, that which sends to the port.
class NoteLedger
{
public:
    /// Enters a message that was sent.
    void enter(const ShortMessage& message);

    /// A delivery begins. What is ended stays in doubt for the next half second of deliveries, as somebody may notice
    /// only then that the way is broken. `milliseconds` of any clock that wraps round.
    void beginDelivery(std::uint32_t milliseconds);

    /// The way to the far end is broken: what is in doubt sounds.
    void doubt();

    /// One of the ways is broken: what sounds or is in doubt now is owed to it until `pay`, and again what was not yet
    /// given twice.
    void owe();

    /// The way is there again: gives the ends of what is owed and does not sound now, as `release` does.
    template <class Send>
    bool pay(Send&& send)
    {
        owed.notes &= ~sounding;
        owed.pedals &= ~pedals;
        paid.notes |= owed.notes;
        paid.pedals |= owed.pedals;
        return giveEnds(owed, send);
    }

    /// Gives once more what was paid, as it may have come too early.
    template <class Send>
    bool payAgain(Send&& send)
    {
        paid.notes &= ~sounding;
        paid.pedals &= ~pedals;
        return giveEnds(paid, send);
    }

    /// Somebody missed some of what was sent: what is in doubt is to be given once more by `repeat`.
    void noteMissed();

    /// Gives that, as `release` does.
    template <class Send>
    bool repeat(Send&& send)
    {
        missed.notes &= ~sounding;
        missed.pedals &= ~pedals;
        return giveEnds(missed, send);
    }

    /// Gives the note offs, then the pedals up, to `send(const ShortMessage&)`. False as soon as that refuses one: what
    /// is left stays in the ledger for the next time.
    template <class Send>
    bool release(Send&& send)
    {
        for (std::size_t index = 0; sounding.any() && index < sounding.size(); ++index)
            if (sounding[index] && !give(noteOff(index), send)) return false;
        for (std::size_t index = 0; pedals.any() && index < pedals.size(); ++index)
            if (pedals[index] && !give(pedalUp(index), send)) return false;
        return true;
    }

    /// Notes that sound.
    int soundingNotes() const { return soundingCount; }

    bool isEmpty() const { return sounding.none() && pedals.none(); }

private:
    template <class Send>
    bool give(const ShortMessage& message, Send& send)
    {
        if (!send(message)) return false;
        enter(message);
        return true;
    }

    using PedalSet = std::bitset<2 * CHANNELS>;  // sustain, then sostenuto

    struct Sounds {
        NoteSet notes;
        PedalSet pedals;
    };

    /// Takes away what was given.
    template <class Send>
    static bool giveEnds(Sounds& ends, Send& send)
    {
        for (std::size_t index = 0; ends.notes.any() && index < ends.notes.size(); ++index) {
            if (ends.notes[index] && !send(noteOff(index))) return false;
            ends.notes.reset(index);
        }
        for (std::size_t index = 0; ends.pedals.any() && index < ends.pedals.size(); ++index) {
            if (ends.pedals[index] && !send(pedalUp(index))) return false;
            ends.pedals.reset(index);
        }
        return true;
    }

    Sounds inDoubt() const;
    static ShortMessage pedalUp(std::size_t index);
    void setSounding(std::size_t index, bool sounds);
    void setPedal(std::size_t index, bool down);

    NoteSet sounding;
    int soundingCount = 0;
    PedalSet pedals;
    Sounds owed;
    Sounds paid;
    Sounds missed;
    std::array<Sounds, 3> ended;     // each in a quarter of a second
    std::size_t current = 0;         // of these
    std::size_t mayDoubt = 0;        // so many of these may hold something
    std::uint32_t currentSince = 0;  // milliseconds
};
}  // namespace Host
