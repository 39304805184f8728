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

/// The index of a note message's note in a `NoteSet`.
inline std::size_t noteIndex(const ShortMessage& message)
{
    return static_cast<std::size_t>(message.channel() * NOTES + message.bytes[1]);
}

/// The note-off for an index of a `NoteSet`, with the default release velocity (64, MIDI 1.0 Detailed Specification,
/// "Note-Off Velocity").
ShortMessage noteOff(std::size_t index);

/// Tracks the notes that sound at the receivers of an output, and the note-offs that some receiver may not have got.
/// Pedals (sustain, sostenuto and soft, controllers 64, 66 and 67) are tracked in the same way as notes: a pedal that
/// is up is the "note-off" of one that is down. It keeps five sets:
///
/// | set         | holds                                                    | filled by          | emptied by         |
/// |-------------|----------------------------------------------------------|--------------------|--------------------|
/// | sounding    | notes whose last message was a note-on                   | `record`           | `record`           |
/// | recent      | note-offs sent in the last half second                   | `record`           | `beginDelivery`    |
/// | undelivered | note-offs that a disconnected receiver misses            | `markUndelivered`  | `queueUndelivered` |
/// | sentOnce    | note-offs sent once since that receiver was reconnected  | `queueUndelivered` | `queueSentOnce`    |
/// | queued      | note-offs to send before anything else                   | `queue...`         | `resend`           |
///
/// A note that sounds again when it is queued or sent is left out, since its note-off will come by itself. All
/// operations belong to the thread that sends to the port; they allocate nothing.
class PendingNoteOffs
{
public:
    /// A message was sent.
    void record(const ShortMessage& message);

    /// A delivery begins; `milliseconds` is the time of a clock that may wrap round. A note-off counts as recent for
    /// half a second of deliveries, because a broken connection is noticed late.
    void beginDelivery(std::uint32_t milliseconds);

    /// A receiver was disconnected: what sounds, and every note-off that it may have missed, is undelivered.
    void markUndelivered();

    /// The receiver is connected again: what is undelivered is queued.
    void queueUndelivered();

    /// The receiver certainly processes messages now: what was queued when it was connected is queued a second time.
    void queueSentOnce();

    /// A receiver missed a period: the recent note-offs are queued.
    void queueRecent();

    /// The only link to the receivers is broken. As `markUndelivered`; the note-offs that may have been missed count as
    /// notes that sound, so that `release` sends them.
    void markLinkBroken();

    /// Sends what is queued to `send(const ShortMessage&)`. False as soon as that refuses a message: the rest stays
    /// queued.
    template <class Send>
    bool resend(Send&& send)
    {
        if (!hasQueued) return true;
        remove(queued, sounding);
        hasQueued = !sendAll(queued, send);
        return !hasQueued;
    }

    /// Sends a note-off for each note that sounds, then a pedal up for each pedal that is down. False as `resend`.
    template <class Send>
    bool release(Send&& send)
    {
        Notes ends = sounding;
        return sendAll(ends, [&](const ShortMessage& message) {
            const bool sent = send(message);
            if (sent) record(message);
            return sent;
        });
    }

    /// How many notes sound.
    int soundingNotes() const { return soundingCount; }

    /// No note sounds and no pedal is down.
    bool isSilent() const { return sounding.notes.none() && sounding.pedals.none(); }

private:
    struct Notes {
        NoteSet notes;
        std::bitset<3 * CHANNELS> pedals;  // sustain, sostenuto, soft
    };

    static void add(Notes& to, const Notes& notes)
    {
        to.notes |= notes.notes;
        to.pedals |= notes.pedals;
    }
    static void remove(Notes& from, const Notes& notes)
    {
        from.notes &= ~notes.notes;
        from.pedals &= ~notes.pedals;
    }

    /// Removes from `ends` what was sent.
    template <class Send>
    static bool sendAll(Notes& ends, Send&& send)
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

    static ShortMessage pedalUp(std::size_t index);
    Notes recent() const;
    void queue(const Notes& ends);
    void setSounding(std::size_t index, bool sounds);
    void setPedal(std::size_t index, bool down);

    Notes sounding;
    int soundingCount = 0;
    Notes undelivered;
    Notes sentOnce;
    Notes queued;
    bool hasQueued = false;

    std::array<Notes, 3> recentQuarters;  // note-offs by the quarter of a second in which they were sent
    std::size_t current = 0;              // index of the present quarter
    std::size_t filledQuarters = 0;       // how many of them may hold something
    std::uint32_t currentSince = 0;       // milliseconds
};
}  // namespace Host
