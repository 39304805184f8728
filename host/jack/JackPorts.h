#pragma once

#include <cstdint>

#include <jack/jack.h>

#include "host/clock/Clock.h"
#include "host/ports/Port.h"

namespace Host
{
/// Passes the messages of an input to the clock. `start` is the stamp of the period's first frame.
struct JackClockSink {
    Clock* clock;  ///< null for none
    int input;
    std::uint32_t start;

    void receive(const ShortMessage& message, jack_nframes_t frame) const
    {
        if (clock != nullptr) clock->receiveInGraph(input, message, start + frame);
    }
};

/// Pushes the messages that arrived at our port in this period into the input's ring, and passes them to the clock.
/// True if any were pushed. Process callback.
bool receive(InputPort& input, jack_port_t* own, jack_nframes_t frames, const JackClockSink& clock);

/// Writes nothing in this period. Process callback.
void deliverNothing(jack_port_t* own, jack_nframes_t frames);

/// The frame of a period on which a stamp falls: `earliest` for a stamp that is late, never after `latest`.
jack_nframes_t frameOf(std::uint32_t stamp, std::uint32_t start, jack_nframes_t earliest, jack_nframes_t latest);

/// Writes the messages that were played to our port, each at its frame. `start` is the stamp of the period's first
/// frame. Messages that do not fit into the port's buffer are written in the next period. Process callback.
void deliver(OutputPort& output, jack_port_t* own, std::uint32_t start, jack_nframes_t frames);
}  // namespace Host
