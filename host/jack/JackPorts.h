#pragma once

#include <cstdint>

#include <jack/jack.h>

#include "host/ports/Port.h"

namespace Host
{
/// Writes nothing in this period. Process callback.
void deliverNothing(jack_port_t* own, jack_nframes_t frames);

/// The frame of a period on which a stamp falls: `earliest` for a stamp that is late, never after `latest`.
jack_nframes_t frameOf(std::uint32_t stamp, std::uint32_t start, jack_nframes_t earliest, jack_nframes_t latest);

/// Writes the messages that were played to our port, each at its frame. `start` is the stamp of the period's first
/// frame. Messages that do not fit into the port's buffer are written in the next period. Process callback.
void deliver(OutputPort& output, jack_port_t* own, std::uint32_t start, jack_nframes_t frames);
}  // namespace Host
