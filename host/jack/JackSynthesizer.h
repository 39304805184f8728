#pragma once

#include <cstdint>

#include <jack/jack.h>

#include "host/ports/Port.h"
#include "host/synthesizer/Synthesizer.h"

namespace Host
{
/// The built-in synthesizer as two audio ports of our client. It outlives a client and keeps what it was told.
class JackSynthesizer
{
public:
    /// Throws std::runtime_error with one line for the user if it cannot sound.
    JackSynthesizer(double sampleRate, OutputPort& output);

    static constexpr const char* LEFT = "Synthesizer Left";
    static constexpr const char* RIGHT = "Synthesizer Right";

    /// Registers the two ports in a graph. Throws as above. Before the client is activated.
    void enter(jack_client_t* client);

    /// Joins the two to the sound card's; false if there is none. After the client was activated.
    bool connectToSoundCard(jack_client_t* client) const;

    /// Whether either is joined to anything.
    bool isConnected() const;

    /// Renders the period, each message at its frame. Process callback.
    void render(std::uint32_t start, jack_nframes_t frames);

    /// From the next period on. Process callback, or before the client is activated. A rate that it cannot have
    /// leaves it as it is, out of tune.
    void setRate(double sampleRate) { synthesizer.setRate(sampleRate); }

private:
    OutputPort& port;
    Synthesizer synthesizer;
    jack_port_t* left = nullptr;
    jack_port_t* right = nullptr;
};
}  // namespace Host
