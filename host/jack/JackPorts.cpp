#include "host/jack/JackPorts.h"

#include <algorithm>
#include <stdexcept>

#include <jack/midiport.h>

#include "host/jack/JackClient.h"
#include "host/synthesizer/SoundFont.h"
#include "platform/Clock.h"

namespace Host
{
namespace
{
/// Where in the period a stamp falls: what is late falls at `earliest`.
jack_nframes_t frameOf(std::uint32_t stamp, std::uint32_t start, jack_nframes_t earliest, jack_nframes_t latest)
{
    const auto frame = static_cast<std::int32_t>(stamp - start);
    return frame < 0 ? earliest : std::clamp(static_cast<jack_nframes_t>(frame), earliest, latest);
}

jack_port_t* registerAudioOutput(jack_client_t* client, const char* name)
{
    jack_port_t* port = jack_port_register(client, name, JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput, 0);
    if (port == nullptr) throw std::runtime_error("the JACK server gives no audio port");
    return port;
}

float* audioBuffer(jack_port_t* port, jack_nframes_t frames)
{
    return static_cast<float*>(jack_port_get_buffer(port, frames));
}
}  // namespace

bool receive(InputPort& input, jack_port_t* own, jack_nframes_t frames, const JackClockEar& ear)
{
    if (!input.open.load(std::memory_order_relaxed)) return false;
    void* buffer = jack_port_get_buffer(own, frames);
    bool arrived = false;
    const std::uint32_t milliseconds = monotonicMilliseconds();
    jack_midi_event_t event;
    for (std::uint32_t index = 0; jack_midi_event_get(&event, buffer, index) == 0; ++index) {
        const auto message = readShortMessage({event.buffer, event.size});
        if (message) ear.hear(*message, event.time);
        if (!message || staysInHost(*message)) continue;
        arrived = input.take(*message, event.time, milliseconds) || arrived;
    }
    return arrived;
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

JackSynthesizer::JackSynthesizer(double sampleRate, OutputPort& output)
    : port(output), synthesizer(findSoundFont(), sampleRate, SynthesizerUse::oneThread)
{
}

void JackSynthesizer::enter(jack_client_t* client)
{
    left = registerAudioOutput(client, LEFT);
    right = registerAudioOutput(client, RIGHT);
}

bool JackSynthesizer::connectToSoundCard(jack_client_t* client) const
{
    const auto playback = findPlaybackPorts(client);
    if (playback.empty()) return false;
    jack_connect(client, jack_port_name(left), playback.front().c_str());
    jack_connect(client, jack_port_name(right), playback[playback.size() > 1 ? 1 : 0].c_str());
    return true;
}

bool JackSynthesizer::isConnected() const { return jack_port_connected(left) > 0 || jack_port_connected(right) > 0; }

void JackSynthesizer::render(std::uint32_t start, jack_nframes_t frames)
{
    float* const leftBuffer = audioBuffer(left, frames);
    float* const rightBuffer = audioBuffer(right, frames);
    jack_nframes_t done = 0;
    const auto renderTo = [&](jack_nframes_t frame) {
        if (frame > done) synthesizer.render(leftBuffer + done, rightBuffer + done, static_cast<int>(frame - done));
        done = frame;
    };
    port.deliver(start, [&](const ShortMessage& message, std::uint32_t stamp) {
        renderTo(frameOf(stamp, start, done, frames - 1));
        synthesizer.play(message);
        return true;
    });
    renderTo(frames);
}
}  // namespace Host
