#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "host/midi/MidiRing.h"
#include "host/midi/PendingNoteOffs.h"
#include "host/midi/StatusByte.h"
#include "host/ports/EventLimit.h"
#include "platform/Clock.h"

namespace Host
{
/// A MIDI device as a scan found it.
struct MidiDevice {
    std::string address;  ///< unique among all devices; may change from one run to the next
    std::string name;     ///< as the user knows it; two devices may share one

    bool operator==(const MidiDevice&) const = default;
};

/// What an input and an output have in common. The index of a port in its list is its number, which never changes.
struct Port {
    explicit Port(std::string portName) : name(std::move(portName)) {}

    const std::string name;

    // Used by the control thread alone (that of `LivePlay`)
    MidiDevice device;          ///< the device of this port, or the last one it had
    bool found = true;          ///< the device is present
    bool couldNotOpen = false;  ///< opening the device failed
    bool enabled = true;        ///< the user's choice as far as it has been executed

    /// The user's choice, not yet executed. Any thread.
    std::atomic<bool> wanted{true};
};

/// An input. A process callback, which must not post, pushes the messages that it cannot play into `arrived`; one host
/// thread takes them from there and posts them to the backend.
struct InputPort : Port {
    using Port::Port;

    /// Messages are accepted. Written by the control thread.
    std::atomic<bool> open{false};

    /// For a message that is to be posted. The thread that receives from the device.
    void queue(const ShortMessage& message)
    {
        if (!arrived.push(message, 0)) lost.fetch_add(1, std::memory_order_release);
    }

    EventLimit limit;
    MidiRing arrived;
    std::atomic<std::uint32_t> lost{0};  ///< messages that `arrived` could not take, not yet reported
};

/// An output. The time slices play into its ring; one other thread, or the same thread at another moment, delivers the
/// ring to the device.
///
/// | state   | entered by                                | `play`        | `deliver` sends, in this order           |
/// |---------|-------------------------------------------|---------------|------------------------------------------|
/// | closed  | construction; the end of closing          | drops         | queued note-offs                         |
/// | open    | `open`                                    | fills a ring  | queued note-offs, the ring               |
/// | closing | `close`; `unplug` while notes may sound   | drops         | queued note-offs, the ring, a note-off   |
/// |         |                                           |               | for each note that sounds, pedals up     |
///
/// Queued note-offs are those that a receiver may have missed (`PendingNoteOffs`). These calls queue them, in any
/// state, for the next `deliver`; `unplug` discards calls that no `deliver` has processed yet:
///
/// | call                   | effect on note-offs                                                                  |
/// |------------------------|--------------------------------------------------------------------------------------|
/// | `receiverDisconnected` | notes that sound, and note-offs of the last half second, become undelivered          |
/// | `receiverConnected`    | undelivered note-offs are sent, except for notes that sound                          |
/// | `receiverReady`        | the same are sent a second time: the first may have come before the receiver was run |
/// | `periodMissed`         | note-offs of the last half second are sent again                                     |
/// | `unplug`               | as `receiverDisconnected`; and the notes count as sounding, so that closing ends them |
class OutputPort : public Port
{
public:
    using Port::Port;

    /// Never waits, allocates or makes a system call. `stamp` as in `StampedMessage`. One thread at a time: the engine
    /// lock is held.
    void play(const ShortMessage& message, std::uint32_t stamp)
    {
        if (state.load(std::memory_order_relaxed) == State::open) waiting.push(message, stamp);
    }

    /// This port carries a MIDI clock, which has a ring of its own, because it is sent outside the engine lock. The
    /// ring stays. Control thread.
    void carryClock()
    {
        if (!clockRing) clockRing = std::make_unique<MidiRing>();
        clock.store(clockRing.get());
    }

    /// Sends a message of the MIDI clock, before what is played with the same stamp. While many wait, ticks are
    /// dropped. The thread that plays the slices.
    void playClock(const ShortMessage& message, std::uint32_t stamp)
    {
        MidiRing& ring = *clock.load(std::memory_order_acquire);
        const bool isDropped = message.bytes[0] == StatusByte::TICK && ring.isCrowded();
        if (state.load(std::memory_order_relaxed) == State::open && !isDropped) ring.push(message, stamp);
    }

