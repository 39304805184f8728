#pragma once

#include <atomic>
#include <cstdint>

#include "api/MidiPlayer.h"
#include "host/ports/Ports.h"
#include "platform/Event.h"

namespace Host
{
/// The host's player. What it plays is pushed into the ring of the port, and what it is asked to change is only noted:
/// no operation waits, allocates or opens a device. The control thread is told by an event that a wish is there.
class Player final : public Backend::MidiEngine::MidiPlayer
{
public:
    static constexpr int FIRST_TEMPO = 120;

    /// Both must outlive the player.
    Player(const Ports& allPorts, Event& wishes);

    // Time slice
    void playMidi(const Backend::MidiEngine::OrvMidiMessage& event) override;

    // Any thread, with the engine lock held
    void enableMidiInput(int port, bool enabled) override;
    void enableMidiOutput(int port, bool enabled) override;
    ThreadId getThreadId() override { return clockThread.load(std::memory_order_acquire); }
    /// Nothing: a tapped tempo reaches this host as a tempo.
    void pulseSequencer() override {}
    /// From the next pulse on.
    void setTempo(int bpm) override { tempo.store(bpm, std::memory_order_relaxed); }
    /// Which input's MIDI clock the clock's thread follows, -1 for the one of `setClockIn`.
    void setTempoSource(char source) override { tempoSource.store(source, std::memory_order_relaxed); }
    char getTempoSource() override { return tempoSource.load(std::memory_order_relaxed); }
    /// Of the slice being played, or the last one.
    std::uint32_t getMilliseconds() override { return milliseconds.load(std::memory_order_relaxed); }

    int getTempo() const { return tempo.load(std::memory_order_relaxed); }

    /// The input that leads where the program names none, and the output that gets the host's clock; -1 for none.
    /// Before anything plays.
    void setClockIn(int input) { clockIn = input; }
    void setClockOut(int output) { clockOut = output; }

    /// The input whose MIDI clock leads, -1 for none. Any thread.
    int getClockSource() const
    {
        const char source = tempoSource.load(std::memory_order_relaxed);
        return source >= 0 ? source : clockIn;
    }

    /// A tempo that was heard since the last call and that the program does not have, 0 for none. The control thread.
    int takeHeardTempo() { return heardTempo.exchange(0); }

    // The clock's thread, outside a slice

    /// The calling thread is the clock from now on. Costs nothing when it was already.
    void takeClock();

    /// The stamp of what the next slice plays.
    void setStamp(std::uint32_t newStamp) { stamp = newStamp; }

    /// The time of what the next slice plays, in milliseconds as of `monotonicMilliseconds`. It never goes back.
    void setMilliseconds(std::uint32_t time)
    {
        if (static_cast<std::int32_t>(time - getMilliseconds()) > 0)
            milliseconds.store(time, std::memory_order_relaxed);
    }

    /// A clock from outside has this tempo, 20 to 250. Called a dozen times in half a beat or more often.
    void hearTempo(double bpm);

    /// Something was played past the player.
    void notePlayed() { played = true; }

    /// Whether anything was played since the last call.
    bool takePlayed() { return std::exchange(played, false); }

    /// Whether an output was to be opened or closed since the last call. The control thread.
    bool takeOutputWish() { return outputWish.exchange(false); }

private:
    bool comesBack(const Backend::MidiEngine::OrvMidiMessage& event, const ShortMessage& message) const;

    const Ports& ports;
    Event& wish;
    int clockIn = -1;
    int clockOut = -1;
    std::atomic<ThreadId> clockThread{0};
    std::atomic<int> tempo{FIRST_TEMPO};
    std::atomic<char> tempoSource{-1};
    std::atomic<bool> outputWish{false};
    std::atomic<int> heardTempo{0};
    std::atomic<std::uint32_t> milliseconds{monotonicMilliseconds()};

    // The clock's
    std::uint32_t stamp = 0;
    bool played = false;
    int toldTempo = 0;
    int hearings = 0;  // since it was told
};
}  // namespace Host
