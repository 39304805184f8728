#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

#include "api/MidiPlayer.h"
#include "host/ports/Ports.h"
#include "platform/Event.h"

namespace Host
{
/// The host's implementation of `MidiPlayer`. Events are pushed into the ring of their output; requests to enable a
/// port or change the tempo are stored, and an event notifies the control thread, which executes them. No operation
/// waits, allocates or opens a device.
class Player final : public Backend::MidiEngine::MidiPlayer
{
public:
    static constexpr int FIRST_TEMPO = 120;

    /// `requestEvent` is set for each request. Both must outlive the player.
    Player(const Ports& allPorts, Event& requestEvent);

    // With the engine lock held, in a slice or for an event of an input that is played at once
    void playMidi(const Backend::MidiEngine::OrvMidiMessage& event) override;

    // Any thread, with the engine lock held
    void enableMidiInput(int port, bool enabled) override;
    void enableMidiOutput(int port, bool enabled) override;
    ThreadId getThreadId() override { return clockThread.load(std::memory_order_acquire); }
    /// Does nothing: this host gets a tapped tempo by `setTempo`.
    void pulseSequencer() override {}
    /// Takes effect with the next pulse.
    void setTempo(int bpm) override { tempo.store(bpm, std::memory_order_relaxed); }
    /// The input whose MIDI clock sets the tempo, -1 for that of `setClockIn`.
    void setTempoSource(char source) override { tempoSource.store(source, std::memory_order_relaxed); }
    char getTempoSource() override { return tempoSource.load(std::memory_order_relaxed); }
    void wakeClock() override { clockWake.set(); }
    /// The time of the present slice, or of the last one; while the clock rests, that of now.
    std::uint32_t getMilliseconds() override
    {
        return resting.load(std::memory_order_relaxed) ? monotonicMilliseconds()
                                                       : milliseconds.load(std::memory_order_relaxed);
    }

    int getTempo() const { return tempo.load(std::memory_order_relaxed); }

    /// The input whose MIDI clock sets the tempo if the program names none, and the output that the host sends its MIDI
    /// clock to; -1 for none. Control thread.
    void setClockIn(int input) { clockIn.store(input, std::memory_order_relaxed); }
    void setClockOut(int output) { clockOut.store(output, std::memory_order_relaxed); }

    /// Note-ons are dropped until they are accepted again; note-offs and all other messages are played. Any thread.
    void acceptNoteOns(bool accept) { noteOnsAccepted.store(accept); }

    /// The input whose MIDI clock sets the tempo, -1 for none. Any thread.
    int getClockSource() const
    {
        const char source = tempoSource.load(std::memory_order_relaxed);
        return source >= 0 ? source : clockIn.load(std::memory_order_relaxed);
    }

    /// The tempo of an external clock that was measured since the last call and that the program does not have yet, 0
    /// for none. Control thread.
    int takeExternalTempo() { return externalTempo.exchange(0); }

    // The thread that plays the slices, outside a slice

    /// The calling thread plays the slices from now on. A plain read if it did before.
    void setClockThread();

    /// Waits for `wakeClock`, at most that long.
    void waitForWork(std::chrono::milliseconds longest)
    {
        resting.store(true, std::memory_order_relaxed);
        clockWake.waitFor(longest);
        resting.store(false, std::memory_order_relaxed);
    }

    /// The stamp of the events of the next slice.
    void setStamp(std::uint32_t newStamp) { stamp = newStamp; }

    /// The time of the next slice, in milliseconds as of `monotonicMilliseconds`. An earlier time is ignored.
    void setMilliseconds(std::uint32_t time)
    {
        if (static_cast<std::int32_t>(time - getMilliseconds()) > 0)
            milliseconds.store(time, std::memory_order_relaxed);
    }

    /// An external clock has this tempo, 20 to 250 beats per minute. To be called at each of its ticks.
    void reportExternalTempo(double bpm);

    /// A message was sent to a port without the player.
    void markPlayed() { played.store(true, std::memory_order_relaxed); }

    /// Whether a message was played since the last call, by whichever thread.
    bool takePlayed() { return played.load(std::memory_order_relaxed) && played.exchange(false); }

    /// Whether an output was to be enabled or disabled since the last call. Control thread.
    bool takeOutputRequest() { return outputRequest.exchange(false); }

private:
    bool isForwardedClock(const Backend::MidiEngine::OrvMidiMessage& event, const ShortMessage& message) const;

    const Ports& ports;
    Event& requested;
    Event clockWake;
    std::atomic<int> clockIn{-1};
    std::atomic<int> clockOut{-1};
    std::atomic<ThreadId> clockThread{0};
    std::atomic<int> tempo{FIRST_TEMPO};
    std::atomic<char> tempoSource{-1};
    std::atomic<bool> outputRequest{false};
    std::atomic<bool> noteOnsAccepted{true};
    std::atomic<int> externalTempo{0};
    std::atomic<bool> played{false};
    std::atomic<bool> resting{false};
    std::atomic<std::uint32_t> milliseconds{monotonicMilliseconds()};

    // Used by the thread that plays the slices
    std::uint32_t stamp = 0;
    int reportedTempo = 0;
    int ticksSinceReport = 0;
};
}  // namespace Host