    void open() { state.store(State::open); }               ///< Control thread.
    void close() { replace(State::open, State::closing); }  ///< Takes effect at the next `deliver`. Control thread.

    /// Closing is not complete: messages wait, or notes sound. Any thread.
    bool isClosing() const { return state.load() == State::closing; }

    /// Passes the messages to send to `send(const ShortMessage&, std::uint32_t stamp)`, which returns false if it can
    /// take no more now. Note-offs that the port sends by itself have the stamp `now`. The delivering thread.
    template <class Send>
    void deliver(std::uint32_t now, Send&& send)
    {
        const State before = state.load();
        noteOffs.beginDelivery(monotonicMilliseconds());
        processReceiverEvents();
        const auto sendNow = [&](const ShortMessage& message) { return send(message, now); };
        if (!noteOffs.resend(sendNow)) return;
        if (before == State::closed) {
            discardWaiting();
            return;
        }
        const bool delivered = waiting.drain([&](const StampedMessage& next) {
            if (!deliverClock(send, &next.stamp) || !send(next.message, next.stamp)) return false;
            noteOffs.record(next.message);
            return true;
        }) && deliverClock(send, nullptr);
        const bool released = before == State::closing && delivered && noteOffs.release(sendNow);
        sounding.store(noteOffs.soundingNotes(), std::memory_order_relaxed);
        if (released) replace(State::closing, State::closed);
    }

    /// How many notes sound at the receivers. Any thread.
    int soundingNotes() const { return sounding.load(std::memory_order_relaxed); }

    /// The device is gone: discards the ring. Control thread, after `close`, while no thread delivers.
    void unplug()
    {
        discardWaiting();
        receiverEvents.store(0);
        noteOffs.markLinkBroken();
        sounding.store(noteOffs.soundingNotes(), std::memory_order_relaxed);
        state.store(noteOffs.isSilent() ? State::closed : State::closing);
    }

    // One of the receivers of this port, see above. Control thread.

    void receiverDisconnected() { receiverEvents.fetch_or(DISCONNECTED); }
    void receiverConnected() { receiverEvents.fetch_or(CONNECTED); }
    void receiverReady() { receiverEvents.fetch_or(READY); }
    void periodMissed() { receiverEvents.fetch_or(MISSED); }

    /// How many messages were dropped because the ring was full. Any thread.
    std::uint64_t lossCount() const { return waiting.lossCount(); }

private:
    enum class State { closed, open, closing };
    enum ReceiverEvent : unsigned { DISCONNECTED = 1, CONNECTED = 2, READY = 4, MISSED = 8 };

    void processReceiverEvents()
    {
        if (receiverEvents.load(std::memory_order_relaxed) == 0) return;
        const unsigned events = receiverEvents.exchange(0);
        if ((events & DISCONNECTED) != 0) noteOffs.markUndelivered();
        if ((events & MISSED) != 0) noteOffs.queueRecent();
        if ((events & CONNECTED) != 0) noteOffs.queueUndelivered();
        if ((events & READY) != 0) noteOffs.queueSentOnce();
    }

    /// Sends the messages of the MIDI clock, up to that stamp if there is one. False if `send` can take no more.
    template <class Send>
    bool deliverClock(Send& send, const std::uint32_t* until)
    {
        MidiRing* const ring = clock.load(std::memory_order_acquire);
        if (ring == nullptr) return true;
        bool accepted = true;
        ring->drain([&](const StampedMessage& next) {
            if (until != nullptr && static_cast<std::int32_t>(next.stamp - *until) > 0) return false;
            accepted = send(next.message, next.stamp);
            return accepted;
        });
        return accepted;
    }

    void discardWaiting()
    {
        const auto discard = [](const StampedMessage&) { return true; };
        waiting.drain(discard);
        if (MidiRing* const ring = clock.load(std::memory_order_acquire)) ring->drain(discard);
    }

    void replace(State expected, State next) { state.compare_exchange_strong(expected, next); }

    MidiRing waiting;
    std::unique_ptr<MidiRing> clockRing;
    std::atomic<MidiRing*> clock{nullptr};  // null unless it carries one
    PendingNoteOffs noteOffs;
    std::atomic<int> sounding{0};
    std::atomic<State> state{State::closed};
    std::atomic<unsigned> receiverEvents{0};
};
}  // namespace Host
