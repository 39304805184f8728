#include "host/jack/JackPorts.h"

#include <algorithm>

#include <jack/midiport.h>

namespace Host
{
jack_nframes_t frameOf(std::uint32_t stamp, std::uint32_t start, jack_nframes_t earliest, jack_nframes_t latest)
{
    const auto frame = static_cast<std::int32_t>(stamp - start);
    return frame < 0 ? earliest : std::clamp(static_cast<jack_nframes_t>(frame), earliest, latest);
}

void deliverNothing(jack_port_t* own, jack_nframes_t frames)
{
    jack_midi_clear_buffer(jack_port_get_buffer(own, frames));
}

void deliver(OutputPort& output, jack_port_t* own, std::uint32_t start, jack_nframes_t frames)
{
    void* buffer = jack_port_get_buffer(own, frames);
    jack_midi_clear_buffer(buffer);
    jack_nframes_t earliest = 0;
    output.deliver(start, [&](const ShortMessage& message, std::uint32_t stamp) {
        earliest = frameOf(stamp, start, earliest, frames - 1);
        return jack_midi_event_write(buffer, earliest, message.bytes.data(), message.size) == 0;
    });
}
}  // namespace Host
