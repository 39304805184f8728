#pragma once

#include <atomic>
#include <cstdint>

#include "backend/midi/MidiPlayer.h"
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

    /// Both must outlive the player. `ports` is complete.
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
    /// Only remembered as yet: the internal clock goes on whatever the source.
    void setTempoSource(char source) override { tempoSource.store(source, std::memory_order_relaxed); }
    char getTempoSource() override { return tempoSource.load(std::memory_order_relaxed); }
    /// Of the slice being played, or the last one.
    std::uint32_t getMilliseconds() override { return milliseconds.load(std::memory_order_relaxed); }

    int getTempo() const { return tempo.load(std::memory_order_relaxed); }

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

    /// Whether anything was played since the last call.
    bool takePlayed() { return std::exchange(played, false); }

    /// Whether an output was to be opened or closed since the last call. The control thread.
    bool takeOutputWish() { return outputWish.exchange(false); }

private:
    const Ports& ports;
    Event& wish;
    std::atomic<ThreadId> clockThread{0};
    std::atomic<int> tempo{FIRST_TEMPO};
    std::atomic<char> tempoSource{-1};
    std::atomic<bool> outputWish{false};
    std::atomic<std::uint32_t> milliseconds{monotonicMilliseconds()};

    // The clock's
    std::uint32_t stamp = 0;
    bool played = false;
};
}  // namespace Host
