#include "host/jack/JackPorts.h"

#include <algorithm>

#include <jack/midiport.h>

#include "platform/Clock.h"

namespace Host
{
jack_nframes_t frameOf(std::uint32_t stamp, std::uint32_t start, jack_nframes_t earliest, jack_nframes_t latest)
{
    const auto frame = static_cast<std::int32_t>(stamp - start);
    return frame < 0 ? earliest : std::clamp(static_cast<jack_nframes_t>(frame), earliest, latest);
}
bool receive(InputPort& input, jack_port_t* own, jack_nframes_t frames, const JackClockSink& clock)
{
    if (!input.open.load(std::memory_order_relaxed)) return false;
    void* buffer = jack_port_get_buffer(own, frames);
    bool arrived = false;
    const std::uint32_t milliseconds = monotonicMilliseconds();
    jack_midi_event_t event;
    for (std::uint32_t index = 0; jack_midi_event_get(&event, buffer, index) == 0; ++index) {
        const auto message = readShortMessage({event.buffer, event.size});
        if (message) clock.receive(*message, event.time);
        if (!message || staysInHost(*message)) continue;
        arrived = input.take(*message, event.time, milliseconds) || arrived;
    }
    return arrived;
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
