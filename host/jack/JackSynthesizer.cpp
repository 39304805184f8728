#include "host/jack/JackSynthesizer.h"

#include <stdexcept>
#include <utility>

#include "host/jack/JackClient.h"
#include "host/jack/JackPorts.h"

namespace Host
{
namespace
{
jack_port_t* registerAudioOutput(jack_client_t* client, const char* name)
{
    jack_port_t* port = jack_port_register(client, name, JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput, 0);
    if (port == nullptr) throw std::runtime_error("the JACK server refuses another audio port");
    return port;
}

float* audioBuffer(jack_port_t* port, jack_nframes_t frames)
{
    return static_cast<float*>(jack_port_get_buffer(port, frames));
}
}  // namespace

JackSynthesizer::JackSynthesizer(std::unique_ptr<Synthesizer> soundSource, OutputPort& output)
    : port(output), synthesizer(std::move(soundSource))
{
}

JackSynthesizer::~JackSynthesizer()
{
    discardReplaced();
    delete next.load();
}

void JackSynthesizer::setSound(const Sound& sound)
{
    volume.store(sound.volume);
    reverb.store(sound.reverb);
}

void JackSynthesizer::replace(std::unique_ptr<Synthesizer> successor)
{
    discardReplaced();
    delete next.exchange(successor.release());
}

void JackSynthesizer::takeChanges()
{
    if (next.load() != nullptr && replaced.load() == nullptr) {
        Synthesizer* const successor = next.exchange(nullptr);
        successor->takeChannels(*synthesizer);
        replaced.store(synthesizer.release());
        synthesizer.reset(successor);
    }
    synthesizer->setVolume(volume.load());
    synthesizer->setReverb(reverb.load());
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
    takeChanges();
    jack_nframes_t done = 0;
    const auto renderTo = [&](jack_nframes_t frame) {
        if (frame > done) synthesizer->render(leftBuffer + done, rightBuffer + done, static_cast<int>(frame - done));
        done = frame;
    };
    port.deliver(start, [&](const ShortMessage& message, std::uint32_t stamp) {
        renderTo(frameOf(stamp, start, done, frames - 1));
        synthesizer->play(message);
        return true;
    });
    renderTo(frames);
}
}  // namespace Host
