#pragma once

#include <cstdint>

#include <jack/jack.h>

#include "host/ports/Port.h"
#include "host/synthesizer/Synthesizer.h"

namespace Host
{
/// The built-in synthesizer as two audio ports of our client. It outlives the client and keeps its programs and
/// controllers.
class JackSynthesizer
{
public:
    /// Throws std::runtime_error with one line for the user if there is no sound font or it cannot be loaded.
    JackSynthesizer(double sampleRate, OutputPort& output);

    static constexpr const char* LEFT = "Synthesizer Left";
    static constexpr const char* RIGHT = "Synthesizer Right";

    /// Registers the two ports. Throws std::runtime_error if the server refuses. Before the client is activated.
    void enter(jack_client_t* client);

    /// Connects the two ports to the sound card's. False if there is none. After the client was activated.
    bool connectToSoundCard(jack_client_t* client) const;

    /// Either port has a connection.
    bool isConnected() const;

    /// Renders the period, each message at its frame. Process callback.
    void render(std::uint32_t start, jack_nframes_t frames);

    /// The sample rate from the next period on. A rate outside 8000 to 96000 is ignored, and the synthesizer is out of
    /// tune. Process callback, or before the client is activated.
    void setRate(double sampleRate) { synthesizer.setRate(sampleRate); }

private:
    OutputPort& port;
    Synthesizer synthesizer;
    jack_port_t* left = nullptr;
    jack_port_t* right = nullptr;
};
}  // namespace Host
