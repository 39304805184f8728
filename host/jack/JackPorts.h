#pragma once

#include <cstdint>

#include <jack/jack.h>

#include "host/clock/Clock.h"
#include "host/ports/Port.h"

namespace Host
{
/// Who hears the MIDI clock at an input: the host's, null for nobody. `start` is the stamp of the period's first frame.
struct JackClockEar {
    Clock* clock;
    int input;
    std::uint32_t start;

    void hear(const ShortMessage& message, jack_nframes_t frame) const
    {
        if (clock != nullptr) clock->hearInGraph(input, message, start + frame);
    }
};

/// Takes what arrived at our port in this period; true if there was something for others than the clock. Process
/// callback.
bool receive(InputPort& input, jack_port_t* own, jack_nframes_t frames, const JackClockEar& ear);

/// The frame of a period on which a stamp falls: `earliest` for a stamp that is late, never after `latest`.
jack_nframes_t frameOf(std::uint32_t stamp, std::uint32_t start, jack_nframes_t earliest, jack_nframes_t latest);

/// Writes what was played, each message at its frame. `start` is the stamp of the period's first frame. What the
/// port's buffer cannot hold waits for the next period. Process callback.
void deliver(OutputPort& output, jack_port_t* own, std::uint32_t start, jack_nframes_t frames);
}  // namespace Host
