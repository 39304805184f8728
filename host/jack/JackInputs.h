#pragma once

#include <array>
#include <cstddef>

#include <jack/jack.h>

#include "host/clock/Clock.h"
#include "host/ports/InputReceiver.h"
#include "host/ports/Ports.h"

namespace Host
{
/// What arrived at the inputs in a period: messages of all inputs, merged by frame. The process callback only.
class JackInputs final : public PeriodInputs
{
public:
    using JackPorts = std::array<std::atomic<jack_port_t*>, Ports::MOST>;  ///< of the inputs, null for none

    JackInputs(Ports& allPorts, const JackPorts& jackPorts) : ports(allPorts), own(jackPorts) {}

    /// A period begins: messages go to `to`, and those of the external MIDI clock to `clock` too, which may be null.
    /// `start` is the stamp of the first frame.
    void begin(InputReceiver& to, Clock* clock, std::uint32_t start, jack_nframes_t frames);

    std::optional<std::uint32_t> nextFrame() override;
    void playNext() override;

    /// Has the messages that are left posted. True if any message of the period is to be posted.
    bool end();

private:
    struct Cursor {
        std::size_t input = 0;
        void* buffer = nullptr;
        std::uint32_t index = 0;  // of the next message
        jack_nframes_t frame = 0;
        ShortMessage message;
    };

    static bool findMessage(Cursor& cursor);
    static void receiveClock(const Cursor& cursor, Clock& clock, std::uint32_t start);
    Cursor* findNext();
    void pass(Cursor& cursor);
    void queue(const Cursor& cursor);

    Ports& ports;
    const JackPorts& own;
    InputReceiver* receiver = nullptr;
    std::array<Cursor, Ports::MOST> cursors;  // of the inputs that have messages left
    std::size_t count = 0;
    std::uint32_t milliseconds = 0;
    bool isQueued = false;
};
}  // namespace Host
