#pragma once

#include <atomic>
#include <string>
#include <utility>

#include "host/midi/MidiRing.h"
#include "host/midi/PendingNoteOffs.h"
#include "host/ports/EventLimit.h"
#include "platform/Clock.h"

namespace Host
{
/// A device as a scan found it.
struct MidiDevice {
    std::string address;  ///< tells it from every other; may change from one run to the next
    std::string name;     ///< as its user knows it; twins share one

    bool operator==(const MidiDevice&) const = default;
};

/// What an input and an output have in common. Its index in its list is its number, and it never moves.
struct Port {
    explicit Port(std::string portName) : name(std::move(portName)) {}

    const std::string name;

    // The control thread's (that of `LivePlay`)
    MidiDevice device;          ///< that it stands for, or last stood for
    bool found = true;          ///< the device is there
    bool couldNotOpen = false;  ///< tried, and failed
    bool enabled = true;        ///< the user's choice, carried out

    /// The user's choice, to be carried out. Any thread.
    std::atomic<bool> wanted{true};
};

/// A way in. Whoever hears the device pushes into `arrived`; one host thread takes from there and posts.
struct InputPort : Port {
    using Port::Port;

    /// What arrives is taken. The control thread writes.
    std::atomic<bool> open{false};

    /// Pushes a message unless there are too many. `stamp` and `milliseconds` as in `StampedMessage` and `EventLimit`.
    /// The thread that hears the device.
    bool take(const ShortMessage& message, std::uint32_t stamp, std::uint32_t milliseconds)
    {
        const bool passes = limit.passes(message, milliseconds);
        if (passes) arrived.push(message, stamp);
        return passes;
    }

    EventLimit limit;
    MidiRing arrived;
};

/// A way out. The time slice plays into it; one other thread, or the same at another moment, delivers what waits to the
/// device. Once closed it has sent a note off for every note that sounded there.
class OutputPort : public Port
{
public:
    using Port::Port;

    /// Waits for nothing, allocates nothing, makes no system call. `stamp` as in `StampedMessage`. Time slice.
    void play(const ShortMessage& message, std::uint32_t stamp)
    {
        if (isOpen.load(std::memory_order_relaxed)) waiting.push(message, stamp);
    }

    /// The same for a tick of a clock, which is left out where notes may soon want its place. Time slice.
    void playTick(const ShortMessage& tick, std::uint32_t stamp)
    {
        if (!waiting.isCrowded()) play(tick, stamp);
    }

    /// The control thread. `close` takes effect at the next `deliver`.
    void open() { isOpen.store(true); }
    void close() { isOpen.store(false); }

    /// True from `close` until what had been played before was delivered and no note sounds. Any thread.
    bool isClosing() const { return !isOpen.load() && !isSilent(); }

    /// Gives what waits to `send(const ShortMessage&, std::uint32_t stamp)`, which returns false if it can take no
    /// more now. What a closed port sends of itself is stamped `now`. The delivering thread.
    template <class Send>
    void deliver(std::uint32_t now, Send&& send)
    {
        const bool keepsOpen = isOpen.load();
        ledger.beginDelivery(monotonicMilliseconds());
        const auto sendNow = [&](const ShortMessage& message) { return send(message, now); };
        if (!endAgain(sendNow)) return;
        if (keepsOpen) silent.store(false, std::memory_order_relaxed);
        if (isSilent()) {
            waiting.drain([](const StampedMessage&) { return true; });
            return;
        }
        const bool done = waiting.drain([&](const StampedMessage& next) {
            if (!send(next.message, next.stamp)) return false;
            ledger.enter(next.message);
            return true;
        });
        const bool released = !keepsOpen && done && ledger.release(sendNow);
        sounding.store(ledger.soundingNotes(), std::memory_order_relaxed);
        if (released) silent.store(true, std::memory_order_release);
    }

    /// How many notes sound at the far end. Any thread.
    int soundingNotes() const { return sounding.load(std::memory_order_relaxed); }

    /// The device is gone: drops what waits. What sounds at the far end, or may do so because the last that was sent
    /// was not heard any more, is released when somebody delivers again. Closed, and nobody delivers meanwhile.
    void lose()
    {
        waiting.drain([](const StampedMessage&) { return true; });
        news.store(0);  // nobody listens any more
        ledger.owe();
        ledger.doubt();
        sounding.store(ledger.soundingNotes(), std::memory_order_relaxed);
        if (!ledger.isEmpty()) silent.store(false, std::memory_order_release);
    }

    /// One of those who hear the port went, or is back and has not heard what ended meanwhile, so that it is ended
    /// again; and once more when it certainly listens. Control thread.
    void listenerWent() { news.fetch_or(WENT); }
    void listenerIsBack() { news.fetch_or(IS_BACK); }
    void listenerListens() { news.fetch_or(LISTENS); }

    /// Somebody did not hear some of what was sent just now, so that what ended then is ended again. Control thread.
    void listenerMissed() { news.fetch_or(MISSED); }

    std::uint64_t lossCount() const { return waiting.lossCount(); }

private:
    // What there is to do about those who hear the port
    enum News : unsigned { WENT = 1, IS_BACK = 2, LISTENS = 4, MISSED = 8, REPEATS = 16 };

    /// False if not all could be given yet.
    template <class Send>
    bool endAgain(Send& send)
    {
        if (news.load(std::memory_order_relaxed) == 0) return true;
        const unsigned told = news.exchange(0);
        if ((told & WENT) != 0) ledger.owe();
        if ((told & MISSED) != 0) ledger.noteMissed();
        unsigned left = 0;
        if ((told & IS_BACK) != 0 && !ledger.pay(send)) left |= IS_BACK;
        if ((told & LISTENS) != 0 && !ledger.payAgain(send)) left |= LISTENS;
        if ((told & (MISSED | REPEATS)) != 0 && !ledger.repeat(send)) left |= REPEATS;
        if (left != 0) news.fetch_or(left);
        return left == 0;
    }

    bool isSilent() const { return silent.load(std::memory_order_acquire); }

    MidiRing waiting;
    NoteLedger ledger;
    std::atomic<int> sounding{0};
    std::atomic<bool> isOpen{false};
    std::atomic<bool> silent{true};
    std::atomic<unsigned> news{0};
};
}  // namespace Host
